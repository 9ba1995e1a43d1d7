#pragma once

/// @file
/// From document to changed document and back to text.

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/validation.hpp"

namespace kelp::input::bdf {

/// Holds a document and changes it, keeping the statement order and its module indices right.
///
/// All names are brought to their canonical form through the schema; none is refused. Nothing is
/// validated by an edit. Pointers returned point into the document and stay valid until the next
/// edit that grows or shrinks the vector that holds the record. An editor is a plain value, used by
/// one thread at a time. Only failed allocations throw, except where said otherwise.
class KELP_BDF_INP_EXPORT BDFEditor {
 public:
  /// Takes over the document and makes sure that it has a statement order.
  BDFEditor(BDFData data, const InputSchema& schema);
  BDFEditor(const BDFEditor& other);
  BDFEditor(BDFEditor&& other) noexcept;
  BDFEditor& operator=(const BDFEditor& other);
  BDFEditor& operator=(BDFEditor&& other) noexcept;
  ~BDFEditor();

  /// Returns the document as it stands; the reference lives as long as the editor.
  const BDFData& data() const noexcept;
  /// Replaces the document, keeping the schema.
  void set_data(BDFData data);
  /// Changes the layout in which the document is written, and nothing else.
  void set_mode(InputMode mode);
  /// Builds the statement order if there is none: all modules, then all free lines.
  void ensure_statement_order();
  /// Repairs the statement order after `data().modules[erased_index]` was erased.
  void rebuild_statement_module_indices_after_erase(std::size_t erased_index);
  /// Returns the `index`-th module of that name, counted from 0, or null. Aliases count as names.
  Module* module(std::string_view name, std::size_t index = 0) noexcept;
  /// @copydoc module
  const Module* module(std::string_view name, std::size_t index = 0) const noexcept;
  /// Validates the document with default options.
  std::vector<ValidationIssue> validate() const;

  /// Makes a module without adding it.
  Module make_module(std::string name) const;
  /// Adds a module at the end and returns it.
  Module* append_module(std::string name);
  /// Returns the first module of that name, adding it if there is none.
  Module* upsert_module(std::string name);
  /// Removes the `index`-th module of that name; false if there is none.
  bool remove_module(std::string_view name, std::size_t index);
  /// Removes all modules of that name; false if there was none.
  bool remove_module(std::string_view name);

  /// Adds an entry at the end of the `module_index`-th module of that name. Modules are added until
  /// there is such a one. Never returns null.
  ModuleEntry* append_module_entry(std::string_view module, std::string name,
                                   std::vector<std::string> values, std::size_t module_index = 0);
  /// Replaces the values of the first entry of that name (dropping its children), or adds it as
  /// `append_module_entry` does. Never returns null.
  ModuleEntry* set_module_entry(std::string_view module, std::size_t module_index, std::string name,
                                std::vector<std::string> values);
  /// The same for the first module of that name.
  ModuleEntry* set_module_entry(std::string_view module, std::string name,
                                std::vector<std::string> values);
  /// Removes the `occurrence`-th entry of that name, or all of them when it is unset; false if
  /// nothing matched.
  bool remove_module_entry(std::string_view module, std::size_t module_index, std::string_view name,
                           std::optional<std::size_t> occurrence);
  /// Removes all entries of that name from the first module of that name.
  bool remove_module_entry(std::string_view module, std::string_view name);

  /// Makes a header token without adding it.
  EasyToken make_easy_token(std::string text) const;
  /// Replaces the whole header; blank texts are left out, none is split further.
  void set_easy_tokens(const std::vector<std::string>& tokens);
  /// Adds one token at the end; a blank text does nothing.
  void add_easy_token(std::string text);
  /// Replaces the first token of that keyword, or adds it at the end. The method specification is
  /// never replaced.
  void set_easy_keyword(std::string key, std::optional<std::string> value);
  /// Removes all tokens of that keyword, the method specification excepted; false if there were
  /// none.
  bool remove_easy_keyword(std::string_view key);
  /// Sets the name on the `#!` line; a blank name becomes `job.bdf`.
  void set_script_name(std::string name);

  /// Replaces the geometry, in the input's own unit. In a module input, geometry entries of
  /// `$compass` are removed, so that the new geometry is written there.
  void set_cartesian_geometry(std::vector<AtomRecord> atoms);
  /// Sets the total charge (in elementary charges) and the spin multiplicity 2S+1: as entries of
  /// `$scf` in a module input, else as easy keywords and in an existing `$scf`.
  void set_charge_and_multiplicity(int charge, int multiplicity);

  /// Adds a shell line at the end of the statement order, verbatim.
  void append_shell_statement(std::string line);
  /// Adds a database block, verbatim: the caller gives its first and last line, too.
  void append_database_statement(std::vector<std::string> lines);
  /// Adds other lines, verbatim.
  void append_raw_statement(std::vector<std::string> lines);

  /// Returns the input text, with `\n` line ends and exactly one at the end.
  std::string render() const;
  /// Writes the input text over a file, given by its UTF-8 path, as a whole or not at all.
  /// @throws std::runtime_error naming the path when the file could not be written; it is then
  /// unchanged.
  void write_file(const std::string& path) const;

 private:
  using Indices = std::vector<std::size_t>;

  Module* find_or_create_module(std::string_view name, std::size_t index);
  Module* find_module_to_edit(std::string_view name, std::size_t index);
  Module* add_module(std::string name);
  void keep_index(std::size_t added) noexcept;
  void forget_index();
  void append_side_statement(StatementKind kind, std::vector<std::string> lines);
  void set_charge_and_multiplicity_entries(int charge, int multiplicity);

  BDFData data_;
  InputSchema schema_;
  // The modules by canonical name, once one of many was edited; empty until then. Whoever was given
  // a module may rename it at any time: from then on there is no index.
  std::map<std::string, Indices> by_name_;
  bool may_be_renamed_ = false;
};

}  // namespace kelp::input::bdf
