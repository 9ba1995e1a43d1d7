// What is checked of an entry, by its kind: presence of a value, the end of a block, the value.

#include <string>
#include <string_view>

#include "validate/findings.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const InputSchema& schema() {
  static const InputSchema schema = schema_from(R"(
modules:
  m:
    entries:
      flag: {kind: flag, value_type: integer, arity: 5}
      raw: {kind: raw, value_type: integer, arity: 5}
      scalar: {value_type: integer}
      tuple: {kind: tuple, value_type: integer}
      lines: {kind: multiline, value_type: integer}
      rows: {kind: counted_rows, value_type: integer}
      block: {kind: block, terminator: $end_of_block, value_type: integer, arity: 5}
      nest: {kind: nested_block, terminator: endnest, value_type: integer, arity: 5, entries: {c: {kind: flag}}}
      open: {kind: nested_block}
)");
  return schema;
}

ModuleEntry entry(std::string name, std::vector<std::string> values) {
  ModuleEntry made;
  made.name = std::move(name);
  made.values = std::move(values);
  made.raw_line = made.name;
  return made;
}

BDFData holding(ModuleEntry entry) {
  BDFData data;
  data.mode = InputMode::Module;
  data.modules.resize(1);
  data.modules[0].name = "m";
  data.modules[0].known = true;
  data.modules[0].entries.push_back(std::move(entry));
  return data;
}

std::string missing_value(const std::string& place, const std::string& name) {
  return place + " warning bdf.missing_entry_value BDF module entry 'm." + name +
         "' normally requires a value.";
}

TEST(EntryCheck, AFlagOrARawEntryIsNotLookedInto) {
  for (const std::string name : {"flag", "raw"}) {
    EXPECT_THAT(findings(schema(), holding(entry(name, {}))), IsEmpty()) << name;
    EXPECT_THAT(findings(schema(), holding(entry(name, {"x", "y"}))), IsEmpty()) << name;
    ModuleEntry open = entry(name, {"x"});
    open.terminated = false;
    open.children = {entry("odd", {})};
    EXPECT_THAT(findings(schema(), holding(open), unknown_names_as_errors()), IsEmpty()) << name;
  }
}

TEST(EntryCheck, EveryOtherKindNormallyHasAValue) {
  for (const std::string name : {"scalar", "tuple", "lines", "rows", "block", "nest", "open"}) {
    EXPECT_THAT(findings(schema(), holding(entry(name, {}))),
                ElementsAre(missing_value("nowhere", name)));
  }
}

TEST(EntryCheck, AMissingValueEndsTheCheck) {
  for (const std::string name : {"block", "nest", "open", "rows", "lines"}) {
    ModuleEntry open = entry(name, {});
    open.terminated = false;
    EXPECT_THAT(findings(schema(), holding(open)), ElementsAre(missing_value("nowhere", name)));
  }
  EXPECT_THAT(findings(schema(), "$m\nblock\n$end\n"),
              ElementsAre(missing_value("2:1+5", "block")));
  EXPECT_THAT(findings(schema(), "$m\nnest\n$end\n"), ElementsAre(missing_value("2:1+4", "nest")));
}

TEST(EntryCheck, ABlankLineOrAChildIsAValueOfAKind) {
  EXPECT_THAT(findings(schema(), "$m\nscalar\n\n$end\n"), IsEmpty());
  ModuleEntry parent = entry("scalar", {});
  parent.children = {entry("anything", {})};
  EXPECT_THAT(findings(schema(), holding(parent), unknown_names_as_errors()), IsEmpty());
}

TEST(EntryCheck, AnOpenBlockIsFoundAndItsLinesAreNotChecked) {
  EXPECT_THAT(findings(schema(), "$m\nblock\nx\n$end\n"),
              ElementsAre("2:1+5 error bdf.unterminated_entry_block BDF module entry block "
                          "'m.block' is not terminated by 'end_of_block'."));
  EXPECT_THAT(findings(schema(), "$m\nblock\nx\nend_of_block\n$end\n"), IsEmpty());
}

TEST(EntryCheck, AnOpenNestedBlockIsFoundBeforeItsChildren) {
  EXPECT_THAT(findings(schema(), "$m\nnest\nodd\n$end\n", unknown_names_as_errors()),
              ElementsAre("2:1+4 error bdf.unterminated_entry_block BDF module entry block "
                          "'m.nest' is not terminated by 'endnest'.",
                          "3:1+3 error bdf.unknown_nested_entry Unknown BDF nested entry "
                          "'m.nest.odd'."));
  EXPECT_THAT(findings(schema(), "$m\nopen\nodd\n$end\n"),
              ElementsAre("2:1+4 error bdf.unterminated_entry_block BDF module entry block "
                          "'m.open' is not terminated by ''."));
}

TEST(EntryCheck, OnlyBlocksHaveAnEnd) {
  for (const std::string name : {"scalar", "tuple", "lines", "rows"}) {
    ModuleEntry open = entry(name, {"1"});
    open.terminated = false;
    EXPECT_THAT(findings(schema(), holding(open)), IsEmpty()) << name;
  }
}

TEST(EntryCheck, TheTypeConcernsOneLineManyLinesAndRowsAlike) {
  for (const std::string name : {"scalar", "tuple", "lines", "rows"}) {
    EXPECT_THAT(findings(schema(), holding(entry(name, {"1", "2"}))), IsEmpty());
    EXPECT_THAT(findings(schema(), holding(entry(name, {"1", "x"}))),
                ElementsAre("nowhere error bdf.invalid_module_value BDF module entry 'm." + name +
                            "' has an invalid value '1 | x'."));
  }
}

TEST(EntryCheck, TheValuesOfANestedBlockAreNotChecked) {
  EXPECT_THAT(findings(schema(), holding(entry("nest", {"x"}))), IsEmpty());
}

TEST(EntryCheck, TheKindOfTheSchemaCountsAndNotThatOfTheRecord) {
  ModuleEntry scalar = entry("scalar", {"x"});
  scalar.kind = EntryValueKind::Flag;
  EXPECT_EQ(findings(schema(), holding(scalar)).size(), 1U);
}

TEST(EntryCheck, AnEntryIsFoundUnderAnySpellingAndNamedByTheSchema) {
  EXPECT_THAT(findings(schema(), holding(entry(" $SCALAR ", {}))),
              ElementsAre(missing_value("nowhere", "scalar")));
}

}  // namespace
}  // namespace kelp::input::bdf
