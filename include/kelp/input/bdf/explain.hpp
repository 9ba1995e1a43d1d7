#pragma once

/// @file
/// The words: what a finding's code means and how it is cured, how a module, an entry or a word of
/// the header is written and what it accepts. For a host that shows help beside an input:
///
///     for (const Explanation& about : explain("scf.charge", default_schema())) {
///       show(explanation_text(about));
///     }
///
/// All functions may be called from any number of threads at once.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/document.hpp"
#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/meaning.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/severity.hpp"
#include "kelp/input/bdf/validation.hpp"
#include "kelp/input/bdf/value_kind.hpp"

namespace kelp::input::bdf {

/// Returns the schema's word for a kind: "counted_rows"; "unknown" for a number that is none. The
/// view lives for ever, as do those of the other enumerators.
KELP_BDF_INP_EXPORT std::string_view to_string(EntryValueKind kind) noexcept;
/// Returns "easy", "module" or "mixed"; "unknown" for a number that is none.
KELP_BDF_INP_EXPORT std::string_view to_string(InputMode mode) noexcept;
/// Returns "module", "shell", "database", "comment" or "raw"; "unknown" for a number that is none.
KELP_BDF_INP_EXPORT std::string_view to_string(StatementKind kind) noexcept;
/// Returns "warning" or "error"; "unknown" for a number that is none.
KELP_BDF_INP_EXPORT std::string_view to_string(ValidationSeverity severity) noexcept;

/// What there is to say about a code. Examples are whole texts, schemas for codes that begin with
/// `schema.`, inputs for all others; both are empty where none is short enough.
/// The views live for ever.
struct FindingText {
  std::string_view code;                  ///< the dotted code
  std::string_view meaning;               ///< what is the matter, in a sentence or two
  std::string_view cause;                 ///< what brings it about
  std::string_view fix;                   ///< what to do
  std::string_view example;               ///< has the finding and no other
  std::string_view fixed;                 ///< the same without it
  Severity severity = Severity::Warning;  ///< how grave it is, unless options say otherwise
};

/// Returns the texts of all codes, those of inputs first. The span lives for ever.
KELP_BDF_INP_EXPORT std::span<const FindingText> finding_texts();

/// Returns the text of a code, in any case; without its first part it is looked for among the codes
/// of inputs, then among those of schemas. Null when there is none. The pointer lives for ever.
KELP_BDF_INP_EXPORT const FindingText* find_finding_text(std::string_view code);

/// Tells whether a pattern means a code: it is the code, in any case, or it ends in an asterisk and
/// is what the code begins with. An asterisk alone means every code.
KELP_BDF_INP_EXPORT bool matches_code(std::string_view pattern, std::string_view code) noexcept;

/// Tells whether there is a code that a pattern means.
KELP_BDF_INP_EXPORT bool means_any_code(std::string_view pattern);

/// Returns the codes that a pattern which means none may have been meant to be, the nearest first;
/// for one that ends in an asterisk they do, too.
KELP_BDF_INP_EXPORT std::vector<std::string> similar_codes(std::string_view pattern);

/// Returns the type of an entry's values, for rows the types of the columns: "integer float". Empty
/// for a flag, for a block and for what is kept as it is.
KELP_BDF_INP_EXPORT std::string value_type_text(const EntrySchemaInfo& info);

/// Says in words which values a description asks for: "an integer of at least 1", "'a' or 'b'".
/// Empty when it accepts anything.
KELP_BDF_INP_EXPORT std::string expected_value(const EntrySchemaInfo& info);

/// Returns the lines that write an entry with made-up values that its description accepts, the
/// keyword first. `children` are the names of a nested block's entries, of which the first is
/// shown.
KELP_BDF_INP_EXPORT std::vector<std::string> layout_example(
    const EntrySchemaInfo& info, const std::vector<std::string>& children);

/// Returns a word of the header that sets an easy keyword: "charge=0".
KELP_BDF_INP_EXPORT std::string header_example(const EntrySchemaInfo& info);

/// What an explanation is about.
enum class ExplainedThing : std::int32_t {
  Finding = 0,      ///< a code
  Module = 1,       ///< a module
  Entry = 2,        ///< an entry of a module
  NestedEntry = 3,  ///< an entry of a nested block
  EasyKeyword = 4,  ///< a keyword of the header
  Method = 5,       ///< a method of the header
  Functional = 6,   ///< a functional of the header
  BasisSet = 7,     ///< a basis set of the header
};

/// Facts that a tool may want to say more about.
enum class FactKind : std::int32_t {
  Plain = 0,       ///< any other
  EntryCount = 1,  ///< the number of entries of a module
};

/// One thing to know: "default" and "0" for example.
struct ExplanationFact {
  std::string heading;              ///< a word or two, lower case
  std::string text;                 ///< on one line; never empty
  FactKind kind = FactKind::Plain;  ///< what it is about
};

/// What there is to say about one thing.
struct Explanation {
  ExplainedThing thing = ExplainedThing::Entry;  ///< what it is
  std::string name;     ///< the canonical name or path: "scf.charge", "easy.charge", "hf"
  std::string title;    ///< the name and what it is: "scf.charge: an entry of $scf"
  std::string summary;  ///< what it means; empty where the vocabulary does not say it
  std::vector<ValueMeaning> values;      ///< values and their meanings, as `entry_value_meanings`
  std::vector<ExplanationFact> facts;    ///< what it accepts, needs, excludes; its aliases
  std::string writing;                   ///< how an entry is written, in a sentence; may be empty
  std::vector<std::string> layout;       ///< the lines that write it in an input; of a method, a
                                         ///< functional, a basis set the words to choose from
  const FindingText* finding = nullptr;  ///< of a code: cause, fix and examples; lives for ever
};

/// Returns what there is to say about a code, a module, an entry, a child of a nested block, a word
/// of the header. A path (`scf.charge`, `scf#2.charge`, `bdfopt.neb-block.crude`, `easy.charge`)
/// means one thing, a bare name may mean several; every name may be an alias, in any case. Nothing
/// when the name is unknown. The language is that of the sentences of the vocabulary, summaries and
/// meanings of values; all other words are English.
KELP_BDF_INP_EXPORT std::vector<Explanation> explain(std::string_view name,
                                                     const InputSchema& schema,
                                                     Language language = Language::English);

/// Returns an explanation as plain text of several lines with a line feed at the end of each: the
/// title, then, indented, what it means, the meanings of its values, the facts, the layout. Lines
/// are cut at 100 columns where they can be.
KELP_BDF_INP_EXPORT std::string explanation_text(const Explanation& explanation);

/// Returns the names that `explain` knows something about and that a name is likely to be a slip
/// of, as `similar_names` does; paths for a name with a dot, bare names for one without.
KELP_BDF_INP_EXPORT std::vector<std::string> similar_explained_names(std::string_view name,
                                                                     const InputSchema& schema);

}  // namespace kelp::input::bdf
