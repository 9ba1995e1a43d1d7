#pragma once

#include <string>
#include <string_view>

#include "kelp/input/bdf/explain.hpp"

namespace kelp::app::lsp {

/// Returns an explanation as Markdown, short enough for a window beside the text.
std::string markdown_of(const input::bdf::Explanation& explanation);

/// Returns a text with what Markdown would obey escaped.
std::string markdown_text(std::string_view text);

}  // namespace kelp::app::lsp
