#include "line_index.hpp"

#include "line_of.hpp"

#include <optional>
#include <string_view>

namespace kelp::app {
namespace {

using input::bdf::BDFData;
using input::bdf::Module;
using input::bdf::ModuleEntry;
using Places = std::unordered_map<std::size_t, Place>;

void add(Places& places, const std::optional<input::bdf::SourceSpan>& location,
         const Place& place) {
  if (location) {
    places.try_emplace(line_of(location), place);
  }
}

void add_module(Places& places, const Module& module) {
  add(places, module.location, {&module, nullptr, nullptr});
  for (const ModuleEntry& entry : module.entries) {
    add(places, entry.location, {&module, &entry, nullptr});
    for (const ModuleEntry& child : entry.children) {
      add(places, child.location, {&module, &entry, &child});
    }
  }
}

}  // namespace

LineIndex::LineIndex(const BDFData& data) {
  std::unordered_map<std::string_view, std::size_t> counts;
  for (const Module& module : data.modules) {
    numbers_[&module] = ++counts[module.name];
    add_module(places_, module);
  }
}

Place LineIndex::place(std::size_t line) const {
  const auto found = places_.find(line);
  return found == places_.end() ? Place{} : found->second;
}

std::string LineIndex::path(const Place& place) const {
  if (place.module == nullptr) {
    return {};
  }
  std::string path = place.module->name;
  if (const std::size_t number = numbers_.at(place.module); number > 1) {
    path += '#' + std::to_string(number);
  }
  for (const ModuleEntry* const record : {place.entry, place.child}) {
    if (record != nullptr) {
      path += '.' + record->name;
    }
  }
  return path;
}

Place find_place(const BDFData& data, std::size_t line) {
  return LineIndex(data).place(line);
}

std::string path_of(const BDFData& data, const Place& place) {
  return LineIndex(data).path(place);
}

}  // namespace kelp::app
