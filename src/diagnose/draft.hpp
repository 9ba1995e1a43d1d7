#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "validate/fault.hpp"

namespace kelp::input::bdf {

/// What is asked about an input again and again while its diagnostics are made.
class DiagnoseContext {
 public:
  explicit DiagnoseContext(const ParsedInput& parsed) : input(parsed), paths(parsed.data()) {}

  const ParsedInput& input;
  PathIndex paths;

  /// Returns the names of the schema; most inputs never need them.
  const NameLists& names() {
    if (!names_) {
      names_.emplace(input.schema());
    }
    return *names_;
  }
  /// Tells whether some entry or keyword of the header lists a word as one of its values.
  bool is_listed_value(std::string_view word);

 private:
  std::optional<NameLists> names_;
  std::optional<std::set<std::string>> values_;  ///< in lower case
};

/// A diagnostic in the making.
class Draft {
 public:
  /// Starts with code, severity, message, arguments, record and path of a finding.
  Draft(const Fault& about, DiagnoseContext& known);

  const Fault& fault;
  DiagnoseContext& context;
  const ParsedInput& input;
  const SourceText& source;
  std::size_t line;          ///< that the record begins on; 0 for no record
  const Module* module;      ///< that the record is or stands in, or null
  const ModuleEntry* entry;  ///< that the record is or stands in, or null
  const ModuleEntry* child;  ///< that the record is, or null
  Diagnostic diagnostic;

  /// Returns what a line says, without comment and white space around it.
  TextRange statement_on(std::size_t number) const;
  /// Returns the schema's description of the entry or child, if there is one.
  std::optional<EntrySchemaInfo> description() const;

  /// Marks a range as what is at fault.
  void mark(const TextRange& range, std::string label = {});
  /// Marks what names the record; nothing without a record.
  void mark_word(std::string label = {});
  /// Points at what names another record.
  void relate(const RecordId& other, std::string message);
  void help(std::string text) { diagnostic.help.push_back(std::move(text)); }
  /// Says which values a description asks for.
  void expect(const std::optional<EntrySchemaInfo>& description);
  /// Offers names to write in place of a range: "entry" and "entries" for example.
  void suggest(std::vector<std::string> names, std::string_view thing, std::string_view things,
               const TextRange& range, bool are_names = true);
  /// Offers to write a text in place of a range.
  void fix(std::string title, const TextRange& range, std::string text, bool is_safe = false);
  /// Offers to add a line behind another one.
  void fix_by_line(const std::string& text, std::size_t behind);
  /// Returns how lines of the input end.
  std::string_view line_end() const;
};

/// Finds everything that is to be said about an input, before anybody's wishes about severities.
void find_diagnostics(const ParsedInput& input, const DiagnoseOptions& options,
                      const std::function<void(const Diagnostic&)>& use);

/// Adds to a draft what there is to say of its finding: range, label, help, suggestions, fixes.
void complete(Draft& draft);

}  // namespace kelp::input::bdf
