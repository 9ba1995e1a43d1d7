// Builds a schema from a text, and behind a NUL byte reads an input with it; where it is a schema,
// asks every question. What the linter has nothing against can be read.

#include <stdexcept>
#include <string>

#include "checks.hpp"
#include "kelp/input/bdf/schema_lint.hpp"

namespace {

using namespace kelp::input::bdf;

void ask_about_module(const InputSchema& schema, const std::string& module) {
  std::string text = "$" + module + "\n";
  for (const std::string name : {"a", "s", "nest", "geometry"}) {
    schema.entry_info(module, name);
    schema.entry_value_kind(module, name);
    schema.nested_entry_info(module, name, "a");
    text += name + "\n 1\n";
  }
  BDFParser::parse_string(text, schema, ParseOptions());
}

void ask(const InputSchema& schema) {
  for (const std::string& module : schema.known_modules()) {
    ask_about_module(schema, module);
  }
  for (const std::string token : {"hf/svp", "a/b/c", "charge=1", "#", "="}) {
    schema.canonical_easy_token(token);
    schema.easy_token_category(token);
    schema.is_known_easy_token(token);
  }
  schema.metadata();
  BDFParser::parse_string("hf/svp charge=1\ngeometry\nH 0 0 0\nend geometry\n", schema, {});
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kelp::fuzz::Decisions decisions(data, size);
  const std::string yaml = decisions.text();
  bool is_right = true;
  for (const SchemaProblem& problem : lint_schema(yaml)) {
    is_right = is_right && problem.severity != ValidationSeverity::Error;
  }
  try {
    const InputSchema schema = InputSchema::from_yaml(yaml);
    ask(schema);
    diagnose(ParsedInput(std::string(decisions.rest()), schema), {});
  } catch (const std::runtime_error&) {  // no schema
    if (is_right && yaml.find("knowledge") == std::string::npos) {
      kelp::fuzz::expect_none({"the linter passes what cannot be read"});
    }
  }
  return 0;
}
