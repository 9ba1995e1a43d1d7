#include "schema/normalize_key.hpp"

#include <stdexcept>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {

std::string_view require_text(std::string_view text) {
  if (text.data() == nullptr && !text.empty()) {
    throw std::logic_error("a name of non-zero length has no text");
  }
  return text;
}

std::string normalize_key(std::string_view text) {
  std::string_view key = core::text::trim_view(require_text(text));
  if (!key.empty() && key.front() == '$') {
    key.remove_prefix(1);
  }
  return core::text::to_lower(key);
}

}  // namespace kelp::input::bdf
