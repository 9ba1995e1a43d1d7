// The allocation functions of the whole process, which can be made to fail. Blocks are counted, so
// that a test sees what a failure leaves behind.

#include "allocation/failing_new.hpp"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

namespace kelp::test {
namespace {

constexpr long long never = -1;

std::atomic<long long> countdown{never};
std::atomic<bool> failed{false};
std::atomic<bool> lasting{false};
std::atomic<long long> blocks{0};
std::atomic<long long> bytes{0};
std::atomic<long long> most_bytes{0};

// The size of a block stands before it, where the block stays aligned.
constexpr std::size_t head = alignof(std::max_align_t);

void count(long long size) {
  const long long now = bytes += size;
  long long most = most_bytes;
  while (now > most && !most_bytes.compare_exchange_weak(most, now)) {
  }
}

void* allocate(std::size_t size) {
  if (countdown.load() >= 0 && countdown.fetch_sub(1) == 0) {
    failed = true;
    countdown = lasting ? 0 : never;
    throw std::bad_alloc();
  }
  void* const block = size > SIZE_MAX - head ? nullptr : std::malloc(head + size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  ++blocks;
  count(static_cast<long long>(size));
  std::memcpy(block, &size, sizeof size);
  return static_cast<char*>(block) + head;
}

void release(void* block) noexcept {
  if (block != nullptr) {
    void* const whole = static_cast<char*>(block) - head;
    std::size_t size = 0;
    std::memcpy(&size, whole, sizeof size);
    --blocks;
    bytes -= static_cast<long long>(size);
    std::free(whole);
  }
}

}  // namespace

FailingNew::FailingNew(std::size_t number) noexcept {
  lasting = false;
  failed = false;
  countdown = static_cast<long long>(number);
}

FailingNew::FailingNew(std::size_t number, Lasting) noexcept : FailingNew(number) {
  lasting = true;
}

FailingNew::~FailingNew() {
  countdown = never;
}

bool FailingNew::has_failed() const noexcept {
  return failed;
}

long long live_blocks() noexcept {
  return blocks;
}

long long peak_of(const std::function<void()>& task) {
  const long long before = bytes;
  most_bytes = before;
  task();
  return most_bytes - before;
}

}  // namespace kelp::test

void* operator new(std::size_t size) {
  return kelp::test::allocate(size);
}
void* operator new[](std::size_t size) {
  return kelp::test::allocate(size);
}
// A sanitizer's own ones would not come by here, though what they return does.
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  try {
    return kelp::test::allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
  return operator new(size, tag);
}
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
  kelp::test::release(block);
}
void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
  kelp::test::release(block);
}
void operator delete(void* block) noexcept {
  kelp::test::release(block);
}
void operator delete[](void* block) noexcept {
  kelp::test::release(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
  kelp::test::release(block);
}
void operator delete[](void* block, std::size_t /*size*/) noexcept {
  kelp::test::release(block);
}
