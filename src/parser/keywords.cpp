#include "parser/keywords.hpp"

#include <algorithm>
#include <vector>

#include "kelp/core/number.hpp"
#include "kelp/core/spelling.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"
#include "parser/border_words.hpp"

namespace kelp::input::bdf {
namespace {

bool is_value_of(std::string_view word, const EntrySpec& entry) {
  return std::any_of(entry.allowed.begin(), entry.allowed.end(), [&](const std::string& value) {
    return core::text::equals_ignoring_case(value, word);
  });
}

bool is_near_any(std::string_view word, const AliasMap& names) {
  return std::any_of(names.begin(), names.end(), [&](const auto& name) {
    return core::spelling::slips_if_near(word, name.first).has_value();
  });
}

// Of a word of few letters, which is near many a keyword, only a value too many is told from.
bool is_likely_keyword(std::string_view word, std::size_t fields, const EntrySpec& entry) {
  constexpr std::size_t least_letters = 4;
  const auto most = entry.arity ? entry.arity : entry.max_arity;
  const bool is_full = most && fields >= *most;
  const char first = core::text::to_lower(word.front());
  return is_full || (word.size() >= least_letters && first >= 'a' && first <= 'z');
}

}  // namespace

bool Keywords::may_be_misspelt(std::string_view line, const ModuleEntry& entry) const {
  const std::string_view word = core::text::trim_view(line);
  const EntrySpec* const spec = module_ != nullptr ? find_entry_spec(module_, entry.name)
                                                   : find_child_spec(block_, entry.name);
  if (spec == nullptr || !is_one_word(word) || word.size() < 2 || core::number::parse_float(word) ||
      is_value_of(word, *spec)) {
    return false;
  }
  const AliasMap& names = module_ != nullptr ? module_->entry_aliases : block_->child_aliases;
  if (!is_near_any(word, names)) {
    return false;
  }
  std::vector<std::string_view> fields;
  for (const std::string_view value : cleaned_lines(entry)) {
    split_value_tokens(value, fields);
  }
  return !fields.empty() && is_likely_keyword(word, fields.size(), *spec);
}

}  // namespace kelp::input::bdf
