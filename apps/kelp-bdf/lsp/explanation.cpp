#include "lsp/explanation.hpp"

#include "kelp/core/text.hpp"

namespace kelp::app::lsp {

using input::bdf::Explanation;

std::string markdown_text(std::string_view text) {
  constexpr std::string_view marks = "\\`*_[]<>#|";
  std::string plain;
  for (const char byte : text) {
    plain += marks.find(byte) == std::string_view::npos ? "" : "\\";
    plain += byte;
  }
  return plain;
}

std::string markdown_of(const Explanation& about) {
  std::string text = "**" + markdown_text(about.title) + "**\n";
  if (!about.summary.empty()) {
    text += '\n' + markdown_text(about.summary) + '\n';
  }
  if (!about.values.empty()) {
    text += '\n';
    for (const input::bdf::ValueMeaning& item : about.values) {
      text += "- `" + item.value + '`' +
              (item.meaning.empty() ? "" : ": " + markdown_text(item.meaning)) + '\n';
    }
  }
  if (!about.facts.empty()) {
    text += '\n';
    for (const input::bdf::ExplanationFact& fact : about.facts) {
      text += "- *" + markdown_text(fact.heading) + "*: " + markdown_text(fact.text) + '\n';
    }
  }
  if (!about.layout.empty()) {
    text += "\n```bdf\n" + core::text::join(about.layout, "\n") + "\n```\n";
  }
  return text;
}

}  // namespace kelp::app::lsp
