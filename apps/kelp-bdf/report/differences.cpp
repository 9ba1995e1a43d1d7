// In what two inputs differ, as text and as JSON.

#include "report/differences.hpp"

#include <fmt/color.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

#include "kelp/core/unicode.hpp"
#include "report/json.hpp"

namespace kelp::app {
namespace {

using input::bdf::DifferenceKind;
using input::bdf::DifferenceSide;
using input::bdf::DifferingThing;
using input::bdf::InputDifference;

// Of a geometry that was optimised all atoms differ.
constexpr std::size_t most_atoms = 10;
constexpr std::size_t widest_change = 80;

class TextWriter {
 public:
  TextWriter(const ComparedInputs& compared, bool colour) : compared_(compared), colour_(colour) {}

  std::string run() {
    const auto& all = compared_.differences;
    if (all.empty()) {
      return {};
    }
    text_ = fmt::format("{} -> {}\n", shown(compared_.before), shown(compared_.after));
    for (std::size_t i = 0; i < all.size(); ++i) {
      const std::size_t end = end_of_atoms(i);
      if (end - i > most_atoms) {
        for (std::size_t atom = i; atom < i + most_atoms; ++atom) {
          write(all[atom]);
        }
        text_ += fmt::format("           {}: ... and {} more atoms\n", shown(all[i].path()),
                             end - i - most_atoms);
        i = end - 1;
      } else {
        write(all[i]);
      }
    }
    return text_ + fmt::format("{} difference{}\n", all.size(), all.size() == 1 ? "" : "s");
  }

 private:
  static std::string shown(std::string_view text) { return core::unicode::displayable(text); }

  // Behind the differing atoms of one geometry.
  std::size_t end_of_atoms(std::size_t at) const {
    const auto& all = compared_.differences;
    const std::string& path = all[at].path();
    while (at < all.size() && all[at].thing == DifferingThing::Atom && all[at].path() == path) {
      ++at;
    }
    return at;
  }

  void write(const InputDifference& difference) {
    const std::string before = words_of(difference.before);
    const std::string after = words_of(difference.after);
    const std::string arrow = before.empty() || after.empty() ? "" : " -> ";
    const bool is_short = before.find('\n') == std::string::npos &&
                          after.find('\n') == std::string::npos &&
                          core::unicode::display_width(before + after) <= widest_change;
    const std::string inline_words = is_short ? before + arrow + after : "";
    text_ += fmt::format("  {} {}{}{}{}\n", kind_text(difference.kind), name_of(difference),
                         inline_words.empty() ? "" : ": ", inline_words, lines_text(difference));
    if (!is_short) {
      write_lines('-', difference.before);
      write_lines('+', difference.after);
    }
  }

  std::string kind_text(DifferenceKind kind) const {
    const std::string word = fmt::format("{:8}", to_string(kind));
    if (!colour_) {
      return word;
    }
    const auto colour = kind == DifferenceKind::Added     ? fmt::terminal_color::green
                        : kind == DifferenceKind::Removed ? fmt::terminal_color::red
                                                          : fmt::terminal_color::yellow;
    return fmt::format(fmt::fg(colour), "{}", word);
  }

  static std::string name_of(const InputDifference& difference) {
    const DifferenceSide& side = difference.after ? *difference.after : *difference.before;
    if (difference.thing == DifferingThing::Module) {
      return '$' + shown(side.path);
    }
    if (side.atom > 0) {
      return fmt::format("{}, atom {}", shown(side.path), side.atom);
    }
    return side.path.empty() ? std::string(to_string(difference.thing)) : shown(side.path);
  }

  static std::string words_of(const std::optional<DifferenceSide>& side) {
    if (!side) {
      return {};
    }
    std::string words;
    for (const std::string& line : side->lines) {
      words += (words.empty() ? "" : "\n") + shown(line);
    }
    return words;
  }

  void write_lines(char sign, const std::optional<DifferenceSide>& side) {
    if (side) {
      for (const std::string& line : side->lines) {
        text_ += fmt::format("           {} {}\n", sign, shown(line));
      }
    }
  }

  static std::string lines_text(const InputDifference& difference) {
    const std::size_t before = difference.before ? difference.before->line : 0;
    const std::size_t after = difference.after ? difference.after->line : 0;
    if (before > 0 && after > 0) {
      return fmt::format("  (lines {} and {})", before, after);
    }
    return before + after == 0 ? "" : fmt::format("  (line {})", before + after);
  }

  const ComparedInputs& compared_;
  bool colour_;
  std::string text_;
};

Json side_json(const std::optional<DifferenceSide>& side, const input::bdf::SourceText& source) {
  if (!side) {
    return nullptr;
  }
  return {{"path", text_or_null(side->path)},
          {"lines", side->lines},
          {"atom", side->atom == 0 ? Json() : Json(side->atom)},
          {"line", side->line == 0 ? Json() : Json(side->line)},
          {"range", side->line == 0 ? Json() : range_json(side->range, source)}};
}

}  // namespace

std::string differences_text(const ComparedInputs& compared, bool colour) {
  return TextWriter(compared, colour).run();
}

std::string differences_json(const ComparedInputs& compared) {
  JsonList list("differences");
  std::string text = list.begin();
  for (const InputDifference& difference : compared.differences) {
    text += list.add(json_line({{"kind", to_string(difference.kind)},
                                {"thing", to_string(difference.thing)},
                                {"path", text_or_null(difference.path())},
                                {"before", side_json(difference.before, compared.before_source)},
                                {"after", side_json(difference.after, compared.after_source)}}));
  }
  return text + list.end({{"before", compared.before}, {"after", compared.after}});
}

}  // namespace kelp::app
