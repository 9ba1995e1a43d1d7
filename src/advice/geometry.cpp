// Reads a geometry line by line, as data for advice: what cannot be read with certainty makes the
// whole uncertain, and then nothing is concluded from it. The first line tells the form: an atom
// alone on its line begins a Z-matrix.

#include "advice/geometry.hpp"

#include <algorithm>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"
#include "source/atom_line.hpp"
#include "source/elements.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

bool is_digit(char byte) {
  return byte >= '0' && byte <= '9';
}

class GeometryReader {
 public:
  GeometryReader(const ParsedInput& input, const RecordId& record) : input_(input) {
    geometry_.record = record;
  }

  Geometry run() {
    const std::size_t end = input_.end_line(geometry_.record);
    if (end == 0) {
      geometry_.is_certain = false;
      return std::move(geometry_);
    }
    const std::size_t first = input_.first_line(geometry_.record) + 1;
    geometry_.centres.reserve(end - std::min(first, end));
    for (std::size_t line = first; line < end; ++line) {
      read_line(line, clean_value_line(input_.source().line(line)));
    }
    if (geometry_.centres.capacity() > 2 * geometry_.centres.size()) {
      geometry_.centres.shrink_to_fit();
    }
    add_up();
    return std::move(geometry_);
  }

 private:
  void read_line(std::size_t line, std::string_view text) {
    if (text.empty()) {
      seen_blank_ = seen_blank_ || !geometry_.centres.empty();
    } else if (text.front() == '*') {
      return;
    } else if (is_elision(text)) {
      geometry_.is_certain = false;
    } else if (!read_file(text)) {
      read_atoms(line, text);
    }
  }

  bool read_file(std::string_view text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos ||
        !core::text::equals_ignoring_case(core::text::trim_view(text.substr(0, equals)), "file")) {
      return false;
    }
    geometry_.file = core::text::trim_view(text.substr(equals + 1));
    geometry_.form = GeometryForm::File;
    return true;
  }

  void read_atoms(std::size_t line, std::string_view text) {
    if (geometry_.form == GeometryForm::Internal) {
      read_internal(text);
      return;
    }
    // The numbers of a geometry below the header have been read with the document.
    if (const LineInfo info = input_.line(line); info.role == LineRole::Atom) {
      const AtomRecord& atom = input_.data().atoms[info.record.index];
      add_atom(core::text::take_word(text), {atom.x, atom.y, atom.z});
      return;
    }
    const AtomLine atom = read_atom_line(text);
    if (geometry_.centres.empty() && atom.fields[0].empty() && element_of_label(atom.label) >= 0) {
      geometry_.form = GeometryForm::Internal;
      read_internal(text);
    } else if (atom.is_atom()) {
      add_atom(atom.label, atom.position);
    } else {
      geometry_.is_certain = false;
    }
  }

  void add_atom(Word label, const std::array<double, 3>& position) {
    geometry_.form =
        geometry_.form == GeometryForm::None ? GeometryForm::Cartesian : geometry_.form;
    geometry_.centres.push_back({label, element_of_label(label), position});
  }

  // A row has an odd number of words, a variable an even one: its name and one or three numbers.
  void read_internal(std::string_view text) {
    std::vector<Word> words;
    for (std::string_view rest = text; !rest.empty();) {
      if (const Word word = core::text::take_word(rest); !word.empty()) {
        words.push_back(word);
      }
    }
    constexpr std::size_t most_words = 7;
    if (text.find('=') != std::string_view::npos) {
      read_assignment(text);
    } else if (words.size() % 2 == 0) {
      geometry_.variables.push_back({words.front(), {words.begin() + 1, words.end()}, seen_blank_});
    } else if (words.size() <= most_words) {
      geometry_.centres.push_back({words.front(), element_of_label(words.front()), {}});
      geometry_.rows.push_back(std::move(words));
    } else {
      geometry_.is_certain = false;
    }
  }

  void read_assignment(std::string_view text) {
    const std::size_t equals = text.find('=');
    Variable variable;
    variable.name = core::text::trim_view(text.substr(0, equals));
    split_value_tokens(text.substr(equals + 1), variable.values);
    variable.after_blank = seen_blank_;
    geometry_.variables.push_back(std::move(variable));
  }

  void add_up() {
    std::int64_t sum = 0;
    for (const Centre& centre : geometry_.centres) {
      geometry_.is_certain = geometry_.is_certain && centre.element >= 0;
      sum += centre.element;
    }
    if (geometry_.is_certain && !geometry_.centres.empty() &&
        geometry_.form != GeometryForm::File) {
      geometry_.nuclear_charge_ = sum;
    }
  }

  const ParsedInput& input_;
  Geometry geometry_;
  bool seen_blank_ = false;
};

}  // namespace

bool Variable::may_be_row() const {
  return !after_blank && element_of_label(name) > 0;
}

std::optional<std::size_t> Geometry::size() const {
  const bool is_known = is_certain && (form == GeometryForm::Cartesian ||  //
                                       form == GeometryForm::Internal);
  return is_known ? std::optional<std::size_t>(centres.size()) : std::nullopt;
}

int element_of_label(Word label) {
  while (!label.empty() && is_digit(label.back())) {
    label.remove_suffix(1);
  }
  if (core::text::equals_ignoring_case(label, "x")) {
    return 0;
  }
  const int number = atomic_number(label);
  return number == 0 ? -1 : number;
}

bool is_elision(std::string_view line) {
  constexpr std::string_view ellipsis = "\u2026";
  const char first = first_byte(line);
  if (first != '.' && first != ellipsis.front()) {
    return false;
  }
  line = core::text::trim_view(line);
  if (line.starts_with(ellipsis)) {
    return true;
  }
  return line.size() > 1 &&
         std::all_of(line.begin(), line.end(), [](char byte) { return byte == '.'; });
}

Geometry read_geometry(const ParsedInput& input, const RecordId& record) {
  return record ? GeometryReader(input, record).run() : Geometry{};
}

}  // namespace kelp::input::bdf
