// The way back: from records to paths.

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "kelp/input/bdf/value_path.hpp"
#include "path/resolver.hpp"

namespace kelp::input::bdf {
namespace {

std::string path_of_token(const BDFData& data, std::size_t index) {
  const std::vector<EasyToken>& tokens = data.easy_tokens;
  if (index >= tokens.size() || tokens[index].category == "method_spec" ||
      stands_in_comment(tokens, index)) {
    return {};
  }
  ValuePath path;
  path.kind = PathKind::EasyKeyword;
  path.name = tokens[index].key;
  return to_string(path);
}

std::string geometry_path() {
  ValuePath path;
  path.kind = PathKind::Geometry;
  return to_string(path);
}

// The path of a module, an entry or a child, whose module is the `number`-th of its name.
std::string path_in_module(const BDFData& data, const RecordId& record, std::size_t number) {
  ValuePath path;
  path.kind = PathKind::Module;
  path.module = data.modules[record.index].name;
  path.module_index = number - 1;
  if (record.kind == RecordKind::Module) {
    return to_string(path);
  }
  const ModuleEntry* const entry = entry_of(data, record);
  const ModuleEntry* const named = entry_or_child(data, record);
  if (entry == nullptr || named == nullptr) {
    return {};
  }
  path.kind = entry == named ? PathKind::Entry : PathKind::Child;
  path.name = entry->name;
  path.child = named->name;
  return to_string(path);
}

// `number_of` tells the number of a module among those of its name, from 1.
template <typename NumberOf>
std::string make_path(const BDFData& data, const RecordId& record, NumberOf number_of) {
  switch (record.kind) {
    case RecordKind::EasyToken:
      return path_of_token(data, record.index);
    case RecordKind::Geometry:
    case RecordKind::Atom:
    case RecordKind::GeometryLine:
      return geometry_path();
    case RecordKind::Module:
    case RecordKind::Entry:
    case RecordKind::Child:
      return record.index < data.modules.size()
                 ? path_in_module(data, record, number_of(record.index))
                 : std::string();
    default:
      return {};
  }
}

}  // namespace

std::string path_of(const BDFData& data, const RecordId& record) {
  return make_path(data, record, [&data](std::size_t index) {
    std::size_t number = 1;
    for (std::size_t i = 0; i < index; ++i) {
      number += data.modules[i].name == data.modules[index].name ? 1 : 0;
    }
    return number;
  });
}

PathIndex::PathIndex(const BDFData& data) : data_(&data) {
  std::unordered_map<std::string_view, std::size_t> counts;
  numbers_.reserve(data.modules.size());
  for (const Module& module : data.modules) {
    numbers_.push_back(++counts[module.name]);
  }
}

PathIndex::PathIndex(const PathIndex& other) = default;
PathIndex::PathIndex(PathIndex&& other) noexcept = default;
PathIndex& PathIndex::operator=(const PathIndex& other) = default;
PathIndex& PathIndex::operator=(PathIndex&& other) noexcept = default;
PathIndex::~PathIndex() = default;

std::string PathIndex::path_of(const RecordId& record) const {
  return make_path(*data_, record, [this](std::size_t index) { return numbers_[index]; });
}

}  // namespace kelp::input::bdf
