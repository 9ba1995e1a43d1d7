#include "schema_lint/problems.hpp"

#include <algorithm>
#include <stdexcept>
#include <tuple>
#include <utility>

#include "kelp/core/text.hpp"

namespace kelp::input::bdf::lint {
namespace {

// yaml-cpp counts from 0, and says -1 where it does not know.
SourceSpan span_at(const YAML::Mark& mark) {
  SourceSpan span{1, 1, 0};
  if (!mark.is_null()) {
    span.line = static_cast<std::uint64_t>(mark.line) + 1;
    span.column = static_cast<std::uint64_t>(mark.column) + 1;
  }
  return span;
}

// More than anybody reads; a document can be made to have a million problems, or names.
constexpr std::size_t most_memory = std::size_t{32} * 1024 * 1024;

std::size_t memory_of(const Names& names) {
  std::size_t memory = 0;
  for (const std::string& name : names) {
    memory += sizeof name + name.size();
  }
  return memory;
}

}  // namespace

Problems::Problems(std::string_view yaml) : left_(most_memory) {
  while (!yaml.empty()) {
    lines_.push_back(core::text::take_line(yaml));
  }
}

void Problems::error(std::string_view code, const YAML::Node& node, std::string message) {
  add(ValidationSeverity::Error, code, node, std::move(message));
}

void Problems::warning(std::string_view code, const YAML::Node& node, std::string message) {
  add(ValidationSeverity::Warning, code, node, std::move(message));
}

void Problems::unknown(std::string_view code, const YAML::Node& node, std::string message,
                       Names known) {
  SchemaProblem& problem = add(ValidationSeverity::Error, code, node, std::move(message));
  problem.name = node.Scalar();
  if (const std::size_t memory = memory_of(known); memory <= left_) {
    left_ -= memory;
    problem.known = std::move(known);
  }
}

void Problems::error_at(std::string_view code, const YAML::Mark& mark, std::string message) {
  SchemaProblem problem;
  problem.code = code;
  problem.message = std::move(message);
  problem.location = span_at(mark);
  problems_.push_back(std::move(problem));
}

bool Problems::has_errors() const {
  return std::any_of(problems_.begin(), problems_.end(), [](const SchemaProblem& problem) {
    return problem.severity == ValidationSeverity::Error;
  });
}

std::vector<SchemaProblem> Problems::take() {
  std::stable_sort(problems_.begin(), problems_.end(),
                   [](const SchemaProblem& left, const SchemaProblem& right) {
                     return std::tie(left.location.line, left.location.column) <
                            std::tie(right.location.line, right.location.column);
                   });
  return std::move(problems_);
}

SchemaProblem& Problems::add(ValidationSeverity severity, std::string_view code,
                             const YAML::Node& node, std::string message) {
  const std::size_t memory = 2 * sizeof(SchemaProblem) + message.size();
  if (memory > left_) {
    throw std::runtime_error("it has too many problems");
  }
  left_ -= memory;
  error_at(code, node.Mark(), std::move(message));
  SchemaProblem& problem = problems_.back();
  problem.severity = severity;
  problem.location.length = length_of(node);
  return problem;
}

// A scalar that stands in the text as it is read has its own length; of anything else, quoted or
// folded text, a map, a list, the first byte is marked.
std::uint64_t Problems::length_of(const YAML::Node& node) const {
  const YAML::Mark mark = node.Mark();
  if (mark.is_null() || !node.IsScalar() || static_cast<std::size_t>(mark.line) >= lines_.size()) {
    return 0;
  }
  const std::string_view line = lines_[static_cast<std::size_t>(mark.line)];
  const auto column = static_cast<std::size_t>(mark.column);
  if (column >= line.size()) {
    return 0;
  }
  const std::string_view rest = line.substr(column);
  if (rest.starts_with(node.Scalar())) {
    return node.Scalar().size();
  }
  const bool quoted =
      (rest.front() == '\'' || rest.front() == '"') && rest.substr(1).starts_with(node.Scalar());
  return quoted ? node.Scalar().size() + 2 : 1;
}

std::string quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

std::string line_of(const YAML::Node& node) {
  return "line " + std::to_string(span_at(node.Mark()).line);
}

}  // namespace kelp::input::bdf::lint
