#pragma once

// Short ways to validate a text and to write down what was found.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf.hpp"
#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {

using Findings = std::vector<std::string>;

/// Writes a finding down as `line:column+length severity code message`; a finding without a place
/// begins with `nowhere`.
inline std::string to_text(const ValidationIssue& issue) {
  std::string text = "nowhere";
  if (issue.location) {
    text = std::to_string(issue.location->line) + ":" + std::to_string(issue.location->column) +
           "+" + std::to_string(issue.location->length);
  }
  text += issue.severity == ValidationSeverity::Error ? " error " : " warning ";
  return text + issue.code + " " + issue.message;
}

inline Findings findings(const InputSchema& schema, const BDFData& data,
                         const ValidationOptions& options = {}) {
  Findings texts;
  for (const ValidationIssue& issue : schema.validate(data, options)) {
    texts.push_back(to_text(issue));
  }
  return texts;
}

/// Parses without validating and without dropping a line, then validates.
inline Findings findings(const InputSchema& schema, std::string_view text,
                         const ValidationOptions& options = {}) {
  const ParseOptions keep_everything = {true, false, 0, false};
  return findings(schema, BDFParser::parse_string(text, schema, keep_everything).data, options);
}

inline ValidationOptions unknown_names_as_warnings() {
  return {true, true, false, false};
}

inline ValidationOptions unknown_names_as_errors() {
  return {false, false, true, true};
}

}  // namespace kelp::input::bdf
