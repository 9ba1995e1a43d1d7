// Where an input states its molecule, for reading and for writing.

#include "kelp/input/bdf/molecule.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/molecule_names.hpp"
#include "model/value_lines.hpp"
#include "path/resolver.hpp"
#include "source/atom_line.hpp"

namespace kelp::input::bdf {
namespace {

ValuePath header_path(std::string_view name) {
  ValuePath path;
  path.kind = PathKind::EasyKeyword;
  path.name = name;
  return path;
}

ValuePath entry_path(std::string_view module, std::string_view name) {
  ValuePath path;
  path.kind = PathKind::Entry;
  path.module = module;
  path.name = name;
  return path;
}

// The first of the paths that has a value; a keyword that stands there without one states nothing.
std::optional<StatedValue> first_value(const BDFData& data, const InputSchema& schema,
                                       const std::array<ValuePath, 2>& paths) {
  for (const ValuePath& path : paths) {
    const RecordId record = find_record(data, schema, path);
    std::vector<std::string> lines = value_lines(data, schema, record);
    if (!lines.empty()) {
      const auto number = core::number::parse_integer(clean_value_line(lines.front()));
      return StatedValue{std::move(lines.front()), number, path, record};
    }
  }
  return std::nullopt;
}

std::optional<SourceSpan> span_of_value(const ParsedInput& input, const RecordId& record,
                                        std::size_t index) {
  const std::size_t line = input.value_line(record, index);
  return SourceSpan{line, 1, input.source().line(line).size()};
}

// A document knows where an entry begins, its text where each of its lines stands.
std::vector<AtomRecord> atoms_of_entry(const ModuleEntry& entry, const RecordId& record,
                                       const ParsedInput* input) {
  std::vector<AtomRecord> atoms;
  for (std::size_t i = 0; i < entry.values.size(); ++i) {
    const AtomLine read = read_atom_line(entry.values[i]);
    if (!read.is_atom()) {
      continue;
    }
    AtomRecord atom = atom_of(read);
    atom.line = entry.values[i];
    if (input != nullptr) {
      atom.location = span_of_value(*input, record, i);
    }
    atoms.push_back(std::move(atom));
  }
  return atoms;
}

// Internal coordinates begin with an atom alone on its line. Further on, lines of them may happen
// to hold three numbers, which are no position.
bool has_internal_coordinates(const std::vector<std::string>& lines) {
  return std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
    std::string_view rest = clean_value_line(line);
    const std::string_view word = core::text::take_word(rest);
    return !word.empty() && rest.empty() && word.find('=') == std::string_view::npos &&
           !element_of(word).empty();
  });
}

// A block without atoms, with a line such as "file=x.xyz" alone, leaves the word to `$compass`.
void take_geometry(const BDFData& data, const InputSchema& schema, const ParsedInput* input,
                   Molecule& molecule) {
  if (data.has_geometry && !data.atoms.empty()) {
    molecule.geometry = RecordId::of(RecordKind::Geometry, 0);
    if (!has_internal_coordinates(data.geometry_lines)) {
      molecule.atoms = data.atoms;
    }
    return;
  }
  molecule.geometry = find_compass_geometry(data, schema);
  if (const ModuleEntry* const entry = entry_of(data, molecule.geometry)) {
    if (!has_internal_coordinates(entry->values)) {
      molecule.atoms = atoms_of_entry(*entry, molecule.geometry, input);
    }
  } else if (data.has_geometry) {
    molecule.geometry = RecordId::of(RecordKind::Geometry, 0);
  }
}

// The unit of a geometry in `$compass` is that of the same module.
std::size_t compass_index(const BDFData& data, const InputSchema& schema,
                          const RecordId& geometry) {
  const std::string compass = schema.canonical_module(compass_module);
  std::size_t index = 0;
  for (std::size_t i = 0; geometry.kind == RecordKind::Entry && i < geometry.index; ++i) {
    index += schema.canonical_module(data.modules[i].name) == compass ? 1 : 0;
  }
  return index;
}

Molecule make_molecule(const BDFData& data, const InputSchema& schema, const ParsedInput* input) {
  Molecule molecule;
  take_geometry(data, schema, input, molecule);
  ValuePath unit_path = entry_path(compass_module, unit_name);
  unit_path.module_index = compass_index(data, schema, molecule.geometry);
  molecule.stated_unit = first_value(data, schema, {header_path(unit_name), unit_path});
  const bool in_bohr = molecule.stated_unit && is_bohr(molecule.stated_unit->text);
  molecule.unit = in_bohr ? LengthUnit::Bohr : LengthUnit::Angstrom;
  const auto in_header_or_scf = [&](const char* name) {
    return first_value(data, schema, {header_path(name), entry_path(scf_module, name)});
  };
  molecule.charge = in_header_or_scf(charge_name);
  molecule.multiplicity = in_header_or_scf(multiplicity_name);
  return molecule;
}

std::vector<ValuePath> paths_of_number(const BDFData& data, const InputSchema& schema,
                                       std::string_view name) {
  const NumberHomes homes = homes_of_numbers(data, schema);
  std::vector<ValuePath> paths;
  if (homes.header) {
    paths.push_back(header_path(name));
  }
  if (homes.scf) {
    paths.push_back(entry_path(scf_module, name));
  }
  return paths;
}

}  // namespace

Molecule molecule_of(const BDFData& data, const InputSchema& schema) {
  return make_molecule(data, schema, nullptr);
}

Molecule molecule_of(const ParsedInput& input) {
  return make_molecule(input.data(), input.schema(), &input);
}

std::vector<ValuePath> charge_paths(const BDFData& data, const InputSchema& schema) {
  return paths_of_number(data, schema, charge_name);
}

std::vector<ValuePath> multiplicity_paths(const BDFData& data, const InputSchema& schema) {
  return paths_of_number(data, schema, multiplicity_name);
}

}  // namespace kelp::input::bdf
