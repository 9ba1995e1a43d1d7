#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "cli/config_file.hpp"
#include "kelp/input/bdf/meaning.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::app {

struct Source;

/// What the program's exit status says. With several files the highest wins.
enum class ExitStatus : int {
  Success = 0,        ///< nothing to report
  Findings = 1,       ///< findings of error level, or a difference, or nothing found
  Failure = 2,        ///< the work could not be done
  InternalError = 3,  ///< a mistake of the program itself
};

constexpr ExitStatus worse_of(ExitStatus left, ExitStatus right) {
  return static_cast<int>(left) < static_cast<int>(right) ? right : left;
}

/// The options that every command has.
struct CommonOptions {
  std::string schema_file;  ///< empty: the one that belongs to the program
  std::string colour = "auto";
  bool quiet = false;
  std::string language;    ///< en, zh; empty: that of the configuration or the environment
  bool no_config = false;  ///< no configuration file holds
  std::string stdin_filename = "<stdin>";
  std::size_t max_size = 256'000'000;  ///< the most bytes of an input that are read
  std::string command;                 ///< the command's own name
};

/// A setting, and what set it: an option, a variable, a line of the configuration, nothing.
struct Choice {
  std::string value;
  std::string origin;
};

/// What the commands share.
struct Session {
  CommonOptions options;
  std::function<ExitStatus()> run;  ///< the command chosen; set while the options are read
  ConfigFiles configs;

  /// What holds for some inputs.
  struct Settings {
    const input::bdf::InputSchema* schema = nullptr;
    input::bdf::Language language = input::bdf::Language::English;
    const ConfigFile* config = nullptr;  ///< null when there is none

    /// Returns how many columns are wanted; `otherwise` when nothing says so.
    std::size_t width_or(std::size_t otherwise) const;
  };

  /// Returns the settings for an input, or for the current folder. They live as long as the
  /// session. A schema that a configuration names is told of on standard error. Not to be called by
  /// several threads.
  /// @throws std::runtime_error when the configuration is wrong or there is no schema.
  const Settings& settings_of(const Source& source);
  const Settings& settings();

  /// Returns the schema for the current folder, loading it on the first call.
  /// @throws std::runtime_error when there is none or it cannot be read.
  const input::bdf::InputSchema& schema() { return *settings().schema; }
  /// Returns the path of that schema.
  /// @throws std::runtime_error when there is none.
  std::string schema_path() { return schema_choice(config_of_folder({})).value; }
  /// Returns the language for the sentences of the vocabulary in the current folder.
  input::bdf::Language language() { return settings().language; }

  /// Returns the configuration that holds for an input; null for none.
  const ConfigFile* config_of(const Source& source);
  /// Returns the configuration that holds in a folder, given from the root on; in the current one
  /// when it is empty. Null for none.
  const ConfigFile* config_of_folder(const std::string& folder);

  Choice schema_choice(const ConfigFile* config) const;
  Choice language_choice(const ConfigFile* config) const;

 private:
  const Settings& settings_by(const ConfigFile* config);
  const input::bdf::InputSchema& schema_at(const std::string& path);

  std::map<std::string, input::bdf::InputSchema> schemas_;
  std::map<const ConfigFile*, Settings> settings_;
};

}  // namespace kelp::app
