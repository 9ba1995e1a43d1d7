#pragma once

#include <string>
#include <vector>

#include "kelp/input/bdf/names.hpp"

namespace kelp::app {

/// Ends a message about an unknown name with the names that may have been meant; empty for none.
inline std::string did_you_mean(const std::vector<std::string>& near) {
  return near.empty() ? std::string() : "; did you mean " + input::bdf::quoted_choice(near) + "?";
}

}  // namespace kelp::app
