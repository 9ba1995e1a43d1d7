#include "output.hpp"

#include <cerrno>
#include <cstdio>

#include "kelp/core/resource.hpp"

namespace kelp::app {
namespace {

bool write_failed = false;

void note_failure() {
  if (errno != EPIPE) {
    write_failed = true;
  }
}

}  // namespace

void print(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
    note_failure();
  }
}

void complain(std::string_view text) {
  std::fprintf(stderr, "kelp-bdf: %.*s\n", static_cast<int>(text.size()), text.data());
}

bool output_failed() {
  if (std::fflush(stdout) != 0) {
    note_failure();
  }
  return write_failed;
}

bool use_colour(std::string_view when, core::console::Stream stream) {
  if (when != "auto") {
    return when == "always";
  }
  return core::resource::getenv_string("NO_COLOR").empty() &&
         core::resource::getenv_string("TERM") != "dumb" &&
         core::console::is_terminal(stream);
}

}  // namespace kelp::app
