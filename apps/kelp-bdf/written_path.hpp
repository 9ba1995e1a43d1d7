#pragma once

#include <string>
#include <string_view>

#include "kelp/input/bdf/value_path.hpp"

namespace kelp::app {

/// A path and how the user wrote it, for messages.
struct WrittenPath : input::bdf::ValuePath {
  std::string text;
};

/// Reads a path.
/// @throws std::runtime_error saying what is wrong about it.
WrittenPath read_path(std::string_view text);

}  // namespace kelp::app
