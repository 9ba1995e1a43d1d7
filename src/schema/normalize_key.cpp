#include "schema/normalize_key.hpp"

#include <stdexcept>

namespace kelp::input::bdf {

std::string_view require_text(std::string_view text) {
  if (text.data() == nullptr && !text.empty()) {
    throw std::logic_error("a name of non-zero length has no text");
  }
  return text;
}

std::string normalize_key(std::string_view text) {
  return core::text::to_lower(bare_key(require_text(text)));
}

}  // namespace kelp::input::bdf
