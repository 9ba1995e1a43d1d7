#include "easy_keyword.hpp"

#include <algorithm>
#include <cstdint>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::app {
namespace {

using input::bdf::BDFData;
using input::bdf::EasyToken;
using input::bdf::EntrySchemaInfo;
using input::bdf::EntryValueKind;
using input::bdf::InputSchema;

bool begins_remark(const EasyToken& token) {
  return token.text.starts_with('#');
}

bool is_number(const EasyToken& token) {
  return core::number::parse_float(token.text).has_value();
}

// The schema lists few values; a word that it does not know behind a keyword that takes one is it.
bool is_value_word(const EasyToken& word, const EntrySchemaInfo& info) {
  if (word.known || word.category != "unknown" || begins_remark(word)) {
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
  const auto info = schema.easy_keyword_info(tokens[keyword].key);
  const std::size_t first = keyword + 1;
  if (!info || tokens[keyword].canonical.find('=') != std::string::npos || first >= tokens.size() ||
      !is_value_word(tokens[first], *info)) {
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

std::vector<EasyKeyword> find_easy_keywords(const BDFData& data, const InputSchema& schema,
                                            const std::string& key) {
  const std::string wanted = schema.canonical_easy_key(key);
  const std::vector<EasyToken>& tokens = data.easy_tokens;
  std::vector<EasyKeyword> found;
  // A remark goes on to the end of its line.
  std::uint64_t line_of_remark = 0;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const std::uint64_t line = tokens[i].location ? tokens[i].location->line : 1;
    if (begins_remark(tokens[i])) {
      line_of_remark = line;
    }
    if (line != line_of_remark && tokens[i].category != "method_spec" &&
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

std::size_t words_before_remark(const BDFData& data) {
  const auto remark = std::find_if(data.easy_tokens.begin(), data.easy_tokens.end(), begins_remark);
  return static_cast<std::size_t>(remark - data.easy_tokens.begin());
}

}  // namespace kelp::app
