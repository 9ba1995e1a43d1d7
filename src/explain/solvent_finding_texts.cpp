#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto note = Severity::Note;
constexpr auto warning = Severity::Warning;
constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"solvent.solvent_unknown",
     "The name is not among the names of solvents that are known. The program may know "
     "more, so that it is a note where no known name is near.",
     "A slip, or a name of another program.",
     "Write a known name; or 'user' with a dielectric constant.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  watter\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\n$end\n",
     warning},
    {"solvent.solvent_user_needs_dielectric",
     "The solvent 'user' is described by its dielectric constant.", "The entry was forgotten.",
     "Add dielectric.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  user\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  user\ndielectric\n  36.6\n$end\n",
     error},
    {"solvent.solvent_option_without_solvent",
     "Options of the solvent model have no effect without the switch, solvent.",
     "The switch was forgotten or taken out.", "Add solvent with a name, or leave the options out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolmodel"
     "\n  cpcm\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\nsolmodel\n  cpcm\n$end\n",
     warning},
    {"solvent.dielectric_ignored", "A solvent that is named brings its dielectric constant.",
     "The number was kept when a name was written.",
     "Write 'user' for the solvent, or leave dielectric out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\ndielectric\n  78.4\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  user\ndielectric\n  78.4\n$end\n",
     note},
    {"solvent.optical_dielectric_missing",
     "In a solvent that does not have the time to turn, its electrons still follow: that "
     "needs the optical dielectric constant of a solvent of your own.",
     "The solvent was changed from a name to numbers.",
     "Add opticaldielectric to $scf, the square of the refractive index.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  user\ndielectric\n  10.\n$end\n$tddft\niroot\n  1\nsolneqlr\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  user\ndielectric\n  10.\nopticaldielectric\n  1.8\n$end\n$tddft\niroot\n  1\n"
     "solneqlr\n$end\n",
     warning},
    {"solvent.tddft_solvation_without_solvent",
     "Solvation of excited states needs the solvent of the SCF.", "solvent was forgotten in $scf.",
     "Add solvent to $scf.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\n$end\n"
     "$tddft\niroot\n  1\nsolneqlr\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\n$end\n$tddft\niroot\n  1\nsolneqlr\n$end\n",
     warning},
    {"solvent.solvation_kinds_conflict",
     "Excited states have one kind of solvation: linear response or state-specific, in "
     "equilibrium or not.",
     "One was added and the other was left.", "Leave one of them.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\n$end\n$tddft\niroot\n  1\nsolneqlr\nsoleqlr\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\n$end\n$tddft\niroot\n  1\nsolneqlr\n$end\n",
     warning},
    {"solvent.excited_opt_solvation_half",
     "An excited state that is optimised in a solvent needs soleqlr in $tddft and in "
     "$resp: else energy and gradient are those of different things.",
     "It was written in one of them only.", "Add it to the other one.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$bdfopt\nsolver\n  1\n$end\n$xuanyuan\n$end\n$scf"
     "\nrks\ndft\n  b3lyp\nsolvent\n  water\n$end\n$tddft\niroot\n  1\nistore\n  1\n"
     "soleqlr\n$end\n$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$bdfopt\nsolver\n  1\n$end\n$xuanyuan\n$end\n$scf"
     "\nrks\ndft\n  b3lyp\nsolvent\n  water\n$end\n$tddft\niroot\n  1\nistore\n  1\n"
     "soleqlr\n$end\n$resp\ngeom\nimethod\n  2\nnfiles\n  1\nsoleqlr\n$end\n",
     warning},
    {"solvent.emit_needs_equilibrium",
     "emit is the second step of an emission: the ground state in the solvent of an "
     "excited state, which a $resp before has computed.",
     "The first step was forgotten.",
     "Compute the excited state first: $tddft, and $resp with soleqss or soleqlr.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\nemit\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n$resp\nnfiles\n  1\nimethod"
     "\n  2\nsoleqss\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent\n  water\nemit\n$end\n",
     warning},
    {"solvent.smd_parameter_without_smd", "The entry is a parameter of the model SMD.",
     "solmodel was forgotten or changed.", "Set solmodel to smd, or leave the parameter out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\nhbondacidity\n  0.8\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\nsolmodel\n  smd\nhbondacidity\n  0.8\n$end\n",
     warning},
    {"solvent.cosmofactork_model", "cosmofactork is a parameter of the models COSMO and CPCM.",
     "solmodel was forgotten or changed.",
     "Set solmodel to cosmo or cpcm, or leave the parameter out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\ncosmofactork\n  0.5\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\nsolmodel\n  cosmo\ncosmofactork\n  0.5\n$end\n",
     warning},
    {"solvent.nonels_with_smd",
     "SMD has its own terms beside electrostatics and switches those of nonels off.",
     "The model was changed and the entry was left.", "Leave it out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\nsolmodel\n  smd\nnonels\n  dis rep cav\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\nnonels\n  dis rep cav\n$end\n",
     warning},
    {"solvent.nonels_incomplete",
     "The terms of nonels know the molecules of water; those of any other solvent must be "
     "described.",
     "The solvent was changed.",
     "Add solventrho; for cav solventradius, for dis and rep solventatoms.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  ethanol\nnonels\n  cav\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  ethanol\nnonels\n  cav\nsolventrho\n  0.0103\nsolventradius\n  2.18\n$end\n",
     error},
    {"solvent.cavity_grid_twice",
     "cavityngrid gives the points of the cavity as a number, cavityprecision as a word.",
     "One was added and the other was left.", "Leave one of them.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\ncavityngrid\n  590\ncavityprecision\n  fine\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\ncavityprecision\n  fine\n$end\n",
     note},
    {"solvent.radii_blank", "An item of radii is one word, atom=radius.",
     "Blanks were written as in other programs.", "Take the blanks away.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\nradii\n  H = 1.2 1= 1.5\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nsolvent"
     "\n  water\nradii\n  H=1.2 1=1.5\n$end\n",
     error},
    {"solvent.radii_line_too_long", "A line of radii has at most 128 characters.",
     "All atoms were written on one line.", "Repeat the keyword with the rest on a line below it.",
     "", "", error},
});

}  // namespace

std::span<const FindingText> solvent_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
