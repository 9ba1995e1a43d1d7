#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/editor.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "written_path.hpp"

namespace kelp::app {

/// A change that an input does not allow.
class ImpossibleEdit : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A value to put at a path.
struct Assignment {
  WrittenPath path;
  std::vector<std::string> values;  ///< its lines; none for a keyword without a value
};

/// Reads PATH=VALUE, where `\n` in the value begins a new line.
/// @throws std::runtime_error saying what is wrong about it.
Assignment parse_assignment(const std::string& text);

/// All that is to be changed in an input. The numbers of modules are those of the input as read.
struct Edit {
  std::optional<int> charge;
  std::optional<int> multiplicity;
  std::optional<std::string> script_name;
  std::optional<std::vector<input::bdf::AtomRecord>> geometry;
  std::vector<Assignment> assignments;
  std::vector<WrittenPath> unset;
};

/// Makes all changes.
/// @throws ImpossibleEdit saying which one is impossible, and why.
void apply_edit(const Edit& edit, input::bdf::BDFEditor& editor,
                const input::bdf::InputSchema& schema);

}  // namespace kelp::app
