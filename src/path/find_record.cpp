// The one resolver: a name in a path and the name of a record are the same when the schema makes
// one canonical name of both, so that an alias, and a name that a later schema makes an alias of
// another, are found alike. A module is looked up in the schema once, and its entries are compared
// within it.

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "kelp/input/bdf/value_path.hpp"
#include "model/molecule_names.hpp"
#include "path/resolver.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {
namespace {

std::optional<std::size_t> find_module_index(const BDFData& data, const InputSchema& schema,
                                             const ValuePath& path) {
  const CanonicalMatch is_wanted(&SchemaAccess::impl(schema).module_aliases, path.module);
  std::size_t skip = path.module_index;
  for (std::size_t i = 0; i < data.modules.size(); ++i) {
    if (is_wanted(data.modules[i].name) && skip-- == 0) {
      return i;
    }
  }
  return std::nullopt;
}

RecordId find_child(const BDFData& data, const ModuleSpec* spec, const ValuePath& path,
                    std::size_t module, std::size_t entry) {
  const ModuleEntry& block = data.modules[module].entries[entry];
  const EntrySpec* const block_spec = find_entry_spec(spec, block.name);
  const std::string wanted = canonical_child_name(block_spec, path.child);
  for (std::size_t i = 0; i < block.children.size(); ++i) {
    if (canonical_child_name(block_spec, block.children[i].name) == wanted) {
      return RecordId::of_child(module, entry, i);
    }
  }
  return {};
}

// Of a child, every block of the name is searched: one that is repeated may hold it in any.
RecordId find_in_module(const BDFData& data, const InputSchema& schema, const ValuePath& path,
                        std::size_t module) {
  const ModuleSpec* const spec =
      find_module_spec(SchemaAccess::impl(schema), data.modules[module].name);
  const std::vector<ModuleEntry>& entries = data.modules[module].entries;
  const std::string wanted = canonical_entry_name(spec, path.name);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (canonical_entry_name(spec, entries[i].name) != wanted) {
      continue;
    }
    if (path.kind == PathKind::Entry) {
      return RecordId::of_entry(module, i);
    }
    if (const RecordId child = find_child(data, spec, path, module, i)) {
      return child;
    }
  }
  return {};
}

RecordId find_geometry(const BDFData& data, const InputSchema& schema) {
  const bool is_empty = data.atoms.empty() && data.geometry_lines.empty();
  const RecordId block = data.has_geometry ? RecordId::of(RecordKind::Geometry, 0) : RecordId{};
  if (data.has_geometry && !is_empty) {
    return block;
  }
  const RecordId of_compass = find_compass_geometry(data, schema);
  return of_compass ? of_compass : block;
}

RecordId find_header_keyword(const BDFData& data, const InputSchema& schema,
                             std::string_view name) {
  const std::vector<EasyKeyword> found = find_easy_keywords(data, schema, name);
  return found.empty() ? RecordId{} : RecordId::of(RecordKind::EasyToken, found.front().first);
}

// `find_module` tells the index of the module that a path names.
template <typename FindModule>
RecordId find_record_by(const BDFData& data, const InputSchema& schema, const ValuePath& path,
                        FindModule find_module) {
  if (path.kind == PathKind::Geometry) {
    return find_geometry(data, schema);
  }
  if (path.kind == PathKind::EasyKeyword) {
    return find_header_keyword(data, schema, path.name);
  }
  const std::optional<std::size_t> module = find_module();
  if (!module) {
    return {};
  }
  return path.kind == PathKind::Module ? RecordId::of_module(*module)
                                       : find_in_module(data, schema, path, *module);
}

}  // namespace

ModuleFinder::ModuleFinder(const BDFData& data, const InputSchema& schema) {
  for (std::size_t i = 0; i < data.modules.size(); ++i) {
    by_name_[schema.canonical_module(data.modules[i].name)].push_back(i);
  }
}

std::optional<std::size_t> ModuleFinder::find(const InputSchema& schema,
                                              const ValuePath& path) const {
  const auto found = by_name_.find(schema.canonical_module(path.module));
  return found == by_name_.end() || path.module_index >= found->second.size()
             ? std::nullopt
             : std::optional(found->second[path.module_index]);
}

std::size_t ModuleFinder::count(const InputSchema& schema, std::string_view name) const {
  const auto found = by_name_.find(schema.canonical_module(name));
  return found == by_name_.end() ? 0 : found->second.size();
}

RecordId find_compass_geometry(const BDFData& data, const InputSchema& schema) {
  const std::string compass = schema.canonical_module(compass_module);
  ValuePath path;
  path.name = geometry_entry;
  for (std::size_t i = 0; i < data.modules.size(); ++i) {
    if (schema.canonical_module(data.modules[i].name) == compass) {
      if (const RecordId found = find_in_module(data, schema, path, i)) {
        return found;
      }
    }
  }
  return {};
}

RecordId find_record(const BDFData& data, const InputSchema& schema, const ValuePath& path) {
  return find_record_by(data, schema, path, [&] { return find_module_index(data, schema, path); });
}

RecordId find_record(const BDFData& data, const InputSchema& schema, const ModuleFinder& modules,
                     const ValuePath& path) {
  return find_record_by(data, schema, path, [&] { return modules.find(schema, path); });
}

RecordId find_record(const ParsedInput& input, const ValuePath& path) {
  return find_record(input.data(), input.schema(), path);
}

std::size_t count_modules(const BDFData& data, const InputSchema& schema, std::string_view name) {
  const std::string wanted = schema.canonical_module(name);
  return static_cast<std::size_t>(std::count_if(
      data.modules.begin(), data.modules.end(),
      [&](const Module& module) { return schema.canonical_module(module.name) == wanted; }));
}

}  // namespace kelp::input::bdf
