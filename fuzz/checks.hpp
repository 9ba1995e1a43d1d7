#pragma once

// What the fuzz targets share: a reader of decisions, the schemas, and checks that stop the
// program.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kelp/input/bdf.hpp"

namespace kelp::fuzz {

/// Takes decisions off the front of the bytes; an empty rest gives zeros.
class Decisions {
 public:
  Decisions(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  bool left() const { return !rest_.empty(); }
  unsigned byte();
  bool flag() { return byte() % 2 != 0; }
  std::size_t below(std::size_t end) { return byte() % end; }
  /// Takes up to the next NUL byte.
  std::string text();
  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
};

/// A vocabulary with an entry of each kind and names that stand for one another, or the one that
/// comes with the library.
const input::bdf::InputSchema& schema(bool small);

input::bdf::ParseOptions parse_options(Decisions& decisions);

/// Stops the program with a message unless `complaints` is empty.
void expect_none(const std::vector<std::string>& complaints);
/// Stops the program unless modules and statements fit together.
void expect_sound(const input::bdf::BDFData& data);

}  // namespace kelp::fuzz
