// The initial guess: orbitals that are read must be there and be those of the same molecule; pairs
// of orbitals that change their occupation. That `hpalpha` needs `ifpair` is said by the
// vocabulary.

#include <algorithm>
#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

bool reads_orbitals(const Block& scf) {
  return scf.get("guess").is("readmo") || scf.get("guess").is("read");
}

bool names_orbitals(const ShellLine& line) {
  const std::string text = core::text::to_lower(line.text);
  return text.find("inporb") != std::string::npos || text.find("scforb") != std::string::npos ||
         text.find("exporb") != std::string::npos;
}

// Tells whether orbitals are copied behind one block and before another one.
bool are_copied_between(const Job& job, std::size_t behind, std::size_t before) {
  return std::any_of(job.shell_lines.begin(), job.shell_lines.end(), [&](const ShellLine& line) {
    return line.before > behind && line.before <= before && names_orbitals(line);
  });
}

// Whether somebody else provides orbitals: an earlier run that is gone on with, or a driver.
bool may_have_orbitals(const Job& job, const Block& scf) {
  const System& system = job.system_of(scf);
  const bool is_restart = system.compass != nullptr && system.compass->has("restart");
  const bool is_copied = std::any_of(
      job.shell_lines.begin(), job.shell_lines.end(),
      [&](const ShellLine& line) { return line.before <= scf.index && names_orbitals(line); });
  const bool is_there =
      job.folder != nullptr && job.folder->has_file(job.folder->job_name + ".scforb");
  return is_restart || is_copied || is_there || job.is_driven() || job.has("irc") ||
         job.header("scan") || job.header("scan+opt");
}

void check_readmo_without_orbitals(const Job& job, Report& report) {
  const Block* const scf = job.scfs.empty() ? nullptr : job.scfs.front().block;
  if (scf != nullptr && job.is_complete() && !scf->is_elided && reads_orbitals(*scf) &&
      !may_have_orbitals(job, *scf)) {
    const std::string name = job.folder == nullptr ? "INPUTNAME" : job.folder->job_name;
    report.add("The first $scf reads orbitals, and nothing here provides them.")
        .at(scf->get("guess"), "falls back to 'atom' without a file")
        .help("have '" + name +
              ".scforb' of an earlier run in the folder, or copy one with a line '%'");
  }
}

/// An SCF that reads the orbitals of the system before its own.
struct Reading {
  const Scf* from;
  const Scf* to;
};

// Those that read what was left by another system, with no copy in between.
std::vector<Reading> readings_across(const Job& job) {
  std::vector<Reading> found;
  for (std::size_t i = 1; i < job.scfs.size(); ++i) {
    const Scf& from = job.scfs[i - 1];
    const Scf& to = job.scfs[i];
    if (from.system != to.system && reads_orbitals(*to.block) &&
        !are_copied_between(job, from.block->index, to.block->index)) {
      found.push_back({&from, &to});
    }
  }
  return found;
}

enum class SameAtoms { Yes, No, Unknown };

SameAtoms same_atoms(const Reading& reading) {
  const Geometry& from = reading.from->system->geometry;
  const Geometry& to = reading.to->system->geometry;
  if (!from.size() || !to.size() || *from.size() == 0 || *to.size() == 0) {
    return SameAtoms::Unknown;
  }
  const bool is_same = std::equal(
      from.centres.begin(), from.centres.end(), to.centres.begin(), to.centres.end(),
      [](const Centre& left, const Centre& right) { return left.element == right.element; });
  return is_same ? SameAtoms::Yes : SameAtoms::No;
}

void check_readmo_other_molecule(const Job& job, Report& report) {
  for (const Reading& reading : readings_across(job)) {
    if (same_atoms(reading) == SameAtoms::No) {
      report.add("The orbitals that are read belong to another molecule.")
          .at(reading.to->block->get("guess"), "reads those of the $scf before")
          .related(*reading.from->block, "leaves its orbitals")
          .help(
              "orbitals must be of the same atoms in the same order; copy the right ones, or take "
              "another guess");
    }
  }
}

bool has_other_basis(const Reading& reading) {
  const System& from = *reading.from->system;
  const System& to = *reading.to->system;
  for (std::size_t i = 0; i < to.geometry.centres.size(); ++i) {
    if (from.basis.of(from.geometry.centres[i]) != to.basis.of(to.geometry.centres[i])) {
      return true;
    }
  }
  return false;
}

bool is_projected(const Job& job, const Reading& reading) {
  const std::vector<const Block*> all = job.all("expandmo");
  return std::any_of(all.begin(), all.end(), [&](const Block* block) {
    return block->index > reading.from->block->index && block->index < reading.to->block->index;
  });
}

void check_readmo_other_basis(const Job& job, Report& report) {
  for (const Reading& reading : readings_across(job)) {
    if (same_atoms(reading) == SameAtoms::Yes && !reading.to->system->basis.has_inline &&
        !reading.from->system->basis.has_inline && has_other_basis(reading) &&
        !is_projected(job, reading)) {
      report.add("The orbitals that are read are of another basis set.")
          .at(reading.to->block->get("guess"), "reads those of the $scf before")
          .related(reading.from->system->basis.setting, "the basis set that they are of")
          .related(reading.to->system->basis.setting, "the basis set that they are read for")
          .help("project them with $expandmo, or take another guess");
    }
  }
}

std::string group_of(const System& system) {
  if (system.compass == nullptr || system.compass->has("nosymm")) {
    return "nosymm";
  }
  return system.compass->get("group").text();
}

void check_readmo_other_group(const Job& job, Report& report) {
  for (const Reading& reading : readings_across(job)) {
    if (same_atoms(reading) == SameAtoms::Yes &&
        group_of(*reading.from->system) != group_of(*reading.to->system)) {
      report.add("The orbitals that are read are of another point group.")
          .at(reading.to->block->get("guess"), "reads those of the $scf before")
          .related(*reading.from->system->compass, "the point group that they are of")
          .help("give both $compass the same 'group', or 'nosymm'");
    }
  }
}

void check_mixorb_without_readmo(const Job& job, Report& report) {
  for (const Block* const scf : job.all("scf")) {
    if (scf->has("mixorb") && !scf->is_elided && !reads_orbitals(*scf)) {
      report
          .add("'mixorb' mixes orbitals by their numbers, which only orbitals that are read have.")
          .at_keyword(scf->get("mixorb"), "of which orbitals?")
          .related(scf->get("guess"), "makes new orbitals")
          .help("read orbitals of an earlier run: 'guess' with the value 'readmo'");
    }
  }
}

// The rows behind a line that holds nothing but their number.
std::vector<std::vector<Word>> rows_behind_count(const Setting& setting) {
  std::vector<std::vector<Word>> rows = setting.rows();
  if (!rows.empty() && rows.front().size() == 1) {
    rows.erase(rows.begin());
  }
  return rows;
}

void check_mixorb_spin(const Job& job, Report& report) {
  for (const Scf& scf : job.scfs) {
    if (scf.block == nullptr || !scf.is_restricted()) {
      continue;
    }
    for (const std::vector<Word>& row : rows_behind_count(scf.block->get("mixorb"))) {
      if (row.size() > 1 && row.front() != "1") {
        report.add("The spin of a row is '{}', and a closed shell has only 1.", {row.front()})
            .at(row.front(), "must be 1")
            .related(scf.reference_word, "for closed shells")
            .ask("write '1'", {range_of(job.input, row.front()), "1"});
      }
    }
  }
}

std::vector<Setting> pairs_of(const Block& scf) {
  std::vector<Setting> all;
  for (const char* const name : {"hpalpha", "hpbeta"}) {
    if (scf.has(name) && !scf.is_elided) {
      all.push_back(scf.get(name));
    }
  }
  return all;
}

void check_hp_line_count(const Job& job, Report& report) {
  for (const Block* const scf : job.all("scf")) {
    for (const Setting& pairs : pairs_of(*scf)) {
      const std::vector<std::vector<Word>> rows = pairs.rows();
      const auto count = rows.empty() || rows.front().size() != 1
                             ? std::nullopt
                             : core::number::parse_integer(rows.front().front());
      const auto lines = static_cast<std::int64_t>(rows.size()) - 1;
      constexpr std::int64_t most = 1'000'000;
      if (count && *count >= 0 && *count < most && lines != 2 * *count) {
        report
            .add("'{}' announces {} pairs, which take {} lines, and has {}.",
                 {pairs.name(), rows.front().front(), text_of(2 * *count), text_of(lines)})
            .at(rows.front().front(), "pairs")
            .help("each pair has a line for the hole and one for the particle");
      }
    }
  }
}

void check_hp_line_length(const Job& job, Report& report) {
  for (const Block* const scf : job.all("scf")) {
    for (const Setting& pairs : pairs_of(*scf)) {
      const std::vector<std::vector<Word>> rows = pairs.rows();
      for (std::size_t i = 2; i < rows.size(); ++i) {
        if (rows[i].size() != rows[1].size()) {
          const TextRange line = {range_of(job.input, rows[i].front()).begin,
                                  range_of(job.input, rows[i].back()).end};
          report
              .add("A line of '{}' has {} numbers, the first one has {}.",
                   {pairs.name(), std::to_string(rows[i].size()), std::to_string(rows[1].size())})
              .at(line)
              .related(TextRange{range_of(job.input, rows[1].front()).begin,
                                 range_of(job.input, rows[1].back()).end},
                       "the first one")
              .help("each line has one number for each irreducible representation");
          break;
        }
      }
    }
  }
}

void check_hp_needs_mom(const Job& job, Report& report) {
  for (const Block* const scf : job.all("scf")) {
    const std::vector<Setting> pairs = pairs_of(*scf);
    if (!pairs.empty() && !scf->is("iaufbau", 2)) {
      report
          .add("Without 'iaufbau' 2 the excitation of '{}' may be undone.", {pairs.front().name()})
          .at_keyword(pairs.front(), "may fall back to the ground state")
          .related(scf->get("iaufbau"), "another way to occupy orbitals")
          .help("set 'iaufbau' to 2: the occupation then follows the orbitals (MOM)");
    }
  }
}

void check_mom_without_target(const Job& job, Report& report) {
  for (const Block* const scf : job.all("scf")) {
    const bool has_target = scf->has("ifpair") || scf->has("occupy") || scf->has("alpha") ||
                            scf->has("beta") || reads_orbitals(*scf);
    if (scf->is("iaufbau", 2) && !has_target && !scf->is_elided && job.is_complete()) {
      report.add("'iaufbau' 2 follows the orbitals of a state, and none is given.")
          .at(scf->get("iaufbau"), "nothing to follow")
          .help(
              "give the state with 'ifpair' and 'hpalpha', with 'alpha' and 'beta', or read its "
              "orbitals");
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"guess.readmo_without_orbitals", check_readmo_without_orbitals},
    {"guess.readmo_other_molecule", check_readmo_other_molecule},
    {"guess.readmo_other_basis", check_readmo_other_basis},
    {"guess.readmo_other_group", check_readmo_other_group},
    {"guess.mixorb_without_readmo", check_mixorb_without_readmo},
    {"guess.mixorb_spin", check_mixorb_spin},
    {"guess.hp_line_count", check_hp_line_count},
    {"guess.hp_line_length", check_hp_line_length},
    {"guess.hp_needs_mom", check_hp_needs_mom},
    {"guess.mom_without_target", check_mom_without_target},
});

}  // namespace

std::span<const Rule> guess_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
