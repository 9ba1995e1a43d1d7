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
#include "report/findings_report.hpp"

namespace kelp::app {
namespace {

using input::bdf::Diagnostic;
using input::bdf::EntrySchemaInfo;
using input::bdf::InputSchema;
using input::bdf::Language;
using input::bdf::SchemaProblem;
using input::bdf::Severity;
using input::bdf::SourceText;
using Names = std::vector<std::string>;

constexpr std::string_view header_words = "easy";
constexpr std::size_t usual_width = 100;
constexpr std::size_t widest_cell = 32;

/// Columns parted by two blanks, each as wide as its widest cell, but for cells so long that they
/// would push those of all other rows aside. What a row's name means stands below the row.
class Table {
 public:
  Table(Names heading, std::size_t width) : width_(width) { add(std::move(heading), {}); }

  void add(Names cells, std::string meaning) {
    widths_.resize(std::max(widths_.size(), cells.size()));
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const std::size_t width = core::unicode::display_width(cells[i]);
      widths_[i] = std::max(widths_[i], width > widest_cell ? 0 : width);
    }
    rows_.push_back({std::move(cells), std::move(meaning)});
  }

  std::string text() const {
    std::string text;
    for (const Row& row : rows_) {
      text += line_of(row.cells) + '\n';
      constexpr std::size_t indent = 4;
      for (const auto& line : core::unicode::wrap(row.meaning, width_ - indent)) {
        text.append(indent, ' ').append(core::unicode::displayable(line)).append("\n");
      }
    }
    return text;
  }

 private:
  struct Row {
    Names cells;
    std::string meaning;
  };

  // The last column is not filled up.
  std::string line_of(const Names& cells) const {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      line += core::unicode::displayable(cells[i]);
      const std::size_t width = core::unicode::display_width(cells[i]);
      line.append(std::max(widths_[i], width) - width + 2, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
  }

  std::size_t width_;
  std::vector<std::size_t> widths_;
  std::vector<Row> rows_;
};

std::string joined(const Names& names) {
  return fmt::format("{}", fmt::join(names, ", "));
}

Names cells_of(std::string name, const EntrySchemaInfo& info, const Names& aliases) {
  return {std::move(name), std::string(to_string(info.kind)), value_type_text(info),
          info.default_value.value_or(""), joined(aliases)};
}

std::string module_table(const Session::Settings& settings) {
  const InputSchema& schema = *settings.schema;
  const Language language = settings.language;
  Table table({"module", "entries", "repeatable", "aliases"}, settings.width_or(usual_width));
  for (const std::string& name : schema.known_modules()) {
    table.add({name, std::to_string(schema.known_entries(name).size()),
               schema.module_repeatable(name) ? "yes" : "no", joined(schema.module_aliases(name))},
              module_summary(schema, name, language));
  }
  return table.text();
}

const Names entry_heading = {"name", "kind", "type", "default", "aliases"};

std::string keyword_table(const Session::Settings& settings) {
  const InputSchema& schema = *settings.schema;
  const Language language = settings.language;
  Table table(entry_heading, settings.width_or(usual_width));
  for (const std::string& name : schema.known_easy_keywords()) {
    if (const auto info = schema.easy_keyword_info(name)) {
      table.add(cells_of(name, *info, schema.easy_keyword_aliases(name)),
                easy_keyword_summary(schema, name, language));
    }
  }
  return table.text();
}

void add_nested_rows(Table& table, const InputSchema& schema, std::string_view module,
                     const std::string& entry, Language language) {
  for (const std::string& name : schema.known_nested_entries(module, entry)) {
    if (const auto info = schema.nested_entry_info(module, entry, name)) {
      std::string path = entry;
      path += '.';
      path += name;
      table.add(cells_of(path, *info, schema.nested_entry_aliases(module, entry, name)),
                nested_entry_summary(schema, module, entry, name, language));
    }
  }
}

std::string entry_table(const Session::Settings& settings, std::string_view module) {
  const InputSchema& schema = *settings.schema;
  const Language language = settings.language;
  Table table(entry_heading, settings.width_or(usual_width));
  for (const std::string& name : schema.known_entries(module)) {
    if (const auto info = schema.entry_info(module, name)) {
      table.add(cells_of(name, *info, schema.entry_aliases(module, name)),
                entry_summary(schema, module, name, language));
      add_nested_rows(table, schema, module, name, language);
    }
  }
  return table.text();
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
  print(core::unicode::displayable(session.schema_path()) + "\n");
  return ExitStatus::Success;
}

ExitStatus run_schema_list(const SchemaListOptions& options, Session& session) {
  const std::string& module = options.module;
  const Session::Settings& settings = session.settings();
  const InputSchema& schema = *settings.schema;
  if (module.empty() || module == header_words || schema.is_known_module(module)) {
    print(module.empty()                   ? module_table(settings)
          : schema.is_known_module(module) ? entry_table(settings, module)
                                           : keyword_table(settings));
    return ExitStatus::Success;
  }
  const input::bdf::NameLists names(schema);
  complain(fmt::format("there is no module '{}'{}", module,
                       did_you_mean(input::bdf::similar_names(module, names.modules()))));
  return ExitStatus::Findings;
}

ExitStatus run_schema_lint(const SchemaLintOptions& options, Session& session) {
  const Source source = source_of(options.file, session.options);
  const SourceText text(read_source(source, session.options));
  const std::vector<SchemaProblem> problems = input::bdf::lint_schema(text.text());
  const auto report = make_findings_report(options.format, human_form(session.options.colour));
  const auto show = [&](const std::string& words) {
    if (!session.options.quiet) {
      (report->is_data() ? print_contents : print)(words);
    }
  };
  Totals totals;
  totals.files_checked = 1;
  totals.files_with_findings = problems.empty() ? 0 : 1;
  show(report->begin());
  show(report->begin_file(source.name));
  for (const SchemaProblem& problem : problems) {
    const Diagnostic diagnostic = diagnostic_of(problem, text);
    totals.count(diagnostic.severity);
    const bool fails = options.strict || diagnostic.severity == Severity::Error;
    show(report->add(report->write({diagnostic, text, source.name, fails})));
  }
  show(report->end_file());
  show(report->end(totals));
  const bool failed = totals.errors > 0 || (options.strict && totals.warnings > 0);
  return failed ? ExitStatus::Findings : ExitStatus::Success;
}

ExitStatus run_output_schema(const OutputSchema& schema) {
  print(schema.text);
  return ExitStatus::Success;
}

}  // namespace kelp::app
