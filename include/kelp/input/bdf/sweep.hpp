#pragma once

/// @file
/// Many inputs out of one: the values of several paths in every combination, and a name for the
/// file of each.
///
///     const std::vector<SweepAxis> axes = {*parse_sweep_axis("easy.functional=pbe0,b3lyp").axis,
///                                          *parse_sweep_axis("easy.basis=svp,tzvp").axis};
///     const SweepPlan plan = plan_sweep(axes, "{functional}-{basis}.inp", input.schema());
///     for (const SweepVariant& variant : plan.variants) {
///       Edit edit;
///       edit.assignments = assignments_of(axes, variant);
///       const Rewrite made = edit_input(input, edit);
///       ...
///     }
///
/// All functions may be called from any number of threads at once. What a user typed is never
/// thrown back; only a failed allocation throws.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::input::bdf {

/// The most variants that one sweep has.
inline constexpr std::size_t most_sweep_variants = 1'000'000;

/// A path, and the values that it takes one after the other.
struct SweepAxis {
  ValuePath path;                                ///< as an `Assignment` has it
  std::vector<std::vector<std::string>> values;  ///< the lines of each value
};

/// What reading an axis came to.
struct SweepAxisResult {
  std::optional<SweepAxis> axis;  ///< unset when the text is none
  std::string error;              ///< why it is none, in words
};

/// Reads `PATH=VALUE,VALUE,...`. A comma within parentheses belongs to its value, as in
/// `6-31G(d,p)`, and so does one behind a backslash; `\n` (a backslash and an n) begins a new line.
KELP_BDF_INP_EXPORT SweepAxisResult parse_sweep_axis(std::string_view text);

/// One of the combinations.
struct SweepVariant {
  std::string name;                 ///< of its file, relative to the folder of them all
  std::vector<std::size_t> chosen;  ///< of each axis the index of its value
};

/// All combinations of a sweep.
struct SweepPlan {
  std::vector<SweepVariant> variants;  ///< the values of the last axis change fastest
  std::string error;                   ///< why there is none, in words; empty when there are some
};

/// Names all combinations of the values. In the pattern `{scf.dft}` stands for the value at that
/// path, `{dft}` too where it can mean one path only, and `{#}` for the number of the variant, with
/// zeros before it so that names sort. What no name of a file should hold becomes a dash, and a
/// keyword without a value is named itself; a pattern may have folders, `{basis}/{dft}.inp`. Two
/// variants of one name, names that differ in case alone, and names that lead out of the folder are
/// refused, and so are two paths that mean the same.
KELP_BDF_INP_EXPORT SweepPlan plan_sweep(const std::vector<SweepAxis>& axes,
                                         std::string_view name_pattern, const InputSchema& schema);

/// Returns what makes a variant of an input: an assignment for each axis.
KELP_BDF_INP_EXPORT std::vector<Assignment> assignments_of(const std::vector<SweepAxis>& axes,
                                                           const SweepVariant& variant);

}  // namespace kelp::input::bdf
