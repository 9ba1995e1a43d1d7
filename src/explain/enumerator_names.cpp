#include <algorithm>
#include <array>
#include <cstddef>

#include "kelp/input/bdf/explain.hpp"
#include "schema/document_keys.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view no_enumerator = "unknown";

// A host may have made the number up.
template <typename Enum, std::size_t N>
std::string_view name_in(const std::array<std::string_view, N>& names, Enum value) noexcept {
  const auto number = static_cast<std::size_t>(value);
  return number < N ? names[number] : no_enumerator;
}

}  // namespace

std::string_view to_string(EntryValueKind kind) noexcept {
  // The first word of each kind is the one to write.
  const auto* const found =
      std::find_if(kind_names.begin(), kind_names.end(),
                   [kind](const KindName& candidate) { return candidate.kind == kind; });
  return found == kind_names.end() ? no_enumerator : found->text;
}

std::string_view to_string(InputMode mode) noexcept {
  return name_in<InputMode, 3>({"easy", "module", "mixed"}, mode);
}

std::string_view to_string(StatementKind kind) noexcept {
  return name_in<StatementKind, 5>({"module", "shell", "database", "comment", "raw"}, kind);
}

std::string_view to_string(ValidationSeverity severity) noexcept {
  return name_in<ValidationSeverity, 2>({"warning", "error"}, severity);
}

std::string_view to_string(Severity severity) noexcept {
  return name_in<Severity, 3>({"note", "warning", "error"}, severity);
}

}  // namespace kelp::input::bdf
