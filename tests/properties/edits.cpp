#include "edits.hpp"

#include <sstream>
#include <utility>

#include "input_text.hpp"

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

void show(std::ostream& out, const std::string& text) {
  rc::show(text, out);
}
void show(std::ostream& out, const Lines& lines) {
  rc::show(lines, out);
}
template <typename T>
void show(std::ostream& out, const T& number) {
  out << number;
}

template <typename... Arguments>
std::string call(const std::string& name, const Arguments&... arguments) {
  std::ostringstream out;
  out << name << '(';
  const char* separator = "";
  ((out << std::exchange(separator, ", "), show(out, arguments)), ...);
  out << ')';
  return out.str();
}

AtomRecord some_atom() {
  AtomRecord atom;
  atom.element = pick_text({"H", "He", "O1"});
  atom.x = pick(std::vector<double>{0.0, -0.0, 1.5, -1e-11, 12345.678901});
  atom.y = (pick_number(2000) - 1000) / 7.0;
  atom.z = (pick_number(2000) - 1000) / 3.0;
  return atom;
}

Edit set_geometry() {
  std::vector<AtomRecord> atoms;
  for (int left = pick_number(3); left > 0; --left) {
    atoms.push_back(some_atom());
  }
  return {call("set_cartesian_geometry", atoms.size()),
          [=](BDFEditor& editor) { editor.set_cartesian_geometry(atoms); }};
}

Edit set_charge() {
  const int charge = pick_number(7) - 3;
  const int multiplicity = pick_number(4);
  return {call("set_charge_and_multiplicity", charge, multiplicity),
          [=](BDFEditor& editor) { editor.set_charge_and_multiplicity(charge, multiplicity); }};
}

/// Where the arguments of an edit come from.
struct Source {
  std::function<std::string()> module;
  std::function<std::pair<std::string, std::string>()> module_and_entry;
  std::function<Lines(const std::string&)> values;
  std::function<std::string()> word;
  std::function<std::string()> keyword;
  std::function<std::string()> value;
  std::function<Lines(StatementKind)> lines;
  std::function<std::string()> script;
  bool raw_statements;
};

std::size_t small_index() {
  return static_cast<std::size_t>(pick_number(3));
}

Edit module_edit(const Source& source) {
  const std::string name = source.module();
  const std::size_t index = small_index();
  switch (pick_number(4)) {
    case 0:
      return {call("append_module", name), [=](BDFEditor& e) { e.append_module(name); }};
    case 1:
      return {call("upsert_module", name), [=](BDFEditor& e) { e.upsert_module(name); }};
    case 2:
      return {call("remove_module", name, index),
              [=](BDFEditor& e) { e.remove_module(name, index); }};
    default:
      return {call("remove_module", name), [=](BDFEditor& e) { e.remove_module(name); }};
  }
}

Edit entry_edit(const Source& source) {
  const std::pair<std::string, std::string> names = source.module_and_entry();
  const std::string module = names.first;
  const std::string name = names.second;
  const Lines values = source.values(name);
  const std::size_t index = small_index();
  switch (pick_number(4)) {
    case 0:
      return {call("append_module_entry", module, name, values, index),
              [=](BDFEditor& e) { e.append_module_entry(module, name, values, index); }};
    case 1:
      return {call("set_module_entry", module, index, name, values),
              [=](BDFEditor& e) { e.set_module_entry(module, index, name, values); }};
    case 2:
      return {call("remove_module_entry", module, index, name),
              [=](BDFEditor& e) { e.remove_module_entry(module, index, name, std::nullopt); }};
    default:
      return {call("remove_module_entry", module, 0, name, index),
              [=](BDFEditor& e) { e.remove_module_entry(module, 0, name, index); }};
  }
}

Edit header_edit(const Source& source) {
  const std::string word = source.word();
  const std::string key = source.keyword();
  const std::string value = source.value();
  switch (pick_number(6)) {
    case 0:
      return {call("add_easy_token", word), [=](BDFEditor& e) { e.add_easy_token(word); }};
    case 1: {
      const Lines words = {word, source.word(), source.word()};
      return {call("set_easy_tokens", words), [=](BDFEditor& e) { e.set_easy_tokens(words); }};
    }
    case 2:
      return {call("set_easy_keyword", key, value),
              [=](BDFEditor& e) { e.set_easy_keyword(key, value); }};
    case 3:
      return {call("set_easy_keyword", key),
              [=](BDFEditor& e) { e.set_easy_keyword(key, std::nullopt); }};
    case 4:
      return {call("remove_easy_keyword", key), [=](BDFEditor& e) { e.remove_easy_keyword(key); }};
    default: {
      const std::string script = source.script();
      return {call("set_script_name", script), [=](BDFEditor& e) { e.set_script_name(script); }};
    }
  }
}

Edit side_edit(const Source& source) {
  switch (pick_number(source.raw_statements ? 3 : 2)) {
    case 0: {
      const std::string line = source.lines(StatementKind::Shell).front();
      return {call("append_shell_statement", line),
              [=](BDFEditor& e) { e.append_shell_statement(line); }};
    }
    case 1: {
      const Lines lines = source.lines(StatementKind::Database);
      return {call("append_database_statement", lines),
              [=](BDFEditor& e) { e.append_database_statement(lines); }};
    }
    default: {
      const Lines lines = source.lines(StatementKind::Raw);
      return {call("append_raw_statement", lines),
              [=](BDFEditor& e) { e.append_raw_statement(lines); }};
    }
  }
}

Edit edit_from(const Source& source) {
  switch (pick_number(9)) {
    case 0:
    case 1:
      return module_edit(source);
    case 2:
    case 3:
    case 4:
      return entry_edit(source);
    case 5:
      return header_edit(source);
    case 6:
      return side_edit(source);
    case 7:
      return set_charge();
    default:
      return set_geometry();
  }
}

std::pair<std::string, std::string> known_entry() {
  if (pick_number(4) == 0) {
    return {"compass", pick_text({"title", "basis", "geometry", "skeleton"})};
  }
  return {pick_text({"scf", "HFSCF"}), pick_text({"charge", "CHG", "spinmulti", "rhf", "occupied",
                                                  "guess", "rows", "text", "grid"})};
}

Lines fitting_lines(StatementKind kind) {
  switch (kind) {
    case StatementKind::Shell:
      return {pick_text({"%new", " %new line "})};
    case StatementKind::Database:
      return {"&database", "new", "&end"};
    default:
      return {pick_text({"new line", "&x", "$end"})};
  }
}

Source fitting_source(bool module_input) {
  return {
      [] {
        return pick_text({"scf", "HFSCF", "$Compass", "extra", "NewMod"});
      },
      known_entry,
      [](const std::string& entry) { return fitting_values(entry == "CHG" ? "charge" : entry); },
      header_word,
      [] {
        return pick_text({"charge", "CHG", "maxiter", "direct", "newkey"});
      },
      [] {
        return pick_text({"1", " -2 ", "a=b", "Mixed"});
      },
      fitting_lines,
      [] {
        return pick_text({"run.sh", " #! two words ", "", "#!"});
      },
      !module_input};
}

Lines any_lines() {
  Lines lines;
  for (int left = pick_number(4); left > 0; --left) {
    lines.push_back(any_text());
  }
  return lines;
}

Source any_source() {
  const auto value = [] { return any_text(); };
  return {any_text,
          [] { return chance() ? known_entry() : std::pair(any_text(), any_text()); },
          [](const std::string&) { return any_lines(); },
          any_text,
          any_text,
          value,
          [](StatementKind kind) {
            return kind == StatementKind::Shell ? Lines{any_text()} : any_lines();
          },
          any_text,
          true};
}

Edit change_of_mode() {
  const auto mode = static_cast<InputMode>(pick_number(3));
  return {call("set_mode", static_cast<int>(mode)), [=](BDFEditor& e) { e.set_mode(mode); }};
}

}  // namespace

std::string any_text() {
  static const Lines words = {"",
                              "$",
                              "$$",
                              "$ ",
                              "#",
                              "#!",
                              "=",
                              "/",
                              "*",
                              "%",
                              "\n",
                              "\r",
                              "\t",
                              " ",
                              "a",
                              "Z",
                              "1",
                              "scf",
                              "compass",
                              "geometry",
                              "charge",
                              "$end",
                              "&end",
                              "hf",
                              "b3lyp",
                              "\xC3\xA4",
                              "\xFF",
                              "\x80",
                              "end geometry",
                              std::string(1, '\0')};
  std::string text;
  for (int left = pick_number(5); left > 0; --left) {
    text += pick(words);
  }
  return text;
}

rc::Gen<Edit> fitting_edit(bool module_input) {
  return rc::gen::exec([module_input] { return edit_from(fitting_source(module_input)); });
}

rc::Gen<Edit> any_edit() {
  return rc::gen::exec(
      [] { return pick_number(12) == 0 ? change_of_mode() : edit_from(any_source()); });
}

}  // namespace kelp::input::bdf
