#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lsp/client.hpp"

namespace kelp::test {
namespace {

int error_of(const Json& answer) {
  return answer.contains("error") ? answer["error"]["code"].get<int>() : 0;
}

TEST(Lifecycle, ARequestBeforeInitializeIsRefused) {
  Client client;
  EXPECT_EQ(error_of(client.ask("textDocument/hover", Client::at(0, 0))), -32002);
  client.open("$scf\n$end\n");
  EXPECT_TRUE(client.findings().is_null());
  EXPECT_EQ(client.start()["serverInfo"]["name"], "kelp-bdf");
}

TEST(Lifecycle, ASecondInitializeIsRefused) {
  Client client;
  client.start();
  EXPECT_EQ(error_of(client.ask("initialize")), -32600);
}

TEST(Lifecycle, NothingIsAnsweredAfterAShutdown) {
  Client client;
  client.start();
  EXPECT_TRUE(client.result("shutdown").is_null());
  EXPECT_EQ(error_of(client.ask("shutdown")), -32600);
  EXPECT_FALSE(client.server().is_over());
  client.tell("exit");
  EXPECT_TRUE(client.server().is_over());
  EXPECT_TRUE(client.server().ended_well());
}

TEST(Lifecycle, NothingIsToldAfterAShutdown) {
  Client client;
  client.start();
  client.open("$scf\n  chrage\n$end\n");
  client.result("shutdown");
  EXPECT_TRUE(client.findings().is_null());
}

TEST(Lifecycle, AnExitWithoutShutdownIsNoGoodEnd) {
  for (const bool started : {false, true}) {
    Client client;
    if (started) {
      client.start();
    }
    client.tell("exit");
    EXPECT_TRUE(client.server().is_over());
    EXPECT_FALSE(client.server().ended_well());
  }
}

TEST(Lifecycle, RequestsThatCannotBeAnsweredAreErrors) {
  Client client;
  client.start();
  EXPECT_EQ(error_of(client.ask("no/such")), -32601);
  EXPECT_EQ(error_of(client.ask("$/no/such")), -32601);
  EXPECT_EQ(error_of(client.ask("textDocument/diagnostic")), -32602);
  EXPECT_EQ(error_of(client.ask("textDocument/diagnostic", Client::about_input())), -32602);
  EXPECT_EQ(error_of(client.ask("textDocument/diagnostic", {{"textDocument", {{"uri", 7}}}})),
            -32602);
  EXPECT_EQ(error_of(client.ask("workspace/executeCommand", {{"command", "no"}})), -32602);
}

TEST(Lifecycle, ACancelledRequestIsAnsweredAsThat) {
  Client client;
  client.start();
  client.server().handle(
      app::lsp::read_message(R"({"id": 99, "method": "shutdown", "params": null})"), true);
  EXPECT_EQ(error_of(client.ask("shutdown")), 0) << "the cancelled one had an effect";
}

TEST(Lifecycle, NotificationsThatNobodyKnowsAreIgnored) {
  Client client;
  client.start();
  client.tell("$/setTrace", {{"value", "off"}});
  client.tell("no/such");
  client.send({{"id", 7}, {"result", nullptr}});
  EXPECT_EQ(client.told("window/logMessage").size(), 0U);
}

TEST(Lifecycle, WhatIsWrongWithANotificationIsLogged) {
  Client client;
  client.start();
  client.tell("textDocument/didChange", Client::about_input());
  client.tell("textDocument/didOpen", 7);
  EXPECT_EQ(client.told("window/logMessage").size(), 2U);
}

TEST(Lifecycle, TheEncodingIsTheFirstThatTheClientPrefersAndTheServerKnows) {
  struct Row {
    Json wished;
    const char* chosen;
  };
  for (const Row& row : {Row{Json::array({"utf-8", "utf-16"}), "utf-8"},
                         Row{Json::array({"utf-7", "utf-32", "utf-8"}), "utf-32"},
                         Row{Json::array({"utf-7"}), "utf-16"}, Row{nullptr, "utf-16"}}) {
    Client client;
    const Json answer = client.start({{"general", {{"positionEncodings", row.wished}}}});
    EXPECT_EQ(answer["capabilities"]["positionEncoding"], row.chosen);
  }
}

}  // namespace
}  // namespace kelp::test
