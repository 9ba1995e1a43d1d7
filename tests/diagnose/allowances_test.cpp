// What the comments of an input allow, and what is said of those comments.

#include "diagnose/diagnosing.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

// Codes with the lines that they stand on.
std::vector<std::string> found_in(std::string_view text, const DiagnoseOptions& options = {}) {
  const ParsedInput input = parse(text);
  std::vector<std::string> found;
  for (const Diagnostic& diagnostic : diagnose(input, options)) {
    found.push_back(diagnostic.code);
    if (diagnostic.range) {
      const TextPosition start = input.source().position(diagnostic.range->begin);
      found.back() += " on " + std::to_string(start.line);
    }
  }
  return found;
}

TEST(Allowances, AreAboutTheNextLineThatSaysSomething) {
  EXPECT_THAT(found_in("$scf\n# kelp-bdf: allow bdf.unknown_entry\nodd\n$end\n"), IsEmpty());
  EXPECT_THAT(found_in("$scf\n  # kelp-bdf: allow bdf.unknown_entry\n\n  # why\n * too\n odd\nodd\n"
                       "$end\n"),
              ElementsAre("bdf.unknown_entry on 7"));
}

TEST(Allowances, OfSeveralCommentsAreAllAboutTheLineBelow) {
  EXPECT_THAT(found_in("$scf\ncharge\n 1\n# kelp-bdf: allow bdf.invalid_module_value\n"
                       "* kelp-bdf: allow bdf.duplicate_entry\ncharge\n one\n$end\n"),
              IsEmpty());
}

TEST(Allowances, BehindALineAreAboutThatLine) {
  EXPECT_THAT(found_in("$scf\nodd # kelp-bdf: allow bdf.unknown_entry\nodd\n$end\n"),
              ElementsAre("bdf.unknown_entry on 3"));
  EXPECT_THAT(found_in("$odd # kelp-bdf: allow bdf.unknown_module\n$end\n"), IsEmpty());
  EXPECT_THAT(found_in("$scf # kelp-bdf: allow bdf.unknown_entry\nodd\n$end\n"),
              ElementsAre("bdf.unknown_entry on 2", "comment.unused_allowance on 1"));
}

TEST(Allowances, AboveAModuleAreAboutAllOfIt) {
  EXPECT_THAT(found_in("# kelp-bdf: allow bdf.unknown_entry\n$scf\nodd\nrhf\nodd\n$end\n"
                       "$scf\nodd\n$end\n"),
              ElementsAre("bdf.unknown_entry on 8"));
  EXPECT_THAT(found_in("$xuanyuan\n$end\n# kelp-bdf: allow bdf.unknown_nested_entry\n$bdfopt\n"
                       "neb-block\nodd\nend neb\n$end\n"),
              IsEmpty());
}

TEST(Allowances, AboveAModuleAreAboutItsBorders) {
  EXPECT_THAT(found_in("$scf\nrhf\n$edn\n"), ElementsAre("frame.misspelt_end on 3"));
  EXPECT_THAT(found_in("# kelp-bdf: allow frame.misspelt_end\n$scf\nrhf\n$edn\n"), IsEmpty());
  EXPECT_THAT(found_in("$scf\nrhf\n"), ElementsAre("bdf.unterminated_module on 2"));
  EXPECT_THAT(found_in("# kelp-bdf: allow bdf.unterminated_module\n$scf\nrhf\n"), IsEmpty());
}

TEST(Allowances, AboveAnEntryAreAboutItsValuesAndChildren) {
  EXPECT_THAT(found_in("$scf\n# kelp-bdf: allow bdf.invalid_module_value\ncharge\n one\n"
                       "spinmulti\n two\n$end\n"),
              ElementsAre("bdf.invalid_module_value on 6"));
  EXPECT_THAT(found_in("$bdfopt\n# kelp-bdf: allow bdf.*\nneb-block\nodd\nnimage\n 0\nend neb\n"
                       "odd\n$end\n"),
              ElementsAre("bdf.unknown_entry on 8"));
}

TEST(Allowances, MayStandBetweenAKeywordAndItsValue) {
  EXPECT_THAT(found_in("$scf\ncharge\n # kelp-bdf: allow bdf.invalid_module_value\n one\n$end\n"),
              IsEmpty());
  EXPECT_THAT(found_in("$scf\ncharge\n one # kelp-bdf: allow bdf.invalid_module_value\n$end\n"),
              IsEmpty());
}

TEST(Allowances, WorkInTheHeader) {
  const std::string rest = "Geometry\n H 0 0 0\nEnd Geometry\n";
  const std::string allowance = "# kelp-bdf: allow bdf.invalid_easy_value\n";
  EXPECT_THAT(found_in("#! name\nhf/sto-3g\ncharge=one\n" + rest),
              ElementsAre("bdf.invalid_easy_value on 3"));
  EXPECT_THAT(found_in("#! name\nhf/sto-3g\n" + allowance + "charge=one\n" + rest), IsEmpty());
  EXPECT_THAT(found_in("#! name\n" + allowance + "hf/sto-3g charge=one\n" + rest), IsEmpty());
  EXPECT_THAT(found_in("#! name\nhf/sto-3g\ncharge=one " + allowance + rest), IsEmpty());
  EXPECT_THAT(found_in(allowance + "hf/sto-3g charge=one\n" + rest), IsEmpty());
}

TEST(Allowances, WorkAboveAGeometry) {
  const std::string missing = "# kelp-bdf: allow bdf.unterminated_geometry\n";
  const std::string misspelt = "# kelp-bdf: allow frame.misspelt_terminator\n";
  EXPECT_THAT(found_in("#! name\nhf/sto-3g\n" + missing + "Geometry\n H 0 0 0\n"), IsEmpty());
  // The line that is marked as the misspelt end belongs to the block.
  EXPECT_THAT(found_in("#! name\nhf/sto-3g\n" + misspelt + "Geometry\n H 0 0 0\nEndGeometry\n"),
              IsEmpty());
  EXPECT_THAT(found_in("#! name\nhf/sto-3g\nGeometry\n H 0 0 0\n" + misspelt + "EndGeometry\n"),
              IsEmpty());
}

TEST(Allowances, OfTheFileAreAboutAllOfIt) {
  EXPECT_THAT(found_in("$scf\nodd\n$end\n$odd\n$end\n$scf\nodd\n$end\n"
                       "# kelp-bdf: allow-file bdf.unknown_*\n"),
              IsEmpty());
  EXPECT_THAT(found_in("# kelp-bdf: allow-file bdf.missing_geometry\nhf/sto-3g\n"), IsEmpty());
  EXPECT_THAT(found_in("# kelp-bdf: allow-file bdf.empty_input\n"), IsEmpty());
}

TEST(Allowances, NameSeveralCodesAndAReason) {
  EXPECT_THAT(found_in("# kelp-bdf: allow BDF.unknown_entry, bdf.conflicting_entries -- a local "
                       "build, mostly\n$scf\nodd\nrhf\nuhf\n$end\n"),
              IsEmpty());
}

TEST(Allowances, HoldAgainstRulesAndAreNeededBeforeThem) {
  const std::string_view text = "$scf\n# kelp-bdf: allow bdf.unknown_entry\nodd\n$end\n";
  DiagnoseOptions options;
  options.rules = {{"bdf.unknown_entry", SeverityAction::Deny}};
  EXPECT_THAT(found_in(text, options), IsEmpty());
  options.rules = {{"bdf.unknown_entry", SeverityAction::Allow}};
  EXPECT_THAT(found_in(text, options), IsEmpty());
  EXPECT_THAT(found_in(text, {UnknownNames::Ignore}), IsEmpty()) << "was not looked for";
}

TEST(Allowances, ThatNothingNeedsAreNotes) {
  const ParsedInput input = parse(
      "$scf\n# kelp-bdf: allow bdf.unknown_entry\nrhf\nodd # kelp-bdf: allow bdf.unknown_entry,"
      " bdf.empty_input\n$end\n# kelp-bdf: allow bdf.unknown_module\n");
  EXPECT_THAT(texts_of(input), ElementsAre("note comment.unused_allowance [bdf.unknown_entry]\n"
                                           "2:1 '# kelp-bdf: allow bdf.unknown_entry'\n",
                                           "note comment.unused_allowance [bdf.empty_input]\n"
                                           "4:42 'bdf.empty_input'\n",
                                           "note comment.unused_allowance [bdf.unknown_module]\n"
                                           "6:1 '# kelp-bdf: allow bdf.unknown_module'\n"));
}

TEST(Allowances, GivenTwiceAreNeededOnce) {
  EXPECT_THAT(found_in("$scf\n# kelp-bdf: allow bdf.unknown_entry\n"
                       "# kelp-bdf: allow bdf.unknown_entry\nodd\n$end\n"),
              ElementsAre("comment.unused_allowance on 3"));
}

TEST(Allowances, OfCommentFindingsAreAllowancesToo) {
  EXPECT_THAT(found_in("# kelp-bdf: allow-file comment.*\n$scf\n# kelp-bdf: allow bdf.empty_input\n"
                       "rhf\n$end\n"),
              IsEmpty());
}

TEST(Allowances, ThatAreMisspeltAreWarningsAndAllowNothing) {
  EXPECT_THAT(texts_of(parse("$scf\n# kelp-bdf: alow bdf.unknown_entry\nodd\n$end\n")),
              ElementsAre(HasSubstr("bdf.unknown_entry"),
                          "warning comment.invalid_directive [alow]\n2:13 'alow'\n"
                          "help: did you mean 'allow'?\nmeant: allow\n"));
  EXPECT_THAT(texts_of(parse("$scf\n# kelp-bdf: allow bdf.unknown_entri\nodd\n$end\n")),
              ElementsAre(HasSubstr("bdf.unknown_entry"),
                          "warning comment.unknown_code [bdf.unknown_entri]\n"
                          "2:19 'bdf.unknown_entri'\n"
                          "help: did you mean 'bdf.unknown_entry'?\nmeant: bdf.unknown_entry\n"));
  EXPECT_THAT(found_in("# kelp-bdf: allow\n$scf\nrhf\n$end\n"),
              ElementsAre("comment.invalid_directive on 1"));
  EXPECT_THAT(found_in("# kelp-bdf:\n$scf\nrhf\n$end\n"),
              ElementsAre("comment.invalid_directive on 1"));
  EXPECT_THAT(found_in("$scf\nodd # kelp-bdf allow bdf.unknown_entry\n$end\n"),
              ElementsAre("bdf.unknown_entry on 2", "comment.invalid_directive on 2"));
}

TEST(Allowances, AreNoOtherComments) {
  for (const char* const comment :
       {"# kelp-bdf checks this", "# see kelp-bdf: alow", "# kelp", "#kelp-bdf"}) {
    EXPECT_THAT(found_in("$scf\n" + std::string(comment) + "\nrhf\n$end\n"), IsEmpty()) << comment;
  }
  // The first line is a name, and a shell line a command.
  EXPECT_THAT(found_in("#! kelp-bdf: alow\nhf/sto-3g\nGeometry\n H 0 0 0\nEnd Geometry\n"),
              IsEmpty());
  EXPECT_THAT(found_in("$scf\nrhf\n$end\n% ls # kelp-bdf: alow\n"), IsEmpty());
}

// Returns the text after the only fix of the last finding.
std::string mended(std::string_view text) {
  const ParsedInput input = parse(text);
  const std::vector<Diagnostic> found = diagnose(input);
  if (found.empty() || found.back().fixes.size() != 1) {
    return "no single fix";
  }
  EXPECT_FALSE(found.back().fixes.front().is_safe);
  return apply_edits(text, found.back().fixes.front().edits);
}

TEST(Allowances, AreMendedByProposals) {
  EXPECT_EQ(mended("$scf\n  # kelp-bdf: allow bdf.unknown_entry\r\nrhf\n$end\n"),
            "$scf\nrhf\n$end\n");
  EXPECT_EQ(mended("$scf\nrhf  # kelp-bdf: allow bdf.unknown_entry\n$end\n"), "$scf\nrhf\n$end\n");
  EXPECT_EQ(mended("$scf\nodd # kelp-bdf: allow bdf.unknown_entry, bdf.empty_input\n$end\n"),
            "$scf\nodd # kelp-bdf: allow bdf.unknown_entry\n$end\n");
  EXPECT_EQ(mended("$scf\nodd # kelp-bdf: allow bdf.empty_input, bdf.unknown_entry\n$end\n"),
            "$scf\nodd # kelp-bdf: allow bdf.unknown_entry\n$end\n");
  EXPECT_EQ(mended("$scf\nrhf # kelp-bdf allow bdf.unknown_entry\n$end\n"),
            "$scf\nrhf # kelp-bdf: allow bdf.unknown_entry\n$end\n");
  EXPECT_EQ(mended("$scf\nrhf # kelp-bdf: alow x\n$end\n"),
            "$scf\nrhf # kelp-bdf: allow x\n$end\n");
}

TEST(Allowances, OfATextThatCannotBeReadAreNotLookedAt) {
  EXPECT_THAT(found_in("# kelp-bdf: alow\r$scf\r$end\r"), ElementsAre("text.line_ends on 1"));
}

// Each line is looked at once, and no line keeps one pattern twice.
TEST(Allowances, InAnyNumberAreLookedUpAtOnce) {
  std::string text;
  for (int i = 0; i < 20000; ++i) {
    text += "# kelp-bdf: allow bdf.empty_input\n";
  }
  text += "$scf\n";
  for (int i = 0; i < 20000; ++i) {
    text += "odd\n";
  }
  text += "$end\n";
  EXPECT_EQ(diagnose(parse(text)).size(), 40000U);
}

}  // namespace
}  // namespace kelp::input::bdf
