#include "written_path.hpp"

#include <stdexcept>
#include <utility>

namespace kelp::app {

WrittenPath read_path(std::string_view text) {
  input::bdf::PathResult result = input::bdf::parse_path(text);
  if (!result.path) {
    throw std::runtime_error(result.error);
  }
  return {std::move(*result.path), std::string(text)};
}

}  // namespace kelp::app
