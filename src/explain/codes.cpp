// Which codes a pattern means. Of a pattern that ends in `*`, what stands before it is how the
// codes begin.

#include <algorithm>
#include <string>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::input::bdf {
namespace {

bool has_star(std::string_view pattern) {
  return !pattern.empty() && pattern.back() == '*';
}

}  // namespace

bool matches_code(std::string_view pattern, std::string_view code) noexcept {
  if (has_star(pattern)) {
    pattern.remove_suffix(1);
    code = code.substr(0, pattern.size());
  }
  return core::text::equals_ignoring_case(pattern, code);
}

bool means_any_code(std::string_view pattern) {
  const auto texts = finding_texts();
  return std::any_of(texts.begin(), texts.end(), [pattern](const FindingText& text) {
    return matches_code(pattern, text.code);
  });
}

std::vector<std::string> similar_codes(std::string_view pattern) {
  if (const FindingText* const text = find_finding_text(pattern)) {
    const bool is_whole = core::text::equals_ignoring_case(pattern, text->code);
    return is_whole ? std::vector<std::string>()
                    : std::vector<std::string>{std::string(text->code)};
  }
  std::vector<std::string> candidates;
  for (const FindingText& text : finding_texts()) {
    if (!has_star(pattern)) {
      candidates.emplace_back(text.code);
      continue;
    }
    std::string family = std::string(text.code.substr(0, text.code.find('.'))) + ".*";
    if (candidates.empty() || candidates.back() != family) {
      candidates.push_back(std::move(family));
    }
  }
  std::sort(candidates.begin(), candidates.end());
  candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
  return similar_names(pattern, candidates);
}

}  // namespace kelp::input::bdf
