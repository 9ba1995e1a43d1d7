// The frame of an input: comments, an optional script line, then either the module blocks at once
// or an easy section first, then a body of modules and of the lines between them.

#include "parser/frame.hpp"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/script_name.hpp"
#include "parser/easy_section.hpp"
#include "parser/mending.hpp"
#include "parser/module_block.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

bool is_preamble_comment(std::string_view line) {
  return is_remark(line) && !is_script_line(line);
}

std::string_view take_script_line(LineReader& reader) {
  reader.begin_record({});
  return reader.take(LineRole::ScriptLine);
}

void read_preamble(LineReader& reader, BDFData& data) {
  while (!reader.at_end()) {
    const std::string_view line = reader.line();
    if (is_preamble_comment(line)) {
      take_leading_line(reader, data);
    } else if (is_blank(line)) {
      skip_blank(reader);
    } else {
      return;
    }
  }
}

// `read` moves the lines of the statement into a list.
template <typename Read>
void add_side_statement(StatementKind kind, const LineReader& reader, BDFData& data, Read read) {
  Statement& statement = data.statements.emplace_back();
  statement.kind = kind;
  statement.location = reader.location();
  read(statement.lines);
  data.free_lines.insert(data.free_lines.end(), statement.lines.begin(), statement.lines.end());
}

void read_module(LineReader& reader, const InputSchema& schema, const ParseOptions& options,
                 BDFData& data) {
  const std::size_t index = data.modules.size();
  Module& module = data.modules.emplace_back();
  parse_module(reader, index, schema, options, module);
  Statement& statement = data.statements.emplace_back();
  statement.kind = StatementKind::Module;
  statement.module_index = index;
  statement.location = module.location;
}

void take_database(LineReader& reader, std::vector<std::string>& lines) {
  bool ended = false;
  while (!reader.at_end() && !ended) {
    ended = is_database_end(reader.line());
    lines.emplace_back(reader.take(LineRole::Database));
  }
}

struct SideLine {
  StatementKind kind;
  LineRole role;
};

SideLine classify_side_line(std::string_view line) {
  if (is_shell_line(line)) {
    return {StatementKind::Shell, LineRole::Shell};
  }
  if (is_remark(line)) {
    return {StatementKind::Comment, LineRole::Comment};
  }
  return {StatementKind::Raw, is_blank(line) ? LineRole::Blank : LineRole::Other};
}

void read_side_statement(LineReader& reader, BDFData& data) {
  using Texts = std::vector<std::string>;
  reader.begin_record(RecordId::of(RecordKind::Statement, data.statements.size()));
  if (is_database_start(reader.line())) {
    add_side_statement(StatementKind::Database, reader, data,
                       [&](Texts& lines) { take_database(reader, lines); });
    return;
  }
  const SideLine line = classify_side_line(reader.line());
  add_side_statement(line.kind, reader, data,
                     [&](Texts& lines) { lines.emplace_back(reader.take(line.role)); });
}

void read_body(LineReader& reader, const InputSchema& schema, const ParseOptions& options,
               BDFData& data) {
  while (!reader.at_end()) {
    mend_opening(reader, schema, Outside::Body);
    if (is_module_header(reader.line())) {
      read_module(reader, schema, options, data);
    } else {
      read_side_statement(reader, data);
    }
  }
}

// Reads all that follows the preamble.
void read_document(LineReader& reader, const InputSchema& schema, const ParseOptions& options,
                   BDFData& data) {
  mend_opening(reader, schema, Outside::Header);
  bool easy = !starts_body(reader.line());
  if (is_script_line(reader.line())) {
    data.script_name = normalize_script_name(take_script_line(reader));
    easy = true;
  }
  data.mode = easy ? InputMode::Easy : InputMode::Module;
  if (easy) {
    parse_easy_section(reader, schema, data);
  }
  read_body(reader, schema, options, data);
  if (easy && !data.modules.empty()) {
    data.mode = InputMode::Mixed;
  }
}

}  // namespace

void skip_blank(LineReader& reader) {
  reader.begin_record({});
  reader.skip(LineRole::Blank);
}

void take_leading_line(LineReader& reader, BDFData& data) {
  reader.begin_record(RecordId::of(RecordKind::LeadingLine, data.leading_lines.size()));
  data.leading_lines.emplace_back(reader.take(LineRole::Comment));
}

bool read_input(LineReader& reader, const InputSchema& schema, const ParseOptions& options,
                BDFData& data) {
  read_preamble(reader, data);
  if (reader.at_end()) {
    return false;
  }
  read_document(reader, schema, options, data);
  return true;
}

}  // namespace kelp::input::bdf
