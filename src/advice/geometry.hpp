#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "advice/setting.hpp"
#include "kelp/input/bdf/parsed_input.hpp"

namespace kelp::input::bdf {

/// How a geometry is given.
enum class GeometryForm : std::int32_t {
  None = 0,       ///< not at all, or by nothing but comments
  Cartesian = 1,  ///< a label and three coordinates on each line
  Internal = 2,   ///< a Z-matrix
  File = 3,       ///< `file=name`
};

/// A centre of a geometry: an atom, or a ghost.
struct Centre {
  Word label;                                  ///< as written: `H1`
  int element = 0;                             ///< atomic number; 0 for a ghost, -1 for no element
  std::array<double, 3> position = {0, 0, 0};  ///< in the input's own unit; of a Cartesian one only

  bool is_ghost() const { return element == 0; }
};

/// A variable of a Z-matrix: its name, and the words of its value (three of one that is scanned).
struct Variable {
  Word name;
  std::vector<Word> values;
  bool after_blank = false;  ///< a blank line stands between it and the rows

  /// Tells whether it may be the row of an atom that lacks a word: `H 11.1 2 120`.
  bool may_be_row() const;
};

/// The geometry of one system, read line by line.
struct Geometry {
  RecordId record;  ///< the geometry block or the entry of `$compass`; none without one
  GeometryForm form = GeometryForm::None;
  std::vector<Centre> centres;          ///< in order; none of a file
  std::vector<std::vector<Word>> rows;  ///< of a Z-matrix: the words of each centre's row
  std::vector<Variable> variables;      ///< of a Z-matrix
  Word file;                            ///< the name behind `file=`
  bool is_certain = true;  ///< no line was left out by dots, misread or of an unknown element, and
                           ///< the block has its end; without it, numbers prove nothing

  /// Returns the sum of the atomic numbers; unset unless every atom is known.
  std::optional<std::int64_t> nuclear_charge() const { return nuclear_charge_; }
  /// Returns the number of centres; unset unless it is certain.
  std::optional<std::size_t> size() const;

  std::optional<std::int64_t> nuclear_charge_;
};

/// Returns the atomic number that a label of letters and digits stands for: 0 for the ghost `X`, -1
/// for what is no element.
int element_of_label(Word label);

/// Tells whether a text says that something was left out: a line of dots.
bool is_elision(std::string_view line);

/// Reads a geometry.
Geometry read_geometry(const ParsedInput& input, const RecordId& record);

}  // namespace kelp::input::bdf
