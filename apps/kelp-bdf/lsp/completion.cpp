#include "kelp/input/bdf/completion.hpp"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "lsp/features.hpp"

namespace kelp::app::lsp {
namespace {

using input::bdf::Candidate;
using input::bdf::CandidateKind;

// The protocol's kinds are those of programming languages; they choose a symbol.
int item_kind(CandidateKind kind) {
  constexpr int method = 2;
  constexpr int function = 3;
  constexpr int module = 9;
  constexpr int property = 10;
  constexpr int unit = 11;
  constexpr int keyword = 14;
  constexpr int snippet = 15;
  constexpr int enum_member = 20;
  constexpr int constant = 21;
  switch (kind) {
    case CandidateKind::Module:
      return module;
    case CandidateKind::Entry:
    case CandidateKind::NestedEntry:
      return property;
    case CandidateKind::Value:
      return enum_member;
    case CandidateKind::Method:
      return method;
    case CandidateKind::Functional:
      return function;
    case CandidateKind::BasisSet:
      return constant;
    case CandidateKind::Element:
      return unit;
    case CandidateKind::Block:
      return snippet;
    case CandidateKind::EasyKeyword:
    case CandidateKind::End:
      break;
  }
  return keyword;
}

std::string escaped(std::string_view text) {
  std::string plain;
  for (const char byte : text) {
    plain += byte == '$' || byte == '}' || byte == '\\' ? "\\" : "";
    plain += byte;
  }
  return plain;
}

std::string placeholder(std::size_t number, std::string_view text) {
  return text.empty() ? "$0" : "${" + std::to_string(number) + ':' + escaped(text) + '}';
}

// What is made up is marked, so that typing replaces it.
std::string snippet_of(const Candidate& candidate) {
  const std::string& first = candidate.lines.front();
  const std::size_t equals =
      candidate.kind == CandidateKind::EasyKeyword ? first.find('=') : std::string::npos;
  std::string text = equals == std::string::npos
                         ? escaped(first)
                         : escaped(first.substr(0, equals + 1)) +
                               placeholder(1, std::string_view(first).substr(equals + 1));
  for (std::size_t i = 1; i < candidate.lines.size(); ++i) {
    const std::string_view line = candidate.lines[i];
    const bool is_end = candidate.closes_block && i + 1 == candidate.lines.size();
    const std::size_t indent = is_end ? 0 : std::min(line.find_first_not_of(' '), line.size());
    text += '\n' + std::string(line.substr(0, indent)) +
            (is_end ? escaped(line) : placeholder(i, line.substr(indent)));
  }
  return text;
}

std::string detail_of(const Candidate& candidate) {
  std::string text = candidate.value_type;
  if (!candidate.default_value.empty()) {
    text += (text.empty() ? "default " : ", default ") + candidate.default_value;
  }
  return text;
}

// Editors sort by this text; the order is that of the library.
std::string sort_text(std::size_t index) {
  constexpr std::size_t width = 5;
  const std::string digits = std::to_string(index);
  return std::string(width - std::min(width, digits.size()), '0') + digits;
}

Json item_of(const Candidate& candidate, const Json& range, const View& view, std::size_t index) {
  constexpr int snippet = 2;
  constexpr int adjust_indentation = 2;
  const bool is_snippet = view.client.has_snippets &&
                          (candidate.lines.size() > 1 || candidate.lines.front() != candidate.name);
  Json item = {
      {"label", candidate.name},
      {"kind", item_kind(candidate.kind)},
      {"filterText", candidate.name},
      {"sortText", sort_text(index)},
      {"textEdit",
       {{"range", range}, {"newText", is_snippet ? snippet_of(candidate) : candidate.name}}}};
  if (const std::string detail = detail_of(candidate); !detail.empty()) {
    item["detail"] = detail;
  }
  if (!candidate.summary.empty()) {
    item["documentation"] = candidate.summary;
  }
  if (is_snippet) {
    item["insertTextFormat"] = snippet;
    item["insertTextMode"] = adjust_indentation;
  }
  return item;
}

}  // namespace

Json completion(const View& view, const Json& params) {
  const input::bdf::Completion found =
      completion_at(view.input(), view.byte_at(member(params, "position")), view.settings.language);
  const Json range = view.range(found.range);
  Json items = Json::array();
  for (const Candidate& candidate : found.candidates) {
    items.push_back(item_of(candidate, range, view, items.size()));
  }
  return {{"isIncomplete", false}, {"items", std::move(items)}};
}

}  // namespace kelp::app::lsp
