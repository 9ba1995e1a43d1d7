#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

/// Returns how many of the words behind a keyword of the header are its value, as in `charge 1`:
/// none, one, or several numbers where the keyword takes several. What the schema knows as a word
/// of its own is no value, and neither is a comment.
/// @param words a keyword and the words behind it
/// @param is_whole_line whether these are all the words of their line: then a keyword and one word
///     more can mean nothing else, whatever the word is
std::size_t count_easy_value_words(std::span<const std::string_view> words,
                                   const InputSchema& schema, bool is_whole_line);

}  // namespace kelp::input::bdf
