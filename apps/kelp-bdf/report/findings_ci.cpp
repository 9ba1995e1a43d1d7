// Findings as services that build and test projects read them: workflow commands of GitHub, which
// become annotations of the lines, and a JUnit report, in which a file is a suite of tests.

#include <fmt/format.h>

#include <string>
#include <string_view>

#include "kelp/core/unicode.hpp"
#include "report/findings_report.hpp"

namespace kelp::app {
namespace {

using core::unicode::displayable;
using input::bdf::Diagnostic;
using input::bdf::Severity;
using input::bdf::TextPosition;

std::string github_value(std::string_view text, std::string_view special) {
  std::string value;
  for (const char byte : displayable(text)) {
    const bool is_plain = byte != '%' && special.find(byte) == std::string_view::npos;
    value += is_plain ? std::string(1, byte) : fmt::format("%{:02X}", static_cast<int>(byte));
  }
  return value;
}

class GithubForm : public FindingsReport {
 public:
  WrittenFinding write(const Finding& finding) const override {
    const Diagnostic& diagnostic = finding.diagnostic;
    const std::string_view command =
        diagnostic.severity == Severity::Note ? "notice" : to_string(diagnostic.severity);
    std::string text = fmt::format("::{} file={}", command, property(finding.file));
    if (diagnostic.range) {
      const TextPosition start = finding.source.position(diagnostic.range->begin);
      const TextPosition end = finding.source.position(diagnostic.range->end);
      text += fmt::format(",line={},endLine={}", start.line, end.line);
      // Columns of a range of several lines are refused.
      if (start.line == end.line) {
        text += fmt::format(",col={},endColumn={}", start.column, end.column);
      }
    }
    text += fmt::format(",title={}::{}\n", property(diagnostic.code),
                        github_value(diagnostic.message, ""));
    return {std::move(text), {}, {}, false};
  }

 private:
  static std::string property(std::string_view text) { return github_value(text, ":,"); }
};

std::string xml(std::string_view text) {
  std::string escaped;
  for (const char byte : displayable(text)) {
    switch (byte) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += byte;
    }
  }
  return escaped;
}

/// A finding is a test, failed if it makes the command fail; a file without findings has one that
/// passed. The numbers stand before the tests, so that those of one file are kept until its end.
class JunitForm : public FindingsReport {
 public:
  WrittenFinding write(const Finding& finding) const override {
    const Diagnostic& diagnostic = finding.diagnostic;
    const std::size_t byte = diagnostic.range ? diagnostic.range->begin : 0;
    const TextPosition start = finding.source.position(byte);
    std::string text = fmt::format(
        "    <testcase classname=\"{0}\" file=\"{0}\" line=\"{1}\" name=\"{2} at {1}:{3}\">\n",
        xml(finding.file), start.line, xml(diagnostic.code), start.column);
    const std::string line = xml(concise_text(diagnostic, finding.source, finding.file));
    text += finding.fails
                ? fmt::format("      <failure type=\"{}\" message=\"{}\">{}</failure>\n",
                              to_string(diagnostic.severity), xml(diagnostic.message), line)
                : fmt::format("      <system-out>{}</system-out>\n", line);
    return {text + "    </testcase>\n", {}, {}, finding.fails};
  }

  std::string begin() override {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites name=\"kelp-bdf check\">\n";
  }

  std::string begin_file(std::string_view file) override {
    suite_ = {};
    suite_.name = xml(file);
    is_open_ = true;
    return {};
  }

  std::string add(const WrittenFinding& finding) override {
    ++suite_.tests;
    suite_.failures += finding.fails ? 1 : 0;
    suite_.text += finding.text;
    return {};
  }

  std::string fail(const std::string& reason) override {
    const bool is_alone = !is_open_;
    if (is_alone) {
      begin_file("kelp-bdf");
    }
    ++suite_.tests;
    ++suite_.errors;
    suite_.text += fmt::format(
        "    <testcase classname=\"{}\" name=\"can be checked\">\n"
        "      <error type=\"failure\" message=\"{}\"/>\n    </testcase>\n",
        suite_.name, xml(reason));
    return is_alone ? end_file() : std::string();
  }

  std::string end_file() override {
    is_open_ = false;
    if (suite_.tests == 0) {
      suite_.tests = 1;
      suite_.text = fmt::format(
          "    <testcase classname=\"{0}\" file=\"{0}\" name=\"has no findings\"/>\n", suite_.name);
    }
    return fmt::format(
        "  <testsuite name=\"{}\" tests=\"{}\" failures=\"{}\" errors=\"{}\">\n{}  </testsuite>\n",
        suite_.name, suite_.tests, suite_.failures, suite_.errors, suite_.text);
  }

  std::string end(const Totals& /*totals*/) override { return "</testsuites>\n"; }

 private:
  struct Suite {
    std::string name;
    std::size_t tests = 0;
    std::size_t failures = 0;
    std::size_t errors = 0;
    std::string text;
  };

  Suite suite_;
  bool is_open_ = false;
};

}  // namespace

std::unique_ptr<FindingsReport> make_github_report() {
  return std::make_unique<GithubForm>();
}

std::unique_ptr<FindingsReport> make_junit_report() {
  return std::make_unique<JunitForm>();
}

}  // namespace kelp::app
