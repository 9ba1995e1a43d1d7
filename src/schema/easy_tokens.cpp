// What the schema makes of one word of an easy header: a method specification such as
// `tddft/b3lyp/def2-svp`, or a keyword with or without a value.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/core/text.hpp"
#include "schema/easy_token_syntax.hpp"
#include "schema/impl.hpp"
#include "schema/lookup.hpp"
#include "schema/normalize_key.hpp"

namespace kelp::input::bdf {

std::string_view prepare_easy_token(std::string_view token) {
  require_text(token);
  return core::text::trim_view(token.substr(0, token.find('#')));
}

bool is_method_specification(std::string_view prepared) {
  const std::size_t slash = prepared.find('/');
  return slash != std::string_view::npos && slash < prepared.find('=');
}

std::vector<std::string_view> split_at_slashes(std::string_view text) {
  std::vector<std::string_view> parts;
  std::size_t slash = text.find('/');
  while (slash != std::string_view::npos) {
    parts.push_back(text.substr(0, slash));
    text.remove_prefix(slash + 1);
    slash = text.find('/');
  }
  parts.push_back(text);
  return parts;
}

KeyAndValue split_at_equals(std::string_view text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) {
    return {text, std::nullopt};
  }
  return {text.substr(0, equals), text.substr(equals + 1)};
}

namespace {

std::string canonical_specification(const InputSchema& schema, std::string_view prepared) {
  const std::vector<std::string_view> parts = split_at_slashes(prepared);
  if (parts.size() == 3) {
    return schema.canonical_method(parts[0]) + '/' + schema.canonical_functional(parts[1]) + '/' +
           schema.canonical_basis(parts[2]);
  }
  if (parts.size() == 2) {
    // What is no known method counts as a functional.
    return (schema.is_known_method(parts[0]) ? schema.canonical_method(parts[0])
                                             : schema.canonical_functional(parts[0])) +
           '/' + schema.canonical_basis(parts[1]);
  }
  std::string joined = normalize_key(parts[0]);
  for (std::size_t i = 1; i < parts.size(); ++i) {
    joined += '/' + normalize_key(parts[i]);
  }
  return joined;
}

bool is_known_specification(const InputSchema& schema, bool any_basis, std::string_view prepared) {
  const std::vector<std::string_view> parts = split_at_slashes(prepared);
  if (parts.size() == 3) {
    return schema.is_known_method(parts[0]) && schema.is_known_functional(parts[1]) &&
           (any_basis || schema.is_known_basis(parts[2]));
  }
  return parts.size() == 2 &&
         (schema.is_known_method(parts[0]) || schema.is_known_functional(parts[0])) &&
         (any_basis || schema.is_known_basis(parts[1]));
}

}  // namespace

std::string InputSchema::canonical_easy_token(std::string_view token) const {
  const std::string_view prepared = prepare_easy_token(token);
  if (is_method_specification(prepared)) {
    return canonical_specification(*this, prepared);
  }
  const KeyAndValue parts = split_at_equals(prepared);
  const std::string* const keyword =
      find_in(impl_->control_keyword_aliases, normalize_key(parts.key));
  if (prepared.empty() || keyword == nullptr) {
    return normalize_key(prepared);
  }
  if (!parts.value) {
    return *keyword;
  }
  return *keyword + '=' + core::text::trim(*parts.value);
}

std::string InputSchema::easy_token_category(std::string_view token) const {
  const std::string_view prepared = prepare_easy_token(token);
  if (is_method_specification(prepared)) {
    return "method_spec";
  }
  const ValueSpec* const spec = find_keyword_spec(*impl_, split_at_equals(prepared).key);
  return spec == nullptr ? "unknown" : spec->category;
}

bool InputSchema::is_known_easy_token(std::string_view token) const {
  const std::string_view prepared = prepare_easy_token(token);
  if (is_method_specification(prepared)) {
    return is_known_specification(*this, impl_->basis_extensible, prepared);
  }
  return easy_token_category(token) != "unknown";
}

}  // namespace kelp::input::bdf
