// Parses a text, makes the edits that the bytes before it choose, and checks after each that the
// document holds together; then renders it and reads what was rendered.

#include <utility>

#include "checks.hpp"

namespace {

using namespace kelp::input::bdf;
using kelp::fuzz::Decisions;

void edit_modules(BDFEditor& editor, Decisions& decisions) {
  const unsigned what = decisions.byte();
  std::string name = decisions.text();
  switch (what % 7) {
    case 0:
      editor.append_module(std::move(name));
      break;
    case 1:
      editor.upsert_module(std::move(name));
      break;
    case 2:
      editor.remove_module(name, decisions.below(3));
      break;
    case 3:
      editor.remove_module(name);
      break;
    case 4:
      editor.append_module_entry(name, decisions.text(), {decisions.text()}, decisions.below(3));
      break;
    case 5:
      editor.set_module_entry(name, decisions.below(3), decisions.text(), {decisions.text(), "2"});
      break;
    default:
      editor.remove_module_entry(name, decisions.below(3), decisions.text(), decisions.below(3));
  }
}

void edit_header(BDFEditor& editor, Decisions& decisions) {
  const unsigned what = decisions.byte();
  std::string text = decisions.text();
  switch (what % 7) {
    case 0:
      editor.add_easy_token(std::move(text));
      break;
    case 1:
      editor.set_easy_keyword(std::move(text), decisions.text());
      break;
    case 2:
      editor.set_easy_keyword(std::move(text), std::nullopt);
      break;
    case 3:
      editor.remove_easy_keyword(text);
      break;
    case 4:
      editor.set_script_name(std::move(text));
      break;
    case 5:
      editor.set_easy_tokens({std::move(text), decisions.text()});
      break;
    default:
      editor.set_mode(static_cast<InputMode>(decisions.below(3)));
  }
}

void edit_molecule(BDFEditor& editor, Decisions& decisions) {
  AtomRecord atom;
  atom.element = decisions.text();
  atom.x = decisions.byte();
  atom.z = -1.0 / (1.0 + decisions.byte());
  editor.set_cartesian_geometry({atom, atom});
  editor.set_charge_and_multiplicity(static_cast<int>(decisions.byte()) - 100, 2);
}

void edit_side_lines(BDFEditor& editor, Decisions& decisions) {
  const unsigned what = decisions.byte();
  std::string line = decisions.text();
  switch (what % 3) {
    case 0:
      editor.append_shell_statement(std::move(line));
      break;
    case 1:
      editor.append_database_statement({"&database", std::move(line), "&end"});
      break;
    default:
      editor.append_raw_statement({std::move(line)});
  }
}

void edit(BDFEditor& editor, Decisions& decisions) {
  switch (decisions.below(4)) {
    case 0:
      return edit_modules(editor, decisions);
    case 1:
      return edit_header(editor, decisions);
    case 2:
      return edit_molecule(editor, decisions);
    default:
      return edit_side_lines(editor, decisions);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Decisions decisions(data, size);
  const InputSchema& schema = kelp::fuzz::schema(decisions.flag());
  const ParseOptions options = kelp::fuzz::parse_options(decisions);
  BDFEditor editor(BDFParser::parse_string(decisions.text(), schema, options).data, schema);
  while (decisions.left()) {
    edit(editor, decisions);
    kelp::fuzz::expect_sound(editor.data());
  }
  const std::string rendered = editor.render();
  if (rendered.empty() || rendered.back() != '\n') {
    kelp::fuzz::expect_none({"the text does not end in a line feed"});
  }
  BDFEditor(BDFParser::parse_string(rendered, schema, options).data, schema).render();
  return 0;
}
