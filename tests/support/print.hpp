#pragma once

// How the library's values look in a failed assertion. GoogleTest finds these by their argument.

#include <array>
#include <cstddef>
#include <optional>
#include <ostream>
#include <string_view>

#include "kelp/input/bdf.hpp"

namespace kelp::input::bdf {

template <typename Enum, std::size_t N>
void print_enum(Enum value, const std::array<std::string_view, N>& names, std::ostream* out) {
  const auto number = static_cast<std::size_t>(value);
  *out << (number < N ? names[number] : std::string_view("?")) << " (" << number << ")";
}

inline void PrintTo(EntryValueKind kind, std::ostream* out) {
  print_enum<EntryValueKind, 8>(kind,
                                {"Flag", "Scalar", "Tuple", "MultiLine", "CountedRows",
                                 "NestedBlock", "TerminatedBlock", "Raw"},
                                out);
}

inline void PrintTo(InputMode mode, std::ostream* out) {
  print_enum<InputMode, 3>(mode, {"Easy", "Module", "Mixed"}, out);
}

inline void PrintTo(StatementKind kind, std::ostream* out) {
  print_enum<StatementKind, 5>(kind, {"Module", "Shell", "Database", "Comment", "Raw"}, out);
}

inline void PrintTo(ValidationSeverity severity, std::ostream* out) {
  print_enum<ValidationSeverity, 2>(severity, {"Warning", "Error"}, out);
}

inline void PrintTo(const SourceSpan& span, std::ostream* out) {
  *out << "line " << span.line << " column " << span.column << " length " << span.length;
}

inline void PrintTo(const std::optional<SourceSpan>& span, std::ostream* out) {
  if (span) {
    PrintTo(*span, out);
  } else {
    *out << "nowhere";
  }
}

inline void PrintTo(const ValidationIssue& issue, std::ostream* out) {
  PrintTo(issue.severity, out);
  *out << ' ' << issue.code << " \"" << issue.message << "\" at ";
  PrintTo(issue.location, out);
}

inline void PrintTo(const ParseWarning& warning, std::ostream* out) {
  *out << warning.code << " \"" << warning.message << "\" at ";
  PrintTo(warning.location, out);
}

inline void PrintTo(const ValueRequirement& requirement, std::ostream* out) {
  *out << requirement.entry << (requirement.equals ? " = " + *requirement.equals : "");
}

}  // namespace kelp::input::bdf
