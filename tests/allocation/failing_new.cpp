// The allocation functions of the whole process, which can be made to fail. Blocks are counted, so
// that a test sees what a failure leaves behind.

#include "allocation/failing_new.hpp"

#include <atomic>
#include <cstdlib>
#include <new>

namespace kelp::test {
namespace {

constexpr long long never = -1;

std::atomic<long long> countdown{never};
std::atomic<bool> failed{false};
std::atomic<bool> lasting{false};
std::atomic<long long> blocks{0};

void* allocate(std::size_t size) {
  if (countdown.load() >= 0 && countdown.fetch_sub(1) == 0) {
    failed = true;
    countdown = lasting ? 0 : never;
    throw std::bad_alloc();
  }
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  ++blocks;
  return block;
}

void release(void* block) noexcept {
  if (block != nullptr) {
    --blocks;
    std::free(block);
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

}  // namespace kelp::test

void* operator new(std::size_t size) {
  return kelp::test::allocate(size);
}
void* operator new[](std::size_t size) {
  return kelp::test::allocate(size);
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
