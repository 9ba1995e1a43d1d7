#include "completion/candidates.hpp"

#include <algorithm>
#include <utility>

#include "kelp/input/bdf/explain.hpp"
#include "source/elements.hpp"

namespace kelp::input::bdf {

Candidate& CandidateLists::add(CandidateKind kind, std::string name, std::string path,
                               std::string summary) {
  Candidate& made = made_.emplace_back();
  made.kind = kind;
  made.lines = {name};
  made.name = std::move(name);
  made.path = std::move(path);
  made.summary = std::move(summary);
  return made;
}

void CandidateLists::describe(Candidate& made, const EntrySchemaInfo& info,
                              const std::vector<std::string>& children) const {
  made.value_type = value_type_text(info);
  made.default_value = info.default_value.value_or("");
  made.lines = layout_example(info, children);
  made.closes_block =
      info.kind == EntryValueKind::NestedBlock || info.kind == EntryValueKind::TerminatedBlock;
}

void CandidateLists::add_modules() {
  for (const std::string& name : schema_.known_modules()) {
    Candidate& made =
        add(CandidateKind::Module, "$" + name, name, module_summary(schema_, name, language_));
    made.lines.insert(made.lines.end(), {"  ", "$end"});
    made.closes_block = true;
  }
}

void CandidateLists::add_entries(const std::string& module) {
  for (const std::string& name : schema_.known_entries(module)) {
    if (const auto info = schema_.entry_info(module, name)) {
      describe(add(CandidateKind::Entry, name, module + "." + name,
                   entry_summary(schema_, module, name, language_)),
               *info, schema_.known_nested_entries(module, name));
    }
  }
}

void CandidateLists::add_nested_entries(const std::string& module, const std::string& entry) {
  for (const std::string& name : schema_.known_nested_entries(module, entry)) {
    if (const auto info = schema_.nested_entry_info(module, entry, name)) {
      describe(add(CandidateKind::NestedEntry, name, module + "." + entry + "." + name,
                   nested_entry_summary(schema_, module, entry, name, language_)),
               *info, {});
    }
  }
}

// Those of an open list that have a meaning, and the default, are offered for want of more.
void CandidateLists::add_values_of(const EntrySchemaInfo& info,
                                   const std::vector<ValueMeaning>& meanings) {
  if (info.kind == EntryValueKind::Flag) {
    return;
  }
  const auto add_value = [this](const std::string& value, const std::string& meaning) {
    const bool is_new = std::none_of(made_.begin(), made_.end(), [&](const Candidate& made) {
      return made.kind == CandidateKind::Value && made.name == value;
    });
    if (is_new && !value.empty()) {
      add(CandidateKind::Value, value, "", meaning);
    }
  };
  for (const ValueMeaning& item : meanings) {
    add_value(item.value, item.meaning);
  }
  for (const std::string& value : info.allowed) {
    add_value(value, "");
  }
  add_value(info.default_value.value_or(""), "");
}

void CandidateLists::add_values(const std::string& module, const std::string& entry) {
  if (const auto info = schema_.entry_info(module, entry)) {
    add_values_of(*info, entry_value_meanings(schema_, module, entry, language_));
  }
}

void CandidateLists::add_nested_values(const std::string& module, const std::string& entry,
                                       const std::string& child) {
  if (const auto info = schema_.nested_entry_info(module, entry, child)) {
    add_values_of(*info, nested_entry_value_meanings(schema_, module, entry, child, language_));
  }
}

void CandidateLists::add_easy_keywords() {
  for (const std::string& name : schema_.known_easy_keywords()) {
    if (const auto info = schema_.easy_keyword_info(name)) {
      Candidate& made = add(CandidateKind::EasyKeyword, name, "easy." + name,
                            easy_keyword_summary(schema_, name, language_));
      made.value_type = value_type_text(*info);
      made.default_value = info->default_value.value_or("");
      made.lines = {header_example(*info)};
    }
  }
}

void CandidateLists::add_easy_values(std::string_view keyword) {
  if (const auto info = schema_.easy_keyword_info(keyword)) {
    add_values_of(*info, easy_keyword_value_meanings(schema_, keyword, language_));
  }
}

void CandidateLists::add_methods() {
  for (const std::string& name : schema_.known_methods()) {
    add(CandidateKind::Method, name, name, method_summary(schema_, name, language_));
  }
}

void CandidateLists::add_functionals() {
  for (const std::string& name : schema_.known_functionals()) {
    add(CandidateKind::Functional, name, name, functional_summary(schema_, name, language_));
  }
}

void CandidateLists::add_basis_sets() {
  for (const std::string& name : schema_.known_basis_sets()) {
    add(CandidateKind::BasisSet, name, name, basis_summary(schema_, name, language_));
  }
}

void CandidateLists::add_elements() {
  const bool is_chinese = language_ == Language::Chinese;
  int number = 0;
  for (const std::string_view symbol : element_symbols()) {
    add(CandidateKind::Element, std::string(symbol), "",
        (is_chinese ? "原子序数 " : "atomic number ") + std::to_string(++number));
  }
}

void CandidateLists::add_geometry() {
  Candidate& made = add(CandidateKind::Block, "Geometry", "", "");
  made.lines.insert(made.lines.end(), {"  H  0.0  0.0  0.0", "End geometry"});
  made.closes_block = true;
}

void CandidateLists::add_end(std::string line) {
  add(CandidateKind::End, std::move(line), "", "");
}

}  // namespace kelp::input::bdf
