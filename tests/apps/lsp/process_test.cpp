// The server as editors start it: a process whose standard streams are the connection.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "lsp/framing.hpp"
#include "lsp/message.hpp"
#include "support/program.hpp"

namespace kelp::test {
namespace {

using app::lsp::framed;
using app::lsp::Json;

const Json initialize = {{"jsonrpc", "2.0"},
                         {"id", 1},
                         {"method", "initialize"},
                         {"params", {{"processId", nullptr}, {"capabilities", Json::object()}}}};
const Json shutdown = {{"jsonrpc", "2.0"}, {"id", 2}, {"method", "shutdown"}};
const Json leave = {{"jsonrpc", "2.0"}, {"method", "exit"}};

Json opened(std::string_view text) {
  return {{"jsonrpc", "2.0"},
          {"method", "textDocument/didOpen"},
          {"params",
           {{"textDocument",
             {{"uri", "file:///a.inp"}, {"languageId", "bdf"}, {"version", 1}, {"text", text}}}}}};
}

std::string stream_of(const std::vector<Json>& messages) {
  std::string stream;
  for (const Json& message : messages) {
    stream += framed(message.dump());
  }
  return stream;
}

/// Returns the messages of an output, which must hold nothing else.
std::vector<Json> messages_of(const std::string& output) {
  app::lsp::MessageReader reader;
  reader.feed(output);
  std::vector<Json> messages;
  std::string again;
  while (const auto item = reader.next()) {
    EXPECT_TRUE(item->is_message) << item->text;
    messages.push_back(Json::parse(item->text, nullptr, false));
    EXPECT_FALSE(messages.back().is_discarded()) << item->text;
    again += framed(item->text);
  }
  EXPECT_EQ(again, output);
  return messages;
}

TEST(LanguageServer, AnswersAndLeaves) {
  Program program;
  const Outcome outcome = program.run(
      {"lsp"}, stream_of({initialize, opened("$scf\n  chrage\n$end\n"), shutdown, leave}));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  const std::vector<Json> messages = messages_of(outcome.out);
  ASSERT_GE(messages.size(), 2U);
  EXPECT_EQ(messages[0]["id"], 1);
  EXPECT_EQ(messages.back()["id"], 2);
}

#ifndef _WIN32  // for want of a shell

TEST(LanguageServer, TellsFindingsWhenNothingElseIsToDo) {
  Program program;
  program.write("first", stream_of({initialize, opened("$scf\n  chrage\n$end\n")}));
  program.write("last", stream_of({shutdown, leave}));
  const Outcome outcome =
      program.run_in_shell("{ cat first; sleep 1; cat last; } | \"$KELP_BDF\" lsp");
  EXPECT_EQ(outcome.status, 0);
  const std::vector<Json> messages = messages_of(outcome.out);
  ASSERT_EQ(messages.size(), 3U);
  EXPECT_EQ(messages[1]["method"], "textDocument/publishDiagnostics");
  EXPECT_EQ(messages[1]["params"]["diagnostics"][0]["code"], "bdf.unknown_entry");
}

TEST(LanguageServer, EndsWhenNobodyReadsItsAnswers) {
  Program program;
  program.write("first", stream_of({initialize}));
  const Outcome outcome = program.run_in_shell(
      "{ cat first; sleep 1; cat first; sleep 1; cat first; } | "
      "{ \"$KELP_BDF\" lsp; echo \"status $?\" >&2; } | head -c 1");
  EXPECT_EQ(outcome.err, "status 1\n");
}

#endif

TEST(LanguageServer, EndsWithAnErrorWhenTheClientIsGone) {
  Program program;
  EXPECT_EQ(program.run({"lsp"}, "").status, 1);
  EXPECT_EQ(program.run({"lsp"}, stream_of({initialize})).status, 1);
  EXPECT_EQ(program.run({"lsp"}, stream_of({initialize, leave})).status, 1);
  EXPECT_EQ(program.run({"lsp"}, stream_of({initialize}).substr(0, 30)).status, 1);
}

TEST(LanguageServer, AnswersWhatItCannotReadAndGoesOn) {
  Program program;
  const std::string stream = "Content-Length: x\r\n\r\n" + framed("{") + framed("[]") +
                             stream_of({initialize, shutdown, leave});
  const Outcome outcome = program.run({"lsp"}, stream);
  EXPECT_EQ(outcome.status, 0);
  const std::vector<Json> messages = messages_of(outcome.out);
  ASSERT_EQ(messages.size(), 5U);
  EXPECT_EQ(messages[0]["error"]["code"], -32700);
  EXPECT_TRUE(messages[0]["id"].is_null());
  EXPECT_EQ(messages[1]["error"]["code"], -32700);
  EXPECT_EQ(messages[2]["error"]["code"], -32600);
  EXPECT_EQ(messages[3]["id"], 1);
}

TEST(LanguageServer, WritesATraceOnRequestAndNothingElse) {
  Program program;
  const Outcome outcome =
      program.run({"lsp", "--trace", "t.log"}, stream_of({initialize, shutdown, leave}));
  EXPECT_EQ(outcome.status, 0);
  const std::string trace = program.read("t.log");
  EXPECT_THAT(trace, testing::HasSubstr("--> " + shutdown.dump() + "\n"));
  EXPECT_THAT(trace, testing::HasSubstr("<-- {\"id\":2,\"jsonrpc\":\"2.0\",\"result\":null}\n"));
  EXPECT_EQ(messages_of(outcome.out).size(), 2U);
  EXPECT_EQ(program.run({"lsp", "--trace", "no/such/t.log"}, "").status, 2);
}

TEST(LanguageServer, NeedsASchemaThatCanBeRead) {
  Program program;
  const Outcome outcome = program.run({"lsp", "--schema", "missing.yaml"}, stream_of({initialize}));
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_THAT(outcome.err, testing::HasSubstr("missing.yaml"));
}

TEST(LanguageServer, FramesEveryAnswerWhateverTheStreamHolds) {
  std::mt19937 random(3);
  Program program;
  for (int round = 0; round < 20; ++round) {
    std::string stream = stream_of({initialize, opened("$scf\n  chrage\n$end\n"), shutdown});
    for (int change = 0; change < 3; ++change) {
      stream[random() % stream.size()] = static_cast<char>(random() % 256);
    }
    const Outcome outcome = program.run({"lsp"}, stream + std::string(200, ' ') + framed("{}"));
    EXPECT_EQ(outcome.status, 1);
    messages_of(outcome.out);
  }
}

}  // namespace
}  // namespace kelp::test
