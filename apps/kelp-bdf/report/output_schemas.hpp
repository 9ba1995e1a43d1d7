#pragma once

#include <span>
#include <string_view>

namespace kelp::app {

/// The JSON Schema of what a command prints as JSON, as it is installed.
struct OutputSchema {
  std::string_view name;     ///< `findings`
  std::string_view purpose;  ///< its description, in a sentence
  std::string_view text;     ///< the schema itself
};

/// Returns the schemas of all documents. The span lives for ever.
std::span<const OutputSchema> output_schemas();

}  // namespace kelp::app
