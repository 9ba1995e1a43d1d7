// Geometries: whether there is one, in one form and from one source, and what refers to its atoms
// or to files for it. Rows of `atommass` that are too few or too many are the vocabulary's own, as
// is a geometry block without any line.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/molecule_names.hpp"

namespace kelp::input::bdf {
namespace {

void check_geometry_missing(const Job& job, Report& report) {
  for (const Block* const compass : job.all(compass_module)) {
    // A module alone shows how an entry is written.
    const bool is_used = job.system_of(*compass).blocks.size() > 1;
    if (job.is_complete() && job.is_advanced() && is_used && !compass->is_elided &&
        !compass->has(geometry_entry) && !compass->has("restart")) {
      report.add("$compass has no geometry.")
          .at(*compass, "no atoms")
          .help("put the atoms between a line 'geometry' and a line 'end geometry'");
    }
  }
}

bool has_any_line(const Job& job, const RecordId& record) {
  return job.input.end_line(record) > job.input.first_line(record) + 1;
}

void check_geometry_empty(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const Geometry& geometry = system.geometry;
    if (geometry.record && geometry.form == GeometryForm::None && geometry.is_certain &&
        has_any_line(job, geometry.record)) {
      report.add("The geometry has no atoms.")
          .at(job.input.keyword_range(geometry.record), "no atoms")
          .help(
              "put the atoms between this line and the next; what begins with '#' or '*' is a "
              "comment");
    }
  }
}

void check_file_and_atoms(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const Geometry& geometry = system.geometry;
    if (geometry.form == GeometryForm::File && !geometry.centres.empty()) {
      report.add("The geometry names a file and lists atoms.")
          .at(geometry.file, "a file")
          .related(range_of(job.input, geometry.centres.front().label), "an atom")
          .help("keep either the line 'file=' or the atoms");
    }
  }
}

bool ends_with(Word name, std::string_view ending) {
  return name.size() > ending.size() &&
         core::text::equals_ignoring_case(name.substr(name.size() - ending.size()), ending);
}

// Names with a variable of the shell are known when it runs.
bool is_plain_file(const Geometry& geometry) {
  return geometry.form == GeometryForm::File && !geometry.file.empty() &&
         geometry.file.find('$') == Word::npos && !is_elision(geometry.file);
}

void check_file_extension(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const Word name = system.geometry.file;
    if (is_plain_file(system.geometry) && !ends_with(name, ".xyz") &&
        !ends_with(name, ".optgeom")) {
      report.add("'{}' is no kind of file that a geometry is read from.", {name})
          .at(name, "neither .xyz nor .optgeom")
          .help("write the atoms into a file in XYZ format, or into the input");
    }
  }
}

// Tells whether a line of commands may bring a file.
bool is_brought(const Job& job, std::string_view name) {
  return std::any_of(job.shell_lines.begin(), job.shell_lines.end(),
                     [&](const ShellLine& line) { return line.text.find(name) != Word::npos; });
}

void check_file_missing(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const Word name = system.geometry.file;
    if (job.folder != nullptr && is_plain_file(system.geometry) && !job.folder->has_file(name) &&
        !is_brought(job, name)) {
      report.add("There is no file '{}' beside the input.", {name})
          .at(name, "not in the folder")
          .help("names of files are told apart by the case of their letters, too");
    }
  }
}

void check_geometry_twice(const Job& job, Report& report) {
  const Block* const compass = job.systems.front().compass;
  if (job.data().has_geometry && compass != nullptr && compass->has(geometry_entry)) {
    report.add("There are two geometries, in $compass and below the header.")
        .at_keyword(compass->get(geometry_entry), "a second geometry")
        .related(job.input.keyword_range(RecordId::of(RecordKind::Geometry, 0)), "the first one")
        .help("keep one of them");
  }
}

void check_restart_without_geometry(const Job& job, Report& report) {
  for (const Block* const compass : job.all(compass_module)) {
    if (compass->has("restart") && !compass->has(geometry_entry) && !job.data().has_geometry &&
        !compass->is_elided) {
      report.add("'restart' needs the atoms all the same.")
          .at_keyword(compass->get("restart"), "takes coordinates, not atoms, from the file")
          .help("give a geometry with the same atoms in the same order");
    }
  }
}

void check_atommass_atom_range(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const auto size = system.geometry.size();
    if (system.compass == nullptr || !size || *size == 0) {
      continue;
    }
    for (const std::vector<Word>& row : system.compass->get("atommass").rows()) {
      const auto atom = core::number::parse_integer(row.front());
      const bool is_count = row.size() == 1;
      if (!is_count && atom && (*atom < 1 || *atom > static_cast<std::int64_t>(*size))) {
        report.add("There is no atom {}.", {row.front()})
            .at(row.front(), "of " + std::to_string(*size))
            .help("atoms are counted from 1 to " + std::to_string(*size));
      }
    }
  }
}

void check_extcharge_file_missing(const Job& job, Report& report) {
  for (const Block* const compass : job.all(compass_module)) {
    if (job.folder == nullptr || !compass->has("extcharge")) {
      continue;
    }
    const std::string name = job.folder->job_name + ".extcharge";
    if (!job.folder->has_file(name) && !is_brought(job, ".extcharge")) {
      report.add("There is no file '{}' beside the input.", {name})
          .at_keyword(compass->get("extcharge"), "needs that file")
          .help(
              "it has a line of text, a line with the number of charges, and a line for each "
              "charge");
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"geometry.geometry_missing", check_geometry_missing},
    {"geometry.geometry_empty", check_geometry_empty},
    {"geometry.geometry_file_and_atoms", check_file_and_atoms},
    {"geometry.geometry_file_extension", check_file_extension},
    {"geometry.geometry_file_missing", check_file_missing},
    {"geometry.geometry_twice", check_geometry_twice},
    {"geometry.restart_without_geometry", check_restart_without_geometry},
    {"geometry.atommass_atom_range", check_atommass_atom_range},
    {"geometry.extcharge_file_missing", check_extcharge_file_missing},
});

}  // namespace

std::span<const Rule> geometry_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
