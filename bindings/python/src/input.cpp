// Inputs: what they say, what is wrong with them, and changes.

#include "kelp/input/bdf/parsed_input.hpp"

#include <pybind11/stl.h>

#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "convert.hpp"
#include "kelp/input/bdf/calculation.hpp"
#include "kelp/input/bdf/editor.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/outline.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::python {
namespace {

using bdf::ParsedInput;

ParsedInput parse(const py::bytes& data, const bdf::InputSchema& schema) {
  std::string text = data;
  return unlocked([&] { return ParsedInput(std::move(text), schema); });
}

py::list findings(const ParsedInput& input, int unknown, bool advice,
                  const std::vector<std::pair<py::str, int>>& rules,
                  const std::optional<py::str>& path) {
  bdf::DiagnoseOptions options;
  options.unknown = static_cast<bdf::UnknownNames>(unknown);
  options.advice = advice;
  for (const auto& [pattern, action] : rules) {
    options.rules.push_back({from_python(pattern), static_cast<bdf::SeverityAction>(action)});
  }
  if (path) {
    options.folder = bdf::input_folder_of(from_python(*path));
  }
  return to_python(unlocked([&] { return diagnose(input, options); }), input.source());
}

py::object value(const ParsedInput& input, const py::str& path) {
  const auto lines = find_value(input, path_from(path));
  return lines ? py::object(to_python(*lines)) : py::none();
}

// The names of the entries of a module or a nested block, as they stand; comments left out.
py::list entry_names(const ParsedInput& input, const py::str& path) {
  const bdf::RecordId record = find_record(input, path_from(path));
  py::list names;
  const auto add = [&](const std::vector<bdf::ModuleEntry>& entries, const auto& id_of) {
    for (std::size_t i = 0; i < entries.size(); ++i) {
      const bdf::LineRole role = input.line(input.first_line(id_of(i))).role;
      if (role != bdf::LineRole::Comment && role != bdf::LineRole::Blank) {
        names.append(to_python(entries[i].name));
      }
    }
  };
  if (record.kind == bdf::RecordKind::Module) {
    add(module_of(input.data(), record)->entries,
        [&](std::size_t i) { return bdf::RecordId::of_entry(record.index, i); });
  } else if (record.kind == bdf::RecordKind::Entry) {
    add(entry_of(input.data(), record)->children,
        [&](std::size_t i) { return bdf::RecordId::of_child(record.index, record.entry, i); });
  }
  return names;
}

// What kind of entry stands at a path, in the schema's word; none where there is none.
py::object kind_at(const ParsedInput& input, const py::str& path) {
  const bdf::RecordId record = find_record(input, path_from(path));
  if (record.kind != bdf::RecordKind::Entry && record.kind != bdf::RecordKind::Child) {
    return py::none();
  }
  return to_python(to_string(entry_or_child(input.data(), record)->kind));
}

py::list easy_keys(const ParsedInput& input) {
  py::list keys;
  const std::size_t end = tokens_before_comment(input.data());
  for (std::size_t i = 0; i < end; ++i) {
    const bdf::EasyToken& token = input.data().easy_tokens[i];
    if (token.category != "method_spec") {
      const std::string path =
          path_of(input.data(), bdf::RecordId::of(bdf::RecordKind::EasyToken, i));
      if (path.starts_with("easy.")) {
        keys.append(to_python(path.substr(std::string_view("easy.").size())));
      }
    }
  }
  return keys;
}

py::list module_paths(const ParsedInput& input) {
  const bdf::PathIndex paths(input.data());
  py::list list;
  for (std::size_t i = 0; i < input.data().modules.size(); ++i) {
    list.append(py::make_tuple(to_python(input.data().modules[i].name),
                               to_python(paths.path_of(bdf::RecordId::of_module(i)))));
  }
  return list;
}

std::size_t line_of(const ParsedInput& input, const py::str& path) {
  return input.first_line(find_record(input, path_from(path)));
}

// What a byte belongs to: the path, its first and its last line, and its position.
py::tuple at_byte(const ParsedInput& input, std::size_t byte) {
  const bdf::RecordId record = input.record_at(byte);
  const bdf::TextPosition position = input.source().position(byte);
  return py::make_tuple(to_python(path_of(input.data(), record)), input.first_line(record),
                        input.last_line(record), position.line, position.column);
}

py::list outline_entries(const std::vector<bdf::Outline::Entry>& entries) {
  py::list list;
  for (const bdf::Outline::Entry& entry : entries) {
    list.append(py::make_tuple("entry", to_python(entry.name), to_python(entry.path), entry.line,
                               entry.known, to_python(entry.range), to_python(entry.values),
                               outline_entries(entry.children)));
  }
  return list;
}

py::list outline(const ParsedInput& input) {
  const bdf::Outline read = unlocked([&] { return outline_of(input); });
  py::list list;
  const std::vector<std::string> nothing;
  for (const bdf::Outline::Word& word : read.header) {
    list.append(py::make_tuple("word", to_python(word.canonical), "", word.line, word.known,
                               to_python(word.range), to_python(nothing), py::list()));
  }
  if (read.geometry) {
    list.append(py::make_tuple("geometry", to_python(read.geometry->formula), "geometry",
                               read.geometry->line, true, to_python(read.geometry->range),
                               to_python(nothing), py::list()));
  }
  for (const bdf::Outline::Module& module : read.modules) {
    list.append(py::make_tuple("module", to_python(module.name), to_python(module.path),
                               module.line, module.known, to_python(module.range),
                               to_python(nothing), outline_entries(module.entries)));
  }
  return list;
}

py::object number(const std::optional<bdf::Calculation::Number>& number) {
  return number ? py::object(py::int_(number->value)) : py::none();
}

py::object name(const std::optional<bdf::Calculation::Name>& name) {
  return name ? py::object(to_python(name->name)) : py::none();
}

py::tuple calculation(const ParsedInput& input) {
  const bdf::Calculation read = unlocked([&] { return calculation_of(input); });
  py::list systems;
  py::list scfs;
  py::list tasks;
  for (const bdf::Calculation::System& system : read.systems) {
    py::list basis_sets;
    for (const bdf::Calculation::Basis& basis : system.basis_sets) {
      basis_sets.append(to_python(basis.name.name));
    }
    systems.append(py::make_tuple(to_python(system.formula), py::cast(system.atoms), basis_sets,
                                  system.origin.line));
  }
  for (const bdf::Calculation::Scf& scf : read.scfs) {
    scfs.append(py::make_tuple(scf.system, number(scf.charge), number(scf.multiplicity),
                               py::cast(scf.electrons), name(scf.reference), name(scf.functional),
                               scf.origin.line));
  }
  for (const bdf::Calculation::Task& task : read.tasks) {
    tasks.append(py::make_tuple(to_python(to_string(task.kind)), task.system, task.origin.line));
  }
  return py::make_tuple(read.is_complete, name(read.method), systems, scfs, tasks);
}

// A change as Python has it: its text, what would be lost, notes, and why nothing was changed.
py::tuple rewrite_to_python(const bdf::Rewrite& made) {
  return py::make_tuple(py::bytes(made.text), to_python(made.losses, bdf::SourceText(made.text)),
                        to_python(made.notes), to_python(made.error));
}

bdf::NewGeometry geometry_from(const bdf::Molecule& molecule, const std::optional<py::str>& path) {
  bdf::NewGeometry geometry = {molecule.atoms, molecule.unit, std::nullopt};
  if (path) {
    geometry.path = path_from(*path);
  }
  return geometry;
}

using Assignments = std::vector<std::pair<py::str, std::vector<py::str>>>;

py::tuple edited(const ParsedInput& input, const Assignments& assignments,
                 const std::vector<py::str>& unset, std::optional<int> charge,
                 std::optional<int> multiplicity, const std::optional<py::str>& script_name,
                 const std::optional<bdf::Molecule>& molecule,
                 const std::optional<py::str>& geometry, bool allow_unknown) {
  bdf::Edit edit;
  edit.charge = charge;
  edit.multiplicity = multiplicity;
  edit.allow_unknown_names = allow_unknown;
  for (const auto& [path, lines] : assignments) {
    edit.assignments.push_back({path_from(path), from_python(lines)});
  }
  for (const py::str& path : unset) {
    edit.unset.push_back(path_from(path));
  }
  if (script_name) {
    edit.script_name = from_python(*script_name);
  }
  if (molecule) {
    edit.geometry = geometry_from(*molecule, geometry);
  }
  return rewrite_to_python(unlocked([&] { return edit_input(input, edit); }));
}

py::bytes with_edits(
    const ParsedInput& input,
    const std::vector<std::tuple<std::pair<std::size_t, std::size_t>, py::str>>& changes) {
  std::vector<bdf::TextEdit> edits;
  for (const auto& [range, text] : changes) {
    edits.push_back({{range.first, range.second}, from_python(text)});
  }
  return py::bytes(apply_edits(input.source().text(), edits));
}

}  // namespace

void add_input(py::module_& module) {
  py::class_<ParsedInput>(module, "Input", "A text and what it says; it never changes.")
      .def(py::init(&parse), py::arg("data"), py::arg("schema"))
      .def(
          "data",
          [](const ParsedInput& input) {
            const std::string_view text = input.source().text();
            return py::bytes(text.data(), text.size());
          },
          "The bytes of the text.")
      .def(
          "mode", [](const ParsedInput& input) { return to_python(to_string(input.data().mode)); },
          "easy, module or mixed.")
      .def(
          "script_name",
          [](const ParsedInput& input) { return to_python(input.data().script_name); },
          "The name on the first line.")
      .def("findings", &findings, py::arg("unknown"), py::arg("advice"), py::arg("rules"),
           py::arg("path"), "What is wrong, as tuples.")
      .def("value", &value, py::arg("path"), "The lines of a value, or None.")
      .def("kind_at", &kind_at, py::arg("path"), "The kind of the entry at a path, or None.")
      .def("entry_names", &entry_names, py::arg("path"), "The names of a module's entries.")
      .def("easy_keys", &easy_keys, "The keywords of the header.")
      .def("module_paths", &module_paths, "The name and the path of each module.")
      .def("line_of", &line_of, py::arg("path"), "The line of a path's record; 0 for none.")
      .def("at_byte", &at_byte, py::arg("byte"), "What a byte belongs to.")
      .def("outline", &outline, "What stands where, as nested tuples.")
      .def("calculation", &calculation, "What is computed, as nested tuples.")
      .def(
          "molecule", [](const ParsedInput& input) { return bdf::molecule_of(input); },
          "The molecule, wherever it is stated.")
      .def("edited", &edited, py::arg("assignments"), py::arg("unset"), py::arg("charge"),
           py::arg("multiplicity"), py::arg("script_name"), py::arg("molecule"),
           py::arg("geometry"), py::arg("allow_unknown"), "What a change comes to.")
      .def("with_edits", &with_edits, py::arg("edits"), "The text after edits of ranges of bytes.")
      .def(
          "formatted",
          [](const ParsedInput& input) {
            return rewrite_to_python(unlocked([&] { return format_input(input); }));
          },
          "What laying it out comes to.")
      .def(
          "rendered",
          [](const ParsedInput& input) {
            return py::bytes(
                unlocked([&] { return bdf::BDFEditor(input.data(), input.schema()).render(); }));
          },
          "The text in the canonical layout.");
}

}  // namespace kelp::python
