// Setting the molecule: its geometry, its charge and its multiplicity.

#include <cstddef>
#include <string>
#include <utility>

#include "kelp/input/bdf/editor.hpp"
#include "model/molecule_names.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {

void BDFEditor::set_cartesian_geometry(std::vector<AtomRecord> atoms) {
  data_.has_geometry = true;
  data_.geometry_terminated = true;
  data_.atoms = std::move(atoms);
  data_.geometry_lines.clear();
  if (data_.mode != InputMode::Module) {
    return;
  }
  // A compass module with a geometry entry of its own would hide the new atoms.
  const InputSchema::Impl& schema = SchemaAccess::impl(schema_);
  const CanonicalMatch is_compass(&schema.module_aliases, compass_module);
  std::size_t left = data_.module_count(compass_module);
  for (Module& module : data_.modules) {
    if (left > 0 && is_compass(module.name)) {
      --left;
      const ModuleSpec* const spec = find_module_spec(schema, module.name);
      const CanonicalMatch is_geometry(spec == nullptr ? nullptr : &spec->entry_aliases,
                                       geometry_entry);
      std::erase_if(module.entries,
                    [&](const ModuleEntry& entry) { return is_geometry(entry.name); });
    }
  }
}

void BDFEditor::set_charge_and_multiplicity(int charge, int multiplicity) {
  const NumberHomes homes = homes_of_numbers(data_, schema_);
  if (homes.header) {
    set_easy_keyword(charge_name, std::to_string(charge));
    set_easy_keyword(multiplicity_name, std::to_string(multiplicity));
  }
  if (homes.scf) {
    set_charge_and_multiplicity_entries(charge, multiplicity);
  }
}

void BDFEditor::set_charge_and_multiplicity_entries(int charge, int multiplicity) {
  set_module_entry(scf_module, charge_name, {std::to_string(charge)});
  set_module_entry(scf_module, multiplicity_name, {std::to_string(multiplicity)});
}

}  // namespace kelp::input::bdf
