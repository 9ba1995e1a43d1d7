#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "diagnose/draft.hpp"
#include "diagnose/finders.hpp"

namespace kelp::input::bdf {

/// Lines that are missing and without which those behind them are read as what they are not: the
/// header of a module, the line that opens a geometry. Each is told once, in place of all that
/// follows from it.
class MissingLines {
 public:
  explicit MissingLines(DiagnoseContext& context);

  void tell(const DiagnosticSink& sink) const;

  /// Tells whether there are such lines. Then nothing is certain of the calculation as a whole.
  bool empty() const { return found_.empty(); }
  /// Tells whether a finding only follows from a missing line.
  bool cover(const Diagnostic& diagnostic) const;

 private:
  /// Lines, counted from 1, the last one included.
  struct Span {
    std::size_t first;
    std::size_t last;
  };

  std::size_t first_line_without_module() const;
  std::size_t end_in_header() const;
  void find_headers();
  void find_openings();
  void find_opening_between(const Span& lines, std::string_view terminator);
  std::size_t first_internal_coordinate(const Span& lines) const;
  std::string_view text_on(std::size_t line) const;
  void add_header(const Span& lines);
  bool is_misspelt_opening(std::size_t line) const;
  void add_misspelt_opening(const Span& lines);
  void add_opening(const Span& lines);
  std::vector<std::string> modules_of(const Span& lines);

  DiagnoseContext& context_;
  const ParsedInput& input_;
  std::vector<Diagnostic> found_;
  std::vector<Span> spans_;
  bool lacks_first_header_ = false;  ///< what stands before the first module is no header
  bool lacks_opening_ = false;
};

}  // namespace kelp::input::bdf
