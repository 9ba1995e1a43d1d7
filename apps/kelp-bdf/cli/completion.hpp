#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <string_view>
#include <vector>

#include "cli/session.hpp"

namespace kelp::app {

/// The name of the command that the scripts of the shells call. It stands in no help.
inline constexpr std::string_view completing_command = "__complete";

/// A way to complete the last word.
struct Candidate {
  std::string text;     ///< the whole word
  std::string meaning;  ///< in a few words; may be empty
};

/// What may stand where the last of some words is.
struct Candidates {
  std::vector<Candidate> list;
  bool files = false;  ///< names of files and folders, too
};

/// Returns what may stand in place of the last word, which may be empty or begun; the words are
/// those behind the program's name.
Candidates complete(const CLI::App& app, const std::vector<std::string>& words, Session& session);

/// Returns candidates as the scripts read them: a line each, with a tab before what it means; a
/// line ":files" stands for names of files.
std::string candidates_text(const Candidates& candidates);

/// Returns the words that a script hands over, each of them behind a sign of equality: one of the
/// shells drops words that are empty.
std::vector<std::string> words_of_script(const std::vector<std::string>& arguments);

/// Returns the script that makes a shell complete words of the command; empty for an unknown one.
std::string_view shell_script(std::string_view shell);

}  // namespace kelp::app
