#pragma once

/// @file
/// Patterns of file names.

#include <string_view>

namespace kelp::core::glob {

/// Tells whether a pattern matches a whole path with slashes. `*` stands for any characters but a
/// slash, `?` for one of them, `[a-z]` for one of these, `[!a-z]` for one that is none of these,
/// and
/// `**` for anything, slashes too; `**/` for any folders or none, so that `**/a.inp` matches
/// `a.inp`. Every other character stands for itself, a bracket without its end too. Capital and
/// small letters differ.
bool matches(std::string_view pattern, std::string_view path);

}  // namespace kelp::core::glob
