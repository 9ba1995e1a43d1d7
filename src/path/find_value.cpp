// Values as lines of text, and what a path that leads nowhere may have meant.

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

Lines trimmed(const Lines& values) {
  Lines lines;
  lines.reserve(values.size());
  for (const std::string& value : values) {
    lines.push_back(core::text::trim(value));
  }
  return lines;
}

// Of a block, the children and their values are its lines.
Lines lines_of(const ModuleEntry& entry) {
  Lines lines = trimmed(entry.values);
  for (const ModuleEntry& child : entry.children) {
    lines.push_back(child.known ? child.name : core::text::trim(child.raw_line));
    for (const std::string& line : lines_of(child)) {
      lines.push_back(line.empty() ? line : "  " + line);
    }
  }
  return lines;
}

Lines lines_of_geometry(const BDFData& data) {
  Lines rows;
  for (const AtomRecord& atom : data.atoms) {
    std::string row = atom.element;
    for (const double coordinate : {atom.x, atom.y, atom.z}) {
      row += ' ' + core::number::to_text(coordinate);
    }
    rows.push_back(std::move(row));
  }
  for (std::string& line : trimmed(data.geometry_lines)) {
    rows.push_back(std::move(line));
  }
  return rows;
}

Lines lines_of_token(const BDFData& data, const InputSchema& schema, std::size_t index) {
  if (index >= data.easy_tokens.size()) {
    return {};
  }
  const auto keywords = find_easy_keywords(data, schema, data.easy_tokens[index].key);
  const auto keyword =
      std::find_if(keywords.begin(), keywords.end(),
                   [index](const EasyKeyword& found) { return found.first == index; });
  std::string value = keyword == keywords.end() ? std::string() : easy_value(data, *keyword);
  return value.empty() ? Lines() : Lines{std::move(value)};
}

}  // namespace

Lines value_lines(const BDFData& data, const InputSchema& schema, const RecordId& record) {
  if (record.kind == RecordKind::EasyToken) {
    return lines_of_token(data, schema, record.index);
  }
  if (record.kind == RecordKind::Geometry) {
    return lines_of_geometry(data);
  }
  const ModuleEntry* const entry = entry_or_child(data, record);
  return entry == nullptr ? Lines() : lines_of(*entry);
}

std::optional<Lines> find_value(const BDFData& data, const InputSchema& schema,
                                const ValuePath& path) {
  const RecordId record = find_record(data, schema, path);
  if (!record || record.kind == RecordKind::Module) {
    return std::nullopt;
  }
  Lines lines = value_lines(data, schema, record);
  if (record.kind == RecordKind::Geometry && lines.empty()) {
    return std::nullopt;
  }
  return lines;
}

std::optional<Lines> find_value(const ParsedInput& input, const ValuePath& path) {
  return find_value(input.data(), input.schema(), path);
}

Lines path_hint(const InputSchema& schema, const ValuePath& path) {
  if (path.kind == PathKind::Geometry) {
    return {};
  }
  const NameLists names(schema);
  if (path.kind == PathKind::EasyKeyword) {
    return schema.is_known_easy_token(path.name) ? Lines()
                                                 : similar_names(path.name, names.easy_keywords());
  }
  if (!schema.is_known_module(path.module)) {
    return similar_names(path.module, names.modules());
  }
  if (path.kind == PathKind::Module) {
    return {};
  }
  if (!schema.is_known_entry(path.module, path.name)) {
    return similar_names(path.name, names.entries(path.module));
  }
  if (path.kind != PathKind::Child ||
      schema.is_known_nested_entry(path.module, path.name, path.child)) {
    return {};
  }
  return similar_names(path.child, names.nested_entries(path.module, path.name));
}

Lines paths_of_name(const BDFData& data, const InputSchema& schema, std::string_view name) {
  Lines there;
  Lines allowed;
  const std::string text(name);
  const auto add = [&](const ValuePath& path, bool is_known) {
    const std::string written = to_string(path);
    if (find_record(data, schema, path)) {
      there.push_back(written);
    } else if (is_known && std::find(allowed.begin(), allowed.end(), written) == allowed.end()) {
      allowed.push_back(written);
    }
  };
  if (data.mode != InputMode::Module) {
    add({PathKind::EasyKeyword, {}, 0, text, {}}, schema.easy_keyword_info(text).has_value());
  }
  const PathIndex paths(data);
  for (std::size_t i = 0; i < data.modules.size(); ++i) {
    // The first one of its name alone for what is not there.
    if (auto path = parse_path(paths.path_of(RecordId::of_module(i))).path) {
      path->kind = PathKind::Entry;
      path->name = text;
      add(*path, path->module_index == 0 && schema.is_known_entry(path->module, text));
    }
  }
  if (there.empty() && allowed.empty()) {
    const NameLists names(schema);
    for (const std::string& module : names.modules_with_entry(text)) {
      allowed.push_back(to_string({PathKind::Entry, module, 0, text, {}}));
    }
  }
  return there.empty() ? allowed : there;
}

}  // namespace kelp::input::bdf
