#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "advice/geometry.hpp"
#include "advice/neighbours.hpp"
#include "advice/setting.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "knowledge/knowledge.hpp"

namespace kelp::input::bdf {

// The view that all advice is drawn from: an input as a calculation. It is made once for an input,
// in a time that grows with its length; names given to it are canonical ones of the vocabulary, in
// lower case. Everything in it lives as long as the `Job`, and the `Job` as long as the input.

/// The entries of a module by name, those known. Rules ask for names again and again, and most
/// often in vain: a bit for each name that is there tells that of most.
class EntriesByName {
 public:
  struct Entry {
    std::string_view name;
    std::size_t index;  ///< among the module's entries
  };

  /// Makes room for as many entries as a module has.
  void reserve(std::size_t count) { all_.reserve(count); }
  /// Adds an entry; `sort` is to be called behind the last one.
  void add(std::string_view name, std::size_t index);
  void sort();

  bool empty() const { return all_.empty(); }
  /// Returns the entries of a name, in the order of the module.
  std::span<const Entry> of(std::string_view name) const;
  /// Returns the first entry of each name, in the order of the names.
  std::vector<Entry> first_of_each() const;

 private:
  static std::uint64_t bit_of(std::string_view name);

  std::uint64_t bits_ = 0;
  std::vector<Entry> all_;
};

/// A module of the input with its entries by name.
struct Block {
  const ParsedInput* input = nullptr;
  std::size_t index = 0;           ///< among the input's modules
  std::string_view name;           ///< canonical, without `$`
  std::size_t system = 0;          ///< index into `Job::systems`
  std::optional<std::size_t> scf;  ///< index into `Job::scfs` of the nearest before it
  bool is_elided = false;          ///< a line of dots in it says that lines were left out
  bool has_unknown_words = false;
  EntriesByName entries;

  RecordId record() const { return RecordId::of_module(index); }
  /// Tells whether all its lines are there and understood: what it does not ask for is not wanted.
  bool is_whole() const { return !is_elided && !has_unknown_words; }
  /// Tells whether it has an entry.
  bool has(std::string_view entry) const { return !entries.of(entry).empty(); }
  /// Returns the first entry of a name; one that is not there when it has none.
  Setting get(std::string_view entry) const;
  /// Returns all entries of a name.
  std::vector<Setting> all(std::string_view entry) const;
  /// Tells whether an entry is one integer, this one: `is("iaufbau", 2)`.
  bool is(std::string_view entry, std::int64_t value) const;
};

/// Which basis sets a system uses.
struct BasisChoice {
  struct Assignment {
    Word label;                     ///< of an element or of atoms: `Fe`, `H1`
    Word name;                      ///< of the set, as written
    std::string basis;              ///< canonical
    const BasisSet* set = nullptr;  ///< what is known of it; null when nothing is
  };

  Setting setting;    ///< `basis` or `basis-block` of `$compass`; else none
  Word name;          ///< of the set for all that is not assigned, as written; may be empty
  std::string basis;  ///< the same, canonical; empty when there is none
  const BasisSet* set = nullptr;  ///< what is known of it; null when nothing is
  std::vector<Assignment> assignments;
  std::map<std::string, std::size_t, std::less<>> by_label;  ///< in lower case, to `assignments`
  bool has_inline = false;  ///< the input brings basis data of its own

  /// Returns the line that gives a centre its set; null when it gets the set of all the others.
  const Assignment* assignment_of(const Centre& centre) const;
  /// Returns the canonical name of the set that a centre gets; empty when it gets none.
  const std::string& of(const Centre& centre) const;
  /// Returns what is known of the set that a centre gets; null when nothing is.
  const BasisSet* set_of(const Centre& centre) const;
  /// Returns the same as it is written.
  Word written_for(const Centre& centre) const;
};

/// A molecule with all that is computed of it. Each `$compass` begins one, except that what stands
/// before the first, and the header, belong to the first.
struct System {
  const Block* compass = nullptr;  ///< null in an easy input without one
  Geometry geometry;               ///< of its `$compass`, else of the header
  BasisChoice basis;
  std::vector<const Block*> blocks;  ///< in order, `$compass` included
};

/// What a self-consistent field refers to.
enum class Reference : std::int32_t { Rhf, Uhf, Rohf, Rks, Uks, Roks };

/// Returns the entry that names a reference: `rhf`. The view lives for ever.
std::string_view name_of(Reference reference);
/// Tells whether a `$scf` names a reference.
bool names_reference(const Block& scf);

/// An SCF calculation: a `$scf`, or what the header of an easy input without one asks for.
struct Scf {
  const Block* block = nullptr;  ///< null for the header
  const System* system = nullptr;
  Setting charge;                      ///< where it is stated: in the block, else in the header
  Setting multiplicity;                ///< likewise
  std::optional<Reference> reference;  ///< unset when none, or more than one, is named
  TextRange reference_word;            ///< empty without one
  RecordId reference_record;
  std::string functional;     ///< canonical; empty when none is named
  TextRange functional_word;  ///< empty without one

  bool is_restricted() const { return is(Reference::Rhf) || is(Reference::Rks); }
  bool is_unrestricted() const { return is(Reference::Uhf) || is(Reference::Uks); }
  bool is_restricted_open() const { return is(Reference::Rohf) || is(Reference::Roks); }
  bool is_open_shell() const { return is_unrestricted() || is_restricted_open(); }
  bool is_kohn_sham() const;
  bool is(Reference wanted) const { return reference == wanted; }

  /// Returns the number of electrons, core potentials or not; unset when it is not certain.
  std::optional<std::int64_t> electrons() const;
  /// Returns the multiplicity that is stated; unset when none is, or it is no integer.
  std::optional<std::int64_t> stated_multiplicity() const { return multiplicity.integer(); }
};

/// A line of commands between modules, `% cp ...`.
struct ShellLine {
  Word text;
  std::size_t before =
      0;  ///< index of the module that follows; the number of modules after the last
};

/// An input as a calculation.
class Job {
 public:
  explicit Job(const ParsedInput& input, const InputFolder* folder = nullptr);
  Job(const Job&) = delete;
  Job(Job&&) = delete;
  Job& operator=(const Job&) = delete;
  Job& operator=(Job&&) = delete;
  ~Job() = default;

  const ParsedInput& input;
  const InputFolder* folder;  ///< null when the host knows nothing of it; then stay silent
  std::vector<Block> blocks;  ///< all modules, in order
  std::vector<System> systems;
  std::vector<Scf> scfs;  ///< in order
  std::vector<ShellLine> shell_lines;

  const BDFData& data() const { return input.data(); }
  const InputSchema& schema() const { return input.schema(); }
  const Knowledge& knowledge() const { return default_knowledge(); }

  // What the rules are gated by.

  /// Tells whether it is a calculation, not an excerpt of one: it has a header with a specification
  /// or a `$compass`, and no line of dots between its modules. What is missing from anything else
  /// is missing on purpose.
  bool is_complete() const { return is_complete_; }
  /// Tells whether it has modules only. In any other input the program adds what is missing.
  bool is_advanced() const { return data().mode == InputMode::Module; }
  /// Tells whether the modules that it has are all that will run: it is a calculation of modules
  /// only, and all their names are known. Only then is a module missing that is not there.
  bool lists_all_modules() const;
  /// Tells whether it has a module.
  bool has(std::string_view module) const { return !all(module).empty(); }
  /// Tells whether `$bdfopt` runs the other modules itself, whatever their order.
  bool is_driven() const { return has("bdfopt"); }

  // The header.

  /// Returns a keyword of the header, the first of its name: `charge`.
  Setting header(std::string_view keyword) const;
  /// Returns the index of the header's specification among its words; unset without one.
  std::optional<std::size_t> specification() const { return specification_; }
  /// Returns a part of the method specification, canonical; empty when it has none.
  std::string method() const;
  std::string functional() const;
  std::string basis() const;

  // Modules among each other.

  /// Returns the modules of a name, in order.
  const std::vector<const Block*>& all(std::string_view module) const;
  /// Returns the last module of a name before a block, of the same system; null when there is none.
  const Block* last_before(const Block& block, std::string_view module) const;
  /// Returns the modules of a name before a block, of the same system.
  std::vector<const Block*> all_before(const Block& block, std::string_view module) const;
  /// Returns the modules of a name behind a block, of the same system.
  std::vector<const Block*> all_after(const Block& block, std::string_view module) const;
  /// Returns the SCF whose orbitals a block works with: the nearest before it; where the program
  /// orders the modules itself, any; null when there is none.
  const Scf* scf_of(const Block& block) const { return block.scf ? &scfs[*block.scf] : nullptr; }
  const System& system_of(const Block& block) const { return systems[block.system]; }

  // Atoms in space.

  /// Returns the atoms of a system in space. They are made when they are asked for first: a `Job`
  /// is for one thread.
  const Surroundings& surroundings_of(const System& system) const;

  // Symmetry.

  /// Returns where the point group of a system is chosen: in its `$compass`, else in the header.
  Setting group_of(const System& system) const;
  /// Tells whether a system may be computed with symmetry: nothing turns it off.
  bool may_have_symmetry(const System& system) const;

  // Basis sets.

  /// Tells whether a core of the system may hold an odd number of electrons: the parity of the
  /// electrons then proves nothing.
  bool may_have_odd_core(const System& system) const;
  /// Tells whether every atom is known to have a basis set for all of its electrons.
  bool is_all_electron(const System& system) const;

 private:
  void read_blocks();
  void read_systems();
  void read_scfs();
  void read_shell_lines();
  void mark_elisions();
  Scf scf_from(const Block* block, const System& system) const;

  std::optional<std::size_t> specification_;
  bool is_complete_ = false;
  bool has_elision_outside_ = false;
  std::unordered_map<std::string_view, std::vector<const Block*>> by_name_;
  mutable std::vector<std::optional<Surroundings>> surroundings_;  ///< of each system
};

}  // namespace kelp::input::bdf
