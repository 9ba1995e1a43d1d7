// What a text editor or a transfer between systems does to a file as a whole. Everything else that
// could be found in such a file is a consequence.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "diagnose/finders.hpp"
#include "kelp/core/text.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

// A text of ASCII letters in UTF-16 has a zero in every second byte.
bool is_utf16(std::string_view text) {
  if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
    return true;
  }
  constexpr std::size_t enough = 64;
  const std::string_view head = text.substr(0, enough);
  const auto zeros = static_cast<std::size_t>(std::count(head.begin(), head.end(), '\0'));
  return head.size() >= 8 && zeros * 2 + 2 >= head.size();
}

// Returns the first carriage return of a text that has no line feed, but something behind the
// carriage return.
std::size_t lone_return(std::string_view text) {
  if (text.find('\n') != std::string_view::npos) {
    return std::string_view::npos;
  }
  const std::size_t at = text.find('\r');
  return at != std::string_view::npos &&
                 text.find_first_not_of(" \t\r", at) != std::string_view::npos
             ? at
             : std::string_view::npos;
}

Diagnostic text_fault(std::string code, std::string message, TextRange range, std::string help) {
  Diagnostic diagnostic;
  diagnostic.code = std::move(code);
  diagnostic.severity = Severity::Error;
  diagnostic.message = std::move(message);
  diagnostic.range = range;
  diagnostic.help.push_back(std::move(help));
  return diagnostic;
}

// The signs that a terminal, a mail or a listing puts before each line.
bool is_sign_before_lines(char byte) {
  return byte == '>' || byte == '|' || byte == '$' || byte == '~' || byte == ' ';
}

// What all lines that say something begin with; empty where that is blanks alone.
std::string_view common_prefix(const SourceText& source) {
  constexpr std::size_t least_lines = 4;
  std::string_view prefix;
  std::size_t lines = 0;
  for (std::size_t number = 1; number <= source.line_count(); ++number) {
    const std::string_view line = source.line(number);
    if (source.content(number).empty()) {
      continue;
    }
    prefix = lines++ == 0 ? line : prefix;
    const auto differs = std::mismatch(prefix.begin(), prefix.end(), line.begin(), line.end());
    prefix = prefix.substr(0, static_cast<std::size_t>(differs.first - prefix.begin()));
    if (core::text::trim_view(prefix).empty()) {
      return {};
    }
  }
  const auto end = std::find_if_not(prefix.begin(), prefix.end(), is_sign_before_lines);
  prefix = prefix.substr(0, static_cast<std::size_t>(end - prefix.begin()));
  const std::size_t blank = prefix.rfind(' ');
  prefix = prefix.substr(0, blank == std::string_view::npos ? 0 : blank + 1);
  return lines < least_lines || core::text::trim_view(prefix).empty() ? std::string_view() : prefix;
}

bool is_header_behind(std::string_view line, std::string_view prefix, const InputSchema& schema) {
  if (!line.starts_with(prefix)) {
    return false;
  }
  const std::string_view text = core::text::trim_view(line.substr(prefix.size()));
  return is_module_header(text) && schema.is_known_module(text.substr(1));
}

}  // namespace

std::optional<Diagnostic> find_prefixed_lines(const SourceText& source, const InputSchema& schema) {
  const std::string_view prefix = common_prefix(source);
  bool has_module = false;
  for (std::size_t number = 1; number <= source.line_count() && !prefix.empty(); ++number) {
    has_module = has_module || is_header_behind(source.line(number), prefix, schema);
  }
  if (!has_module) {
    return std::nullopt;
  }
  std::size_t first = 1;
  while (source.content(first).empty()) {
    ++first;
  }
  const std::string sign(core::text::trim_view(prefix));
  const std::size_t begin = source.line_range(first).begin;
  Diagnostic diagnostic = text_fault(
      "text.prefixed_lines", "Every line begins with '" + sign + "', which is no part of an input.",
      {begin, begin + prefix.size()}, "take it away from the lines");
  diagnostic.arguments = {sign};
  Fix fix;
  fix.title = "take '" + sign + "' away from all lines";
  fix.is_safe = true;
  for (std::size_t number = first; number <= source.line_count(); ++number) {
    const std::size_t at = source.line_range(number).begin;
    if (!source.content(number).empty()) {
      fix.edits.push_back({{at, at + prefix.size()}, {}});
    }
  }
  diagnostic.fixes.push_back(std::move(fix));
  return diagnostic;
}

std::optional<Diagnostic> find_text_fault(const SourceText& source) {
  const std::string_view text = source.text();
  if (is_utf16(text)) {
    return text_fault("text.encoding", "The file is encoded as UTF-16, which BDF does not read.",
                      {0, 0}, "save it as UTF-8; on Linux: iconv -f UTF-16 -t UTF-8 FILE");
  }
  if (const std::size_t at = lone_return(text); at != std::string_view::npos) {
    return text_fault("text.line_ends",
                      "The lines end with carriage returns alone, so that BDF reads a single line.",
                      {at, at + 1}, "save it with Unix line ends; on Linux: tr '\\r' '\\n' < FILE");
  }
  return std::nullopt;
}

}  // namespace kelp::input::bdf
