// One schema, many threads: loading it first, asking it, parsing and validating with it. What is
// shared wrongly shows under the thread sanitizer.

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "kelp/input/bdf.hpp"
#include "support/environment.hpp"
#include "support/folders.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

constexpr int thread_count = 8;

// All threads start their work together.
void in_threads(const std::function<void(int)>& work) {
  std::atomic<int> waiting = thread_count;
  std::vector<std::thread> threads;
  for (int i = 0; i < thread_count; ++i) {
    threads.emplace_back([&, i] {
      --waiting;
      while (waiting > 0) {
        std::this_thread::yield();
      }
      work(i);
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

constexpr const char* input =
    "#!water.bdf\nHF/cc-pVDZ charge=0\nGeometry\nO 0 0 0\nH 0 0 1.0d0\nEnd geometry\n"
    "$compass\nTitle\n water\nBasis\n cc-pvdz\n$end\n$scf\nRHF\nCharge\n0\nnonsense\n$end\n";

void use(const InputSchema& schema) {
  for (const std::string& module : schema.known_modules()) {
    EXPECT_EQ(schema.canonical_module(module), module);
  }
  EXPECT_TRUE(schema.is_known_entry("$SCF", "charge"));
  EXPECT_EQ(schema.easy_token_category("hf/svp"), "method_spec");
  ParseOptions options;
  options.custom_unknown_policy = true;
  options.unknown_policy = 1;
  const ParseResult result = BDFParser::parse_string(input, schema, options);
  EXPECT_EQ(result.data.modules.size(), 2U);
  EXPECT_FALSE(schema.validate(result.data, {true, true, false, false}).empty());
  EXPECT_FALSE(BDFEditor(result.data, schema).render().empty());
}

TEST(Threads, LoadTheDefaultSchemaOnceAndUseItTogether) {
  const test::EnvironmentVariable variable("KELP_BDF_INP_SCHEMA_YAML", test::shipped_schema_file());
  std::vector<const InputSchema*> seen(thread_count);
  in_threads([&](int i) {
    seen[static_cast<std::size_t>(i)] = &default_schema();
    use(default_schema());
  });
  for (const InputSchema* const schema : seen) {
    EXPECT_EQ(schema, seen.front());
  }
}

TEST(Threads, ShareOneSchema) {
  const InputSchema& schema = shipped_schema();
  in_threads([&](int) { use(schema); });
}

TEST(Threads, CopyAndDropOneSchema) {
  const InputSchema& schema = shipped_schema();
  in_threads([&](int) {
    for (int i = 0; i < 200; ++i) {
      const InputSchema copy = schema;
      InputSchema moved = InputSchema(copy);
      EXPECT_TRUE(moved.is_known_module("scf"));
    }
  });
}

TEST(Threads, LoadSchemasOfTheirOwn) {
  in_threads([](int i) {
    const std::string name = "m" + std::to_string(i);
    const InputSchema schema = schema_from("modules: {" + name + ": {entries: {e: {min: 0.5}}}}");
    EXPECT_TRUE(schema.is_known_module(name));
    EXPECT_EQ(schema.known_modules().size(), 1U);
  });
}

TEST(Threads, ReadOneDocument) {
  const BDFData data = BDFParser::parse_string(input, shipped_schema(), {}).data;
  in_threads([&](int) {
    EXPECT_NE(data.find_module("scf"), nullptr);
    EXPECT_EQ(data.module_count("compass"), 1U);
    EXPECT_NE(data.find_easy_token("charge"), nullptr);
    shipped_schema().validate(data, {});
  });
}

}  // namespace
}  // namespace kelp::input::bdf
