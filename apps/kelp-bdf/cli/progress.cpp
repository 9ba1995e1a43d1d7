#include "cli/progress.hpp"

#include <fmt/format.h>

#include <cmath>
#include <string>

#include "cli/output.hpp"
#include "kelp/core/console.hpp"
#include "kelp/core/resource.hpp"

namespace kelp::app {
namespace {

constexpr auto delay = std::chrono::milliseconds(500);
constexpr auto interval = std::chrono::milliseconds(100);

std::string time_text(double seconds) {
  constexpr double long_time = 120;
  return seconds < long_time ? fmt::format("{:.0f} s", std::ceil(seconds))
                             : fmt::format("{:.0f} min", std::ceil(seconds / 60));
}

}  // namespace

Progress::Progress(std::size_t total, bool is_wanted)
    : total_(total),
      is_wanted_(is_wanted && core::console::is_terminal(core::console::Stream::Error) &&
                 core::resource::getenv_string("TERM") != "dumb"),
      start_(Clock::now()),
      next_(start_ + delay) {}

void Progress::show() {
  if (!is_wanted_ || Clock::now() < next_) {
    return;
  }
  next_ = Clock::now() + interval;
  const double seconds = std::chrono::duration<double>(Clock::now() - start_).count();
  const double rate = static_cast<double>(done_) / seconds;
  std::string text = fmt::format("{} of {} files", done_, total_);
  if (done_ > 0) {
    text += fmt::format(", {:.{}f} a second, {} left", rate, rate < 10 ? 1 : 0,
                        time_text(static_cast<double>(total_ - done_) / rate));
  }
  print_aside("\r\x1B[K" + text);
  is_shown_ = true;
}

void Progress::clear() {
  if (is_shown_) {
    print_aside("\r\x1B[K");
    is_shown_ = false;
  }
}

}  // namespace kelp::app
