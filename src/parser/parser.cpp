#include "kelp/input/bdf/parser.hpp"

#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/fs.hpp"
#include "kelp/core/text.hpp"
#include "parser/frame.hpp"
#include "source/line_reader.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

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

// Where memory is gone there may be none for the path; the short text needs none.
ParseResult unreadable(const std::string& path, const char* cause) {
  ParseResult result;
  try {
    result.error = "failed to read BDF input '" + path + "': " + cause;
  } catch (const std::exception&) {
    result.error = "out of memory";
  }
  return result;
}

}  // namespace

ParseResult BDFParser::parse_string(std::string_view text, const InputSchema& schema,
                                    const ParseOptions& options) {
  ParseResult result;
  LineReader reader(text);
  if (!read_input(reader, schema, options, result.data)) {
    result.error = empty_input_message;
    return result;
  }
  finish(schema, options, result);
  return result;
}

ParseResult BDFParser::parse_file(const std::string& path, const InputSchema& schema,
                                  const ParseOptions& options) {
  try {
    return parse_string(core::fs::read_text_file(path), schema, options);
  } catch (const std::exception& error) {
    return unreadable(path, error.what());
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
