#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::input::bdf {

/// What a comment asks for.
enum class DirectiveKind : std::int32_t {
  Unknown,    ///< a word that is no directive, or none
  Allow,      ///< `allow`
  AllowFile,  ///< `allow-file`
};

/// A code, or a pattern of codes, that a directive names.
struct AllowedCode {
  TextRange range;
  std::string pattern;
  bool is_known = false;  ///< there is such a code
  bool is_used = false;   ///< a finding was left out for it
};

/// A comment that is for the check: `# kelp-bdf: allow CODE ...`.
struct Directive {
  std::size_t line = 0;
  /// Its own line; of one that is alone there, the next that says something, or one behind the
  /// last.
  std::size_t line_meant = 0;
  TextRange comment;      ///< from its `#` to its last character
  TextRange name;         ///< `kelp-bdf`
  TextRange word;         ///< `allow`; empty, behind the colon, when there is none
  bool is_alone = false;  ///< nothing else stands on its line
  bool has_colon = true;  ///< there is one behind the name
  DirectiveKind kind = DirectiveKind::Unknown;
  std::vector<AllowedCode> codes;

  /// Tells whether it is written well enough to be followed.
  bool is_heeded() const { return has_colon && kind != DirectiveKind::Unknown; }
};

/// Returns the words that are directives.
const std::vector<std::string>& directive_words();

/// Returns the directives of an input, in the order of its lines.
std::vector<Directive> read_directives(const ParsedInput& input);

}  // namespace kelp::input::bdf
