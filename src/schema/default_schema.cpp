#include <string>

#include "kelp/core/resource.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

std::string resolve_schema_path(const std::string& hint) {
  // Far enough to climb from a program in a build tree or a prefix's lib/<triplet>/ folder.
  constexpr int parents = 6;
  std::string named = core::resource::getenv_string("KELP_BDF_INP_SCHEMA_YAML");
  if (!named.empty() && core::resource::is_regular_file_path(named)) {
    return named;
  }
  return core::resource::locate_file("schemas/input/bdf.yaml", hint, {}, parents);
}

const InputSchema& default_schema() {
  // A load that throws leaves this uninitialised, so the next call tries again.
  static const InputSchema schema = [] {
    const std::string path = resolve_schema_path({});
    return path.empty() ? InputSchema() : InputSchema::from_file(path);
  }();
  return schema;
}

}  // namespace kelp::input::bdf
