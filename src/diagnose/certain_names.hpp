#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

/// Tells whether a word is a slip of a name beyond doubt: one stroke beside it, two in a long name.
/// A first letter too few or too many makes another word of it (`solver`, `isolver`), and a digit
/// another name.
bool is_certain_slip(std::string_view written, std::string_view meant);

/// A keyword with a number glued to it: `istore2`, `charge-3`.
struct GluedNumber {
  std::string_view keyword;
  std::string_view number;  ///< with its sign
};

/// Cuts the number off a word; unset when it does not end in one, or is nothing else.
std::optional<GluedNumber> glued_number(std::string_view word);

/// Returns what would be the value of an unknown entry if its first word were a keyword: what
/// stands behind the word, the values that were read with it, or the lines of nobody that follow.
/// `siblings` are the entries that it stands among; the views point into them.
std::vector<std::string_view> value_behind(const std::vector<ModuleEntry>& siblings,
                                           const ModuleEntry& entry);

/// Tells whether an entry takes such lines: its own kind of value, none of a flag.
bool takes_value(const EntrySchemaInfo& info, const std::vector<std::string_view>& lines);

}  // namespace kelp::input::bdf
