#pragma once

#include <string_view>

#include "kelp/input/bdf/value_kind.hpp"

namespace kelp::input::bdf {

/// Says in a sentence how an entry of a kind is written.
std::string_view layout_sentence(EntryValueKind kind);

}  // namespace kelp::input::bdf
