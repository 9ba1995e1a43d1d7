#include "advice/report.hpp"

#include <algorithm>
#include <tuple>
#include <utility>

#include "kelp/input/bdf/explain.hpp"

namespace kelp::input::bdf {
namespace {

std::string filled(std::string_view message, std::initializer_list<std::string_view> arguments) {
  std::string text;
  const auto* argument = arguments.begin();
  for (std::size_t at = 0; at < message.size(); ++at) {
    if (message.substr(at, 2) == "{}" && argument != arguments.end()) {
      text += *argument++;
      ++at;
    } else {
      text += message[at];
    }
  }
  return text;
}

std::string_view line_end_of(const Job& job) {
  const std::string_view end = job.input.source().line_end(1);
  return end == "\r\n" ? end : std::string_view("\n");
}

// The white space before the first word of a line.
std::string indentation(const Job& job, std::size_t line) {
  const SourceText& source = job.input.source();
  const std::size_t begin = source.line_range(line).begin;
  return std::string(source.text_of({begin, std::max(begin, source.content(line).begin)}));
}

// Takes the lines of a range away and writes them where another line begins.
std::vector<TextEdit> moved_to(const Job& job, const TextRange& from, std::size_t to) {
  const std::string_view source = job.input.source().text();
  std::string text(source.substr(from.begin, from.end - from.begin));
  if (text.empty() || text.back() != '\n') {
    text += line_end_of(job);
  }
  if (to > 0 && source[to - 1] != '\n') {
    text.insert(0, line_end_of(job));
  }
  TextEdit removal = {from, {}};
  TextEdit insertion = {{to, to}, std::move(text)};
  return to < from.begin ? std::vector<TextEdit>{std::move(insertion), std::move(removal)}
                         : std::vector<TextEdit>{std::move(removal), std::move(insertion)};
}

std::size_t begin_of(const Diagnostic& diagnostic) {
  return diagnostic.range ? diagnostic.range->begin : 0;
}

}  // namespace

Finding::Finding(const Job& job, const Rule& rule) : job_(job) {
  diagnostic_.code = rule.code;
  if (const FindingText* const text = find_finding_text(rule.code)) {
    diagnostic_.severity = text->severity;
  }
}

Finding& Finding::mark(const TextRange& range, const RecordId& record, std::string label) {
  diagnostic_.range = range;
  diagnostic_.label = std::move(label);
  diagnostic_.record = record;
  return *this;
}

Finding& Finding::at(const Setting& setting, std::string label) {
  return mark(setting.range(), setting.record(), std::move(label));
}

Finding& Finding::at_keyword(const Setting& setting, std::string label) {
  return mark(setting.keyword(), setting.record(), std::move(label));
}

Finding& Finding::at(const Block& block, std::string label) {
  return mark(job_.input.keyword_range(block.record()), block.record(), std::move(label));
}

Finding& Finding::at(Word word, std::string label) {
  return at(range_of(job_.input, word), std::move(label));
}

Finding& Finding::at(const TextRange& range, std::string label) {
  return mark(range, job_.input.record_at(range.begin), std::move(label));
}

Finding& Finding::as(Severity severity) {
  diagnostic_.severity = severity;
  return *this;
}

Finding& Finding::related(const Setting& setting, std::string message) {
  return setting ? related(setting.range(), std::move(message)) : *this;
}

Finding& Finding::related(const Block& block, std::string message) {
  return related(job_.input.keyword_range(block.record()), std::move(message));
}

Finding& Finding::related(const TextRange& range, std::string message) {
  if (!range.empty()) {
    diagnostic_.related.push_back({range, std::move(message)});
  }
  return *this;
}

Finding& Finding::help(std::string text) {
  diagnostic_.help.push_back(std::move(text));
  return *this;
}

Finding& Finding::suggest(const std::vector<std::string>& names) {
  diagnostic_.suggestions = names;
  for (const std::string& name : names) {
    ask("write '" + name + "'", {diagnostic_.range.value_or(TextRange{}), name});
  }
  return *this;
}

Finding& Finding::offer(Fix fix) {
  diagnostic_.fixes.push_back(std::move(fix));
  return *this;
}

Finding& Finding::ask(std::string title, TextEdit edit) {
  return offer({std::move(title), {std::move(edit)}, false});
}

Finding& Finding::ask_all(std::string title, std::vector<TextEdit> edits) {
  return offer({std::move(title), std::move(edits), false});
}

Finding& Finding::fix(std::string title, TextEdit edit) {
  return offer({std::move(title), {std::move(edit)}, true});
}

Finding& Finding::fix_all(std::string title, std::vector<TextEdit> edits) {
  return offer({std::move(title), std::move(edits), true});
}

Finding& Report::add(std::string_view message, std::initializer_list<std::string_view> arguments) {
  Finding& finding = findings_.emplace_back(job_, *rule_);
  finding.diagnostic_.message = filled(message, arguments);
  finding.diagnostic_.arguments.assign(arguments.begin(), arguments.end());
  return finding;
}

// Several calculations of one input can share what is at fault, a charge in the header for example.
std::vector<Diagnostic> Report::take() {
  std::vector<Diagnostic> all;
  all.reserve(findings_.size());
  for (Finding& finding : findings_) {
    all.push_back(std::move(finding.diagnostic_));
  }
  findings_.clear();
  std::stable_sort(all.begin(), all.end(), [](const Diagnostic& left, const Diagnostic& right) {
    return begin_of(left) < begin_of(right);
  });
  const auto key = [](const Diagnostic& it) { return std::tie(it.code, it.message); };
  std::vector<Diagnostic> kept;
  for (Diagnostic& diagnostic : all) {
    const auto is_same = [&](const Diagnostic& other) {
      return other.range == diagnostic.range && key(other) == key(diagnostic);
    };
    bool is_known = false;
    for (auto it = kept.rbegin(); it != kept.rend() && begin_of(*it) == begin_of(diagnostic);
         ++it) {
      is_known = is_known || is_same(*it);
    }
    if (!is_known) {
      kept.push_back(std::move(diagnostic));
    }
  }
  if (!kept.empty()) {
    const PathIndex paths(job_.data());
    for (Diagnostic& diagnostic : kept) {
      diagnostic.path = paths.path_of(diagnostic.record);
    }
  }
  return kept;
}

// A keyword whose value is not there stays.
TextEdit value_replaced(const Setting& setting, std::string text) {
  if (setting.words().empty()) {
    const std::size_t end = setting.keyword().end;
    const bool is_in_header = setting.record().kind == RecordKind::EasyToken;
    return {{end, end}, (is_in_header ? "=" : "\n  ") + text};
  }
  return {setting.range(), std::move(text)};
}

TextEdit keyword_replaced(const Setting& setting, std::string text) {
  return {setting.keyword(), std::move(text)};
}

TextEdit removed(const Job& job, const Setting& setting) {
  if (setting.record().kind != RecordKind::EasyToken) {
    return {job.input.range(setting.record()), {}};
  }
  TextRange range = setting.keyword();
  range.end = std::max(range.end, setting.range().end);
  const std::string_view text = job.input.source().text();
  while (range.begin > 0 && (text[range.begin - 1] == ' ' || text[range.begin - 1] == '\t')) {
    --range.begin;
  }
  return {range, {}};
}

TextEdit entry_added(const Job& job, const Block& block, const std::string& name,
                     const std::string& value) {
  const ParsedInput& input = job.input;
  const std::size_t header = input.first_line(block.record());
  const std::size_t end = input.end_line(block.record());
  const std::size_t at =
      end == 0 ? input.range(block.record()).end : input.source().full_line_range(end).begin;
  std::string indent = indentation(job, header);
  std::string value_indent = indent + "  ";
  for (const EntriesByName::Entry& entry : block.entries.first_of_each()) {
    const RecordId record = RecordId::of_entry(block.index, entry.index);
    indent = indentation(job, input.first_line(record));
    const std::size_t line = input.value_line(record, 0);
    if (line > input.first_line(record) && line <= input.last_line(record)) {
      value_indent = indentation(job, line);
      break;
    }
  }
  const std::size_t last = input.last_line(block.record());
  const bool is_open = end == 0 && input.source().line_end(last).empty();
  std::string text(is_open ? line_end_of(job) : std::string_view());
  text += indent + name;
  text += line_end_of(job);
  if (!value.empty()) {
    text += value_indent + value;
    text += line_end_of(job);
  }
  return {{at, at}, std::move(text)};
}

TextEdit block_added(const Job& job, const Block& behind, const std::string& name,
                     const std::vector<std::string>& lines) {
  const ParsedInput& input = job.input;
  const std::size_t at = input.range(behind.record()).end;
  const std::string indent = indentation(job, input.first_line(behind.record()));
  const std::string_view end = line_end_of(job);
  const std::size_t last = input.last_line(behind.record());
  std::string text(input.source().line_end(last).empty() ? end : std::string_view());
  text += end;
  text += indent + "$" + name;
  text += end;
  for (const std::string& line : lines) {
    text += indent + line;
    text += end;
  }
  text += indent + "$end";
  text += end;
  return {{at, at}, std::move(text)};
}

std::vector<TextEdit> moved_before(const Job& job, const RecordId& record, const RecordId& other) {
  return moved_to(job, job.input.range(record), job.input.range(other).begin);
}

std::vector<TextEdit> moved_behind(const Job& job, const RecordId& record, const RecordId& other) {
  return moved_to(job, job.input.range(record), job.input.range(other).end);
}

}  // namespace kelp::input::bdf
