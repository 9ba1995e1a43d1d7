#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "checked_input.hpp"

namespace kelp::app {

/// The lines on which a name is given first and again; 0 for none.
struct NameLines {
  std::size_t first = 0;
  std::size_t again = 0;
};

/// Lines by canonical name.
using NameTable = std::map<std::string, NameLines, std::less<>>;

/// Tells where the records of an input that share an owner repeat a name. The input must outlive
/// it.
class Namesakes {
 public:
  explicit Namesakes(const CheckedInput& input) : input_(input) {}

  /// Returns where the modules begin.
  const NameTable& modules();
  /// Returns where the entries of a module begin; until the next question.
  const NameTable& entries(const input::bdf::Module& module);
  /// Returns where the entries of a nested block begin; until the next question.
  const NameTable& children(const input::bdf::Module& module, const input::bdf::ModuleEntry& block);

 private:
  const CheckedInput& input_;
  // Findings come module by module, and within a module block by block.
  NameTable modules_;
  NameTable entries_;
  NameTable children_;
  const input::bdf::Module* module_ = nullptr;      ///< whose `entries_` are
  const input::bdf::ModuleEntry* block_ = nullptr;  ///< whose `children_` are
};

}  // namespace kelp::app
