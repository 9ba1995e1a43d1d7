#pragma once

/// @file
/// The names of a vocabulary, to complete what a user types and to tell what a misspelt name may
/// have been meant to be:
///
///     const NameLists names(schema);
///     similar_names("chrage", names.entries("scf"));  // "charge"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

/// The names that a schema knows, canonical names and aliases alike. Every list is made once, when
/// this is, and is sorted bytewise without repetitions; modules, entries and keywords are given to
/// a query by any of their names. Copies share the lists, and all members may be called from any
/// number of threads at once. A reference lives as long as this or a copy.
class KELP_BDF_INP_EXPORT NameLists {
 public:
  /// Makes the lists of a schema, which need not outlive this.
  explicit NameLists(const InputSchema& schema);
  NameLists(const NameLists& other);
  NameLists(NameLists&& other) noexcept;
  NameLists& operator=(const NameLists& other);
  NameLists& operator=(NameLists&& other) noexcept;
  ~NameLists();

  /// Returns the names of all modules.
  const std::vector<std::string>& modules() const;
  /// Returns the names of all entries of a module; none for an unknown one.
  const std::vector<std::string>& entries(std::string_view module) const;
  /// Returns the names of all children of a nested block; none for an unknown one.
  const std::vector<std::string>& nested_entries(std::string_view module,
                                                 std::string_view entry) const;
  /// Returns the canonical names of the modules that have an entry of that name or alias.
  const std::vector<std::string>& modules_with_entry(std::string_view entry) const;
  /// Returns the names of all easy keywords.
  const std::vector<std::string>& easy_keywords() const;
  /// Returns the names of all methods.
  const std::vector<std::string>& methods() const;
  /// Returns the names of all functionals.
  const std::vector<std::string>& functionals() const;
  /// Returns the names of all basis sets listed.
  const std::vector<std::string>& basis_sets() const;

 private:
  struct Lists;

  std::shared_ptr<const Lists> lists_;
};

/// Returns those of the candidates that a name is likely to be a slip of, the nearest first,
/// without regard to case; none that is the name itself, and at most three. A slip is a letter too
/// many, too few, another letter, or two neighbours that changed their positions.
KELP_BDF_INP_EXPORT std::vector<std::string> similar_names(
    std::string_view name, const std::vector<std::string>& candidates);

/// Returns names as a choice for a sentence: "'a'", "'a' or 'b'", "'a', 'b' or 'c'"; empty for
/// none.
KELP_BDF_INP_EXPORT std::string quoted_choice(const std::vector<std::string>& names);

}  // namespace kelp::input::bdf
