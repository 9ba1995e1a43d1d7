#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/completion.hpp"
#include "kelp/input/bdf/schema.hpp"

namespace kelp::input::bdf {

/// The candidates of a vocabulary, with what it says of them.
class CandidateLists {
 public:
  CandidateLists(const InputSchema& schema, Language language)
      : schema_(schema), language_(language) {}

  // Each adds candidates. The names of modules and entries are canonical.

  void add_modules();
  void add_entries(const std::string& module);
  void add_nested_entries(const std::string& module, const std::string& entry);
  void add_values(const std::string& module, const std::string& entry);
  void add_nested_values(const std::string& module, const std::string& entry,
                         const std::string& child);
  void add_easy_keywords();
  void add_easy_values(std::string_view keyword);
  void add_methods();
  void add_functionals();
  void add_basis_sets();
  void add_elements();
  void add_geometry();
  void add_end(std::string line);

  /// Returns what was added.
  std::vector<Candidate> take() { return std::move(made_); }
  /// Returns what was added, to change it.
  std::vector<Candidate>& made() { return made_; }

 private:
  Candidate& add(CandidateKind kind, std::string name, std::string path, std::string summary);
  void describe(Candidate& made, const EntrySchemaInfo& info,
                const std::vector<std::string>& children) const;
  void add_values_of(const EntrySchemaInfo& info, const std::vector<ValueMeaning>& meanings);

  const InputSchema& schema_;
  Language language_;
  std::vector<Candidate> made_;
};

}  // namespace kelp::input::bdf
