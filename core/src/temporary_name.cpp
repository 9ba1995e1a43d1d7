#include "temporary_name.hpp"

#include <random>
#include <string_view>

namespace kelp::core::fs {

std::string temporary_name() {
  constexpr std::string_view digits = "0123456789abcdef";
  constexpr int words = 4;
  constexpr int digits_of_a_word = 8;
  std::random_device random;
  std::string name = ".kelp-";
  for (int word = 0; word < words; ++word) {
    unsigned int bits = random();
    for (int digit = 0; digit < digits_of_a_word; ++digit, bits >>= 4U) {
      name += digits[bits & 0xFU];
    }
  }
  return name + ".tmp";
}

}  // namespace kelp::core::fs
