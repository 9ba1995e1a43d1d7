#pragma once

// A small vocabulary and short ways to build documents and to say what they hold, shared by the
// tests of the editor.

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "kelp/input/bdf/editor.hpp"

namespace kelp::input::bdf {

using Lines = std::vector<std::string>;

inline const InputSchema& small_schema() {
  static const InputSchema schema = InputSchema::from_yaml(R"(
schema_version: 1
easy_input:
  methods: {hf: {aliases: [hartree-fock]}, tddft: {}}
  functionals: {b3lyp: {aliases: [b3-lyp]}, pbe0: {}}
  basis: {known: {cc-pvdz: {aliases: [vdz]}, def2-svp: {}}, extensible: true}
  control_keywords:
    charge: {value_type: integer, aliases: [chg]}
    spinmulti: {value_type: integer, aliases: [multiplicity]}
    maxiter: {value_type: integer, category: scf}
    direct: {kind: flag}
    b3lyp: {kind: flag}
    strange: {category: method_spec}
modules:
  compass:
    aliases: [compas]
    entries:
      title: {}
      basis: {aliases: [basisset]}
      geometry: {kind: terminated_block, terminator: End Geometry, aliases: [geom]}
      skeleton: {kind: flag}
  scf:
    aliases: [hfscf, uhfscf]
    entries:
      charge: {value_type: integer, repeatable: true, aliases: [chg]}
      spinmulti: {value_type: integer}
      rhf: {kind: flag}
      occupied: {kind: tuple}
      guess: {kind: multiline}
      rows: {kind: counted_rows}
      kept: {kind: raw}
      grid:
        kind: nested_block
        terminator: endgrid
        entries:
          points: {aliases: [npoints]}
          fine: {kind: flag}
          atoms: {kind: terminated_block, terminator: endatoms}
          inner:
            kind: nested_block
            terminator: endinner
            entries: {deep: {}}
      open: {kind: nested_block, entries: {points: {}}}
      text: {kind: terminated_block, terminator: endtext}
  extra: {repeatable: true}
)");
  return schema;
}

inline Module module_named(std::string name) {
  return BDFEditor({}, small_schema()).make_module(std::move(name));
}

/// A document of modules with these names (canonical where the schema knows them), no statements.
inline BDFData document_of(const Lines& names, InputMode mode = InputMode::Module) {
  BDFData data;
  data.mode = mode;
  for (const std::string& name : names) {
    data.modules.push_back(module_named(name));
  }
  return data;
}

inline AtomRecord atom(std::string element, double x = 0.0, double y = 0.0, double z = 0.0) {
  AtomRecord made;
  made.element = std::move(element);
  made.x = x;
  made.y = y;
  made.z = z;
  return made;
}

inline Statement module_statement(std::size_t index) {
  return {StatementKind::Module, index, {}, std::nullopt};
}

inline Statement side_statement(StatementKind kind, Lines lines) {
  return {kind, Statement::no_module, std::move(lines), std::nullopt};
}

/// One word per statement: `0` is module 0, `none` a module statement without a module,
/// `raw(a|b)` a side statement of two lines; ` @3` a location on line 3.
inline Lines order_of(const BDFData& data) {
  static const char* const kinds[] = {"module", "shell", "database", "comment", "raw"};
  Lines order;
  for (const Statement& statement : data.statements) {
    std::string text;
    if (statement.kind == StatementKind::Module) {
      text = statement.module_index == Statement::no_module
                 ? "none"
                 : std::to_string(statement.module_index);
      text += statement.lines.empty() ? "" : " with lines";
    } else {
      for (const std::string& line : statement.lines) {
        text += (text.empty() ? "" : "|") + line;
      }
      text = kinds[static_cast<std::size_t>(statement.kind)] + ('(' + text + ')');
      text += statement.module_index == Statement::no_module ? "" : " with module";
    }
    if (statement.location) {
      text += " @" + std::to_string(statement.location->line);
    }
    order.push_back(text);
  }
  return order;
}

inline Lines names_of(const std::vector<Module>& modules) {
  Lines names;
  for (const Module& module : modules) {
    names.push_back(module.name);
  }
  return names;
}

/// One word per entry: its name, then its values, such as `charge=1` or `guess=a|b`.
inline Lines entries_of(const Module& module) {
  Lines entries;
  for (const ModuleEntry& entry : module.entries) {
    std::string values;
    for (const std::string& value : entry.values) {
      values += (values.empty() ? "" : "|") + value;
    }
    entries.push_back(entry.name + '=' + values);
  }
  return entries;
}

inline Lines texts_of(const std::vector<EasyToken>& tokens) {
  Lines texts;
  for (const EasyToken& token : tokens) {
    texts.push_back(token.text);
  }
  return texts;
}

}  // namespace kelp::input::bdf
