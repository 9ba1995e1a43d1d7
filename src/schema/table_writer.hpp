#pragma once

#include <map>

#include "schema/table.hpp"

namespace kelp::input::bdf {

/// Writes records for a `TableReader`.
class TableWriter {
 public:
  template <typename Record>
  using Ref = const Record&;

  /// Writes values, one after the other.
  template <typename... Values>
  void operator()(const Values&... values) {
    (write(values), ...);
  }

  const std::string& table() const { return table_; }

 private:
  void number(std::uint64_t value) {
    for (; value >= 0x80U; value >>= 7U) {
      table_ += static_cast<char>((value & 0x7fU) | 0x80U);
    }
    table_ += static_cast<char>(value);
  }

  void write(std::string_view text) {
    number(text.size());
    table_ += text;
  }

  void write(bool value) { number(value ? 1 : 0); }
  void write(double value) { number(std::bit_cast<std::uint64_t>(value)); }
  void write(const std::string& text) { write(std::string_view(text)); }
  void write(const TextPool& pool) { write(pool.all()); }

  template <typename Value>
  requires std::integral<Value> || std::is_enum_v<Value>
  void write(const Value& value) { number(static_cast<std::uint64_t>(value)); }

  template <typename Value>
  void write(const std::optional<Value>& value) {
    write(value.has_value());
    if (value) {
      write(*value);
    }
  }

  template <typename First, typename Second>
  void write(const std::pair<First, Second>& pair) {
    write(pair.first);
    write(pair.second);
  }

  template <typename Value, std::size_t N>
  void write(const std::array<Value, N>& values) {
    for (const Value& value : values) {
      write(value);
    }
  }

  template <typename Value>
  void write(const std::vector<Value>& values) {
    number(values.size());
    for (const Value& value : values) {
      write(value);
    }
  }

  template <typename Value>
  void write(const NameMap<Value>& map) {
    std::map<std::string_view, const Value*> in_order;
    for (const auto& [name, value] : map) {
      in_order.emplace(name, &value);
    }
    number(in_order.size());
    for (const auto& [name, value] : in_order) {
      write(name);
      write(*value);
    }
  }

  template <std::size_t N>
  void write(const std::bitset<N>& set) {
    constexpr std::uint64_t all_bits = 0xffffffffU;
    for (std::size_t begin = 0; begin < N; begin += 32) {
      number(((set >> begin) & std::bitset<N>(all_bits)).to_ullong());
    }
  }

  template <typename Record>
  void write(const std::shared_ptr<const Record>& pointer) {
    write(*pointer);
  }

  template <typename Record>
  void write(const Record& record) {
    transfer(*this, record);
  }

  std::string table_;
};

}  // namespace kelp::input::bdf
