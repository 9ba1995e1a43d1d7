#include <gtest/gtest.h>

#include <string>

#include "lsp/client.hpp"

namespace kelp::test {
namespace {

const std::string water =
    "#! a\nhf/sto-3g charge=1 spin=2\n\nGeometry\nO 0 0 0\nH 0 0 0.95\nH 0 0.95 0\nEnd geometry\n";

Json whole() {
  Json params = Client::about_input();
  params["range"] = range_json(0, 0, 99, 0);
  return params;
}

TEST(Hints, TellFormulaElectronsAndMultiplicityAtTheHeadOfTheGeometry) {
  Client client;
  client.start();
  client.open(water);
  const Json hints = client.result("textDocument/inlayHint", whole());
  ASSERT_EQ(hints.size(), 1U);
  EXPECT_EQ(hints[0]["label"], "H2O, 9 electrons, charge +1, multiplicity 2");
  EXPECT_EQ(hints[0]["position"], Json({{"line", 3}, {"character", 8}}));
}

TEST(Hints, StandAtTheGeometryOfEachCompass) {
  Client client;
  client.start();
  client.open(
      "$compass\n basis\n  sto-3g\n geometry\n  H 0 0 0\n  H 0 0 0.7\n end geometry\n$end\n"
      "$xuanyuan\n$end\n$scf\n rhf\n$end\n");
  const Json hints = client.result("textDocument/inlayHint", whole());
  ASSERT_EQ(hints.size(), 1U);
  EXPECT_EQ(hints[0]["label"], "H2, 2 electrons, multiplicity 1");
  EXPECT_EQ(hints[0]["position"]["line"], 3);
}

TEST(Hints, CanBeSwitchedOffAndAreThoseOfTheRange) {
  Client client;
  client.start(Json::object(), {{"inlayHints", false}});
  client.open(water);
  EXPECT_EQ(client.result("textDocument/inlayHint", whole()), Json::array());
  Client other;
  other.start();
  other.open(water);
  Json params = whole();
  params["range"] = range_json(4, 0, 9, 0);
  EXPECT_EQ(other.result("textDocument/inlayHint", params), Json::array());
}

TEST(Molecules, AreGivenToViewersWithTheLinesOfTheirAtoms) {
  Client client;
  client.start();
  client.open(water);
  const Json molecule = client.result("kelp-bdf/molecule", Client::about_input());
  EXPECT_EQ(molecule["lines"], Json({4, 5, 6}));
  EXPECT_EQ(molecule["xyz"].get<std::string>().substr(0, 2), "3\n");
  client.open("");
  EXPECT_EQ(client.result("kelp-bdf/molecule", Client::about_input())["xyz"], "");
}

}  // namespace
}  // namespace kelp::test
