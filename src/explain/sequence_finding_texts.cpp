#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto note = Severity::Note;
constexpr auto warning = Severity::Warning;
constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"sequence.database_head",
     ""
     "A line of &database looks like the head of a fragment and is none, so that its atoms count "
     "for the fragment before.",
     "A slip, or a blank that was left out.", "Write 'fragment NUMBER ATOMS'.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\nnfragment"
     "\n  1\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n&database\nfragment1 2\n  1 2\n&end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\nnfragment"
     "\n  1\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n&database\nfragment 1 2\n  1 2\n&end\n",
     error},
    {"sequence.database_atom_twice", "An atom is listed twice in one fragment of &database.",
     "A slip; then another atom is missing.", "Correct the number.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\nnfragment"
     "\n  1\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n&database\nfragment 1 2\n  1 1\n&end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\nnfragment"
     "\n  1\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n&database\nfragment 1 2\n  1 2\n&end\n",
     warning},
    {"sequence.database_fragment_twice", "Two fragments of &database have the same number.",
     "A head was copied and its number was not changed.", "Give each fragment a number of its own.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\nnfragment"
     "\n  2\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n&database\nfragment 1 1\n  1\n"
     "fragment 1 1\n  2\n&end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\nnfragment"
     "\n  2\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n&database\nfragment 1 1\n  1\n"
     "fragment 2 1\n  2\n&end\n",
     warning},
    {"sequence.shell_variable",
     ""
     "A command between modules names a variable that BDF does not set, but for its case or a "
     "slip; or has a blank behind the dollar sign, or an open brace. Commands know BDFHOME, "
     "BDF_TMPDIR, BDF_WORKDIR and BDFTASK.",
     "A slip: shells tell upper from lower case.", "Write the variable as BDF sets it.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n"
     "% cp $BDF_WORKDIR/$BDFTASK.scforb $BDF_TEMPDIR/$BDFTASK.inporb\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n"
     "% cp $BDF_WORKDIR/$BDFTASK.scforb $BDF_TMPDIR/$BDFTASK.inporb\n",
     warning},
    {"sequence.module_repeated",
     "A module stands twice, one behind the other, with the same lines.", "It was pasted twice.",
     "Remove one of them.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.1\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     note},
    {"sequence.compass_missing",
     "$compass gives the basis set and the geometry, and no other module has them.",
     "Only a part of an input was copied.", "Begin the input with $compass.",
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$xuanyuan\n"
     "$end\n$scf\nrhf\n$end\n",
     error},
    {"sequence.xuanyuan_needs_compass",
     "Modules run in the order in which they stand. $xuanyuan computes integrals over the "
     "basis set that $compass sets up.",
     "Modules were written in another order.", "The order is $compass, $xuanyuan, $scf.",
     "$xuanyuan\n$end\n$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n"
     "$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$xuanyuan\n"
     "$end\n$scf\nrhf\n$end\n",
     error},
    {"sequence.scf_needs_xuanyuan",
     "$scf needs the integrals of $xuanyuan. A new $compass needs a new $xuanyuan.",
     "$xuanyuan is often empty, and easily forgotten.", "Put $xuanyuan between $compass and $scf.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$scf\nrhf\n"
     "$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$xuanyuan\n"
     "$end\n$scf\nrhf\n$end\n",
     error},
    {"sequence.bdfopt_before_compass",
     "$bdfopt optimises the molecule of $compass, which must stand before it.",
     "$irc and $autofrag do stand first, $bdfopt does not.", "Put $bdfopt behind $compass.",
     "$bdfopt\nsolver\n  1\n$end\n$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\n"
     "end geometry\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\ngeom\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$bdfopt\n"
     "solver\n  1\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n$resp\ngeom\n$end\n",
     error},
    {"sequence.nmr_nothing_requested",
     "$nmr computes shieldings with gauge-including orbitals (igiao 1) or with a common "
     "gauge origin (icg 1). Both are turned off unless they are asked for.",
     "igiao was left out.", "Set igiao to 1.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$nmr\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$nmr\nigiao\n  1\n$end\n",
     warning},
    {"sequence.nmr_needs_restricted", "$nmr works with RHF and RKS only.",
     "A radical, or a method that was kept from another calculation.",
     "Use rhf or rks, if the molecule has a closed shell.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$xuanyuan\n$end\n$scf\nuhf\n$end\n$nmr\nigiao\n  1\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$nmr\nigiao\n  1\n$end\n",
     warning},
    {"sequence.nmr_needs_nosymm",
     "$nmr does not use symmetry, so that the calculation must not either.",
     "nosymm was forgotten.", "Write nosymm, or the group C(1), in $compass.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$xuanyuan\n"
     "$end\n$scf\nrhf\n$end\n$nmr\nigiao\n  1\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n$nmr\nigiao\n  1\n$end\n",
     warning},
    {"sequence.functional_no_nmr",
     "Shieldings are computed with LDA, GGA and hybrid GGA functionals, not with those of "
     "the kinetic energy density and not with double hybrids.",
     "A functional that is good for energies.", "Use another functional.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$xuanyuan\n$end\n$scf\nrks\ndft\n  m06l\n$end\n$nmr\nigiao\n  1\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnosymm\n$end\n"
     "$xuanyuan\n$end\n$scf\nrks\ndft\n  b3lyp\n$end\n$nmr\nigiao\n  1\n$end\n",
     warning},
    {"sequence.nmr_gauge_without_icg",
     "igatom and cgcoord choose the gauge origin of icg 1. Gauge-including orbitals have "
     "none.",
     "icg was forgotten.", "Set icg to 1, or leave the gauge origin out.",
     "$nmr\nigiao\n  1\nigatom\n  1\n$end\n", "$nmr\nicg\n  1\nigatom\n  1\n$end\n", warning},
    {"sequence.nmr_gauge_twice",
     "igatom puts the gauge origin on an atom, cgcoord at a point; the later one counts.",
     "One was added and the other not taken away.", "Leave one of them out.",
     "$nmr\nicg\n  1\nigatom\n  1\ncgcoord\n  0. 0. 1.\n$end\n",
     "$nmr\nicg\n  1\ncgcoord\n  0. 0. 1.\n$end\n", note},
    {"sequence.nmr_cgunit_without_cgcoord", "cgunit is the unit of cgcoord and of nothing else.",
     "cgcoord was taken away.", "Leave cgunit out.", "$nmr\nicg\n  1\ncgunit\n  angstrom\n$end\n",
     "$nmr\nicg\n  1\n$end\n", note},
    {"sequence.mp2_unrestricted_direct",
     "Without saorb in $compass, $mp2 computes integrals when they are needed, and then "
     "knows closed shells only.",
     "saorb was forgotten.", "Write saorb in $compass.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$xuanyuan\n"
     "$end\n$scf\nuhf\n$end\n$mp2\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nsaorb\n$end\n"
     "$xuanyuan\n$end\n$scf\nuhf\n$end\n$mp2\n$end\n",
     warning},
    {"sequence.mp2_open_shell",
     "mp2 and ri-mp2 in a header run $mp2 without saorb, which knows closed shells only.",
     "The multiplicity or the charge was changed.",
     "Write modules: saorb in $compass, uhf in $scf, and $mp2.",
     "#! atom\nmp2/cc-pvdz spinmulti=3\n\nGeometry\nO 0 0 0\nEnd Geometry\n",
     "#! atom\nmp2/cc-pvdz\n\nGeometry\nNe 0 0 0\nEnd Geometry\n", warning},
    {"sequence.mp2_ro", "$mp2 starts from RHF or UHF, not from ROHF or ROKS.",
     "A method that was kept from another calculation.", "Use uhf, with saorb in $compass.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$xuanyuan\n"
     "$end\n$scf\nrohf\nspinmulti\n  3\n$end\n$mp2\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nsaorb\n$end\n"
     "$xuanyuan\n$end\n$scf\nuhf\nspinmulti\n  3\n$end\n$mp2\n$end\n",
     warning},
    {"sequence.grad_for_dft",
     "$grad is the gradient of Hartree-Fock and MCSCF; that of Kohn-Sham is computed by "
     "$resp.",
     "The functional was added to an input of Hartree-Fock.", "Use $resp with geom.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$xuanyuan\n"
     "$end\n$scf\nrks\ndft\n  b3lyp\n$end\n$grad\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$xuanyuan\n"
     "$end\n$scf\nrks\ndft\n  b3lyp\n$end\n$resp\ngeom\n$end\n",
     warning},
    {"sequence.elecoup_needs_nfragment",
     "electrans, enertrans and locales work with fragments, whose number is nfragment in "
     "$compass.",
     "The $compass of one molecule was copied.",
     "Give nfragment in $compass and the atoms in &database.", "", "", warning},
    {"sequence.elecoup_needs_database",
     "electrans, enertrans and locales need the atoms of each fragment, which stand in "
     "&database.",
     "The end of the input was not copied.",
     "End the input with &database, for each fragment 'fragment NUMBER ATOMS' and the "
     "numbers of its atoms, and &end.",
     "", "", warning},
    {"sequence.locales_needs_tddft",
     "locales makes those excited states local that $tddft has stored.",
     "istore was forgotten in $tddft.", "Give istore in a $tddft before it.", "", "", error},
    {"sequence.nfragment_without_database",
     "nfragment says how many fragments there are, and &database which atoms they have.",
     "The end of the input was not copied.",
     "End the input with &database, for each fragment 'fragment NUMBER ATOMS' and the "
     "numbers of its atoms, and &end.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnfragment\n  1\n"
     "$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnfragment\n  1\n"
     "$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n&database\nfragment 1 1\n  1\n&end\n",
     error},
    {"sequence.database_without_nfragment",
     "The fragments of &database are read when $compass has nfragment.", "nfragment was forgotten.",
     "Give nfragment in $compass.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\n$end\n$xuanyuan\n"
     "$end\n$scf\nrhf\n$end\n&database\nfragment 1 1\n  1\n&end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnfragment\n  1\n"
     "$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n&database\nfragment 1 1\n  1\n&end\n",
     warning},
    {"sequence.database_fragment_count", "&database has as many fragments as nfragment says.",
     "A fragment was added.", "Correct nfragment, or the list.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnfragment\n  2\n"
     "$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n&database\nfragment 1 1\n  1\n&end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  He 0 0 0\nend geometry\nnfragment\n  1\n"
     "$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n&database\nfragment 1 1\n  1\n&end\n",
     error},
    {"sequence.database_atom_count",
     "The head of a fragment, 'fragment NUMBER ATOMS', says how many atoms are listed "
     "behind it.",
     "An atom was added to the list.", "Correct the number, or the list.",
     "&database\nfragment 1 3\n  1 2\n&end\n$localmo\n$end\n",
     "&database\nfragment 1 2\n  1 2\n&end\n$localmo\n$end\n", error},
    {"sequence.localmo_two_methods", "boys and pipek are two ways of localising orbitals.",
     "Two ways were tried.", "Leave one out.", "$localmo\npipek\nboys\n$end\n",
     "$localmo\nboys\n$end\n", warning},
    {"sequence.posthf_needs_saorb",
     "$traint, $drt, $mrci and $xianci read integrals over symmetry orbitals, which are "
     "stored with saorb in $compass.",
     "saorb was forgotten.", "Write saorb in $compass.", "", "", warning},
    {"sequence.ci_needs_mcscf",
     "$xianci and $mrci take orbitals and the active space from $mcscf, or integrals from "
     "$traint.",
     "The module before it was taken away, or stands behind it.",
     "Compute the active space with $mcscf before it.", "", "", warning},
    {"sequence.mcscf_too_many_active_electrons", "An orbital holds two electrons.",
     "actel has all electrons, or an orbital was taken away.", "Correct actel, or active.",
     "$mcscf\nactive\n  2\nactel\n  6\n$end\n", "$mcscf\nactive\n  4\nactel\n  6\n$end\n", error},
    {"sequence.mcscf_spin_parity",
     "spin is the multiplicity 2S+1: odd for an even number of active electrons, even for "
     "an odd one. The other electrons are all paired.",
     "spin has the number of unpaired electrons, which is one less.", "Correct spin, or actel.",
     "$mcscf\nactive\n  4\nactel\n  6\nspin\n  2\n$end\n",
     "$mcscf\nactive\n  4\nactel\n  6\nspin\n  1\n$end\n", error},
    {"sequence.mcscf_electron_count",
     "Each orbital of core and close holds two electrons, and actel are in the active "
     "space: together all electrons.",
     "The spaces were copied from another molecule, or core orbitals were counted twice.",
     "Correct core, close or actel.", "", "", warning},
    {"sequence.automc_needs_expandmo", "automc takes close, active and actel from $expandmo.",
     "$expandmo was taken away, or stands behind it.",
     "Choose the active space with $expandmo before it, or give it.", "", "", error},
    {"sequence.expandmo_needs_checkfiles",
     "overlap projects the orbitals .inporb of one basis set, which .chkfil1 describes, to "
     "another one, which .chkfil2 describes. Lines of commands copy these files.",
     "The lines that begin with % were not copied.",
     "Copy each check file behind its $compass, and the orbitals.", "", "", warning},
    {"sequence.vgmfci_diatomic",
     "$vgmfci computes the vibrations of diatomic molecules. Ghosts, named X, do not "
     "count.",
     "An atom too many.", "Take another module, or another molecule.", "", "", warning},
});

}  // namespace

std::span<const FindingText> sequence_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
