#pragma once

/// @file
/// The document: everything that one BDF input file says, both as read (verbatim lines) and as
/// understood (canonical names, values, atoms).
///
/// All records are plain values that own their strings and vectors. The look-ups return pointers
/// into the document; such a pointer stays valid until the vector that holds the record changes.
/// They compare names without regard to case, surrounding blanks, tabs and line ends, or leading
/// `$` signs, and know nothing of the schema's aliases. Reading one document from several threads
/// is safe as long as none changes it.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/value_kind.hpp"

namespace kelp::input::bdf {

/// A place in the input text.
struct SourceSpan {
  std::uint64_t line = 0;    ///< line number, counted from 1
  std::uint64_t column = 0;  ///< column, counted from 1; the parser always stores 1
  std::uint64_t length = 0;  ///< bytes, without the line end
};

/// Which of the three layouts an input has.
enum class InputMode : std::int32_t {
  Easy = 0,    ///< header tokens and a geometry block, no module block
  Module = 1,  ///< module blocks only
  Mixed = 2,   ///< an easy input followed by at least one module block
};

/// What one item of the statement order stands for.
enum class StatementKind : std::int32_t {
  Module = 0,    ///< a `$name` ... `$end` block
  Shell = 1,     ///< a line beginning with `%`
  Database = 2,  ///< an `&database` ... `&end` block
  Comment = 3,   ///< a line beginning with `#` or `*`, outside modules
  Raw = 4,       ///< any other line outside modules
};

/// One item of the order in which modules and the lines between them are written back.
struct Statement {
  /// The `module_index` of a statement that is not a module.
  static constexpr std::size_t no_module = static_cast<std::size_t>(-1);

  StatementKind kind = StatementKind::Raw;  ///< which of the fields below count
  std::size_t module_index = no_module;     ///< for kind `Module`: index into `BDFData::modules`
  std::vector<std::string> lines;           ///< for the other kinds: the lines as read
  std::optional<SourceSpan> location;       ///< first line; empty for a statement made by an editor
};

/// One word of the header of an easy input, for example `B3lyp/def2-svp` or `charge=1`.
struct KELP_BDF_INP_EXPORT EasyToken {
  EasyToken();
  EasyToken(const EasyToken& other);
  EasyToken(EasyToken&& other) noexcept;
  EasyToken& operator=(const EasyToken& other);
  EasyToken& operator=(EasyToken&& other) noexcept;
  ~EasyToken();

  std::string text;        ///< as it stood in the header
  std::string key;         ///< the keyword; of a method specification, its method or functional
  std::string value;       ///< what follows the first `=`; empty without one
  std::string canonical;   ///< `InputSchema::canonical_easy_token(text)`
  std::string category;    ///< `InputSchema::easy_token_category(text)`
  std::string method;      ///< method part of a method specification, else empty
  std::string functional;  ///< functional part of a method specification, else empty
  std::string basis;       ///< basis part of a method specification, else empty
  bool known = false;      ///< `InputSchema::is_known_easy_token(text)`
  std::optional<SourceSpan> location;  ///< header line, column 1, length of `text`
};

/// One atom line of the geometry block.
struct AtomRecord {
  std::string element;                 ///< symbol or label, as written
  double x = 0.0;                      ///< first coordinate, in the input's own unit
  double y = 0.0;                      ///< second coordinate, in the input's own unit
  double z = 0.0;                      ///< third coordinate, in the input's own unit
  std::string line;                    ///< the whole line as read; empty for an atom made by a host
  std::optional<SourceSpan> location;  ///< the atom line
};

/// One keyword with its values: an entry of a module, or a child of a nested block.
struct KELP_BDF_INP_EXPORT ModuleEntry {
  ModuleEntry();
  ModuleEntry(const ModuleEntry& other);
  ModuleEntry(ModuleEntry&& other) noexcept;
  ModuleEntry& operator=(const ModuleEntry& other);
  ModuleEntry& operator=(ModuleEntry&& other) noexcept;
  ~ModuleEntry();

  /// Returns the first child of that name, or null.
  const ModuleEntry* find_child(std::string_view wanted) const;
  /// @copydoc find_child
  ModuleEntry* find_child(std::string_view wanted);
  /// Returns every child of that name, in order.
  std::vector<const ModuleEntry*> find_children(std::string_view wanted) const;
  /// @copydoc find_children
  std::vector<ModuleEntry*> find_children(std::string_view wanted);

  std::string name;  ///< canonical name; for a raw entry the line's first word in lower case
  EntryValueKind kind = EntryValueKind::Scalar;  ///< how `values` and `children` are to be read
  std::string terminator;              ///< the line that closes the entry's block, else empty
  std::vector<std::string> values;     ///< value lines as read or as set
  std::vector<ModuleEntry> children;   ///< for kind `NestedBlock`
  bool known = false;                  ///< the schema knows the keyword
  bool terminated = true;              ///< false for a block whose terminator was not found
  std::string raw_line;                ///< the keyword line as read; empty when made by an editor
  std::optional<SourceSpan> location;  ///< the keyword line
};

/// One `$name` ... `$end` block.
struct KELP_BDF_INP_EXPORT Module {
  Module();
  Module(const Module& other);
  Module(Module&& other) noexcept;
  Module& operator=(const Module& other);
  Module& operator=(Module&& other) noexcept;
  ~Module();

  /// Returns the first entry of that name, or null.
  const ModuleEntry* find_entry(std::string_view wanted) const;
  /// @copydoc find_entry
  ModuleEntry* find_entry(std::string_view wanted);
  /// Returns every entry of that name, in order.
  std::vector<const ModuleEntry*> find_entries(std::string_view wanted) const;
  /// @copydoc find_entries
  std::vector<ModuleEntry*> find_entries(std::string_view wanted);

  std::string name;                         ///< canonical name, without `$`
  bool known = false;                       ///< the schema knows the module
  bool terminated = true;                   ///< false when the block ended without `$end`
  std::string header_line;                  ///< as read; empty when made by an editor
  std::string end_line;                     ///< as read; empty when there was none
  std::vector<ModuleEntry> entries;         ///< what stands between header and end, in order
  std::vector<std::string> trailing_lines;  ///< written after the entries; never set by the parser
  std::optional<SourceSpan> location;       ///< the header line
};

/// A finding that does not make a result fail.
struct ParseWarning {
  std::string code;                    ///< dotted code, for example `bdf.unknown_module`
  std::string message;                 ///< an English sentence
  std::optional<SourceSpan> location;  ///< of the record at fault; empty if there is none
};

/// A whole input.
struct KELP_BDF_INP_EXPORT BDFData {
  BDFData();
  BDFData(const BDFData& other);
  BDFData(BDFData&& other) noexcept;
  BDFData& operator=(const BDFData& other);
  BDFData& operator=(BDFData&& other) noexcept;
  ~BDFData();

  /// Returns the first module of that name, or null.
  const Module* find_module(std::string_view wanted) const;
  /// @copydoc find_module
  Module* find_module(std::string_view wanted);
  /// Returns every module of that name, in document order.
  std::vector<const Module*> find_modules(std::string_view wanted) const;
  /// @copydoc find_modules
  std::vector<Module*> find_modules(std::string_view wanted);
  /// Returns how many modules bear that name.
  std::size_t module_count(std::string_view wanted) const;
  /// Returns the first header token whose key (or else canonical form, or else text) is that name,
  /// or null.
  const EasyToken* find_easy_token(std::string_view wanted) const;
  /// @copydoc find_easy_token
  EasyToken* find_easy_token(std::string_view wanted);

  InputMode mode = InputMode::Easy;        ///< the layout in which it was read and is written
  std::string script_name = "job.bdf";     ///< the text after `#!`
  std::vector<std::string> leading_lines;  ///< comment lines before the first statement or geometry
  std::vector<EasyToken> easy_tokens;      ///< the words of the header, in order
  bool has_geometry = false;               ///< a `Geometry` line was read or a geometry was set
  bool geometry_terminated = true;         ///< false when `End Geometry` is missing
  std::vector<AtomRecord> atoms;           ///< the atom lines of the block, in order
  std::vector<std::string> geometry_lines;      ///< lines of the block that are no atom lines
  std::optional<SourceSpan> geometry_location;  ///< the `Geometry` line
  std::vector<Module> modules;                  ///< in document order; a name may recur
  std::vector<Statement> statements;            ///< the order in which all is written back
  std::vector<std::string> free_lines;          ///< the lines of all side statements, in order
  std::vector<ParseWarning> warnings;           ///< what validation while parsing found, no error
};

/// What parsing gives back.
struct ParseResult {
  BDFData data;       ///< the document; after a failure, as far as it was read
  bool ok = false;    ///< read, and free of errors if validation was asked for
  std::string error;  ///< why `ok` is false
};

}  // namespace kelp::input::bdf
