#include "commands/deliver.hpp"

#include <fmt/format.h>

#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "cli/output.hpp"
#include "kelp/core/fs.hpp"
#include "kelp/core/resource.hpp"
#include "report/findings.hpp"
#include "report/unified_diff.hpp"

namespace kelp::app {
namespace {

namespace stdfs = std::filesystem;
using input::bdf::Rewrite;

// Standard output belongs to the new text, and so do the ranges of what would be lost.
void report_losses(const Source& source, const Rewrite& rewrite, const DeliverOptions& options,
                   const Session& session) {
  const ReportForm form = {options.format == "human",
                           use_colour(session.options.colour, core::console::Stream::Error)};
  const input::bdf::SourceText text(rewrite.text);
  for (input::bdf::Diagnostic loss : rewrite.losses) {
    if (options.force) {
      loss.severity = input::bdf::Severity::Warning;
    }
    print_aside(report_text(loss, text, source.name + " (as edited)", form));
  }
}

// The core tells only that a file could not be written. What users meet most is found again here.
std::string cause_of_failure(const std::string& path) {
  const stdfs::path target(std::u8string(path.begin(), path.end()));
  const stdfs::path folder = target.has_parent_path() ? target.parent_path() : stdfs::path(".");
  std::error_code error;
  if (stdfs::is_directory(target, error)) {
    return "it is a folder";
  }
  if (stdfs::exists(target, error) && !stdfs::is_regular_file(target, error)) {
    return "it is no regular file";
  }
  if (!stdfs::is_directory(folder, error)) {
    return "its folder does not exist";
  }
  return "the file or its folder is write-protected, or there is no room";
}

bool has_text(const std::string& path, std::string_view text) {
  return core::resource::is_regular_file_path(path) && core::fs::read_text_file(path) == text;
}

void write_to(const std::string& path, std::string_view text) {
  if (path == "-") {
    print(text);
  } else if (!has_text(path, text)) {
    replace_file(path, text);
  }
}

ExitStatus show_difference(const Source& source, std::string_view old_text,
                           std::string_view new_text, const DeliverOptions& options, bool quiet) {
  if (old_text == new_text) {
    return ExitStatus::Success;
  }
  if (options.diff) {
    print(unified_diff(source.name, old_text, new_text));
  } else if (!quiet) {
    print(source.name + '\n');
  }
  return options.check ? ExitStatus::Findings : ExitStatus::Success;
}

}  // namespace

void replace_file(const std::string& path, std::string_view text) {
  if (!core::fs::write_text_file_atomic(path, text)) {
    throw std::runtime_error(fmt::format("cannot write '{}': {}", path, cause_of_failure(path)));
  }
}

ExitStatus deliver(const Source& source, const input::bdf::SourceText& old, const Rewrite& rewrite,
                   const DeliverOptions& options, const Session& session) {
  if (!rewrite.error.empty()) {
    throw std::runtime_error(source.name + ": " + rewrite.error);
  }
  const std::string_view old_text = old.text();
  const bool quiet = session.options.quiet;
  if (options.check && !options.diff) {
    return show_difference(source, old_text, rewrite.text, options, quiet);
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
    return show_difference(source, old_text, rewrite.text, options, quiet);
  }
  if (!options.in_place) {
    write_to(options.output_file.empty() ? "-" : options.output_file, rewrite.text);
  } else if (old_text != rewrite.text) {
    replace_file(source.path, rewrite.text);
  }
  return ExitStatus::Success;
}

}  // namespace kelp::app
