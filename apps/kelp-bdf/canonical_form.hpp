#pragma once

#include <string>

#include "checked_input.hpp"
#include "kelp/input/bdf/document.hpp"

namespace kelp::app {

/// Returns an input's document without the empty lines that directly follow its geometry: the
/// canonical form has one there, which would otherwise become one more each time.
input::bdf::BDFData canonical_document(const CheckedInput& input);

/// Returns an input in the canonical form.
std::string canonical_text(const CheckedInput& input);

/// Tells whether a text holds nothing that belongs to an input: at most comments.
bool is_empty_input(const CheckedInput& input);

}  // namespace kelp::app
