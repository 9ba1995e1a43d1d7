#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto note = Severity::Note;
constexpr auto warning = Severity::Warning;
constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"basis.basis_missing",
     "$compass has neither basis nor basis-block. BDF has no basis set of its own choice.",
     "The entry was forgotten or is misspelt.",
     "Add the entry basis with the name of a set on the next line.",
     "$compass\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend "
     "geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 "
     "0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     error},
    {"basis.genbas_without_basis",
     "'genbas' in the header says that $compass gives the basis sets, and none does.",
     "The block was forgotten.",
     "Give basis or basis-block in $compass, or name a set in the header.",
     "#! a\nhf/genbas\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\nEnd "
     "Geometry\n",
     "#! a\nhf/genbas\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\nEnd "
     "Geometry\n\n$compass\nbasis-block\n  cc-pVDZ\n  O=aug-cc-pVDZ\nend basis\n$end\n",
     error},
    {"basis.basis_header_and_compass",
     "The header and $compass both name a basis set; the manual does not say which of "
     "them counts.",
     "A $compass was added and the header was left as it was.",
     "Write 'genbas' in the header, or take the sets out of $compass.",
     "#! a\nhf/6-31g\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\nEnd "
     "Geometry\n\n$compass\nbasis\n  cc-pVDZ\n$end\n",
     "#! a\nhf/genbas\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\nEnd "
     "Geometry\n\n$compass\nbasis\n  cc-pVDZ\n$end\n",
     warning},
    {"basis.basis_set_twice",
     "basis gives all atoms one set, basis-block gives each element its own.",
     "One was added and the other was left.",
     "Leave one of them; a line without = in basis-block holds for all other atoms.",
     "$compass\nbasis\n  cc-pVDZ\nbasis-block\n  cc-pVDZ\n  O=aug-cc-pVDZ\nend basis\n"
     "geometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end"
     "\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis-block\n  cc-pVDZ\n  O=aug-cc-pVDZ\nend basis\ngeometry\n  O 0 0 "
     "0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end"
     "\n$scf\nrhf\n$end\n",
     warning},
    {"basis.label_basis_missing",
     "A label with a number, H1, is a class of atoms with a basis set of its own; the set "
     "of the element does not hold for it. A warning where only basis is given.",
     "The numbers only count the atoms, or the line for the label was forgotten.",
     "Give the label its set in basis-block, H1=cc-pVDZ, or write the element alone.",
     "$compass\nbasis-block\n  6-31g\n  O=cc-pVDZ\nend basis\ngeometry\n  O 0 0 0.369\n  "
     "H1 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\n"
     "rhf\n$end\n",
     "$compass\nbasis-block\n  6-31g\n  O=cc-pVDZ\n  H1=3-21g\nend basis\ngeometry\n  O 0 "
     "0 0.369\n  H1 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n"
     "$end\n$scf\nrhf\n$end\n",
     error},
    {"basis.basis_missing_for_element",
     "basis-block has no line for an element and no line for all others.",
     "An atom was added, or a line was forgotten.",
     "Add a line ELEMENT=SET, or a line with a set alone for all others.",
     "$compass\nbasis-block\n  O=cc-pVDZ\nend basis\ngeometry\n  O 0 0 0.369\n  H 0 "
     "-0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n"
     "$end\n",
     "$compass\nbasis-block\n  O=cc-pVDZ\n  H=cc-pVDZ\nend basis\ngeometry\n  O 0 0 0.369"
     "\n  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf"
     "\nrhf\n$end\n",
     error},
    {"basis.basis_for_absent_element",
     "A line of basis-block is for an element or a label that the molecule does not have.",
     "A slip of the symbol, or a line of another molecule.",
     "Correct the symbol or delete the line.",
     "$compass\nbasis-block\n  cc-pVDZ\n  Os=cc-pVDZ\nend basis\ngeometry\n  O 0 0 0.369\n"
     "  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\n"
     "rhf\n$end\n",
     "$compass\nbasis-block\n  cc-pVDZ\n  O=cc-pVDZ\nend basis\ngeometry\n  O 0 0 0.369\n "
     " H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\n"
     "rhf\n$end\n",
     note},
    {"basis.basis_for_unknown_element",
     "In basis-block an element or a label stands before the =, and this is neither.", "A slip.",
     "Write the symbol of an element, with a number for a label.",
     "$compass\nbasis-block\n  cc-pVDZ\n  Ox=aug-cc-pVDZ\nend basis\ngeometry\n  O 0 0 "
     "0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end"
     "\n$scf\nrhf\n$end\n",
     "$compass\nbasis-block\n  cc-pVDZ\n  O=aug-cc-pVDZ\nend basis\ngeometry\n  O 0 0 "
     "0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end"
     "\n$scf\nrhf\n$end\n",
     error},
    {"basis.basis_element_not_covered",
     "The set of the library has no functions for an element of the molecule.",
     "The set is for light elements, or for a part of the table.",
     "Take a set that has functions for the element, for it alone with basis-block.",
     "$compass\nbasis\n  6-31g\ngeometry\n  Au 0 0 0\n  H 0 0 1.52\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  Def2-SVP\ngeometry\n  Au 0 0 0\n  H 0 0 1.52\nend geometry\n$end"
     "\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     warning},
    {"basis.basis_assigned_twice",
     "An element or a label is given a basis set on two lines; which of them counts is not "
     "documented.",
     "A line was copied and its element was not changed.", "Keep one of the lines.",
     "$compass\nbasis-block\n  sto-3g\n  O=cc-pvdz\n  O=cc-pvtz\nend basis\ngeometry\n  O 0 0 "
     "0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf"
     "\nrhf\n$end\n",
     "$compass\nbasis-block\n  sto-3g\n  O=cc-pvtz\nend basis\ngeometry\n  O 0 0 "
     "0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf"
     "\nrhf\n$end\n",
     warning},
    {"basis.basis_unknown",
     "The name is none of the sets that the manual lists, and no file beside the input "
     "has it. Looked at only where the folder of the input is known.",
     "A basis set of your own whose file is elsewhere, or a name of another program.",
     "Put the file beside the input, its name in capital letters; or name a listed set.", "", "",
     note},
    {"basis.basis_file_name_case",
     "A basis set file is looked for by its name in capital letters and without ending.",
     "The file was named as it is written in the input, or as an editor names files.",
     "Rename the file.", "", "", warning},
    {"basis.ano_rcc_in_basis_block",
     "In basis-block BDF takes the whole ANO-RCC, whatever contraction is named.",
     "A contraction was named as it can be with basis.",
     "Name it with basis, or give the data of the contraction.",
     "$compass\nbasis-block\n  ANO-RCC-VDZP\n  O=ANO-RCC\nend basis\ngeometry\n  O 0 0 "
     "0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\nheff"
     "\n  21\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  ANO-RCC-VDZP\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H "
     "0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\nheff\n  21\n$end\n$scf\nrhf\n$end\n",
     warning},
    {"basis.auxiliary_basis_as_orbital",
     "A set for fitting has the functions for densities, not for orbitals.",
     "The name of the fitting set was written for that of the orbital set.",
     "Name the orbital set; the fitting set stands under ri-j, ri-k or ri-c.",
     "$compass\nbasis\n  aug-cc-pVDZ-RIFIT\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n"
     "  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  aug-cc-pVDZ\nri-c\n  aug-cc-pVDZ-RIFIT\ngeometry\n  O 0 0 0.369\n"
     "  H 0 -0.784 -0.185\n  H 0 0.784 -0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\n"
     "rhf\n$end\n",
     warning},
    {"basis.ecp_with_heff",
     "A core potential has the effects of relativity in it. A relativistic Hamiltonian "
     "adds them a second time.",
     "A set with core potentials was taken for a calculation with all electrons.",
     "Take a set for all electrons that is made for the Hamiltonian, or leave the "
     "Hamiltonian out.",
     "$compass\nbasis\n  Def2-SVP\ngeometry\n  Ag 0 0 0\n  H 0 0 1.62\nend geometry\n$end"
     "\n$xuanyuan\nheff\n  21\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  Def2-SVP\ngeometry\n  Ag 0 0 0\n  H 0 0 1.62\nend geometry\n$end"
     "\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     warning},
    {"basis.relativistic_basis_without_heff",
     "A set contracted for a relativistic Hamiltonian is wrong for any other: the inner "
     "shells do not fit.",
     "heff was forgotten, or the wrong set of a family was taken.",
     "Set heff, as a rule to 21; or take the set of the family without relativity.",
     "$compass\nbasis\n  cc-pVDZ-DK\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n"
     "$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pVDZ-DK\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  21\n$end\n$scf\nrhf\n$end\n",
     warning},
    {"basis.heff_basis_mismatch",
     "A set contracted without relativity is wrong for a relativistic Hamiltonian: the "
     "inner shells do not fit. For the first 18 elements that does not matter.",
     "The Hamiltonian was switched on and the set was not changed.",
     "Take a set that is made for it, or one that is not contracted.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n$end\n"
     "$xuanyuan\nheff\n  21\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pVDZ-DK\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  21\n$end\n$scf\nrhf\n$end\n",
     warning},
    {"basis.finite_nucleus_basis",
     "The set was contracted with nuclei of finite size, and the calculation has points.",
     "nuclear was forgotten.", "Set nuclear to 1.",
     "$compass\nbasis\n  x2c-SVPall\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  21\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  x2c-SVPall\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  21\nnuclear\n  1\n$end\n$scf\nrhf\n$end\n",
     note},
    {"basis.dkh2_basis_heavy",
     "A set contracted with DKH to second order is not good enough from Hf on, with any "
     "Hamiltonian.",
     "A set that is good for lighter elements.", "Take a set for DKH3 or X2C.",
     "$compass\nbasis\n  cc-pVTZ-DK\ngeometry\n  Au 0 0 0\n  H 0 0 1.52\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  21\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pVTZ-DK3\ngeometry\n  Au 0 0 0\n  Au 0 0 2.47\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  21\n$end\n$scf\nrhf\n$end\n",
     note},
    {"basis.nuclear_without_heff", "The size of the nuclei matters for relativistic calculations.",
     "heff was forgotten.", "Set heff, or leave nuclear out.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\nnuclear\n  1\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\nheff\n  21\nnuclear\n  1\n$end\n$scf\nrhf\n$end\n",
     note},
    {"basis.nuclearradii_without_nuclear",
     "Radii of nuclei are used only with nuclei of finite size.", "nuclear was forgotten.",
     "Set nuclear to 1.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\nheff\n  21\nnuclearradii\n  1\n  1 0.00005\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\nheff\n  21\nnuclear\n  1\nnuclearradii\n  1\n  1 0.00005\n$end\n$scf\nrhf"
     "\n$end\n",
     warning},
    {"basis.heff5_needs_hsoc",
     "heff 5 is the spin-free part of a Hamiltonian whose other part hsoc names.",
     "hsoc was forgotten, or another number was meant.",
     "Add hsoc, or take another heff: 21 as a rule.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\nheff\n  5\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\nheff\n  5\nhsoc\n  2\n$end\n$scf\nrhf\n$end\n",
     warning},
    {"basis.hsoc_with_ecp",
     "With core potentials spin-orbit coupling is that of the potentials, hsoc 10.",
     "The number is that of a calculation with all electrons.", "Set hsoc to 10.",
     "$compass\nbasis\n  cc-pVDZ-PP\ngeometry\n  Ag 0 0 0\n  Ag 0 0 2.5\nend geometry\n"
     "$end\n$xuanyuan\nhsoc\n  2\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pVDZ-PP\ngeometry\n  Ag 0 0 0\n  Ag 0 0 2.5\nend geometry\n"
     "$end\n$xuanyuan\nhsoc\n  10\n$end\n$scf\nrhf\n$end\n",
     note},
    {"basis.heff_without_derivatives",
     "Only the Hamiltonians 21, 22 and 23 have derivatives; the others give energies.",
     "The Hamiltonian was kept from a calculation of an energy.",
     "Set heff to 21; it is the Hamiltonian of 3 and 4.",
     "$compass\nbasis\n  cc-pVDZ-DK\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  3\n$end\n$scf\nrks\ndft\n  b3lyp\n$end\n$resp\ngeom\n$end\n",
     "$compass\nbasis\n  cc-pVDZ-DK\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  21\n$end\n$scf\nrks\ndft\n  b3lyp\n$end\n$resp\ngeom\n$end"
     "\n",
     warning},
    {"basis.relprop_needs_heff",
     "reled and relefg are properties of the Hamiltonians 21, 22 and 23.",
     "heff was forgotten, or an older number was written.",
     "Set heff to 23 or 21, and nuclear to 1.",
     "$compass\nbasis\n  cc-pVDZ-DK\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  3\nnuclear\n  1\n$end\n$scf\nrhf\nreled\n  30\n$end\n",
     "$compass\nbasis\n  cc-pVDZ-DK\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  23\nnuclear\n  1\n$end\n$scf\nrhf\nreled\n  30\n$end\n",
     error},
    {"basis.relprop_needs_nuclear", "reled and relefg need nuclei of finite size.",
     "nuclear was forgotten.", "Set nuclear to 1.",
     "$compass\nbasis\n  cc-pVDZ-DK\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  23\n$end\n$scf\nrhf\nrelefg\n  30\n$end\n",
     "$compass\nbasis\n  cc-pVDZ-DK\ngeometry\n  Br 0 0 0\n  H 0 0 1.41\nend geometry\n"
     "$end\n$xuanyuan\nheff\n  23\nnuclear\n  1\n$end\n$scf\nrhf\nrelefg\n  30\n$end\n",
     error},
    {"basis.maxmem_format", "maxmem of $xuanyuan is a number with its unit, MW or GW.",
     "The number was written as for $resp, where the unit is GB.", "Write 512MW or 2GW.",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\nmaxmem\n  512\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pVDZ\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\nmaxmem\n  512MW\n$end\n$scf\nrhf\n$end\n",
     warning},
});

}  // namespace

std::span<const FindingText> basis_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
