// What a text editor or a transfer between systems does to a file as a whole. Everything else that
// could be found in such a file is a consequence.

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "diagnose/draft.hpp"

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

}  // namespace

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
