#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kelp/input/bdf/calculation.hpp"
#include "kelp/input/bdf/source.hpp"

namespace kelp::app {

/// Members stay in the order in which they are written.
using Json = nlohmann::ordered_json;

/// Of every JSON document and every record of one. To be raised when a member changes its meaning
/// or goes; new members may come at any time.
inline constexpr int record_version = 1;

/// Returns a text, or null for an empty one.
Json text_or_null(const std::string& text);

/// Returns a range of a text: start and end, each with its line, its column in code points and its
/// byte.
Json range_json(const input::bdf::TextRange& range, const input::bdf::SourceText& source);

/// Returns what `to_json` makes of each record of a list.
template <typename Record, typename Maker>
Json list_of(const std::vector<Record>& records, const Maker& to_json) {
  Json list = Json::array();
  for (const Record& record : records) {
    list.push_back(to_json(record));
  }
  return list;
}

/// Returns what an input computes.
Json calculation_json(const input::bdf::Calculation& calculation);

/// Returns a value on one line, without a line end. Bytes that are no UTF-8 become replacement
/// characters.
std::string json_line(const Json& value);

/// Returns the same on several lines, as people like to read it.
std::string json_lines(const Json& value);

/// A document that is printed as it is made: its version, a list, and what is known at the end.
class JsonList {
 public:
  explicit JsonList(std::string name) : name_(std::move(name)) {}

  /// Begins the document.
  std::string begin() const;
  /// Adds an item, a JSON text on any number of lines.
  std::string add(std::string_view item);
  /// Ends the list and the document, with these members behind the list.
  std::string end(const Json& more = Json::object()) const;

 private:
  std::string name_;
  bool is_empty_ = true;
};

}  // namespace kelp::app
