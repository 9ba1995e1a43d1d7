// New atoms. They take the lines of the old ones, with what is said around these, as long as they
// are the same atoms, moved. Of another molecule only the comments above the first atom are kept:
// what stands further down was said of atoms that are gone.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "model/molecule_names.hpp"
#include "rewrite/edit_parts.hpp"
#include "rewrite/value_patch.hpp"
#include "source/atom_line.hpp"

namespace kelp::input::bdf {
namespace {

using Texts = std::vector<std::string>;

bool is_comment_or_blank(std::string_view line) {
  const std::string_view text = core::text::trim_view(line);
  return text.empty() || text.front() == '#';
}

bool is_bohr(const std::optional<Texts>& unit) {
  return unit && !unit->empty() && bdf::is_bohr(unit->front());
}

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

bool same_elements(const std::vector<AtomRecord>& left, const std::vector<AtomRecord>& right) {
  const std::size_t both = std::min(left.size(), right.size());
  return std::equal(left.begin(), left.begin() + static_cast<std::ptrdiff_t>(both), right.begin(),
                    [](const AtomRecord& one, const AtomRecord& other) {
                      return same_element(one.element, other.element);
                    });
}

/// The lines of a geometry in a module.
class EntryLines {
 public:
  explicit EntryLines(const Texts& old) : old_(old) {
    for (const std::string& line : old) {
      if (!is_comment_or_blank(line)) {
        const AtomLine atom = read_atom_line(line);
        is_cartesian_ = is_cartesian_ && atom.is_atom();
        atoms_.push_back(atom_of(atom));
      }
    }
  }

  Texts with(const std::vector<AtomRecord>& atoms) const {
    Texts lines;
    if (is_cartesian_ && same_elements(atoms_, atoms)) {
      move(atoms, lines);
    } else {
      replace(atoms, lines);
    }
    return lines;
  }

 private:
  // Comments and blank lines stay where they are among the atoms.
  void move(const std::vector<AtomRecord>& atoms, Texts& lines) const {
    const auto last_atom = std::find_if_not(old_.rbegin(), old_.rend(), is_comment_or_blank);
    const auto count = static_cast<std::size_t>(old_.rend() - last_atom);
    std::size_t next = 0;
    for (std::size_t i = 0; i < old_.size(); ++i) {
      if (is_comment_or_blank(old_[i])) {
        lines.push_back(old_[i]);
      } else if (next < atoms.size()) {
        lines.push_back(exact_line(atoms[next++]));
      }
      if (i + 1 == count) {
        append(lines, atoms, next);
      }
    }
    append(lines, atoms, next);
  }

  void replace(const std::vector<AtomRecord>& atoms, Texts& lines) const {
    const auto first = std::find_if_not(old_.begin(), old_.end(), is_comment_or_blank);
    lines.assign(old_.begin(), first);
    std::size_t next = 0;
    // A line for a line, which keeps its layout.
    while (is_cartesian_ && next < atoms.size() && next < atoms_.size()) {
      lines.push_back(exact_line(atoms[next++]));
    }
    append(lines, atoms, next);
  }

  // An atom with all of its digits, for a line that may have more of them than the layout.
  static std::string exact_line(const AtomRecord& atom) {
    return atom.element + ' ' + core::number::to_text(atom.x) + ' ' +
           core::number::to_text(atom.y) + ' ' + core::number::to_text(atom.z);
  }

  static void append(Texts& lines, const std::vector<AtomRecord>& atoms, std::size_t& next) {
    for (; next < atoms.size(); ++next) {
      lines.push_back(atom_line(atoms[next], ""));
    }
  }

  const Texts& old_;
  std::vector<AtomRecord> atoms_;
  bool is_cartesian_ = true;
};

class GeometryEdit {
 public:
  explicit GeometryEdit(EditContext& context)
      : context_(context), data_(context.data), geometry_(*context.edit.geometry) {}

  Problem run() {
    if (!geometry_.path || geometry_.path->kind == PathKind::Geometry) {
      return set_only_one();
    }
    const ValuePath& path = *geometry_.path;
    const std::vector<ValuePath> there = paths();
    if (path.kind != PathKind::Entry ||
        !is_geometry_entry(context_.schema(), path.module, path.name)) {
      return "'" + to_string(path) + "' is no geometry" +
             (there.empty() ? "" : "; the input has " + list(there));
    }
    return set_in_module(path);
  }

 private:
  static std::string list(const std::vector<ValuePath>& paths) {
    std::string text;
    for (const ValuePath& path : paths) {
      text += (text.empty() ? "" : ", ") + to_string(path);
    }
    return text;
  }

  // All that the input has.
  std::vector<ValuePath> paths() const {
    std::vector<ValuePath> found;
    if (data_.has_geometry) {
      found.push_back({PathKind::Geometry, {}, 0, {}, {}});
    }
    const PathIndex index(data_);
    for (std::size_t m = 0; m < data_.modules.size(); ++m) {
      const std::vector<ModuleEntry>& entries = data_.modules[m].entries;
      for (std::size_t e = 0; e < entries.size(); ++e) {
        const auto path = parse_path(index.path_of(RecordId::of_entry(m, e))).path;
        const bool is_first = path && std::find(found.begin(), found.end(), *path) == found.end();
        if (is_geometry_entry(entries[e]) && is_first) {
          found.push_back(*path);
        }
      }
    }
    return found;
  }

  Problem set_only_one() {
    const std::vector<ValuePath> there = paths();
    if (there.size() > 1) {
      return "the input has more than one geometry; name the one to replace: " + list(there);
    }
    if (!there.empty() && there.front().kind == PathKind::Entry) {
      return set_in_module(there.front());
    }
    if (there.empty() && data_.mode == InputMode::Module) {
      return set_in_module(entry_path(0, geometry_entry));
    }
    set_block();
    return {};
  }

  static ValuePath entry_path(std::size_t number, const char* name) {
    return {PathKind::Entry, compass_module, number, name, {}};
  }

  // Another geometry than that of `$compass` goes by the unit of the first one.
  LengthUnit unit_for(const ValuePath& path) const {
    const InputSchema& schema = context_.schema();
    const bool in_compass = schema.canonical_module(path.module) == compass_module;
    const ValuePath header = {PathKind::EasyKeyword, {}, 0, unit_name, {}};
    const bool in_header =
        data_.mode != InputMode::Module && find_value(data_, schema, header).has_value();
    const ValuePath of_module = entry_path(in_compass ? path.module_index : 0, unit_name);
    return is_bohr(find_value(data_, schema, in_header ? header : of_module))
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
    std::vector<AtomRecord> atoms = atoms_in(unit_for(entry_path(0, geometry_entry)));
    const bool is_cartesian =
        std::all_of(data_.geometry_lines.begin(), data_.geometry_lines.end(), is_comment_or_blank);
    if (!is_cartesian || !same_elements(data_.atoms, atoms)) {
      data_.geometry_lines.resize(count_lines_above_atoms());
    }
    data_.has_geometry = true;
    data_.atoms = std::move(atoms);
  }

  std::size_t count_lines_above_atoms() const {
    const std::size_t first_atom =
        data_.atoms.empty() ? static_cast<std::size_t>(-1)
                            : context_.input.first_line(RecordId::of(RecordKind::Atom, 0));
    std::size_t count = 0;
    while (count < data_.geometry_lines.size() &&
           is_comment_or_blank(data_.geometry_lines[count]) &&
           context_.input.first_line(RecordId::of(RecordKind::GeometryLine, count)) < first_atom) {
      ++count;
    }
    return count;
  }

  Problem set_in_module(const ValuePath& path) {
    ValuePath of_module = path;
    of_module.kind = PathKind::Module;
    Problem problem;
    if (context_.schema().canonical_module(path.module) != compass_module &&
        !find_record(data_, context_.schema(), of_module)) {
      return "there is no '" + to_string(of_module) + "' to hold the geometry";
    }
    Module* const module = module_for(context_, path, problem);
    if (module == nullptr) {
      return problem;
    }
    const RecordId found = find_record(data_, context_.schema(), path);
    ModuleEntry& entry = found ? data_.modules[found.index].entries[found.entry]
                               : add_entry(context_, *module, path.name, {});
    entry.values = EntryLines(entry.values).with(atoms_in(unit_for(path)));
    return {};
  }

  EditContext& context_;
  BDFData& data_;
  const NewGeometry& geometry_;
};

}  // namespace

Problem set_geometry(EditContext& context) {
  return GeometryEdit(context).run();
}

}  // namespace kelp::input::bdf
