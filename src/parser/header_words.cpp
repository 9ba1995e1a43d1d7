#include "parser/header_words.hpp"

#include <span>
#include <utility>

#include "kelp/core/text.hpp"
#include "model/easy_value_words.hpp"

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

/// Puts the tokens of a line together anew, each keyword with its value behind it. One pass, so
/// that a line of any length costs no more than its words.
class ValueJoiner {
 public:
  ValueJoiner(const HeaderWords& words, const InputSchema& schema)
      : words_(words), schema_(schema), texts_(words.tokens.begin(), words.tokens.end()) {}

  HeaderWords run() {
    for (std::size_t token = 0; token < texts_.size();) {
      const std::span<const std::string_view> rest = std::span(texts_).subspan(token);
      const std::size_t count = count_easy_value_words(rest, schema_, token == 0);
      joined_.tokens.emplace_back();
      for (std::size_t i = 0; i <= count; ++i) {
        append(token + i, i == 0 ? "" : i == 1 ? "=" : " ");
      }
      token += 1 + count;
    }
    return std::move(joined_);
  }

 private:
  // The pieces stand in the order of the tokens.
  void append(std::size_t token, std::string_view separator) {
    std::string& text = joined_.tokens.back();
    text += separator;
    for (; piece_ < words_.pieces.size() && words_.pieces[piece_].token == token; ++piece_) {
      const HeaderWords::Piece& piece = words_.pieces[piece_];
      joined_.pieces.push_back(
          {joined_.tokens.size() - 1, text.size() + piece.text_begin, piece.text});
    }
    text += texts_[token];
  }

  const HeaderWords& words_;
  const InputSchema& schema_;
  std::vector<std::string_view> texts_;
  HeaderWords joined_;
  std::size_t piece_ = 0;
};

}  // namespace

void join_values(HeaderWords& words, const InputSchema& schema) {
  words = ValueJoiner(words, schema).run();
}

HeaderWords split_header_line(std::string_view line) {
  return Splitter(line).run();
}

}  // namespace kelp::input::bdf
