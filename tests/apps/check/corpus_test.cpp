// Every published input can be checked, in one run.

#include <filesystem>
#include <optional>
#include <string>

#include "check/check_fixture.hpp"

namespace kelp::test {
namespace {

std::size_t count_inputs(const std::filesystem::path& folder) {
  std::size_t count = 0;
  for (const auto& item : std::filesystem::recursive_directory_iterator(folder)) {
    count += item.path().extension() == ".inp" ? 1 : 0;
  }
  return count;
}

using Corpus = Check;

TEST_F(Corpus, IsCheckedToItsEnd) {
  if (!std::filesystem::is_directory(KELP_CORPUS_DIR)) {
    GTEST_SKIP() << "no published inputs at " << KELP_CORPUS_DIR;
  }
  program.set_variable("KELP_BDF_INP_SCHEMA_YAML", std::nullopt);
  const Outcome outcome = check_named({}, {KELP_CORPUS_DIR});
  EXPECT_EQ(outcome.err, "");
  EXPECT_LE(outcome.status, 1);
  const std::string checked = "(" + std::to_string(count_inputs(KELP_CORPUS_DIR)) + " checked)\n";
  EXPECT_THAT(outcome.out, ::testing::EndsWith(checked));
}

}  // namespace
}  // namespace kelp::test
