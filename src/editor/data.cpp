// What the editor holds, and the order of statements that every edit keeps right.

#include <algorithm>
#include <utility>

#include "kelp/input/bdf/editor.hpp"

namespace kelp::input::bdf {

// NOLINTNEXTLINE(modernize-pass-by-value): a copy of a schema is cheap, and this says what happens.
BDFEditor::BDFEditor(BDFData data, const InputSchema& schema)
    : data_(std::move(data)), schema_(schema) {
  ensure_statement_order();
}
BDFEditor::BDFEditor(const BDFEditor& other) = default;
BDFEditor::BDFEditor(BDFEditor&& other) noexcept = default;
BDFEditor& BDFEditor::operator=(const BDFEditor& other) = default;
BDFEditor& BDFEditor::operator=(BDFEditor&& other) noexcept = default;
BDFEditor::~BDFEditor() = default;

const BDFData& BDFEditor::data() const noexcept {
  return data_;
}

void BDFEditor::set_data(BDFData data) {
  data_ = std::move(data);
  ensure_statement_order();
}

void BDFEditor::set_mode(InputMode mode) {
  data_.mode = mode;
}

void BDFEditor::ensure_statement_order() {
  if (!data_.statements.empty()) {
    return;
  }
  for (std::size_t i = 0; i < data_.modules.size(); ++i) {
    data_.statements.push_back({StatementKind::Module, i, {}, data_.modules[i].location});
  }
  for (const std::string& line : data_.free_lines) {
    data_.statements.push_back({StatementKind::Raw, Statement::no_module, {line}, std::nullopt});
  }
}

void BDFEditor::rebuild_statement_module_indices_after_erase(std::size_t erased_index) {
  std::erase_if(data_.statements, [&](const Statement& statement) {
    return statement.kind == StatementKind::Module && statement.module_index == erased_index;
  });
  for (Statement& statement : data_.statements) {
    if (statement.kind == StatementKind::Module && statement.module_index > erased_index &&
        statement.module_index != Statement::no_module) {
      --statement.module_index;
    }
  }
}

const Module* BDFEditor::module(std::string_view name, std::size_t index) const noexcept {
  const std::string wanted = schema_.canonical_module(name);
  for (const Module& candidate : data_.modules) {
    if (schema_.canonical_module(candidate.name) == wanted && index-- == 0) {
      return &candidate;
    }
  }
  return nullptr;
}

Module* BDFEditor::module(std::string_view name, std::size_t index) noexcept {
  return const_cast<Module*>(std::as_const(*this).module(name, index));
}

std::vector<ValidationIssue> BDFEditor::validate() const {
  return schema_.validate(data_, ValidationOptions{});
}

}  // namespace kelp::input::bdf
