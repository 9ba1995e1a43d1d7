#include "schema/lint/probe.hpp"

#include <algorithm>
#include <memory>
#include <utility>

#include "schema/impl.hpp"

namespace kelp::input::bdf::lint {
namespace {

constexpr const char* name = "x";

InputSchema schema_of(const EntrySchemaInfo& info) {
  EntrySpec spec;
  static_cast<EntrySchemaInfo&>(spec) = info;
  spec.name = name;
  // A header's keyword has a value whatever its kind; only rows are checked otherwise.
  if (spec.kind != EntryValueKind::CountedRows) {
    spec.kind = EntryValueKind::Scalar;
  }
  ModuleSpec module;
  module.name = name;
  module.entries.emplace(name, std::move(spec));
  module.entry_aliases.emplace(name, name);
  auto impl = std::make_shared<InputSchema::Impl>();
  impl->modules.emplace(name, std::move(module));
  impl->module_aliases.emplace(name, name);
  return InputSchema(std::move(impl));
}

BDFData input_with(const std::string& value) {
  BDFData data;
  data.mode = InputMode::Module;
  data.modules.emplace_back();
  Module& module = data.modules.back();
  module.name = name;
  module.entries.emplace_back();
  module.entries.back().name = name;
  module.entries.back().values = {value};
  return data;
}

}  // namespace

bool accepts(const EntrySchemaInfo& info, const std::string& value) {
  const auto issues = schema_of(info).validate(input_with(value), {});
  return std::none_of(issues.begin(), issues.end(), [](const ValidationIssue& issue) {
    return issue.code == "bdf.invalid_module_value";
  });
}

std::string_view refusing_part(const EntrySchemaInfo& info, const std::string& value) {
  EntrySchemaInfo relaxed = info;
  relaxed.allowed.clear();
  if (accepts(relaxed, value)) {
    return "the values allowed";
  }
  relaxed.min.reset();
  relaxed.max.reset();
  if (accepts(relaxed, value)) {
    return "the bounds";
  }
  relaxed.value_type = "any";
  relaxed.row_types.clear();
  return accepts(relaxed, value) ? "the type" : "the number of fields";
}

}  // namespace kelp::input::bdf::lint
