#pragma once

#include <string_view>

#include "kelp/input/bdf/document.hpp"

namespace kelp::input::bdf {

/// The parts of a method specification as they are written, views into its text; a part that is not
/// there is empty.
struct SpecificationParts {
  std::string_view method;
  std::string_view functional;
  std::string_view basis;
};

/// Returns the parts of a token; all empty when it is no specification of two or three parts.
SpecificationParts specification_parts(const EasyToken& token);

}  // namespace kelp::input::bdf
