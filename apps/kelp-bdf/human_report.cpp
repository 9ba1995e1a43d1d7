#include <fmt/color.h>
#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "kelp/input/bdf/explain.hpp"
#include "report.hpp"
#include "unicode.hpp"

namespace kelp::app {
namespace {

using input::bdf::ValidationSeverity;

constexpr std::size_t widest_line = 160;
constexpr std::size_t context_before = 40;
constexpr std::string_view ellipsis = "...";

/// Wraps texts in the escape sequences of their colours, or in nothing.
class Painter {
 public:
  explicit Painter(bool colour) : colour_(colour) {}

  std::string severity(ValidationSeverity severity, std::string_view text) const {
    return paint(text, fmt::emphasis::bold | fmt::fg(severity == ValidationSeverity::Error
                                                         ? fmt::terminal_color::red
                                                         : fmt::terminal_color::yellow));
  }
  std::string frame(std::string_view text) const {
    return paint(text, fmt::emphasis::bold | fmt::fg(fmt::terminal_color::blue));
  }
  std::string strong(std::string_view text) const { return paint(text, fmt::emphasis::bold); }

 private:
  std::string paint(std::string_view text, const fmt::text_style& style) const {
    return colour_ ? fmt::format(style, "{}", text) : std::string(text);
  }

  bool colour_;
};

/// The part of a long line around what is at fault.
struct Excerpt {
  std::string before;
  std::string marked;
  std::string after;
};

Excerpt cut_excerpt(std::string_view line, std::size_t begin, std::size_t end) {
  Excerpt excerpt;
  std::size_t from = 0;
  if (line.size() > widest_line && begin > context_before) {
    from = next_character(line, begin - context_before);
    excerpt.before = ellipsis;
  }
  const std::size_t to = next_character(line, std::min(line.size(), from + widest_line));
  end = std::min(end, to);
  excerpt.before += displayable(line.substr(from, begin - from));
  excerpt.marked = displayable(line.substr(begin, end - begin));
  excerpt.after = displayable(line.substr(end, to - end));
  if (to < line.size()) {
    excerpt.after += ellipsis;
  }
  return excerpt;
}

std::string source_excerpt(const Finding& finding, const Painter& painter, std::size_t gutter) {
  const Range range = finding.range.value_or(Range{});
  const std::size_t begin = range.start.byte - finding.source_line_byte;
  const std::size_t end = begin + (range.end.byte - range.start.byte);
  const Excerpt excerpt = cut_excerpt(finding.source_line, begin, end);
  const std::size_t carets = std::max<std::size_t>(1, display_width(excerpt.marked));
  const std::string underline =
      std::string(carets, '^') + (finding.label.empty() ? "" : " " + displayable(finding.label));
  const std::string bar = painter.frame(fmt::format("{:{}} |", "", gutter));
  return fmt::format("{}\n{} {}{}{}\n{} {}{}\n", bar,
                     painter.frame(fmt::format("{:>{}} |", range.start.line, gutter)),
                     excerpt.before, excerpt.marked, excerpt.after, bar,
                     std::string(display_width(excerpt.before), ' '),
                     painter.severity(finding.severity, underline));
}

std::string counted(std::size_t count, std::string_view thing) {
  return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
}

}  // namespace

std::string human_report(const Finding& finding, bool colour) {
  const Painter painter(colour);
  const std::size_t gutter =
      finding.range ? fmt::formatted_size("{}", finding.range->start.line) : 1;
  std::string text = fmt::format(
      "{}{}\n",
      painter.severity(finding.severity,
                       fmt::format("{}[{}]", to_string(finding.severity), finding.code)),
      painter.strong(": " + displayable(abridged(finding.message))));
  text += fmt::format("{:{}}{} {}", "", gutter, painter.frame("-->"), displayable(finding.file));
  if (finding.range) {
    text += fmt::format(":{}:{}\n", finding.range->start.line, finding.range->start.column);
    text += source_excerpt(finding, painter, gutter);
  } else {
    text += '\n';
  }
  for (const std::string& help : finding.help) {
    text += fmt::format("{:{}} {} {}: {}\n", "", gutter, painter.frame("="), painter.strong("help"),
                        displayable(help));
  }
  return text + '\n';
}

std::string human_summary(const Totals& totals) {
  std::string counts;
  if (totals.errors > 0) {
    counts = counted(totals.errors, "error");
  }
  if (totals.warnings > 0) {
    counts += (counts.empty() ? "" : " and ") + counted(totals.warnings, "warning");
  }
  if (counts.empty()) {
    return {};
  }
  return fmt::format("{} in {} ({} checked)\n", counts, counted(totals.files_with_findings, "file"),
                     totals.files_checked);
}

std::string concise_report(const Finding& finding) {
  const Position start = finding.range ? finding.range->start : Position{};
  return fmt::format("{}:{}:{}: {}: {} [{}]\n", displayable(finding.file), start.line, start.column,
                     to_string(finding.severity), displayable(abridged(finding.message)),
                     finding.code);
}

}  // namespace kelp::app
