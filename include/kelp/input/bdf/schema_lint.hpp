#pragma once

/// @file
/// A check of schema documents. Reading a schema accepts nearly anything, so that an older library
/// can read a newer vocabulary; an author wants to hear of every slip.

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/validation.hpp"

namespace kelp::input::bdf {

/// One problem of a schema document.
struct SchemaProblem {
  ValidationSeverity severity = ValidationSeverity::Error;  ///< how grave it is
  std::string code;                ///< stable dotted code, for example `schema.unknown_key`
  std::string message;             ///< an English sentence
  SourceSpan location;             ///< where it is written; columns and length are in bytes
  std::string name;                ///< the unknown word, if the problem is one
  std::vector<std::string> known;  ///< the words that could stand in its place
};

/// Checks a schema document and returns its problems in the order of their places. A document whose
/// `schema_kind` is `knowledge` is checked as `bdf-knowledge.yaml`, its names against those of
/// `default_schema`.
///
/// An error is what makes the schema unreadable or gives it another meaning than the one written;
/// a warning is what has no effect. A document without errors can be read by
/// `InputSchema::from_yaml`. Problems of the document are never thrown.
KELP_BDF_INP_EXPORT std::vector<SchemaProblem> lint_schema(std::string_view yaml);

}  // namespace kelp::input::bdf
