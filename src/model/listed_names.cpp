#include "model/listed_names.hpp"

#include <array>

namespace kelp::input::bdf {
namespace {

struct NameEntry {
  std::string_view module;
  std::string_view entry;
  ListedNames names;
};

constexpr auto name_entries = std::to_array<NameEntry>({
    {"scf", "dft", ListedNames::Functionals},
    {"compass", "basis", ListedNames::BasisSets},
    {"compass", "basis-block", ListedNames::BasisRows},
    {"compass", "ri-j", ListedNames::BasisSets},
    {"compass", "ri-k", ListedNames::BasisSets},
    {"compass", "ri-c", ListedNames::BasisSets},
});

}  // namespace

ListedNames listed_names_of(std::string_view module, std::string_view entry) {
  for (const NameEntry& item : name_entries) {
    if (item.module == module && item.entry == entry) {
      return item.names;
    }
  }
  return ListedNames::None;
}

}  // namespace kelp::input::bdf
