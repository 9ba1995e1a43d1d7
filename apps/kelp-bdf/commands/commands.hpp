#pragma once

/// @file
/// The commands: what each is told on the command line, and the function that does it. All of them
/// print, and return what becomes the exit status. They throw std::runtime_error when nothing could
/// be done.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "cli/session.hpp"
#include "cli/sources.hpp"
#include "commands/deliver.hpp"
#include "kelp/input/bdf/diagnostics.hpp"
#include "report/output_schemas.hpp"

namespace kelp::app {

struct CheckOptions : InputOptions {
  std::string unknown = "warn";                 ///< what unknown names are: error, warn, ignore
  std::string format = "human";                 ///< one of `findings_forms`
  bool strict = false;                          ///< warnings fail, too
  std::vector<input::bdf::SeverityRule> rules;  ///< what becomes of which findings
  std::optional<std::size_t> max_findings;      ///< the most to print
  bool summary = false;                         ///< print how many of each instead
  std::optional<unsigned> jobs;                 ///< files checked at once; unset: one a core
  bool list_codes = false;                      ///< print the codes instead
  bool fix = false;                             ///< apply the fixes that are safe
  bool diff = false;                            ///< only show what that would change
};

/// Reports findings.
ExitStatus run_check(const CheckOptions& options, Session& session);

struct FormatOptions : DeliverOptions, InputOptions {};

/// Lays files out.
ExitStatus run_format(const FormatOptions& options, Session& session);

struct SetOptions : DeliverOptions {
  std::string input;
  std::vector<std::string> assignments;  ///< PATH=VALUE
  std::vector<std::string> unset;        ///< paths
  std::string charge;
  std::string multiplicity;
  std::string geometry;  ///< FILE, - or PATH=FILE
  std::string script_name;
};

/// Changes, adds or removes values.
ExitStatus run_set(const SetOptions& options, Session& session);

struct SweepOptions {
  std::string input;
  std::vector<std::string> axes;
  std::string name;          ///< a pattern for the names of the files
  std::string folder = ".";  ///< that they are written to
  bool overwrite = false;    ///< other files of those names are replaced
  bool force = false;        ///< write although something is lost or becomes wrong
  bool dry_run = false;      ///< write nothing
};

/// Writes variants of an input.
ExitStatus run_sweep(const SweepOptions& options, Session& session);

struct GetOptions : InputOptions {
  std::string path;
  bool json = false;
};

/// Prints values by their path.
ExitStatus run_get(const GetOptions& options, Session& session);

struct ShowOptions : InputOptions {
  bool json = false;
};

/// Prints outlines.
ExitStatus run_show(const ShowOptions& options, Session& session);

struct DiffOptions {
  std::string before;
  std::string after;
  bool json = false;
};

/// Prints in what two inputs differ.
ExitStatus run_diff(const DiffOptions& options, Session& session);

struct ExplainOptions {
  std::string name;
};

/// Tells what a finding's code or a keyword means.
ExitStatus run_explain(const ExplainOptions& options, Session& session);

struct LspOptions {
  std::string trace;  ///< a file for all messages; empty for none
};

/// Serves an editor over standard input and output, until it says good-bye.
ExitStatus run_lsp(const LspOptions& options, Session& session);

struct ConfigOptions {
  std::string input;  ///< a file or a folder; empty for the current folder
};

/// Prints which settings hold for an input, and where they come from.
ExitStatus run_config(const ConfigOptions& options, Session& session);

/// Prints the path of the schema in use.
ExitStatus run_schema_path(Session& session);

struct SchemaListOptions {
  std::string module;  ///< empty for the list of modules; "easy" for the words of the header
};

/// Prints a table of modules, or of the entries of one.
ExitStatus run_schema_list(const SchemaListOptions& options, Session& session);

struct SchemaLintOptions {
  std::string file;
  std::string format = "human";  ///< one of `findings_forms`
  bool strict = false;
};

/// Reports what is wrong in a schema.
ExitStatus run_schema_lint(const SchemaLintOptions& options, Session& session);

/// Prints the JSON Schema of a kind of document.
ExitStatus run_output_schema(const OutputSchema& schema);

}  // namespace kelp::app
