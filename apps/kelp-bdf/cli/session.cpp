#include "cli/session.hpp"

#include <fmt/format.h>

#include <exception>
#include <stdexcept>
#include <utility>

#include "cli/output.hpp"
#include "cli/sources.hpp"
#include "kelp/core/resource.hpp"

namespace kelp::app {
namespace {

constexpr const char* schema_variable = "KELP_BDF_INP_SCHEMA_YAML";

std::string line_of(const ConfigFile& config, const std::string& key) {
  return fmt::format("{}:{}", config.path, config.lines.at(key));
}

}  // namespace

std::size_t Session::Settings::width_or(std::size_t otherwise) const {
  return config == nullptr ? otherwise : config->width.value_or(otherwise);
}

const Session::Settings& Session::settings_of(const Source& source) {
  return settings_by(config_of(source));
}

const Session::Settings& Session::settings() {
  return settings_by(config_of_folder({}));
}

const Session::Settings& Session::settings_by(const ConfigFile* config) {
  const auto known = settings_.find(config);
  if (known != settings_.end()) {
    return known->second;
  }
  const Choice schema = schema_choice(config);
  if (config != nullptr && schema.value == config->schema) {
    complain(fmt::format("the vocabulary is '{}', as {} says", schema.value, schema.origin));
  }
  Settings settings;
  settings.schema = &schema_at(schema.value);
  settings.language = input::bdf::language_of_locale(language_choice(config).value);
  settings.config = config;
  return settings_.emplace(config, settings).first->second;
}

const ConfigFile* Session::config_of(const Source& source) {
  if (source.path != "-") {
    return config_of_folder(core::resource::folder_of(core::resource::full_path(source.path)));
  }
  const bool has_name = options.stdin_filename != CommonOptions().stdin_filename;
  return config_of_folder(
      has_name ? core::resource::folder_of(core::resource::full_path(options.stdin_filename))
               : std::string());
}

const ConfigFile* Session::config_of_folder(const std::string& folder) {
  if (options.no_config) {
    return nullptr;
  }
  return configs.of_folder(folder.empty() ? core::resource::full_path(".") : folder);
}

// Without a vocabulary every keyword would be reported as unknown, and with another one than was
// asked for the wrong ones.
Choice Session::schema_choice(const ConfigFile* config) const {
  if (!options.schema_file.empty()) {
    return {options.schema_file, "--schema"};
  }
  if (const std::string file = core::resource::getenv_string(schema_variable); !file.empty()) {
    if (!core::resource::is_regular_file_path(file)) {
      throw std::runtime_error(
          fmt::format("{} names '{}', which is no file", schema_variable, file));
    }
    return {file, schema_variable};
  }
  if (config != nullptr && !config->schema.empty()) {
    return {config->schema, line_of(*config, "schema")};
  }
  std::string path = input::bdf::resolve_schema_path({});
  if (path.empty()) {
    throw std::runtime_error(
        fmt::format("no schema file found; name one with --schema or {}", schema_variable));
  }
  return {std::move(path), "that of the program"};
}

// The first variable that says anything counts, as for every program.
Choice Session::language_choice(const ConfigFile* config) const {
  if (!options.language.empty()) {
    return {options.language, "--lang"};
  }
  if (config != nullptr && !config->language.empty()) {
    return {config->language, line_of(*config, "language")};
  }
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (std::string value = core::resource::getenv_string(name); !value.empty()) {
      return {std::move(value), name};
    }
  }
  return {"en", "default"};
}

const input::bdf::InputSchema& Session::schema_at(const std::string& path) {
  const auto known = schemas_.find(path);
  if (known != schemas_.end()) {
    return known->second;
  }
  try {
    return schemas_.emplace(path, input::bdf::InputSchema::from_file(path)).first->second;
  } catch (const std::exception& error) {
    throw std::runtime_error(failure_text({path, path}, error));
  }
}

}  // namespace kelp::app
