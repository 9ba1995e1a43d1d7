// A line that is not there has no place of its own; what it leaves behind has. Lines that stand in
// no module and still have an `$end` had a header; atoms that an `end geometry` follows were
// opened.

#include "diagnose/missing_lines.hpp"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "diagnose/frame_faults.hpp"
#include "diagnose/offers.hpp"
#include "diagnose/outside_lines.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "model/method_specification.hpp"
#include "model/molecule_names.hpp"
#include "source/elements.hpp"
#include "source/geometry_line.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

bool is_silent(const Statement& statement) {
  return statement.kind == StatementKind::Comment ||
         (statement.kind == StatementKind::Raw && outside_of(statement).what == Outside::Nothing);
}

}  // namespace

MissingLines::MissingLines(DiagnoseContext& context) : context_(context), input_(context.input) {
  find_headers();
  if (!lacks_first_header_) {
    find_openings();
  }
}

void MissingLines::tell(const DiagnosticSink& sink) const {
  for (const Diagnostic& diagnostic : found_) {
    sink(diagnostic);
  }
}

bool MissingLines::cover(const Diagnostic& diagnostic) const {
  if (diagnostic.code == "bdf.missing_method") {
    return lacks_first_header_;
  }
  if (diagnostic.code == "bdf.missing_geometry") {
    return lacks_first_header_ || lacks_opening_;
  }
  const bool is_other_border =
      diagnostic.code.starts_with("frame.") && !diagnostic.code.starts_with("frame.stray");
  if (is_other_border || spans_.empty() || !diagnostic.range) {
    return false;
  }
  // A value may have taken the lines along.
  Span lines{input_.source().line_at(diagnostic.range->begin), 0};
  lines.last = lines.first;
  const ModuleEntry* const entry = entry_or_child(input_.data(), diagnostic.record);
  if (entry != nullptr && !entry->values.empty()) {
    lines.last =
        std::max(lines.last, input_.value_line(diagnostic.record, entry->values.size() - 1));
  }
  return std::any_of(spans_.begin(), spans_.end(), [&](const Span& span) {
    return lines.first <= span.last && lines.last >= span.first;
  });
}

// What begins like the lines of a module is read as a header: `$end` is a word of it, or stands
// behind its geometry.
std::size_t MissingLines::first_line_without_module() const {
  const BDFData& data = input_.data();
  if (data.mode == InputMode::Module || has_method_specification(data) ||
      data.easy_tokens.empty()) {
    return 0;
  }
  const std::size_t line = input_.first_line(RecordId::of(RecordKind::EasyToken, 0));
  const std::string_view text = text_on(line);
  return context_.names().modules_with_entry(first_word(text)).empty() ? 0 : line;
}

std::size_t MissingLines::end_in_header() const {
  const std::vector<EasyToken>& tokens = input_.data().easy_tokens;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (is_module_end(tokens[i].text)) {
      return input_.source().line_at(input_.token_ranges(i).whole.begin);
    }
  }
  return 0;
}

void MissingLines::find_headers() {
  std::size_t first = first_line_without_module();
  bool is_header = first != 0;
  if (const std::size_t end = is_header ? end_in_header() : 0; end != 0) {
    add_header({first, end});
    lacks_first_header_ = true;
    first = 0;
  }
  for (const Statement& statement : input_.data().statements) {
    const Outside what = outside_of(statement).what;
    if (what == Outside::ModuleEnd && first != 0) {
      add_header({first, line_of(statement)});
      lacks_first_header_ = lacks_first_header_ || is_header;
    }
    if (what == Outside::Stray && first == 0) {
      first = line_of(statement);
    } else if (what != Outside::Stray && !is_silent(statement)) {
      first = 0;
      is_header = false;
    }
  }
}

// The modules that know all of the keywords; at most three are worth being named.
std::vector<std::string> MissingLines::modules_of(const Span& lines) {
  constexpr std::size_t most = 3;
  std::vector<std::string> modules;
  bool is_any = false;
  for (std::size_t line = lines.first; line < lines.last; ++line) {
    const std::string_view text = text_on(line);
    const auto& knowing = context_.names().modules_with_entry(first_word(text));
    if (knowing.empty()) {
      continue;
    }
    if (!is_any) {
      modules = knowing;
      is_any = true;
      continue;
    }
    std::vector<std::string> both;
    std::copy_if(modules.begin(), modules.end(), std::back_inserter(both),
                 [&](const std::string& name) {
                   return std::find(knowing.begin(), knowing.end(), name) != knowing.end();
                 });
    // What looks like a keyword may be a value.
    if (!both.empty()) {
      modules = std::move(both);
    }
  }
  return modules.size() <= most ? modules : std::vector<std::string>();
}

void MissingLines::add_header(const Span& lines) {
  Diagnostic diagnostic = frame_finding("frame.missing_header",
                                        "The header of a module is missing before these lines.");
  diagnostic.range = statement_on(input_, lines.first);
  diagnostic.label = "stands in no module";
  diagnostic.record = input_.line(lines.first).record;
  diagnostic.related.push_back({statement_on(input_, lines.last), "ends them"});
  std::vector<std::string> headers;
  for (const std::string& module : modules_of(lines)) {
    headers.push_back('$' + module);
    const std::size_t begin = input_.source().line_range(lines.first).begin;
    const std::string end(input_.source().line_end(lines.first));
    offer_fix(diagnostic, "insert the line '" + headers.back() + "'", {begin, begin},
              headers.back() + (end.empty() ? "\n" : end));
  }
  diagnostic.help = {headers.size() == 1
                         ? "their keywords are those of '" + headers.front() + "'"
                         : "write the header, or remove an '$end' before them that is too much"};
  diagnostic.suggestions = std::move(headers);
  found_.push_back(std::move(diagnostic));
  spans_.push_back(lines);
}

void MissingLines::find_openings() {
  const BDFData& data = input_.data();
  const SourceText& source = input_.source();
  if (data.mode != InputMode::Module && !data.has_geometry) {
    std::size_t last = 1;
    while (last <= source.line_count() && input_.line(last).role != LineRole::ModuleHeader) {
      ++last;
    }
    find_opening_between({1, last - 1}, "end geometry");
  }
  for (std::size_t i = 0; i < data.modules.size(); ++i) {
    const RecordId record = RecordId::of_module(i);
    const auto block = input_.schema().entry_info(data.modules[i].name, geometry_entry);
    const std::size_t end = input_.end_line(record);
    // Where a module has no end, it is not certain what is missing.
    if (end != 0 && block && !block->terminator.empty() &&
        data.modules[i].find_entry(geometry_entry) == nullptr) {
      find_opening_between({input_.first_line(record) + 1, end - 1}, block->terminator);
    }
  }
}

// Atoms or internal coordinates up to a line that ends a geometry and no block.
void MissingLines::find_opening_between(const Span& lines, std::string_view terminator) {
  const GeometryReader geometry(false);
  std::size_t first = 0;
  for (std::size_t line = lines.first; line <= lines.last; ++line) {
    const std::string_view text = text_on(line);
    if (is_same_line(text, terminator) && input_.line(line).role != LineRole::BlockEnd) {
      // What looks like an atom of no element is the variable of a scan.
      if (first == 0 || !is_atom_label(first_word(text_on(first)))) {
        const std::size_t row = first_internal_coordinate({lines.first, line});
        first = row == 0 ? first : row;
      }
      return first == 0 ? void() : add_opening({first, line});
    }
    const GeometryLineKind kind = geometry.kind_of(text);
    if (kind == GeometryLineKind::Atom && first == 0) {
      first = line;
    } else if (kind != GeometryLineKind::Atom && kind != GeometryLineKind::Nothing) {
      first = 0;
    }
  }
}

// The first line from which on all are rows and variables; nobody writes very many of them.
std::size_t MissingLines::first_internal_coordinate(const Span& lines) const {
  constexpr std::size_t most = 200;
  std::size_t first = lines.last - std::min(lines.last - lines.first, most);
  for (; first + 1 < lines.last; ++first) {
    if (!begins_internal_coordinates(text_on(first), text_on(first + 1))) {
      continue;
    }
    GeometryReader geometry(true);
    std::size_t line = first;
    while (line < lines.last && geometry.take(text_on(line)) != GeometryLineKind::Malformed) {
      ++line;
    }
    if (line == lines.last) {
      return first;
    }
  }
  return 0;
}

std::string_view MissingLines::text_on(std::size_t line) const {
  return input_.source().text_of(statement_on(input_, line));
}

// `begin geometry`, `geo`, `atoms`: words of their own that nothing else takes. A first value of an
// entry, or what stands in the header for something, is none.
bool MissingLines::is_misspelt_opening(std::size_t line) const {
  const std::string_view text = text_on(line);
  const LineInfo info = input_.line(line);
  constexpr std::size_t most_words = 2;
  std::size_t words = 0;
  for (std::string_view rest = text; !is_blank(rest); ++words) {
    core::text::take_word(rest);
  }
  if (words == 0 || words > most_words || text.find_first_of("=/$") != std::string_view::npos) {
    return false;
  }
  switch (info.role) {
    case LineRole::UnknownLine:
      return true;
    case LineRole::Value:
      return input_.value_line(info.record, 0) < line;
    case LineRole::Header: {
      const std::size_t byte = input_.source().content(line).begin;
      const RecordId token = input_.record_at(byte);
      return token && input_.data().easy_tokens[token.index].category == "unknown";
    }
    default:
      return false;
  }
}

// Says what is written of a geometry, whatever else; in wide letters, the first one may be lost.
bool says_geometry(std::string_view line) {
  std::string letters;
  for (const char byte : core::text::to_lower(line)) {
    letters += core::text::is_space(byte) ? "" : std::string(1, byte);
  }
  return letters.find("eomet") != std::string::npos;
}

void MissingLines::add_misspelt_opening(const Span& lines) {
  const std::size_t line = lines.first - 1;
  const TextRange range = statement_on(input_, line);
  const std::string written = core::unicode::abridged(input_.source().text_of(range));
  Diagnostic diagnostic = frame_finding(
      "frame.missing_opening", "'" + written + "' stands where the line 'geometry' is missing.");
  diagnostic.range = range;
  diagnostic.label = "meant to be 'geometry'?";
  diagnostic.record = input_.line(line).record;
  diagnostic.related.push_back({statement_on(input_, lines.first), "the first atom"});
  diagnostic.suggestions = {"geometry"};
  offer_fix(diagnostic, "write 'geometry'", range, "geometry", says_geometry(written));
  found_.push_back(std::move(diagnostic));
  spans_.push_back({line, lines.last});
}

void MissingLines::add_opening(const Span& lines) {
  lacks_opening_ = true;
  if (lines.first > 1 && is_misspelt_opening(lines.first - 1)) {
    add_misspelt_opening(lines);
    return;
  }
  const SourceText& source = input_.source();
  Diagnostic diagnostic =
      frame_finding("frame.missing_opening", "The line 'geometry' is missing before these atoms.");
  diagnostic.range = statement_on(input_, lines.first);
  diagnostic.label = "the first atom";
  diagnostic.record = input_.line(lines.first).record;
  diagnostic.related.push_back({statement_on(input_, lines.last), "ends them"});
  const std::size_t begin = source.line_range(lines.first).begin;
  offer_fix(diagnostic, "insert the line 'geometry'", {begin, begin},
            "geometry" + std::string(source.line_end(lines.first)), true);
  found_.push_back(std::move(diagnostic));
  spans_.push_back(lines);
}

}  // namespace kelp::input::bdf
