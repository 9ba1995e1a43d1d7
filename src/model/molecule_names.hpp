#pragma once

#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

// The names that the library itself reads and writes. All others are the vocabulary's.

inline constexpr const char* compass_module = "compass";
inline constexpr const char* scf_module = "scf";
inline constexpr const char* geometry_entry = "geometry";
inline constexpr const char* unit_name = "unit";
inline constexpr const char* charge_name = "charge";
inline constexpr const char* multiplicity_name = "spinmulti";

inline constexpr double angstrom_per_bohr = 0.529177210903;

/// Tells whether a stated unit is the bohr: it begins with `bohr`, in any case.
bool is_bohr(std::string_view unit);

/// Tells whether an entry holds atoms: a block called `geometry`, or that and more (`geometry2`,
/// where a path of reactions ends).
bool is_geometry_entry(const ModuleEntry& entry);
/// The same by names, of any entry that the schema knows.
bool is_geometry_entry(const InputSchema& schema, std::string_view module, std::string_view entry);

/// Where an input states its charge and its multiplicity.
struct NumberHomes {
  bool header = false;  ///< as keywords of the header
  bool scf = false;     ///< as entries of `$scf`
};

/// Returns where charge and multiplicity are to be written: in `$scf` of a module input, whether or
/// not it is there; else in the header, and in a `$scf` that is there.
NumberHomes homes_of_numbers(const BDFData& data, const InputSchema& schema);

}  // namespace kelp::input::bdf
