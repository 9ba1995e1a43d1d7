// The walk over a document: the easy input, then each module with its entries, then what concerns
// all modules together. The order of the findings is the order of the walk.

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/schema.hpp"
#include "schema/easy_token_syntax.hpp"
#include "schema/impl.hpp"
#include "schema/lookup.hpp"
#include "validate/entry_check.hpp"
#include "validate/issues.hpp"
#include "validate/siblings.hpp"
#include "validate/value_check.hpp"

namespace kelp::input::bdf {
namespace {

constexpr RelationIssues module_relations = {
    IssueId::MissingRequiredEntry, IssueId::MissingRequiredValue, IssueId::ConflictingEntries};

/// Checks one module.
class ModuleCheck {
 public:
  ModuleCheck(const Module& module, const ModuleSpec* spec, const ValidationOptions& options,
              Issues& issues)
      : module_(module),
        spec_(spec),
        options_(options),
        issues_(issues),
        siblings_(module.entries, spec == nullptr ? no_aliases() : spec->entry_aliases) {}

  void run() {
    check_frame();
    for (const ModuleEntry& entry : module_.entries) {
      check(entry);
    }
    counts_.for_each_repeated([&](std::string_view name) {
      const EntrySpec* const entry = find_entry_spec(spec_, name);
      if (entry != nullptr && !entry->repeatable) {
        report(issues_, IssueId::DuplicateEntry, {module_.name, name}, module_.location);
      }
    });
  }

 private:
  static const AliasMap& no_aliases() {
    static const AliasMap none;
    return none;
  }

  void check_frame() {
    if (!module_.known) {
      report_unknown(issues_, options_.unknown_modules_as_errors, options_.report_unknown_modules,
                     IssueId::UnknownModule, IssueId::UnknownModuleKept, {module_.name},
                     module_.location);
    }
    if (!module_.terminated) {
      report(issues_, IssueId::UnterminatedModule, {module_.name}, module_.location);
    }
  }

  void check(const ModuleEntry& entry) {
    const EntrySpec* const spec = find_entry_spec(spec_, entry.name);
    if (spec == nullptr) {
      report_unknown(issues_, options_.unknown_entries_as_errors, options_.report_unknown_entries,
                     IssueId::UnknownEntry, IssueId::UnknownEntryKept, {module_.name, entry.name},
                     entry.location);
      return;
    }
    counts_.add(spec->name);
    check_entry(entry, *spec, module_.name + '.' + spec->name, options_, issues_);
    check_relations(entry, *spec, module_.name, siblings_, module_relations, issues_);
  }

  const Module& module_;
  const ModuleSpec* spec_;
  const ValidationOptions& options_;
  Issues& issues_;
  Siblings siblings_;
  NameCounts counts_;
};

/// Checks one document.
class DocumentCheck {
 public:
  DocumentCheck(const BDFData& data, const InputSchema& schema, const ValidationOptions& options)
      : data_(data), schema_(schema), impl_(SchemaAccess::impl(schema)), options_(options) {}

  Issues run() {
    if (data_.mode != InputMode::Module) {
      check_easy_input();
    }
    for (const Module& module : data_.modules) {
      counts_.add(canonical_name(impl_.module_aliases, module.name));
      ModuleCheck(module, find_module_spec(impl_, module.name), options_, issues_).run();
    }
    counts_.for_each_repeated([&](std::string_view name) {
      const ModuleSpec* const spec = find_in(impl_.modules, name);
      if (spec != nullptr && !spec->repeatable) {
        report(issues_, IssueId::DuplicateModule, {name}, std::nullopt);
      }
    });
    return std::move(issues_);
  }

 private:
  void check_easy_input() {
    bool has_method = false;
    for (const EasyToken& token : data_.easy_tokens) {
      const std::string& name = token.canonical.empty() ? token.text : token.canonical;
      has_method = has_method || schema_.easy_token_category(name) == "method_spec";
      check_easy_value(token, name);
    }
    if (!has_method) {
      report(issues_, IssueId::MissingMethod, {}, std::nullopt);
    }
    check_geometry();
  }

  void check_easy_value(const EasyToken& token, std::string_view name) {
    const auto [keyword, value] = split_at_equals(name);
    const ValueSpec* const spec = find_keyword_spec(impl_, keyword);
    if (spec != nullptr && value && !value->empty() && !value_matches({*value}, *spec)) {
      report(issues_, IssueId::InvalidEasyValue, {keyword, *value}, token.location);
    }
  }

  void check_geometry() {
    const bool present =
        data_.has_geometry && !(data_.atoms.empty() && data_.geometry_lines.empty());
    if (!present) {
      report(issues_, IssueId::MissingGeometry, {}, data_.geometry_location);
    }
    if (data_.has_geometry && !data_.geometry_terminated) {
      report(issues_, IssueId::UnterminatedGeometry, {}, data_.geometry_location);
    }
  }

  const BDFData& data_;
  const InputSchema& schema_;
  const InputSchema::Impl& impl_;
  const ValidationOptions& options_;
  Issues issues_;
  NameCounts counts_;
};

}  // namespace

std::vector<ValidationIssue> InputSchema::validate(const BDFData& data,
                                                   const ValidationOptions& options) const {
  return DocumentCheck(data, *this, options).run();
}

}  // namespace kelp::input::bdf
