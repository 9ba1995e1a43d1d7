#pragma once

/// @file
/// Numbers as text. The syntax is exactly that of C's `strtod` and `strtoll` in the "C" locale,
/// whatever locale the host has set; what is written can be read.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kelp::core::number {

/// Reads a whole text as a base-10 signed 64-bit integer. White space around it is passed over;
/// nothing else may stand beside the digits and one sign. Empty on failure or out of range.
std::optional<std::int64_t> parse_integer(std::string_view text);

/// Reads a whole text as a floating-point number; Fortran exponents (`1.0D-8`) are accepted, white
/// space around it is passed over. Empty on failure or when the value overflows or underflows.
std::optional<double> parse_float(std::string_view text);

/// Returns the shortest text that reads as the same number: "0.1", "5", "100000". From 1e16 on and
/// below 1e-4 it has an exponent.
std::string to_text(double value);

}  // namespace kelp::core::number
