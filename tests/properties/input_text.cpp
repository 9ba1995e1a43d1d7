#include "input_text.hpp"

#include <map>
#include <utility>

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

const Lines value_lines = {"1", " 2 3\t", "x y", "# note", "\xC3\xA4", "*", "a=b", "1.0D0", "$"};

Lines some_of(const Lines& choices, int fewer_than) {
  Lines lines;
  for (int left = pick_number(fewer_than); left > 0; --left) {
    lines.push_back(pick(choices));
  }
  return lines;
}

Lines free_values() {
  Lines lines = some_of(value_lines, 4);
  if (chance()) {
    lines.insert(lines.begin() + pick_number(static_cast<int>(lines.size()) + 1), "");
  }
  return lines;
}

void append(Lines& lines, const Lines& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

class TextMaker {
 public:
  explicit TextMaker(const TextStyle& style) : style_(style) {}

  std::string make() {
    if (style_.module_input) {
      append(lines_, some_of({"# about", " * about", ""}, 3));
      lines_.push_back(pick_text({"%date", "$scf", "$compass", "&database"}));
      finish_first_line();
    } else {
      add_easy_part();
    }
    for (int left = pick_number(6); left > 0; --left) {
      add_body_item();
    }
    std::string text;
    const std::string line_end = pick_text({"\n", "\n", "\r\n"});
    for (const std::string& line : lines_) {
      text += line + line_end;
    }
    return text;
  }

 private:
  void finish_first_line() {
    const std::string first = lines_.back();
    if (first == "&database") {
      append(lines_, {"anything", "&END"});
    } else if (first.front() == '$') {
      add_module_body(first == "$scf");
    }
  }

  void add_easy_part() {
    append(lines_, some_of({"", "# before", "* before"}, 3));
    append(lines_, some_of({"#!run.sh", "#! two words ", "#!"}, 2));
    for (int left = pick_number(3); left > 0; --left) {
      append(lines_, some_of({"", "  # between", "*between"}, 2));
      add_header_line();
    }
    if (lines_.empty()) {
      lines_.emplace_back("#!");
    }
    if (chance()) {
      lines_.push_back(pick_text({"Geometry", " GEOMETRY # here", "geometry\t"}));
      append(lines_, some_of({"He 0 0 0", " O 1.5 -2.25 1.0D-1 extra", "H 1e3 0.00000000005 -0.0",
                              "", "# note", "file.xyz", "C 1 2", "X inf nan -1d2"},
                             6));
      lines_.push_back(pick_text({"End Geometry", " end geometry ", "END GEOMETRY!"}));
    } else {
      lines_.emplace_back("%after");
    }
  }

  void add_header_line() {
    std::string line = pick_text({"", " ", "\t"}) + header_word();
    for (int left = pick_number(3); left > 0; --left) {
      line += pick_text({" ", "  ", "\t"}) + header_word();
    }
    lines_.push_back(line);
  }

  void add_body_item() {
    const int item = pick_number(style_.module_input ? 5 : 7);
    if (item == 0) {
      lines_.push_back(pick_text({"%date", "  %echo $x "}));
    } else if (item == 1) {
      append(lines_, {"&Database", " anything", "", "$scf", " &end "});
    } else if (item >= 5) {
      lines_.push_back(pick_text({"", "stray", "# note", "* note", "$end", " Geometry", "#!x"}));
    } else {
      add_module();
    }
  }

  void add_module() {
    const int which = pick_number(5);
    if (which == 0) {
      lines_.push_back(pick_text({"$MyMod", " $my mod # x"}));
      append(lines_, some_of({"Foo", "bar 1", "  indented", "# note", ""}, 5));
      add_end();
    } else if (which == 1) {
      lines_.push_back(pick_text({"$Extra", "$extra\t"}));
      add_end();
    } else if (which == 2) {
      lines_.emplace_back("$Compass");
      add_module_body(false);
    } else {
      lines_.push_back(pick_text({"$scf", " $SCF ", "$hfscf"}));
      add_module_body(true);
    }
  }

  void add_end() {
    if (chance()) {
      lines_.push_back(pick_text({"$end", "$END", "  $End "}));
    } else {
      lines_.emplace_back("$next");
      lines_.emplace_back("$end");
    }
  }

  void add_module_body(bool scf) {
    append(lines_, some_of({"# first", "", " odd line"}, 3));
    if (chance()) {
      append(lines_, {"Unheard 1", "  its value"});
    }
    for (int left = pick_number(5); left > 0; --left) {
      if (scf) {
        add_scf_entry();
      } else {
        add_entry(pick_text({"title", "basis", "geometry", "skeleton"}));
      }
      if (!style_.tidy && chance()) {
        append(lines_, some_of({"# after", "", "  odd", "Odd"}, 3));
      }
    }
    add_end();
  }

  void add_scf_entry() {
    const std::string entry = pick_text(
        {"charge", "spinmulti", "rhf", "occupied", "guess", "rows", "text", "kept", "grid"});
    if (entry == "grid") {
      add_grid();
    } else if (entry == "kept") {
      append(lines_, {"Kept as read"});
      append(lines_, some_of({"  indented", "# note", ""}, 3));
    } else {
      add_entry(entry);
    }
  }

  void add_entry(const std::string& entry) {
    std::string keyword = entry;
    if (chance()) {
      keyword.front() = static_cast<char>(keyword.front() - 'a' + 'A');
      keyword += " and more";
    }
    lines_.push_back(pick_text({"", "  ", "\t"}) +
                     (entry == "charge" && chance() ? "CHG" : keyword));
    append(lines_, style_.tidy || chance() ? fitting_values(entry) : free_values());
    if ((entry == "text" || entry == "geometry") && (style_.tidy || chance())) {
      lines_.push_back(entry == "text" ? "  ENDTEXT" : "end geometry");
    }
  }

  void add_grid() {
    lines_.push_back(pick_text({"grid", " GRID x"}));
    for (int left = pick_number(4); left > 0; --left) {
      const int child = pick_number(style_.unknown_children ? 5 : 4);
      if (child == 0) {
        append(lines_, {"NPoints", "300"});
      } else if (child == 1) {
        lines_.emplace_back("fine");
      } else if (child == 2) {
        append(lines_, {"Atoms", "C 1", "", "endgrid", " EndAtoms"});
      } else if (child == 3) {
        lines_.emplace_back("# in the grid");
      } else {
        lines_.push_back(pick_text({"what", "  is this", ""}));
      }
    }
    if (style_.tidy || !style_.unknown_children || pick_number(4) != 0) {
      lines_.push_back(pick_text({"endgrid", "  EndGrid "}));
    }
  }

  TextStyle style_;
  Lines lines_;
};

}  // namespace

std::vector<std::string> fitting_values(const std::string& entry) {
  static const std::map<std::string, int> fixed = {{"rhf", 0}, {"skeleton", 0}, {"grid", 0}};
  if (fixed.count(entry) != 0) {
    return {};
  }
  if (entry == "rows") {
    const Lines rows = some_of({"1 2", "charge", " # note", ""}, 4);
    Lines lines = {' ' + std::to_string(rows.size())};
    append(lines, rows);
    return lines;
  }
  if (entry == "guess" || entry == "text" || entry == "geometry") {
    return free_values();
  }
  return {pick(value_lines)};
}

std::string header_word() {
  return pick_text({"hf/vdz", "HF/6-31G*", "b3-lyp/cc-pVDZ", "tddft/B3LYP/vdz", "hf/", "a/b/c/d",
                    "chg=1", "charge=-1", "spinmulti=2", "MaxIter=50", "direct", "Direct",
                    "unheard", "Odd=Value", "x=1/2", "\xC3\xA4", "'quoted'", "two,parts"});
}

rc::Gen<std::string> input_text(const TextStyle& style) {
  return rc::gen::exec([style] { return TextMaker(style).make(); });
}

}  // namespace kelp::input::bdf
