#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto warning = Severity::Warning;
constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"fragments.autofrag_before_compass",
     "$autofrag takes the molecule of $compass apart before any module runs.",
     "It was added at the end.", "Move it before $compass.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\n  He 0 0 3\nend geometry\n$end\n"
     "$autofrag\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$localmo\nflmo\n$end\n",
     "$autofrag\n$end\n$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\n  He 0 0 3\n"
     "end geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$localmo\nflmo\n$end\n",
     error},
    {"fragments.autofrag_needs_localmo_flmo",
     "$autofrag runs $localmo with flmo for each fragment, whatever its method is.",
     "$localmo seems to be needed for local orbitals only.",
     "End the input with $localmo and flmo.",
     "$autofrag\n$end\n$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\n  He 0 0 3\n"
     "end geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$autofrag\n$end\n$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\n  He 0 0 3\n"
     "end geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$localmo\nflmo\n$end\n",
     error},
    {"fragments.autofrag_needs_cartesian",
     "$autofrag reads the coordinates of the atoms in $compass. It does not compute them "
     "from distances and angles, and reads no file.",
     "An input with another kind of geometry was used.",
     "Write a line with label, x, y and z for each atom.", "", "", error},
    {"fragments.autofrag_easy_input",
     "$autofrag works on the modules that stand in the input. A header makes modules that "
     "it does not see.",
     "A header is shorter.", "Write the modules: $compass, $xuanyuan, $scf, $localmo.",
     "#! a\nhf/cc-pvdz\n\nGeometry\nHe 0 0 0\nHe 0 0 3\nEnd Geometry\n\n$autofrag\n$end\n",
     "$autofrag\n$end\n$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\n  He 0 0 3\n"
     "end geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$localmo\nflmo\n$end\n",
     error},
    {"fragments.ioi_restricted_only", "The method ioi knows closed shells only.",
     "The method was changed, or the molecule is a radical.", "Use the method flmo.",
     "$autofrag\nmethod\n  ioi\n$end\n$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\n"
     "  He 0 0 3\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nuhf\n$end\n$localmo\nflmo\n"
     "$end\n",
     "$autofrag\nmethod\n  flmo\n$end\n$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\n"
     "  He 0 0 3\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nuhf\n$end\n$localmo\nflmo\n"
     "$end\n",
     warning},
    {"fragments.sobeda_functional",
     "The analysis of the energy does not know the terms of some functionals.",
     "A functional that is good for energies.", "Use another functional.", "", "", warning},
    {"fragments.sobeda_needs_d3",
     "The method sobeda takes the dispersion energy from its correction, which $scf "
     "computes with d3 or d3zero.",
     "d3 was forgotten.", "Write d3 in $scf.",
     "$autofrag\nmethod\n  sobeda\n$end\n$compass\nbasis\n  cc-pvdz\ngeometry\n"
     "  He 0 0 0\n  He 0 0 3\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n"
     "  b3lyp\n$end\n$localmo\nflmo\n$end\n",
     "$autofrag\nmethod\n  sobeda\n$end\n$compass\nbasis\n  cc-pvdz\ngeometry\n"
     "  He 0 0 0\n  He 0 0 3\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrks\ndft\n"
     "  b3lyp\nd3\n$end\n$localmo\nflmo\n$end\n",
     warning},
    {"fragments.sobedaw_parameters",
     "The method sobedaw has three parameters for each functional and basis set. Those "
     "that it has by itself are for GB3LYP-D3 with def2-TZVPD.",
     "The functional or the basis set was changed.",
     "Give sobedaw_c, sobedaw_a and sobedaw_r of the level, or use that one.", "", "", warning},
    {"fragments.fragdef_first_line",
     "The first line of fragdef has two numbers for each fragment: charge and "
     "multiplicity.",
     "One of them was forgotten.", "Complete the pairs.",
     "$autofrag\nfragdef\n  0 1 0\n  1\n  2\n$end\n",
     "$autofrag\nfragdef\n  0 1 0 1\n  1\n  2\n$end\n", error},
    {"fragments.fragdef_row_count",
     "Behind the first line, fragdef has a line with atoms for each fragment.",
     "A fragment was added.", "Complete the first line, or the lines of atoms.",
     "$autofrag\nfragdef\n  0 1 0 1\n  1\n  2\n  3\n$end\n",
     "$autofrag\nfragdef\n  0 1 0 1 0 1\n  1\n  2\n  3\n$end\n", error},
    {"fragments.fragdef_blank", "A list of atoms has commas and dashes and no blank: 1,3-10.",
     "A blank behind a comma is usual in texts.", "Take the blanks out.",
     "$autofrag\nfragdef\n  0 1 0 1\n  1, 2\n  3\n$end\n",
     "$autofrag\nfragdef\n  0 1 0 1\n  1,2\n  3\n$end\n", error},
    {"fragments.fragdef_coverage", "Each atom of the molecule is in one fragment.",
     "An atom was forgotten, or a number is wrong.", "Correct the lists.",
     "$autofrag\nfragdef\n  0 1\n  1\n$end\n$compass\nbasis\n  cc-pvdz\ngeometry\n"
     "  He 0 0 0\n  He 0 0 3\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n"
     "$localmo\nflmo\n$end\n",
     "$autofrag\nfragdef\n  0 1 0 1\n  1\n  2\n$end\n$compass\nbasis\n  cc-pvdz\n"
     "geometry\n  He 0 0 0\n  He 0 0 3\nend geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n"
     "$end\n$localmo\nflmo\n$end\n",
     error},
    {"fragments.fragment_spin_parity",
     "Each fragment is a molecule of its own: an even number of electrons has an odd "
     "multiplicity, an odd one an even multiplicity. A minus before it turns the spins "
     "around.",
     "A bond was cut, which leaves an odd electron on either side.",
     "Correct charge or multiplicity.",
     "$autofrag\nmethod\n  sobeda\nfragdef\n  0 2 0 1\n  1\n  2\n$end\n$compass\nbasis\n"
     "  cc-pvdz\ngeometry\n  He 0 0 0\n  He 0 0 3\nend geometry\n$end\n$xuanyuan\n$end\n"
     "$scf\nrks\ndft\n  b3lyp\nd3\n$end\n$localmo\nflmo\n$end\n",
     "$autofrag\nmethod\n  sobeda\nfragdef\n  0 1 0 1\n  1\n  2\n$end\n$compass\nbasis\n"
     "  cc-pvdz\ngeometry\n  He 0 0 0\n  He 0 0 3\nend geometry\n$end\n$xuanyuan\n$end\n"
     "$scf\nrks\ndft\n  b3lyp\nd3\n$end\n$localmo\nflmo\n$end\n",
     error},
    {"fragments.autofrag_pairs_odd",
     "charge and spinocc have two numbers for each atom: which atom it is, and its charge "
     "or its unpaired electrons.",
     "One of them was forgotten.", "Complete the pairs.", "$autofrag\nspinocc\n  1 +1 2\n$end\n",
     "$autofrag\nspinocc\n  1 +1 2 -1\n$end\n", error},
});

}  // namespace

std::span<const FindingText> fragments_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
