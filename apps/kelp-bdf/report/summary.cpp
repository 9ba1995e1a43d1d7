#include "report/summary.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "kelp/core/unicode.hpp"

namespace kelp::app {
namespace {

using input::bdf::Severity;

// Errors come first, wherever their enumerator stands.
std::size_t rank(Severity severity) {
  if (severity == Severity::Error) {
    return 0;
  }
  return severity == Severity::Warning ? 1 : 2;
}

std::string of_files(std::size_t count) {
  return fmt::format("in {} file{}", count, count == 1 ? "" : "s");
}

}  // namespace

void Summary::add(std::string_view file, Severity severity, const std::string& code) {
  if (files_.empty() || files_.back().name != file) {
    files_.push_back({std::string(file), {}});
  }
  ++files_.back().counts[rank(severity)];
  OfCode& of_code = codes_[{severity, code}];
  ++of_code.findings;
  of_code.files += of_code.last_file == files_.size() ? 0 : 1;
  of_code.last_file = files_.size();
}

std::string Summary::text() const {
  if (files_.empty()) {
    return {};
  }
  std::vector<std::pair<std::pair<Severity, std::string>, OfCode>> codes(codes_.begin(),
                                                                         codes_.end());
  std::stable_sort(codes.begin(), codes.end(), [](const auto& left, const auto& right) {
    const std::size_t before = rank(left.first.first);
    const std::size_t behind = rank(right.first.first);
    return before != behind ? before < behind : left.second.findings > right.second.findings;
  });
  std::size_t width = 0;
  for (const auto& [code, counts] : codes) {
    width = std::max(width, code.second.size());
  }
  std::string text;
  for (const auto& [code, counts] : codes) {
    text += fmt::format("{:7}  {:{}}  {:>7}  {}\n", to_string(code.first), code.second, width,
                        counts.findings, of_files(counts.files));
  }
  text += fmt::format("\n{:>7}  {:>8}  {:>7}  file\n", "errors", "warnings", "notes");
  for (const OfFile& file : files_) {
    text += fmt::format("{:>7}  {:>8}  {:>7}  {}\n", file.counts[0], file.counts[1], file.counts[2],
                        core::unicode::displayable(file.name));
  }
  return text + '\n';
}

}  // namespace kelp::app
