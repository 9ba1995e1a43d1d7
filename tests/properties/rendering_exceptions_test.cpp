// What is not the same when it is written a second time, and why: the cases that the property of
// stable writing leaves out. Each of them follows from a rule of reading and a rule of writing that
// do not fit together; none loses what the first writing kept, unless said so.

#include <gtest/gtest.h>

#include "kelp/input/bdf/editor.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

std::string rewritten(const std::string& text, const InputSchema& schema,
                      const ParseOptions& options = {}) {
  return BDFEditor(BDFParser::parse_string(text, schema, options).data, schema).render();
}

const InputSchema& no_schema() {
  static const InputSchema schema;
  return schema;
}

const char* const empty_geometry = "\n\nGeometry\nEnd Geometry\n";

TEST(WritingTwice, AddsAnEmptyLineToAnEasyInputWithABody) {
  const std::string head = "#!job.bdf\nhf/vdz\n\nGeometry\nEnd Geometry\n";
  EXPECT_EQ(rewritten(head + "\n%date\n", no_schema()), head + "\n\n%date\n");
  EXPECT_EQ(rewritten(head + "\n\n%date\n", no_schema()), head + "\n\n\n%date\n");
  EXPECT_EQ(rewritten(head, no_schema()), head);
}

// A comment ends a word of the header and is not written; the `=` before it then takes the next
// word.
TEST(WritingTwice, JoinsHeaderWordsThatACommentHadKeptApart) {
  const std::string once = rewritten("a=#c b", no_schema());
  EXPECT_EQ(once, std::string("#!job.bdf\na= b") + empty_geometry);
  EXPECT_EQ(rewritten(once, no_schema()), std::string("#!job.bdf\na=b") + empty_geometry);
}

// Header lines become one line, in which an `=` finds a word before it.
TEST(WritingTwice, JoinsHeaderWordsThatTheEndOfALineHadKeptApart) {
  const std::string once = rewritten("a\n= b", no_schema());
  EXPECT_EQ(once, std::string("#!job.bdf\na = b") + empty_geometry);
  EXPECT_EQ(rewritten(once, no_schema()), std::string("#!job.bdf\na=b") + empty_geometry);
}

// One `$` is dropped from a name at a time.
TEST(WritingTwice, DropsOneDollarSignOfAHeaderWordEachTime) {
  const std::string once = rewritten("a $$b", no_schema());
  EXPECT_EQ(once, std::string("#!job.bdf\na $b") + empty_geometry);
  EXPECT_EQ(rewritten(once, no_schema()), std::string("#!job.bdf\na b") + empty_geometry);
}

TEST(WritingTwice, DropsOneMarkerOfAScriptNameEachTime) {
  const std::string once = rewritten("#!#!#!run", no_schema());
  EXPECT_EQ(once, std::string("#!#!run\n") + empty_geometry);
  EXPECT_EQ(rewritten(once, no_schema()), std::string("#!run\n") + empty_geometry);
}

// Reading takes one carriage return off each line, writing puts none back.
TEST(WritingTwice, DropsOneCarriageReturnOfALineEachTime) {
  EXPECT_EQ(rewritten("$a\nx\r\r\r\n$end\n", no_schema()), "$a\nx\r\r\n$end\n");
  EXPECT_EQ(rewritten("$a\nx\r\r\n$end\n", no_schema()), "$a\nx\r\n$end\n");
  EXPECT_EQ(rewritten("$a\nx\r\n$end\n", no_schema()), "$a\nx\n$end\n");
}

// An empty line ends a block whose terminator is empty, and is not written: the block then takes
// what follows.
TEST(WritingTwice, LetsABlockWithoutTerminatorGrow) {
  const InputSchema schema =
      schema_from("modules: {m: {entries: {block: {kind: block}, key: {}}}}");
  const std::string once = rewritten("$m\nblock\nx\n\nkey\n1\n$end\n", schema);
  EXPECT_EQ(once, "$m\n  block\n    x\n  key\n    1\n$end\n");
  EXPECT_EQ(rewritten(once, schema), "$m\n  block\n    x\n    key\n    1\n$end\n");
}

// The lines of a nested child stop at the next child and at the end of the module, but not at the
// terminator of the block around it, which is then written anew each time.
TEST(WritingTwice, RepeatsATerminatorThatAChildHasTaken) {
  const InputSchema schema = schema_from(
      "modules: {m: {entries: {block: {kind: nested_block, terminator: done,"
      " entries: {lines: {kind: multiline}}}}}}");
  const std::string once = rewritten("$m\nblock\nlines\nx\ndone\n$end\n", schema);
  EXPECT_EQ(once, "$m\n  block\n    lines\n      x\n      done\n  done\n$end\n");
  EXPECT_EQ(rewritten(once, schema),
            "$m\n  block\n    lines\n      x\n      done\n      done\n  done\n$end\n");
}

// A policy of its own for unknown names lets an unknown child gather indented lines; writing
// indents the terminator.
TEST(WritingTwice, LetsAnUnknownChildTakeTheTerminatorUnderAnUnknownPolicy) {
  const InputSchema schema = schema_from(
      "modules: {m: {entries: {block: {kind: nested_block, terminator: done,"
      " entries: {key: {}}}}}}");
  ParseOptions options;
  options.custom_unknown_policy = true;
  const std::string once = rewritten("$m\nblock\nodd\ndone\n$end\n", schema, options);
  EXPECT_EQ(once, "$m\n  block\nodd\n  done\n$end\n");
  EXPECT_EQ(rewritten(once, schema, options), "$m\n  block\nodd\n  done\n  done\n$end\n");
}

// The lines of a nested block within a nested block are kept as its values, and such a block is
// written with its children only: this loses them, the first time already.
TEST(WritingTwice, LosesTheLinesOfABlockNestedTwice) {
  const InputSchema schema = schema_from(
      "modules: {m: {entries: {outer: {kind: nested_block, terminator: done,"
      " entries: {inner: {kind: nested_block, terminator: over, entries: {key: {}}}}}}}}");
  EXPECT_EQ(rewritten("$m\nouter\ninner\nkey\n1\nover\ndone\n$end\n", schema),
            "$m\n  outer\n    inner\n    over\n  done\n$end\n");
}

// Where aliases chain, a name is followed one step further each time.
TEST(WritingTwice, FollowsAliasesOneStepEachTime) {
  const InputSchema schema = schema_from("modules: {b: {aliases: [a]}, c: {aliases: [b]}}");
  EXPECT_EQ(rewritten("$a\n$end\n", schema), "$b\n$end\n");
  EXPECT_EQ(rewritten("$b\n$end\n", schema), "$c\n$end\n");
}

}  // namespace
}  // namespace kelp::input::bdf
