// An edited document survives being written and read, and it does not matter whether it is edited
// before or after.
//
// The edits keep to what an input file can say. These cannot, and are therefore not among them:
//  - entries that the schema does not know: an editor writes their values without the keyword;
//  - values that their keyword does not take, such as a line for a flag, or that look like another
//    keyword, a terminator or a module;
//  - header words with blanks or `#` in them, or with nothing after their `=`;
//  - comments and other lines in front of everything else in a module input: they are read as
//    leading lines, or make it an easy input;
//  - a change from easy to module input, which leaves the header out.
// The texts keep lines that the schema does not know at the beginning of their module: where an
// entry between is removed, such a line would become a value of the entry before.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "describe.hpp"
#include "edits.hpp"
#include "input_text.hpp"
#include "read_back.hpp"
#include "vocabulary.hpp"

namespace kelp::input::bdf {
namespace {

std::vector<Edit> fitting_edits(bool module_input) {
  return *rc::gen::scale(0.15, rc::gen::container<std::vector<Edit>>(fitting_edit(module_input)));
}

BDFData edited(BDFData data, const std::vector<Edit>& edits) {
  BDFEditor editor(std::move(data), vocabulary());
  for (const Edit& edit : edits) {
    edit.apply(editor);
  }
  return editor.data();
}

std::string tidy_text(bool module_input) {
  TextStyle style;
  style.module_input = module_input;
  style.tidy = true;
  return *input_text(style);
}

// A text that is empty or all comments is no input.
bool is_left_empty(const BDFData& data) {
  return data.mode == InputMode::Module && as_read_back(data).statements.empty();
}

// The empty line after the geometry, of which each writing of an easy input adds one.
BDFData without_gap(BDFData data) {
  const auto is_gap = [&] {
    return !data.statements.empty() && data.statements.front().kind == StatementKind::Raw &&
           data.statements.front().lines == std::vector<std::string>{""};
  };
  while (is_gap()) {
    data.statements.erase(data.statements.begin());
    data.free_lines.erase(data.free_lines.begin());
  }
  return data;
}

RC_GTEST_PROP(EditingWritingAndReading, GivesTheEditedDocument, ()) {
  const bool module_input = chance();
  const std::string text = tidy_text(module_input);
  const BDFData before = edited(read(text), fitting_edits(module_input));
  if (is_left_empty(before)) {
    return;
  }
  const std::string rendered = written(before);
  RC_LOG(rendered);
  RC_ASSERT(describe(read(rendered)) == describe(as_read_back(before)));
}

RC_GTEST_PROP(EditingWritingAndReading, GivesTheSameAsWritingReadingAndEditing, ()) {
  const bool module_input = chance();
  // Writing drops the empty lines at the end of a text as it came; nothing can follow them then.
  const BDFData data = read(written(read(tidy_text(module_input))));
  const std::vector<Edit> edits = fitting_edits(module_input);
  const BDFData before = edited(data, edits);
  if (is_left_empty(before)) {
    return;
  }
  const std::string edited_first = written(before);
  const BDFData read_last = read(edited_first);
  const BDFData read_first = edited(read(written(data)), edits);
  RC_LOG(edited_first);
  RC_ASSERT(describe(without_gap(as_read_back(read_last))) ==
            describe(without_gap(as_read_back(read_first))));
}

RC_GTEST_PROP(EditingWritingAndReading, KeepsTheTextOfWhatWasNotEdited, ()) {
  const bool module_input = chance();
  const BDFData data = read(tidy_text(module_input));
  std::string grown = written(data);
  BDFEditor editor(data, vocabulary());
  editor.append_module("extra");
  if (data.statements.empty()) {
    grown += module_input ? "" : "\n";
  }
  // Empty lines at the end are written once something follows them.
  const std::string rendered = editor.render();
  RC_ASSERT(rendered.substr(0, grown.size() - 1) == grown.substr(0, grown.size() - 1));
  const std::string between = rendered.substr(grown.size());
  RC_ASSERT(between.substr(between.find_first_not_of('\n')) == "$extra\n$end\n");
}

}  // namespace
}  // namespace kelp::input::bdf
