// What the editor holds, and the order of statements that every edit keeps right. An edit makes all
// that can fail before it changes the document, so that a failed allocation leaves it as it was.

#include <algorithm>
#include <utility>

#include "kelp/input/bdf/editor.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {
namespace {

std::vector<Statement> canonical_order(const BDFData& data) {
  std::vector<Statement> statements;
  statements.reserve(data.modules.size() + data.free_lines.size());
  for (std::size_t i = 0; i < data.modules.size(); ++i) {
    statements.push_back({StatementKind::Module, i, {}, data.modules[i].location});
  }
  for (const std::string& line : data.free_lines) {
    statements.push_back({StatementKind::Raw, Statement::no_module, {line}, std::nullopt});
  }
  return statements;
}

void complete_order(BDFData& data) {
  if (data.statements.empty()) {
    data.statements = canonical_order(data);
  }
}

}  // namespace

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
  complete_order(data);
  data_ = std::move(data);
  by_name_.clear();
  may_be_renamed_ = false;
}

void BDFEditor::set_mode(InputMode mode) {
  data_.mode = mode;
}

void BDFEditor::ensure_statement_order() {
  complete_order(data_);
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
  if (name.data() == nullptr && !name.empty()) {
    return nullptr;
  }
  const CanonicalMatch matches(&SchemaAccess::impl(schema_).module_aliases, name);
  // Where there are many modules, most have the name of the one before.
  std::string_view last;
  bool last_matches = matches(last);
  for (const Module& candidate : data_.modules) {
    if (candidate.name != last) {
      last = candidate.name;
      last_matches = matches(last);
    }
    if (last_matches && index-- == 0) {
      return &candidate;
    }
  }
  return nullptr;
}

Module* BDFEditor::module(std::string_view name, std::size_t index) noexcept {
  by_name_.clear();
  may_be_renamed_ = true;
  return const_cast<Module*>(std::as_const(*this).module(name, index));
}

std::vector<ValidationIssue> BDFEditor::validate() const {
  return schema_.validate(data_, ValidationOptions{});
}

}  // namespace kelp::input::bdf
