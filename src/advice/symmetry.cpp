// Symmetry: how point groups are written, lists that have a number for each irreducible
// representation, and what needs an Abelian group. A group that is not named is found by the
// program; then nothing is said.

#include <algorithm>
#include <array>

#include "advice/excited_states.hpp"
#include "advice/point_group.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

// "D2h" as the program writes it, "D(2h)".
std::string with_parentheses(std::string_view name) {
  return std::string(name.substr(0, 1)) + "(" + std::string(name.substr(1)) + ")";
}

// The group as it is written.
Word written(const Job& job, const PointGroup& group) {
  return job.input.source().text_of(group.setting.range());
}

void check_without_parentheses(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const PointGroup group = point_group_of(job, system);
    if (group.form == GroupForm::WithoutParentheses) {
      const std::string right = with_parentheses(written(job, group));
      report.add("The group '{}' is written '{}'.", {written(job, group), right})
          .at(group.setting, "the index needs parentheses")
          .fix("write '" + right + "'", value_replaced(group.setting, right));
    }
  }
}

void check_complex(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const PointGroup group = point_group_of(job, system);
    if (group.form == GroupForm::Complex) {
      report
          .add("The group {} has complex representations, which are not supported.",
               {written(job, group)})
          .at(group.setting, "not supported")
          .help("name a subgroup of it with real ones, or none: one is then chosen");
    }
  }
}

void check_unknown(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const PointGroup group = point_group_of(job, system);
    if (group.form == GroupForm::Unknown && !is_elision(group.setting.text())) {
      report.add("'{}' is no point group.", {written(job, group)})
          .at(group.setting, "no point group")
          .help(
              "known are C(1), C(i), C(s), C(2), C(2h), D(2), D(2h), T(d), O, O(h), I, I(h), "
              "C(LIN), D(LIN), and with a number n: C(nv), D(n), D(nh), D(nd)");
    }
  }
}

std::vector<Word> generators_of(const Job& job, const PointGroup& group) {
  Word inside = written(job, group);
  const std::size_t open = inside.find('(');
  inside.remove_prefix(open == Word::npos ? inside.size() : open + 1);
  inside = inside.substr(0, inside.find(')'));
  std::vector<Word> generators;
  while (!inside.empty()) {
    const std::size_t comma = inside.find(',');
    if (const Word word = core::text::trim_view(inside.substr(0, comma)); !word.empty()) {
      generators.push_back(word);
    }
    inside.remove_prefix(comma == Word::npos ? inside.size() : comma + 1);
  }
  return generators;
}

void check_generator_invalid(const Job& job, Report& report) {
  constexpr std::array<std::string_view, 9> known = {"e",  "i",  "x",  "y",  "z",
                                                     "xy", "xz", "yz", "xyz"};
  for (const System& system : job.systems) {
    const PointGroup group = point_group_of(job, system);
    if (group.form != GroupForm::Generators) {
      continue;
    }
    for (const Word word : generators_of(job, group)) {
      const std::string name = core::text::to_lower(word);
      if (std::find(known.begin(), known.end(), name) == known.end()) {
        report.add("'{}' is no generator of a group.", {word})
            .at(word, "no generator")
            .help("generators are e, i, x, y, z, xy, xz, yz and xyz, with commas between them");
      }
    }
  }
}

void check_generators_with_skeleton(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    const PointGroup group = point_group_of(job, system);
    if (group.form == GroupForm::Generators && system.compass != nullptr &&
        system.compass->has("skeleton")) {
      report.add("Generators mean 'saorb', and 'skeleton' is the alternative to it.")
          .at_keyword(system.compass->get("skeleton"), "not with generators")
          .related(group.setting, "the generators")
          .help("take 'skeleton' away, or name the group");
    }
  }
}

void check_group_with_nosymm(const Job& job, Report& report) {
  for (const System& system : job.systems) {
    if (system.compass == nullptr || !system.compass->has("nosymm")) {
      continue;
    }
    const PointGroup group = point_group_of(job, system);
    const Setting nosymm = system.compass->get("nosymm");
    // Without symmetry there is but one.
    if (group.setting && group.name != "c(1)" && group.name != "gen()" && group.name != "gen(e)") {
      report.add("A point group is named, and '{}' does without symmetry.", {nosymm.name()})
          .at_keyword(nosymm, "no symmetry")
          .related(group.setting, "the point group")
          .ask("take '" + std::string(nosymm.name()) + "' away", removed(job, nosymm))
          .ask("take the point group away", removed(job, group.setting));
    }
  }
}

void check_skeleton_with_saorb(const Job& job, Report& report) {
  for (const Block* const compass : job.all("compass")) {
    if (compass->has("skeleton") && compass->has("saorb")) {
      report.add("'skeleton' and 'saorb' are alternatives.")
          .at_keyword(compass->get("saorb"), "an alternative to 'skeleton'")
          .related(compass->get("skeleton").keyword(), "the other one")
          .help("'skeleton' is for direct SCF and TDDFT, 'saorb' for wave functions beyond SCF");
    }
  }
}

// Calls `use` for each system with a group that is not Abelian.
template <typename Use>
void for_each_non_abelian(const Job& job, Use use) {
  for (const System& system : job.systems) {
    const PointGroup group = point_group_of(job, system);
    if (is_non_abelian(job, group)) {
      use(system, group);
    }
  }
}

Finding& add_non_abelian(const Job& job, Report& report, const PointGroup& group,
                         std::string_view what) {
  return report.add("{} needs an Abelian group, and {} is none.", {what, written(job, group)})
      .at(group.setting, "not Abelian")
      .help(
          "name D(2h) or a subgroup of it that the molecule has: D(2), C(2h), C(2v), C(2), C(s), "
          "C(i), C(1)")
      .ask("compute without symmetry, in C(1)", value_replaced(group.setting, "C(1)"));
}

void check_non_abelian_open_shell(const Job& job, Report& report) {
  constexpr std::string_view what = "TDDFT of an open shell";
  for_each_non_abelian(job, [&](const System& system, const PointGroup& group) {
    for (const Block* const block : system.blocks) {
      if (block->name == "tddft" && is_open(shell_of(job, *block))) {
        const Scf& scf = *job.scf_of(*block);
        add_non_abelian(job, report, group, what)
            .related(*block, "TDDFT")
            .related(scf.is_open_shell() ? scf.reference_word : scf.multiplicity.range(),
                     "an open shell");
      }
    }
    const Scf* const scf = job.scfs.empty() ? nullptr : &job.scfs.front();
    if (scf != nullptr && !job.has("tddft") && has_excited_method(job) &&
        is_open(shell_of(job, scf))) {
      add_non_abelian(job, report, group, what)
          .related(job.input.specification_ranges(job.specification().value_or(0)).method, "TDDFT")
          .related(scf->multiplicity, "an open shell");
    }
  });
}

void check_non_abelian_ivi(const Job& job, Report& report) {
  for_each_non_abelian(job, [&](const System& system, const PointGroup& group) {
    for (const Block* const block : system.blocks) {
      if (block->name == "tddft" && block->is("idiag", 3)) {
        add_non_abelian(job, report, group, "The iVI method")
            .related(block->get("idiag"), "the iVI method");
      }
    }
  });
}

void check_non_abelian_soc(const Job& job, Report& report) {
  constexpr std::string_view what = "Spin-orbit coupling of TDDFT";
  for_each_non_abelian(job, [&](const System& system, const PointGroup& group) {
    for (const Block* const block : system.blocks) {
      if (block->name == "tddft" && block->has("isoc")) {
        add_non_abelian(job, report, group, what).related(block->get("isoc"), "the coupling");
      }
    }
    if (job.method().ends_with("-soc")) {
      add_non_abelian(job, report, group, what)
          .related(job.input.specification_ranges(job.specification().value_or(0)).method,
                   "the coupling");
    } else if (const Setting soc = job.header("soc"); soc && !soc.is("false")) {
      add_non_abelian(job, report, group, what).related(soc, "the coupling");
    }
  });
}

void check_non_abelian_nto(const Job& job, Report& report) {
  for_each_non_abelian(job, [&](const System& system, const PointGroup& group) {
    for (const Block* const block : system.blocks) {
      const bool is_wanted = block->has("ntoanalyze") && !block->is("ntoanalyze", 0);
      if (block->name == "tddft" && is_wanted) {
        add_non_abelian(job, report, group, "The analysis by natural transition orbitals")
            .related(block->get("ntoanalyze").keyword(), "the analysis");
      }
    }
  });
}

constexpr auto rules = std::to_array<Rule>({
    {"symmetry.group_without_parentheses", check_without_parentheses},
    {"symmetry.group_complex_unsupported", check_complex},
    {"symmetry.group_unknown", check_unknown},
    {"symmetry.group_generator_invalid", check_generator_invalid},
    {"symmetry.generators_with_skeleton", check_generators_with_skeleton},
    {"symmetry.group_with_nosymm", check_group_with_nosymm},
    {"symmetry.skeleton_with_saorb", check_skeleton_with_saorb},
    {"symmetry.nonabelian_open_shell_tddft", check_non_abelian_open_shell},
    {"symmetry.nonabelian_ivi", check_non_abelian_ivi},
    {"symmetry.nonabelian_soc", check_non_abelian_soc},
    {"symmetry.nonabelian_nto", check_non_abelian_nto},
});

}  // namespace

std::span<const Rule> symmetry_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
