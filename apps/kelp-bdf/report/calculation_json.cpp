// What an input computes, as JSON.

#include <optional>

#include "report/json.hpp"
#include "report/outline.hpp"

namespace kelp::app {
namespace {

using input::bdf::Calculation;

Json line_or_null(const Calculation::Origin& origin) {
  return origin.line == 0 ? Json() : Json(origin.line);
}

Json to_json(const std::optional<Calculation::Number>& number) {
  if (!number) {
    return nullptr;
  }
  return {{"value", number->value},
          {"default", number->is_default},
          {"line", line_or_null(number->origin)}};
}

Json to_json(const std::optional<Calculation::Name>& name) {
  if (!name) {
    return nullptr;
  }
  return {
      {"name", name->name}, {"default", name->is_default}, {"line", line_or_null(name->origin)}};
}

Json to_json(const Calculation::Basis& basis) {
  return {{"name", basis.name.name},
          {"labels", basis.labels},
          {"line", line_or_null(basis.name.origin)}};
}

Json to_json(const Calculation::System& system) {
  return {
      {"formula", text_or_null(system.formula)},
      {"atoms", system.atoms ? Json(*system.atoms) : Json()},
      {"basis_sets", list_of(system.basis_sets, [](const auto& made) { return to_json(made); })},
      {"inline_basis", system.has_inline_basis},
      {"line", line_or_null(system.origin)}};
}

Json to_json(const Calculation::Scf& scf) {
  return {{"system", scf.system},
          {"charge", to_json(scf.charge)},
          {"multiplicity", to_json(scf.multiplicity)},
          {"electrons", scf.electrons ? Json(*scf.electrons) : Json()},
          {"reference", to_json(scf.reference)},
          {"functional", to_json(scf.functional)},
          {"line", line_or_null(scf.origin)}};
}

Json to_json(const Calculation::Task& task) {
  return {{"task", input::bdf::to_string(task.kind)},
          {"system", task.system},
          {"line", line_or_null(task.origin)}};
}

}  // namespace

Json calculation_json(const Calculation& calculation) {
  return {{"complete", calculation.is_complete},
          {"method", to_json(calculation.method)},
          {"systems", list_of(calculation.systems, [](const auto& made) { return to_json(made); })},
          {"scf", list_of(calculation.scfs, [](const auto& made) { return to_json(made); })},
          {"tasks", list_of(calculation.tasks, [](const auto& made) { return to_json(made); })}};
}

}  // namespace kelp::app
