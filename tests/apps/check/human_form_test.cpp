// What each finding looks like, byte for byte.

#include "check/check_fixture.hpp"

namespace kelp::test {
namespace {

struct Row {
  const char* code;
  std::string input;
  std::string report;  ///< without the closing line
  std::string summary;
  int status;
};

class HumanForm : public Check, public ::testing::WithParamInterface<Row> {};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.code << " in\n" << row.input;
}

TEST_P(HumanForm, ShowsTheFindingAtItsPlace) {
  const Row& row = GetParam();
  const Outcome outcome = check(row.input);
  EXPECT_EQ(outcome.out, row.report + "\n" + row.summary);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.status, row.status);
}

const std::string one_error = "1 error in 1 file (1 checked)\n";
const std::string one_warning = "1 warning in 1 file (1 checked)\n";
const std::string two_errors = "2 errors in 1 file (1 checked)\n";

const std::string geometry =
    "Geometry\n"
    " H 0 0 0\n"
    "End Geometry\n";

const Row header_rows[] = {
    {"bdf.invalid_easy_value", "#! job\nHF/sto-3g charge=one\n" + geometry,
     "error[bdf.invalid_easy_value]: BDF easy keyword 'charge' has an invalid value 'one'.\n"
     " --> a.inp:2:18\n"
     "  |\n"
     "2 | HF/sto-3g charge=one\n"
     "  |                  ^^^\n"
     "  = help: expected: an integer\n",
     one_error, 1},
    {"bdf.invalid_easy_value", "#! job\ncharge=0 HF/sto-3g charge = one # charge=two\n" + geometry,
     "error[bdf.invalid_easy_value]: BDF easy keyword 'charge' has an invalid value 'one'.\n"
     " --> a.inp:2:29\n"
     "  |\n"
     "2 | charge=0 HF/sto-3g charge = one # charge=two\n"
     "  |                             ^^^\n"
     "  = help: expected: an integer\n"
     "\n"
     "error[bdf.invalid_easy_value]: BDF easy keyword 'charge' has an invalid value 'two'.\n"
     " --> a.inp:2:42\n"
     "  |\n"
     "2 | charge=0 HF/sto-3g charge = one # charge=two\n"
     "  |                                          ^^^\n"
     "  = help: expected: an integer\n",
     two_errors, 1},
    {"bdf.invalid_easy_value", "#! job\nHF/sto-3g charge=x charge =x\ncharge= x\n" + geometry,
     "error[bdf.invalid_easy_value]: BDF easy keyword 'charge' has an invalid value 'x'.\n"
     " --> a.inp:2:18\n"
     "  |\n"
     "2 | HF/sto-3g charge=x charge =x\n"
     "  |                  ^\n"
     "  = help: expected: an integer\n"
     "\n"
     "error[bdf.invalid_easy_value]: BDF easy keyword 'charge' has an invalid value 'x'.\n"
     " --> a.inp:2:28\n"
     "  |\n"
     "2 | HF/sto-3g charge=x charge =x\n"
     "  |                            ^\n"
     "  = help: expected: an integer\n"
     "\n"
     "error[bdf.invalid_easy_value]: BDF easy keyword 'charge' has an invalid value 'x'.\n"
     " --> a.inp:3:9\n"
     "  |\n"
     "3 | charge= x\n"
     "  |         ^\n"
     "  = help: expected: an integer\n",
     "3 errors in 1 file (1 checked)\n", 1},
    {"bdf.missing_method", "#! job\n charge=0 spinmulti=1 \n" + geometry,
     "error[bdf.missing_method]: BDF easy/mixed input requires a method/functional/basis "
     "specification.\n"
     " --> a.inp:2:2\n"
     "  |\n"
     "2 |  charge=0 spinmulti=1 \n"
     "  |  ^^^^^^^^^^^^^^^^^^^^ no method, functional or basis here\n"
     "  = help: write for example 'B3LYP/def2-SVP' on the first line\n",
     one_error, 1},
    {"bdf.missing_method", "#! job\n" + geometry,
     "error[bdf.missing_method]: BDF easy/mixed input requires a method/functional/basis "
     "specification.\n"
     " --> a.inp\n"
     "  = help: write for example 'B3LYP/def2-SVP' on the first line\n",
     one_error, 1},
    {"bdf.missing_geometry", "#! job\nHF/sto-3g\n",
     "error[bdf.missing_geometry]: BDF easy/mixed input requires a Geometry ... End Geometry "
     "block.\n"
     " --> a.inp\n"
     "  = help: put the atoms between a line 'Geometry' and a line 'End Geometry'\n",
     one_error, 1},
    {"bdf.missing_geometry", "#! job\nHF/sto-3g\n  Geometry\nEnd Geometry\n",
     "error[bdf.missing_geometry]: BDF easy/mixed input requires a Geometry ... End Geometry "
     "block.\n"
     " --> a.inp:3:3\n"
     "  |\n"
     "3 |   Geometry\n"
     "  |   ^^^^^^^^ no atom follows\n"
     "  = help: put the atoms between a line 'Geometry' and a line 'End Geometry'\n",
     one_error, 1},
    {"bdf.unterminated_geometry", "#! job\nHF/sto-3g\nGeometry\n H 0 0 0\n",
     "error[bdf.unterminated_geometry]: BDF Geometry block is not terminated by End Geometry.\n"
     " --> a.inp:3:1\n"
     "  |\n"
     "3 | Geometry\n"
     "  | ^^^^^^^^ begins here\n"
     "  = help: add a line 'End Geometry' after the last atom\n",
     one_error, 1},
    {"bdf.empty_input", "",
     "error[bdf.empty_input]: BDF input is empty\n"
     " --> a.inp\n",
     one_error, 1},
};

const Row name_rows[] = {
    {"bdf.unknown_module", "$xuanyuna\n$end\n",
     "warning[bdf.unknown_module]: Unknown BDF module '$xuanyuna' was preserved raw.\n"
     " --> a.inp:1:1\n"
     "  |\n"
     "1 | $xuanyuna\n"
     "  | ^^^^^^^^^ not a module\n"
     "  = help: a similar module exists: 'xuanyuan'\n",
     one_warning, 0},
    {"bdf.unknown_module", "$scf # first try\nrhf\n$end\n",
     "warning[bdf.unknown_module]: Unknown BDF module '$scf # first try' was preserved raw.\n"
     " --> a.inp:1:6\n"
     "  |\n"
     "1 | $scf # first try\n"
     "  |      ^^^^^^^^^^^ taken as part of the name\n"
     "  = help: only '$scf' may stand on this line; put remarks on a line of their own\n"
     "\n"
     "warning[bdf.unknown_entry]: Unknown BDF module entry 'scf # first try.rhf' was preserved "
     "raw.\n"
     " --> a.inp:2:1\n"
     "  |\n"
     "2 | rhf\n"
     "  | ^^^ not an entry of $scf # first try\n",
     "2 warnings in 1 file (1 checked)\n", 0},
    {"bdf.unknown_entry", "$scf\n  ocupied 3\n$end\n",
     "warning[bdf.unknown_entry]: Unknown BDF module entry 'scf.ocupied' was preserved raw.\n"
     " --> a.inp:2:3\n"
     "  |\n"
     "2 |   ocupied 3\n"
     "  |   ^^^^^^^ not an entry of $scf\n"
     "  = help: a similar entry exists: 'occupied'\n",
     one_warning, 0},
    {"bdf.unknown_entry", "$xuanyuan\ncharge\n$end\n",
     "warning[bdf.unknown_entry]: Unknown BDF module entry 'xuanyuan.charge' was preserved raw.\n"
     " --> a.inp:2:1\n"
     "  |\n"
     "2 | charge\n"
     "  | ^^^^^^ not an entry of $xuanyuan\n"
     "  = help: it is an entry of '$autofrag' or '$scf'\n",
     one_warning, 0},
    {"bdf.unknown_entry", "$scf\nCharge=1\n$end\n",
     "warning[bdf.unknown_entry]: Unknown BDF module entry 'scf.charge=1' was preserved raw.\n"
     " --> a.inp:2:1\n"
     "  |\n"
     "2 | Charge=1\n"
     "  | ^^^^^^^^ not an entry of $scf\n"
     "  = help: write 'charge' and on the next line its value\n",
     one_warning, 0},
    {"bdf.unknown_entry", "$scf\nrhf\n 12\n$end\n",
     "warning[bdf.unknown_entry]: Unknown BDF module entry 'scf.12' was preserved raw.\n"
     " --> a.inp:3:2\n"
     "  |\n"
     "3 |  12\n"
     "  |  ^^ not an entry of $scf\n"
     "  = help: no keyword above takes this line as a value\n",
     one_warning, 0},
    {"bdf.unknown_nested_entry", "$bdfopt\nneb-block\n  crud\nend neb\n$end\n",
     "warning[bdf.unknown_nested_entry]: Unknown BDF nested entry 'bdfopt.neb-block.crud' was "
     "preserved raw.\n"
     " --> a.inp:3:3\n"
     "  |\n"
     "3 |   crud\n"
     "  |   ^^^^ not an entry of the block 'neb-block'\n"
     "  = help: a similar entry exists: 'crude'\n",
     one_warning, 0},
};

const Row structure_rows[] = {
    {"bdf.unterminated_module", "$scf\nrhf\n",
     "error[bdf.unterminated_module]: BDF module '$scf' is not terminated by $end.\n"
     " --> a.inp:1:1\n"
     "  |\n"
     "1 | $scf\n"
     "  | ^^^^ begins here\n"
     "  = help: add a line '$end' after its last entry\n",
     one_error, 1},
    {"bdf.unterminated_entry_block", "$compass\nbasis-block\n H sto-3g\n$end\n",
     "error[bdf.unterminated_entry_block]: BDF module entry block 'compass.basis-block' is not "
     "terminated by 'end basis'.\n"
     " --> a.inp:2:1\n"
     "  |\n"
     "2 | basis-block\n"
     "  | ^^^^^^^^^^^ begins here\n"
     "  = help: add a line 'end basis' after its last line\n",
     one_error, 1},
    {"bdf.missing_required_entry", "$scf\nalpha\n 5 0\n$end\n",
     "error[bdf.missing_required_entry]: BDF module entry 'scf.alpha' requires 'scf.beta'.\n"
     " --> a.inp:2:1\n"
     "  |\n"
     "2 | alpha\n"
     "  | ^^^^^\n",
     one_error, 1},
    {"bdf.missing_required_entry", "$bdfopt\nscan\n 1 2 0.1\n$end\n",
     "error[bdf.missing_required_entry]: BDF module entry 'bdfopt.scan' requires "
     "'bdfopt.solver'=1.\n"
     " --> a.inp:2:1\n"
     "  |\n"
     "2 | scan\n"
     "  | ^^^^\n",
     one_error, 1},
    {"bdf.conflicting_entries", "$scf\nRHF\n  uhf\n$end\n",
     "error[bdf.conflicting_entries]: BDF module entries 'scf.rhf' and 'scf.uhf' conflict.\n"
     " --> a.inp:2:1\n"
     "  |\n"
     "2 | RHF\n"
     "  | ^^^ not beside line 3\n"
     "\n"
     "error[bdf.conflicting_entries]: BDF module entries 'scf.uhf' and 'scf.rhf' conflict.\n"
     " --> a.inp:3:3\n"
     "  |\n"
     "3 |   uhf\n"
     "  |   ^^^ not beside line 2\n",
     two_errors, 1},
    {"bdf.duplicate_entry", "$scf\ncharge\n 0\nrhf\ncharge\n 1\ncharge\n 2\n$end\n",
     "warning[bdf.duplicate_entry]: BDF module entry 'scf.charge' is repeated although the manual "
     "defines it as singular.\n"
     " --> a.inp:5:1\n"
     "  |\n"
     "5 | charge\n"
     "  | ^^^^^^ first given on line 2\n",
     one_warning, 0},
    {"bdf.duplicate_module", "$bdfopt\n$end\n$scf\n$end\n  $BDFOPT\n$end\n",
     "warning[bdf.duplicate_module]: BDF module '$bdfopt' is repeated although the schema marks it "
     "singular.\n"
     " --> a.inp:5:3\n"
     "  |\n"
     "5 |   $BDFOPT\n"
     "  |   ^^^^^^^ first given on line 1\n",
     one_warning, 0},
    {"bdf.duplicate_entry", "$bdfopt\nneb-block\n crude\n Crude\nend neb\n$end\n",
     "warning[bdf.duplicate_entry]: BDF nested entry 'bdfopt.neb-block.crude' is repeated although "
     "the manual defines it as singular.\n"
     " --> a.inp:4:2\n"
     "  |\n"
     "4 |  Crude\n"
     "  |  ^^^^^ first given on line 3\n",
     one_warning, 0},
};

const Row value_rows[] = {
    {"bdf.missing_entry_value", "$scf\ncharge\n$end\n",
     "warning[bdf.missing_entry_value]: BDF module entry 'scf.charge' normally requires a value.\n"
     " --> a.inp:2:1\n"
     "  |\n"
     "2 | charge\n"
     "  | ^^^^^^ no value follows\n"
     "  = help: expected: an integer\n",
     one_warning, 0},
    {"bdf.missing_entry_value", "$scf\ncharge  1 \n$end\n",
     "warning[bdf.missing_entry_value]: BDF module entry 'scf.charge' normally requires a value.\n"
     " --> a.inp:2:9\n"
     "  |\n"
     "2 | charge  1 \n"
     "  |         ^ not read here\n"
     "  = help: write the value on the next line; what stands behind a keyword is not read\n",
     one_warning, 0},
    {"bdf.invalid_module_value", "$scf\ncharge\n  one # not two\n$end\n",
     "error[bdf.invalid_module_value]: BDF module entry 'scf.charge' has an invalid value 'one'.\n"
     " --> a.inp:3:3\n"
     "  |\n"
     "3 |   one # not two\n"
     "  |   ^^^\n"
     "  = help: expected: an integer\n",
     one_error, 1},
    {"bdf.invalid_module_value", "$scf\nguess\n huckle\n$end\n",
     "error[bdf.invalid_module_value]: BDF module entry 'scf.guess' has an invalid value "
     "'huckle'.\n"
     " --> a.inp:3:2\n"
     "  |\n"
     "3 |  huckle\n"
     "  |  ^^^^^^\n"
     "  = help: a similar value exists: 'huckel'\n"
     "  = help: expected: 'atom', 'hcore', 'huckel', 'readmo' or 'read'\n",
     one_error, 1},
    {"bdf.invalid_module_value", "$bdfopt\nneb-block\n  nimage\n  0\nend neb\n$end\n",
     "error[bdf.invalid_module_value]: BDF module entry 'bdfopt.neb-block.nimage' has an invalid "
     "value '0'.\n"
     " --> a.inp:4:3\n"
     "  |\n"
     "4 |   0\n"
     "  |   ^\n"
     "  = help: expected: an integer of at least 1\n",
     one_error, 1},
    {"bdf.invalid_module_value", "$scf\nalpha\n 5 x 0\nbeta\n 4 0 0\n$end\n",
     "error[bdf.invalid_module_value]: BDF module entry 'scf.alpha' has an invalid value '5 x 0'.\n"
     " --> a.inp:3:4\n"
     "  |\n"
     "3 |  5 x 0\n"
     "  |    ^\n"
     "  = help: expected: at least 1 integer\n",
     one_error, 1},
    {"bdf.invalid_module_value", "$compass\natommass\n2\n1 2.0\n2 heavy\n$end\n",
     "error[bdf.invalid_module_value]: BDF module entry 'compass.atommass' has an invalid value "
     "'2 | 1 2.0 | 2 heavy'.\n"
     " --> a.inp:5:1\n"
     "  |\n"
     "5 | 2 heavy\n"
     "  | ^^^^^^^\n"
     "  = help: expected: the number of rows, then the rows of 2 fields (integer, float)\n",
     one_error, 1},
    {"bdf.invalid_module_value", "$compass\natommass\n3\n1 2.0\n$end\n",
     "error[bdf.invalid_module_value]: BDF module entry 'compass.atommass' has an invalid value "
     "'3 | 1 2.0'.\n"
     " --> a.inp:3:1\n"
     "  |\n"
     "3 | 3\n"
     "  | ^\n"
     "  = help: expected: the number of rows, then the rows of 2 fields (integer, float)\n",
     one_error, 1},
};

INSTANTIATE_TEST_SUITE_P(Header, HumanForm, ::testing::ValuesIn(header_rows));
INSTANTIATE_TEST_SUITE_P(Names, HumanForm, ::testing::ValuesIn(name_rows));
INSTANTIATE_TEST_SUITE_P(Structure, HumanForm, ::testing::ValuesIn(structure_rows));
INSTANTIATE_TEST_SUITE_P(Values, HumanForm, ::testing::ValuesIn(value_rows));

}  // namespace
}  // namespace kelp::test
