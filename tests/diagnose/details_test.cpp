// What is said of each finding: where it stands, what is wrong there, what to do.

#include <ostream>
#include <string>
#include <vector>

#include "diagnose/diagnosing.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  const char* what;
  std::string input;
  std::vector<std::string> found;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what << " in\n" << row.input;
}

class Details : public ::testing::TestWithParam<Row> {};

TEST_P(Details, SayWhereAndWhatAndWhatToDo) {
  EXPECT_EQ(texts_of(parse(GetParam().input)), GetParam().found);
}

const std::string geometry =
    "Geometry\n"
    " H 0 0 0\n"
    "End Geometry\n";

const Row header_rows[] = {
    {"a value of the header",
     "#! job\nHF/sto-3g charge=one\n" + geometry,
     {"error bdf.invalid_easy_value of easy.charge [charge] [one]\n"
      "2:18 'one'\n"
      "help: expected: an integer\n"}},
    {"a value of the header that stands apart, before a comment",
     "#! job\nspinmulti=1 HF/sto-3g charge = one # charge=two\n" + geometry,
     {"error bdf.invalid_easy_value of easy.charge [charge] [one]\n"
      "2:32 'one'\n"
      "help: expected: an integer\n"}},
    {"a value of the header behind its keyword",
     "#! job\nHF/sto-3g\n charge  one # two\n" + geometry,
     {"error bdf.invalid_easy_value of easy.charge [charge] [one]\n"
      "3:10 'one'\n"
      "help: expected: an integer\n"}},
    {"equal values of the header",
     "#! job\nHF/sto-3g charge=x charge =x#1\ncharge= x\n" + geometry,
     {"error bdf.invalid_easy_value of easy.charge [charge] [x]\n"
      "2:18 'x'\n"
      "help: expected: an integer\n",
      "warning header.keyword_twice of easy.charge [charge]\n"
      "2:20 'charge': first given on line 2\n"
      "2:11 'charge=x' is related: first given here\n"
      "help: keep the one that is meant; which of them counts is not said\n",
      "error bdf.invalid_easy_value of easy.charge [charge] [x]\n"
      "2:28 'x'\n"
      "help: expected: an integer\n",
      "warning header.keyword_twice of easy.charge [charge]\n"
      "3:1 'charge': first given on line 2\n"
      "2:11 'charge=x' is related: first given here\n"
      "help: keep the one that is meant; which of them counts is not said\n",
      "error bdf.invalid_easy_value of easy.charge [charge] [x]\n"
      "3:9 'x'\n"
      "help: expected: an integer\n"}},
    {"a header without a method",
     "#! job\n charge=0 spinmulti=1 # c\n" + geometry,
     {"error bdf.missing_method\n"
      "2:2 'charge=0 spinmulti=1': no method, functional or basis here\n"
      "help: write for example 'B3LYP/def2-SVP' on the first line\n"}},
    {"no header",
     "#! job\n" + geometry,
     {"error bdf.missing_method\n"
      "help: write for example 'B3LYP/def2-SVP' on the first line\n"}},
    {"no geometry",
     "#! job\nHF/sto-3g\n",
     {"error bdf.missing_geometry\n"
      "help: put the atoms between a line 'Geometry' and a line 'End Geometry'\n"}},
    {"an empty geometry",
     "#! job\nHF/sto-3g\n  Geometry\nEnd Geometry\n",
     {"error bdf.missing_geometry of geometry\n"
      "3:3 'Geometry': no atom follows\n"
      "help: put the atoms between a line 'Geometry' and a line 'End Geometry'\n"}},
    {"a geometry without end",
     "#! job\nHF/sto-3g\nGeometry\n H 0 0 0\n",
     {"error bdf.unterminated_geometry of geometry\n"
      "4:2 'H 0 0 0': 'End Geometry' is missing behind this\n"
      "3:1 'Geometry' is related: begins here\n"
      "help: add a line 'End Geometry' behind it\n"}},
    {"nothing", "", {"error bdf.empty_input\n"}},
    {"nothing but comments", "\n# c\n* d\n", {"error bdf.empty_input\n"}},
};

const Row name_rows[] = {
    {"a misspelt module",
     "$xuanyuna\n$end\n",
     {"warning bdf.unknown_module of xuanyuna [xuanyuna]\n"
      "1:1 '$xuanyuna': not a module\n"
      "help: a similar module exists: 'xuanyuan'\n"
      "meant: xuanyuan\n"}},
    {"a misspelt module before a comment",
     "$xuanyuna# c\n$end\n",
     {"warning bdf.unknown_module of xuanyuna [xuanyuna]\n"
      "1:1 '$xuanyuna': not a module\n"
      "help: a similar module exists: 'xuanyuan'\n"
      "meant: xuanyuan\n"}},
    {"words behind a module's name",
     "$scf first try # c\nrhf\n$end\n",
     {"warning bdf.unknown_module of scf first try [scf first try]\n"
      "1:6 'first try': taken as part of the name\n"
      "help: only '$scf' and a comment may stand on this line\n"}},
    {"a misspelt entry of a second module",
     "$scf\n$end\n$scf\n  ocupied#c\n$end\n",
     {"warning bdf.unknown_entry of scf#2.ocupied [scf] [ocupied]\n"
      "4:3 'ocupied': not an entry of $scf\n"
      "help: a similar entry exists: 'occupied'\n"
      "meant: occupied\n"}},
    {"an entry like two others",
     "$scf\nrhx\n$end\n",
     {"warning bdf.unknown_entry of scf.rhx [scf] [rhx]\n"
      "2:1 'rhx': not an entry of $scf\n"
      "help: similar entries exist: 'rhf' or 'rhs'\n"
      "meant: rhf\n"
      "meant: rhs\n"}},
    {"an entry of other modules",
     "$xuanyuan\ncharge\n$end\n",
     {"warning bdf.unknown_entry of xuanyuan.charge [xuanyuan] [charge]\n"
      "2:1 'charge': not an entry of $xuanyuan\n"
      "help: it is an entry of '$autofrag' or '$scf'\n"}},
    {"an entry in the header's form",
     "$scf\nCharge=1\n$end\n",
     {"warning bdf.unknown_entry of scf.charge=1 [scf] [charge=1]\n"
      "2:1 'Charge=1': not an entry of $scf\n"
      "help: write 'charge' and on the next line its value\n"}},
    {"a number where no value is expected",
     "$scf\nrhf\n 12\n$end\n",
     {"warning bdf.unknown_entry of scf.12 [scf] [12]\n"
      "3:2 '12': not an entry of $scf\n"
      "help: no keyword above takes this line as a value\n"}},
    {"a misspelt entry of a block",
     "$bdfopt\nneb-block\n  crud\nend neb\n$end\n",
     {"warning bdf.unknown_nested_entry of bdfopt.neb-block.crud [bdfopt.neb-block] [crud]\n"
      "3:3 'crud': not an entry of the block 'neb-block'\n"
      "help: a similar entry exists: 'crude'\n"
      "meant: crude\n"}},
};

const Row structure_rows[] = {
    {"a module without end",
     "$scf\nrhf\n",
     {"error bdf.unterminated_module of scf [scf]\n"
      "2:1 'rhf': '$end' is missing behind this\n"
      "1:1 '$scf' is related: begins here\n"
      "help: add a line '$end' behind it\n"}},
    {"a block without end",
     "$compass\nbasis-block\n H sto-3g\n$end\n",
     {"error bdf.unterminated_entry_block of compass.basis-block [compass.basis-block] [end "
      "basis]\n"
      "3:2 'H sto-3g': 'end basis' is missing behind this\n"
      "2:1 'basis-block' is related: begins here\n"
      "help: add a line 'end basis' behind it\n"}},
    {"an entry that needs another one",
     "$scf\nalpha\n 5 0\n$end\n",
     {"error bdf.missing_required_entry of scf.alpha [scf] [alpha] [beta] []\n"
      "2:1 'alpha'\n"}},
    {"an entry that needs a value of another one",
     "$bdfopt\nscan\n 1 2 0.1\n$end\n",
     {"error bdf.missing_required_entry of bdfopt.scan [bdfopt] [scan] [solver] [1]\n"
      "2:1 'scan'\n"}},
    {"entries that exclude each other",
     "$scf\nRHF\n  uhf\n$end\n",
     {"error bdf.conflicting_entries of scf.rhf [scf] [rhf] [uhf]\n"
      "2:1 'RHF': not beside line 3\n"
      "3:3 'uhf' is related: conflicts with this\n"}},
    {"an entry given three times",
     "$scf\ncharge\n 0\nrhf\ncharge\n 1\ncharge\n 2\n$end\n",
     {"warning bdf.duplicate_entry of scf.charge [scf] [charge]\n"
      "5:1 'charge': first given on line 2\n"
      "2:1 'charge' is related: first given here\n"}},
    {"an entry given again by another name",
     "$scf\noccupied\n 0\n  occupy\n 1\n$end\n",
     {"warning bdf.duplicate_entry of scf.occupy [scf] [occupy]\n"
      "4:3 'occupy': first given on line 2\n"
      "2:1 'occupied' is related: first given here\n"}},
    {"a module given again",
     "$bdfopt\n$end\n$scf\n$end\n  $BDFOPT\n$end\n",
     {"warning bdf.duplicate_module of bdfopt#2 [bdfopt]\n"
      "5:3 '$BDFOPT': first given on line 1\n"
      "1:1 '$bdfopt' is related: first given here\n"}},
    {"an entry of a block given again",
     "$bdfopt\nneb-block\n crude\n Crude\nend neb\n$end\n",
     {"warning bdf.duplicate_entry of bdfopt.neb-block.crude [bdfopt.neb-block] [crude]\n"
      "4:2 'Crude': first given on line 3\n"
      "3:2 'crude' is related: first given here\n"}},
};

const Row value_rows[] = {
    {"no value",
     "$scf\ncharge # 1\n$end\n",
     {"warning bdf.missing_entry_value of scf.charge [scf.charge]\n"
      "2:1 'charge': no value follows\n"
      "help: expected: an integer\n"}},
    {"lines of a block on the keyword's line",
     "$compass\nbasis-block  H sto-3g # c \nend basis\n$end\n",
     {"warning bdf.missing_entry_value of compass.basis-block [compass.basis-block]\n"
      "2:14 'H sto-3g': not read here\n"
      "help: write it on the next line; what stands behind the keyword of a block is not read\n"}},
    {"a value of another type on the keyword's line",
     "$scf\ncharge  one # two\n$end\n",
     {"error bdf.invalid_module_value of scf.charge [scf.charge] [one]\n"
      "2:9 'one'\n"
      "help: expected: an integer\n"}},
    {"a value of a block's entry on the keyword's line",
     "$bdfopt\nneb-block\n nimage 0\nend neb\n$end\n",
     {"error bdf.invalid_module_value of bdfopt.neb-block.nimage [bdfopt.neb-block.nimage] [0]\n"
      "3:9 '0'\n"
      "help: expected: an integer of at least 1\n"}},
    {"a value of another type",
     "$scf\ncharge\n  one # not two\n$end\n",
     {"error bdf.invalid_module_value of scf.charge [scf.charge] [one]\n"
      "3:3 'one'\n"
      "help: expected: an integer\n"}},
    {"a misspelt word",
     "$scf\nguess\n huckle\n$end\n",
     {"error bdf.invalid_module_value of scf.guess [scf.guess] [huckle]\n"
      "3:2 'huckle'\n"
      "help: a similar value exists: 'huckel'\n"
      "help: expected: 'atom', 'hcore', 'huckel', 'readmo' or 'read'\n"
      "meant: huckel\n"}},
    {"a value out of bounds in a block",
     "$bdfopt\nneb-block\n  nimage\n  0\nend neb\n$end\n",
     {"error bdf.invalid_module_value of bdfopt.neb-block.nimage [bdfopt.neb-block.nimage] [0]\n"
      "4:3 '0'\n"
      "help: expected: an integer of at least 1\n"}},
    {"one field of several",
     "$scf\nalpha\n 5 x 0\nbeta\n 4 0 0\n$end\n",
     {"error bdf.invalid_module_value of scf.alpha [scf.alpha] [5 x 0]\n"
      "3:4 'x'\n"
      "help: expected: at least 1 integer\n"}},
    {"one field too many",
     "$scf\ncharge\n 1 2\n$end\n",
     {"error bdf.invalid_module_value of scf.charge [scf.charge] [1 2]\n"
      "3:2 '1 2'\n"
      "help: expected: an integer\n"}},
    {"a wrong row",
     "$compass\natommass\n2\n1 2.0\n2 heavy # c\n$end\n",
     {"error bdf.invalid_module_value of compass.atommass [compass.atommass] "
      "[2 | 1 2.0 | 2 heavy]\n"
      "5:1 '2 heavy'\n"
      "help: expected: the number of rows, then the rows of 2 fields (integer, float)\n"}},
    {"a wrong number of rows",
     "$compass\natommass\n3\n1 2.0\n$end\n",
     {"error bdf.invalid_module_value of compass.atommass [compass.atommass] [3 | 1 2.0]\n"
      "3:1 '3'\n"
      "help: expected: the number of rows, then the rows of 2 fields (integer, float)\n"}},
    {"a comment for a value",
     "$scf\ncharge\n # 1\n$end\n",
     {"warning bdf.missing_entry_value of scf.charge [scf.charge]\n"
      "2:1 'charge': no value follows\n"
      "help: expected: an integer\n"}},
};

INSTANTIATE_TEST_SUITE_P(Header, Details, ::testing::ValuesIn(header_rows));
INSTANTIATE_TEST_SUITE_P(Names, Details, ::testing::ValuesIn(name_rows));
INSTANTIATE_TEST_SUITE_P(Structure, Details, ::testing::ValuesIn(structure_rows));
INSTANTIATE_TEST_SUITE_P(Values, Details, ::testing::ValuesIn(value_rows));

TEST(Details, OfAConflictNamedByAnAliasPointAtTheOther) {
  const InputSchema schema = InputSchema::from_yaml(
      "schema_version: 1\n"
      "modules: {m: {entries: {a: {kind: flag, conflicts: [bb]}, b: {kind: flag, aliases: "
      "[bb]}}}}");
  const ParsedInput input("$m\na\nb\n$end\n", schema);
  EXPECT_THAT(texts_of(input),
              ::testing::ElementsAre("error bdf.conflicting_entries of m.a [m] [a] "
                                     "[bb]\n"
                                     "2:1 'a': not beside line 3\n"
                                     "3:1 'b' is related: conflicts with this\n"));
}

}  // namespace
}  // namespace kelp::input::bdf
