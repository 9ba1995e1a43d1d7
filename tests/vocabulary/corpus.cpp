#include "corpus.hpp"

#include <filesystem>
#include <sstream>

#include "kelp/core/text.hpp"
#include "support/files.hpp"
#include "support/schema.hpp"

namespace kelp::test {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> fields_of(const std::string& row) {
  std::vector<std::string> fields;
  std::istringstream in(row);
  for (std::string field; std::getline(in, field, '\t');) {
    fields.push_back(field);
  }
  return fields;
}

void add_folder(const std::string& folder, std::vector<CorpusInput>& inputs) {
  const fs::path root = fs::path(KELP_CORPUS_DIR) / folder;
  std::vector<std::string> rows = lines_of(file_bytes(root / "INDEX.tsv"));
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const std::vector<std::string> fields = fields_of(rows[i]);
    if (fields.size() == 7) {
      inputs.push_back({folder + "/" + fields[0], fields[6], file_bytes(root / fields[0])});
    }
  }
}

bool is_remark(std::string_view line) {
  const std::string_view text = core::text::trim_view(line);
  return text.empty() || text.front() == '#' || text.front() == '*';
}

}  // namespace

bool CorpusInput::is_clean() const {
  std::istringstream reasons(suspect);
  for (std::string reason; std::getline(reasons, reason, ';');) {
    const std::string_view words = core::text::trim_view(reason);
    if (words != "-" && !words.starts_with("non-ASCII text in # remarks")) {
      return false;
    }
  }
  return true;
}

const std::vector<CorpusInput>& corpus() {
  static const std::vector<CorpusInput> inputs = [] {
    std::vector<CorpusInput> all;
    add_folder("inputs", all);
    add_folder("fragments", all);
    return all;
  }();
  return inputs;
}

input::bdf::ParseResult read_all(std::string_view text) {
  return input::bdf::BDFParser::parse_string(text, input::bdf::shipped_schema(),
                                             input::bdf::ParseOptions{});
}

std::vector<Found> findings_in(std::string_view text) {
  input::bdf::ValidationOptions options;
  options.unknown_modules_as_errors = true;
  options.unknown_entries_as_errors = true;
  const std::vector<std::string> lines = lines_of(text);
  std::vector<Found> findings;
  for (const auto& issue : input::bdf::shipped_schema().validate(read_all(text).data, options)) {
    const std::size_t line = issue.location ? static_cast<std::size_t>(issue.location->line) : 0;
    const bool names_a_line =
        issue.code == "bdf.unknown_entry" || issue.code == "bdf.unknown_nested_entry";
    if (!names_a_line || line == 0 || line > lines.size() || !is_remark(lines[line - 1])) {
      findings.push_back({line, issue.code, issue.message,
                          issue.severity == input::bdf::ValidationSeverity::Error});
    }
  }
  return findings;
}

std::vector<std::string> lines_of(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    lines.emplace_back(core::text::take_line(text));
  }
  return lines;
}

std::string text_of(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + '\n';
  }
  return text;
}

}  // namespace kelp::test
