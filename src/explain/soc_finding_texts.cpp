#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto warning = Severity::Warning;
constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"soc.needs_nfiles",
     "A $tddft with isoc couples the states of the files 1 to nfiles, and has to say how many "
     "these "
     "are.",
     "nfiles was forgotten.", "Add nfiles with the number of $tddft that store states.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ar 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\nhsoc\n  2\n$end\n$scf\nrks\ndft\n  pbe0\n$end\n$tddft\nistore\n  1\n$end\n"
     "$tddft\nisf\n  1\nistore\n  2\n$end\n$tddft\nisoc\n  2\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ar 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\nhsoc\n  2\n$end\n$scf\nrks\ndft\n  pbe0\n$end\n$tddft\nistore\n  1\n$end\n"
     "$tddft\nisf\n  1\nistore\n  2\n$end\n$tddft\nisoc\n  2\nnfiles\n  2\n$end\n",
     error},
    {"soc.nfiles_vs_istore",
     "The states to couple have to be computed and stored before, those of each $tddft under a "
     "number of its own.",
     "A $tddft, or its istore, was forgotten; or two have the same number.",
     "Store all states first, or correct nfiles.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ar 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\nhsoc\n  2\n$end\n$scf\nrks\ndft\n  pbe0\n$end\n$tddft\nistore\n  1\n$end\n"
     "$tddft\nisf\n  1\n$end\n$tddft\nisoc\n  2\nnfiles\n  2\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ar 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\nhsoc\n  2\n$end\n$scf\nrks\ndft\n  pbe0\n$end\n$tddft\nistore\n  1\n$end\n"
     "$tddft\nisf\n  1\nistore\n  2\n$end\n$tddft\nisoc\n  2\nnfiles\n  2\n$end\n",
     error},
    {"soc.istore_numbers",
     "isoc reads the files 1 to nfiles; states that are stored under other numbers are left out.",
     "A slip of istore, or a block that was taken out.", "Number the files from 1, without gaps.",
     "$tddft\nistore\n  1\n$end\n$tddft\nisf\n  1\nistore\n  3\n$end\n"
     "$tddft\nisoc\n  2\nnfiles\n  2\n$end\n",
     "$tddft\nistore\n  1\n$end\n$tddft\nisf\n  1\nistore\n  2\n$end\n"
     "$tddft\nisoc\n  2\nnfiles\n  2\n$end\n",
     warning},
    {"soc.needs_hsoc",
     "Spin-orbit coupling needs integrals that $xuanyuan computes with hsoc. With core potentials "
     "there is a default; with all electrons it has to be asked for.",
     "The entry was forgotten.", "Add hsoc 2 to $xuanyuan.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ar 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrks\ndft\n  pbe0\n$end\n$tddft\nistore\n  1\n$end\n"
     "$tddft\nisf\n  1\nistore\n  2\n$end\n$tddft\nisoc\n  2\nnfiles\n  2\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ar 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\nhsoc\n  2\n$end\n$scf\nrks\ndft\n  pbe0\n$end\n$tddft\nistore\n  1\n$end\n"
     "$tddft\nisf\n  1\nistore\n  2\n$end\n$tddft\nisoc\n  2\nnfiles\n  2\n$end\n",
     warning},
    {"soc.reference_unrestricted",
     "States that are coupled start from a closed shell, or from a restricted open shell.",
     "A molecule with unpaired electrons, for which uks is the usual word.",
     "Use roks (rohf), with itest, icorrect, itda and itrans 1 in the blocks before.",
     "$scf\nuks\ndft\n  pbe0\nspinmulti\n  2\n$end\n$tddft\nistore\n  1\n$end\n"
     "$tddft\nisoc\n  2\nnfiles\n  1\n$end\n",
     "$scf\nrks\ndft\n  pbe0\n$end\n$tddft\nistore\n  1\n$end\n"
     "$tddft\nisoc\n  2\nnfiles\n  1\n$end\n",
     warning},
    {"soc.isoc1_open_shell", "isoc 1 is for closed shells; 2 is general.",
     "The method of $scf was changed and isoc was not.", "Set isoc to 2.",
     "$scf\nroks\ndft\n  pbe0\nspinmulti\n  3\n$end\n"
     "$tddft\nitest\n  1\nicorrect\n  1\nitda\n  1\nitrans\n  1\nistore\n  1\n$end\n"
     "$tddft\nisoc\n  1\nnfiles\n  1\n$end\n",
     "$scf\nroks\ndft\n  pbe0\nspinmulti\n  3\n$end\n"
     "$tddft\nitest\n  1\nicorrect\n  1\nitda\n  1\nitrans\n  1\nistore\n  1\n$end\n"
     "$tddft\nisoc\n  2\nnfiles\n  1\n$end\n",
     warning},
    {"soc.open_shell_needs_xtda",
     "Of a restricted open shell, states without a change of spin can be coupled when they are "
     "spin-adapted and of the Tamm-Dancoff approximation: itest, icorrect and itda 1.",
     "An entry was forgotten, or the blocks come from a closed shell.",
     "Set itest, icorrect and itda to 1.",
     "$scf\nroks\ndft\n  pbe0\nspinmulti\n  3\n$end\n"
     "$tddft\nitest\n  1\nicorrect\n  1\nitrans\n  1\nistore\n  1\n$end\n"
     "$tddft\nisoc\n  2\nnfiles\n  1\n$end\n",
     "$scf\nroks\ndft\n  pbe0\nspinmulti\n  3\n$end\n"
     "$tddft\nitest\n  1\nicorrect\n  1\nitda\n  1\nitrans\n  1\nistore\n  1\n$end\n"
     "$tddft\nisoc\n  2\nnfiles\n  1\n$end\n",
     warning},
    {"soc.open_shell_needs_itrans",
     "States of roks are coupled in the basis of definite spin that itrans 1 transforms them to.",
     "itrans was forgotten.", "Set itrans to 1 in each $tddft that stores states.",
     "$scf\nroks\ndft\n  pbe0\nspinmulti\n  3\n$end\n"
     "$tddft\nitest\n  1\nicorrect\n  1\nitda\n  1\nistore\n  1\n$end\n"
     "$tddft\nisoc\n  2\nnfiles\n  1\n$end\n",
     "$scf\nroks\ndft\n  pbe0\nspinmulti\n  3\n$end\n"
     "$tddft\nitest\n  1\nicorrect\n  1\nitda\n  1\nitrans\n  1\nistore\n  1\n$end\n"
     "$tddft\nisoc\n  2\nnfiles\n  1\n$end\n",
     warning},
    {"soc.order", "Singlets (isf 0) are stored as file 1, triplets (isf 1) as file 2.",
     "The blocks were written in another order.", "Let singlets come first.",
     "$scf\nrks\ndft\n  pbe0\n$end\n$tddft\nisf\n  1\nistore\n  1\n$end\n"
     "$tddft\nisf\n  0\nistore\n  2\n$end\n$tddft\nisoc\n  2\nnfiles\n  2\n$end\n",
     "$scf\nrks\ndft\n  pbe0\n$end\n$tddft\nisf\n  0\nistore\n  1\n$end\n"
     "$tddft\nisf\n  1\nistore\n  2\n$end\n$tddft\nisoc\n  2\nnfiles\n  2\n$end\n",
     warning},
    {"soc.matrix_row_count",
     "The number before the rows of imatsoc and imatrso says how many rows follow.",
     "A row was added or taken out.", "Correct the number.",
     "$tddft\nisoc\n  2\nnfiles\n  2\nimatrso\n  3\n  1 2\n  1 3\n$end\n",
     "$tddft\nisoc\n  2\nnfiles\n  2\nimatrso\n  2\n  1 2\n  1 3\n$end\n", error},
    {"soc.matrix_file",
     "A row of imatsoc names two states, each by its file, its representation and its number; "
     "there "
     "is no file beyond nfiles.",
     "A slip of the first or fourth number of a row.",
     "Use files from 1 to nfiles; 0 0 0 is the ground state.",
     "$tddft\nisoc\n  2\nnfiles\n  2\nimatsoc\n  1\n  1 1 1 3 1 1\n$end\n",
     "$tddft\nisoc\n  2\nnfiles\n  2\nimatsoc\n  1\n  1 1 1 2 1 1\n$end\n", error},
    {"soc.matrix_limit", "Up to 4000 matrix elements can be listed.",
     "A long list made by a script.", "List fewer, or print all of them with -1.", "", "", error},
    {"soc.keyword_without_isoc",
     "imatsoc, imatrso and ifgs are about the coupling of states, which isoc asks for.",
     "isoc was forgotten, or the entries stand in the wrong $tddft.",
     "Move them to the block with isoc.", "$tddft\niroot\n  4\nistore\n  1\nifgs\n  1\n$end\n",
     "$tddft\niroot\n  4\nistore\n  1\n$end\n", warning},
    {"soc.ground_transition_needs_ifgs",
     "Transitions between the ground state and the others (imatrso -2) can be had when the ground "
     "state takes part, ifgs 1.",
     "ifgs was forgotten; it is 0 by default.", "Set ifgs to 1.",
     "$tddft\nisoc\n  2\nnfiles\n  2\nimatrso\n  -2\n$end\n",
     "$tddft\nisoc\n  2\nnfiles\n  2\nifgs\n  1\nimatrso\n  -2\n$end\n", warning},
});

}  // namespace

std::span<const FindingText> soc_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
