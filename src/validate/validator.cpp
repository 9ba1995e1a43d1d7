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
#include "validate/fault.hpp"
#include "validate/siblings.hpp"
#include "validate/value_check.hpp"

namespace kelp::input::bdf {
namespace {

constexpr RelationIssues module_relations = {
    IssueId::MissingRequiredEntry, IssueId::MissingRequiredValue, IssueId::ConflictingEntries};

const AliasMap& entry_aliases(const ModuleSpec* spec) {
  static const AliasMap none;
  return spec == nullptr ? none : spec->entry_aliases;
}

/// Checks one module.
class ModuleCheck {
 public:
  ModuleCheck(const Module& module, const RecordId& record, const ModuleSpec* spec,
              const CheckContext& context)
      : module_(module),
        record_(record),
        spec_(spec),
        context_(context),
        path_{nullptr, module.name},
        siblings_(module.entries, entry_aliases(spec), record),
        repetitions_(module.entries.size()) {}

  void run() {
    check_frame();
    for (std::size_t i = 0; i < module_.entries.size(); ++i) {
      check(i);
    }
    repetitions_.for_each([&](const EntrySpec& spec, std::size_t first, std::size_t again) {
      const EntrySpec* const entry = find_entry_spec(spec_, spec.name);
      if (entry != nullptr && !entry->repeatable) {
        report(context_.sink, IssueId::DuplicateEntry, {module_.name, spec.name},
               {member_of(record_, again), module_.location, member_of(record_, first)});
      }
    });
  }

 private:
  void check_frame() {
    const FaultSite site = {record_, module_.location};
    if (!module_.known) {
      const ValidationOptions& options = context_.options;
      report_unknown(context_.sink,
                     {options.unknown_modules_as_errors, options.report_unknown_modules,
                      IssueId::UnknownModule, IssueId::UnknownModuleKept},
                     {module_.name}, site);
    }
    if (!module_.terminated) {
      report(context_.sink, IssueId::UnterminatedModule, {module_.name}, site);
    }
  }

  void check(std::size_t index) {
    const ModuleEntry& entry = module_.entries[index];
    const RecordId record = member_of(record_, index);
    const EntrySpec* const spec = find_entry_spec(spec_, entry.name);
    if (spec == nullptr) {
      const ValidationOptions& options = context_.options;
      report_unknown(context_.sink,
                     {options.unknown_entries_as_errors, options.report_unknown_entries,
                      IssueId::UnknownEntry, IssueId::UnknownEntryKept},
                     {module_.name, entry.name}, {record, entry.location});
      return;
    }
    repetitions_.add(spec, index);
    check_entry(entry, record, *spec, {&path_, spec->name}, context_);
    check_relations(entry, *spec, path_, siblings_, module_relations, context_);
  }

  const Module& module_;
  RecordId record_;
  const ModuleSpec* spec_;
  const CheckContext& context_;
  PathName path_;
  Siblings siblings_;
  Repetitions<EntrySpec> repetitions_;
};

/// Checks one document.
class DocumentCheck {
 public:
  DocumentCheck(const BDFData& data, const InputSchema& schema, const CheckContext& context)
      : data_(data),
        schema_(schema),
        impl_(SchemaAccess::impl(schema)),
        context_(context),
        repetitions_(data.modules.size()) {}

  void run() {
    if (data_.mode != InputMode::Module) {
      check_easy_input();
    }
    for (std::size_t i = 0; i < data_.modules.size(); ++i) {
      const Module& module = data_.modules[i];
      const ModuleSpec* const spec = find_module_spec(impl_, module.name);
      if (spec != nullptr) {
        repetitions_.add(spec, i);
      }
      ModuleCheck(module, RecordId::of_module(i), spec, context_).run();
    }
    repetitions_.for_each([&](const ModuleSpec& spec, std::size_t first, std::size_t again) {
      if (!spec.repeatable) {
        report(context_.sink, IssueId::DuplicateModule, {spec.name},
               {RecordId::of_module(again), nowhere_, RecordId::of_module(first)});
      }
    });
  }

 private:
  void check_easy_input() {
    bool has_method = false;
    for (std::size_t i = 0; i < data_.easy_tokens.size(); ++i) {
      const EasyToken& token = data_.easy_tokens[i];
      const std::string& name = token.canonical.empty() ? token.text : token.canonical;
      has_method = has_method || schema_.easy_token_category(name) == "method_spec";
      check_easy_value(name, {RecordId::of(RecordKind::EasyToken, i), token.location});
    }
    if (!has_method) {
      report(context_.sink, IssueId::MissingMethod, {}, {{}, nowhere_});
    }
    check_geometry();
  }

  void check_easy_value(std::string_view name, const FaultSite& site) {
    const auto [keyword, value] = split_at_equals(name);
    const ValueSpec* const spec = find_keyword_spec(impl_, keyword);
    if (spec != nullptr && value && !value->empty() && !value_matches(*value, *spec)) {
      const ValueFault fault = find_header_value_fault(*value, *spec);
      report(context_.sink, IssueId::InvalidEasyValue, {keyword, *value}, site, &fault);
    }
  }

  void check_geometry() {
    const FaultSite site = {data_.has_geometry ? RecordId::of(RecordKind::Geometry, 0) : RecordId{},
                            data_.geometry_location};
    const bool present =
        data_.has_geometry && !(data_.atoms.empty() && data_.geometry_lines.empty());
    if (!present) {
      report(context_.sink, IssueId::MissingGeometry, {}, site);
    }
    if (data_.has_geometry && !data_.geometry_terminated) {
      report(context_.sink, IssueId::UnterminatedGeometry, {}, site);
    }
  }

  const BDFData& data_;
  const InputSchema& schema_;
  const InputSchema::Impl& impl_;
  const CheckContext& context_;
  const std::optional<SourceSpan> nowhere_;
  Repetitions<ModuleSpec> repetitions_;
};

}  // namespace

void find_faults(const BDFData& data, const InputSchema& schema, const ValidationOptions& options,
                 const FaultSink& sink) {
  ValueCheck values;
  DocumentCheck(data, schema, {options, sink, values}).run();
}

std::vector<ValidationIssue> InputSchema::validate(const BDFData& data,
                                                   const ValidationOptions& options) const {
  std::vector<ValidationIssue> issues;
  find_faults(data, *this, options, [&](const Fault& fault) {
    issues.push_back({severity_of(fault.id), std::string(code_of(fault.id)),
                      message_of(fault.id, fault.arguments), *fault.location});
  });
  return issues;
}

}  // namespace kelp::input::bdf
