#pragma once

// Two pieces of work that take turns, so that a slow moment of the machine hits both alike. What is
// measured is processor time. The time shown is that of the subject; the counter `baseline` is the
// baseline's median in seconds, and `ratio` the subject's median divided by it.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <vector>

namespace kelp::bench {

template <typename Work>
double seconds(const Work& work) {
  const std::clock_t begin = std::clock();
  work();
  return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

inline double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Use with `->UseManualTime()`.
template <typename Subject, typename Baseline>
void compare(benchmark::State& state, const Subject& subject, const Baseline& baseline) {
  std::vector<double> subjects;
  std::vector<double> baselines;
  for ([[maybe_unused]] const auto& turn : state) {
    baselines.push_back(seconds(baseline));
    subjects.push_back(seconds(subject));
    state.SetIterationTime(subjects.back());
  }
  state.counters["baseline"] = median(baselines);
  state.counters["ratio"] = median(subjects) / median(baselines);
}

}  // namespace kelp::bench
