#pragma once

/// @file
/// JSON-RPC: what messages are, and the errors that answers tell.

#include <nlohmann/json.hpp>

#include <cstddef>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kelp::app::lsp {

using Json = nlohmann::json;

/// The codes of errors that the protocol has.
enum class ErrorCode : int {
  ParseError = -32700,
  InvalidRequest = -32600,
  MethodNotFound = -32601,
  InvalidParams = -32602,
  InternalError = -32603,
  ServerNotInitialized = -32002,
  RequestCancelled = -32800,
  RequestFailed = -32803,
};

/// A request that has an error for its answer.
class RequestError : public std::runtime_error {
 public:
  RequestError(ErrorCode code, const std::string& text) : std::runtime_error(text), code_(code) {}

  ErrorCode code() const noexcept { return code_; }

 private:
  ErrorCode code_;
};

enum class MessageKind {
  Request,       ///< has an answer
  Notification,  ///< has none
  Response,      ///< is an answer to a request of ours
  Malformed,     ///< is none of these
};

/// A message of the client.
struct Message {
  MessageKind kind = MessageKind::Malformed;
  Json id;             ///< of a request or a response; null for any other, and if it is unusable
  std::string method;  ///< of a request or a notification
  Json params;         ///< null when there are none; of a response its result
  ErrorCode error = ErrorCode::InvalidRequest;  ///< of a malformed one
  std::string trouble;                          ///< what is wrong with a malformed one
  std::string content;                          ///< as it came; for a trace
};

/// Reads the content of a message. Never throws for what it holds.
Message read_message(std::string_view content);

/// Returns a message that stands for bytes from which none could be read.
Message malformed_message(ErrorCode error, std::string trouble);

/// Returns a message as text; bytes that are no UTF-8 become replacement characters.
std::string text_of(const Json& message);

Json result_message(const Json& id, Json result);
Json error_message(const Json& id, ErrorCode code, std::string_view text);
Json notification_message(std::string_view method, Json params);
Json request_message(int id, std::string_view method, Json params);

// What parameters hold. All throw RequestError when it is not there or of another type.

const Json& member(const Json& object, const char* name);
std::string text_member(const Json& object, const char* name);
std::size_t number_member(const Json& object, const char* name);

/// Returns a member of an object's member and so on; null when there is none.
const Json& find_member(const Json& object, std::initializer_list<const char*> names);
/// Tells whether that member is true.
bool is_true(const Json& object, std::initializer_list<const char*> names);

}  // namespace kelp::app::lsp
