#include "kelp/core/text.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <locale>
#include <string>
#include <string_view>
#include <vector>

namespace kelp::core::text {
namespace {

using namespace std::string_view_literals;

std::string all_bytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) {
    bytes += static_cast<char>(byte);
  }
  return bytes;
}

TEST(Trim, RemovesTheSixWhiteSpaceBytesFromBothEnds) {
  for (const char space : " \t\n\v\f\r"sv) {
    const std::string around(2, space);
    EXPECT_EQ(trim(around + "a b" + around), "a b") << "byte " << static_cast<int>(space);
  }
}

TEST(Trim, RemovesNoOtherByte) {
  for (const char byte : all_bytes()) {
    if (" \t\n\v\f\r"sv.find(byte) == std::string_view::npos) {
      const std::string text(3, byte);
      EXPECT_EQ(trim(' ' + text + ' '), text) << "byte " << static_cast<int>(byte);
    }
  }
}

TEST(Trim, KeepsWhiteSpaceInside) {
  EXPECT_EQ(trim(" a \t\r\n b\n"), "a \t\r\n b");
}

TEST(Trim, LeavesNothingOfABlankText) {
  EXPECT_EQ(trim(""), "");
  EXPECT_EQ(trim(std::string_view()), "");
  EXPECT_EQ(trim(" \t\r\n\v\f"), "");
}

TEST(Trim, KeepsNulBytes) {
  EXPECT_EQ(trim("\0 a\0 "sv), "\0 a\0"sv);
}

TEST(TrimView, PointsIntoTheText) {
  const std::string_view text = "  ab ";
  EXPECT_EQ(trim_view(text).data(), text.data() + 2);
  EXPECT_EQ(trim_view(text).size(), 2U);
}

TEST(ToLower, ChangesTheTwentySixCapitalsAndNothingElse) {
  const std::string before = all_bytes();
  const std::string after = to_lower(before);
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < before.size(); ++i) {
    const bool capital = i >= 'A' && i <= 'Z';
    EXPECT_EQ(static_cast<unsigned char>(after[i]), capital ? i + 32 : i);
  }
}

// A host's locale in which every letter is its own and every byte is white space.
class StrangeLetters : public std::ctype<char> {
 public:
  StrangeLetters() : std::ctype<char>(all_space()) {}

 protected:
  char do_tolower(char byte) const override { return byte; }

 private:
  static const mask* all_space() {
    static const std::vector<mask> table(table_size, space);
    return table.data();
  }
};

TEST(ToUpper, ChangesTheTwentySixSmallLettersAndNothingElse) {
  EXPECT_EQ(to_upper("a-Z [`{] 0az\xc3\xa4"), "A-Z [`{] 0AZ\xc3\xa4");
  EXPECT_EQ(to_upper(""), "");
}

TEST(ToLower, KeepsItsMeaningWhateverTheGlobalLocaleSays) {
  const std::locale before =
      std::locale::global(std::locale(std::locale::classic(), new StrangeLetters));
  EXPECT_EQ(to_lower("ISO-\xC4"), "iso-\xC4");
  EXPECT_EQ(trim(" a "), "a");
  std::locale::global(before);
}

TEST(EqualsIgnoringCase, ComparesWholeTexts) {
  EXPECT_TRUE(equals_ignoring_case("", ""));
  EXPECT_TRUE(equals_ignoring_case("End Geometry", "eND gEOMETRY"));
  EXPECT_FALSE(equals_ignoring_case("end", "end "));
  EXPECT_FALSE(equals_ignoring_case("end ", "end"));
  EXPECT_FALSE(equals_ignoring_case("a\0b"sv, "a\0c"sv));
}

TEST(EqualsIgnoringCase, TakesNeighboursOfLettersAndHighBytesAsTheyAre) {
  EXPECT_FALSE(equals_ignoring_case("@", "`"));
  EXPECT_FALSE(equals_ignoring_case("[", "{"));
  EXPECT_FALSE(equals_ignoring_case("\xC4", "\xE4"));
}

TEST(Join, PutsTheSeparatorBetweenEachTwo) {
  using Texts = std::vector<std::string_view>;
  EXPECT_EQ(join(Texts{}, ", "), "");
  EXPECT_EQ(join(Texts{"a"}, ", "), "a");
  EXPECT_EQ(join(Texts{"", "b", ""}, ", "), ", b, ");
  EXPECT_EQ(join(std::vector<std::string>{"a", "b"}, " or "), "a or b");
}

TEST(TakeWord, CutsOneWordAfterTheOther) {
  std::string_view rest = " \tab\vc\0d \r\n"sv;
  EXPECT_EQ(take_word(rest), "ab");
  EXPECT_EQ(take_word(rest), "c\0d"sv);
  EXPECT_EQ(take_word(rest), "");
  EXPECT_EQ(rest, "");
  EXPECT_EQ(take_word(rest), "");
}

TEST(TakeWord, LeavesTheRestFromTheEndOfTheWordOn) {
  std::string_view rest = "scf  rhf";
  EXPECT_EQ(take_word(rest), "scf");
  EXPECT_EQ(rest, "  rhf");
}

TEST(LowerStart, IsTheFirstEightBytesInLowerCase) {
  EXPECT_EQ(lower_start(""), 0U);
  EXPECT_EQ(lower_start("SpinMulti"), lower_start("spinmultiplicity"));
  EXPECT_NE(lower_start("charge"), lower_start("charges"));
  EXPECT_NE(lower_start("chargf"), lower_start("charge"));
}

TEST(LowerStart, ChangesWhatToLowerChangesAndNothingElse) {
  const std::string bytes = all_bytes();
  for (std::size_t position = 0; position < 8; ++position) {
    for (const char byte : bytes) {
      std::string text = "aZ\x80@[`{\xff";
      text[position] = byte;
      const std::string lower = to_lower(text);
      EXPECT_EQ(lower_start(text), lower_start(lower)) << static_cast<int>(byte);
      std::uint64_t plain = 0;
      std::memcpy(&plain, lower.data(), sizeof plain);
      EXPECT_EQ(lower_start(text), plain) << static_cast<int>(byte);
    }
  }
}

}  // namespace
}  // namespace kelp::core::text
