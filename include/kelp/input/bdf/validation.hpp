#pragma once

/// @file
/// The records of a validation; `InputSchema::validate` makes them.

#include <cstdint>
#include <optional>
#include <string>

#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

/// What a validation does about names that the schema does not know. With all switches off such
/// names are passed over; every other check runs regardless.
struct ValidationOptions {
  bool report_unknown_modules = false;     ///< unknown modules are warnings
  bool report_unknown_entries = false;     ///< unknown entries and nested entries are warnings
  bool unknown_modules_as_errors = false;  ///< unknown modules are errors; stronger than the report
  bool unknown_entries_as_errors = false;  ///< unknown entries are errors; stronger than the report
};

/// How grave a finding is; fixed for each check.
enum class ValidationSeverity : std::int32_t {
  Warning = 0,
  Error = 1,
};

/// One finding.
struct ValidationIssue {
  ValidationSeverity severity = ValidationSeverity::Warning;  ///< how grave it is
  std::string code;                    ///< stable dotted code, for example `bdf.unknown_entry`
  std::string message;                 ///< an English sentence
  std::optional<SourceSpan> location;  ///< copied from the record at fault; empty if there is none
};

}  // namespace kelp::input::bdf
