#include "cli/session.hpp"

#include <stdexcept>

namespace kelp::app {

std::string Session::schema_path() const {
  std::string path =
      options.schema_file.empty() ? input::bdf::resolve_schema_path({}) : options.schema_file;
  // Without a vocabulary every keyword would be reported as unknown.
  if (path.empty()) {
    throw std::runtime_error(
        "no schema file found; name one with --schema or KELP_BDF_INP_SCHEMA_YAML");
  }
  return path;
}

const input::bdf::InputSchema& Session::schema() {
  if (!schema_) {
    schema_ = input::bdf::InputSchema::from_file(schema_path());
  }
  return *schema_;
}

}  // namespace kelp::app
