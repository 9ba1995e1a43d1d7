#include "convert.hpp"

#include <utility>

namespace kelp::python {

py::str to_python(std::string_view text) {
  PyObject* const made =
      PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape");
  if (made == nullptr) {
    throw py::error_already_set();
  }
  return py::reinterpret_steal<py::str>(made);
}

std::string from_python(const py::str& text) {
  const auto bytes = py::reinterpret_steal<py::bytes>(
      PyUnicode_AsEncodedString(text.ptr(), "utf-8", "surrogateescape"));
  if (!bytes) {
    throw py::error_already_set();
  }
  return std::string(bytes);
}

py::list to_python(const std::vector<std::string>& texts) {
  py::list list;
  for (const std::string& text : texts) {
    list.append(to_python(text));
  }
  return list;
}

std::vector<std::string> from_python(const std::vector<py::str>& texts) {
  std::vector<std::string> list;
  list.reserve(texts.size());
  for (const py::str& text : texts) {
    list.push_back(from_python(text));
  }
  return list;
}

bdf::ValuePath path_from(const py::str& text) {
  bdf::PathResult result = bdf::parse_path(from_python(text));
  if (!result.path) {
    throw py::value_error(result.error);
  }
  return *std::move(result.path);
}

py::tuple to_python(const bdf::TextRange& range) {
  return py::make_tuple(range.begin, range.end);
}

namespace {

py::list edits_to_python(const std::vector<bdf::TextEdit>& edits) {
  py::list list;
  for (const bdf::TextEdit& edit : edits) {
    list.append(py::make_tuple(to_python(edit.range), to_python(edit.text)));
  }
  return list;
}

py::list fixes_to_python(const std::vector<bdf::Fix>& fixes) {
  py::list list;
  for (const bdf::Fix& fix : fixes) {
    list.append(py::make_tuple(to_python(fix.title), fix.is_safe, edits_to_python(fix.edits)));
  }
  return list;
}

py::list related_to_python(const std::vector<bdf::RelatedRange>& related,
                           const bdf::SourceText& source) {
  py::list list;
  for (const bdf::RelatedRange& part : related) {
    list.append(py::make_tuple(to_python(part.range), source.position(part.range.begin).line,
                               to_python(part.message)));
  }
  return list;
}

py::tuple finding_to_python(const bdf::Diagnostic& finding, const bdf::SourceText& source) {
  py::object range = py::none();
  bdf::TextPosition start;
  if (finding.range) {
    range = to_python(*finding.range);
    start = source.position(finding.range->begin);
  }
  return py::make_tuple(
      to_python(finding.code), to_python(to_string(finding.severity)), to_python(finding.message),
      start.line, start.column, range, to_python(finding.label), to_python(finding.path),
      to_python(finding.arguments), to_python(finding.help), to_python(finding.suggestions),
      related_to_python(finding.related, source), fixes_to_python(finding.fixes));
}

}  // namespace

py::list to_python(const std::vector<bdf::Diagnostic>& findings, const bdf::SourceText& source) {
  py::list list;
  for (const bdf::Diagnostic& finding : findings) {
    list.append(finding_to_python(finding, source));
  }
  return list;
}

}  // namespace kelp::python
