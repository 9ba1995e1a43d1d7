#pragma once

// An editor without windows: it talks to a server in the same process, and keeps what it is told.

#include <string>
#include <string_view>
#include <vector>

#include "lsp/server.hpp"

namespace kelp::test {

using app::lsp::Json;

/// A server with the vocabulary that is shipped, and what it sent.
class Client {
 public:
  /// Makes the server, which is not yet initialized.
  Client();

  /// Initializes it with these capabilities and options.
  Json start(const Json& capabilities = Json::object(), const Json& options = nullptr);
  /// Sends a request, and returns the whole answer.
  Json ask(std::string_view method, Json params = Json::object());
  /// Sends a request, and returns its result; fails the test when the answer is an error.
  Json result(std::string_view method, Json params = Json::object());
  /// Sends a notification.
  void tell(std::string_view method, Json params = Json::object());
  /// Sends any message.
  void send(const Json& message);
  /// Answers a request of the server.
  void respond(const Json& request, Json result);

  /// Opens an input under `uri`, at version 1.
  void open(std::string_view text);
  /// Replaces a range of it, given by lines and characters from 0.
  void change(std::vector<std::size_t> range, std::string_view text);
  /// Returns parameters about the input as a whole.
  static Json about_input();
  /// Returns parameters about a position in it.
  static Json at(std::size_t line, std::size_t character);

  /// Lets the server tell the findings, and returns what it told last.
  Json findings();
  /// Returns the parameters of all messages of a method that were sent, and forgets them.
  std::vector<Json> told(std::string_view method);
  /// Returns the messages of a method.
  std::vector<Json> messages(std::string_view method);

  app::lsp::Server& server() { return server_; }

  static constexpr const char* uri = "file:///jobs/a.inp";

 private:
  std::vector<Json> sent_;
  app::lsp::Server server_;
  int last_id_ = 0;
  int version_ = 0;
};

/// Returns a range as the protocol has it.
Json range_json(std::size_t line, std::size_t character, std::size_t end_line,
                std::size_t end_character);

}  // namespace kelp::test
