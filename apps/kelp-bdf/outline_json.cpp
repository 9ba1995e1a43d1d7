#include <nlohmann/json.hpp>

#include "kelp/input/bdf/explain.hpp"
#include "outline.hpp"

namespace kelp::app {
namespace {

using input::bdf::Outline;
using Json = nlohmann::ordered_json;

// To be raised when a field changes its meaning or goes; new fields may come at any time.
constexpr int record_version = 1;

Json to_json(const Outline::Word& word) {
  return {{"text", word.text},
          {"canonical", word.canonical},
          {"category", word.category},
          {"known", word.known},
          {"line", word.line}};
}

Json to_json(const std::optional<Outline::Value>& value) {
  if (!value) {
    return nullptr;
  }
  return {{"value", value->text}, {"path", value->path}, {"line", value->line}};
}

Json to_json(const std::optional<Outline::Geometry>& geometry) {
  if (!geometry) {
    return nullptr;
  }
  return {{"atoms", geometry->atoms}, {"formula", geometry->formula}, {"line", geometry->line}};
}

template <typename Record>
Json list_of(const std::vector<Record>& records);

Json to_json(const Outline::Entry& entry) {
  return {{"name", entry.name},
          {"path", entry.path},
          {"kind", to_string(entry.kind)},
          {"known", entry.known},
          {"line", entry.line},
          {"values", entry.values},
          {"children", list_of(entry.children)}};
}

Json to_json(const Outline::Module& module) {
  return {{"name", module.name},   {"path", module.path},
          {"known", module.known}, {"terminated", module.terminated},
          {"line", module.line},   {"entries", list_of(module.entries)}};
}

Json to_json(const FileOutline& file) {
  const Outline& outline = file.outline;
  return {{"file", file.file},
          {"mode", to_string(outline.mode)},
          {"script_name", outline.script_name ? Json(*outline.script_name) : Json()},
          {"header", list_of(outline.header)},
          {"charge", to_json(outline.charge)},
          {"multiplicity", to_json(outline.multiplicity)},
          {"geometry", to_json(outline.geometry)},
          {"modules", list_of(outline.modules)}};
}

template <typename Record>
Json list_of(const std::vector<Record>& records) {
  Json list = Json::array();
  for (const Record& record : records) {
    list.push_back(to_json(record));
  }
  return list;
}

}  // namespace

std::string outline_json(const std::vector<FileOutline>& files) {
  constexpr int indent = 2;
  const Json document = {{"version", record_version}, {"inputs", list_of(files)}};
  // Bytes that are no UTF-8 become replacement characters.
  return document.dump(indent, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace kelp::app
