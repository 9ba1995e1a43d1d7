#pragma once

#include "advice/geometry.hpp"

namespace kelp::input::bdf {

/// Tells whether a molecule has symmetry that can be seen at once: it is planar, or the inversion,
/// a half turn about an axis of the coordinates or a reflection at a plane of them leaves it as it
/// is. False says nothing.
bool has_evident_symmetry(const Geometry& geometry);

}  // namespace kelp::input::bdf
