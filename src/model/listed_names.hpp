#pragma once

#include <cstdint>
#include <string_view>

namespace kelp::input::bdf {

/// Which list of the vocabulary the values of an entry are from. Both lists are open, here more
/// than in the header: a basis set may be a file of the user's own.
enum class ListedNames : std::int32_t {
  None,
  Functionals,
  BasisSets,
  BasisRows,  ///< a basis set alone on its line, or behind the atoms that get it: `C,N = 6-31g`
};

/// Returns the list that the values of an entry are from, given by canonical names.
ListedNames listed_names_of(std::string_view module, std::string_view entry);

}  // namespace kelp::input::bdf
