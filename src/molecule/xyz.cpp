// XYZ texts, in and out. Reading stops at the first mistake: what follows a row too few or too many
// would be blamed for it.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "model/molecule_names.hpp"
#include "source/atom_line.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::size_t first_row = 3;

bool is_letter(char byte) {
  const char lower = core::text::to_lower(byte);
  return lower >= 'a' && lower <= 'z';
}

// A symbol such as C, or a label such as C12 or H_a. What a BDF input reads as something else than
// an atom must not come in here.
bool is_symbol(std::string_view text) {
  return !text.empty() && is_letter(text.front()) &&
         std::all_of(text.begin(), text.end(), [](char byte) {
           return is_letter(byte) || (byte >= '0' && byte <= '9') || byte == '_' || byte == '-';
         });
}

std::string quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

class XyzReader {
 public:
  explicit XyzReader(std::string_view text) {
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (text.starts_with(byte_order_mark)) {
      text.remove_prefix(byte_order_mark.size());
    }
    while (!text.empty()) {
      lines_.push_back(core::text::take_line(text));
    }
  }

  XyzResult run() {
    if (!read_all()) {
      result_.atoms.clear();
    }
    return std::move(result_);
  }

 private:
  bool read_all() {
    const std::string_view text = core::text::trim_view(line_at(1));
    const auto number = core::number::parse_integer(text);
    if (!number || *number < 1) {
      return fail(1, quoted(text) + " is no number of atoms");
    }
    count_ = static_cast<std::size_t>(*number);
    result_.comment = line_at(2);
    // Nobody's count is trusted with memory: rows are read one by one.
    for (std::size_t i = 0; i < count_; ++i) {
      if (!read_row(first_row + i)) {
        return false;
      }
    }
    for (std::size_t line = first_row + count_; line <= lines_.size(); ++line) {
      if (!core::text::trim_view(line_at(line)).empty()) {
        return fail(line, "there are more rows than the " + std::to_string(count_) +
                              " that line 1 announces");
      }
    }
    return true;
  }

  bool read_row(std::size_t line) {
    const AtomLine row = read_atom_line(line_at(line));
    if (row.label.empty()) {
      return fail(line, "there are " + std::to_string(line - first_row) +
                            " rows, but line 1 announces " + std::to_string(count_));
    }
    if (!is_symbol(row.label)) {
      return fail(line, quoted(row.label) + " is no symbol of an element");
    }
    for (std::size_t i = 0; i < row.fields.size(); ++i) {
      if (row.fields[i].empty()) {
        return fail(line, "an atom needs three coordinates");
      }
      if (i >= row.numbers || !std::isfinite(row.position[i])) {
        return fail(line, quoted(row.fields[i]) + " is no coordinate");
      }
    }
    result_.atoms.push_back(atom_of(row));
    return true;
  }

  bool fail(std::size_t line, std::string reason) {
    result_.line = line;
    result_.error = std::move(reason);
    return false;
  }

  std::string_view line_at(std::size_t line) const {
    return line <= lines_.size() ? lines_[line - 1] : std::string_view();
  }

  std::vector<std::string_view> lines_;
  std::size_t count_ = 0;
  XyzResult result_;
};

}  // namespace

XyzResult read_xyz(std::string_view text) {
  return XyzReader(text).run();
}

std::string write_xyz(const Molecule& molecule, std::string_view comment) {
  const double factor = molecule.unit == LengthUnit::Bohr ? angstrom_per_bohr : 1.0;
  std::string text = std::to_string(molecule.atoms.size()) + '\n';
  for (const char byte : comment) {
    text += byte == '\n' || byte == '\r' ? ' ' : byte;
  }
  text += '\n';
  for (const AtomRecord& atom : molecule.atoms) {
    const std::string_view element = element_of(atom.element);
    text += element.empty() ? std::string_view(atom.element) : element;
    for (const double coordinate : {atom.x, atom.y, atom.z}) {
      text += ' ' + core::number::to_text(coordinate * factor);
    }
    text += '\n';
  }
  return text;
}

}  // namespace kelp::input::bdf
