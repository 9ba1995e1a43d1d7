// The lines of the input are paired with those of its canonical form, as far as they say the same.
// What the change replaces in the canonical form is then replaced in the lines paired with it;
// where a line has no partner, everything up to the next ones that have is replaced.

#include "line_change.hpp"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>
#include <vector>

#include "canonical_form.hpp"
#include "kelp/core/text.hpp"
#include "line_diff.hpp"
#include "line_of.hpp"

namespace kelp::app {
namespace {

using input::bdf::BDFData;
using input::bdf::Module;
using input::bdf::ModuleEntry;
using Lines = std::vector<std::string_view>;

constexpr std::size_t nowhere = std::string_view::npos;

// Returns what a line says, whatever its layout, apart from a remark.
std::string content_of(std::string_view line) {
  std::string content =
      core::text::to_lower(line.substr(0, std::min(line.find('#', 1), line.size())));
  std::erase_if(content, core::text::is_space);
  return content;
}

std::vector<std::string> contents_of(const Lines& lines) {
  std::vector<std::string> contents(lines.size());
  std::transform(lines.begin(), lines.end(), contents.begin(), content_of);
  return contents;
}

// Returns for each of the new lines the place of the old one that says the same.
std::vector<std::size_t> pair_lines(const Lines& old_lines, const Lines& new_lines) {
  const std::vector<std::string> old_contents = contents_of(old_lines);
  const std::vector<std::string> new_contents = contents_of(new_lines);
  std::vector<std::size_t> places(new_lines.size(), nowhere);
  std::size_t old_at = 0;
  std::size_t new_at = 0;
  const auto pair_up_to = [&](std::size_t new_end) {
    while (new_at < new_end) {
      places[new_at++] = old_at++;
    }
  };
  for (const Change& change : find_changes({old_contents.begin(), old_contents.end()},
                                           {new_contents.begin(), new_contents.end()})) {
    pair_up_to(change.new_begin);
    old_at = change.old_end;
    new_at = change.new_end;
  }
  pair_up_to(new_lines.size());
  return places;
}

// Returns for each line, and for the end, how many lines before it have no partner.
std::vector<std::size_t> count_unpaired(const std::vector<std::size_t>& places) {
  std::vector<std::size_t> counts = {0};
  counts.reserve(places.size() + 1);
  for (const std::size_t place : places) {
    counts.push_back(counts.back() + (place == nowhere ? 1 : 0));
  }
  return counts;
}

// Returns lines together with the keyword that they follow, so that the values of two keywords are
// not taken for each other. The end of a module follows none.
std::vector<std::string> with_keywords(const Lines& lines, const std::set<std::size_t>& records) {
  std::vector<std::string> items;
  items.reserve(lines.size());
  std::string_view keyword;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (records.contains(i + 1) || lines[i].starts_with('$')) {
      keyword = {};
    }
    items.emplace_back(lines[i]).append(keyword);
    if (records.contains(i + 1)) {
      keyword = lines[i];
    }
  }
  return items;
}

std::string_view indentation_of(std::string_view line) {
  return line.substr(0, std::min(line.find_first_not_of(" \t"), line.size()));
}

class LineChanger {
 public:
  LineChanger(const CheckedInput& before, const std::string& canonical, const std::string& wanted)
      : before_(before),
        wanted_(wanted),
        old_(lines_with_ends(before.source.text())),
        from_(lines_with_ends(canonical)),
        to_(lines_with_ends(wanted)),
        from_records_(records_of(canonical)),
        to_records_(records_of(wanted)),
        places_(pair_lines(old_, from_)),
        unpaired_before_(count_unpaired(places_)) {}

  std::optional<LineChange> run() {
    for (const Change& change : wide_changes()) {
      const std::size_t begin = old_begin(change);
      const std::size_t end = old_end(change, begin);
      if (begin < copied_ || end < begin) {
        return std::nullopt;
      }
      copy_to(begin);
      replace(change, begin, end);
    }
    copy_to(old_.size());
    if (!means_what_is_wanted()) {
      return std::nullopt;
    }
    return std::move(result_);
  }

 private:
  std::set<std::size_t> records_of(const std::string& text) const {
    return record_lines(CheckedInput(before_.name, text, before_.schema).result.data);
  }

  // The place in the input between two lines of the canonical form, as the line before tells it.
  std::size_t place_behind(std::size_t line) const {
    if (line == 0) {
      return 0;
    }
    return places_[line - 1] == nowhere ? nowhere : places_[line - 1] + 1;
  }

  // The same, as the line behind tells it.
  std::size_t place_before(std::size_t line) const {
    return line == from_.size() ? old_.size() : places_[line];
  }

  bool is_settled(const Change& change) const {
    return old_begin(change) != nowhere && old_end(change, 0) != nowhere;
  }

  // What has a partner for each of its lines is exactly these; else it is all between the next
  // ones.
  bool is_paired(const Change& change) const {
    return unpaired_before_[change.old_begin] == unpaired_before_[change.old_end];
  }

  std::size_t old_begin(const Change& change) const {
    const std::size_t line = change.old_begin;
    if (line < change.old_end) {
      return is_paired(change) ? places_[line] : place_behind(line);
    }
    return place_behind(line) != nowhere ? place_behind(line) : place_before(line);
  }

  std::size_t old_end(const Change& change, std::size_t begin) const {
    if (change.old_begin == change.old_end) {
      return begin;
    }
    return is_paired(change) ? place_behind(change.old_end) : place_before(change.old_end);
  }

  bool begins_within_record(const Change& change) const {
    return change.old_begin < change.old_end ? !from_records_.contains(change.old_begin + 1)
                                             : !to_records_.contains(change.new_begin + 1);
  }

  // What stands behind a keyword on its line, where it is not read, may be meant as the value that
  // changes. Such a line has no partner, and goes with its value.
  Change with_keyword(Change change) const {
    const auto next = from_records_.upper_bound(change.old_begin);
    if (!begins_within_record(change) || next == from_records_.begin()) {
      return change;
    }
    const std::size_t keyword = *std::prev(next) - 1;
    if (unpaired_before_[keyword] != unpaired_before_[change.old_begin]) {
      change.new_begin -= change.old_begin - keyword;
      change.old_begin = keyword;
    }
    return change;
  }

  // Widens a change until the lines at both of its ends are paired.
  Change widened(Change change) const {
    while (!is_settled(change)) {
      if (old_begin(change) == nowhere) {
        --change.old_begin;
        --change.new_begin;
      }
      if (old_end(change, 0) == nowhere) {
        ++change.old_end;
        ++change.new_end;
      }
    }
    return change;
  }

  // Each change knows what the lines before its first and behind its last are replaced by, unless
  // another change lies between; so the places of a joint one come from the outer sides of the two.
  static Change joined(const Change& first, const Change& second) {
    Change joint = first;
    if (second.old_begin < first.old_begin) {
      joint.old_begin = second.old_begin;
      joint.new_begin = first.new_begin - (first.old_begin - second.old_begin);
    }
    joint.old_end = std::max(first.old_end, second.old_end);
    joint.new_end = second.new_end + (joint.old_end - second.old_end);
    return joint;
  }

  std::vector<Change> wide_changes() const {
    std::vector<Change> changes;
    const std::vector<std::string> from = with_keywords(from_, from_records_);
    const std::vector<std::string> to = with_keywords(to_, to_records_);
    for (const Change& narrow : find_changes({from.begin(), from.end()}, {to.begin(), to.end()})) {
      Change change = widened(with_keyword(narrow));
      while (!changes.empty() && change.old_begin < changes.back().old_end) {
        change = widened(joined(changes.back(), change));
        changes.pop_back();
      }
      changes.push_back(change);
    }
    return changes;
  }

  void copy_to(std::size_t end) {
    for (; copied_ < end; ++copied_) {
      append(old_[copied_]);
    }
  }

  void append(std::string_view line) {
    if (!result_.text.empty() && result_.text.back() != '\n') {
      result_.text += line_end();
    }
    result_.text += line;
  }

  std::string_view line_end() const {
    return !old_.empty() && old_.front().ends_with("\r\n") ? "\r\n" : "\n";
  }

  // Where the numbers of lines agree, each new line takes the place and indentation of an old one.
  void replace(const Change& change, std::size_t begin, std::size_t end) {
    const std::size_t count = change.new_end - change.new_begin;
    const bool line_by_line = end - begin == count && change.old_end - change.old_begin == count;
    for (std::size_t i = 0; i < count; ++i) {
      const std::string_view line = to_[change.new_begin + i];
      const bool stays = line_by_line && line == from_[change.old_begin + i] &&
                         places_[change.old_begin + i] == begin + i;
      if (stays) {
        append(old_[begin + i]);
        continue;
      }
      if (line_by_line) {
        result_.replaced.insert(begin + i + 1);
      }
      append(line_by_line ? indentation_of(old_[begin + i]) : indentation_of(line));
      result_.text += core::text::trim_view(line);
      result_.text += line_end();
    }
    for (std::size_t i = begin; i < end && !line_by_line; ++i) {
      result_.replaced.insert(i + 1);
    }
    copied_ = end;
  }

  bool means_what_is_wanted() const {
    const auto meaning = [this](const std::string& text) {
      return canonical_text(CheckedInput(before_.name, text, before_.schema));
    };
    return meaning(result_.text) == meaning(wanted_);
  }

  const CheckedInput& before_;
  const std::string& wanted_;
  Lines old_;
  Lines from_;
  Lines to_;
  std::set<std::size_t> from_records_;
  std::set<std::size_t> to_records_;
  std::vector<std::size_t> places_;  ///< of the lines of the canonical form in the input
  std::vector<std::size_t> unpaired_before_;
  std::size_t copied_ = 0;  ///< lines of the input that are dealt with
  LineChange result_;
};

void add_lines(std::set<std::size_t>& lines, const std::vector<ModuleEntry>& entries) {
  for (const ModuleEntry& entry : entries) {
    lines.insert(line_of(entry));
    add_lines(lines, entry.children);
  }
}

}  // namespace

std::optional<LineChange> change_lines(const CheckedInput& before, const std::string& canonical,
                                       const std::string& wanted) {
  return LineChanger(before, canonical, wanted).run();
}

std::set<std::size_t> record_lines(const BDFData& data) {
  std::set<std::size_t> lines;
  for (const Module& module : data.modules) {
    lines.insert(line_of(module));
    add_lines(lines, module.entries);
  }
  // Records that were not read from a text.
  lines.erase(0);
  return lines;
}

}  // namespace kelp::app
