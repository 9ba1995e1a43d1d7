// Molecules, with their coordinates as one array.

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "objects.hpp"

namespace kelp::c_interface {

Molecule::Molecule(bdf::Molecule read)
    : molecule(std::move(read)), formula(bdf::hill_formula(molecule.atoms)) {
  coordinates.reserve(3 * molecule.atoms.size());
  for (const bdf::AtomRecord& atom : molecule.atoms) {
    coordinates.insert(coordinates.end(), {atom.x, atom.y, atom.z});
    elements.emplace_back(bdf::element_of(atom.element));
  }
}

namespace {

// A label with a blank in it would be a label and a coordinate once it is written.
std::string label_from(const char* label) {
  std::string text = needed(label);
  if (text.empty() || text.find_first_of(" \t\r\n\v\f,") != std::string::npos) {
    throw Failure(KELP_BDF_INVALID_ARGUMENT, "the label of an atom is a single word");
  }
  return text;
}

std::vector<bdf::AtomRecord> atoms_from(const char* const* labels, const double* coordinates,
                                        std::size_t count) {
  std::vector<bdf::AtomRecord> atoms(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double* const position = needed(coordinates) + 3 * i;
    for (std::size_t axis = 0; axis < 3; ++axis) {
      if (!std::isfinite(position[axis])) {
        throw Failure(KELP_BDF_INVALID_ARGUMENT, "a coordinate is not a finite number");
      }
    }
    atoms[i].element = label_from(needed(labels)[i]);
    atoms[i].x = position[0];
    atoms[i].y = position[1];
    atoms[i].z = position[2];
  }
  return atoms;
}

}  // namespace
}  // namespace kelp::c_interface

using namespace kelp::c_interface;

kelp_bdf_status kelp_bdf_molecule_of(const kelp_bdf_input* input, kelp_bdf_molecule** molecule,
                                     kelp_bdf_error* error) {
  return call(error, [=] {
    hand_out(molecule, std::make_shared<Molecule>(bdf::molecule_of(object_of(input)->input)));
  });
}

kelp_bdf_status kelp_bdf_molecule_new(const char* const* labels, const double* coordinates,
                                      size_t count, int32_t unit, kelp_bdf_molecule** molecule,
                                      kelp_bdf_error* error) {
  return call(error, [=] {
    bdf::Molecule made;
    made.unit = enumerator_of(unit, bdf::LengthUnit::Bohr);
    made.atoms = atoms_from(labels, coordinates, count);
    hand_out(molecule, std::make_shared<Molecule>(std::move(made)));
  });
}

kelp_bdf_status kelp_bdf_molecule_parse_xyz(const char* text, size_t size,
                                            kelp_bdf_molecule** molecule, kelp_bdf_error* error) {
  return call(error, [=] {
    bdf::XyzResult result = bdf::read_xyz(bytes_of(text, size));
    if (!result.error.empty()) {
      throw Failure(KELP_BDF_INVALID_ARGUMENT,
                    "line " + std::to_string(result.line) + ": " + result.error);
    }
    bdf::Molecule made;
    made.atoms = std::move(result.atoms);
    hand_out(molecule, std::make_shared<Molecule>(std::move(made)));
  });
}

kelp_bdf_status kelp_bdf_molecule_get(const kelp_bdf_molecule* molecule,
                                      kelp_bdf_molecule_info* info) {
  return call([=] {
    const auto object = object_of(molecule);
    const auto& charge = object->molecule.charge;
    const auto& multiplicity = object->molecule.multiplicity;
    kelp_bdf_molecule_info filled = {};
    filled.atom_count = object->molecule.atoms.size();
    filled.coordinates = object->coordinates.empty() ? nullptr : object->coordinates.data();
    filled.unit = static_cast<std::int32_t>(object->molecule.unit);
    if (charge && charge->number) {
      filled.has_charge = 1;
      filled.charge = *charge->number;
    }
    if (multiplicity && multiplicity->number) {
      filled.has_multiplicity = 1;
      filled.multiplicity = *multiplicity->number;
    }
    filled.formula = string_of(object->formula);
    fill(info, filled);
  });
}

kelp_bdf_status kelp_bdf_molecule_label(const kelp_bdf_molecule* molecule, size_t index,
                                        kelp_bdf_string* label) {
  return call([=] {
    *needed(label) = string_of(item_of(object_of(molecule)->molecule.atoms, index).element);
  });
}

kelp_bdf_status kelp_bdf_molecule_element(const kelp_bdf_molecule* molecule, size_t index,
                                          kelp_bdf_string* symbol) {
  return call([=] { *needed(symbol) = string_of(item_of(object_of(molecule)->elements, index)); });
}

kelp_bdf_status kelp_bdf_molecule_xyz(const kelp_bdf_molecule* molecule, const char* comment,
                                      kelp_bdf_texts** text, kelp_bdf_error* error) {
  return call(error, [=] {
    hand_out_texts(
        text, {bdf::write_xyz(object_of(molecule)->molecule, comment == nullptr ? "" : comment)});
  });
}

kelp_bdf_status kelp_bdf_molecule_free(kelp_bdf_molecule* molecule) {
  return free_handle(molecule);
}
