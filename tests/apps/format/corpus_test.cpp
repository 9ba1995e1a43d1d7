// Published inputs: laying out is stable, and keeps every word in its order.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/published_inputs.hpp"

namespace kelp::test {
namespace {

using input::bdf::InputSchema;
using input::bdf::ParsedInput;

std::vector<std::string> words_of(std::string_view text) {
  std::vector<std::string> words;
  for (std::string_view word = core::text::take_word(text); !word.empty();
       word = core::text::take_word(text)) {
    words.push_back(core::text::to_lower(word));
  }
  return words;
}

class FormatCorpus : public ::testing::Test {
 protected:
  void SetUp() override {
    if (files_.empty()) {
      GTEST_SKIP() << "there is no corpus in " << test::corpus_folder();
    }
  }

  const std::vector<std::filesystem::path> files_ = published_inputs();
  const InputSchema schema_ = InputSchema::from_file(test::shipped_schema_file());
};

TEST_F(FormatCorpus, ASecondRoundChangesNothing) {
  for (const auto& file : files_) {
    const std::string once = format_input(ParsedInput(file_bytes(file), schema_)).text;
    EXPECT_EQ(format_input(ParsedInput(once, schema_)).text, once) << file;
  }
}

TEST_F(FormatCorpus, AllWordsStayInTheirOrder) {
  for (const auto& file : files_) {
    const std::string text = file_bytes(file);
    const input::bdf::Rewrite rewrite = format_input(ParsedInput(text, schema_));
    EXPECT_TRUE(rewrite.losses.empty()) << file;
    EXPECT_EQ(words_of(rewrite.text), words_of(text)) << file;
  }
}

}  // namespace
}  // namespace kelp::test
