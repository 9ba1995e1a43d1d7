// Says what this process takes for its schema: the path, and the modules of the default schema.

#include <cstdio>
#include <exception>
#include <string>

#include "kelp/input/bdf.hpp"

int main() {
  using namespace kelp::input::bdf;
  std::printf("path '%s'\n", resolve_schema_path({}).c_str());
  try {
    const InputSchema& schema = default_schema();
    std::printf("empty %d\n", schema.empty() ? 1 : 0);
    for (const std::string& module : schema.known_modules()) {
      std::printf("module %s\n", module.c_str());
    }
    ParseOptions options;
    options.custom_unknown_policy = true;
    const ParseResult result = BDFParser::parse_string("$own\nx\n$end\n", schema, options);
    std::printf("parsed %d known %d\n", result.ok ? 1 : 0, result.data.modules.at(0).known ? 1 : 0);
  } catch (const std::exception& error) {
    std::printf("error %s\n", error.what());
  }
  return 0;
}
