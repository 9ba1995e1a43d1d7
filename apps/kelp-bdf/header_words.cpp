#include "header_words.hpp"

#include <algorithm>

#include "kelp/core/text.hpp"

namespace kelp::app {

LinePart find_header_word(const SourceText& source, std::size_t line, std::size_t from,
                          std::string_view word) {
  const std::string_view whole = source.line(line);
  LinePart part = source.trimmed({line, from, whole.size()});
  part.end = part.begin;
  for (std::size_t found = 0; found < word.size() && part.end < whole.size(); ++part.end) {
    found += core::text::is_space(whole[part.end]) ? 0 : 1;
  }
  return part;
}

bool knows_all_names(const input::bdf::InputSchema& schema, std::string_view word) {
  if (schema.easy_token_category(word) != "method_spec") {
    return schema.is_known_easy_token(word);
  }
  for (std::string_view rest = word; !rest.empty();) {
    const std::string_view name = rest.substr(0, rest.find('/'));
    if (!schema.is_known_method(name) && !schema.is_known_functional(name) &&
        !schema.is_known_basis(name) && core::text::to_lower(name) != name) {
      return false;
    }
    rest.remove_prefix(std::min(rest.size(), name.size() + 1));
  }
  return true;
}

}  // namespace kelp::app
