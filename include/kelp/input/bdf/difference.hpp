#pragma once

/// @file
/// In what two inputs differ for the program that reads them: values, modules, atoms, words of the
/// header; for a review of a change, a table of a campaign.
///
///     const ParsedInput before(old_text, default_schema());
///     const ParsedInput after(new_text, default_schema());
///     for (const InputDifference& difference : find_differences(before, after)) {
///       std::cout << to_string(difference.kind) << ' ' << difference.path() << '\n';
///     }
///
/// Layout makes no difference: blanks, comments, letter case, aliases, how a number is written,
/// whether a value stands behind its keyword, the order of the entries of a module and of the words
/// of the header. The order of modules, of atoms and of the rows of a value does. Whether a value
/// is stated makes a difference, even where it is what the program takes without.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::input::bdf {

/// What became of something.
enum class DifferenceKind : std::int32_t {
  Added = 0,    ///< only the second input has it
  Removed = 1,  ///< only the first input has it
  Changed = 2,  ///< both have it, with other values
  Moved = 3,    ///< a module that both have, at another step of the calculation
};

/// Returns "added", "removed", "changed" or "moved"; "unknown" for a number that is none. The view
/// lives for ever, and any number of threads may ask at once.
KELP_BDF_INP_EXPORT std::string_view to_string(DifferenceKind kind) noexcept;

/// What differs.
enum class DifferingThing : std::int32_t {
  ScriptName = 0,    ///< the name behind `#!`
  HeaderWord = 1,    ///< a keyword of the header, or a part of the method specification
  Atom = 2,          ///< an atom of a geometry
  GeometryLine = 3,  ///< any other line of a geometry
  Module = 4,        ///< a module as a whole
  Entry = 5,         ///< an entry of a module, or of a nested block
  Statement = 6,     ///< a line between modules: a command of the shell, a line of a database
};

/// Returns "script name", "header word", "atom", "geometry line", "module", "entry" or "statement";
/// "unknown" for a number that is none. The view lives for ever, and any number of threads may ask.
KELP_BDF_INP_EXPORT std::string_view to_string(DifferingThing thing) noexcept;

/// Something as one of the two inputs has it.
struct DifferenceSide {
  std::string path;                ///< `scf#2.charge`, `easy.basis`, `geometry`; empty for what has
                                   ///< none: a script name, a line between modules
  std::vector<std::string> lines;  ///< what it says, without comments; none for a module
  std::size_t atom = 0;  ///< which atom of its geometry it is, from 1; 0 for anything else
  RecordId record;       ///< none for a script name
  std::size_t line = 0;  ///< that it begins on; 0 for a script name that is not written
  TextRange range;       ///< all of its lines; of a header word the word
};

/// One thing in which two inputs differ.
struct InputDifference {
  DifferenceKind kind = DifferenceKind::Changed;  ///< what became of it
  DifferingThing thing = DifferingThing::Entry;   ///< what it is
  std::optional<DifferenceSide> before;           ///< unset for what was added
  std::optional<DifferenceSide> after;            ///< unset for what was removed

  /// Returns its path in the second input, in the first one where only that has it.
  const std::string& path() const { return after ? after->path : before->path; }
};

/// Returns in what two inputs differ: the script name, the header, the geometry, then modules and
/// what stands between them, in order. A module that only one of them has is one difference. Names
/// are compared as the schema of each input has them. Coordinates are compared as numbers, in
/// angstrom and to a millionth where the units differ. Safe to call from any number of threads;
/// only a failed allocation throws.
KELP_BDF_INP_EXPORT std::vector<InputDifference> find_differences(const ParsedInput& before,
                                                                  const ParsedInput& after);

}  // namespace kelp::input::bdf
