#pragma once

#include <array>
#include <string_view>

namespace kelp::input::bdf {

// The keys and words of a knowledge document, for the reader, which passes over others, and for the
// linter, which reports them.

inline constexpr std::array<std::string_view, 12> knowledge_keys = {
    "program",   "schema_kind",  "metadata",     "covalent_radii",     "basis_sets",
    "elsewhere", "point_groups", "axial_groups", "functional_classes", "functional_uses",
    "solvents",  "modules"};

inline constexpr std::array<std::string_view, 8> basis_set_keys = {
    "names", "elements",   "kind",       "all_electron",
    "core",  "spin_orbit", "relativity", "finite_nucleus"};

inline constexpr std::array<std::string_view, 3> elsewhere_keys = {"methods", "functionals",
                                                                   "basis_sets"};

inline constexpr std::array<std::string_view, 2> axial_group_keys = {"odd", "even"};

inline constexpr std::array<std::string_view, 2> functional_use_keys = {"can", "cannot"};

inline constexpr std::array<std::string_view, 3> module_facts_keys = {"needs", "reads", "leaves"};

inline constexpr std::array<std::string_view, 2> basis_kind_names = {"ecp", "auxiliary"};

inline constexpr std::array<std::string_view, 3> core_names = {"small", "large", "f-in-core"};

inline constexpr std::array<std::string_view, 5> relativity_names = {"dkh2", "dkh3", "x2c", "nesc",
                                                                     "any"};

}  // namespace kelp::input::bdf
