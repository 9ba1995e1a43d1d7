#include "schema/normalize_key.hpp"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string_view>

namespace kelp::input::bdf {
namespace {

using namespace std::string_view_literals;

struct Row {
  std::string_view text;
  std::string_view key;
};

constexpr std::array rows = {
    Row{"", ""},
    Row{" \t\r\n", ""},
    Row{"$", ""},
    Row{" $ ", ""},
    Row{"Scf", "scf"},
    Row{"$SCF", "scf"},
    Row{" scf ", "scf"},
    Row{"\t$Scf\r\n", "scf"},
    Row{"\v\fscf\v\f", "scf"},
    // One dollar only, and what stands behind it is not trimmed again.
    Row{"$$scf", "$scf"},
    Row{"$ scf", " scf"},
    Row{"scf$", "scf$"},
    Row{"s$cf", "s$cf"},
    Row{"End  Geometry", "end  geometry"},
    Row{"A\0B"sv, "a\0b"sv},
    Row{"\0"sv, "\0"sv},
    Row{"Gr\xC3\x9C\xC3\x9F"
        "E",
        "gr\xC3\x9C\xC3\x9F"
        "e"},
    Row{"\xA0X", "\xA0x"},
};

TEST(NormalizeKey, MakesTheKeyOfEachRow) {
  for (const Row& row : rows) {
    EXPECT_EQ(normalize_key(row.text), row.key) << testing::PrintToString(row.text);
  }
}

TEST(NormalizeKey, TakesANullTextOfNoLength) {
  EXPECT_EQ(normalize_key(std::string_view()), "");
}

TEST(NormalizeKey, ThrowsForANullTextWithALength) {
  const std::string_view null(static_cast<const char*>(nullptr), 3);
  EXPECT_THROW(normalize_key(null), std::logic_error);
}

}  // namespace
}  // namespace kelp::input::bdf
