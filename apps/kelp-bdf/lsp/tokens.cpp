// The words of an input by what they are. Each line is looked at by its role, so that a part of a
// large input costs no more than its own lines.

#include "lsp/tokens.hpp"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "lsp/features.hpp"

namespace kelp::app::lsp {
namespace {

using input::bdf::LineInfo;
using input::bdf::LineRole;
using input::bdf::ParsedInput;
using input::bdf::RecordId;
using input::bdf::RecordKind;
using input::bdf::TextRange;

enum class TokenType : int {
  Module = 0,
  Keyword,
  Border,
  Number,
  Value,
  Comment,
  Element,
  Method,
  Script,
};

constexpr auto type_names =
    std::to_array<const char*>({"namespace", "property", "keyword", "number", "string", "comment",
                                "type", "function", "macro"});

/// A word and what it is.
struct Token {
  TextRange range;
  TokenType type;
};

class TokenFinder {
 public:
  explicit TokenFinder(const ParsedInput& input) : input_(input), source_(input.source()) {}

  std::vector<Token> run(std::size_t first_line, std::size_t last_line) {
    for (std::size_t line = first_line; line <= last_line; ++line) {
      look_at(line, input_.line(line));
      add(input_.comment_range(line), TokenType::Comment);
    }
    std::sort(found_.begin(), found_.end(), [](const Token& left, const Token& right) {
      return left.range.begin < right.range.begin;
    });
    return std::move(found_);
  }

 private:
  void add(const TextRange& range, TokenType type) {
    if (!range.empty()) {
      found_.push_back({range, type});
    }
  }

  // A line without the comment behind it.
  TextRange words_of(std::size_t line) const {
    TextRange words = source_.content(line);
    if (const TextRange comment = input_.comment_range(line); !comment.empty()) {
      words.end = std::max(words.begin, comment.begin);
    }
    return source_.trimmed(words);
  }

  void add_values(TextRange range) {
    for (TextRange word = source_.first_word(range); !word.empty();
         word = source_.first_word(range)) {
      const bool is_number = core::number::parse_float(source_.text_of(word)).has_value();
      add(word, is_number ? TokenType::Number : TokenType::Value);
      range.begin = word.end;
    }
  }

  void look_at(std::size_t line, const LineInfo& info) {
    const TextRange words = words_of(line);
    switch (info.role) {
      case LineRole::Comment:
      case LineRole::ScriptLine:
        add(source_.content(line), TokenType::Comment);
        break;
      case LineRole::ModuleHeader:
      case LineRole::ModuleEnd:
        add(source_.first_word(line), TokenType::Module);
        break;
      case LineRole::GeometryStart:
      case LineRole::GeometryEnd:
      case LineRole::BlockEnd:
        add(words, TokenType::Border);
        break;
      case LineRole::Keyword:
        add(input_.keyword_range(info.record), TokenType::Keyword);
        add_values(input_.behind_keyword(info.record));
        break;
      case LineRole::Atom:
        add(source_.first_word(words), TokenType::Element);
        add_values({source_.first_word(words).end, words.end});
        break;
      case LineRole::GeometryLine:
      case LineRole::Value:
        add_values(words);
        break;
      case LineRole::Header:
        look_at_header(line, info.record);
        break;
      case LineRole::Shell:
      case LineRole::Database:
        add(words, TokenType::Script);
        break;
      default:
        break;
    }
  }

  void look_at_header(std::size_t line, const RecordId& first) {
    const std::size_t count = input_.data().easy_tokens.size();
    for (std::size_t i = first.index; i < count; ++i) {
      const RecordId record = RecordId::of(RecordKind::EasyToken, i);
      if (input_.first_line(record) != line) {
        break;
      }
      const auto parts = input_.specification_ranges(i);
      const auto words = input_.token_ranges(i);
      if (parts.basis.empty()) {
        add(words.key, TokenType::Keyword);
        add_values(words.value);
      } else {
        add(parts.method, TokenType::Method);
        add(parts.functional, TokenType::Method);
        add(parts.basis, TokenType::Value);
      }
    }
  }

  const ParsedInput& input_;
  const input::bdf::SourceText& source_;
  std::vector<Token> found_;
};

// Each token is given relative to the one before it.
Json tokens_json(const View& view, const std::vector<Token>& tokens) {
  Json data = Json::array();
  Position last;
  std::size_t last_end = 0;
  for (const Token& token : tokens) {
    const std::string_view text = view.document.text();
    const Position begin =
        view.document.lines().position(text, token.range.begin, view.client.unit);
    const Position end = view.document.lines().position(text, token.range.end, view.client.unit);
    // A token must not leave its line, nor cover another one.
    if (end.line != begin.line || token.range.begin < last_end ||
        end.character <= begin.character) {
      continue;
    }
    const bool same_line = begin.line == last.line;
    data.push_back(begin.line - last.line);
    data.push_back(same_line ? begin.character - last.character : begin.character);
    data.push_back(end.character - begin.character);
    data.push_back(static_cast<int>(token.type));
    data.push_back(0);
    last = begin;
    last_end = token.range.end;
  }
  return {{"data", std::move(data)}};
}

}  // namespace

Json token_types() {
  return type_names;
}

Json semantic_tokens(const View& view, const Json&) {
  const ParsedInput& input = view.input();
  return tokens_json(view, TokenFinder(input).run(1, input.source().line_count()));
}

Json semantic_tokens_range(const View& view, const Json& params) {
  const ParsedInput& input = view.input();
  const TextRange wanted = view.document.text_range(member(params, "range"), view.client.unit);
  return tokens_json(view, TokenFinder(input).run(input.source().line_at(wanted.begin),
                                                  std::min(input.source().line_at(wanted.end),
                                                           input.source().line_count())));
}

}  // namespace kelp::app::lsp
