#pragma once

#include <string_view>

namespace kelp::app {

/// Writes to standard output. A reader that has gone away is no error; anything else is told by
/// `output_failed`.
void print(std::string_view text);

/// Writes "kelp-bdf: text" and a line end to standard error.
void complain(std::string_view text);

/// Flushes standard output; true when not all of it could be written, for want of space for
/// example.
bool output_failed();

/// Decides whether standard output gets colours; `when` is auto, always or never.
bool use_colour(std::string_view when);

}  // namespace kelp::app
