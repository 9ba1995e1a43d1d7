// Every line of a geometry is held against what may stand there. A geometry without an end takes in
// what is none of its own, so that there the first line that says nothing of an atom is the last.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "diagnose/atom_repair.hpp"
#include "diagnose/finders.hpp"
#include "diagnose/likely_elements.hpp"
#include "diagnose/offers.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "source/elements.hpp"
#include "source/geometry_line.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

/// The lines of a geometry, and whose they are.
struct GeometryLines {
  std::size_t first = 0;  ///< number of the first line
  std::size_t last = 0;   ///< number of the last one
  bool has_end = true;
  RecordId entry;  ///< none for the geometry block of the document
};

class AtomLineFinder {
 public:
  AtomLineFinder(DiagnoseContext& context, const DiagnosticSink& use)
      : context_(context), input_(context.input), source_(input_.source()), use_(use) {}

  void look_at(const GeometryLines& lines) {
    std::size_t number = lines.first;
    const std::size_t head = find_head(lines);
    if (head != 0) {
      report_head(lines, number, head);
      number = head + 1;
    }
    GeometryReader reader(is_internal(number, lines.last));
    for (; number <= lines.last; ++number) {
      const std::string_view text = text_of(number);
      const bool is_border =
          !text.empty() && (text.front() == '$' || text.front() == '%' || text.front() == '&');
      if (is_border || (!lines.has_end && !may_be_atom(text))) {
        return;
      }
      look_at_line(lines, number, text, reader);
    }
  }

 private:
  std::string_view text_of(std::size_t number) const {
    const std::string_view text = source_.text_of(source_.content(number));
    return is_remark(text) ? text.substr(0, 0) : without_comment_and_blanks(text);
  }

  static std::string_view without_comment_and_blanks(std::string_view text) {
    return core::text::trim_view(without_comment(text));
  }

  std::size_t next_with_text(std::size_t number, std::size_t last) const {
    while (number <= last && text_of(number).empty()) {
      ++number;
    }
    return number;
  }

  bool is_internal(std::size_t first, std::size_t last) const {
    const std::size_t one = next_with_text(first, last);
    const std::size_t two = next_with_text(one + 1, last);
    return one <= last &&
           begins_internal_coordinates(text_of(one), two <= last ? text_of(two) : "");
  }

  // Whether a line of a geometry without an end can still belong to it.
  static bool may_be_atom(std::string_view text) {
    return text.empty() || text.find_first_of("0123456789.") != std::string_view::npos ||
           is_atom_label(text);
  }

  // Returns the number of the last line of the head of an XYZ file, its comment, or 0.
  std::size_t find_head(const GeometryLines& lines) const {
    const std::size_t first = next_with_text(lines.first, lines.last);
    const auto count = core::number::parse_integer(first <= lines.last ? text_of(first) : "");
    if (!count || *count < 1 || first + 1 > lines.last) {
      return 0;
    }
    // The line behind it is a comment, whatever it says, unless it is an atom, perhaps a broken
    // one.
    const GeometryReader reader(false);
    const std::string_view next = text_of(first + 1);
    const bool is_atom = reader.kind_of(next) == GeometryLineKind::Atom ||
                         (!next.empty() && repair_atom_line(next, reader));
    return is_atom ? first : first + 1;
  }

  void look_at_line(const GeometryLines& lines, std::size_t number, std::string_view text,
                    GeometryReader& reader) {
    switch (reader.take(text)) {
      case GeometryLineKind::Malformed:
        report_malformed(lines, number, reader);
        reader.pass_row();
        return;
      case GeometryLineKind::Atom:
        check_surplus(lines, number, text);
        return check_element(lines, number, text);
      case GeometryLineKind::Internal:
        return check_element(lines, number, text);
      default:
        return;
    }
  }

  Diagnostic begin(const GeometryLines& lines, std::size_t number, std::string_view code,
                   std::string message, std::string argument) const {
    const RecordId record = lines.entry ? lines.entry : input_.line(number).record;
    return begin_diagnostic({code, std::move(message), {std::move(argument)}, record},
                            context_.paths);
  }

  Diagnostic begin_malformed(const GeometryLines& lines, std::size_t number) const {
    const std::string text = core::unicode::abridged(text_of(number));
    return begin(lines, number, "geometry.geometry_line_malformed",
                 "The line '" + text + "' of the geometry is not that of an atom.",
                 std::string(text_of(number)));
  }

  void report_malformed(const GeometryLines& lines, std::size_t number,
                        const GeometryReader& reader) const {
    Diagnostic diagnostic = begin_malformed(lines, number);
    const std::string_view text = text_of(number);
    const std::size_t at = source_.content(number).begin;
    const auto shifted = [at](const TextRange& range) {
      return TextRange{range.begin + at, range.end + at};
    };
    if (const auto repair = repair_atom_line(text, reader)) {
      diagnostic.range = shifted(repair->fault);
      diagnostic.label = repair->label;
      offer_fix(diagnostic, repair->title, shifted(repair->range), repair->text, repair->is_safe);
    } else {
      AtomFault fault = fault_of_atom_line(text, reader);
      diagnostic.range = shifted(fault.range);
      diagnostic.label = std::move(fault.label);
    }
    diagnostic.help.emplace_back(
        reader.is_internal() ? "write a row such as 'H 1 0.96 2 104.5', or 'R1 0.96' for a variable"
                             : "write an atom and its three coordinates, 'O 0.0 0.0 0.5'");
    use_(diagnostic);
  }

  void report_head(const GeometryLines& lines, std::size_t first, std::size_t last) const {
    const std::size_t count = next_with_text(first, last);
    Diagnostic diagnostic = begin_malformed(lines, count);
    diagnostic.range = source_.content(count);
    diagnostic.label = "the head of an XYZ file";
    diagnostic.help.emplace_back(
        "a geometry has atoms only: no line with their number, no title behind it");
    offer_fix(diagnostic, last > count ? "drop both lines of the head" : "drop the line",
              {source_.full_line_range(count).begin, source_.full_line_range(last).end}, "");
    use_(diagnostic);
  }

  void check_element(const GeometryLines& lines, std::size_t number, std::string_view text) const {
    const std::string_view label = core::text::take_word(text);
    if (is_atom_label(label)) {
      return check_label(lines, number, label);
    }
    // Where the letters are right, what follows them is not.
    const std::string_view letters = letters_of_label(label);
    const std::string_view named = letters.empty() || is_atom_label(letters) ? label : letters;
    Diagnostic diagnostic =
        begin(lines, number, "geometry.unknown_element",
              "There is no element '" + core::unicode::abridged(named) + "'.", std::string(named));
    const std::size_t at = source_.content(number).begin;
    diagnostic.range = {at, at + named.size()};
    diagnostic.label = letters.empty() ? "a number for a symbol" : "not the symbol of an element";
    const bool is_isotope = core::text::equals_ignoring_case(named, "D") ||
                            core::text::equals_ignoring_case(named, "T");
    if (is_isotope) {
      diagnostic.help.emplace_back("isotopes are 'H' here, and a row of 'atommass' in $compass");
    }
    offer_names(diagnostic,
                is_isotope        ? std::vector<std::string>{"H"}
                : letters.empty() ? elements_of_number(label)
                                  : similar_elements(letters),
                {"element", "elements"}, *diagnostic.range, false);
    use_(diagnostic);
  }

  // A symbol and digits; other marks are those of other programs.
  void check_label(const GeometryLines& lines, std::size_t number, std::string_view label) const {
    const std::size_t end = label.find_first_not_of("0123456789", letters_of_label(label).size());
    if (end == std::string_view::npos) {
      return;
    }
    Diagnostic diagnostic = begin(
        lines, number, "geometry.label_marks",
        "The label '" + core::unicode::abridged(label) + "' is more than a symbol with digits.",
        std::string(label));
    const std::size_t at = source_.content(number).begin;
    diagnostic.range = {at, at + label.size()};
    diagnostic.label = "a symbol, or a symbol and digits";
    const std::string meant(label.substr(0, end));
    offer_fix(diagnostic, "write '" + meant + "'", *diagnostic.range, meant);
    use_(diagnostic);
  }

  // Behind the coordinates stands the mark of an atom of a fragment, or nothing.
  void check_surplus(const GeometryLines& lines, std::size_t number, std::string_view text) const {
    constexpr std::size_t usual = 4;
    std::string_view rest = text;
    for (std::size_t i = 0; i < usual; ++i) {
      core::text::take_word(rest);
    }
    if (is_blank(rest)) {
      return;
    }
    const std::vector<std::string_view> words = words_of(text);
    const bool has_mark =
        words.size() == usual + 1 && (core::text::equals_ignoring_case(words.back(), "B") ||
                                      core::text::equals_ignoring_case(words.back(), "L"));
    if (words.size() <= usual || has_mark) {
      return;
    }
    const auto begins = static_cast<std::size_t>(words[usual].data() - text.data());
    const std::string surplus(text.substr(begins));
    Diagnostic diagnostic = begin(
        lines, number, "geometry.surplus_word",
        "'" + core::unicode::abridged(surplus) + "' stands behind the coordinates of an atom.",
        surplus);
    const std::size_t at = source_.content(number).begin + begins;
    diagnostic.range = {at, at + surplus.size()};
    diagnostic.label = "neither 'B' nor 'L' of a fragment";
    diagnostic.help.emplace_back("remove it; a comment begins with '#'");
    offer_fix(diagnostic, "make it a comment", {at, at}, "# ");
    use_(diagnostic);
  }

  DiagnoseContext& context_;
  const ParsedInput& input_;
  const SourceText& source_;
  const DiagnosticSink& use_;
};

// The lines between the one that begins a record and the one that ends it.
GeometryLines lines_within(const ParsedInput& input, const RecordId& record) {
  GeometryLines lines;
  const std::size_t end = input.end_line(record);
  lines.first = input.first_line(record) + 1;
  lines.has_end = end != 0;
  lines.last = lines.has_end ? end - 1 : input.last_line(record);
  return lines;
}

// A geometry is a block of lines that its name and its end tell.
bool is_geometry(const ModuleEntry& entry) {
  return entry.known && entry.kind == EntryValueKind::TerminatedBlock &&
         entry.terminator == "end " + entry.name && entry.name.starts_with("geometry");
}

}  // namespace

void find_atom_lines(DiagnoseContext& context, const DiagnosticSink& use) {
  AtomLineFinder finder(context, use);
  const ParsedInput& input = context.input;
  if (input.data().has_geometry) {
    finder.look_at(lines_within(input, RecordId::of(RecordKind::Geometry, 0)));
  }
  const std::vector<Module>& modules = input.data().modules;
  for (std::size_t i = 0; i < modules.size(); ++i) {
    for (std::size_t k = 0; k < modules[i].entries.size(); ++k) {
      if (is_geometry(modules[i].entries[k])) {
        GeometryLines lines = lines_within(input, RecordId::of_entry(i, k));
        lines.entry = RecordId::of_entry(i, k);
        finder.look_at(lines);
      }
    }
  }
}

}  // namespace kelp::input::bdf
