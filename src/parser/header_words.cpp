#include "parser/header_words.hpp"

#include <algorithm>
#include <optional>
#include <utility>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "schema/easy_token_syntax.hpp"

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

/// Finds the keywords of a line that are followed by their values.
class ValueJoiner {
 public:
  ValueJoiner(HeaderWords& words, const InputSchema& schema) : words_(words), schema_(schema) {}

  void run() {
    for (std::size_t token = 0; token + 1 < words_.tokens.size(); ++token) {
      const std::size_t count = count_value_words(token);
      if (count > 0) {
        join(token, count);
      }
    }
  }

 private:
  bool is_pair_or_specification(const std::string& word) const {
    return word.find('=') != std::string::npos || is_method_specification(prepare_easy_token(word));
  }

  // A line of a keyword and one word more can mean nothing else, whatever the word is.
  std::size_t count_value_words(std::size_t keyword) const {
    const std::string& word = words_.tokens[keyword];
    const auto info =
        is_pair_or_specification(word) ? std::nullopt : schema_.easy_keyword_info(word);
    if (!info || info->kind == EntryValueKind::Flag) {
      return 0;
    }
    const std::size_t first = keyword + 1;
    const bool alone = keyword == 0 && words_.tokens.size() == 2;
    if (!is_value_word(words_.tokens[first], *info, alone)) {
      return 0;
    }
    std::size_t last = first + 1;
    while (info->kind == EntryValueKind::Tuple && last < words_.tokens.size() &&
           is_number(words_.tokens[last - 1]) && is_number(words_.tokens[last])) {
      ++last;
    }
    return last - first;
  }

  bool is_value_word(const std::string& word, const EntrySchemaInfo& info, bool alone) const {
    if (is_pair_or_specification(word) || schema_.is_known_easy_token(word)) {
      return false;
    }
    return alone || info.allowed.empty() ||
           std::any_of(info.allowed.begin(), info.allowed.end(), [&](const std::string& value) {
             return core::text::equals_ignoring_case(value, word);
           });
  }

  static bool is_number(const std::string& word) {
    return core::number::parse_float(word).has_value();
  }

  void join(std::size_t keyword, std::size_t count) {
    std::string& text = words_.tokens[keyword];
    std::vector<std::size_t> begins;
    for (std::size_t i = 1; i <= count; ++i) {
      text += i == 1 ? '=' : ' ';
      begins.push_back(text.size());
      text += words_.tokens[keyword + i];
    }
    for (HeaderWords::Piece& piece : words_.pieces) {
      if (piece.token > keyword && piece.token <= keyword + count) {
        piece.text_begin += begins[piece.token - keyword - 1];
        piece.token = keyword;
      } else if (piece.token > keyword) {
        piece.token -= count;
      }
    }
    const auto behind = words_.tokens.begin() + static_cast<std::ptrdiff_t>(keyword) + 1;
    words_.tokens.erase(behind, behind + static_cast<std::ptrdiff_t>(count));
  }

  HeaderWords& words_;
  const InputSchema& schema_;
};

}  // namespace

void join_values(HeaderWords& words, const InputSchema& schema) {
  ValueJoiner(words, schema).run();
}

HeaderWords split_header_line(std::string_view line) {
  return Splitter(line).run();
}

}  // namespace kelp::input::bdf
