#include "commands/deliver.hpp"

#include <fmt/format.h>

#include <stdexcept>

#include "cli/output.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/core/resource.hpp"
#include "kelp/core/unicode.hpp"
#include "report/findings.hpp"
#include "report/unified_diff.hpp"

namespace kelp::app {
namespace {

using input::bdf::Rewrite;

// Standard output belongs to the new text, and so do the ranges of what would be lost.
void report_losses(const Source& source, const Rewrite& rewrite, const DeliverOptions& options,
                   const Session& session) {
  ReportForm form = human_form(session.options.colour, core::console::Stream::Error);
  form.human = options.format == "human";
  const input::bdf::SourceText text(rewrite.text);
  for (input::bdf::Diagnostic loss : rewrite.losses) {
    if (options.force) {
      loss.severity = input::bdf::Severity::Warning;
    }
    print_aside(report_text(loss, text, source.name + " (as edited)", form));
  }
}

bool has_text(const std::string& path, std::string_view text) {
  return core::resource::is_regular_file_path(path) && core::fs::read_text_file(path) == text;
}

void write_to(const std::string& path, std::string_view text) {
  if (path == "-") {
    print_contents(text);
  } else if (!has_text(path, text)) {
    core::fs::write_text_file(path, text);
  }
}

ExitStatus show_difference(const Source& source, std::string_view old_text,
                           std::string_view new_text, const DeliverOptions& options,
                           const Session& session) {
  if (old_text == new_text) {
    return ExitStatus::Success;
  }
  if (options.diff) {
    print_diff(unified_diff(source.name, old_text, new_text), use_colour(session.options.colour));
  } else if (!session.options.quiet) {
    print(core::unicode::displayable(source.name) + '\n');
  }
  return options.check ? ExitStatus::Findings : ExitStatus::Success;
}

}  // namespace

ExitStatus deliver(const Source& source, const input::bdf::SourceText& old, const Rewrite& rewrite,
                   const DeliverOptions& options, const Session& session) {
  if (!rewrite.error.empty()) {
    throw std::runtime_error(source.name + ": " + rewrite.error);
  }
  const std::string_view old_text = old.text();
  const bool quiet = session.options.quiet;
  if (options.check && !options.diff) {
    return show_difference(source, old_text, rewrite.text, options, session);
  }
  if (!quiet) {
    report_losses(source, rewrite, options, session);
    for (const std::string& note : rewrite.notes) {
      complain(fmt::format("{}: {}", source.name, note));
    }
  }
  if (!rewrite.losses.empty() && !options.force) {
    if (!quiet) {
      complain(fmt::format("'{}' is left as it is; --force writes it all the same", source.name));
    }
    return ExitStatus::Failure;
  }
  if (options.diff) {
    return show_difference(source, old_text, rewrite.text, options, session);
  }
  const bool in_place =
      options.in_place || (source.path != "-" && source.path == options.output_file);
  if (!in_place) {
    write_to(options.output_file.empty() ? "-" : options.output_file, rewrite.text);
  } else if (old_text != rewrite.text) {
    core::fs::replace_text_file(source.path, old_text, rewrite.text);
  }
  return ExitStatus::Success;
}

}  // namespace kelp::app
