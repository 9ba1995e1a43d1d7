#pragma once

/// @file
/// What the names of a vocabulary mean, in sentences of the vocabulary's own, for a host that shows
/// them beside a name or a value:
///
///     entry_summary(schema, "scf", "guess");                  // "How the first orbitals are
///     made." entry_value_meanings(schema, "scf", "guess").front();   // {"atom", "sum of atomic
///     densities"}
///
/// Names are given by any of their spellings, as to the queries of `InputSchema`. A text is on one
/// line; it is empty when the name is unknown or the vocabulary says nothing about it, and English
/// where there is none in the language asked for. All functions may be called from any number of
/// threads at once.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

/// A language that a vocabulary has sentences in.
enum class Language : std::int32_t {
  English = 0,  ///< of every vocabulary that says what its names mean
  Chinese = 1,  ///< simplified
};

/// Returns the language for a locale's name or a language tag: Chinese for what begins with `zh`
/// ("zh_CN.UTF-8", "zh-Hans"), English for anything else. The name is that of the caller's choice;
/// the library itself asks neither the environment nor the locale.
KELP_BDF_INP_EXPORT Language language_of_locale(std::string_view name) noexcept;

/// Returns in a sentence what a module is for.
KELP_BDF_INP_EXPORT std::string module_summary(const InputSchema& schema, std::string_view module,
                                               Language language = Language::English);
/// Returns in a sentence what an entry of a module does.
KELP_BDF_INP_EXPORT std::string entry_summary(const InputSchema& schema, std::string_view module,
                                              std::string_view entry,
                                              Language language = Language::English);
/// Returns in a sentence what a child of a nested block does.
KELP_BDF_INP_EXPORT std::string nested_entry_summary(const InputSchema& schema,
                                                     std::string_view module,
                                                     std::string_view entry, std::string_view child,
                                                     Language language = Language::English);
/// Returns in a sentence what an easy keyword does.
KELP_BDF_INP_EXPORT std::string easy_keyword_summary(const InputSchema& schema,
                                                     std::string_view keyword,
                                                     Language language = Language::English);
/// Returns in a sentence what a method is.
KELP_BDF_INP_EXPORT std::string method_summary(const InputSchema& schema, std::string_view method,
                                               Language language = Language::English);
/// Returns in a sentence what a functional is.
KELP_BDF_INP_EXPORT std::string functional_summary(const InputSchema& schema,
                                                   std::string_view functional,
                                                   Language language = Language::English);
/// Returns in a sentence what a basis set is: its own, or else that of its family.
KELP_BDF_INP_EXPORT std::string basis_summary(const InputSchema& schema, std::string_view basis,
                                              Language language = Language::English);

/// A family of basis sets, which share the beginning of their names.
struct BasisFamily {
  std::string name;                   ///< as written in the schema
  std::string summary;                ///< what they have in common; may be empty
  std::vector<std::string> prefixes;  ///< beginnings of canonical names, lower case
};

/// Returns the family of a basis set: the one with the longest beginning of its canonical name, of
/// equal ones the first in the schema. Unset when the basis set is unknown or of no family.
KELP_BDF_INP_EXPORT std::optional<BasisFamily> basis_family(const InputSchema& schema,
                                                            std::string_view basis,
                                                            Language language = Language::English);

/// A value and what it means.
struct ValueMeaning {
  std::string value;    ///< normalised as `EntrySchemaInfo::allowed` is
  std::string meaning;  ///< a few words; empty where the schema has none
};

/// Returns the values of an entry with their meanings. Where the list of values is closed and any
/// of them has a meaning, all are returned in the list's order; else those that have one, in the
/// order of the schema.
KELP_BDF_INP_EXPORT std::vector<ValueMeaning> entry_value_meanings(
    const InputSchema& schema, std::string_view module, std::string_view entry,
    Language language = Language::English);
/// Returns the meanings of the values of a child of a nested block.
KELP_BDF_INP_EXPORT std::vector<ValueMeaning> nested_entry_value_meanings(
    const InputSchema& schema, std::string_view module, std::string_view entry,
    std::string_view child, Language language = Language::English);
/// Returns the meanings of an easy keyword's values.
KELP_BDF_INP_EXPORT std::vector<ValueMeaning> easy_keyword_value_meanings(
    const InputSchema& schema, std::string_view keyword, Language language = Language::English);

}  // namespace kelp::input::bdf
