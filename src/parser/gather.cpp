#include "parser/gather.hpp"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

bool at_border(const LineReader& reader) {
  return reader.at_end() || reader.at_break() || reader.at_module_border();
}

// Tells whether a line is none of an entry's values. The line that closes the block around an entry
// is one by its letter, but not to the program.
bool is_stop(const LineReader& reader, std::string_view line, const Keywords& keywords) {
  return is_module_border(line) || keywords.start(line) ||
         (reader.reads_as_program() && keywords.end(line));
}

bool at_stop(const LineReader& reader, const Keywords& keywords) {
  return at_border(reader) || keywords.have(reader.word()) ||
         (reader.reads_as_program() && keywords.end(reader.line()));
}

// Fragments are defined by rows of numbers in which a star stands for one that is worked out.
bool is_row_of_numbers_and_stars(std::string_view line) {
  return line.find_first_not_of("*0123456789+-., \t\r") == std::string_view::npos;
}

bool is_star_comment_in(const ModuleEntry& entry, std::string_view line) {
  return is_star_comment(line) && entry.kind != EntryValueKind::TerminatedBlock &&
         (entry.kind != EntryValueKind::MultiLine || !is_row_of_numbers_and_stars(line));
}

// Whoever looks at values knows a comment by its `#` alone.
void take_value(LineReader& reader, ModuleEntry& entry) {
  if (reader.reads_as_program() && is_star_comment_in(entry, reader.line())) {
    entry.values.push_back('#' + std::string(reader.take(LineRole::Comment)));
    return;
  }
  entry.values.emplace_back(reader.take(LineRole::Value));
}

bool is_blank_or_comment(std::string_view line) {
  return is_blank(line) || first_byte(line) == '#' || is_star_comment(line);
}

// Returns how far ahead the line is that holds the value of a keyword, blank lines and comments
// passed over; nothing when another keyword, or the module's end, comes first.
std::optional<std::size_t> distance_to_value(const LineReader& reader, const Keywords& keywords) {
  if (at_stop(reader, keywords)) {
    return std::nullopt;
  }
  if (!is_blank_or_comment(reader.line())) {
    return 0;
  }
  for (std::size_t distance = 1; distance < reader.lines_left(); ++distance) {
    const std::string_view line = reader.line_ahead(distance);
    if (reader.at_break(distance) || is_stop(reader, line, keywords)) {
      break;
    }
    if (!is_blank_or_comment(line)) {
      return distance;
    }
  }
  return std::nullopt;
}

// Returns how far ahead the title is, of a keyword `title` before a line that looks like a
// keyword's.
std::optional<std::size_t> distance_to_title(const LineReader& reader, const Keywords& keywords,
                                             const ModuleEntry& entry) {
  if (!keywords.has_titles(entry.name)) {
    return std::nullopt;
  }
  const std::size_t title = reader.next_telling(0);
  const std::string_view next = reader.line_ahead(reader.next_telling(title + 1));
  if (reader.at_break(title) || !keywords.is_title(entry.name, reader.line_ahead(title), next)) {
    return std::nullopt;
  }
  return title;
}

void gather_one_line(LineReader& reader, const Keywords& keywords, ModuleEntry& entry) {
  if (!reader.reads_as_program()) {
    if (!at_stop(reader, keywords)) {
      take_value(reader, entry);
    }
    return;
  }
  // Blank lines and comments before the value go with it.
  auto distance = distance_to_value(reader, keywords);
  if (!distance) {
    distance = distance_to_title(reader, keywords, entry);
  }
  if (distance) {
    for (std::size_t i = 0; i <= *distance; ++i) {
      take_value(reader, entry);
    }
  }
}

// Of lines that nothing but the next keyword ends, the first is a value whatever it says. A word
// further on that is nearly a keyword is one, unless the entry has such a value; and behind as many
// fields as an entry takes, no line is its own.
bool is_swallowed_keyword(const LineReader& reader, const Keywords& keywords,
                          const ModuleEntry& entry) {
  if (!reader.reads_as_program() || entry.kind != EntryValueKind::MultiLine) {
    return false;
  }
  const bool is_surplus =
      !is_blank_or_comment(reader.line()) && keywords.are_fields_complete(entry);
  return is_surplus || keywords.may_be_misspelt(reader.line(), entry);
}

void gather_lines(LineReader& reader, const Keywords& keywords, ModuleEntry& entry) {
  while (!at_stop(reader, keywords) && !is_swallowed_keyword(reader, keywords, entry)) {
    take_value(reader, entry);
  }
}

// Rows are taken without looking for keywords: the count says where they end, and a row may well
// begin with a word that is a keyword elsewhere. The count may have stood behind the keyword.
void gather_counted_rows(LineReader& reader, const Keywords& keywords, ModuleEntry& entry) {
  if (entry.values.empty()) {
    if (at_stop(reader, keywords)) {
      return;
    }
    take_value(reader, entry);
  }
  const std::optional<std::int64_t> count = core::number::parse_integer(entry.values.front());
  if (!count || *count < 0) {
    gather_lines(reader, keywords, entry);
    return;
  }
  for (std::int64_t row = 0; row < *count && !at_border(reader);) {
    row += reader.reads_as_program() && is_blank_or_comment(reader.line()) ? 0 : 1;
    take_value(reader, entry);
  }
}

void gather_block(LineReader& reader, ModuleEntry& entry) {
  entry.terminated = false;
  while (!reader.at_end() && !reader.at_break()) {
    if (is_terminator(reader.line(), entry)) {
      entry.terminated = true;
      reader.skip(LineRole::BlockEnd);
      return;
    }
    if (reader.at_module_border()) {
      return;
    }
    take_value(reader, entry);
  }
}

// Nobody knows how an unknown keyword lays out its values. What is indented, empty or a comment is
// most likely still its own; anything else starts something new.
void gather_continuation(LineReader& reader, const Keywords& keywords, ModuleEntry& entry) {
  while (!at_stop(reader, keywords)) {
    const std::string_view line = reader.line();
    if (!line.empty() && !is_indented(line) && !is_remark(line)) {
      return;
    }
    take_value(reader, entry);
  }
}

// Whether what stands behind a keyword is the number of its rows: a row of several numbers follows,
// which is no count itself.
bool is_count_before_row(const ModuleEntry& entry, std::string_view rest, std::string_view next) {
  const auto count = core::number::parse_integer(rest);
  std::string_view row = next;
  const bool begins_with_number =
      core::number::parse_integer(core::text::take_word(row)).has_value();
  return entry.kind == EntryValueKind::CountedRows && count && *count > 0 && begins_with_number &&
         !is_blank(row);
}

// Whether an entry's value is lines that nothing but the next keyword ends.
bool takes_lines(EntryValueKind kind) {
  return kind == EntryValueKind::Scalar || kind == EntryValueKind::Tuple ||
         kind == EntryValueKind::MultiLine || kind == EntryValueKind::CountedRows;
}

}  // namespace

bool is_terminator(std::string_view line, const ModuleEntry& entry) {
  return is_same_line(line, entry.terminator);
}

void gather_values(LineReader& reader, const Keywords& keywords, ModuleEntry& entry) {
  if (!entry.values.empty() && entry.kind != EntryValueKind::CountedRows) {
    return;
  }
  switch (entry.kind) {
    case EntryValueKind::Flag:
      return;
    case EntryValueKind::Scalar:
    case EntryValueKind::Tuple:
      return gather_one_line(reader, keywords, entry);
    case EntryValueKind::MultiLine:
    case EntryValueKind::NestedBlock:
      return gather_lines(reader, keywords, entry);
    case EntryValueKind::CountedRows:
      return gather_counted_rows(reader, keywords, entry);
    case EntryValueKind::TerminatedBlock:
      return gather_block(reader, entry);
    case EntryValueKind::Raw:
      return gather_continuation(reader, keywords, entry);
  }
}

void take_keyword_line(LineReader& reader, const Keywords& keywords, ModuleEntry& entry) {
  entry.known = true;  // the word is, also where its canonical name leads nowhere ("$$x")
  entry.location = reader.location();
  const std::string_view line = reader.line();
  const std::size_t number = reader.index() + 1;
  entry.raw_line = reader.take(LineRole::Keyword);
  if (!reader.reads_as_program() || !takes_lines(entry.kind)) {
    return;
  }
  std::string_view rest = line;
  core::text::take_word(rest);
  rest = core::text::trim_view(rest);
  if (rest.empty()) {
    return;
  }
  const auto distance = distance_to_value(reader, keywords);
  if (!distance || is_count_before_row(entry, rest, reader.line_ahead(*distance)) ||
      keywords.has_numbers_behind(entry, rest, reader.line_ahead(*distance))) {
    entry.values.emplace_back(rest);
    reader.map()->inline_values.push_back(number);
  }
}

void take_raw_entry(LineReader& reader, ModuleEntry& entry) {
  const std::string_view line = reader.line();
  const LineRole other = is_remark(line) ? LineRole::Comment : LineRole::UnknownLine;
  entry.kind = EntryValueKind::Raw;
  entry.location = reader.location();
  entry.name = core::text::to_lower(first_word(line));
  entry.raw_line = reader.take(is_blank(line) ? LineRole::Blank : other);
}

}  // namespace kelp::input::bdf
