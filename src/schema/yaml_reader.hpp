#pragma once

#include <memory>
#include <string>

#include "schema/impl.hpp"

namespace kelp::input::bdf {

/// Reads a schema document.
/// @throws an exception derived from std::exception, most often one of yaml-cpp's, when the text is
/// no YAML, has no schema version, or has a scalar that is not of the type that its key needs.
std::shared_ptr<const InputSchema::Impl> read_schema(std::string yaml);

}  // namespace kelp::input::bdf
