#include "find_value.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "did_you_mean.hpp"
#include "easy_keyword.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::app {
namespace {

using input::bdf::AtomRecord;
using input::bdf::BDFData;
using input::bdf::InputSchema;
using input::bdf::Module;
using input::bdf::ModuleEntry;
using Lines = std::vector<std::string>;
using Found = std::optional<Lines>;

Lines trimmed(const Lines& values) {
  Lines lines;
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

Found find_geometry(const BDFData& data, const InputSchema& schema) {
  if (data.has_geometry && !(data.atoms.empty() && data.geometry_lines.empty())) {
    Lines rows;
    for (const AtomRecord& atom : data.atoms) {
      rows.push_back(fmt::format("{} {} {} {}", atom.element, atom.x, atom.y, atom.z));
    }
    for (const std::string& line : trimmed(data.geometry_lines)) {
      rows.push_back(line);
    }
    return rows;
  }
  for (const Module& module : data.modules) {
    const ModuleEntry* const entry = module.find_entry("geometry");
    if (entry != nullptr && schema.canonical_module(module.name) == "compass") {
      return trimmed(entry->values);
    }
  }
  return std::nullopt;
}

Found find_entry(const Module& module, const InputSchema& schema, const ValuePath& path) {
  const std::string wanted = schema.canonical_entry(module.name, path.name);
  for (const ModuleEntry& entry : module.entries) {
    if (schema.canonical_entry(module.name, entry.name) != wanted) {
      continue;
    }
    if (path.kind == ValuePath::Kind::Entry) {
      return lines_of(entry);
    }
    const std::string child_name =
        schema.canonical_nested_entry(module.name, entry.name, path.child);
    for (const ModuleEntry& child : entry.children) {
      if (child.name == child_name) {
        return lines_of(child);
      }
    }
  }
  return std::nullopt;
}

Found find_easy_value(const BDFData& data, const InputSchema& schema, const std::string& key) {
  const std::vector<EasyKeyword> keywords = find_easy_keywords(data, schema, key);
  if (keywords.empty()) {
    return std::nullopt;
  }
  const std::string value = easy_value(data, keywords.front());
  return value.empty() ? Lines() : Lines{value};
}

std::string hint(std::string_view name, const Lines& candidates) {
  return did_you_mean(input::bdf::similar_names(name, candidates));
}

}  // namespace

const Module* find_module(const BDFData& data, const InputSchema& schema, const ValuePath& path) {
  const std::string wanted = schema.canonical_module(path.module);
  std::size_t skip = path.module_index;
  for (const Module& module : data.modules) {
    if (schema.canonical_module(module.name) == wanted && skip-- == 0) {
      return &module;
    }
  }
  return nullptr;
}

std::size_t count_modules(const BDFData& data, const InputSchema& schema, const ValuePath& path) {
  const std::string wanted = schema.canonical_module(path.module);
  return static_cast<std::size_t>(std::count_if(
      data.modules.begin(), data.modules.end(),
      [&](const Module& module) { return schema.canonical_module(module.name) == wanted; }));
}

Found find_value(const BDFData& data, const InputSchema& schema, const ValuePath& path) {
  if (path.kind == ValuePath::Kind::Geometry) {
    return find_geometry(data, schema);
  }
  if (path.kind == ValuePath::Kind::EasyKeyword) {
    return find_easy_value(data, schema, path.name);
  }
  const Module* const module = find_module(data, schema, path);
  return module == nullptr ? std::nullopt : find_entry(*module, schema, path);
}

std::string path_hint(const InputSchema& schema, const ValuePath& path) {
  if (path.kind == ValuePath::Kind::Geometry) {
    return {};
  }
  const input::bdf::NameLists names(schema);
  if (path.kind == ValuePath::Kind::EasyKeyword) {
    return schema.is_known_easy_token(path.name) ? "" : hint(path.name, names.easy_keywords());
  }
  if (!schema.is_known_module(path.module)) {
    return hint(path.module, names.modules());
  }
  if (path.kind == ValuePath::Kind::Module) {
    return {};
  }
  if (!schema.is_known_entry(path.module, path.name)) {
    return hint(path.name, names.entries(path.module));
  }
  if (path.kind != ValuePath::Kind::Child ||
      schema.is_known_nested_entry(path.module, path.name, path.child)) {
    return {};
  }
  return hint(path.child, names.nested_entries(path.module, path.name));
}

}  // namespace kelp::app
