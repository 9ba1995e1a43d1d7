#pragma once

// Cases of advice, read from tests/data/expert: README.md there tells how they are written.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"

namespace kelp::test {

/// An input with the advice that it gets.
struct AdviceCase {
  std::filesystem::path file;
  std::size_t line = 0;  ///< of its title
  std::string title;     ///< "fires electrons.spin_parity: a doublet of ten electrons"
  bool fires = false;    ///< else the code must be silent
  std::string code;
  std::string text;
  std::optional<std::vector<std::string>> files;  ///< those beside the input
  std::vector<std::string> expected;              ///< lines ">>>" without that mark
};

/// Reads all files of cases; a malformed one is a failure of the test.
std::vector<AdviceCase> advice_cases();

/// Returns the advice on an input.
std::vector<input::bdf::Diagnostic> advice_on(
    std::string_view text, const std::optional<std::vector<std::string>>& files = std::nullopt);

/// Writes a piece of advice down as the files have it: "error electrons.spin_parity 15:3 '2'".
std::string written(const input::bdf::Diagnostic& diagnostic, std::string_view text);

/// Writes the lines ">>>" of a file anew.
void update_expectations(const std::filesystem::path& file, const std::vector<AdviceCase>& cases);

}  // namespace kelp::test
