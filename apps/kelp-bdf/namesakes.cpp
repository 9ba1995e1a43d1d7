#include "namesakes.hpp"

#include "line_of.hpp"

#include <optional>
#include <utility>

namespace kelp::app {
namespace {

void note(NameTable& table, std::string name,
          const std::optional<input::bdf::SourceSpan>& location) {
  if (!location) {
    return;
  }
  const auto line = line_of(location);
  const auto [found, is_first] = table.try_emplace(std::move(name), NameLines{line, 0});
  if (!is_first && found->second.again == 0) {
    found->second.again = line;
  }
}

}  // namespace

const NameTable& Namesakes::modules() {
  if (modules_.empty()) {
    for (const input::bdf::Module& module : input_.result.data.modules) {
      note(modules_, input_.schema.canonical_module(module.name), module.location);
    }
  }
  return modules_;
}

const NameTable& Namesakes::entries(const input::bdf::Module& module) {
  if (std::exchange(module_, &module) != &module) {
    entries_.clear();
    for (const input::bdf::ModuleEntry& entry : module.entries) {
      note(entries_, input_.schema.canonical_entry(module.name, entry.name), entry.location);
    }
  }
  return entries_;
}

const NameTable& Namesakes::children(const input::bdf::Module& module,
                                     const input::bdf::ModuleEntry& block) {
  if (std::exchange(block_, &block) != &block) {
    children_.clear();
    for (const input::bdf::ModuleEntry& child : block.children) {
      note(children_, input_.schema.canonical_nested_entry(module.name, block.name, child.name),
           child.location);
    }
  }
  return children_;
}

}  // namespace kelp::app
