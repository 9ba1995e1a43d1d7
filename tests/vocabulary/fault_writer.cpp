#include "fault_writer.hpp"

#include <utility>

#include "corpus.hpp"
#include "support/schema.hpp"

namespace kelp::test {

using input::bdf::RecordId;
using input::bdf::TextRange;

FaultWriter::FaultWriter(std::string_view text)
    : input_(std::string(text), input::bdf::shipped_schema()) {
  for (std::size_t number = 1; number <= input_.source().line_count(); ++number) {
    lines_.emplace_back(input_.source().line(number));
  }
}

std::string FaultWriter::text_of(const TextRange& range) const {
  return std::string(input_.source().text_of(range));
}

void FaultWriter::add(std::string_view kind, std::size_t index,
                      const std::vector<std::string>& lines) {
  faults_.push_back({kind, index + 1, test::text_of(lines)});
}

void FaultWriter::replace(std::string_view kind, const TextRange& range,
                          const std::string& replacement) {
  const std::size_t index = input_.source().line_at(range.begin) - 1;
  std::vector<std::string> lines = lines_;
  const std::size_t begin = range.begin - input_.source().line_range(index + 1).begin;
  lines[index].replace(begin, range.size(), replacement);
  add(kind, index, lines);
}

void FaultWriter::insert(std::string_view kind, std::size_t number, const std::string& line) {
  std::vector<std::string> lines = lines_;
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(number) - 1, line);
  add(kind, number - 1, lines);
}

void FaultWriter::repeat(std::string_view kind, const RecordId& record) {
  const auto begin = lines_.begin() + static_cast<std::ptrdiff_t>(input_.first_line(record)) - 1;
  const std::size_t end = input_.last_line(record);
  const std::vector<std::string> copy(begin, lines_.begin() + static_cast<std::ptrdiff_t>(end));
  std::vector<std::string> lines = lines_;
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(end), copy.begin(), copy.end());
  add(kind, end, lines);
}

void FaultWriter::remove_end(std::string_view kind, const RecordId& record) {
  if (const std::size_t number = input_.end_line(record); number != 0) {
    std::vector<std::string> lines = lines_;
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(number) - 1);
    add(kind, number - 1, lines);
  }
}

std::string misspelt(std::string word) {
  for (std::size_t i = word.size() > 3 ? 1 : 0; i + 1 < word.size(); ++i) {
    if (word[i] != word[i + 1]) {
      std::swap(word[i], word[i + 1]);
      return word;
    }
  }
  return word + "x";
}

std::vector<std::string> misspellings_of(const std::string& word) {
  constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::vector<std::string> all = {misspelt(word)};
  const std::size_t middle = word.find_first_of(letters, word.size() / 2);
  if (word.size() >= 4 && middle != std::string::npos && middle + 1 < word.size()) {
    all.push_back(word.substr(0, middle) + word.substr(middle + 1));
    all.push_back(word.substr(0, middle) + word.substr(middle, 1) + word.substr(middle));
  }
  return all;
}

std::vector<std::string> strokes_of(const std::string& word) {
  std::vector<std::string> all;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const std::string before = word.substr(0, i);
    const std::string behind = word.substr(i + 1);
    all.push_back(before + behind);
    all.push_back(before + word[i] + word[i] + behind);
    if (!behind.empty() && behind[0] != word[i]) {
      all.push_back(before + behind[0] + word[i] + behind.substr(1));
    }
  }
  return all;
}

std::vector<std::string> with_marks(const std::string& word) {
  return {'"' + word + '"', word + ',', word + '.'};
}

std::vector<Fault> faults_of(std::string_view text) {
  FaultWriter writer(text);
  break_modules(writer);
  break_names(writer);
  break_atoms(writer);
  break_ends(writer);
  return writer.take();
}

}  // namespace kelp::test
