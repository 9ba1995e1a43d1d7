#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"

namespace kelp::app {

/// Reads the text of an XYZ file: the number of atoms, a comment line, and a row for each atom with
/// its symbol and its coordinates in angstrom. More columns are passed over.
/// @throws std::runtime_error naming the file, the line and what is wrong there.
std::vector<input::bdf::AtomRecord> read_xyz(const std::string& name, std::string_view text);

}  // namespace kelp::app
