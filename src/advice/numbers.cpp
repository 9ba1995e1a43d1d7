// Numbers that no calculation has: what an entry means bounds them, though the manual says no word
// of it. The vocabulary has the bounds that the manual states.

#include <array>

#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

/// The numbers that an entry can have.
struct Sense {
  std::string_view module;
  std::string_view entry;
  double least;
  bool has_least;  ///< the least number itself is one
  double most;
  std::string_view meaning;
};

constexpr double any = 1e300;

constexpr auto senses = std::to_array<Sense>({
    {"scf", "maxiter", 0, true, any, "a number of iterations"},
    {"scf", "threne", 0, false, 1, "a threshold, in hartree"},
    {"scf", "thrden", 0, false, 1, "a threshold"},
    {"scf", "dielectric", 1, true, any, "1 for a vacuum, more for any solvent"},
    {"scf", "opticaldielectric", 1, true, any, "1 for a vacuum, more for any solvent"},
    {"scf", "vdwscale", 0, false, 10, "a factor near 1"},
    {"scf", "facex", 0, true, 1, "a share, from 0 to 1"},
    {"scf", "facco", 0, true, 1, "a share, from 0 to 1"},
    {"tddft", "memjkop", 0, false, any, "an amount of memory"},
    {"tddft", "nroot", 0, true, any, "numbers of states"},
    {"tddft", "istore", 0, true, any, "the number of a file"},
    {"tddft", "crit_e", 0, false, 1, "a threshold, in hartree"},
    {"tddft", "crit_vec", 0, false, 1, "a threshold"},
    {"bdfopt", "maxcycle", 0, true, any, "a number of steps"},
    {"bdfopt", "tolgrad", 0, false, 1, "a threshold"},
    {"bdfopt", "tolene", 0, false, 1, "a threshold, in hartree"},
    {"bdfopt", "tolstep", 0, false, 1, "a threshold, in bohr"},
    {"bdfopt", "scale", 0, false, 2, "a factor near 1"},
    {"bdfopt", "press", 0, false, 10000, "a pressure in atmospheres"},
    {"mcscf", "symmetry", 1, true, any, "the number of an irreducible representation"},
    {"mcscf", "spin", 1, true, any, "a multiplicity"},
});

bool makes_sense(const Sense& sense, double number) {
  return (sense.has_least ? number >= sense.least : number > sense.least) && number <= sense.most;
}

void check_out_of_sense(const Job& job, Report& report) {
  for (const Block& block : job.blocks) {
    for (const Sense& sense : senses) {
      if (block.name != sense.module || !block.has(sense.entry)) {
        continue;
      }
      const Setting setting = block.get(sense.entry);
      for (const Word word : setting.words()) {
        const auto number = core::number::parse_float(word);
        if (number && !makes_sense(sense, *number)) {
          report.add("'{}' cannot be {}.", {setting.name(), word})
              .at(word, std::string(sense.meaning))
              .related(setting.keyword(), "the keyword");
          break;
        }
      }
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"numbers.out_of_sense", check_out_of_sense},
});

}  // namespace

std::span<const Rule> number_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
