// Header words are matched from both ends, and those between by their keyword. A word that changes
// is patched where it stands: of a pair its value, of a method specification the part that differs.
// A new word goes behind the last one, or on a line of its own where the header is written that
// way.

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/core/text.hpp"
#include "rewrite/document_patch.hpp"
#include "rewrite/method_specification.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

class HeaderPatch {
 public:
  HeaderPatch(const ParsedInput& input, const BDFData& edited, TextPatch& patch)
      : input_(input),
        source_(input.source()),
        old_(input.data().easy_tokens),
        new_(edited.easy_tokens),
        patch_(patch) {}

  void run() {
    std::size_t begin = 0;
    std::size_t old_end = old_.size();
    std::size_t new_end = new_.size();
    while (begin < old_end && begin < new_end && old_[begin].text == new_[begin].text) {
      ++begin;
    }
    while (begin < old_end && begin < new_end && old_[old_end - 1].text == new_[new_end - 1].text) {
      --old_end;
      --new_end;
    }
    replace(begin, old_end, new_end);
    flush_removals();
  }

 private:
  void replace(std::size_t begin, std::size_t old_end, std::size_t new_end) {
    std::size_t old_at = begin;
    for (std::size_t i = begin; i < new_end; ++i) {
      const std::size_t match = find_match(new_[i], old_at, old_end);
      if (match == none) {
        insert(new_[i], old_at);
        continue;
      }
      for (; old_at < match; ++old_at) {
        removed_.push_back(old_at);
      }
      change(match, new_[i]);
      ++old_at;
    }
    for (; old_at < old_end; ++old_at) {
      removed_.push_back(old_at);
    }
  }

  static bool is_specification(const EasyToken& token) { return token.category == "method_spec"; }

  std::size_t find_match(const EasyToken& token, std::size_t begin, std::size_t end) const {
    for (std::size_t i = begin; i < end; ++i) {
      const bool same =
          old_[i].text == token.text || (is_specification(old_[i]) == is_specification(token) &&
                                         (is_specification(token) || old_[i].key == token.key));
      if (same) {
        return i;
      }
    }
    return none;
  }

  void change(std::size_t index, const EasyToken& token) {
    if (old_[index].text == token.text) {
      return;
    }
    if (is_specification(token)) {
      return change_specification(index, token);
    }
    const TokenRanges ranges = input_.token_ranges(index);
    const std::size_t equals = token.text.find('=');
    if (equals == std::string::npos) {
      patch_.replace(ranges.whole, token.text);
    } else if (!ranges.value.empty()) {
      patch_.replace(without_comma(ranges.value), token.text.substr(equals + 1));
    } else {
      patch_.replace({ranges.key.end, ranges.whole.end}, token.text.substr(equals));
    }
  }

  // A comma behind a value parts it from the next word.
  TextRange without_comma(TextRange value) const {
    while (value.end > value.begin + 1 && source_.text()[value.end - 1] == ',') {
      --value.end;
    }
    return value;
  }

  // A part that goes takes the slash behind it along, one that comes brings its own.
  void change_specification(std::size_t index, const EasyToken& token) {
    const SpecificationRanges ranges = input_.specification_ranges(index);
    const SpecificationParts parts = specification_parts(token);
    if (ranges.basis.empty() || parts.basis.empty()) {
      patch_.replace(input_.token_ranges(index).whole, token.text);
      return;
    }
    const std::size_t behind_method =
        ranges.functional.empty() ? ranges.basis.begin : ranges.functional.begin;
    change_part(ranges.method, parts.method, behind_method);
    change_part(ranges.functional, parts.functional, ranges.basis.begin);
    change_part(ranges.basis, parts.basis, ranges.basis.end);
  }

  void change_part(const TextRange& range, std::string_view text, std::size_t next) {
    if (range.empty()) {
      if (!text.empty()) {
        patch_.replace({next, next}, std::string(text) + '/');
      }
    } else if (text.empty()) {
      patch_.replace({range.begin, next}, {});
    } else if (!core::text::equals_ignoring_case(source_.text_of(range), text)) {
      patch_.replace(range, std::string(text));
    }
  }

  std::size_t line_of_token(std::size_t index) const {
    return input_.first_line(RecordId::of(RecordKind::EasyToken, index));
  }

  bool is_alone(std::size_t index) const {
    const TextRange whole = input_.token_ranges(index).whole;
    const std::size_t line = line_of_token(index);
    const TextRange content = source_.content(line);
    const TextRange comment = input_.comment_range(line);
    const std::size_t end = source_.trimmed({whole.end, source_.line_range(line).end}).begin;
    return whole.begin == content.begin && (whole.end >= content.end || end == comment.begin);
  }

  // `before` is the index of the old token in front of which the new one belongs.
  void insert(const EasyToken& token, std::size_t before) {
    if (old_.empty()) {
      return insert_first(token);
    }
    const std::size_t last = before == 0 ? 0 : before - 1;
    if (before == 0) {
      const TextRange whole = input_.token_ranges(0).whole;
      patch_.replace({whole.begin, whole.begin}, token.text + " ");
    } else if (!is_specification(old_[last]) && is_alone(last)) {
      patch_.insert_lines(line_of_token(last), {in_style_of(last, token)});
    } else {
      const std::size_t end = input_.token_ranges(last).whole.end;
      patch_.replace({end, end}, " " + token.text);
    }
  }

  // "charge 1" and "charge=1" are two ways to write a header.
  std::string in_style_of(std::size_t index, const EasyToken& token) const {
    const TokenRanges ranges = input_.token_ranges(index);
    const std::size_t line = line_of_token(index);
    const std::string text(
        source_.text_of({source_.line_range(line).begin, source_.content(line).begin}));
    const std::string_view between = source_.text_of({ranges.key.end, ranges.value.begin});
    std::string pair = token.text;
    const std::size_t equals = pair.find('=');
    if (!ranges.value.empty() && equals != std::string::npos) {
      pair.replace(equals, 1, between.find('=') == std::string_view::npos ? " " : between);
    }
    return text + pair;
  }

  void insert_first(const EasyToken& token) {
    std::size_t line = 0;
    for (std::size_t number = 1; number <= source_.line_count() && line == 0; ++number) {
      line = input_.line(number).role == LineRole::ScriptLine ? number : 0;
    }
    patch_.insert_lines(line, {token.text});
  }

  // Words that go take the blanks before them along; when all of a line go, so does the line.
  void flush_removals() {
    for (std::size_t i = 0; i < removed_.size();) {
      const std::size_t line = line_of_token(removed_[i]);
      std::size_t end = i;
      while (end < removed_.size() && line_of_token(removed_[end]) == line) {
        ++end;
      }
      if (end - i == count_on_line(line, removed_[i])) {
        patch_.remove_lines(line, line);
      } else {
        remove_words(i, end);
      }
      i = end;
    }
  }

  std::size_t count_on_line(std::size_t line, std::size_t token) const {
    std::size_t first = token;
    while (first > 0 && line_of_token(first - 1) == line) {
      --first;
    }
    std::size_t last = token;
    while (last < old_.size() && line_of_token(last) == line) {
      ++last;
    }
    return last - first;
  }

  void remove_words(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
      TextRange range = input_.token_ranges(removed_[i]).whole;
      const TextRange line = source_.line_range(line_of_token(removed_[i]));
      const std::size_t word = range.begin;
      while (range.begin > line.begin && core::text::is_space(source_.text()[range.begin - 1])) {
        --range.begin;
      }
      if (range.begin == line.begin) {
        // The first word of a line: the blanks behind it go, the indentation stays.
        range.begin = word;
        while (range.end < line.end && core::text::is_space(source_.text()[range.end])) {
          ++range.end;
        }
      }
      patch_.replace(range, {});
    }
  }

  const ParsedInput& input_;
  const SourceText& source_;
  const std::vector<EasyToken>& old_;
  const std::vector<EasyToken>& new_;
  TextPatch& patch_;
  std::vector<std::size_t> removed_;
};

void patch_script_name(const ParsedInput& input, const BDFData& edited, TextPatch& patch) {
  if (edited.script_name == input.data().script_name || edited.mode == InputMode::Module) {
    return;
  }
  const SourceText& source = input.source();
  for (std::size_t line = 1; line <= source.line_count(); ++line) {
    if (input.line(line).role == LineRole::ScriptLine) {
      const TextRange content = source.content(line);
      const TextRange name = source.trimmed({content.begin + 2, content.end});
      patch.replace({name.empty() ? content.end : name.begin, content.end}, edited.script_name);
      return;
    }
  }
  patch.insert_lines(0, {"#!" + edited.script_name});
}

}  // namespace

void patch_header(const ParsedInput& input, const BDFData& edited, TextPatch& patch) {
  patch_script_name(input, edited, patch);
  HeaderPatch(input, edited, patch).run();
}

}  // namespace kelp::input::bdf
