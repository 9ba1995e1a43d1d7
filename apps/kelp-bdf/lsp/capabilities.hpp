#pragma once

#include "lsp/message.hpp"
#include "lsp/settings.hpp"

namespace kelp::app::lsp {

/// Returns what the server tells a client that it can do.
Json capabilities(const Client& client);

}  // namespace kelp::app::lsp
