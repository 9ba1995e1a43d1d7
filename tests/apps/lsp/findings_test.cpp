#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "kelp/input/bdf/diagnostics.hpp"
#include "lsp/client.hpp"
#include "support/files.hpp"
#include "support/published_inputs.hpp"
#include "support/schema.hpp"

namespace kelp::test {
namespace {

const std::string faulty = "$scf\n  chrage\n   \xF0\x9F\xA7\xAA 1\n  rhf\n  uhf\n$end\n";

Json find_code(const Json& findings, std::string_view code) {
  for (const Json& finding : findings) {
    if (finding["code"] == code) {
      return finding;
    }
  }
  ADD_FAILURE() << code << " is not in " << findings;
  return {};
}

TEST(Findings, ArePushedWithTheVersionOfTheTextThatTheyAreAbout) {
  Client client;
  client.start();
  client.open(faulty);
  Json told = client.findings();
  EXPECT_EQ(told["uri"], Client::uri);
  EXPECT_EQ(told["version"], 1);
  const Json finding = find_code(told["diagnostics"], "bdf.unknown_entry");
  EXPECT_EQ(finding["range"], range_json(1, 2, 1, 8));
  EXPECT_EQ(finding["severity"], 2);
  EXPECT_EQ(finding["source"], "kelp-bdf");
  EXPECT_THAT(finding["message"].get<std::string>(), testing::HasSubstr("similar entry"));
  client.change({1, 2, 1, 8}, "charge");
  told = client.findings();
  EXPECT_EQ(told["version"], 2);
  for (const Json& left : told["diagnostics"]) {
    EXPECT_NE(left["code"], "bdf.unknown_entry") << left;
  }
}

TEST(Findings, OfAClosedInputAreTakenBack) {
  Client client;
  client.start();
  client.open(faulty);
  EXPECT_FALSE(client.findings()["diagnostics"].empty());
  client.tell("textDocument/didClose", Client::about_input());
  const Json told = client.findings();
  EXPECT_EQ(told["diagnostics"], Json::array());
}

TEST(Findings, ArePulledByWhoPullsAndPushedToNobodyElse) {
  Client client;
  client.start({{"textDocument", {{"diagnostic", Json::object()}}}});
  client.open(faulty);
  EXPECT_TRUE(client.findings().is_null());
  const Json report = client.result("textDocument/diagnostic", Client::about_input());
  EXPECT_EQ(report["kind"], "full");
  find_code(report["items"], "bdf.unknown_entry");
}

TEST(Findings, TellAllThatTheClientCanShow) {
  Client client;
  client.start({{"textDocument",
                 {{"publishDiagnostics",
                   {{"relatedInformation", true},
                    {"codeDescriptionSupport", true},
                    {"tagSupport", {{"valueSet", {1, 2}}}}}}}}});
  client.open("$scf\n  rhf\n  uhf\n  charge\n  0\n  charge\n  0\n$end\n");
  const Json told = client.findings()["diagnostics"];
  const Json conflict = find_code(told, "bdf.conflicting_entries");
  ASSERT_EQ(conflict["relatedInformation"].size(), 1U) << conflict;
  EXPECT_EQ(conflict["relatedInformation"][0]["location"]["uri"], Client::uri);
  EXPECT_EQ(conflict["relatedInformation"][0]["location"]["range"]["start"]["line"], 2);
  EXPECT_EQ(conflict["range"]["start"]["line"], 1);
  EXPECT_THAT(conflict["codeDescription"]["href"].get<std::string>(),
              testing::EndsWith("docs/findings.md#bdf.conflicting_entries"));
  const Json twice = find_code(told, "bdf.duplicate_entry");
  EXPECT_EQ(twice["tags"], Json::array({1}));
  EXPECT_FALSE(conflict.contains("tags"));
}

TEST(Findings, TellNothingThatTheClientDoesNotKnow) {
  Client client;
  client.start();
  client.open("$scf\n  rhf\n  uhf\n$end\n");
  const Json conflict = find_code(client.findings()["diagnostics"], "bdf.conflicting_entries");
  EXPECT_FALSE(conflict.contains("relatedInformation"));
  EXPECT_FALSE(conflict.contains("codeDescription"));
}

TEST(Findings, StandInTheUnitOfTheClient) {
  for (const auto& [encoding, column] :
       {std::pair{"utf-8", 5}, std::pair{"utf-16", 3}, std::pair{"utf-32", 2}}) {
    Client client;
    client.start({{"general", {{"positionEncodings", Json::array({encoding})}}}});
    client.open("$scf\n  charge\n\xF0\x9F\xA7\xAA x\n$end\n");
    for (const Json& finding : client.findings()["diagnostics"]) {
      if (finding["code"] == "bdf.invalid_module_value") {
        EXPECT_EQ(finding["range"]["end"]["character"], column + 1) << encoding << finding;
      }
    }
  }
}

TEST(Findings, AreNoMoreThanIsAskedFor) {
  Client client;
  client.start(Json::object(), {{"maxFindings", 3}});
  std::string text = "$scf\n";
  for (int line = 0; line < 50; ++line) {
    text += "  nonsense" + std::to_string(line) + "\n";
  }
  client.open(text + "$end\n");
  EXPECT_EQ(client.findings()["diagnostics"].size(), 3U);
}

// The check of the command is the same function of the library; this holds what lies between.
TEST(Findings, OfPublishedInputsAreThoseOfTheCheck) {
  const auto files = published_inputs();
  if (files.empty()) {
    GTEST_SKIP() << "no published inputs";
  }
  Client client;
  client.start({{"general", {{"positionEncodings", {"utf-8"}}}}}, {{"maxFindings", 1000000}});
  for (const auto& file : files) {
    const std::string text = file_bytes(file);
    client.open(text);
    const Json told = client.findings()["diagnostics"];
    input::bdf::DiagnoseOptions options;
    options.folder = input::bdf::input_folder_of("/jobs/a.inp");
    const input::bdf::ParsedInput input(text, input::bdf::shipped_schema());
    const auto expected = diagnose(input, options);
    ASSERT_EQ(told.size(), expected.size()) << file;
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_EQ(told[i]["code"], expected[i].code) << file;
      if (expected[i].range) {
        const auto begin =
            input.source().position(expected[i].range->begin, input::bdf::ColumnUnit::Byte);
        EXPECT_EQ(told[i]["range"]["start"]["line"], begin.line - 1) << file;
        EXPECT_EQ(told[i]["range"]["start"]["character"], begin.column - 1) << file;
      }
    }
  }
}

}  // namespace
}  // namespace kelp::test
