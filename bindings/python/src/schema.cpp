// Vocabularies: what names there are, and what they mean.

#include <pybind11/stl.h>

#include <string>
#include <vector>

#include "convert.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/meaning.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::python {
namespace {

bdf::InputSchema default_schema() {
  bdf::InputSchema schema = unlocked([] { return bdf::default_schema(); });
  if (schema.empty()) {
    throw std::runtime_error(
        "no schema file found; name one with the environment variable KELP_BDF_INP_SCHEMA_YAML");
  }
  return schema;
}

bdf::Language language_from(const py::str& name) {
  return bdf::language_of_locale(from_python(name));
}

// The description of an entry by its path; none for anything else, and for what is unknown.
std::optional<bdf::EntrySchemaInfo> info_of(const bdf::InputSchema& schema,
                                            const bdf::ValuePath& path) {
  switch (path.kind) {
    case bdf::PathKind::EasyKeyword:
      return schema.easy_keyword_info(path.name);
    case bdf::PathKind::Entry:
      return schema.entry_info(path.module, path.name);
    case bdf::PathKind::Child:
      return schema.nested_entry_info(path.module, path.name, path.child);
    default:
      return std::nullopt;
  }
}

std::string summary_of(const bdf::InputSchema& schema, const bdf::ValuePath& path) {
  switch (path.kind) {
    case bdf::PathKind::EasyKeyword:
      return easy_keyword_summary(schema, path.name);
    case bdf::PathKind::Entry:
      return entry_summary(schema, path.module, path.name);
    case bdf::PathKind::Child:
      return nested_entry_summary(schema, path.module, path.name, path.child);
    default:
      return module_summary(schema, path.module);
  }
}

py::object info(const bdf::InputSchema& schema, const py::str& text) {
  const bdf::ValuePath path = path_from(text);
  const auto found = info_of(schema, path);
  if (!found) {
    return py::none();
  }
  return py::make_tuple(
      to_python(found->name), to_python(to_string(found->kind)), to_python(found->value_type),
      found->default_value ? py::object(to_python(*found->default_value)) : py::none(),
      to_python(found->allowed), py::cast(found->min), py::cast(found->max), found->repeatable,
      to_python(expected_value(*found)), to_python(summary_of(schema, path)));
}

// Canonical names and aliases.
py::list all_names(const bdf::InputSchema& schema, const std::string& list,
                   const std::string& module, const std::string& entry) {
  const bdf::NameLists names(schema);
  return to_python(list == "modules"   ? names.modules()
                   : list == "entries" ? names.entries(module)
                                       : names.nested_entries(module, entry));
}

py::list names(const bdf::InputSchema& schema, const py::str& list, const py::str& module,
               const py::str& entry, bool aliases) {
  const std::string wanted = from_python(list);
  const std::string in_module = from_python(module);
  if (aliases) {
    return all_names(schema, wanted, in_module, from_python(entry));
  }
  if (wanted == "modules") {
    return to_python(schema.known_modules());
  }
  if (wanted == "entries") {
    return to_python(schema.known_entries(in_module));
  }
  if (wanted == "nested_entries") {
    return to_python(schema.known_nested_entries(in_module, from_python(entry)));
  }
  if (wanted == "easy_keywords") {
    return to_python(schema.known_easy_keywords());
  }
  if (wanted == "methods") {
    return to_python(schema.known_methods());
  }
  if (wanted == "functionals") {
    return to_python(schema.known_functionals());
  }
  if (wanted == "basis_sets") {
    return to_python(schema.known_basis_sets());
  }
  throw py::value_error("there is no such list of names");
}

py::list explanations(const bdf::InputSchema& schema, const py::str& name,
                      const py::str& language) {
  py::list texts;
  for (const bdf::Explanation& meaning :
       explain(from_python(name), schema, language_from(language))) {
    texts.append(to_python(explanation_text(meaning)));
  }
  return texts;
}

py::list similar_names_of(const py::str& name, const std::vector<py::str>& candidates) {
  return to_python(bdf::similar_names(from_python(name), from_python(candidates)));
}

py::list codes() {
  py::list list;
  for (const bdf::FindingText& text : bdf::finding_texts()) {
    list.append(to_python(text.code));
  }
  return list;
}

}  // namespace

void add_schema(py::module_& module) {
  py::class_<bdf::InputSchema>(module, "Schema", "A vocabulary.")
      .def_static("default", &default_schema, "The schema that comes with the library.")
      .def_static(
          "parse",
          [](const py::str& yaml) {
            const std::string text = from_python(yaml);
            return unlocked([&] { return bdf::InputSchema::from_yaml(text); });
          },
          py::arg("yaml"), "A schema of a YAML text.")
      .def("names", &names, py::arg("list"), py::arg("module"), py::arg("entry"),
           py::arg("aliases") = false, "The names of a list.")
      .def("info", &info, py::arg("path"), "The description of an entry, or None.")
      .def("explain", &explanations, py::arg("name"), py::arg("language"),
           "What there is to say about a name.")
      .def(
          "similar",
          [](const bdf::InputSchema& schema, const py::str& name) {
            return to_python(similar_explained_names(from_python(name), schema));
          },
          py::arg("name"), "Names that may have been meant.")
      .def(
          "hint",
          [](const bdf::InputSchema& schema, const py::str& path) {
            return to_python(path_hint(schema, path_from(path)));
          },
          py::arg("path"), "What may have been meant by an unknown name of a path.")
      .def(
          "bdf_version",
          [](const bdf::InputSchema& schema) { return to_python(schema.metadata().bdf_version); },
          "The release of BDF that the vocabulary is that of.");
  module.def("similar_names", &similar_names_of, py::arg("name"), py::arg("candidates"),
             "Those of the candidates that a name is likely to be a slip of.");
  module.def("codes", &codes, "The codes of all findings.");
}

}  // namespace kelp::python
