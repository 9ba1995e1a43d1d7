#pragma once

#include <string>
#include <string_view>

#include "cli/session.hpp"
#include "cli/sources.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::app {

/// What becomes of a new text for an input. Without any of these it is printed.
struct DeliverOptions {
  bool in_place = false;
  bool check = false;  ///< name the inputs that would change
  bool diff = false;
  bool force = false;
  std::string output_file;  ///< "-" is standard output
  std::string format = "human";
};

/// Does with a new text of `old` what the options say. What would be lost goes to standard error
/// and stops it, unless it is forced. A file that has the text already is not touched, and one that
/// is changed in place must still be as it was read.
/// @throws std::runtime_error naming the file and the cause when nothing was changed or a file
/// could not be written.
ExitStatus deliver(const Source& source, const input::bdf::SourceText& old,
                   const input::bdf::Rewrite& rewrite, const DeliverOptions& options,
                   const Session& session);

}  // namespace kelp::app
