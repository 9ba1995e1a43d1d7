// Texts that nobody writes on purpose. Each is read to its end; the time limit of the test is what
// a reading that is slower than the text is long would run into.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "parser/parsing.hpp"
#include "support/line_claims.hpp"

namespace kelp::input::bdf {
namespace {

using namespace std::string_literals;
using ::testing::IsEmpty;

constexpr std::size_t million = 1000 * 1000;
constexpr std::size_t huge = 100 * million;

std::string repeated(std::string_view text, std::size_t count) {
  std::string whole;
  whole.reserve(text.size() * count);
  for (std::size_t i = 0; i < count; ++i) {
    whole += text;
  }
  return whole;
}

std::vector<ParseOptions> all_options() {
  return {options(false, false), options(false, true), options(true, false), options(true, true)};
}

TEST(HugeLine, InAnEasyHeaderIsOneToken) {
  const std::string text = "hf/svp " + std::string(huge, 'x') + "\n";
  const BDFData data = document(text, options(false, true));
  ASSERT_EQ(data.easy_tokens.size(), 2U);
  EXPECT_EQ(data.easy_tokens[1].text.size(), huge);
}

TEST(HugeLine, OfManyWordsInAnEasyHeaderIsAsManyTokens) {
  const std::string text = repeated("a = b ", million);
  const BDFData data = document(text, options(false, true));
  EXPECT_EQ(data.easy_tokens.size(), million);
  EXPECT_EQ(data.easy_tokens.back().text, "a=b");
}

TEST(HugeLine, OfEqualsSignsInAnEasyHeaderIsOneToken) {
  const BDFData data = document("a" + repeated(" =", million));
  ASSERT_EQ(data.easy_tokens.size(), 1U);
  EXPECT_EQ(data.easy_tokens[0].text, "a" + std::string(million, '='));
}

TEST(HugeLine, OfSlashesInAnEasyHeaderIsAMethodSpecification) {
  const BDFData data = document(std::string(million, '/'), options(false, true));
  ASSERT_EQ(data.easy_tokens.size(), 1U);
  EXPECT_EQ(data.easy_tokens[0].category, "method_spec");
  EXPECT_EQ(data.easy_tokens[0].canonical.size(), million);
}

TEST(HugeLine, InAModuleIsAKeyword) {
  const BDFData data = document("$m\n" + std::string(huge, 'X') + "\n$end\n", options(false, true));
  ASSERT_EQ(data.modules.at(0).entries.size(), 1U);
  EXPECT_EQ(data.modules[0].entries[0].raw_line.size(), huge);
  EXPECT_EQ(data.modules[0].entries[0].name, std::string(huge, 'x'));
}

TEST(HugeLine, IsAValue) {
  const BDFData data =
      document("$m\nscalar\n" + std::string(huge, ' ') + "1\n$end\n", options(false, true));
  ASSERT_EQ(data.modules.at(0).entries.size(), 1U);
  EXPECT_EQ(data.modules[0].entries[0].values.at(0).size(), huge + 1);
}

TEST(HugeLine, OfManyFieldsIsAValue) {
  const ParseResult result =
      parse("$m\nscalar\n" + repeated("1,", 10 * million) + "\n$end\n", options(false, true));
  EXPECT_TRUE(result.ok) << result.error;
}

TEST(HugeLine, NamesAModule) {
  const BDFData data = document("$" + std::string(huge, 'm') + "\n$end\n", options(false, true));
  EXPECT_EQ(data.modules.at(0).name.size(), huge);
}

TEST(HugeLine, OfBlanksIsEmpty) {
  EXPECT_EQ(parse(std::string(huge, ' ')).error, "BDF input is empty");
}

TEST(ManyLines, MillionsOfBlankOnesAreEmpty) {
  EXPECT_EQ(parse(std::string(10 * million, '\n')).error, "BDF input is empty");
}

TEST(ManyLines, AMillionUnknownEntriesAreAllKeptAndReported) {
  const ParseResult result =
      parse("$m\n" + repeated("odd\n", million) + "$end\n", {true, true, 1, false});
  EXPECT_TRUE(result.ok);
  EXPECT_EQ(result.data.modules.at(0).entries.size(), million);
  EXPECT_EQ(result.data.warnings.size(), million);
}

TEST(ManyLines, AMillionModulesAreAllKept) {
  const BDFData data = document(repeated("$m\n", million), options(false, true));
  EXPECT_EQ(data.modules.size(), million);
  EXPECT_EQ(data.statements.back().module_index, million - 1);
}

TEST(ManyLines, AMillionFreeLinesAreAllKept) {
  const BDFData data = document("%ls\n" + repeated("x\n", million), options(false, true));
  EXPECT_EQ(data.free_lines.size(), million + 1);
}

TEST(ManyLines, AMillionChildrenOfABlockAreAllKept) {
  const BDFData data =
      document("$m\nnest\n" + repeated("cscalar\n1\n", million) + "endnest\n$end\n");
  EXPECT_EQ(data.modules.at(0).entries.at(0).children.size(), million);
}

TEST(ManyLines, AMillionEntriesThatRequireAndConflictAreCheckedOneByOne) {
  const InputSchema schema = schema_from(R"(
modules:
  m:
    entries:
      a: {kind: flag, repeatable: true, requires: [absent, last], conflicts: [nothing, last]}
      last: {kind: flag}
)");
  const ParseResult result =
      parse("$m\n" + repeated("a\n", million) + "last\n$end\n", options(false, true), schema);
  EXPECT_EQ(result.error, "BDF module entry 'm.a' requires 'm.absent'.");
  EXPECT_EQ(schema.validate(result.data, {}).size(), 2 * million);
}

TEST(ManyLines, AMillionChildrenThatRequireAndConflictAreCheckedOneByOne) {
  const InputSchema schema = schema_from(R"(
modules:
  m:
    entries:
      nest:
        kind: nested_block
        terminator: end
        entries:
          a: {kind: flag, repeatable: true, requires: [absent, last], conflicts: [nothing, last]}
          last: {kind: flag}
)");
  const ParseResult result = parse("$m\nnest\n" + repeated("a\n", million) + "last\nend\n$end\n",
                                   options(false, true), schema);
  EXPECT_EQ(schema.validate(result.data, {}).size(), 2 * million);
}

TEST(ManyLines, AMillionDifferentEntriesOfOneSchemaAreEachFound) {
  std::string yaml = "modules:\n  m:\n    entries:\n";
  std::string text = "$m\n";
  constexpr std::size_t count = 20 * 1000;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string name = "e" + std::to_string(i);
    yaml += "      " + name + ": {kind: flag, requires: e" + std::to_string(count - 1 - i) + "}\n";
    text += name + "\n";
  }
  EXPECT_TRUE(parse(text + "$end\n", options(false, true), schema_from(yaml)).ok);
}

TEST(OddBytes, NulAndHighBytesPassThrough) {
  const std::string bytes = "\0\x01\x7f\x80\xa0\xff"s;
  const BDFData data = document("$m\nscalar\n" + bytes + "\n" + bytes + "\n$end\n" + bytes + "\n",
                                options(false, true));
  ASSERT_EQ(data.modules.at(0).entries.size(), 2U);
  EXPECT_EQ(data.modules[0].entries[0].values.at(0), bytes);
  EXPECT_EQ(data.modules[0].entries[1].raw_line, bytes);
  EXPECT_EQ(data.modules[0].entries[1].name, bytes);
  EXPECT_EQ(data.free_lines.at(0), bytes);
}

TEST(OddBytes, OnlyAsciiLettersChangeTheirCase) {
  const std::string upper = "\xc4\xd6\xdc\xc3\x84Z";
  EXPECT_EQ(document("$m\n" + upper + "\n$end").modules.at(0).entries.at(0).name,
            "\xc4\xd6\xdc\xc3\x84z");
}

TEST(OddBytes, EveryTextOfOneOrTwoBytesIsRead) {
  for (int first = 0; first < 256; ++first) {
    for (int second = -1; second < 256; ++second) {
      std::string text(1, static_cast<char>(first));
      if (second >= 0) {
        text += static_cast<char>(second);
      }
      EXPECT_THAT(wrong_claims(text, schema_of_all_kinds(), options(true, true)), IsEmpty())
          << first << " " << second;
    }
  }
}

TEST(UnfinishedText, EveryPrefixOfAnInputIsRead) {
  const std::string text =
      "# c\r\n#! job.sh\nhf/svp q = 1\n* d\n Geometry\nH 0 0 1d0\n H x\n\nEnd Geometry\n%ls\n"
      "&database\n x\n&end\n$m\nrows\n2\nflag\n1\nnest\ncblock\n1\nendcblock\ncscalar\n 2\n"
      "odd\n x\n\nendnest\nblock\n\nendblock\nodd\n 3\n$end\nfree\n$other";
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const std::string prefix = text.substr(0, length);
    for (const ParseOptions& given : all_options()) {
      const ParseResult result = parse(prefix, given);
      EXPECT_THAT(broken_invariants(result.data), IsEmpty()) << prefix;
      if (given.validate || given.custom_unknown_policy) {
        EXPECT_THAT(wrong_claims(prefix, schema_of_all_kinds(), given), IsEmpty()) << prefix;
      }
    }
  }
}

}  // namespace
}  // namespace kelp::input::bdf
