#pragma once

#include <chrono>
#include <cstddef>

namespace kelp::app {

/// A line on the terminal that tells how far a long work is. It is shown from half a second on, and
/// only where standard error is a terminal.
class Progress {
 public:
  /// @param total  the number of files
  Progress(std::size_t total, bool is_wanted);
  Progress(const Progress&) = delete;
  Progress(Progress&&) = delete;
  Progress& operator=(const Progress&) = delete;
  Progress& operator=(Progress&&) = delete;
  ~Progress() { clear(); }

  /// Tells that one more file is done.
  void advance() { ++done_; }

  /// Shows the line, unless that was done a moment ago.
  void show();

  /// Takes the line away; to be called before anything else is printed.
  void clear();

 private:
  using Clock = std::chrono::steady_clock;

  std::size_t total_;
  bool is_wanted_;
  std::size_t done_ = 0;
  bool is_shown_ = false;
  Clock::time_point start_;
  Clock::time_point next_;
};

}  // namespace kelp::app
