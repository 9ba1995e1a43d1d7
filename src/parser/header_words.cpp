#include "parser/header_words.hpp"

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

/// Puts tokens together from the words of a line.
class Splitter {
 public:
  explicit Splitter(std::string_view line) : rest_(core::text::trim_view(line)) {}

  HeaderWords run() {
    for (auto word = next(); !word.empty(); word = next()) {
      const bool first = words_.tokens.empty();
      if (word == "=" && !first) {
        join(word);
        join(next());
      } else if (word != "=" && word.back() == '=' && !rest_.empty()) {
        begin(word);
        join(next());
      } else if (word.front() == '=' && !first) {
        join(word);
      } else {
        begin(word);
      }
    }
    return std::move(words_);
  }

 private:
  std::string_view next() { return core::text::take_word(rest_); }

  void begin(std::string_view word) {
    words_.tokens.emplace_back();
    join(word);
  }

  void join(std::string_view word) {
    std::string& token = words_.tokens.back();
    if (!word.empty()) {
      words_.pieces.push_back({words_.tokens.size() - 1, token.size(), word});
      token += word;
    }
  }

  std::string_view rest_;
  HeaderWords words_;
};

}  // namespace

HeaderWords split_header_line(std::string_view line) {
  return Splitter(line).run();
}

}  // namespace kelp::input::bdf
