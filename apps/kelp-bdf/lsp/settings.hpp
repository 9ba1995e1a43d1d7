#pragma once

/// @file
/// What the user wishes, and what the client can do.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"
#include "kelp/input/bdf/meaning.hpp"
#include "kelp/input/bdf/source.hpp"
#include "lsp/message.hpp"

namespace kelp::app::lsp {

/// What the user wishes: the section `kelp-bdf` of the client's settings.
struct Settings {
  std::string schema_file;  ///< empty: the one that the server was started with
  input::bdf::Language language = input::bdf::Language::English;
  input::bdf::DiagnoseOptions wanted;  ///< which findings; the folder is that of each input
  bool inlay_hints = true;
  std::size_t most_findings = 1000;  ///< of one input; further ones are not sent
};

/// Changes settings as a JSON object says: `schema`, `language`, `unknown`, `advice`, `severities`
/// (an object of patterns and what is done with them), `inlayHints`, `maxFindings`. What it does
/// not say stays. Returns what is wrong about it, a sentence each.
std::vector<std::string> change_settings(Settings& settings, const Json& json);

/// What the client can do, as it says when the server is initialized.
struct Client {
  input::bdf::ColumnUnit unit = input::bdf::ColumnUnit::Utf16;
  std::int64_t process = 0;  ///< 0: none, or unknown
  bool pulls_diagnostics = false;
  bool refreshes_diagnostics = false;
  bool refreshes_hints = false;
  bool related_information = false;
  bool links_codes = false;
  bool has_tags = false;
  bool asks_for_settings = false;
  bool registers_settings = false;
  bool nests_symbols = false;
  bool has_snippets = false;
  bool resolves_edits = false;   ///< of code actions, when they are chosen
  bool versioned_edits = false;  ///< knows to which version of a text an edit belongs
};

/// Reads the parameters of `initialize`.
Client client_of(const Json& params);

/// Returns the protocol's name for a unit of columns.
const char* encoding_name(input::bdf::ColumnUnit unit);

}  // namespace kelp::app::lsp
