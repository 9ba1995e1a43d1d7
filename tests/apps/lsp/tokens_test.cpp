#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lsp/client.hpp"
#include "lsp/tokens.hpp"
#include "support/files.hpp"
#include "support/published_inputs.hpp"

namespace kelp::test {
namespace {

/// Returns the tokens as "line:column type length".
std::vector<std::string> shown(const Json& tokens) {
  std::vector<std::string> list;
  std::size_t line = 0;
  std::size_t column = 0;
  const Json& data = tokens["data"];
  for (std::size_t i = 0; i + 4 < data.size(); i += 5) {
    const auto down = data[i].get<std::size_t>();
    line += down;
    column = (down == 0 ? column : 0) + data[i + 1].get<std::size_t>();
    list.push_back(std::to_string(line) + ':' + std::to_string(column) + ' ' +
                   app::lsp::token_types()[data[i + 3].get<std::size_t>()].get<std::string>() +
                   ' ' + std::to_string(data[i + 2].get<std::size_t>()));
  }
  return list;
}

TEST(Tokens, TellWhatTheWordsAre) {
  Client client;
  client.start();
  client.open("$scf # \xF0\x9F\xA7\xAA\n  guess\n    atom\n  charge\n    -1\n$end\n% ls\n");
  EXPECT_THAT(
      shown(client.result("textDocument/semanticTokens/full", Client::about_input())),
      testing::ElementsAre("0:0 namespace 4", "0:5 comment 4", "1:2 property 5", "2:4 string 4",
                           "3:2 property 6", "4:4 number 2", "5:0 namespace 4", "6:0 macro 4"));
}

TEST(Tokens, TellWhatTheHeaderAndTheGeometryHold) {
  Client client;
  client.start();
  client.open("#! a\nb3lyp/sto-3g charge=1\n\nGeometry\nHe 0 0 0.5\nEnd geometry\n");
  EXPECT_THAT(
      shown(client.result("textDocument/semanticTokens/full", Client::about_input())),
      testing::ElementsAre("0:0 comment 4", "1:0 function 5", "1:6 string 6", "1:13 property 6",
                           "1:20 number 1", "3:0 keyword 8", "4:0 type 2", "4:3 number 1",
                           "4:5 number 1", "4:7 number 3", "5:0 keyword 12"));
}

TEST(Tokens, OfARangeAreThoseOfItsLines) {
  Client client;
  client.start();
  client.open("$scf\n  guess\n    atom\n$end\n");
  Json params = Client::about_input();
  params["range"] = range_json(1, 3, 1, 4);
  EXPECT_THAT(shown(client.result("textDocument/semanticTokens/range", params)),
              testing::ElementsAre("1:2 property 5"));
}

TEST(Tokens, OfPublishedInputsDoNotCoverEachOther) {
  Client client;
  client.start();
  for (const auto& file : published_inputs()) {
    client.open(file_bytes(file));
    const Json data =
        client.result("textDocument/semanticTokens/full", Client::about_input())["data"];
    EXPECT_GT(data.size(), 0U) << file;
    for (std::size_t i = 5; i + 4 < data.size(); i += 5) {
      EXPECT_TRUE(data[i] > 0 || data[i + 1] >= data[i - 3]) << file << ' ' << i;
    }
  }
}

}  // namespace
}  // namespace kelp::test
