#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/schema.hpp"

namespace kelp::app {

/// Names to compare a misspelt one with: canonical names and aliases alike.
std::vector<std::string> module_names(const input::bdf::InputSchema& schema);
std::vector<std::string> entry_names(const input::bdf::InputSchema& schema,
                                     std::string_view module);
std::vector<std::string> nested_entry_names(const input::bdf::InputSchema& schema,
                                            std::string_view module, std::string_view entry);

/// Says in words which values a description asks for, for example "an integer of at least 1"; empty
/// when it accepts anything.
std::string expected_value(const input::bdf::EntrySchemaInfo& info);

}  // namespace kelp::app
