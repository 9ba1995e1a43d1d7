// What there is to say of the comments that are for the check. Their edits are for people to
// decide on: who wrote the comment may have meant another line.

#include "diagnose/directive_findings.hpp"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "kelp/input/bdf/explain.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::input::bdf {
namespace {

using Use = std::function<void(const Diagnostic&)>;

Diagnostic finding(std::string_view code, std::string message, std::string_view argument,
                   const TextRange& range) {
  Diagnostic diagnostic;
  diagnostic.code = code;
  diagnostic.severity = find_finding_text(code)->severity;
  diagnostic.message = std::move(message);
  if (!argument.empty()) {
    diagnostic.arguments.emplace_back(argument);
  }
  diagnostic.range = range;
  return diagnostic;
}

void propose(Diagnostic& diagnostic, std::string title, TextEdit edit) {
  Fix fix;
  fix.title = std::move(title);
  fix.edits.push_back(std::move(edit));
  diagnostic.fixes.push_back(std::move(fix));
}

void suggest(Diagnostic& diagnostic, std::vector<std::string> names) {
  if (names.empty()) {
    return;
  }
  diagnostic.help.push_back("did you mean " + quoted_choice(names) + "?");
  for (const std::string& name : names) {
    propose(diagnostic, "write '" + name + "'", {diagnostic.range.value_or(TextRange{}), name});
  }
  diagnostic.suggestions = std::move(names);
}

Diagnostic invalid_directive(std::string message, std::string_view argument,
                             const TextRange& range) {
  return finding("comment.invalid_directive", std::move(message), argument, range);
}

Diagnostic unknown_word(const Directive& directive, std::string_view word) {
  if (word.empty()) {
    Diagnostic made = invalid_directive("The comment is for kelp-bdf, but says nothing.", word,
                                        directive.comment);
    made.help.emplace_back("write 'allow CODE' or 'allow-file CODE' behind the colon");
    return made;
  }
  Diagnostic made =
      invalid_directive("There is no directive '" + std::string(word) + "'.", word, directive.word);
  suggest(made, similar_names(word, directive_words()));
  if (made.suggestions.empty()) {
    made.help.push_back("there are " + quoted_choice(directive_words()));
  }
  return made;
}

// A comment goes with the line that it stands on, or with the blanks before it.
TextRange range_of_comment(const Directive& directive, const SourceText& source) {
  if (directive.is_alone) {
    return source.full_line_range(directive.line);
  }
  const std::size_t begin = source.line_range(directive.line).begin;
  return {source.trimmed({begin, directive.comment.begin}).end, directive.comment.end};
}

Diagnostic unused_comment(const Directive& directive, const SourceText& source) {
  Diagnostic made = finding("comment.unused_allowance", "There is no finding that this allows.", {},
                            directive.comment);
  for (const AllowedCode& code : directive.codes) {
    made.arguments.push_back(code.pattern);
  }
  propose(made, "remove the comment", {range_of_comment(directive, source), ""});
  return made;
}

Diagnostic unused_code(const Directive& directive, std::size_t index) {
  const AllowedCode& code = directive.codes[index];
  Diagnostic made =
      finding("comment.unused_allowance", "There is no finding '" + code.pattern + "' here.",
              code.pattern, code.range);
  const TextRange with_separator =
      index == 0 ? TextRange{code.range.begin, directive.codes[1].range.begin}
                 : TextRange{directive.codes[index - 1].range.end, code.range.end};
  propose(made, "remove '" + code.pattern + "'", {with_separator, ""});
  return made;
}

}  // namespace

void find_mistakes(const Directive& directive, const SourceText& source, const Use& use) {
  const std::string_view word = source.text_of(directive.word);
  if (directive.kind == DirectiveKind::Unknown) {
    use(unknown_word(directive, word));
    return;
  }
  if (!directive.has_colon) {
    Diagnostic made =
        invalid_directive("The comment has no colon behind 'kelp-bdf'.", {}, directive.name);
    propose(made, "write 'kelp-bdf:'", {{directive.name.end, directive.name.end}, ":"});
    use(made);
    return;
  }
  if (directive.codes.empty()) {
    Diagnostic made = invalid_directive("The directive '" + std::string(word) + "' names no code.",
                                        word, directive.word);
    made.help.emplace_back("'kelp-bdf check --list-codes' lists all codes");
    use(made);
  }
  for (const AllowedCode& code : directive.codes) {
    if (!code.is_known) {
      Diagnostic made = finding("comment.unknown_code", "There is no code '" + code.pattern + "'.",
                                code.pattern, code.range);
      suggest(made, similar_codes(code.pattern));
      use(made);
    }
  }
}

void tell_unused(const Directive& directive, const std::vector<std::size_t>& unused,
                 const SourceText& source, const Use& use) {
  if (unused.size() == directive.codes.size()) {
    use(unused_comment(directive, source));
    return;
  }
  for (const std::size_t index : unused) {
    use(unused_code(directive, index));
  }
}

}  // namespace kelp::input::bdf
