// The parser notes, line by line, what each line is and whose it is. What a record spans follows
// from that: it begins on the line that the document names, and goes on for as long as the lines
// are its own. Ranges within a line are cut when they are asked for, by the functions that the
// parser and the validator cut with.

#include "kelp/input/bdf/parsed_input.hpp"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "input/line_records.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"
#include "parser/frame.hpp"
#include "schema/easy_token_syntax.hpp"
#include "source/line_map.hpp"

namespace kelp::input::bdf {
namespace {

// With validation on, the parser keeps every line; nothing is validated by reading.
ParseOptions keep_everything() {
  ParseOptions options;
  options.validate = true;
  return options;
}

std::size_t line_of(const std::optional<SourceSpan>& location) {
  return location ? static_cast<std::size_t>(location->line) : 0;
}

}  // namespace

struct ParsedInput::Impl {
  Impl(std::string text, InputSchema vocabulary)
      : source(std::move(text)), schema(std::move(vocabulary)) {
    Lines said;
    said.reserve(source.line_count());
    for (std::size_t number = 1; number <= source.line_count(); ++number) {
      said.push_back(without_comment(source.line(number)));
    }
    map.lines.resize(said.size() + 1);
    LineReader reader(source, said, map);
    holds_something = read_input(reader, schema, keep_everything(), data);
    for (std::size_t number = 1; number < map.lines.size(); ++number) {
      const RecordKind kind = map.lines[number].record.kind;
      if (kind == RecordKind::GeometryLine) {
        geometry_lines.push_back(number);
      } else if (kind == RecordKind::LeadingLine) {
        leading_lines.push_back(number);
      }
    }
    for (const AmendedLine& amended : map.amended) {
      borders.push_back(
          {amended.line, amended.fault, amended.text, map.lines[amended.line].record});
    }
  }

  std::size_t first_line(const RecordId& record) const {
    const auto number_in = [&](const std::vector<std::size_t>& numbers) {
      return record.index < numbers.size() ? numbers[record.index] : 0;
    };
    const auto line_in = [&](const auto& records) {
      return record.index < records.size() ? line_of(records[record.index].location) : 0;
    };
    switch (record.kind) {
      case RecordKind::None:
        return 0;
      case RecordKind::EasyToken:
        return line_in(data.easy_tokens);
      case RecordKind::Geometry:
        return line_of(data.geometry_location);
      case RecordKind::Atom:
        return line_in(data.atoms);
      case RecordKind::GeometryLine:
        return number_in(geometry_lines);
      case RecordKind::LeadingLine:
        return number_in(leading_lines);
      case RecordKind::Module:
        return line_in(data.modules);
      case RecordKind::Statement:
        return line_in(data.statements);
      case RecordKind::Entry:
      case RecordKind::Child:
        break;
    }
    const ModuleEntry* const entry = entry_or_child(data, record);
    return entry == nullptr ? 0 : line_of(entry->location);
  }

  std::size_t last_line(const RecordId& record) const {
    std::size_t last = first_line(record);
    if (last == 0 || record.kind == RecordKind::EasyToken) {
      return last;
    }
    if (record.kind == RecordKind::Module) {
      return map.last_line[record.index];
    }
    while (last + 1 < map.lines.size() && is_within(map.lines[last + 1].record, record)) {
      ++last;
    }
    return last;
  }
  // Whether a record's value stands behind its keyword.
  bool has_inline_value(const RecordId& record) const {
    return std::binary_search(map.inline_values.begin(), map.inline_values.end(),
                              first_line(record));
  }
  // What a line says as that of a value.
  TextRange value_on(std::size_t number) const {
    const TextRange line = source.line_range(number);
    if (this->line(number).role == LineRole::Comment) {
      return {line.begin, line.begin};
    }
    const std::string_view text = source.text_of(line);
    const std::string_view value = clean_value_line(text);
    const std::size_t begin = line.begin + static_cast<std::size_t>(value.data() - text.data());
    return {begin, begin + value.size()};
  }
  LineInfo line(std::size_t number) const {
    return number < map.lines.size() ? map.lines[number] : LineInfo{};
  }

  SourceText source;
  InputSchema schema;
  BDFData data;
  LineMap map;
  bool holds_something = false;
  std::vector<MisspeltBorder> borders;
  // The document does not tell where these stand.
  std::vector<std::size_t> geometry_lines;
  std::vector<std::size_t> leading_lines;
};

ParsedInput::ParsedInput(std::string text, const InputSchema& schema)
    : impl_(std::make_shared<const Impl>(std::move(text), schema)) {}
ParsedInput::ParsedInput(const ParsedInput& other) = default;
// An input that was moved from stays one that can be asked.
// NOLINTNEXTLINE(performance-move-constructor-init,cert-oop11-cpp): as said.
ParsedInput::ParsedInput(ParsedInput&& other) noexcept : impl_(other.impl_) {}
ParsedInput& ParsedInput::operator=(const ParsedInput& other) = default;
ParsedInput& ParsedInput::operator=(ParsedInput&& other) noexcept {
  impl_ = other.impl_;
  return *this;
}
ParsedInput::~ParsedInput() = default;

const SourceText& ParsedInput::source() const {
  return impl_->source;
}
const BDFData& ParsedInput::data() const {
  return impl_->data;
}
const InputSchema& ParsedInput::schema() const {
  return impl_->schema;
}
bool ParsedInput::is_empty() const {
  return !impl_->holds_something;
}

LineInfo ParsedInput::line(std::size_t number) const {
  return impl_->line(number);
}

RecordId ParsedInput::record_at(std::size_t byte) const {
  const LineInfo info = line(source().line_at(byte));
  if (info.role != LineRole::Header) {
    return info.record;
  }
  const std::size_t token = token_at(impl_->map, byte);
  return token == no_token ? RecordId{} : RecordId::of(RecordKind::EasyToken, token);
}

std::size_t ParsedInput::first_line(const RecordId& record) const {
  return impl_->first_line(record);
}

std::size_t ParsedInput::last_line(const RecordId& record) const {
  return impl_->last_line(record);
}

TextRange ParsedInput::range(const RecordId& record) const {
  if (record.kind == RecordKind::EasyToken) {
    return token_ranges(record.index).whole;
  }
  const std::size_t first = first_line(record);
  if (first == 0) {
    return {};
  }
  return {source().full_line_range(first).begin, source().full_line_range(last_line(record)).end};
}

TextRange ParsedInput::keyword_range(const RecordId& record) const {
  const std::size_t line = first_line(record);
  if (line == 0) {
    return {};
  }
  TextRange word = source().first_word(line);
  if (const TextRange comment = comment_range(line); word.begin < comment.begin) {
    word.end = std::min(word.end, comment.begin);  // `scf#2` says no more than `scf`
  }
  switch (record.kind) {
    case RecordKind::EasyToken:
      return token_ranges(record.index).key;
    case RecordKind::Statement:
    case RecordKind::GeometryLine:
    case RecordKind::LeadingLine:
      return source().content(line);
    case RecordKind::Module:
      // A name may stand apart from its `$`.
      if (word.size() == 1) {
        word.end = source().first_word({word.end, source().line_range(line).end}).end;
      }
      return word;
    default:
      return word;
  }
}

TextRange ParsedInput::behind_keyword(const RecordId& record) const {
  const std::size_t line = first_line(record);
  if (line == 0 || record.kind == RecordKind::EasyToken) {
    return {};
  }
  const std::size_t begin = keyword_range(record).end;
  const TextRange comment = comment_range(line);
  const std::size_t end = comment.empty() ? source().line_range(line).end : comment.begin;
  return source().trimmed({begin, std::max(begin, end)});
}

std::size_t ParsedInput::end_line(const RecordId& record) const {
  const std::size_t last = last_line(record);
  const LineInfo info = line(last);
  const bool ends = info.role == LineRole::ModuleEnd || info.role == LineRole::BlockEnd ||
                    info.role == LineRole::GeometryEnd;
  return ends && info.record == record ? last : 0;
}

std::size_t ParsedInput::value_line(const RecordId& record, std::size_t index) const {
  return first_line(record) + index + (impl_->has_inline_value(record) ? 0 : 1);
}

TextRange ParsedInput::value_range(const RecordId& record, std::size_t index) const {
  return index == 0 && impl_->has_inline_value(record) ? behind_keyword(record)
                                                       : impl_->value_on(value_line(record, index));
}

std::vector<TextRange> ParsedInput::value_ranges(const RecordId& record) const {
  std::vector<TextRange> ranges;
  const ModuleEntry* const entry = entry_or_child(data(), record);
  if (entry == nullptr || entry->values.empty()) {
    return ranges;
  }
  const bool is_inline = impl_->has_inline_value(record);
  const std::size_t first = value_line(record, 0);
  for (std::size_t i = 0; i < entry->values.size(); ++i) {
    const TextRange range =
        i == 0 && is_inline ? behind_keyword(record) : impl_->value_on(first + i);
    if (!range.empty()) {
      ranges.push_back(range);
    }
  }
  return ranges;
}

std::vector<TextRange> ParsedInput::fields(const RecordId& record) const {
  std::vector<TextRange> ranges;
  std::vector<std::string_view> texts;
  for (const TextRange& line : value_ranges(record)) {
    texts.clear();
    split_value_tokens(source().text_of(line), texts);
    for (const std::string_view text : texts) {
      const auto begin = static_cast<std::size_t>(text.data() - source().text().data());
      ranges.push_back({begin, begin + text.size()});
    }
  }
  return ranges;
}

TextRange ParsedInput::comment_range(std::size_t number) const {
  const TextRange line = source().line_range(number);
  switch (this->line(number).role) {
    case LineRole::Blank:
    case LineRole::ScriptLine:
    case LineRole::Shell:
      return {line.end, line.end};
    case LineRole::Comment:
      return source().content(number);
    default:
      break;
  }
  const std::size_t hash = source().text_of(line).find('#');
  return {hash == std::string_view::npos ? line.end : line.begin + hash, line.end};
}

const std::vector<MisspeltBorder>& ParsedInput::misspelt_borders() const {
  return impl_->borders;
}

bool ParsedInput::is_misspelt_border(std::size_t number) const {
  return impl_->map.amended_text(number) != nullptr;
}

TokenRanges ParsedInput::token_ranges(std::size_t token) const {
  if (token >= data().easy_tokens.size()) {
    return {};
  }
  const std::string_view text = data().easy_tokens[token].text;
  const TokenText written(impl_->map, token);
  const std::size_t end = std::min(text.find('#'), text.size());
  const std::size_t equals = std::min(text.find('='), end);
  TokenRanges ranges;
  ranges.whole = written.range(0, text.size());
  ranges.key = written.range(0, equals);
  if (equals + 1 < end) {
    ranges.value = written.range(equals + 1, end);
  }
  return ranges;
}

SpecificationRanges ParsedInput::specification_ranges(std::size_t token) const {
  SpecificationRanges ranges;
  if (token >= data().easy_tokens.size() || data().easy_tokens[token].category != "method_spec") {
    return ranges;
  }
  const EasyToken& record = data().easy_tokens[token];
  const std::string_view text = record.text;
  const TokenText written(impl_->map, token);
  std::vector<TextRange> parts;
  for (const std::string_view part : split_at_slashes(prepare_easy_token(text))) {
    const auto begin = static_cast<std::size_t>(part.data() - text.data());
    parts.push_back(written.range(begin, begin + part.size()));
  }
  if (parts.size() == 3) {
    ranges = {parts[0], parts[1], parts[2]};
  } else if (parts.size() == 2) {
    (record.method.empty() ? ranges.functional : ranges.method) = parts[0];
    ranges.basis = parts[1];
  }
  return ranges;
}

}  // namespace kelp::input::bdf
