#include "reading.hpp"

#include <fmt/format.h>

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "header_words.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "line_of.hpp"
#include "line_roles.hpp"

namespace kelp::app {
namespace {

using input::bdf::AtomRecord;
using input::bdf::BDFData;
using input::bdf::EasyToken;
using input::bdf::InputMode;
using input::bdf::Module;
using input::bdf::ModuleEntry;

constexpr std::string_view on_its_own_line = "put it on a line of its own";
constexpr std::string_view not_read =
    "what stands behind a keyword is not read; a value goes on the next line";

std::string written_coordinate(double value) {
  return fmt::format("{:.10f}", value);
}

class Reader {
 public:
  explicit Reader(const CheckedInput& input)
      : input_(input), source_(input.source), data_(input.result.data) {}

  Reading run() {
    const std::vector<LineUse> uses = line_uses(input_);
    for (std::size_t line = 1; line < uses.size(); ++line) {
      read(line, uses[line]);
    }
    read_unclosed();
    read_missing_geometry();
    return std::move(reading_);
  }

 private:
  std::string_view text(const LinePart& part) const { return source_.text_of(part); }

  void add(std::string_view prefix, std::string_view meaning, const LinePart& part) {
    reading_.pieces.push_back({fmt::format("{} {}", prefix, meaning), part});
  }

  void add_whole(const LinePart& part) {
    if (part.begin < part.end) {
      add("line", text(part), part);
    }
  }

  void depart(DepartureKind kind, const LinePart& part, std::string message, std::string_view label,
              std::string_view help = {}) {
    reading_.departures.push_back(
        {kind, part, std::move(message), std::string(label), std::string(help)});
  }

  // Returns what stands behind a word on its line.
  LinePart behind(const LinePart& word) const {
    return source_.trimmed({word.line, word.end, source_.line(word.line).size()});
  }

  // Returns the word behind a word on its line; empty behind the last one.
  LinePart next_word(const LinePart& word) const {
    LinePart next = behind(word);
    std::string_view rest = text(next);
    next.end = next.begin + core::text::take_word(rest).size();
    return next;
  }

  void lose_rest(const LinePart& word, std::string_view thing, std::string_view help) {
    const LinePart rest = behind(word);
    if (rest.begin == rest.end) {
      return;
    }
    const bool remark = text(rest).front() == '#';
    depart(DepartureKind::Loss, rest,
           fmt::format("The canonical form does not carry the {} behind '{}'.",
                       remark ? "remark" : thing, text(word)),
           "would be lost", remark ? on_its_own_line : help);
  }

  void read(std::size_t line, const LineUse& use) {
    const LinePart content = source_.content(line);
    switch (use.role) {
      case LineRole::Verbatim:
        return read_verbatim(content);
      case LineRole::ScriptLine:
        return read_script_line(content);
      case LineRole::LeadingComment:
        return read_comment(content, use);
      case LineRole::Header:
        return read_header(line);
      case LineRole::GeometryStart:
        return read_geometry_bound(content, "Geometry");
      case LineRole::Atom:
        return read_atom(content, *use.atom);
      case LineRole::GeometryLine:
        return read_geometry_line(content, use);
      case LineRole::GeometryEnd:
        return read_geometry_bound(content, "End Geometry");
      case LineRole::ModuleHeader:
        return read_module_header(content, *use.module);
      case LineRole::Keyword:
        return read_keyword(line, *use.entry);
      case LineRole::BlockEnd:
        return add("end", core::text::to_lower(text(content)), content);
    }
  }

  void read_verbatim(const LinePart& content) {
    if (core::text::equals_ignoring_case(text(content), "$end")) {
      add("end", "$end", content);
    } else {
      add_whole(content);
    }
  }

  void read_script_line(const LinePart& content) {
    const LinePart name = source_.trimmed({content.line, content.begin + 2, content.end});
    if (name.begin < name.end) {
      add("script", text(name), name);
    }
  }

  void read_comment(const LinePart& content, const LineUse& use) {
    if (!use.moves) {
      return add_whole(content);
    }
    depart(DepartureKind::Move, content,
           "The canonical form has all comments between the line '#!' and the header.",
           "would move", "put it before the header");
  }

  // Lines come in their order, as the words do.
  void read_header(std::size_t line) {
    std::size_t at = 0;
    bool remark = false;
    for (; next_token_ < data_.easy_tokens.size(); ++next_token_) {
      const EasyToken& token = data_.easy_tokens[next_token_];
      if (line_of(token) != line) {
        break;
      }
      if (remark) {
        continue;
      }
      const LinePart part = find_header_word(source_, line, at, token.text);
      const std::size_t hash = text(part).find('#');
      remark = hash != std::string_view::npos;
      if (remark) {
        read_header_remark({line, part.begin, part.begin + hash});
      } else {
        read_header_word(part, token.text);
      }
      at = part.end;
    }
  }

  void read_header_word(const LinePart& part, std::string_view token) {
    const std::string canonical = input_.schema.canonical_easy_token(token);
    if (canonical == token || knows_all_names(input_.schema, token)) {
      return add("header", canonical, part);
    }
    depart(DepartureKind::Loss, part,
           fmt::format("The canonical form writes '{}' as '{}'.", token, canonical),
           "would be written in lower case", "the schema does not know it, so its case may matter");
  }

  // A word with a remark glued to it loses the remark. A remark that stands apart is kept, and on
  // the canonical form's single line of words it swallows those of the lines that followed it.
  void read_header_remark(const LinePart& head) {
    if (head.begin < head.end) {
      read_header_word(head, text(head));
      return lose_rest(head, "remark", on_its_own_line);
    }
    for (LinePart word = next_word(head); word.begin < word.end; word = next_word(word)) {
      add("remark", text(word), word);
    }
  }

  void read_geometry_bound(const LinePart& content, std::string_view keyword) {
    const LinePart word = {content.line, content.begin, content.begin + keyword.size()};
    add("end", keyword, word);
    lose_rest(word, "text", "nothing else is read on this line");
  }

  void read_atom(const LinePart& content, const AtomRecord& atom) {
    const std::array<double, 3> coordinates = {atom.x, atom.y, atom.z};
    LinePart word = source_.first_word(content.line);
    std::string meaning = atom.element;
    for (const double coordinate : coordinates) {
      word = next_word(word);
      const std::string written = written_coordinate(coordinate);
      meaning += ' ' + written;
      check_digits(word, coordinate, written);
    }
    add("atom", meaning, content);
    lose_rest(word, "text", "an atom has a name and three coordinates");
  }

  void check_digits(const LinePart& word, double coordinate, const std::string& written) {
    const auto read_again = core::number::parse_float(written);
    const bool same = (read_again && *read_again == coordinate) || coordinate != coordinate;
    if (!same) {
      depart(DepartureKind::Loss, word,
             fmt::format("The canonical form writes ten decimals; '{}' has more.", text(word)),
             fmt::format("would become {}", written));
    }
  }

  void read_geometry_line(const LinePart& content, const LineUse& use) {
    if (!use.moves || content.begin == content.end) {
      return add_whole(content);
    }
    depart(DepartureKind::Move, content,
           "The canonical form has all atoms before the other lines of the geometry.",
           "would move behind the last atom");
  }

  // A line such as "$end # of scf" does not end a module: it is the header of another one.
  void read_module_header(const LinePart& content, const Module& module) {
    const LinePart word = source_.first_word(content.line);
    if (core::text::equals_ignoring_case(text(word), "$end")) {
      depart(DepartureKind::Addition, behind(word),
             "A '$end' with more on its line begins a module; the canonical form would add the "
             "missing '$end'.",
             "taken as part of the name", "only '$end' may stand on this line");
    }
    if (module.known) {
      add("module", module.name, content);
    } else {
      add_whole(content);
    }
  }

  void read_keyword(std::size_t line, const ModuleEntry& entry) {
    const LinePart word = source_.first_word(line);
    add("keyword", entry.name, word);
    lose_rest(word, "value", not_read);
  }

  void read_unclosed() {
    if (data_.geometry_location && !data_.geometry_terminated) {
      close_block(line_of(data_.geometry_location), "End Geometry");
    }
    for (const Module& module : data_.modules) {
      read_unclosed(module.entries);
    }
  }

  void read_unclosed(const std::vector<ModuleEntry>& entries) {
    for (const ModuleEntry& entry : entries) {
      if (entry.known && !entry.terminated && !entry.terminator.empty()) {
        close_block(line_of(entry), entry.terminator);
      }
      read_unclosed(entry.children);
    }
  }

  void close_block(std::size_t line, std::string_view terminator) {
    depart(DepartureKind::Addition, source_.first_word(line),
           "The canonical form would close this block behind all that follows it.", "not closed",
           fmt::format("add a line '{}' where it ends", terminator));
  }

  void read_missing_geometry() {
    if (data_.mode == InputMode::Module || data_.has_geometry) {
      return;
    }
    std::size_t line = 1;
    while (line < source_.line_count() &&
           source_.content(line).begin == source_.content(line).end) {
      ++line;
    }
    depart(DepartureKind::Addition, source_.content(line),
           "The input has no geometry block; the canonical form would add an empty one.",
           "read as an input with a header");
  }

  const CheckedInput& input_;
  const SourceText& source_;
  const BDFData& data_;
  std::size_t next_token_ = 0;
  Reading reading_;
};

}  // namespace

Reading read_pieces(const CheckedInput& input) {
  return Reader(input).run();
}

}  // namespace kelp::app
