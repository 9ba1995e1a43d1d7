#pragma once

// Schemas for tests, small enough to stand beside the test that uses them.

#include <string>
#include <string_view>

#include "kelp/input/bdf/schema.hpp"
#include "support/folders.hpp"

namespace kelp::input::bdf {

/// Builds a schema from the part of a document that follows its version.
inline InputSchema schema_from(std::string_view yaml) {
  return InputSchema::from_yaml("schema_version: 1\n" + std::string(yaml));
}

/// Returns the vocabulary that the library comes with, loaded once.
inline const InputSchema& shipped_schema() {
  static const InputSchema schema = InputSchema::from_file(test::shipped_schema_file());
  return schema;
}

}  // namespace kelp::input::bdf
