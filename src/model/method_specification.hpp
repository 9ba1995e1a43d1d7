#pragma once

#include <algorithm>

#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

/// Tells whether the header says which method, functional or basis set is used. Without that, what
/// is read as a header may be none.
inline bool has_method_specification(const BDFData& data) {
  return std::any_of(data.easy_tokens.begin(), data.easy_tokens.end(),
                     [](const EasyToken& token) { return token.category == "method_spec"; });
}

}  // namespace kelp::input::bdf
