#pragma once

#include <string>
#include <string_view>

#include "kelp/input/bdf.hpp"
#include "report/findings.hpp"
#include "support/test_schema.hpp"

namespace kelp::test {

/// Returns the reports on all findings about a text, without colours.
inline std::string reports(std::string_view text, bool human) {
  static const auto schema = input::bdf::InputSchema::from_yaml(test_schema);
  const input::bdf::ParsedInput input(std::string(text), schema);
  std::string reports;
  diagnose(input, {}, [&](const input::bdf::Diagnostic& diagnostic) {
    reports += app::report_text(diagnostic, input.source(), "a.inp", {human, false});
  });
  return reports;
}

inline std::string human_reports(std::string_view text) {
  return reports(text, true);
}

}  // namespace kelp::test
