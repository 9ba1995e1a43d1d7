#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parsed_input.hpp"

namespace kelp::input::bdf {

// How records are written that the text has not had: like those around them.

/// How the lines of an entry are indented.
struct Indentation {
  std::string keyword;
  std::string value;
};

/// Returns the indentation of the entries around a module's `entry`-th one; of the module's first
/// entries, or of those of another module, where there are none near; else that of the canonical
/// layout.
Indentation indentation_near(const ParsedInput& input, std::size_t module, std::size_t entry);

/// Returns the white space that a line begins with.
std::string indentation_of_line(const ParsedInput& input, std::size_t line);

/// Returns the lines of a new module, its name and its end indented by `margin`.
std::vector<std::string> lines_of(const Module& module, const std::string& margin,
                                  const Indentation& indentation);

/// Returns the lines of a new entry or child.
std::vector<std::string> lines_of(const ModuleEntry& entry, const Indentation& indentation);

}  // namespace kelp::input::bdf
