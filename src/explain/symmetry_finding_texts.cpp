#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"symmetry.group_without_parentheses",
     "The index of a point group stands in parentheses: C(2v), D(2h), T(d). Without them it is "
     "not recognised.",
     "The group is written as chemists write it.", "Put the index into parentheses.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\ngroup\n  C2v\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\ngroup\n  C(2v)\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     error},
    {"symmetry.group_complex_unsupported",
     "The program works with groups whose representations are real. C(n) and C(nh) with n from 3 "
     "on, S(2n), T and T(h) have complex ones.",
     "The full group of the molecule was named.",
     "Name a subgroup with real representations, or none: the program then chooses one.", "", ""},
    {"symmetry.group_unknown", "The value of group is no point group that the program knows.",
     "A slip, or the notation of another program.",
     "Write for example C(1), C(2v), D(2h), D(6h), T(d), O(h), C(LIN) or D(LIN).",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\ngroup\n  C(3w)\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\ngroup\n  C(2v)\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     error},
    {"symmetry.group_generator_invalid",
     "Generators of a group are e, i, x, y, z, xy, xz, yz and xyz.",
     "A slip, or a blank in place of a comma.", "Write for example gen(x,y).",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\ngroup\n  gen(w)\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\ngroup\n  gen(yz)\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     error},
    {"symmetry.generators_with_skeleton",
     "A group by generators means saorb; skeleton is the alternative to it.",
     "skeleton was left from another calculation.", "Take skeleton away, or name the group.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\ngroup\n  gen(yz)\nskeleton\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\ngroup\n  gen(yz)\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n"},
    {"symmetry.group_with_nosymm",
     "nosymm switches symmetry off, so that a point group has no meaning; it also keeps the "
     "molecule from being turned.",
     "One of them was added and the other was left.",
     "Keep one of them. C(1) is the group without symmetry.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\ngroup\n  C(2v)\nnosymm\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\nnosymm\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n"},
    {"symmetry.skeleton_with_saorb",
     "skeleton and saorb are alternatives: integrals of symmetry-unique atomic orbitals computed "
     "when needed, or of symmetry orbitals kept.",
     "One of them was added and the other was left.",
     "Keep skeleton for direct SCF and TDDFT, saorb for wave functions beyond them.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\nskeleton\nsaorb\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\nsaorb\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n"},
    {"symmetry.irrep_count",
     "Occupations, numbers of roots and frozen orbitals are given for each irreducible "
     "representation of the group. Too many numbers are a warning.",
     "The group was changed and the list was not, or a number was forgotten.",
     "Give one number for each irreducible representation, in the order of the program.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\ngroup\n  C(2v)\n$end\n$xuanyuan\n$end\n$scf\nrhf\noccupy\n  3 1 1\n"
     "$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\ngroup\n  C(2v)\n$end\n$xuanyuan\n$end\n$scf\nrhf\noccupy\n  3 0 1 1\n"
     "$end\n",
     error},
    {"symmetry.irrep_lists_differ",
     "Lists with a number for each irreducible representation of one molecule have different "
     "lengths.",
     "A number was forgotten, or a list is of another group.", "Give all lists the same length.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\noccupy\n  3 0 1 1\n"
     "$end\n$tddft\nnroot\n  1 1 1\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  O 0 0 0.369\n  H 0 -0.784 -0.185\n  H 0 0.784 "
     "-0.185\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\noccupy\n  3 0 1 1\n"
     "$end\n$tddft\nnroot\n  1 1 1 1\n$end\n"},
    {"symmetry.nonabelian_open_shell_tddft",
     "TDDFT of an open shell needs an Abelian group, D(2h) or one of its subgroups. Without a "
     "group the program chooses one.",
     "The full group of the molecule was named.", "Name an Abelian subgroup, or none.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0.116\n  H 0 0.9397 -0.2711\n  H 0.8138 "
     "-0.4699 -0.2711\n  H -0.8138 -0.4699 -0.2711\nend geometry\ngroup\n  C(3v)\n$end\n"
     "$xuanyuan\n$end\n$scf\nuks\ndft\n  b3lyp\ncharge\n  1\nspinmulti\n  2\n$end\n$tddft\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0.116\n  H 0 0.9397 -0.2711\n  H 0.8138 "
     "-0.4699 -0.2711\n  H -0.8138 -0.4699 -0.2711\nend geometry\ngroup\n  C(s)\n$end\n$xuanyuan\n"
     "$end\n$scf\nuks\ndft\n  b3lyp\ncharge\n  1\nspinmulti\n  2\n$end\n$tddft\n$end\n"},
    {"symmetry.nonabelian_ivi",
     "The iVI method of TDDFT (idiag 3) needs an Abelian group, D(2h) or one of its subgroups.",
     "The full group of the molecule was named.", "Name an Abelian subgroup, or none.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0.116\n  H 0 0.9397 -0.2711\n  H 0.8138 "
     "-0.4699 -0.2711\n  H -0.8138 -0.4699 -0.2711\nend geometry\ngroup\n  C(3v)\n$end\n"
     "$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\n$end\n$tddft\nidiag\n  3\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0.116\n  H 0 0.9397 -0.2711\n  H 0.8138 "
     "-0.4699 -0.2711\n  H -0.8138 -0.4699 -0.2711\nend geometry\ngroup\n  C(s)\n$end\n$xuanyuan\n"
     "$end\n$scf\nrks\ndft\n  b3lyp\n$end\n$tddft\nidiag\n  3\n$end\n"},
    {"symmetry.nonabelian_soc",
     "Spin-orbit coupling of TDDFT states needs an Abelian group, D(2h) or one of its subgroups.",
     "The full group of the molecule was named.", "Name an Abelian subgroup, or none.", "", ""},
    {"symmetry.nonabelian_nto",
     "Natural transition orbitals are made with Abelian groups only, D(2h) and its subgroups.",
     "The full group of the molecule was named.", "Name an Abelian subgroup, or none.", "", ""},
});

}  // namespace

std::span<const FindingText> symmetry_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
