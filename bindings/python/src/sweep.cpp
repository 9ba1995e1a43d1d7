// Sweeps: which combinations there are, and how they are named.

#include "kelp/input/bdf/sweep.hpp"

#include <pybind11/stl.h>

#include <string>
#include <utility>
#include <vector>

#include "convert.hpp"

namespace kelp::python {
namespace {

using Axes = std::vector<std::pair<py::str, std::vector<std::vector<py::str>>>>;

py::list plan_sweep(const Axes& axes, const py::str& name, const bdf::InputSchema& schema) {
  std::vector<bdf::SweepAxis> read;
  for (const auto& [path, values] : axes) {
    read.push_back({path_from(path), {}});
    for (const std::vector<py::str>& lines : values) {
      read.back().values.push_back(from_python(lines));
    }
  }
  const std::string pattern = from_python(name);
  const bdf::SweepPlan plan = unlocked([&] { return bdf::plan_sweep(read, pattern, schema); });
  if (!plan.error.empty()) {
    throw py::value_error(plan.error);
  }
  py::list list;
  for (const bdf::SweepVariant& variant : plan.variants) {
    list.append(py::make_tuple(to_python(variant.name), py::cast(variant.chosen)));
  }
  return list;
}

}  // namespace

void add_sweep(py::module_& module) {
  module.def("plan_sweep", &plan_sweep, py::arg("axes"), py::arg("name"), py::arg("schema"),
             "The name of each combination, and which value of each axis it has.");
}

}  // namespace kelp::python
