// A finding on one line, for logs, for grep and for editors.

#include "diagnose/diagnosing.hpp"

namespace kelp::input::bdf {
namespace {

Diagnostic finding(Severity severity, std::string message) {
  Diagnostic diagnostic;
  diagnostic.code = "bdf.some_code";
  diagnostic.severity = severity;
  diagnostic.message = std::move(message);
  return diagnostic;
}

TEST(ConciseText, TellsFileLineColumnSeverityMessageAndCode) {
  const ParsedInput input = parse("$scf\n  ocupied\n charge\n  one\n$end\n");
  std::vector<std::string> texts;
  for (const Diagnostic& diagnostic : diagnose(input)) {
    texts.push_back(concise_text(diagnostic, input.source(), "dir/a.inp"));
  }
  EXPECT_THAT(texts,
              ::testing::ElementsAre(
                  "dir/a.inp:2:3: warning: Unknown BDF module entry 'scf.ocupied' was preserved "
                  "raw. [bdf.unknown_entry]",
                  "dir/a.inp:4:3: error: BDF module entry 'scf.charge' has an invalid value 'one'. "
                  "[bdf.invalid_module_value]"));
}

TEST(ConciseText, PutsWhatConcernsTheWholeInputAtItsBeginning) {
  EXPECT_EQ(concise_text(finding(Severity::Note, "m"), SourceText("\n\n"), "a"),
            "a:1:1: note: m [bdf.some_code]");
}

TEST(ConciseText, CountsCodePoints) {
  Diagnostic diagnostic = finding(Severity::Error, "m");
  diagnostic.range = TextRange{7, 8};
  EXPECT_EQ(concise_text(diagnostic, SourceText("a\n\u6C34\u00E9x"), "a"),
            "a:2:3: error: m [bdf.some_code]");
}

TEST(ConciseText, IsOneLineThatATerminalShowsAsItIs) {
  const std::string text =
      concise_text(finding(Severity::Error, "a\x1B[31m\nb\tc\xFF"), SourceText(), "x\ny");
  EXPECT_EQ(text, "x\\ny:1:1: error: a\\x1b[31m\\nb    c\\xff [bdf.some_code]");
}

TEST(ConciseText, LeavesOutTheMiddleOfAVeryLongMessage) {
  const std::string text = concise_text(
      finding(Severity::Error, "begin" + std::string(100000, 'x') + "end"), SourceText(), "a");
  EXPECT_LT(text.size(), 2000U);
  EXPECT_THAT(text, ::testing::HasSubstr("begin"));
  EXPECT_THAT(text, ::testing::EndsWith("end [bdf.some_code]"));
}

}  // namespace
}  // namespace kelp::input::bdf
