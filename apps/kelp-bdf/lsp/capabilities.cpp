#include "lsp/capabilities.hpp"

#include "lsp/features.hpp"
#include "lsp/tokens.hpp"

namespace kelp::app::lsp {

Json capabilities(const Client& client) {
  constexpr int incremental = 2;
  Json can = {{"positionEncoding", encoding_name(client.unit)},
              {"textDocumentSync", {{"openClose", true}, {"change", incremental}}}};
  can["diagnosticProvider"] = {{"identifier", "kelp-bdf"},
                               {"interFileDependencies", false},
                               {"workspaceDiagnostics", false}};
  can["completionProvider"] = {{"triggerCharacters", {"$", "/", "="}}};
  can["hoverProvider"] = true;
  can["definitionProvider"] = true;
  can["documentHighlightProvider"] = true;
  can["documentSymbolProvider"] = true;
  can["foldingRangeProvider"] = true;
  can["selectionRangeProvider"] = true;
  can["documentFormattingProvider"] = true;
  can["documentRangeFormattingProvider"] = true;
  can["inlayHintProvider"] = true;
  can["codeActionProvider"] = {{"codeActionKinds", {"quickfix", "source.fixAll.kelp-bdf"}},
                               {"resolveProvider", client.resolves_edits}};
  can["executeCommandProvider"] = {{"commands", {explain_command}}};
  can["semanticTokensProvider"] = {
      {"legend", {{"tokenTypes", token_types()}, {"tokenModifiers", Json::array()}}},
      {"full", true},
      {"range", true}};
  return can;
}

}  // namespace kelp::app::lsp
