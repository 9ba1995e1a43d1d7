#pragma once

// Short ways to diagnose a text and to write down what was found.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf.hpp"
#include "support/test_schema.hpp"

namespace kelp::input::bdf {

inline const InputSchema& schema_of_tests() {
  static const InputSchema schema = InputSchema::from_yaml(test::test_schema);
  return schema;
}

inline ParsedInput parse(std::string_view text) {
  return ParsedInput(std::string(text), schema_of_tests());
}

inline std::string place_of(const TextRange& range, const SourceText& source) {
  const TextPosition start = source.position(range.begin);
  return std::to_string(start.line) + ":" + std::to_string(start.column) + " '" +
         std::string(source.text_of(range)) + "'";
}

/// Writes down all of a diagnostic but its message and its fixes, a line for each thing it says.
inline std::string to_text(const Diagnostic& diagnostic, const SourceText& source) {
  std::string text = std::string(to_string(diagnostic.severity)) + " " + diagnostic.code;
  text += diagnostic.path.empty() ? "" : " of " + diagnostic.path;
  for (const std::string& argument : diagnostic.arguments) {
    text += " [" + argument + "]";
  }
  text += '\n';
  if (diagnostic.range) {
    text += place_of(*diagnostic.range, source);
    text += (diagnostic.label.empty() ? "" : ": " + diagnostic.label) + "\n";
  }
  for (const RelatedRange& related : diagnostic.related) {
    text += place_of(related.range, source) + " is related: " + related.message + "\n";
  }
  for (const std::string& help : diagnostic.help) {
    text += "help: " + help + "\n";
  }
  for (const std::string& name : diagnostic.suggestions) {
    text += "meant: " + name + "\n";
  }
  return text;
}

inline std::vector<std::string> texts_of(const ParsedInput& input, DiagnoseOptions options = {}) {
  std::vector<std::string> texts;
  // Advice has tests of its own, over calculations that would run.
  options.advice = false;
  for (const Diagnostic& diagnostic : diagnose(input, options)) {
    texts.push_back(to_text(diagnostic, input.source()));
  }
  return texts;
}

inline std::vector<std::string> codes_of(const std::vector<Diagnostic>& diagnostics) {
  std::vector<std::string> codes;
  for (const Diagnostic& diagnostic : diagnostics) {
    codes.push_back(diagnostic.code);
  }
  return codes;
}

}  // namespace kelp::input::bdf
