#pragma once

/// @file
/// The molecule of an input, wherever the input states it: its atoms in the geometry block or in
/// `$compass`, its charge and multiplicity in the header or in `$scf`; and molecules as XYZ text.
///
///     const ParsedInput input(text, default_schema());
///     const Molecule molecule = molecule_of(input);
///     std::cout << hill_formula(molecule.atoms) << '\n' << write_xyz(molecule);
///
/// All functions may be called from any number of threads at once.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::input::bdf {

/// What the coordinates of an input count.
enum class LengthUnit : std::int32_t {
  Angstrom = 0,  ///< what an input without a statement means
  Bohr = 1,      ///< stated by a value that begins with `bohr`, in any case
};

/// A value that the input states about its molecule.
struct StatedValue {
  std::string text;                    ///< the first line of the value, without white space around
  std::optional<std::int64_t> number;  ///< without its comment, as an integer; unset if it is none
  ValuePath path;                      ///< under which it was found
  RecordId record;                     ///< the header token or the entry
};

/// A molecule as an input states it. Nothing is filled in from defaults.
struct Molecule {
  std::vector<AtomRecord> atoms;            ///< in the order of the input, in its own unit
  RecordId geometry;                        ///< the geometry block or the entry of `$compass`
  LengthUnit unit = LengthUnit::Angstrom;   ///< of the coordinates
  std::optional<StatedValue> stated_unit;   ///< unset when the input does not state it
  std::optional<StatedValue> charge;        ///< total charge, in elementary charges
  std::optional<StatedValue> multiplicity;  ///< spin multiplicity 2S+1
};

/// Returns the molecule of a document. Atoms are those of the geometry block; when it has none,
/// those of the first geometry entry of a `$compass`; none where these are internal coordinates. A
/// value counts where it stands in the header; when it is not there, in the first `$scf`, or for
/// the unit in the `$compass` that holds the geometry, else in the first one. Atoms of `$compass`
/// have no location, for a document does not keep it.
KELP_BDF_INP_EXPORT Molecule molecule_of(const BDFData& data, const InputSchema& schema);

/// Returns the molecule of an input. Every atom has a location.
KELP_BDF_INP_EXPORT Molecule molecule_of(const ParsedInput& input);

/// Returns the paths at which an input is to state its charge: in a module input `scf.charge`; else
/// `easy.charge`, and `scf.charge` when there is a `$scf`.
KELP_BDF_INP_EXPORT std::vector<ValuePath> charge_paths(const BDFData& data,
                                                        const InputSchema& schema);

/// Returns the paths at which an input is to state its multiplicity, as `charge_paths` does.
KELP_BDF_INP_EXPORT std::vector<ValuePath> multiplicity_paths(const BDFData& data,
                                                              const InputSchema& schema);

/// Returns the symbol of the element that an atom's label begins with, in any case: `C` for `C12`,
/// `H` for `h_a`. The longer symbol wins: `HO1` is holmium. Empty when the label begins with none.
/// The view lives for ever.
KELP_BDF_INP_EXPORT std::string_view element_of(std::string_view label);

/// Returns the formula of atoms in Hill's order: carbon, hydrogen, the others by their letters;
/// without carbon all by their letters. A label that begins with no element's symbol counts as it
/// stands. Empty when there are no atoms.
KELP_BDF_INP_EXPORT std::string hill_formula(const std::vector<AtomRecord>& atoms);

/// What reading an XYZ text came to.
struct XyzResult {
  std::vector<AtomRecord> atoms;  ///< in angstrom; none when the text is malformed
  std::string comment;            ///< the second line
  std::string error;              ///< what is wrong, in words; empty when all was read
  std::size_t line = 0;           ///< where it is wrong, counted from 1; 0 without an error
};

/// Reads an XYZ text: the number of atoms, a comment line, and for each atom a row with its symbol
/// or label and its coordinates in angstrom. More columns, and empty lines at the end, are passed
/// over.
KELP_BDF_INP_EXPORT XyzResult read_xyz(std::string_view text);

/// Returns a molecule as XYZ text, in angstrom, each atom with its element's symbol, or its label
/// where that begins with none. Coordinates in angstrom read back as the same numbers; those in
/// bohr are multiplied by 0.529177210903. Line ends within the comment become blanks.
KELP_BDF_INP_EXPORT std::string write_xyz(const Molecule& molecule, std::string_view comment = {});

}  // namespace kelp::input::bdf
