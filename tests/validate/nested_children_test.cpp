// The children of nested blocks, to any depth.

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
      nest:
        kind: nested_block
        terminator: end
        entries:
          number: {value_type: integer, aliases: [num]}
          many: {kind: flag, repeatable: true}
          block: {kind: block, terminator: endblock}
          inner:
            kind: nested_block
            terminator: endinner
            entries:
              deep: {value_type: integer, aliases: [dp]}
              deeper: {kind: nested_block, entries: {deepest: {requires: deep}}}
          a: {kind: flag, aliases: [x], repeatable: true}
          b: {kind: flag, aliases: [a]}
)");
  return schema;
}

Findings of(const std::string& children, const ValidationOptions& options = {}) {
  return findings(schema(), "$m\nnest\n" + children + "\nend\n$end\n", options);
}

std::string duplicate(const std::string& place, const std::string& path) {
  return place + " warning bdf.duplicate_entry BDF nested entry '" + path +
         "' is repeated although the manual defines it as singular.";
}

TEST(UnknownChild, IsReportedAsTheTwoEntrySwitchesSay) {
  const std::string warning =
      "3:1+3 warning bdf.unknown_nested_entry Unknown BDF nested entry 'm.nest.odd' was preserved "
      "raw.";
  const std::string error =
      "3:1+3 error bdf.unknown_nested_entry Unknown BDF nested entry 'm.nest.odd'.";
  for (const bool modules : {false, true}) {
    EXPECT_THAT(of("ODD", {modules, false, modules, false}), IsEmpty());
    EXPECT_THAT(of("ODD", {modules, true, modules, false}), ElementsAre(warning));
    EXPECT_THAT(of("ODD", {modules, false, modules, true}), ElementsAre(error));
    EXPECT_THAT(of("ODD", {modules, true, modules, true}), ElementsAre(error));
  }
}

TEST(UnknownChild, ThatIsABlankLineIsNone) {
  EXPECT_THAT(of("\n \t\nmany\n\v", unknown_names_as_errors()), IsEmpty());
}

TEST(UnknownChild, ThatIsACommentIsOne) {
  EXPECT_THAT(of("# c", unknown_names_as_errors()),
              ElementsAre("3:1+3 error bdf.unknown_nested_entry Unknown BDF nested entry "
                          "'m.nest.#'."));
}

TEST(UnknownChild, MadeByHandWithoutALineIsNone) {
  BDFData data = BDFParser::parse_string("$m\nnest\nodd\nend\n$end\n", schema(), {}).data;
  data.modules.at(0).entries.at(0).children.at(0).raw_line.clear();
  EXPECT_THAT(findings(schema(), data, unknown_names_as_errors()), IsEmpty());
}

TEST(KnownChild, IsCheckedLikeAnEntryUnderItsPath) {
  EXPECT_THAT(of("Num\n 1.5\nblock\nx\nendblock"),
              ElementsAre("3:1+3 error bdf.invalid_module_value BDF module entry 'm.nest.number' "
                          "has an invalid value '1.5'."));
  EXPECT_THAT(of("number\nmany"),
              ElementsAre("3:1+6 warning bdf.missing_entry_value BDF module entry "
                          "'m.nest.number' normally requires a value."));
  EXPECT_THAT(findings(schema(), "$m\nnest\nblock\nx\n$end\n"),
              ElementsAre("2:1+4 error bdf.unterminated_entry_block BDF module entry block "
                          "'m.nest' is not terminated by 'end'.",
                          "3:1+5 error bdf.unterminated_entry_block BDF module entry block "
                          "'m.nest.block' is not terminated by 'endblock'."));
}

TEST(KnownChild, ThatRecursIsFoundAtItsParent) {
  EXPECT_THAT(of("number\n1\nNum\n2\nnumber\n3"), ElementsAre(duplicate("2:1+4", "m.nest.number")));
  EXPECT_THAT(of("many\nmany\nodd\nodd"), IsEmpty());
}

TEST(KnownChild, ThatRecursIsCountedByBlock) {
  EXPECT_THAT(findings(schema(), "$m\nnest\nnumber\n1\nend\nnest\nnumber\n1\nend\n$end\n"),
              ElementsAre("1:1+2 warning bdf.duplicate_entry BDF module entry 'm.nest' is repeated "
                          "although the manual defines it as singular."));
}

TEST(KnownChild, ThatRecursIsNamedAndJudgedByWhatItsNameLeadsTo) {
  // "x" reads as "a", and that name was taken over by "b".
  EXPECT_THAT(of("x\nx"), ElementsAre(duplicate("2:1+4", "m.nest.b")));
}

TEST(KnownChild, DuplicatesComeBehindAllChildrenInTheOrderOfTheirFirstOccurrence) {
  EXPECT_THAT(of("number\nb\nnumber\n1\nb"),
              ElementsAre("3:1+6 warning bdf.missing_entry_value BDF module entry "
                          "'m.nest.number' normally requires a value.",
                          duplicate("2:1+4", "m.nest.number"), duplicate("2:1+4", "m.nest.b")));
}

TEST(InnerBlock, ReadAsLinesHasNoChildrenToCheck) {
  EXPECT_THAT(of("inner\ndeep\n1.5\nendinner"),
              ElementsAre("2:1+4 error bdf.unterminated_entry_block BDF module entry block "
                          "'m.nest' is not terminated "
                          "by 'end'."));
}

ModuleEntry node(std::string name, std::vector<std::string> values,
                 std::vector<ModuleEntry> children = {}) {
  ModuleEntry made;
  made.name = std::move(name);
  made.raw_line = made.name;
  made.values = std::move(values);
  made.children = std::move(children);
  made.location = SourceSpan{made.name.size(), 1, 0};
  return made;
}

TEST(InnerBlock, MadeByHandIsCheckedToAnyDepth) {
  BDFData data;
  data.mode = InputMode::Module;
  data.modules.resize(1);
  data.modules[0].name = "m";
  data.modules[0].known = true;
  ModuleEntry deeper = node("deeper", {}, {node("deepest", {}), node("odd", {})});
  deeper.terminated = false;
  data.modules[0].entries = {
      node("nest", {}, {node("inner", {}, {node("dp", {"x"}), node("deep", {"1"}), deeper})})};
  EXPECT_THAT(
      findings(schema(), data, unknown_names_as_errors()),
      ElementsAre("2:1+0 error bdf.invalid_module_value BDF module entry 'm.nest.inner.deep' has "
                  "an invalid value 'x'.",
                  "6:1+0 error bdf.unterminated_entry_block BDF module entry block "
                  "'m.nest.inner.deeper' is not terminated by ''.",
                  "7:1+0 warning bdf.missing_entry_value BDF module entry "
                  "'m.nest.inner.deeper.deepest' normally requires a value.",
                  "7:1+0 error bdf.missing_required_entry BDF nested entry "
                  "'m.nest.inner.deeper.deepest' requires 'm.nest.inner.deeper.deep'.",
                  "3:1+0 error bdf.unknown_nested_entry Unknown BDF nested entry "
                  "'m.nest.inner.deeper.odd'.",
                  duplicate("5:1+0", "m.nest.inner.deep")));
}

}  // namespace
}  // namespace kelp::input::bdf
