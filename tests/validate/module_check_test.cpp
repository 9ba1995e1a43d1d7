// What is said about modules as such, and about names that the schema does not know.

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
  m: {aliases: [em], entries: {single: {kind: flag, aliases: [s]}, many: {kind: flag, repeatable: true}, note: {kind: raw}}}
  loop: {repeatable: true}
  one: {}
  chain: {aliases: [link]}
  owner: {aliases: [chain]}
)");
  return schema;
}

std::string duplicate(const std::string& name) {
  return "nowhere warning bdf.duplicate_module BDF module '$" + name +
         "' is repeated although the schema marks it singular.";
}

TEST(UnknownModule, IsReportedAsTheTwoModuleSwitchesSay) {
  constexpr std::string_view text = "$foo\n$end\n";
  const std::string warning =
      "1:1+4 warning bdf.unknown_module Unknown BDF module '$foo' was preserved raw.";
  const std::string error = "1:1+4 error bdf.unknown_module Unknown BDF module '$foo'.";
  for (const bool entries : {false, true}) {
    EXPECT_THAT(findings(schema(), text, {false, entries, false, entries}), IsEmpty());
    EXPECT_THAT(findings(schema(), text, {true, entries, false, entries}), ElementsAre(warning));
    EXPECT_THAT(findings(schema(), text, {false, entries, true, entries}), ElementsAre(error));
    EXPECT_THAT(findings(schema(), text, {true, entries, true, entries}), ElementsAre(error));
  }
}

TEST(UnknownEntry, IsReportedAsTheTwoEntrySwitchesSay) {
  constexpr std::string_view text = "$m\nfoo\n$end\n";
  const std::string warning =
      "2:1+3 warning bdf.unknown_entry Unknown BDF module entry 'm.foo' was preserved raw.";
  const std::string error = "2:1+3 error bdf.unknown_entry Unknown BDF module entry 'm.foo'.";
  for (const bool modules : {false, true}) {
    EXPECT_THAT(findings(schema(), text, {modules, false, modules, false}), IsEmpty());
    EXPECT_THAT(findings(schema(), text, {modules, true, modules, false}), ElementsAre(warning));
    EXPECT_THAT(findings(schema(), text, {modules, false, modules, true}), ElementsAre(error));
    EXPECT_THAT(findings(schema(), text, {modules, true, modules, true}), ElementsAre(error));
  }
}

TEST(UnknownEntry, IsAnyLineThatNamesNoEntryCommentsAndBlankLinesIncluded) {
  EXPECT_THAT(findings(schema(), "$m\n# Note\n\n  x y\n$end\n", unknown_names_as_errors()),
              ElementsAre("2:1+6 error bdf.unknown_entry Unknown BDF module entry 'm.#'.",
                          "3:1+0 error bdf.unknown_entry Unknown BDF module entry 'm.'.",
                          "4:1+5 error bdf.unknown_entry Unknown BDF module entry 'm.x'."));
}

TEST(UnknownEntry, OfAnUnknownModuleIsReportedBehindTheModule) {
  EXPECT_THAT(findings(schema(), "$foo\nsingle\n$end\n", unknown_names_as_errors()),
              ElementsAre("1:1+4 error bdf.unknown_module Unknown BDF module '$foo'.",
                          "2:1+6 error bdf.unknown_entry Unknown BDF module entry 'foo.single'."));
}

TEST(UnterminatedModule, IsFoundForKnownAndUnknownOnesWhateverTheSwitches) {
  EXPECT_THAT(findings(schema(), "$m\n$foo\n"),
              ElementsAre("1:1+2 error bdf.unterminated_module BDF module '$m' is not terminated "
                          "by $end.",
                          "2:1+4 error bdf.unterminated_module BDF module '$foo' is not "
                          "terminated by $end."));
  EXPECT_THAT(findings(schema(), "$foo\n", unknown_names_as_errors()),
              ElementsAre("1:1+4 error bdf.unknown_module Unknown BDF module '$foo'.",
                          "1:1+4 error bdf.unterminated_module BDF module '$foo' is not "
                          "terminated by $end."));
}

TEST(DuplicateModule, IsOneUnderWhateverNameItRecurs) {
  EXPECT_THAT(findings(schema(), "$EM\n$end\n$m\n$end\n$em\n$end\n"), ElementsAre(duplicate("m")));
}

TEST(DuplicateModule, IsNoneWhenTheSchemaLetsItRecur) {
  EXPECT_THAT(findings(schema(), "$loop\n$end\n$loop\n$end\n"), IsEmpty());
}

TEST(DuplicateModule, IsNoneWhenTheSchemaDoesNotKnowIt) {
  EXPECT_THAT(findings(schema(), "$foo\n$end\n$foo\n$end\n"), IsEmpty());
}

TEST(DuplicateModule, IsCountedUnderTheOwnerOfItsCanonicalName) {
  // "link" stands for "chain", and that name was taken over by "owner".
  EXPECT_THAT(findings(schema(), "$link\n$end\n$owner\n$end\n"), ElementsAre(duplicate("owner")));
}

TEST(DuplicateModule, SeveralComeLastInTheOrderOfTheirFirstOccurrence) {
  EXPECT_THAT(
      findings(schema(), "$one\n$end\n$m\nsingle\nS\n$end\n$m\n$end\n$one\n$end\n"),
      ElementsAre("3:1+2 warning bdf.duplicate_entry BDF module entry 'm.single' is repeated "
                  "although the manual defines it as singular.",
                  duplicate("one"), duplicate("m")));
}

TEST(DuplicateEntry, IsCountedByModule) {
  EXPECT_THAT(findings(schema(), "$m\nsingle\n$end\n$em\nsingle\n$end\n"),
              ElementsAre(duplicate("m")));
}

TEST(DuplicateEntry, IsOneUnderWhateverNameItRecurs) {
  EXPECT_THAT(findings(schema(), "\n $m\nsingle\ns\nSINGLE\n$end\n"),
              ElementsAre("2:1+3 warning bdf.duplicate_entry BDF module entry 'm.single' is "
                          "repeated although the manual defines it as singular."));
}

TEST(DuplicateEntry, IsNoneWhenTheSchemaLetsItRecurOrDoesNotKnowIt) {
  EXPECT_THAT(findings(schema(), "$m\nmany\nmany\nfoo\nfoo\n# c\n# c\n$end\n"), IsEmpty());
}

TEST(DuplicateEntry, IsFoundAmongAnyNumberOfOthers) {
  std::string yaml = "modules:\n  m:\n    entries:\n";
  std::string text = "$m\n";
  for (int i = 0; i < 200; ++i) {
    const std::string name = "e" + std::to_string(i);
    yaml += "      " + name + ": {kind: flag}\n";
    text += name + "\n";
  }
  const auto duplicate_entry = [](const std::string& name) {
    return "1:1+2 warning bdf.duplicate_entry BDF module entry 'm." + name +
           "' is repeated although the manual defines it as singular.";
  };
  EXPECT_THAT(findings(schema_from(yaml), text + "e199\ne0\ne31\ne0\ne32\n$end\n"),
              ElementsAre(duplicate_entry("e0"), duplicate_entry("e31"), duplicate_entry("e32"),
                          duplicate_entry("e199")));
}

TEST(DuplicateEntry, IsFoundForEntriesKeptRawByTheSchemaToo) {
  EXPECT_THAT(findings(schema(), "$m\nnote\nnote\n$end\n"),
              ElementsAre("1:1+2 warning bdf.duplicate_entry BDF module entry 'm.note' is "
                          "repeated although the manual defines it as singular."));
}

TEST(DuplicateEntry, IsJudgedByTheOwnerOfItsCanonicalName) {
  // Once counted as "b", the name is looked up again and leads to "c", which may recur.
  const InputSchema chained = schema_from(R"(
modules:
  m:
    entries:
      a: {kind: flag, aliases: [x]}
      b: {kind: flag, aliases: [a]}
      c: {kind: flag, repeatable: true, aliases: [b]}
)");
  const ModuleEntry entry = [] {
    ModuleEntry made;
    made.name = "a";
    return made;
  }();
  BDFData data;
  data.mode = InputMode::Module;
  data.modules.resize(1);
  data.modules[0].name = "m";
  data.modules[0].known = true;
  data.modules[0].entries = {entry, entry};
  EXPECT_THAT(findings(chained, data), IsEmpty());
}

TEST(ModuleCheck, ReadsTheFlagsOfTheRecordAndNotTheSchema) {
  BDFData data;
  data.mode = InputMode::Module;
  data.modules.resize(1);
  data.modules[0].name = "m";
  EXPECT_THAT(findings(schema(), data, unknown_names_as_errors()),
              ElementsAre("nowhere error bdf.unknown_module Unknown BDF module '$m'."));
  data.modules[0].known = true;
  data.modules[0].name = "foo";
  EXPECT_THAT(findings(schema(), data, unknown_names_as_errors()), IsEmpty());
}

TEST(ModuleCheck, OnAnEmptySchemaFindsUnknownNamesOnly) {
  EXPECT_THAT(findings(InputSchema(), "$m\nx\nx\n$end\n$m\n$end\n"), IsEmpty());
}

}  // namespace
}  // namespace kelp::input::bdf
