// Which findings there are, in which order, and how they are handed over.

#include <tuple>

#include "diagnose/diagnosing.hpp"
#include "support/files.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::IsEmpty;

constexpr std::string_view much_wrong =
    "charge=x\nGeometry\nEnd Geometry\n$scff\n$end\n$scf\nocupied\nalpha\n x\nrhf\nuhf\ncharge\n"
    "charge\n$bdfopt\nscan\n 1\nneb-block\ncrud\ncrude\ncrude\nnimage\n 0\n$end\n$bdfopt\n$end\n"
    "$compass\nbasis-block\n";

using Told = std::tuple<std::string, std::string, bool>;

TEST(Diagnose, TellsWhatValidationDoesInItsWords) {
  ValidationOptions options;
  options.report_unknown_modules = true;
  options.report_unknown_entries = true;
  const ParsedInput input = parse(much_wrong);
  const auto issues = schema_of_tests().validate(input.data(), options);
  EXPECT_GT(issues.size(), 14U);
  std::vector<Told> expected;
  for (const ValidationIssue& issue : issues) {
    expected.emplace_back(issue.code, issue.message, issue.severity == ValidationSeverity::Error);
  }
  // The one conflict is found from both of its ends.
  std::erase_if(expected, [](const Told& told) {
    return std::get<1>(told) == "BDF module entries 'scf.uhf' and 'scf.rhf' conflict.";
  });
  EXPECT_EQ(expected.size() + 1, issues.size());
  std::vector<Told> told;
  for (const Diagnostic& it : diagnose(input)) {
    told.emplace_back(it.code, it.message, it.severity == Severity::Error);
  }
  EXPECT_THAT(told, ::testing::UnorderedElementsAreArray(expected));
}

TEST(Diagnose, FindsNothingWhereAllIsWell) {
  EXPECT_THAT(diagnose(parse("$scf\nrhf\ncharge\n 1\n$end\n")), IsEmpty());
}

TEST(Diagnose, DoesWithUnknownNamesWhatIsAskedFor) {
  const ParsedInput input = parse("$scff\n$end\n$bdfopt\nodd\nneb-block\ncrud\nend neb\n$end\n");
  const auto severities = [&](UnknownNames unknown) {
    std::string text;
    for (const Diagnostic& diagnostic : diagnose(input, {unknown})) {
      text += std::string(to_string(diagnostic.severity)) + " ";
    }
    return text;
  };
  EXPECT_EQ(severities(UnknownNames::Ignore), "");
  EXPECT_EQ(severities(UnknownNames::Warn), "warning warning warning ");
  EXPECT_EQ(severities(UnknownNames::Error), "error error error ");
}

TEST(Diagnose, PassesOverCommentsAndBlankLines) {
  const ParsedInput input = parse(
      "$scf\n# c\n\n * d\n \t\n\frhf # e\n#rhf\n$end\n"
      "$bdfopt\nneb-block\n# c\n\n*d\nend neb\n$end\n");
  for (const UnknownNames unknown : {UnknownNames::Warn, UnknownNames::Error}) {
    EXPECT_THAT(diagnose(input, {unknown}), IsEmpty());
  }
  ValidationOptions options;
  options.report_unknown_entries = true;
  EXPECT_THAT(schema_of_tests().validate(input.data(), options), ::testing::Not(IsEmpty()));
}

TEST(Diagnose, TakesALineForACommentByWhatItIsNotByItsLooks) {
  // Behind a keyword that the schema does not know, indented lines and comments are its values.
  EXPECT_EQ(codes_of(diagnose(parse("$scf\nodd\n # c\n  1\n$end\n"))),
            std::vector<std::string>{"bdf.unknown_entry"});
}

TEST(Diagnose, NamesTheRecordAtFault) {
  const ParsedInput input = parse("$scf\nrhf\n$end\n$bdfopt\nneb-block\ncrude\ncrud\nend neb\n");
  std::vector<RecordId> records;
  diagnose(input, {}, [&](const Diagnostic& found) { records.push_back(found.record); });
  EXPECT_EQ(records, (std::vector<RecordId>{RecordId::of_child(1, 0, 1), RecordId::of_module(1)}));
}

TEST(Diagnose, HandsOverOneByOneWhatItReturnsTogether) {
  const ParsedInput input = parse(much_wrong);
  std::vector<std::string> one_by_one;
  diagnose(input, {},
           [&](const Diagnostic& found) { one_by_one.push_back(to_text(found, input.source())); });
  EXPECT_EQ(one_by_one, texts_of(input));
}

TEST(Diagnose, PassesOnWhatTheHostThrows) {
  int count = 0;
  const auto stop = [&](const Diagnostic&) {
    ++count;
    throw 1;
  };
  EXPECT_THROW(diagnose(parse(much_wrong), {}, stop), int);
  EXPECT_THROW(diagnose(parse(""), {}, stop), int);
  EXPECT_EQ(count, 2);
}

TEST(Diagnose, FindsTheSameWithCarriageReturnsAndWithoutALastLineEnd) {
  const std::string text = "$scf\n ocupied \ncharge\n one\n$end";
  std::string windows;
  for (const char byte : text) {
    windows += byte == '\n' ? std::string("\r\n") : std::string(1, byte);
  }
  const auto expected = texts_of(parse(text));
  EXPECT_EQ(expected.size(), 2U);
  EXPECT_EQ(texts_of(parse(windows)), expected);
  EXPECT_EQ(texts_of(parse(text + "\n")), expected);
  EXPECT_EQ(texts_of(parse(windows + "\r\n")), expected);
}

TEST(Diagnose, PutsEveryRangeWithinOneLine) {
  const ParsedInput input = parse(much_wrong);
  for (const Diagnostic& diagnostic : diagnose(input)) {
    if (diagnostic.range) {
      EXPECT_LT(diagnostic.range->begin, diagnostic.range->end) << diagnostic.message;
      EXPECT_EQ(input.source().text_of(*diagnostic.range).find('\n'), std::string_view::npos);
    }
  }
}

TEST(Diagnose, FindsThePlacesOfManyFindingsOnALongLine) {
  std::string header = "HF/sto-3g";
  for (int i = 0; i < 3000; ++i) {
    header += " \u6C34 charge=x";
  }
  const ParsedInput input = parse(header + "\nGeometry\nH 0 0 0\nEnd Geometry\n");
  auto diagnostics = diagnose(input);
  std::erase_if(diagnostics, [](const Diagnostic& diagnostic) {
    return diagnostic.code != "bdf.invalid_easy_value";
  });
  ASSERT_EQ(diagnostics.size(), 3000U);
  const auto column = [&](std::size_t index) {
    return input.source().position(diagnostics[index].range->begin).column;
  };
  EXPECT_EQ(column(0), 20U);
  EXPECT_EQ(column(1), 31U);
  EXPECT_EQ(column(2999), 33009U);
}

TEST(InputFolder, KnowsTheFilesBesideAnInput) {
  const test::TemporaryFolder folder;
  test::write_file(folder / "a.scforb", "");
  const InputFolder beside = input_folder_of(test::utf8(folder / "a.inp"));
  EXPECT_EQ(beside.job_name, "a");
  EXPECT_TRUE(beside.has_file("a.scforb"));
  EXPECT_FALSE(beside.has_file("a.inp"));
  EXPECT_FALSE(beside.has_file(""));
}

}  // namespace
}  // namespace kelp::input::bdf
