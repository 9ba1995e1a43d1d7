// Published inputs: laying out is stable, and whatever it does to a text it says.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "canonical_form.hpp"
#include "checked_input.hpp"
#include "departures.hpp"
#include "kelp/core/text.hpp"
#include "support/files.hpp"
#include "support/published_inputs.hpp"

namespace kelp::app {
namespace {

using input::bdf::InputSchema;

// All words of a text in lower case, sorted: what a lay-out must not change but by renaming.
std::vector<std::string> words_of(std::string_view text) {
  std::vector<std::string> words;
  for (std::string_view word = core::text::take_word(text); !word.empty();
       word = core::text::take_word(text)) {
    words.push_back(core::text::to_lower(word));
  }
  std::sort(words.begin(), words.end());
  return words;
}

class FormatCorpus : public ::testing::Test {
 protected:
  void SetUp() override {
    if (files_.empty()) {
      GTEST_SKIP() << "there is no corpus in " << KELP_CORPUS_DIR;
    }
  }

  const std::vector<std::filesystem::path> files_ = test::published_inputs();
  const InputSchema schema_ = InputSchema::from_file(KELP_SCHEMA_FILE);
};

TEST_F(FormatCorpus, ASecondRoundChangesNothing) {
  for (const auto& file : files_) {
    const CheckedInput input(test::utf8(file), test::file_bytes(file), schema_);
    const CheckedInput once(input.name, canonical_text(input), schema_);
    EXPECT_EQ(canonical_text(once), once.source.text()) << file;
    EXPECT_TRUE(find_departures(once, once).empty()) << file;
  }
}

TEST_F(FormatCorpus, AModuleInputWithoutDeparturesKeepsItsWords) {
  std::size_t compared = 0;
  for (const auto& file : files_) {
    const CheckedInput input(test::utf8(file), test::file_bytes(file), schema_);
    const CheckedInput after(input.name, canonical_text(input), schema_);
    if (input.result.data.mode != input::bdf::InputMode::Module ||
        !find_departures(input, after).empty()) {
      continue;
    }
    ++compared;
    std::vector<std::string> lost;
    const auto before_words = words_of(input.source.text());
    const auto after_words = words_of(after.source.text());
    std::set_difference(before_words.begin(), before_words.end(), after_words.begin(),
                        after_words.end(), std::back_inserter(lost));
    // Another name of a keyword that is known.
    std::erase_if(lost, [&](const std::string& word) {
      for (const auto& module : input.result.data.modules) {
        if (schema_.canonical_entry(module.name, word) != word ||
            schema_.canonical_module(word) != word) {
          return true;
        }
      }
      return false;
    });
    EXPECT_EQ(lost, std::vector<std::string>()) << file;
  }
  EXPECT_GT(compared, 0U);
}

}  // namespace
}  // namespace kelp::app
