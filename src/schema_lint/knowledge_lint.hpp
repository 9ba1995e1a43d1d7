#pragma once

#include <yaml-cpp/yaml.h>

#include <cstddef>

#include "schema_lint/problems.hpp"

namespace kelp::input::bdf::lint {

/// Tells whether a document says of itself that it is knowledge, not a schema.
bool is_knowledge(const YAML::Node& root);

/// Checks a knowledge document.
void check_knowledge(const YAML::Node& root, std::size_t document_size, Problems& problems);

}  // namespace kelp::input::bdf::lint
