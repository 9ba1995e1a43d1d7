#include "corpus.hpp"

#include <filesystem>
#include <sstream>

#include "kelp/core/text.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
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
  const fs::path root = test::corpus_folder() / folder;
  std::vector<std::string> rows = lines_of(file_bytes(root / "INDEX.tsv"));
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const std::vector<std::string> fields = fields_of(rows[i]);
    if (fields.size() == 7) {
      inputs.push_back({folder + "/" + fields[0], fields[6], file_bytes(root / fields[0])});
    }
  }
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

std::vector<Found> findings_in(std::string_view text) {
  using input::bdf::Diagnostic;
  const input::bdf::ParsedInput input(std::string(text), input::bdf::shipped_schema());
  std::vector<Found> findings;
  input::bdf::DiagnoseOptions options{input::bdf::UnknownNames::Error};
  options.advice = false;
  diagnose(input, options, [&](const Diagnostic& found) {
    const std::size_t line = found.range ? input.source().position(found.range->begin).line : 0;
    findings.push_back(
        {line, found.code, found.message, found.severity == input::bdf::Severity::Error});
  });
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
