#include "locate_value.hpp"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "kelp/core/text.hpp"
#include "line_of.hpp"

namespace kelp::app {
namespace {

using input::bdf::BDFData;
using input::bdf::EntrySchemaInfo;
using input::bdf::EntryValueKind;
using input::bdf::InputMode;
using input::bdf::ModuleEntry;
using Values = std::vector<std::string>;

// What an unreasonable arity would need in repeated fields is not worth the memory.
constexpr std::uint64_t most_repetitions = 64;

std::optional<EntrySchemaInfo> description_of(const CheckedInput& input, const Place& place) {
  if (place.child != nullptr) {
    return input.schema.nested_entry_info(place.module->name, place.entry->name, place.child->name);
  }
  return input.schema.entry_info(place.module->name, place.entry->name);
}

/// Asks the library about other values of one entry.
class Probe {
 public:
  Probe(const CheckedInput& input, const Place& place) : input_(input), place_(place) {}

  bool accepts(Values values) const {
    ModuleEntry record;
    record.name = place_.record()->name;
    record.values = std::move(values);
    if (place_.child != nullptr) {
      ModuleEntry parent;
      parent.name = place_.entry->name;
      parent.children.push_back(std::move(record));
      record = std::move(parent);
    }
    BDFData data;
    data.mode = InputMode::Module;
    data.modules.emplace_back();
    data.modules.back().name = place_.module->name;
    data.modules.back().entries.push_back(std::move(record));
    const auto issues = input_.schema.validate(data, {});
    return std::none_of(issues.begin(), issues.end(),
                        [](const auto& issue) { return issue.code == "bdf.invalid_module_value"; });
  }

 private:
  const CheckedInput& input_;
  const Place& place_;
};

// The value lines of an entry that hold more than a comment, without the comment.
std::vector<LinePart> value_parts(const CheckedInput& input, const Place& place) {
  std::vector<LinePart> parts;
  const ModuleEntry& record = *place.record();
  const std::size_t first = line_of(record) + 1;
  for (std::size_t i = 0; i < record.values.size(); ++i) {
    const std::string_view line = input.source.line(first + i);
    const LinePart part =
        input.source.trimmed({first + i, 0, std::min(line.find('#'), line.size())});
    if (part.begin < part.end) {
      parts.push_back(part);
    }
  }
  return parts;
}

std::string text_of(const CheckedInput& input, const LinePart& part) {
  return std::string(input.source.text_of(part));
}

bool is_separator(char byte) {
  return byte == ',' || core::text::is_space(byte);
}

std::vector<LinePart> fields_of(const CheckedInput& input, const LinePart& part) {
  std::vector<LinePart> fields;
  const std::string_view line = input.source.line(part.line);
  std::size_t at = part.begin;
  while (at < part.end) {
    const std::size_t begin = at;
    while (at < part.end && !is_separator(line[at])) {
      ++at;
    }
    if (at > begin) {
      fields.push_back({part.line, begin, at});
    } else {
      ++at;
    }
  }
  return fields;
}

std::optional<LinePart> faulty_row(const CheckedInput& input, const Probe& probe,
                                   const EntrySchemaInfo& info,
                                   const std::vector<LinePart>& parts) {
  for (std::size_t i = info.count_line ? 1 : 0; i < parts.size(); ++i) {
    Values values = {text_of(input, parts[i])};
    if (info.count_line) {
      values.insert(values.begin(), "1");
    }
    if (!probe.accepts(std::move(values))) {
      return parts[i];
    }
  }
  // Every row is right, so their number is not.
  return parts.front();
}

// A field is at fault when the entry rejects it as often as it wants fields.
std::optional<LinePart> faulty_field(const CheckedInput& input, const Probe& probe,
                                     const EntrySchemaInfo& info,
                                     const std::vector<LinePart>& parts) {
  std::uint64_t wanted = info.arity.value_or(info.min_arity.value_or(1));
  if (!info.allowed_arities.empty()) {
    wanted = info.allowed_arities.front();
  }
  if (!info.allowed.empty() || wanted == 0 || wanted > most_repetitions) {
    return std::nullopt;
  }
  for (const LinePart& part : parts) {
    for (const LinePart& field : fields_of(input, part)) {
      if (!probe.accepts(Values(wanted, text_of(input, field)))) {
        return field;
      }
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<LinePart> locate_invalid_value(const CheckedInput& input, const Place& place) {
  const auto info = description_of(input, place);
  if (!info || !place.record()->location) {
    return std::nullopt;
  }
  const std::vector<LinePart> parts = value_parts(input, place);
  if (parts.empty()) {
    return std::nullopt;
  }
  const Probe probe(input, place);
  if (info->kind == EntryValueKind::CountedRows) {
    return faulty_row(input, probe, *info, parts);
  }
  const auto field = faulty_field(input, probe, *info, parts);
  return field ? field : parts.front();
}

}  // namespace kelp::app
