#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>

#include "lsp/message.hpp"

namespace kelp::app::lsp {

/// A message that waits, or the end of the stream.
struct Arrival {
  Message message;
  bool is_cancelled = false;  ///< the client said so while it waited
  bool is_end = false;        ///< no message: none will come any more
};

/// Messages that arrived and were not handled yet. One thread puts them in as they come, so that a
/// request can be cancelled while another one is answered; another thread takes them out.
class Inbox {
 public:
  /// Puts a message in; `$/cancelRequest` marks the request that it is about and goes no further.
  void put(Message message);
  /// Tells that the stream has ended.
  void end();
  /// Waits for the next one, at most for that long.
  std::optional<Arrival> take(std::chrono::milliseconds patience);

 private:
  std::mutex mutex_;
  std::condition_variable arrived_;
  std::deque<Arrival> waiting_;
};

}  // namespace kelp::app::lsp
