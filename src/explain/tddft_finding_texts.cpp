#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto note = Severity::Note;
constexpr auto warning = Severity::Warning;
constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"tddft.needs_scf",
     "$tddft excites electrons out of the orbitals of an SCF, which must have run before it on the "
     "same molecule.",
     "$scf was forgotten, or stands behind $tddft.", "Let $scf stand before $tddft.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n$xuanyuan\n$end\n"
     "$tddft\niroot\n  1\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n$xuanyuan\n$end\n"
     "$scf\nrhf\n$end\n$tddft\niroot\n  1\n$end\n",
     error},
    {"tddft.spinflip_needs_tda",
     "From an open shell, states of another spin are computed with the Tamm-Dancoff approximation "
     "only.",
     "The entry itda was forgotten, or the method of the header is tddft in place of tda.",
     "Set itda to 1; in a header, use tda.",
     "$scf\nuks\ndft\n  bhhlyp\nspinmulti\n  3\n$end\n$tddft\nisf\n  -1\niroot\n  4\n$end\n",
     "$scf\nuks\ndft\n  bhhlyp\nspinmulti\n  3\n$end\n"
     "$tddft\nisf\n  -1\nitda\n  1\niroot\n  4\n$end\n",
     error},
    {"tddft.spinflip_down_from_singlet",
     "To flip a spin down takes unpaired electrons, and a closed shell has none.",
     "Triplets were wanted, which are flipped up; or the reference should be a triplet.",
     "Use 1 for triplets from a closed shell, or an open-shell reference.",
     "$scf\nrks\ndft\n  b3lyp\n$end\n$tddft\nisf\n  -1\niroot\n  4\n$end\n",
     "$scf\nrks\ndft\n  b3lyp\n$end\n$tddft\nisf\n  1\niroot\n  4\n$end\n", warning},
    {"tddft.scan_spinflip",
     "With SCAN and r2SCAN the ground state is often unstable towards triplets, so that full TDDFT "
     "gives triplets of too low or imaginary energy.",
     "A functional chosen for the ground state.", "Use the Tamm-Dancoff approximation, itda 1.",
     "$scf\nrks\ndft\n  r2scan\n$end\n$tddft\nisf\n  1\niroot\n  4\n$end\n",
     "$scf\nrks\ndft\n  r2scan\n$end\n$tddft\nisf\n  1\nitda\n  1\niroot\n  4\n$end\n", warning},
    {"tddft.imethod_vs_reference",
     "imethod 1 starts from a closed shell (rhf, rks), 2 from an open one (uhf, uks, rohf, roks).",
     "The method of $scf was changed and imethod was not.",
     "Leave imethod out; the program chooses the right one.",
     "$scf\nuks\ndft\n  b3lyp\nspinmulti\n  3\n$end\n$tddft\nimethod\n  1\niroot\n  4\n$end\n",
     "$scf\nuks\ndft\n  b3lyp\nspinmulti\n  3\n$end\n$tddft\niroot\n  4\n$end\n", warning},
    {"tddft.itest_without_icorrect",
     "Spin-adapted excited states (X-TDDFT) need both itest 1 and icorrect 1.",
     "One of them was forgotten.", "Set both to 1.", "$tddft\nitest\n  1\niroot\n  4\n$end\n",
     "$tddft\nitest\n  1\nicorrect\n  1\niroot\n  4\n$end\n", warning},
    {"tddft.xtddft_needs_ro",
     "Spin adaptation (itest 1) corrects excited states of a restricted open shell.",
     "uks or rks where roks was meant.", "Use roks, or leave itest and icorrect out.",
     "$scf\nuks\ndft\n  b3lyp\nspinmulti\n  3\n$end\n"
     "$tddft\nitest\n  1\nicorrect\n  1\niroot\n  4\n$end\n",
     "$scf\nroks\ndft\n  b3lyp\nspinmulti\n  3\n$end\n"
     "$tddft\nitest\n  1\nicorrect\n  1\niroot\n  4\n$end\n",
     warning},
    {"tddft.itrans_needs_roks",
     "itrans 1 transforms the states of a restricted open shell to a basis of definite spin.",
     "The method of $scf was changed and itrans was not.", "Leave itrans out, or use roks.",
     "$scf\nrks\ndft\n  b3lyp\n$end\n$tddft\nitrans\n  1\niroot\n  4\n$end\n",
     "$scf\nrks\ndft\n  b3lyp\n$end\n$tddft\niroot\n  4\n$end\n", warning},
    {"tddft.itrans_with_nto",
     "The states that itrans 1 makes cannot be analysed by natural transition orbitals.",
     "Two analyses in one block.", "Do the analysis in a calculation without itrans.",
     "$tddft\niroot\n  4\nistore\n  1\nitrans\n  1\nntoanalyze\n  1\n  1\n$end\n",
     "$tddft\niroot\n  4\nistore\n  1\nntoanalyze\n  1\n  1\n$end\n", warning},
    {"tddft.grimmestd_isf", "The simplified methods of grimmestd cannot flip spins down.",
     "A quick method for a system that needs a full one.", "Leave grimmestd out.",
     "$tddft\nisf\n  -1\nitda\n  1\ngrimmestd\n$end\n", "$tddft\nisf\n  -1\nitda\n  1\n$end\n",
     warning},
    {"tddft.grimmestd_functional",
     "The simplified methods of grimmestd have parameters for pure and hybrid functionals, HF, "
     "wB97, "
     "wB97X, LC-BLYP and CAM-B3LYP; not for meta functionals, nor for those with dispersion built "
     "in.",
     "A functional chosen for the ground state.", "Use another functional, or leave grimmestd out.",
     "$scf\nrks\ndft\n  m062x\n$end\n$tddft\niroot\n  4\ngrimmestd\n$end\n",
     "$scf\nrks\ndft\n  b3lyp\n$end\n$tddft\niroot\n  4\ngrimmestd\n$end\n", warning},
    {"tddft.iroot_and_nroot",
     "iroot and nroot both say how many states to compute; nroot is not read where iroot is given.",
     "One of them was added and the other was left.",
     "Leave one: iroot for as many in each irreducible representation (negative: in all together), "
     "nroot for a number of each.",
     "$tddft\niroot\n  2\nnroot\n  1 0 0 1\n$end\n", "$tddft\nnroot\n  1 0 0 1\n$end\n", warning},
    {"tddft.iroot_zero",
     "iroot says how many states to compute: for each irreducible representation when it is "
     "positive, in all together when it is negative.",
     "A placeholder that was left.", "Give the number of states.", "$tddft\niroot\n  0\n$end\n",
     "$tddft\niroot\n  -4\n$end\n", error},
    {"tddft.nroot_all_zero",
     "nroot says how many states to compute of each irreducible representation; with nothing but "
     "zeros there are none.",
     "A placeholder that was left.", "Give the number of states.",
     "$tddft\nnroot\n  0 0 0 0\n$end\n", "$tddft\nnroot\n  0 0 1 1\n$end\n", warning},
    {"tddft.iwindow_with_idiag2", "The full diagonalisation (idiag 2) knows no window.",
     "Two ways to choose the states.", "Use idiag 3, or leave iwindow out.",
     "$tddft\nidiag\n  2\niwindow\n  2 4 eV\n$end\n",
     "$tddft\nidiag\n  3\niwindow\n  2 4 eV\n$end\n", error},
    {"tddft.iwindow_order", "A window has its lower bound first, in wavelengths, too.",
     "The bounds are swapped, as they are when nm are read as energies.", "Swap them.",
     "$tddft\nidiag\n  3\niwindow\n  700 300 nm\n$end\n",
     "$tddft\nidiag\n  3\niwindow\n  300 700 nm\n$end\n", warning},
    {"tddft.iwindow_unit", "The unit of a window is au, eV, nm or cm-1; without one it is eV.",
     "A unit of another program.", "Use one of these units.",
     "$tddft\nidiag\n  3\niwindow\n  0.1 0.2 hartree\n$end\n",
     "$tddft\nidiag\n  3\niwindow\n  0.1 0.2 au\n$end\n", error},
    {"tddft.iact_needs_window",
     "iact 1 takes the excitations in a window of orbital energies, which elw and eup give in eV.",
     "A bound was forgotten.", "Give both elw and eup.", "$tddft\niact\n  1\nelw\n  2.0\n$end\n",
     "$tddft\niact\n  1\nelw\n  2.0\neup\n  8.0\n$end\n", error},
    {"tddft.window_without_iact", "elw and eup are read with iact 1 only.", "iact was forgotten.",
     "Set iact to 1, or leave the bounds out.", "$tddft\nelw\n  2.0\neup\n  8.0\n$end\n",
     "$tddft\niact\n  1\nelw\n  2.0\neup\n  8.0\n$end\n", warning},
    {"tddft.nto_needs_istore1",
     "Natural transition orbitals and cubes of densities are made from stored states, and from "
     "those "
     "of file 1 only.",
     "The states were stored under another number, or not at all.",
     "Store them with istore 1 in the $tddft that computes them.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n$xuanyuan\n$end\n"
     "$scf\nrhf\n$end\n$tddft\niroot\n  2\n$end\n$tddft\nntoanalyze\n  1\n  1\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n$xuanyuan\n$end\n"
     "$scf\nrhf\n$end\n$tddft\niroot\n  2\nistore\n  1\n$end\n$tddft\nntoanalyze\n  1\n  "
     "1\n$end\n",
     warning},
    {"tddft.nto_count",
     "ntoanalyze has the number of states on its first line, and as many numbers of states on the "
     "next one.",
     "The states were given without their count, or one was added.", "Correct the count.",
     "$tddft\niroot\n  4\nistore\n  1\nntoanalyze\n  1\n  1 3\n$end\n",
     "$tddft\niroot\n  4\nistore\n  1\nntoanalyze\n  2\n  1 3\n$end\n", error},
    {"tddft.cubexyz_without_cube",
     "cubexyz is the grid of the cubes that trddens and denscube write; without them there are "
     "none.",
     "The entry that asks for a cube was forgotten.", "Add trddens or denscube.",
     "$tddft\niroot\n  4\ncubexyz\n  0.2 0.2 0.2\n$end\n",
     "$tddft\niroot\n  4\nistore\n  1\ntrddens\ncubexyz\n  0.2 0.2 0.2\n$end\n", note},
    {"tddft.read_without_write",
     "iguess 10 and 11 begin with the vectors of an earlier run, which keeps them with iguess 1, "
     "11 "
     "or 21. Looked at only where the files beside the input are known.",
     "The earlier run did not keep its vectors, or ran in another folder.",
     "Run with iguess 1, 11 or 21 first, or bring its files here.", "", "", note},
    {"tddft.restart_idiag2",
     "The full diagonalisation (idiag 2) needs no start and cannot continue an earlier run.",
     "A restart that was made from an input of another kind.",
     "Use idiag 1, or 3 without symmetry; or leave iguess out.",
     "$tddft\niroot\n  4\niguess\n  11\nidiag\n  2\n$end\n",
     "$tddft\niroot\n  4\niguess\n  11\nidiag\n  1\n$end\n", error},
});

}  // namespace

std::span<const FindingText> tddft_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
