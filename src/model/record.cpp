#include "kelp/input/bdf/record.hpp"

namespace kelp::input::bdf {
namespace {

template <typename Record>
const Record* at(const std::vector<Record>& records, std::size_t index) {
  return index < records.size() ? &records[index] : nullptr;
}

}  // namespace

const Module* module_of(const BDFData& data, const RecordId& record) {
  const bool in_module = record.kind == RecordKind::Module || record.kind == RecordKind::Entry ||
                         record.kind == RecordKind::Child;
  return in_module ? at(data.modules, record.index) : nullptr;
}

const ModuleEntry* entry_of(const BDFData& data, const RecordId& record) {
  const Module* const module = module_of(data, record);
  return module == nullptr || record.kind == RecordKind::Module ? nullptr
                                                                : at(module->entries, record.entry);
}

const ModuleEntry* entry_or_child(const BDFData& data, const RecordId& record) {
  const ModuleEntry* const entry = entry_of(data, record);
  return entry == nullptr || record.kind == RecordKind::Entry ? entry
                                                              : at(entry->children, record.child);
}

}  // namespace kelp::input::bdf
