#pragma once

#include <functional>
#include <vector>

#include "kelp/input/bdf/diagnostics.hpp"

namespace kelp::input::bdf {

/// Hands findings over in the order of the text, those without a range first. An input can have
/// more of them than fit into memory: they are put in order by so many at a time.
class InOrder {
 public:
  static constexpr std::size_t at_a_time = 10000;

  explicit InOrder(const std::function<void(const Diagnostic&)>& use) : use_(use) {}

  void add(Diagnostic diagnostic);
  /// Hands over what is left.
  void finish();

 private:
  const std::function<void(const Diagnostic&)>& use_;
  std::vector<Diagnostic> waiting_;
};

}  // namespace kelp::input::bdf
