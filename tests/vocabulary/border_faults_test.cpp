// Mistakes in the lines that bound the parts of an input, and in its keywords: each is found, on
// the line where it was made, and brings nothing else along.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "corpus.hpp"
#include "kelp/core/text.hpp"
#include "support/schema.hpp"

namespace kelp::test {
namespace {

using input::bdf::LineRole;
using input::bdf::ParsedInput;
using input::bdf::RecordId;

struct Mistake {
  std::string kind;
  std::size_t line = 0;  ///< where it is made; of a dropped line, where it stood
  bool is_dropped = false;
  std::string text;
};

std::string swapped(std::string word) {
  for (std::size_t i = word.size() > 3 ? 1 : 0; i + 1 < word.size(); ++i) {
    if (word[i] != word[i + 1]) {
      std::swap(word[i], word[i + 1]);
      return word;
    }
  }
  return word + "x";
}

/// Makes the mistakes of one text.
class MistakeMaker {
 public:
  explicit MistakeMaker(std::string_view text)
      : input_(std::string(text), input::bdf::shipped_schema()) {
    for (std::size_t number = 1; number <= input_.source().line_count(); ++number) {
      lines_.emplace_back(input_.source().line(number));
    }
  }

  std::vector<Mistake> run() {
    for (std::size_t number = 1; number <= lines_.size(); ++number) {
      break_line(number);
    }
    return std::move(mistakes_);
  }

 private:
  void write(const std::string& kind, std::size_t number, const std::string& statement) {
    std::vector<std::string> lines = lines_;
    const auto content = input_.source().content(number);
    const auto comment = input_.comment_range(number);
    const auto old = input_.source().trimmed({content.begin, comment.begin});
    lines[number - 1].replace(old.begin - input_.source().line_range(number).begin, old.size(),
                              statement);
    mistakes_.push_back({kind, number, false, text_of(lines)});
  }

  void drop(const std::string& kind, std::size_t number) {
    std::vector<std::string> lines = lines_;
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(number) - 1);
    mistakes_.push_back({kind, number, true, text_of(lines)});
  }

  std::string word_on(std::size_t number) const {
    return std::string(input_.source().text_of(input_.keyword_range(input_.line(number).record)));
  }

  void break_line(std::size_t number) {
    const input::bdf::LineInfo info = input_.line(number);
    const input::bdf::Module* const module = input::bdf::module_of(input_.data(), info.record);
    if (module != nullptr && !module->known) {
      return;
    }
    switch (info.role) {
      case LineRole::ModuleEnd:
        for (const char* const written : {"$edn", "$ end", "end", "End", "$en", "$endd", "ned"}) {
          write("misspelt $end", number, written);
        }
        write("wide dollar", number,
              "\xEF\xBC\x84"
              "end");
        return drop("dropped $end", number);
      case LineRole::BlockEnd:
      case LineRole::GeometryEnd:
        return break_terminator(number);
      case LineRole::GeometryStart:
        write("misspelt geometry", number, "Gemoetry");
        write("misspelt geometry", number, "Geom");
        return drop("dropped geometry", number);
      case LineRole::ModuleHeader:
        return break_header(number, module->name);
      case LineRole::Keyword:
        return break_keyword(number, info.record);
      default:
        return;
    }
  }

  void break_terminator(std::size_t number) {
    const std::string words =
        core::text::to_lower(input_.source().text_of(input_.source().content(number)));
    std::string joined = words;
    std::erase(joined, ' ');
    const std::string last = words.substr(std::min(words.find(' ') + 1, words.size()));
    write("misspelt terminator", number, "end");
    write("misspelt terminator", number, "edn " + last);
    write("misspelt terminator", number, "end " + swapped(last));
    write("misspelt terminator", number, words.substr(0, words.size() - 2));
    if (joined != words) {
      write("misspelt terminator", number, joined);
    }
    drop("dropped terminator", number);
  }

  void break_header(std::size_t number, const std::string& name) {
    if (const std::string wrong = swapped(name); !input_.schema().is_known_module(wrong)) {
      write("misspelt module", number, "$" + wrong);
    }
    write("missing dollar", number, name);
    drop("dropped module header", number);
    write("wide dollar", number, "\xEF\xBC\x84" + name);
  }

  void break_keyword(std::size_t number, const RecordId& record) {
    const std::string word = word_on(number);
    const std::string wrong = swapped(word);
    const input::bdf::Module& module = *input::bdf::module_of(input_.data(), record);
    if (input_.schema().is_known_entry(module.name, wrong)) {
      return;
    }
    std::vector<std::string> lines = lines_;
    const auto range = input_.keyword_range(record);
    lines[number - 1].replace(range.begin - input_.source().line_range(number).begin, range.size(),
                              wrong);
    if (module.name == "compass" && core::text::equals_ignoring_case(word, "geometry")) {
      drop("dropped geometry", number);
    }
    const bool is_behind_lines = follows_lines(record);
    mistakes_.push_back({is_behind_lines ? "keyword behind lines" : "misspelt keyword", number,
                         false, text_of(lines)});
  }

  bool follows_lines(const RecordId& record) const {
    if (record.kind != input::bdf::RecordKind::Entry || record.entry == 0) {
      return false;
    }
    return input_.data().modules[record.index].entries[record.entry - 1].kind ==
           input::bdf::EntryValueKind::MultiLine;
  }

  ParsedInput input_;
  std::vector<std::string> lines_;
  std::vector<Mistake> mistakes_;
};

struct Tally {
  int made = 0;
  int found = 0;
  int on_line = 0;
  int findings = 0;
  std::vector<std::string> odd;
};

// Findings that the text did not have before, in their order.
std::vector<Found> new_findings(const std::vector<Found>& before, const std::vector<Found>& after) {
  std::map<std::pair<std::string, std::string>, int> known;
  for (const Found& found : before) {
    ++known[{found.code, found.message}];
  }
  std::vector<Found> fresh;
  for (const Found& found : after) {
    if (--known[{found.code, found.message}] < 0) {
      fresh.push_back(found);
    }
  }
  return fresh;
}

bool is_on_line(const Mistake& mistake, std::size_t line) {
  if (!mistake.is_dropped) {
    return line == mistake.line;
  }
  if (line == mistake.line) {
    return true;
  }
  // Blank lines and comments may stand before and behind the line that was dropped.
  const std::vector<std::string> lines = lines_of(mistake.text);
  const auto says_nothing = [&](std::size_t number) {
    const std::string_view text = core::text::trim_view(lines[number - 1]);
    return text.empty() || text.front() == '#';
  };
  std::size_t before = mistake.line - 1;
  while (before > 1 && says_nothing(before)) {
    --before;
  }
  std::size_t behind = mistake.line;
  while (behind < lines.size() && says_nothing(behind)) {
    ++behind;
  }
  return line == before || line == behind;
}

void count(const CorpusInput& input, std::map<std::string, Tally>& tallies) {
  const std::vector<Found> before = findings_in(input.text);
  for (const Mistake& mistake : MistakeMaker(input.text).run()) {
    Tally& tally = tallies[mistake.kind];
    const std::vector<Found> fresh = new_findings(before, findings_in(mistake.text));
    ++tally.made;
    tally.found += fresh.empty() ? 0 : 1;
    const bool is_on = !fresh.empty() && is_on_line(mistake, fresh.front().line);
    tally.on_line += is_on ? 1 : 0;
    tally.findings += static_cast<int>(fresh.size());
    if (!is_on || fresh.size() > 1) {
      const std::vector<std::string> lines = lines_of(input.text);
      std::string text =
          input.name + ":" + std::to_string(mistake.line) + " '" + lines[mistake.line - 1] + "'";
      for (const Found& found : fresh) {
        text += "\n        " + std::to_string(found.line) + ": " + found.message;
      }
      tally.odd.push_back(std::move(text));
    }
  }
}

void print(const std::string& kind, const Tally& tally) {
  std::printf("%-22s %5d made  %6.2f %% found  %6.2f %% on the line  %5.2f findings\n",
              kind.c_str(), tally.made, 100.0 * tally.found / tally.made,
              100.0 * tally.on_line / tally.made, 1.0 * tally.findings / tally.made);
}

TEST(BorderFaults, AreFoundOnTheirLineAndOnce) {
  KELP_NEED_CORPUS();
  std::map<std::string, Tally> tallies;
  for (const CorpusInput& input : corpus()) {
    if (input.is_clean()) {
      count(input, tallies);
    }
  }
  Tally all;
  for (const auto& [kind, tally] : tallies) {
    print(kind, tally);
    for (std::size_t i = 0; i < tally.odd.size() && i < 5; ++i) {
      std::printf("    %s\n", tally.odd[i].c_str());
    }
    all.made += tally.made;
    all.found += tally.found;
    all.on_line += tally.on_line;
    all.findings += tally.findings;
  }
  print("all", all);
  EXPECT_GT(all.made, 5000);
  EXPECT_GE(all.found, 0.98 * all.made);
  EXPECT_GE(all.on_line, 0.95 * all.made);
  EXPECT_LE(all.findings, 1.2 * all.made);
}

}  // namespace
}  // namespace kelp::test
