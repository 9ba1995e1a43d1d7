#pragma once

// The command as its users see it: `Program` runs the built kelp-bdf in a folder of its own.
//
//     Program program;
//     program.write("a.inp", "...");
//     const Outcome outcome = program.run({"check", "a.inp"});
//     EXPECT_EQ(outcome.status, 0);
//     EXPECT_EQ(outcome.out, "");

#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/files.hpp"
#include "support/process.hpp"

namespace kelp::test {

/// What a run came to.
struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

/// Shows an outcome when a test fails.
void PrintTo(const Outcome& outcome, std::ostream* stream);

/// The built kelp-bdf, in an empty folder that is removed with it. The variables that change what
/// the command does (NO_COLOR, TERM, KELP_BDF_INP_SCHEMA_YAML, and those of the language) are unset
/// unless a test sets them.
class Program {
 public:
  Program();

  /// Returns the folder that the command runs in.
  const std::filesystem::path& folder() const { return folder_; }
  /// Writes a file into that folder, making the folders above it; the name is UTF-8.
  void write(std::string_view name, std::string_view text) const;
  /// Returns the bytes of a file of that folder; empty when there is none.
  std::string read(std::string_view name) const;

  /// Sets an environment variable for the runs to come, or takes it away.
  void set_variable(std::string name, std::optional<std::string> value);

  /// Runs the command with these arguments and this text as standard input.
  Outcome run(std::vector<std::string> arguments, std::string_view input = {});

  /// Runs a script with `sh`, in which "$KELP_BDF" is the command. Only for what is about pipes,
  /// devices and limits: there is no such shell on Windows.
  Outcome run_in_shell(std::string script);

 private:
  Outcome run(const std::filesystem::path& program, std::vector<std::string> arguments,
              std::string_view input);

  TemporaryFolder root_;
  std::filesystem::path folder_;
  ProcessSetup setup_;
};

}  // namespace kelp::test
