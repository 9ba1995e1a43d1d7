#pragma once

/// @file
/// Names for the records of a document, in plain numbers: they stay right when the document is
/// copied, and cost nothing to keep. And what the lines are that records are read from.

#include <cstddef>
#include <cstdint>
#include <string>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/export.hpp"

namespace kelp::input::bdf {

/// What kind of record an identity is about; it tells which of the indices count.
enum class RecordKind : std::int32_t {
  None = 0,          ///< no record
  EasyToken = 1,     ///< `easy_tokens[index]`
  Geometry = 2,      ///< the geometry block of the document itself
  Atom = 3,          ///< `atoms[index]`
  GeometryLine = 4,  ///< `geometry_lines[index]`
  Module = 5,        ///< `modules[index]`
  Entry = 6,         ///< `modules[index].entries[entry]`
  Child = 7,         ///< `modules[index].entries[entry].children[child]`
  Statement = 8,     ///< `statements[index]`, which is no module
  LeadingLine = 9,   ///< `leading_lines[index]`
};

/// Names one record of a document by its indices. It means the same record in every copy of the
/// document, as long as nothing is added or removed before it.
struct RecordId {
  RecordKind kind = RecordKind::None;  ///< which of the indices count
  std::uint32_t index = 0;             ///< of the token, atom, line, module or statement
  std::uint32_t entry = 0;             ///< of the entry in its module
  std::uint32_t child = 0;             ///< of the child in its entry

  /// Returns the identity of a module.
  static RecordId of_module(std::size_t module);
  /// Returns the identity of an entry of a module.
  static RecordId of_entry(std::size_t module, std::size_t entry);
  /// Returns the identity of a child of a nested block.
  static RecordId of_child(std::size_t module, std::size_t entry, std::size_t child);
  /// Returns the identity of a record that stands in a list of the document itself.
  static RecordId of(RecordKind kind, std::size_t index);

  /// Two identities are the same when they name the same record.
  friend bool operator==(const RecordId&, const RecordId&) = default;

  /// Tells whether it names a record at all.
  explicit operator bool() const { return kind != RecordKind::None; }
};

inline RecordId RecordId::of(RecordKind kind, std::size_t index) {
  return {kind, static_cast<std::uint32_t>(index), 0, 0};
}
inline RecordId RecordId::of_module(std::size_t module) {
  return of(RecordKind::Module, module);
}
inline RecordId RecordId::of_entry(std::size_t module, std::size_t entry) {
  return {RecordKind::Entry, static_cast<std::uint32_t>(module), static_cast<std::uint32_t>(entry),
          0};
}
inline RecordId RecordId::of_child(std::size_t module, std::size_t entry, std::size_t child) {
  return {RecordKind::Child, static_cast<std::uint32_t>(module), static_cast<std::uint32_t>(entry),
          static_cast<std::uint32_t>(child)};
}

/// What a line of an input is. Every line has exactly one role.
enum class LineRole : std::int32_t {
  Blank = 0,          ///< an empty line that belongs to no value
  Comment = 1,        ///< a comment on a line of its own
  ScriptLine = 2,     ///< `#! name`
  Header = 3,         ///< words of the header of an easy input
  GeometryStart = 4,  ///< `Geometry` of the document's own geometry block
  Atom = 5,           ///< an atom of that block
  GeometryLine = 6,   ///< any other line of that block
  GeometryEnd = 7,    ///< `End Geometry` of that block
  ModuleHeader = 8,   ///< `$name`
  ModuleEnd = 9,      ///< `$end`
  Keyword = 10,       ///< the keyword of an entry or child that the schema knows
  Value = 11,         ///< a value line of an entry or child
  BlockEnd = 12,      ///< the line that closes an entry's block
  UnknownLine = 13,   ///< a line in a module or block whose first word the schema does not know
  Shell = 14,         ///< a line beginning with `%`, outside modules
  Database = 15,      ///< a line of an `&database` ... `&end` block
  Other = 16,         ///< any other line outside modules
};

/// A line's role and the record that it belongs to.
struct LineInfo {
  LineRole role = LineRole::Blank;  ///< what the line is
  /// The record; of a header line its first token. None for a blank line, a comment or the script
  /// line before the body.
  RecordId record;
};

/// What is wrong about a line that bounds a part of the input.
enum class BorderFault : std::int32_t {
  MisspeltEnd = 0,         ///< meant to be the `$end` of a module: `$edn`, `end`
  MisspeltTerminator = 1,  ///< meant to close a block or the geometry: `End Geom`
  MisspeltGeometry = 2,    ///< meant to open a geometry: `Gemoetry`
  MisspeltBlock = 3,       ///< meant to open another block of a module
  MissingDollar = 4,       ///< meant to be a module's header: `scf`
  WideDollar = 5,          ///< a header or an end with another sign for a dollar
};

/// A line that is not written right but can mean one thing only, and is read as that.
struct MisspeltBorder {
  std::size_t line = 0;                          ///< its number
  BorderFault fault = BorderFault::MisspeltEnd;  ///< what is wrong about it
  std::string meant;                             ///< what it is read as, and what should be written
  RecordId record;                               ///< the module, entry or geometry that it bounds
};

/// Returns the module that a record is or stands in, or null. The pointer lives as long as the
/// module's record in the document.
KELP_BDF_INP_EXPORT const Module* module_of(const BDFData& data, const RecordId& record);

/// Returns the entry that a record is or stands in, or null; same lifetime.
KELP_BDF_INP_EXPORT const ModuleEntry* entry_of(const BDFData& data, const RecordId& record);

/// Returns the entry or child that a record is, or null: of a module that is no entry, for example;
/// same lifetime.
KELP_BDF_INP_EXPORT const ModuleEntry* entry_or_child(const BDFData& data, const RecordId& record);

}  // namespace kelp::input::bdf
