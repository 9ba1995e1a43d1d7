#pragma once

#include <span>

#include "kelp/input/bdf/explain.hpp"

namespace kelp::input::bdf {

// The tables that `finding_texts` joins.

std::span<const FindingText> input_finding_texts();
std::span<const FindingText> comment_finding_texts();
std::span<const FindingText> misspelling_finding_texts();
std::span<const FindingText> frame_finding_texts();
std::span<const FindingText> rewrite_finding_texts();
std::span<const FindingText> schema_finding_texts();
std::span<const FindingText> basis_finding_texts();
std::span<const FindingText> electrons_finding_texts();
std::span<const FindingText> fragments_finding_texts();
std::span<const FindingText> functional_finding_texts();
std::span<const FindingText> geometry_finding_texts();
std::span<const FindingText> guess_finding_texts();
std::span<const FindingText> header_finding_texts();
std::span<const FindingText> numbers_finding_texts();
std::span<const FindingText> optimisation_finding_texts();
std::span<const FindingText> resp_finding_texts();
std::span<const FindingText> sequence_finding_texts();
std::span<const FindingText> soc_finding_texts();
std::span<const FindingText> solvent_finding_texts();
std::span<const FindingText> symmetry_finding_texts();
std::span<const FindingText> tddft_finding_texts();

}  // namespace kelp::input::bdf
