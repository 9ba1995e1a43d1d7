// What entries require beside them and what they conflict with; the same rules hold within a module
// and within a nested block.

#include <string>
#include <string_view>

#include "validate/findings.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The same entries stand in the module and in its block.
const InputSchema& schema() {
  static const InputSchema schema = schema_from(R"(
modules:
  m:
    entries: &entries
      mode: {kind: multiline, aliases: [md], repeatable: true}
      flag: {kind: flag, aliases: [f], repeatable: true}
      needs: {kind: flag, requires: flag, repeatable: true}
      needs_alias: {kind: flag, requires: F}
      needs_both: {kind: flag, requires: [flag, mode]}
      needs_yes: {kind: flag, requires: [{entry: md, equals: 'Yes'}]}
      needs_dollar: {kind: flag, requires: [{entry: mode, equals: $Yes}]}
      needs_absent: {kind: flag, requires: [{entry: Nowhere, equals: $X}]}
      fights: {kind: flag, conflicts: [flag, mode], repeatable: true}
      fights_alias: {kind: flag, conflicts: F}
      fights_unknown: {kind: flag, conflicts: odd}
      left: {kind: flag, conflicts: right}
      right: {kind: flag, conflicts: left}
      last: {kind: flag}
      selfish: {kind: flag, conflicts: selfish, repeatable: true}
      broken: {value_type: integer, requires: flag, conflicts: mode}
  n:
    entries:
      nest:
        kind: nested_block
        terminator: end
        entries: *entries
)");
  return schema;
}

/// What is said about lines of a module `m` or of a block `n.nest`; the numbers of lines agree. The
/// last line keeps values from running over the end of the block.
Findings in_module(const std::string& lines) {
  return findings(schema(), "\n$m\n" + lines + "\nlast\n$end\n");
}
Findings in_block(const std::string& lines) {
  return findings(schema(), "$n\nnest\n" + lines + "\nlast\nend\n$end\n");
}

std::string missing(int level, const std::string& place, const std::string& entry,
                    const std::string& what) {
  return place + " error bdf.missing_required_entry BDF " +
         (level == 0 ? "module entry 'm." : "nested entry 'n.nest.") + entry + "' requires '" +
         (level == 0 ? "m." : "n.nest.") + what;
}

std::string conflict(int level, const std::string& place, const std::string& entry,
                     const std::string& other) {
  return place + " error bdf.conflicting_entries BDF " +
         (level == 0 ? "module entries 'm." : "nested entries 'n.nest.") + entry + "' and '" +
         (level == 0 ? "m." : "n.nest.") + other + "' conflict.";
}

class Relations : public ::testing::TestWithParam<int> {
 protected:
  static Findings of(const std::string& lines) {
    return GetParam() == 0 ? in_module(lines) : in_block(lines);
  }
  static std::string missing(const std::string& place, const std::string& entry,
                             const std::string& what) {
    return bdf::missing(GetParam(), place, entry, what);
  }
  static std::string conflict(const std::string& place, const std::string& entry,
                              const std::string& other) {
    return bdf::conflict(GetParam(), place, entry, other);
  }
};

TEST_P(Relations, ARequirementHoldsWhereverTheEntryStands) {
  EXPECT_THAT(of("needs\nflag"), IsEmpty());
  EXPECT_THAT(of("flag\nneeds"), IsEmpty());
  EXPECT_THAT(of("needs"), ElementsAre(missing("3:1+5", "needs", "flag'.")));
}

TEST_P(Relations, ARequirementMeetsAliasesOnBothSides) {
  EXPECT_THAT(of("needs\nF"), IsEmpty());
  EXPECT_THAT(of("needs_alias\nflag"), IsEmpty());
  EXPECT_THAT(of("needs_alias\nf"), IsEmpty());
  EXPECT_THAT(of("needs_alias"), ElementsAre(missing("3:1+11", "needs_alias", "f'.")));
}

TEST_P(Relations, EachRequirementAndEachOccurrenceIsTestedByItself) {
  EXPECT_THAT(of("needs_both"), ElementsAre(missing("3:1+10", "needs_both", "flag'."),
                                            missing("3:1+10", "needs_both", "mode'.")));
  EXPECT_THAT(of("needs\n needs"), ElementsAre(missing("3:1+5", "needs", "flag'."),
                                               missing("4:1+6", "needs", "flag'.")));
}

TEST_P(Relations, ARequiredValueIsTheFirstLineThatIsNotBlankOrComment) {
  for (const std::string lines : {"mode\nyes", "md\n  YES  # comment", "mode\n\n# no\n\tYes\nno"}) {
    EXPECT_THAT(of(lines + "\nneeds_yes"), IsEmpty()) << lines;
  }
  for (const std::string lines : {"mode\nno\nyes", "mode\nyes no", "mode\n# yes"}) {
    EXPECT_THAT(of("needs_yes\n" + lines), ElementsAre(missing("3:1+9", "needs_yes", "md'=yes.")))
        << lines;
  }
}

TEST_P(Relations, ARequiredValueIsWrittenInTheSchemaWithOrWithoutADollar) {
  EXPECT_THAT(of("needs_dollar\nmode\n yes"), IsEmpty());
}

TEST_P(Relations, OnlyTheFirstEntryOfTheNameCountsForARequiredValue) {
  EXPECT_THAT(of("needs_yes\nmode\nno\nmode\nyes"),
              ElementsAre(missing("3:1+9", "needs_yes", "md'=yes.")));
  EXPECT_THAT(of("needs_yes\nmode\nyes\nmode\nno"), IsEmpty());
}

TEST_P(Relations, ARequiredValueOfAnAbsentEntryIsNamedAsTheSchemaStoresIt) {
  EXPECT_THAT(of("needs_absent"), ElementsAre(missing("3:1+12", "needs_absent", "nowhere'=x.")));
}

TEST_P(Relations, AConflictIsFoundWhereverTheOtherStands) {
  EXPECT_THAT(of("fights\nflag"), ElementsAre(conflict("3:1+6", "fights", "flag")));
  EXPECT_THAT(of("flag\nflag\nfights"), ElementsAre(conflict("5:1+6", "fights", "flag")));
  EXPECT_THAT(of("fights"), IsEmpty());
}

TEST_P(Relations, AConflictMeetsAliasesOnBothSides) {
  EXPECT_THAT(of("fights\nf"), ElementsAre(conflict("3:1+6", "fights", "flag")));
  EXPECT_THAT(of("fights_alias\nflag"), ElementsAre(conflict("3:1+12", "fights_alias", "f")));
}

TEST_P(Relations, EachConflictAndEachOccurrenceIsTestedByItself) {
  EXPECT_THAT(
      of("fights\nfights\nflag\nmode\n1"),
      ElementsAre(conflict("3:1+6", "fights", "flag"), conflict("3:1+6", "fights", "mode"),
                  conflict("4:1+6", "fights", "flag"), conflict("4:1+6", "fights", "mode")));
}

TEST_P(Relations, AConflictListedOnBothSidesIsFoundFromBoth) {
  EXPECT_THAT(of("left\nright"),
              ElementsAre(conflict("3:1+4", "left", "right"), conflict("4:1+5", "right", "left")));
}

TEST_P(Relations, AnEntryThatConflictsWithItselfAlwaysDoes) {
  EXPECT_THAT(of("selfish"), ElementsAre(conflict("3:1+7", "selfish", "selfish")));
}

TEST_P(Relations, AnUnknownEntryCanBeInConflict) {
  EXPECT_THAT(of("fights_unknown\nODD x"),
              ElementsAre(conflict("3:1+14", "fights_unknown", "odd")));
}

TEST_P(Relations, ComeBehindTheValueAndRequirementsBeforeConflicts) {
  const std::string path = GetParam() == 0 ? "m.broken" : "n.nest.broken";
  EXPECT_THAT(
      of("broken\nx\nmode\n1"),
      ElementsAre("3:1+6 error bdf.invalid_module_value BDF module entry '" + path +
                      "' has an invalid value 'x'.",
                  missing("3:1+6", "broken", "flag'."), conflict("3:1+6", "broken", "mode")));
}

INSTANTIATE_TEST_SUITE_P(Levels, Relations, ::testing::Values(0, 1), [](const auto& level) {
  return level.param == 0 ? "InAModule" : "InABlock";
});

TEST(RelationsBetweenLevels, DoNotExist) {
  const InputSchema both = schema_from(R"(
modules:
  m:
    entries:
      flag: {kind: flag}
      nest:
        kind: nested_block
        terminator: end
        requires: inner
        entries: {inner: {kind: flag, requires: flag, conflicts: nest}}
  n: {entries: {needs: {kind: flag, requires: flag}}}
)");
  EXPECT_THAT(findings(both, "$m\nflag\nnest\ninner\nend\n$end\n$n\nneeds\n$end\n"),
              ElementsAre("4:1+5 error bdf.missing_required_entry BDF nested entry 'm.nest.inner' "
                          "requires 'm.nest.flag'.",
                          "3:1+4 error bdf.missing_required_entry BDF module entry 'm.nest' "
                          "requires 'm.inner'.",
                          "8:1+5 error bdf.missing_required_entry BDF module entry 'n.needs' "
                          "requires 'n.flag'."));
}

TEST(RelationsOfMissingValues, AreTestedAllTheSame) {
  const InputSchema needy = schema_from("modules: {m: {entries: {value: {requires: flag}}}}");
  EXPECT_THAT(findings(needy, "$m\nvalue\n$end\n"),
              ElementsAre("2:1+5 warning bdf.missing_entry_value BDF module entry 'm.value' "
                          "normally requires a value.",
                          "2:1+5 error bdf.missing_required_entry BDF module entry 'm.value' "
                          "requires 'm.flag'."));
}

TEST(RequiredValue, LosesOneDollarOnBothSides) {
  BDFData data = BDFParser::parse_string("$m\nneeds_yes\nmode\nyes\n$end\n", schema(), {}).data;
  data.modules.at(0).entries.at(1).values = {" $YES "};
  EXPECT_THAT(findings(schema(), data), IsEmpty());
  data.modules.at(0).entries.at(1).values = {"$$yes"};
  EXPECT_EQ(findings(schema(), data).size(), 1U);
}

TEST(RequiredValue, OfAnEntryWithoutALineIsEmpty) {
  const InputSchema odd = schema_from(
      "modules: {m: {entries: {a: {kind: flag, requires: [{entry: b, equals: $}]}, b: {kind: "
      "raw}}}}");
  EXPECT_THAT(findings(odd, "$m\na\nb\n$end\n"), IsEmpty());
  EXPECT_THAT(findings(odd, "$m\na\nb\n x\n$end\n"),
              ElementsAre("2:1+1 error bdf.missing_required_entry BDF module entry 'm.a' requires "
                          "'m.b'=."));
}

}  // namespace
}  // namespace kelp::input::bdf
