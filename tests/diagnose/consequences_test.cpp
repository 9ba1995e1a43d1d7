// One fault, one finding: what follows from a fault is not told, and what has no end is told where
// the end is missing.

#include <ostream>
#include <string>
#include <vector>

#include "diagnose/diagnosing.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  const char* what;
  std::string input;
  std::vector<std::string> found;  ///< code and what is marked
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what << " in\n" << row.input;
}

class Consequences : public ::testing::TestWithParam<Row> {};

TEST_P(Consequences, AreNotTold) {
  const ParsedInput input(GetParam().input, shipped_schema());
  std::vector<std::string> found;
  for (const Diagnostic& it : diagnose(input)) {
    found.push_back(it.code + (it.range ? " " + place_of(*it.range, input.source()) : ""));
  }
  EXPECT_EQ(found, GetParam().found);
}

const Row rows[] = {
    {"the entries of an unknown module",
     "$sfc\nrhf\ncharge\n1\n$end\n",
     {"bdf.unknown_module 1:1 '$sfc'"}},
    {"a number below a misspelt keyword",
     "$scf\nspinmlti\n3\nrhf\n$end\n",
     {"bdf.unknown_entry 2:1 'spinmlti'"}},
    {"a word below a misspelt keyword",
     "$compass\nbassis\ndef2-svp\n$end\n",
     {"bdf.unknown_entry 2:1 'bassis'"}},
    {"a word that the misspelt keyword allows",
     "$scf\ngues\n# c\n\nhuckel\n$end\n",
     {"bdf.unknown_entry 2:1 'gues'"}},
    {"two misspelt keywords",
     "$scf\nchrage\nspinmlti\n3\n$end\n",
     {"bdf.unknown_entry 2:1 'chrage'", "bdf.unknown_entry 3:1 'spinmlti'"}},
    {"words that are near nothing",
     "$scf\nfoo\nbar\n$end\n",
     {"bdf.unknown_entry 2:1 'foo'", "bdf.unknown_entry 3:1 'bar'"}},
    {"a number behind a known keyword",
     "$scf\nfoo\nrhf\n3\n$end\n",
     {"bdf.unknown_entry 2:1 'foo'", "bdf.unknown_entry 4:1 '3'"}},
    {"a misspelt keyword of a block, with its value",
     "$bdfopt\nneb-block\n nimgae\n 4\nend neb\n$end\n",
     {"bdf.unknown_nested_entry 3:2 'nimgae'"}},
    {"a misspelt keyword behind lines of values",
     "$scf\ndft\n  b3lyp\nspinmult\n  3\n$end\n",
     {"bdf.unknown_entry 4:1 'spinmult'"}},
    {"a misspelt keyword behind a value that may go on",
     "$compass\nbasis\n  def2-svp\nskeletn\n$end\n",
     {"bdf.unknown_entry 4:1 'skeletn'"}},
    {"a word that is nothing behind a value that is whole",
     "$scf\ndft\n  pbe0\nch arge\n$end\n",
     {"bdf.unknown_entry 4:1 'ch'"}},
    {"a misspelt keyword behind numbers",
     "$tddft\nnroot\n 1 2\n 3\nitset\n 1\n$end\n",
     {"bdf.unknown_entry 5:1 'itset'"}},
    {"an entry that a misspelt one needs",
     "$scf\nalpah\n 5 0\nbeta\n 4 0\n$end\n",
     {"bdf.unknown_entry 2:1 'alpah'"}},
    {"the other end of a conflict",
     "$scf\nrhf\nuhf\n$end\n",
     {"bdf.conflicting_entries 2:1 'rhf'"}},
    {"a missing $end before a module",
     "$scf\nrhf\n\n# c\n$xuanyuan\n$end\n",
     {"bdf.unterminated_module 2:1 'rhf'"}},
    {"a missing $end behind a value",
     "$scf\ncharge\n 1 # c\n",
     {"bdf.unterminated_module 3:2 '1'"}},
    {"a missing $end before a shell line",
     "$scf\nrhf\n%ls\n$xuanyuan\n$end\n",
     {"bdf.unterminated_module 2:1 'rhf'"}},
    {"a missing $end before a database",
     "$scf\nrhf\n&database\n x\n&end\n$xuanyuan\n$end\n",
     {"bdf.unterminated_module 2:1 'rhf'"}},
    {"an empty module without end", "$scf\n", {"bdf.unterminated_module 1:1 '$scf'"}},
    {"a block without end before a keyword",
     "$compass\ngeometry\n Ne 0 0 0\nbasis\n sto-3g\nskeletn\n$end\n",
     {"bdf.unterminated_entry_block 3:2 'Ne 0 0 0'", "bdf.unknown_entry 6:1 'skeletn'"}},
    {"a geometry without end before a module",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\n\n$scf\nchrage\n 1\n$end\n",
     {"bdf.unterminated_geometry 4:2 'Ne 0 0 0'", "bdf.unknown_entry 7:1 'chrage'"}},
    {"an end of nothing", "$scf\nrhf\n$end\n$end\n", {"frame.stray_end 4:1 '$end'"}},
    {"an end with a letter of another script",
     "$scf\nrhf\n$\xD0\xB5nd\n$xuanyuan\n$end\n",
     {"frame.misspelt_end 3:1 '$\xD0\xB5nd'"}},
    {"a header with another sign",
     "[COMPASS]\nTitle\n x\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\nend geometry\n$end\n",
     {"frame.missing_dollar 1:1 '[COMPASS]'"}},
    {"a header behind a sign and a dollar",
     "> $compass\nTitle\n x\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\nend geometry\n$end\n",
     {"frame.missing_dollar 1:1 '> $compass'"}},
    {"a header behind a no-break space",
     "\xC2\xA0$compass\nTitle\n x\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\nend geometry\n$end\n",
     {"frame.missing_dollar 1:1 '\xC2\xA0$compass'"}},
    {"a module without its header",
     "$scf\nrhf\n$end\ncharge\n 1\nvdsz\n$end\n$xuanyuan\n$end\n",
     {"frame.missing_header 4:1 'charge'"}},
    {"a first module without its header",
     "title\n water\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\nend geometry\n$end\n$scf\nrhf\n$end\n",
     {"frame.missing_header 1:1 'title'"}},
    {"a first module without its header and without a geometry",
     "rhf\nchrage\n 1\n$end\n$xuanyuan\n$end\n",
     {"frame.missing_header 1:1 'rhf'"}},
    {"atoms that nothing opens, in a module",
     "$compass\nbasis\n sto-3g\n# c\n Ne 0 0 0\n\n He 0 0 9\nend geometry\nskeletno\n$end\n",
     {"frame.missing_opening 5:2 'Ne 0 0 0'", "bdf.unknown_entry 9:1 'skeletno'"}},
    {"internal coordinates that nothing opens",
     "#! job\nhf/sto-3g\nO\nH 1 R1\nH 1 R1 2 109.\n\nR1 0.9\nEnd Geometry\n",
     {"frame.missing_opening 3:1 'O'"}},
    {"atoms that nothing opens and nothing ends",
     "#! job\nhf/sto-3g\nNe 0 0 0\n",
     {"bdf.missing_geometry"}},
    {"words before the first module",
     "water\nin vacuum\n$scf\nrhf\n$end\n",
     {"frame.stray_line 1:1 'water'"}},
    {"words between modules, one run of them",
     "$scf\nrhf\n$end\nhello # c\n\n# c\nworld\n$scf\nuhf\n$end\ncharge 1\n",
     {"frame.stray_line 4:1 'hello'", "frame.stray_line 11:1 'charge 1'"}},
    {"what may stand between modules",
     "$scf\nrhf\n$end\n%ls\n&database\nx\n&end\n* c\n # c\n...\n\n$xuanyuan\n$end\n......\n",
     {}},
    {"an input of another program",
     "%chk=a\n# b3lyp/6-31g(d) opt\n\n0 1\nO 0 0 0\n",
     {"frame.no_input 1:1 '%chk=a'"}},
    {"a page with nothing but a database", "&database\nx\n&end\n", {}},
    {"misspelt lines around the settings of modules",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEnd Geometry\nModul Setting # "
     "c\n$scf\nmaxiter\n 50\n$end\nENDSETTING\n",
     {"frame.misspelt_setting 6:1 'Modul Setting'", "frame.misspelt_setting 11:1 'ENDSETTING'"}},
    {"settings of modules behind a geometry without end",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nModule Setting\n$scf\nmaxiter\n 50\n$end\n"
     "End Setting\n",
     {"bdf.unterminated_geometry 4:2 'Ne 0 0 0'"}},
    {"an end of settings under another name",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEnd Geometry\nModule Setting\n"
     "$scf\nmaxiter\n 50\n$end\nEnd Module\n",
     {"frame.misspelt_setting 11:1 'End Module'"}},
    {"an end of settings with a sign",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEnd Geometry\nModule Setting\n"
     "$scf\nmaxiter\n 50\n$end\nEnd-Setting\n",
     {"frame.misspelt_setting 11:1 'End-Setting'"}},
    {"settings of modules without end",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEnd Geometry\nModule Settings\n$scf\nmaxiter\n "
     "50\n$end\n",
     {"frame.misspelt_setting 6:1 'Module Settings'",
      "frame.missing_setting_end 6:1 'Module Settings'"}},
    {"settings of modules, the rest of them left out",
     "#! job\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEnd Geometry\nmodule setting\n$scf\nmaxiter\n "
     "50\n$end\n...\n",
     {}},
    {"a header without its method",
     "charge=1\n$scf\nrhf\n$end\n",
     {"bdf.missing_geometry", "bdf.missing_method 1:1 'charge=1'"}},
    {"a shell script",
     "#!/bin/bash\n#SBATCH -n 4\nbdf water.inp\n",
     {"frame.shell_script 1:1 '#!/bin/bash'"}},
    {"a shell script by its environment",
     "#!/usr/bin/env bash\ncd x\n$scf\nodd\n$end\n",
     {"frame.shell_script 1:1 '#!/usr/bin/env bash'"}},
    {"a job script around an input",
     "#SBATCH -n 4\nmodule load bdf\ncat > a.inp << EOF\n$scf\nrhf\n$end\nEOF\nbdf a.inp\n",
     {"frame.shell_script 1:1 '#SBATCH -n 4'"}},
    {"commands without a script line",
     "\nexport BDFHOME=/opt/bdf\n$scf\nrhf\n$end\n",
     {"frame.shell_script 2:1 'export BDFHOME=/opt/bdf'"}},
    {"an input of Gaussian",
     "%mem=2GB\n#p b3lyp/6-31g(d) opt\n\nwater\n\n0 1\nO 0.0 0.0 0.0\nH 0.0 0.0 0.96\n\n",
     {"frame.other_program 2:1 '#p b3lyp/6-31g(d) opt'"}},
    {"an input of Gaussian, its route alone",
     "# HF/3-21G\n\nwater\n\n0 1\nO 0.0 0.0 0.0\n\n",
     {"frame.other_program 1:1 '# HF/3-21G'"}},
    {"an input of ORCA",
     "! B3LYP def2-SVP Opt\n%pal nprocs 4 end\n* xyz 0 1\nO 0.0 0.0 0.0\n*\n",
     {"frame.other_program 1:1 '! B3LYP def2-SVP Opt'"}},
    {"an input of Q-Chem",
     "$molecule\n0 1\nO 0.0 0.0 0.0\n$end\n$rem\nmethod b3lyp\n$end\n",
     {"frame.other_program 1:1 '$molecule'"}},
    {"a file of atoms", "2\nwater\nO 0.0 0.0 0.0\nH 0.0 0.0 0.96\n", {"frame.atoms_alone 1:1 '2'"}},
    {"a comment like a route above an input",
     "# b3lyp job\n\nb3lyp/def2-svp\n\nGeometry\n Ne 0 0 0\nEnd Geometry\n",
     {}},
    {"a comment like a route above a module",
     "# b3lyp job\n\nodd\n\n0 1\nO 0.0 0.0 0.0\n$scf\nrhf\n$end\n",
     {"frame.stray_line 3:1 'odd'"}},
    {"an input that begins like a script",
     "#!/bin/bash\nhf/sto-3g\nGeometry\n Ne 0 0 0\nEnd Geometry\n",
     {}},
    {"a byte order mark", "\xEF\xBB\xBF$scf\nrhf\n$end\n", {}},
};

INSTANTIATE_TEST_SUITE_P(Rows, Consequences, ::testing::ValuesIn(rows));

TEST(Consequences, OfAMissingEndPointAtTheBeginning) {
  const ParsedInput input("$scf\nrhf\n", shipped_schema());
  const auto found = diagnose(input);
  ASSERT_EQ(found.size(), 1U);
  ASSERT_EQ(found[0].related.size(), 1U);
  EXPECT_EQ(place_of(found[0].related[0].range, input.source()), "1:1 '$scf'");
  ASSERT_EQ(found[0].fixes.size(), 1U);
  EXPECT_FALSE(found[0].fixes[0].is_safe);
  EXPECT_EQ(apply_edits("$scf\nrhf\n", found[0].fixes[0].edits), "$scf\nrhf\n$end\n");
}

TEST(Consequences, OfAConflictPointAtTheOtherEntry) {
  const ParsedInput input("$scf\nuhf\nrhf\n$end\n", shipped_schema());
  const auto found = diagnose(input);
  ASSERT_EQ(found.size(), 1U);
  ASSERT_EQ(found[0].related.size(), 1U);
  EXPECT_EQ(place_of(found[0].related[0].range, input.source()), "3:1 'rhf'");
}

TEST(Findings, ComeInTheOrderOfTheTextThoseWithoutARangeFirst) {
  const ParsedInput input("$scf\ncharge\n 0\ncharge\n 1\nguess\n odd\n$end\n$tddft\nchrage\n$end\n",
                          shipped_schema());
  EXPECT_EQ(codes_of(diagnose(input)),
            (std::vector<std::string>{"bdf.duplicate_entry", "bdf.invalid_module_value",
                                      "bdf.unknown_entry"}));
}

// So many at a time are put in order; none is lost.
TEST(Findings, OfWhichThereAreVeryManyAreAllTold) {
  std::string text = "$scf\n";
  constexpr std::size_t many = 25000;
  for (std::size_t i = 0; i < many; ++i) {
    text += "odd" + std::string(i % 7, 'x') + "word\n";
  }
  std::size_t count = 0;
  diagnose(ParsedInput(text + "$end\n", shipped_schema()), {}, [&](const Diagnostic&) { ++count; });
  EXPECT_EQ(count, many);
}

}  // namespace
}  // namespace kelp::input::bdf
