#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kelp/core/console.hpp"
#include "report/findings.hpp"

namespace kelp::app {

/// Writes to standard output. A reader that has gone away is no error; anything else is told by
/// `output_failed`.
void print(std::string_view text);

/// Writes text that an input holds to standard output: byte for byte into a file or a pipe, in a
/// form that is safe to show on a terminal.
void print_contents(std::string_view text);

/// Writes a unified diff to standard output, as `print_contents` does; with colours if wanted.
void print_diff(std::string_view diff, bool colour);

/// Writes to standard error, behind all that was printed before.
void print_aside(std::string_view text);

/// Writes "kelp-bdf: text" and a line end to standard error, in a form that is safe to show.
void complain(std::string_view text);

/// Ends a message about an unknown name with the names that may have been meant; empty for none.
std::string did_you_mean(const std::vector<std::string>& near);

/// Tells whether standard output takes no more, so that further work for it is in vain.
bool output_ended();

/// Flushes standard output; true when not all of it could be written, for want of space for
/// example.
bool output_failed();

/// Decides whether a stream gets colours; `when` is auto, always or never.
bool use_colour(std::string_view when,
                core::console::Stream stream = core::console::Stream::Output);

/// Returns how findings are written for people on a stream: with colours as above, and with links
/// where the stream is a terminal that is known to show them.
ReportForm human_form(std::string_view when,
                      core::console::Stream stream = core::console::Stream::Output);

}  // namespace kelp::app
