// An input taken apart into items. Each has a meaning, a text that is equal for two items which say
// the same however they are laid out; so that all comparisons are comparisons of texts.

#include "difference/items.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/value_path.hpp"
#include "model/easy_value_words.hpp"
#include "model/molecule_names.hpp"
#include "model/same_value.hpp"
#include "source/atom_line.hpp"

namespace kelp::input::bdf {
namespace {

// Parts of a meaning that no text of a line can hold.
constexpr char line_mark = '\n';
constexpr char part_mark = '\r';

std::string meaning_of_lines(const std::vector<std::string>& lines) {
  std::string meaning;
  for (const std::string& line : lines) {
    meaning += normal_value_line(line) + line_mark;
  }
  return meaning;
}

// The order of what is put together carries no meaning, but for that of what has one name.
std::string meaning_of_parts(const std::vector<Item>& parts) {
  std::vector<const Item*> sorted;
  for (const Item& part : parts) {
    sorted.push_back(&part);
  }
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const Item* left, const Item* right) { return left->key < right->key; });
  std::string meaning;
  for (const Item* part : sorted) {
    meaning += part->key + line_mark + part->meaning + part_mark;
  }
  return meaning;
}

class Taker {
 public:
  Taker(const ParsedInput& input, bool in_angstrom)
      : input_(input),
        data_(input.data()),
        paths_(input.data()),
        in_angstrom_(in_angstrom),
        scale_(in_angstrom && molecule_of(input).unit == LengthUnit::Bohr ? angstrom_per_bohr
                                                                          : 1.0) {}

  Items run() {
    Items items;
    if (data_.mode != InputMode::Module) {
      items.words.push_back(script_name());
    }
    take_words(items.words);
    items.geometry = lines_of_geometry(RecordId::of(RecordKind::Geometry, 0));
    for (std::size_t i = 0; i < data_.statements.size(); ++i) {
      take_statement(data_.statements[i], RecordId::of(RecordKind::Statement, i), items.sequence);
    }
    return items;
  }

 private:
  std::string text_of(const TextRange& range) const {
    return std::string(input_.source().text_of(range));
  }

  Item item(DifferingThing thing, std::string key, const RecordId& record) const {
    Item made;
    made.thing = thing;
    made.key = std::move(key);
    made.side.path = paths_.path_of(record);
    made.side.record = record;
    made.side.line = input_.first_line(record);
    made.side.range = input_.range(record);
    return made;
  }

  Item script_name() const {
    Item made;
    made.thing = DifferingThing::ScriptName;
    made.key = "#!";
    made.meaning = data_.script_name;
    made.side.lines = {data_.script_name};
    for (std::size_t number = 1; number <= input_.source().line_count(); ++number) {
      if (input_.line(number).role == LineRole::ScriptLine) {
        made.side.line = number;
        made.side.range = input_.source().full_line_range(number);
        break;
      }
    }
    return made;
  }

  void take_words(std::vector<Item>& words) const {
    std::vector<std::string_view> texts;
    for (const EasyToken& token : data_.easy_tokens) {
      texts.emplace_back(token.text);
    }
    for (std::size_t i = 0; i < data_.easy_tokens.size(); ++i) {
      if (data_.easy_tokens[i].category == "method_spec") {
        take_specification(i, words);
      } else if (!paths_.path_of(RecordId::of(RecordKind::EasyToken, i)).empty()) {
        const EasyKeyword keyword = {
            i, i + 1 + count_easy_value_words(std::span(texts).subspan(i), input_.schema(), false)};
        words.push_back(header_word(keyword));
        i = keyword.last - 1;
      }
    }
  }

  Item header_word(const EasyKeyword& keyword) const {
    const EasyToken& token = data_.easy_tokens[keyword.first];
    Item made = item(DifferingThing::HeaderWord, input_.schema().canonical_easy_key(token.key),
                     RecordId::of(RecordKind::EasyToken, keyword.first));
    made.side.range.end = input_.token_ranges(keyword.last - 1).whole.end;
    const std::string value = easy_value(data_, keyword);
    if (!value.empty()) {
      made.side.lines = {value};
    }
    made.meaning = meaning_of_lines(made.side.lines);
    return made;
  }

  void take_specification(std::size_t token, std::vector<Item>& words) const {
    const SpecificationRanges ranges = input_.specification_ranges(token);
    const InputSchema& schema = input_.schema();
    take_part("method", schema.canonical_method(text_of(ranges.method)), ranges.method, token,
              words);
    take_part("functional", schema.canonical_functional(text_of(ranges.functional)),
              ranges.functional, token, words);
    take_part("basis", schema.canonical_basis(text_of(ranges.basis)), ranges.basis, token, words);
  }

  void take_part(const char* name, std::string meaning, const TextRange& range, std::size_t token,
                 std::vector<Item>& words) const {
    if (range.empty()) {
      return;
    }
    Item made = item(DifferingThing::HeaderWord, name, RecordId::of(RecordKind::EasyToken, token));
    ValuePath path;
    path.kind = PathKind::EasyKeyword;
    path.name = name;
    made.side.path = to_string(path);
    made.side.lines = {text_of(range)};
    made.side.range = range;
    made.meaning = std::move(meaning);
    words.push_back(std::move(made));
  }

  void take_statement(const Statement& statement, const RecordId& record,
                      std::vector<Item>& sequence) {
    if (statement.kind == StatementKind::Module) {
      sequence.push_back(module(statement.module_index));
      return;
    }
    if (statement.kind == StatementKind::Comment) {
      return;
    }
    std::vector<std::string> lines;
    for (const std::string& line : statement.lines) {
      if (std::string text = core::text::trim(line); !text.empty()) {
        lines.push_back(std::move(text));
      }
    }
    if (!lines.empty()) {
      Item made = item(DifferingThing::Statement, {}, record);
      made.meaning = core::text::join(lines, "\n");
      made.side.lines = std::move(lines);
      sequence.push_back(std::move(made));
    }
  }

  Item module(std::size_t index) const {
    const Module& module = data_.modules[index];
    Item made = item(DifferingThing::Module, '$' + module.name, RecordId::of_module(index));
    for (std::size_t i = 0; i < module.entries.size(); ++i) {
      take_entry(module.entries[i], RecordId::of_entry(index, i), made.parts);
    }
    made.meaning = made.key + line_mark + meaning_of_parts(made.parts);
    return made;
  }

  // Comments and blank lines of a module are kept as entries, too.
  bool says_something(const RecordId& record) const {
    const LineRole role = input_.line(input_.first_line(record)).role;
    return role != LineRole::Comment && role != LineRole::Blank;
  }

  void take_entry(const ModuleEntry& entry, const RecordId& record,
                  std::vector<Item>& parts) const {
    if (!says_something(record)) {
      return;
    }
    Item made = item(DifferingThing::Entry, core::text::to_lower(entry.name), record);
    if (is_geometry_entry(entry)) {
      made.atoms = lines_of_geometry(record);
    }
    for (std::size_t i = 0; i < entry.children.size(); ++i) {
      take_entry(entry.children[i], RecordId::of_child(record.index, record.entry, i), made.parts);
    }
    made.side.lines = lines_of(entry, record);
    made.meaning = meaning_of_entry(entry, made);
    parts.push_back(std::move(made));
  }

  std::vector<std::string> lines_of(const ModuleEntry& entry, const RecordId& record) const {
    std::vector<std::string> lines;
    // What stands behind a word that nobody knows may be its value.
    const TextRange behind = input_.behind_keyword(record);
    if (!entry.known && !behind.empty()) {
      lines.push_back(text_of(behind));
    }
    for (const TextRange& range : input_.value_ranges(record)) {
      lines.push_back(text_of(range));
    }
    for (std::size_t i = 0; i < entry.children.size(); ++i) {
      const RecordId child = RecordId::of_child(record.index, record.entry, i);
      if (says_something(child)) {
        lines.push_back(entry.children[i].name);
        for (const std::string& line : lines_of(entry.children[i], child)) {
          lines.push_back("  " + line);
        }
      }
    }
    return lines;
  }

  static std::string meaning_of_entry(const ModuleEntry& entry, const Item& made) {
    if (!made.parts.empty()) {
      return meaning_of_parts(made.parts);
    }
    if (is_geometry_entry(entry)) {
      std::string meaning;
      for (const Item& atom : made.atoms) {
        meaning += atom.meaning + line_mark;
      }
      return meaning;
    }
    return meaning_of_lines(made.side.lines);
  }

  // Those between the first and the last line of a block.
  std::vector<Item> lines_of_geometry(const RecordId& record) const {
    std::vector<Item> lines;
    std::size_t atoms = 0;
    const std::size_t last = input_.last_line(record);
    for (std::size_t number = input_.first_line(record) + 1; number <= last; ++number) {
      const TextRange comment = input_.comment_range(number);
      const TextRange line = input_.source().line_range(number);
      const TextRange words =
          input_.source().trimmed({line.begin, comment.empty() ? line.end : comment.begin});
      if (!words.empty() && number != input_.end_line(record) && !is_comment(number)) {
        lines.push_back(line_of_geometry(number, words, record, atoms));
      }
    }
    return lines;
  }

  bool is_comment(std::size_t number) const {
    return input_.line(number).role == LineRole::Comment;
  }

  Item line_of_geometry(std::size_t number, const TextRange& words, const RecordId& record,
                        std::size_t& atoms) const {
    const std::string text = text_of(words);
    const AtomLine atom = read_atom_line(text);
    Item made =
        item(atom.is_atom() ? DifferingThing::Atom : DifferingThing::GeometryLine, {}, record);
    made.key = to_string(made.thing);
    made.side.record = input_.line(number).record;
    made.side.lines = {text};
    made.side.line = number;
    made.side.range = input_.source().full_line_range(number);
    made.side.atom = atom.is_atom() ? ++atoms : 0;
    made.meaning = atom.is_atom() ? meaning_of_atom(atom, text) : normal_value_line(text);
    return made;
  }

  // What follows the coordinates counts as well.
  std::string meaning_of_atom(const AtomLine& atom, std::string_view text) const {
    std::string meaning = core::text::to_lower(atom.label);
    for (const double coordinate : atom.position) {
      meaning += ' ' + core::number::to_text(comparable(coordinate));
    }
    const std::string_view last = atom.fields.back();
    const std::size_t end = static_cast<std::size_t>(last.data() - text.data()) + last.size();
    return meaning + ' ' + normal_value_line(text.substr(end));
  }

  double comparable(double coordinate) const {
    if (!in_angstrom_) {
      return coordinate == 0.0 ? 0.0 : coordinate;
    }
    constexpr double digits = 1e6;
    const double rounded = std::round(coordinate * scale_ * digits) / digits;
    return rounded == 0.0 ? 0.0 : rounded;
  }

  const ParsedInput& input_;
  const BDFData& data_;
  PathIndex paths_;
  bool in_angstrom_;
  double scale_;
};

}  // namespace

Items items_of(const ParsedInput& input, bool in_angstrom) {
  return Taker(input, in_angstrom).run();
}

}  // namespace kelp::input::bdf
