#include <algorithm>

#include "kelp/input/bdf/document.hpp"
#include "model/name_match.hpp"

namespace kelp::input::bdf {
namespace {

std::string_view name_of(const Module& module) {
  return module.name;
}
std::string_view name_of(const ModuleEntry& entry) {
  return entry.name;
}
std::string_view name_of(const EasyToken& token) {
  if (!token.key.empty()) {
    return token.key;
  }
  return token.canonical.empty() ? token.text : token.canonical;
}

template <typename Record>
const Record* first_match(const std::vector<Record>& records, std::string_view wanted) {
  const auto found = std::find_if(records.begin(), records.end(), [&](const Record& record) {
    return names_match(wanted, name_of(record));
  });
  return found == records.end() ? nullptr : &*found;
}

// `Pointer` is a pointer to const or to mutable, as `records` allows.
template <typename Pointer, typename Records>
std::vector<Pointer> all_matches(Records& records, std::string_view wanted) {
  std::vector<Pointer> matches;
  for (auto& record : records) {
    if (names_match(wanted, name_of(record))) {
      matches.push_back(&record);
    }
  }
  return matches;
}

}  // namespace

const ModuleEntry* ModuleEntry::find_child(std::string_view wanted) const {
  return first_match(children, wanted);
}
ModuleEntry* ModuleEntry::find_child(std::string_view wanted) {
  return const_cast<ModuleEntry*>(first_match(children, wanted));
}
std::vector<const ModuleEntry*> ModuleEntry::find_children(std::string_view wanted) const {
  return all_matches<const ModuleEntry*>(children, wanted);
}
std::vector<ModuleEntry*> ModuleEntry::find_children(std::string_view wanted) {
  return all_matches<ModuleEntry*>(children, wanted);
}

const ModuleEntry* Module::find_entry(std::string_view wanted) const {
  return first_match(entries, wanted);
}
ModuleEntry* Module::find_entry(std::string_view wanted) {
  return const_cast<ModuleEntry*>(first_match(entries, wanted));
}
std::vector<const ModuleEntry*> Module::find_entries(std::string_view wanted) const {
  return all_matches<const ModuleEntry*>(entries, wanted);
}
std::vector<ModuleEntry*> Module::find_entries(std::string_view wanted) {
  return all_matches<ModuleEntry*>(entries, wanted);
}

const Module* BDFData::find_module(std::string_view wanted) const {
  return first_match(modules, wanted);
}
Module* BDFData::find_module(std::string_view wanted) {
  return const_cast<Module*>(first_match(modules, wanted));
}
std::vector<const Module*> BDFData::find_modules(std::string_view wanted) const {
  return all_matches<const Module*>(modules, wanted);
}
std::vector<Module*> BDFData::find_modules(std::string_view wanted) {
  return all_matches<Module*>(modules, wanted);
}
std::size_t BDFData::module_count(std::string_view wanted) const {
  return static_cast<std::size_t>(
      std::count_if(modules.begin(), modules.end(),
                    [&](const Module& module) { return names_match(wanted, module.name); }));
}
const EasyToken* BDFData::find_easy_token(std::string_view wanted) const {
  return first_match(easy_tokens, wanted);
}
EasyToken* BDFData::find_easy_token(std::string_view wanted) {
  return const_cast<EasyToken*>(first_match(easy_tokens, wanted));
}

}  // namespace kelp::input::bdf
