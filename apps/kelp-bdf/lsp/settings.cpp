#include "lsp/settings.hpp"

#include <algorithm>
#include <utility>

#include "kelp/input/bdf/explain.hpp"

namespace kelp::app::lsp {
namespace {

using input::bdf::ColumnUnit;
using input::bdf::SeverityAction;
using input::bdf::UnknownNames;

template <typename Value>
bool choose(const Json& json, std::initializer_list<std::pair<const char*, Value>> choices,
            Value& chosen) {
  for (const auto& [name, value] : choices) {
    if (json == name) {
      chosen = value;
      return true;
    }
  }
  return false;
}

bool set_schema(Settings& settings, const Json& json) {
  if (!json.is_string() && !json.is_null()) {
    return false;
  }
  settings.schema_file = json.is_null() ? std::string() : json.get<std::string>();
  return true;
}

bool set_flag(bool& flag, const Json& json) {
  if (!json.is_boolean()) {
    return false;
  }
  flag = json.get<bool>();
  return true;
}

bool set_number(std::size_t& number, const Json& json) {
  if (!json.is_number_unsigned()) {
    return false;
  }
  number = json.get<std::size_t>();
  return true;
}

// Members come sorted, so that a pattern with an asterisk comes before all that it means, and a
// single code has the last word.
void set_severities(Settings& settings, const Json& json, std::vector<std::string>& wrong) {
  if (!json.is_object()) {
    wrong.emplace_back("'severities' is no object");
    return;
  }
  settings.wanted.rules.clear();
  for (const auto& [pattern, wish] : json.items()) {
    SeverityAction action = SeverityAction::Allow;
    if (!input::bdf::means_any_code(pattern)) {
      wrong.push_back("'severities': no finding is called '" + pattern + "'");
    } else if (!choose(wish,
                       {{"allow", SeverityAction::Allow},
                        {"warn", SeverityAction::Warn},
                        {"deny", SeverityAction::Deny}},
                       action)) {
      wrong.push_back("'severities': '" + pattern + "' takes allow, warn or deny");
    } else {
      settings.wanted.rules.push_back({pattern, action});
    }
  }
}

bool change_one(Settings& settings, const std::string& name, const Json& json) {
  using input::bdf::Language;
  if (name == "schema") {
    return set_schema(settings, json);
  }
  if (name == "language") {
    return choose(json, {{"en", Language::English}, {"zh", Language::Chinese}},
                  settings.language) ||
           json == "" || json.is_null();
  }
  if (name == "unknown") {
    return choose(json,
                  {{"error", UnknownNames::Error},
                   {"warn", UnknownNames::Warn},
                   {"ignore", UnknownNames::Ignore}},
                  settings.wanted.unknown);
  }
  if (name == "advice") {
    return set_flag(settings.wanted.advice, json);
  }
  if (name == "inlayHints") {
    return set_flag(settings.inlay_hints, json);
  }
  return name != "maxFindings" || set_number(settings.most_findings, json);
}

}  // namespace

std::vector<std::string> change_settings(Settings& settings, const Json& json) {
  std::vector<std::string> wrong;
  if (!json.is_object()) {
    return wrong;
  }
  for (const auto& [name, value] : json.items()) {
    if (name == "severities") {
      set_severities(settings, value, wrong);
    } else if (!change_one(settings, name, value)) {
      wrong.push_back("'" + name + "' has a value that it cannot have");
    }
  }
  return wrong;
}

namespace {

// The first that the client prefers; all of the protocol's three are known.
ColumnUnit unit_of(const Json& encodings) {
  ColumnUnit unit = ColumnUnit::Utf16;
  if (encodings.is_array()) {
    for (const Json& name : encodings) {
      if (choose(name,
                 {{"utf-8", ColumnUnit::Byte},
                  {"utf-16", ColumnUnit::Utf16},
                  {"utf-32", ColumnUnit::CodePoint}},
                 unit)) {
        break;
      }
    }
  }
  return unit;
}

}  // namespace

Client client_of(const Json& params) {
  Client client;
  const Json& can = find_member(params, {"capabilities"});
  const Json& text = find_member(can, {"textDocument"});
  const Json& workspace = find_member(can, {"workspace"});
  client.unit = unit_of(find_member(can, {"general", "positionEncodings"}));
  if (const Json& process = find_member(params, {"processId"}); process.is_number_integer()) {
    client.process = process.get<std::int64_t>();
  }
  client.pulls_diagnostics = find_member(text, {"diagnostic"}).is_object();
  client.refreshes_diagnostics = is_true(workspace, {"diagnostics", "refreshSupport"});
  client.refreshes_hints = is_true(workspace, {"inlayHint", "refreshSupport"});
  client.related_information = is_true(text, {"publishDiagnostics", "relatedInformation"}) ||
                               is_true(text, {"diagnostic", "relatedInformation"});
  client.links_codes = is_true(text, {"publishDiagnostics", "codeDescriptionSupport"}) ||
                       is_true(text, {"diagnostic", "codeDescriptionSupport"});
  client.has_tags = find_member(text, {"publishDiagnostics", "tagSupport"}).is_object() ||
                    find_member(text, {"diagnostic", "tagSupport"}).is_object();
  client.asks_for_settings = is_true(workspace, {"configuration"});
  client.registers_settings = is_true(workspace, {"didChangeConfiguration", "dynamicRegistration"});
  client.nests_symbols = is_true(text, {"documentSymbol", "hierarchicalDocumentSymbolSupport"});
  client.has_snippets = is_true(text, {"completion", "completionItem", "snippetSupport"});
  const Json& resolved = find_member(text, {"codeAction", "resolveSupport", "properties"});
  client.resolves_edits = is_true(text, {"codeAction", "dataSupport"}) && resolved.is_array() &&
                          std::find(resolved.begin(), resolved.end(), "edit") != resolved.end();
  client.versioned_edits = is_true(workspace, {"workspaceEdit", "documentChanges"});
  return client;
}

const char* encoding_name(ColumnUnit unit) {
  switch (unit) {
    case ColumnUnit::Byte:
      return "utf-8";
    case ColumnUnit::CodePoint:
      return "utf-32";
    default:
      return "utf-16";
  }
}

}  // namespace kelp::app::lsp
