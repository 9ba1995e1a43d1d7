#include "faults.hpp"

#include <algorithm>
#include <optional>
#include <utility>

#include "corpus.hpp"
#include "kelp/core/text.hpp"
#include "support/schema.hpp"

namespace kelp::test {
namespace {

using core::text::equals_ignoring_case;
using core::text::trim_view;
using input::bdf::EntryValueKind;
using input::bdf::InputSchema;
using input::bdf::Module;
using input::bdf::ModuleEntry;

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

struct Word {
  std::size_t begin = 0;
  std::size_t end = 0;
};

std::optional<Word> first_word(const std::string& line) {
  const auto is_break = [](char byte) { return core::text::is_space(byte) || byte == ','; };
  const auto begin = std::find_if_not(line.begin(), line.end(), is_break);
  if (begin == line.end() || *begin == '#' || *begin == '*') {
    return std::nullopt;
  }
  const auto end = std::find_if(begin, line.end(), is_break);
  return Word{static_cast<std::size_t>(begin - line.begin()),
              static_cast<std::size_t>(end - line.begin())};
}

bool is_number(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789+-.eEdD") == std::string::npos &&
         text.find_first_of("0123456789") != std::string::npos;
}

/// Makes the mistakes of one text.
class FaultMaker {
 public:
  explicit FaultMaker(std::string_view text)
      : lines_(lines_of(text)), document_(read_all(text).data) {}

  std::vector<Fault> run() {
    for (const Module& module : document_.modules) {
      if (module.known && module.location) {
        break_module(module);
      }
    }
    break_geometry();
    return std::move(faults_);
  }

 private:
  static const InputSchema& schema() { return input::bdf::shipped_schema(); }

  std::size_t index_of(const std::optional<input::bdf::SourceSpan>& place) const {
    return static_cast<std::size_t>(place->line) - 1;
  }

  void add(std::string_view kind, std::size_t index, const std::vector<std::string>& lines) {
    faults_.push_back({kind, index + 1, text_of(lines)});
  }

  void replace_word(std::string_view kind, std::size_t index, const Word& word,
                    const std::string& replacement) {
    std::vector<std::string> lines = lines_;
    lines[index].replace(word.begin, word.end - word.begin, replacement);
    add(kind, index, lines);
  }

  void remove_line(std::string_view kind, std::size_t index) {
    std::vector<std::string> lines = lines_;
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(index));
    add(kind, index, lines);
  }

  // The line at or behind an index that says so; none when a module ends before.
  std::optional<std::size_t> find_line(std::size_t index, std::string_view wanted) const {
    for (; index < lines_.size(); ++index) {
      const std::string_view line = trim_view(lines_[index]);
      if (equals_ignoring_case(line, wanted)) {
        return index;
      }
      if (equals_ignoring_case(line, "$end")) {
        return std::nullopt;
      }
    }
    return std::nullopt;
  }

  void break_module(const Module& module) {
    const std::size_t header = index_of(module.location);
    const auto word = first_word(lines_[header]);
    const std::string name = misspelt(module.name);
    if (word && !schema().is_known_module(name)) {
      replace_word("misspelt module", header, *word, "$" + name);
    }
    if (const auto end = find_line(header, "$end"); module.terminated && end) {
      remove_line("missing $end", *end);
    }
    for (std::size_t i = 0; i < module.entries.size(); ++i) {
      if (module.entries[i].known) {
        break_entry(module, i);
      }
    }
  }

  void break_entry(const Module& module, std::size_t number) {
    const ModuleEntry& entry = module.entries[number];
    const auto info = schema().entry_info(module.name, entry.name);
    const std::size_t keyword = index_of(entry.location);
    const auto word = first_word(lines_[keyword]);
    if (!info || !word) {
      return;
    }
    const std::string name = misspelt(lines_[keyword].substr(word->begin, word->end - word->begin));
    if (!schema().is_known_entry(module.name, name)) {
      replace_word("misspelt keyword", keyword, *word, name);
    }
    if (!info->repeatable) {
      repeat_entry(module, number);
    }
    if (!info->terminator.empty() && entry.terminated) {
      if (const auto end = find_line(keyword + 1, info->terminator)) {
        remove_line(
            info->terminator == "end geometry" ? "missing end geometry" : "missing terminator",
            *end);
      }
    }
    break_value(entry, *info);
  }

  void repeat_entry(const Module& module, std::size_t number) {
    const std::size_t begin = index_of(module.entries[number].location);
    std::optional<std::size_t> end = find_line(begin, "$end");
    if (number + 1 < module.entries.size()) {
      end = index_of(module.entries[number + 1].location);
    }
    if (end) {
      std::vector<std::string> lines = lines_;
      const std::vector<std::string> copy(lines_.begin() + static_cast<std::ptrdiff_t>(begin),
                                          lines_.begin() + static_cast<std::ptrdiff_t>(*end));
      lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(*end), copy.begin(), copy.end());
      add("repeated singular entry", *end, lines);
    }
  }

  void break_value(const ModuleEntry& entry, const input::bdf::EntrySchemaInfo& info) {
    const bool has_values =
        info.kind == EntryValueKind::Scalar || info.kind == EntryValueKind::Tuple ||
        info.kind == EntryValueKind::MultiLine || info.kind == EntryValueKind::CountedRows;
    if (!has_values) {
      return;
    }
    const std::size_t keyword = index_of(entry.location);
    for (std::size_t i = 0; i < entry.values.size(); ++i) {
      const std::size_t index = keyword + 1 + i;
      const auto word = first_word(lines_[index]);
      if (!word) {
        continue;
      }
      const std::string text = lines_[index].substr(word->begin, word->end - word->begin);
      if (is_number(text)) {
        replace_word("letter in a number", index, *word, text + "o");
      }
      if (!info.allowed.empty()) {
        replace_word("value not in the list", index, *word, is_number(text) ? "77" : "nonesuch");
      }
    }
  }

  // The geometry of the header; that of compass is one of its entries.
  void break_geometry() {
    if (!document_.has_geometry || !document_.geometry_terminated || !document_.geometry_location) {
      return;
    }
    if (const auto end = find_line(index_of(document_.geometry_location), "end geometry")) {
      remove_line("missing end geometry", *end);
    }
  }

  std::vector<std::string> lines_;
  input::bdf::BDFData document_;
  std::vector<Fault> faults_;
};

}  // namespace

std::vector<Fault> faults_of(std::string_view text) {
  return FaultMaker(text).run();
}

}  // namespace kelp::test
