#pragma once

/// @file
/// What the server answers about an open input. Each function takes the parameters of its request
/// and returns the result.

#include <string>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/parsed_input.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "lsp/document.hpp"
#include "lsp/message.hpp"
#include "lsp/settings.hpp"

namespace kelp::app::lsp {

/// An open input, with what the answers depend on. All of it must outlive this.
struct View {
  Document& document;
  const input::bdf::InputSchema& schema;
  const Settings& settings;
  const Client& client;

  const input::bdf::ParsedInput& input() const { return document.input(schema); }
  const std::vector<input::bdf::Diagnostic>& findings() const {
    return document.findings(schema, settings);
  }
  std::size_t byte_at(const Json& position) const {
    return document.byte_at(position, client.unit);
  }
  Json range(const input::bdf::TextRange& bytes) const {
    return document.range(bytes, client.unit);
  }
};

/// Returns one finding as the protocol has it.
Json diagnostic_json(const View& view, const input::bdf::Diagnostic& diagnostic);
/// Returns all findings, for those who are told and for those who ask.
Json all_diagnostics(const View& view);
/// Answers `textDocument/diagnostic`.
Json pulled_diagnostics(const View& view, const Json& params);

Json completion(const View& view, const Json& params);
Json hover(const View& view, const Json& params);
Json document_symbols(const View& view, const Json& params);
Json folding_ranges(const View& view, const Json& params);
Json selection_ranges(const View& view, const Json& params);
Json highlights(const View& view, const Json& params);
Json definition(const View& view, const Json& params);
Json formatting(const View& view, const Json& params);
Json range_formatting(const View& view, const Json& params);
Json code_actions(const View& view, const Json& params);
/// Answers `codeAction/resolve`; the parameters are the action.
Json resolved_action(const View& view, const Json& params);
Json semantic_tokens(const View& view, const Json& params);
Json semantic_tokens_range(const View& view, const Json& params);
Json inlay_hints(const View& view, const Json& params);
/// Answers `kelp-bdf/molecule`, a request of our own: the molecule as XYZ text, and the line of
/// each atom.
Json molecule(const View& view, const Json& params);

/// The command that tells what a code or a name means; its argument is the name.
inline constexpr const char* explain_command = "kelp-bdf.explain";

}  // namespace kelp::app::lsp
