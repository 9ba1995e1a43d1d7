#include "read_back.hpp"

#include <array>
#include <cstdio>
#include <utility>

#include "vocabulary.hpp"

namespace kelp::input::bdf {
namespace {

Statement empty_line() {
  return {StatementKind::Raw, Statement::no_module, {""}, std::nullopt};
}

bool is_empty_line(const Statement& statement) {
  return statement.kind == StatementKind::Raw && statement.lines == std::vector<std::string>{""};
}

void drop_empty_lines_at_the_end(BDFData& data) {
  while (!data.statements.empty() && is_empty_line(data.statements.back())) {
    data.statements.pop_back();
  }
}

void drop_empty_lines(std::vector<ModuleEntry>& entries) {
  std::erase_if(entries, [](const ModuleEntry& entry) {
    return (entry.kind == EntryValueKind::Raw || !entry.known) && entry.raw_line.empty() &&
           entry.values.empty();
  });
  for (ModuleEntry& entry : entries) {
    drop_empty_lines(entry.children);
  }
}

std::string atom_line(const AtomRecord& atom) {
  std::array<char, 1200> text;
  std::snprintf(text.data(), text.size(), "%s %.10f %.10f %.10f", atom.element.c_str(), atom.x,
                atom.y, atom.z);
  return text.data();
}

ModuleEntry geometry_entry(const BDFData& data) {
  ModuleEntry entry;
  entry.name = "geometry";
  entry.kind = EntryValueKind::TerminatedBlock;
  entry.known = true;
  entry.terminator = "end geometry";
  for (const AtomRecord& atom : data.atoms) {
    entry.values.push_back(atom_line(atom));
  }
  return entry;
}

void put_compass_in_front(BDFData& data) {
  Module compass;
  compass.name = "compass";
  compass.known = true;
  data.modules.insert(data.modules.begin(), compass);
  for (Statement& statement : data.statements) {
    statement.module_index += statement.kind == StatementKind::Module ? 1 : 0;
  }
  if (!data.statements.empty()) {
    data.statements.insert(data.statements.begin(), empty_line());
  }
  data.statements.insert(data.statements.begin(), {StatementKind::Module, 0, {}, std::nullopt});
}

void move_geometry_into_compass(BDFData& data) {
  if (data.find_module("compass") == nullptr) {
    put_compass_in_front(data);
  }
  for (Module* const compass : data.find_modules("compass")) {
    if (compass->find_entry("geometry") == nullptr) {
      compass->entries.insert(compass->entries.begin(), geometry_entry(data));
      break;
    }
  }
}

void read_back_module_input(BDFData& data) {
  if (data.has_geometry) {
    move_geometry_into_compass(data);
  }
  data.has_geometry = false;
  data.atoms.clear();
  data.easy_tokens.clear();
  data.script_name = "job.bdf";
}

void read_back_easy_input(BDFData& data) {
  data.has_geometry = true;
  if (!data.statements.empty()) {
    data.statements.insert(data.statements.begin(), empty_line());
  }
}

}  // namespace

BDFData read(const std::string& text, const ParseOptions& options) {
  return BDFParser::parse_string(text, vocabulary(), options).data;
}

std::string written(const BDFData& data) {
  return BDFEditor(data, vocabulary()).render();
}

BDFData as_read_back(BDFData data) {
  drop_empty_lines_at_the_end(data);
  if (data.mode == InputMode::Module) {
    read_back_module_input(data);
  } else {
    read_back_easy_input(data);
  }
  for (Module& module : data.modules) {
    drop_empty_lines(module.entries);
    if (module.header_line.empty()) {
      module.header_line = '$' + module.name;
    }
    if (module.end_line.empty()) {
      module.end_line = "$end";
    }
  }
  data.free_lines.clear();
  for (const Statement& statement : data.statements) {
    data.free_lines.insert(data.free_lines.end(), statement.lines.begin(), statement.lines.end());
  }
  return data;
}

}  // namespace kelp::input::bdf
