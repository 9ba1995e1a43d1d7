// A value is told by the ranges of its lines in the text, so that it is printed as it was written:
// digits, order and names stay, comments are left out.

#include "commands/commands.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "cli/output.hpp"
#include "cli/sources.hpp"
#include "kelp/core/resource.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "report/outline.hpp"

namespace kelp::app {
namespace {

using input::bdf::EasyKeyword;
using input::bdf::EntryValueKind;
using input::bdf::LineRole;
using input::bdf::ParsedInput;
using input::bdf::PathKind;
using input::bdf::RecordId;
using input::bdf::RecordKind;
using input::bdf::TextRange;
using input::bdf::ValuePath;
using ValueLines = std::vector<ValueLine>;

std::string text_at(const ParsedInput& input, const TextRange& range) {
  return std::string(input.source().text_of(range));
}

ValueLine line_at(const ParsedInput& input, const TextRange& range) {
  return {text_at(input, range), range};
}

TextRange words_of_line(const ParsedInput& input, std::size_t number) {
  const input::bdf::SourceText& source = input.source();
  const TextRange line = source.line_range(number);
  const TextRange comment = input.comment_range(number);
  return source.trimmed({line.begin, comment.empty() ? line.end : comment.begin});
}

/// The lines between the first and the last one of a block. Empty lines within stay: in a matrix of
/// internal coordinates they part the variables from it.
ValueLines lines_of_block(const ParsedInput& input, const RecordId& record) {
  const std::size_t end = input.end_line(record);
  const std::size_t last = end > 0 ? end - 1 : input.last_line(record);
  ValueLines lines;
  for (std::size_t number = input.first_line(record) + 1; number <= last; ++number) {
    const TextRange words = words_of_line(input, number);
    const bool is_blank = input.source().content(number).empty();
    if (!words.empty() || (is_blank && !lines.empty())) {
      lines.push_back(line_at(input, words));
    }
  }
  while (!lines.empty() && lines.back().text.empty()) {
    lines.pop_back();
  }
  return lines;
}

/// The entries of a nested block with their values indented by two blanks.
ValueLines lines_of_entries(const ParsedInput& input, const RecordId& record) {
  const std::size_t end = input.end_line(record);
  const std::size_t last = end > 0 ? end - 1 : input.last_line(record);
  ValueLines lines;
  for (std::size_t number = input.first_line(record) + 1; number <= last; ++number) {
    ValueLine line = line_at(input, words_of_line(input, number));
    if (line.text.empty()) {
      continue;
    }
    if (input.line(number).role == LineRole::Value) {
      line.text.insert(0, "  ");
    }
    lines.push_back(std::move(line));
  }
  return lines;
}

ValueLines lines_of_entry(const ParsedInput& input, const RecordId& record) {
  const input::bdf::ModuleEntry& entry = *entry_or_child(input.data(), record);
  if (entry.kind == EntryValueKind::NestedBlock) {
    return lines_of_entries(input, record);
  }
  if (entry.kind == EntryValueKind::TerminatedBlock) {
    return lines_of_block(input, record);
  }
  ValueLines lines;
  for (const TextRange& range : input.value_ranges(record)) {
    lines.push_back(line_at(input, range));
  }
  return lines;
}

std::optional<ValueLines> part_of_specification(const ParsedInput& input, const std::string& part) {
  const std::vector<input::bdf::EasyToken>& tokens = input.data().easy_tokens;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].category != "method_spec") {
      continue;
    }
    const input::bdf::SpecificationRanges ranges = input.specification_ranges(i);
    const TextRange range = part == "method"       ? ranges.method
                            : part == "functional" ? ranges.functional
                                                   : ranges.basis;
    return range.empty() ? std::nullopt : std::optional(ValueLines{line_at(input, range)});
  }
  return std::nullopt;
}

std::optional<ValueLines> value_in_header(const ParsedInput& input, const std::string& key) {
  const auto found = find_easy_keywords(input.data(), input.schema(), key);
  if (found.empty()) {
    const std::string part = core::text::to_lower(key);
    const bool names_part = part == "method" || part == "functional" || part == "basis";
    return names_part ? part_of_specification(input, part) : std::nullopt;
  }
  const EasyKeyword& keyword = found.front();
  std::string text = easy_value(input.data(), keyword);
  if (text.empty()) {
    return ValueLines();
  }
  const bool is_one_token = keyword.last == keyword.first + 1;
  const TextRange range = is_one_token
                              ? input.token_ranges(keyword.first).value
                              : TextRange{input.token_ranges(keyword.first + 1).whole.begin,
                                          input.token_ranges(keyword.last - 1).whole.end};
  return ValueLines{{is_one_token ? text_at(input, range) : std::move(text), range}};
}

/// Returns the lines of what stands at a path; unset when there is nothing.
std::optional<ValueLines> value_at(const ParsedInput& input, const ValuePath& path) {
  if (path.kind == PathKind::EasyKeyword) {
    return value_in_header(input, path.name);
  }
  const RecordId record = find_record(input, path);
  if (!record) {
    return std::nullopt;
  }
  if (record.kind != RecordKind::Geometry) {
    return lines_of_entry(input, record);
  }
  ValueLines lines = lines_of_block(input, record);
  return lines.empty() ? std::nullopt : std::optional(std::move(lines));
}

std::runtime_error no_value(const std::string& path) {
  return std::runtime_error(
      fmt::format("'{0}' names a module; a value is at a path like {0}.charge, and 'kelp-bdf show' "
                  "lists what there is",
                  path));
}

// Who gives the file first gets told, not a message about a strange path.
ValuePath path_of_value(const GetOptions& options, const input::bdf::InputSchema& schema) {
  if (core::resource::is_regular_file_path(options.path) && !options.inputs.empty()) {
    throw std::runtime_error(fmt::format("the path comes first: kelp-bdf get {} {}",
                                         options.inputs.front(), options.path));
  }
  input::bdf::PathResult result = input::bdf::parse_path(options.path);
  if (!result.path) {
    throw std::runtime_error(result.error);
  }
  if (result.path->kind == PathKind::Module && schema.is_known_module(result.path->module)) {
    throw no_value(options.path);
  }
  return *std::move(result.path);
}

// A name alone may be that of a keyword.
std::vector<std::string> meant_by(const ValuePath& path, const ParsedInput& input) {
  std::vector<std::string> meant;
  if (path.kind == PathKind::Module) {
    meant = paths_of_name(input.data(), input.schema(), path.module);
  }
  return meant.empty() ? path_hint(input.schema(), path) : meant;
}

/// One run of the command.
class Get {
 public:
  Get(const GetOptions& options, Session& session)
      : options_(options), session_(session), path_(path_of_value(options, session.schema())) {}

  ExitStatus run() {
    const Sources sources = expand_sources(options_, session_);
    is_named_ = sources.list.size() > 1;
    const ExitStatus status =
        for_each_source(sources, [this](const Source& source) { return get(source); });
    if (options_.json) {
      print_contents(values_json(values_));
    }
    return status;
  }

 private:
  ExitStatus get(const Source& source) {
    const ParsedInput input(read_source(source, session_.options),
                            *session_.settings_of(source).schema);
    if (find_record(input, path_).kind == RecordKind::Module) {
      throw no_value(options_.path);
    }
    FileValue value = {to_string(path_), source.name, input.source(), value_at(input, path_)};
    if (!value.lines && !session_.options.quiet) {
      complain(fmt::format("{}: nothing at '{}'{}", source.name, options_.path,
                           did_you_mean(meant_by(path_, input))));
    }
    const ExitStatus status = value.lines ? ExitStatus::Success : ExitStatus::Findings;
    if (options_.json) {
      values_.push_back(std::move(value));
    } else if (value.lines) {
      print_lines(*value.lines, source.name);
    }
    return status;
  }

  void print_lines(const ValueLines& lines, const std::string& name) const {
    for (const ValueLine& line : lines) {
      if (is_named_) {
        print(core::unicode::displayable(name) + ": ");
      }
      print_contents(line.text + '\n');
    }
  }

  const GetOptions& options_;
  Session& session_;
  ValuePath path_;
  bool is_named_ = false;
  std::vector<FileValue> values_;
};

}  // namespace

ExitStatus run_get(const GetOptions& options, Session& session) {
  return Get(options, session).run();
}

}  // namespace kelp::app
