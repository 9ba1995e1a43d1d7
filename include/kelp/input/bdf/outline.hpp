#pragma once

/// @file
/// What stands where in an input: for a tree beside an editor, for a summary of many inputs.
///
///     const Outline outline = outline_of(ParsedInput(text, default_schema()));
///     for (const Outline::Module& module : outline.modules) {
///       std::cout << module.line << ": $" << module.name << '\n';
///     }

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/meaning.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/source.hpp"
#include "kelp/input/bdf/value_kind.hpp"

namespace kelp::input::bdf {

/// An input in short. Lines are counted from 1; ranges are those of the input's text.
struct Outline {
  /// A word of the header.
  struct Word {
    std::string text;       ///< as written
    std::string canonical;  ///< with canonical names
    std::string category;   ///< `EasyToken::category`
    bool known = false;     ///< the schema knows it
    RecordId record;        ///< the header token
    std::size_t line = 0;   ///< that it stands on
    TextRange range;        ///< from its first to its last byte
    std::string summary;    ///< what a keyword does, if the schema says it
  };

  /// The charge or the multiplicity.
  struct Value {
    std::string text;      ///< its first line, without white space around it
    std::string path;      ///< under which it can be read and set: `easy.charge`
    RecordId record;       ///< the header token or the entry
    std::size_t line = 0;  ///< of the keyword
    TextRange range;       ///< all lines of the record; of a header token its own
  };

  /// The atoms.
  struct Geometry {
    std::size_t atoms = 0;  ///< how many
    std::string formula;    ///< in Hill's order
    RecordId record;        ///< the geometry block or the entry of `$compass`
    std::size_t line = 0;   ///< of the keyword
    TextRange range;        ///< all its lines
  };

  /// An entry of a module, or of a nested block.
  struct Entry {
    std::string name;                              ///< canonical; as read when it is unknown
    std::string path;                              ///< under which it can be read: `scf#2.charge`
    EntryValueKind kind = EntryValueKind::Scalar;  ///< how its value is laid out
    bool known = false;                            ///< the schema knows it
    RecordId record;                               ///< the entry or child
    std::size_t line = 0;                          ///< of the keyword
    TextRange range;                               ///< all its lines
    TextRange name_range;                          ///< the keyword
    std::vector<std::string> values;               ///< lines, without white space around them
    std::vector<Entry> children;                   ///< of a nested block
    std::string summary;                           ///< what it does, if the schema says it
  };

  /// A module.
  struct Module {
    std::string name;            ///< canonical, without `$`
    std::string path;            ///< `scf#2`
    bool known = false;          ///< the schema knows it
    bool terminated = false;     ///< it has a `$end`
    RecordId record;             ///< the module
    std::size_t line = 0;        ///< of its header
    TextRange range;             ///< all its lines
    TextRange name_range;        ///< its `$name`
    std::vector<Entry> entries;  ///< without comments and blank lines
    std::string summary;         ///< what it is for, if the schema says it
  };

  InputMode mode = InputMode::Easy;        ///< which of the three layouts it has
  std::optional<std::string> script_name;  ///< unset in a module input, which has none
  std::vector<Word> header;                ///< the words of the header
  std::optional<Value> charge;             ///< unset when it is not stated
  std::optional<Value> multiplicity;       ///< unset when it is not stated
  std::optional<Geometry> geometry;        ///< unset when there are no atoms
  std::vector<Module> modules;             ///< in order
};

/// Returns the outline of an input, with summaries in a language. It stands for itself: the input
/// need not outlive it. May be called from any number of threads at once.
KELP_BDF_INP_EXPORT Outline outline_of(const ParsedInput& input,
                                       Language language = Language::English);

}  // namespace kelp::input::bdf
