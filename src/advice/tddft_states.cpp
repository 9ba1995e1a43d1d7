// Which excited states are computed and analysed: how many, in which window, from which start; and
// whether those that are analysed have been stored.

#include <algorithm>
#include <array>
#include <limits>

#include "advice/excited_states.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/number.hpp"
#include "kelp/core/text.hpp"
#include "model/value_lines.hpp"

namespace kelp::input::bdf {
namespace {

// A number of states is said in the header or in a block.
std::vector<Setting> settings_of(const Job& job, const char* name) {
  std::vector<Setting> all;
  if (const Setting header = job.header(name)) {
    all.push_back(header);
  }
  for (const Block* const block : job.all("tddft")) {
    if (const Setting entry = block->get(name)) {
      all.push_back(entry);
    }
  }
  return all;
}

void report_both(const Job& job, const Setting& iroot, const Setting& nroot, Report& report) {
  report.add("'{}' is not read where '{}' is given.", {nroot.name(), iroot.name()})
      .at(nroot, "not read")
      .related(iroot, "counts instead")
      .ask("remove '" + std::string(nroot.name()) + "'", removed(job, nroot));
}

void check_iroot_and_nroot(const Job& job, Report& report) {
  if (const Setting nroot = job.header("nroot"); nroot && job.header("iroot")) {
    report_both(job, job.header("iroot"), nroot, report);
  }
  for (const Block* const block : job.all("tddft")) {
    // The interval solver takes one of them as a hint on memory.
    const bool is_hint = block->has("iwindow") && block->is("idiag", 3);
    if (block->has("iroot") && block->has("nroot") && !is_hint) {
      report_both(job, block->get("iroot"), block->get("nroot"), report);
    }
  }
}

void check_iroot_zero(const Job& job, Report& report) {
  for (const Setting& iroot : settings_of(job, "iroot")) {
    if (iroot.integer() == 0) {
      report.add("'{}' 0 asks for no state.", {iroot.name()})
          .at(iroot, "must not be 0")
          .help(
              "a positive number counts for each irreducible representation, a negative one for "
              "all together");
    }
  }
}

void check_nroot_all_zero(const Job& job, Report& report) {
  for (const Setting& nroot : settings_of(job, "nroot")) {
    const auto numbers = nroot.integers();
    if (numbers && !numbers->empty() && !has_nonzero(nroot)) {
      report.add("'{}' asks for no state in any irreducible representation.", {nroot.name()})
          .at(nroot, "all of them are 0");
    }
  }
}

void check_iwindow_with_idiag2(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    if (block->has("iwindow") && block->is("idiag", 2)) {
      report.add("'iwindow' cannot be used with the full diagonalisation, 'idiag' 2.")
          .at(block->get("idiag"), "diagonalises in full")
          .related(block->get("iwindow"), "the window")
          .ask("set idiag to 3", value_replaced(block->get("idiag"), "3"));
    }
  }
}

void check_iwindow_order(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    const std::vector<Word> words = block->get("iwindow").words();
    if (words.size() < 2) {
      continue;
    }
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    const double low = core::number::parse_float(words[0]).value_or(none);
    const double high = core::number::parse_float(words[1]).value_or(none);
    if (low >= high) {
      const TextRange range = {range_of(job.input, words[0]).begin,
                               range_of(job.input, words[1]).end};
      Finding& finding = report.add("The window from {} to {} is empty.", {words[0], words[1]})
                             .at(range, "the lower bound stands first");
      if (low > high) {
        finding.fix("swap the bounds",
                    {range, std::string(words[1]) + " " + std::string(words[0])});
      }
    }
  }
}

void check_iwindow_unit(const Job& job, Report& report) {
  static constexpr std::array<std::string_view, 4> units = {"au", "ev", "nm", "cm-1"};
  for (const Block* const block : job.all("tddft")) {
    const std::vector<Word> words = block->get("iwindow").words();
    if (words.size() == 3 &&
        std::find(units.begin(), units.end(), core::text::to_lower(words[2])) == units.end()) {
      report.add("'{}' is no unit of a window.", {words[2]})
          .at(words[2])
          .help("units are au, eV, nm and cm-1; without one it is eV")
          .ask("use eV", {range_of(job.input, words[2]), "eV"});
    }
  }
}

void check_iact_needs_window(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    if (!block->is("iact", 1) || is_open_to_additions(*block) ||
        (block->has("elw") && block->has("eup"))) {
      continue;
    }
    const std::string missing = block->has("elw")   ? "'eup'"
                                : block->has("eup") ? "'elw'"
                                                    : "'elw' and 'eup'";
    report.add("'iact' 1 needs {}, the bounds of the window in eV.", {missing})
        .at(block->get("iact"), "in which window?")
        .help("give both elw and eup");
  }
}

void check_window_without_iact(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    const Setting bound = block->has("elw") ? block->get("elw") : block->get("eup");
    if (bound && !block->is("iact", 1) && !is_open_to_additions(*block)) {
      report.add("'{}' has no effect without 'iact' 1.", {bound.name()})
          .at_keyword(bound, "no effect")
          .related(block->get("iact"), "is not 1")
          .ask("set iact to 1", entry_set(job, *block, "iact", "1"));
    }
  }
}

// What a block analyses or draws of stored states; none when it does neither.
Setting analysis_of(const Block& block) {
  if (has_nonzero(block.get("ntoanalyze"))) {
    return block.get("ntoanalyze");
  }
  return block.has("trddens") ? block.get("trddens") : block.get("denscube");
}

void check_nto_needs_istore1(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    const Setting analysis = analysis_of(*block);
    const StoredStates stored = stored_before(job, *block);
    const bool is_certain = stored.is_certain && !is_open_to_additions(*block) && job.is_complete();
    if (!analysis || !is_certain || stored.find(1) != nullptr || block->is("istore", 1)) {
      continue;
    }
    const std::vector<const Block*> earlier = excitations_before(job, *block);
    const Block& computes = earlier.empty() ? *block : *earlier.back();
    report
        .add("'{}' reads the states of file 1, and no $tddft stores any there.", {analysis.name()})
        .at_keyword(analysis, "needs istore 1")
        .related(computes.get("istore"), "another file")
        .ask("store the states as 1", entry_set(job, computes, "istore", "1"));
  }
}

// Whether words stand behind a keyword whose value is on the lines below: what the program makes of
// the two is not known.
bool is_in_two_parts(const Job& job, const Setting& setting) {
  const std::size_t line = job.input.first_line(setting.record());
  const std::size_t end = job.input.source().line_range(line).end;
  const TextRange behind = {setting.keyword().end, end};
  return setting.range().begin > end &&
         !clean_value_line(job.input.source().text_of(behind)).empty();
}

void check_nto_count(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    const auto numbers = block->get("ntoanalyze").integers();
    if (!numbers || numbers->empty() || block->is_elided ||
        *numbers == std::vector<std::int64_t>{0} ||
        is_in_two_parts(job, block->get("ntoanalyze"))) {
      continue;
    }
    const auto listed = static_cast<std::int64_t>(numbers->size()) - 1;
    if (numbers->front() != listed) {
      const Word count = block->get("ntoanalyze").words().front();
      Finding& finding = report
                             .add("'ntoanalyze' announces {} states and lists {}.",
                                  {text_of(numbers->front()), text_of(listed)})
                             .at(count, text_of(listed) + " follow")
                             .help("the first line is how many states, the next one their numbers");
      if (listed > 0) {
        finding.ask("set the count to " + text_of(listed),
                    {range_of(job.input, count), text_of(listed)});
      }
    }
  }
}

void check_cubexyz_without_cube(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    if (block->has("cubexyz") && !block->has("trddens") && !block->has("denscube") &&
        !is_open_to_additions(*block)) {
      report.add("'cubexyz' has no effect without 'trddens' or 'denscube'.")
          .at_keyword(block->get("cubexyz"), "no effect")
          .help("these two write cubes: transition densities and densities");
    }
  }
}

bool reads_vectors(const Block& block) {
  return block.is("iguess", 10) || block.is("iguess", 11);
}

// Whether vectors can be there: files beside the input, a command that may bring them, or a block
// before that keeps its own.
bool may_have_vectors(const Job& job, const Block& block) {
  const auto has = [&](const std::string& ending) {
    return job.folder->has_file(job.folder->job_name + ending);
  };
  bool may_have = has(".tdx") || has(".dvdsonvec") || !job.shell_lines.empty();
  for (int number = 0; number < 10 && !may_have; ++number) {
    may_have = has(".dvdsonvec" + std::to_string(number)) || has(".tdx" + std::to_string(number));
  }
  for (const Block* const other : job.all("tddft")) {
    const bool keeps = other->is("iguess", 1) || other->is("iguess", 11) || other->is("iguess", 21);
    may_have = may_have || (other->index < block.index && keeps);
  }
  return may_have;
}

void check_read_without_write(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    if (reads_vectors(*block) && job.is_complete() && job.folder != nullptr &&
        !may_have_vectors(job, *block)) {
      report
          .add("'iguess' {} reads vectors of an earlier run, and there are none.",
               {text_of(*block->get("iguess").integer())})
          .at(block->get("iguess"), "reads vectors")
          .help("run with iguess 1, 11 or 21 first, which keep them");
    }
  }
}

void check_restart_idiag2(const Job& job, Report& report) {
  for (const Block* const block : job.all("tddft")) {
    if (reads_vectors(*block) && block->is("idiag", 2)) {
      report.add("The full diagonalisation, 'idiag' 2, cannot start from the vectors of a file.")
          .at(block->get("iguess"), "reads vectors")
          .related(block->get("idiag"), "diagonalises in full")
          .help("use idiag 1, or 3 without symmetry; or leave iguess out");
    }
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"tddft.iroot_and_nroot", check_iroot_and_nroot},
    {"tddft.iroot_zero", check_iroot_zero},
    {"tddft.nroot_all_zero", check_nroot_all_zero},
    {"tddft.iwindow_with_idiag2", check_iwindow_with_idiag2},
    {"tddft.iwindow_order", check_iwindow_order},
    {"tddft.iwindow_unit", check_iwindow_unit},
    {"tddft.iact_needs_window", check_iact_needs_window},
    {"tddft.window_without_iact", check_window_without_iact},
    {"tddft.nto_needs_istore1", check_nto_needs_istore1},
    {"tddft.nto_count", check_nto_count},
    {"tddft.cubexyz_without_cube", check_cubexyz_without_cube},
    {"tddft.read_without_write", check_read_without_write},
    {"tddft.restart_idiag2", check_restart_idiag2},
});

}  // namespace

std::span<const Rule> tddft_states_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
