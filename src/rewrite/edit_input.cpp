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
  return data.has_geometry || !data.modules.empty() ||
         std::any_of(data.easy_tokens.begin(), data.easy_tokens.end(),
                     [](const EasyToken& token) { return token.category == "method_spec"; });
}

// The errors of the new text that the old one did not have. Lines move, so that they are told by
// what they say.
void add_new_errors(const ParsedInput& before, const ParsedInput& after, Rewrite& rewrite) {
  // Charge and multiplicity fit each other only after both were set, one after the other.
  DiagnoseOptions options;
  options.advice = false;
  std::map<std::pair<std::string, std::string>, std::size_t> known;
  diagnose(before, options, [&](const Diagnostic& diagnostic) {
    ++known[{diagnostic.code, diagnostic.message}];
  });
  diagnose(after, options, [&](const Diagnostic& diagnostic) {
    if (diagnostic.severity != Severity::Error) {
      return;
    }
    std::size_t& count = known[{diagnostic.code, diagnostic.message}];
    if (count > 0) {
      --count;
    } else {
      rewrite.losses.push_back(diagnostic);
    }
  });
}

void add_difference(const std::string& what, Rewrite& rewrite) {
  Diagnostic loss;
  loss.code = "bdf.edit_value";
  loss.severity = Severity::Error;
  loss.message = "The change would not be read back as it was meant: '" + what + "' differs.";
  loss.arguments = {what};
  loss.path = what;
  rewrite.losses.push_back(std::move(loss));
}

Rewrite patched(const ParsedInput& input, const BDFData& edited, const PatchOptions& options) {
  TextPatch patch(input.source());
  patch_document(input, edited, options, patch);
  Rewrite rewrite;
  rewrite.edits = patch.finish();
  rewrite.text = apply_edits(input.source().text(), rewrite.edits);
  if (rewrite.edits.empty()) {
    return rewrite;
  }
  const ParsedInput after(rewrite.text, input.schema());
  const std::string difference = first_difference(edited, after.data(), !options.keeps_geometry);
  if (!difference.empty()) {
    add_difference(difference, rewrite);
  }
  add_new_errors(input, after, rewrite);
  return rewrite;
}

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

Rewrite edit_input(const ParsedInput& input, const Edit& edit) {
  if (const auto fault = find_text_fault(input.source())) {
    return unchanged(input, fault->message);
  }
  if (input.is_empty()) {
    return unchanged(input, "there is nothing to change: BDF input is empty");
  }
  if (!looks_like_input(input.data()) && !edit.allow_unknown_names) {
    return unchanged(input,
                     "it has neither a method specification, nor a geometry, nor a module; is "
                     "it a BDF input? (--force changes it)");
  }
  const EditedDocument edited = edit_document(input, edit);
  if (!edited.error.empty()) {
    return unchanged(input, edited.error);
  }
  PatchOptions options;
  options.keeps_geometry = edited.keeps_geometry;
  options.takes_comments = !edit.unset.empty();
  return patched(input, edited.data, options);
}

Rewrite text_edits(const ParsedInput& input, const BDFData& edited) {
  if (edited.mode == InputMode::Module && edited.has_geometry && !input.data().has_geometry) {
    return patched(input, with_geometry_in_compass(input, edited), {});
  }
  return patched(input, edited, {});
}

}  // namespace kelp::input::bdf
