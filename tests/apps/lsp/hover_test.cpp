#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "lsp/client.hpp"

namespace kelp::test {
namespace {

using testing::HasSubstr;
using testing::Not;

const std::string mixed =
    "#! a\nb3lyp/def2-svp unit=bohr\n\nGeometry\nO 0 0 0\nH 0 0 1.8\nH 0 1.8 0\nEnd geometry\n\n"
    "$scf\n  guess\n    hcore\n  dft\n    pbe0\n$end\n";

Json hover_at(std::size_t line, std::size_t character, const std::string& text = mixed) {
  Client client;
  client.start();
  client.open(text);
  return client.result("textDocument/hover", Client::at(line, character));
}

std::string text_at(std::size_t line, std::size_t character, const std::string& text = mixed) {
  const Json hover = hover_at(line, character, text);
  return hover.is_null() ? "" : hover["contents"]["value"].get<std::string>();
}

TEST(Hovering, OverAKeywordTellsItsMeaningItsValuesAndItsLayout) {
  const Json hover = hover_at(10, 4);
  EXPECT_EQ(hover["contents"]["kind"], "markdown");
  EXPECT_EQ(hover["range"], range_json(10, 2, 10, 7));
  const std::string text = hover["contents"]["value"];
  EXPECT_THAT(text, HasSubstr("**scf.guess: an entry of $scf**"));
  EXPECT_THAT(text, HasSubstr("- `hcore`: diagonalised"));
  EXPECT_THAT(text, HasSubstr("- *default*: atom"));
  EXPECT_THAT(text, HasSubstr("```bdf\nguess\n  atom\n```"));
}

TEST(Hovering, OverAValueTellsItsMeaningFirst) {
  EXPECT_THAT(text_at(11, 6), testing::StartsWith("**hcore**: diagonalised"));
  EXPECT_THAT(text_at(13, 6), HasSubstr("**pbe0: a functional of the header**"));
}

TEST(Hovering, OverModulesAndTheirEnds) {
  EXPECT_THAT(text_at(9, 2), HasSubstr("**scf: a module**"));
  EXPECT_THAT(text_at(14, 2), HasSubstr("**scf: a module**"));
}

TEST(Hovering, OverWordsOfTheHeader) {
  EXPECT_THAT(text_at(1, 1), HasSubstr("**b3lyp: a functional of the header**"));
  EXPECT_THAT(text_at(1, 8), HasSubstr("**def2-svp: a basis set of the header**"));
  EXPECT_THAT(text_at(1, 17), HasSubstr("easy.unit"));
  EXPECT_THAT(text_at(1, 22), testing::StartsWith("**bohr**: "));
}

TEST(Hovering, OverAnAtomTellsItsElementAndNeighboursInAngstrom) {
  EXPECT_EQ(text_at(4, 0), "**O**: atom 1 of 3\n- H (atom 2) at 0.953 Å\n- H (atom 3) at 0.953 Å");
  EXPECT_THAT(text_at(2, 3, "$compass\n geometry\n  C1 0 0 0\n  o2 0 0 1.1\n end geometry\n$end\n"),
              HasSubstr("**C**: atom 1 of 2\n- o2 (atom 2) at 1.100 Å"));
}

TEST(Hovering, OverAGeometryTellsFormulaAndElectrons) {
  EXPECT_EQ(text_at(3, 2), "H2O, 10 electrons, multiplicity 1");
}

TEST(Hovering, OverAnythingElseTellsNothing) {
  EXPECT_TRUE(hover_at(2, 0).is_null());
  EXPECT_TRUE(hover_at(0, 1).is_null());
  EXPECT_TRUE(hover_at(1, 3, "$scf\n  nosuch\n$end\n").is_null());
  EXPECT_TRUE(hover_at(0, 3, "$nosuch\n$end\n").is_null());
  EXPECT_TRUE(hover_at(99, 99, "").is_null());
}

}  // namespace
}  // namespace kelp::test
