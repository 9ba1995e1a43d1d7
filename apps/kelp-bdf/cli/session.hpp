#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "kelp/input/bdf/meaning.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::app {

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
  std::string language;  ///< en, zh; empty: that of the environment
  std::string stdin_filename = "<stdin>";
  std::size_t max_size = 256'000'000;  ///< the most bytes of an input that are read
  std::string command;                 ///< the command's own name
};

/// What the commands share.
struct Session {
  CommonOptions options;
  std::function<ExitStatus()> run;  ///< the command chosen; set while the options are read

  /// Returns the schema to use, loading it on the first call.
  /// @throws std::runtime_error when there is none or it cannot be read.
  const input::bdf::InputSchema& schema();
  /// Returns the path of the schema in use.
  /// @throws std::runtime_error when there is none.
  std::string schema_path() const;
  /// Returns the language for the sentences of the vocabulary.
  input::bdf::Language language() const;

 private:
  std::optional<input::bdf::InputSchema> schema_;
};

}  // namespace kelp::app
