// Words of the header are patched where they stand.

#include "rewrite/edit_table.hpp"

namespace kelp::input::bdf {
namespace {

std::string easy(const std::string& header) {
  return "#! job\n" + header + "\n\nGeometry\n H 0 0 0\nEnd Geometry\n";
}

struct HeaderRow {
  std::string name;
  std::string before;
  std::vector<std::string> assignments;
  std::string after;
};

void expect_headers(const std::vector<HeaderRow>& rows) {
  std::vector<EditRow> edits;
  for (const HeaderRow& row : rows) {
    edits.push_back({row.name, easy(row.before), row.assignments, easy(row.after)});
  }
  expect_edits(edits);
}

TEST(HeaderEdits, AValueIsReplacedWhereItStands) {
  expect_headers({
      {"a pair",
       "B3LYP/6-31G  charge=0 iroot=3",
       {"easy.charge=1"},
       "B3LYP/6-31G  charge=1 iroot=3"},
      {"spread out", "hf/sto-3g charge = 0 # c", {"easy.charge=-1"}, "hf/sto-3g charge = -1 # c"},
      {"on a line of its own",
       "hf/sto-3g\nCharge 0   # c",
       {"easy.charge=1"},
       "hf/sto-3g\nCharge 1   # c"},
      {"said twice",
       "hf/sto-3g charge=0 opt Charge=0",
       {"easy.charge=1"},
       "hf/sto-3g charge=1 opt Charge=1"},
      {"several numbers", "hf/sto-3g nroot 1 2 # c", {"easy.nroot=3 4"}, "hf/sto-3g nroot 3 4 # c"},
      {"several numbers for one", "hf/sto-3g nroot=1", {"easy.nroot=3 4"}, "hf/sto-3g nroot=3,4"},
      {"a value before a comma",
       "hf/sto-3g charge=1, spinmulti=2",
       {"easy.charge=-1"},
       "hf/sto-3g charge=-1, spinmulti=2"},
      {"a flag with a value",
       "tddft/b3lyp/sto-3g\nSpinAdapt True",
       {"easy.spinadapt=false"},
       "tddft/b3lyp/sto-3g\nSpinAdapt false"},
      {"a flag that has that value",
       "tddft/b3lyp/sto-3g\nSpinAdapt True",
       {"easy.spinadapt=true"},
       "tddft/b3lyp/sto-3g\nSpinAdapt True"},
      {"a new flag with a value",
       "tddft/b3lyp/sto-3g\ncharge 1",
       {"easy.spinadapt=true"},
       "tddft/b3lyp/sto-3g\ncharge 1\nspinadapt true"},
      {"a value with brackets",
       "hf/sto-3g\nGroup C(1)",
       {"easy.charge=1"},
       "hf/sto-3g\nGroup C(1)\ncharge 1"},
      {"on a second line",
       "hf/sto-3g\ncharge=0 spinmulti=1\nopt",
       {"easy.spinmulti=3"},
       "hf/sto-3g\ncharge=0 spinmulti=3\nopt"},
  });
}

TEST(HeaderEdits, ANewKeywordIsWrittenAsTheOthersAre) {
  expect_headers({
      {"behind the last word", "hf/sto-3g", {"easy.charge=1"}, "hf/sto-3g charge=1"},
      {"before a comment", "hf/sto-3g  # c", {"easy.charge=1"}, "hf/sto-3g charge=1  # c"},
      {"a line to itself",
       "hf/sto-3g\n  charge 1  # c",
       {"easy.spinmulti=2"},
       "hf/sto-3g\n  charge 1  # c\n  spinmulti 2"},
      {"a line to itself, as a pair",
       "hf/sto-3g\ncharge=1",
       {"easy.spinmulti=2"},
       "hf/sto-3g\ncharge=1\nspinmulti=2"},
      {"without a value", "hf/sto-3g charge=1", {"easy.opt="}, "hf/sto-3g charge=1 opt"},
  });
}

TEST(HeaderEdits, WordsThatGoTakeTheirBlanksAlong) {
  expect_headers({
      {"the last", "hf/sto-3g charge=1", {"-easy.charge"}, "hf/sto-3g"},
      {"in the middle", "hf/sto-3g charge = 1 opt # c", {"-easy.charge"}, "hf/sto-3g opt # c"},
      {"a line",
       "hf/sto-3g\ncharge 1 # c\nspinmulti 2",
       {"-easy.charge"},
       "hf/sto-3g\nspinmulti 2"},
      {"the first of a line", "hf/sto-3g\n charge=1 opt", {"-easy.charge"}, "hf/sto-3g\n opt"},
  });
}

TEST(HeaderEdits, PartsOfTheMethodSpecificationArePatchedAlone) {
  expect_headers({
      {"basis",
       "TDDFT/B3lyp/def2-SVP  charge=1",
       {"easy.basis=cc-pvdz"},
       "TDDFT/B3lyp/cc-pvdz  charge=1"},
      {"functional", "TDDFT/B3lyp/def2-SVP", {"easy.functional=pbe0"}, "TDDFT/pbe0/def2-SVP"},
      {"functional of two", "B3lyp/def2-SVP", {"easy.functional=pbe0"}, "pbe0/def2-SVP"},
      {"method", "TDDFT/B3lyp/def2-SVP", {"easy.method=tda"}, "tda/B3lyp/def2-SVP"},
      {"method of two", "HF/sto-3g", {"easy.method=mp2"}, "mp2/sto-3g"},
      {"a method before the functional",
       "b3lyp/sto-3g",
       {"easy.method=tddft"},
       "tddft/b3lyp/sto-3g"},
      {"a functional that was missing", "RKS/6-31G", {"easy.functional=PBE0"}, "RKS/PBE0/6-31G"},
      {"method and functional at once",
       "HF/6-31G # c",
       {"easy.functional=b3lyp", "easy.method=rks"},
       "rks/b3lyp/6-31G # c"},
      {"a method whose name is an alias",
       "tdft/B3LYP/6-31G",
       {"easy.method=TDDFT"},
       "tdft/B3LYP/6-31G"},
      {"what is there", "HF/STO-3G", {"easy.basis=sto-3g", "easy.method=hf"}, "HF/STO-3G"},
  });
}

TEST(HeaderEdits, WhatTheHeaderCannotHoldIsRefused) {
  struct Row {
    std::string assignment;
    std::string reason;
  };
  for (const Row& row : std::vector<Row>{{"easy.chrage=1", "did you mean 'charge'?"},
                                         {"easy.charge=1 2", "a single word"},
                                         {"easy.charge=1#2", "a single word"},
                                         {"easy.method=htf", "no method 'htf'"},
                                         {"easy.functional=b3lyp", "easy.method=METHOD"},
                                         {"easy.method=b3lpy", "no method"},
                                         {"easy.basis=sto-4g", "did you mean"},
                                         {"easy.method=rks", "easy.functional=NAME"},
                                         {"easy.charge=", "it needs a value"},
                                         {"easy.basis=", "one name"}}) {
    const Rewrite rewrite = edited(easy("hf/sto-3g"), edit_of({row.assignment}));
    EXPECT_THAT(rewrite.error, ::testing::HasSubstr(row.reason)) << row.assignment;
  }
}

TEST(HeaderEdits, AFunctionalGoesWithAMethodThatTakesNone) {
  for (const std::string before : {"B3LYP/6-31G", "RKS/B3LYP/6-31G"}) {
    const Rewrite rewrite = edited(easy(before), edit_of({"easy.method=HF"}));
    EXPECT_EQ(rewrite.text, easy("HF/6-31G"));
    EXPECT_THAT(rewrite.notes, ::testing::ElementsAre("'HF' takes no functional: 'B3LYP' goes"));
  }
  const Rewrite both =
      edited(easy("b3lyp/6-31g"), edit_of({"easy.method=hf", "easy.functional=pbe0"}));
  EXPECT_THAT(both.error, ::testing::HasSubstr("'hf' takes no functional"));
  // What was wrong before can still be changed elsewhere.
  expect_headers({{"basis", "hf/b3lyp/6-31g", {"easy.basis=sto-3g"}, "hf/b3lyp/sto-3g"},
                  {"method", "rks/6-31g", {"easy.method=uks"}, "uks/6-31g"}});
}

TEST(HeaderEdits, ASchemaThatTellsNothingOfFunctionalsLeavesThem) {
  const InputSchema schema = InputSchema::from_yaml(
      "schema_version: 1\neasy_input: {methods: [hf], functionals: [b3lyp], basis: [vdz]}\n");
  const Rewrite rewrite =
      edit_input(ParsedInput("b3lyp/vdz\nGeometry\nH 0 0 0\nEnd Geometry\n", schema),
                 edit_of({"easy.method=hf"}));
  EXPECT_EQ(rewrite.text, "hf/b3lyp/vdz\nGeometry\nH 0 0 0\nEnd Geometry\n");
}

TEST(HeaderEdits, TheScriptNameIsPatchedOnItsLine) {
  Edit edit;
  edit.script_name = "new.sh";
  EXPECT_EQ(edited("# c\n#!  old.sh\nhf/sto-3g\nGeometry\nH 0 0 0\nEnd Geometry\n", edit).text,
            "# c\n#!  new.sh\nhf/sto-3g\nGeometry\nH 0 0 0\nEnd Geometry\n");
  edit.script_name = " #! new.sh ";
  EXPECT_EQ(edited("#! old\nhf/sto-3g\nGeometry\nH 0 0 0\nEnd Geometry\n", edit).text,
            "#! new.sh\nhf/sto-3g\nGeometry\nH 0 0 0\nEnd Geometry\n");
  EXPECT_THAT(edited("$scf\n$end\n", edit).error, ::testing::HasSubstr("no line '#!'"));
}

TEST(ChargeAndMultiplicity, AreSetWhereTheInputStatesThem) {
  Edit edit;
  edit.charge = 1;
  edit.multiplicity = 2;
  const auto text_of = [&](const std::string& before) {
    const Rewrite rewrite = edited(before, edit);
    EXPECT_EQ(messages_of(rewrite), "");
    return rewrite.text;
  };
  EXPECT_EQ(text_of(easy("hf/sto-3g")), easy("hf/sto-3g charge=1 spinmulti=2"));
  EXPECT_EQ(text_of("$scf\nuhf\nspinmulti\n 3   # high\n$end\n"),
            "$scf\nuhf\nspinmulti\n 2   # high\ncharge\n 1\n$end\n");
  const std::string mixed = "\n$scf\ncharge\n 0\n$end\n";
  EXPECT_EQ(text_of(easy("hf/sto-3g") + mixed),
            easy("hf/sto-3g charge=1 spinmulti=2") + "\n$scf\ncharge\n 1\n$end\n");
  EXPECT_EQ(text_of("$scf\nuhf\ncharge\n+1\nspinmulti\n02\n$end\n"),
            "$scf\nuhf\ncharge\n+1\nspinmulti\n02\n$end\n");
}

TEST(ChargeAndMultiplicity, AreStatedInEveryScfOfASystem) {
  Edit edit;
  edit.charge = 1;
  const std::string compass = "$compass\n$end\n";
  EXPECT_EQ(edited(compass + "$scf\nrhf\n$end\n$scf\ncharge\n0\n$end\n", edit).text,
            compass + "$scf\nrhf\ncharge\n1\n$end\n$scf\ncharge\n1\n$end\n");
  const std::string scf = "$scf\nrhf\n$end\n";
  EXPECT_THAT(edited(compass + scf + compass + scf, edit).error,
              ::testing::HasSubstr("more than one system"));
  // The header speaks for all.
  EXPECT_EQ(edited(easy("hf/sto-3g") + scf, edit).text, easy("hf/sto-3g charge=1") + scf);
}

TEST(ChargeAndMultiplicity, AreNotSetTwice) {
  struct Row {
    std::string before;
    std::vector<std::string> assignments;
  };
  for (const Row& row : std::vector<Row>{{"$scf\nrhf\n$end\n", {"scf.charge=1"}},
                                         {"$scf\nrhf\n$end\n", {"-scf.charge"}},
                                         {easy("hf/sto-3g"), {"easy.charge=1"}},
                                         {easy("hf/sto-3g"), {"-easy.charge"}}}) {
    Edit edit = edit_of(row.assignments);
    edit.charge = 2;
    EXPECT_THAT(edited(row.before, edit).error, ::testing::HasSubstr("contradicts itself"))
        << row.assignments.front();
  }
  EXPECT_THAT(edited("$scf\nrhf\n$end\n", edit_of({"scf.charge=1", "-scf.charge"})).error,
              ::testing::HasSubstr("contradicts itself"));
}

TEST(ChargeAndMultiplicity, OfSeveralModulesChangeTogetherOrNotAtAll) {
  Edit edit;
  edit.charge = 1;
  EXPECT_EQ(edited("$scf\ncharge\n0\n$end\n$scf\ncharge\n 0\n$end\n", edit).text,
            "$scf\ncharge\n1\n$end\n$scf\ncharge\n 1\n$end\n");
  EXPECT_THAT(edited("$scf\ncharge\n0\n$end\n$scf\ncharge\n2\n$end\n", edit).error,
              ::testing::HasSubstr("scf#2.charge"));
}

}  // namespace
}  // namespace kelp::input::bdf
