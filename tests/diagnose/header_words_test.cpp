// Words of the header that are misspelt, cut or given twice, and names among values.

#include <ostream>

#include "diagnose/diagnosing.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  const char* what;
  std::string header;
  std::vector<std::string> found;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what << ": " << row.header;
}

ParsedInput with_header(const std::string& header) {
  return ParsedInput("#! job\n" + header + "\nGeometry\n H 0 0 0\nEnd Geometry\n",
                     shipped_schema());
}

class HeaderWords : public ::testing::TestWithParam<Row> {};

TEST_P(HeaderWords, AreToldOf) {
  EXPECT_EQ(texts_of(with_header(GetParam().header)), GetParam().found);
}

const Row rows[] = {
    {"a method of three parts",
     "TDDTF/B3LYP/def2-SVP",
     {"warning header.unknown_method [TDDTF]\n"
      "2:1 'TDDTF': not a method\n"
      "help: a similar method exists: 'tddft'\n"
      "meant: tddft\n"}},
    {"a method that resembles none",
     "ccsd/B3LYP/def2-SVP",
     {"warning header.unknown_method [ccsd]\n"
      "2:1 'ccsd': not a method\n"}},
    {"a method of two parts",
     "rhof/def2-SVP",
     {"warning header.unknown_method [rhof]\n"
      "2:1 'rhof': not a method that is listed\n"
      "help: a similar method exists: 'rohf'\n"
      "meant: rohf\n"}},
    {"a functional and a basis set",
     "B3LPY/def2-spv",
     {"warning header.unknown_functional [B3LPY]\n"
      "2:1 'B3LPY': not a functional that is listed\n"
      "help: a similar functional exists: 'b3lyp'\n"
      "meant: b3lyp\n",
      "warning header.unknown_basis [def2-spv]\n"
      "2:7 'def2-spv': not a basis set that is listed\n"
      "help: a similar basis set exists: 'def2-svp'\n"
      "meant: def2-svp\n"}},
    {"a keyword with a value",
     "hf/sto-3g spinmlti = 3",
     {"warning header.unknown_keyword of easy.spinmlti [spinmlti]\n"
      "2:11 'spinmlti': not a keyword of the header\n"
      "help: a similar keyword exists: 'spinmulti'\n"
      "meant: spinmulti\n"}},
    {"a keyword with its value behind it",
     "hf/sto-3g\n spinmlti 3",
     {"warning header.unknown_keyword of easy.spinmlti [spinmlti]\n"
      "3:2 'spinmlti': not a keyword of the header\n"
      "help: a similar keyword exists: 'spinmulti'\n"
      "meant: spinmulti\n"}},
    {"a value behind a keyword",
     "hf/sto-3g unit bhor",
     {"warning header.unknown_keyword of easy.bhor [bhor]\n"
      "2:16 'bhor': not a keyword of the header\n"
      "help: a similar value exists: 'bohr'\n"
      "meant: bohr\n"}},
    {"a method of other programs, of two parts",
     "CCSD/def2-SVP",
     {"warning header.unknown_method [CCSD]\n"
      "2:1 'CCSD': not a method that is listed\n"}},
    {"two letters, which name no functional",
     "h/def2-SVP",
     {"warning header.unknown_method [h]\n"
      "2:1 'h': not a method that is listed\n"}},
    {"what is near to a method alone",
     "HHF/def2-SVP",
     {"warning header.unknown_method [HHF]\n"
      "2:1 'HHF': not a method that is listed\n"
      "help: similar methods exist: 'hf', 'rhf' or 'uhf'\n"
      "meant: hf\n"
      "meant: rhf\n"
      "meant: uhf\n"}},
    {"a basis set that stands first",
     "def2-SVP/B3LYP opt",
     {"error header.parts_swapped [def2-SVP/B3LYP]\n"
      "2:1 'def2-SVP/B3LYP': the basis set is the last part\n"
      "meant: B3LYP/def2-SVP\n"}},
    {"names with marks that are none of theirs",
     "pbe0,/\"def2-SVP\"",
     {"warning header.unknown_functional [pbe0,]\n"
      "2:1 'pbe0,': not a functional that is listed\n"
      "help: a similar functional exists: 'pbe0'\n"
      "meant: pbe0\n",
      "warning header.unknown_basis [\"def2-SVP\"]\n"
      "2:7 '\"def2-SVP\"': not a basis set that is listed\n"
      "help: similar basis sets exist: 'def2-sv(p)' or 'def2-svp'\n"
      "meant: def2-sv(p)\n"
      "meant: def2-svp\n"}},
    {"brackets, and a Greek letter",
     "\xCF\x89"
     "B97X/6-31+g[d,p]",
     {"warning header.unknown_functional [\xCF\x89"
      "B97X]\n"
      "2:1 '\xCF\x89"
      "B97X': not a functional that is listed\n"
      "help: a similar functional exists: 'wb97x'\n"
      "meant: wb97x\n",
      "warning header.unknown_basis [6-31+g[d,p]]\n"
      "2:7 '6-31+g[d,p]': not a basis set that is listed\n"
      "help: a similar basis set exists: '6-31+g(d,p)'\n"
      "meant: 6-31+g(d,p)\n"}},
    {"what is no name at all",
     "b3lyp!/gen{x}",
     {"warning header.unknown_functional [b3lyp!]\n"
      "2:1 'b3lyp!': not a functional that is listed\n"
      "help: a similar functional exists: 'b3lyp'\n"
      "meant: b3lyp\n",
      "warning header.unknown_basis [gen{x}]\n"
      "2:8 'gen{x}': not a basis set that is listed\n"}},
    {"an empty part",
     "pbe0//ccpvdz opt",
     {"warning header.empty_part [pbe0//ccpvdz]\n"
      "2:1 'pbe0//ccpvdz': method/functional/basis\n"
      "help: write the part that is missing, or one slash\n"}},
    {"a second specification",
     "pbe0/cc-pvdz\nb3lpy/cc-pvdz",
     {"warning header.second_specification [b3lpy/cc-pvdz]\n"
      "3:1 'b3lpy/cc-pvdz': a second one\n"
      "2:1 'pbe0/cc-pvdz' is related: the first one\n"
      "help: keep the one that is meant\n"}},
    {"a comment with the sign of another language",
     "pbe0/cc-pvdz //note",
     {"warning header.second_specification [//note]\n"
      "2:14 '//note': a second one\n"
      "2:1 'pbe0/cc-pvdz' is related: the first one\n"
      "help: a comment begins with '#'\n"}},
    {"a keyword without its value",
     "hf/sto-3g charge= # 1\nunit",
     {"error header.value_missing of easy.charge [charge]\n"
      "2:11 'charge=': its value is missing\n"
      "help: expected: an integer\n",
      "error header.value_missing of easy.unit [unit]\n"
      "3:1 'unit': its value is missing\n"
      "help: expected: 'angstrom', 'bohr' or 'ang'\n"}},
    {"a keyword where a value is wanted",
     "hf/sto-3g charge spinmulti=1",
     {"error header.value_missing of easy.charge [charge]\n"
      "2:11 'charge': its value is missing\n"
      "help: expected: an integer\n"}},
    {"a keyword that is taken for a value",
     "hf/sto-3g group= charge=1",
     {"error header.value_missing of easy.group [group]\n"
      "2:11 'group= charge=1': its value is missing\n"}},
    {"a value on the next line",
     "hf/sto-3g charge\n1",
     {"warning header.unknown_keyword of easy.1 [1]\n"
      "3:1 '1': not a keyword of the header\n"}},
    {"a keyword in both of its forms",
     "hf/sto-3g charge=1 # charge=2\ncharge 0",
     {"warning header.keyword_twice of easy.charge [charge]\n"
      "3:1 'charge': first given on line 2\n"
      "2:11 'charge=1' is related: first given here\n"
      "help: keep the one that is meant; which of them counts is not said\n"}},
    {"a keyword under two names",
     "hf/sto-3g spin=1 spinmulti=1",
     {"warning header.keyword_twice of easy.spinmulti [spinmulti]\n"
      "2:18 'spinmulti': first given on line 2\n"
      "2:11 'spin=1' is related: first given here\n"
      "help: keep the one that is meant; which of them counts is not said\n"}},
    {"no slash at all",
     "B3LYP  def2-SVP opt",
     {"error header.blank_for_slash of easy.b3lyp [B3LYP  def2-SVP]\n"
      "2:1 'B3LYP  def2-SVP': meant to be 'B3LYP/def2-SVP'?\n"
      "help: method, functional and basis set are one word, parted by '/'\n"
      "meant: B3LYP/def2-SVP\n"}},
    {"a blank behind the method",
     "opt tddft b3lyp/6-31g",
     {"error header.blank_for_slash of easy.tddft [tddft b3lyp/6-31g]\n"
      "2:5 'tddft b3lyp/6-31g': meant to be 'tddft/b3lyp/6-31g'?\n"
      "help: method, functional and basis set are one word, parted by '/'\n"
      "meant: tddft/b3lyp/6-31g\n"}},
    {"a blank before the basis set",
     "tddft/b3lyp / 6-31g",
     {"error header.blank_for_slash [tddft/b3lyp / 6-31g]\n"
      "2:1 'tddft/b3lyp / 6-31g': meant to be 'tddft/b3lyp/6-31g'?\n"
      "help: method, functional and basis set are one word, parted by '/'\n"
      "meant: tddft/b3lyp/6-31g\n"}},
};

INSTANTIATE_TEST_SUITE_P(Rows, HeaderWords, ::testing::ValuesIn(rows));

TEST(HeaderWords, OfRightInputsAreNotToldOf) {
  for (const char* const header :
       {"hf/sto-3g", "HF/3-21g scan", "scan/def2-svp scan", "tddft/b3lyp/6-31g(d,p) SpinAdapt True",
        "b3lyp/genbas\ncharge 1 # charge 2\nspinflip 0,1", "b3lyp/MYBAS-1", "hf/6-31g opt+freq",
        "hf/6-31g soc nac\nxcfun scan\ngroup C(1)\nSpinAdapt",
        "x-tddft/b3lyp/aug-cc-pvtz group=D(2h) charge=1 spinmulti=2 iroot=5"}) {
    EXPECT_THAT(texts_of(with_header(header)), testing::IsEmpty()) << header;
  }
}

// What there is elsewhere, and may be here: to tell of it as a slip would be a false alarm.
TEST(HeaderWords, OtherFunctionalsAreNotTakenForSlips) {
  for (const char* const name :
       {"m06",      "m06hf",   "m05-2x",    "m052x",     "m11",
        "mn15",     "mn12sx",  "revpbe",    "rpbe",      "pbesol",
        "pbe38",    "pbeh-3c", "hse06",     "hse03",     "b1lyp",
        "b3p86",    "x3lyp",   "o3lyp",     "bpw91",     "mpw1pw91",
        "mpwlyp",   "b97",     "b97-d3",    "wb97m-v",   "wb97x-v",
        "b97m-v",   "tpss0",   "revtpss",   "scan0",     "scanl",
        "rscan",    "r2scan0", "r4scan",    "svwn3",     "lda",
        "kt1",      "kt3",     "bhandhlyp", "b2gpplyp",  "pwpb95",
        "dsdblyp",  "lc-wpbe", "optb88",    "gga_x_pbe", "hyb_gga_xc_b3lyp",
        "camqtp00", "b97-d3",  "tpsslyp",   "xlyp",      "glyp",
        "pw86",     "bmk",     "thcth"}) {
    EXPECT_THAT(texts_of(with_header(std::string(name) + "/sto-3g")), testing::IsEmpty()) << name;
  }
}

TEST(HeaderWords, OtherBasisSetsAreNotTakenForSlips) {
  for (const char* const name : {"def2-svpd",
                                 "def2-tzvpd",
                                 "def2-qzvpd",
                                 "def2-tzvppd",
                                 "def-svp",
                                 "def-tzvp",
                                 "6-311g(df,p)",
                                 "6-311+g(2d,2p)",
                                 "6-31g(2d,p)",
                                 "6-311g(2df,2pd)",
                                 "6-31+g(2df,p)",
                                 "cc-pv7z",
                                 "aug-cc-pv7z",
                                 "jul-cc-pvtz",
                                 "jun-cc-pvdz",
                                 "may-cc-pvqz",
                                 "heavy-aug-cc-pvdz",
                                 "d-aug-cc-pvdz",
                                 "cc-pvdz-f12",
                                 "cc-pvtz-f12",
                                 "cc-pvdz-pp",
                                 "aug-cc-pvdz-pp",
                                 "pc-1",
                                 "pcseg-2",
                                 "aug-pcseg-1",
                                 "pcj-2",
                                 "ano-rcc-vtzp",
                                 "lanl08",
                                 "lanl2tz",
                                 "lanl2dzdp",
                                 "sdd",
                                 "dzp",
                                 "tzp",
                                 "dyall-v2z",
                                 "dyall-v3z",
                                 "sarc-dkh2",
                                 "x2c-svpall",
                                 "x2c-tzvpall-2c",
                                 "ma-def2-svp",
                                 "minao",
                                 "sapporo-dzp-2012",
                                 "stuttgart-rlc",
                                 "crenbl",
                                 "epr-iii",
                                 "iglo-ii",
                                 "sto-2g",
                                 "4-31g",
                                 "5-21g",
                                 "6-21g",
                                 "midix"}) {
    EXPECT_THAT(texts_of(with_header("hf/" + std::string(name))), testing::IsEmpty()) << name;
  }
}

TEST(HeaderWords, FollowTheOptionForUnknownNames) {
  const ParsedInput input = with_header("tddtf/b3lpy/sto-3g otp charge=0 charge=1");
  const auto severities = [&](UnknownNames unknown) {
    std::string text;
    for (const Diagnostic& diagnostic : diagnose(input, {unknown})) {
      text += std::string(to_string(diagnostic.severity)) + " ";
    }
    return text;
  };
  EXPECT_EQ(severities(UnknownNames::Ignore), "warning ");
  EXPECT_EQ(severities(UnknownNames::Warn), "warning warning warning warning ");
  // An open list makes no error of a name.
  EXPECT_EQ(severities(UnknownNames::Error), "error warning error warning ");
}

// Where the line 'Geometry' is missing, atoms are no keywords.
TEST(HeaderWords, EndWhereTheGeometryBegins) {
  for (const char* const text :
       {"#! job\nhf/sto-3g\nH 0 0 0\nX 0 0 1\n", "#! job\nhf/sto-3g\nfile=a.xyz\n",
        "#! job\nhf/sto-3g\nModule Setting\n$scf\n$end\n"}) {
    EXPECT_THAT(codes_of(diagnose(ParsedInput(text, shipped_schema()))),
                testing::ElementsAre("bdf.missing_geometry"))
        << text;
  }
}

// What other programs write before and behind the name of a functional.
TEST(HeaderWords, FunctionalsAreTakenForNoneWithPrefixOrSuffix) {
  for (const auto& [name, meant] :
       std::vector<std::pair<std::string, std::string>>{{"UB3LYP", "b3lyp"},
                                                        {"rohf/RPBE0", ""},
                                                        {"ROPBE0", "pbe0"},
                                                        {"B3LYP-D3", "b3lyp"},
                                                        {"cam-b3lyp-d3(bj)", "cam-b3lyp"},
                                                        {"rpbe", ""},
                                                        {"wb97x-d3", ""}}) {
    const auto found = diagnose(with_header(name + "/sto-3g"), {UnknownNames::Warn, {}, false});
    if (meant.empty()) {
      EXPECT_THAT(codes_of(found), testing::Not(testing::Contains("header.unknown_functional")));
      continue;
    }
    ASSERT_THAT(codes_of(found), testing::ElementsAre("header.unknown_functional")) << name;
    EXPECT_THAT(found[0].suggestions, testing::ElementsAre(meant)) << name;
  }
}

TEST(HeaderWords, NamesOfBasisFilesBesideTheInputAreNoSlips) {
  const ParsedInput input = with_header("hf/def2-svo");
  DiagnoseOptions options;
  options.advice = false;
  EXPECT_THAT(codes_of(diagnose(input, options)), testing::ElementsAre("header.unknown_basis"));
  options.folder = InputFolder{"a", [](std::string_view name) { return name == "def2-svo"; }};
  EXPECT_THAT(diagnose(input, options), testing::IsEmpty());
}

struct Mended {
  const char* header;
  const char* fixed;
  bool is_safe;
};

TEST(HeaderWords, AreMended) {
  for (const Mended& row : {
           Mended{"tddtf/b3lyp/sto-3g", "tddft/b3lyp/sto-3g", true},
           Mended{"rhof/sto-3g", "rohf/sto-3g", false},
           Mended{"b3lpy/sto-3g", "b3lyp/sto-3g", false},
           Mended{"hf/def2-spv", "hf/def2-svp", false},
           Mended{"hf/sto-3g spinmlti=3", "hf/sto-3g spinmulti=3", true},
           Mended{"hf/sto-3g unit bhor", "hf/sto-3g unit bohr", false},
           Mended{"b3lyp def2-svp", "b3lyp/def2-svp", true},
           Mended{"tddft / b3lyp/  6-31g", "tddft/b3lyp/6-31g", true},
           Mended{"hf/sto-3g charge=1 charge=1 opt", "hf/sto-3g charge=1 opt", false},
           Mended{"hf/sto-3g charge=1\n  charge 0", "hf/sto-3g charge=1", false},
       }) {
    const ParsedInput input = with_header(row.header);
    DiagnoseOptions options;
    options.advice = false;
    const auto found = diagnose(input, options);
    ASSERT_EQ(found.size(), 1U) << row.header;
    ASSERT_FALSE(found[0].fixes.empty()) << row.header;
    EXPECT_EQ(found[0].fixes[0].is_safe, row.is_safe) << row.header;
    const std::string fixed = apply_edits(input.source().text(), found[0].fixes[0].edits);
    EXPECT_EQ(fixed, with_header(row.fixed).source().text());
    EXPECT_THAT(texts_of(ParsedInput(fixed, shipped_schema())), testing::IsEmpty()) << fixed;
  }
}

// -- among values

TEST(NamesAmongValues, AreToldOf) {
  const ParsedInput input(
      "$compass\nbasis-block\n 6-3lg # c\n C,N = def2-szvp\n inline\n cc-pvzd\n end line\nend "
      "basis\n"
      "$end\n$compass\nbasis\n# aug-cc-pvzd\n  cc-pvzd\nri-j\n MYBAS-1\n$end\n"
      "$xuanyuan\n$end\n$scf\nrks\ndft functional\n B3LPY\n$end\n",
      shipped_schema());
  EXPECT_EQ(texts_of(input),
            (std::vector<std::string>{
                "warning names.unknown_basis of compass.basis-block [6-3lg] [compass]\n"
                "3:2 '6-3lg': not a basis set that is listed\n"
                "help: a similar basis set exists: '6-31g'\n"
                "meant: 6-31g\n",
                "warning names.unknown_basis of compass.basis-block [def2-szvp] [compass]\n"
                "4:8 'def2-szvp': not a basis set that is listed\n"
                "help: a similar basis set exists: 'def2-svp'\n"
                "meant: def2-svp\n",
                "warning names.unknown_basis of compass#2.basis [cc-pvzd] [compass]\n"
                "13:3 'cc-pvzd': not a basis set that is listed\n"
                "help: a similar basis set exists: 'cc-pvdz'\n"
                "meant: cc-pvdz\n",
                "warning names.unknown_functional of scf.dft [B3LPY] [scf]\n"
                "22:2 'B3LPY': not a functional that is listed\n"
                "help: a similar functional exists: 'b3lyp'\n"
                "meant: b3lyp\n"}));
  DiagnoseOptions options;
  options.advice = false;
  for (const Diagnostic& diagnostic : diagnose(input, options)) {
    EXPECT_FALSE(diagnostic.fixes.at(0).is_safe) << diagnostic.message;
  }
  options.unknown = UnknownNames::Ignore;
  EXPECT_THAT(diagnose(input, options), testing::IsEmpty());
}

// Of a name in several words, no word is a name.
TEST(NamesAmongValues, AreToldOfAsAWhole) {
  const ParsedInput input(
      "$compass\nbasis\n cc pVDZ\n$end\n$compass\nbasis-block\n 'sto-3g'\n C = def2 tzvp\n"
      " H = 6-31g(d, p)\nend basis\n$end\n$scf\ndft\n b3lyp/g\n$end\n",
      shipped_schema());
  EXPECT_EQ(texts_of(input),
            (std::vector<std::string>{
                "warning names.unknown_basis of compass.basis [cc pVDZ] [compass]\n"
                "3:2 'cc pVDZ': not a basis set that is listed\n"
                "help: a similar basis set exists: 'cc-pvdz'\n"
                "meant: cc-pvdz\n",
                "warning names.unknown_basis of compass#2.basis-block ['sto-3g'] [compass]\n"
                "7:2 ''sto-3g'': not a basis set that is listed\n"
                "help: a similar basis set exists: 'sto-3g'\n"
                "meant: sto-3g\n",
                "warning names.unknown_basis of compass#2.basis-block [def2 tzvp] [compass]\n"
                "8:6 'def2 tzvp': not a basis set that is listed\n"
                "help: a similar basis set exists: 'def2-tzvp'\n"
                "meant: def2-tzvp\n",
                "warning names.unknown_basis of compass#2.basis-block [6-31g(d, p)] [compass]\n"
                "9:6 '6-31g(d, p)': not a basis set that is listed\n"
                "help: a similar basis set exists: '6-31g(d,p)'\n"
                "meant: 6-31g(d,p)\n",
                "warning names.unknown_functional of scf.dft [b3lyp/g] [scf]\n"
                "14:2 'b3lyp/g': not a functional that is listed\n"}));
}

// What is told of as a slip is not told of as unlisted, too; what is not, is.
TEST(NamesAmongValues, AreToldOfOnce) {
  InputFolder folder;
  folder.has_file = [](std::string_view) { return false; };
  DiagnoseOptions options;
  options.folder = folder;
  const auto codes = [&](const std::string& functional, const std::string& basis) {
    return codes_of(diagnose(with_header("uks/" + functional + "/" + basis), options));
  };
  EXPECT_THAT(codes("b3lpy", "cc-pvzd"),
              testing::ElementsAre("header.unknown_functional", "header.unknown_basis"));
  EXPECT_THAT(codes("b3lyl", "cc-pvd2"),
              testing::ElementsAre("functional.functional_unlisted", "basis.basis_unknown"));
  EXPECT_THAT(codes("b3lyp", "tzvp"), testing::ElementsAre("basis.basis_unknown"));
  EXPECT_THAT(codes("b3lyp", "cc-pvdz"), testing::IsEmpty());
}

}  // namespace
}  // namespace kelp::input::bdf
