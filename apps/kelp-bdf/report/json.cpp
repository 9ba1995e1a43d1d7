#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>
#include <utility>

#include "kelp/input/bdf/explain.hpp"
#include "report/outline.hpp"

namespace kelp::app {
namespace {

using input::bdf::Calculation;
using input::bdf::Outline;
using Json = nlohmann::ordered_json;

// To be raised when a field changes its meaning or goes; new fields may come at any time.
constexpr int record_version = 1;

Json text_or_null(const std::string& text) {
  return text.empty() ? Json() : Json(text);
}

Json to_json(const Outline::Word& word) {
  return {{"text", word.text},         {"canonical", word.canonical},
          {"category", word.category}, {"known", word.known},
          {"line", word.line},         {"summary", text_or_null(word.summary)}};
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
          {"children", list_of(entry.children)},
          {"summary", text_or_null(entry.summary)}};
}

Json to_json(const Outline::Module& module) {
  return {{"name", module.name},
          {"path", module.path},
          {"known", module.known},
          {"terminated", module.terminated},
          {"line", module.line},
          {"entries", list_of(module.entries)},
          {"summary", text_or_null(module.summary)}};
}

Json line_or_null(const Calculation::Origin& origin) {
  return origin.line == 0 ? Json() : Json(origin.line);
}

Json to_json(const std::optional<Calculation::Number>& number) {
  if (!number) {
    return nullptr;
  }
  return {{"value", number->value},
          {"default", number->is_default},
          {"line", line_or_null(number->origin)}};
}

Json to_json(const std::optional<Calculation::Name>& name) {
  if (!name) {
    return nullptr;
  }
  return {
      {"name", name->name}, {"default", name->is_default}, {"line", line_or_null(name->origin)}};
}

Json to_json(const Calculation::Basis& basis) {
  return {{"name", basis.name.name},
          {"labels", basis.labels},
          {"line", line_or_null(basis.name.origin)}};
}

Json to_json(const Calculation::System& system) {
  return {{"formula", text_or_null(system.formula)},
          {"atoms", system.atoms ? Json(*system.atoms) : Json()},
          {"basis_sets", list_of(system.basis_sets)},
          {"inline_basis", system.has_inline_basis},
          {"line", line_or_null(system.origin)}};
}

Json to_json(const Calculation::Scf& scf) {
  return {{"system", scf.system},
          {"charge", to_json(scf.charge)},
          {"multiplicity", to_json(scf.multiplicity)},
          {"electrons", scf.electrons ? Json(*scf.electrons) : Json()},
          {"reference", to_json(scf.reference)},
          {"functional", to_json(scf.functional)},
          {"line", line_or_null(scf.origin)}};
}

Json to_json(const Calculation::Task& task) {
  return {{"task", input::bdf::to_string(task.kind)},
          {"system", task.system},
          {"line", line_or_null(task.origin)}};
}

Json to_json(const Calculation& calculation) {
  return {{"complete", calculation.is_complete},
          {"method", to_json(calculation.method)},
          {"systems", list_of(calculation.systems)},
          {"scf", list_of(calculation.scfs)},
          {"tasks", list_of(calculation.tasks)}};
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
          {"modules", list_of(outline.modules)},
          {"calculation", to_json(file.calculation)}};
}

Json to_json(std::size_t byte, const input::bdf::SourceText& source) {
  const input::bdf::TextPosition position = source.position(byte);
  return {{"line", position.line}, {"column", position.column}, {"byte", byte}};
}

Json to_json(const FileValue& value) {
  Json lines;
  if (value.lines) {
    lines = Json::array();
    for (const ValueLine& line : *value.lines) {
      lines.push_back({{"text", line.text},
                       {"range",
                        {{"start", to_json(line.range.begin, value.source)},
                         {"end", to_json(line.range.end, value.source)}}}});
    }
  }
  return {{"path", value.path}, {"file", value.file}, {"values", std::move(lines)}};
}

template <typename Record>
Json list_of(const std::vector<Record>& records) {
  Json list = Json::array();
  for (const Record& record : records) {
    list.push_back(to_json(record));
  }
  return list;
}

// Bytes that are no UTF-8 become replacement characters.
std::string document_text(const Json& document) {
  constexpr int indent = 2;
  return document.dump(indent, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace

std::string outline_json(const std::vector<FileOutline>& files) {
  return document_text({{"version", record_version}, {"inputs", list_of(files)}});
}

std::string values_json(const std::vector<FileValue>& files) {
  return document_text(list_of(files));
}

}  // namespace kelp::app
