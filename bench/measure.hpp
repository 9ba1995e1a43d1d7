#pragma once

/// @file
/// How work is measured: by the processor time of a child process, which begins with the heap that
/// it finds and leaves none behind. Contenders take turns, so that a slow moment of the machine
/// hits all of them alike; what counts is the median of the ratios of the turns.

#include <functional>
#include <string>
#include <vector>

namespace kelp::bench {

using Work = std::function<void()>;

/// What one run took.
struct Use {
  double seconds = 0;  ///< processor time, of user and system
  double bytes = 0;    ///< the most memory above what there was before
};

/// Runs work in a child process, again and again until it took some milliseconds; returns what one
/// run took. With work that takes longer there is but one run.
Use use_of(const Work& work);

/// Runs a program with its standard output thrown away; returns what it took. The memory is all
/// that it had.
Use use_of(const std::vector<std::string>& command);

/// A ratio between what two contenders took.
struct Ratio {
  double value = 0;    ///< median of the ratios of the turns
  double lowest = 0;   ///< a quarter of the turns had a ratio of at most that
  double highest = 0;  ///< three quarters of the turns had a ratio of at most that
  Use floor;           ///< median of what the floor took
  Use subject;         ///< median of what the subject took
};

using Contender = std::function<Use()>;

/// Has two contenders take turns.
Ratio compare(const Contender& floor, const Contender& subject, int turns);

double median(std::vector<double> values);

/// Has a result count as used, so that the compiler does not leave out the work that made it.
template <typename Value>
void keep(const Value& value) {
  asm volatile("" : : "r"(&value) : "memory");
}

}  // namespace kelp::bench
