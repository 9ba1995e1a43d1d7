// Reads, edits and writes an input in the current folder, as a host on Windows does.

#include <iostream>
#include <kelp/input/bdf.hpp>
#include <stdexcept>
#include <string>

namespace {

namespace bdf = kelp::input::bdf;

void require(bool condition, const std::string& claim) {
  if (!condition) {
    throw std::logic_error("not true: " + claim);
  }
}

void edit_input(const bdf::InputSchema& schema) {
  const bdf::ParseResult input = bdf::BDFParser::parse_file("Wasser 水.inp", schema, {});
  require(input.ok, "the input is fine; " + input.error);
  bdf::BDFEditor editor(input.data, schema);
  editor.set_charge_and_multiplicity(1, 2);
  editor.write_file("结果.inp");
}

// An exception thrown in the DLL is caught here by its type, with its text.
void expect_exception(const bdf::InputSchema& schema) {
  try {
    bdf::BDFEditor(bdf::BDFData(), schema).write_file("no such folder 文/job.inp");
  } catch (const std::runtime_error& error) {
    require(
        std::string(error.what()) == "failed to write BDF input file 'no such folder 文/job.inp'",
        "the exception names the file");
    return;
  }
  require(false, "a failed write throws");
}

}  // namespace

int main() try {
  const std::string vocabulary = bdf::resolve_schema_path({});
  require(vocabulary.find("\\用于 BDF 的 tools\\share\\kelp\\") != std::string::npos,
          "the vocabulary was found beside the DLL and not at '" + vocabulary + "'");
  const bdf::InputSchema& schema = bdf::default_schema();
  require(schema.is_known_module("scf"), "the vocabulary knows $scf");
  edit_input(schema);
  expect_exception(schema);
} catch (const std::exception& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
