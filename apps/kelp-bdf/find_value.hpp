#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "value_path.hpp"

namespace kelp::app {

/// Returns the module that a path names, or null.
const input::bdf::Module* find_module(const input::bdf::BDFData& data,
                                      const input::bdf::InputSchema& schema, const ValuePath& path);

/// Returns how many modules a document has of the name in a path.
std::size_t count_modules(const input::bdf::BDFData& data, const input::bdf::InputSchema& schema,
                          const ValuePath& path);

/// Returns the value lines at a path, trimmed: none for a keyword without values, rows of name and
/// coordinates for the geometry; unset when there is nothing at that path.
std::optional<std::vector<std::string>> find_value(const input::bdf::BDFData& data,
                                                   const input::bdf::InputSchema& schema,
                                                   const ValuePath& path);

/// Returns what may have been meant by a path whose names the schema does not know, as the end of a
/// message: "; did you mean 'charge'?" or nothing.
std::string path_hint(const input::bdf::InputSchema& schema, const ValuePath& path);

}  // namespace kelp::app
