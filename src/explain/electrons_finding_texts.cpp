#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto note = Severity::Note;
constexpr auto warning = Severity::Warning;
constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"electrons.no_electrons", "The charge takes away all electrons of the molecule.",
     "A digit too many, or the charge of another system.", "Correct the charge, or the atoms.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nuhf\ncharge\n  2\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  H 0 0 0\n  H 0 0 0.74\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nuhf\ncharge\n  1\n$end\n",
     error},
    {"electrons.multiplicity_not_positive",
     "The multiplicity is 2S+1, where S is the total spin, and so at least 1.",
     "The number of unpaired electrons was given, which is one less.",
     "Give 1 for a singlet, 2 for a doublet, 3 for a triplet.", "", "", error},
    {"electrons.multiplicity_too_high",
     "The multiplicity needs more unpaired electrons than there are electrons.",
     "A slip of the multiplicity, or a charge that is too high.",
     "Correct the multiplicity or the charge.", "", "", error},
    {"electrons.spin_parity",
     "An even number of electrons has an odd multiplicity (1, 3, 5 ...), an odd number an even one "
     "(2, 4, 6 ...). Core potentials do not matter: charge and multiplicity are those of the whole "
     "molecule.",
     "The charge was changed and the multiplicity was not, or an atom was forgotten.",
     "Correct the multiplicity, the charge or the atoms.",
     "#! water.bdf\nb3lyp/6-31g spinmulti=2\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\n"
     "H 0 0.784 -0.185\nEnd Geometry\n",
     "#! water.bdf\nb3lyp/6-31g charge=1 spinmulti=2\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\n"
     "H 0 0.784 -0.185\nEnd Geometry\n",
     error},
    {"electrons.restricted_odd_electrons",
     "rhf and rks put two electrons into each orbital, so that an odd one has none.",
     "The charge of an ion, or an atom, was forgotten; or the molecule is a radical.",
     "Use an open-shell method (uhf, rohf; uks, roks), or correct the charge.",
     "#! water.bdf\nrks/b3lyp/6-31g charge=1\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\n"
     "H 0 0.784 -0.185\nEnd Geometry\n",
     "#! water.bdf\nuks/b3lyp/6-31g charge=1\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\n"
     "H 0 0.784 -0.185\nEnd Geometry\n",
     error},
    {"electrons.restricted_with_open_shell",
     "rhf and rks are for closed shells, the multiplicity asks for unpaired electrons.",
     "The multiplicity was changed and the method was not.",
     "Use uhf or rohf, uks or roks; or set the multiplicity to 1.",
     "#! water.bdf\nrks/b3lyp/6-31g spinmulti=3\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\n"
     "H 0 0.784 -0.185\nEnd Geometry\n",
     "#! water.bdf\nuks/b3lyp/6-31g spinmulti=3\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\n"
     "H 0 0.784 -0.185\nEnd Geometry\n",
     error},
    {"electrons.ro_with_singlet",
     "A restricted open-shell method computes a singlet as the closed-shell method does.",
     "A method that was kept from a calculation of another state.",
     "Nothing has to be done; rhf and rks are the usual words.", "", "", note},
    {"electrons.methods_conflict",
     "A $scf has one method: Hartree-Fock (rhf, uhf, rohf) or Kohn-Sham (rks, uks, roks).",
     "A method was added and the old one was left.", "Leave one of them.",
     "$scf\nrhf\nrks\ndft\n  b3lyp\n$end\n", "$scf\nrks\ndft\n  b3lyp\n$end\n", error},
    {"electrons.method_missing", "$scf does not say which method to use.",
     "The method was forgotten or is misspelt.",
     "Add one of rhf, uhf, rohf (Hartree-Fock), rks, uks, roks (Kohn-Sham).",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     warning},
    {"electrons.ks_without_functional", "A Kohn-Sham method needs a functional.",
     "The entry dft was forgotten or is misspelt.",
     "Add the entry dft with the functional's name on the next line.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrks\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\n$end\n",
     warning},
    {"electrons.occupy_with_unrestricted",
     "occupy gives the doubly occupied orbitals, which uhf and uks do not have.",
     "The method was changed and the occupations were not.",
     "Give the occupations with alpha and beta.", "$scf\nuhf\noccupy\n  3 0 1 1\n$end\n",
     "$scf\nuhf\nalpha\n  3 0 1 1\nbeta\n  3 0 1 1\n$end\n", warning},
    {"electrons.alpha_beta_with_restricted",
     "alpha and beta give the orbitals of either spin, which rhf and rks do not tell apart.",
     "The method was changed and the occupations were not.", "Give the occupations with occupy.",
     "$scf\nrhf\nalpha\n  3 0 1 1\nbeta\n  3 0 1 1\n$end\n", "$scf\nrhf\noccupy\n  3 0 1 1\n$end\n",
     warning},
    {"electrons.occupation_lists_differ",
     "alpha and beta need one number for each irreducible representation.",
     "A number was forgotten, or the point group was changed.", "Give both the same length.",
     "$scf\nuhf\nalpha\n  4 0 1 1\nbeta\n  3 0 1\n$end\n",
     "$scf\nuhf\nalpha\n  4 0 1 1\nbeta\n  3 0 1 1\n$end\n", error},
    {"electrons.occupation_sum",
     "The occupations hold another number of electrons than atoms and charge give: twice the sum "
     "of "
     "occupy, or the sums of alpha and beta. Looked at only where no atom has a core potential.",
     "The charge, the atoms or the basis set were changed and the occupations were not.",
     "Correct the occupations or the charge.", "", "", warning},
    {"electrons.occupation_vs_multiplicity",
     "The sum of alpha less that of beta is the number of unpaired electrons, one less than the "
     "multiplicity.",
     "One of them was changed and the other was not.", "Correct one of them.",
     "$scf\nuhf\nspinmulti\n  3\nalpha\n  3 0 1 1\nbeta\n  3 0 1 1\n$end\n",
     "$scf\nuhf\nspinmulti\n  3\nalpha\n  4 0 1 1\nbeta\n  2 0 1 1\n$end\n", error},
});

}  // namespace

std::span<const FindingText> electrons_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
