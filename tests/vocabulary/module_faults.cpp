// Mistakes in modules, their entries and values.

#include <algorithm>
#include <utility>

#include "fault_writer.hpp"
#include "kelp/core/text.hpp"

namespace kelp::test {
namespace {

using input::bdf::EntryValueKind;
using input::bdf::InputSchema;
using input::bdf::Module;
using input::bdf::ModuleEntry;
using input::bdf::RecordId;
using input::bdf::RecordKind;
using input::bdf::TextRange;

bool is_number(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789+-.eEdD") == std::string::npos &&
         text.find_first_of("0123456789") != std::string::npos;
}

class ModuleBreaker {
 public:
  explicit ModuleBreaker(FaultWriter& writer)
      : writer_(writer), input_(writer.input()), schema_(input_.schema()) {}

  void run() {
    const std::vector<Module>& modules = input_.data().modules;
    for (std::size_t i = 0; i < modules.size(); ++i) {
      if (modules[i].known) {
        break_module(i);
      }
    }
    writer_.remove_end("missing end geometry", RecordId::of(RecordKind::Geometry, 0));
    break_databases();
  }

 private:
  void break_module(std::size_t index) {
    const Module& module = input_.data().modules[index];
    const RecordId record = RecordId::of_module(index);
    const std::string name = misspelt(module.name);
    if (!schema_.is_known_module(name)) {
      writer_.replace("misspelt module", input_.keyword_range(record), "$" + name);
    }
    writer_.remove_end("missing $end", record);
    const std::size_t sign = input_.keyword_range(record).begin + 1;
    writer_.replace("blank behind the dollar", {sign, sign}, " ");
    for (std::size_t i = 0; i < module.entries.size(); ++i) {
      if (module.entries[i].known) {
        break_entry(module, i, RecordId::of_entry(index, i));
      }
    }
  }

  void break_databases() {
    for (std::size_t number = 1; number <= input_.source().line_count(); ++number) {
      const TextRange line = input_.source().content(number);
      if (core::text::equals_ignoring_case(input_.source().text_of(line), "&end")) {
        for (const char* const wrong : {"&edn", "$end", "end", "/"}) {
          writer_.replace("misspelt end of a database", line, wrong);
        }
      }
    }
  }

  void break_entry(const Module& module, std::size_t index, const RecordId& record) {
    const ModuleEntry& entry = module.entries[index];
    const auto info = schema_.entry_info(module.name, entry.name);
    if (!info) {
      return;
    }
    const TextRange keyword = input_.keyword_range(record);
    const std::string name = misspelt(std::string(input_.source().text_of(keyword)));
    if (!schema_.is_known_entry(module.name, name)) {
      const bool is_behind_lines = index > 0 && has_lines(module.entries[index - 1]);
      writer_.replace(is_behind_lines ? "misspelt keyword behind lines" : "misspelt keyword",
                      keyword, name);
    }
    if (info->kind == EntryValueKind::Flag && input_.behind_keyword(record).empty()) {
      writer_.replace("word behind a flag", {keyword.end, keyword.end},
                      " " + module.entries[0].name);
    }
    if (info->kind == EntryValueKind::Scalar && info->value_type == "integer" &&
        input_.value_ranges(record).size() == 1 && input_.behind_keyword(record).empty()) {
      writer_.replace("second value", {keyword.end, keyword.end}, " 7");
    }
    if (!info->repeatable) {
      writer_.repeat("repeated singular entry", record);
    }
    writer_.remove_end(
        info->terminator == "end geometry" ? "missing end geometry" : "missing terminator", record);
    break_value(entry, record, *info);
  }

  // Whether an entry takes the lines behind it until something ends them.
  static bool has_lines(const ModuleEntry& entry) {
    return entry.kind == EntryValueKind::MultiLine || entry.kind == EntryValueKind::CountedRows ||
           entry.kind == EntryValueKind::NestedBlock ||
           entry.kind == EntryValueKind::TerminatedBlock;
  }

  // In each line of values, the first of them.
  void break_value(const ModuleEntry& entry, const RecordId& record,
                   const input::bdf::EntrySchemaInfo& info) {
    const bool has_values =
        info.kind == EntryValueKind::Scalar || info.kind == EntryValueKind::Tuple ||
        info.kind == EntryValueKind::MultiLine || info.kind == EntryValueKind::CountedRows;
    for (std::size_t i = 0; has_values && i < entry.values.size(); ++i) {
      const TextRange word = first_field(input_.value_range(record, i));
      const std::string text(input_.source().text_of(word));
      if (is_number(text)) {
        writer_.replace("letter in a number", word, text + "o");
      }
      if (!text.empty() && !info.allowed.empty()) {
        writer_.replace("value not in the list", word, is_number(text) ? "77" : "nonesuch");
      }
    }
  }

  TextRange first_field(const TextRange& values) const {
    const std::string_view text = input_.source().text_of(values);
    const auto is_break = [](char byte) { return core::text::is_space(byte) || byte == ','; };
    const auto begin = std::find_if_not(text.begin(), text.end(), is_break);
    const auto end = std::find_if(begin, text.end(), is_break);
    const auto byte_of = [&](auto at) {
      return values.begin + static_cast<std::size_t>(at - text.begin());
    };
    return {byte_of(begin), byte_of(end)};
  }

  FaultWriter& writer_;
  const input::bdf::ParsedInput& input_;
  const InputSchema& schema_;
};

}  // namespace

void break_modules(FaultWriter& writer) {
  ModuleBreaker(writer).run();
}

}  // namespace kelp::test
