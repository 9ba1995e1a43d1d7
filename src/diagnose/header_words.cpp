// The words of the header, one after the other. The lists of methods and keywords are closed, so
// that a word in none of them is told of; those of functionals and basis sets are open, and what
// they do not hold is told of only where it is a slip of what they do.

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "diagnose/certain_names.hpp"
#include "diagnose/finders.hpp"
#include "diagnose/header_names.hpp"
#include "diagnose/offers.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "kelp/core/unicode.hpp"
#include "kelp/input/bdf/explain.hpp"
#include "model/method_specification.hpp"
#include "schema/easy_token_syntax.hpp"
#include "source/geometry_line.hpp"
#include "validate/value_check.hpp"

namespace kelp::input::bdf {
namespace {

std::size_t line_of(const ParsedInput& input, std::size_t token) {
  return input.first_line(RecordId::of(RecordKind::EasyToken, token));
}

// -- a specification that blanks cut

/// Words of one line that are a specification with slashes between them.
struct CutSpecification {
  std::size_t first = 0;  ///< index of the first token
  std::size_t count = 0;  ///< how many they are
};

// Cuts some words at their slashes, without the empty parts where two words meet.
std::vector<std::string_view> parts_of(const std::vector<EasyToken>& tokens, std::size_t first,
                                       std::size_t count) {
  std::vector<std::string_view> parts;
  for (std::size_t i = 0; i < count; ++i) {
    std::vector<std::string_view> of_word = split_at_slashes(tokens[first + i].text);
    if (i > 0 && of_word.front().empty()) {
      of_word.erase(of_word.begin());
    }
    if (i + 1 < count && !of_word.empty() && of_word.back().empty()) {
      of_word.pop_back();
    }
    parts.insert(parts.end(), of_word.begin(), of_word.end());
  }
  return parts;
}

bool are_listed(const InputSchema& schema, const std::vector<std::string_view>& parts) {
  if (parts.size() == 3) {
    return schema.is_known_method(parts[0]) && schema.is_known_functional(parts[1]) &&
           schema.is_known_basis(parts[2]);
  }
  return parts.size() == 2 &&
         (schema.is_known_method(parts[0]) || schema.is_known_functional(parts[0])) &&
         schema.is_known_basis(parts[1]);
}

bool is_cut(const ParsedInput& input, std::size_t first, std::size_t count) {
  const std::vector<EasyToken>& tokens = input.data().easy_tokens;
  for (std::size_t i = first; i < first + count; ++i) {
    if (line_of(input, i) != line_of(input, first) ||
        tokens[i].text.find('=') != std::string::npos) {
      return false;
    }
  }
  // What is a specification already does not go on behind the next blank.
  return !are_listed(input.schema(), parts_of(tokens, first, 1)) &&
         are_listed(input.schema(), parts_of(tokens, first, count));
}

std::optional<CutSpecification> find_cut_specification(const ParsedInput& input) {
  const std::size_t size = input.data().easy_tokens.size();
  // Slashes may be words of their own.
  constexpr std::size_t most = 5;
  for (std::size_t first = 0; first + 1 < size; ++first) {
    for (std::size_t count = std::min(most, size - first); count > 1; --count) {
      if (is_cut(input, first, count)) {
        return CutSpecification{first, count};
      }
    }
  }
  return std::nullopt;
}

// -- all words

class HeaderWordFinder {
 public:
  HeaderWordFinder(DiagnoseContext& context, const DiagnoseOptions& options,
                   const DiagnosticSink& use)
      : context_(context),
        input_(context.input),
        schema_(input_.schema()),
        tokens_(input_.data().easy_tokens),
        options_(options),
        use_(use),
        names_(context, options, use) {}

  void run() {
    const auto cut = find_cut_specification(input_);
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      if (is_first_on_line(i) && ends_header(line_of(input_, i))) {
        return;
      }
      if (cut && i == cut->first) {
        report_cut(*cut);
      }
      if (cut && i >= cut->first && i < cut->first + cut->count) {
        continue;
      }
      look_at(i);
    }
  }

 private:
  bool is_first_on_line(std::size_t token) const {
    return token == 0 || line_of(input_, token) != line_of(input_, token - 1);
  }

  // Where the line that begins the geometry is misspelt, or missing, atoms are read as words of the
  // header; a setting of modules that comes before it is, too.
  bool ends_header(std::size_t line) const {
    const std::string_view text = input_.source().text_of(input_.source().content(line));
    std::string_view rest = text;
    const std::string_view word = core::text::take_word(rest);
    const GeometryLineKind kind = GeometryReader(false).kind_of(text);
    return kind == GeometryLineKind::Atom || kind == GeometryLineKind::File ||
           kind == GeometryLineKind::Elided ||
           (!schema_.is_known_easy_token(word) && !similar_names(word, {"geometry"}).empty()) ||
           core::text::equals_ignoring_case(word, "end") ||
           (core::text::equals_ignoring_case(word, "module") &&
            core::text::equals_ignoring_case(core::text::trim_view(rest), "setting"));
  }

  void look_at(std::size_t token) {
    if (tokens_[token].category == "method_spec") {
      names_.look_at_specification(token);
    } else if (tokens_[token].category == "unknown") {
      if (options_.unknown != UnknownNames::Ignore) {
        look_at_unknown(token);
      }
    } else {
      look_for_repetition(token);
      look_for_value(token);
      if (is_functional_keyword(token)) {
        names_.look_at_functional(token, input_.token_ranges(token).value);
      }
    }
  }

  bool is_functional_keyword(std::size_t token) const {
    return schema_.canonical_easy_key(tokens_[token].key) == "xcfun" &&
           !tokens_[token].value.empty();
  }

  // A value behind a keyword that is not known is not told of, too.
  bool is_value_of_unknown(std::size_t token) const {
    return !is_first_on_line(token) && tokens_[token - 1].category == "unknown" &&
           tokens_[token - 1].value.empty() && names_near(token).empty();
  }

  std::vector<std::string> names_near(std::size_t token) const {
    return similar_names(tokens_[token].key, context_.names().easy_keywords());
  }

  // The values that the keyword before asks for, none of which the parser has given to it.
  std::vector<std::string> values_before(std::size_t token) const {
    if (is_first_on_line(token) || !tokens_[token - 1].value.empty()) {
      return {};
    }
    const auto info = schema_.easy_keyword_info(tokens_[token - 1].key);
    return info ? info->allowed : std::vector<std::string>();
  }

  static bool is_one_of(std::string_view name, const std::vector<std::string>& values) {
    return std::any_of(values.begin(), values.end(), [name](const std::string& value) {
      return core::text::equals_ignoring_case(name, value);
    });
  }

  void look_at_unknown(std::size_t token) {
    const TextRange range = input_.token_ranges(token).key;
    const std::string name(input_.source().text_of(range));
    const std::vector<std::string> values = values_before(token);
    // A keyword that stands alone as well takes its value all the same: `SpinAdapt True`.
    if (is_value_of_unknown(token) || is_one_of(name, values)) {
      return;
    }
    Diagnostic diagnostic = begin_in_header(context_, token, "header.unknown_keyword",
                                            unknown_in_header("keyword", name), name);
    if (options_.unknown == UnknownNames::Error) {
      diagnostic.severity = Severity::Error;
    }
    diagnostic.range = range;
    diagnostic.label = "not a keyword of the header";
    std::vector<std::string> near = similar_names(name, values);
    if (!near.empty()) {
      offer_names(diagnostic, std::move(near), {"value", "values"}, range, false);
    } else {
      near = names_near(token);
      const bool is_certain = near.size() == 1 && is_certain_keyword(token, name, near.front());
      offer_names(diagnostic, std::move(near), {"keyword", "keywords"}, range, is_certain);
    }
    use_(diagnostic);
  }

  // Tells whether a keyword says nothing without a value: where it may be right or wrong, or name a
  // choice that has a usual one, it may stand alone.
  bool needs_value(std::size_t token) const {
    const auto info = schema_.easy_keyword_info(tokens_[token].key);
    return info && info->kind != EntryValueKind::Flag && info->value_type != "bool" &&
           !is_one_of("true", info->allowed);
  }

  void look_for_value(std::size_t token) {
    // `group= charge=1` takes the next keyword for its value.
    const bool has_other = tokens_[token].value.find('=') != std::string::npos;
    if ((!tokens_[token].value.empty() && !has_other) || !needs_value(token) ||
        (!has_other && is_value_behind(token)) || !has_method_specification(input_.data())) {
      return;
    }
    const TokenRanges ranges = input_.token_ranges(token);
    const std::string key(input_.source().text_of(ranges.key));
    Diagnostic diagnostic =
        begin_in_header(context_, token, "header.value_missing",
                        "The keyword '" + key + "' of the header has no value.", key);
    diagnostic.range = ranges.whole;
    diagnostic.label = "its value is missing";
    if (const auto info = schema_.easy_keyword_info(tokens_[token].key)) {
      const std::string expected = expected_value(*info);
      if (!expected.empty()) {
        diagnostic.help.push_back("expected: " + expected);
      }
    }
    use_(diagnostic);
  }

  // Any word that is nothing else; on another line it is told of as one that nobody knows. Where
  // any text may stand, so may a keyword: `xcfun scan`.
  bool is_value_behind(std::size_t token) const {
    if (token + 1 == tokens_.size()) {
      return false;
    }
    const auto info = schema_.easy_keyword_info(tokens_[token].key);
    const bool is_any_text = info && info->value_type == "string" && info->allowed.empty();
    return tokens_[token + 1].category == "unknown" ||
           (is_any_text && !is_first_on_line(token + 1) && tokens_[token + 1].value.empty());
  }

  // Without a method the lines may be no header at all. A value must be one that the keyword asks
  // for; any word would be right of one that asks for none, so that its name must not be short.
  bool is_certain_keyword(std::size_t token, const std::string& name, const std::string& meant) {
    const auto info = schema_.easy_keyword_info(meant);
    const std::string& value = tokens_[token].value;
    constexpr std::size_t long_enough = 5;
    const bool takes_any =
        info && info->allowed.empty() && info->value_type == "string" && meant.size() < long_enough;
    return has_method_specification(input_.data()) && can_be_slip(name) &&
           is_certain_slip(name, meant) && context_.names().modules_with_entry(name).empty() &&
           !context_.is_listed_value(name) &&
           (value.empty() || (info && !takes_any && value_matches(value, *info)));
  }

  void look_for_repetition(std::size_t token) {
    const std::string key = schema_.canonical_easy_key(tokens_[token].key);
    const auto [found, is_new] = first_of_.emplace(key, token);
    if (is_new) {
      return;
    }
    const TokenRanges ranges = input_.token_ranges(token);
    Diagnostic diagnostic =
        begin_in_header(context_, token, "header.keyword_twice",
                        "The keyword '" + key + "' is given twice in the header.", key);
    diagnostic.range = ranges.key;
    diagnostic.label = "first given on line " + std::to_string(line_of(input_, found->second));
    diagnostic.related.push_back({input_.token_ranges(found->second).whole, "first given here"});
    diagnostic.help.emplace_back("keep the one that is meant; which of them counts is not said");
    offer_fix(diagnostic, "drop this one", range_to_drop(ranges.whole), "");
    use_(diagnostic);
  }

  // A word with the blanks before it; of a line that says nothing else, all of the line.
  TextRange range_to_drop(const TextRange& word) const {
    const SourceText& source = input_.source();
    const std::size_t line = source.line_at(word.begin);
    if (source.content(line) == word) {
      return source.full_line_range(line);
    }
    const std::size_t begin = source.line_range(line).begin;
    const std::size_t end = source.trimmed({begin, word.begin}).end;
    return {end == begin ? word.begin : end, word.end};
  }

  void report_cut(const CutSpecification& cut) {
    const std::size_t last = cut.first + cut.count - 1;
    const TextRange range = {input_.token_ranges(cut.first).whole.begin,
                             input_.token_ranges(last).whole.end};
    const std::string text(input_.source().text_of(range));
    const std::string meant = core::text::join(parts_of(tokens_, cut.first, cut.count), "/");
    Diagnostic diagnostic =
        begin_in_header(context_, cut.first, "header.blank_for_slash",
                        "The specification '" + text + "' is cut by a blank.", text);
    diagnostic.range = range;
    diagnostic.label = "meant to be '" + meant + "'?";
    diagnostic.help.emplace_back("method, functional and basis set are one word, parted by '/'");
    diagnostic.suggestions = {meant};
    offer_fix(diagnostic, "write '" + meant + "'", range, meant, true);
    use_(diagnostic);
  }

  DiagnoseContext& context_;
  const ParsedInput& input_;
  const InputSchema& schema_;
  const std::vector<EasyToken>& tokens_;
  const DiagnoseOptions& options_;
  const DiagnosticSink& use_;
  HeaderNameFinder names_;
  std::map<std::string, std::size_t> first_of_;  ///< token that bears a keyword first
};

}  // namespace

void find_header_words(DiagnoseContext& context, const DiagnoseOptions& options,
                       const DiagnosticSink& use) {
  HeaderWordFinder(context, options, use).run();
}

bool is_cut_specification(const Fault& fault, const ParsedInput& input) {
  return fault.id == IssueId::MissingMethod && find_cut_specification(input).has_value();
}

}  // namespace kelp::input::bdf
