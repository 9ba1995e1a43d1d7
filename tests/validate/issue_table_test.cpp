// Every finding there is, once: its place, severity, code and message.

#include <string>
#include <string_view>

#include "kelp/input/bdf/explain.hpp"
#include "validate/fault.hpp"
#include "validate/findings.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;

const InputSchema& schema() {
  static const InputSchema schema = schema_from(R"(
easy_input:
  methods: [hf]
  control_keywords: {charge: {value_type: integer, aliases: [q]}}
modules:
  m:
    aliases: [em]
    entries:
      value: {}
      number: {value_type: integer}
      block: {kind: block, terminator: $End_Block}
      single: {kind: flag}
      wants: {kind: flag, requires: Single}
      wants_values: {kind: flag, requires: [{entry: Value, equals: 'YES'}]}
      fights: {kind: flag, conflicts: Single}
      nest:
        kind: nested_block
        terminator: end
        entries:
          cvalue: {min_arity: 1}
          csingle: {kind: flag}
          cwants: {kind: flag, requires: CSingle}
          cwants_value: {kind: flag, requires: [{entry: cvalue, equals: 'Yes'}]}
          cfights: {kind: flag, conflicts: CSingle}
)");
  return schema;
}

void expect_finding(std::string_view text, const std::string& finding,
                    const ValidationOptions& options = {}) {
  EXPECT_THAT(findings(schema(), text, options), ElementsAre(finding)) << text;
}

std::string module(std::string_view lines) {
  return "$m\n" + std::string(lines) + "\n$end\n";
}

TEST(IssueTable, OfEasyInput) {
  const std::string geometry = "geometry\nH 0 0 0\nend geometry\n";
  expect_finding("hf/svp\nopt Q = 1.5\n" + geometry,
                 "2:1+5 error bdf.invalid_easy_value BDF easy keyword 'charge' has an invalid "
                 "value '1.5'.");
  expect_finding("charge=1\n" + geometry,
                 "nowhere error bdf.missing_method BDF easy/mixed input requires a "
                 "method/functional/basis specification.");
  expect_finding("hf/svp\n",
                 "nowhere error bdf.missing_geometry BDF easy/mixed input requires a Geometry ... "
                 "End Geometry block.");
  expect_finding("hf/svp\n Geometry #\nend geometry",
                 "2:1+11 error bdf.missing_geometry BDF easy/mixed input requires a Geometry ... "
                 "End Geometry block.");
  expect_finding("hf/svp\n Geometry\nH 0 0 0\n",
                 "2:1+9 error bdf.unterminated_geometry BDF Geometry block is not terminated by "
                 "End Geometry.");
}

TEST(IssueTable, OfModules) {
  expect_finding("\n $Odd \n$end\n", "2:1+6 error bdf.unknown_module Unknown BDF module '$odd'.",
                 unknown_names_as_errors());
  expect_finding("\n $Odd \n$end\n",
                 "2:1+6 warning bdf.unknown_module Unknown BDF module '$odd' was preserved raw.",
                 unknown_names_as_warnings());
  expect_finding("  $EM\n",
                 "1:1+5 error bdf.unterminated_module BDF module '$m' is not terminated by $end.");
  expect_finding("$m\n$end\n$em\n$end\n",
                 "nowhere warning bdf.duplicate_module BDF module '$m' is repeated although the "
                 "schema marks it singular.");
}

TEST(IssueTable, OfEntries) {
  expect_finding(module(" ODD x"),
                 "2:1+6 error bdf.unknown_entry Unknown BDF module entry 'm.odd'.",
                 unknown_names_as_errors());
  expect_finding(module(" ODD x"),
                 "2:1+6 warning bdf.unknown_entry Unknown BDF module entry 'm.odd' was preserved "
                 "raw.",
                 unknown_names_as_warnings());
  expect_finding(module("single\n  Single"),
                 "1:1+2 warning bdf.duplicate_entry BDF module entry 'm.single' is repeated "
                 "although the manual defines it as singular.");
  expect_finding(module(" VALUE"),
                 "2:1+6 warning bdf.missing_entry_value BDF module entry 'm.value' normally "
                 "requires a value.");
  expect_finding(module("  Block\nx"),
                 "2:1+7 error bdf.unterminated_entry_block BDF module entry block 'm.block' is not "
                 "terminated by 'end_block'.");
  expect_finding(module("NUMBER\n 1.5 # no"),
                 "2:1+6 error bdf.invalid_module_value BDF module entry 'm.number' has an invalid "
                 "value '1.5'.");
}

TEST(IssueTable, OfEntriesBesideEachOther) {
  expect_finding(module("\n Wants"),
                 "3:1+6 error bdf.missing_required_entry BDF module entry 'm.wants' requires "
                 "'m.single'.");
  expect_finding(module("value\nno\nwants_values"),
                 "4:1+12 error bdf.missing_required_entry BDF module entry 'm.wants_values' "
                 "requires 'm.value'=yes.");
  expect_finding(module("single\nFights"),
                 "3:1+6 error bdf.conflicting_entries BDF module entries 'm.fights' and 'm.single' "
                 "conflict.");
}

TEST(IssueTable, OfNestedEntries) {
  expect_finding(module("nest\n ODD x\nend"),
                 "3:1+6 error bdf.unknown_nested_entry Unknown BDF nested entry 'm.nest.odd'.",
                 unknown_names_as_errors());
  expect_finding(module("nest\n ODD x\nend"),
                 "3:1+6 warning bdf.unknown_nested_entry Unknown BDF nested entry 'm.nest.odd' was "
                 "preserved raw.",
                 unknown_names_as_warnings());
  expect_finding(module("nest\n CVALUE\n\nend"),
                 "3:1+7 error bdf.invalid_module_value BDF module entry 'm.nest.cvalue' has an "
                 "invalid value ''.");
  expect_finding(module("nest\ncsingle\ncsingle\nend"),
                 "2:1+4 warning bdf.duplicate_entry BDF nested entry 'm.nest.csingle' is repeated "
                 "although the manual defines it as singular.");
}

TEST(IssueTable, OfNestedEntriesBesideEachOther) {
  expect_finding(module("nest\n CWANTS\nend"),
                 "3:1+7 error bdf.missing_required_entry BDF nested entry 'm.nest.cwants' requires "
                 "'m.nest.csingle'.");
  expect_finding(module("nest\ncvalue\nno\ncwants_value\nend"),
                 "5:1+12 error bdf.missing_required_entry BDF nested entry 'm.nest.cwants_value' "
                 "requires 'm.nest.cvalue'=yes.");
  expect_finding(module("nest\ncsingle\ncfights\nend"),
                 "4:1+7 error bdf.conflicting_entries BDF nested entries 'm.nest.cfights' and "
                 "'m.nest.csingle' conflict.");
}

// A name that the schema does not know is an error for whoever asks for that.
bool is_stricter_on_request(IssueId id) {
  return id == IssueId::UnknownModule || id == IssueId::UnknownEntry ||
         id == IssueId::UnknownNestedEntry;
}

TEST(IssueTable, HasTheSeveritiesThatTheTextsOfTheCodesHave) {
  const auto last = static_cast<int>(IssueId::DuplicateNestedEntry);
  for (int number = 0; number <= last; ++number) {
    const auto id = static_cast<IssueId>(number);
    const FindingText* const text = find_finding_text(code_of(id));
    ASSERT_NE(text, nullptr) << code_of(id);
    const bool is_error = severity_of(id) == ValidationSeverity::Error;
    const Severity expected =
        is_error && !is_stricter_on_request(id) ? Severity::Error : Severity::Warning;
    EXPECT_EQ(text->severity, expected) << code_of(id);
  }
}

}  // namespace
}  // namespace kelp::input::bdf
