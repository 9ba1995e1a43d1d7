#pragma once

/// @file
/// The base protocol: messages, each behind a header that says how long it is.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kelp::app::lsp {

/// What stands next in a stream: a message, or what is wrong with it.
struct StreamItem {
  bool is_message = false;
  std::string text;  ///< the content of the message, or what is wrong, in words
};

/// Cuts a stream of bytes into messages, whatever pieces it arrives in. After a header that cannot
/// be read, what follows is passed over up to the next one that can.
class MessageReader {
 public:
  /// Takes bytes that arrived.
  void feed(std::string_view bytes);
  /// Returns what comes next; unset when more bytes are needed for that.
  std::optional<StreamItem> next();

 private:
  std::optional<StreamItem> lose_track(std::string reason);
  bool find_header();
  void drop(std::size_t count);

  std::string bytes_;
  std::size_t begin_ = 0;  // of what was not yet returned
  bool is_lost_ = false;   // looking for a header
};

/// Returns a message with its header.
std::string framed(std::string_view content);

}  // namespace kelp::app::lsp
