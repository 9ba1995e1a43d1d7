#include "xyz_file.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <utility>

#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::app {
namespace {

using input::bdf::AtomRecord;

constexpr std::size_t first_row = 3;

bool is_letter(char byte) {
  const char lower = core::text::to_lower(byte);
  return lower >= 'a' && lower <= 'z';
}

// A symbol such as C, or a label such as C12 or H_a. What a BDF input reads as something else than
// an atom must not come in here.
bool is_symbol(std::string_view text) {
  return !text.empty() && is_letter(text.front()) &&
         std::all_of(text.begin(), text.end(), [](char byte) {
           return is_letter(byte) || (byte >= '0' && byte <= '9') || byte == '_' || byte == '-';
         });
}

class XyzReader {
 public:
  XyzReader(const std::string& name, std::string_view text) : name_(name) {
    while (!text.empty()) {
      lines_.push_back(core::text::take_line(text));
    }
  }

  std::vector<AtomRecord> run() {
    const std::size_t count = read_count();
    // Nobody's count is trusted with memory: rows are read one by one.
    std::vector<AtomRecord> atoms;
    for (std::size_t i = 0; i < count; ++i) {
      atoms.push_back(read_row(first_row + i, count));
    }
    for (std::size_t line = first_row + count; line <= lines_.size(); ++line) {
      if (!core::text::trim_view(line_at(line)).empty()) {
        fail(line, fmt::format("there are more rows than the {} that line 1 announces", count));
      }
    }
    return atoms;
  }

 private:
  [[noreturn]] void fail(std::size_t line, std::string_view reason) const {
    throw std::runtime_error(fmt::format("{}:{}: {}", name_, line, reason));
  }

  std::string_view line_at(std::size_t line) const {
    return line <= lines_.size() ? lines_[line - 1] : std::string_view();
  }

  std::size_t read_count() const {
    const std::string_view text = core::text::trim_view(line_at(1));
    const auto count = core::number::parse_integer(text);
    if (!count || *count < 1) {
      fail(1, fmt::format("'{}' is no number of atoms", text));
    }
    return static_cast<std::size_t>(*count);
  }

  AtomRecord read_row(std::size_t line, std::size_t count) const {
    std::string_view rest = line_at(line);
    const std::string_view symbol = core::text::take_word(rest);
    if (symbol.empty()) {
      fail(line,
           fmt::format("there are {} rows, but line 1 announces {}", line - first_row, count));
    }
    if (!is_symbol(symbol)) {
      fail(line, fmt::format("'{}' is no symbol of an element", symbol));
    }
    AtomRecord atom;
    atom.element = symbol;
    for (double* const coordinate : {&atom.x, &atom.y, &atom.z}) {
      *coordinate = read_coordinate(line, core::text::take_word(rest));
    }
    return atom;
  }

  double read_coordinate(std::size_t line, std::string_view word) const {
    if (word.empty()) {
      fail(line, "an atom needs three coordinates");
    }
    const auto value = core::number::parse_float(word);
    if (!value || !std::isfinite(*value)) {
      fail(line, fmt::format("'{}' is no coordinate", word));
    }
    return *value;
  }

  const std::string& name_;
  std::vector<std::string_view> lines_;
};

}  // namespace

std::vector<AtomRecord> read_xyz(const std::string& name, std::string_view text) {
  return XyzReader(name, text).run();
}

}  // namespace kelp::app
