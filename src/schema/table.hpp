#pragma once

// Records as a row of bytes, which is read many times faster than the document they came from.
//
// Numbers are written in sevens of bits, the lowest first, with the eighth bit set on all bytes but
// the last; numbers with fractions as the bits of an IEEE double; sets of bits in numbers of 32;
// texts and lists as their length and what is in them; maps in the order of their keys. So the
// bytes are the same on every machine, and every machine reads them. Of a record, its fields follow
// each other: which ones, says a function `transfer` beside the record, for reading and for writing
// alike.

#include <array>
#include <bit>
#include <bitset>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "kelp/core/fs.hpp"
#include "schema/meaning_record.hpp"
#include "schema/name_map.hpp"

namespace kelp::input::bdf {

/// A document that the library was built with: its text, and the table that was made from it. Both
/// are empty when it was built without, and are there until the process ends.
struct BuiltInDocument {
  std::string_view text;
  std::string_view table;

  /// Tells whether the table says what a file says: that the file holds the text.
  bool stands_for(const std::string& path) const {
    return !table.empty() && core::fs::file_holds(path, text);
  }
};

/// Reads records. What it reads is a table that was written by the same version of the library; it
/// must outlive the records, whose sentences are views of it.
class TableReader {
 public:
  template <typename Record>
  using Ref = Record&;

  explicit TableReader(std::string_view table) : rest_(table) {}

  /// Reads values, one after the other.
  template <typename... Values>
  void operator()(Values&... values) {
    (read(values), ...);
  }

 private:
  std::uint64_t number() {
    std::uint64_t value = 0;
    for (int shift = 0;; shift += 7) {
      const auto byte = static_cast<unsigned char>(rest_.front());
      rest_.remove_prefix(1);
      value |= static_cast<std::uint64_t>(byte & 0x7fU) << shift;
      if (byte < 0x80U) {
        return value;
      }
    }
  }

  std::string_view text() {
    const auto length = static_cast<std::size_t>(number());
    const std::string_view text = rest_.substr(0, length);
    rest_.remove_prefix(length);
    return text;
  }

  void read(bool& value) { value = number() != 0; }
  void read(double& value) { value = std::bit_cast<double>(number()); }
  void read(std::string& value) { value = text(); }
  void read(TextPool& pool) { pool = TextPool::over(text()); }

  template <typename Value>
  requires std::integral<Value> || std::is_enum_v<Value>
  void read(Value& value) { value = static_cast<Value>(number()); }

  template <typename Value>
  void read(std::optional<Value>& value) {
    if (number() != 0) {
      read(value.emplace());
    }
  }

  template <typename First, typename Second>
  void read(std::pair<First, Second>& pair) {
    read(pair.first);
    read(pair.second);
  }

  template <typename Value, std::size_t N>
  void read(std::array<Value, N>& values) {
    for (Value& value : values) {
      read(value);
    }
  }

  template <typename Value>
  void read(std::vector<Value>& values) {
    values.resize(static_cast<std::size_t>(number()));
    for (Value& value : values) {
      read(value);
    }
  }

  template <typename Value>
  void read(NameMap<Value>& map) {
    const auto size = static_cast<std::size_t>(number());
    // Most maps are empty, and even to reserve nothing takes time.
    if (size == 0) {
      return;
    }
    map.reserve(size);
    for (std::size_t i = 0; i < size; ++i) {
      read(map[std::string(text())]);
    }
  }

  template <std::size_t N>
  void read(std::bitset<N>& set) {
    for (std::size_t begin = 0; begin < N; begin += 32) {
      set |= std::bitset<N>(number()) << begin;
    }
  }

  template <typename Record>
  void read(std::shared_ptr<const Record>& pointer) {
    auto record = std::make_shared<Record>();
    read(*record);
    pointer = std::move(record);
  }

  template <typename Record>
  void read(Record& record) {
    transfer(*this, record);
  }

  std::string_view rest_;
};

}  // namespace kelp::input::bdf
