// Sweeps: the combinations of several values, the name of each and its changes.

#include "kelp/input/bdf/sweep.hpp"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "objects.hpp"

namespace kelp::c_interface {
namespace {

struct SweepObject : Object {
  SweepObject(std::vector<bdf::SweepAxis> read, bdf::SweepPlan made)
      : axes(std::move(read)), plan(std::move(made)) {}

  std::vector<bdf::SweepAxis> axes;
  bdf::SweepPlan plan;
};

bdf::SweepAxis axis_from(const char* text) {
  bdf::SweepAxisResult result = bdf::parse_sweep_axis(needed(text));
  if (!result.axis) {
    throw Failure(KELP_BDF_INVALID_ARGUMENT, result.error);
  }
  return *std::move(result.axis);
}

}  // namespace

template <>
struct ObjectOf<kelp_bdf_sweep> {
  using Type = SweepObject;
};

}  // namespace kelp::c_interface

using namespace kelp::c_interface;

kelp_bdf_status kelp_bdf_sweep_plan(const char* const* axes, size_t axis_count,
                                    const char* name_pattern, const kelp_bdf_schema* schema,
                                    kelp_bdf_sweep** sweep, kelp_bdf_error* error) {
  return call(error, [=] {
    std::vector<bdf::SweepAxis> read;
    for (std::size_t i = 0; i < axis_count; ++i) {
      read.push_back(axis_from(needed(axes)[i]));
    }
    bdf::SweepPlan plan = bdf::plan_sweep(read, needed(name_pattern), schema_of(schema));
    if (!plan.error.empty()) {
      throw Failure(KELP_BDF_REFUSED, plan.error);
    }
    hand_out(sweep, std::make_shared<SweepObject>(std::move(read), std::move(plan)));
  });
}

kelp_bdf_status kelp_bdf_sweep_count(const kelp_bdf_sweep* sweep, size_t* count) {
  return call([=] { *needed(count) = object_of(sweep)->plan.variants.size(); });
}

kelp_bdf_status kelp_bdf_sweep_name(const kelp_bdf_sweep* sweep, size_t index,
                                    kelp_bdf_string* name) {
  return call(
      [=] { *needed(name) = string_of(item_of(object_of(sweep)->plan.variants, index).name); });
}

kelp_bdf_status kelp_bdf_sweep_edit(const kelp_bdf_sweep* sweep, size_t index, kelp_bdf_edit** edit,
                                    kelp_bdf_error* error) {
  return call(error, [=] {
    const auto object = object_of(sweep);
    auto made = std::make_shared<EditObject>();
    made->edit.assignments =
        bdf::assignments_of(object->axes, item_of(object->plan.variants, index));
    hand_out(edit, std::move(made));
  });
}

kelp_bdf_status kelp_bdf_sweep_free(kelp_bdf_sweep* sweep) {
  return free_handle(sweep);
}
