#include "rewrite/text_patch.hpp"

#include <algorithm>
#include <utility>

namespace kelp::input::bdf {

void TextPatch::replace(const TextRange& range, std::string text) {
  if (source_.text_of(range) != text) {
    edits_.push_back({range, std::move(text)});
  }
}

// Files with ends of both kinds go on with the kind of the line before.
std::string_view TextPatch::line_end_at(std::size_t line) const {
  for (std::size_t at = std::max<std::size_t>(line, 1); at >= 1; --at) {
    const std::string_view end = source_.line_end(at);
    if (end.ends_with('\n')) {
      return end;
    }
  }
  return "\n";
}

void TextPatch::insert_lines(std::size_t behind, const std::vector<std::string>& lines) {
  if (lines.empty()) {
    return;
  }
  const std::string_view end = line_end_at(behind);
  const std::size_t at =
      behind == 0 ? source_.full_line_range(1).begin : source_.full_line_range(behind).end;
  const bool at_open_end =
      behind > 0 && behind == source_.line_count() && !source_.line_end(behind).ends_with('\n');
  std::string text;
  for (const std::string& line : lines) {
    text += at_open_end ? std::string(end) + line : line + std::string(end);
  }
  edits_.push_back({{at, at}, std::move(text)});
}

void TextPatch::remove_lines(std::size_t first, std::size_t last) {
  if (first >= 1 && first <= last) {
    edits_.push_back(
        {{source_.full_line_range(first).begin, source_.full_line_range(last).end}, {}});
  }
}

void TextPatch::lose(const TextRange& words) {
  if (!words.empty()) {
    lost_.push_back(words);
  }
}

std::vector<TextRange> TextPatch::lost() const {
  std::vector<TextRange> sorted = lost_;
  std::sort(sorted.begin(), sorted.end(),
            [](const TextRange& left, const TextRange& right) { return left.begin < right.begin; });
  return sorted;
}

// When the last line goes and it had no end, the end of the line before it goes instead, unless
// something comes in between.
void TextPatch::keep_missing_line_end() {
  if (edits_.empty()) {
    return;
  }
  TextEdit& last = edits_.back();
  const std::string_view text = source_.text();
  const bool removes_open_end = last.text.empty() && last.range.end == text.size() &&
                                !text.ends_with('\n') && last.range.begin > 0 &&
                                text[last.range.begin - 1] == '\n';
  if (!removes_open_end) {
    return;
  }
  const TextRange kept = source_.line_range(source_.line_at(last.range.begin - 1));
  if (edits_.size() == 1 || edits_[edits_.size() - 2].range.end <= kept.end) {
    last.range.begin = kept.end;
  }
}

std::vector<TextEdit> TextPatch::finish() {
  std::stable_sort(edits_.begin(), edits_.end(), [](const TextEdit& left, const TextEdit& right) {
    return left.range.begin != right.range.begin ? left.range.begin < right.range.begin
                                                 : left.range.empty() && !right.range.empty();
  });
  keep_missing_line_end();
  std::vector<TextEdit> merged;
  for (TextEdit& edit : edits_) {
    if (!merged.empty() && edit.text.empty() && edit.range.begin < merged.back().range.end) {
      // Lines that go for two reasons.
      merged.back().range.end = std::max(merged.back().range.end, edit.range.end);
    } else if (!merged.empty() && merged.back().range.end == edit.range.begin) {
      merged.back().range.end = edit.range.end;
      merged.back().text += edit.text;
    } else {
      merged.push_back(std::move(edit));
    }
  }
  edits_.clear();
  // A text whose last line had no end gets none.
  if (!merged.empty() && merged.back().range.end == source_.text().size() &&
      !source_.text().ends_with('\n')) {
    std::string& last = merged.back().text;
    last.resize(last.size() - (last.ends_with("\r\n") ? 2 : last.ends_with('\n') ? 1 : 0));
  }
  return merged;
}

}  // namespace kelp::input::bdf
