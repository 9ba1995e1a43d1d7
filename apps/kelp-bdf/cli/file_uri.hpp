#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelp::app {

/// Returns the UTF-8 path of a `file:` URI; unset for any other.
std::optional<std::string> path_of_uri(std::string_view uri);

/// Returns the `file:` URI of an absolute UTF-8 path.
std::string uri_of_path(std::string_view path);

/// Returns the URI of the page on findings that comes with the program, where each code is a
/// heading; empty where the page was not installed.
const std::string& findings_page();

}  // namespace kelp::app
