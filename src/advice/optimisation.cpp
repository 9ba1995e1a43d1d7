// What `$bdfopt` and `$irc` are asked for: they run the other modules themselves, step by step, and
// need a gradient of the right states. Where a module is missing or a state is not chosen, nothing,
// or something else, is optimised.

#include <algorithm>
#include <array>
#include <numeric>

#include "advice/report.hpp"
#include "advice/themes.hpp"

namespace kelp::input::bdf {
namespace {

bool any_of(const std::vector<const Block*>& blocks, bool (*is_so)(const Block&)) {
  return std::any_of(blocks.begin(), blocks.end(), [&](const Block* it) { return is_so(*it); });
}

// A page may show the driving module with the molecule alone; an SCF has its gradient with it.
bool is_to_the_end(const Job& job) {
  return job.lists_all_modules() && job.has("scf");
}

bool may_have_geom(const Block& resp) {
  return resp.has("geom") || !resp.is_whole();
}

bool has_gradient(const Job& job) {
  return any_of(job.all("resp"), may_have_geom) || job.has("grad") || job.has("numgrad");
}

// The kind of a search for several states, in lower case; empty for one of a single state.
std::string multistate_of(const Block& block) {
  const std::vector<Word> words = block.get("multistate").words();
  const std::string text = block.get("multistate").text();
  const std::string kind = words.empty() ? "" : text.substr(0, words.front().size());
  return kind == "none" ? "" : kind;
}

bool has_imulti(const Block& block) {
  return block.is("imulti", 1) || block.is("imulti", 2);
}

bool has_several_states(const Block& block) {
  const std::string kind = multistate_of(block);
  return has_imulti(block) || kind == "mecp" || kind.starts_with("ci") || kind.ends_with("soc");
}

void offer_gradient(const Job& job, const Block& driver, Finding& finding) {
  const std::vector<const Block*> all = job.all("resp");
  const System& system = job.system_of(driver);
  const TextEdit edit = all.empty() ? block_added(job, *system.blocks.back(), "resp", {"geom"})
                                    : entry_added(job, *all.back(), "geom");
  const std::string title = all.empty() ? "add $resp with 'geom'" : "add 'geom' to $resp";
  if (job.has("tddft")) {
    finding.ask(title, edit);
  } else {
    finding.fix(title, edit);
  }
}

void check_bdfopt_needs_gradient(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    if (is_to_the_end(job) && !has_gradient(job) && !has_several_states(*block)) {
      Finding& finding = report.add("$bdfopt needs a gradient, and no module computes one.")
                             .at(*block, "runs a module that is not there")
                             .help("end the input with $resp and 'geom' in it");
      offer_gradient(job, *block, finding);
    }
  }
}

bool may_use_excited_states(const Block& resp) {
  return resp.is("imethod", 2) || resp.has("fnac") || !resp.is_whole();
}

// Two entries that make the gradient one of excited states.
TextEdit excited_gradient(const Job& job, const Block& resp, const Block& tddft) {
  const auto stored = tddft.get("istore").integer();
  TextEdit edit = entry_added(job, resp, "imethod", "2");
  edit.text += entry_added(job, resp, "nfiles", text_of(stored.value_or(1))).text;
  return edit;
}

void check_opt_tddft_unused(const Job& job, Report& report) {
  const std::vector<const Block*> drivers = job.all("bdfopt");
  const std::vector<const Block*> tddft = job.all("tddft");
  const std::vector<const Block*> all = job.all("resp");
  if (drivers.empty() || tddft.empty() || all.empty() || !job.lists_all_modules() ||
      any_of(all, may_use_excited_states)) {
    return;
  }
  const Block& resp = *all.back();
  Finding& finding =
      report.add("The ground state is optimised: $resp does not use the states of $tddft.")
          .at(resp, "the gradient of the ground state")
          .related(*tddft.front(), "excited states")
          .help("for the gradient of an excited state set 'imethod' to 2 and 'nfiles'");
  if (const Setting method = resp.get("imethod")) {
    finding.ask("use the excited states", value_replaced(method, "2"));
  } else if (!resp.has("nfiles")) {
    finding.ask("use the excited states", excited_gradient(job, resp, *tddft.front()));
  }
}

// How many states a `$tddft` computes, at least; 1 when that is not certain.
std::int64_t states_of(const Block& tddft) {
  static constexpr std::int64_t most = 1'000'000;
  constexpr std::int64_t usual = 10;
  if (!tddft.is_whole() || tddft.has("iwindow")) {
    return 1;
  }
  if (const Setting list = tddft.get("nroot")) {
    const auto numbers = list.integers().value_or(std::vector<std::int64_t>());
    return std::accumulate(numbers.begin(), numbers.end(), std::int64_t{0},
                           [](std::int64_t sum, std::int64_t number) {
                             return sum + std::clamp<std::int64_t>(number, 0, most);
                           });
  }
  return tddft.has("iroot") ? tddft.get("iroot").integer().value_or(1) : usual;
}

bool chooses_state(const Block& resp) {
  return resp.has("iroot") || resp.has("irep") || resp.has("fnac") || !resp.is_whole();
}

void check_opt_state_not_chosen(const Job& job, Report& report) {
  for (const Block* const resp : job.all("resp")) {
    const auto wanted = resp->get("nfiles").integer();
    if (!job.is_driven() || !job.is_complete() || !resp->is("imethod", 2) || !wanted ||
        chooses_state(*resp)) {
      continue;
    }
    for (const Block* const tddft : job.all("tddft")) {
      if (tddft->is("istore", *wanted) && states_of(*tddft) > 1) {
        report.add("$resp computes the gradient of every state: none is chosen to be optimised.")
            .at(*resp, "of which state?")
            .related(*tddft, "has several states")
            .help("choose one with 'iroot', and with 'irep' where there is symmetry")
            .ask("choose the first state", entry_added(job, *resp, "iroot", "1"));
        break;
      }
    }
  }
}

void check_multistate_needs_two_gradients(const Job& job, Report& report) {
  const std::size_t gradients = job.all("resp").size() + job.all("grad").size();
  for (const Block* const block : job.all("bdfopt")) {
    if (has_several_states(*block) && gradients < 2 && is_to_the_end(job) && !job.has("numgrad")) {
      const Setting wanted = has_imulti(*block) ? block->get("imulti") : block->get("multistate");
      report
          .add("Two states are wanted, and there is a gradient of {}.",
               {gradients == 0 ? "none" : "one only"})
          .at(wanted, "two states")
          .help("have for each state a $scf (or $tddft) and a $resp with 'geom'");
    }
  }
}

void check_ci_needs_nac(const Job& job, Report& report) {
  const bool has_coupling =
      any_of(job.all("resp"), [](const Block& it) { return it.has("fnac") || !it.is_whole(); });
  for (const Block* const block : job.all("bdfopt")) {
    const bool is_projected = block->is("imulti", 2) && !block->has("noncoupl");
    const Setting wanted = is_projected ? block->get("imulti") : block->get("multistate");
    if ((is_projected || multistate_of(*block) == "ci-nac") && !has_coupling && block->is_whole() &&
        is_to_the_end(job)) {
      report.add("This search needs the coupling of the states, and no $resp computes it.")
          .at(wanted, "needs the coupling")
          .help("add a $resp with 'fnac', or search without the coupling");
    }
  }
}

void check_noncouple_needs_imulti2(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    const Setting setting = block->get("noncoupl");
    if (setting && !block->is("imulti", 2) && !block->has("multistate") && block->is_whole()) {
      report.add("'{}' is for 'imulti' 2.", {setting.name()})
          .at_keyword(setting, "has no effect")
          .related(block->get("imulti"), "another search")
          .help("set 'imulti' to 2, or leave it out");
    }
  }
}

void check_imulti_and_multistate(const Job& job, Report& report) {
  for (const Block* const block : job.all("bdfopt")) {
    const Setting first = block->get("imulti");
    const Setting second = block->get("multistate");
    if (has_imulti(*block) && !multistate_of(*block).empty()) {
      report
          .add("'{}' and '{}' are two ways of asking for several states.",
               {first.name(), second.name()})
          .at_keyword(first.keyword().begin < second.keyword().begin ? second : first,
                      "the second way")
          .related(first, "one way")
          .related(second, "another way")
          .help("leave one of them out");
    }
  }
}

void check_irc_first(const Job& job, Report& report) {
  const std::vector<const Block*> paths = job.all("irc");
  if (!paths.empty() && paths.front()->index > 0 && job.lists_all_modules()) {
    report.add("$irc leads the other modules, and must stand first.")
        .at(*paths.front(), "must be the first module")
        .related(job.blocks.front(), "stands before it")
        .fix_all("move it to the front",
                 moved_before(job, paths.front()->record(), job.blocks.front().record()));
  }
}

void check_irc_needs_gradient(const Job& job, Report& report) {
  const std::vector<const Block*> paths = job.all("irc");
  if (!paths.empty() && is_to_the_end(job) && !has_gradient(job)) {
    Finding& finding = report.add("$irc needs a gradient, and no module computes one.")
                           .at(*paths.front(), "runs a module that is not there")
                           .help("keep the $resp with 'geom' of the saddle point's input");
    offer_gradient(job, *paths.front(), finding);
  }
}

bool may_read_orbitals(const Block& scf) {
  return scf.get("guess").is("readmo") || scf.get("guess").is("read") || !scf.is_whole();
}

void check_irc_needs_readmo(const Job& job, Report& report) {
  const std::vector<const Block*> paths = job.all("irc");
  const std::vector<const Block*> all = job.all("scf");
  if (!paths.empty() && !all.empty() && job.lists_all_modules() &&
      !any_of(all, may_read_orbitals)) {
    const Setting guess = all.front()->get("guess");
    report.add("$irc begins at a saddle point, and the orbitals computed there are not read.")
        .at(*all.front(), "guesses its orbitals")
        .related(*paths.front(), "goes on from a saddle point")
        .help("it also needs the files .hess and .scforb of the saddle point, under its own name")
        .ask("read them", guess ? value_replaced(guess, "readmo")
                                : entry_added(job, *all.front(), "guess", "readmo"));
  }
}

void check_irc_with_bdfopt(const Job& job, Report& report) {
  const std::vector<const Block*> paths = job.all("irc");
  const std::vector<const Block*> drivers = job.all("bdfopt");
  if (!paths.empty() && !drivers.empty()) {
    const bool is_path_first = paths.front()->index < drivers.front()->index;
    report.add("$irc and $bdfopt both lead the other modules.")
        .at(is_path_first ? *drivers.front() : *paths.front(), "the second one")
        .related(is_path_first ? *paths.front() : *drivers.front(), "the first one")
        .help("optimise the saddle point in one input, and follow the path in another one");
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"optimisation.bdfopt_needs_gradient", check_bdfopt_needs_gradient},
    {"optimisation.opt_tddft_unused", check_opt_tddft_unused},
    {"optimisation.opt_state_not_chosen", check_opt_state_not_chosen},
    {"optimisation.multistate_needs_two_gradients", check_multistate_needs_two_gradients},
    {"optimisation.ci_needs_nac", check_ci_needs_nac},
    {"optimisation.noncouple_needs_imulti2", check_noncouple_needs_imulti2},
    {"optimisation.imulti_and_multistate", check_imulti_and_multistate},
    {"optimisation.irc_first", check_irc_first},
    {"optimisation.irc_needs_gradient", check_irc_needs_gradient},
    {"optimisation.irc_needs_readmo", check_irc_needs_readmo},
    {"optimisation.irc_with_bdfopt", check_irc_with_bdfopt},
});

}  // namespace

std::span<const Rule> optimisation_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
