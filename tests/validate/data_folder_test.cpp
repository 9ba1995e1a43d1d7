// Small inputs beside their findings. Those under `valid` must be silent with the vocabulary that
// comes with the library; beside each one under `invalid` stands a file of its findings, which
// KELP_UPDATE_GOLDEN=1 in the environment writes anew.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "support/files.hpp"
#include "support/folders.hpp"
#include "validate/findings.hpp"

namespace kelp::input::bdf {
namespace {

using std::filesystem::path;

std::vector<path> inputs_in(std::string_view folder) {
  std::vector<path> inputs;
  for (const auto& item : std::filesystem::directory_iterator(test::data_folder() / folder)) {
    if (item.path().extension() == ".inp") {
      inputs.push_back(item.path());
    }
  }
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

std::string all_findings(const BDFData& data) {
  std::string text;
  for (const ValidationIssue& issue : shipped_schema().validate(data, unknown_names_as_errors())) {
    text += issue.location ? std::to_string(issue.location->line) : "-";
    text += issue.severity == ValidationSeverity::Error ? " error " : " warning ";
    text += issue.code + " " + issue.message + "\n";
  }
  return text;
}

bool updates_golden_files() {
  const char* const value = std::getenv("KELP_UPDATE_GOLDEN");
  return value != nullptr && std::string_view(value) == "1";
}

TEST(DataFolder, ValidInputsAreSilent) {
  const std::vector<path> inputs = inputs_in("valid");
  ASSERT_FALSE(inputs.empty());
  for (const path& input : inputs) {
    const ParseResult result = BDFParser::parse_file(test::utf8(input), shipped_schema(), {});
    EXPECT_TRUE(result.ok) << input << ": " << result.error;
    EXPECT_EQ(all_findings(result.data), "") << input;
  }
}

TEST(DataFolder, InvalidInputsHaveTheirFindings) {
  const std::vector<path> inputs = inputs_in("invalid");
  ASSERT_FALSE(inputs.empty());
  for (const path& input : inputs) {
    const ParseResult result = BDFParser::parse_file(test::utf8(input), shipped_schema(), {});
    const std::string found = all_findings(result.data);
    const path expected = path(input).replace_extension(".expected");
    if (updates_golden_files()) {
      test::write_file(expected, found);
    }
    ASSERT_TRUE(std::filesystem::exists(expected)) << expected;
    EXPECT_EQ(found, test::file_bytes(expected)) << input;
    EXPECT_NE(found, "") << input << " belongs to the valid ones";
  }
}

TEST(DataFolder, EveryCodeIsFoundInSomeInvalidInput) {
  std::string all;
  for (const path& input : inputs_in("invalid")) {
    all += test::file_bytes(path(input).replace_extension(".expected"));
  }
  for (const std::string code :
       {"invalid_easy_value", "missing_method", "missing_geometry", "unterminated_geometry",
        "unknown_module", "unterminated_module", "unknown_entry", "missing_required_entry",
        "conflicting_entries", "duplicate_entry", "duplicate_module", "missing_entry_value",
        "unterminated_entry_block", "invalid_module_value", "unknown_nested_entry"}) {
    EXPECT_NE(all.find("bdf." + code + " "), std::string::npos) << code;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
