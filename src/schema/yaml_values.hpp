#pragma once

#include <yaml-cpp/yaml.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "schema/normalize_key.hpp"

namespace kelp::input::bdf {

/// Keeps YAML aliases from expanding without end. A document can name one node many times; read
/// naively, a few hundred bytes become more records than any memory holds. What a document spells
/// out is free, however large it is; what it has repeated is paid for, in bytes of memory.
class ExpansionBudget {
 public:
  /// Grants 64 MiB and 16 times the size of the document. Each node may be read as many times as
  /// `free_visits` says before it is paid for.
  explicit ExpansionBudget(std::size_t document_size, unsigned free_visits = 1);

  /// Pays for one node, and for the texts made of it.
  /// @throws std::runtime_error when the budget is used up.
  void pay_for(const YAML::Node& node);
  /// Pays for a key or item that names a record of its own, which is larger than its few bytes.
  void pay_for_record(const YAML::Node& name);
  /// Pays for one more copy of a text, however often its node was read.
  void pay_for_copy(const std::string& text) { pay(2 * text.size()); }

 private:
  void pay_again(const YAML::Node& node, std::size_t weight);
  bool is_free(const YAML::Node& node);
  void pay(std::size_t price);

  std::size_t left_;
  unsigned free_visits_;
  std::vector<std::uint8_t> visits_;  // by kind of node and where in the text it begins
};

// Each reader below gives its default for a node of the wrong type; a scalar that does not convert
// raises yaml-cpp's conversion error.

/// Returns a scalar's text, or an empty text.
std::string scalar_text(const YAML::Node& node);
/// Returns a scalar's text without a copy, or an empty text; the view lives as long as the
/// document.
std::string_view scalar_view(const YAML::Node& node);
/// Returns the text of a scalar, or those of a sequence's scalars.
std::vector<std::string> text_list(const YAML::Node& node, ExpansionBudget& budget);
/// Reads a boolean into `target` if the node is a scalar.
void read_bool(const YAML::Node& node, bool& target);
/// Reads a number if the node is a scalar.
void read_number(const YAML::Node& node, std::optional<double>& target);
/// Reads a count if the node is a scalar.
void read_count(const YAML::Node& node, std::optional<std::uint64_t>& target);
/// Returns one count, or those of a sequence.
std::vector<std::uint64_t> count_list(const YAML::Node& node, ExpansionBudget& budget);
/// Returns an integer.
/// @throws one of yaml-cpp's errors when the node is missing or no integer.
std::int32_t required_int(const YAML::Node& node);

/// Calls `use(name, value)` for each item of a map whose key is a scalar, with its normalised name.
template <typename Use>
void for_each_name(const YAML::Node& map, ExpansionBudget& budget, Use use) {
  if (!map.IsMap()) {
    return;
  }
  for (const auto& item : map) {
    budget.pay_for_record(item.first);
    budget.pay_for(item.second);
    if (item.first.IsScalar()) {
      use(normalize_key(item.first.Scalar()), item.second);
    }
  }
}

/// The values of a map under a fixed set of keys. yaml-cpp's own subscripts search the whole map
/// for every key; this walks it once. As there, the first of two equal keys counts.
template <std::size_t N>
class Fields {
 public:
  Fields(const YAML::Node& map, const std::array<std::string_view, N>& keys,
         ExpansionBudget& budget)
      : keys_(keys) {
    for (const auto& item : map) {
      budget.pay_for(item.second);
      if (item.first.IsScalar()) {
        store(item.first.Scalar(), item.second);
      }
    }
  }

  /// Returns the value under a key, a null node when there is none.
  const YAML::Node& operator[](std::string_view key) const { return values_[position(key)]; }

 private:
  std::size_t position(std::string_view key) const {
    std::size_t i = 0;
    while (i < N && keys_[i] != key) {
      ++i;
    }
    return i;
  }

  void store(std::string_view key, const YAML::Node& value) {
    const std::size_t i = position(key);
    if (i < N && !seen_[i]) {
      seen_[i] = true;
      values_[i].reset(value);
    }
  }

  const std::array<std::string_view, N>& keys_;
  std::array<YAML::Node, N + 1> values_;
  std::array<bool, N> seen_{};
};

}  // namespace kelp::input::bdf
