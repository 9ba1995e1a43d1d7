// Distances between atoms. What is near is measured by covalent radii: a distance over the sum of
// both is about 1 for a bond, 1.9 where bohr were read as angstrom, and 0.5 the other way round.

#include <algorithm>
#include <array>
#include <cmath>

#include "advice/neighbours.hpp"
#include "advice/report.hpp"
#include "advice/surroundings.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/molecule_names.hpp"

namespace kelp::input::bdf {
namespace {

std::string rounded(double number) {
  constexpr double per_unit = 1000;
  return core::number::to_text(std::round(number * per_unit) / per_unit);
}

// "2 (H1)": its number in the list and its label.
std::string name_of(const Geometry& geometry, std::size_t centre) {
  return std::to_string(centre + 1) + " (" + std::string(geometry.centres[centre].label) + ")";
}

using AtomPair = std::pair<std::size_t, std::size_t>;

// Pairs of an atom and its nearest neighbour that something holds for, each once, the later atom
// first.
template <typename Predicate>
std::vector<AtomPair> pairs_that(const std::vector<Neighbour>& all, Predicate holds) {
  std::vector<AtomPair> pairs;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const std::size_t other = all[i].atom;
    if (other != Neighbour::none && holds(all[i]) && (other < i || all[other].atom != i)) {
      pairs.emplace_back(std::max(i, other), std::min(i, other));
    }
  }
  return pairs;
}

// No two atoms are too near to each other beyond the first, nor does a molecule look compressed
// beyond the second.
constexpr double touch_reach = 1.4;
constexpr double bond_reach = 2.2;
constexpr double coinciding = 0.001;

bool coincides(const Neighbour& neighbour) {
  return neighbour.distance < coinciding;
}

// The nearest neighbours of all atoms; none where no two are near enough for a rule.
std::vector<Neighbour> touching(const Job& job, const System& system) {
  const Surroundings& surroundings = job.surroundings_of(system);
  return surroundings.has_close_atoms ? neighbours_of(surroundings.atoms, touch_reach)
                                      : std::vector<Neighbour>();
}

// Where very many atoms are wrong, one pair stands for all of them: the atoms are there twice, or
// in another unit.
constexpr std::size_t most_pairs = 3;

std::size_t shown_of(std::size_t pairs) {
  return pairs > most_pairs ? 1 : pairs;
}

void check_atoms_coincide(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const Geometry& geometry = system.geometry;
    const Atoms& atoms = job.surroundings_of(system).atoms;
    const auto pairs = pairs_that(touching(job, system), coincides);
    for (std::size_t i = 0; i < shown_of(pairs.size()); ++i) {
      const auto& [later, earlier] = pairs[i];
      const std::size_t left = atoms.centres[earlier];
      const std::size_t right = atoms.centres[later];
      const std::string one = name_of(geometry, left);
      const std::string other = name_of(geometry, right);
      const std::string others = std::to_string(pairs.size() - 1);
      Finding& finding = shown_of(pairs.size()) < pairs.size()
                             ? report.add("The atoms {} and {} coincide, and {} other pairs.",
                                          {one, other, others})
                             : report.add("The atoms {} and {} coincide.", {one, other});
      finding.at(geometry.centres[right].label, "where another atom is")
          .related(range_of(job.input, geometry.centres[left].label), "the other atom")
          .help("take one of them away, or correct its coordinates");
    }
  }
}

bool is_too_close(const Neighbour& neighbour) {
  return !coincides(neighbour) && neighbour.ratio < close_ratio;
}

void check_atoms_too_close(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const Geometry& geometry = system.geometry;
    const Atoms& atoms = job.surroundings_of(system).atoms;
    const std::vector<Neighbour> all = touching(job, system);
    const auto pairs = pairs_that(all, is_too_close);
    for (std::size_t i = 0; i < shown_of(pairs.size()); ++i) {
      const auto& [later, earlier] = pairs[i];
      const std::size_t left = atoms.centres[earlier];
      const std::size_t right = atoms.centres[later];
      const double distance =
          all[later].atom == earlier ? all[later].distance : all[earlier].distance;
      const std::string one = name_of(geometry, left);
      const std::string other = name_of(geometry, right);
      const std::string others = std::to_string(pairs.size() - 1);
      Finding& finding =
          shown_of(pairs.size()) < pairs.size()
              ? report.add("The atoms {} and {} are {} angstrom apart, and {} other pairs as near.",
                           {one, other, rounded(distance), others})
              : report.add("The atoms {} and {} are {} angstrom apart.",
                           {one, other, rounded(distance)});
      finding.at(geometry.centres[right].label, "much too close")
          .related(range_of(job.input, geometry.centres[left].label), "the other atom")
          .related(unit_of(job, system), "the unit")
          .help("a bond of these two is about " +
                rounded(atoms.radii[earlier] + atoms.radii[later]) +
                " angstrom long; correct the coordinates or the unit");
    }
  }
}

/// An atom at one end of an axis, and the gap before the next one.
struct Outlier {
  std::size_t atom;
  double gap;  ///< in angstrom
};

// The atom that the widest gap along an axis parts from all others. Of two atoms, the one that is
// farther from the origin.
std::optional<Outlier> outlier_along(const Atoms& atoms, std::size_t axis) {
  const auto at = [&](std::size_t atom) { return atoms.positions[atom][axis]; };
  if (atoms.size() < 2) {
    return std::nullopt;
  }
  // The two at either end, the outermost first.
  std::array<std::size_t, 2> lowest = {0, 1};
  if (at(1) < at(0)) {
    lowest = {1, 0};
  }
  std::array<std::size_t, 2> highest = {lowest[1], lowest[0]};
  for (std::size_t i = 2; i < atoms.size(); ++i) {
    if (at(i) < at(lowest[1])) {
      lowest = at(i) < at(lowest[0]) ? std::array{i, lowest[0]} : std::array{lowest[0], i};
    }
    if (at(i) > at(highest[1])) {
      highest = at(i) > at(highest[0]) ? std::array{i, highest[0]} : std::array{highest[0], i};
    }
  }
  const Outlier low = {lowest[0], at(lowest[1]) - at(lowest[0])};
  const Outlier high = {highest[0], at(highest[0]) - at(highest[1])};
  const bool is_low_farther = std::abs(at(low.atom)) > std::abs(at(high.atom));
  return low.gap > high.gap || (low.gap == high.gap && is_low_farther) ? low : high;
}

// Who pulls molecules apart stops long before this.
void check_atom_far_away(const Job& job, Report& report) {
  constexpr double least = 100;
  constexpr double certain = 1000;
  for (const System& system : job.systems) {
    const Geometry& geometry = system.geometry;
    const Atoms& atoms = job.surroundings_of(system).atoms;
    for (std::size_t axis = 0; axis < 3; ++axis) {
      const auto outlier = outlier_along(atoms, axis);
      if (!outlier || outlier->gap < least) {
        continue;
      }
      const std::size_t centre = atoms.centres[outlier->atom];
      report
          .add("The atom {} is {} angstrom away from all others.",
               {name_of(geometry, centre), core::number::to_text(std::round(outlier->gap))})
          .as(outlier->gap < certain ? Severity::Note : Severity::Warning)
          .at(geometry.centres[centre].label, "far away")
          .help("a decimal point may be missing");
      break;
    }
  }
}

// Noble gases are not bound, and hydrogen is drawn out at will in models.
bool has_bonds(const Geometry& geometry) {
  constexpr std::array<int, 7> noble = {2, 10, 18, 36, 54, 86, 118};
  bool has_heavy = false;
  for (const Centre& centre : geometry.centres) {
    if (std::find(noble.begin(), noble.end(), centre.element) != noble.end()) {
      return false;
    }
    has_heavy = has_heavy || centre.element > 1;
  }
  return has_heavy;
}

bool looks_like_angstrom(const Atoms& atoms) {
  constexpr double most = 0.65;
  constexpr double most_of_one = 0.56;
  double least = most;
  const Cells cells(atoms, bond_reach);
  for (std::size_t i = 0; i < atoms.size(); ++i) {
    const Neighbour neighbour = cells.nearest(i);
    if (neighbour.atom == Neighbour::none || neighbour.ratio >= most) {
      return false;
    }
    least = std::min(least, neighbour.ratio);
  }
  return least < most_of_one;
}

// Tells whether the nearest neighbour of the first atom is nearer than a ratio, whichever it is of
// several at one distance. To measure its distances is faster than to sort the atoms into cells.
bool is_first_bonded(const Atoms& atoms, double ratio) {
  double nearest = bond_reach * bond_reach;
  double radii = 0;
  for (std::size_t i = 1; i < atoms.size(); ++i) {
    const double square = square_between(atoms, 0, i);
    if (square < nearest || (square == nearest && atoms.radii[i] < radii)) {
      nearest = square;
      radii = atoms.radii[i];
    }
  }
  return radii > 0 && std::sqrt(nearest) / (atoms.radii[0] + radii) < ratio;
}

bool looks_like_bohr(const Atoms& atoms) {
  constexpr double least = 1.6;
  constexpr double most = 2.2;
  if (is_first_bonded(atoms, least)) {
    return false;
  }
  // Most molecules have a bond among the first few atoms; wide cells are for those that have none.
  for (const double reach :
       {bond_reach, 2 * most * *std::max_element(atoms.radii.begin(), atoms.radii.end())}) {
    const Cells cells(atoms, reach);
    for (std::size_t i = 0; i < atoms.size(); ++i) {
      const Neighbour neighbour = cells.nearest(i);
      const bool is_far = neighbour.atom == Neighbour::none || neighbour.ratio > most;
      if ((neighbour.atom != Neighbour::none && neighbour.ratio < least) ||
          (is_far && reach > bond_reach)) {
        return false;
      }
    }
  }
  return true;
}

TextEdit unit_edit(const Job& job, const System& system) {
  const Setting unit = unit_of(job, system);
  if (unit) {
    return unit.is("bohr") ? removed(job, unit) : value_replaced(unit, "bohr");
  }
  if (system.geometry.record.kind == RecordKind::Entry) {
    return entry_added(job, *system.compass, unit_name, "bohr");
  }
  const std::size_t end = job.input.token_ranges(job.specification().value_or(0)).whole.end;
  return {{end, end}, " unit=bohr"};
}

void report_unit(const Job& job, const System& system, Report& report, const char* read_as,
                 const char* looks_like) {
  Finding& finding =
      report.add("The coordinates are read as {}, and look like {}.", {read_as, looks_like});
  if (const Setting unit = unit_of(job, system)) {
    finding.at(unit, "bonds have no such lengths");
  } else {
    finding.at(job.input.keyword_range(system.geometry.record), "bonds have no such lengths");
  }
  finding.ask("read them as " + std::string(looks_like), unit_edit(job, system));
}

void check_unit_suspected(const Job& job, Report& report) {
  constexpr std::size_t fewest = 3;
  for (const System& system : job.systems) {
    const Atoms& atoms = job.surroundings_of(system).atoms;
    const bool is_embedded = system.compass != nullptr && system.compass->has("extcharge");
    const bool is_in_header = system.geometry.record.kind == RecordKind::Geometry;
    const Setting unit = unit_of(job, system);
    if (atoms.size() < fewest || is_embedded || (is_in_header && !job.specification())) {
      continue;
    }
    if (unit.is("bohr") && looks_like_angstrom(atoms)) {
      report_unit(job, system, report, "bohr", "angstrom");
    } else if (!unit.is("bohr") && has_bonds(system.geometry) && looks_like_bohr(atoms)) {
      report_unit(job, system, report, "angstrom", "bohr");
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"geometry.atoms_coincide", check_atoms_coincide},
    {"geometry.atoms_too_close", check_atoms_too_close},
    {"geometry.atom_far_away", check_atom_far_away},
    {"geometry.unit_suspected", check_unit_suspected},
});

}  // namespace

std::span<const Rule> distance_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
