#include "model/molecule_names.hpp"

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {

bool is_bohr(std::string_view unit) {
  constexpr std::string_view bohr = "bohr";
  return core::text::equals_ignoring_case(unit.substr(0, bohr.size()), bohr);
}

bool is_geometry_entry(const ModuleEntry& entry) {
  return entry.kind == EntryValueKind::TerminatedBlock && entry.name.starts_with(geometry_entry);
}

bool is_geometry_entry(const InputSchema& schema, std::string_view module, std::string_view entry) {
  return schema.is_known_entry(module, entry) &&
         schema.entry_value_kind(module, entry) == EntryValueKind::TerminatedBlock &&
         schema.canonical_entry(module, entry).starts_with(geometry_entry);
}

NumberHomes homes_of_numbers(const BDFData& data, const InputSchema& schema) {
  if (data.mode == InputMode::Module) {
    return {false, true};
  }
  return {true, data.find_module(schema.canonical_module(scf_module)) != nullptr};
}

}  // namespace kelp::input::bdf
