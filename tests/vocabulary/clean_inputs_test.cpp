// A published input with which nothing is wrong has no error. What warnings it has are those that
// docs/vocabulary.md explains.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "corpus.hpp"
#include "support/files.hpp"

namespace kelp::test {
namespace {

// The first three cells of the table's rows that name a published file.
std::vector<std::string> explained_warnings() {
  std::vector<std::string> rows;
  const std::filesystem::path page = std::filesystem::path(KELP_SOURCE_DIR) / "docs/vocabulary.md";
  for (const std::string& line : lines_of(file_bytes(page))) {
    if (line.starts_with("| inputs/") || line.starts_with("| fragments/")) {
      std::size_t end = 0;
      for (int cell = 0; cell < 4; ++cell) {
        end = line.find('|', end) + 1;
      }
      rows.push_back(line.substr(0, end));
    }
  }
  return rows;
}

TEST(PublishedInputs, WithoutAFaultHaveNoErrorAndOnlyTheWarningsThatAreExplained) {
  KELP_NEED_CORPUS();
  std::vector<std::string> warnings;
  std::size_t clean = 0;
  for (const CorpusInput& input : corpus()) {
    if (!input.is_clean()) {
      continue;
    }
    ++clean;
    for (const Found& found : findings_in(input.text)) {
      EXPECT_FALSE(found.is_error) << input.name << ":" << found.line << ": " << found.message;
      warnings.push_back("| " + input.name + " | " + std::to_string(found.line) + " | " +
                         found.code + " |");
    }
  }
  EXPECT_GT(clean, 150U);
  EXPECT_THAT(warnings, testing::UnorderedElementsAreArray(explained_warnings()));
}

}  // namespace
}  // namespace kelp::test
