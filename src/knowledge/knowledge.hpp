#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "schema/name_map.hpp"

namespace kelp::input::bdf {

/// A set of elements by atomic number.
using ElementSet = std::bitset<128>;

/// Reads atomic numbers and ranges of them: "1 3-20"; unset when the text is anything else.
std::optional<ElementSet> read_elements(std::string_view text);

/// What a basis set is contracted for.
enum class Relativity : std::int32_t { None = 0, Dkh2, Dkh3, X2c, Nesc, Any };

/// How much the core potentials of a basis set stand for. One with the open f shell in the core may
/// hold an odd number of electrons; all others are even.
enum class CoreSize : std::int32_t { Unknown = 0, Small, Large, FInCore };

/// A basis set of the program's library.
struct BasisSet {
  std::string name;         ///< as the manual spells it
  ElementSet elements;      ///< that it has functions for
  ElementSet all_electron;  ///< those of them without a core potential
  bool is_ecp = false;      ///< has core potentials, for some elements at least
  bool is_auxiliary = false;
  bool has_spin_orbit = false;  ///< its potentials have a spin-orbit part
  bool has_finite_nucleus = false;
  CoreSize core = CoreSize::Unknown;
  Relativity relativity = Relativity::None;

  bool covers(int element) const { return elements.test(static_cast<std::size_t>(element)); }
  bool has_core_of(int element) const {
    return is_ecp && covers(element) && !all_electron.test(static_cast<std::size_t>(element));
  }
};

/// What is known of a module beside its entries.
struct ModuleFacts {
  std::vector<std::string> needs;   ///< modules that run before it as a rule
  std::vector<std::string> reads;   ///< endings of files
  std::vector<std::string> leaves;  ///< endings of files
};

/// What an experienced user knows beside the vocabulary; each part may be absent. Immutable; copies
/// share their contents. Names are given in any case, canonical, without `$`.
class Knowledge {
 public:
  struct Impl;

  /// Knows nothing.
  Knowledge();
  explicit Knowledge(std::shared_ptr<const Impl> impl);

  /// Reads a document; what has an unknown key or a wrong type is passed over.
  /// @throws an exception derived from std::exception when the text is no YAML.
  static Knowledge from_yaml(std::string_view text);

  /// Returns a basis set, or null; lives as long as this or a copy.
  const BasisSet* basis_set(std::string_view name) const;
  /// Tells whether any basis set is known.
  bool knows_basis_sets() const;
  /// Returns the names of all basis sets, as the manual spells them, in the document's order.
  std::vector<std::string> basis_set_names() const;
  /// Return the names of methods, functionals and basis sets that are known in the field, and that
  /// the program's manual does not list; in the document's order and case.
  const std::vector<std::string>& methods_elsewhere() const;
  const std::vector<std::string>& functionals_elsewhere() const;
  const std::vector<std::string>& basis_sets_elsewhere() const;
  /// Returns the names of the irreducible representations of a point group in BDF's order, `D(2h)`
  /// or `C(LIN)`; none for a group of which nothing is known.
  std::vector<std::string> irreps_of(std::string_view group) const;
  /// Tells whether a group is Abelian; unset for a group of which nothing is known.
  std::optional<bool> is_abelian(std::string_view group) const;
  /// Returns the class of a functional, "hybrid-gga"; empty for an unknown one.
  std::string_view functional_class(std::string_view functional) const;
  /// Tells whether a functional can be used for something, "gradient"; unset where nothing is said.
  std::optional<bool> can(std::string_view functional, std::string_view use) const;
  /// Returns the names of the functionals, or of classes of them, that are said to be usable for
  /// something, sorted; none where nothing is said.
  std::vector<std::string> functionals_for(std::string_view use) const;
  /// Returns the names of solvents, in the document's order; there may be more.
  const std::vector<std::string>& solvents() const;
  /// Returns what is known of a module, or null; lives as long as this or a copy.
  const ModuleFacts* module(std::string_view name) const;
  /// Returns a covalent radius in angstrom, of the element with a symbol; unset when none is known.
  std::optional<double> covalent_radius(std::string_view symbol) const;

 private:
  std::shared_ptr<const Impl> impl_;
};

struct Knowledge::Impl {
  struct Uses {
    NameMap<bool> functionals;  ///< those that can be used, and those that cannot
  };
  struct Axial {
    std::vector<std::string> odd;
    std::vector<std::string> even;
  };

  std::vector<std::string> basis_order;
  NameMap<std::shared_ptr<const BasisSet>> basis_sets;
  std::vector<std::string> methods_elsewhere;
  std::vector<std::string> functionals_elsewhere;
  std::vector<std::string> basis_sets_elsewhere;
  NameMap<std::vector<std::string>> point_groups;
  NameMap<Axial> axial_groups;
  NameMap<std::string> functional_classes;
  NameMap<Uses> uses;
  std::vector<std::string> solvents;
  NameMap<ModuleFacts> modules;
  NameMap<double> radii;
};

/// Reads a document as `Knowledge::from_yaml` does.
std::shared_ptr<const Knowledge::Impl> read_knowledge(std::string_view text);

/// Returns the knowledge of this process, loaded on the first call from `bdf-knowledge.yaml` in the
/// folder of the schema, else from where the schema is looked for. One that knows nothing when
/// there is no such file, or when it cannot be read: advice is then not given, which harms nobody.
/// The reference stays valid until the process ends. Safe to call from several threads.
const Knowledge& default_knowledge();

}  // namespace kelp::input::bdf
