#pragma once

/// @file
/// The vocabulary of BDF: which names exist, what they mean, and how their values are laid out.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/validation.hpp"
#include "kelp/input/bdf/value_kind.hpp"

namespace kelp::input::bdf {

/// A condition on another entry of the same module (or of the same nested block).
struct ValueRequirement {
  std::string entry;                  ///< normalised name of the entry that must be there
  std::optional<std::string> equals;  ///< the value that it must have, normalised; unset: any
};

/// The description of one entry, nested entry or easy keyword. Texts are normalised (trimmed, one
/// leading `$` dropped, lower case) unless said otherwise.
struct EntrySchemaInfo {
  std::string name;                                ///< the name under which it is declared
  EntryValueKind kind = EntryValueKind::Scalar;    ///< how its value is laid out
  std::string terminator;                          ///< the line that closes its block; may be empty
  std::string value_type = "string";               ///< string, any, integer, float or number
  std::optional<std::string> default_value;        ///< as written in the schema
  std::vector<std::string> allowed;                ///< the values allowed; empty: any
  std::optional<double> min;                       ///< lower bound of numbers
  std::optional<double> max;                       ///< upper bound of numbers
  bool min_exclusive = false;                      ///< `min` itself is not allowed
  bool max_exclusive = false;                      ///< `max` itself is not allowed
  std::optional<std::uint64_t> arity;              ///< exact number of fields
  std::optional<std::uint64_t> min_arity;          ///< least number of fields
  std::optional<std::uint64_t> max_arity;          ///< greatest number of fields
  std::vector<std::uint64_t> allowed_arities;      ///< numbers of fields allowed; empty: any
  std::optional<std::uint64_t> row_arity;          ///< exact number of columns of a row
  std::optional<std::uint64_t> row_min_arity;      ///< least number of columns of a row
  std::optional<std::uint64_t> row_max_arity;      ///< greatest number of columns of a row
  std::vector<std::uint64_t> row_allowed_arities;  ///< numbers of columns allowed; empty: any
  std::vector<std::string> row_types;      ///< type of each column; the last one holds for the rest
  bool count_line = false;                 ///< rows are preceded by their number
  bool repeatable = false;                 ///< may occur more than once
  std::vector<ValueRequirement> required;  ///< what it needs beside it
  std::vector<std::string> conflicts;      ///< what it must not have beside it
};

/// Where a schema comes from; texts as written in the document, empty where it says nothing.
struct SchemaMetadata {
  std::int32_t schema_version = 0;  ///< version of the document's format
  std::string program;              ///< the program that reads the inputs
  std::string schema_kind;          ///< what the document describes: "input"
  std::string bdf_version;          ///< release of BDF that the vocabulary is that of
  std::string manual_source;        ///< the manual that it was taken from
  std::string manual_revision;      ///< the manual's date or revision
  std::string generated_at;         ///< date of the vocabulary
};

/// An immutable vocabulary. Copies share their contents, and all members may be called from any
/// number of threads at once.
///
/// Every name given to a query is normalised first: trimmed, one leading `$` dropped, lower-cased.
/// No query fails: an unknown name gives its normalised form, false, `EntryValueKind::Raw`, an
/// empty text or an empty optional.
class KELP_BDF_INP_EXPORT InputSchema {
 public:
  struct Impl;

  /// Makes an empty schema, which knows no name.
  InputSchema();
  /// Shares `impl`; a null pointer makes an empty schema.
  explicit InputSchema(std::shared_ptr<const Impl> impl);
  InputSchema(const InputSchema& other);
  InputSchema(InputSchema&& other) noexcept;
  InputSchema& operator=(const InputSchema& other);
  InputSchema& operator=(InputSchema&& other) noexcept;
  ~InputSchema();

  /// Builds a schema from YAML text; a blank text gives an empty schema.
  /// @throws std::runtime_error naming the cause when the text is no schema document.
  static InputSchema from_yaml(std::string_view text);
  /// Builds a schema from a YAML file, given by its UTF-8 path.
  /// @throws std::runtime_error naming the path and the cause.
  static InputSchema from_file(const std::string& path);

  /// Returns the canonical name of a method, given its name or an alias.
  std::string canonical_method(std::string_view name) const;
  /// Tells whether a method of that name or alias is listed.
  bool is_known_method(std::string_view name) const;
  /// Returns the canonical name of a functional, given its name or an alias.
  std::string canonical_functional(std::string_view name) const;
  /// Tells whether a functional of that name or alias is listed.
  bool is_known_functional(std::string_view name) const;
  /// Returns the canonical name of a basis set, given its name or an alias.
  std::string canonical_basis(std::string_view name) const;
  /// Tells whether a basis set of that name or alias is listed, also when the list is open.
  bool is_known_basis(std::string_view name) const;
  /// Returns the canonical name of an easy keyword, given its name or an alias.
  std::string canonical_easy_key(std::string_view name) const;

  /// Returns the canonical form of one token of an easy header: `key=value` with the key's
  /// canonical name, or a method specification with each part's canonical name; without a `#`
  /// comment.
  std::string canonical_easy_token(std::string_view token) const;
  /// Returns "method_spec" for a method specification, else the category of the token's keyword,
  /// else "unknown".
  std::string easy_token_category(std::string_view token) const;
  /// Tells whether the token's keyword, or all parts of its method specification, are known. An
  /// open list of basis sets accepts every basis.
  bool is_known_easy_token(std::string_view token) const;

  /// Returns the canonical name of a module, never with `$`.
  std::string canonical_module(std::string_view name) const;
  /// Tells whether a module of that name or alias exists.
  bool is_known_module(std::string_view name) const;
  /// Tells whether the module may occur more than once; false for an unknown one.
  bool module_repeatable(std::string_view name) const;
  /// Returns the canonical names of all modules, sorted bytewise.
  std::vector<std::string> known_modules() const;

  /// Returns the canonical name of an entry of a module.
  std::string canonical_entry(std::string_view module, std::string_view entry) const;
  /// Tells whether the module has an entry of that name or alias.
  bool is_known_entry(std::string_view module, std::string_view entry) const;
  /// Returns how the entry's value is laid out.
  EntryValueKind entry_value_kind(std::string_view module, std::string_view entry) const;
  /// Returns the line that closes the entry's block.
  std::string entry_terminator(std::string_view module, std::string_view entry) const;
  /// Returns the entry's description.
  std::optional<EntrySchemaInfo> entry_info(std::string_view module, std::string_view entry) const;

  /// Returns the canonical name of a child of a nested block.
  std::string canonical_nested_entry(std::string_view module, std::string_view entry,
                                     std::string_view child) const;
  /// Tells whether the block has a child of that name or alias.
  bool is_known_nested_entry(std::string_view module, std::string_view entry,
                             std::string_view child) const;
  /// Returns how the child's value is laid out.
  EntryValueKind nested_entry_value_kind(std::string_view module, std::string_view entry,
                                         std::string_view child) const;
  /// Returns the child's description.
  std::optional<EntrySchemaInfo> nested_entry_info(std::string_view module, std::string_view entry,
                                                   std::string_view child) const;

  // Lists for tools that show or complete the vocabulary. Names are canonical, aliases are not;
  // both are sorted bytewise. An unknown module or entry gives an empty list.

  /// Returns the names of all entries of a module.
  std::vector<std::string> known_entries(std::string_view module) const;
  /// Returns the names of all children of a nested block.
  std::vector<std::string> known_nested_entries(std::string_view module,
                                                std::string_view entry) const;
  /// Returns the names of all easy keywords.
  std::vector<std::string> known_easy_keywords() const;
  /// Returns the names of all methods.
  std::vector<std::string> known_methods() const;
  /// Returns the names of all functionals.
  std::vector<std::string> known_functionals() const;
  /// Returns the names of all basis sets listed.
  std::vector<std::string> known_basis_sets() const;
  /// Returns the other names of a module.
  std::vector<std::string> module_aliases(std::string_view name) const;
  /// Returns the other names of an entry.
  std::vector<std::string> entry_aliases(std::string_view module, std::string_view entry) const;
  /// Returns the other names of a child of a nested block.
  std::vector<std::string> nested_entry_aliases(std::string_view module, std::string_view entry,
                                                std::string_view child) const;
  /// Returns the other names of an easy keyword.
  std::vector<std::string> easy_keyword_aliases(std::string_view name) const;
  /// Returns the description of an easy keyword.
  std::optional<EntrySchemaInfo> easy_keyword_info(std::string_view name) const;

  /// Tells whether the schema lists no method, no functional, no easy keyword and no module.
  bool empty() const;
  /// Returns where the schema comes from; the reference lives as long as this schema or a copy.
  const SchemaMetadata& metadata() const;

  /// Checks a document and returns the findings in the order of the document. Problems of the
  /// document are never thrown.
  std::vector<ValidationIssue> validate(const BDFData& data,
                                        const ValidationOptions& options) const;

 private:
  friend struct SchemaAccess;

  std::shared_ptr<const Impl> impl_;
};

/// Returns the schema of this process, loaded on the first call from the file that
/// `resolve_schema_path` finds; an empty schema when there is none. The reference stays valid until
/// the process ends. Safe to call from several threads.
/// @throws std::runtime_error when the file is no schema; the next call then tries again.
KELP_BDF_INP_EXPORT const InputSchema& default_schema();

/// Returns the path of the schema file to use, or an empty text when there is none: the file that
/// the environment variable `KELP_BDF_INP_SCHEMA_YAML` names, else `schemas/input/bdf.yaml` as
/// found from `hint` (a folder, or a file in it), from this library's folder and from the program's
/// folder, and upwards from each. The current folder is never searched.
KELP_BDF_INP_EXPORT std::string resolve_schema_path(const std::string& hint);

}  // namespace kelp::input::bdf
