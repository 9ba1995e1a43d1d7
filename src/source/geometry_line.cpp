// A line of a geometry means what the lines before it make of it: `H 0.9` is an atom cut short, and
// a definition where there are internal coordinates. Of those, each row has as many fields as rows
// before it allow, and what the rows name is what definitions may define.

#include "source/geometry_line.hpp"

#include <algorithm>
#include <span>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "source/atom_line.hpp"
#include "source/elements.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

using Words = std::vector<std::string_view>;

bool is_letter(char byte) {
  return !letters_of_label({&byte, 1}).empty();
}

// A name of a variable, or a label: what begins with a letter and is plain ASCII.
bool is_name(std::string_view text) {
  return !text.empty() && is_letter(text.front()) &&
         std::all_of(text.begin(), text.end(),
                     [](char byte) { return byte > ' ' && byte <= '~' && byte != '='; });
}

// The value of an internal coordinate: a number, or a variable, whose sign may be turned.
bool is_coordinate(std::string_view text) {
  return is_decimal(text) || is_name(text) || (text.starts_with('-') && is_name(text.substr(1)));
}

// Tells whether a number is written as a decimal one.
bool may_be_decimal(std::string_view number) {
  return std::all_of(number.begin(), number.end(), [](char byte) {
    return (byte >= '0' && byte <= '9') || byte == '+' || byte == '-' || byte == '.' ||
           byte == 'e' || byte == 'E' || byte == 'd' || byte == 'D';
  });
}

const char* end_of(std::string_view text) {
  return text.data() + text.size();
}

bool is_elided(std::string_view line) {
  constexpr std::string_view ellipsis = "\xE2\x80\xA6";
  while (line.starts_with('.') || line.starts_with(ellipsis)) {
    line.remove_prefix(line.starts_with('.') ? 1 : ellipsis.size());
  }
  return line.empty();
}

bool is_file(std::string_view line) {
  constexpr std::string_view keyword = "file";
  return core::text::equals_ignoring_case(line.substr(0, keyword.size()), keyword) &&
         core::text::trim_view(line.substr(keyword.size())).starts_with('=');
}

bool all_are_numbers(std::span<const std::string_view> words) {
  return std::all_of(words.begin(), words.end(), is_decimal);
}

// Whoever writes an atomic number for the symbol writes an atom, too, though not one that BDF
// knows.
bool is_atom(std::string_view line) {
  const AtomLine atom = read_atom_line(line);
  if (!atom.is_atom() || !std::all_of(atom.fields.begin(), atom.fields.end(), may_be_decimal)) {
    return false;
  }
  std::string_view rest =
      line.substr(static_cast<std::size_t>(end_of(atom.fields[2]) - line.data()));
  const bool has_more = !core::text::trim_view(rest).empty();
  if (!is_name(atom.label) && (has_more || !is_decimal(atom.label))) {
    return false;
  }
  // A letter behind the coordinates marks an atom of a fragment; a number is one too many.
  for (auto word = core::text::take_word(rest); !word.empty(); word = core::text::take_word(rest)) {
    if (is_decimal(word)) {
      return false;
    }
  }
  return true;
}

}  // namespace

bool is_decimal(std::string_view text) {
  return may_be_decimal(text) && core::number::parse_float(text).has_value();
}

std::vector<std::string_view> words_of(std::string_view line) {
  Words words;
  for (auto word = core::text::take_word(line); !word.empty(); word = core::text::take_word(line)) {
    words.push_back(word);
  }
  return words;
}

bool begins_internal_coordinates(std::string_view first, std::string_view second) {
  const Words words = words_of(first);
  return words.size() == 1 && is_name(words[0]) && !is_file(words[0]) && !is_atom(second);
}

GeometryLineKind GeometryReader::kind_of(std::string_view line) const {
  const std::string_view text = core::text::trim_view(line);
  if (text.empty() || is_remark(text)) {
    return GeometryLineKind::Nothing;
  }
  if (is_elided(text)) {
    return GeometryLineKind::Elided;
  }
  if (is_file(text)) {
    return GeometryLineKind::File;
  }
  if (is_internal_) {
    return kind_of_internal(text);
  }
  return is_atom(text) ? GeometryLineKind::Atom : GeometryLineKind::Malformed;
}

GeometryLineKind GeometryReader::take(std::string_view line) {
  const GeometryLineKind kind = kind_of(line);
  if (kind == GeometryLineKind::Internal) {
    ++rows_;
    const Words words = words_of(line);
    for (std::size_t i = 2; i < words.size(); i += 2) {
      if (!is_decimal(words[i])) {
        variables_.emplace_back(words[i].substr(words[i].starts_with('-') ? 1 : 0));
      }
    }
  }
  return kind;
}

GeometryLineKind GeometryReader::kind_of_internal(std::string_view line) const {
  Words words = words_of(line);
  if (const std::size_t equals = line.find('='); equals != std::string_view::npos) {
    words = words_of(line.substr(0, equals));
    const bool is_one = words.size() == 1;
    const Words values = words_of(line.substr(equals + 1));
    words.insert(words.end(), values.begin(), values.end());
    if (!is_one) {
      return GeometryLineKind::Malformed;
    }
  } else if (is_row(words)) {
    return GeometryLineKind::Internal;
  }
  if (!is_name(words[0]) || !all_are_numbers(std::span(words).subspan(1))) {
    return GeometryLineKind::Malformed;
  }
  if (words.size() == 2) {
    return GeometryLineKind::Definition;
  }
  const bool can_be_scan = is_variable(words[0]) || !is_atom_label(words[0]);
  return words.size() == 4 && can_be_scan ? GeometryLineKind::Scan : GeometryLineKind::Malformed;
}

bool GeometryReader::is_row(const Words& words) const {
  if (words.size() != fields_of_row(rows_) + 1 || !is_name(words[0])) {
    return false;
  }
  for (std::size_t i = 1; i < words.size(); i += 2) {
    if (!core::number::parse_integer(words[i]) || !is_coordinate(words[i + 1])) {
      return false;
    }
  }
  return true;
}

bool GeometryReader::is_variable(std::string_view name) const {
  return std::any_of(variables_.begin(), variables_.end(), [&](const std::string& variable) {
    return core::text::equals_ignoring_case(variable, name);
  });
}

}  // namespace kelp::input::bdf
