// Molecules. The coordinates are handed out as an array that looks into memory of their own, which
// lives as long as any array does.

#include "kelp/input/bdf/molecule.hpp"

#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "convert.hpp"

namespace kelp::python {
namespace {

using Coordinates = py::array_t<double, py::array::c_style | py::array::forcecast>;

bdf::Molecule molecule_from(const std::vector<py::str>& labels, const Coordinates& coordinates,
                            const py::str& unit) {
  if (coordinates.ndim() != 2 || coordinates.shape(1) != 3 ||
      static_cast<std::size_t>(coordinates.shape(0)) != labels.size()) {
    throw py::value_error("coordinates must be three for each atom");
  }
  bdf::Molecule molecule;
  const std::string given = from_python(unit);
  if (given != "angstrom" && given != "bohr") {
    throw py::value_error("the unit is 'angstrom' or 'bohr'");
  }
  molecule.unit = given == "bohr" ? bdf::LengthUnit::Bohr : bdf::LengthUnit::Angstrom;
  const auto at = coordinates.unchecked<2>();
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const auto row = static_cast<py::ssize_t>(i);
    bdf::AtomRecord atom;
    atom.element = from_python(labels[i]);
    atom.x = at(row, 0);
    atom.y = at(row, 1);
    atom.z = at(row, 2);
    if (!std::isfinite(atom.x) || !std::isfinite(atom.y) || !std::isfinite(atom.z)) {
      throw py::value_error("a coordinate is not a finite number");
    }
    if (atom.element.empty() || atom.element.find_first_of(" \t\r\n\v\f,") != std::string::npos) {
      throw py::value_error("the label of an atom is a single word");
    }
    molecule.atoms.push_back(std::move(atom));
  }
  return molecule;
}

py::array coordinates_of(const bdf::Molecule& molecule) {
  auto numbers = std::make_unique<std::vector<double>>();
  numbers->reserve(3 * molecule.atoms.size());
  for (const bdf::AtomRecord& atom : molecule.atoms) {
    numbers->insert(numbers->end(), {atom.x, atom.y, atom.z});
  }
  double* const first = numbers->data();
  const py::capsule owner(numbers.release(), [](void* kept) {
    const std::unique_ptr<std::vector<double>> last(static_cast<std::vector<double>*>(kept));
  });
  return py::array_t<double>({molecule.atoms.size(), std::size_t{3}}, first, owner);
}

py::list labels_of(const bdf::Molecule& molecule) {
  py::list labels;
  for (const bdf::AtomRecord& atom : molecule.atoms) {
    labels.append(to_python(atom.element));
  }
  return labels;
}

py::list symbols_of(const bdf::Molecule& molecule) {
  py::list symbols;
  for (const bdf::AtomRecord& atom : molecule.atoms) {
    symbols.append(to_python(bdf::element_of(atom.element)));
  }
  return symbols;
}

py::object number_of(const std::optional<bdf::StatedValue>& value) {
  return value && value->number ? py::object(py::int_(*value->number)) : py::none();
}

bdf::Molecule molecule_of_xyz(const py::str& text) {
  const bdf::XyzResult result = bdf::read_xyz(from_python(text));
  if (!result.error.empty()) {
    throw py::value_error("line " + std::to_string(result.line) + ": " + result.error);
  }
  bdf::Molecule molecule;
  molecule.atoms = result.atoms;
  return molecule;
}

}  // namespace

void add_molecule(py::module_& module) {
  py::class_<bdf::Molecule>(module, "Molecule", "Atoms; they never change.")
      .def(py::init(&molecule_from), py::arg("labels"), py::arg("coordinates"), py::arg("unit"))
      .def_static("from_xyz", &molecule_of_xyz, py::arg("text"), "The molecule of an XYZ text.")
      .def("labels", &labels_of, "The labels of the atoms, as written.")
      .def("symbols", &symbols_of, "The symbols of their elements.")
      .def("coordinates", &coordinates_of, "An array of three numbers for each atom.")
      .def(
          "unit",
          [](const bdf::Molecule& molecule) {
            return to_python(molecule.unit == bdf::LengthUnit::Bohr ? "bohr" : "angstrom");
          },
          "What the coordinates count.")
      .def(
          "charge", [](const bdf::Molecule& molecule) { return number_of(molecule.charge); },
          "The total charge, or None.")
      .def(
          "multiplicity",
          [](const bdf::Molecule& molecule) { return number_of(molecule.multiplicity); },
          "The multiplicity, or None.")
      .def(
          "formula",
          [](const bdf::Molecule& molecule) {
            return to_python(bdf::hill_formula(molecule.atoms));
          },
          "The formula in Hill's order.")
      .def(
          "xyz",
          [](const bdf::Molecule& molecule, const py::str& comment) {
            return to_python(bdf::write_xyz(molecule, from_python(comment)));
          },
          py::arg("comment"), "The molecule as an XYZ text.");
}

}  // namespace kelp::python
