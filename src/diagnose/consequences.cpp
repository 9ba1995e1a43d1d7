// What a misspelt name brings along. Of a module that nobody knows, no entry is known either. A
// keyword that nobody knows leaves its values behind as lines that nothing expects. And a conflict
// is found from both of its ends.

#include "diagnose/consequences.hpp"

#include <algorithm>
#include <utility>

#include "kelp/core/spelling.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"

namespace kelp::input::bdf {
namespace {

std::tuple<std::uint32_t, std::uint32_t, std::uint32_t> key_of(const RecordId& record) {
  return {record.index, record.entry, record.child};
}

bool is_behind(const RecordId& record, const RecordId& other) {
  if (record.kind != other.kind || record.index != other.index) {
    return false;
  }
  return record.kind == RecordKind::Child
             ? record.entry == other.entry && record.child == other.child + 1
             : record.entry == other.entry + 1;
}

bool begins_with_number(std::string_view line) {
  const std::string_view text = core::text::trim_view(line);
  const std::size_t first = text.find_first_not_of("+-.");
  return first != std::string_view::npos && text[first] >= '0' && text[first] <= '9';
}

bool is_listed(std::string_view word, const std::vector<std::string>& values) {
  return std::any_of(values.begin(), values.end(), [&](const std::string& value) {
    return core::text::equals_ignoring_case(value, word);
  });
}

}  // namespace

bool Consequences::cover(const Fault& fault) {
  switch (fault.id) {
    case IssueId::UnknownEntry:
    case IssueId::UnknownEntryKept: {
      const Module* const module = module_of(context_.input.data(), fault.record);
      return !module->known || is_value_of_unknown(fault.record);
    }
    case IssueId::UnknownNestedEntry:
    case IssueId::UnknownNestedEntryKept:
      return is_value_of_unknown(fault.record);
    case IssueId::ConflictingEntries:
    case IssueId::ConflictingNestedEntries:
      return is_told_conflict(fault);
    case IssueId::MissingRequiredEntry:
    case IssueId::MissingRequiredNestedEntry:
    case IssueId::MissingRequiredValue:
    case IssueId::MissingRequiredNestedValue:
      return is_misspelt_beside(fault);
    default:
      return false;
  }
}

// Numbers behind a word that nobody knows are its values. So is one line behind a word that is near
// a keyword with values, unless that line is near a keyword itself.
bool Consequences::is_value_of_unknown(const RecordId& record) {
  const ParsedInput& input = context_.input;
  const ModuleEntry& entry = *entry_or_child(input.data(), record);
  const Module& module = *module_of(input.data(), record);
  const ModuleEntry& owner = *entry_of(input.data(), record);
  const bool is_child = record.kind == RecordKind::Child;
  const bool follows = is_behind(record, last_);
  last_ = follows ? record : RecordId{};
  const LineRole role = input.line(input.first_line(record)).role;
  if (role == LineRole::Comment || role == LineRole::Blank) {
    return true;
  }
  if (follows && begins_with_number(entry.raw_line)) {
    meant_.reset();
    return true;
  }
  const NameLists& names = context_.names();
  const auto near =
      similar_names(entry.name, is_child ? names.nested_entries(module.name, owner.name)
                                         : names.entries(module.name));
  if (follows && meant_ && (near.empty() || is_listed(entry.name, meant_->allowed))) {
    meant_.reset();
    return true;
  }
  const InputSchema& schema = input.schema();
  meant_ = near.size() != 1 ? std::nullopt
           : is_child       ? schema.nested_entry_info(module.name, owner.name, near.front())
                            : schema.entry_info(module.name, near.front());
  if (meant_ && (meant_->kind == EntryValueKind::Flag || !cleaned_lines(entry).empty())) {
    meant_.reset();
  }
  last_ = begins_with_number(entry.raw_line) ? RecordId{} : record;
  return false;
}

// What an entry needs may be there, but for a slip in its name.
bool Consequences::is_misspelt_beside(const Fault& fault) {
  const BDFData& data = context_.input.data();
  const bool is_child = fault.record.kind == RecordKind::Child;
  const RecordId owner = is_child ? RecordId::of_entry(fault.record.index, fault.record.entry)
                                  : RecordId::of_module(fault.record.index);
  if (owner != owner_) {
    owner_ = owner;
    misspelt_.clear();
  }
  const std::string name(fault.arguments[2]);
  const auto known = misspelt_.find(name);
  if (known != misspelt_.end()) {
    return known->second;
  }
  const auto& siblings =
      is_child ? entry_of(data, fault.record)->children : module_of(data, fault.record)->entries;
  return misspelt_[name] =
             std::any_of(siblings.begin(), siblings.end(), [&](const ModuleEntry& sibling) {
               return !sibling.known && core::spelling::slips_if_near(sibling.name, name);
             });
}

bool Consequences::is_told_conflict(const Fault& fault) {
  const Key one = key_of(fault.record);
  const Key other = key_of(fault.related);
  return !conflicts_.insert(std::minmax(one, other)).second;
}

}  // namespace kelp::input::bdf
