#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "report/outline.hpp"

namespace kelp::app {
namespace {

using input::bdf::Outline;

constexpr std::size_t longest_value = 60;
constexpr std::size_t widest_text = 44;
constexpr std::size_t least_meaning = 30;

std::string shortened(std::string_view text) {
  if (text.size() <= longest_value) {
    return core::unicode::displayable(text);
  }
  std::size_t cut = longest_value;
  // Not within a character.
  while (cut > 0 && (static_cast<unsigned char>(text[cut]) & 0xC0U) == 0x80U) {
    --cut;
  }
  return core::unicode::displayable(text.substr(0, cut)) + "...";
}

std::string values_text(const std::vector<std::string>& values) {
  if (values.empty()) {
    return {};
  }
  std::string text = "  " + shortened(values.front());
  if (values.size() > 1) {
    text += fmt::format("  (and {} more line{})", values.size() - 1, values.size() == 2 ? "" : "s");
  }
  return text;
}

std::string line_text(std::size_t line) {
  return line == 0 ? std::string() : fmt::format("line {}", line);
}

/// Writes one outline.
class TextWriter {
 public:
  explicit TextWriter(const FileOutline& file) : file_(file), outline_(file.outline) {}

  std::string run() {
    lines_.push_back({fmt::format("{}: {} input", core::unicode::displayable(file_.file),
                                  to_string(outline_.mode)),
                      {}});
    for (std::string& line : calculation_lines(file_.calculation)) {
      lines_.push_back({std::move(line), {}});
    }
    if (outline_.script_name) {
      add("script name", shortened(*outline_.script_name));
    }
    add_header();
    add_value("charge", outline_.charge);
    add_value("multiplicity", outline_.multiplicity);
    if (outline_.geometry) {
      const Outline::Geometry& geometry = *outline_.geometry;
      add("geometry",
          fmt::format("{} atom{}, {}  ({})", geometry.atoms, geometry.atoms == 1 ? "" : "s",
                      shortened(geometry.formula), line_text(geometry.line)));
    }
    for (const Outline::Module& module : outline_.modules) {
      add_module(module);
    }
    return joined_lines();
  }

 private:
  struct Line {
    std::string text;
    std::string_view meaning;  ///< of the name that it is about
  };

  // Meanings stand in a column, but for those of lines that are much longer than most.
  std::string joined_lines() const {
    std::size_t column = 0;
    for (const Line& line : lines_) {
      const std::size_t width = core::unicode::display_width(line.text);
      column = std::max(column, line.meaning.empty() || width > widest_text ? 0 : width);
    }
    std::string text;
    for (const Line& line : lines_) {
      text += line.text;
      const std::size_t begin = std::max(column, core::unicode::display_width(line.text)) + 2;
      if (!line.meaning.empty() && begin + least_meaning <= file_.width) {
        text.append(begin - core::unicode::display_width(line.text), ' ');
        text += core::unicode::fitted(line.meaning, file_.width - begin);
      }
      text += '\n';
    }
    return text;
  }

  void add(std::string_view what, std::string_view value) {
    lines_.push_back({fmt::format("  {:<14}{}", what, value), {}});
  }

  void add_value(std::string_view what, const std::optional<Outline::Value>& value) {
    if (value) {
      add(what,
          fmt::format("{}  ({}, {})", shortened(value->text), value->path, line_text(value->line)));
    }
  }

  void add_header() {
    if (outline_.header.empty()) {
      return;
    }
    std::string words;
    for (const Outline::Word& word : outline_.header) {
      words += (words.empty() ? "" : " ") + word.text;
    }
    add("header",
        fmt::format("{}  ({})", shortened(words), line_text(outline_.header.front().line)));
  }

  void add_module(const Outline::Module& module) {
    std::string notes;
    if (module.path != module.name) {
      notes += "  (" + core::unicode::displayable(module.path) + ')';
    }
    if (!module.known) {
      notes += "  (unknown)";
    }
    if (!module.terminated) {
      notes += "  (no $end)";
    }
    lines_.push_back(
        {fmt::format("{:>6}  ${}{}", module.line, core::unicode::displayable(module.name), notes),
         module.summary});
    add_entries(module.entries, 1);
  }

  void add_entries(const std::vector<Outline::Entry>& entries, std::size_t depth) {
    std::size_t width = 0;
    for (const Outline::Entry& entry : entries) {
      width = std::max(width, entry.values.empty() ? 0 : core::unicode::display_width(entry.name));
    }
    for (const Outline::Entry& entry : entries) {
      const std::string name = core::unicode::displayable(entry.name);
      lines_.push_back({fmt::format("{:>6}  {:{}}{:<{}}{}{}", entry.line, "", 2 * depth, name,
                                    entry.values.empty() ? 0 : width, values_text(entry.values),
                                    entry.known ? "" : "  (unknown)"),
                        entry.summary});
      add_entries(entry.children, depth + 1);
    }
  }

  const FileOutline& file_;
  const Outline& outline_;
  std::vector<Line> lines_;
};

}  // namespace

std::string outline_text(const FileOutline& file) {
  return TextWriter(file).run();
}

}  // namespace kelp::app
