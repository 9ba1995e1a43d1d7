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

std::string path_of_token(const EasyToken& token) {
  ValuePath path;
  path.kind = PathKind::EasyKeyword;
  path.name = token.key;
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

bool is_keyword(const BDFData& data, const RecordId& record, const std::vector<bool>& in_comment) {
  return record.kind == RecordKind::EasyToken && record.index < data.easy_tokens.size() &&
         data.easy_tokens[record.index].category != "method_spec" && !in_comment[record.index];
}

}  // namespace

std::string path_of(const BDFData& data, const RecordId& record) {
  return PathIndex(data).path_of(record);
}

PathIndex::PathIndex(const BDFData& data)
    : data_(&data), in_comment_(tokens_in_comments(data.easy_tokens)) {
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
  switch (record.kind) {
    case RecordKind::EasyToken:
      return is_keyword(*data_, record, in_comment_)
                 ? path_of_token(data_->easy_tokens[record.index])
                 : std::string();
    case RecordKind::Geometry:
    case RecordKind::Atom:
    case RecordKind::GeometryLine:
      return geometry_path();
    case RecordKind::Module:
    case RecordKind::Entry:
    case RecordKind::Child:
      return record.index < data_->modules.size()
                 ? path_in_module(*data_, record, numbers_[record.index])
                 : std::string();
    default:
      return {};
  }
}

}  // namespace kelp::input::bdf
