#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/schema.hpp"
#include "lsp/document.hpp"
#include "lsp/features.hpp"
#include "lsp/message.hpp"
#include "lsp/settings.hpp"

namespace kelp::app::lsp {

/// What a server is made of.
struct ServerSetup {
  std::string version;  ///< of the program
  /// Reads a schema file; an empty path means the one of the command line.
  /// @throws std::runtime_error when it cannot be read.
  std::function<input::bdf::InputSchema(const std::string& path)> load_schema;
  input::bdf::Language language = input::bdf::Language::English;
  bool language_is_chosen = false;  ///< on the command line, so that the client's does not count
};

/// The server: takes messages, and hands over the ones to send. Knows nothing of streams and of
/// threads.
class Server {
 public:
  using Send = std::function<void(const Json& message)>;

  /// Reads the schema.
  /// @throws std::runtime_error when it cannot be read.
  Server(ServerSetup setup, Send send);

  /// Does what a message asks for. `is_cancelled`: the client does not want the answer any more.
  void handle(const Message& message, bool is_cancelled = false);
  /// Tells the findings of inputs that changed; to be called when no message is waiting, so that
  /// who types fast is not held up by findings about what is not there any more.
  void publish_findings();
  /// Tells whether there is an input of which findings are to be told.
  bool has_news() const;
  /// Returns how long it took to find what was told last.
  std::chrono::milliseconds last_effort() const { return last_effort_; }

  /// Tells whether the client said good-bye.
  bool is_over() const { return state_ == State::Over; }
  /// Tells whether it did so in the right order.
  bool ended_well() const { return ended_well_; }
  /// Returns the number of the client's process; 0 when it is not known.
  std::int64_t client_process() const { return client_.process; }

 private:
  enum class State { New, Running, ShutDown, Over };
  using Answer = Json (*)(const View& view, const Json& params);

  void answer(const Message& request, bool is_cancelled);
  Json result_of(const Message& request);
  Json initialize(const Json& params);
  Json execute(const Json& params);
  void notice(const Message& notification);
  void take_response(const Message& response);

  void begin();
  void open(const Json& params);
  void change(const Json& params);
  void close(const Json& params);
  void ask_for_settings();
  void take_settings(const Json& json);
  bool load_schema();
  void look_again();

  void request(std::string_view method, Json params);
  void show(int kind, std::string_view text);
  void log(std::string_view text);
  Document& document_of(const Json& params);
  Document& document_called(const std::string& uri);
  View view_of(Document& document);
  void publish(Document& document);

  static const std::map<std::string_view, Answer>& answers();

  ServerSetup setup_;
  Send send_;
  State state_ = State::New;
  bool ended_well_ = false;
  input::bdf::InputSchema schema_;
  std::string loaded_schema_;  // its path in the settings
  Settings first_settings_;    // those without the client's wishes
  Settings settings_;
  Client client_;
  std::map<std::string, Document> documents_;
  std::set<std::string> unpublished_;
  std::chrono::milliseconds last_effort_{0};
  int last_request_ = 0;
  std::set<int> asked_for_settings_;  // requests without an answer yet
};

}  // namespace kelp::app::lsp
