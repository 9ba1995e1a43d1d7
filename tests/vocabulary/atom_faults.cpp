// Atom lines broken in the ways in which they are typed and pasted wrong, misspelt elements, and
// misspelt ends of blocks.

#include <algorithm>

#include "fault_writer.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::test {
namespace {

using input::bdf::Module;
using input::bdf::ModuleEntry;
using input::bdf::RecordId;
using input::bdf::RecordKind;
using input::bdf::TextRange;

/// An atom line, as far as it can be broken.
struct Atom {
  TextRange label;
  std::vector<TextRange> numbers;
};

class AtomBreaker {
 public:
  explicit AtomBreaker(FaultWriter& writer) : writer_(writer), source_(writer.input().source()) {}

  // The first, the second and the last atom: what goes wrong depends on what stands around it.
  void break_geometry(const RecordId& record) {
    const std::size_t end = writer_.input().end_line(record);
    std::vector<Atom> atoms;
    for (std::size_t number = writer_.input().first_line(record) + 1; number < end; ++number) {
      if (Atom atom = atom_on(number); !atom.label.empty()) {
        atoms.push_back(std::move(atom));
      }
    }
    for (std::size_t i = 0; i < atoms.size(); ++i) {
      if (i < 2 || i + 1 == atoms.size()) {
        misspell_element(atoms[i].label);
        if (atoms[i].numbers.size() == 3) {
          break_atom(atoms[i]);
        }
      }
    }
    if (!atoms.empty() && atoms[0].numbers.size() == 3) {
      writer_.insert("atom: XYZ head", source_.line_at(atoms[0].label.begin),
                     std::to_string(atoms.size()));
    }
  }

 private:
  Atom atom_on(std::size_t number) const {
    Atom atom;
    const std::string_view line = source_.line(number);
    std::string_view rest = line.substr(0, line.find('#'));
    const auto range_of = [&](std::string_view word) {
      const std::size_t begin =
          source_.line_range(number).begin + static_cast<std::size_t>(word.data() - line.data());
      return TextRange{begin, begin + word.size()};
    };
    const std::string_view label = core::text::take_word(rest);
    if (label.empty() || label.find('=') != std::string_view::npos || !is_element(label) ||
        core::text::trim_view(line).front() == '*') {
      return atom;
    }
    atom.label = range_of(label);
    for (auto word = core::text::take_word(rest); core::number::parse_float(word);
         word = core::text::take_word(rest)) {
      atom.numbers.push_back(range_of(word));
    }
    return atom;
  }

  // A symbol with digits behind it, or not.
  static bool is_element(std::string_view label) {
    const std::string_view letters = label.substr(0, label.find_first_of("0123456789"));
    return letters.size() == input::bdf::element_of(letters).size() && !letters.empty();
  }

  void misspell_element(const TextRange& label) {
    const std::string text = writer_.text_of(label);
    const std::size_t digits = std::min(text.find_first_of("0123456789"), text.size());
    const std::string letters = text.substr(0, digits);
    const std::string other =
        letters.size() == 2 ? std::string{letters[1], letters[0]} : letters + "x";
    for (const std::string& wrong : {other, letters + "q"}) {
      if (!is_element(wrong)) {
        writer_.replace("misspelt element", label, wrong + text.substr(digits));
      }
    }
  }

  void break_atom(const Atom& atom) {
    const std::vector<TextRange>& numbers = atom.numbers;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      const std::string text = writer_.text_of(numbers[i]);
      break_character("atom: decimal comma", numbers[i], text, ".", ",");
      break_character("atom: typographic minus", numbers[i], text, "-", "\xE2\x88\x92");
      break_character("atom: letter for zero", numbers[i], text, "0", "O");
      break_character("atom: full-width digit", numbers[i], text, "0123456789", "\xEF\xBC\x91");
    }
    writer_.replace("atom: no-break space", {atom.label.end, atom.label.end + 1}, "\xC2\xA0");
    writer_.replace("atom: missing number", {numbers[1].end, numbers[2].end}, "");
    writer_.replace("atom: word behind", {numbers[2].end, numbers[2].end}, " ! fixed");
    writer_.replace("atom: mark in the label", {atom.label.end, atom.label.end}, "-");
    writer_.replace("atom: surplus number", {numbers[2].end, numbers[2].end}, "  0.5");
    writer_.replace("atom: glued label", {atom.label.end, numbers[0].begin}, "");
    writer_.replace("atom: glued numbers", {numbers[0].end, numbers[1].begin}, "");
  }

  void break_character(std::string_view kind, const TextRange& range, std::string text,
                       std::string_view characters, const std::string& wrong) {
    if (const std::size_t at = text.find_first_of(characters); at != std::string::npos) {
      writer_.replace(kind, range, text.replace(at, 1, wrong));
    }
  }

  FaultWriter& writer_;
  const input::bdf::SourceText& source_;
};

/// Calls a function with the header's geometry, if there is one, and with each entry that is a
/// block.
template <typename Use>
void for_each_block(const FaultWriter& writer, const Use& use) {
  if (writer.input().data().has_geometry) {
    use(RecordId::of(RecordKind::Geometry, 0), std::string("end geometry"));
  }
  const std::vector<Module>& modules = writer.input().data().modules;
  for (std::size_t i = 0; i < modules.size(); ++i) {
    for (std::size_t k = 0; k < modules[i].entries.size(); ++k) {
      if (const ModuleEntry& entry = modules[i].entries[k]; !entry.terminator.empty()) {
        use(RecordId::of_entry(i, k), entry.terminator);
      }
    }
  }
}

}  // namespace

void break_atoms(FaultWriter& writer) {
  AtomBreaker breaker(writer);
  for_each_block(writer, [&](const RecordId& record, const std::string& terminator) {
    if (terminator.starts_with("end geometry")) {
      breaker.break_geometry(record);
    }
  });
}

void break_ends(FaultWriter& writer) {
  const auto misspell = [&](const RecordId& record, const std::vector<std::string>& wrong) {
    if (const std::size_t number = writer.input().end_line(record); number != 0) {
      for (const std::string& text : wrong) {
        writer.replace("misspelt terminator", writer.input().source().content(number), text);
      }
    }
  };
  for_each_block(writer, [&](const RecordId& record, const std::string& terminator) {
    const std::string name = terminator.substr(std::min(terminator.size(), std::size_t{4}));
    std::vector<std::string> wrong = {"end" + name, "end " + misspellings_of(name).back()};
    if (name == "geometry") {
      wrong.emplace_back("End Geom");
    }
    misspell(record, wrong);
  });
  for (std::size_t i = 0; i < writer.input().data().modules.size(); ++i) {
    misspell(RecordId::of_module(i), {"$edn", "end"});
  }
}

}  // namespace kelp::test
