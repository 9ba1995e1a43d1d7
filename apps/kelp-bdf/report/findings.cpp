#include <fmt/color.h>
#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/unicode.hpp"
#include "report/findings.hpp"

namespace kelp::app {
namespace {

using input::bdf::Diagnostic;
using input::bdf::Severity;
using input::bdf::TextRange;

constexpr std::size_t context_before = 40;
constexpr std::string_view ellipsis = "...";

/// Wraps texts in the escape sequences of their colours, or in nothing.
class Painter {
 public:
  explicit Painter(bool colour) : colour_(colour) {}

  std::string severity(Severity severity, std::string_view text) const {
    return paint(text, fmt::emphasis::bold | fmt::fg(colour_of(severity)));
  }
  std::string frame(std::string_view text) const {
    return paint(text, fmt::emphasis::bold | fmt::fg(fmt::terminal_color::blue));
  }
  std::string strong(std::string_view text) const { return paint(text, fmt::emphasis::bold); }

 private:
  static fmt::terminal_color colour_of(Severity severity) {
    if (severity == Severity::Note) {
      return fmt::terminal_color::cyan;
    }
    return severity == Severity::Error ? fmt::terminal_color::red : fmt::terminal_color::yellow;
  }

  std::string paint(std::string_view text, const fmt::text_style& style) const {
    return colour_ ? fmt::format(style, "{}", text) : std::string(text);
  }

  bool colour_;
};

// A terminal that knows these sequences opens the page at the code; others show the code alone.
std::string linked(const std::string& code, const std::string& page) {
  return page.empty() ? code : fmt::format("\x1B]8;;{}#{}\x1B\\{}\x1B]8;;\x1B\\", page, code, code);
}

/// The part of a long line around what is at fault.
struct Excerpt {
  std::string before;
  std::string marked;
  std::string after;
};

Excerpt cut_excerpt(std::string_view line, std::size_t begin, std::size_t end,
                    std::size_t widest_line) {
  Excerpt excerpt;
  std::size_t from = 0;
  if (line.size() > widest_line && begin > context_before) {
    from = core::unicode::next_character(line, begin - context_before);
    excerpt.before = ellipsis;
  }
  const std::size_t to =
      core::unicode::next_character(line, std::min(line.size(), from + widest_line));
  end = std::min(end, to);
  excerpt.before += core::unicode::displayable(line.substr(from, begin - from));
  excerpt.marked = core::unicode::displayable(line.substr(begin, end - begin));
  excerpt.after = core::unicode::displayable(line.substr(end, to - end));
  if (to < line.size()) {
    excerpt.after += ellipsis;
  }
  return excerpt;
}

/// Writes one diagnostic down with the line at fault.
class HumanReport {
 public:
  HumanReport(const Diagnostic& diagnostic, const input::bdf::SourceText& source,
              const ReportForm& form)
      : diagnostic_(diagnostic),
        source_(source),
        painter_(form.colour),
        code_(linked(diagnostic.code, form.code_page)),
        width_(form.width) {
    if (diagnostic.range) {
      start_ = source.position(diagnostic.range->begin);
    }
    gutter_ = fmt::formatted_size("{}", start_.line);
  }

  std::string text(std::string_view file) const {
    const std::string_view severity = to_string(diagnostic_.severity);
    std::string text = fmt::format(
        "{}{}\n", painter_.severity(diagnostic_.severity, fmt::format("{}[{}]", severity, code_)),
        painter_.strong(": " +
                        core::unicode::displayable(core::unicode::abridged(diagnostic_.message))));
    text += fmt::format("{:{}}{} {}", "", gutter_, painter_.frame("-->"),
                        core::unicode::displayable(file));
    if (diagnostic_.range) {
      text += fmt::format(":{}:{}\n", start_.line, start_.column) + excerpt(*diagnostic_.range);
    } else {
      text += '\n';
    }
    for (const std::string& help : diagnostic_.help) {
      text += fmt::format("{:{}} {} {}: {}\n", "", gutter_, painter_.frame("="),
                          painter_.strong("help"), core::unicode::displayable(help));
    }
    return text + '\n';
  }

 private:
  std::string excerpt(const TextRange& range) const {
    const TextRange line = source_.line_range(start_.line);
    const Excerpt excerpt = cut_excerpt(source_.text_of(line), range.begin - line.begin,
                                        range.end - line.begin, width_);
    const std::size_t carets =
        std::max<std::size_t>(1, core::unicode::display_width(excerpt.marked));
    const std::string underline =
        std::string(carets, '^') +
        (diagnostic_.label.empty() ? "" : " " + core::unicode::displayable(diagnostic_.label));
    const std::string bar = painter_.frame(fmt::format("{:{}} |", "", gutter_));
    return fmt::format("{}\n{} {}{}{}\n{} {}{}\n", bar,
                       painter_.frame(fmt::format("{:>{}} |", start_.line, gutter_)),
                       excerpt.before, excerpt.marked, excerpt.after, bar,
                       std::string(core::unicode::display_width(excerpt.before), ' '),
                       painter_.severity(diagnostic_.severity, underline));
  }

  const Diagnostic& diagnostic_;
  const input::bdf::SourceText& source_;
  Painter painter_;
  std::string code_;
  std::size_t width_;
  input::bdf::TextPosition start_;
  std::size_t gutter_;
};

std::string counted(std::size_t count, std::string_view thing) {
  return fmt::format("{} {}{}", count, thing, count == 1 ? "" : "s");
}

// "1 error, 2 warnings and 1 note"; empty for none.
std::string counts_text(const Totals& totals) {
  std::vector<std::string> counts;
  for (const auto& [count, thing] :
       {std::pair(totals.errors, "error"), {totals.warnings, "warning"}, {totals.notes, "note"}}) {
    if (count > 0) {
      counts.push_back(counted(count, thing));
    }
  }
  if (counts.size() < 2) {
    return counts.empty() ? std::string() : counts.front();
  }
  const std::string last = std::move(counts.back());
  counts.pop_back();
  return fmt::format("{} and {}", fmt::join(counts, ", "), last);
}

}  // namespace

std::string report_text(const Diagnostic& diagnostic, const input::bdf::SourceText& source,
                        std::string_view file, const ReportForm& form) {
  return form.human ? HumanReport(diagnostic, source, form).text(file)
                    : concise_text(diagnostic, source, file) + '\n';
}

void Totals::count(Severity severity) {
  switch (severity) {
    case Severity::Error:
      ++errors;
      return;
    case Severity::Warning:
      ++warnings;
      return;
    case Severity::Note:
      ++notes;
      return;
  }
}

std::string human_summary(const Totals& totals) {
  const std::string counts = counts_text(totals);
  const std::string fixed = totals.fixed > 0 ? counted(totals.fixed, "finding") + " fixed" : "";
  if (counts.empty()) {
    return fixed.empty() ? fixed : fixed + '\n';
  }
  const std::string rest =
      totals.not_shown > 0 ? fmt::format("... and {} more\n\n", totals.not_shown) : "";
  return fmt::format("{}{}{}{} in {} ({} checked)\n", rest, fixed, fixed.empty() ? "" : "; ",
                     counts, counted(totals.files_with_findings, "file"), totals.files_checked);
}

}  // namespace kelp::app
