#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "advice/job.hpp"
#include "advice/report.hpp"

namespace kelp::input::bdf {

// What the themes about excited states share: which reference they start from, and which states are
// stored for later.

/// What a reference is, as far as excited states depend on it.
enum class Shell : std::int32_t {
  Unknown = 0,
  Closed = 1,          ///< rhf, rks, or chosen by the program for a singlet
  Open = 2,            ///< chosen by the program for unpaired electrons
  Unrestricted = 3,    ///< uhf, uks
  RestrictedOpen = 4,  ///< rohf, roks
};

inline bool is_open(Shell shell) {
  return shell == Shell::Open || shell == Shell::Unrestricted || shell == Shell::RestrictedOpen;
}

/// Returns what an SCF refers to; that of a header that names none is the program's choice by the
/// multiplicity. Unknown for a null one.
Shell shell_of(const Job& job, const Scf* scf);
inline Shell shell_of(const Job& job, const Block& block) {
  return shell_of(job, job.scf_of(block));
}

/// Returns how the reference is called in messages: its word as written, else "an open shell".
std::string shell_name(const Job& job, const Scf* scf);

/// Tells whether the header asks for excited states by its method: `tda-soc`.
bool has_excited_method(const Job& job);

/// Tells whether the header's method is one of the Tamm-Dancoff kind.
bool has_tda_method(const Job& job);

/// Tells whether a block of `$tddft` couples stored states, and computes none.
inline bool is_coupling_step(const Block& tddft) {
  return tddft.has("isoc") || tddft.has("nfiles");
}

/// Returns the change of spin that a block of `$tddft` asks for, 0 without one.
inline std::int64_t spin_change_of(const Block& tddft) {
  return tddft.get("isf").integer().value_or(0);
}

/// Tells whether a block may have more entries than are known: lines are left out, or a word in it
/// is perhaps misspelt. Nothing is missing from it then.
inline bool is_open_to_additions(const Block& block) {
  return block.is_elided || block.has_unknown_words;
}

/// Tells whether a list has a number other than zero.
bool has_nonzero(const Setting& list);

/// The states that modules can read from files: of each number, the last `$tddft` that stores it.
struct StoredStates {
  std::map<std::int64_t, const Block*> by_number;
  bool is_certain = true;  ///< no block has lines left out or an unreadable number

  /// Returns the block that stored a number; null when none is known.
  const Block* find(std::int64_t number) const;
  /// Returns the numbers for a message, "1 and 2"; "none" without any.
  std::string numbers() const;
};

/// Returns the `$tddft` that have run when a block of the same system begins; all others of an
/// input whose modules are in no order.
std::vector<const Block*> excitations_before(const Job& job, const Block& block);

/// Returns the states that a block can read.
StoredStates stored_before(const Job& job, const Block& block);

/// Tells whether a block of `$resp` is about excited states.
inline bool is_about_excited_states(const Block& resp) {
  return resp.is("imethod", 2) || resp.has("fnac");
}

/// A state in a row of a list of couplings: a file, an irreducible representation, a number.
struct CoupledState {
  std::optional<std::int64_t> file;
  Word file_word;
  Word root_word;
};

/// Returns the states of all rows of `states` and `pairs`.
std::vector<CoupledState> coupled_states(const Block& resp);

/// Returns the blocks that computed the states that a block of `$resp` works with, each once; none
/// for the ground state, or where it is not certain.
std::vector<const Block*> states_used_by(const Job& job, const Block& resp);

/// Tells whether a system is said to be computed without symmetry: `nosymm`, or the group C(1).
bool is_without_symmetry(const Job& job, const System& system);

/// Gives an entry of a block a value, adding the entry where it is missing.
TextEdit entry_set(const Job& job, const Block& block, const std::string& name,
                   const std::string& value);

}  // namespace kelp::input::bdf
