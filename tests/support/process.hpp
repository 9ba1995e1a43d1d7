#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelp::test {

/// How to run a program. Its three standard streams are files, so that no amount of text blocks it.
struct ProcessSetup {
  std::filesystem::path program;
  std::vector<std::string> arguments;  ///< UTF-8, without the program's name
  std::filesystem::path folder;        ///< becomes the current folder
  std::filesystem::path input;
  std::filesystem::path output;
  std::filesystem::path errors;
  /// Changes to the environment of the test; a variable without value is taken away.
  std::vector<std::pair<std::string, std::optional<std::string>>> variables;
};

/// Runs a program to its end and returns its exit status; 128 and the signal's number when a signal
/// ended it.
/// @throws std::runtime_error when it cannot be started.
int run_process(const ProcessSetup& setup);

}  // namespace kelp::test
