#include "cli/size.hpp"

#include <fmt/format.h>

#include <cstdint>
#include <limits>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::app {
namespace {

constexpr std::string_view units = "kmgt";

}  // namespace

std::optional<std::size_t> parse_size(std::string_view text) {
  std::string number = core::text::to_lower(text);
  if (number.ends_with('b')) {
    number.pop_back();
  }
  double factor = 1;
  const std::size_t unit = number.empty() ? units.npos : units.find(number.back());
  if (unit != units.npos) {
    number.pop_back();
    for (std::size_t i = 0; i <= unit; ++i) {
      factor *= 1000;
    }
  }
  if (number.empty() || number.find_first_not_of("0123456789.") != std::string::npos) {
    return std::nullopt;
  }
  const std::optional<double> value = core::number::parse_float(number);
  if (!value || *value * factor >= static_cast<double>(std::numeric_limits<std::int64_t>::max())) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(*value * factor);
}

std::string size_text(std::size_t bytes) {
  constexpr std::size_t step = 1000;
  std::size_t unit = 0;
  std::size_t value = bytes;
  while (unit < units.size() && value > 0 && value % step == 0) {
    value /= step;
    ++unit;
  }
  constexpr std::string_view prefixes[] = {"", "k", "M", "G", "T"};
  return fmt::format("{} {}{}", value, prefixes[unit], unit == 0 ? "bytes" : "B");
}

}  // namespace kelp::app
