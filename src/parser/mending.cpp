// Borders outside modules: the line that opens a module or a geometry, and the end of a geometry.
// What stands in a module is looked over in `module_mending.cpp`.

#include "parser/mending.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "kelp/core/text.hpp"
#include "parser/border_words.hpp"
#include "parser/keywords.hpp"
#include "schema/lookup.hpp"
#include "source/atom_line.hpp"
#include "source/lines.hpp"

namespace kelp::input::bdf {
namespace {

// Whoever is asked of many lines in a row looks no further than this, or it would take the square
// of their number.
constexpr std::size_t farthest = 256;

template <typename Is>
std::size_t find_ahead(const LineReader& reader, Is is) {
  const std::size_t last = std::min(reader.lines_left(), farthest);
  std::size_t at = 1;
  while (at < last && !is(reader.line_ahead(at))) {
    ++at;
  }
  return at;
}

bool ends_module(std::string_view line) {
  return is_module_end(line) || is_near_module_end(line);
}

// A module's name without what is written for its dollar: `[COMPASS]`, `> $compass`, another sign
// of money, a no-break space. A name that nothing is beside stays as it is.
std::string_view without_signs(std::string_view line) {
  const auto is_of_name = [](char byte) {
    const char lower = core::text::to_lower(byte);
    return (lower >= 'a' && lower <= 'z') || (byte >= '0' && byte <= '9');
  };
  std::string_view name = core::text::trim_view(line);
  // Comments, commands and databases are what they are.
  if (name.front() == '$' || name.front() == '#' || name.front() == '*' || name.front() == '%' ||
      name.front() == '&' || name.front() == '!') {
    return {};
  }
  while (!name.empty() && !is_of_name(name.front())) {
    name.remove_prefix(1);
  }
  while (!name.empty() && !is_of_name(name.back())) {
    name.remove_suffix(1);
  }
  return name;
}

// Returns how far ahead the end of a geometry is, or the header of a module that comes before it.
std::size_t distance_to_header(const LineReader& reader) {
  std::size_t at = 0;
  for (; at < reader.lines_left(); ++at) {
    const std::string_view line = reader.line_ahead(at);
    const bool is_header =
        is_module_header(line) && !is_terminator_behind_dollar(line, "End Geometry");
    if (is_geometry_end(line) || is_header) {
      break;
    }
  }
  return at;
}

// A module's name alone on its line, and its end or one of its keywords on the next. A name that is
// a word of the header, too, stands for the module when an end follows.
bool lacks_dollar(const LineReader& reader, const InputSchema& schema, Outside where) {
  const std::string_view name = without_signs(reader.line());
  if (name.empty() || !is_one_word(name) || !schema.is_known_module(name)) {
    return false;
  }
  const std::string_view next = reader.line_ahead(reader.next_telling(1));
  if (is_module_end(next)) {
    return true;
  }
  const ModuleSpec* const module = find_module_spec(SchemaAccess::impl(schema), name);
  if (find_entry_spec(module, first_word(next)) == nullptr) {
    return false;
  }
  return where == Outside::Body || (is_one_word(next) && !schema.is_known_easy_token(name)) ||
         ends_module(reader.line_ahead(find_ahead(reader, is_module_border)));
}

// Atoms or, of internal coordinates, the end of the geometry follow.
bool is_misspelt_geometry(const LineReader& reader, const InputSchema& schema) {
  const std::string_view line = reader.line();
  if (is_geometry_start(line) || !is_near_geometry_start(line) ||
      schema.is_known_easy_token(core::text::trim_view(line))) {
    return false;
  }
  return read_atom_line(reader.line_ahead(reader.next_telling(1))).is_atom() ||
         is_geometry_end(reader.line_ahead(find_ahead(reader, [](std::string_view other) {
           return is_module_border(other) || is_geometry_start(other) || is_geometry_end(other);
         })));
}

}  // namespace

// The end of nearly every geometry is there, so that is what is looked for first.
void mend_geometry(LineReader& reader) {
  if (!reader.reads_as_program()) {
    return;
  }
  const std::size_t border = distance_to_header(reader);
  if (border < reader.lines_left() && is_geometry_end(reader.line_ahead(border))) {
    return;
  }
  for (std::size_t at = 0; at < border; ++at) {
    const std::string_view line = reader.line_ahead(at);
    if (!says_nothing(line) && !read_atom_line(line).is_atom() &&
        (is_near_terminator(line, "End Geometry", "geometry") || is_module_end(line))) {
      reader.amend(at, BorderFault::MisspeltTerminator, "End Geometry");
      return;
    }
  }
  if (border < reader.lines_left()) {
    reader.break_before(border);
  }
}

void mend_opening(LineReader& reader, const InputSchema& schema, Outside where) {
  if (!reader.reads_as_program() || reader.at_end()) {
    return;
  }
  const std::string_view line = reader.line();
  if (says_nothing(line)) {
    return;
  }
  if (is_header_behind_wide_dollar(line, schema)) {
    reader.amend(0, BorderFault::WideDollar,
                 '$' + std::string(behind_wide_dollar(line).value_or(line)));
  } else if (lacks_dollar(reader, schema, where)) {
    reader.amend(0, BorderFault::MissingDollar, '$' + std::string(without_signs(line)));
  } else if (where == Outside::Header && is_misspelt_geometry(reader, schema)) {
    reader.amend(0, BorderFault::MisspeltGeometry, "Geometry");
  }
}

}  // namespace kelp::input::bdf
