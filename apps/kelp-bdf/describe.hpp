#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/schema.hpp"

namespace kelp::app {

/// Returns the schema's word for a kind: "counted_rows".
std::string_view kind_name(input::bdf::EntryValueKind kind);

/// Says in a sentence how an entry of a kind is written.
std::string_view kind_text(input::bdf::EntryValueKind kind);

/// Returns the type of an entry's values, for rows the types of the columns; empty for a flag and
/// for a block.
std::string type_name(const input::bdf::EntrySchemaInfo& info);

/// Returns the lines that write an entry with made-up values that its description accepts.
/// `children` are the names of a nested block's entries.
std::vector<std::string> layout_example(const input::bdf::EntrySchemaInfo& info,
                                        const std::vector<std::string>& children);

/// Returns a word of the header that sets an easy keyword: "charge=0".
std::string header_example(const input::bdf::EntrySchemaInfo& info);

/// Returns what is to be known about a description beside its kind, as pairs of a heading and a
/// text: type, values allowed, bounds, default and so on.
std::vector<std::pair<std::string, std::string>> facts(const input::bdf::EntrySchemaInfo& info,
                                                       const std::vector<std::string>& aliases);

}  // namespace kelp::app
