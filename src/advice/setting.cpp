#include "advice/setting.hpp"

#include <utility>

#include "kelp/core/number.hpp"
#include "model/value_lines.hpp"
#include "schema/normalize_key.hpp"

namespace kelp::input::bdf {

TextRange range_of(const ParsedInput& input, Word word) {
  const auto begin = static_cast<std::size_t>(word.data() - input.source().text().data());
  return {begin, begin + word.size()};
}

TextRange range_of(const ParsedInput& input, const std::vector<Word>& row) {
  return {range_of(input, row.front()).begin, range_of(input, row.back()).end};
}

TextRange Setting::keyword() const {
  return *this ? input_->keyword_range(record_) : TextRange{};
}

Word Setting::name() const {
  return *this ? input_->source().text_of(keyword()) : Word();
}

std::vector<TextRange> Setting::lines() const {
  if (!*this) {
    return {};
  }
  return record_.kind == RecordKind::EasyToken ? value_ : input_->value_ranges(record_);
}

TextRange Setting::range() const {
  const std::vector<TextRange> value = lines();
  return value.empty() ? keyword() : TextRange{value.front().begin, value.back().end};
}

std::vector<std::vector<Word>> Setting::rows() const {
  std::vector<std::vector<Word>> rows;
  for (const TextRange& line : lines()) {
    std::vector<Word> words;
    split_value_tokens(input_->source().text_of(line), words);
    if (!words.empty()) {
      rows.push_back(std::move(words));
    }
  }
  return rows;
}

std::vector<Word> Setting::words() const {
  std::vector<Word> words;
  for (const TextRange& line : lines()) {
    split_value_tokens(input_->source().text_of(line), words);
  }
  return words;
}

// What an entry says stands in the document, too, where nothing has to be cut out of the text.
template <typename Use>
void Setting::for_each_line(Use use) const {
  if (!*this) {
    return;
  }
  if (record_.kind == RecordKind::EasyToken) {
    for (const TextRange& range : value_) {
      if (!use(input_->source().text_of(range))) {
        return;
      }
    }
    return;
  }
  const ModuleEntry* const entry = entry_or_child(input_->data(), record_);
  for (std::size_t i = 0; entry != nullptr && i < entry->values.size(); ++i) {
    const std::string_view line = clean_value_line(entry->values[i]);
    if (!line.empty() && !use(line)) {
      return;
    }
  }
}

template <typename Use>
void Setting::for_each_word(Use use) const {
  for_each_line([&](std::string_view line) {
    for (auto word = take_value_token(line); !word.empty(); word = take_value_token(line)) {
      if (!use(word)) {
        return false;
      }
    }
    return true;
  });
}

std::string_view Setting::only_word() const {
  std::string_view only;
  for_each_word([&](std::string_view word) {
    const bool is_first = only.empty();
    only = is_first ? word : std::string_view();
    return is_first;
  });
  return only;
}

std::string Setting::text() const {
  std::string first;
  for_each_line([&](std::string_view line) {
    first = normalize_key(line);
    return false;
  });
  return first;
}

std::optional<std::int64_t> Setting::integer() const {
  const std::string_view word = only_word();
  return word.empty() ? std::nullopt : core::number::parse_integer(word);
}

std::optional<double> Setting::number() const {
  const std::string_view word = only_word();
  return word.empty() ? std::nullopt : core::number::parse_float(word);
}

std::optional<std::vector<std::int64_t>> Setting::integers() const {
  std::optional<std::vector<std::int64_t>> numbers(std::in_place);
  for_each_word([&](std::string_view word) {
    const auto number = core::number::parse_integer(word);
    if (number) {
      numbers->push_back(*number);
    } else {
      numbers.reset();
    }
    return number.has_value();
  });
  return numbers;
}

}  // namespace kelp::input::bdf
