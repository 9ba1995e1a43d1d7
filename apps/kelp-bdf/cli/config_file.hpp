#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/exclusion.hpp"
#include "kelp/input/bdf/diagnostics.hpp"

namespace kelp::app {

/// The name of a configuration file.
inline constexpr std::string_view config_name = ".kelp-bdf.toml";

/// The narrowest and the widest that a configuration may ask for, in columns.
inline constexpr std::size_t least_width = 40;
inline constexpr std::size_t greatest_width = 1000;

/// What a configuration file says; empty or unset what it says nothing of.
struct ConfigFile {
  std::string path;      ///< from the root on
  std::string schema;    ///< a file beside it, from the root on
  std::string language;  ///< en, zh
  std::optional<std::size_t> width;
  std::vector<std::string> exclude;             ///< patterns as they are written
  std::vector<input::bdf::SeverityRule> rules;  ///< in the order of the file
  std::map<std::string, std::size_t> lines;     ///< the line of each key; of a rule, its pattern
};

/// Reads a configuration file.
/// @throws std::runtime_error naming the file, the line and what is wrong there.
ConfigFile read_config_file(const std::string& path);

/// Finds and keeps the configuration files of inputs: for each the nearest one, in its folder or
/// above.
class ConfigFiles {
 public:
  /// Returns the configuration that holds in a folder, given from the root on; null for none. It
  /// lives as long as this object.
  /// @throws std::runtime_error when there is one that cannot be read or is wrong.
  const ConfigFile* of_folder(const std::string& folder);

  /// Tells whether the configuration leaves a file or folder out of the folder that holds it.
  bool leaves_out(const std::string& path);

 private:
  struct Loaded {
    ConfigFile config;
    std::string error;
    Exclusion exclusion = Exclusion("", {});
  };

  Loaded* loaded_of_folder(const std::string& folder);
  Loaded& load(const std::string& path);

  std::map<std::string, Loaded*> folders_;
  std::map<std::string, Loaded> files_;
};

}  // namespace kelp::app
