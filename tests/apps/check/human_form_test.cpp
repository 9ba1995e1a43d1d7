// What a finding looks like to people, byte for byte. What is said of each finding is the
// library's; how it is laid out is the command's.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "check/check_fixture.hpp"
#include "check/reporting.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(HumanForm, ShowsWordsLabelAndHelp) {
  EXPECT_EQ(human_reports("$scf\nguess\n  huckle # c\n$end\n"),
            "error[bdf.invalid_module_value]: BDF module entry 'scf.guess' has an invalid value "
            "'huckle'.\n"
            " --> a.inp:3:3\n"
            "  |\n"
            "3 |   huckle # c\n"
            "  |   ^^^^^^\n"
            "  = help: a similar value exists: 'huckel'\n"
            "  = help: expected: 'atom', 'hcore', 'huckel', 'readmo' or 'read'\n"
            "\n");
}

TEST(HumanForm, ShowsEachFindingByItself) {
  EXPECT_EQ(human_reports("$scf\nRHF\n  uhf\n$END\n$end\n"),
            "error[bdf.conflicting_entries]: BDF module entries 'scf.rhf' and 'scf.uhf' conflict.\n"
            " --> a.inp:2:1\n"
            "  |\n"
            "2 | RHF\n"
            "  | ^^^ not beside line 3\n"
            "\n"
            "warning[frame.stray_end]: '$end' stands behind no module and ends nothing.\n"
            " --> a.inp:5:1\n"
            "  |\n"
            "5 | $end\n"
            "  | ^^^^ ends nothing\n"
            "  = help: remove the line, or write the header of the module that it is to end\n"
            "\n");
}

TEST(HumanForm, NamesTheFileAloneWhereNoLineIsAtFault) {
  EXPECT_EQ(
      human_reports("#! job\nHF/sto-3g\n"),
      "error[bdf.missing_geometry]: BDF easy/mixed input requires a Geometry ... End Geometry "
      "block.\n"
      " --> a.inp\n"
      "  = help: put the atoms between a line 'Geometry' and a line 'End Geometry'\n"
      "\n");
  EXPECT_EQ(human_reports(""),
            "error[bdf.empty_input]: BDF input is empty\n"
            " --> a.inp\n"
            "\n");
}

TEST(HumanForm, FitsItsMarginToTheLineNumber) {
  EXPECT_EQ(
      human_reports("$scf\n" + std::string(98, '\n') + "ocupied\n$end\n"),
      "warning[bdf.unknown_entry]: Unknown BDF module entry 'scf.ocupied' was preserved raw.\n"
      "   --> a.inp:100:1\n"
      "    |\n"
      "100 | ocupied\n"
      "    | ^^^^^^^ not an entry of $scf\n"
      "    = help: a similar entry exists: 'occupied'\n"
      "\n");
}

TEST(HumanForm, HasColoursWhereTheyAreAskedFor) {
  const input::bdf::SourceText source("word\n");
  input::bdf::Diagnostic diagnostic;
  diagnostic.code = "some.code";
  diagnostic.range = input::bdf::TextRange{0, 4};
  std::string colours;
  for (const input::bdf::Severity severity :
       {input::bdf::Severity::Note, input::bdf::Severity::Warning, input::bdf::Severity::Error}) {
    diagnostic.severity = severity;
    const std::string text = app::report_text(diagnostic, source, "a", {true, true});
    colours += text.substr(0, text.find("[some"));
    EXPECT_EQ(app::report_text(diagnostic, source, "a", {true, false}).find('\x1B'),
              std::string::npos);
  }
  EXPECT_EQ(colours, "\x1B[1m\x1B[36mnote\x1B[1m\x1B[33mwarning\x1B[1m\x1B[31merror");
}

TEST(HumanForm, LinksCodesWhereTheTerminalCan) {
  const input::bdf::SourceText source("word\n");
  input::bdf::Diagnostic diagnostic;
  diagnostic.code = "some.code";
  EXPECT_EQ(
      app::report_text(diagnostic, source, "a", {.code_page = "file:///b%20c.md"}),
      "warning[\x1B]8;;file:///b%20c.md#some.code\x1B\\some.code\x1B]8;;\x1B\\]: \n --> a\n\n");
}

using CheckInHumanForm = Check;

TEST_F(CheckInHumanForm, PrintsTheReportsAndThenASummary) {
  const Outcome outcome = check(error_input);
  EXPECT_EQ(outcome.out, human_reports(error_input) + "1 error in 1 file (1 checked)\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 1);
}

TEST_F(CheckInHumanForm, LinksCodesToTheirPageWhereThatIsAskedFor) {
  const std::string link =
      "docs/findings.md#bdf.unknown_entry\x1B\\bdf.unknown_entry\x1B]8;;\x1B\\]";
  EXPECT_THAT(check(warning_input, {"--color=always"}).out, Not(HasSubstr("\x1B]8")));
  program.set_variable("FORCE_HYPERLINK", "1");
  const std::string linked = check(warning_input, {"--color=always"}).out;
  EXPECT_THAT(linked, HasSubstr("[\x1B]8;;file:///"));
  EXPECT_THAT(linked, HasSubstr(link));
  EXPECT_THAT(check(warning_input).out, Not(HasSubstr("\x1B")));
  program.set_variable("FORCE_HYPERLINK", "0");
  EXPECT_THAT(check(warning_input, {"--color=always"}).out, Not(HasSubstr("\x1B]8")));
}

#ifndef _WIN32
TEST(HumanFormOnATerminal, HasLinksWhereTheTerminalIsKnownToShowThem) {
  Program program;
  program.write("a.inp", warning_input);
  const Outcome outcome = program.run_in_shell(
      "command -v script >/dev/null || exit 77\n"
      "for setting in TERM=xterm 'TERM=xterm VTE_VERSION=6800' 'TERM=tmux VTE_VERSION=6800'; do\n"
      "  echo \"== $setting\"; env -u KITTY_WINDOW_ID -u KONSOLE_VERSION -u WT_SESSION \\\n"
      "    -u TERM_PROGRAM -u VTE_VERSION $setting \\\n"
      "    script -qefc '\"$KELP_BDF\" check a.inp' out </dev/null | grep -c ']8;;file'\n"
      "done; true");
  if (outcome.status == 77) {
    GTEST_SKIP() << "there is no terminal to be had";
  }
  EXPECT_EQ(outcome.out,
            "== TERM=xterm\n0\n== TERM=xterm VTE_VERSION=6800\n1\n"
            "== TERM=tmux VTE_VERSION=6800\n0\n");
}
#endif

}  // namespace
}  // namespace kelp::test
