#include "canonical_form.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/editor.hpp"

namespace kelp::app {
namespace {

using input::bdf::BDFData;
using input::bdf::InputMode;
using input::bdf::Statement;
using input::bdf::StatementKind;

bool is_blank(const std::string& line) {
  return core::text::trim_view(line).empty();
}

bool is_empty_line(const Statement& statement) {
  return statement.kind == StatementKind::Raw &&
         std::all_of(statement.lines.begin(), statement.lines.end(), is_blank);
}

}  // namespace

BDFData canonical_document(const CheckedInput& input) {
  BDFData data = input.result.data;
  if (data.mode == InputMode::Module) {
    return data;
  }
  const auto end = std::find_if_not(data.statements.begin(), data.statements.end(), is_empty_line);
  std::ptrdiff_t lines = 0;
  for (auto statement = data.statements.begin(); statement != end; ++statement) {
    lines += static_cast<std::ptrdiff_t>(statement->lines.size());
  }
  data.statements.erase(data.statements.begin(), end);
  data.free_lines.erase(data.free_lines.begin(), data.free_lines.begin() + lines);
  return data;
}

std::string canonical_text(const CheckedInput& input) {
  return input::bdf::BDFEditor(canonical_document(input), input.schema).render();
}

bool is_empty_input(const CheckedInput& input) {
  return !input.result.ok && input.result.error == "BDF input is empty";
}

}  // namespace kelp::app
