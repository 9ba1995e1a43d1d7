// Advice that only follows from a word that nobody knows is not given, and what may be written
// unasked is written nowhere else but where it mends.

#include <ostream>
#include <string>
#include <vector>

#include "diagnose/diagnosing.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

const std::string compass =
    "$compass\nbasis\n cc-pvdz\ngeometry\n O 0 0 0\n H 0 0.76 0.59\n H 0 -0.76 0.59\nend geometry\n"
    "$end\n";
const std::string integrals = "$xuanyuan\n$end\n";
const std::string scf = "$scf\nrhf\n$end\n";

std::string with(std::string text, const std::string& part, const std::string& other) {
  return text.replace(text.find(part), part.size(), other);
}

struct Row {
  const char* what;
  std::string input;
  std::vector<std::string> codes;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what << " in\n" << row.input;
}

class Causes : public ::testing::TestWithParam<Row> {};

TEST_P(Causes, AreToldWithoutWhatFollows) {
  std::vector<std::string> codes;
  for (const Diagnostic& it : diagnose(ParsedInput(GetParam().input, shipped_schema()))) {
    codes.push_back(it.code);
  }
  EXPECT_EQ(codes, GetParam().codes);
}

const Row rows[] = {
    {"a basis set that is missing",
     with(compass, "basis\n cc-pvdz\n", "") + integrals + scf,
     {"basis.basis_missing"}},
    {"a basis set behind a misspelt keyword",
     with(compass, "basis\n", "bxsys\n") + integrals + scf,
     {"bdf.unknown_entry"}},
    {"a method that is misspelt",
     compass + integrals + "$scf\nrqhf\n$end\n",
     {"bdf.unknown_entry"}},
    {"a charge that is misspelt",
     compass + integrals + "$scf\nrhf\nchareg\n 1\nspinmulti\n 2\n$end\n",
     {"bdf.unknown_entry"}},
    {"a module that is misspelt", compass + "$xunayaun\n$end\n" + scf, {"bdf.unknown_module"}},
    {"a basis set in another block",
     with(compass, "basis\n cc-pvdz\n", "") + integrals + "$scf\nrhf\nbasis\n cc-pvdz\n$end\n",
     {"bdf.unknown_entry"}},
    {"a list that lacks a number",
     with(compass, "basis\n", "group\n C(2v)\nbasis\n") + integrals +
         "$scf\nuhf\nspinmulti\n 3\nalpha\n 4 0 1 1\nbeta\n 3 0 1\n$end\n",
     {"symmetry.irrep_count"}},
    {"all atoms twice",
     with(compass, "end geometry\n",
          " O 0 0 0\n H 0 0.76 0.59\n H 0 -0.76 0.59\n O 0 0 0\nend geometry\n") +
         integrals + scf,
     {"geometry.atoms_coincide"}},
    {"a word that is missing in one block and stands in another",
     compass + integrals + "$scf\nrhf\nnosymm\n$end\n$nmr\nicg\n 1\n$end\n",
     {"bdf.unknown_entry"}},
};

INSTANTIATE_TEST_SUITE_P(Rows, Causes, ::testing::ValuesIn(rows));

struct SafeRow {
  const char* what;
  std::string before;
  std::string after;  ///< with all safe fixes
};

void PrintTo(const SafeRow& row, std::ostream* stream) {
  *stream << row.what << " in\n" << row.before;
}

class SafeFixes : public ::testing::TestWithParam<SafeRow> {};

std::string with_safe_fixes(const std::string& text) {
  std::vector<TextEdit> edits;
  for (const Diagnostic& it : diagnose(ParsedInput(text, shipped_schema()))) {
    for (const Fix& fix : it.fixes) {
      if (fix.is_safe) {
        edits.insert(edits.end(), fix.edits.begin(), fix.edits.end());
        break;
      }
    }
  }
  return apply_edits(text, edits);
}

TEST_P(SafeFixes, WriteWhatIsMeant) {
  EXPECT_EQ(with_safe_fixes(GetParam().before), GetParam().after);
}

SafeRow unchanged(const char* what, const std::string& text) {
  return {what, text, text};
}

std::string scf_with(const std::string& lines) {
  return "$scf\nrhf\n" + lines + "$end\n";
}

const SafeRow safe_rows[] = {
    {"a letter too many", scf_with("occuppied\n 5\n"), scf_with("occupied\n 5\n")},
    {"a digit that looks like a letter", with(compass, "basis\n", "n0symm\nbasis\n"),
     with(compass, "basis\n", "nosymm\nbasis\n")},
    {"a sign before a keyword", scf_with("-molden\n"), scf_with("molden\n")},
    {"a number glued to a keyword", "$tddft\nistore1\n$end\n", "$tddft\nistore\n  1\n$end\n"},
    {"a number with a sign glued to a keyword", scf_with("charge-3\n"), scf_with("charge\n  -3\n")},
    unchanged("a number glued to a keyword with others", "$autofrag\nradcent3\n 4\n$end\n"),
    unchanged("a keyword of another module", "$bdfopt\nnosym\n$end\n"),
    unchanged("a value without its keyword", scf_with("coarse\n")),
    unchanged("a first letter too few", "$resp\nsolver\n 1\n$end\n"),
    unchanged("two strokes in a short word", scf_with("noiter\n")),
    unchanged("a value that is none of the keyword that is near",
              "$localmo\npipek\nthreshold\n 1.d-9 1.d-8\n$end\n"),
    unchanged("a keyword in place of a module", compass + integrals + scf + "$grid\n$end\n"),
    unchanged("a short name of the header that takes any value",
              "#! job\nhf/sto-3g scrf=water\nGeometry\nNe 0 0 0\nEnd Geometry\n"),
    {"a keyword whose value is gone", compass + integrals + scf + "$nmr\nicg\n 1\n$end\n",
     with(compass, "$end\n", "nosymm\n$end\n") + integrals + scf + "$nmr\nicg\n 1\n$end\n"},
    unchanged("a group whose value is gone", with(compass, "basis\n", "group\n# C(1)\nbasis\n") +
                                                 integrals + scf + "$nmr\nicg\n 1\n$end\n"),
    unchanged("a module that may be there, misspelt", compass + "$xunayaun\n$end\n" + scf),
    unchanged("a module without its end",
              compass + "$bdfopt\niopt\n 3\n$end\n" + integrals + scf + "$resp"),
    {"a sign before every line", "> $scf\n>   rhf\n> $end\n\n> $xuanyuan\n> $end\n",
     "$scf\n  rhf\n$end\n\n$xuanyuan\n$end\n"},
    {"the first line", "! job\nhf/sto-3g\n\nGeometry\nNe 0 0 0\nEnd Geometry\n",
     "#! job\nhf/sto-3g\n\nGeometry\nNe 0 0 0\nEnd Geometry\n"},
    {"the first line in wide letters",
     "\xEF\xBC\x83\xEF\xBC\x81 job\nhf/sto-3g\n\nGeometry\nNe 0 0 0\nEnd Geometry\n",
     "#! job\nhf/sto-3g\n\nGeometry\nNe 0 0 0\nEnd Geometry\n"},
    {"words before atoms", with(compass, "geometry\n", "begin geometry\n"), compass},
    unchanged("a word before atoms", with(compass, "geometry\n", "atoms\n")),
    {"a lost line before internal coordinates and a scan",
     "#! job\nhf/sto-3g scan\n\nO\nH 1 R1\nH 1 R1 2 A1\n\nA1 = 109.\n\nR1 0.75 0.05 20\nEnd "
     "geometry\n",
     "#! job\nhf/sto-3g scan\n\ngeometry\nO\nH 1 R1\nH 1 R1 2 A1\n\nA1 = 109.\n\nR1 0.75 0.05 "
     "20\nEnd geometry\n"},
};

INSTANTIATE_TEST_SUITE_P(Rows, SafeFixes, ::testing::ValuesIn(safe_rows));

}  // namespace
}  // namespace kelp::input::bdf
