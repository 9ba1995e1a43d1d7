#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf/sweep.hpp"

namespace kelp::input::bdf {

/// A pattern for names, `{functional}-{basis}.inp`, with the axis that each field stands for. The
/// axes must outlive it.
class NamePattern {
 public:
  NamePattern(std::string_view text, const std::vector<SweepAxis>& axes, std::size_t count);

  /// Returns why the pattern names nothing, in words; empty when it does.
  const std::string& error() const { return error_; }

  /// Returns the name of a variant, given its number from 0 and its values.
  std::string name_of(std::size_t number, const std::vector<std::size_t>& chosen) const;

 private:
  /// A text, or what stands in its place.
  struct Part {
    std::string text;
    std::size_t axis = no_axis;  // `number_axis` for the number of the variant
  };
  static constexpr std::size_t no_axis = static_cast<std::size_t>(-1);
  static constexpr std::size_t number_axis = no_axis - 1;

  std::string read(std::string_view text);
  std::string add_field(std::string_view field);

  const std::vector<SweepAxis>& axes_;
  std::size_t digits_;
  std::vector<Part> parts_;
  std::string error_;
};

/// Returns why a text is no name of a file below a folder, on every system, in words; empty when it
/// is one.
std::string fault_of_name(std::string_view name);

}  // namespace kelp::input::bdf
