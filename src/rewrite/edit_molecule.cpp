// The parts of an edit that concern the calculation as a whole: the method specification, and the
// geometry, wherever it stands.

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "model/from_schema.hpp"
#include "model/molecule_names.hpp"
#include "rewrite/edit_document.hpp"
#include "rewrite/value_patch.hpp"
#include "schema/lookup.hpp"
#include "source/atom_line.hpp"

namespace kelp::input::bdf {
namespace {

using Texts = std::vector<std::string>;

constexpr std::string_view method_part = "method";
constexpr std::string_view functional_part = "functional";
constexpr std::string_view basis_part = "basis";
constexpr double angstrom_per_bohr = 0.529177210903;

bool is_listed(const InputSchema& schema, std::string_view part, const std::string& name) {
  if (part == method_part) {
    return schema.is_known_method(name);
  }
  return part == functional_part
             ? schema.is_known_functional(name)
             : schema.is_known_easy_token("hf/" + name) || schema.is_known_basis(name);
}

Texts listed_names(const InputSchema& schema, std::string_view part) {
  if (part == method_part) {
    return schema.known_methods();
  }
  return part == functional_part ? schema.known_functionals() : schema.known_basis_sets();
}

// An open list takes a name that is not near any of it.
std::string refuse_unknown(const InputSchema& schema, std::string_view part,
                           const std::string& name) {
  const Texts near = similar_names(name, listed_names(schema, part));
  if (schema.is_known_basis(name) || (is_listed(schema, part, name) && near.empty()) ||
      (is_listed(schema, part, name) && part != basis_part)) {
    return {};
  }
  std::string problem = "there is no " + std::string(part) + " '" + name + "'";
  if (!near.empty()) {
    problem += "; did you mean " + quoted_choice(near) + "?";
  }
  return problem + " (--force writes it)";
}

struct Specification {
  std::string method;
  std::string functional;
  std::string basis;

  std::string text() const {
    std::string joined;
    for (const std::string* const part : {&method, &functional, &basis}) {
      if (!part->empty()) {
        joined += (joined.empty() ? "" : "/") + *part;
      }
    }
    return joined;
  }
};

EasyToken* specification_of(BDFData& data) {
  const auto found =
      std::find_if(data.easy_tokens.begin(), data.easy_tokens.end(),
                   [](const EasyToken& token) { return token.category == "method_spec"; });
  return found == data.easy_tokens.end() ? nullptr : &*found;
}

// --- geometry

AtomRecord converted(AtomRecord atom, LengthUnit from, LengthUnit to) {
  const double factor =
      from == to ? 1.0 : (to == LengthUnit::Bohr ? 1.0 / angstrom_per_bohr : angstrom_per_bohr);
  if (from != to) {
    atom.x *= factor;
    atom.y *= factor;
    atom.z *= factor;
  }
  atom.line.clear();
  atom.location.reset();
  return atom;
}

bool is_comment_or_blank(std::string_view line) {
  const std::string_view text = core::text::trim_view(line);
  return text.empty() || text.front() == '#';
}

bool is_bohr(const std::optional<Texts>& unit) {
  constexpr std::string_view bohr = "bohr";
  return unit && !unit->empty() &&
         core::text::equals_ignoring_case(std::string_view(unit->front()).substr(0, bohr.size()),
                                          bohr);
}

ValuePath entry_path(const char* module, std::size_t index, const char* name) {
  ValuePath path;
  path.module = module;
  path.module_index = index;
  path.name = name;
  return path;
}

ValuePath header_path(const char* name) {
  ValuePath path;
  path.kind = PathKind::EasyKeyword;
  path.name = name;
  return path;
}

class GeometryEdit {
 public:
  GeometryEdit(BDFData& data, const InputSchema& schema, const NewGeometry& geometry)
      : data_(data), schema_(schema), geometry_(geometry) {}

  /// Returns why it is impossible, or nothing.
  std::string run() {
    if (!geometry_.path || geometry_.path->kind == PathKind::Geometry) {
      return set_only_one();
    }
    const ValuePath& path = *geometry_.path;
    if (path.kind != PathKind::Entry || schema_.canonical_module(path.module) != compass_module ||
        schema_.canonical_entry(path.module, path.name) != geometry_entry) {
      return "'" + to_string(path) + "' is no geometry";
    }
    return set_in_compass(path.module_index);
  }

  bool touches_block() const { return touches_block_; }

 private:
  // The numbers of the `$compass` modules that have a geometry.
  std::vector<std::size_t> numbers_with_geometry() const {
    std::vector<std::size_t> numbers;
    const std::size_t count = count_modules(data_, schema_, compass_module);
    for (std::size_t i = 0; i < count; ++i) {
      if (find_record(data_, schema_, entry_path(compass_module, i, geometry_entry))) {
        numbers.push_back(i);
      }
    }
    return numbers;
  }

  std::string set_only_one() {
    const std::vector<std::size_t> numbers = numbers_with_geometry();
    const bool in_block = data_.has_geometry;
    if (numbers.size() + (in_block ? 1 : 0) > 1) {
      std::string list = in_block ? "geometry" : "";
      for (const std::size_t number : numbers) {
        list += (list.empty() ? "" : ", ") +
                to_string(entry_path(compass_module, number, geometry_entry));
      }
      return "the input has more than one geometry; name the one to replace: " + list;
    }
    if (!numbers.empty()) {
      return set_in_compass(numbers.front());
    }
    if (!in_block && data_.mode == InputMode::Module) {
      return set_in_compass(0);
    }
    set_block();
    return {};
  }

  LengthUnit unit_in_compass(std::size_t number) const {
    const bool stated = data_.mode != InputMode::Module &&
                        find_value(data_, schema_, header_path(unit_name)).has_value();
    return is_bohr(find_value(
               data_, schema_,
               stated ? header_path(unit_name) : entry_path(compass_module, number, unit_name)))
               ? LengthUnit::Bohr
               : LengthUnit::Angstrom;
  }

  std::vector<AtomRecord> atoms_in(LengthUnit unit) const {
    std::vector<AtomRecord> atoms;
    atoms.reserve(geometry_.atoms.size());
    for (const AtomRecord& atom : geometry_.atoms) {
      atoms.push_back(converted(atom, geometry_.unit, unit));
    }
    return atoms;
  }

  void set_block() {
    touches_block_ = true;
    const bool cartesian =
        std::all_of(data_.geometry_lines.begin(), data_.geometry_lines.end(), is_comment_or_blank);
    if (!cartesian) {
      std::erase_if(data_.geometry_lines, [](const std::string& line) {
        return !core::text::trim_view(line).starts_with('#');
      });
    }
    data_.has_geometry = true;
    data_.atoms = atoms_in(unit_in_compass(0));
  }

  std::string set_in_compass(std::size_t number) {
    const std::size_t count = count_modules(data_, schema_, compass_module);
    if (number > count) {
      return "there is no " + std::to_string(number + 1) + ". $compass";
    }
    if (number == count) {
      Module compass;
      describe_module(compass, compass_module, schema_);
      add_module(data_, std::move(compass));
    }
    const ValuePath path = entry_path(compass_module, number, geometry_entry);
    RecordId found = find_record(data_, schema_, path);
    if (!found) {
      ValuePath of_module = path;
      of_module.kind = PathKind::Module;
      Module& module = data_.modules[find_record(data_, schema_, of_module).index];
      ModuleEntry entry;
      describe_entry(entry, geometry_entry,
                     find_module_spec(SchemaAccess::impl(schema_), module.name));
      module.entries.push_back(std::move(entry));
      found = find_record(data_, schema_, path);
    }
    ModuleEntry& entry = data_.modules[found.index].entries[found.entry];
    entry.values = lines_for(entry.values, atoms_in(unit_in_compass(number)));
    return {};
  }

  // An atom with all of its digits, for a line that may have more of them than the layout.
  static std::string exact_line(const AtomRecord& atom) {
    return atom.element + ' ' + core::number::to_text(atom.x) + ' ' +
           core::number::to_text(atom.y) + ' ' + core::number::to_text(atom.z);
  }

  // Comments and blank lines keep their places among the atoms.
  static Texts lines_for(const Texts& old, const std::vector<AtomRecord>& atoms) {
    const bool cartesian = std::all_of(old.begin(), old.end(), [](const std::string& line) {
      return is_comment_or_blank(line) || read_atom_line(line).is_atom();
    });
    const auto last_atom = std::find_if_not(old.rbegin(), old.rend(), is_comment_or_blank);
    const auto count = static_cast<std::size_t>(old.rend() - last_atom);
    Texts lines;
    std::size_t next = 0;
    for (std::size_t i = 0; i < old.size(); ++i) {
      if (cartesian && is_comment_or_blank(old[i])) {
        lines.push_back(old[i]);
      } else if (cartesian && next < atoms.size()) {
        lines.push_back(exact_line(atoms[next++]));
      }
      if (i + 1 == count) {
        append(lines, atoms, next);
      }
    }
    append(lines, atoms, next);
    return lines;
  }

  static void append(Texts& lines, const std::vector<AtomRecord>& atoms, std::size_t& next) {
    for (; next < atoms.size(); ++next) {
      lines.push_back(atom_line(atoms[next], ""));
    }
  }

  BDFData& data_;
  const InputSchema& schema_;
  const NewGeometry& geometry_;
  bool touches_block_ = false;
};

}  // namespace

bool is_specification_part(const ValuePath& path) {
  return path.kind == PathKind::EasyKeyword &&
         (path.name == method_part || path.name == functional_part || path.name == basis_part);
}

std::string set_specification_part(BDFData& data, const InputSchema& schema, std::string_view part,
                                   const std::string& value, bool allow_unknown_names) {
  EasyToken* const token = specification_of(data);
  if (token == nullptr) {
    return "the header has no method specification";
  }
  if (value.empty() || value.find('/') != std::string::npos) {
    return "it takes one name without a '/'";
  }
  std::string problem = allow_unknown_names ? std::string() : refuse_unknown(schema, part, value);
  if (!problem.empty()) {
    return problem;
  }
  Specification parts = {token->method, token->functional, token->basis};
  if (part == functional_part && parts.functional.empty()) {
    return "'" + token->text + "' names no functional; change its method, easy.method";
  }
  std::string& target = part == method_part
                            ? parts.method
                            : (part == functional_part ? parts.functional : parts.basis);
  if (core::text::equals_ignoring_case(target, value)) {
    return {};
  }
  target = value;
  const auto location = token->location;
  *token = easy_token_from_text(parts.text(), schema);
  token->location = location;
  return {};
}

std::string set_geometry(BDFData& data, const InputSchema& schema, const NewGeometry& geometry,
                         bool& keeps_geometry) {
  GeometryEdit edit(data, schema, geometry);
  std::string problem = edit.run();
  keeps_geometry = !edit.touches_block();
  return problem;
}

}  // namespace kelp::input::bdf
