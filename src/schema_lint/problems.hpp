#pragma once

#include <yaml-cpp/yaml.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/schema_lint.hpp"

namespace kelp::input::bdf::lint {

using Names = std::vector<std::string>;

/// Collects the problems of one document, as many as are worth the memory.
class Problems {
 public:
  explicit Problems(std::string_view yaml);

  // These throw std::runtime_error when there are far too many.
  void error(std::string_view code, const YAML::Node& node, std::string message);
  void warning(std::string_view code, const YAML::Node& node, std::string message);
  /// Reports a word that is none of those known, which may be left out where they are too many.
  void unknown(std::string_view code, const YAML::Node& node, std::string message, Names known);
  /// Reports an error at a place that has no node; one more is always told.
  void error_at(std::string_view code, const YAML::Mark& mark, std::string message);

  bool has_errors() const;
  /// Returns the problems in the order of their places.
  std::vector<SchemaProblem> take();

 private:
  SchemaProblem& add(ValidationSeverity severity, std::string_view code, const YAML::Node& node,
                     std::string message);
  std::uint64_t length_of(const YAML::Node& node) const;

  std::vector<std::string_view> lines_;
  std::vector<SchemaProblem> problems_;
  std::size_t left_;
};

/// Returns a text in single quotes.
std::string quoted(std::string_view text);

/// Returns "line 7" for the line where a node begins.
std::string line_of(const YAML::Node& node);

}  // namespace kelp::input::bdf::lint
