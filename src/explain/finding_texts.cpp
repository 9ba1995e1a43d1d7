#include <array>
#include <string>
#include <vector>

#include "explain/finding_tables.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

constexpr auto tables = std::to_array<std::span<const FindingText> (*)()>({
    input_finding_texts,      comment_finding_texts,   misspelling_finding_texts,
    frame_finding_texts,      rewrite_finding_texts,   schema_finding_texts,
    basis_finding_texts,      electrons_finding_texts, fragments_finding_texts,
    functional_finding_texts, geometry_finding_texts,  guess_finding_texts,
    header_finding_texts,     numbers_finding_texts,   optimisation_finding_texts,
    resp_finding_texts,       sequence_finding_texts,  soc_finding_texts,
    solvent_finding_texts,    symmetry_finding_texts,  tddft_finding_texts,
});

std::vector<FindingText> joined_tables() {
  std::vector<FindingText> all;
  for (auto* const table : tables) {
    const std::span<const FindingText> rows = table();
    all.insert(all.end(), rows.begin(), rows.end());
  }
  return all;
}

}  // namespace

std::span<const FindingText> finding_texts() {
  static const std::vector<FindingText> all = joined_tables();
  return all;
}

const FindingText* find_finding_text(std::string_view code) {
  const std::string wanted = core::text::to_lower(core::text::trim_view(code));
  for (const FindingText& text : finding_texts()) {
    const std::string_view name = text.code.substr(text.code.find('.') + 1);
    if (wanted == text.code || wanted == name) {
      return &text;
    }
  }
  return nullptr;
}

}  // namespace kelp::input::bdf
