#include "name_hints.hpp"

#include "similar.hpp"
#include "vocabulary.hpp"

namespace kelp::app {

std::vector<std::string> NameHints::similar_modules(std::string_view name) {
  if (modules_.empty()) {
    modules_ = module_names(schema_);
  }
  return similar_names(name, modules_);
}

std::vector<std::string> NameHints::similar_entries(std::string_view module,
                                                    std::string_view name) {
  const auto [found, is_new] = entries_.try_emplace(std::string(module));
  if (is_new) {
    found->second = entry_names(schema_, module);
  }
  return similar_names(name, found->second);
}

std::vector<std::string> NameHints::similar_nested_entries(std::string_view module,
                                                           std::string_view entry,
                                                           std::string_view name) {
  // No module's name has a line feed.
  const auto [found, is_new] = entries_.try_emplace(std::string(module).append("\n").append(entry));
  if (is_new) {
    found->second = nested_entry_names(schema_, module, entry);
  }
  return similar_names(name, found->second);
}

const std::vector<std::string>& NameHints::modules_with_entry(const std::string& name) {
  if (modules_having_.empty()) {
    for (const std::string& module : schema_.known_modules()) {
      for (std::string& entry : entry_names(schema_, module)) {
        modules_having_[std::move(entry)].push_back(module);
      }
    }
  }
  static const Names none;
  const auto found = modules_having_.find(name);
  return found == modules_having_.end() ? none : found->second;
}

}  // namespace kelp::app
