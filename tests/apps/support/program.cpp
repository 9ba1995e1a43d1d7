#include "support/program.hpp"

#include <ostream>
#include <utility>

namespace kelp::test {
namespace {

std::filesystem::path from_utf8(std::string_view text) {
  return std::u8string(text.begin(), text.end());
}

std::filesystem::path built_program() {
  return std::filesystem::absolute(from_utf8(KELP_BDF_PROGRAM));
}

}  // namespace

void PrintTo(const Outcome& outcome, std::ostream* stream) {
  *stream << "status " << outcome.status << "\n--- output\n"
          << outcome.out << "--- errors\n"
          << outcome.err << "---";
}

Program::Program() : folder_(root_ / "work") {
  std::filesystem::create_directory(folder_);
  setup_.folder = folder_;
  setup_.input = root_ / "input";
  setup_.output = root_ / "output";
  setup_.errors = root_ / "errors";
  for (const char* const name : {"NO_COLOR", "CLICOLOR_FORCE", "FORCE_HYPERLINK", "TERM",
                                 "KELP_BDF_INP_SCHEMA_YAML", "LC_ALL", "LC_MESSAGES", "LANG"}) {
    set_variable(name, std::nullopt);
  }
}

void Program::write(std::string_view name, std::string_view text) const {
  write_file(folder_ / from_utf8(name), text);
}

std::string Program::read(std::string_view name) const {
  return file_bytes(folder_ / from_utf8(name));
}

void Program::set_variable(std::string name, std::optional<std::string> value) {
  setup_.variables.emplace_back(std::move(name), std::move(value));
}

Outcome Program::run(std::vector<std::string> arguments, std::string_view input) {
  return run(built_program(), std::move(arguments), input);
}

Outcome Program::run_in_shell(std::string script) {
  set_variable("KELP_BDF", utf8(built_program()));
  return run("/bin/sh", {"-c", std::move(script)}, {});
}

Outcome Program::run(const std::filesystem::path& program, std::vector<std::string> arguments,
                     std::string_view input) {
  write_file(setup_.input, input);
  setup_.program = program;
  setup_.arguments = std::move(arguments);
  Outcome outcome;
  outcome.status = run_process(setup_);
  outcome.out = file_bytes(setup_.output);
  outcome.err = file_bytes(setup_.errors);
  return outcome;
}

}  // namespace kelp::test
