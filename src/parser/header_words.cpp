#include "parser/header_words.hpp"

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {

std::vector<std::string> split_header_line(std::string_view line) {
  using core::text::take_word;
  std::vector<std::string> tokens;
  line = core::text::trim_view(line);
  for (auto word = take_word(line); !word.empty(); word = take_word(line)) {
    if (word == "=" && !tokens.empty()) {
      tokens.back() += '=';
      tokens.back() += take_word(line);
    } else if (word != "=" && word.back() == '=' && !line.empty()) {
      tokens.emplace_back(word);
      tokens.back() += take_word(line);
    } else if (word.front() == '=' && !tokens.empty()) {
      tokens.back() += word;
    } else {
      tokens.emplace_back(word);
    }
  }
  return tokens;
}

}  // namespace kelp::input::bdf
