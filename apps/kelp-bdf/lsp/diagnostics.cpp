#include <algorithm>
#include <array>
#include <string_view>

#include "cli/file_uri.hpp"
#include "lsp/features.hpp"

namespace kelp::app::lsp {
namespace {

using input::bdf::Diagnostic;
using input::bdf::Severity;

// Of these the words at fault do nothing, and may as well go.
constexpr auto unnecessary = std::to_array<std::string_view>({
    "bdf.duplicate_entry",
    "comment.unused_allowance",
    "geometry.zmatrix_variable_unused",
    "header.keyword_twice",
    "optimisation.hess_option_without_effect",
    "solvent.dielectric_ignored",
    "solvent.solvent_option_without_solvent",
});

constexpr int tag_unnecessary = 1;

int severity_number(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return 1;
    case Severity::Warning:
      return 2;
    case Severity::Note:
      break;
  }
  return 3;
}

// The help has no field of its own.
std::string message_of(const Diagnostic& diagnostic) {
  std::string text = diagnostic.message;
  for (const std::string& help : diagnostic.help) {
    text += '\n' + help;
  }
  return text;
}

Json related_json(const View& view, const Diagnostic& diagnostic) {
  Json list = Json::array();
  for (const input::bdf::RelatedRange& related : diagnostic.related) {
    list.push_back(
        {{"location", {{"uri", view.document.uri()}, {"range", view.range(related.range)}}},
         {"message", related.message}});
  }
  return list;
}

}  // namespace

Json diagnostic_json(const View& view, const Diagnostic& diagnostic) {
  Json json = {{"range", view.range(diagnostic.range.value_or(input::bdf::TextRange{}))},
               {"severity", severity_number(diagnostic.severity)},
               {"code", diagnostic.code},
               {"source", "kelp-bdf"},
               {"message", message_of(diagnostic)}};
  if (view.client.related_information && !diagnostic.related.empty()) {
    json["relatedInformation"] = related_json(view, diagnostic);
  }
  if (view.client.links_codes && !findings_page().empty()) {
    json["codeDescription"] = {{"href", findings_page() + '#' + diagnostic.code}};
  }
  if (view.client.has_tags &&
      std::find(unnecessary.begin(), unnecessary.end(), diagnostic.code) != unnecessary.end()) {
    json["tags"] = {tag_unnecessary};
  }
  return json;
}

Json all_diagnostics(const View& view) {
  Json list = Json::array();
  for (const Diagnostic& diagnostic : view.findings()) {
    list.push_back(diagnostic_json(view, diagnostic));
  }
  return list;
}

Json pulled_diagnostics(const View& view, const Json&) {
  return {{"kind", "full"}, {"items", all_diagnostics(view)}};
}

}  // namespace kelp::app::lsp
