#include "checks.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace kelp::fuzz {
namespace {

using namespace input::bdf;

constexpr std::string_view small_schema = R"(
schema_version: 1
easy_input:
  methods: {hf: {aliases: [rhf]}, x: {}}
  functionals: {b3lyp: {aliases: [x]}}
  basis: {known: [svp], extensible: false}
  control_keywords: {q: {value_type: integer, aliases: [charge]}, t: {aliases: [q]}}
modules:
  m:
    aliases: [a]
    entries:
      f: {kind: flag, aliases: [g], conflicts: s, requires: [{entry: t, equals: 'Yes'}]}
      s: {value_type: integer, min: 0, max_exclusive: true, max: 9}
      t: {kind: tuple, value_type: float, allowed_arities: [1, 3], aliases: [f]}
      l: {kind: multiline, allowed: ['1 2', yes]}
      r: {kind: counted_rows, count_line: true, row: {arity: 2, types: [integer, float]}}
      b: {kind: block, terminator: $$end}
      e: {kind: block}
      w: {kind: raw, repeatable: true}
      n: {kind: nested_block, terminator: end, entries: &children {
            f: {kind: flag, conflicts: s}, s: {aliases: [c]}, l: {kind: multiline},
            r: {kind: counted_rows}, b: {kind: block, terminator: x}, w: {kind: raw},
            n: {kind: nested_block, entries: {f: {}}}}}
      o: {kind: nested_block, entries: *children}
  k: {repeatable: true, aliases: [m2]}
  a: {}
)";

void stop(const std::string& why) {
  std::fputs((why + "\n").c_str(), stderr);
  std::abort();
}

}  // namespace

unsigned Decisions::byte() {
  if (rest_.empty()) {
    return 0;
  }
  const auto taken = static_cast<unsigned char>(rest_.front());
  rest_.remove_prefix(1);
  return taken;
}

std::string Decisions::text() {
  const std::size_t end = std::min(rest_.find('\0'), rest_.size());
  std::string taken(rest_.substr(0, end));
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  return taken;
}

const InputSchema& schema(bool small) {
  static const InputSchema of_our_own = InputSchema::from_yaml(small_schema);
  static const InputSchema shipped = InputSchema::from_file(KELP_SCHEMA_FILE);
  return small ? of_our_own : shipped;
}

ParseOptions parse_options(Decisions& decisions) {
  const unsigned bits = decisions.byte();
  ParseOptions options;
  options.custom_unknown_policy = (bits & 1U) != 0;
  options.validate = (bits & 2U) != 0;
  options.report_unknown = (bits & 4U) != 0;
  options.unknown_policy = static_cast<std::int32_t>((bits >> 3U) % 4U);
  return options;
}

void expect_none(const std::vector<std::string>& complaints) {
  if (!complaints.empty()) {
    stop(complaints.front());
  }
}

void expect_sound(const BDFData& data) {
  std::vector<int> mentions(data.modules.size());
  for (const Statement& statement : data.statements) {
    if (statement.kind != StatementKind::Module) {
      continue;
    }
    if (statement.module_index >= mentions.size() || ++mentions[statement.module_index] > 1) {
      stop("a module statement names no module, or one that another names");
    }
  }
  if (std::count(mentions.begin(), mentions.end(), 0) > 0) {
    stop("a module has no statement");
  }
}

}  // namespace kelp::fuzz
