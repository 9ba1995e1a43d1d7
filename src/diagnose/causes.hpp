#pragma once

#include <set>
#include <string>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/parsed_input.hpp"

namespace kelp::input::bdf {

/// What is wrong about the words of an input, and what advice only follows from it: of a block with
/// a word that nobody knows it is not certain what it lacks.
class Causes {
 public:
  explicit Causes(const ParsedInput& input) : input_(input) {}

  /// Takes a finding that is told.
  void note(const Diagnostic& diagnostic);
  /// Tells whether a piece of advice may only follow from what was taken.
  bool explain(const Diagnostic& advice) const;
  /// Takes advice that other advice may follow from: a list that lacks a number.
  void note_list(const Diagnostic& advice);
  /// Returns a piece of advice whose additions nobody makes unasked while a word is not known: it
  /// may be what they add. Nothing is changed unasked where values or modules are not whole.
  Diagnostic settled(Diagnostic advice) const;

 private:
  bool have_word_near(std::string_view name) const;
  bool explain_addition(const TextEdit& edit) const;
  bool are_none() const;

  const ParsedInput& input_;
  std::set<std::size_t> blocks_;   ///< indices of modules with a word that is not known
  std::set<std::size_t> lists_;    ///< indices of modules with a list that lacks a number
  std::set<std::string> invalid_;  ///< paths of entries with a value that is none
  std::set<std::string> words_;    ///< that are not known, in lower case
  bool in_header_ = false;
  bool between_modules_ = false;
  bool is_unfinished_ = false;  ///< a module has no end
};

}  // namespace kelp::input::bdf
