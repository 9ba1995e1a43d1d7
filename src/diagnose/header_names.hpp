#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "diagnose/draft.hpp"
#include "diagnose/finders.hpp"
#include "diagnose/offers.hpp"

namespace kelp::input::bdf {

/// Begins the diagnostic of a finding about a word of the header.
Diagnostic begin_in_header(DiagnoseContext& context, std::size_t token, std::string_view code,
                           std::string message, std::string_view argument);

/// Says that a word of the header is not known.
std::string unknown_in_header(std::string_view thing, std::string_view name);

/// Looks at the names of the header: methods, functionals and basis sets, and at the specification
/// that joins them. Says nothing when the options leave unknown names alone.
class HeaderNameFinder {
 public:
  HeaderNameFinder(DiagnoseContext& context, const DiagnoseOptions& options,
                   const DiagnosticSink& use);

  /// Looks at a token that is a method specification.
  void look_at_specification(std::size_t token);
  /// Looks at a functional that stands in a range of a token.
  void look_at_functional(std::size_t token, const TextRange& range);

 private:
  bool is_told_as_whole(std::size_t token);
  bool has_empty_part(std::size_t token) const;
  void report_empty_part(std::size_t token);
  bool are_swapped(std::size_t token) const;
  void report_swapped(std::size_t token);
  void report_second(std::size_t token);
  void look_at_method(std::size_t token, const TextRange& range);
  bool is_method_of_two_parts(std::size_t token, const TextRange& range);
  void look_at_basis(std::size_t token, const TextRange& range);
  void report_unlisted(std::size_t token, const TextRange& range, const char* code,
                       const NamedThing& things, std::vector<std::string> likely);
  std::string written(const TextRange& range) const;

  DiagnoseContext& context_;
  const DiagnoseOptions& options_;
  const DiagnosticSink& use_;
};

}  // namespace kelp::input::bdf
