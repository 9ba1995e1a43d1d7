#pragma once

/// @file
/// Findings about an input, with everything that a tool shows of them: the words at fault, what is
/// wrong about them, what to do, and the edits that would do it.
///
///     const ParsedInput input(text, default_schema());
///     for (const Diagnostic& diagnostic : diagnose(input)) {
///       log(concise_text(diagnostic, input.source(), "a.inp"));
///     }

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/export.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/record.hpp"
#include "kelp/input/bdf/severity.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::input::bdf {

/// Another part of the text that matters for a diagnostic.
struct RelatedRange {
  TextRange range;      ///< in the same text
  std::string message;  ///< what it has to do with it, in few words
};

/// A way to mend what is wrong.
struct Fix {
  std::string title;            ///< what it does, for a menu: "write 'occupied'"
  std::vector<TextEdit> edits;  ///< in the order of the text, not overlapping
  bool is_safe = false;  ///< there is no other sensible reading, so it can be applied unasked
};

/// One finding about one input.
struct Diagnostic {
  std::string code;                       ///< stable dotted code, `bdf.unknown_entry`
  Severity severity = Severity::Warning;  ///< how grave it is
  std::string message;                    ///< an English sentence
  std::vector<std::string> arguments;     ///< the names and values that the message holds
  std::optional<TextRange> range;         ///< what is at fault; unset for the input as a whole
  std::string label;                      ///< what is wrong about the range; may be empty
  std::vector<RelatedRange> related;      ///< other parts of the text that matter
  std::vector<std::string> help;          ///< what to do about it, a sentence each
  std::vector<std::string> suggestions;   ///< names that may have been meant, the nearest first
  std::vector<Fix> fixes;                 ///< edits that mend it, the likeliest first
  std::string path;                       ///< of the record, `scf#2.charge`; may be empty
  RecordId record;                        ///< the record that it is about
};

/// What is done about names that the schema does not know. Functionals and basis sets are lists
/// that no schema has in full: of those, a name that is a slip of a listed one is a warning at
/// most.
enum class UnknownNames : std::int32_t {
  Ignore = 0,  ///< nothing
  Warn = 1,    ///< warnings
  Error = 2,   ///< errors
};

/// What a rule does with the findings that it is about.
enum class SeverityAction : std::int32_t {
  Allow = 0,  ///< they are left out
  Warn = 1,   ///< they are warnings
  Deny = 2,   ///< they are errors
};

/// A wish of the user about some codes.
struct SeverityRule {
  std::string pattern;                            ///< as `matches_code` takes it
  SeverityAction action = SeverityAction::Allow;  ///< what becomes of their findings
};

/// What a host knows of the folder that an input lies in: some advice is about the files beside it.
struct InputFolder {
  std::string job_name;  ///< the input's file name without its ending: `a` of `a.inp`
  std::function<bool(std::string_view name)> has_file;  ///< tells whether a file is there
};

/// Returns what there is to know of the folder of an input, given by its UTF-8 path, which need not
/// lead to a file yet. Files are looked for when they are asked about.
KELP_BDF_INP_EXPORT InputFolder input_folder_of(const std::string& path);

/// What to look for.
struct DiagnoseOptions {
  UnknownNames unknown = UnknownNames::Warn;  ///< modules, entries, nested entries, header words
  std::vector<SeverityRule> rules = {};       ///< of several about one code the last counts
  bool advice = true;  ///< also what makes no sense in a calculation: `electrons.spin_parity`
  std::optional<InputFolder> folder = std::nullopt;  ///< unset: nothing is said of other files
};

/// Returns everything that is to be said about an input, in the order of its text; what is about
/// the input as a whole comes first. That is what `InputSchema::validate` finds; lines that bound a
/// part of the input and are misspelt (`frame.*`); misspelt, cut and repeated words of the header
/// and misspelt names among values (`header.*`, `names.*`); lines of geometries that are no atoms
/// (`geometry.*`); and advice on the calculation as a whole (`electrons.*` and other themes). What
/// only follows from another finding is left out, and so are comments and blank lines within
/// modules, which the validation reports as unknown entries. An input that holds nothing else has
/// the one finding `bdf.empty_input`. Safe to call from any number of threads. Only a failed
/// allocation throws.
///
/// What a comment of the input allows is left out, whatever the rules say; patterns are those of
/// `matches_code`, parted by blanks or commas, and what follows `--` is for readers:
///
///     # kelp-bdf: allow bdf.unknown_entry         the next line that says anything, and all that
///                                                 begins there: an entry, a block, a module
///     spinmlti  # kelp-bdf: allow bdf.* -- why    that line
///     # kelp-bdf: allow-file bdf.duplicate_entry  the whole input
///
/// Such a comment that is wrong or that nothing needs is a finding of its own (`comment.*`), behind
/// all others.
KELP_BDF_INP_EXPORT std::vector<Diagnostic> diagnose(const ParsedInput& input,
                                                     const DiagnoseOptions& options = {});

/// The same, one by one: an input can have more of them than fit into memory. They are put in order
/// by ten thousand at a time, in the order in which they are found. What `use` throws is passed on.
KELP_BDF_INP_EXPORT void diagnose(const ParsedInput& input, const DiagnoseOptions& options,
                                  const std::function<void(const Diagnostic&)>& use);

/// Returns what keeps a text from being read line by line, an encoding of two bytes to a character
/// or line ends that are none; unset for a text that can be read. `diagnose` tells nothing else of
/// such a text, and nothing can be changed in it.
KELP_BDF_INP_EXPORT std::optional<Diagnostic> find_text_fault(const SourceText& source);

/// Returns a diagnostic as one line without a line end, `file:line:column: severity: message
/// [code]`, for logs and for editors that read such lines. Columns count code points; without a
/// range it is 1:1. What a terminal would obey is shown as a replacement character, and a very long
/// message without its middle.
KELP_BDF_INP_EXPORT std::string concise_text(const Diagnostic& diagnostic, const SourceText& source,
                                             std::string_view file);

}  // namespace kelp::input::bdf
