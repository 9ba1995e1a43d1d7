#include "faults.hpp"

#include <algorithm>
#include <utility>

#include "corpus.hpp"
#include "kelp/core/text.hpp"
#include "support/schema.hpp"

namespace kelp::test {
namespace {

using input::bdf::EntryValueKind;
using input::bdf::InputSchema;
using input::bdf::Module;
using input::bdf::ModuleEntry;
using input::bdf::RecordId;
using input::bdf::RecordKind;
using input::bdf::TextRange;

// Swaps the first two neighbours that differ, behind the first letter if there are such.
std::string misspelt(std::string word) {
  for (std::size_t i = word.size() > 3 ? 1 : 0; i + 1 < word.size(); ++i) {
    if (word[i] != word[i + 1]) {
      std::swap(word[i], word[i + 1]);
      return word;
    }
  }
  return word + "x";
}

bool is_number(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789+-.eEdD") == std::string::npos &&
         text.find_first_of("0123456789") != std::string::npos;
}

/// Makes the mistakes of one text.
class FaultMaker {
 public:
  explicit FaultMaker(std::string_view text)
      : input_(std::string(text), input::bdf::shipped_schema()) {
    for (std::size_t number = 1; number <= input_.source().line_count(); ++number) {
      lines_.emplace_back(input_.source().line(number));
    }
  }

  std::vector<Fault> run() {
    const std::vector<Module>& modules = input_.data().modules;
    for (std::size_t i = 0; i < modules.size(); ++i) {
      if (modules[i].known) {
        break_module(i);
      }
    }
    remove_end("missing end geometry", RecordId::of(RecordKind::Geometry, 0));
    return std::move(faults_);
  }

 private:
  const InputSchema& schema() const { return input_.schema(); }

  void add(std::string_view kind, std::size_t index, const std::vector<std::string>& lines) {
    faults_.push_back({kind, index + 1, text_of(lines)});
  }

  void replace(std::string_view kind, const TextRange& range, const std::string& replacement) {
    const std::size_t index = input_.source().line_at(range.begin) - 1;
    std::vector<std::string> lines = lines_;
    const std::size_t begin = range.begin - input_.source().line_range(index + 1).begin;
    lines[index].replace(begin, range.size(), replacement);
    add(kind, index, lines);
  }

  void remove_end(std::string_view kind, const RecordId& record) {
    if (const std::size_t number = input_.end_line(record); number != 0) {
      std::vector<std::string> lines = lines_;
      lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(number) - 1);
      add(kind, number - 1, lines);
    }
  }

  void break_module(std::size_t index) {
    const Module& module = input_.data().modules[index];
    const RecordId record = RecordId::of_module(index);
    const std::string name = misspelt(module.name);
    if (!schema().is_known_module(name)) {
      replace("misspelt module", input_.keyword_range(record), "$" + name);
    }
    remove_end("missing $end", record);
    for (std::size_t i = 0; i < module.entries.size(); ++i) {
      if (module.entries[i].known) {
        break_entry(module, module.entries[i], RecordId::of_entry(index, i));
      }
    }
  }

  void break_entry(const Module& module, const ModuleEntry& entry, const RecordId& record) {
    const auto info = schema().entry_info(module.name, entry.name);
    if (!info) {
      return;
    }
    const TextRange keyword = input_.keyword_range(record);
    const std::string name = misspelt(std::string(input_.source().text_of(keyword)));
    if (!schema().is_known_entry(module.name, name)) {
      replace("misspelt keyword", keyword, name);
    }
    if (!info->repeatable) {
      repeat(record);
    }
    remove_end(info->terminator == "end geometry" ? "missing end geometry" : "missing terminator",
               record);
    break_value(entry, record, *info);
  }

  void repeat(const RecordId& record) {
    const auto begin = lines_.begin() + static_cast<std::ptrdiff_t>(input_.first_line(record)) - 1;
    const std::size_t end = input_.last_line(record);
    const std::vector<std::string> copy(begin, lines_.begin() + static_cast<std::ptrdiff_t>(end));
    std::vector<std::string> lines = lines_;
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(end), copy.begin(), copy.end());
    add("repeated singular entry", end, lines);
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
        replace("letter in a number", word, text + "o");
      }
      if (!text.empty() && !info.allowed.empty()) {
        replace("value not in the list", word, is_number(text) ? "77" : "nonesuch");
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

  input::bdf::ParsedInput input_;
  std::vector<std::string> lines_;
  std::vector<Fault> faults_;
};

}  // namespace

std::vector<Fault> faults_of(std::string_view text) {
  return FaultMaker(text).run();
}

}  // namespace kelp::test
