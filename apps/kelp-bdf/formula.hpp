#pragma once

#include <string>
#include <vector>

namespace kelp::app {

/// Returns the formula of atoms given by their symbols or labels, in Hill's order: carbon,
/// hydrogen, the others by their letters; without carbon all by their letters. A label such as C12
/// or h_a counts as its element; what begins with no element's symbol counts as it stands.
std::string formula(const std::vector<std::string>& labels);

}  // namespace kelp::app
