#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto warning = Severity::Warning;
constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"resp.needs_scf",
     "$resp, $grad, $nmr, $mp2, $elecoup and $localmo work with the orbitals of an SCF, which must "
     "have run before.",
     "$scf was forgotten, or stands behind the module.", "Let $scf stand before the module.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n$xuanyuan\n$end\n"
     "$resp\nnorder\n  0\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n$xuanyuan\n$end\n"
     "$scf\nrhf\n$end\n$resp\nnorder\n  0\n$end\n",
     error},
    {"resp.excited_without_tddft",
     "With imethod 2, or for couplings, $resp works with excited states that a $tddft before it "
     "has "
     "computed and stored.",
     "$tddft was forgotten, stands behind $resp, or belongs to another molecule.",
     "Let a $tddft with istore stand before $resp.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n"
     "$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end\n",
     error},
    {"resp.nfiles_istore",
     "nfiles of $resp names the $tddft whose states are meant, by the number that it gives with "
     "istore. It counts neither blocks nor states.",
     "The number of the block was given, or istore was forgotten or changed.",
     "Give the istore of the $tddft.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n"
     "$resp\ngeom\nimethod\n  2\nnfiles\n  2\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n"
     "$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end\n",
     error},
    {"resp.nfiles_missing",
     "With imethod 2, $resp has to know which stored states are meant: nfiles is the istore of "
     "their "
     "$tddft.",
     "nfiles was forgotten.", "Add nfiles.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n"
     "$resp\ngeom\nimethod\n  2\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n"
     "$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end\n",
     warning},
    {"resp.root_range",
     "The state is beyond those that the $tddft computes. Looked at only where their number is "
     "certain: with a negative iroot of $tddft, or without symmetry.",
     "iroot of $tddft was made smaller, or that of $resp larger.",
     "Compute more states, or choose one of them.",
     "$tddft\niroot\n  -2\nistore\n  1\n$end\n"
     "$resp\ngeom\nimethod\n  2\nnfiles\n  1\niroot\n  3\n$end\n",
     "$tddft\niroot\n  -3\nistore\n  1\n$end\n"
     "$resp\ngeom\nimethod\n  2\nnfiles\n  1\niroot\n  3\n$end\n",
     error},
    {"resp.state_tracking_needs_c1",
     "A negative iroot of $resp follows a state by its character, which is possible without "
     "symmetry "
     "only. Looked at where a molecule is seen to have some.",
     "An input for a molecule without symmetry was used for one that has some.",
     "Add nosymm to $compass, or give the group C(1).", "", "", warning},
    {"resp.norder2", "$resp has no analytic second derivatives.",
     "norder was taken for the order of the Hessian.", "Use $bdfopt with hess.",
     "$resp\ngeom\nnorder\n  2\n$end\n", "$resp\ngeom\nnorder\n  1\n$end\n", warning},
    {"resp.with_frozen_orbitals",
     "Gradients, dipoles and couplings of excited states need all orbitals.",
     "Orbitals were frozen to save time.", "Leave frzcore and frzvirt out of the $tddft.",
     "$tddft\niroot\n  2\nistore\n  1\nfrzcore\n  1 0 0 0\n$end\n"
     "$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end\n",
     "$tddft\niroot\n  2\nistore\n  1\n$end\n$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end\n",
     warning},
    {"resp.with_grimmestd",
     "The simplified methods of grimmestd give energies and intensities; no gradients, dipoles of "
     "states or couplings.",
     "A quick method was chosen for the states.", "Leave grimmestd out of the $tddft.",
     "$tddft\niroot\n  2\nistore\n  1\ngrimmestd\n$end\n"
     "$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end\n",
     "$tddft\niroot\n  2\nistore\n  1\n$end\n$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end\n",
     warning},
    {"resp.with_itrans",
     "States that itrans transforms are for spin-orbit coupling, not for gradients, dipoles or "
     "couplings by $resp.",
     "The $tddft was copied from a calculation of spin-orbit coupling.",
     "Leave itrans out of the $tddft.",
     "$tddft\niroot\n  2\nistore\n  1\nitrans\n  1\n$end\n"
     "$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end\n",
     "$tddft\niroot\n  2\nistore\n  1\n$end\n$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end\n",
     warning},
    {"resp.spinflip_gradient_kernel",
     "An optimisation, a numerical Hessian and couplings of states that are had by a change of "
     "spin "
     "need the collinear kernel, ialda 4.",
     "The kernel was not chosen; the default is another one.", "Set ialda to 4 in the $tddft.",
     "$bdfopt\nsolver\n  1\n$end\n$tddft\nisf\n  1\niroot\n  2\nistore\n  1\n$end\n"
     "$resp\ngeom\nimethod\n  2\nnfiles\n  1\niroot\n  1\n$end\n",
     "$bdfopt\nsolver\n  1\n$end\n$tddft\nisf\n  1\nialda\n  4\niroot\n  2\nistore\n  1\n$end\n"
     "$resp\ngeom\nimethod\n  2\nnfiles\n  1\niroot\n  1\n$end\n",
     warning},
    {"resp.fnac_needs_single_or_double",
     "Couplings are those of the ground state with excited states (single) or those between "
     "excited "
     "states (double).",
     "The kind was forgotten.", "Add single with states, or double with pairs.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n"
     "$resp\nquad\nfnac\nnorder\n  1\nstates\n  1\n  1 1 1\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n"
     "$resp\nquad\nfnac\nsingle\nnorder\n  1\nstates\n  1\n  1 1 1\n$end\n",
     error},
    {"resp.single_needs_states",
     "single couples the ground state with the excited states that states lists: how many, then a "
     "row of file, representation and number for each.",
     "The list was forgotten, or has the name of the other kind.", "Add states.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n"
     "$resp\nquad\nfnac\nsingle\nnorder\n  1\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n"
     "$resp\nquad\nfnac\nsingle\nnorder\n  1\nstates\n  1\n  1 1 1\n$end\n",
     warning},
    {"resp.double_needs_pairs",
     "double couples the pairs of excited states that pairs lists: how many, then a row of file, "
     "representation and number, twice, for each.",
     "The list was forgotten, or has the name of the other kind.", "Add pairs.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  2\nistore\n  1\n$end\n"
     "$resp\nquad\nfnac\ndouble\nnorder\n  1\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  2\nistore\n  1\n$end\n"
     "$resp\nquad\nfnac\ndouble\nnorder\n  1\npairs\n  1\n  1 1 1 1 1 2\n$end\n",
     warning},
    {"resp.single_and_double", "A $resp computes couplings of one kind.",
     "A second kind was added to the block.", "Give each kind a block of its own.",
     "$resp\nquad\nfnac\nsingle\nstates\n  1\n  1 1 1\ndouble\npairs\n  1\n  1 1 1 1 1 2\n$end\n",
     "$resp\nquad\nfnac\nsingle\nstates\n  1\n  1 1 1\n$end\n"
     "$resp\nquad\nfnac\ndouble\npairs\n  1\n  1 1 1 1 1 2\n$end\n",
     warning},
    {"resp.nac_file_not_stored",
     "The first number of a state is the istore of the $tddft that computes it, and there is none.",
     "The number of the block was given, or istore was forgotten or changed.",
     "Give the istore of the $tddft.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n"
     "$resp\nquad\nfnac\nsingle\nnorder\n  1\nstates\n  1\n  2 1 1\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n"
     "$resp\nquad\nfnac\nsingle\nnorder\n  1\nstates\n  1\n  1 1 1\n$end\n",
     error},
});

}  // namespace

std::span<const FindingText> resp_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
