#pragma once

#include <cstddef>
#include <functional>

namespace kelp::app {

/// Takes what one of many works has to tell.
class Teller {
 public:
  virtual ~Teller() = default;

  /// Has something done in the thread that waits for all the works, after all that the works before
  /// have told.
  virtual void tell(std::function<void()> what) = 0;

  /// Waits until all works before are done and have been told of.
  virtual void wait_for_turn() = 0;
};

/// Many works, done several at a time and told of in their order.
struct OrderedWork {
  std::size_t count = 0;
  unsigned jobs = 1;  ///< the most threads; with one, all is done in the caller's
  std::function<void(std::size_t index, Teller& teller)> work;
  std::function<bool()> has_ended = [] {
    return false;
  };                                            ///< asked after each: is the rest in vain
  std::function<void()> while_waiting = [] {};  ///< called now and then, and after each
};

/// Does the works. Takes the same memory for any number of them: what is done early waits until the
/// others are told of. What is told happens in the caller's thread alone, and is the same for any
/// number of jobs. What a work or something that it tells throws is passed on, in its turn.
void do_in_order(const OrderedWork& works);

/// Returns the number of works that the machine does at once.
unsigned cores();

}  // namespace kelp::app
