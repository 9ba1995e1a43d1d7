// Uses a bit of every room. The argument is the folder under which the vocabulary must be found.

#include <cstdlib>
#include <iostream>
#include <kelp/input/bdf.hpp>
#include <string>

namespace {

namespace bdf = kelp::input::bdf;

void require(bool condition, const char* claim) {
  if (!condition) {
    std::cerr << "not true: " << claim << '\n';
    std::exit(1);
  }
}

}  // namespace

int main(int count, char** arguments) {
  require(count == 2, "one argument was given");
  const std::string path = bdf::resolve_schema_path({});
  std::cout << "vocabulary: " << path << '\n';
  require(path.rfind(arguments[1], 0) == 0, "the vocabulary was found beside the library");
  const bdf::InputSchema& schema = bdf::default_schema();
  require(schema.is_known_module("scf"), "the vocabulary knows $scf");

  const bdf::ParseResult input =
      bdf::BDFParser::parse_string("$scf\nrhf\nmaxiter\n  fast\n$end\n", schema, {});
  require(!input.ok, "a word is no number of iterations");
  require(input.error.find("'scf.maxiter'") != std::string::npos, "the error names the entry");

  bdf::BDFEditor editor(input.data, schema);
  editor.set_module_entry("$SCF", "MaxIter", {"50"});
  require(editor.render() == "$scf\n  rhf\n  maxiter\n    50\n$end\n",
          "the corrected input is as expected");
}
