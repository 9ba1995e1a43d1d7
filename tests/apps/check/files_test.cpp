// Which files are read, in which order, and what becomes of those that cannot be.

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>

#include "check/check_fixture.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;

/// Checks files with one line for each finding, and reduces each line to the file's name.
class Files : public Check {
 protected:
  std::string files_reported(const std::vector<std::string>& names) {
    outcome = check_named({"--format=concise"}, names);
    std::string reported;
    std::size_t at = 0;
    while (at < outcome.out.size()) {
      const std::size_t end = outcome.out.find('\n', at);
      reported += outcome.out.substr(at, outcome.out.find(':', at) - at) + "\n";
      at = end + 1;
    }
    std::replace(reported.begin(), reported.end(), '\\', '/');
    return reported;
  }

  /// Returns what standard error says, without the system's own words.
  static std::string complaints(const Outcome& result) {
    std::string text;
    std::istringstream lines(result.err);
    for (std::string line; std::getline(lines, line);) {
      text += line.substr(0, line.find("': ")) + "\n";
    }
    return text;
  }

  Outcome outcome;
};

TEST_F(Files, AreCheckedInTheOrderGiven) {
  for (const char* const name : {"c.inp", "a.inp", "b.txt"}) {
    program.write(name, warning_input);
  }
  EXPECT_EQ(files_reported({"c.inp", "a.inp", "b.txt", "a.inp"}), "c.inp\na.inp\nb.txt\na.inp\n");
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Files, OfAFolderAreThoseNamedLikeInputsSorted) {
  for (const char* const name : {"d/z.inp", "d/a.INP", "d/sub/m.bdf", "d/sub/n.Bdf", "d/.inp",
                                 "d/a.inp.bak", "d/ainp", "d/readme.txt", "d/b.inp/c.inp"}) {
    program.write(name, warning_input);
  }
  EXPECT_EQ(files_reported({"d"}), "d/a.INP\nd/b.inp/c.inp\nd/sub/m.bdf\nd/sub/n.Bdf\nd/z.inp\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Files, OfAFolderWithASlashHaveOneSlash) {
  program.write("d/a.inp", warning_input);
  EXPECT_EQ(files_reported({"d/"}), "d/a.inp\n");
}

TEST_F(Files, OfTheCurrentFolderAreFound) {
  program.write("a.inp", warning_input);
  EXPECT_EQ(files_reported({"."}), "./a.inp\n");
}

TEST_F(Files, OfAFolderWithoutInputsAreAnError) {
  program.write("d/readme.txt", warning_input);
  EXPECT_EQ(files_reported({"d"}), "");
  EXPECT_EQ(outcome.err, "kelp-bdf: no *.inp or *.bdf file in 'd'\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(Files, OfFoldersThatBeginWithADotAreForOtherPrograms) {
  for (const char* const name : {"d/.git/a.inp", "d/.cache/x/b.inp", "d/c.inp"}) {
    program.write(name, warning_input);
  }
  EXPECT_EQ(files_reported({"d"}), "d/c.inp\n");
  EXPECT_EQ(files_reported({"d/.git"}), "d/.git/a.inp\n");
}

TEST_F(Files, OfFoldersCanBeLeftOut) {
  for (const char* const name : {"d/a.inp", "d/old/b.inp", "d/x/old/c.inp", "d/x/d.inp"}) {
    program.write(name, warning_input);
  }
  EXPECT_EQ(files_reported({"--exclude", "old", "d"}), "d/a.inp\nd/x/d.inp\n");
  EXPECT_EQ(files_reported({"d", "--exclude=x/**", "--exclude", "a.*"}), "d/old/b.inp\n");
  EXPECT_EQ(files_reported({"--exclude=a.inp", "d/a.inp"}), "d/a.inp\n");
  EXPECT_EQ(files_reported({"--exclude=*", "d"}), "");
  EXPECT_EQ(outcome.err, "kelp-bdf: no *.inp or *.bdf file in 'd' that is not excluded\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(Files, CanBeNamedInAList) {
  for (const char* const name : {"a.inp", "b b.inp", "d/c.inp", "-", "c.inp"}) {
    program.write(name, warning_input);
  }
  program.write("lines", "b b.inp\r\n\nd\n-");
  EXPECT_EQ(files_reported({"c.inp", "--files-from", "lines", "a.inp"}),
            "c.inp\na.inp\nb b.inp\nd/c.inp\n./-\n");
  EXPECT_EQ(outcome.err, "");
  const std::string nul("b b.inp\0a.inp\0", 14);
  const Outcome result = program.run({"check", "--format=concise", "--files-from=-", "c.inp"}, nul);
  EXPECT_THAT(result.out, HasSubstr("\nb b.inp:2:1: "));
  EXPECT_THAT(result.out, HasSubstr("\na.inp:2:1: "));
  EXPECT_EQ(result.err, "");
}

TEST_F(Files, OfAnEmptyListAreNone) {
  outcome = program.run({"check", "--files-from", "-"}, "\n\n");
  EXPECT_EQ(outcome.out + outcome.err, "");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Files, OfAListThatCannotBeReadAreAnError) {
  EXPECT_EQ(files_reported({"--files-from", "missing"}), "");
  EXPECT_THAT(outcome.err, HasSubstr("cannot read 'missing'"));
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(files_reported({"--files-from=-", "-"}), "");
  EXPECT_EQ(outcome.err, "kelp-bdf: standard input cannot be both a list of files and an input\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(Files, ThatAreMissingDoNotStopTheOthers) {
  program.write("b.inp", warning_input);
  EXPECT_EQ(files_reported({"a.inp", "b.inp", "c.inp"}), "b.inp\n");
  EXPECT_EQ(complaints(outcome),
            "kelp-bdf: cannot read 'a.inp\n"
            "kelp-bdf: cannot read 'c.inp\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(Files, ThatAreMissingAreNotCountedAsChecked) {
  program.write("b.inp", error_input);
  const Outcome result = check_named({}, {"a.inp", "b.inp"});
  EXPECT_THAT(result.out, HasSubstr("\n1 error in 1 file (1 checked)\n"));
  EXPECT_EQ(result.status, 2);
}

TEST_F(Files, AreCountedWhereverFindingsAre) {
  program.write("a.inp", error_input + warning_input);
  program.write("b.inp", good_input);
  program.write("c.inp", error_input);
  const Outcome result = check_named({}, {"a.inp", "b.inp", "c.inp"});
  EXPECT_THAT(result.out, HasSubstr("\n2 errors and 1 warning in 2 files (3 checked)\n"));
}

TEST_F(Files, WithOddNamesAreReadAndNamedSafely) {
  program.write("-x.inp", warning_input);
  program.write("two words.inp", warning_input);
  program.write("\u6C34.inp", warning_input);
  EXPECT_EQ(files_reported({"two words.inp", "\u6C34.inp", "--", "-x.inp"}),
            "two words.inp\n\u6C34.inp\n./-x.inp\n");
  EXPECT_EQ(files_reported({"--", "-x.inp", "two words.inp"}), "./-x.inp\ntwo words.inp\n");
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Files, ThatAreEmptyBlankOrOnlyRemarksHoldNoInput) {
  for (const char* const text : {"", "\n", " \t\r\n\n", "# a remark\n", "* one\n# two\n\n"}) {
    const Outcome result = check(text);
    EXPECT_EQ(result.out,
              "error[bdf.empty_input]: BDF input is empty\n"
              " --> a.inp\n\n"
              "1 error in 1 file (1 checked)\n")
        << text;
    EXPECT_EQ(result.status, 1) << text;
  }
}

#ifndef _WIN32

TEST_F(Files, BelowALinkToAFolderAreLeftAlone) {
  program.write("d/a.inp", warning_input);
  program.write("other/b.inp", warning_input);
  std::filesystem::create_directory_symlink("..", program.folder() / "d" / "loop");
  std::filesystem::create_directory_symlink("../other", program.folder() / "d" / "other");
  std::filesystem::create_symlink("../other/b.inp", program.folder() / "d" / "link.inp");
  EXPECT_EQ(files_reported({"d"}), "d/a.inp\nd/link.inp\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Files, OfALinkToAFolderThatIsNamedAreChecked) {
  program.write("other/b.inp", warning_input);
  std::filesystem::create_directory_symlink("other", program.folder() / "d");
  EXPECT_EQ(files_reported({"d"}), "d/b.inp\n");
}

TEST_F(Files, ThatLinkToNothingAreNeverAPass) {
  program.write("d/a.inp", good_input);
  std::filesystem::create_symlink("gone", program.folder() / "d" / "link.inp");
  std::filesystem::create_symlink("gone", program.folder() / "d" / "link.txt");
  EXPECT_EQ(files_reported({"d"}), "");
  EXPECT_EQ(outcome.err, "kelp-bdf: cannot read 'd/link.inp': No such file or directory\n");
  EXPECT_EQ(outcome.status, 2);
}

TEST_F(Files, WithEscapeSequencesInTheirNamesReachNoTerminalRaw) {
  program.write("\x1B[31m.inp", warning_input);
  outcome = check_named({"--format=concise"}, {"\x1B[31m.inp", "\x1B[32m.inp"});
  EXPECT_THAT(outcome.out, ::testing::StartsWith("\\x1b[31m.inp:2:1: "));
  EXPECT_EQ(outcome.err, "kelp-bdf: cannot read '\\x1b[32m.inp': No such file or directory\n");
}

// The superuser may read everything, so the run gives up its rights where it has them.
TEST_F(Files, ThatMayNotBeReadAreAnError) {
  program.write("locked.inp", good_input);
  program.write("folder/locked/a.inp", good_input);
  program.write("folder/open.inp", warning_input);
  const Outcome result = program.run_in_shell(
      "as_nobody() { if [ \"$(id -u)\" = 0 ]; then\n"
      "  setpriv --reuid=65534 --regid=65534 --clear-groups \"$@\"; else \"$@\"; fi; }\n"
      "chmod a+rx . .. && as_nobody test -x \"$KELP_BDF\" -a -r folder/open.inp || exit 77\n"
      "chmod 000 locked.inp folder/locked\n"
      "as_nobody \"$KELP_BDF\" check --format=concise locked.inp folder\n"
      "status=$?; chmod 700 folder/locked; exit $status\n");
  if (result.status == 77) {
    GTEST_SKIP() << "no way to run without the right to read everything";
  }
  EXPECT_THAT(result.out, HasSubstr("folder/open.inp:2:1: warning"));
  EXPECT_EQ(result.err,
            "kelp-bdf: cannot read 'folder/locked': Permission denied\n"
            "kelp-bdf: cannot read 'locked.inp': Permission denied\n");
  EXPECT_EQ(result.status, 2);
}

#endif

}  // namespace
}  // namespace kelp::test
