#include "model/script_name.hpp"

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {

std::string normalize_script_name(std::string_view name) {
  constexpr std::string_view marker = "#!";
  std::string_view bare = core::text::trim_view(name);
  if (bare.starts_with(marker)) {
    bare = core::text::trim_view(bare.substr(marker.size()));
  }
  return std::string(bare.empty() ? std::string_view("job.bdf") : bare);
}

}  // namespace kelp::input::bdf
