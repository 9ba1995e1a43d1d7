#include "lsp/message.hpp"

#include <cstdint>
#include <string_view>
#include <utility>

#include "kelp/core/unicode.hpp"

namespace kelp::app::lsp {
namespace {

// Anything else, an object as deep as the stack for example, is not sent back.
bool is_usable_id(const Json& id) {
  return id.is_string() || id.is_number_integer();
}

Message of_object(Json object) {
  Message message;
  const auto id = object.find("id");
  const bool has_id = id != object.end();
  if (has_id && is_usable_id(*id)) {
    message.id = *id;
  }
  const auto method = object.find("method");
  if (method == object.end()) {
    const bool is_response = has_id && (object.contains("result") || object.contains("error"));
    message.kind = is_response ? MessageKind::Response : MessageKind::Malformed;
    message.trouble = "the message has no method";
    message.params = object.value("result", Json());
    return message;
  }
  if (!method->is_string() || (has_id && message.id.is_null())) {
    message.trouble = "the method or the id of the message is of the wrong type";
    return message;
  }
  message.kind = has_id ? MessageKind::Request : MessageKind::Notification;
  message.method = method->get<std::string>();
  if (const auto params = object.find("params"); params != object.end()) {
    message.params = std::move(*params);
  }
  return message;
}

// Some editors send a file of another encoding byte for byte. For each byte that is no UTF-8 they
// count one unit, as for the replacement character.
std::string with_replacements(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const std::size_t length = core::unicode::character_length(text);
    const bool is_stray = length == 1 && static_cast<unsigned char>(text.front()) >= 0x80U;
    plain += is_stray ? "\xEF\xBF\xBD" : text.substr(0, length);
    text.remove_prefix(length);
  }
  return plain;
}

}  // namespace

Message malformed_message(ErrorCode error, std::string trouble) {
  Message message;
  message.error = error;
  message.trouble = std::move(trouble);
  return message;
}

Message read_message(std::string_view content) {
  Json json = Json::parse(content, nullptr, false);
  if (json.is_discarded()) {
    json = Json::parse(with_replacements(content), nullptr, false);
  }
  if (json.is_discarded()) {
    return malformed_message(ErrorCode::ParseError, "the message is no JSON");
  }
  if (!json.is_object()) {
    return malformed_message(ErrorCode::InvalidRequest, "the message is no JSON object");
  }
  return of_object(std::move(json));
}

std::string text_of(const Json& message) {
  return message.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json result_message(const Json& id, Json result) {
  return {{"jsonrpc", "2.0"}, {"id", id}, {"result", std::move(result)}};
}

Json error_message(const Json& id, ErrorCode code, std::string_view text) {
  return {{"jsonrpc", "2.0"},
          {"id", id},
          {"error", {{"code", static_cast<int>(code)}, {"message", text}}}};
}

Json notification_message(std::string_view method, Json params) {
  return {{"jsonrpc", "2.0"}, {"method", method}, {"params", std::move(params)}};
}

Json request_message(int id, std::string_view method, Json params) {
  return {{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", std::move(params)}};
}

const Json& member(const Json& object, const char* name) {
  if (const auto found = object.is_object() ? object.find(name) : object.end();
      found != object.end()) {
    return *found;
  }
  throw RequestError(ErrorCode::InvalidParams, "'" + std::string(name) + "' is missing");
}

std::string text_member(const Json& object, const char* name) {
  const Json& found = member(object, name);
  if (!found.is_string()) {
    throw RequestError(ErrorCode::InvalidParams, "'" + std::string(name) + "' is no text");
  }
  return found.get<std::string>();
}

std::size_t number_member(const Json& object, const char* name) {
  const Json& found = member(object, name);
  if (!found.is_number_integer() || found.get<std::int64_t>() < 0) {
    throw RequestError(ErrorCode::InvalidParams, "'" + std::string(name) + "' is no number");
  }
  return found.get<std::size_t>();
}

const Json& find_member(const Json& object, std::initializer_list<const char*> names) {
  static const Json none;
  const Json* at = &object;
  for (const char* const name : names) {
    if (!at->is_object()) {
      return none;
    }
    const auto found = at->find(name);
    if (found == at->end()) {
      return none;
    }
    at = &*found;
  }
  return *at;
}

bool is_true(const Json& object, std::initializer_list<const char*> names) {
  const Json& found = find_member(object, names);
  return found.is_boolean() && found.get<bool>();
}

}  // namespace kelp::app::lsp
