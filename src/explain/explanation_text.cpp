// The parts of an explanation stand one below the other, parted by blank lines; all but the title
// are indented by two blanks, and what is a text of its own by four.

#include <algorithm>
#include <cstddef>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/explain.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::size_t heading_width = 10;

std::string indented(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::string_view line = core::text::take_line(text);
    result += line.empty() ? "" : "    ";
    result.append(line).append("\n");
  }
  return result;
}

// Of names in a header, one is chosen; of entries, all lines are written.
std::string layout_text(const Explanation& explanation) {
  const bool is_choice = explanation.thing == ExplainedThing::Method ||
                         explanation.thing == ExplainedThing::Functional ||
                         explanation.thing == ExplainedThing::BasisSet;
  return indented(core::text::join(explanation.layout, is_choice ? " or " : "\n"));
}

std::string facts_text(const std::vector<ExplanationFact>& facts) {
  std::string text;
  for (const ExplanationFact& fact : facts) {
    std::string heading = fact.heading;
    heading.resize(std::max(heading.size(), heading_width), ' ');
    text += "  " + heading + "  " + fact.text + "\n";
  }
  return text;
}

void add_finding(std::string& text, const FindingText& finding) {
  text.append("\n  Cause: ").append(finding.cause);
  text.append("\n  Fix:   ").append(finding.fix).append("\n");
  if (!finding.example.empty()) {
    text += "\n  Example:\n\n" + indented(finding.example);
    text += "\n  Without the finding:\n\n" + indented(finding.fixed);
  }
}

}  // namespace

std::string explanation_text(const Explanation& explanation) {
  std::string text = explanation.title + "\n";
  if (!explanation.summary.empty()) {
    text += "\n  " + explanation.summary + "\n";
  }
  if (!explanation.layout.empty()) {
    text += "\n" + layout_text(explanation);
  }
  if (!explanation.facts.empty()) {
    text += "\n" + facts_text(explanation.facts);
  }
  if (explanation.finding != nullptr) {
    add_finding(text, *explanation.finding);
  }
  return text;
}

}  // namespace kelp::input::bdf
