#include "advice/setting.hpp"

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

std::string Setting::text() const {
  const std::vector<TextRange> value = lines();
  return value.empty() ? std::string() : normalize_key(input_->source().text_of(value.front()));
}

std::optional<std::int64_t> Setting::integer() const {
  const std::vector<Word> all = words();
  return all.size() == 1 ? core::number::parse_integer(all.front()) : std::nullopt;
}

std::optional<double> Setting::number() const {
  const std::vector<Word> all = words();
  return all.size() == 1 ? core::number::parse_float(all.front()) : std::nullopt;
}

std::optional<std::vector<std::int64_t>> Setting::integers() const {
  std::vector<std::int64_t> numbers;
  for (const Word word : words()) {
    const auto number = core::number::parse_integer(word);
    if (!number) {
      return std::nullopt;
    }
    numbers.push_back(*number);
  }
  return numbers;
}

}  // namespace kelp::input::bdf
