#pragma once

// A table of edits: an input, what is changed, and the input afterwards, byte for byte.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/rewrite.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {

struct EditRow {
  std::string name;
  std::string before;
  std::vector<std::string> assignments;  ///< PATH=VALUE; `-PATH` takes out
  std::string after;
};

inline ValuePath path(std::string_view text) {
  const PathResult result = parse_path(text);
  EXPECT_TRUE(result.path) << result.error;
  return result.path.value_or(ValuePath{});
}

inline Edit edit_of(const std::vector<std::string>& assignments) {
  Edit edit;
  for (const std::string& text : assignments) {
    if (text.starts_with('-')) {
      edit.unset.push_back(path(text.substr(1)));
    } else {
      const AssignmentResult result = parse_assignment(text);
      EXPECT_TRUE(result.assignment) << result.error;
      edit.assignments.push_back(result.assignment.value_or(Assignment{}));
    }
  }
  return edit;
}

inline std::string messages_of(const Rewrite& rewrite) {
  std::string text = rewrite.error;
  for (const Diagnostic& loss : rewrite.losses) {
    text += loss.code + ": " + loss.message + '\n';
  }
  return text;
}

inline Rewrite edited(const std::string& before, const Edit& edit) {
  return edit_input(ParsedInput(before, shipped_schema()), edit);
}

inline void expect_edits(const std::vector<EditRow>& rows) {
  for (const EditRow& row : rows) {
    const Rewrite rewrite = edited(row.before, edit_of(row.assignments));
    EXPECT_EQ(rewrite.text, row.after) << row.name;
    EXPECT_EQ(messages_of(rewrite), "") << row.name;
    EXPECT_EQ(apply_edits(row.before, rewrite.edits), rewrite.text) << row.name;
  }
}

}  // namespace kelp::input::bdf
