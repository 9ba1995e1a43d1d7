#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelp::input::bdf {

/// Where a text stands in a pool.
struct TextSlice {
  std::size_t begin = 0;
  std::size_t length = 0;
};

/// All sentences of a schema, one behind the other: there are thousands, and nobody changes one.
class TextPool {
 public:
  /// Makes a pool of texts that stand elsewhere, for as long as the pool is used. It takes up no
  /// others.
  static TextPool over(std::string_view texts) {
    TextPool pool;
    pool.elsewhere_ = texts;
    return pool;
  }

  /// Tells how long all texts together are likely to be.
  void expect(std::size_t size) { expected_ = size; }

  /// Takes a text up, without the white space around it and on one line.
  TextSlice add(std::string_view text);
  /// Returns a text; the view lives until the next text is added.
  std::string_view view(TextSlice slice) const { return all().substr(slice.begin, slice.length); }
  /// Returns all texts, one behind the other.
  std::string_view all() const {
    return elsewhere_.empty() ? std::string_view(texts_) : elsewhere_;
  }

 private:
  std::size_t expected_ = 0;
  std::string texts_;
  std::string_view elsewhere_;
};

/// What is said about one name. Each text is there for every language, in the order of the
/// enumeration, and empty where it is missing.
struct Meaning {
  using Values = std::vector<std::pair<std::string, TextSlice>>;

  std::array<TextSlice, 2> summary;
  std::array<Values, 2> values;  ///< normalised values and their meanings, as they are written

  bool has_summary() const { return summary[0].length > 0 || summary[1].length > 0; }
};

/// A family of basis sets.
struct BasisFamilySpec {
  std::string name;
  Meaning meaning;
  std::vector<std::string> prefixes;  ///< lower case
};

}  // namespace kelp::input::bdf
