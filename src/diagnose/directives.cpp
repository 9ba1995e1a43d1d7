// The reading knows where comments are; a directive is one that begins with `kelp-bdf:`.

#include "diagnose/directives.hpp"

#include <algorithm>
#include <optional>
#include <string_view>

#include "kelp/input/bdf/explain.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::string_view name_of_directives = "kelp-bdf";
constexpr std::string_view begin_of_reason = "--";

// Cuts what a comment says into words, which blanks and commas part.
class CommentWords {
 public:
  CommentWords(const SourceText& source, TextRange comment) : text_(source.text()), rest_(comment) {
    skip("#* \t");
  }

  TextRange rest() const { return rest_; }
  std::string_view text() const { return text_.substr(rest_.begin, rest_.size()); }
  void skip(std::string_view bytes) {
    while (!rest_.empty() && bytes.find(text_[rest_.begin]) != std::string_view::npos) {
      ++rest_.begin;
    }
  }
  // Takes a number of bytes, no more than there are.
  TextRange take(std::size_t size) {
    const TextRange taken = {rest_.begin, rest_.begin + std::min(size, rest_.size())};
    rest_.begin = taken.end;
    return taken;
  }
  TextRange take_word() {
    skip(separators);
    return take(text().find_first_of(separators));
  }

 private:
  static constexpr std::string_view separators = " \t,";

  std::string_view text_;
  TextRange rest_;
};

DirectiveKind kind_of(std::string_view word) {
  if (word == "allow") {
    return DirectiveKind::Allow;
  }
  return word == "allow-file" ? DirectiveKind::AllowFile : DirectiveKind::Unknown;
}

// Returns nothing for a comment that is for readers only.
std::optional<Directive> read_directive(const SourceText& source, const TextRange& comment) {
  CommentWords words(source, comment);
  if (!words.text().starts_with(name_of_directives)) {
    return std::nullopt;
  }
  Directive directive;
  directive.comment = comment;
  directive.name = words.take(name_of_directives.size());
  words.skip(" \t");
  directive.has_colon = words.text().starts_with(':');
  words.take(directive.has_colon ? 1 : 0);
  directive.word = words.take_word();
  directive.kind = kind_of(source.text_of(directive.word));
  if (!directive.has_colon && directive.kind == DirectiveKind::Unknown) {
    return std::nullopt;
  }
  for (TextRange word = words.take_word(); !word.empty(); word = words.take_word()) {
    const std::string_view pattern = source.text_of(word);
    if (pattern == begin_of_reason) {
      break;
    }
    directive.codes.push_back({word, std::string(pattern), means_any_code(pattern), false});
  }
  return directive;
}

bool says_something(const ParsedInput& input, std::size_t line) {
  const TextRange content = input.source().content(line);
  return !content.empty() && content.begin != input.comment_range(line).begin;
}

// Any number of comments may stand one below the other; from the last to the first, each line is
// looked at once.
void find_lines_meant(const ParsedInput& input, std::vector<Directive>& directives) {
  const Directive* below = nullptr;
  for (std::size_t i = directives.size(); i-- > 0;) {
    Directive& directive = directives[i];
    std::size_t line = directive.line;
    while (directive.is_alone && line <= input.source().line_count() &&
           !says_something(input, line)) {
      ++line;
      if (below != nullptr && below->line == line) {
        line = below->line_meant;
        break;
      }
    }
    directive.line_meant = line;
    below = &directive;
  }
}

}  // namespace

const std::vector<std::string>& directive_words() {
  static const std::vector<std::string> words = {"allow", "allow-file"};
  return words;
}

std::vector<Directive> read_directives(const ParsedInput& input) {
  std::vector<Directive> directives;
  const SourceText& source = input.source();
  // Hardly any input has one.
  if (source.text().find(name_of_directives) == std::string_view::npos) {
    return directives;
  }
  for (std::size_t number = 1; number <= source.line_count(); ++number) {
    const TextRange comment = source.trimmed(input.comment_range(number));
    if (comment.empty()) {
      continue;
    }
    if (auto directive = read_directive(source, comment)) {
      directive->line = number;
      directive->is_alone = comment.begin == source.content(number).begin;
      directives.push_back(std::move(*directive));
    }
  }
  find_lines_meant(input, directives);
  return directives;
}

}  // namespace kelp::input::bdf
