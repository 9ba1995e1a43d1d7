#include "rewrite/same_meaning.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <vector>

#include "kelp/core/text.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "model/molecule_names.hpp"
#include "model/value_lines.hpp"
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
         element_of(left_atom.label) == element_of(right_atom.label) &&
         std::equal(left_atom.position.begin(), left_atom.position.end(),
                    right_atom.position.begin(), same_number);
}

bool same_values(const ModuleEntry& wanted, const ModuleEntry& read) {
  const auto left = cleaned_lines(wanted);
  const auto right = cleaned_lines(read);
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [&](std::string_view one, std::string_view other) {
                      return one == other ||
                             (wanted.name == geometry_entry && same_row(one, other));
                    });
}

std::string difference(const std::vector<ModuleEntry>& wanted, const std::vector<ModuleEntry>& read,
                       const std::string& owner);

std::string difference(const ModuleEntry& wanted, const ModuleEntry& read,
                       const std::string& owner) {
  std::string path = owner + '.' + wanted.name;
  if (!same_text(wanted.name, read.name) || !same_values(wanted, read)) {
    return path;
  }
  return difference(wanted.children, read.children, path);
}

std::string difference(const std::vector<ModuleEntry>& wanted, const std::vector<ModuleEntry>& read,
                       const std::string& owner) {
  const Entries left = telling_entries(wanted);
  const Entries right = telling_entries(read);
  for (std::size_t i = 0; i < left.size() && i < right.size(); ++i) {
    std::string found = difference(*left[i], *right[i], owner);
    if (!found.empty()) {
      return found;
    }
  }
  if (left.size() == right.size()) {
    return {};
  }
  return owner + '.' +
         (left.size() > right.size() ? left[right.size()]->name : right[left.size()]->name);
}

std::string difference_of_modules(const BDFData& wanted, const BDFData& read) {
  for (std::size_t i = 0; i < wanted.modules.size() && i < read.modules.size(); ++i) {
    const Module& left = wanted.modules[i];
    const Module& right = read.modules[i];
    if (!same_text(left.name, right.name)) {
      return left.name;
    }
    std::string found = difference(left.entries, right.entries, left.name);
    if (!found.empty()) {
      return found;
    }
  }
  if (wanted.modules.size() == read.modules.size()) {
    return {};
  }
  const std::size_t both = std::min(wanted.modules.size(), read.modules.size());
  return (wanted.modules.size() > both ? wanted : read).modules[both].name;
}

std::string difference_of_headers(const BDFData& wanted, const BDFData& read) {
  for (std::size_t i = 0; i < wanted.easy_tokens.size(); ++i) {
    if (i >= read.easy_tokens.size() ||
        !same_text(wanted.easy_tokens[i].canonical, read.easy_tokens[i].canonical)) {
      return wanted.easy_tokens[i].text;
    }
  }
  if (read.easy_tokens.size() > wanted.easy_tokens.size()) {
    return read.easy_tokens[wanted.easy_tokens.size()].text;
  }
  return wanted.mode == InputMode::Module || wanted.script_name == read.script_name
             ? std::string()
             : wanted.script_name;
}

std::string difference_of_geometries(const BDFData& wanted, const BDFData& read) {
  bool same = wanted.has_geometry == read.has_geometry && wanted.atoms.size() == read.atoms.size();
  for (std::size_t i = 0; same && i < wanted.atoms.size(); ++i) {
    const AtomRecord& left = wanted.atoms[i];
    const AtomRecord& right = read.atoms[i];
    same = same_number(left.x, right.x) && same_number(left.y, right.y) &&
           same_number(left.z, right.z);
  }
  return same ? "" : "geometry";
}

}  // namespace

std::string first_difference(const BDFData& wanted, const BDFData& read, bool with_geometry) {
  std::string found = difference_of_headers(wanted, read);
  if (found.empty() && with_geometry) {
    found = difference_of_geometries(wanted, read);
  }
  return found.empty() ? difference_of_modules(wanted, read) : found;
}

}  // namespace kelp::input::bdf
