#include "checked_input.hpp"

#include <utility>

namespace kelp::app {
namespace {

using input::bdf::BDFData;
using input::bdf::Module;
using input::bdf::ModuleEntry;

bool stands_at(const std::optional<input::bdf::SourceSpan>& location, std::size_t line) {
  return location && location->line == line;
}

bool find_entry_at(const Module& module, std::size_t line, Place& place) {
  for (const ModuleEntry& entry : module.entries) {
    if (stands_at(entry.location, line)) {
      place.entry = &entry;
      return true;
    }
    for (const ModuleEntry& child : entry.children) {
      if (stands_at(child.location, line)) {
        place.entry = &entry;
        place.child = &child;
        return true;
      }
    }
  }
  return false;
}

}  // namespace

CheckedInput::CheckedInput(std::string file_name, std::string file_text,
                           const input::bdf::InputSchema& vocabulary)
    : name(std::move(file_name)), source(std::move(file_text)), schema(vocabulary) {
  // With validation on, the parser keeps every line.
  input::bdf::ParseOptions options;
  options.validate = true;
  result = input::bdf::BDFParser::parse_string(source.text(), schema, options);
}

Place find_place(const BDFData& data, std::size_t line) {
  for (const Module& module : data.modules) {
    Place place{&module, nullptr, nullptr};
    if (stands_at(module.location, line) || find_entry_at(module, line, place)) {
      return place;
    }
  }
  return {};
}

std::string path_of(const BDFData& data, const Place& place) {
  if (place.module == nullptr) {
    return {};
  }
  std::size_t number = 0;
  for (const Module& module : data.modules) {
    if (module.name == place.module->name) {
      ++number;
    }
    if (&module == place.module) {
      break;
    }
  }
  std::string path = place.module->name;
  if (number > 1) {
    path += '#' + std::to_string(number);
  }
  for (const ModuleEntry* const record : {place.entry, place.child}) {
    if (record != nullptr) {
      path += '.' + record->name;
    }
  }
  return path;
}

}  // namespace kelp::app
