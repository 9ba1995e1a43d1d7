#include "lsp/molecule_text.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "kelp/input/bdf/calculation.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/neighbours.hpp"

namespace kelp::app::lsp {

using input::bdf::Calculation;
using input::bdf::Molecule;
using input::bdf::ParsedInput;
using input::bdf::RecordId;
using input::bdf::RecordKind;

namespace {

// The geometry of a system: that of its `$compass`, else of the input.
RecordId geometry_of(const ParsedInput& input, const Calculation::System& system) {
  const RecordId& origin = system.origin.record;
  if (origin.kind != RecordKind::Module) {
    return input.data().has_geometry ? RecordId::of(RecordKind::Geometry, 0) : RecordId();
  }
  const auto& entries = input.data().modules[origin.index].entries;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (entries[i].name == "geometry") {
      return RecordId::of_entry(origin.index, i);
    }
  }
  return input.data().has_geometry ? RecordId::of(RecordKind::Geometry, 0) : RecordId();
}

std::string text_of(const Calculation& calculation, std::size_t index) {
  const Calculation::System& system = calculation.systems[index];
  std::string text = system.formula;
  const auto add = [&text](const std::string& more) { text += (text.empty() ? "" : ", ") + more; };
  const auto scf = std::find_if(calculation.scfs.begin(), calculation.scfs.end(),
                                [&](const Calculation::Scf& item) { return item.system == index; });
  if (scf == calculation.scfs.end()) {
    return text;
  }
  if (scf->electrons) {
    add(fmt::format("{} electron{}", *scf->electrons, *scf->electrons == 1 ? "" : "s"));
  }
  if (scf->charge && scf->charge->value != 0) {
    add(fmt::format("charge {:+}", scf->charge->value));
  }
  if (scf->multiplicity) {
    add(fmt::format("multiplicity {}", scf->multiplicity->value));
  }
  return text;
}

}  // namespace

std::vector<GeometryText> geometry_texts(const ParsedInput& input) {
  const Calculation calculation = calculation_of(input);
  std::vector<GeometryText> texts;
  for (std::size_t i = 0; i < calculation.systems.size(); ++i) {
    const RecordId geometry = geometry_of(input, calculation.systems[i]);
    std::string text = text_of(calculation, i);
    if (geometry && !text.empty()) {
      texts.push_back({geometry, std::move(text)});
    }
  }
  return texts;
}

std::optional<std::string> atom_text(const ParsedInput& input, std::size_t line) {
  constexpr std::size_t most_neighbours = 4;
  const Molecule molecule = molecule_of(input);
  const auto atom = std::find_if(molecule.atoms.begin(), molecule.atoms.end(),
                                 [&](const input::bdf::AtomRecord& item) {
                                   return item.location && item.location->line == line;
                                 });
  if (atom == molecule.atoms.end()) {
    return std::nullopt;
  }
  const auto index = static_cast<std::size_t>(atom - molecule.atoms.begin());
  const std::string_view element = input::bdf::element_of(atom->element);
  std::string text = fmt::format("**{}**: atom {} of {}",
                                 element.empty() ? std::string_view(atom->element) : element,
                                 index + 1, molecule.atoms.size());
  for (const input::bdf::AtomDistance& near : nearest_atoms(molecule, index, most_neighbours)) {
    text += fmt::format("\n- {} (atom {}) at {:.3f} Å", molecule.atoms[near.atom].element,
                        near.atom + 1, near.angstrom);
  }
  return text;
}

}  // namespace kelp::app::lsp
