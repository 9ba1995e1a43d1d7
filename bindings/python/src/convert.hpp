#pragma once

// Between the texts of Python and bytes. An input need not be UTF-8 throughout: what is not comes
// as lone surrogates, as Python has it for the names of files, and goes back to what it was.

#include <pybind11/pybind11.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::python {

namespace py = pybind11;
namespace bdf = kelp::input::bdf;

/// Returns a text for Python.
py::str to_python(std::string_view text);

/// Returns the bytes of a text from Python.
std::string from_python(const py::str& text);

py::list to_python(const std::vector<std::string>& texts);

std::vector<std::string> from_python(const std::vector<py::str>& texts);

/// Does something without the lock of the interpreter, so that other threads run.
template <typename Work>
auto unlocked(Work&& work) {
  const py::gil_scoped_release release;
  return work();
}

/// Returns the path that a text means.
/// @throws py::value_error when it means none.
bdf::ValuePath path_from(const py::str& text);

/// Returns findings as tuples, in the order of the fields of `kelp_bdf.Finding`.
py::list to_python(const std::vector<bdf::Diagnostic>& findings, const bdf::SourceText& source);

py::tuple to_python(const bdf::TextRange& range);

/// Adds what there is of each subject to the module.
void add_schema(py::module_& module);
void add_input(py::module_& module);
void add_molecule(py::module_& module);
void add_sweep(py::module_& module);

}  // namespace kelp::python
