#pragma once

#include <cstddef>
#include <functional>

namespace kelp::test {

/// Lets one allocation of this process fail while it lives: the one with that number, counted from
/// 0. Only the first of them that is alive counts.
class FailingNew {
 public:
  explicit FailingNew(std::size_t number) noexcept;

  /// Lets all that follow fail, too.
  struct Lasting {};
  FailingNew(std::size_t number, Lasting lasting) noexcept;

  FailingNew(const FailingNew&) = delete;
  FailingNew& operator=(const FailingNew&) = delete;
  ~FailingNew();

  /// Tells whether it has failed yet.
  bool has_failed() const noexcept;
};

/// Returns how many blocks are allocated and not freed.
long long live_blocks() noexcept;

/// Returns how many bytes were allocated at once, at most, while a task ran.
long long peak_of(const std::function<void()>& task);

}  // namespace kelp::test
