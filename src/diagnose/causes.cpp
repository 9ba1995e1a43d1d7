// Advice says what an input lacks. It may be there, misspelt: then the misspelt word is what there
// is to tell. What a rule says to be missing is looked up by its code; what it offers to add speaks
// for itself.

#include "diagnose/causes.hpp"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "kelp/core/spelling.hpp"
#include "kelp/core/text.hpp"

namespace kelp::input::bdf {
namespace {

// Rules about something that the block lacks which they are about.
constexpr std::array lacks_of_block = {
    "basis.basis_missing",
    "basis.basis_missing_for_element",
    "basis.genbas_without_basis",
    "basis.label_basis_missing",
    "electrons.ks_without_functional",
    "electrons.method_missing",
    "functional.iviop_needs_blkiop7",
    "geometry.atoms_too_close",
    "geometry.geometry_missing",
    "geometry.restart_without_geometry",
    "geometry.unit_suspected",
    "guess.hp_needs_mom",
    "guess.mixorb_without_readmo",
    "guess.mom_without_target",
    "optimisation.ci_needs_nac",
    "optimisation.constrain_needs_solver1",
    "optimisation.dimer_neb_iopt",
    "optimisation.geometry2_without_neb",
    "optimisation.ndeg_missing",
    "optimisation.neb_needs_geometry2",
    "optimisation.noncouple_needs_imulti2",
    "optimisation.scan_needs_solver1",
    "optimisation.ts_without_hessian",
    "resp.double_needs_pairs",
    "resp.fnac_needs_single_or_double",
    "resp.single_needs_states",
    "sequence.nmr_cgunit_without_cgcoord",
    "sequence.nmr_gauge_without_icg",
    "sequence.nmr_nothing_requested",
    "soc.keyword_without_isoc",
    "solvent.nonels_incomplete",
    "solvent.optical_dielectric_missing",
    "solvent.smd_parameter_without_smd",
    "solvent.solvent_option_without_solvent",
    "solvent.solvent_user_needs_dielectric",
    "tddft.cubexyz_without_cube",
    "tddft.iact_needs_window",
    "tddft.itest_without_icorrect",
    "tddft.nto_needs_istore1",
    "tddft.window_without_iact",
};

// Rules about something that no module, or nothing between modules, is.
constexpr std::array lacks_of_input = {
    "functional.double_hybrid_needs_mp2",
    "optimisation.bdfopt_needs_gradient",
    "optimisation.irc_needs_gradient",
    "resp.excited_without_tddft",
    "resp.needs_scf",
    "sequence.compass_missing",
    "sequence.database_without_nfragment",
    "sequence.elecoup_needs_database",
    "sequence.nfragment_without_database",
    "sequence.scf_needs_xuanyuan",
    "sequence.xuanyuan_needs_compass",
    "tddft.needs_scf",
};

// Rules that miss a word, which may stand where it does not belong.
struct MissedWord {
  std::string_view code;
  std::string_view word;
};

constexpr std::array<MissedWord, 9> missed_words = {{
    {"basis.basis_missing", "basis"},
    {"electrons.ks_without_functional", "dft"},
    {"electrons.method_missing", "rhf"},
    {"electrons.method_missing", "uhf"},
    {"electrons.method_missing", "rohf"},
    {"electrons.method_missing", "rks"},
    {"electrons.method_missing", "uks"},
    {"electrons.method_missing", "roks"},
    {"geometry.geometry_missing", "geometry"},
}};

template <typename Codes>
bool holds(const Codes& codes, std::string_view code) {
  return std::find(codes.begin(), codes.end(), code) != codes.end();
}

bool is_insertion(const TextEdit& edit) {
  return edit.range.empty() && !edit.text.empty();
}

}  // namespace

void Causes::note(const Diagnostic& diagnostic) {
  const std::string_view code = diagnostic.code;
  const bool is_entry = code == "bdf.unknown_entry" || code == "bdf.unknown_nested_entry" ||
                        code == "names.word_behind_flag";
  const bool is_in_header = code == "header.unknown_keyword" || code == "header.unknown_method";
  if (is_entry || code == "bdf.missing_entry_value") {
    blocks_.insert(diagnostic.record.index);
  }
  in_header_ = in_header_ || is_in_header;
  between_modules_ = between_modules_ || code == "bdf.unknown_module" ||
                     code == "frame.stray_line" || code == "frame.stray_end";
  if (code == "bdf.invalid_module_value") {
    invalid_.insert(diagnostic.path);
  }
  is_unfinished_ = is_unfinished_ || code == "bdf.unterminated_module";
  if (diagnostic.range && (is_entry || is_in_header)) {
    words_.insert(core::text::to_lower(input_.source().text_of(*diagnostic.range)));
  }
}

bool Causes::are_none() const {
  return blocks_.empty() && !in_header_ && !between_modules_ && !is_unfinished_;
}

bool Causes::have_word_near(std::string_view name) const {
  return std::any_of(words_.begin(), words_.end(), [name](const std::string& word) {
    return core::spelling::slips_if_near(word, name).has_value();
  });
}

// An entry stands in front of the line where its block ends.
bool Causes::explain_addition(const TextEdit& edit) const {
  if (!is_insertion(edit)) {
    return false;
  }
  std::string_view rest = edit.text;
  const std::string_view name = core::text::take_word(rest);
  if (name.starts_with('$')) {
    return between_modules_;
  }
  const RecordId record = input_.line(input_.source().line_at(edit.range.begin)).record;
  const bool is_in_module = module_of(input_.data(), record) != nullptr;
  return have_word_near(name) || (is_in_module && blocks_.count(record.index) > 0);
}

void Causes::note_list(const Diagnostic& advice) {
  if (advice.code == "symmetry.irrep_count") {
    lists_.insert(advice.record.index);
  }
}

bool Causes::explain(const Diagnostic& advice) const {
  // The occupations are lists of one number for each irreducible representation.
  if (advice.code.starts_with("electrons.occupation_") && lists_.count(advice.record.index) > 0) {
    return true;
  }
  if (are_none()) {
    return false;
  }
  const bool is_in_module = module_of(input_.data(), advice.record) != nullptr;
  const bool is_unknown_there = is_in_module ? blocks_.count(advice.record.index) > 0 : in_header_;
  if ((is_unknown_there && holds(lacks_of_block, advice.code)) ||
      (between_modules_ && holds(lacks_of_input, advice.code))) {
    return true;
  }
  if (std::any_of(missed_words.begin(), missed_words.end(), [&](const MissedWord& missed) {
        return missed.code == advice.code && words_.count(std::string(missed.word)) > 0;
      })) {
    return true;
  }
  if (advice.code.starts_with("electrons.") &&
      (have_word_near("charge") || have_word_near("spinmulti"))) {
    return true;
  }
  return std::any_of(advice.fixes.begin(), advice.fixes.end(), [this](const Fix& fix) {
    return std::any_of(fix.edits.begin(), fix.edits.end(),
                       [this](const TextEdit& edit) { return explain_addition(edit); });
  });
}

Diagnostic Causes::settled(Diagnostic advice) const {
  for (Fix& fix : advice.fixes) {
    const bool adds = std::any_of(fix.edits.begin(), fix.edits.end(), is_insertion);
    fix.is_safe =
        fix.is_safe && !is_unfinished_ && invalid_.count(advice.path) == 0 && (!adds || are_none());
  }
  return advice;
}

}  // namespace kelp::input::bdf
