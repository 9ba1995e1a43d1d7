#include "cli/output.hpp"

#include <algorithm>
#include <cstdio>
#include <string>

#include "cli/file_uri.hpp"
#include "kelp/core/resource.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::app {
namespace {

enum class OutputState { Good, Closed, Failed };

OutputState state = OutputState::Good;

void note_failure() {
  state = core::console::reader_went_away() ? OutputState::Closed : OutputState::Failed;
}

void flush() {
  if (state == OutputState::Good && std::fflush(stdout) != 0) {
    note_failure();
  }
}

std::string_view colour_of_diff_line(std::string_view line) {
  if (line.starts_with("+++ ") || line.starts_with("--- ")) {
    return "\x1B[1m";
  }
  switch (line.empty() ? ' ' : line.front()) {
    case '+':
      return "\x1B[32m";
    case '-':
      return "\x1B[31m";
    case '@':
      return "\x1B[36m";
    default:
      return {};
  }
}

}  // namespace

void print(std::string_view text) {
  if (state == OutputState::Good &&
      std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
    note_failure();
  }
}

void print_contents(std::string_view text) {
  if (core::console::is_terminal(core::console::Stream::Output)) {
    print(core::unicode::displayable_lines(text));
  } else {
    print(text);
  }
}

void print_diff(std::string_view diff, bool colour) {
  if (!colour) {
    print_contents(diff);
    return;
  }
  while (!diff.empty()) {
    const std::string_view line = diff.substr(0, diff.find('\n'));
    diff.remove_prefix(std::min(diff.size(), line.size() + 1));
    print(colour_of_diff_line(line));
    print_contents(line);
    print("\x1B[0m\n");
  }
}

void print_aside(std::string_view text) {
  // Both streams may lead to one place, where the order tells what the text is about.
  flush();
  // Nobody is left to be told of a failure.
  static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
}

void complain(std::string_view text) {
  print_aside("kelp-bdf: " + core::unicode::displayable(text) + '\n');
}

std::string did_you_mean(const std::vector<std::string>& near) {
  return near.empty() ? std::string() : "; did you mean " + input::bdf::quoted_choice(near) + "?";
}

bool output_ended() {
  return state != OutputState::Good;
}

bool output_failed() {
  flush();
  return state == OutputState::Failed;
}

namespace {

// There is no way to ask a terminal. These are the marks of those that are known to show links; a
// multiplexer hides what is behind it and names itself in TERM.
bool shows_links(core::console::Stream stream) {
  using core::resource::getenv_string;
  const std::string forced = getenv_string("FORCE_HYPERLINK");
  if (!forced.empty()) {
    return forced != "0";
  }
  const std::string term = getenv_string("TERM");
  if (!core::console::is_terminal(stream) || term == "dumb" || term == "linux" ||
      term.starts_with("screen") || term.starts_with("tmux")) {
    return false;
  }
  constexpr std::size_t digits = 4;  // VTE 0.50 is 5000
  const std::string program = getenv_string("TERM_PROGRAM");
  return getenv_string("VTE_VERSION").size() >= digits ||
         !getenv_string("KITTY_WINDOW_ID").empty() || !getenv_string("KONSOLE_VERSION").empty() ||
         !getenv_string("WT_SESSION").empty() || program == "iTerm.app" || program == "WezTerm" ||
         program == "vscode" || term == "alacritty" || term.starts_with("foot");
}

}  // namespace

bool use_colour(std::string_view when, core::console::Stream stream) {
  if (when != "auto") {
    return when == "always";
  }
  const std::string forced = core::resource::getenv_string("CLICOLOR_FORCE");
  return core::resource::getenv_string("NO_COLOR").empty() &&
         ((!forced.empty() && forced != "0") ||
          (core::resource::getenv_string("TERM") != "dumb" && core::console::is_terminal(stream)));
}

ReportForm human_form(std::string_view when, core::console::Stream stream) {
  ReportForm form;
  form.colour = use_colour(when, stream);
  form.code_page = form.colour && shows_links(stream) ? findings_page() : "";
  return form;
}

}  // namespace kelp::app
