// What the examples print, each run as the program that it is.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/files.hpp"
#include "support/process.hpp"

namespace kelp::test {
namespace {

constexpr const char* schema =
    "schema_version: 1\n"
    "modules:\n"
    "  scf:\n"
    "    entries:\n"
    "      maxiter: {value_type: integer, arity: 1, min: 1, default: 100}\n"
    "      maxdiis: {value_type: integer}\n"
    "      mix: {value_type: float}\n";

std::string output_of(const char* program, std::vector<std::string> arguments) {
  const TemporaryFolder folder;
  ProcessSetup setup;
  setup.program = std::filesystem::absolute(program);
  setup.arguments = std::move(arguments);
  setup.folder = folder.path();
  setup.input = folder / "input";
  setup.output = folder / "output";
  setup.errors = folder / "errors";
  setup.variables = {{"KELP_BDF_INP_SCHEMA_YAML", utf8(folder / "schema.yaml")}};
  write_file(folder / "schema.yaml", schema);
  write_file(setup.input, "");
  EXPECT_EQ(run_process(setup), 0) << file_bytes(setup.errors);
  return printed_text(setup.output);
}

TEST(Example, ExplainTellsWhatNamesMean) {
  EXPECT_EQ(output_of(KELP_EXAMPLE_EXPLAIN, {"scf.maxiter", "scf.maxitre"}),
            "scf.maxiter: an entry of $scf\n"
            "\n"
            "  type        integer\n"
            "  values      an integer of at least 1\n"
            "  default     100\n"
            "\n"
            "  The keyword, then its value on the next line.\n"
            "\n"
            "    maxiter\n"
            "      100\n"
            "\n"
            "scf.maxitre: unknown; similar: 'scf.maxiter'\n");
}

TEST(Example, CompletePrintsNamesThatBeginSoOrAreSimilar) {
  EXPECT_EQ(output_of(KELP_EXAMPLE_COMPLETE, {"scf", "max"}), "maxdiis\nmaxiter\n");
  EXPECT_EQ(output_of(KELP_EXAMPLE_COMPLETE, {"$SCF", "maxitre"}), "maxiter\n");
  EXPECT_EQ(output_of(KELP_EXAMPLE_COMPLETE, {"scf", "nothing-like-it"}), "");
}

}  // namespace
}  // namespace kelp::test
