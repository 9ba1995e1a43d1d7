#include "rewrite/same_meaning.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

#include "kelp/core/text.hpp"
#include "model/molecule_names.hpp"
#include "model/value_lines.hpp"
#include "rewrite/value_patch.hpp"
#include "source/atom_line.hpp"

namespace kelp::input::bdf {
namespace {

using Entries = std::vector<const ModuleEntry*>;

// Coordinates are written with ten decimals or more.
constexpr double rounding = 1e-10;

bool tells(const ModuleEntry& entry) {
  const std::string_view line = core::text::trim_view(entry.raw_line);
  const bool is_comment = !line.empty() && (line.front() == '#' || line.front() == '*');
  return entry.known || (!line.empty() && !is_comment) ||
         (entry.raw_line.empty() && !entry.name.empty());
}

Entries telling_entries(const std::vector<ModuleEntry>& entries) {
  Entries telling;
  for (const ModuleEntry& entry : entries) {
    if (tells(entry)) {
      telling.push_back(&entry);
    }
  }
  return telling;
}

bool same_text(std::string_view left, std::string_view right) {
  return core::text::equals_ignoring_case(left, right);
}

bool same_number(double left, double right) {
  return left == right || std::fabs(left - right) <= rounding || (left != left && right != right);
}

// A row of a geometry keeps the label and the digits that it had.
bool same_row(std::string_view left, std::string_view right) {
  const AtomLine left_atom = read_atom_line(left);
  const AtomLine right_atom = read_atom_line(right);
  return left_atom.is_atom() && right_atom.is_atom() &&
         same_element(left_atom.label, right_atom.label) &&
         std::equal(left_atom.position.begin(), left_atom.position.end(),
                    right_atom.position.begin(), same_number);
}

std::string quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

// What one line would be read as instead of another.
Difference misreading(const std::string& path, std::string_view wanted, std::string_view read) {
  if (read.empty()) {
    return {path, quoted(path) + " would be read without " + quoted(wanted)};
  }
  return {path, wanted.empty() ? quoted(path) + " would be read with " + quoted(read) + ", too"
                               : quoted(path) + " would be read as " + quoted(read) + ", not as " +
                                     quoted(wanted)};
}

Difference difference_of_values(const ModuleEntry& wanted, const ModuleEntry& read,
                                const std::string& path) {
  const auto left = cleaned_lines(wanted);
  const auto right = cleaned_lines(read);
  const bool is_geometry = is_geometry_entry(wanted);
  for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
    const std::string_view one = i < left.size() ? left[i] : std::string_view();
    const std::string_view other = i < right.size() ? right[i] : std::string_view();
    if (one != other && !(is_geometry && same_row(one, other))) {
      return misreading(path, one, other);
    }
  }
  return {};
}

/// Compares modules and their entries.
class ModuleComparison {
 public:
  explicit ModuleComparison(bool with_geometries) : with_geometries_(with_geometries) {}

  Difference run(const BDFData& wanted, const BDFData& read) const {
    for (std::size_t i = 0; i < wanted.modules.size() && i < read.modules.size(); ++i) {
      const Module& left = wanted.modules[i];
      const Module& right = read.modules[i];
      if (!same_text(left.name, right.name)) {
        return misreading(left.name, "$" + left.name, "$" + right.name);
      }
      Difference found = compare(left.entries, right.entries, left.name);
      if (!found.path.empty()) {
        return found;
      }
    }
    const std::size_t both = std::min(wanted.modules.size(), read.modules.size());
    if (wanted.modules.size() > both) {
      const std::string& name = wanted.modules[both].name;
      return {name, "the module $" + name + " would not be found"};
    }
    if (read.modules.size() > both) {
      const std::string& name = read.modules[both].name;
      return {name, "$" + name + " would be read as a module"};
    }
    return {};
  }

 private:
  Difference compare(const ModuleEntry& wanted, const ModuleEntry& read,
                     const std::string& owner) const {
    const std::string path = owner + '.' + wanted.name;
    if (!same_text(wanted.name, read.name)) {
      return {path,
              quoted(read.name) + " would be read as an entry where " + quoted(path) + " is meant"};
    }
    const Difference found = with_geometries_ || !is_geometry_entry(wanted)
                                 ? difference_of_values(wanted, read, path)
                                 : Difference();
    return found.path.empty() ? compare(wanted.children, read.children, path) : found;
  }

  Difference compare(const std::vector<ModuleEntry>& wanted, const std::vector<ModuleEntry>& read,
                     const std::string& owner) const {
    const Entries left = telling_entries(wanted);
    const Entries right = telling_entries(read);
    for (std::size_t i = 0; i < left.size() && i < right.size(); ++i) {
      Difference found = compare(*left[i], *right[i], owner);
      if (!found.path.empty()) {
        return found;
      }
    }
    const std::size_t both = std::min(left.size(), right.size());
    if (left.size() > both) {
      const std::string path = owner + '.' + left[both]->name;
      return {path, quoted(path) + " would not be found"};
    }
    if (right.size() > both) {
      const std::string path = owner + '.' + right[both]->name;
      return {path, quoted(right[both]->name) + " would be read as an entry of its own"};
    }
    return {};
  }

  bool with_geometries_;
};

std::string_view without_comma(std::string_view word) {
  while (word.ends_with(',')) {
    word.remove_suffix(1);
  }
  return word;
}

Difference difference_of_headers(const BDFData& wanted, const BDFData& read) {
  const std::size_t count = std::max(wanted.easy_tokens.size(), read.easy_tokens.size());
  for (std::size_t i = 0; i < count; ++i) {
    const EasyToken none;
    const EasyToken& left = i < wanted.easy_tokens.size() ? wanted.easy_tokens[i] : none;
    const EasyToken& right = i < read.easy_tokens.size() ? read.easy_tokens[i] : none;
    if (same_text(without_comma(left.canonical), without_comma(right.canonical))) {
      continue;
    }
    if (left.text.empty()) {
      return {right.text, quoted(right.text) + " would be read as a word of the header, too"};
    }
    return misreading(left.text, left.text, right.text);
  }
  return wanted.mode == InputMode::Module || wanted.script_name == read.script_name
             ? Difference()
             : misreading("the script name", wanted.script_name, read.script_name);
}

Difference difference_of_geometries(const BDFData& wanted, const BDFData& read) {
  bool same = wanted.has_geometry == read.has_geometry && wanted.atoms.size() == read.atoms.size();
  for (std::size_t i = 0; same && i < wanted.atoms.size(); ++i) {
    const AtomRecord& left = wanted.atoms[i];
    const AtomRecord& right = read.atoms[i];
    same = same_element(left.element, right.element) && same_number(left.x, right.x) &&
           same_number(left.y, right.y) && same_number(left.z, right.z);
    if (!same) {
      return {"geometry", "atom " + std::to_string(i + 1) + " would be another one"};
    }
  }
  return same ? Difference()
              : Difference{"geometry", "the geometry would have " +
                                           std::to_string(read.atoms.size()) + " atoms, not " +
                                           std::to_string(wanted.atoms.size())};
}

}  // namespace

Difference first_difference(const BDFData& wanted, const BDFData& read, bool with_geometries) {
  Difference found = difference_of_headers(wanted, read);
  if (found.path.empty() && with_geometries) {
    found = difference_of_geometries(wanted, read);
  }
  return found.path.empty() ? ModuleComparison(with_geometries).run(wanted, read) : found;
}

}  // namespace kelp::input::bdf
