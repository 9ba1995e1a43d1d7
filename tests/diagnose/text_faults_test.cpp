// What an editor or a transfer does to a file as a whole: it cannot be read at all, or nothing of
// it changes.

#include <algorithm>
#include <array>
#include <utility>

#include "diagnose/diagnosing.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/published_inputs.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::string_view ascii = "$scf\nocupied\n$end\n";
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

std::string in_utf16(std::string_view text, bool is_little) {
  std::string units;
  for (const char byte : text) {
    const std::array<char, 2> little = {byte, '\0'};
    units += is_little ? little[0] : little[1];
    units += is_little ? little[1] : little[0];
  }
  return units;
}

std::string with_line_ends(std::string_view text, std::string_view line_end) {
  std::string changed;
  for (const char byte : text) {
    byte == '\n' ? changed.append(line_end) : changed.append(1, byte);
  }
  return changed;
}

TEST(TextFaults, Utf16IsTheOnlyFindingOfItsFile) {
  for (const bool is_little : {true, false}) {
    const std::string mark = is_little ? "\xFF\xFE" : "\xFE\xFF";
    const std::string plain = in_utf16(ascii, is_little);
    for (const std::string& text : {plain, mark + plain, mark}) {
      EXPECT_THAT(texts_of(parse(text)),
                  ElementsAre("error text.encoding\n"
                              "1:1 ''\n"
                              "help: save it as UTF-8; on Linux: iconv -f UTF-16 -t UTF-8 FILE\n"))
          << is_little << text.size();
    }
  }
}

TEST(TextFaults, OtherBytesAreNoUtf16) {
  const std::string words = "$scf\n# \u6C34\u6C34\u6C34\u6C34\u6C34\nrhf\n$end\n";
  EXPECT_THAT(diagnose(parse(words)), IsEmpty());
  EXPECT_THAT(diagnose(parse("$scf\n#" + std::string(3, '\0') + "\nrhf\n$end\n")), IsEmpty());
}

TEST(TextFaults, CarriageReturnsAloneAreTheOnlyFindingOfTheirFile) {
  EXPECT_THAT(texts_of(parse(with_line_ends(ascii, "\r"))),
              ElementsAre("error text.line_ends\n"
                          "1:5 '\r'\n"
                          "help: save it with Unix line ends; on Linux: tr '\\r' '\\n' < FILE\n"));
}

TEST(TextFaults, CarriageReturnsBesideLineFeedsAreNone) {
  EXPECT_THAT(codes_of(diagnose(parse("$scf\r"))), ElementsAre("bdf.unterminated_module"));
  EXPECT_THAT(codes_of(diagnose(parse("$scf \r \t\r"))), ElementsAre("bdf.unterminated_module"));
  EXPECT_THAT(diagnose(parse("$scf\r\nrhf\n# a\rb\r\n$end")), IsEmpty());
}

TEST(TextFaults, OfAByteOrderMarkThereIsNone) {
  const std::string marked = std::string(byte_order_mark) + std::string(ascii);
  EXPECT_THAT(texts_of(parse(ascii)), ::testing::SizeIs(1));
  EXPECT_EQ(texts_of(parse(marked)), texts_of(parse(ascii)));
}

TEST(TextFaults, PublishedInputsHaveTheSameFindingsWithWindowsLineEndsAndAByteOrderMark) {
  const auto files = test::published_inputs();
  if (files.empty()) {
    GTEST_SKIP() << "no published inputs in " << test::corpus_folder();
  }
  const auto found_in = [](std::string text) {
    return texts_of(ParsedInput(std::move(text), shipped_schema()));
  };
  std::size_t findings = 0;
  for (const auto& file : files) {
    std::string text = test::file_bytes(file);
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    text.erase(0, text.starts_with(byte_order_mark) ? byte_order_mark.size() : 0);
    const auto expected = found_in(text);
    const std::string windows = with_line_ends(text, "\r\n");
    EXPECT_EQ(found_in(windows), expected) << file;
    EXPECT_EQ(found_in(std::string(byte_order_mark) + text), expected) << file;
    EXPECT_EQ(found_in(std::string(byte_order_mark) + windows), expected) << file;
    findings += expected.size();
  }
  EXPECT_GT(findings, 0U);
}

}  // namespace
}  // namespace kelp::input::bdf
