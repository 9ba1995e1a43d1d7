// Keywords of the header and their values. The parser knows `key = value`; a value may also follow
// its keyword as a word of its own, `charge 1`, and only the schema tells whether it does.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/value_path.hpp"
#include "model/easy_value_words.hpp"
#include "path/resolver.hpp"

namespace kelp::input::bdf {
namespace {

std::uint64_t line_of(const EasyToken& token) {
  return token.location ? token.location->line : 1;
}

std::vector<std::string_view> texts_of(const std::vector<EasyToken>& tokens) {
  std::vector<std::string_view> texts;
  texts.reserve(tokens.size());
  for (const EasyToken& token : tokens) {
    texts.emplace_back(token.text);
  }
  return texts;
}

}  // namespace

bool begins_comment(const EasyToken& token) {
  return token.text.starts_with('#');
}

std::vector<bool> tokens_in_comments(const std::vector<EasyToken>& tokens) {
  std::vector<bool> in_comment;
  in_comment.reserve(tokens.size());
  std::optional<std::uint64_t> line_of_comment;
  for (const EasyToken& token : tokens) {
    if (begins_comment(token)) {
      line_of_comment = line_of(token);
    }
    in_comment.push_back(line_of_comment == line_of(token));
  }
  return in_comment;
}

std::vector<EasyKeyword> find_easy_keywords(const BDFData& data, const InputSchema& schema,
                                            std::string_view key) {
  const std::vector<EasyToken>& tokens = data.easy_tokens;
  if (tokens.empty()) {
    return {};
  }
  const std::string wanted = schema.canonical_easy_key(key);
  const std::vector<bool> in_comment = tokens_in_comments(tokens);
  const std::vector<std::string_view> words = texts_of(tokens);
  std::vector<EasyKeyword> found;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (!in_comment[i] && tokens[i].category != "method_spec" &&
        schema.canonical_easy_key(tokens[i].key) == wanted) {
      const std::size_t count = count_easy_value_words(std::span(words).subspan(i), schema, false);
      found.push_back({i, i + 1 + count});
    }
  }
  return found;
}

std::string easy_value(const BDFData& data, const EasyKeyword& keyword) {
  std::string value = data.easy_tokens[keyword.first].value;
  for (std::size_t i = keyword.first + 1; i < keyword.last; ++i) {
    value += (value.empty() ? "" : " ") + data.easy_tokens[i].text;
  }
  return value;
}

std::size_t tokens_before_comment(const BDFData& data) {
  const auto comment =
      std::find_if(data.easy_tokens.begin(), data.easy_tokens.end(), begins_comment);
  return static_cast<std::size_t>(comment - data.easy_tokens.begin());
}

}  // namespace kelp::input::bdf
