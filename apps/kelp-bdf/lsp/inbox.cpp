#include "lsp/inbox.hpp"

#include <utility>

namespace kelp::app::lsp {

void Inbox::put(Message message) {
  const std::lock_guard lock(mutex_);
  if (message.kind == MessageKind::Notification && message.method == "$/cancelRequest") {
    const Json& id = find_member(message.params, {"id"});
    for (Arrival& arrival : waiting_) {
      const bool is_it = arrival.message.kind == MessageKind::Request && arrival.message.id == id;
      arrival.is_cancelled = arrival.is_cancelled || is_it;
    }
    return;
  }
  waiting_.push_back({std::move(message), false, false});
  arrived_.notify_one();
}

void Inbox::end() {
  const std::lock_guard lock(mutex_);
  waiting_.push_back({Message(), false, true});
  arrived_.notify_one();
}

std::optional<Arrival> Inbox::take(std::chrono::milliseconds patience) {
  std::unique_lock lock(mutex_);
  if (!arrived_.wait_for(lock, patience, [this] { return !waiting_.empty(); })) {
    return std::nullopt;
  }
  Arrival first = std::move(waiting_.front());
  waiting_.pop_front();
  return first;
}

}  // namespace kelp::app::lsp
