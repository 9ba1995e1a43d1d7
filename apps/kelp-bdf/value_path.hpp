#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelp::app {

/// Names a part of an input, as users write it on the command line.
struct ValuePath {
  enum class Kind {
    Geometry,     ///< geometry
    EasyKeyword,  ///< easy.charge
    Module,       ///< tddft, tddft#2
    Entry,        ///< scf.charge, scf#2.charge
    Child,        ///< scf.block.keyword
  };

  Kind kind = Kind::Entry;
  std::string text;              ///< as written
  std::string module;            ///< unset for the first two kinds
  std::size_t module_index = 0;  ///< among the modules of that name, from 0; users count from 1
  std::string name;              ///< of the keyword or entry
  std::string child;
};

/// Reads a path.
/// @throws std::runtime_error saying what is wrong about it.
ValuePath parse_path(std::string_view text);

}  // namespace kelp::app
