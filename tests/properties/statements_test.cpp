// Whatever the edits, every module has exactly one statement, and what was there keeps its order.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "edits.hpp"
#include "input_text.hpp"
#include "read_back.hpp"
#include "vocabulary.hpp"

namespace kelp::input::bdf {
namespace {

using Tags = std::vector<std::string>;

/// Gives every module that has none a mark that no edit touches.
void mark_modules(BDFEditor& editor, int& marks) {
  // The document is the editor's own and not constant; no edit gives access to every module of it.
  for (Module& module : const_cast<BDFData&>(editor.data()).modules) {
    if (module.trailing_lines.empty()) {
      module.trailing_lines = {"module " + std::to_string(++marks)};
    }
  }
}

/// The marks of the modules and the lines of the side statements, in the order of statements.
Tags order_of(const BDFData& data) {
  Tags tags;
  for (const Statement& statement : data.statements) {
    if (statement.kind == StatementKind::Module) {
      RC_ASSERT(statement.module_index < data.modules.size());
      tags.push_back(data.modules[statement.module_index].trailing_lines.at(0));
    } else {
      RC_ASSERT(statement.module_index == Statement::no_module);
      tags.push_back("side");
      tags.insert(tags.end(), statement.lines.begin(), statement.lines.end());
    }
  }
  return tags;
}

void expect_one_statement_each(const BDFData& data) {
  std::vector<int> statements_of(data.modules.size());
  for (const Statement& statement : data.statements) {
    if (statement.kind == StatementKind::Module) {
      RC_ASSERT(statement.module_index < data.modules.size());
      ++statements_of[statement.module_index];
    }
  }
  RC_ASSERT(statements_of == std::vector<int>(data.modules.size(), 1));
}

Tags marks_of(const BDFData& data) {
  Tags marks;
  for (const Module& module : data.modules) {
    marks.push_back(module.trailing_lines.at(0));
  }
  return marks;
}

/// Only the marks of modules that are gone may be missing, and new items follow the old ones.
void expect_old_order_in_front(const Tags& before, const Tags& after, const Tags& modules) {
  Tags kept;
  for (const std::string& tag : before) {
    const bool is_mark = tag.rfind("module ", 0) == 0;
    if (!is_mark || std::find(modules.begin(), modules.end(), tag) != modules.end()) {
      kept.push_back(tag);
    }
  }
  RC_ASSERT(after.size() >= kept.size());
  RC_ASSERT(std::equal(kept.begin(), kept.end(), after.begin()));
}

RC_GTEST_PROP(StatementsOfAReadDocument, StayRightAfterEveryEdit, ()) {
  TextStyle style;
  style.module_input = chance();
  BDFEditor editor(read(*input_text(style)), vocabulary());
  int marks = 0;
  mark_modules(editor, marks);
  expect_one_statement_each(editor.data());
  for (int left = pick_number(20); left > 0; --left) {
    const Tags before = order_of(editor.data());
    const Edit edit = *(chance() ? any_edit() : fitting_edit(false));
    edit.apply(editor);
    mark_modules(editor, marks);
    expect_one_statement_each(editor.data());
    expect_old_order_in_front(before, order_of(editor.data()), marks_of(editor.data()));
  }
}

RC_GTEST_PROP(StatementsOfABuiltDocument, StayRightInAnyOrder, ()) {
  BDFData data;
  for (int left = pick_number(6); left > 0; --left) {
    data.modules.emplace_back().name = pick_text({"scf", "HFSCF", "extra", "other"});
    data.statements.push_back({StatementKind::Module, data.statements.size(), {}, std::nullopt});
  }
  for (std::size_t i = 1; i < data.statements.size(); ++i) {
    std::swap(data.statements[i],
              data.statements[static_cast<std::size_t>(pick_number(static_cast<int>(i)))]);
  }
  BDFEditor editor(data, vocabulary());
  int marks = 0;
  mark_modules(editor, marks);
  for (int left = pick_number(8); left > 0; --left) {
    const Tags before = order_of(editor.data());
    editor.remove_module(pick_text({"scf", "extra", "OTHER"}),
                         static_cast<std::size_t>(pick_number(3)));
    expect_one_statement_each(editor.data());
    expect_old_order_in_front(before, order_of(editor.data()), marks_of(editor.data()));
  }
}

}  // namespace
}  // namespace kelp::input::bdf
