#include "commands/commands.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "cli/output.hpp"
#include "cli/sources.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/names.hpp"
#include "kelp/input/bdf/schema_lint.hpp"
#include "report/findings.hpp"

namespace kelp::app {
namespace {

using input::bdf::Diagnostic;
using input::bdf::EntrySchemaInfo;
using input::bdf::InputSchema;
using input::bdf::SchemaProblem;
using input::bdf::Severity;
using input::bdf::SourceText;
using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

constexpr std::string_view header_words = "easy";

std::vector<std::size_t> widths_of(const Rows& rows) {
  std::vector<std::size_t> widths;
  for (const Row& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], core::unicode::display_width(row[i]));
    }
  }
  return widths;
}

Row entry_row(const EntrySchemaInfo& info, const std::vector<std::string>& aliases) {
  return {info.name, std::string(to_string(info.kind)), value_type_text(info),
          info.default_value.value_or(""), fmt::format("{}", fmt::join(aliases, ", "))};
}

Rows keyword_rows(const InputSchema& schema) {
  Rows rows;
  for (const std::string& name : schema.known_easy_keywords()) {
    if (const auto info = schema.easy_keyword_info(name)) {
      rows.push_back(entry_row(*info, schema.easy_keyword_aliases(name)));
    }
  }
  return rows;
}

void add_nested_rows(Rows& rows, const InputSchema& schema, std::string_view module,
                     const std::string& entry) {
  for (const std::string& name : schema.known_nested_entries(module, entry)) {
    if (const auto info = schema.nested_entry_info(module, entry, name)) {
      rows.push_back(entry_row(*info, schema.nested_entry_aliases(module, entry, name)));
      rows.back().front().insert(0, entry + ".");
    }
  }
}

Rows entry_rows(const InputSchema& schema, std::string_view module) {
  Rows rows;
  for (const std::string& name : schema.known_entries(module)) {
    if (const auto info = schema.entry_info(module, name)) {
      rows.push_back(entry_row(*info, schema.entry_aliases(module, name)));
      add_nested_rows(rows, schema, module, name);
    }
  }
  return rows;
}

/// Lays rows out in columns parted by two blanks, each as wide as its widest cell, the first row
/// being the heading. The last column is not filled up.
std::string table_text(const Rows& rows) {
  const std::vector<std::size_t> widths = widths_of(rows);
  std::string text;
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      line.append(widths[i] - core::unicode::display_width(row[i]) + 2, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    text += line + '\n';
  }
  return text;
}

std::string module_table(const InputSchema& schema) {
  Rows rows = {{"module", "entries", "repeatable", "aliases"}};
  for (const std::string& name : schema.known_modules()) {
    rows.push_back({name, std::to_string(schema.known_entries(name).size()),
                    schema.module_repeatable(name) ? "yes" : "no",
                    fmt::format("{}", fmt::join(schema.module_aliases(name), ", "))});
  }
  return table_text(rows);
}

std::string entry_table(const InputSchema& schema, std::string_view module) {
  Rows rows = {{"name", "kind", "type", "default", "aliases"}};
  Rows entries = schema.is_known_module(module) ? entry_rows(schema, module) : keyword_rows(schema);
  rows.insert(rows.end(), entries.begin(), entries.end());
  return table_text(rows);
}

Diagnostic diagnostic_of(const SchemaProblem& problem, const SourceText& source) {
  Diagnostic diagnostic;
  diagnostic.code = problem.code;
  diagnostic.severity = problem.severity == input::bdf::ValidationSeverity::Error
                            ? Severity::Error
                            : Severity::Warning;
  diagnostic.message = problem.message;
  const input::bdf::TextRange line =
      source.line_range(static_cast<std::size_t>(problem.location.line));
  const std::size_t begin = line.begin + static_cast<std::size_t>(problem.location.column) - 1;
  const std::size_t end = begin + static_cast<std::size_t>(problem.location.length);
  diagnostic.range = {{std::min(begin, line.end), std::min(end, line.end)}};
  diagnostic.suggestions = input::bdf::similar_names(problem.name, problem.known);
  if (!diagnostic.suggestions.empty()) {
    diagnostic.help.push_back("did you mean " + input::bdf::quoted_choice(diagnostic.suggestions) +
                              "?");
  }
  return diagnostic;
}

}  // namespace

ExitStatus run_schema_path(Session& session) {
  print(session.schema_path() + "\n");
  return ExitStatus::Success;
}

ExitStatus run_schema_list(const SchemaListOptions& options, Session& session) {
  const std::string& module = options.module;
  const InputSchema& schema = session.schema();
  if (module.empty()) {
    print(module_table(schema));
    return ExitStatus::Success;
  }
  if (schema.is_known_module(module) || module == header_words) {
    print(entry_table(schema, module));
    return ExitStatus::Success;
  }
  const input::bdf::NameLists names(schema);
  complain(fmt::format("there is no module '{}'{}", module,
                       did_you_mean(input::bdf::similar_names(module, names.modules()))));
  return ExitStatus::Findings;
}

ExitStatus run_schema_lint(const SchemaLintOptions& options, Session& session) {
  const Source source = source_of(options.file, session.options);
  const SourceText text(read_source(source));
  const std::vector<SchemaProblem> problems = input::bdf::lint_schema(text.text());
  const ReportForm form = {options.format == "human", use_colour(session.options.colour)};
  Totals totals{0, 0, problems.empty() ? std::size_t{0} : std::size_t{1}, 1};
  for (const SchemaProblem& problem : problems) {
    const Diagnostic diagnostic = diagnostic_of(problem, text);
    ++(diagnostic.severity == Severity::Error ? totals.errors : totals.warnings);
    if (!session.options.quiet) {
      print(report_text(diagnostic, text, source.name, form));
    }
  }
  if (form.human && !session.options.quiet) {
    print(human_summary(totals));
  }
  const bool failed = totals.errors > 0 || (options.strict && totals.warnings > 0);
  return failed ? ExitStatus::Findings : ExitStatus::Success;
}

}  // namespace kelp::app
