#include "cases.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "advice/advice.hpp"
#include "kelp/core/text.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/schema.hpp"

namespace kelp::test {
namespace {

namespace fs = std::filesystem;
using input::bdf::Diagnostic;

constexpr std::string_view title_mark = "=== ";
constexpr std::string_view files_mark = "=== files:";
constexpr std::string_view expected_mark = ">>> ";

std::vector<std::string> words_of(std::string_view text) {
  std::vector<std::string> words;
  while (true) {
    const std::string_view word = core::text::take_word(text);
    if (word.empty()) {
      return words;
    }
    words.emplace_back(word);
  }
}

class CaseReader {
 public:
  explicit CaseReader(fs::path file) : file_(std::move(file)) {}

  std::vector<AdviceCase> read() {
    const std::string bytes = file_bytes(file_);
    for (std::string_view rest = bytes; !rest.empty();) {
      ++line_;
      read_line(core::text::take_line(rest));
    }
    return std::move(cases_);
  }

 private:
  void read_line(std::string_view line) {
    if (line.starts_with(files_mark)) {
      cases_.back().files = words_of(line.substr(files_mark.size()));
    } else if (line.starts_with(title_mark)) {
      begin(line.substr(title_mark.size()));
    } else if (line.starts_with(expected_mark)) {
      cases_.back().expected.emplace_back(line.substr(expected_mark.size()));
    } else if (line.starts_with('@')) {
      EXPECT_TRUE(definitions_.count(std::string(line.substr(1)))) << file_ << ':' << line_;
      *text_ += definitions_[std::string(line.substr(1))];
    } else if (text_ != nullptr) {
      text_->append(line).append("\n");
    }
  }

  void begin(std::string_view title) {
    const std::vector<std::string> words = words_of(title);
    const std::string kind = words.empty() ? "" : words.front();
    EXPECT_TRUE(words.size() > 1 && (kind == "define" || kind == "fires" || kind == "silent"))
        << file_ << ':' << line_;
    if (kind == "define") {
      text_ = &definitions_[words.at(1)];
      return;
    }
    AdviceCase it;
    it.file = file_;
    it.line = line_;
    it.title = title;
    it.fires = kind == "fires";
    it.code = words.at(1).substr(0, words.at(1).find(':'));
    cases_.push_back(std::move(it));
    text_ = &cases_.back().text;
  }

  fs::path file_;
  std::size_t line_ = 0;
  std::map<std::string, std::string> definitions_;
  std::vector<AdviceCase> cases_;
  std::string* text_ = nullptr;
};

}  // namespace

std::vector<AdviceCase> advice_cases() {
  std::vector<AdviceCase> all;
  for (const auto& item : fs::directory_iterator(test::data_folder() / "expert")) {
    if (item.path().extension() == ".txt" && item.path().filename() != "published.txt") {
      for (AdviceCase& it : CaseReader(item.path()).read()) {
        all.push_back(std::move(it));
      }
    }
  }
  std::sort(all.begin(), all.end(), [](const AdviceCase& left, const AdviceCase& right) {
    return std::tie(left.file, left.line) < std::tie(right.file, right.line);
  });
  return all;
}

std::vector<Diagnostic> advice_on(std::string_view text,
                                  const std::optional<std::vector<std::string>>& files) {
  const input::bdf::ParsedInput input(std::string(text), input::bdf::shipped_schema());
  input::bdf::InputFolder folder;
  folder.job_name = "job";
  folder.has_file = [&](std::string_view name) {
    return std::find(files->begin(), files->end(), name) != files->end();
  };
  std::vector<Diagnostic> found;
  advise(input, files ? &folder : nullptr,
         [&](const Diagnostic& diagnostic) { found.push_back(diagnostic); });
  return found;
}

std::string written(const Diagnostic& diagnostic, std::string_view text) {
  std::string line = std::string(to_string(diagnostic.severity)) + " " + diagnostic.code;
  if (diagnostic.range) {
    const input::bdf::SourceText source{std::string(text)};
    const input::bdf::TextPosition start = source.position(diagnostic.range->begin);
    const std::string_view marked = source.text_of(*diagnostic.range);
    line += " " + std::to_string(start.line) + ":" + std::to_string(start.column) + " '" +
            std::string(marked.substr(0, marked.find('\n'))) + "'";
  }
  return line;
}

// Keeps all lines but those of expectations, which come behind the last line of each case.
void update_expectations(const fs::path& file, const std::vector<AdviceCase>& cases) {
  const std::string bytes = file_bytes(file);
  std::string updated;
  const AdviceCase* open = nullptr;
  const auto close = [&] {
    if (open != nullptr) {
      for (const Diagnostic& diagnostic : advice_on(open->text, open->files)) {
        updated += std::string(expected_mark) + written(diagnostic, open->text) + "\n";
      }
    }
    open = nullptr;
  };
  std::size_t number = 0;
  for (std::string_view rest = bytes; !rest.empty();) {
    const std::string_view line = core::text::take_line(rest);
    ++number;
    if (line.starts_with(title_mark) && !line.starts_with(files_mark)) {
      close();
      const auto found = std::find_if(cases.begin(), cases.end(), [&](const AdviceCase& it) {
        return it.file == file && it.line == number;
      });
      open = found == cases.end() ? nullptr : &*found;
    }
    if (!line.starts_with(expected_mark)) {
      updated.append(line).append("\n");
    }
  }
  close();
  write_file(file, updated);
}

}  // namespace kelp::test
