// Works are handed out in their order, so that the first one that is not yet told of is always
// being done. What a work tells is gathered in batches; the caller's thread empties those of that
// first work while it goes on. All others have room for some batches, and then wait until they are
// the first; no work is begun that is too far ahead of it. So nothing waits for what waits itself,
// and the memory taken does not depend on how many works there are or how much they tell.

#include "cli/in_order.hpp"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace kelp::app {
namespace {

using Piece = std::function<void()>;

constexpr std::size_t batch = 64;          // pieces that a work gathers before it hands them over
constexpr std::size_t most_waiting = 256;  // pieces of a work that wait for its turn
constexpr std::size_t ahead = 64;          // works for each thread that may be begun or done early
constexpr auto patience = std::chrono::milliseconds(100);

/// Ends a work whose words nobody will hear.
struct Stopped {};

/// Does at once what is told.
class DirectTeller : public Teller {
 public:
  void tell(Piece what) override { what(); }
  void wait_for_turn() override {}
};

/// What the threads share.
class Queue {
 public:
  Queue(std::size_t count, std::size_t threads) : count_(count), window_(ahead * threads) {}

  /// Returns the next work to do; nothing when there is none, or none is wanted.
  std::optional<std::size_t> take() {
    std::unique_lock lock(mutex_);
    room_.wait(lock, [this] { return stopped_ || next_ == count_ || next_ - first_ < window_; });
    if (stopped_ || next_ == count_) {
      return std::nullopt;
    }
    begun_.emplace_back();
    return next_++;
  }

  /// Hands over what a work tells; all of it when it is done.
  void hand_over(std::size_t index, std::vector<Piece>& pieces, bool is_done) {
    std::unique_lock lock(mutex_);
    room_.wait(lock, [&] {
      return stopped_ || is_done || index == first_ || waiting(index).size() < most_waiting;
    });
    if (stopped_) {
      throw Stopped();
    }
    std::vector<Piece>& list = waiting(index);
    list.insert(list.end(), std::make_move_iterator(pieces.begin()),
                std::make_move_iterator(pieces.end()));
    pieces.clear();
    begun_[index - first_].is_done = is_done;
    if (index == first_) {
      news_.notify_one();
    }
  }

  void wait_for_turn(std::size_t index) {
    std::unique_lock lock(mutex_);
    room_.wait(lock, [&] { return stopped_ || index == first_; });
    if (stopped_) {
      throw Stopped();
    }
  }

  /// Tells of all works, as they come.
  void tell_all(const OrderedWork& works) {
    while (first_ < count_) {
      const auto [pieces, is_done] = next_pieces(works.while_waiting);
      std::for_each(pieces.begin(), pieces.end(), [](const Piece& piece) { piece(); });
      if (is_done) {
        works.while_waiting();
        next_turn();
        if (works.has_ended()) {
          return;
        }
      }
    }
  }

  void stop() {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
    room_.notify_all();
  }

 private:
  struct Begun {
    std::vector<Piece> pieces;
    bool is_done = false;
  };

  std::vector<Piece>& waiting(std::size_t index) { return begun_[index - first_].pieces; }

  std::pair<std::vector<Piece>, bool> next_pieces(const std::function<void()>& while_waiting) {
    std::unique_lock lock(mutex_);
    const auto has_news = [this] {
      return !begun_.empty() && (begun_.front().is_done || !begun_.front().pieces.empty());
    };
    while (!news_.wait_for(lock, patience, has_news)) {
      lock.unlock();
      while_waiting();
      lock.lock();
    }
    std::pair<std::vector<Piece>, bool> next(std::move(begun_.front().pieces),
                                             begun_.front().is_done);
    begun_.front().pieces.clear();
    return next;
  }

  void next_turn() {
    const std::lock_guard lock(mutex_);
    begun_.pop_front();
    ++first_;
    room_.notify_all();
  }

  const std::size_t count_;
  const std::size_t window_;
  std::mutex mutex_;
  std::condition_variable news_;  // the first work has told something
  std::condition_variable room_;  // there is another first work
  std::deque<Begun> begun_;       // from the first one on
  std::size_t next_ = 0;          // to be handed out
  std::size_t first_ = 0;         // not yet told of; changed by the thread that tells alone
  bool stopped_ = false;
};

/// Gathers what a work tells.
class QueueTeller : public Teller {
 public:
  QueueTeller(Queue& queue, std::size_t index) : queue_(queue), index_(index) {}

  void tell(Piece what) override {
    pieces_.push_back(std::move(what));
    if (pieces_.size() == batch) {
      queue_.hand_over(index_, pieces_, false);
    }
  }
  void wait_for_turn() override { queue_.wait_for_turn(index_); }
  void end() { queue_.hand_over(index_, pieces_, true); }

 private:
  Queue& queue_;
  std::size_t index_;
  std::vector<Piece> pieces_;
};

void do_one(const OrderedWork& works, std::size_t index, Queue& queue) {
  QueueTeller teller(queue, index);
  try {
    works.work(index, teller);
  } catch (const Stopped&) {
    throw;
  } catch (...) {
    teller.tell([error = std::current_exception()] { std::rethrow_exception(error); });
  }
  teller.end();
}

void work_on(const OrderedWork& works, Queue& queue) {
  try {
    while (const std::optional<std::size_t> index = queue.take()) {
      do_one(works, *index, queue);
    }
  } catch (const Stopped&) {
    // Nobody waits for it.
  }
}

/// Threads that have ended when it has.
class Threads {
 public:
  Threads(const OrderedWork& works, unsigned jobs, Queue& queue) : queue_(queue) {
    threads_.reserve(jobs);
    // A system that has no room for another thread has room for fewer.
    try {
      while (threads_.size() < jobs) {
        threads_.emplace_back([&works, &queue] { work_on(works, queue); });
      }
    } catch (const std::exception&) {
    }
  }
  Threads(const Threads&) = delete;
  Threads(Threads&&) = delete;
  Threads& operator=(const Threads&) = delete;
  Threads& operator=(Threads&&) = delete;
  ~Threads() {
    queue_.stop();
    std::for_each(threads_.begin(), threads_.end(), [](std::thread& thread) { thread.join(); });
  }

  bool is_empty() const { return threads_.empty(); }

 private:
  Queue& queue_;
  std::vector<std::thread> threads_;
};

void do_one_by_one(const OrderedWork& works) {
  DirectTeller teller;
  for (std::size_t index = 0; index < works.count && !works.has_ended(); ++index) {
    works.work(index, teller);
    works.while_waiting();
  }
}

}  // namespace

void do_in_order(const OrderedWork& works) {
  const auto jobs = static_cast<unsigned>(std::min<std::size_t>(works.jobs, works.count));
  if (jobs > 1) {
    Queue queue(works.count, jobs);
    const Threads threads(works, jobs, queue);
    if (!threads.is_empty()) {
      queue.tell_all(works);
      return;
    }
  }
  do_one_by_one(works);
}

unsigned cores() {
  return std::max(1U, std::thread::hardware_concurrency());
}

}  // namespace kelp::app
