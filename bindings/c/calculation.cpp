// What an input computes.

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kelp/input/bdf/calculation.hpp"
#include "objects.hpp"

namespace kelp::c_interface {
namespace {

struct Calculation : Object {
  explicit Calculation(bdf::Calculation read) : calculation(std::move(read)) {
    for (const bdf::Calculation::Task& task : calculation.tasks) {
      task_names.emplace_back(to_string(task.kind));
    }
  }

  bdf::Calculation calculation;
  std::vector<std::string> task_names;
};

kelp_bdf_number number_of(const std::optional<bdf::Calculation::Number>& number) {
  if (!number) {
    return {};
  }
  return {1, number->is_default ? 1 : 0, number->value, number->origin.line};
}

kelp_bdf_string name_of(const std::optional<bdf::Calculation::Name>& name) {
  return name ? string_of(name->name) : kelp_bdf_string{"", 0};
}

}  // namespace

template <>
struct ObjectOf<kelp_bdf_calculation> {
  using Type = Calculation;
};

}  // namespace kelp::c_interface

using namespace kelp::c_interface;

kelp_bdf_status kelp_bdf_calculation_of(const kelp_bdf_input* input,
                                        kelp_bdf_calculation** calculation, kelp_bdf_error* error) {
  return call(error, [=] {
    hand_out(calculation,
             std::make_shared<Calculation>(bdf::calculation_of(object_of(input)->input)));
  });
}

kelp_bdf_status kelp_bdf_calculation_counts(const kelp_bdf_calculation* calculation,
                                            size_t* systems, size_t* scfs, size_t* tasks) {
  return call([=] {
    const auto object = object_of(calculation);
    const auto give = [](size_t* count, std::size_t size) {
      if (count != nullptr) {
        *count = size;
      }
    };
    give(systems, object->calculation.systems.size());
    give(scfs, object->calculation.scfs.size());
    give(tasks, object->calculation.tasks.size());
  });
}

kelp_bdf_status kelp_bdf_calculation_system(const kelp_bdf_calculation* calculation, size_t index,
                                            kelp_bdf_system* system) {
  return call([=] {
    const auto object = object_of(calculation);
    const auto& found = item_of(object->calculation.systems, index);
    fill(system,
         kelp_bdf_system{0, string_of(found.formula), found.atoms ? 1 : 0, found.atoms.value_or(0),
                         found.basis_sets.size(), found.origin.line});
  });
}

kelp_bdf_status kelp_bdf_calculation_basis(const kelp_bdf_calculation* calculation, size_t system,
                                           size_t index, kelp_bdf_string* name) {
  return call([=] {
    const auto object = object_of(calculation);
    const auto& found = item_of(object->calculation.systems, system);
    *needed(name) = string_of(item_of(found.basis_sets, index).name.name);
  });
}

kelp_bdf_status kelp_bdf_calculation_scf(const kelp_bdf_calculation* calculation, size_t index,
                                         kelp_bdf_scf* scf) {
  return call([=] {
    const auto object = object_of(calculation);
    const auto& found = item_of(object->calculation.scfs, index);
    fill(scf, kelp_bdf_scf{0, found.system, number_of(found.charge), number_of(found.multiplicity),
                           found.electrons ? 1 : 0, found.electrons.value_or(0),
                           name_of(found.reference), name_of(found.functional), found.origin.line});
  });
}

kelp_bdf_status kelp_bdf_calculation_task(const kelp_bdf_calculation* calculation, size_t index,
                                          kelp_bdf_task* task) {
  return call([=] {
    const auto object = object_of(calculation);
    const auto& found = item_of(object->calculation.tasks, index);
    fill(task,
         kelp_bdf_task{0, static_cast<std::int32_t>(found.kind),
                       string_of(object->task_names[index]), found.system, found.origin.line});
  });
}

kelp_bdf_status kelp_bdf_calculation_free(kelp_bdf_calculation* calculation) {
  return free_handle(calculation);
}
