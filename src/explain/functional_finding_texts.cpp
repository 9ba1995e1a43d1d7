#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto note = Severity::Note;
constexpr auto warning = Severity::Warning;
constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"functional.functional_unlisted",
     "The functional is none of those that the manual lists. BDF is built on a library that has "
     "more of them, so that the name can be right; what the manual says of functionals is not "
     "known of it.",
     "A functional of another program, or a slip in the name.",
     "Make sure that BDF takes the name, or choose a listed one.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  m06\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  m06l\n$end\n",
     note},
    {"functional.double_hybrid_needs_mp2",
     "The energy of a double hybrid has a part that $mp2 computes.", "The block was forgotten.",
     "Add $mp2 behind $scf.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b2plyp\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b2plyp\n$end\n"
     "$mp2\n$end\n",
     warning},
    {"functional.double_hybrid_tddft", "TDDFT does not support double hybrids.",
     "The functional was kept from a calculation of the ground state.", "Take a hybrid functional.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b2plyp\n$end\n"
     "$mp2\n$end\n$tddft\niroot\n  1\nistore\n  1\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\n$end\n"
     "$tddft\niroot\n  1\nistore\n  1\n$end\n",
     warning},
    {"functional.mp2_on_kohn_sham",
     "$mp2 behind a functional that is no double hybrid gives a number that means nothing.",
     "The method was changed and the block was left.", "Take rhf for MP2, or a double hybrid.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\n$end\n"
     "$mp2\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$mp2\n$end\n",
     warning},
    {"functional.functional_no_gradient",
     "The functional has no gradients: no geometry can be optimised and no frequency "
     "computed with it.",
     "The functional was chosen for an energy.", "Take a similar functional that has them.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  pw91\n$end\n"
     "$resp\ngeom\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  pbe\n$end\n"
     "$resp\ngeom\n$end\n",
     warning},
    {"functional.functional_no_excited_gradient",
     "The functional has no gradients of excited states and no couplings: there are such "
     "for LDA, GGA and their hybrids only.",
     "The functional was chosen for the ground state or for energies.",
     "Take an LDA, a GGA or a hybrid of GGA.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  m062x\n$end\n"
     "$tddft\niroot\n  1\nistore\n  1\n$end\n$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end"
     "\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  pbe0\n$end\n"
     "$tddft\niroot\n  1\nistore\n  1\n$end\n$resp\ngeom\nimethod\n  2\nnfiles\n  1\n$end"
     "\n",
     warning},
    {"functional.d3_doubled",
     "The functional has its dispersion built in; D3 would count it twice.",
     "The entry was kept from another functional.", "Leave it out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  wB97X-D3\nd3\n"
     "$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  wB97X-D3\n$end"
     "\n",
     warning},
    {"functional.d3_functional", "The manual has no D3 parameters for the functional.",
     "The entry was kept from another functional.",
     "Leave it out, or take a functional that has them.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  m06l\nd3\n$end"
     "\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  pbe0\nd3\n$end"
     "\n",
     warning},
    {"functional.d3_with_hf", "D3 corrects functionals.",
     "The method was changed and the entry was left.", "Leave it out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\nd3\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nd3\n$end"
     "\n",
     warning},
    {"functional.facex_functional", "facex scales the exact exchange of some functionals only.",
     "The functional was changed and the entry was left.", "Leave it out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  tpssh\nfacex\n "
     " 0.2\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  pbe0\nfacex\n  "
     "0.2\n$end\n",
     warning},
    {"functional.facco_functional", "facco scales the correlation of a double hybrid.",
     "The functional was changed and the entry was left.", "Leave it out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\nfacco\n "
     " 0.2\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b2plyp\nfacco\n"
     "  0.2\n$end\n$mp2\n$end\n",
     warning},
    {"functional.rs_needed_nondirect",
     "Integrals that are stored need the number that separates the ranges of a "
     "range-separated functional.",
     "saorb was added to an input that computes the integrals anew each time.",
     "Give it with rsomega in $xuanyuan.",
     "$compass\nsaorb\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  "
     "H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  cam-b3lyp\n"
     "$end\n",
     "$compass\nsaorb\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  "
     "H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\nrsomega\n  0.33\n$end\n$scf\nrks\n"
     "dft\n  cam-b3lyp\n$end\n",
     warning},
    {"functional.meta_gga_coarse_grid",
     "A functional with the kinetic energy density needs a fine grid, which is what the "
     "program takes by itself.",
     "The grid was kept from another functional.", "Leave grid out, or set it to fine.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  scan\ngrid\n  "
     "medium\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  scan\ngrid\n  "
     "ultra fine\n$end\n",
     warning},
    {"functional.nodirectgrid_direct",
     "An SCF that computes the integrals anew each time needs a grid of its kind.",
     "saorb was taken out and the entry was left.", "Leave it out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\n"
     "nodirectgrid\n$end\n",
     "$compass\nsaorb\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  "
     "H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\n"
     "nodirectgrid\n$end\n",
     warning},
    {"functional.optscreen_with_mpec", "optscreen screens integrals that MPEC replaces.",
     "Both were added to make the SCF faster.", "Leave one of them out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\n"
     "optscreen\n  1\nmpec+cosx\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\n"
     "mpec+cosx\n$end\n",
     warning},
    {"functional.smh_with_ro", "smh is not there for restricted open shells.",
     "The method was changed and the entry was left.", "Leave it out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrohf\nspinmulti\n  3\nsmh\n"
     "$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nuhf\nspinmulti\n  3\nsmh\n"
     "$end\n",
     warning},
    {"functional.smeartemp_conflict", "smeartemp cannot be used with fragments.",
     "The entry was kept from an input without them.", "Leave it out.",
     "$autofrag\nmethod\n  ioi\n$end\n$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369"
     "\n  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf"
     "\nrhf\nsmeartemp\n  300\n$end\n$localmo\nflmo\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\nsmeartemp\n  300\n$end"
     "\n",
     error},
    {"functional.second_order_unsupported",
     "Second-order SCF does not work with rohf and roks, with a relativistic Hamiltonian, "
     "and with fragments.",
     "It was added because the SCF did not converge.",
     "Leave it out; damp and vshift help as well.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrohf\nspinmulti\n  3\n"
     "enablesecondorderscf\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nuhf\nspinmulti\n  3\n"
     "enablesecondorderscf\n$end\n",
     warning},
    {"functional.iviop_needs_blkiop7", "iviop is an option of blkiop 7.", "blkiop was changed.",
     "Set blkiop to 7.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\nblkiop\n  3\niviop\n  "
     "1\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\nblkiop\n  7\niviop\n  "
     "1\n$end\n",
     error},
    {"functional.restrainspin_singlet",
     "Spins on the atoms of a singlet need orbitals that differ for either spin.",
     "An open-shell method was not written because of the multiplicity.", "Use uhf or uks.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\n"
     "restrainspin\n  1\n  1 1.0\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nuks\ndft\n  b3lyp\n"
     "restrainspin\n  1\n  1 1.0\n$end\n",
     warning},
    {"functional.atom_number_out_of_range", "A number of an atom is above the number of atoms.",
     "Atoms were taken out of the geometry, or the numbers are those of another molecule.",
     "Correct the number; atoms count from 1 in the order of the geometry.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nuks\ndft\n  b3lyp\n"
     "restrainspin\n  1\n  4 1.0\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nuks\ndft\n  b3lyp\n"
     "restrainspin\n  1\n  3 1.0\n$end\n",
     error},
});

}  // namespace

std::span<const FindingText> functional_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
