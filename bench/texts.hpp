#pragma once

#include <cstddef>
#include <string>

namespace kelp::bench {

/// Returns an input of modules with ten keywords each, every keyword with a value of its own line
/// behind it; nothing is wrong about it. A module takes 23 lines.
std::string keywords(std::size_t modules);

/// Returns an easy input with so many atoms.
std::string atoms(std::size_t count);

/// Returns an input of so many `$scf`, for edits.
std::string same_modules(std::size_t count);

constexpr std::size_t lines_of_module = 23;

}  // namespace kelp::bench
