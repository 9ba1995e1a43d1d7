#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto note = Severity::Note;
constexpr auto warning = Severity::Warning;
constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"optimisation.coordinate_malformed",
     ""
     "A line of 'constrain' or 'scan' does not name one to four atoms; or has other than one value "
     "behind '=', or for a scan other than start, end and step.",
     "A number was left out, or a word stands in its place.",
     "Write the atoms, '=' and the values.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$bdfopt\nsolver\n  1\nconstrain\n  1\n  1 2 = long\n$end\n$xuanyuan\n$end\n$scf\nrhf"
     "\n$end\n$resp\ngeom\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$bdfopt\nsolver\n  1\nconstrain\n  1\n  1 2 = 1.2\n$end\n$xuanyuan\n$end\n$scf\nrhf\n"
     "$end\n$resp\ngeom\n$end\n",
     warning},
    {"optimisation.bdfopt_needs_gradient",
     "$bdfopt runs the other modules in each step, and one of them must compute the "
     "gradient: $resp with geom, or $grad.",
     "An input for an energy was made one for an optimisation.",
     "End the input with $resp and geom.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nsolver\n  1\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nsolver\n  1\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\ngeom\n$end\n",
     error},
    {"optimisation.opt_tddft_unused",
     "$resp computes the gradient of the ground state unless imethod is 2. $tddft is then "
     "computed in each step for nothing.",
     "imethod and nfiles were forgotten.",
     "Set imethod to 2 and nfiles to the number of istore in $tddft.", "", "", warning},
    {"optimisation.opt_state_not_chosen",
     "With imethod 2, $resp computes the gradient of every state of the set that nfiles "
     "names. One of them is to be optimised.",
     "iroot was forgotten in $resp.",
     "Choose the state with iroot, and with irep where there is symmetry.", "", "", warning},
    {"optimisation.multistate_needs_two_gradients",
     "Where two states cross, the gradient of both is needed: for each a $scf or $tddft "
     "and a $resp.",
     "The modules of the second state were forgotten.", "Have a $resp with geom for each state.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nsolver\n  1\nimulti\n  1\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\n"
     "geom\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nsolver\n  1\nimulti\n  1\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\n"
     "geom\n$end\n$scf\nrhf\n$end\n$resp\ngeom\n$end\n",
     error},
    {"optimisation.ci_needs_nac",
     "The search for a conical intersection by projection needs the coupling of the two "
     "states, which $resp computes with fnac.",
     "The $resp of the coupling was forgotten.",
     "Add a $resp with fnac; or search without it: noncoupl, imulti 1.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nsolver\n  1\nimulti\n  2\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\n"
     "geom\n$end\n$scf\nrhf\n$end\n$resp\ngeom\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nsolver\n  1\nimulti\n  2\nnoncoupl\n$end\n$xuanyuan\n$end\n$scf\nrhf\n"
     "$end\n$resp\ngeom\n$end\n$scf\nrhf\n$end\n$resp\ngeom\n$end\n",
     error},
    {"optimisation.noncouple_needs_imulti2",
     "noncoupl leaves the coupling out of the search that imulti 2 asks for, and of no "
     "other.",
     "imulti was forgotten.", "Set imulti to 2.", "$bdfopt\nnoncoupl\n$end\n",
     "$bdfopt\nimulti\n  2\nnoncoupl\n$end\n", warning},
    {"optimisation.imulti_and_multistate",
     "imulti and multistate both ask for a search with several states, each in its own "
     "way.",
     "An input was changed to the newer way, and the older one left in.", "Leave one of them out.",
     "$bdfopt\nimulti\n  1\nmultistate\n  MECP\n$end\n", "$bdfopt\nmultistate\n  MECP\n$end\n",
     warning},
    {"optimisation.ts_without_hessian",
     "A search for a saddle point (iopt 10) goes uphill along one vibration, which a "
     "guessed Hessian does not know.",
     "hess was left out, or computes the Hessian at the end only.",
     "Set hess to init+final, or read a Hessian with readhess.",
     "$bdfopt\nsolver\n  1\niopt\n  10\nhess\n  final\n$end\n",
     "$bdfopt\nsolver\n  1\niopt\n  10\nhess\n  init+final\n$end\n", warning},
    {"optimisation.numerical_hessian_with_irreps",
     "The Hessian of an excited state is computed by steps of each atom. Their structures "
     "have no symmetry, so that states can no longer be counted by representation.",
     "An input for energies was made one for a Hessian.",
     "Write nosymm in $compass, and one number of states.", "", "", warning},
    {"optimisation.ndeg_missing",
     "The entropy of the electrons follows from ndeg, how many states have the energy of "
     "this one. It is 1 unless it is given.",
     "An input for a closed shell was used for an open one.",
     "Set ndeg to the multiplicity, times the degeneracy in space.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nsolver\n  1\nhess\n  final\n$end\n$xuanyuan\n$end\n$scf\nuhf\nspinmulti\n"
     "  3\n$end\n$resp\ngeom\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nsolver\n  1\nhess\n  final\nndeg\n  3\n$end\n$xuanyuan\n$end\n$scf\nuhf\n"
     "spinmulti\n  3\n$end\n$resp\ngeom\n$end\n",
     note},
    {"optimisation.hess_option_without_effect",
     "Some entries say how a Hessian is computed, some how one that is computed in "
     "parallel is. Without it they do nothing.",
     "hess was taken away.", "Ask for a Hessian with hess, or leave the entry out.",
     "$bdfopt\nsolver\n  1\nparhess\n$end\n",
     "$bdfopt\nsolver\n  1\nhess\n  final\nparhess\n$end\n", note},
    {"optimisation.ntemp_before_temp",
     "temp has as many values as ntemp says, which must be known before; so must npress "
     "for press.",
     "The number was added later.", "Move it before the values.",
     "$bdfopt\nhess\n  only\ntemp\n  300. 400.\nntemp\n  2\n$end\n",
     "$bdfopt\nhess\n  only\nntemp\n  2\ntemp\n  300. 400.\n$end\n", warning},
    {"optimisation.temp_count",
     "temp has as many values as ntemp says, press as npress does; one unless it is said.",
     "ntemp was forgotten.", "Correct ntemp, or the values.",
     "$bdfopt\nhess\n  only\ntemp\n  300. 400.\n$end\n",
     "$bdfopt\nhess\n  only\nntemp\n  2\ntemp\n  300. 400.\n$end\n", warning},
    {"optimisation.irc_first",
     "$irc runs the other modules in each step, and is looked for in front of them.",
     "$bdfopt does stand behind $compass.", "Move $irc to the front.", "", "", error},
    {"optimisation.irc_needs_gradient",
     "$irc follows the gradient, which $resp with geom computes.",
     "An input for an energy was made one for a path.",
     "End the input with $resp and geom, as that of the saddle point does.", "", "", error},
    {"optimisation.irc_needs_readmo",
     "$irc goes on from a saddle point, and the orbitals found there lead to the same "
     "state again. It also reads the Hessian.",
     "guess was left out.",
     "Read them with guess readmo; have .hess and .scforb of the saddle point under the "
     "input's own name.",
     "", "", note},
    {"optimisation.irc_with_bdfopt",
     "$irc and $bdfopt both run the other modules, each in its own way.",
     "The input of the saddle point was extended.", "Use two inputs.", "", "", warning},
    {"optimisation.hess_file_missing",
     "readhess and $irc read a Hessian from a file with the name of the input.",
     "The file has the name of the earlier input.", "Copy it under the name of this one.", "", "",
     note},
    {"optimisation.neb_needs_geometry2",
     "A path is searched between two structures: that of $compass, and geometry2.",
     "The second structure was forgotten.", "Give it with geometry2.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nneb\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\ngeom\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nneb\ngeometry2\n  He 0. 0. 1.\nend geometry2\n$end\n$xuanyuan\n$end\n$scf\n"
     "rhf\n$end\n$resp\ngeom\n$end\n",
     error},
    {"optimisation.geometry2_atom_count",
     "geometry2 has all atoms, as many times as nframe says; once unless it is said.",
     "An atom or a structure was forgotten.", "Complete the rows, or correct nframe.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nneb\ngeometry2\n  He 0. 0. 1.\n  He 0. 0. 2.\nend geometry2\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\ngeom\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nneb\nnframe\n  2\ngeometry2\n  He 0. 0. 1.\n  He 0. 0. 2.\nend geometry2\n"
     "$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\ngeom\n$end\n",
     error},
    {"optimisation.geometry2_without_neb",
     "geometry2 is the other end of the path of neb, and read for nothing else.",
     "neb was taken away.", "Add neb, or leave geometry2 out.",
     "$bdfopt\ngeometry2\n  He 0. 0. 1.\nend geometry2\n$end\n",
     "$bdfopt\nneb\ngeometry2\n  He 0. 0. 1.\nend geometry2\n$end\n", warning},
    {"optimisation.nframe_before_geometry2",
     "nframe says how many structures geometry2 has, and must be known before.",
     "It was added later.", "Move it before geometry2.",
     "$bdfopt\nneb\ngeometry2\n  He 0. 0. 1.\nend geometry2\nnframe\n  1\n$end\n",
     "$bdfopt\nneb\nnframe\n  1\ngeometry2\n  He 0. 0. 1.\nend geometry2\n$end\n", error},
    {"optimisation.scan_row_count",
     "A scan begins with the number of coordinates, or with the numbers of coordinates and "
     "of points. The lines must be as many: one for each coordinate, then one for each "
     "point.",
     "A line was added.", "Correct the numbers, or the lines.",
     "$bdfopt\nsolver\n  1\nscan\n  2\n  1 2 = 1.0 2.0 0.1\n$end\n",
     "$bdfopt\nsolver\n  1\nscan\n  1\n  1 2 = 1.0 2.0 0.1\n$end\n", error},
    {"optimisation.scan_interval_sign",
     "A scan goes from its start to its end by steps, downwards by negative ones.",
     "Start and end were exchanged.", "Give the step the other sign.",
     "$bdfopt\nsolver\n  1\nscan\n  1\n  1 2 = 2.0 1.0 0.1\n$end\n",
     "$bdfopt\nsolver\n  1\nscan\n  1\n  1 2 = 2.0 1.0 -0.1\n$end\n", error},
    {"optimisation.constraint_repeated_atom", "A coordinate is between different atoms.",
     "A slip in a number.", "Correct it.", "$bdfopt\nsolver\n  1\nconstrain\n  1\n  1 2 2\n$end\n",
     "$bdfopt\nsolver\n  1\nconstrain\n  1\n  1 2 3\n$end\n", error},
    {"optimisation.dlfind_needs_norotate",
     "The optimiser of solver 0, and the searches dimer and neb, compare structures as "
     "they stand. $compass turns the molecule to its standard orientation unless it is "
     "told not to.",
     "norotate was forgotten.", "Write norotate in $compass; of two or three atoms, nosymm.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$bdfopt\n"
     "solver\n  0\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\ngeom\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nsolver\n  0\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\ngeom\n$end\n",
     warning},
    {"optimisation.dlfind_only", "dimer and neb are searches of the optimiser of solver 0.",
     "solver was kept from another input.", "Set solver to 0.",
     "$bdfopt\nsolver\n  1\ndimer\n$end\n", "$bdfopt\nsolver\n  0\ndimer\n$end\n", error},
    {"optimisation.dimer_neb_iopt",
     "dimer and neb move their structures as a search for a minimum does, with iopt 3, "
     "which is what it is without iopt.",
     "iopt 10 asks for a saddle point in another way.", "Leave iopt out.",
     "$bdfopt\ndimer\niopt\n  10\n$end\n", "$bdfopt\ndimer\n$end\n", error},
    {"optimisation.scan_needs_solver1", "The optimiser of solver 0 knows no scan.",
     "solver was kept from another input.", "Set solver to 1.",
     "$bdfopt\nsolver\n  0\nscan\n  1\n  1 2 = 1.0 2.0 0.1\n$end\n",
     "$bdfopt\nsolver\n  1\nscan\n  1\n  1 2 = 1.0 2.0 0.1\n$end\n", error},
    {"optimisation.constrain_needs_solver1",
     "The optimiser of solver 0, which is taken unless it is said, knows no such "
     "constraints.",
     "solver was forgotten.", "Set solver to 1.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\n  He 0 0 3\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nconstrain\n  1\n  1 2\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\n"
     "geom\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\n  He 0 0 3\nend geometry\nnosymm\n$end\n"
     "$bdfopt\nsolver\n  1\nconstrain\n  1\n  1 2\n$end\n$xuanyuan\n$end\n$scf\nrhf\n"
     "$end\n$resp\ngeom\n$end\n",
     warning},
    {"optimisation.frozen_code_solver1",
     "With solver 1 an atom is free (0) or frozen as a whole (-1). Other codes, which "
     "freeze single coordinates, are those of solver 0.",
     "solver was changed.", "Freeze the whole atom, or use solver 0.",
     "$bdfopt\nsolver\n  1\nfrozen\n  1\n  2 -4\n$end\n",
     "$bdfopt\nsolver\n  1\nfrozen\n  1\n  2 -1\n$end\n", error},
    {"optimisation.iopt_solver1",
     "The optimiser of solver 1 searches minima (iopt 3) and saddle points (10). The other "
     "kinds are those of solver 0.",
     "solver was changed.", "Correct iopt.", "$bdfopt\nsolver\n  1\niopt\n  9\n$end\n",
     "$bdfopt\nsolver\n  1\niopt\n  3\n$end\n", error},
    {"optimisation.trust_zero", "The trust radius is the longest step that is allowed.", "A slip.",
     "Give another one: 0.3 is usual.", "$bdfopt\nsolver\n  1\ntrust\n  0.\n$end\n",
     "$bdfopt\nsolver\n  1\ntrust\n  0.05\n$end\n", error},
});

}  // namespace

std::span<const FindingText> optimisation_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
