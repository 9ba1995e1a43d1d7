#pragma once

#include <string>

namespace kelp::core::resource {

/// Returns the absolute path of the shared library (or program) that this code was linked into;
/// empty when the system tells only a name relative to some former current folder.
std::string running_module_path();

/// Returns the absolute path of the running program; empty when the system does not tell.
std::string executable_path();

}  // namespace kelp::core::resource
