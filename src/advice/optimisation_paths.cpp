// Paths: the second structure of a search between two, and scans of coordinates. Rows of
// coordinates read "2 4 5 = 90. 120. 5.": atoms, and what follows them.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "model/value_lines.hpp"

namespace kelp::input::bdf {
namespace {

// Numbers that no calculation has would overflow.
constexpr std::int64_t most_rows = 1'000'000;

Setting neb_of(const Block& block) {
  return block.get(block.has("neb") ? "neb" : "neb-block");
}

void check_neb_needs_geometry2(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    const Setting neb = neb_of(*block);
    const bool is_open = neb &&
                         job.data().modules[block->index].entries[neb.record().entry].kind ==
                             EntryValueKind::NestedBlock &&
                         job.input.end_line(neb.record()) == 0;
    if (neb && !is_open && !block->has("geometry2") && block->is_whole() && job.is_complete()) {
      report.add("'{}' has one end: 'geometry2' with the other one is missing.", {neb.name()})
          .at_keyword(neb, "a path to where?")
          .help("give the second structure with 'geometry2' ... 'end geometry2'");
    }
  }
}

// How many rows of coordinates a block of them has; unset when a row is none.
std::optional<std::size_t> coordinate_rows(const Setting& setting) {
  std::size_t count = 0;
  for (const std::vector<Word>& row : setting.rows()) {
    if (row.front().front() == '*') {
      continue;
    }
    if (row.size() < 3 || !core::number::parse_float(row[row.size() - 1])) {
      return std::nullopt;
    }
    ++count;
  }
  return count;
}

void check_geometry2_atom_count(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    const Setting second = block->get("geometry2");
    const auto atoms = job.system_of(*block).geometry.size();
    const auto frames = block->has("nframe") ? block->get("nframe").integer() : 1;
    if (!second || !atoms || *atoms == 0 || !frames || *frames < 1 || *frames > most_rows ||
        block->is_elided || job.input.end_line(second.record()) == 0) {
      continue;
    }
    const auto rows = coordinate_rows(second);
    const std::size_t wanted = *atoms * static_cast<std::size_t>(*frames);
    if (!rows || *rows == wanted) {
      continue;
    }
    Finding& finding = report
                           .add("'geometry2' has {} rows, and {} atoms in {} structures have {}.",
                                {std::to_string(*rows), std::to_string(*atoms), text_of(*frames),
                                 std::to_string(wanted)})
                           .at_keyword(second, std::to_string(*rows) + " rows")
                           .related(block->get("nframe"), "the structures")
                           .help("each structure has all atoms, in the order of the first one");
    if (block->has("nframe") && *rows > 0 && *rows % *atoms == 0) {
      const std::string count = std::to_string(*rows / *atoms);
      finding.ask("write '" + count + "' structures", value_replaced(block->get("nframe"), count));
    }
  }
}

void check_geometry2_without_neb(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    if (block->has("geometry2") && !neb_of(*block) && block->is_whole()) {
      report.add("'geometry2' is the other end of a path, and no path is searched.")
          .at_keyword(block->get("geometry2"), "not read")
          .help("search a path with 'neb', or leave 'geometry2' out");
    }
  }
}

void check_nframe_before_geometry2(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    const Setting frames = block->get("nframe");
    const Setting second = block->get("geometry2");
    if (frames && second && second.keyword().begin < frames.keyword().begin) {
      report.add("'nframe' stands behind 'geometry2', which is read by it.")
          .at_keyword(frames, "comes too late")
          .related(second.keyword(), "has one structure")
          .fix_all("move it before 'geometry2'",
                   moved_before(job, frames.record(), second.record()));
    }
  }
}

struct Coordinate {
  std::vector<Word> atoms;
  std::vector<Word> values;  ///< behind the "="
};

Coordinate coordinate_from(const Job& job, const std::vector<Word>& row) {
  const std::string_view text = job.input.source().text_of(range_of(job.input, row));
  const std::size_t equals = text.find('=');
  Coordinate coordinate;
  split_value_tokens(text.substr(0, equals), coordinate.atoms);
  if (equals != std::string_view::npos) {
    split_value_tokens(text.substr(equals + 1), coordinate.values);
  }
  return coordinate;
}

bool are_numbers(const std::vector<Word>& words) {
  return std::all_of(words.begin(), words.end(),
                     [](Word word) { return core::number::parse_float(word).has_value(); });
}

// Atoms, and behind '=' as many numbers as there must be.
void check_coordinate(const Job& job, const std::vector<Word>& row, std::size_t wanted,
                      std::string_view help, Report& report) {
  constexpr std::size_t most = 4;
  const Coordinate coordinate = coordinate_from(job, row);
  const std::string_view text = job.input.source().text_of(range_of(job.input, row));
  const bool has_values = text.find('=') != std::string_view::npos;
  const bool are_atoms =
      coordinate.atoms.size() <= most && !coordinate.atoms.empty() &&
      std::all_of(coordinate.atoms.begin(), coordinate.atoms.end(),
                  [](Word word) { return core::number::parse_integer(word).has_value(); });
  const bool has_right_values =
      has_values && coordinate.values.size() == wanted && are_numbers(coordinate.values);
  if (are_atoms && (has_right_values || (!has_values && wanted == 1))) {
    return;
  }
  report.add("The line '{}' is no coordinate.", {text})
      .at(range_of(job.input, row), are_atoms ? "which values?" : "which atoms?")
      .help(std::string(help));
}

// A scan: the coordinates, and where their number has a second one beside it, the points.
struct Scan {
  Setting setting;
  std::vector<std::vector<Word>> rows;  ///< behind the first line
  std::vector<Word> head;
  std::int64_t coordinates = 0;
  std::optional<std::int64_t> points;
};

std::vector<Scan> scans_of(const Job& job) {
  std::vector<Scan> all;
  for (const Block* const block : job.all("bdfopt")) {
    Scan scan;
    scan.setting = block->get("scan");
    scan.rows = scan.setting.rows();
    // One row is what stands there while the others are still to be typed.
    if (scan.rows.size() < 2 || block->is_elided || scan.rows.front().size() > 2) {
      continue;
    }
    scan.head = scan.rows.front();
    scan.rows.erase(scan.rows.begin());
    const auto first = core::number::parse_integer(scan.head.front());
    const auto second = core::number::parse_integer(scan.head.back());
    if (first && second && *first > 0 && *first<most_rows&& * second> 0 && *second < most_rows) {
      scan.coordinates = *first;
      scan.points = scan.head.size() == 2 ? second : std::nullopt;
      all.push_back(std::move(scan));
    }
  }
  return all;
}

void check_values_of(const Scan& scan, const Job& job, Report& report) {
  for (auto row = scan.rows.begin() + scan.coordinates; row != scan.rows.end(); ++row) {
    if (static_cast<std::int64_t>(row->size()) != scan.coordinates) {
      report
          .add("A point of 'scan' has {} values, and {} coordinates are scanned.",
               {std::to_string(row->size()), text_of(scan.coordinates)})
          .at(range_of(job.input, *row))
          .related(range_of(job.input, scan.head), "coordinates and points");
      return;
    }
  }
}

void check_scan_row_count(const Job& job, Report& report) {
  for (const Scan& scan : scans_of(job)) {
    const auto lines = static_cast<std::int64_t>(scan.rows.size());
    if (lines == scan.coordinates + scan.points.value_or(0)) {
      if (scan.points) {
        check_values_of(scan, job, report);
      }
    } else if (scan.points) {
      report
          .add("'scan' announces {} coordinates and {} points, which take {} lines, and has {}.",
               {text_of(scan.coordinates), text_of(*scan.points),
                text_of(scan.coordinates + *scan.points), text_of(lines)})
          .at(range_of(job.input, scan.head), "coordinates and points");
    } else {
      report
          .add("'scan' announces {} coordinates, and has {} lines.",
               {text_of(scan.coordinates), text_of(lines)})
          .at(range_of(job.input, scan.head), "coordinates")
          .help("each line has the atoms of a coordinate, '=', and start, end and step");
    }
  }
}

void check_coordinate_malformed(const Job& job, Report& report) {
  constexpr std::size_t start_end_step = 3;
  for (const Block* const block : job.all("bdfopt")) {
    const std::vector<std::vector<Word>> rows = block->get("constrain").rows();
    const auto count = rows.empty() ? std::nullopt : core::number::parse_integer(rows[0].front());
    for (std::size_t i = 1; !block->is_elided && count && i < rows.size(); ++i) {
      check_coordinate(job, rows[i], 1,
                       "write one to four atoms, and '= VALUE' where it is to change", report);
    }
  }
  for (const Scan& scan : scans_of(job)) {
    for (const std::vector<Word>& row : scan.rows) {
      if (!scan.points && static_cast<std::int64_t>(scan.rows.size()) == scan.coordinates) {
        check_coordinate(job, row, start_end_step, "write the atoms, '=', and start, end and step",
                         report);
      }
    }
  }
}

std::string with_other_sign(Word number) {
  const bool has_sign = number.front() == '-' || number.front() == '+';
  const std::string magnitude(number.substr(has_sign ? 1 : 0));
  return number.front() == '-' ? magnitude : "-" + magnitude;
}

void check_scan_interval(const Job& job, const std::vector<Word>& values, Report& report) {
  const auto start = core::number::parse_float(values[0]);
  const auto end = core::number::parse_float(values[1]);
  const auto step = core::number::parse_float(values[2]);
  if (!start || !end || !step) {
    return;
  }
  const bool is_away = (*end > *start && *step < 0) || (*end<*start&& * step> 0);
  if (*step == 0) {
    report.add("A step of 0 does not lead from {} to {}.", {values[0], values[1]})
        .at(values[2], "stays where it is");
  } else if (is_away) {
    report.add("A step of {} leads away from {}.", {values[2], values[1]})
        .at(values[2], "points the other way")
        .related(range_of(job.input, {values[0], values[1]}), "start and end")
        .fix("write '" + with_other_sign(values[2]) + "'",
             {range_of(job.input, values[2]), with_other_sign(values[2])});
  }
}

void check_scan_interval_sign(const Job& job, Report& report) {
  constexpr std::size_t start_end_step = 3;
  for (const Scan& scan : scans_of(job)) {
    for (const std::vector<Word>& row : scan.rows) {
      const Coordinate coordinate = coordinate_from(job, row);
      if (!scan.points && coordinate.values.size() == start_end_step) {
        check_scan_interval(job, coordinate.values, report);
      }
    }
  }
}

// The rows of atoms of everything that names coordinates.
std::vector<std::vector<Word>> rows_of_atoms(const Job& job) {
  std::vector<std::vector<Word>> all;
  for (const Block* const block : job.all("bdfopt")) {
    std::vector<std::vector<Word>> rows = block->get("constrain").rows();
    if (!rows.empty()) {
      all.insert(all.end(), rows.begin() + 1, rows.end());
    }
  }
  for (const Scan& scan : scans_of(job)) {
    const std::size_t count =
        std::min(static_cast<std::size_t>(scan.coordinates), scan.rows.size());
    all.insert(all.end(), scan.rows.begin(),
               scan.rows.begin() + static_cast<std::ptrdiff_t>(count));
  }
  return all;
}

void check_constraint_repeated_atom(const Job& job, Report& report) {
  constexpr std::size_t most = 4;
  for (const std::vector<Word>& row : rows_of_atoms(job)) {
    const Coordinate coordinate = coordinate_from(job, row);
    if (coordinate.atoms.size() > most) {
      continue;
    }
    for (auto atom = coordinate.atoms.begin(); atom != coordinate.atoms.end(); ++atom) {
      const auto first = std::find(coordinate.atoms.begin(), atom, *atom);
      if (first != atom) {
        report.add("Atom {} stands twice in one coordinate.", {*atom})
            .at(*atom, "once more")
            .related(range_of(job.input, *first), "the first time")
            .help("a distance has two atoms, an angle three, a dihedral angle four");
        break;
      }
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"optimisation.neb_needs_geometry2", check_neb_needs_geometry2},
    {"optimisation.geometry2_atom_count", check_geometry2_atom_count},
    {"optimisation.geometry2_without_neb", check_geometry2_without_neb},
    {"optimisation.nframe_before_geometry2", check_nframe_before_geometry2},
    {"optimisation.scan_row_count", check_scan_row_count},
    {"optimisation.coordinate_malformed", check_coordinate_malformed},
    {"optimisation.scan_interval_sign", check_scan_interval_sign},
    {"optimisation.constraint_repeated_atom", check_constraint_repeated_atom},
});

}  // namespace

std::span<const Rule> optimisation_paths_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
