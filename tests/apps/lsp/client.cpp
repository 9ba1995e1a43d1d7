#include "lsp/client.hpp"

#include <gtest/gtest.h>

#include <utility>

#include "support/schema.hpp"

namespace kelp::test {
namespace {

app::lsp::ServerSetup setup() {
  app::lsp::ServerSetup made;
  made.version = "1";
  made.load_schema = [](const std::string& path) {
    return path.empty() ? input::bdf::shipped_schema() : input::bdf::InputSchema::from_file(path);
  };
  return made;
}

}  // namespace

Client::Client() : server_(setup(), [this](const Json& message) { sent_.push_back(message); }) {}

Json Client::start(const Json& capabilities, const Json& options) {
  const Json answer = result("initialize", {{"processId", nullptr},
                                            {"rootUri", nullptr},
                                            {"capabilities", capabilities},
                                            {"initializationOptions", options}});
  tell("initialized");
  return answer;
}

void Client::send(const Json& message) {
  server_.handle(app::lsp::read_message(message.dump()));
}

Json Client::ask(std::string_view method, Json params) {
  const int id = ++last_id_;
  send({{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", std::move(params)}});
  Json answer;
  for (auto at = sent_.begin(); at != sent_.end(); ++at) {
    if (at->value("id", Json()) == id && !at->contains("method")) {
      answer = *at;
      sent_.erase(at);
      break;
    }
  }
  EXPECT_FALSE(answer.is_null()) << method << " was not answered";
  return answer;
}

Json Client::result(std::string_view method, Json params) {
  const Json answer = ask(method, std::move(params));
  EXPECT_TRUE(answer.contains("result")) << method << ": " << answer;
  return answer.value("result", Json());
}

void Client::tell(std::string_view method, Json params) {
  send({{"jsonrpc", "2.0"}, {"method", method}, {"params", std::move(params)}});
}

void Client::respond(const Json& request, Json result) {
  send({{"jsonrpc", "2.0"}, {"id", request["id"]}, {"result", std::move(result)}});
}

void Client::open(std::string_view text) {
  version_ = 1;
  tell("textDocument/didOpen",
       {{"textDocument",
         {{"uri", uri}, {"languageId", "bdf"}, {"version", version_}, {"text", text}}}});
}

void Client::change(std::vector<std::size_t> range, std::string_view text) {
  ++version_;
  tell("textDocument/didChange",
       {{"textDocument", {{"uri", uri}, {"version", version_}}},
        {"contentChanges",
         {{{"range", range_json(range[0], range[1], range[2], range[3])}, {"text", text}}}}});
}

Json Client::about_input() {
  return {{"textDocument", {{"uri", uri}}}};
}

Json Client::at(std::size_t line, std::size_t character) {
  return {{"textDocument", {{"uri", uri}}},
          {"position", {{"line", line}, {"character", character}}}};
}

Json Client::findings() {
  server_.publish_findings();
  const std::vector<Json> all = told("textDocument/publishDiagnostics");
  return all.empty() ? Json() : all.back();
}

std::vector<Json> Client::messages(std::string_view method) {
  std::vector<Json> found;
  std::vector<Json> others;
  for (Json& message : sent_) {
    const bool is_one = message.value("method", "") == method;
    (is_one ? found : others).push_back(std::move(message));
  }
  sent_ = std::move(others);
  return found;
}

std::vector<Json> Client::told(std::string_view method) {
  std::vector<Json> params;
  for (Json& message : messages(method)) {
    params.push_back(std::move(message["params"]));
  }
  return params;
}

Json range_json(std::size_t line, std::size_t character, std::size_t end_line,
                std::size_t end_character) {
  return {{"start", {{"line", line}, {"character", character}}},
          {"end", {{"line", end_line}, {"character", end_character}}}};
}

}  // namespace kelp::test
