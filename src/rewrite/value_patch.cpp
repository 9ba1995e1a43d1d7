// Value lines are compared from both ends; what lies between the lines that stay the same is
// replaced line by line, as far as there are lines on both sides. So a value that changes keeps its
// line, and a row that is added or taken out touches no other.

#include "rewrite/value_patch.hpp"

#include <algorithm>
#include <array>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "model/molecule_names.hpp"
#include "model/value_lines.hpp"
#include "render/render.hpp"
#include "source/atom_line.hpp"

namespace kelp::input::bdf {
namespace {

using Texts = std::vector<std::string_view>;

TextRange range_of(std::string_view part, const SourceText& source) {
  const auto begin = static_cast<std::size_t>(part.data() - source.text().data());
  return {begin, begin + part.size()};
}

// The number of digits behind the point of a number as written.
int decimals_of(std::string_view number) {
  const std::size_t point = number.find('.');
  if (point == std::string_view::npos) {
    return 0;
  }
  const std::size_t end = number.find_first_not_of("0123456789", point + 1);
  return static_cast<int>(std::min(end, number.size()) - point - 1);
}

std::string written(double value, int decimals) {
  std::string text;
  append_coordinate(text, value, decimals);
  return text;
}

// Replaces a word so that what follows it keeps its column, as far as there are blanks to take or
// to give before it.
void replace_in_column(const TextRange& word, std::string text, const SourceText& source,
                       TextPatch& patch) {
  TextRange range = word;
  std::size_t blanks = 0;
  while (range.begin > blanks && source.text()[range.begin - blanks - 1] == ' ') {
    ++blanks;
  }
  if (text.size() < word.size() && blanks > 1) {
    text.insert(0, word.size() - text.size(), ' ');
  } else if (text.size() > word.size() && blanks > 1) {
    range.begin -= std::min(blanks - 1, text.size() - word.size());
  }
  patch.replace(range, std::move(text));
}

/// Changes the value lines of one record.
class ValuePatch {
 public:
  ValuePatch(const ParsedInput& input, const RecordId& record, const std::string& indentation,
             TextPatch& patch)
      : input_(input),
        source_(input.source()),
        record_(record),
        entry_(*entry_or_child(input.data(), record)),
        indentation_(indentation),
        patch_(patch) {}

  void run(const std::vector<std::string>& values) {
    read_old_lines();
    read_new_lines(values);
    if (is_inline() && old_.size() == 1) {
      return replace_inline();
    }
    std::size_t begin = 0;
    std::size_t old_end = old_.size();
    std::size_t new_end = new_.size();
    while (begin < old_end && begin < new_end && same(begin, begin)) {
      ++begin;
    }
    while (begin < old_end && begin < new_end && same(old_end - 1, new_end - 1)) {
      --old_end;
      --new_end;
    }
    replace(begin, old_end, new_end);
  }

 private:
  struct OldLine {
    std::size_t number;
    TextRange range;  ///< without comment and white space around it
  };

  // Every line of a free block counts; elsewhere blank lines and comments say nothing.
  bool counts(std::string_view cleaned) const {
    return entry_.kind == EntryValueKind::TerminatedBlock || !cleaned.empty();
  }

  void read_old_lines() {
    for (std::size_t i = 0; i < entry_.values.size(); ++i) {
      const TextRange range = input_.value_range(record_, i);
      if (counts(source_.text_of(range))) {
        old_.push_back({input_.value_line(record_, i), range});
      }
    }
    is_cartesian_ = is_geometry_entry(entry_) &&
                    std::all_of(old_.begin(), old_.end(), [&](const OldLine& line) {
                      return line.range.empty() || is_atom(source_.text_of(line.range));
                    });
  }

  static bool is_atom(std::string_view line) { return read_atom_line(line).is_atom(); }

  void read_new_lines(const std::vector<std::string>& values) {
    for (const std::string& value : values) {
      if (counts(clean_value_line(value))) {
        new_.push_back(core::text::trim_view(value));
      }
    }
  }

  bool same(std::size_t old_index, std::size_t new_index) const {
    return source_.text_of(old_[old_index].range) == clean_value_line(new_[new_index]);
  }

  bool is_inline() const {
    return !old_.empty() && old_.front().number == input_.first_line(record_);
  }

  // A value on its keyword's line stays there when it is one again.
  void replace_inline() {
    const TextRange old_value = old_.front().range;
    if (new_.size() == 1) {
      patch_.replace(old_value, std::string(clean_value_line(new_.front())));
      return;
    }
    patch_.replace({input_.keyword_range(record_).end, old_value.end}, {});
    insert(input_.first_line(record_), 0, new_.size());
  }

  void replace(std::size_t begin, std::size_t old_end, std::size_t new_end) {
    const std::size_t both = std::min(old_end, new_end);
    for (std::size_t i = begin; i < both; ++i) {
      replace_line(i);
    }
    for (std::size_t i = both; i < old_end; ++i) {
      remove(old_[i]);
    }
    insert(line_before(both), both, new_end);
  }

  void remove(const OldLine& line) {
    lose_comment(line);
    patch_.remove_lines(line.number, line.number);
  }

  // A row of values takes its comment along, and a value that brings a comment replaces the old
  // one; of atoms that come from elsewhere nobody knows what was said of them.
  void lose_comment(const OldLine& line) {
    if (is_geometry_entry(entry_)) {
      patch_.lose(input_.comment_range(line.number));
    }
  }

  // The line behind which the value lines from `index` on go.
  std::size_t line_before(std::size_t index) const {
    return index == 0 ? input_.first_line(record_) : old_[index - 1].number;
  }

  void insert(std::size_t behind, std::size_t begin, std::size_t end) {
    std::vector<std::string> lines;
    for (std::size_t i = begin; i < end; ++i) {
      const bool is_alone = old_.empty() || old_.back().number == input_.first_line(record_);
      const std::string& indentation =
          is_alone ? indentation_ : std::string(indentation_at(old_.back().number));
      lines.push_back(new_[i].empty() ? std::string() : indentation + std::string(new_[i]));
    }
    patch_.insert_lines(behind, lines);
  }

  std::string_view indentation_at(std::size_t number) const {
    const TextRange line = source_.line_range(number);
    return source_.text_of({line.begin, source_.content(number).begin});
  }

  void replace_line(std::size_t index) {
    const OldLine& line = old_[index];
    const std::string_view text = new_[index];
    const std::string_view cleaned = clean_value_line(text);
    if (source_.text_of(line.range) == cleaned) {
      return;
    }
    // A comment of its own, or an empty line, is none to write a value on.
    if (line.range.empty() || cleaned.empty()) {
      remove(line);
      insert(line.number, index, index + 1);
      return;
    }
    // Of internal coordinates no number means anything alone.
    if (is_cartesian_ && is_atom(text)) {
      return patch_atom(input_, line.range, atom_of(read_atom_line(text)), patch_);
    }
    if (is_geometry_entry(entry_) || cleaned.size() < text.size()) {
      lose_comment(line);
      patch_.replace({line.range.begin, source_.line_range(line.number).end}, std::string(text));
    } else {
      patch_.replace(line.range, std::string(text));
    }
  }

  const ParsedInput& input_;
  const SourceText& source_;
  const RecordId& record_;
  const ModuleEntry& entry_;
  const std::string& indentation_;
  TextPatch& patch_;
  std::vector<OldLine> old_;
  Texts new_;
  bool is_cartesian_ = false;
};

}  // namespace

void patch_values(const ParsedInput& input, const RecordId& record,
                  const std::vector<std::string>& values, const std::string& indentation,
                  TextPatch& patch) {
  ValuePatch(input, record, indentation, patch).run(values);
}

void patch_atom(const ParsedInput& input, const TextRange& range, const AtomRecord& atom,
                TextPatch& patch) {
  const SourceText& source = input.source();
  const AtomLine old = read_atom_line(source.text_of(range));
  if (!same_element(old.label, atom.element)) {
    // What stands behind the coordinates was said of another atom.
    const TextRange line = source.line_range(source.line_at(range.begin));
    const TextRange rest = {range_of(old.fields.back(), source).end, line.end};
    patch.replace(range_of(old.label, source), atom.element);
    patch.lose(source.trimmed(rest));
    patch.replace(rest, {});
  }
  const std::array<double, 3> position = {atom.x, atom.y, atom.z};
  for (std::size_t i = 0; i < position.size(); ++i) {
    const int decimals = std::max(coordinate_decimals, decimals_of(old.fields[i]));
    std::string text = written(position[i], decimals);
    if (position[i] != old.position[i] && text != written(old.position[i], decimals)) {
      replace_in_column(range_of(old.fields[i], source), std::move(text), source, patch);
    }
  }
}

bool same_element(std::string_view left, std::string_view right) {
  return left == right || (!element_of(left).empty() && element_of(left) == element_of(right));
}

std::string atom_line(const AtomRecord& atom, std::string_view indentation) {
  std::string line = std::string(indentation) + atom.element;
  for (const double coordinate : {atom.x, atom.y, atom.z}) {
    line += ' ';
    append_coordinate(line, coordinate);
  }
  return line;
}

}  // namespace kelp::input::bdf
