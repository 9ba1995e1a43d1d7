// Keywords of the header and their values. The parser knows `key = value`; a value may also follow
// its keyword as a word of its own, `charge 1`, and only the schema tells whether it does.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "path/resolver.hpp"

namespace kelp::input::bdf {
namespace {

std::uint64_t line_of(const EasyToken& token) {
  return token.location ? token.location->line : 1;
}

bool is_number(const EasyToken& token) {
  return core::number::parse_float(token.text).has_value();
}

// The schema lists few values; a word that it does not know behind a keyword that takes one is it.
bool is_value_word(const EasyToken& word, const EntrySchemaInfo& info) {
  if (word.known || word.category != "unknown" || begins_comment(word)) {
    return false;
  }
  const bool listed = std::any_of(
      info.allowed.begin(), info.allowed.end(),
      [&](const std::string& value) { return core::text::equals_ignoring_case(value, word.text); });
  return listed || (info.allowed.empty() && info.kind != EntryValueKind::Flag);
}

// Counts the words behind a bare keyword that are its value: one, or several numbers.
std::size_t count_value_words(const std::vector<EasyToken>& tokens, std::size_t keyword,
                              const InputSchema& schema) {
  const std::size_t first = keyword + 1;
  if (first >= tokens.size() || tokens[keyword].canonical.find('=') != std::string::npos) {
    return 0;
  }
  const auto info = schema.easy_keyword_info(tokens[keyword].key);
  if (!info || !is_value_word(tokens[first], *info)) {
    return 0;
  }
  std::size_t last = first + 1;
  while (info->kind == EntryValueKind::Tuple && last < tokens.size() &&
         is_number(tokens[last - 1]) && is_number(tokens[last])) {
    ++last;
  }
  return last - first;
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
  const std::string wanted = schema.canonical_easy_key(key);
  const std::vector<EasyToken>& tokens = data.easy_tokens;
  const std::vector<bool> in_comment = tokens_in_comments(tokens);
  std::vector<EasyKeyword> found;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (!in_comment[i] && tokens[i].category != "method_spec" &&
        schema.canonical_easy_key(tokens[i].key) == wanted) {
      found.push_back({i, i + 1 + count_value_words(tokens, i, schema)});
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
