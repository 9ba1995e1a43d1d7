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

bool begins_with_letter(std::string_view word) {
  const char first = word.empty() ? '\0' : core::text::to_lower(word.front());
  return first >= 'a' && first <= 'z';
}

// Whether a text is the number, or the numbers, that an entry takes.
bool are_numbers_of(std::string_view text, const EntrySpec& entry) {
  const bool is_integer = entry.value_type == "integer";
  const bool is_one = entry.kind == EntryValueKind::Scalar;
  if ((!is_one && entry.kind != EntryValueKind::Tuple) ||
      (!is_integer && entry.value_type != "float" && entry.value_type != "number")) {
    return false;
  }
  std::vector<std::string_view> fields;
  split_value_tokens(text, fields);
  return !fields.empty() && (!is_one || fields.size() == 1) &&
         std::all_of(fields.begin(), fields.end(), [&](std::string_view field) {
           return is_integer ? core::number::parse_integer(field).has_value()
                             : core::number::parse_float(field).has_value();
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
  return is_full || (word.size() >= least_letters && begins_with_letter(word));
}

}  // namespace

bool Keywords::may_be_misspelt(std::string_view line, const ModuleEntry& entry) const {
  const std::string_view word = core::text::trim_view(line);
  const EntrySpec* const spec = find(entry.name);
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

bool Keywords::are_fields_complete(const ModuleEntry& entry) const {
  const EntrySpec* const spec = find(entry.name);
  if (spec == nullptr || !spec->arity) {
    return false;
  }
  std::vector<std::string_view> fields;
  for (const std::string_view value : cleaned_lines(entry)) {
    split_value_tokens(value, fields);
  }
  return fields.size() >= *spec->arity;
}

bool Keywords::has_numbers_behind(const ModuleEntry& entry, std::string_view rest,
                                  std::string_view next) const {
  const EntrySpec* const spec = find(entry.name);
  const std::string_view word = first_word(next);
  return spec != nullptr && begins_with_letter(word) && !core::number::parse_float(word) &&
         !is_value_of(word, *spec) && are_numbers_of(rest, *spec);
}

bool takes_title(const EntrySpec* entry) {
  return entry != nullptr && entry->name == "title" && entry->kind == EntryValueKind::Scalar &&
         entry->value_type == "string" && entry->allowed.empty();
}

bool Keywords::is_title(std::string_view entry, std::string_view line,
                        std::string_view next) const {
  const EntrySpec* const keyword = has_titles(entry) ? find(first_word(line)) : nullptr;
  if (keyword == nullptr) {
    return false;
  }
  std::string_view rest = line;
  core::text::take_word(rest);
  std::size_t words = 0;
  bool has_letters = false;
  while (!core::text::trim_view(rest).empty()) {
    has_letters = begins_with_letter(core::text::take_word(rest)) || has_letters;
    ++words;
  }
  if (!has_letters) {
    return false;
  }
  // A block may have more on its line than the schema knows; then its own lines follow.
  if (!keyword->terminator.empty()) {
    return is_blank(next) || is_module_border(next) || start(next);
  }
  return keyword->kind == EntryValueKind::Flag || words >= 2;
}

}  // namespace kelp::input::bdf
