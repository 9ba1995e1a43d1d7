// The module behind the package: plain functions over the public headers. What is Python's own way
// of saying things is written in Python.

#include <string>

#include "convert.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/input/bdf/version.hpp"

namespace kelp::python {
namespace {

// What cannot be done with a file is an OSError, as Python's own is.
template <typename Work>
void with_files(Work&& work) {
  try {
    unlocked(work);
  } catch (const core::fs::FileChanged& changed) {
    PyErr_SetString(PyExc_BlockingIOError, changed.what());
    throw py::error_already_set();
  } catch (const std::runtime_error& failed) {
    PyErr_SetString(PyExc_OSError, failed.what());
    throw py::error_already_set();
  }
}

void write_file(const py::str& path, const py::bytes& data) {
  const std::string file = from_python(path);
  const std::string text = data;
  with_files([&] { core::fs::write_text_file(file, text); });
}

void replace_file(const py::str& path, const py::bytes& old_data, const py::bytes& data) {
  const std::string file = from_python(path);
  const std::string old_text = old_data;
  const std::string text = data;
  with_files([&] { core::fs::replace_text_file(file, old_text, text); });
}

}  // namespace
}  // namespace kelp::python

PYBIND11_MODULE(_core, module) {
  using namespace kelp::python;
  module.doc() = "What the package kelp_bdf stands on; not for its users.";
  module.attr("version") = kelp::input::bdf::library_version();
  add_schema(module);
  add_molecule(module);
  add_input(module);
  add_sweep(module);
  module.def("write_file", &write_file, py::arg("path"), py::arg("data"),
             "Writes a file as a whole or not at all.");
  module.def("replace_file", &replace_file, py::arg("path"), py::arg("old_data"), py::arg("data"),
             "Replaces a file that must still hold what was read.");
}
