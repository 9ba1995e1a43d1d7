#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "kelp/input/bdf/rewrite.hpp"
#include "lsp/client.hpp"
#include "lsp/line_table.hpp"
#include "support/files.hpp"
#include "support/published_inputs.hpp"
#include "support/schema.hpp"

namespace kelp::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

const Json versioned = {{"workspace", {{"workspaceEdit", {{"documentChanges", true}}}}}};

/// Makes the edits of the protocol in a text, as an editor does.
std::string applied(const std::string& text, const Json& edits) {
  const app::lsp::LineTable lines{std::string_view(text)};
  std::vector<input::bdf::TextEdit> list;
  for (const Json& edit : edits) {
    const auto byte = [&](const char* end) {
      const Json& at = edit["range"][end];
      return lines.byte_at(text, {at["line"], at["character"]}, input::bdf::ColumnUnit::Utf16);
    };
    list.push_back({{byte("start"), byte("end")}, edit["newText"]});
  }
  return apply_edits(text, list);
}

Json about_lines(std::size_t begin, std::size_t end) {
  Json params = Client::about_input();
  params["range"] = range_json(begin, 0, end, 0);
  params["options"] = {{"tabSize", 2}, {"insertSpaces", true}};
  params["context"] = {{"diagnostics", Json::array()}};
  return params;
}

const std::string untidy = "$scf\nguess\natom\nRHF\n$end\n$mp2\nfss\n1.0\n$end\n";

TEST(Formatting, LaysTheInputOut) {
  Client client;
  client.start();
  client.open(untidy);
  const Json edits = client.result("textDocument/formatting", about_lines(0, 0));
  EXPECT_EQ(applied(untidy, edits),
            format_input(input::bdf::ParsedInput(untidy, input::bdf::shipped_schema())).text);
}

TEST(Formatting, OfSomeLinesLeavesTheOthers) {
  Client client;
  client.start();
  client.open(untidy);
  const Json edits = client.result("textDocument/rangeFormatting", about_lines(1, 2));
  EXPECT_EQ(applied(untidy, edits), "$scf\n  guess\n    atom\nRHF\n$end\n$mp2\nfss\n1.0\n$end\n");
}

TEST(Formatting, OfPublishedInputsIsThatOfTheCommand) {
  Client client;
  client.start();
  for (const auto& file : published_inputs()) {
    const std::string text = file_bytes(file);
    client.open(text);
    const Json answer = client.ask("textDocument/formatting", about_lines(0, 0));
    const auto wanted = format_input(input::bdf::ParsedInput(text, input::bdf::shipped_schema()));
    if (wanted.error.empty() && wanted.losses.empty()) {
      ASSERT_TRUE(answer.contains("result")) << file << answer;
      EXPECT_EQ(applied(text, answer["result"]), wanted.text) << file;
    } else {
      EXPECT_TRUE(answer.contains("error")) << file;
    }
  }
}

Json action_called(const Json& actions, std::string_view title) {
  for (const Json& action : actions) {
    if (action["title"] == title) {
      return action;
    }
  }
  ADD_FAILURE() << title << " is not in " << actions;
  return Json::object();
}

TEST(Actions, AreTheFixesOfAFinding) {
  Client client;
  client.start(versioned);
  const std::string text = "$scf\n  chrage\n    1\n$end\n";
  client.open(text);
  const Json actions = client.result("textDocument/codeAction", about_lines(1, 1));
  const Json fix = action_called(actions, "write 'charge'");
  EXPECT_EQ(fix["kind"], "quickfix");
  EXPECT_EQ(fix["diagnostics"][0]["code"], "bdf.unknown_entry");
  const Json change = fix["edit"]["documentChanges"][0];
  EXPECT_EQ(change["textDocument"]["version"], 1);
  EXPECT_EQ(applied(text, change["edits"]), "$scf\n  charge\n    1\n$end\n");
}

TEST(Actions, OfOtherLinesAreNotOffered) {
  Client client;
  client.start();
  client.open("$scf\n  rhf\n  chrage\n    1\n$end\n");
  for (const Json& action : client.result("textDocument/codeAction", about_lines(1, 1))) {
    EXPECT_NE(action["title"], "write 'charge'");
  }
}

TEST(Actions, ApplyAllSafeFixes) {
  Client client;
  client.start();
  const std::string text = "$scf\n  rhf\n$edn\n$mp2\n$ned\n";
  client.open(text);
  Json params = about_lines(0, 0);
  params["context"]["only"] = {"source.fixAll"};
  const Json actions = client.result("textDocument/codeAction", params);
  ASSERT_EQ(actions.size(), 1U) << actions;
  EXPECT_EQ(actions[0]["kind"], "source.fixAll.kelp-bdf");
  EXPECT_EQ(applied(text, actions[0]["edit"]["changes"][Client::uri]),
            "$scf\n  rhf\n$end\n$mp2\n$end\n");
}

TEST(Actions, AllowAFindingWhereItStands) {
  Client client;
  client.start();
  const std::string text = "$scf\n  nosuchentry\n$end\n";
  client.open(text);
  const Json action = action_called(client.result("textDocument/codeAction", about_lines(1, 1)),
                                    "Allow bdf.unknown_entry here");
  EXPECT_EQ(applied(text, action["edit"]["changes"][Client::uri]),
            "$scf\n  nosuchentry  # kelp-bdf: allow bdf.unknown_entry\n$end\n");
}

TEST(Actions, ThatTakeTimeAreMadeWhenTheyAreChosen) {
  Client client;
  client.start({{"textDocument",
                 {{"codeAction",
                   {{"dataSupport", true}, {"resolveSupport", {{"properties", {"edit"}}}}}}}}});
  client.open("$scf\n  nosuchentry\n$end\n");
  const Json action = action_called(client.result("textDocument/codeAction", about_lines(1, 1)),
                                    "Allow bdf.unknown_entry here");
  EXPECT_FALSE(action.contains("edit"));
  EXPECT_TRUE(client.result("codeAction/resolve", action).contains("edit"));
  client.change({0, 0, 0, 0}, "\n");
  EXPECT_TRUE(client.ask("codeAction/resolve", action).contains("error"));
}

TEST(Actions, SetChargeAndMultiplicityToFit) {
  Client client;
  client.start();
  const std::string text = "#! a\nhf/sto-3g charge=1 spin=1\n\nGeometry\nHe 0 0 0\nEnd geometry\n";
  client.open(text);
  const Json actions = client.result("textDocument/codeAction", about_lines(0, 5));
  const Json spin = action_called(actions, "Set the multiplicity to 2");
  EXPECT_EQ(applied(text, spin["edit"]["changes"][Client::uri]),
            "#! a\nhf/sto-3g charge=1 spin=2\n\nGeometry\nHe 0 0 0\nEnd geometry\n");
  action_called(actions, "Set the charge to 0");
}

TEST(Actions, ExplainACode) {
  Client client;
  client.start();
  client.open("$scf\n  nosuchentry\n$end\n");
  const Json action = action_called(client.result("textDocument/codeAction", about_lines(1, 1)),
                                    "Explain bdf.unknown_entry");
  const std::string text = client.result("workspace/executeCommand", action["command"]);
  EXPECT_THAT(text, HasSubstr("bdf.unknown_entry"));
  EXPECT_EQ(client.told("window/showMessage").back()["message"], text);
}

}  // namespace
}  // namespace kelp::test
