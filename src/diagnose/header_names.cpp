// The method specification of the header and the names in it. The list of methods is closed; those
// of functionals and basis sets are open, so that of them only what is a slip of a listed name is
// told of here, or what can be no name at all.

#include "diagnose/header_names.hpp"

#include <algorithm>
#include <utility>

#include "diagnose/certain_names.hpp"
#include "diagnose/likely_names.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "schema/easy_token_syntax.hpp"

namespace kelp::input::bdf {

Diagnostic begin_in_header(DiagnoseContext& context, std::size_t token, std::string_view code,
                           std::string message, std::string_view argument) {
  return begin_diagnostic({code,
                           std::move(message),
                           {std::string(argument)},
                           RecordId::of(RecordKind::EasyToken, token)},
                          context.paths);
}

std::string unknown_in_header(std::string_view thing, std::string_view name) {
  return "Unknown " + std::string(thing) + " '" + core::unicode::abridged(name) +
         "' in the header.";
}

HeaderNameFinder::HeaderNameFinder(DiagnoseContext& context, const DiagnoseOptions& options,
                                   const DiagnosticSink& use)
    : context_(context), options_(options), use_(use) {}

std::string HeaderNameFinder::written(const TextRange& range) const {
  return std::string(context_.input.source().text_of(range));
}

void HeaderNameFinder::look_at_specification(std::size_t token) {
  if (is_told_as_whole(token) || options_.unknown == UnknownNames::Ignore) {
    return;
  }
  const SpecificationRanges ranges = context_.input.specification_ranges(token);
  if (!ranges.method.empty() && !ranges.functional.empty()) {
    look_at_method(token, ranges.method);
  } else if (!ranges.functional.empty() && is_method_of_two_parts(token, ranges.functional)) {
    look_at_basis(token, ranges.basis);
    return;
  }
  look_at_functional(token, ranges.functional);
  look_at_basis(token, ranges.basis);
}

// What is wrong with all of a specification leaves its parts in doubt.
bool HeaderNameFinder::is_told_as_whole(std::size_t token) {
  const std::vector<EasyToken>& tokens = context_.input.data().easy_tokens;
  const bool is_second =
      std::any_of(tokens.begin(), tokens.begin() + static_cast<std::ptrdiff_t>(token),
                  [](const EasyToken& other) { return other.category == "method_spec"; });
  if (is_second) {
    report_second(token);
  } else if (has_empty_part(token)) {
    report_empty_part(token);
  } else if (are_swapped(token)) {
    report_swapped(token);
  } else {
    return false;
  }
  return true;
}

bool HeaderNameFinder::has_empty_part(std::size_t token) const {
  const std::vector<std::string_view> parts =
      split_at_slashes(context_.input.data().easy_tokens[token].text);
  return std::any_of(parts.begin(), parts.end(),
                     [](std::string_view part) { return part.empty(); });
}

void HeaderNameFinder::report_empty_part(std::size_t token) {
  const std::string text = context_.input.data().easy_tokens[token].text;
  std::vector<std::string_view> parts = split_at_slashes(text);
  parts.erase(std::remove(parts.begin(), parts.end(), std::string_view()), parts.end());
  Diagnostic diagnostic = begin_in_header(
      context_, token, "header.empty_part",
      "A part of the method specification '" + core::unicode::abridged(text) + "' is empty.", text);
  diagnostic.range = context_.input.token_ranges(token).whole;
  diagnostic.label = "method/functional/basis";
  diagnostic.help.emplace_back("write the part that is missing, or one slash");
  if (parts.size() > 1) {
    const std::string meant = core::text::join(parts, "/");
    offer_fix(diagnostic, "write '" + meant + "'", *diagnostic.range, meant);
  }
  use_(diagnostic);
}

// `cc-pvdz/b3lyp`
bool HeaderNameFinder::are_swapped(std::size_t token) const {
  const InputSchema& schema = context_.input.schema();
  const std::vector<std::string_view> parts =
      split_at_slashes(context_.input.data().easy_tokens[token].text);
  return parts.size() == 2 && schema.is_known_basis(parts[0]) && !schema.is_known_basis(parts[1]) &&
         (schema.is_known_method(parts[1]) || schema.is_known_functional(parts[1]));
}

void HeaderNameFinder::report_swapped(std::size_t token) {
  const std::string& text = context_.input.data().easy_tokens[token].text;
  const std::vector<std::string_view> parts = split_at_slashes(text);
  const std::string meant = std::string(parts[1]) + "/" + std::string(parts[0]);
  Diagnostic diagnostic = begin_in_header(
      context_, token, "header.parts_swapped",
      "The basis set stands first in the method specification '" + text + "'.", text);
  diagnostic.range = context_.input.token_ranges(token).whole;
  diagnostic.label = "the basis set is the last part";
  diagnostic.suggestions = {meant};
  offer_fix(diagnostic, "write '" + meant + "'", *diagnostic.range, meant, true);
  use_(diagnostic);
}

void HeaderNameFinder::report_second(std::size_t token) {
  const std::vector<EasyToken>& tokens = context_.input.data().easy_tokens;
  const auto first = std::find_if(tokens.begin(), tokens.end(), [](const EasyToken& other) {
    return other.category == "method_spec";
  });
  const std::string& text = tokens[token].text;
  Diagnostic diagnostic = begin_in_header(
      context_, token, "header.second_specification",
      "The header has a second method specification, '" + core::unicode::abridged(text) + "'.",
      text);
  diagnostic.range = context_.input.token_ranges(token).whole;
  diagnostic.label = "a second one";
  const auto index = static_cast<std::size_t>(first - tokens.begin());
  diagnostic.related.push_back({context_.input.token_ranges(index).whole, "the first one"});
  diagnostic.help.emplace_back(text.starts_with('/') ? "a comment begins with '#'"
                                                     : "keep the one that is meant");
  use_(diagnostic);
}

void HeaderNameFinder::look_at_method(std::size_t token, const TextRange& range) {
  const std::string name = written(range);
  if (context_.input.schema().is_known_method(name)) {
    return;
  }
  Diagnostic diagnostic = begin_in_header(context_, token, "header.unknown_method",
                                          unknown_in_header("method", name), name);
  if (options_.unknown == UnknownNames::Error) {
    diagnostic.severity = Severity::Error;
  }
  diagnostic.range = range;
  diagnostic.label = "not a method";
  std::vector<std::string> near = similar_names(name, context_.names().methods());
  const bool is_certain = near.size() == 1 && is_certain_slip(name, near.front());
  offer_names(diagnostic, std::move(near), {"method", "methods"}, range, is_certain);
  use_(diagnostic);
}

// Of two parts, the first may be a method or a functional. No functional has a name of two letters.
bool HeaderNameFinder::is_method_of_two_parts(std::size_t token, const TextRange& range) {
  constexpr std::size_t shortest = 3;
  const std::string name = written(range);
  const InputSchema& schema = context_.input.schema();
  if (schema.is_known_functional(name)) {
    return false;
  }
  std::vector<std::string> likely = likely_methods(name, context_);
  const bool is_other = likely_functionals(name, context_).empty();
  if (likely.empty() && is_other && is_near_to_methods_alone(name, context_)) {
    likely = similar_names(name, context_.names().methods());
  }
  const bool is_method = !likely.empty() || name.size() < shortest || is_method_elsewhere(name);
  if (is_method) {
    report_unlisted(token, range, "header.unknown_method", {"method", "methods"},
                    std::move(likely));
  }
  return is_method;
}

void HeaderNameFinder::look_at_functional(std::size_t token, const TextRange& range) {
  const std::string name = written(range);
  if (options_.unknown == UnknownNames::Ignore || name.empty()) {
    return;
  }
  std::vector<std::string> likely = likely_functionals(name, context_);
  if (!likely.empty() || !can_be_functional(name)) {
    report_unlisted(token, range, "header.unknown_functional", {"functional", "functionals"},
                    std::move(likely));
  }
}

void HeaderNameFinder::look_at_basis(std::size_t token, const TextRange& range) {
  const std::string name = written(range);
  std::vector<std::string> likely = likely_basis_sets(name, context_, options_);
  if (!likely.empty() || !can_be_basis_set(name)) {
    report_unlisted(token, range, "header.unknown_basis", {"basis set", "basis sets"},
                    std::move(likely));
  }
}

void HeaderNameFinder::report_unlisted(std::size_t token, const TextRange& range, const char* code,
                                       const NamedThing& things, std::vector<std::string> likely) {
  const std::string name = written(range);
  Diagnostic diagnostic =
      begin_in_header(context_, token, code, unknown_in_header(things.one, name), name);
  diagnostic.range = range;
  diagnostic.label = "not a " + std::string(things.one) + " that is listed";
  offer_names(diagnostic, std::move(likely), things, range, false);
  use_(diagnostic);
}

}  // namespace kelp::input::bdf
