#pragma once

/// @file
/// What an input computes: its molecules with their electrons and basis sets, the references of its
/// SCF calculations, and its tasks in order; for a summary beside an editor, a table of many jobs.
///
///     const Calculation calculation = calculation_of(ParsedInput(text, default_schema()));
///     for (const Calculation::Task& task : calculation.tasks) {
///       std::cout << to_string(task.kind) << '\n';
///     }
///
/// Nothing is guessed. What the input does not say, or does not say with certainty, is absent:
/// where lines were left out by dots, the geometry is in another file, an element is unknown, a
/// value is no number or is stated twice. What the program documents to take without a statement is
/// marked as a default, and is absent where a word that nobody knows may be the statement,
/// misspelt.

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

/// What a part of an input computes.
enum class TaskKind : std::int32_t {
  Scf = 0,                    ///< energy and orbitals of Hartree-Fock or Kohn-Sham
  Mp2 = 1,                    ///< second-order perturbation theory
  Mcscf = 2,                  ///< multi-configuration SCF
  MultiReference = 3,         ///< multi-reference CI or perturbation theory
  Tddft = 4,                  ///< excited states, in the Tamm-Dancoff approximation or not
  SpinOrbitCoupling = 5,      ///< between excited states
  NonadiabaticCouplings = 6,  ///< between states
  Response = 7,               ///< response properties, of which kind is not certain
  Gradient = 8,               ///< of the energy
  Optimisation = 9,           ///< of the geometry
  TransitionState = 10,       ///< search for one
  Frequencies = 11,           ///< with thermochemistry
  RigidScan = 12,             ///< energies along a coordinate
  RelaxedScan = 13,           ///< the same, all other coordinates optimised
  ReactionPath = 14,          ///< from a transition state, or between two end points
  NmrShieldings = 15,         ///< of the nuclei
  ElectronicCoupling = 16,    ///< between charge or energy transfer states
  LocalOrbitals = 17,         ///< localised molecular orbitals
  Fragmentation = 18,         ///< a large molecule in fragments
  VibronicStates = 19,        ///< vibration and electrons of a diatomic molecule together
};

/// Returns what a task is called: `SCF`, `geometry optimisation`; `unknown` for a number that is no
/// task. The view lives for ever.
KELP_BDF_INP_EXPORT std::string_view to_string(TaskKind kind) noexcept;

/// An input as a calculation. Lines are counted from 1; ranges are those of the input's text.
struct Calculation {
  /// Where the input states something.
  struct Origin {
    RecordId record;       ///< the header token, entry or module; none for a default
    std::size_t line = 0;  ///< that the record begins on; 0 for a default
    TextRange range;       ///< the words that say it; empty for a default
  };

  /// A whole number.
  struct Number {
    std::int64_t value = 0;   ///< the number itself
    bool is_default = false;  ///< the input does not state it, and the program takes this
    Origin origin;            ///< of the value
  };

  /// A name of the vocabulary. One of a functional or a basis set need not be listed in it.
  struct Name {
    std::string name;         ///< canonical, in lower case
    bool is_default = false;  ///< the input does not state it, and the program takes this
    Origin origin;            ///< of the name
  };

  /// A basis set.
  struct Basis {
    Name name;                        ///< of the set
    std::vector<std::string> labels;  ///< of elements and atoms that it is for, as written; empty
                                      ///< when it is for all that have no other
  };

  /// A self-consistent field: a `$scf`, or what the header of an easy input without one asks for.
  struct Scf {
    Origin origin;                       ///< of the `$scf`; of the method specification without one
    std::size_t system = 0;              ///< index into `systems`
    std::optional<Number> charge;        ///< total charge, in elementary charges
    std::optional<Number> multiplicity;  ///< spin multiplicity 2S+1
    std::optional<std::int64_t> electrons;  ///< all of them, those in core potentials included
    std::optional<Name> reference;          ///< `rhf`, `uhf`, `rohf`, `rks`, `uks` or `roks`
    std::optional<Name> functional;         ///< unset without one
  };

  /// A molecule. Each `$compass` begins one; an input without one has one.
  struct System {
    Origin origin;                     ///< of the `$compass`; of the geometry without one
    std::optional<std::size_t> atoms;  ///< how many nuclei, ghosts left out
    std::string formula;               ///< of the nuclei, in Hill's order; empty when not certain
    std::vector<Basis> basis_sets;     ///< those that are named, in order
    bool has_inline_basis = false;     ///< the input brings basis data of its own
  };

  /// Something that is computed.
  struct Task {
    TaskKind kind = TaskKind::Scf;  ///< what
    std::size_t system = 0;         ///< index into `systems`
    Origin origin;                  ///< of the module, else of the word of the header
  };

  bool is_complete = false;     ///< it is no excerpt: no part of it was left out
  std::optional<Name> method;   ///< of the header's specification: `tddft`, `hf`
  std::vector<System> systems;  ///< in order
  std::vector<Scf> scfs;        ///< in order
  std::vector<Task> tasks;      ///< in the order of the modules; of an easy input, energies first
};

/// Returns what an input computes. It stands for itself: the input need not outlive it. What a
/// module does depends on its entries, so that one module may be several tasks (`$bdfopt`: an
/// optimisation and frequencies) or none that is certain. A `$bdfopt` runs the modules behind it
/// again and again; they are listed once. Where the header and a module ask for the same task, it
/// is listed with the module. Never throws for what an input holds; may be called from any number
/// of threads at once.
KELP_BDF_INP_EXPORT Calculation calculation_of(const ParsedInput& input);

}  // namespace kelp::input::bdf
