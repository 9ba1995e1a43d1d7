#pragma once

#include <string>
#include <vector>

#include "cli/session.hpp"

namespace kelp::app {

/// Runs the program with its arguments, without the program's name.
ExitStatus run(std::vector<std::string> arguments);

}  // namespace kelp::app
