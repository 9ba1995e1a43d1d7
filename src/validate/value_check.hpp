#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/schema.hpp"
#include "validate/fault.hpp"

namespace kelp::input::bdf {

/// Tells whether values agree with their descriptions. Keeps its lists from one value to the next.
class ValueCheck {
 public:
  /// Tells it of an entry, by the rule of its description's kind.
  bool matches(const ModuleEntry& entry, const EntrySchemaInfo& info);
  /// The same of cleaned lines.
  bool lines_match(const std::vector<std::string_view>& lines, const EntrySchemaInfo& info);
  /// Tells whether lines agree with a description: number of fields, type and bounds of each, and
  /// the list of allowed values, with which all fields together are compared.
  bool fields_match(const std::vector<std::string_view>& lines, const EntrySchemaInfo& info);
  /// Tells whether the lines of a `CountedRows` entry agree with its description.
  bool rows_match(const std::vector<std::string_view>& lines, const EntrySchemaInfo& info);

 private:
  std::vector<std::string_view> lines_;
  std::vector<std::string_view> tokens_;
};

/// Tells whether a value of the header agrees with its description, whatever the description's kind
/// is.
bool value_matches(std::string_view value, const EntrySchemaInfo& info);

/// Tells whether the cleaned lines of an entry agree with its description.
bool lines_match(const std::vector<std::string_view>& lines, const EntrySchemaInfo& info);

/// Tells whether one field is of a type (string, any, integer, float, number) and within the
/// description's bounds; every field is of any other type.
bool token_matches_type(std::string_view token, std::string_view type, const EntrySchemaInfo& info);

/// Returns what is wrong about the value lines of an entry that does not agree with its
/// description: the first field or row that is wrong by itself, else all of the value or, of rows,
/// the line that counts them.
ValueFault find_value_fault(const std::vector<std::string>& values, const EntrySchemaInfo& info);

/// The same for a value of the header, whatever the description's kind is.
ValueFault find_header_value_fault(std::string_view value, const EntrySchemaInfo& info);

}  // namespace kelp::input::bdf
