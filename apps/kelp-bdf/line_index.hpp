#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "kelp/input/bdf/document.hpp"

namespace kelp::app {

/// The module or entry that stands at a line.
struct Place {
  const input::bdf::Module* module = nullptr;
  const input::bdf::ModuleEntry* entry = nullptr;  ///< null on a module's header line
  const input::bdf::ModuleEntry* child = nullptr;  ///< null unless within a nested block

  /// Returns the record at the line itself.
  const input::bdf::ModuleEntry* record() const { return child != nullptr ? child : entry; }
};

/// Finds the records of a document by line. The document must outlive it, and stay as it is.
class LineIndex {
 public:
  explicit LineIndex(const input::bdf::BDFData& data);

  /// Returns what the document has at a line; an empty place where no record begins.
  Place place(std::size_t line) const;
  /// Returns the path under which a record can be read and set, for example scf#2.charge.
  std::string path(const Place& place) const;

 private:
  std::unordered_map<std::size_t, Place> places_;
  std::unordered_map<const input::bdf::Module*, std::size_t> numbers_;  ///< among its namesakes
};

/// Look up a single place or path; for more than a few, make a `LineIndex`.
Place find_place(const input::bdf::BDFData& data, std::size_t line);
std::string path_of(const input::bdf::BDFData& data, const Place& place);

}  // namespace kelp::app
