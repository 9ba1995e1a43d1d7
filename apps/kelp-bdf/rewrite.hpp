#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <string_view>
#include <vector>

#include "finding.hpp"
#include "session.hpp"
#include "sources.hpp"

namespace kelp::app {

/// What becomes of a new text for an input. Without any of these it is printed.
struct RewriteOptions {
  bool in_place = false;
  bool check = false;  ///< name the inputs that would change
  bool diff = false;
  bool force = false;
  std::string output_file;  ///< "-" is standard output
  std::string format = "human";
};

/// Adds the options that `format` and `set` share.
void add_rewrite_options(CLI::App& command, RewriteOptions& options);

/// A new text for an input, and the reasons not to write it.
struct Rewrite {
  std::string text;
  std::vector<Finding> reasons;
};

/// Does with a new text what the options say. Reasons against it go to standard error and stop it,
/// unless it is forced. A file that has the text already is not touched.
/// @throws std::runtime_error naming the path and the cause when a file could not be written.
ExitStatus deliver(const Source& source, std::string_view old_text, Rewrite rewrite,
                   const RewriteOptions& options, const Session& session);

}  // namespace kelp::app
