#include "lsp/capabilities.hpp"

namespace kelp::app::lsp {

Json capabilities(const Client& client) {
  constexpr int incremental = 2;
  Json can = {{"positionEncoding", encoding_name(client.unit)},
              {"textDocumentSync", {{"openClose", true}, {"change", incremental}}}};
  can["diagnosticProvider"] = {{"identifier", "kelp-bdf"},
                               {"interFileDependencies", false},
                               {"workspaceDiagnostics", false}};
  return can;
}

}  // namespace kelp::app::lsp
