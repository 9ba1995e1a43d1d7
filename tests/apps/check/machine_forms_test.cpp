// Forms of findings for other programs: what each does with names and texts that mean something in
// it, with files that cannot be read, and with findings that are left out.

#include <nlohmann/json.hpp>

#include <memory>
#include <string>
#include <vector>

#include "check/check_fixture.hpp"
#include "report/findings_report.hpp"

namespace kelp::test {
namespace {

using app::FindingsReport;
using app::make_findings_report;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using Json = nlohmann::json;

struct Written {
  input::bdf::SourceText source{"one two\nthree\n"};
  input::bdf::Diagnostic diagnostic;

  Written() {
    diagnostic.code = "bdf.unknown_entry";
    diagnostic.message = "a <b> & \"c\", 100%: d\x1B[m";
    diagnostic.range = input::bdf::TextRange{4, 7};
  }

  std::string in(const std::string& form, const std::string& file, bool fails = false) const {
    const auto report = make_findings_report(form, {});
    std::string text = report->begin();
    text += report->begin_file(file);
    text += report->add(report->write({diagnostic, source, file, fails}));
    text += report->end_file();
    return text += report->end({});
  }
};

TEST(MachineForms, AreListedAfterTheOneForPeople) {
  EXPECT_EQ(app::findings_forms(), (std::vector<std::string>{"human", "concise", "json", "jsonl",
                                                             "sarif", "github", "junit"}));
}

TEST(GithubForm, EscapesWhatEndsAPropertyOrACommand) {
  Written written;
  EXPECT_EQ(written.in("github", "a:b,c%.inp"),
            "::warning file=a%3Ab%2Cc%25.inp,line=1,endLine=1,col=5,endColumn=8,"
            "title=bdf.unknown_entry::a <b> & \"c\", 100%25: d\\x1b[m\n");
}

TEST(GithubForm, GivesNoColumnsOfSeveralLinesAndNoLineOfTheWholeFile) {
  Written written;
  written.diagnostic.severity = input::bdf::Severity::Note;
  written.diagnostic.message = "m";
  written.diagnostic.range = input::bdf::TextRange{4, 13};
  EXPECT_EQ(written.in("github", "a"),
            "::notice file=a,line=1,endLine=2,title=bdf.unknown_entry::m\n");
  written.diagnostic.range.reset();
  EXPECT_EQ(written.in("github", "a"), "::notice file=a,title=bdf.unknown_entry::m\n");
}

TEST(JunitForm, FailsWhatMakesTheCommandFail) {
  Written written;
  const std::string line =
      "&lt;a&gt;:1:5: warning: a &lt;b&gt; &amp; &quot;c&quot;, 100%: d\\x1b[m "
      "[bdf.unknown_entry]";
  const std::string failed = written.in("junit", "<a>", true);
  EXPECT_THAT(failed, HasSubstr("<testsuite name=\"&lt;a&gt;\" tests=\"1\" failures=\"1\""));
  EXPECT_THAT(failed,
              HasSubstr("<failure type=\"warning\" message=\"a &lt;b&gt; &amp; &quot;c&quot;, "
                        "100%: d\\x1b[m\">" +
                        line + "</failure>"));
  const std::string passed = written.in("junit", "<a>", false);
  EXPECT_THAT(passed, HasSubstr("failures=\"0\""));
  EXPECT_THAT(passed, HasSubstr("<system-out>" + line + "</system-out>"));
}

TEST(JunitForm, HasATestForAFileWithoutFindingsAndAnErrorForOneThatCannotBeRead) {
  const auto report = make_findings_report("junit", {});
  report->begin_file("good");
  EXPECT_THAT(report->end_file(),
              HasSubstr("name=\"good\" tests=\"1\" failures=\"0\" errors=\"0\""));
  report->begin_file("bad");
  EXPECT_EQ(report->fail("no"), "");
  EXPECT_THAT(report->end_file(),
              HasSubstr("name=\"bad\" tests=\"1\" failures=\"0\" errors=\"1\""));
  EXPECT_THAT(report->fail("no folder"), HasSubstr("<testsuite name=\"kelp-bdf\""));
}

Json sarif_run(const Written& written, const std::string& file) {
  return Json::parse(written.in("sarif", file))["runs"][0];
}

Json location_of(const Json& run) {
  return run["results"][0]["locations"][0]["physicalLocation"];
}

TEST(SarifForm, NamesFilesByUri) {
  const Written written;
  EXPECT_EQ(location_of(sarif_run(written, "a b/\xC3\xA4:%.inp"))["artifactLocation"],
            Json({{"uri", "a%20b/%C3%A4%3A%25.inp"}, {"uriBaseId", "%SRCROOT%"}}));
  EXPECT_EQ(location_of(sarif_run(written, "/tmp/a.inp"))["artifactLocation"],
            Json({{"uri", "file:///tmp/a.inp"}}));
}

TEST(SarifForm, HasNoRegionForAFileAsAWhole) {
  Written written;
  EXPECT_EQ(location_of(sarif_run(written, "a"))["region"], Json({{"startLine", 1},
                                                                  {"startColumn", 5},
                                                                  {"endLine", 1},
                                                                  {"endColumn", 8},
                                                                  {"byteOffset", 4},
                                                                  {"byteLength", 3}}));
  written.diagnostic.range.reset();
  EXPECT_FALSE(location_of(sarif_run(written, "a")).contains("region"));
}

TEST(SarifForm, FingerprintsStayWhenLinesComeAndGo) {
  Written written;
  const auto print = [&] {
    return sarif_run(written, "a")["results"][0]["partialFingerprints"]["kelpBdfFinding/v1"];
  };
  const Json before = print();
  written.source = input::bdf::SourceText("new line\n\n one two\n");
  written.diagnostic.range = input::bdf::TextRange{15, 18};
  EXPECT_EQ(print(), before);
  written.diagnostic.path = "scf.two";
  EXPECT_NE(print(), before);
}

TEST(SarifForm, TellsWhatKeptAFileFromBeingChecked) {
  const auto report = make_findings_report("sarif", {});
  std::string text = report->begin();
  text += report->fail("cannot read 'a'");
  text += report->end({});
  const Json invocation = Json::parse(text)["runs"][0]["invocations"][0];
  EXPECT_EQ(invocation["executionSuccessful"], false);
  EXPECT_EQ(invocation["toolExecutionNotifications"][0]["message"]["text"], "cannot read 'a'");
}

using CheckInMachineForms = Check;

TEST_F(CheckInMachineForms, ADocumentTellsHowManyFindingsItLeavesOut) {
  const Outcome outcome =
      check("$scf\nocupied\nocupied\n$end\n", {"--format=json", "--max-findings=1"});
  const Json document = Json::parse(outcome.out);
  EXPECT_EQ(document["findings"].size(), 1U);
  EXPECT_EQ(document["summary"]["not_shown"], 1);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(check("$scf\nocupied\nocupied\n$end\n", {"--format=sarif", "--max-findings=1"}).err,
              HasSubstr("and 1 more"));
}

TEST_F(CheckInMachineForms, EveryDocumentIsWholeWithoutAnyFinding) {
  program.write("a.inp", good_input);
  EXPECT_EQ(Json::parse(check_named({"--format=json"}, {"a.inp"}).out)["findings"], Json::array());
  EXPECT_EQ(Json::parse(check_named({"--format=sarif"}, {"a.inp"}).out)["runs"][0]["results"],
            Json::array());
  EXPECT_THAT(check_named({"--format=junit"}, {"a.inp"}).out, EndsWith("</testsuites>\n"));
  EXPECT_EQ(check_named({"--format=jsonl"}, {"a.inp"}).out, "");
  EXPECT_EQ(check_named({"--format=github"}, {"a.inp"}).out, "");
}

TEST_F(CheckInMachineForms, AFileThatCannotBeReadIsInTheDocumentToo) {
  const Outcome outcome = check_named({"--format=json"}, {"missing.inp"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, HasSubstr("missing.inp"));
  const Json document = Json::parse(outcome.out);
  EXPECT_THAT(document["failures"][0]["message"].get<std::string>(), HasSubstr("missing.inp"));
  EXPECT_EQ(document["summary"]["files"], 0);
}

TEST_F(CheckInMachineForms, QuietPrintsNoneOfThem) {
  for (const std::string& form : app::findings_forms()) {
    const Outcome outcome = check(error_input, {"--format=" + form, "--quiet"});
    EXPECT_EQ(outcome.out + outcome.err, "") << form;
    EXPECT_EQ(outcome.status, 1) << form;
  }
}

TEST_F(CheckInMachineForms, HaveNoColours) {
  for (const std::string& form : app::findings_forms()) {
    const std::string text = check(error_input, {"--format=" + form, "--color=always"}).out;
    EXPECT_EQ(text.find('\x1B') != std::string::npos, form == "human") << text;
  }
}

}  // namespace
}  // namespace kelp::test
