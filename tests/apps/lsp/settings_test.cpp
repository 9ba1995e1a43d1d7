#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "lsp/client.hpp"
#include "support/files.hpp"
#include "support/test_schema.hpp"

namespace kelp::test {
namespace {

const std::string unknown = "$scf\n  nosuchentry\n$end\n";

bool has_code(const Json& told, std::string_view code) {
  for (const Json& finding : told["diagnostics"]) {
    if (finding["code"] == code) {
      return true;
    }
  }
  return false;
}

TEST(Settings, OfTheStartCount) {
  Client client;
  client.start(Json::object(), {{"unknown", "ignore"}});
  client.open(unknown);
  EXPECT_FALSE(has_code(client.findings(), "bdf.unknown_entry"));
}

TEST(Settings, OfALaterNotificationCountForWhatIsOpen) {
  Client client;
  client.start();
  client.open(unknown);
  EXPECT_TRUE(has_code(client.findings(), "bdf.unknown_entry"));
  client.tell("workspace/didChangeConfiguration",
              {{"settings", {{"kelp-bdf", {{"severities", {{"bdf.unknown_*", "allow"}}}}}}}});
  EXPECT_FALSE(has_code(client.findings(), "bdf.unknown_entry"));
}

TEST(Settings, OfASingleCodeCountMoreThanAPattern) {
  Client client;
  client.start(Json::object(),
               {{"severities", {{"bdf.unknown_entry", "deny"}, {"bdf.*", "allow"}}}});
  client.open(unknown);
  const Json told = client.findings();
  ASSERT_TRUE(has_code(told, "bdf.unknown_entry"));
  EXPECT_EQ(told["diagnostics"].back()["severity"], 1);
}

TEST(Settings, AreAskedForWhereTheClientAnswersThat) {
  Client client;
  client.start(
      {{"workspace",
        {{"configuration", true}, {"didChangeConfiguration", {{"dynamicRegistration", true}}}}}});
  EXPECT_EQ(client.told("client/registerCapability").size(), 1U);
  client.open(unknown);
  const std::vector<Json> questions = client.messages("workspace/configuration");
  ASSERT_EQ(questions.size(), 1U);
  EXPECT_EQ(questions[0]["params"]["items"][0]["section"], "kelp-bdf");
  client.respond(questions[0], {{{"unknown", "ignore"}}});
  EXPECT_FALSE(has_code(client.findings(), "bdf.unknown_entry"));
  client.tell("workspace/didChangeConfiguration", {{"settings", nullptr}});
  EXPECT_EQ(client.told("workspace/configuration").size(), 1U);
}

TEST(Settings, ThatAreWrongAreToldAndTheOthersCount) {
  Client client;
  client.start(Json::object(), {{"language", 7},
                                {"unknown", "ignore"},
                                {"advice", "yes"},
                                {"maxFindings", -1},
                                {"severities", {{"bdf.no", "allow"}, {"bdf.*", "kill"}}},
                                {"somethingElse", 1}});
  EXPECT_EQ(client.told("window/showMessage").size(), 5U);
  client.open(unknown);
  EXPECT_FALSE(has_code(client.findings(), "bdf.unknown_entry"));
}

void use_schema(Client& client, const std::string& path) {
  client.tell("workspace/didChangeConfiguration",
              {{"settings", {{"kelp-bdf", {{"schema", path}}}}}});
}

TEST(Settings, NameASchemaAndOneThatCannotBeReadChangesNothing) {
  const TemporaryFolder folder;
  write_file(folder / "own.yaml", test_schema);
  Client client;
  client.start();
  client.open("$mp2\n$end\n");
  use_schema(client, utf8(folder / "missing.yaml"));
  EXPECT_EQ(client.told("window/showMessage").size(), 1U);
  EXPECT_FALSE(has_code(client.findings(), "bdf.unknown_module"));
  use_schema(client, utf8(folder / "own.yaml"));
  EXPECT_EQ(client.told("window/showMessage").size(), 0U);
  EXPECT_TRUE(has_code(client.findings(), "bdf.unknown_module"));
  use_schema(client, "");
  EXPECT_FALSE(has_code(client.findings(), "bdf.unknown_module"));
}

}  // namespace
}  // namespace kelp::test
