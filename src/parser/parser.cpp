// The frame of an input: comments, an optional script line, then either the module blocks at once
// or an easy section first, then a body of modules and of the lines between them.

#include "kelp/input/bdf/parser.hpp"

#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/fs.hpp"
#include "kelp/core/text.hpp"
#include "model/script_name.hpp"
#include "parser/easy_section.hpp"
#include "parser/line_reader.hpp"
#include "parser/lines.hpp"
#include "parser/module_block.hpp"

namespace kelp::input::bdf {
namespace {

bool is_preamble_comment(std::string_view line) {
  return is_remark(line) && !is_script_line(line);
}

void read_preamble(LineReader& reader, BDFData& data) {
  for (; !reader.at_end(); reader.skip()) {
    const std::string_view line = reader.line();
    if (is_preamble_comment(line)) {
      data.leading_lines.emplace_back(line);
    } else if (!is_blank(line)) {
      return;
    }
  }
}

void add_side_statement(StatementKind kind, std::size_t first_line, std::vector<std::string> lines,
                        BDFData& data) {
  Statement statement;
  statement.kind = kind;
  statement.location = span_of_line(first_line, lines.front());
  data.free_lines.insert(data.free_lines.end(), lines.begin(), lines.end());
  statement.lines = std::move(lines);
  data.statements.push_back(std::move(statement));
}

void read_module(LineReader& reader, const InputSchema& schema, const ParseOptions& options,
                 BDFData& data) {
  Statement statement;
  statement.kind = StatementKind::Module;
  statement.module_index = data.modules.size();
  data.modules.push_back(parse_module(reader, schema, options));
  statement.location = data.modules.back().location;
  data.statements.push_back(std::move(statement));
}

std::vector<std::string> take_database(LineReader& reader) {
  std::vector<std::string> lines;
  bool ended = false;
  while (!reader.at_end() && !ended) {
    ended = is_database_end(reader.line());
    lines.emplace_back(reader.take());
  }
  return lines;
}

StatementKind kind_of_line(std::string_view line) {
  if (is_shell_line(line)) {
    return StatementKind::Shell;
  }
  return is_remark(line) ? StatementKind::Comment : StatementKind::Raw;
}

void read_body(LineReader& reader, const InputSchema& schema, const ParseOptions& options,
               BDFData& data) {
  while (!reader.at_end()) {
    const std::string_view line = reader.line();
    const std::size_t first_line = reader.index();
    if (is_module_header(line)) {
      read_module(reader, schema, options, data);
    } else if (is_database_start(line)) {
      add_side_statement(StatementKind::Database, first_line, take_database(reader), data);
    } else {
      reader.skip();
      add_side_statement(kind_of_line(line), first_line, {std::string(line)}, data);
    }
  }
}

// Reads all that follows the preamble.
void read_document(LineReader& reader, const InputSchema& schema, const ParseOptions& options,
                   BDFData& data) {
  bool easy = !starts_body(reader.line());
  if (is_script_line(reader.line())) {
    data.script_name = normalize_script_name(reader.take());
    easy = true;
  }
  data.mode = easy ? InputMode::Easy : InputMode::Module;
  if (easy) {
    parse_easy_section(reader, schema, data);
  }
  read_body(reader, schema, options, data);
  if (easy && !data.modules.empty()) {
    data.mode = InputMode::Mixed;
  }
}

ValidationOptions validation_options(const ParseOptions& options) {
  bool report = options.report_unknown;
  bool as_errors = true;
  if (options.custom_unknown_policy) {
    as_errors = options.unknown_policy == 2;
    report = report || options.unknown_policy == 1;
  }
  ValidationOptions validation;
  validation.report_unknown_modules = report;
  validation.report_unknown_entries = report;
  validation.unknown_modules_as_errors = as_errors;
  validation.unknown_entries_as_errors = as_errors;
  return validation;
}

void finish(const InputSchema& schema, const ParseOptions& options, ParseResult& result) {
  result.ok = true;
  if (!options.validate) {
    return;
  }
  for (ValidationIssue& issue : schema.validate(result.data, validation_options(options))) {
    if (issue.severity == ValidationSeverity::Warning) {
      result.data.warnings.push_back(
          {std::move(issue.code), std::move(issue.message), issue.location});
    } else if (result.ok) {
      result.ok = false;
      result.error = issue.message.empty() ? "invalid BDF input" : std::move(issue.message);
    }
  }
}

}  // namespace

ParseResult BDFParser::parse_string(std::string_view text, const InputSchema& schema,
                                    const ParseOptions& options) {
  ParseResult result;
  const Lines lines = split_lines(text);
  LineReader reader(lines, 0);
  read_preamble(reader, result.data);
  if (reader.at_end()) {
    result.error = "BDF input is empty";
    return result;
  }
  read_document(reader, schema, options, result.data);
  finish(schema, options, result);
  return result;
}

ParseResult BDFParser::parse_file(const std::string& path, const InputSchema& schema,
                                  const ParseOptions& options) {
  try {
    return parse_string(core::fs::read_text_file(path), schema, options);
  } catch (const std::exception& error) {
    ParseResult result;
    result.error = "failed to read BDF input '" + path + "': " + error.what();
    return result;
  }
}

bool BDFParser::looks_like_bdf_input(std::string_view text) {
  while (!text.empty()) {
    const std::string_view line = core::text::trim_view(take_line(text));
    if (line.empty() || (line.front() == '#' && !is_script_line(line))) {
      continue;
    }
    // Unlike the parser, this takes "geometry2" for a geometry: it only guesses.
    return is_script_line(line) || starts_body(line) ||
           core::text::equals_ignoring_case(line.substr(0, 8), "geometry") ||
           first_word(line).find('/') != std::string_view::npos;
  }
  return false;
}

}  // namespace kelp::input::bdf
