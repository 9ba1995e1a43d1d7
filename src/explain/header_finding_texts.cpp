#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"header.shebang_missing",
     "The program reads a header and what follows only behind a line '#!' with a name.",
     "The first line was lost.", "Insert a line '#! name.bdf' as the first one.",
     "hf/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\nEnd Geometry\n",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\nEnd "
     "Geometry\n",
     error},
    {"header.shebang_indented",
     "The line '#!' begins in the first column; with blanks before it, it is passed over, and "
     "nothing is computed.",
     "The input was pasted with an indent.", "Take the blanks away.",
     "  #! water.bdf\nhf/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\n"
     "End Geometry\n",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\nEnd "
     "Geometry\n",
     error},
    {"header.spec_too_many_parts",
     "A specification has two or three parts: method, functional and basis set.",
     "A second basis set, or a task, was added with a slash.",
     "Give other basis sets in $compass, and tasks behind a blank.",
     "#! water.bdf\nrks/b3lyp/cc-pvdz/opt\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n",
     "#! water.bdf\nrks/b3lyp/cc-pvdz opt\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n"},
    {"header.task_twice", "The header has two tasks; which one counts is not documented.",
     "Two tasks that follow each other are one word of their own.",
     "Write opt+freq or scan+opt; newer releases write optfreq and scanopt.",
     "#! water.bdf\nrks/b3lyp/cc-pvdz opt freq\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 "
     "0.784 -0.185\nEnd Geometry\n",
     "#! water.bdf\nrks/b3lyp/cc-pvdz opt+freq\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 "
     "0.784 -0.185\nEnd Geometry\n"},
    {"header.method_needs_functional",
     "The Kohn-Sham and TDDFT methods need a functional between method and basis set.",
     "The functional was forgotten.", "Write method/functional/basis.",
     "#! water.bdf\nrks/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\n"
     "End Geometry\n",
     "#! water.bdf\nrks/b3lyp/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n",
     error},
    {"header.spinadapt_closed_shell",
     "Spin adaptation of TDDFT is for open shells, and this is a closed one.",
     "The multiplicity was forgotten, or the word left from another calculation.",
     "State the multiplicity, or use tddft.",
     "#! water.bdf\nx-tddft/b3lyp/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n",
     "#! water.bdf\nx-tddft/b3lyp/cc-pvdz spinmulti=3\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 "
     "-0.185\nH 0 0.784 -0.185\nEnd Geometry\n"},
    {"header.scan_needs_internal_coordinates",
     "The tasks scan and scan+opt vary a variable of internal coordinates, and these are "
     "Cartesian ones.",
     "A task was added to the input of a single point.",
     "Write the geometry in internal coordinates, or scan with $bdfopt.",
     "#! water.bdf\nhf/cc-pvdz scan\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n",
     "#! water.bdf\nhf/cc-pvdz scan\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 104.5\n\nR1 0.75 0.05 20\n"
     "End Geometry\n",
     error},
    {"header.scan_without_scan_line",
     "No variable of the geometry has start, step and number of points.",
     "The line was left as it was for a single point.",
     "Give the variable a line with start, step and number of points.",
     "#! water.bdf\nhf/cc-pvdz scan\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 104.5\n\nR1 0.75\nEnd "
     "Geometry\n",
     "#! water.bdf\nhf/cc-pvdz scan\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 104.5\n\nR1 0.75 0.05 20\n"
     "End Geometry\n",
     error},
    {"header.scan_line_without_scan_task",
     "A variable has start, step and number of points of a scan, but the header has no task that "
     "scans.",
     "The task was forgotten.",
     "Add scan, scan+opt or, in newer releases, scanopt; or give the variable one number.",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 104.5\n\nR1 0.75 0.05 20\nEnd "
     "Geometry\n",
     "#! water.bdf\nhf/cc-pvdz scan\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 104.5\n\nR1 0.75 0.05 20\n"
     "End Geometry\n",
     error},
    {"header.scan_step_invalid",
     "The step of a scan is 0, or its number of points no whole number from 1 on.",
     "The end was given instead of the number of points, or the numbers have another order.",
     "Give start, step and number of points.",
     "#! water.bdf\nhf/cc-pvdz scan\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 104.5\n\nR1 0.75 0.05 1.75\n"
     "End Geometry\n",
     "#! water.bdf\nhf/cc-pvdz scan\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 104.5\n\nR1 0.75 0.05 20\n"
     "End Geometry\n",
     error},
    {"header.hf_with_functional",
     "Hartree-Fock has no functional; hf, rhf, uhf and rohf pass it over.",
     "The method is that of another calculation.",
     "Use ks, rks, uks or roks, or take the functional away.",
     "#! water.bdf\nrhf/b3lyp/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n",
     "#! water.bdf\nrks/b3lyp/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n"},
    {"header.functional_header_vs_scf", "The header and $scf name different functionals.",
     "One of them was changed and the other was not.", "Keep one of them.",
     "#! water.bdf\nb3lyp/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\n"
     "End Geometry\n\n$scf\ndft\n  pbe0\n$end\n",
     "#! water.bdf\npbe0/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\n"
     "End Geometry\n"},
    {"header.method_header_vs_scf",
     "The header and $scf name different methods of the self-consistent field.",
     "One of them was changed and the other was not.", "Keep one of them.",
     "#! water.bdf\nrks/b3lyp/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n\n$scf\nuks\n$end\n",
     "#! water.bdf\nuks/b3lyp/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n"},
    {"header.charge_set_twice",
     "The charge stands in the header and in $scf; an error when the two differ. Releases since "
     "August 2026 want it in the header alone.",
     "One of them was changed and the other was not.", "Keep the one of the header.",
     "#! water.bdf\nhf/cc-pvdz charge=0\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n\n$scf\ncharge\n  0\n$end\n",
     "#! water.bdf\nhf/cc-pvdz charge=0\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n"},
    {"header.spin_set_twice",
     "The multiplicity stands in the header and in $scf; an error when the two differ. Releases "
     "since August 2026 want it in the header alone.",
     "One of them was changed and the other was not.", "Keep the one of the header.",
     "#! water.bdf\nhf/cc-pvdz spinmulti=3\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n\n$scf\nspinmulti\n  3\n$end\n",
     "#! water.bdf\nhf/cc-pvdz spinmulti=3\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n"},
    {"header.system_keyword_in_module_setting",
     "Charge, multiplicity and solvent concern the whole system, and belong into the header; "
     "Module Setting refines single modules.",
     "Older releases take them in $scf.", "Move it into the header.",
     "#! water.bdf\nuhf/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\n"
     "End Geometry\n\nModule Setting\n$scf\ncharge\n  1\n$end\nEnd Setting\n",
     "#! water.bdf\nuhf/cc-pvdz\ncharge 1\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n"},
    {"header.module_outside_setting",
     "With the lines Module Setting and End Setting, all modules stand between them.",
     "A module was added at the end.", "Move it between the two lines.",
     "#! water.bdf\nb3lyp/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\n"
     "End Geometry\n\nModule Setting\n$scf\nmaxiter\n  50\n$end\nEnd Setting\n$resp\ngeom\n$end\n",
     "#! water.bdf\nb3lyp/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 -0.185\n"
     "End Geometry\n\nModule Setting\n$scf\nmaxiter\n  50\n$end\n$resp\ngeom\n$end\nEnd Setting\n"},
    {"header.tddft_keyword_without_tddft",
     "spinflip, spinadapt, soc and nac set up excited states, which only the methods of TDDFT and "
     "TDA compute.",
     "The method was forgotten, as in b3lyp/cc-pvdz.",
     "Begin the method specification with tddft or another method of TDDFT or TDA.",
     "#! water.bdf\nb3lyp/cc-pvdz spinflip=1\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 "
     "0.784 -0.185\nEnd Geometry\n",
     "#! water.bdf\ntddft/b3lyp/cc-pvdz spinflip=1\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH "
     "0 0.784 -0.185\nEnd Geometry\n"},
    {"header.tddft_module_without_tddft_method",
     "The input has a $tddft, but the method of the header computes the ground state alone.",
     "A module was added to the input of a ground state.",
     "Use tddft or another method of TDDFT or TDA in the header.",
     "#! water.bdf\nrks/b3lyp/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n\n$tddft\niroot\n  5\n$end\n",
     "#! water.bdf\ntddft/b3lyp/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\nH 0 0.784 "
     "-0.185\nEnd Geometry\n\n$tddft\niroot\n  5\n$end\n"},
});

}  // namespace

std::span<const FindingText> header_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
