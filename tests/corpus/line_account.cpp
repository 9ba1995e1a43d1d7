// Every record with a place claims the line of that number, and the lines that follow it as far as
// the record has values, rows or children. What has no place of its own (an end line, a terminator)
// is claimed right behind what it closes. In the end each line must be claimed exactly once; the
// lines of the preamble and the easy section, which are kept without places, are claimed in order
// from what is left.

#include "corpus/line_account.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

using core::text::equals_ignoring_case;
using core::text::trim_view;

std::vector<std::string_view> lines_of(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (!line.empty() && line.back() == '\r') {
      line.remove_suffix(1);
    }
    lines.push_back(line);
  }
  return lines;
}

std::string without_space(std::string_view text) {
  std::string bare;
  for (const char byte : text) {
    if (!core::text::is_space(byte)) {
      bare += byte;
    }
  }
  return bare;
}

class LineAccount {
 public:
  explicit LineAccount(std::string_view text) : lines_(lines_of(text)), claims_(lines_.size()) {}

  std::vector<std::string> settle(const BDFData& data) {
    claim_easy_tokens(data);
    claim_geometry(data);
    for (const Module& module : data.modules) {
      claim_module(module);
    }
    for (const Statement& statement : data.statements) {
      claim_lines(statement.location, statement.lines);
    }
    claim_script_line(data);
    claim_leading_lines(data);
    complain_about_unclaimed_lines();
    return std::move(complaints_);
  }

 private:
  void complain(std::size_t number, const std::string& what) {
    complaints_.push_back("line " + std::to_string(number) + ": " + what);
  }

  /// Line numbers count from 1; returns the number of the next line.
  std::size_t claim(std::size_t number, std::string_view text) {
    if (number == 0 || number > lines_.size()) {
      complain(number, "does not exist, but is kept as \"" + std::string(text) + "\"");
      return number + 1;
    }
    if (lines_[number - 1] != text) {
      complain(number, "is kept as \"" + std::string(text) + "\"");
    }
    if (++claims_[number - 1] == 2) {
      complain(number, "is kept twice");
    }
    return number + 1;
  }

  std::size_t claim_place(const std::optional<SourceSpan>& place, std::string_view text) {
    if (!place) {
      complain(0, "\"" + std::string(text) + "\" has no place");
      return 0;
    }
    if (place->column != 1 || place->length != text.size()) {
      complain(place->line, "has a wrong column or length");
    }
    return claim(place->line, text);
  }

  void claim_lines(const std::optional<SourceSpan>& first, const std::vector<std::string>& lines) {
    if (lines.empty()) {
      return;
    }
    std::size_t next = claim_place(first, lines.front());
    for (std::size_t i = 1; i < lines.size(); ++i) {
      next = claim(next, lines[i]);
    }
  }

  std::size_t claim_closing_line(std::size_t number, std::string_view wanted) {
    if (number > lines_.size()) {
      complain(number, "does not exist, but should close with \"" + std::string(wanted) + "\"");
      return number + 1;
    }
    const std::string_view line = lines_[number - 1];
    if (!equals_ignoring_case(trim_view(line), trim_view(wanted))) {
      complain(number, "does not close with \"" + std::string(wanted) + "\"");
    }
    return claim(number, line);
  }

  // A block within a block is read as plain lines: no line of its own closes it.
  std::size_t claim_entry(const ModuleEntry& entry, bool is_child) {
    std::size_t next = claim_place(entry.location, entry.raw_line);
    for (const std::string& value : entry.values) {
      next = claim(next, value);
    }
    for (const ModuleEntry& child : entry.children) {
      next = claim_entry(child, true);
    }
    const bool is_block = entry.kind == EntryValueKind::TerminatedBlock ||
                          (entry.kind == EntryValueKind::NestedBlock && !is_child);
    return is_block && entry.terminated ? claim_closing_line(next, entry.terminator) : next;
  }

  void claim_module(const Module& module) {
    std::size_t next = claim_place(module.location, module.header_line);
    for (const ModuleEntry& entry : module.entries) {
      next = claim_entry(entry, false);
    }
    if (module.terminated) {
      claim(next, module.end_line);
    }
  }

  // The header keeps words, not lines; joining `key = value` takes out white space only, so the
  // words of a line and the line agree but for that.
  void claim_easy_tokens(const BDFData& data) {
    const auto& tokens = data.easy_tokens;
    for (std::size_t i = 0; i < tokens.size();) {
      const std::size_t number = tokens[i].location ? tokens[i].location->line : 0;
      std::string words;
      for (; i < tokens.size() && tokens[i].location && tokens[i].location->line == number; ++i) {
        words += tokens[i].text;
      }
      if (number == 0 || number > lines_.size() || without_space(lines_[number - 1]) != words) {
        complain(number, "is not the header \"" + words + "\"");
        return;
      }
      claim(number, lines_[number - 1]);
    }
  }

  void claim_geometry(const BDFData& data) {
    if (!data.has_geometry) {
      return;
    }
    const std::size_t first = claim_geometry_line(data.geometry_location);
    for (const AtomRecord& atom : data.atoms) {
      claim_place(atom.location, atom.line);
    }
    const std::size_t last = first + data.atoms.size() + data.geometry_lines.size();
    std::size_t number = first;
    for (const std::string& line : data.geometry_lines) {
      claim(number = next_unclaimed(number, last), line);
    }
    if (data.geometry_terminated) {
      claim_closing_words(last, "end geometry");
    }
  }

  std::size_t claim_geometry_line(const std::optional<SourceSpan>& place) {
    const std::size_t number = place ? place->line : 0;
    const std::size_t next = claim_closing_words(number, "geometry");
    if (next <= lines_.size() + 1 && number > 0 && place->length != lines_[number - 1].size()) {
      complain(number, "has a wrong length");
    }
    return next;
  }

  std::size_t claim_closing_words(std::size_t number, std::string_view words) {
    if (number == 0 || number > lines_.size()) {
      complain(number, "does not exist, but should be \"" + std::string(words) + "\"");
      return number + 1;
    }
    const std::string_view line = lines_[number - 1];
    if (!equals_ignoring_case(trim_view(line).substr(0, words.size()), words)) {
      complain(number, "is not \"" + std::string(words) + "\"");
    }
    return claim(number, line);
  }

  std::size_t next_unclaimed(std::size_t number, std::size_t end) const {
    while (number < end && number <= lines_.size() && claims_[number - 1] > 0) {
      ++number;
    }
    return number;
  }

  void claim_script_line(const BDFData& data) {
    std::size_t number = 1;
    while (number < lines_.size() && is_preamble(lines_[number - 1])) {
      ++number;
    }
    if (number <= lines_.size() && trim_view(lines_[number - 1]).starts_with("#!")) {
      const std::string_view name = trim_view(trim_view(lines_[number - 1]).substr(2));
      if (data.script_name != (name.empty() ? "job.bdf" : name)) {
        complain(number, "is not the script name \"" + data.script_name + "\"");
      }
      claim(number, lines_[number - 1]);
    }
  }

  static bool is_preamble(std::string_view line) {
    const std::string_view text = trim_view(line);
    return text.empty() || text.front() == '*' || (text.front() == '#' && !text.starts_with("#!"));
  }

  void claim_leading_lines(const BDFData& data) {
    std::size_t number = 1;
    for (const std::string& line : data.leading_lines) {
      while (number <= lines_.size() &&
             (claims_[number - 1] > 0 || trim_view(lines_[number - 1]).empty())) {
        ++number;
      }
      number = claim(number, line);
    }
  }

  void complain_about_unclaimed_lines() {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      if (claims_[i] == 0 && !trim_view(lines_[i]).empty()) {
        complain(i + 1, "is lost: \"" + std::string(lines_[i]) + "\"");
      }
    }
  }

  std::vector<std::string_view> lines_;
  std::vector<int> claims_;
  std::vector<std::string> complaints_;
};

void check_statement(const Statement& statement, const BDFData& data, std::size_t& modules,
                     std::vector<std::string>& complaints) {
  const bool is_module = statement.kind == StatementKind::Module;
  if (is_module != (statement.module_index != Statement::no_module)) {
    complaints.push_back("a statement's kind and module index disagree");
  } else if (is_module && statement.module_index != modules) {
    complaints.push_back("a module statement is out of order");
  } else if (is_module && (modules >= data.modules.size() || !statement.lines.empty())) {
    complaints.push_back("a module statement has lines or no module");
  } else if (!is_module && statement.lines.empty()) {
    complaints.push_back("a side statement has no lines");
  }
  modules += is_module ? 1 : 0;
}

}  // namespace

std::vector<std::string> lines_unaccounted_for(std::string_view text, const BDFData& data) {
  return LineAccount(text).settle(data);
}

std::vector<std::string> broken_invariants(const BDFData& data) {
  std::vector<std::string> complaints;
  std::vector<std::string> free_lines;
  std::size_t modules = 0;
  std::uint64_t last_line = 0;
  for (const Statement& statement : data.statements) {
    check_statement(statement, data, modules, complaints);
    free_lines.insert(free_lines.end(), statement.lines.begin(), statement.lines.end());
    if (!statement.location || statement.location->line <= last_line) {
      complaints.push_back("a statement has no place behind the one before it");
      return complaints;
    }
    last_line = statement.location->line;
  }
  if (modules != data.modules.size()) {
    complaints.push_back("not every module has its statement");
  }
  if (free_lines != data.free_lines) {
    complaints.push_back("the free lines are not those of the side statements");
  }
  return complaints;
}

}  // namespace kelp::input::bdf
