// Header and modules of one input: what both say, and what belongs to one of them. Newer releases
// want modules between `Module Setting` and `End Setting`, and what concerns the whole system in
// the header.

#include <algorithm>
#include <array>

#include "advice/excited_states.hpp"
#include "advice/report.hpp"
#include "advice/themes.hpp"
#include "kelp/core/text.hpp"
#include "model/molecule_names.hpp"

namespace kelp::input::bdf {
namespace {

constexpr std::array<std::string_view, 6> reference_names = {"rhf", "uhf", "rohf",
                                                             "rks", "uks", "roks"};

// The Kohn-Sham method that stands beside a Hartree-Fock one; the same for `hf`.
std::string_view kohn_sham_of(std::string_view method) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 4> pairs = {
      {{"hf", "ks"}, {"rhf", "rks"}, {"uhf", "uks"}, {"rohf", "roks"}}};
  for (const auto& [hartree_fock, kohn_sham] : pairs) {
    if (method == hartree_fock) {
      return kohn_sham;
    }
  }
  return {};
}

SpecificationRanges parts_of(const Job& job) {
  return job.specification() ? job.input.specification_ranges(job.specification().value_or(0))
                             : SpecificationRanges{};
}

void check_hf_in_header(const Job& job, Report& report) {
  const std::string_view better = kohn_sham_of(job.method());
  if (!better.empty() && !job.functional().empty()) {
    const SpecificationRanges parts = parts_of(job);
    report
        .add("'{}' does not use the functional '{}'.",
             {job.input.source().text_of(parts.method), job.functional()})
        .at(parts.functional, "not used")
        .related(parts.method, "Hartree-Fock")
        .ask("use " + std::string(better), {parts.method, std::string(better)})
        .ask("take the functional away", {{parts.functional.begin, parts.basis.begin}, {}});
  }
}

void check_hf_with_functional(const Job& job, Report& report) {
  check_hf_in_header(job, report);
  for (const Block* const scf : job.all(scf_module)) {
    for (const std::string_view name : {"rhf", "uhf", "rohf"}) {
      const bool is_kohn_sham = scf->has("rks") || scf->has("uks") || scf->has("roks");
      if (!scf->has(name) || !scf->has("dft") || is_kohn_sham) {
        continue;
      }
      const Setting method = scf->get(name);
      const Setting functional = scf->get("dft");
      const std::string better(kohn_sham_of(name));
      report.add("'{}' does not use the functional '{}'.", {method.name(), functional.text()})
          .at(functional, "not used")
          .related(method.keyword(), "Hartree-Fock")
          .ask("use " + better, keyword_replaced(method, better))
          .ask("take 'dft' away", removed(job, functional));
    }
  }
}

void check_functional_differs(const Job& job, Report& report) {
  const std::string in_header = job.functional();
  for (const Block* const scf : job.all(scf_module)) {
    const Setting setting = scf->get("dft");
    if (in_header.empty() || setting.text().empty()) {
      continue;
    }
    const std::string in_block = job.schema().canonical_functional(setting.text());
    if (!core::text::equals_ignoring_case(in_header, in_block)) {
      const SpecificationRanges parts = parts_of(job);
      const std::string written(job.input.source().text_of(parts.functional));
      report.add("The header names the functional '{}', $scf '{}'.", {written, setting.text()})
          .at(setting, "another functional")
          .related(parts.functional, "the header's")
          .ask("use the header's", value_replaced(setting, written));
    }
  }
}

void check_method_differs(const Job& job, Report& report) {
  const std::string in_header = job.method();
  const auto is_reference = [](std::string_view name) {
    return std::find(reference_names.begin(), reference_names.end(), name) != reference_names.end();
  };
  if (!is_reference(in_header)) {
    return;
  }
  for (const Block* const scf : job.all(scf_module)) {
    for (const std::string_view name : reference_names) {
      if (scf->has(name) && name != in_header) {
        const Setting setting = scf->get(name);
        const SpecificationRanges parts = parts_of(job);
        report
            .add("The header names the method '{}', $scf '{}'.",
                 {job.input.source().text_of(parts.method), setting.name()})
            .at_keyword(setting, "another method")
            .related(parts.method, "the header's")
            .ask("use the header's", keyword_replaced(setting, in_header));
      }
    }
  }
}

void check_set_twice(const Job& job, Report& report, const char* name, std::string_view what) {
  const Setting in_header = job.header(name);
  for (const Block* const scf : job.all(scf_module)) {
    const Setting setting = scf->get(name);
    // What is no integer is said by the vocabulary.
    if (!in_header.integer() || !setting.integer()) {
      continue;
    }
    const TextEdit edit = removed(job, setting);
    if (in_header.integer() == setting.integer()) {
      report.add("The header and $scf both state the {} {}.", {what, setting.text()})
          .at(setting, "stated twice")
          .related(in_header, "the header's")
          .fix("take the one of $scf away", edit);
    } else {
      report.add("The header states the {} {}, $scf {}.", {what, in_header.text(), setting.text()})
          .as(Severity::Error)
          .at(setting, "another one")
          .related(in_header, "the header's")
          .help("which of them counts depends on the release; state it in the header alone")
          .ask("take the one of $scf away", edit);
    }
  }
}

void check_charge_set_twice(const Job& job, Report& report) {
  check_set_twice(job, report, charge_name, "charge");
}

void check_spin_set_twice(const Job& job, Report& report) {
  check_set_twice(job, report, multiplicity_name, "multiplicity");
}

bool says(const Job& job, std::size_t statement, std::string_view first, std::string_view second) {
  if (job.data().statements[statement].kind != StatementKind::Raw) {
    return false;
  }
  std::string_view rest = job.data().statements[statement].lines.front();
  return core::text::equals_ignoring_case(core::text::take_word(rest), first) &&
         core::text::equals_ignoring_case(core::text::take_word(rest), second);
}

/// Which modules stand between `Module Setting` and `End Setting`.
struct Wrapper {
  TextRange begin;           ///< of the line; empty without a wrapper
  std::vector<bool> inside;  ///< by the index of a module
};

Wrapper wrapper_of(const Job& job) {
  Wrapper wrapper;
  wrapper.inside.resize(job.blocks.size());
  bool is_inside = false;
  for (std::size_t i = 0; i < job.data().statements.size(); ++i) {
    const Statement& statement = job.data().statements[i];
    if (says(job, i, "module", "setting")) {
      const std::size_t line = job.input.first_line(RecordId::of(RecordKind::Statement, i));
      wrapper.begin = job.input.source().content(line);
      is_inside = true;
    } else if (says(job, i, "end", "setting")) {
      is_inside = false;
    } else if (statement.kind == StatementKind::Module) {
      wrapper.inside[statement.module_index] = is_inside;
    }
  }
  return wrapper;
}

// A line behind those of the header.
TextEdit header_line_added(const Job& job, const std::string& text) {
  const SourceText& source = job.input.source();
  const std::size_t last = job.data().easy_tokens.size() - 1;
  const std::size_t line = source.line_at(job.input.token_ranges(last).whole.begin);
  const std::size_t end = source.full_line_range(line).end;
  return {{end, end}, text + std::string(source.line_end(line))};
}

void check_system_keyword(const Job& job, Report& report) {
  const Wrapper wrapper = wrapper_of(job);
  if (wrapper.begin.empty() || !job.specification()) {
    return;
  }
  for (const Block* const scf : job.all(scf_module)) {
    for (const char* const name : {charge_name, multiplicity_name, "solvent"}) {
      const Setting setting = scf->get(name);
      // What both state is another rule's.
      if (!wrapper.inside[scf->index] || !setting || job.header(name)) {
        continue;
      }
      Finding& finding = report.add("'{}' belongs into the header.", {setting.name()})
                             .at_keyword(setting, "not within 'Module Setting'")
                             .related(wrapper.begin, "settings of single modules")
                             .help("charge, multiplicity and solvent concern the whole system");
      const std::vector<Word> words = setting.words();
      const bool is_only_one = job.all(scf_module).size() == 1;
      if (words.size() == 1 && is_only_one) {
        const std::string line = std::string(setting.name()) + " " + std::string(words.front());
        finding.offer({"move it into the header",
                       {header_line_added(job, line), removed(job, setting)},
                       name != std::string_view("solvent")});
      }
    }
  }
}

void check_module_outside(const Job& job, Report& report) {
  const Wrapper wrapper = wrapper_of(job);
  if (wrapper.begin.empty()) {
    return;
  }
  for (const Block& block : job.blocks) {
    if (!wrapper.inside[block.index]) {
      report.add("${} stands outside 'Module Setting'.", {block.name})
          .at(block, "not between 'Module Setting' and 'End Setting'")
          .related(wrapper.begin, "the settings of modules")
          .help("put all modules between these two lines");
    }
  }
}

// Tells whether a keyword of the header asks for something: it is no flag that is off, nor all 0.
bool asks_for_something(const Setting& setting) {
  const std::vector<Word> words = setting.words();
  const bool is_off = !words.empty() && std::all_of(words.begin(), words.end(), [](Word word) {
    return word == "0" || core::text::equals_ignoring_case(word, "false");
  });
  return setting && !is_off;
}

void check_keyword_without_tddft(const Job& job, Report& report) {
  if (!job.specification() || has_excited_method(job) || job.has("tddft")) {
    return;
  }
  const SpecificationRanges parts = parts_of(job);
  for (const char* const name : {"spinflip", "spinadapt", "soc", "nac"}) {
    const Setting setting = job.header(name);
    if (!asks_for_something(setting)) {
      continue;
    }
    Finding& finding = report.add("'{}' has no effect without TDDFT.", {setting.name()})
                           .at_keyword(setting, "of excited states")
                           .related(job.input.token_ranges(job.specification().value_or(0)).whole,
                                    "computes the ground state")
                           .help("begin the method specification with a TDDFT or TDA method");
    if (!parts.functional.empty()) {
      const TextRange method = {parts.method.empty() ? parts.functional.begin : parts.method.begin,
                                parts.functional.begin};
      finding.ask("use the method tddft", {method, "tddft/"});
    }
  }
}

void check_module_without_method(const Job& job, Report& report) {
  const std::string method = job.method();
  if (method.empty() || has_excited_method(job) || !job.has("tddft")) {
    return;
  }
  const SpecificationRanges parts = parts_of(job);
  Finding& finding = report
                         .add("There is a $tddft, and the method '{}' computes the ground state.",
                              {job.input.source().text_of(parts.method)})
                         .at(parts.method, "no TDDFT")
                         .related(*job.all("tddft").front(), "settings of TDDFT")
                         .help("name a method of TDDFT or TDA in the header");
  if (!parts.functional.empty()) {
    finding.ask("use the method tddft", {parts.method, "tddft"});
  }
}

constexpr auto rules = std::to_array<Rule>({
    {"header.hf_with_functional", check_hf_with_functional},
    {"header.functional_header_vs_scf", check_functional_differs},
    {"header.method_header_vs_scf", check_method_differs},
    {"header.charge_set_twice", check_charge_set_twice},
    {"header.spin_set_twice", check_spin_set_twice},
    {"header.system_keyword_in_module_setting", check_system_keyword},
    {"header.module_outside_setting", check_module_outside},
    {"header.tddft_keyword_without_tddft", check_keyword_without_tddft},
    {"header.tddft_module_without_tddft_method", check_module_without_method},
});

}  // namespace

std::span<const Rule> mixed_input_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
