#pragma once

#include "lsp/message.hpp"

namespace kelp::app::lsp {

/// Returns the names of the types of tokens, by their numbers.
Json token_types();

}  // namespace kelp::app::lsp
