#pragma once

#include "kelp/core/unicode.hpp"

namespace kelp::app {

using core::unicode::abridged;
using core::unicode::character_length;
using core::unicode::count_code_points;
using core::unicode::display_width;
using core::unicode::displayable;
using core::unicode::next_character;

}  // namespace kelp::app
