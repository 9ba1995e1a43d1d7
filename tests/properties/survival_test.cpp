// No document and no sequence of edits makes an editor crash, loop or write what it should not.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

#include "edits.hpp"
#include "input_text.hpp"
#include "vocabulary.hpp"

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

Lines any_lines() {
  Lines lines;
  for (int left = pick_number(3); left > 0; --left) {
    lines.push_back(any_text());
  }
  return lines;
}

ModuleEntry any_entry(int depth) {
  ModuleEntry entry;
  entry.name = any_text();
  entry.kind = static_cast<EntryValueKind>(pick_number(8));
  entry.known = chance();
  entry.terminated = chance();
  entry.terminator = any_text();
  entry.raw_line = any_text();
  entry.values = any_lines();
  for (int left = depth > 0 ? pick_number(3) : 0; left > 0; --left) {
    entry.children.push_back(any_entry(depth - 1));
  }
  return entry;
}

Module any_module() {
  Module module;
  module.name = any_text();
  module.known = chance();
  module.terminated = chance();
  module.header_line = any_text();
  module.end_line = any_text();
  module.trailing_lines = any_lines();
  for (int left = pick_number(4); left > 0; --left) {
    module.entries.push_back(any_entry(2));
  }
  return module;
}

double any_number() {
  using limits = std::numeric_limits<double>;
  return pick(std::vector<double>{0.0, -0.0, 1.5, limits::max(), limits::lowest(),
                                  limits::denorm_min(), limits::infinity(), limits::quiet_NaN()});
}

Statement any_statement() {
  const std::vector<std::size_t> indices = {0, 1, 2, 9, Statement::no_module};
  return {static_cast<StatementKind>(pick_number(5)), pick(indices), any_lines(), std::nullopt};
}

BDFData any_document() {
  BDFData data;
  data.mode = static_cast<InputMode>(pick_number(3));
  data.script_name = any_text();
  data.leading_lines = any_lines();
  data.has_geometry = chance();
  data.geometry_terminated = chance();
  data.geometry_lines = any_lines();
  data.free_lines = any_lines();
  for (int left = pick_number(3); left > 0; --left) {
    EasyToken& token = data.easy_tokens.emplace_back();
    token.text = any_text();
    token.key = any_text();
    token.canonical = any_text();
    token.category = pick_text({"", "method_spec", "control", "unknown"});
    data.atoms.push_back({any_text(), any_number(), any_number(), any_number(), "", std::nullopt});
  }
  for (int left = pick_number(4); left > 0; --left) {
    data.modules.push_back(any_module());
    data.statements.push_back(any_statement());
  }
  return data;
}

void expect_well_formed(const std::string& text) {
  RC_ASSERT(!text.empty());
  RC_ASSERT(text.back() == '\n');
  RC_ASSERT(text.size() == 1 || (text[text.size() - 2] != '\n' && text[text.size() - 2] != '\r'));
}

void survive(const InputSchema& schema) {
  BDFEditor editor(any_document(), schema);
  const std::size_t modules = editor.data().modules.size();
  const auto edits = *rc::gen::container<std::vector<Edit>>(any_edit());
  for (const Edit& edit : edits) {
    edit.apply(editor);
  }
  expect_well_formed(editor.render());
  editor.validate();
  editor.rebuild_statement_module_indices_after_erase(1);
  expect_well_formed(editor.render());
  // An edit adds three modules at the most, for the largest index that is tried.
  RC_ASSERT(editor.data().modules.size() <= modules + 3 * edits.size());
}

RC_GTEST_PROP(AnyEdits, OfAnyDocumentAreSurvived, ()) {
  survive(vocabulary());
}

RC_GTEST_PROP(AnyEdits, AreSurvivedWithoutAVocabulary, ()) {
  survive(InputSchema());
}

RC_GTEST_PROP(AnyEdits, AreSurvivedWithTheVocabularyThatComesWithTheLibrary, ()) {
  survive(shipped_schema());
}

RC_GTEST_PROP(AnyEdits, AreSurvivedWhereAliasesChain, ()) {
  static const InputSchema schema = schema_from(
      "modules: {compass: {aliases: [scf, a]}, Z: {aliases: [compass]},"
      " '1': {aliases: [z, charge], entries: {charge: {aliases: [geometry]}, x: {aliases: "
      "[charge]}}}}\n"
      "easy_keywords: {hf: {aliases: [charge]}, b3lyp: {aliases: [hf], category: method_spec}}");
  survive(schema);
}

}  // namespace
}  // namespace kelp::input::bdf
