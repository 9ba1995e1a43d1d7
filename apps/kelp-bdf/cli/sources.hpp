#pragma once

#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "cli/session.hpp"

namespace kelp::app {

/// One input named on the command line, or found in a folder.
struct Source {
  std::string path;  ///< UTF-8; "-" is standard input
  std::string name;  ///< as findings name it
};

/// The inputs to work on, and what could not be read on the way to them.
struct Sources {
  std::vector<Source> list;
  std::vector<std::string> errors;
};

/// Which inputs to work on, as the command line names them.
struct InputOptions {
  std::vector<std::string> inputs;
  std::vector<std::string> lists;    ///< files that name further ones, - for standard input
  std::vector<std::string> exclude;  ///< patterns of what is left out of folders
};

/// Turns an argument that names one input, - being standard input, into it.
Source source_of(const std::string& argument, const CommonOptions& options);

/// Returns the inputs that are meant: a folder becomes the `*.inp` and `*.bdf` files below it, but
/// for those that options or configuration leave out.
/// @throws std::runtime_error when none is named, or a list cannot be read.
Sources expand_sources(const InputOptions& inputs, Session& session);

/// Returns what to complain of when the work on an input ended with an exception: its own words, or
/// that the input is too large.
std::string failure_text(const Source& source, const std::exception& error);

/// Does the work on an input, which reads it and writes it back in place; and again from the start
/// for as long as others change the file in between.
void do_undisturbed(const std::function<void()>& work);

/// Works on each input in its order and returns the worst status. What goes wrong with one, and on
/// the way to them, is complained about and does not stop the others.
ExitStatus for_each_source(const Sources& sources,
                           const std::function<ExitStatus(const Source&)>& work);

/// Returns the text of an input.
/// @throws std::runtime_error naming the path and the cause, also for one that is larger than the
/// options allow.
std::string read_source(const Source& source, const CommonOptions& options);

}  // namespace kelp::app
