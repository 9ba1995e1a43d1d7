#pragma once

// The names of the modules, or of the entries of one module or block, in an order in which a word
// is found with a few comparisons: by first letter and length, then by the first eight letters,
// which are compared as one number. Most lines that a parser asks about are values; of those it is
// told at once that no name has their first letter and length. The index says nothing that the maps
// do not say: it stands for a look-up of the alias, one of the canonical name, and both once more
// for what the canonical name leads to.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/core/text.hpp"
#include "schema/name_map.hpp"
#include "schema/normalize_key.hpp"

namespace kelp::input::bdf {

/// What a name leads to.
template <typename Spec>
struct KnownName {
  const std::string* canonical = nullptr;  ///< null for a name that is not known
  const Spec* entry = nullptr;             ///< of the canonical name
  /// What the canonical name leads to when it is looked up itself: another entry where aliases
  /// chain, none where it begins with a dollar.
  const Spec* described = nullptr;
};

/// Looks into the maps that it was made of, which live in the same record: it stays right when that
/// is moved, and a copy is empty.
template <typename Spec>
class KeywordIndex {
 public:
  /// Names, and the entries that they lead to.
  using Blocks = std::vector<std::pair<std::string_view, const Spec*>>;

  KeywordIndex() = default;
  KeywordIndex(const KeywordIndex& /*other*/) noexcept {}
  KeywordIndex(KeywordIndex&& other) noexcept = default;
  KeywordIndex& operator=(const KeywordIndex& /*other*/) noexcept {
    *this = KeywordIndex();
    return *this;
  }
  KeywordIndex& operator=(KeywordIndex&& other) noexcept = default;
  ~KeywordIndex() = default;

  /// Makes the index. `look_up` tells the record of a canonical name, or null.
  template <typename LookUp>
  void build(const AliasMap& aliases, LookUp look_up);

  /// Tells whether there is an index, which there is not of no names either.
  bool is_built() const noexcept { return !names_.empty(); }
  /// Returns what a bare name in any case leads to; needs an index.
  KnownName<Spec> find(std::string_view bare) const noexcept;
  /// Returns all names that lead to an entry with a terminator, in the order of the map of aliases.
  const Blocks& blocks() const noexcept { return blocks_; }

 private:
  struct Name {
    std::string_view text;
    KnownName<Spec> target;
  };

  static constexpr std::size_t lengths = 16;
  static constexpr std::size_t letters = 32;

  // Names of one shelf have the same last five bits of the first letter, which are the same in
  // either case, and the same length up to a limit.
  static std::size_t shelf_of(std::string_view name) noexcept {
    if (name.empty()) {
      return 0;
    }
    const std::size_t length = std::min(name.size(), lengths - 1);
    return (static_cast<unsigned char>(name.front()) % letters) * lengths + length;
  }
  // Less than, equal to, or greater than 0 as the word, in any case, stands before, at or behind a
  // name that begins like it.
  static int order(std::string_view word, std::string_view name) noexcept {
    const std::size_t common = std::min(word.size(), name.size());
    for (std::size_t i = sizeof(std::uint64_t); i < common; ++i) {
      if (const char byte = core::text::to_lower(word[i]); byte != name[i]) {
        return byte < name[i] ? -1 : 1;
      }
    }
    return word.size() == name.size() ? 0 : word.size() < name.size() ? -1 : 1;
  }

  void note_block(std::string_view name, const Spec* spec) {
    if constexpr (requires { spec->terminator; }) {
      if (spec != nullptr && !spec->terminator.empty()) {
        blocks_.emplace_back(name, spec);
      }
    }
  }

  std::vector<Name> names_;
  std::vector<std::uint64_t> starts_;  ///< of the names, as `core::text::lower_start` has them
  std::vector<std::uint32_t> begins_;  ///< of each shelf, and the end of the last one
  Blocks blocks_;
};

template <typename Spec>
template <typename LookUp>
void KeywordIndex<Spec>::build(const AliasMap& aliases, LookUp look_up) {
  *this = KeywordIndex();
  // Most entries have no names within them.
  if (aliases.empty()) {
    return;
  }
  names_.resize(aliases.size());
  begins_.assign(letters * lengths + 1, 0);
  for (const auto& [name, canonical] : aliases) {
    ++begins_[shelf_of(name)];
  }
  std::partial_sum(begins_.begin(), begins_.end(), begins_.begin());
  // Each shelf is filled from its end, so that its end becomes its beginning.
  for (const auto& [name, canonical] : aliases) {
    KnownName<Spec> target = {&canonical, look_up(canonical), nullptr};
    const std::string* const again = find_in(aliases, bare_key(canonical));
    target.described = again == nullptr ? nullptr : look_up(*again);
    note_block(name, target.described);
    names_[--begins_[shelf_of(name)]] = {name, target};
  }
  for (std::size_t shelf = 0; shelf + 1 < begins_.size(); ++shelf) {
    std::sort(names_.begin() + begins_[shelf], names_.begin() + begins_[shelf + 1],
              [](const Name& one, const Name& other) {
                const std::uint64_t start = core::text::lower_start(one.text);
                const std::uint64_t other_start = core::text::lower_start(other.text);
                return start == other_start ? order(one.text, other.text) < 0 : start < other_start;
              });
  }
  starts_.reserve(names_.size());
  for (const Name& name : names_) {
    starts_.push_back(core::text::lower_start(name.text));
  }
}

template <typename Spec>
KnownName<Spec> KeywordIndex<Spec>::find(std::string_view bare) const noexcept {
  const std::uint32_t* const shelf = begins_.data() + shelf_of(bare);
  std::uint32_t begin = shelf[0];
  std::uint32_t end = shelf[1];
  const std::uint64_t start = begin == end ? 0 : core::text::lower_start(bare);
  while (begin < end) {
    const std::uint32_t middle = begin + (end - begin) / 2;
    const std::uint64_t other = starts_.data()[middle];
    const int ordered = start == other  ? order(bare, names_.data()[middle].text)
                        : start < other ? -1
                                        : 1;
    if (ordered == 0) {
      return names_.data()[middle].target;
    }
    (ordered < 0 ? end : begin) = ordered < 0 ? middle : middle + 1;
  }
  return {};
}

}  // namespace kelp::input::bdf
