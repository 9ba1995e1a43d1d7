#pragma once

/// @file
/// Changes of an input that touch nothing but what they are about. A change is a list of text
/// edits: what they leave out is copied byte for byte, with its comments, its layout, its line
/// ends.
///
///     Edit edit;
///     edit.charge = 1;
///     const Rewrite result = edit_input(ParsedInput(text, default_schema()), edit);
///     if (result.error.empty() && result.losses.empty()) {
///       save(result.text);
///     }
///
/// All functions may be called from any number of threads at once. What a user typed is never
/// thrown back; only a failed allocation throws.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/source.hpp"
#include "kelp/input/bdf/value_path.hpp"

namespace kelp::input::bdf {

/// A value to put at a path.
struct Assignment {
  ValuePath path;                   ///< a header keyword, an entry, or an entry of a nested block
  std::vector<std::string> values;  ///< its lines; none for a keyword without a value
};

/// What reading an assignment came to.
struct AssignmentResult {
  std::optional<Assignment> assignment;  ///< unset when the text is none
  std::string error;                     ///< why it is none, in words
};

/// Reads `PATH=VALUE`; in the value, `\n` (a backslash and an n) begins a new line.
KELP_BDF_INP_EXPORT AssignmentResult parse_assignment(std::string_view text);

/// Atoms to take the place of those of an input.
struct NewGeometry {
  std::vector<AtomRecord> atoms;           ///< in `unit`
  LengthUnit unit = LengthUnit::Angstrom;  ///< converted to the unit that the input states
  std::optional<ValuePath> path;           ///< `compass#2.geometry`; unset: the only one there is
};

/// All that is to be changed in an input. Numbers of modules are those of the input as read.
struct Edit {
  std::optional<int> charge;               ///< total charge, in elementary charges
  std::optional<int> multiplicity;         ///< spin multiplicity 2S+1
  std::optional<std::string> script_name;  ///< the name on the line `#!`
  std::optional<NewGeometry> geometry;     ///< all atoms
  std::vector<Assignment> assignments;     ///< made in this order, the last one counts
  std::vector<ValuePath> unset;            ///< values, header keywords or modules to take out
  bool allow_unknown_names = false;        ///< names that the schema does not know are written
};

/// What became of a change.
struct Rewrite {
  std::string text;             ///< the whole new text; the old one when there is an error
  std::vector<TextEdit> edits;  ///< what leads there, in the order of the text
  /// Reasons not to write the text: what it would not say as wanted, and errors that the input did
  /// not have. Their ranges are those of the new text.
  std::vector<Diagnostic> losses;
  /// What went along with the change though nobody asked for it, a sentence each: comments of atoms
  /// that are gone, a functional that the new method does not take.
  std::vector<std::string> notes;
  std::string error;  ///< why nothing was changed, in words; empty when it was
};

/// Changes an input. What has the value already, however it is spelt, stays as it is; a new entry
/// stands behind the others of its module, a new module where the order of execution wants it.
KELP_BDF_INP_EXPORT Rewrite edit_input(const ParsedInput& input, const Edit& edit);

/// The same with an input that is not needed any more: it is let go, and an empty one is left,
/// before the new text is read. A text with very many atoms needs half of the memory.
KELP_BDF_INP_EXPORT Rewrite edit_input(ParsedInput&& input, const Edit& edit);

/// Returns the edits that turn an input's text into one that says what a document says: the input's
/// own document (`ParsedInput::data`), changed by a host or an editor. Records are matched by their
/// locations, so that a record that keeps its location keeps its text.
KELP_BDF_INP_EXPORT Rewrite text_edits(const ParsedInput& input, const BDFData& edited);

/// Lays an input out: keywords at two blanks, values at four, each on a line of its own, known
/// names in lower case, one blank line between modules. Comments, text behind keywords, the order
/// of lines, line ends and the digits of numbers stay; nothing is added that the input lacks. A
/// text that was laid out stays as it is.
KELP_BDF_INP_EXPORT Rewrite format_input(const ParsedInput& input);

}  // namespace kelp::input::bdf
