// Builds a schema from a text; where it is one, asks every question and reads an input with it.

#include <stdexcept>

#include "checks.hpp"

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
  try {
    ask(InputSchema::from_yaml({reinterpret_cast<const char*>(data), size}));
  } catch (const std::runtime_error&) {  // no schema
  }
  return 0;
}
