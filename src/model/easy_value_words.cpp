#include "model/easy_value_words.hpp"

#include <algorithm>
#include <optional>
#include <string>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "schema/easy_token_syntax.hpp"

namespace kelp::input::bdf {
namespace {

bool is_pair_or_specification(std::string_view word) {
  return word.find('=') != std::string_view::npos ||
         is_method_specification(prepare_easy_token(word));
}

bool is_number(std::string_view word) {
  return core::number::parse_float(word).has_value();
}

bool lists(const EntrySchemaInfo& keyword, std::string_view word) {
  return std::any_of(keyword.allowed.begin(), keyword.allowed.end(), [&](const std::string& value) {
    return core::text::equals_ignoring_case(value, word);
  });
}

}  // namespace

std::size_t count_easy_value_words(std::span<const std::string_view> words,
                                   const InputSchema& schema, bool is_whole_line) {
  if (words.size() < 2 || is_pair_or_specification(words[0])) {
    return 0;
  }
  const std::string_view first = words[1];
  const auto keyword = schema.easy_keyword_info(words[0]);
  if (!keyword || first.starts_with('#') || is_pair_or_specification(first) ||
      schema.is_known_easy_token(first)) {
    return 0;
  }
  // A flag takes no value but those that say whether it is set: `SpinAdapt True`.
  const bool is_flag = keyword->kind == EntryValueKind::Flag;
  const bool fits = (keyword->allowed.empty() && !is_flag) || lists(*keyword, first);
  if (is_flag && !fits) {
    return 0;
  }
  const bool is_alone = is_whole_line && words.size() == 2;
  if (!fits && !is_alone) {
    return 0;
  }
  std::size_t last = 2;
  while (keyword->kind == EntryValueKind::Tuple && last < words.size() &&
         is_number(words[last - 1]) && is_number(words[last])) {
    ++last;
  }
  return last - 1;
}

}  // namespace kelp::input::bdf
