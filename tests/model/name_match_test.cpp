#include "model/name_match.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace kelp::input::bdf {
namespace {

using namespace std::string_view_literals;

struct Row {
  std::string_view wanted;
  std::string_view candidate;
  bool match;
};

constexpr std::array rows = {
    Row{"scf", "scf", true},
    Row{"$SCF", "scf", true},
    Row{"scf ", "scf", true},
    Row{"$$compass", "compass", true},
    Row{" $ compass", "compass", true},
    Row{"\t\r\n$ $\tcompass\t\r\n ", "compass", true},
    Row{"compass", " $$ Compass\n", true},
    Row{"scf$", "scf", false},
    Row{"scf$", "SCF$ ", true},
    Row{"scf $", "scf", false},
    Row{"s cf", "scf", false},
    Row{"scf", "scff", false},
    Row{"scff", "scf", false},
    Row{"", "", true},
    Row{" $\t$ ", "", true},
    Row{"", "$", true},
    Row{"", "scf", false},
    Row{"scf", "", false},
    // Vertical tab and form feed are white space elsewhere, but not for this rule.
    Row{"\vscf", "scf", false},
    Row{"scf\f", "scf", false},
    Row{"a\0b"sv, "A\0B"sv, true},
    Row{"a\0b"sv, "a\0c"sv, false},
    Row{"a\0"sv, "a", false},
    Row{"\xC4", "\xE4", false},
    Row{"\xC4", "\xC4", true},
    Row{"\xA0scf", "scf", false},
};

TEST(NameMatch, DecidesEachRowOfTheTableBothWaysRound) {
  for (const Row& row : rows) {
    EXPECT_EQ(names_match(row.wanted, row.candidate), row.match)
        << testing::PrintToString(row.wanted) << " and " << testing::PrintToString(row.candidate);
    EXPECT_EQ(names_match(row.candidate, row.wanted), row.match)
        << testing::PrintToString(row.candidate) << " and " << testing::PrintToString(row.wanted);
  }
}

TEST(NameMatch, FoldsTheLettersOfAsciiAndNothingElse) {
  for (int a = 0; a < 256; ++a) {
    for (int b = 0; b < 256; ++b) {
      const std::string left = {'x', static_cast<char>(a), 'x'};
      const std::string right = {'x', static_cast<char>(b), 'x'};
      const auto lower = [](int byte) { return byte >= 'A' && byte <= 'Z' ? byte + 32 : byte; };
      ASSERT_EQ(names_match(left, right), lower(a) == lower(b)) << a << " and " << b;
    }
  }
}

}  // namespace
}  // namespace kelp::input::bdf
