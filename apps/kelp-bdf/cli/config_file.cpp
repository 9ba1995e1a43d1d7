// The file of a folder that somebody else made must do no harm: it names no program, and no file
// but one that lies beside it; whatever it holds that is not understood is an error, so that a
// misspelt key does not go unnoticed.

#include "cli/config_file.hpp"

#include <fmt/format.h>
#include <toml++/toml.h>

#include <stdexcept>
#include <utility>

#include "cli/output.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/core/resource.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::app {
namespace {

using input::bdf::SeverityAction;

constexpr std::size_t largest_file = 1'000'000;

/// Turns a table into what it means, or throws where it means nothing.
class Reader {
 public:
  explicit Reader(const std::string& path) { config_.path = path; }

  ConfigFile read() {
    const std::string text = core::fs::read_text_file(config_.path, largest_file);
    const toml::parse_result result = toml::parse(std::string_view(text));
    if (!result) {
      fail(result.error().source().begin.line, std::string(result.error().description()));
    }
    for (const auto& [key, value] : result.table()) {
      read_key(std::string(key.str()), value);
    }
    return std::move(config_);
  }

 private:
  [[noreturn]] void fail(std::size_t line, const std::string& text) const {
    throw std::runtime_error(fmt::format("{}:{}: {}", config_.path, line, text));
  }
  [[noreturn]] void fail(const toml::node& value, const std::string& text) const {
    fail(value.source().begin.line, text);
  }

  void read_key(const std::string& key, const toml::node& value) {
    static const std::vector<std::string> keys = {"exclude", "language", "schema", "severities",
                                                  "width"};
    config_.lines[key] = value.source().begin.line;
    if (key == "exclude") {
      read_exclude(value);
    } else if (key == "language") {
      read_language(value);
    } else if (key == "schema") {
      read_schema(value);
    } else if (key == "severities") {
      read_severities(value);
    } else if (key == "width") {
      read_width(value);
    } else {
      fail(value, fmt::format("unknown key '{}'{}", key,
                              did_you_mean(input::bdf::similar_names(key, keys))));
    }
  }

  std::string text_of(const toml::node& value, std::string_view what) const {
    const std::optional<std::string> text = value.value_exact<std::string>();
    if (!text || text->empty()) {
      fail(value, fmt::format("{} must be a text in quotes", what));
    }
    return *text;
  }

  void read_exclude(const toml::node& value) {
    const toml::array* const patterns = value.as_array();
    if (patterns == nullptr) {
      fail(value, "exclude must be a list of patterns: [\"old\", \"runs/**\"]");
    }
    for (const toml::node& pattern : *patterns) {
      config_.exclude.push_back(text_of(pattern, "a pattern"));
    }
  }

  void read_language(const toml::node& value) {
    config_.language = text_of(value, "language");
    if (config_.language != "en" && config_.language != "zh") {
      fail(value, "language must be \"en\" or \"zh\"");
    }
  }

  void read_schema(const toml::node& value) {
    const std::string name = text_of(value, "schema");
    const std::string file = core::resource::path_beside(config_.path, name);
    const std::string folder = core::resource::folder_of(config_.path);
    if (name.find_first_of("/\\:") != std::string::npos || name.starts_with('.')) {
      fail(value, fmt::format("schema must be the name of a file in this folder, not '{}'", name));
    }
    if (!core::resource::is_regular_file_path(file) || !core::resource::lies_in(file, folder)) {
      fail(value, fmt::format("there is no file '{}' in this folder", name));
    }
    config_.schema = file;
  }

  void read_width(const toml::node& value) {
    const std::optional<std::int64_t> width = value.value_exact<std::int64_t>();
    if (!width || *width < static_cast<std::int64_t>(least_width) ||
        *width > static_cast<std::int64_t>(greatest_width)) {
      fail(value, fmt::format("width must be a number of columns from {} to {}", least_width,
                              greatest_width));
    }
    config_.width = static_cast<std::size_t>(*width);
  }

  SeverityAction action_of(const toml::node& value) const {
    const std::optional<std::string> word = value.value_exact<std::string>();
    if (word == "error") {
      return SeverityAction::Deny;
    }
    if (word == "warning") {
      return SeverityAction::Warn;
    }
    if (word == "allow") {
      return SeverityAction::Allow;
    }
    fail(value, "a severity must be \"error\", \"warning\" or \"allow\"");
  }

  // The table is in the order of its keys; of several rules about one code the last in the file
  // counts.
  void read_severities(const toml::node& value) {
    const toml::table* const table = value.as_table();
    if (table == nullptr) {
      fail(value, "severities must be a table: [severities]");
    }
    std::multimap<std::pair<std::size_t, std::size_t>, input::bdf::SeverityRule> in_order;
    for (const auto& [key, action] : *table) {
      const std::string pattern(key.str());
      if (!input::bdf::means_any_code(pattern)) {
        fail(action, fmt::format("there is no code '{}'{}", pattern,
                                 did_you_mean(input::bdf::similar_codes(pattern))));
      }
      const toml::source_position at = action.source().begin;
      config_.lines[pattern] = at.line;
      in_order.emplace(std::pair(at.line, at.column),
                       input::bdf::SeverityRule{pattern, action_of(action)});
    }
    for (auto& [at, rule] : in_order) {
      config_.rules.push_back(std::move(rule));
    }
  }

  ConfigFile config_;
};

// In a folder where everybody may write, such as /tmp, anybody could hide findings of all who work
// below it.
bool is_trusted(const std::string& file) {
  if (!core::resource::belongs_to_stranger(file)) {
    return true;
  }
  complain(fmt::format("'{}' does not hold: it belongs to another user", file));
  return false;
}

}  // namespace

ConfigFile read_config_file(const std::string& path) {
  return Reader(path).read();
}

const ConfigFile* ConfigFiles::of_folder(const std::string& folder) {
  const Loaded* const loaded = loaded_of_folder(folder);
  if (loaded == nullptr) {
    return nullptr;
  }
  if (!loaded->error.empty()) {
    throw std::runtime_error(loaded->error);
  }
  return &loaded->config;
}

// A configuration that is wrong is told of when its inputs are worked on.
bool ConfigFiles::leaves_out(const std::string& path) {
  const std::string full = core::resource::full_path(path);
  const Loaded* const loaded = loaded_of_folder(core::resource::folder_of(full));
  return loaded != nullptr && loaded->exclusion.leaves_out(full);
}

ConfigFiles::Loaded* ConfigFiles::loaded_of_folder(const std::string& folder) {
  const auto known = folders_.find(folder);
  if (known != folders_.end()) {
    return known->second;
  }
  const std::string file = core::resource::path_beside(folder + "/.", std::string(config_name));
  const std::string parent = core::resource::folder_of(folder);
  Loaded* loaded = nullptr;
  if (core::resource::is_regular_file_path(file) && is_trusted(file)) {
    loaded = &load(file);
  } else if (!parent.empty() && parent != folder) {
    loaded = loaded_of_folder(parent);
  }
  folders_[folder] = loaded;
  return loaded;
}

ConfigFiles::Loaded& ConfigFiles::load(const std::string& path) {
  Loaded& loaded = files_[path];
  try {
    loaded.config = read_config_file(path);
    loaded.exclusion = Exclusion(core::resource::folder_of(path), loaded.config.exclude);
  } catch (const std::exception& error) {
    loaded.error = error.what();
  }
  return loaded;
}

}  // namespace kelp::app
