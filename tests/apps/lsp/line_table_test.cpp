#include "lsp/line_table.hpp"

#include <gtest/gtest.h>

#include <string>

namespace kelp::app::lsp {
namespace {

using input::bdf::ColumnUnit;

// One, two, three and four bytes to a character; one, one, one and two UTF-16 units.
const std::string letters = "a\xC3\xA4\xE6\xB0\xA2\xF0\x9F\xA7\xAAz";

TEST(LineTables, CountCharactersInTheUnitThatWasAgreedOn) {
  struct Row {
    std::size_t byte;
    std::size_t utf8;
    std::size_t utf16;
    std::size_t utf32;
  };
  const LineTable table(letters);
  for (const Row& row : {Row{0, 0, 0, 0}, Row{1, 1, 1, 1}, Row{3, 3, 2, 2}, Row{6, 6, 3, 3},
                         Row{10, 10, 5, 4}, Row{11, 11, 6, 5}}) {
    const std::pair<ColumnUnit, std::size_t> columns[] = {{ColumnUnit::Byte, row.utf8},
                                                          {ColumnUnit::Utf16, row.utf16},
                                                          {ColumnUnit::CodePoint, row.utf32}};
    for (const auto& [unit, column] : columns) {
      EXPECT_EQ(table.position(letters, row.byte, unit), (Position{0, column})) << row.byte;
      EXPECT_EQ(table.byte_at(letters, {0, column}, unit), row.byte) << row.byte;
    }
  }
}

TEST(LineTables, TakeAPositionWithinACharacterForItsBeginning) {
  const LineTable table(letters);
  EXPECT_EQ(table.byte_at(letters, {0, 4}, ColumnUnit::Utf16), 6U);
  EXPECT_EQ(table.byte_at(letters, {0, 2}, ColumnUnit::Byte), 1U);
}

TEST(LineTables, EndLinesAtEveryLineEndOfTheProtocol) {
  const std::string text = "a\nb\r\nc\rd\r\r\n";
  const LineTable table(text);
  EXPECT_EQ(table.size(), 6U);
  const std::size_t begins[] = {0, 2, 5, 7, 9, 11};
  for (std::size_t line = 0; line < table.size(); ++line) {
    EXPECT_EQ(table.byte_at(text, {line, 0}, ColumnUnit::Utf16), begins[line]) << line;
    EXPECT_EQ(table.position(text, begins[line], ColumnUnit::Utf16), (Position{line, 0})) << line;
  }
}

TEST(LineTables, TakeWhatLiesBeyondForTheEnd) {
  const std::string text = "ab\r\ncd\n";
  const LineTable table(text);
  EXPECT_EQ(table.byte_at(text, {0, 99}, ColumnUnit::Utf16), 2U);
  EXPECT_EQ(table.byte_at(text, {2, 0}, ColumnUnit::Utf16), 7U);
  EXPECT_EQ(table.byte_at(text, {99, 0}, ColumnUnit::Utf16), 7U);
  EXPECT_EQ(table.position(text, 3, ColumnUnit::Utf16), (Position{0, 2}));
  EXPECT_EQ(table.position(text, 99, ColumnUnit::Utf16), (Position{2, 0}));
  EXPECT_EQ(LineTable().position("", 0, ColumnUnit::Utf16), (Position{0, 0}));
}

}  // namespace
}  // namespace kelp::app::lsp
