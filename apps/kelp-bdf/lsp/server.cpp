// A server is new until it is initialized, and answers nothing after it was shut down. Whatever a
// message holds, it stays in a state in which it can take the next one.

#include "lsp/server.hpp"

#include <exception>
#include <utility>

#include "kelp/input/bdf/explain.hpp"
#include "lsp/capabilities.hpp"

namespace kelp::app::lsp {
namespace {

constexpr int shown_as_error = 1;
constexpr int shown_as_warning = 2;
constexpr int shown_as_information = 3;
constexpr const char* section = "kelp-bdf";

}  // namespace

Server::Server(ServerSetup setup, Send send)
    : setup_(std::move(setup)), send_(std::move(send)), schema_(setup_.load_schema({})) {
  settings_.language = setup_.language;
  first_settings_ = settings_;
}

void Server::handle(const Message& message, bool is_cancelled) {
  switch (message.kind) {
    case MessageKind::Request:
      answer(message, is_cancelled);
      break;
    case MessageKind::Notification:
      notice(message);
      break;
    case MessageKind::Response:
      take_response(message);
      break;
    case MessageKind::Malformed:
      send_(error_message(message.id, message.error, message.trouble));
      break;
  }
}

void Server::answer(const Message& request, bool is_cancelled) {
  const auto fail = [&](ErrorCode code, std::string_view text) {
    send_(error_message(request.id, code, text));
  };
  if (is_cancelled) {
    fail(ErrorCode::RequestCancelled, "the request was cancelled");
    return;
  }
  try {
    send_(result_message(request.id, result_of(request)));
  } catch (const RequestError& error) {
    fail(error.code(), error.what());
  } catch (const Json::exception& error) {
    fail(ErrorCode::InvalidParams, error.what());
  } catch (const std::exception& error) {
    fail(ErrorCode::InternalError, error.what());
  }
}

Json Server::result_of(const Message& request) {
  if (state_ == State::New && request.method != "initialize") {
    throw RequestError(ErrorCode::ServerNotInitialized, "the server was not initialized");
  }
  if (state_ == State::ShutDown || (state_ == State::Running && request.method == "initialize")) {
    throw RequestError(ErrorCode::InvalidRequest, "the request comes at the wrong time");
  }
  if (request.method == "initialize") {
    return initialize(request.params);
  }
  if (request.method == "shutdown") {
    state_ = State::ShutDown;
    return nullptr;
  }
  if (request.method == "workspace/executeCommand") {
    return execute(request.params);
  }
  if (request.method == "codeAction/resolve") {
    Document& document = document_called(text_member(member(request.params, "data"), "uri"));
    return resolved_action(view_of(document), request.params);
  }
  const auto found = answers().find(request.method);
  if (found == answers().end()) {
    throw RequestError(ErrorCode::MethodNotFound, "'" + request.method + "' is not known");
  }
  return found->second(view_of(document_of(request.params)), request.params);
}

const std::map<std::string_view, Server::Answer>& Server::answers() {
  static const std::map<std::string_view, Answer> all = {
      {"kelp-bdf/molecule", molecule},
      {"textDocument/codeAction", code_actions},
      {"textDocument/completion", completion},
      {"textDocument/definition", definition},
      {"textDocument/diagnostic", pulled_diagnostics},
      {"textDocument/documentHighlight", highlights},
      {"textDocument/documentSymbol", document_symbols},
      {"textDocument/foldingRange", folding_ranges},
      {"textDocument/formatting", formatting},
      {"textDocument/hover", hover},
      {"textDocument/inlayHint", inlay_hints},
      {"textDocument/rangeFormatting", range_formatting},
      {"textDocument/selectionRange", selection_ranges},
      {"textDocument/semanticTokens/full", semantic_tokens},
      {"textDocument/semanticTokens/range", semantic_tokens_range},
  };
  return all;
}

Json Server::initialize(const Json& params) {
  client_ = client_of(params);
  state_ = State::Running;
  if (const Json& locale = find_member(params, {"locale"});
      locale.is_string() && !setup_.language_is_chosen) {
    settings_.language = input::bdf::language_of_locale(locale.get<std::string>());
  }
  first_settings_ = settings_;
  take_settings(find_member(params, {"initializationOptions"}));
  return {{"capabilities", capabilities(client_)},
          {"serverInfo", {{"name", "kelp-bdf"}, {"version", setup_.version}}}};
}

// The text is shown, for clients that do nothing with it, and returned to those that do.
Json Server::execute(const Json& params) {
  const std::string command = text_member(params, "command");
  const Json& arguments = find_member(params, {"arguments"});
  if (command != explain_command || !arguments.is_array() || arguments.empty() ||
      !arguments.front().is_string()) {
    throw RequestError(ErrorCode::InvalidParams, "'" + command + "' is no command");
  }
  std::string text;
  for (const input::bdf::Explanation& about :
       explain(arguments.front().get<std::string>(), schema_, settings_.language)) {
    text += (text.empty() ? "" : "\n") + explanation_text(about);
  }
  show(shown_as_information, text);
  return text;
}

// There is nobody to tell of what is wrong with a notification but the log.
void Server::notice(const Message& notification) {
  const std::string& method = notification.method;
  if (method == "exit") {
    ended_well_ = state_ == State::ShutDown;
    state_ = State::Over;
  }
  if (state_ != State::Running) {
    return;
  }
  try {
    if (method == "initialized") {
      begin();
    } else if (method == "textDocument/didOpen") {
      open(notification.params);
    } else if (method == "textDocument/didChange") {
      change(notification.params);
    } else if (method == "textDocument/didClose") {
      close(notification.params);
    } else if (method == "workspace/didChangeConfiguration") {
      if (client_.asks_for_settings) {
        ask_for_settings();
      } else {
        take_settings(find_member(notification.params, {"settings", section}));
      }
    }
  } catch (const std::exception& error) {
    log(method + ": " + error.what());
  }
}

void Server::begin() {
  if (client_.registers_settings) {
    request("client/registerCapability", {{"registrations",
                                           {{{"id", "settings"},
                                             {"method", "workspace/didChangeConfiguration"},
                                             {"registerOptions", {{"section", section}}}}}}});
  }
  if (client_.asks_for_settings) {
    ask_for_settings();
  }
}

void Server::open(const Json& params) {
  const Json& item = member(params, "textDocument");
  std::string uri = text_member(item, "uri");
  const auto version = member(item, "version").get<std::int64_t>();
  Document document(uri, version, text_member(item, "text"));
  unpublished_.insert(uri);
  documents_.insert_or_assign(std::move(uri), std::move(document));
}

void Server::change(const Json& params) {
  Document& document = document_of(params);
  const auto version = member(member(params, "textDocument"), "version").get<std::int64_t>();
  unpublished_.insert(document.uri());
  document.change(version, member(params, "contentChanges"), client_.unit);
}

void Server::close(const Json& params) {
  const std::string uri = document_of(params).uri();
  documents_.erase(uri);
  unpublished_.erase(uri);
  if (!client_.pulls_diagnostics) {
    send_(notification_message("textDocument/publishDiagnostics",
                               {{"uri", uri}, {"diagnostics", Json::array()}}));
  }
}

bool Server::has_news() const {
  return state_ == State::Running && !client_.pulls_diagnostics && !unpublished_.empty();
}

void Server::publish_findings() {
  const auto begin = std::chrono::steady_clock::now();
  while (state_ == State::Running && !unpublished_.empty()) {
    const auto uri = unpublished_.extract(unpublished_.begin());
    const auto found = documents_.find(uri.value());
    if (found != documents_.end() && !client_.pulls_diagnostics) {
      publish(found->second);
    }
  }
  last_effort_ = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now() - begin);
}

void Server::publish(Document& document) {
  send_(notification_message("textDocument/publishDiagnostics",
                             {{"uri", document.uri()},
                              {"version", document.version()},
                              {"diagnostics", all_diagnostics(view_of(document))}}));
}

void Server::ask_for_settings() {
  request("workspace/configuration", {{"items", {{{"section", section}}}}});
  asked_for_settings_.insert(last_request_);
}

void Server::take_response(const Message& response) {
  if (!response.id.is_number_integer() || asked_for_settings_.erase(response.id.get<int>()) == 0) {
    return;
  }
  if (response.params.is_array() && !response.params.empty()) {
    take_settings(response.params.front());
  }
}

void Server::take_settings(const Json& json) {
  Settings wished = first_settings_;
  for (const std::string& wrong : change_settings(wished, json)) {
    show(shown_as_warning, "kelp-bdf settings: " + wrong);
  }
  settings_ = std::move(wished);
  if (settings_.schema_file != loaded_schema_ && !load_schema()) {
    settings_.schema_file = loaded_schema_;
  }
  look_again();
}

bool Server::load_schema() {
  try {
    schema_ = setup_.load_schema(settings_.schema_file);
    loaded_schema_ = settings_.schema_file;
    return true;
  } catch (const std::exception& error) {
    show(shown_as_error, error.what());
    return false;
  }
}

void Server::look_again() {
  for (auto& [uri, document] : documents_) {
    document.forget();
    unpublished_.insert(uri);
  }
  if (!documents_.empty() && client_.refreshes_diagnostics && client_.pulls_diagnostics) {
    request("workspace/diagnostic/refresh", nullptr);
  }
  if (!documents_.empty() && client_.refreshes_hints) {
    request("workspace/inlayHint/refresh", nullptr);
  }
}

void Server::request(std::string_view method, Json params) {
  send_(request_message(++last_request_, method, std::move(params)));
}

void Server::show(int kind, std::string_view text) {
  send_(notification_message("window/showMessage", {{"type", kind}, {"message", text}}));
}

void Server::log(std::string_view text) {
  send_(notification_message("window/logMessage", {{"type", shown_as_warning}, {"message", text}}));
}

Document& Server::document_of(const Json& params) {
  return document_called(text_member(member(params, "textDocument"), "uri"));
}

Document& Server::document_called(const std::string& uri) {
  const auto found = documents_.find(uri);
  if (found == documents_.end()) {
    throw RequestError(ErrorCode::InvalidParams, "'" + uri + "' is not open");
  }
  return found->second;
}

View Server::view_of(Document& document) {
  return {document, schema_, settings_, client_};
}

}  // namespace kelp::app::lsp
