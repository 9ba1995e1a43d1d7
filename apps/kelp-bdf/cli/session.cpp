#include "cli/session.hpp"

#include <stdexcept>

#include "kelp/core/resource.hpp"

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

// The first variable that says anything counts, as for every program.
input::bdf::Language Session::language() const {
  if (!options.language.empty()) {
    return input::bdf::language_of_locale(options.language);
  }
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (const std::string value = core::resource::getenv_string(name); !value.empty()) {
      return input::bdf::language_of_locale(value);
    }
  }
  return input::bdf::Language::English;
}

}  // namespace kelp::app
