#include <exception>

#include "cli/command_line.hpp"
#include "cli/output.hpp"
#include "kelp/core/console.hpp"

int main(int count, char** values) {
  kelp::app::ExitStatus status = kelp::app::ExitStatus::InternalError;
  try {
    kelp::core::console::use_plain_bytes();
    kelp::core::console::let_size_limits_be_errors();
    status = kelp::app::run(kelp::core::console::arguments(count, values));
  } catch (const std::exception& error) {
    kelp::app::complain(error.what());
  }
  return static_cast<int>(status);
}
