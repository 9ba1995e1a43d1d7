// Loading the vocabulary, compared with what yaml-cpp alone takes for the same text. Hosts and the
// command pay this once per process unless the file is the one that the library was built with.

#include <yaml-cpp/yaml.h>

#include <string>

#include "compare.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace {

using kelp::input::bdf::InputSchema;

const std::string& schema_text() {
  static const std::string text =
      kelp::core::fs::read_text_file(KELP_SOURCE_DIR "/schemas/input/bdf.yaml");
  return text;
}

void load_schema(benchmark::State& state) {
  const std::string& text = schema_text();
  kelp::bench::compare(
      state, [&] { benchmark::DoNotOptimize(InputSchema::from_yaml(text)); },
      [&] { benchmark::DoNotOptimize(YAML::Load(text)); });
}
BENCHMARK(load_schema)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(3);

// What the library was built with is there as a table.
void load_shipped_schema(benchmark::State& state) {
  const std::string& text = schema_text();
  kelp::bench::compare(
      state,
      [] {
        benchmark::DoNotOptimize(InputSchema::from_file(KELP_SOURCE_DIR "/schemas/input/bdf.yaml"));
      },
      [&] { benchmark::DoNotOptimize(InputSchema::from_yaml(text)); });
}
BENCHMARK(load_shipped_schema)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(1);

void ask_for_an_entry(benchmark::State& state) {
  const InputSchema schema = InputSchema::from_yaml(schema_text());
  for ([[maybe_unused]] const auto& turn : state) {
    benchmark::DoNotOptimize(schema.is_known_entry("scf", "charge"));
  }
}
BENCHMARK(ask_for_an_entry);

}  // namespace
