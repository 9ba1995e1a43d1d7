#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "lsp/client.hpp"

namespace kelp::test {
namespace {

const Json snippets = {
    {"textDocument", {{"completion", {{"completionItem", {{"snippetSupport", true}}}}}}}};

Json item_called(const Json& list, std::string_view label) {
  for (const Json& item : list["items"]) {
    if (item["label"] == label) {
      return item;
    }
  }
  ADD_FAILURE() << label << " is not offered";
  return Json::object();
}

TEST(Completing, AnEntryBringsItsMeaningItsTypeAndItsLines) {
  Client client;
  client.start(snippets);
  client.open("$scf\n  gue\n$end\n");
  const Json list = client.result("textDocument/completion", Client::at(1, 5));
  EXPECT_EQ(list["isIncomplete"], false);
  const Json guess = item_called(list, "guess");
  EXPECT_EQ(guess["textEdit"]["range"], range_json(1, 2, 1, 5));
  EXPECT_EQ(guess["textEdit"]["newText"], "guess\n  ${1:atom}");
  EXPECT_EQ(guess["insertTextFormat"], 2);
  EXPECT_EQ(guess["insertTextMode"], 2);
  EXPECT_THAT(guess["documentation"].get<std::string>(), testing::HasSubstr("first orbitals"));
  EXPECT_EQ(guess["detail"], "string, default atom");
}

TEST(Completing, ASnippetClosesItsBlockAndEscapesWhatItsSyntaxHas) {
  Client client;
  client.start(snippets);
  client.open("$");
  const Json list = client.result("textDocument/completion", Client::at(0, 1));
  EXPECT_EQ(item_called(list, "$scf")["textEdit"]["newText"], "\\$scf\n  $0\n\\$end");
}

TEST(Completing, WithoutSnippetsOnlyTheNameIsWritten) {
  Client client;
  client.start();
  client.open("$scf\n  gue\n$end\n");
  const Json guess =
      item_called(client.result("textDocument/completion", Client::at(1, 5)), "guess");
  EXPECT_EQ(guess["textEdit"]["newText"], "guess");
  EXPECT_FALSE(guess.contains("insertTextFormat"));
}

TEST(Completing, WordsOfTheHeaderGetTheirValue) {
  Client client;
  client.start(snippets);
  client.open("#! a\nb3lyp/def2-svp cha\n");
  const Json list = client.result("textDocument/completion", Client::at(1, 18));
  EXPECT_EQ(item_called(list, "charge")["textEdit"]["newText"], "charge=${1:0}");
}

TEST(Completing, WhatIsThereAlreadyIsSortedBehindTheRest) {
  Client client;
  client.start();
  client.open("$scf\n  charge\n    0\n  \n$end\n");
  const Json list = client.result("textDocument/completion", Client::at(3, 2));
  const std::string last = list["items"].back()["sortText"];
  EXPECT_EQ(list["items"].back()["label"], "charge");
  EXPECT_LT(item_called(list, "spinmulti")["sortText"].get<std::string>(), last);
}

TEST(Completing, SpeaksTheLanguageOfTheSettings) {
  Client client;
  client.start(Json::object(), {{"language", "zh"}});
  client.open("$scf\n  gue\n$end\n");
  const Json guess =
      item_called(client.result("textDocument/completion", Client::at(1, 5)), "guess");
  EXPECT_THAT(guess["documentation"].get<std::string>(), testing::HasSubstr("轨道"));
}

// The editor of the user sends one character after the other.
TEST(Completing, FollowsWhatIsTyped) {
  Client client;
  client.start();
  client.open("");
  const std::string typed = "$scf\n  guess\n    ";
  std::size_t line = 0;
  std::size_t column = 0;
  for (const char letter : typed) {
    client.change({line, column, line, column}, std::string(1, letter));
    line += letter == '\n' ? 1 : 0;
    column = letter == '\n' ? 0 : column + 1;
    client.result("textDocument/completion", Client::at(line, column));
    client.findings();
  }
  const Json list = client.result("textDocument/completion", Client::at(line, column));
  item_called(list, "hcore");
}

}  // namespace
}  // namespace kelp::test
