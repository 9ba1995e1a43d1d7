#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exit_status.hpp"
#include "session.hpp"

namespace kelp::app {

/// Lays rows out in columns parted by two blanks, each as wide as its widest cell, the first row
/// being the heading. The last column is not filled up.
std::string table_text(const std::vector<std::vector<std::string>>& rows);

/// Returns the table of modules and the number of their entries.
std::string module_table(const input::bdf::InputSchema& schema);

/// Returns the table of a module's entries; with the name "easy" that of the header's keywords.
std::string entry_table(const input::bdf::InputSchema& schema, std::string_view module);

/// Prints one of these tables; with an unknown module, says so.
ExitStatus list_schema(const std::string& module, Session& session);

}  // namespace kelp::app
