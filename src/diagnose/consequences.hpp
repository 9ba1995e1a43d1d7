#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "diagnose/draft.hpp"

namespace kelp::input::bdf {

/// Tells findings from what follows of findings made before: one fault is told once. To be asked
/// about each fault in the order in which they are found.
class Consequences {
 public:
  explicit Consequences(DiagnoseContext& context) : context_(context) {}

  /// Tells whether a fault follows from one before it.
  bool cover(const Fault& fault);

 private:
  using Key = std::tuple<std::uint32_t, std::uint32_t, std::uint32_t>;

  bool is_value_of_unknown(const RecordId& record);
  bool is_told_conflict(const Fault& fault);
  bool is_misspelt_beside(const Fault& fault);

  DiagnoseContext& context_;
  RecordId last_;  ///< the last line of an unknown word and what may be its values
  /// The keyword that the unknown word may be, when its value may follow on the next line.
  std::optional<EntrySchemaInfo> meant_;
  /// Of the module or block asked about last, by the name of an entry: whether it is there,
  /// misspelt.
  RecordId owner_;
  std::map<std::string, bool, std::less<>> misspelt_;
  std::set<std::pair<Key, Key>> conflicts_;
};

}  // namespace kelp::input::bdf
