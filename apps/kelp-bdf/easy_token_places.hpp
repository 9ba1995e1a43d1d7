#pragma once

#include <cstddef>
#include <optional>

#include "checked_input.hpp"
#include "source_text.hpp"

namespace kelp::app {

/// A header token and where its value stands.
struct EasyTokenPlace {
  const input::bdf::EasyToken* token = nullptr;
  LinePart value;
};

/// Finds the header tokens that findings are about. The library knows a token's line; the place on
/// it is found by walking along the line's words. The input must outlive it.
class EasyTokenPlaces {
 public:
  explicit EasyTokenPlaces(const CheckedInput& input) : input_(input) {}

  /// Returns the token that a finding about an easy keyword's value means, looking on from the one
  /// returned before.
  std::optional<EasyTokenPlace> next(const input::bdf::ValidationIssue& issue);

 private:
  std::optional<LinePart> take_value(const input::bdf::EasyToken& token);

  const CheckedInput& input_;
  std::size_t token_ = 0;  ///< the first not looked at
  std::size_t line_ = 0;   ///< the line of the one before it
  std::size_t at_ = 0;     ///< where on that line it ended
};

}  // namespace kelp::app
