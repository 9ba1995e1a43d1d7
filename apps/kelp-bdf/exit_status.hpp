#pragma once

namespace kelp::app {

/// What the program's exit status says. With several files the highest wins.
enum class ExitStatus : int {
  Success = 0,        ///< nothing to report
  Findings = 1,       ///< findings of error level, or a difference, or nothing found
  Failure = 2,        ///< the work could not be done
  InternalError = 3,  ///< a mistake of the program itself
};

constexpr ExitStatus worse_of(ExitStatus left, ExitStatus right) {
  return static_cast<int>(left) < static_cast<int>(right) ? right : left;
}

}  // namespace kelp::app
