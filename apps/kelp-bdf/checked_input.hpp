#pragma once

#include <string>
#include <string_view>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "source_text.hpp"

namespace kelp::app {

/// An input as read: its text, and what the library understood of it.
struct CheckedInput {
  CheckedInput(std::string file_name, std::string file_text,
               const input::bdf::InputSchema& vocabulary);

  std::string name;
  SourceText source;
  const input::bdf::InputSchema& schema;
  input::bdf::ParseResult result;
};

/// The module or entry that stands at a line.
struct Place {
  const input::bdf::Module* module = nullptr;
  const input::bdf::ModuleEntry* entry = nullptr;  ///< null on a module's header line
  const input::bdf::ModuleEntry* child = nullptr;  ///< null unless within a nested block

  /// Returns the record at the line itself.
  const input::bdf::ModuleEntry* record() const { return child != nullptr ? child : entry; }
};

/// Returns what the document has at a line.
Place find_place(const input::bdf::BDFData& data, std::size_t line);

/// Returns the path under which a record can be read and set, for example scf#2.charge.
std::string path_of(const input::bdf::BDFData& data, const Place& place);

}  // namespace kelp::app
