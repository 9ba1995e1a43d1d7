#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "lsp/client.hpp"
#include "support/files.hpp"
#include "support/published_inputs.hpp"

namespace kelp::test {
namespace {

const std::string module_input =
    "$compass\n  basis\n    sto-3g\n  geometry\n    H 0 0 0\n    H 0 0 0.7\n  end geometry\n$end\n"
    "$scf\n  rhf\n  uhf\n$end  # done\n";

const Json nesting = {
    {"textDocument", {{"documentSymbol", {{"hierarchicalDocumentSymbolSupport", true}}}}}};

TEST(Symbols, AreModulesWithTheirEntries) {
  Client client;
  client.start(nesting);
  client.open(module_input);
  const Json list = client.result("textDocument/documentSymbol", Client::about_input());
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0]["name"], "$compass");
  EXPECT_EQ(list[0]["range"], range_json(0, 0, 7, 4));
  EXPECT_EQ(list[0]["selectionRange"], range_json(0, 0, 0, 8));
  ASSERT_EQ(list[0]["children"].size(), 2U);
  EXPECT_EQ(list[0]["children"][0]["name"], "basis");
  EXPECT_EQ(list[0]["children"][0]["detail"], "sto-3g");
}

TEST(Symbols, AreAListForWhoKnowsNoTree) {
  Client client;
  client.start();
  client.open(module_input);
  const Json list = client.result("textDocument/documentSymbol", Client::about_input());
  ASSERT_EQ(list.size(), 6U);
  EXPECT_EQ(list[1]["name"], "basis");
  EXPECT_EQ(list[1]["containerName"], "$compass");
  EXPECT_EQ(list[1]["location"]["uri"], Client::uri);
}

TEST(Symbols, OfAnEasyInputAreItsWordsAndItsGeometry) {
  Client client;
  client.start(nesting);
  client.open("#! a\nhf/sto-3g charge=0\n\nGeometry\nHe 0 0 0\nEnd geometry\n");
  const Json list = client.result("textDocument/documentSymbol", Client::about_input());
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(list[1]["name"], "charge=0");
  EXPECT_EQ(list[2]["name"], "Geometry");
  EXPECT_EQ(list[2]["detail"], "He");
}

TEST(Folds, LeaveTheEndOfABlockInSight) {
  Client client;
  client.start();
  client.open(module_input);
  const Json list = client.result("textDocument/foldingRange", Client::about_input());
  ASSERT_EQ(list.size(), 3U);
  EXPECT_EQ(list[0], Json({{"startLine", 0}, {"endLine", 6}, {"kind", "region"}}));
  EXPECT_EQ(list[1], Json({{"startLine", 3}, {"endLine", 5}, {"kind", "region"}}));
  EXPECT_EQ(list[2], Json({{"startLine", 8}, {"endLine", 10}, {"kind", "region"}}));
}

TEST(Selections, GrowFromTheWordToTheWholeInput) {
  Client client;
  client.start();
  client.open(module_input);
  Json at = Client::about_input();
  at["positions"] = {{{"line", 4}, {"character", 7}}};
  Json selection = client.result("textDocument/selectionRange", at)[0];
  std::vector<Json> ranges;
  for (; !selection.is_null(); selection = selection.value("parent", Json())) {
    ranges.push_back(selection["range"]);
  }
  EXPECT_EQ(ranges, (std::vector<Json>{range_json(4, 6, 4, 7), range_json(4, 4, 4, 11),
                                       range_json(3, 0, 7, 0), range_json(0, 0, 8, 0),
                                       range_json(0, 0, 12, 0)}));
}

TEST(Highlights, AreTheTwoEndsOfABlock) {
  Client client;
  client.start();
  client.open(module_input);
  const auto ends = [&](std::size_t line, std::size_t character) {
    return client.result("textDocument/documentHighlight", Client::at(line, character));
  };
  const Json scf = {{{"range", range_json(8, 0, 8, 4)}}, {{"range", range_json(11, 0, 11, 4)}}};
  EXPECT_EQ(ends(8, 1), scf);
  EXPECT_EQ(ends(11, 2), scf);
  EXPECT_EQ(ends(6, 5)[0]["range"], range_json(3, 2, 3, 10));
  EXPECT_TRUE(ends(9, 3).is_null());
}

TEST(Definitions, LeadFromAnEndToItsHeaderAndFromAConflictToItsPartner) {
  Client client;
  client.start();
  client.open(module_input);
  const auto target = [&](std::size_t line, std::size_t character) {
    return client.result("textDocument/definition", Client::at(line, character));
  };
  EXPECT_EQ(target(11, 1)[0]["range"], range_json(8, 0, 8, 4));
  EXPECT_EQ(target(6, 5)[0]["range"], range_json(3, 2, 3, 10));
  EXPECT_EQ(target(9, 3)[0]["range"]["start"]["line"], 10);
  EXPECT_EQ(target(10, 3)[0]["range"]["start"]["line"], 9);
  EXPECT_EQ(target(2, 5), Json::array());
}

bool holds(const Json& outer, const Json& inner) {
  const auto before = [](const Json& one, const Json& other) {
    return std::pair(one["line"].get<int>(), one["character"].get<int>()) <=
           std::pair(other["line"].get<int>(), other["character"].get<int>());
  };
  return before(outer["start"], inner["start"]) && before(inner["end"], outer["end"]);
}

void expect_nested(const Json& symbols) {
  for (const Json& symbol : symbols) {
    EXPECT_TRUE(holds(symbol["range"], symbol["selectionRange"])) << symbol;
    for (const Json& child : symbol.value("children", Json::array())) {
      EXPECT_TRUE(holds(symbol["range"], child["range"])) << symbol;
    }
    expect_nested(symbol.value("children", Json::array()));
  }
}

TEST(Symbols, OfPublishedInputsLieWithinEachOther) {
  Client client;
  client.start(nesting);
  for (const auto& file : published_inputs()) {
    client.open(file_bytes(file));
    expect_nested(client.result("textDocument/documentSymbol", Client::about_input()));
  }
}

}  // namespace
}  // namespace kelp::test
