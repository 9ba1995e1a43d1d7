#pragma once

#include <functional>
#include <string>
#include <vector>

#include "measure.hpp"

namespace kelp::bench {

/// One row of the table. What it needs is made when it is its turn.
struct Row {
  std::string work;
  std::string floor;
  double goal;  ///< a ratio of at most that is wanted
  std::function<Ratio(int turns)> measure;
  /// Of a ratio of memory to a text; else of times.
  bool is_memory = false;
};

/// A point of a curve: how long some work took, by the number of lines.
struct Point {
  std::string work;
  double lines;
  double seconds;
  double floor_seconds;
};

/// What the library does with a text in memory.
std::vector<Row> library_rows(bool quick);

/// What the command does with a file, as a process.
std::vector<Row> program_rows(bool quick);

/// How reading grows with the number of lines, up to `most`.
std::vector<Point> growth(double most);

}  // namespace kelp::bench
