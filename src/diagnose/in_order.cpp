#include "diagnose/in_order.hpp"

#include <algorithm>
#include <utility>

namespace kelp::input::bdf {

void InOrder::add(Diagnostic diagnostic) {
  waiting_.push_back(std::move(diagnostic));
  if (waiting_.size() == at_a_time) {
    finish();
  }
}

void InOrder::finish() {
  const auto begin_of = [](const Diagnostic& it) { return it.range ? it.range->begin + 1 : 0; };
  std::stable_sort(waiting_.begin(), waiting_.end(),
                   [&](const Diagnostic& one, const Diagnostic& other) {
                     return begin_of(one) < begin_of(other);
                   });
  for (const Diagnostic& diagnostic : waiting_) {
    use_(diagnostic);
  }
  waiting_.clear();
}

}  // namespace kelp::input::bdf
