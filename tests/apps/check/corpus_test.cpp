// Every published input can be checked, in one run.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "check/check_fixture.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/process.hpp"
#include "support/published_inputs.hpp"

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
  if (!std::filesystem::is_directory(test::corpus_folder())) {
    GTEST_SKIP() << "no published inputs at " << test::corpus_folder();
  }
  program.set_variable("KELP_BDF_INP_SCHEMA_YAML", std::nullopt);
  const Outcome outcome = check_named({}, {test::utf8(test::corpus_folder())});
  EXPECT_EQ(outcome.err, "");
  EXPECT_LE(outcome.status, 1);
  const std::string checked =
      "(" + std::to_string(count_inputs(test::corpus_folder())) + " checked)\n";
  EXPECT_THAT(outcome.out, ::testing::EndsWith(checked));
}

TEST_F(Corpus, IsCheckedByTheExampleAsByTheCommand) {
  const std::vector<std::filesystem::path> files = published_inputs();
  if (files.empty()) {
    GTEST_SKIP() << "no published inputs at " << test::corpus_folder();
  }
  std::vector<std::string> names;
  for (const std::filesystem::path& file : files) {
    names.push_back(utf8(file));
  }
  const TemporaryFolder folder;
  ProcessSetup setup;
  setup.program = KELP_EXAMPLE_CHECK;
  setup.arguments = names;
  setup.folder = folder.path();
  setup.input = folder / "input";
  setup.output = folder / "output";
  setup.errors = folder / "errors";
  setup.variables = {{"KELP_BDF_INP_SCHEMA_YAML", test::shipped_schema_file()}};
  write_file(setup.input, "");
  ASSERT_EQ(run_process(setup), 0) << file_bytes(setup.errors);
  program.set_variable("KELP_BDF_INP_SCHEMA_YAML", test::shipped_schema_file());
  const Outcome outcome = check_named({"--format=concise"}, names);
  EXPECT_NE(outcome.out, "");
  EXPECT_EQ(printed_text(setup.output), outcome.out);
}

}  // namespace
}  // namespace kelp::test
