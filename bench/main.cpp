// Prints the table of docs/performance.md: `bench_table [--quick] [--only WORD] [--growth FILE]`.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iterator>
#include <string>
#include <string_view>

#include "rows.hpp"

namespace {

using kelp::bench::Point;
using kelp::bench::Ratio;
using kelp::bench::Row;

struct Options {
  bool quick = false;
  std::string only;         ///< rows that have this in their name; empty: all
  std::string growth_file;  ///< where to write how times grow; empty: nowhere
};

Options read_options(int count, char** arguments) {
  Options options;
  for (int i = 1; i < count; ++i) {
    const std::string_view name = arguments[i];
    const bool has_value = i + 1 < count;
    if (name == "--quick") {
      options.quick = true;
    } else if (name == "--only" && has_value) {
      options.only = arguments[++i];
    } else if (name == "--growth" && has_value) {
      options.growth_file = arguments[++i];
    } else {
      std::fprintf(stderr, "usage: %s [--quick] [--only WORD] [--growth FILE]\n", arguments[0]);
      std::exit(2);
    }
  }
  return options;
}

std::string amount(const Row& row, double seconds, double bytes) {
  std::string text(32, '\0');
  const int length = row.is_memory
                         ? std::snprintf(text.data(), text.size(), "%.1f MB", bytes / 1e6)
                         : std::snprintf(text.data(), text.size(), "%.4g ms", 1e3 * seconds);
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void print(const Row& row, const Ratio& ratio) {
  std::printf("| %s | %s | ", row.work.c_str(), row.floor.c_str());
  row.goal > 0 ? std::printf("%g | ", row.goal) : std::printf("- | ");
  std::printf("%.2f | %.2f to %.2f | %s | %s |\n", ratio.value, ratio.lowest, ratio.highest,
              amount(row, ratio.floor.seconds, ratio.floor.bytes).c_str(),
              amount(row, ratio.subject.seconds, ratio.subject.bytes).c_str());
  std::fflush(stdout);
}

void print_table(const Options& options) {
  constexpr int turns = 11;
  std::vector<Row> rows = kelp::bench::library_rows(options.quick);
  const std::vector<Row> of_program = kelp::bench::program_rows(options.quick);
  rows.insert(rows.end(), of_program.begin(), of_program.end());
  std::printf("| work | floor | goal | ratio | half of the turns | floor took | work took |\n");
  std::printf("|---|---|---|---|---|---|---|\n");
  for (const Row& row : rows) {
    if (row.work.find(options.only) != std::string::npos) {
      print(row, row.measure(options.quick ? 1 : turns));
    }
  }
}

void write_growth(const Options& options) {
  std::FILE* const file = std::fopen(options.growth_file.c_str(), "w");
  if (file == nullptr) {
    std::perror(options.growth_file.c_str());
    std::exit(2);
  }
  std::fprintf(file, "work\tlines\tseconds\tfloor_seconds\n");
  for (const Point& point : kelp::bench::growth(options.quick ? 1e4 : 1.01e7)) {
    std::fprintf(file, "%s\t%.0f\t%.6g\t%.6g\n", point.work.c_str(), point.lines, point.seconds,
                 point.floor_seconds);
  }
  std::fclose(file);
}

}  // namespace

int main(int count, char** arguments) {
  try {
    const Options options = read_options(count, arguments);
    print_table(options);
    if (!options.growth_file.empty()) {
      write_growth(options);
    }
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", arguments[0], error.what());
    return 1;
  }
}
