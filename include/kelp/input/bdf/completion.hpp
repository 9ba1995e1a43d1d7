#pragma once

/// @file
/// What could stand at some byte of an input: for an editor that completes what is typed, for a
/// form that offers choices.
///
///     const ParsedInput input("$scf\n  gue\n$end\n", default_schema());
///     const Completion completion = completion_at(input, 10);
///     completion.candidates.front().name;  // an entry of $scf
///     completion.range;                    // of "gue", which it would replace

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/meaning.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::input::bdf {

/// What a candidate is.
enum class CandidateKind : std::int32_t {
  Module = 0,       ///< the header of a module
  Entry = 1,        ///< an entry of a module
  NestedEntry = 2,  ///< an entry of a nested block
  Value = 3,        ///< a value of an entry or of a keyword of the header
  EasyKeyword = 4,  ///< a keyword of the header
  Method = 5,       ///< a method
  Functional = 6,   ///< a functional
  BasisSet = 7,     ///< a basis set
  Element = 8,      ///< the symbol of an element
  Block = 9,        ///< the geometry of an easy input
  End = 10,         ///< the line that closes a module or a block
};

/// Something that could be written.
struct Candidate {
  CandidateKind kind = CandidateKind::Value;  ///< what it is
  std::string name;                           ///< as it is written: `$scf`, `guess`, `def2-svp`
  std::string path;           ///< under which `explain` tells more: `scf.guess`; may be empty
  std::string summary;        ///< what it means; empty where the vocabulary does not say it
  std::string value_type;     ///< as `value_type_text` of an entry or a keyword; may be empty
  std::string default_value;  ///< of an entry or a keyword; empty without one
  /// The lines that write it, with made-up values, indented by two blanks below the first. Only the
  /// name where values stand already.
  std::vector<std::string> lines;
  bool closes_block = false;  ///< the last of the lines is the one that closes the block
  bool is_present = false;    ///< it stands there already, and may stand there only once
};

/// What could stand at a byte.
struct Completion {
  TextRange range;                    ///< the word at the byte, which a candidate would replace
  std::vector<Candidate> candidates;  ///< those that are not present first; of a kind by name
};

/// Returns what could stand at a byte of an input, whatever begins there already: candidates are
/// not chosen by the letters of the word. Nothing in comments, and where anything could stand. A
/// byte beyond the text is its end. Summaries are in a language. May be called from any number of
/// threads at once; never throws for what an input holds.
KELP_BDF_INP_EXPORT Completion completion_at(const ParsedInput& input, std::size_t byte,
                                             Language language = Language::English);

}  // namespace kelp::input::bdf
