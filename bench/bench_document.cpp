// What hosts do with one input: read, check, write. Each is compared with the least work that the
// task could take: reading with cutting the text into lines, writing with copying the result,
// checking with reading. Texts: a long geometry, and many modules as they stand in the examples.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "compare.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf.hpp"

namespace {

namespace bdf = kelp::input::bdf;

// A long geometry, as of a protein.
std::string many_atoms() {
  std::string text = "#! large.bdf\nPBE0/def2-SVP\n\nGeometry\n";
  for (int i = 0; i < 20000; ++i) {
    text += " C   " + std::to_string(i) + ".125000   -0.750000   1.0625e+00\n";
  }
  return text + "End Geometry\n";
}

// Many modules, as of a scripted series of calculations.
std::string many_modules() {
  std::string text = kelp::core::fs::read_text_file(KELP_SOURCE_DIR "/examples/water-module.inp");
  for (int i = 0; i < 5000; ++i) {
    text += "\n$scf\nuks\ndft\n  b3lyp\nspinmulti\n  2\nvshift\n  0." + std::to_string(i) +
            "\nmolden\n$end\n";
  }
  return text;
}

// The lines as the library stores them: copied, without their ends.
std::vector<std::string> copied_lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    lines.emplace_back(kelp::core::text::take_line(text));
  }
  return lines;
}

bdf::ParseOptions without_validation() {
  bdf::ParseOptions options;
  options.validate = false;
  options.custom_unknown_policy = true;
  return options;
}

bdf::BDFData document(const std::string& text) {
  return bdf::BDFParser::parse_string(text, bdf::default_schema(), without_validation()).data;
}

void set_throughput(benchmark::State& state, const std::string& text) {
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) *
                          static_cast<std::int64_t>(state.iterations()));
}

void read(benchmark::State& state, const std::string& text) {
  const bdf::InputSchema& schema = bdf::default_schema();
  const bdf::ParseOptions options = without_validation();
  kelp::bench::compare(
      state, [&] { benchmark::DoNotOptimize(bdf::BDFParser::parse_string(text, schema, options)); },
      [&] { benchmark::DoNotOptimize(copied_lines(text)); });
  set_throughput(state, text);
}

void check(benchmark::State& state, const std::string& text) {
  const bdf::InputSchema& schema = bdf::default_schema();
  const bdf::ParseOptions options = without_validation();
  const bdf::BDFData data = document(text);
  kelp::bench::compare(
      state, [&] { benchmark::DoNotOptimize(schema.validate(data, {})); },
      [&] { benchmark::DoNotOptimize(bdf::BDFParser::parse_string(text, schema, options)); });
  set_throughput(state, text);
}

void write(benchmark::State& state, const std::string& text) {
  const bdf::BDFEditor editor(document(text), bdf::default_schema());
  const std::string rendered = editor.render();
  kelp::bench::compare(
      state, [&] { benchmark::DoNotOptimize(editor.render()); },
      [&] { benchmark::DoNotOptimize(copied_lines(rendered)); });
  set_throughput(state, rendered);
}

#define KELP_BENCHMARK_TEXT(work, text) \
  BENCHMARK_CAPTURE(work, text, text()) \
      ->UseManualTime()                 \
      ->Unit(benchmark::kMillisecond)   \
      ->Iterations(50)

KELP_BENCHMARK_TEXT(read, many_atoms);
KELP_BENCHMARK_TEXT(read, many_modules);
KELP_BENCHMARK_TEXT(check, many_modules);
KELP_BENCHMARK_TEXT(write, many_atoms);
KELP_BENCHMARK_TEXT(write, many_modules);

}  // namespace
