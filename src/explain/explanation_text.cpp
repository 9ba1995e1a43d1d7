// The parts of an explanation stand one below the other, parted by blank lines; all but the title
// are indented by two blanks, and what is a text of its own by four.

#include <algorithm>
#include <cstddef>

#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/explain.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::size_t widest = 100;
constexpr std::size_t heading_width = 10;
// A longer value has a line of its own.
constexpr std::size_t value_width = 24;

// A text behind a label, its further lines below the first; nothing for an empty text.
std::string labelled(std::string_view label, std::string_view text, std::size_t indent) {
  const std::size_t width = core::unicode::display_width(label);
  std::string lines;
  for (const std::string_view line : core::unicode::wrap(text, widest - indent)) {
    lines.append(indent, ' ').append(line).append("\n");
  }
  if (lines.empty() || width > indent) {
    return lines.empty() ? lines : std::string(label).append("\n") + lines;
  }
  return std::string(label) + lines.substr(width);
}

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
std::string indented_layout(const Explanation& explanation) {
  const bool is_choice = explanation.thing == ExplainedThing::Method ||
                         explanation.thing == ExplainedThing::Functional ||
                         explanation.thing == ExplainedThing::BasisSet;
  return indented(core::text::join(explanation.layout, is_choice ? " or " : "\n"));
}

std::string values_text(const std::vector<ValueMeaning>& values) {
  std::size_t width = 0;
  for (const ValueMeaning& known : values) {
    width = std::max(width, core::unicode::display_width(known.value));
  }
  width = std::min(width, value_width);
  std::string text;
  for (const ValueMeaning& known : values) {
    const std::string value = "    " + known.value;
    text += known.meaning.empty() ? value + "\n" : labelled(value, known.meaning, width + 6);
  }
  return text;
}

std::string facts_text(const std::vector<ExplanationFact>& facts) {
  std::string text;
  for (const ExplanationFact& fact : facts) {
    text += labelled("  " + fact.heading, fact.text, heading_width + 4);
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
  const auto add_part = [&text](const std::string& part) {
    text += (part.empty() ? "" : "\n") + part;
  };
  add_part(labelled("", explanation.summary, 2));
  add_part(values_text(explanation.values));
  add_part(facts_text(explanation.facts));
  add_part(labelled("", explanation.writing, 2));
  add_part(indented_layout(explanation));
  if (explanation.finding != nullptr) {
    add_finding(text, *explanation.finding);
  }
  return text;
}

}  // namespace kelp::input::bdf
