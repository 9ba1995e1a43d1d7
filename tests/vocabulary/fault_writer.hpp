#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "faults.hpp"
#include "kelp/input/bdf.hpp"

namespace kelp::test {

/// Writes variants of one text, each with one mistake.
class FaultWriter {
 public:
  explicit FaultWriter(std::string_view text);

  const input::bdf::ParsedInput& input() const { return input_; }
  std::string text_of(const input::bdf::TextRange& range) const;
  /// Writes something else in a range that is within a line.
  void replace(std::string_view kind, const input::bdf::TextRange& range,
               const std::string& replacement);
  /// Adds a line before another one.
  void insert(std::string_view kind, std::size_t number, const std::string& line);
  /// Repeats the lines of a record behind it.
  void repeat(std::string_view kind, const input::bdf::RecordId& record);
  /// Drops the line that closes a record, if there is one.
  void remove_end(std::string_view kind, const input::bdf::RecordId& record);

  std::vector<Fault> take() { return std::move(faults_); }

 private:
  void add(std::string_view kind, std::size_t index, const std::vector<std::string>& lines);

  input::bdf::ParsedInput input_;
  std::vector<std::string> lines_;
  std::vector<Fault> faults_;
};

/// Swaps the first two neighbours that differ, behind the first letter if there are such.
std::string misspelt(std::string word);

/// Returns a word in up to three misspellings: two neighbours swapped, a letter in its middle
/// dropped, or written twice.
std::vector<std::string> misspellings_of(const std::string& word);

/// Returns a word with marks that are in no name: quotes around it, a comma or a period behind it.
std::vector<std::string> with_marks(const std::string& word);

/// Returns a word with each of its letters dropped, written twice, swapped with the next.
std::vector<std::string> strokes_of(const std::string& word);

/// Makes the mistakes in modules, their entries and values.
void break_modules(FaultWriter& writer);
/// Makes the mistakes in names: words of the header, functionals, basis sets.
void break_names(FaultWriter& writer);
/// Makes the mistakes in lines of geometries.
void break_atoms(FaultWriter& writer);
/// Misspells the lines that close modules and blocks.
void break_ends(FaultWriter& writer);

}  // namespace kelp::test
