#pragma once

#include <string>
#include <string_view>

#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf::lint {

/// Tells whether an entry of this description accepts a value, as the validation has it.
bool accepts(const EntrySchemaInfo& info, const std::string& value);

/// Says which part of a description refuses a value: "the bounds", for example. Only for values
/// that it does not accept.
std::string_view refusing_part(const EntrySchemaInfo& info, const std::string& value);

}  // namespace kelp::input::bdf::lint
