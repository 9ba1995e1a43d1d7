// The library tells of each finding what is wrong and on which line it begins. Here the words at
// fault are found on the line, and what a user would like to know beside.

#include "make_finding.hpp"

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "kelp/core/text.hpp"
#include "locate_value.hpp"
#include "similar.hpp"
#include "vocabulary.hpp"

namespace kelp::app {
namespace {

using input::bdf::EasyToken;
using input::bdf::Module;
using input::bdf::ModuleEntry;
using input::bdf::ValidationIssue;

/// Completes one finding.
class Completion {
 public:
  Completion(const ValidationIssue& issue, const CheckedInput& input, Finding& finding)
      : issue_(issue),
        input_(input),
        data_(input.result.data),
        finding_(finding),
        line_(issue.location ? static_cast<std::size_t>(issue.location->line) : 0),
        place_(line_ == 0 ? Place{} : find_place(data_, line_)) {
    finding_.path = path_of(data_, place_);
  }

  void run() {
    struct Step {
      std::string_view code;
      void (Completion::*complete)();
    };
    static constexpr Step steps[] = {
        {"bdf.invalid_easy_value", &Completion::invalid_easy_value},
        {"bdf.missing_method", &Completion::missing_method},
        {"bdf.missing_geometry", &Completion::missing_geometry},
        {"bdf.unterminated_geometry", &Completion::unterminated_geometry},
        {"bdf.unknown_module", &Completion::unknown_module},
        {"bdf.unterminated_module", &Completion::unterminated_module},
        {"bdf.unknown_entry", &Completion::unknown_entry},
        {"bdf.unknown_nested_entry", &Completion::unknown_nested_entry},
        {"bdf.missing_required_entry", &Completion::keyword},
        {"bdf.conflicting_entries", &Completion::keyword},
        {"bdf.duplicate_entry", &Completion::duplicate_entry},
        {"bdf.duplicate_module", &Completion::duplicate_module},
        {"bdf.missing_entry_value", &Completion::missing_entry_value},
        {"bdf.unterminated_entry_block", &Completion::unterminated_block},
        {"bdf.invalid_module_value", &Completion::invalid_module_value},
    };
    for (const Step& step : steps) {
      if (step.code == issue_.code) {
        return (this->*step.complete)();
      }
    }
    keyword();
  }

 private:
  void mark(const LinePart& part, std::string label = {}) {
    finding_.range = input_.source.range(part);
    finding_.source_line = input_.source.line(part.line);
    finding_.source_line_byte = finding_.range->start.byte - part.begin;
    finding_.label = std::move(label);
  }

  void mark_word(std::size_t line, std::string label = {}) {
    if (line != 0) {
      mark(input_.source.first_word(line), std::move(label));
    }
  }

  void help(std::string text) { finding_.help.push_back(std::move(text)); }

  void suggest(std::vector<std::string> names, std::string_view thing) {
    if (names.empty()) {
      return;
    }
    help(names.size() == 1 ? fmt::format("a similar {} exists: {}", thing, quoted_choice(names))
                           : fmt::format("similar {} exist: {}",
                                         thing == "entry" ? "entries" : fmt::format("{}s", thing),
                                         quoted_choice(names)));
    finding_.suggestions = std::move(names);
  }

  void keyword() { mark_word(line_); }

  void missing_method() {
    if (!data_.easy_tokens.empty() && data_.easy_tokens.front().location) {
      const auto line = static_cast<std::size_t>(data_.easy_tokens.front().location->line);
      mark(input_.source.content(line), "no method, functional or basis here");
    }
    help("write for example 'B3LYP/def2-SVP' on the first line");
  }

  void missing_geometry() {
    mark_word(line_, "no atom follows");
    help("put the atoms between a line 'Geometry' and a line 'End Geometry'");
  }

  void unterminated_geometry() {
    mark_word(line_, "begins here");
    help("add a line 'End Geometry' after the last atom");
  }

  void unknown_module() {
    const LinePart header = input_.source.content(line_);
    const LinePart word = input_.source.first_word(line_);
    const std::string_view text = input_.source.line(line_);
    const std::string_view name = text.substr(word.begin, word.end - word.begin);
    if (header.end > word.end && input_.schema.is_known_module(name)) {
      mark(input_.source.trimmed({line_, word.end, header.end}), "taken as part of the name");
      help(fmt::format("only '{}' may stand on this line; put remarks on a line of their own",
                       name));
      return;
    }
    mark(header, "not a module");
    suggest(similar_names(place_.module == nullptr ? name.substr(1) : place_.module->name,
                          module_names(input_.schema)),
            "module");
  }

  void unterminated_module() {
    mark(input_.source.content(line_), "begins here");
    help("add a line '$end' after its last entry");
  }

  void unknown_entry() {
    const std::string& module = place_.module->name;
    const std::string& name = place_.entry->name;
    mark_word(line_, fmt::format("not an entry of ${}", module));
    if (!input_.schema.is_known_module(module)) {
      return;
    }
    suggest(similar_names(name, entry_names(input_.schema, module)), "entry");
    if (!finding_.suggestions.empty()) {
      return;
    }
    std::vector<std::string> others = modules_with_entry(input_.schema, name);
    for (std::string& other : others) {
      other.insert(0, "$");
    }
    if (!others.empty()) {
      help(fmt::format("it is an entry of {}", quoted_choice(others)));
    }
  }

  void unknown_nested_entry() {
    const std::string& block = place_.entry->name;
    mark_word(line_, fmt::format("not an entry of the block '{}'", block));
    suggest(similar_names(place_.child->name,
                          nested_entry_names(input_.schema, place_.module->name, block)),
            "entry");
  }

  void missing_entry_value() {
    const LinePart word = input_.source.first_word(line_);
    const LinePart rest =
        input_.source.trimmed({line_, word.end, input_.source.line(line_).size()});
    const std::string_view text = input_.source.line(line_).substr(rest.begin);
    if (rest.begin < rest.end && text.front() != '#') {
      mark(rest, "not read here");
      help("write the value on the next line; what stands behind a keyword is not read");
      return;
    }
    mark(word, "no value follows");
    expect();
  }

  void unterminated_block() {
    mark_word(line_, "begins here");
    const ModuleEntry* const record = place_.record();
    if (record != nullptr && !record->terminator.empty()) {
      help(fmt::format("add a line '{}' after its last line", record->terminator));
    }
  }

  std::optional<input::bdf::EntrySchemaInfo> description() const {
    if (place_.child != nullptr) {
      return input_.schema.nested_entry_info(place_.module->name, place_.entry->name,
                                             place_.child->name);
    }
    return input_.schema.entry_info(place_.module->name, place_.entry->name);
  }

  void expect() {
    if (const auto info = description()) {
      const std::string expected = expected_value(*info);
      if (!expected.empty()) {
        help("expected: " + expected);
      }
    }
  }

  void invalid_module_value() {
    const auto part = locate_invalid_value(input_, place_);
    if (!part) {
      mark_word(line_);
      expect();
      return;
    }
    mark(*part);
    if (const auto info = description()) {
      const std::string_view text = input_.source.line(part->line);
      suggest(similar_names(text.substr(part->begin, part->end - part->begin), info->allowed),
              "value");
    }
    expect();
  }

  // The library names the module or block; the eye wants the repetition itself.
  void duplicate_entry() {
    const bool nested = place_.entry != nullptr;
    const std::vector<ModuleEntry>& records =
        nested ? place_.entry->children : place_.module->entries;
    const ModuleEntry* first = nullptr;
    for (const ModuleEntry& record : records) {
      const std::string name =
          nested ? input_.schema.canonical_nested_entry(place_.module->name, place_.entry->name,
                                                        record.name)
                 : input_.schema.canonical_entry(place_.module->name, record.name);
      if (!record.location || issue_.message.find('.' + name + '\'') == std::string::npos) {
        continue;
      }
      if (first != nullptr) {
        mark_repetition(*first->location, *record.location);
        finding_.path += '.' + record.name;
        return;
      }
      first = &record;
    }
    keyword();
  }

  void duplicate_module() {
    const Module* first = nullptr;
    for (const Module& module : data_.modules) {
      const std::string name = input_.schema.canonical_module(module.name);
      if (!module.location || issue_.message.find("'$" + name + '\'') == std::string::npos) {
        continue;
      }
      if (first != nullptr) {
        mark_repetition(*first->location, *module.location);
        finding_.path = path_of(data_, {&module, nullptr, nullptr});
        return;
      }
      first = &module;
    }
  }

  void mark_repetition(const input::bdf::SourceSpan& first, const input::bdf::SourceSpan& again) {
    mark_word(static_cast<std::size_t>(again.line),
              fmt::format("first given on line {}", first.line));
  }

  void invalid_easy_value() {
    const std::string_view line = input_.source.line(line_);
    for (const EasyToken& token : data_.easy_tokens) {
      const bool meant = token.location && token.location->line == line_ && !token.value.empty() &&
                         issue_.message.find('\'' + token.key + "' has") != std::string::npos &&
                         issue_.message.find('\'' + token.value + '\'') != std::string::npos;
      if (!meant) {
        continue;
      }
      finding_.path = "easy." + token.key;
      // The pieces of "key = value" may stand apart on the line.
      const std::size_t at = line.find(token.text);
      const std::size_t value = line.find(
          token.value, at == std::string_view::npos ? line.find('=') : at + token.text.find('='));
      if (value != std::string_view::npos) {
        mark({line_, value, value + token.value.size()});
      }
      expect_easy(token);
      return;
    }
    mark(input_.source.content(line_));
  }

  void expect_easy(const EasyToken& token) {
    if (const auto info = input_.schema.easy_keyword_info(token.key)) {
      suggest(similar_names(token.value, info->allowed), "value");
      const std::string expected = expected_value(*info);
      if (!expected.empty()) {
        help("expected: " + expected);
      }
    }
  }

  const ValidationIssue& issue_;
  const CheckedInput& input_;
  const input::bdf::BDFData& data_;
  Finding& finding_;
  std::size_t line_;
  Place place_;
};

}  // namespace

Finding make_finding(const ValidationIssue& issue, const CheckedInput& input) {
  Finding finding;
  finding.file = input.name;
  finding.code = issue.code;
  finding.severity = issue.severity;
  finding.message = issue.message;
  Completion(issue, input, finding).run();
  return finding;
}

Finding make_empty_input_finding(const CheckedInput& input) {
  Finding finding;
  finding.file = input.name;
  finding.code = "bdf.empty_input";
  finding.severity = input::bdf::ValidationSeverity::Error;
  finding.message = input.result.error;
  return finding;
}

bool is_about_remark(const ValidationIssue& issue, const CheckedInput& input) {
  if (!issue.location ||
      (issue.code != "bdf.unknown_entry" && issue.code != "bdf.unknown_nested_entry")) {
    return false;
  }
  const std::string_view line =
      core::text::trim_view(input.source.line(static_cast<std::size_t>(issue.location->line)));
  return line.empty() || line.front() == '#' || line.front() == '*';
}

}  // namespace kelp::app
