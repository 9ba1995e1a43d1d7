// Solvent models: the switch is `solvent` of $scf or of the header, and what it needs depends on
// the solvent, the model, and the kind of excited states. The names of solvents are an open list.

#include <algorithm>
#include <array>
#include <iterator>

#include "advice/report.hpp"
#include "advice/solvation.hpp"
#include "advice/themes.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf/names.hpp"

namespace kelp::input::bdf {
namespace {

constexpr auto smd_parameters = std::to_array<std::string_view>(
    {"refractiveindex", "hbondacidity", "hbondbasicity", "surfacetensionatinterface",
     "carbonaromaticity", "electronegativehalogenicity"});
constexpr auto options = std::to_array<std::string_view>({"solmodel",
                                                          "dielectric",
                                                          "opticaldielectric",
                                                          "cosmofactork",
                                                          "cavity",
                                                          "uatm",
                                                          "radiustype",
                                                          "vdwscale",
                                                          "radii",
                                                          "acidhradius",
                                                          "cavityngrid",
                                                          "cavityprecision",
                                                          "cosmosave",
                                                          "nonels",
                                                          "solventatoms",
                                                          "solventrho",
                                                          "solventradius",
                                                          "emit",
                                                          "solventatomicsasradii",
                                                          "radiiforcavenergy",
                                                          "acidhradiusforcavenergy"});
constexpr auto radius_lists =
    std::to_array<std::string_view>({"radii", "solventatomicsasradii", "radiiforcavenergy"});

bool is_water(const Setting& solvent) {
  return solvent.is("water") || solvent.is("h2o");
}

// Shows each $scf with its solvent, if it has one.
template <typename Look>
void for_each_solvated(const Job& job, Look look) {
  for (const Block* const scf : job.all("scf")) {
    if (const Setting solvent = solvent_of(job, scf)) {
      look(*scf, solvent);
    }
  }
}

// Whether a name is known; the header ends a name at its first blank.
bool is_known(const Job& job, const Setting& solvent) {
  const std::string name = solvent.text();
  const bool is_word = solvent.record().kind == RecordKind::EasyToken;
  const std::vector<std::string>& known = job.knowledge().solvents();
  return known.empty() || std::any_of(known.begin(), known.end(), [&](const std::string& it) {
           return core::text::equals_ignoring_case(it, name) ||
                  (is_word && it.starts_with(name + " "));
         });
}

std::string digits_of(std::string_view name) {
  std::string digits;
  std::copy_if(name.begin(), name.end(), std::back_inserter(digits),
               [](char byte) { return byte >= '0' && byte <= '9'; });
  return digits;
}

// Names that are a slip away. Another number is no slip: 2-hexanol is not 1-hexanol.
std::vector<std::string> likely_solvents(const Job& job, const std::string& name) {
  std::vector<std::string> likely = similar_names(name, job.knowledge().solvents());
  likely.erase(
      std::remove_if(likely.begin(), likely.end(),
                     [&](const std::string& it) { return digits_of(it) != digits_of(name); }),
      likely.end());
  return likely;
}

void look_at_name(const Job& job, Report& report, const Setting& solvent) {
  const std::string name = solvent.text();
  if (name.empty() || is_user(solvent) || is_elision(name) || is_known(job, solvent)) {
    return;
  }
  Finding& finding = report.add("No solvent '{}' is known.", {name});
  if (const auto likely = likely_solvents(job, name); !likely.empty()) {
    finding.at(solvent, "a slip?").suggest(likely);
  } else {
    finding.as(Severity::Note)
        .at(solvent, "not a name that is known")
        .help("the program may know more names; 'user' with a dielectric constant stands for any");
  }
}

void check_solvent_unknown(const Job& job, Report& report) {
  for (const Block* const scf : job.all("scf")) {
    look_at_name(job, report, scf->get("solvent"));
  }
  look_at_name(job, report, job.header("solvent"));
}

void check_solvent_user_needs_dielectric(const Job& job, Report& report) {
  for_each_solvated(job, [&](const Block& scf, const Setting& solvent) {
    if (is_user(solvent) && !scf.has("dielectric") && !scf.is_elided && !scf.has_unknown_words) {
      report.add("A solvent of your own needs its dielectric constant.")
          .at(solvent, "which dielectric constant?")
          .help("add an entry 'dielectric' with the number on the next line");
    }
  });
}

void check_solvent_option_without_solvent(const Job& job, Report& report) {
  for (const Block* const scf : job.all("scf")) {
    if (solvent_of(job, scf) || !job.is_complete() || scf->is_elided) {
      continue;
    }
    std::vector<Setting> found = present(*scf, options);
    for (const Setting& setting : present(*scf, smd_parameters)) {
      found.push_back(setting);
    }
    if (found.empty()) {
      continue;
    }
    Finding& finding =
        report.add("'{}' has no effect without 'solvent'.", {found.front().name()})
            .at_keyword(found.front(), "of a solvent that is not there")
            .help(
                "add 'solvent' with its name on the next line; without it the molecule is in "
                "vacuo");
    for (std::size_t i = 1; i < found.size(); ++i) {
      finding.related(found[i].keyword(), "likewise");
    }
  }
}

void check_dielectric_ignored(const Job& job, Report& report) {
  for_each_solvated(job, [&](const Block& scf, const Setting& solvent) {
    const Setting dielectric = scf.get("dielectric");
    if (dielectric && !is_user(solvent) && !solvent.text().empty()) {
      report
          .add("The dielectric constant is that of '{}', whatever 'dielectric' says.",
               {solvent.text()})
          .at_keyword(dielectric, "for the solvent 'user'")
          .related(solvent, "has its own")
          .help("write 'user' for the solvent, or leave dielectric out");
    }
  });
}

void check_smd_parameter_without_smd(const Job& job, Report& report) {
  for_each_solvated(job, [&](const Block& scf, const Setting&) {
    const std::vector<Setting> found = present(scf, smd_parameters);
    if (!found.empty() && !scf.get("solmodel").is("smd") && !scf.is_elided) {
      report
          .add("'{}' is a parameter of SMD, and the model is another one.", {found.front().name()})
          .at_keyword(found.front(), "for 'solmodel smd'")
          .related(scf.get("solmodel"), "the model")
          .help("set solmodel to smd, or leave the parameters of SMD out");
    }
  });
}

void check_cosmofactork_model(const Job& job, Report& report) {
  for_each_solvated(job, [&](const Block& scf, const Setting&) {
    const Setting factor = scf.get("cosmofactork");
    const Setting model = scf.get("solmodel");
    if (factor && !model.is("cosmo") && !model.is("cpcm") && !scf.is_elided) {
      report.add("'cosmofactork' is a parameter of COSMO and CPCM, and the model is another one.")
          .at_keyword(factor, "for 'solmodel cosmo'")
          .related(model, "the model")
          .help("set solmodel to cosmo or cpcm, or leave cosmofactork out");
    }
  });
}

void check_nonels_with_smd(const Job& job, Report& report) {
  for_each_solvated(job, [&](const Block& scf, const Setting&) {
    if (scf.has("nonels") && scf.get("solmodel").is("smd")) {
      report.add("SMD has its own terms and switches 'nonels' off.")
          .at_keyword(scf.get("nonels"), "not computed")
          .related(scf.get("solmodel"), "the model")
          .help("leave nonels out");
    }
  });
}

// What the terms of `nonels` need that a block does not have.
std::vector<std::string_view> missing_for_terms(const Block& scf) {
  std::vector<std::string_view> missing;
  const auto need = [&](std::string_view entry) {
    if (!scf.has(entry) && std::find(missing.begin(), missing.end(), entry) == missing.end()) {
      missing.push_back(entry);
    }
  };
  for (const Word term : scf.get("nonels").words()) {
    const bool is_cavity = core::text::equals_ignoring_case(term, "cav");
    need("solventrho");
    need(is_cavity ? "solventradius" : "solventatoms");
  }
  return missing;
}

void check_nonels_incomplete(const Job& job, Report& report) {
  for_each_solvated(job, [&](const Block& scf, const Setting& solvent) {
    if (!scf.has("nonels") || is_water(solvent) || scf.is_elided || scf.has_unknown_words ||
        scf.get("solmodel").is("smd")) {
      return;
    }
    if (const auto missing = missing_for_terms(scf); !missing.empty()) {
      const std::string names = core::text::join(missing, ", ");
      report.add("For a solvent other than water 'nonels' also needs {}.", {names})
          .at(scf.get("nonels"), "needs " + names)
          .related(solvent, "not water")
          .help(
              "cav needs solventrho and solventradius, dis and rep need solventrho and "
              "solventatoms");
    }
  });
}

void check_cavity_grid_twice(const Job& job, Report& report) {
  for (const Block* const scf : job.all("scf")) {
    if (scf->has("cavityngrid") && scf->has("cavityprecision")) {
      report.add("'cavityngrid' and 'cavityprecision' are two ways to say one thing.")
          .at_keyword(scf->get("cavityprecision"), "the second way")
          .related(scf->get("cavityngrid").keyword(), "the first way")
          .help("leave one of them");
    }
  }
}

// Shows each line of radii, `H=1.2 O=1.5`.
template <typename Look>
void for_each_radius_line(const Job& job, Look look) {
  for (const Block* const scf : job.all("scf")) {
    for (const std::string_view name : radius_lists) {
      for (const Setting& setting : scf->all(name)) {
        for (const TextRange& line : job.input.value_ranges(setting.record())) {
          look(setting, line);
        }
      }
    }
  }
}

// The text without the white space around each "=".
std::string without_blanks_at_equals(std::string_view text) {
  std::string joined;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '=') {
      joined.resize(core::text::trim_view(joined).size());
      joined += '=';
      while (i + 1 < text.size() && core::text::is_space(text[i + 1])) {
        ++i;
      }
    } else {
      joined += text[i];
    }
  }
  return joined;
}

void check_radii_blank(const Job& job, Report& report) {
  for_each_radius_line(job, [&](const Setting& setting, const TextRange& line) {
    const std::string right = without_blanks_at_equals(job.input.source().text_of(line));
    if (right != job.input.source().text_of(line)) {
      report.add("In '{}' no blank may stand beside '='.", {setting.name()})
          .at(line, "blanks beside '='")
          .help("write it as in '" + right + "'")
          .fix("take the blanks away", {line, right});
    }
  });
}

// The items of a line on as many lines as they need, with the keyword before each but the first.
std::string split_radii(const Job& job, const Setting& setting, std::string_view text,
                        std::size_t most) {
  const std::string end = job.input.source().line_end(1) == "\r\n" ? "\r\n" : "\n";
  std::string split;
  std::size_t length = 0;
  while (!core::text::trim_view(text).empty()) {
    const std::string_view item = core::text::take_word(text);
    if (length > 0 && length + 1 + item.size() > most) {
      split += end + std::string(setting.name()) + end + "  ";
      length = 0;
    }
    split += length > 0 ? " " : "";
    split += item;
    length += item.size() + 1;
  }
  return split;
}

void check_radii_line_too_long(const Job& job, Report& report) {
  constexpr std::size_t most = 128;
  for_each_radius_line(job, [&](const Setting& setting, const TextRange& line) {
    const std::string_view text = job.input.source().text_of(line);
    if (text.size() <= most) {
      return;
    }
    report
        .add("A line of '{}' has {} characters; 128 are read.",
             {setting.name(), std::to_string(text.size())})
        .at(line, "too long")
        .help("repeat '" + std::string(setting.name()) + "' with the rest on a line below it")
        .fix("split the line", {line, split_radii(job, setting, text, most)});
  });
}

constexpr auto rules = std::to_array<Rule>({
    {"solvent.solvent_unknown", check_solvent_unknown},
    {"solvent.solvent_user_needs_dielectric", check_solvent_user_needs_dielectric},
    {"solvent.solvent_option_without_solvent", check_solvent_option_without_solvent},
    {"solvent.dielectric_ignored", check_dielectric_ignored},
    {"solvent.smd_parameter_without_smd", check_smd_parameter_without_smd},
    {"solvent.cosmofactork_model", check_cosmofactork_model},
    {"solvent.nonels_with_smd", check_nonels_with_smd},
    {"solvent.nonels_incomplete", check_nonels_incomplete},
    {"solvent.cavity_grid_twice", check_cavity_grid_twice},
    {"solvent.radii_blank", check_radii_blank},
    {"solvent.radii_line_too_long", check_radii_line_too_long},
});

}  // namespace

std::span<const Rule> solvent_rules() {
  return rules;
}

}  // namespace kelp::input::bdf
