#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace kelp::app {

/// What there is to say about a code. Examples are whole texts, inputs for codes that begin with
/// "bdf.", schemas for those that begin with "schema."; both are empty where none is short enough.
struct FindingText {
  std::string_view code;
  std::string_view meaning;
  std::string_view cause;
  std::string_view fix;
  std::string_view example;  ///< has the finding
  std::string_view fixed;    ///< the same without it
};

/// Returns the texts of all codes, those of inputs first.
std::vector<FindingText> finding_texts();

/// Returns the text of a code, with or without its prefix ("bdf." before "schema."), in any case.
std::optional<FindingText> find_finding_text(std::string_view code);

// The tables that `finding_texts` joins: what inputs, rewriting them, and schemas may bring.
std::span<const FindingText> input_finding_texts();
std::span<const FindingText> rewrite_finding_texts();
std::span<const FindingText> schema_finding_texts();

}  // namespace kelp::app
