// Reading a document from a file.

#include <gtest/gtest.h>

#include <string>

#include "parser/parsing.hpp"
#include "support/files.hpp"

namespace kelp::input::bdf {
namespace {

TEST(ParseFile, GivesWhatParsingItsTextGives) {
  const test::TemporaryFolder folder;
  const std::string text = "#! a\r\nhf/svp\r\n$m\r\nscalar\r\n 1\r\n$end\r\n";
  test::write_file(folder / "a.inp", text);
  const ParseResult read = BDFParser::parse_file(test::utf8(folder / "a.inp"),
                                                 schema_of_all_kinds(), options(false, true));
  const ParseResult wanted = parse(text, options(false, true));
  EXPECT_EQ(read.ok, wanted.ok);
  EXPECT_EQ(read.error, wanted.error);
  EXPECT_EQ(read.data.script_name, "a");
  EXPECT_EQ(outline(read.data.modules.at(0).entries), "scalar Scalar < 1>");
}

TEST(ParseFile, ThatIsEmptyFailsAsAnEmptyText) {
  const test::TemporaryFolder folder;
  test::write_file(folder / "empty.inp", "");
  EXPECT_EQ(BDFParser::parse_file(test::utf8(folder / "empty.inp"), InputSchema(), {}).error,
            "BDF input is empty");
}

void expect_unreadable(const std::string& path) {
  const ParseResult result = BDFParser::parse_file(path, schema_of_all_kinds(), lenient());
  EXPECT_FALSE(result.ok);
  const std::string beginning = "failed to read BDF input '" + path + "': ";
  EXPECT_EQ(result.error.substr(0, beginning.size()), beginning);
  EXPECT_GT(result.error.size(), beginning.size());
  EXPECT_EQ(result.data.script_name, "job.bdf");
  EXPECT_TRUE(result.data.statements.empty());
}

TEST(ParseFile, ThatIsMissingOrAFolderFailsWithItsPathAndTheCause) {
  const test::TemporaryFolder folder;
  expect_unreadable(test::utf8(folder / "missing.inp"));
  expect_unreadable(test::utf8(folder.path()));
  expect_unreadable("");
}

TEST(ParseFile, MayHaveAnyNameInUtf8) {
  const test::TemporaryFolder folder;
  const std::filesystem::path path = folder / std::filesystem::path(u8"\u6c34 \u00e4.inp");
  test::write_file(path, "$m\n$end\n");
  EXPECT_TRUE(BDFParser::parse_file(test::utf8(path), schema_of_all_kinds(), {}).ok);
}

}  // namespace
}  // namespace kelp::input::bdf
