// The atoms of a system in space. Several rules ask for them, and of most molecules they need no
// more than to be told that no two atoms are too near to each other.

#include "advice/surroundings.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "model/molecule_names.hpp"
#include "source/elements.hpp"

namespace kelp::input::bdf {
namespace {

constexpr double angstrom_per_bohr = 0.529177210903;

// Unset for a unit that the program does not have.
std::optional<double> angstrom_per_unit(const Setting& unit) {
  if (!unit || unit.is("angstrom") || unit.is("ang")) {
    return 1.0;
  }
  return unit.is("bohr") ? std::optional<double>(angstrom_per_bohr) : std::nullopt;
}

/// The radii of elements, looked up once for each; 0 where none is known.
class CovalentRadii {
 public:
  explicit CovalentRadii(const Knowledge& knowledge) : knowledge_(knowledge) {
    radii_.fill(unasked);
  }

  double of(int element) {
    double& radius = radii_[static_cast<std::size_t>(element)];
    if (radius == unasked) {
      radius = knowledge_.covalent_radius(symbol_of(element)).value_or(0);
    }
    return radius;
  }

 private:
  static constexpr double unasked = -1;

  const Knowledge& knowledge_;
  std::array<double, 128> radii_;
};

// None when the geometry is not certain, or a radius or the unit is not known.
Atoms atoms_of(const Job& job, const System& system) {
  const Geometry& geometry = system.geometry;
  const auto scale = angstrom_per_unit(unit_of(job, system));
  if (!scale || !geometry.size() || geometry.form != GeometryForm::Cartesian) {
    return {};
  }
  CovalentRadii radii(job.knowledge());
  Atoms atoms;
  atoms.reserve(geometry.centres.size());
  for (std::size_t i = 0; i < geometry.centres.size(); ++i) {
    const Centre& centre = geometry.centres[i];
    if (centre.is_ghost()) {
      continue;
    }
    std::array<double, 3> position = centre.position;
    for (double& coordinate : position) {
      coordinate *= *scale;
    }
    const double radius = radii.of(centre.element);
    const bool is_finite = std::all_of(position.begin(), position.end(),
                                       [](double number) { return std::isfinite(number); });
    if (!is_finite || radius <= 0) {
      return {};
    }
    atoms.centres.push_back(i);
    atoms.positions.push_back(position);
    atoms.radii.push_back(radius);
  }
  return atoms;
}

}  // namespace

Setting unit_of(const Job& job, const System& system) {
  if (system.compass != nullptr && system.compass->has(unit_name)) {
    return system.compass->get(unit_name);
  }
  return job.header(unit_name);
}

Surroundings make_surroundings(const Job& job, const System& system) {
  Surroundings made;
  made.atoms = atoms_of(job, system);
  if (made.atoms.size() > 0) {
    const double widest = *std::max_element(made.atoms.radii.begin(), made.atoms.radii.end());
    made.has_close_atoms = has_pair_within(made.atoms, 2 * widest * close_ratio);
  }
  return made;
}

}  // namespace kelp::input::bdf
