#pragma once

/// @file
/// An input together with its text: the document, and where in the text each part of it stands.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::input::bdf {

/// The ranges of one word of the header. `key = value` may stand apart, so that the whole can hold
/// blanks.
struct TokenRanges {
  TextRange whole;  ///< from its first to its last byte
  TextRange key;    ///< the keyword, or all of a method specification
  TextRange value;  ///< what follows the first `=`; empty without one
};

/// The ranges of the parts of a method specification, in the text; a part that is not there is
/// empty.
struct SpecificationRanges {
  TextRange method;      ///< the method, of three parts or of two
  TextRange functional;  ///< the functional
  TextRange basis;       ///< the basis set, the last part
};

/// An input as it was read: its text, its document, and the range of every record. Every line is
/// kept and has a role, whatever the schema knows.
///
/// Immutable. Copies share their contents, and any number of threads may ask one. Problems of the
/// input are no errors here; `diagnose` tells them. Where a line that bounds a part of the input is
/// misspelt but can mean one thing only, the rest is read as if it were right. References returned
/// live as long as this object or a copy.
class KELP_BDF_INP_EXPORT ParsedInput {
 public:
  /// Reads a text. Only a failed allocation throws.
  ParsedInput(std::string text, const InputSchema& schema);
  ParsedInput(const ParsedInput& other);
  ParsedInput(ParsedInput&& other) noexcept;
  ParsedInput& operator=(const ParsedInput& other);
  ParsedInput& operator=(ParsedInput&& other) noexcept;
  ~ParsedInput();

  /// Returns the text and its lines.
  const SourceText& source() const;
  /// Returns the document.
  const BDFData& data() const;
  /// Returns the schema that it was read with.
  const InputSchema& schema() const;
  /// Tells whether the text holds nothing but comments and blank lines.
  bool is_empty() const;

  /// Returns what a line is, by its number; role `Blank` without a record when there is none.
  LineInfo line(std::size_t number) const;
  /// Returns the innermost record at a byte of the text: a header token, an atom, a child, an
  /// entry, a module, a statement; none where no record stands.
  RecordId record_at(std::size_t byte) const;

  /// Returns the number of the line that a record begins on; 0 for no record.
  std::size_t first_line(const RecordId& record) const;
  /// Returns the number of the last line of a record, its values, children and end line included;
  /// 0 for no record.
  std::size_t last_line(const RecordId& record) const;
  /// Returns the range of all lines of a record, with their line ends; of a header token its own.
  TextRange range(const RecordId& record) const;
  /// Returns the range of what names a record: `$scf`, a keyword, a header token's key, the label
  /// of an atom, `Geometry`; of another record its first line without white space around it.
  TextRange keyword_range(const RecordId& record) const;
  /// Returns what follows the keyword on its own line, without comment and white space; empty when
  /// there is nothing.
  TextRange behind_keyword(const RecordId& record) const;
  /// Returns the number of the line that closes a module, a block or the geometry; 0 when there is
  /// none.
  std::size_t end_line(const RecordId& record) const;

  /// Returns the number of the line of a record's `index`-th value line (`ModuleEntry::values`).
  std::size_t value_line(const RecordId& record, std::size_t index) const;
  /// Returns the range of a record's `index`-th value line, without comment and white space; it may
  /// be empty.
  TextRange value_range(const RecordId& record, std::size_t index) const;
  /// Returns the ranges of all value lines of an entry or child that hold more than a comment,
  /// without comment and white space.
  std::vector<TextRange> value_ranges(const RecordId& record) const;
  /// Returns the ranges of all fields of an entry or child: what blanks and commas separate, in the
  /// order of the values.
  std::vector<TextRange> fields(const RecordId& record) const;
  /// Returns the range of the comment behind what a line says, from its `#` on; empty when there is
  /// none, or when the line is of a role in which `#` begins no comment.
  TextRange comment_range(std::size_t number) const;

  /// Returns the lines that are read as what they were meant to be, in the order of the text.
  const std::vector<MisspeltBorder>& misspelt_borders() const;
  /// Tells whether a line, by its number, is one of those.
  bool is_misspelt_border(std::size_t number) const;

  /// Returns the ranges of a header token by its index.
  TokenRanges token_ranges(std::size_t token) const;
  /// Returns the ranges of the parts of a method specification; all empty for any other token.
  SpecificationRanges specification_ranges(std::size_t token) const;

 private:
  struct Impl;

  std::shared_ptr<const Impl> impl_;
};

}  // namespace kelp::input::bdf
