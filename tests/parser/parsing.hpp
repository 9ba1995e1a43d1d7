#pragma once

// Short ways to parse a text and to write down what came of it.

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf.hpp"
#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {

/// The options that decide what becomes of a line that the schema does not know.
inline ParseOptions options(bool custom, bool validate) {
  ParseOptions made;
  made.custom_unknown_policy = custom;
  made.validate = validate;
  return made;
}

/// Everything is kept and nothing is checked.
inline ParseOptions lenient() {
  return options(true, false);
}

/// One module `m` with an entry of each kind, and a nested block with a child of each kind.
inline const InputSchema& schema_of_all_kinds() {
  static const InputSchema schema = schema_from(R"(
easy_input:
  methods: [hf]
  functionals: [b3lyp]
  control_keywords: {charge: {aliases: [q]}, maxit: {}}
modules:
  m:
    aliases: [em]
    entries:
      flag: {kind: flag, aliases: [f]}
      scalar: {}
      tuple: {kind: tuple}
      lines: {kind: multiline}
      rows: {kind: counted_rows}
      nest:
        kind: nested_block
        terminator: EndNest
        entries:
          cflag: {kind: flag, aliases: [cf]}
          cscalar: {}
          ctuple: {kind: tuple}
          clines: {kind: multiline}
          crows: {kind: counted_rows}
          cblock: {kind: terminated_block, terminator: EndCBlock}
          cnest: {kind: nested_block, terminator: EndCNest, entries: {deep: {}}}
          craw: {kind: raw}
      open: {kind: nested_block, entries: {cflag: {kind: flag}}}
      block: {kind: terminated_block, terminator: EndBlock}
      upto_blank: {kind: terminated_block}
      dollar: {kind: terminated_block, terminator: $$END}
      raw: {kind: raw}
  other: {}
)");
  return schema;
}

inline ParseResult parse(std::string_view text, const ParseOptions& options = lenient(),
                         const InputSchema& schema = schema_of_all_kinds()) {
  return BDFParser::parse_string(text, schema, options);
}

inline BDFData document(std::string_view text, const ParseOptions& options = lenient(),
                        const InputSchema& schema = schema_of_all_kinds()) {
  return parse(text, options, schema).data;
}

inline std::string_view kind_name(EntryValueKind kind) {
  constexpr std::string_view names[] = {
      "Flag",        "Scalar",      "Tuple",           "MultiLine",
      "CountedRows", "NestedBlock", "TerminatedBlock", "Raw"};
  return names[static_cast<std::size_t>(kind)];
}

/// Writes entries down, for example `scalar Scalar <1>; nest NestedBlock! {cflag Flag}; x Raw?`:
/// values stand in angles, children in braces, `!` says that the block is not terminated, `?` that
/// the schema does not know the name.
inline std::string outline(const std::vector<ModuleEntry>& entries) {
  std::string text;
  for (const ModuleEntry& entry : entries) {
    text += text.empty() ? "" : "; ";
    text += entry.name + " ";
    text += kind_name(entry.kind);
    text += entry.known ? "" : "?";
    text += entry.terminated ? "" : "!";
    for (const std::string& value : entry.values) {
      text += " <" + value + ">";
    }
    if (!entry.children.empty()) {
      text += " {" + outline(entry.children) + "}";
    }
  }
  return text;
}

/// Writes statements down, for example `Module 0; Shell <%ls>`.
inline std::string outline(const std::vector<Statement>& statements) {
  constexpr std::string_view names[] = {"Module", "Shell", "Database", "Comment", "Raw"};
  std::string text;
  for (const Statement& statement : statements) {
    text += text.empty() ? "" : "; ";
    text += names[static_cast<std::size_t>(statement.kind)];
    if (statement.module_index != Statement::no_module) {
      text += " " + std::to_string(statement.module_index);
    }
    for (const std::string& line : statement.lines) {
      text += " <" + line + ">";
    }
  }
  return text;
}

/// Writes a place down as `line:column+length`.
inline std::string place(const std::optional<SourceSpan>& span) {
  return span ? std::to_string(span->line) + ":" + std::to_string(span->column) + "+" +
                    std::to_string(span->length)
              : "nowhere";
}

}  // namespace kelp::input::bdf
