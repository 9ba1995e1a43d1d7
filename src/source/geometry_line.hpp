#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelp::input::bdf {

/// What a line of a geometry is.
enum class GeometryLineKind : std::int32_t {
  Nothing,     ///< blank or a comment
  Elided,      ///< dots for lines that are left out
  File,        ///< `file=name.xyz`
  Atom,        ///< a label and three coordinates
  Internal,    ///< a row of internal coordinates: `O`, `H 1 0.9`, `H 1 R1 2 A1`
  Definition,  ///< `R1 0.9`, `R1 = 0.9`: a variable of internal coordinates
  Scan,        ///< `R1 0.75 0.05 20`: such a variable, its step, and how many values it takes
  Malformed,   ///< none of these
};

/// Tells whether a text is a decimal number, perhaps with an exponent. Nobody means hexadecimal
/// digits, or a word for infinity, by a coordinate.
bool is_decimal(std::string_view text);

/// Returns the words of a line.
std::vector<std::string_view> words_of(std::string_view line);

/// Tells whether a geometry is one of internal coordinates, by its first two lines that say
/// something: its first row is a label alone, and no atom with coordinates follows.
bool begins_internal_coordinates(std::string_view first, std::string_view second);

/// Tells what the lines of a geometry are, one after the other. Lines are given without the comment
/// behind them.
class GeometryReader {
 public:
  /// Begins a geometry, of internal coordinates or not.
  explicit GeometryReader(bool is_internal) : is_internal_(is_internal) {}

  bool is_internal() const { return is_internal_; }
  /// Returns how many rows of internal coordinates have been taken.
  std::size_t rows() const { return rows_; }
  /// Tells what a line would be if it were the next.
  GeometryLineKind kind_of(std::string_view line) const;
  /// Tells what the next line is, and goes on behind it.
  GeometryLineKind take(std::string_view line);
  /// Goes on behind a row that is there but cannot be read.
  void pass_row() { ++rows_; }

 private:
  GeometryLineKind kind_of_internal(std::string_view line) const;
  bool is_row(const std::vector<std::string_view>& words) const;
  bool is_variable(std::string_view name) const;

  bool is_internal_;
  std::size_t rows_ = 0;
  std::vector<std::string> variables_;
};

/// Returns how many fields a row of internal coordinates has behind its label, by the number of
/// rows before it: none, then `i R`, `i R j A`, `i R j A k D`.
constexpr std::size_t fields_of_row(std::size_t rows_before) {
  return 2 * (rows_before < 3 ? rows_before : 3);
}

}  // namespace kelp::input::bdf
