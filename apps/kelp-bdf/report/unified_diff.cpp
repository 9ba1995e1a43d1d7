#include "report/unified_diff.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <vector>

#include "kelp/core/diff.hpp"

namespace kelp::app {
namespace {

using Lines = std::vector<std::string_view>;

constexpr std::size_t context = 3;

void append_line(std::string& out, char sign, std::string_view line) {
  out += sign;
  out += line;
  if (!line.ends_with('\n')) {
    out += "\n\\ No newline at end of file\n";
  }
}

// "12,3"; a range of one line is its number alone, an empty one names the line before it.
std::string range_text(std::size_t begin, std::size_t end) {
  const std::size_t count = end - begin;
  if (count == 1) {
    return fmt::format("{}", begin + 1);
  }
  return fmt::format("{},{}", count == 0 ? begin : begin + 1, count);
}

bool needs_quotes(char byte) {
  return static_cast<unsigned char>(byte) < 0x20U || byte == 0x7F || byte == '"' || byte == '\\';
}

// The quoting that git introduced and patch understands. A tab behind a name tells patch that
// blanks belong to it.
std::string name_text(std::string_view side, std::string_view name) {
  while (name.starts_with('/')) {
    name.remove_prefix(1);
  }
  std::string text = fmt::format("{}/{}", side, name);
  if (std::none_of(text.begin(), text.end(), needs_quotes)) {
    return text + (text.find(' ') == std::string::npos ? "\n" : "\t\n");
  }
  std::string quoted = "\"";
  for (const char byte : text) {
    quoted += needs_quotes(byte) ? fmt::format("\\{:03o}", static_cast<unsigned char>(byte))
                                 : std::string(1, byte);
  }
  return quoted + "\"\n";
}

class Diff {
 public:
  Diff(std::string_view old_text, std::string_view new_text)
      : old_(core::diff::lines_with_ends(old_text)),
        new_(core::diff::lines_with_ends(new_text)),
        changes_(core::diff::find_changes(old_, new_)) {}

  std::string hunks() {
    for (std::size_t first = 0; first < changes_.size();) {
      std::size_t last = first;
      while (last + 1 < changes_.size() &&
             changes_[last + 1].old_begin - changes_[last].old_end <= 2 * context) {
        ++last;
      }
      write_hunk(first, last);
      first = last + 1;
    }
    return std::move(out_);
  }

 private:
  void write_hunk(std::size_t first, std::size_t last) {
    const core::diff::Change& front = changes_[first];
    const core::diff::Change& back = changes_[last];
    const std::size_t before = std::min(context, front.old_begin);
    const std::size_t after = std::min(context, old_.size() - back.old_end);
    std::size_t at = front.old_begin - before;
    out_ += fmt::format("@@ -{} +{} @@\n", range_text(at, back.old_end + after),
                        range_text(front.new_begin - before, back.new_end + after));
    for (std::size_t i = first; i <= last; ++i) {
      write(' ', old_, at, changes_[i].old_begin);
      write('-', old_, changes_[i].old_begin, changes_[i].old_end);
      write('+', new_, changes_[i].new_begin, changes_[i].new_end);
      at = changes_[i].old_end;
    }
    write(' ', old_, at, at + after);
  }

  void write(char sign, const Lines& lines, std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
      append_line(out_, sign, lines[i]);
    }
  }

  Lines old_;
  Lines new_;
  std::vector<core::diff::Change> changes_;
  std::string out_;
};

}  // namespace

std::string unified_diff(std::string_view name, std::string_view old_text,
                         std::string_view new_text) {
  const std::string hunks = Diff(old_text, new_text).hunks();
  if (hunks.empty()) {
    return {};
  }
  return "--- " + name_text("a", name) + "+++ " + name_text("b", name) + hunks;
}

}  // namespace kelp::app
