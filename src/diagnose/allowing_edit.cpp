// Where a comment may stand depends on the line: behind a word of a title it would be a part of the
// title. So each position is tried, the nearest to the finding first, and that one is taken which
// makes the finding go and leaves all others as they are.

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "kelp/input/bdf/allowance.hpp"

namespace kelp::input::bdf {
namespace {

using Counts = std::map<std::string, std::size_t>;

Counts counts_of(const ParsedInput& input) {
  Counts counts;
  diagnose(input, {}, [&counts](const Diagnostic& diagnostic) { ++counts[diagnostic.code]; });
  return counts;
}

bool has_only_lost(Counts before, const Counts& after, const std::string& code) {
  const auto left = after.find(code);
  const std::size_t still = left == after.end() ? 0 : left->second;
  if (still >= before[code]) {
    return false;
  }
  before[code] = still;
  std::erase_if(before, [](const auto& item) { return item.second == 0; });
  return before == after;
}

std::string line_end_of(const SourceText& source) {
  const std::string_view end = source.line_end(1);
  return end.empty() ? "\n" : std::string(end);
}

TextEdit behind_line(const SourceText& source, std::size_t line, const std::string& comment) {
  const std::size_t end = source.content(line).end;
  return {{end, end}, "  " + comment};
}

TextEdit above_line(const SourceText& source, std::size_t line, const std::string& comment) {
  const TextRange range = source.line_range(line);
  const TextRange words = source.content(line);
  const std::string indent(source.text_of({range.begin, words.begin}));
  return {{range.begin, range.begin}, indent + comment + line_end_of(source)};
}

TextEdit at_end(const SourceText& source, const std::string& comment) {
  const std::size_t size = source.text().size();
  const bool is_ended = source.text().empty() || source.text().ends_with('\n');
  return {{size, size}, (is_ended ? "" : line_end_of(source)) + comment + line_end_of(source)};
}

std::vector<TextEdit> attempts(const ParsedInput& input, const Diagnostic& diagnostic) {
  const SourceText& source = input.source();
  const std::string comment = "# kelp-bdf: allow " + diagnostic.code;
  std::vector<TextEdit> edits;
  if (diagnostic.range) {
    const std::size_t line = source.line_at(diagnostic.range->begin);
    edits.push_back(behind_line(source, line, comment));
    edits.push_back(above_line(source, line, comment));
  }
  if (const std::size_t line = input.first_line(diagnostic.record); line != 0) {
    edits.push_back(above_line(source, line, comment));
  }
  edits.push_back(at_end(source, "# kelp-bdf: allow-file " + diagnostic.code));
  return edits;
}

}  // namespace

std::optional<TextEdit> allowing_edit(const ParsedInput& input, const Diagnostic& diagnostic) {
  const Counts before = counts_of(input);
  for (TextEdit& edit : attempts(input, diagnostic)) {
    const ParsedInput changed(apply_edits(input.source().text(), {edit}), input.schema());
    if (has_only_lost(before, counts_of(changed), diagnostic.code)) {
      return std::move(edit);
    }
  }
  return std::nullopt;
}

}  // namespace kelp::input::bdf
