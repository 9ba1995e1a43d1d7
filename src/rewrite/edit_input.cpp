// An edit is made in the document, the document is held against the one that was read, and what
// differs becomes text edits. The new text is read once more as a last guard: it must say what was
// wanted, and must have no error that the old one did not have.

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/rewrite.hpp"
#include "model/method_specification.hpp"
#include "model/molecule_names.hpp"
#include "rewrite/document_patch.hpp"
#include "rewrite/edit_document.hpp"
#include "rewrite/same_meaning.hpp"
#include "rewrite/value_patch.hpp"

namespace kelp::input::bdf {
namespace {

Rewrite unchanged(const ParsedInput& input, std::string error = {}) {
  Rewrite rewrite;
  rewrite.text = input.source().text();
  rewrite.error = std::move(error);
  return rewrite;
}

// Whatever begins with a word that is no module is read as a header.
bool looks_like_input(const BDFData& data) {
  return data.has_geometry || !data.modules.empty() || has_method_specification(data);
}

using ErrorCounts = std::map<std::pair<std::string, std::string>, std::size_t>;

// Charge and multiplicity fit each other only after both were set, one after the other.
DiagnoseOptions without_advice() {
  DiagnoseOptions options;
  options.advice = false;
  return options;
}

ErrorCounts count_findings(const ParsedInput& input) {
  ErrorCounts counts;
  diagnose(input, DiagnoseOptions(), [&](const Diagnostic& diagnostic) {
    ++counts[{diagnostic.code, diagnostic.message}];
  });
  return counts;
}

// The errors of the new text that the old one did not have. Lines move, so that they are told by
// what they say.
std::vector<Diagnostic> new_errors(ErrorCounts known, const ParsedInput& after,
                                   const DiagnoseOptions& options) {
  std::vector<Diagnostic> errors;
  diagnose(after, options, [&](const Diagnostic& diagnostic) {
    if (diagnostic.severity != Severity::Error) {
      return;
    }
    std::size_t& count = known[{diagnostic.code, diagnostic.message}];
    if (count > 0) {
      --count;
    } else {
      errors.push_back(diagnostic);
    }
  });
  return errors;
}

// What makes no sense as a calculation may do so after the next change.
void add_new_errors(const ErrorCounts& known, const ParsedInput& after, Rewrite& rewrite) {
  const auto losses = new_errors(known, after, without_advice());
  rewrite.losses.insert(rewrite.losses.end(), losses.begin(), losses.end());
  if (!rewrite.losses.empty()) {
    return;
  }
  for (const Diagnostic& error : new_errors(known, after, DiagnoseOptions())) {
    rewrite.notes.push_back("this is an error now: " + error.message + " [" + error.code + ']');
  }
}

void add_difference(const Difference& difference, Rewrite& rewrite) {
  Diagnostic loss;
  loss.code = "bdf.edit_value";
  loss.severity = Severity::Error;
  loss.message = "The change would not be read back as it was meant: " + difference.reason + '.';
  loss.arguments = {difference.path, difference.reason};
  loss.path = difference.path;
  rewrite.losses.push_back(std::move(loss));
}

// A few of the comments that go stand for all.
void add_lost_words(const SourceText& source, const std::vector<TextRange>& lost,
                    Rewrite& rewrite) {
  constexpr std::size_t shown = 3;
  if (lost.empty()) {
    return;
  }
  std::string note = "what was said of the old geometry goes: ";
  for (std::size_t i = 0; i < lost.size() && i < shown; ++i) {
    note += (i == 0 ? "'" : ", '") + std::string(source.text_of(lost[i])) + "' (line " +
            std::to_string(source.line_at(lost[i].begin)) + ')';
  }
  if (lost.size() > shown) {
    note += " and " + std::to_string(lost.size() - shown) + " more";
  }
  rewrite.notes.push_back(std::move(note));
}

/// Holds a changed document against its input, and the text that comes of it against the document.
class Patching {
 public:
  Patching(const ParsedInput& input, const BDFData& edited, const PatchOptions& options)
      : source_(input.source()), schema_(input.schema()), edited_(edited), options_(options) {
    TextPatch patch(source_);
    patch_document(input, edited, options, patch);
    rewrite_.edits = patch.finish();
    if (!rewrite_.edits.empty()) {
      add_lost_words(source_, patch.lost(), rewrite_);
      known_ = count_findings(input);
    }
  }

  /// Needs the input no longer. The text is put together twice, so that the one that is read and
  /// the one that is returned are not held at the same time as two documents.
  Rewrite finish() {
    if (!rewrite_.edits.empty()) {
      const ParsedInput after(apply_edits(source_.text(), rewrite_.edits), schema_);
      const Difference difference =
          first_difference(edited_, after.data(), !options_.leaves_out_geometries);
      if (!difference.path.empty()) {
        add_difference(difference, rewrite_);
      }
      add_new_errors(known_, after, rewrite_);
    }
    rewrite_.text = apply_edits(source_.text(), rewrite_.edits);
    return std::move(rewrite_);
  }

 private:
  SourceText source_;
  InputSchema schema_;
  const BDFData& edited_;
  PatchOptions options_;
  ErrorCounts known_;
  Rewrite rewrite_;
};

// In a module input, atoms that an editor has set for the document as a whole are written in the
// first `$compass` that has none of its own.
BDFData with_geometry_in_compass(const ParsedInput& input, BDFData edited) {
  const auto compass =
      std::find_if(edited.modules.begin(), edited.modules.end(),
                   [](const Module& module) { return module.name == compass_module; });
  if (compass == edited.modules.end() || compass->find_entry(geometry_entry) != nullptr) {
    return edited;
  }
  ModuleEntry entry;
  entry.name = geometry_entry;
  entry.kind = input.schema().entry_value_kind(compass_module, geometry_entry);
  entry.terminator = input.schema().entry_terminator(compass_module, geometry_entry);
  entry.known = true;
  for (const AtomRecord& atom : edited.atoms) {
    entry.values.push_back(atom_line(atom, ""));
  }
  // Where the old geometry stood, if it had one.
  auto position = compass->entries.end();
  const std::optional<SourceSpan>& location = compass->location;
  const RecordId record =
      location ? input.line(static_cast<std::size_t>(location->line)).record : RecordId{};
  if (const Module* const old = module_of(input.data(), record)) {
    if (const ModuleEntry* const geometry = old->find_entry(geometry_entry)) {
      entry.location = geometry->location;
      position = std::find_if(compass->entries.begin(), compass->entries.end(),
                              [&](const ModuleEntry& other) {
                                return other.location && geometry->location &&
                                       other.location->line > geometry->location->line;
                              });
    }
  }
  compass->entries.insert(position, std::move(entry));
  edited.has_geometry = false;
  edited.atoms.clear();
  return edited;
}

}  // namespace

AssignmentResult parse_assignment(std::string_view text) {
  AssignmentResult result;
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) {
    result.error = "'" + std::string(text) + "' is no PATH=VALUE; write '" + std::string(text) +
                   "=' for a keyword without a value";
    return result;
  }
  PathResult path = parse_path(text.substr(0, equals));
  if (!path.path) {
    result.error = std::move(path.error);
    return result;
  }
  Assignment assignment = {*std::move(path.path), {}};
  std::string_view rest = text.substr(equals + 1);
  for (std::size_t cut = 0; cut != std::string_view::npos;) {
    cut = rest.find("\\n");
    if (!rest.empty() || !assignment.values.empty()) {
      assignment.values.emplace_back(rest.substr(0, cut));
    }
    rest.remove_prefix(cut == std::string_view::npos ? rest.size() : cut + 2);
  }
  result.assignment = std::move(assignment);
  return result;
}

namespace {

// Why nothing can be changed, whatever is wanted.
std::string find_obstacle(const ParsedInput& input, const Edit& edit) {
  if (const auto fault = find_text_fault(input.source())) {
    return fault->message;
  }
  if (input.is_empty()) {
    return "there is nothing to change: BDF input is empty";
  }
  if (!looks_like_input(input.data()) && !edit.allow_unknown_names) {
    return "it has neither a method specification, nor a geometry, nor a module; is it a BDF "
           "input? (--force changes it)";
  }
  return {};
}

}  // namespace

Rewrite edit_input(const ParsedInput& input, const Edit& edit) {
  return edit_input(ParsedInput(input), edit);
}

Rewrite edit_input(ParsedInput&& input, const Edit& edit) {
  std::string obstacle = find_obstacle(input, edit);
  if (!obstacle.empty()) {
    return unchanged(input, std::move(obstacle));
  }
  EditedDocument edited = edit_document(input, edit);
  if (!edited.error.empty()) {
    return unchanged(input, std::move(edited.error));
  }
  PatchOptions options;
  options.leaves_out_geometries = edited.leaves_out_geometries;
  options.takes_comments = !edit.unset.empty();
  Patching patching(input, edited.data, options);
  input = ParsedInput({}, input.schema());
  Rewrite rewrite = patching.finish();
  rewrite.notes.insert(rewrite.notes.begin(), edited.notes.begin(), edited.notes.end());
  return rewrite;
}

Rewrite text_edits(const ParsedInput& input, const BDFData& edited) {
  if (edited.mode == InputMode::Module && edited.has_geometry && !input.data().has_geometry) {
    return Patching(input, with_geometry_in_compass(input, edited), {}).finish();
  }
  return Patching(input, edited, {}).finish();
}

}  // namespace kelp::input::bdf
