#include "model/from_schema.hpp"

#include <utility>
#include <vector>

#include "kelp/core/text.hpp"
#include "schema/easy_token_syntax.hpp"
#include "schema/lookup.hpp"

namespace kelp::input::bdf {
namespace {

void describe(ModuleEntry& entry, const EntrySpec* spec) {
  entry.known = spec != nullptr;
  entry.kind = spec == nullptr ? EntryValueKind::Raw : spec->kind;
  if (spec == nullptr) {
    entry.terminator.clear();
  } else {
    entry.terminator = spec->terminator;
  }
}

void split_specification(EasyToken& token, const InputSchema& schema, PartBlanks blanks) {
  std::vector<std::string_view> parts = split_at_slashes(token.canonical);
  if (blanks == PartBlanks::Trimmed) {
    for (std::string_view& part : parts) {
      part = core::text::trim_view(part);
    }
  }
  if (parts.size() == 3) {
    token.method = parts[0];
    token.functional = parts[1];
    token.basis = parts[2];
  } else if (parts.size() == 2) {
    (schema.is_known_method(parts[0]) ? token.method : token.functional) = parts[0];
    token.basis = parts[1];
  }
  token.key = token.method.empty() ? token.functional : token.method;
}

}  // namespace

void describe_known(ModuleEntry& entry, const KnownName<EntrySpec>& known) {
  entry.name = *known.canonical;
  describe(entry, known.described);
}

void describe_module(Module& module, std::string_view name, const InputSchema& schema) {
  module.name = schema.canonical_module(name);
  module.known = schema.is_known_module(module.name);
}

void describe_entry(ModuleEntry& entry, std::string_view name, const ModuleSpec* module) {
  entry.name = canonical_entry_name(module, name);
  describe(entry, find_entry_spec(module, entry.name));
}

void describe_child(ModuleEntry& child, std::string_view name, const EntrySpec* parent) {
  child.name = canonical_child_name(parent, name);
  describe(child, find_child_spec(parent, child.name));
}

EasyToken easy_token_from_text(std::string text, const InputSchema& schema, PartBlanks blanks) {
  EasyToken token;
  token.text = std::move(text);
  token.canonical = schema.canonical_easy_token(token.text);
  token.category = schema.easy_token_category(token.text);
  token.known = schema.is_known_easy_token(token.text);
  const KeyAndValue parts = split_at_equals(token.canonical);
  if (parts.value) {
    token.key = parts.key;
    token.value = *parts.value;
  } else if (token.category == "method_spec") {
    split_specification(token, schema, blanks);
  } else {
    token.key = schema.canonical_easy_key(token.canonical);
  }
  return token;
}

}  // namespace kelp::input::bdf
