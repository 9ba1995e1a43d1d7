// Side statements, and what an editor gives back: the text of its document, in memory or in a file.

#include <stdexcept>
#include <utility>

#include "kelp/core/fs.hpp"
#include "kelp/input/bdf/editor.hpp"
#include "render/render.hpp"

namespace kelp::input::bdf {

std::string BDFEditor::render() const {
  return render_document(data_, schema_);
}

void BDFEditor::write_file(const std::string& path) const {
  if (!core::fs::write_text_file_atomic(path, render())) {
    throw std::runtime_error("failed to write BDF input file '" + path + "'");
  }
}

void BDFEditor::append_shell_statement(std::string line) {
  std::vector<std::string> lines;
  lines.push_back(std::move(line));
  append_side_statement(StatementKind::Shell, std::move(lines));
}

void BDFEditor::append_database_statement(std::vector<std::string> lines) {
  append_side_statement(StatementKind::Database, std::move(lines));
}

void BDFEditor::append_raw_statement(std::vector<std::string> lines) {
  append_side_statement(StatementKind::Raw, std::move(lines));
}

void BDFEditor::append_side_statement(StatementKind kind, std::vector<std::string> lines) {
  ensure_statement_order();
  data_.statements.push_back({kind, Statement::no_module, std::move(lines), std::nullopt});
}

}  // namespace kelp::input::bdf
