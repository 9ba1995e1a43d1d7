// Setting the molecule: its geometry, its charge and its multiplicity.

#include <cstddef>
#include <string>
#include <utility>

#include "kelp/input/bdf/editor.hpp"
#include "model/molecule_names.hpp"

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
  for (std::size_t i = 0; i < data_.module_count(compass_module); ++i) {
    remove_module_entry(compass_module, i, geometry_entry, std::nullopt);
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
