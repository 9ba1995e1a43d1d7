// Published inputs, where they are at hand. Whatever they hold, nothing of it is lost.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/line_claims.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::IsEmpty;

class Corpus : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    const std::filesystem::path folder = test::corpus_folder() / GetParam();
    if (!std::filesystem::is_directory(folder)) {
      GTEST_SKIP() << "no published inputs in " << folder
                   << "; set KELP_CORPUS_DIR to their folder";
    }
    for (const auto& item : std::filesystem::directory_iterator(folder)) {
      if (item.is_regular_file() && item.path().extension() != ".tsv") {
        files_.push_back(item.path());
      }
    }
    std::sort(files_.begin(), files_.end());
    ASSERT_FALSE(files_.empty()) << folder;
  }

  std::vector<std::filesystem::path> files_;
};

std::vector<ParseOptions> options_that_keep_every_line() {
  return {{false, true, 0, false}, {true, false, 0, false}, {true, true, 0, false},
          {true, true, 1, false},  {true, true, 2, true},   {false, true, 0, true}};
}

TEST_P(Corpus, LosesNoLine) {
  for (const auto& file : files_) {
    const std::string text = test::file_bytes(file);
    for (const ParseOptions& options : options_that_keep_every_line()) {
      for (const InputSchema& schema : {shipped_schema(), InputSchema()}) {
        const ParseResult result = BDFParser::parse_string(text, schema, options);
        EXPECT_THAT(wrong_claims(text, schema, options), IsEmpty()) << file;
        EXPECT_THAT(broken_invariants(result.data), IsEmpty()) << file;
      }
    }
  }
}

TEST_P(Corpus, ParsesWhereUnknownLinesAreDropped) {
  for (const auto& file : files_) {
    const ParseResult result =
        BDFParser::parse_string(test::file_bytes(file), shipped_schema(), {false, false, 0, false});
    EXPECT_TRUE(result.ok) << file << " " << result.error;
    EXPECT_THAT(broken_invariants(result.data), IsEmpty()) << file;
  }
}

TEST_P(Corpus, ReadsAlikeFromAFileAndFromItsText) {
  for (const auto& file : files_) {
    const ParseResult read = BDFParser::parse_file(test::utf8(file), shipped_schema(), {});
    const ParseResult wanted =
        BDFParser::parse_string(test::file_bytes(file), shipped_schema(), {});
    EXPECT_EQ(read.ok, wanted.ok) << file;
    EXPECT_EQ(read.error, wanted.error) << file;
    EXPECT_EQ(read.data.free_lines, wanted.data.free_lines) << file;
    EXPECT_EQ(read.data.modules.size(), wanted.data.modules.size()) << file;
  }
}

INSTANTIATE_TEST_SUITE_P(Folders, Corpus, ::testing::Values("inputs", "fragments"),
                         [](const auto& name) { return name.param; });

}  // namespace
}  // namespace kelp::input::bdf
