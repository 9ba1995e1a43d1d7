#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct TokenRow {
  const char* input;
  const char* text;
  const char* canonical;
  const char* category;
  const char* key;
  const char* value;
  const char* method;
  const char* functional;
  const char* basis;
  bool known;
};

const char* const spec = "method_spec";

const TokenRow token_rows[] = {
    // keywords with a value
    {"  maxiter=50 ", "maxiter=50", "maxiter=50", "scf", "maxiter", "50", "", "", "", true},
    {"MaxIter = 50", "MaxIter = 50", "maxiter=50", "scf", "maxiter", "50", "", "", "", true},
    {"CHG=-1", "CHG=-1", "charge=-1", "control", "charge", "-1", "", "", "", true},
    {"charge=", "charge=", "charge=", "control", "charge", "", "", "", "", true},
    {"charge=a=B", "charge=a=B", "charge=a=B", "control", "charge", "a=B", "", "", "", true},
    {"Odd=Val", "Odd=Val", "odd=val", "unknown", "odd", "val", "", "", "", false},
    {"x=1/2", "x=1/2", "x=1/2", "unknown", "x", "1/2", "", "", "", false},
    {"=v", "=v", "=v", "unknown", "", "v", "", "", "", false},
    // method specifications
    {"b3lyp/cc-pvdz", "b3lyp/cc-pvdz", "b3lyp/cc-pvdz", spec, "b3lyp", "", "", "b3lyp", "cc-pvdz",
     true},
    {"HF/VDZ", "HF/VDZ", "hf/cc-pvdz", spec, "hf", "", "hf", "", "cc-pvdz", true},
    {"hartree-fock/vdz", "hartree-fock/vdz", "hf/cc-pvdz", spec, "hf", "", "hf", "", "cc-pvdz",
     true},
    {"tddft/b3-lyp/def2-svp", "tddft/b3-lyp/def2-svp", "tddft/b3lyp/def2-svp", spec, "tddft", "",
     "tddft", "b3lyp", "def2-svp", true},
    {"unheard/own", "unheard/own", "unheard/own", spec, "unheard", "", "", "unheard", "own", false},
    {"b3lyp/", "b3lyp/", "b3lyp/", spec, "b3lyp", "", "", "b3lyp", "", true},
    {"/vdz", "/vdz", "/cc-pvdz", spec, "", "", "", "", "cc-pvdz", false},
    {"/b3lyp/vdz", "/b3lyp/vdz", "/b3lyp/cc-pvdz", spec, "b3lyp", "", "", "b3lyp", "cc-pvdz",
     false},
    {"a/b/c/d", "a/b/c/d", "a/b/c/d", spec, "", "", "", "", "", false},
    {"hf/a=b", "hf/a=b", "hf/a=b", spec, "hf/a", "b", "", "", "", true},
    {"strange", "strange", "strange", spec, "", "", "", "", "", true},
    // everything else
    {"direct", "direct", "direct", "control", "direct", "", "", "", "", true},
    {"$Multiplicity", "$Multiplicity", "spinmulti", "control", "spinmulti", "", "", "", "", true},
    {"Unheard", "Unheard", "unheard", "unknown", "unheard", "", "", "", "", false},
    {"direct # note", "direct # note", "direct", "control", "direct", "", "", "", "", true},
    {"# note", "# note", "", "unknown", "", "", "", "", "", false},
    {"two words", "two words", "two words", "unknown", "two words", "", "", "", "", false},
    {" \t\r\n\v\f", "", "", "unknown", "", "", "", "", "", false},
};

TEST(MakingAToken, FillsEveryField) {
  const BDFEditor editor({}, small_schema());
  for (const TokenRow& row : token_rows) {
    SCOPED_TRACE(row.input);
    const EasyToken made = editor.make_easy_token(row.input);
    EXPECT_EQ(made.text, row.text);
    EXPECT_EQ(made.canonical, row.canonical);
    EXPECT_EQ(made.category, row.category);
    EXPECT_EQ(made.key, row.key);
    EXPECT_EQ(made.value, row.value);
    EXPECT_EQ(made.method, row.method);
    EXPECT_EQ(made.functional, row.functional);
    EXPECT_EQ(made.basis, row.basis);
    EXPECT_EQ(made.known, row.known);
    EXPECT_FALSE(made.location);
  }
}

TEST(MakingAToken, KeepsTheBlankThatADroppedDollarLeavesBehind) {
  const BDFEditor editor(BDFData{}, InputSchema{});
  EXPECT_EQ(editor.make_easy_token("hf / $ x").basis, " x");
}

TEST(MakingAToken, LeavesTheDocumentAlone) {
  const BDFEditor editor({}, small_schema());
  editor.make_easy_token("hf/vdz");
  EXPECT_THAT(editor.data().easy_tokens, IsEmpty());
}

TEST(ReplacingTheHeader, LeavesOutBlankTexts) {
  BDFEditor editor({}, small_schema());
  editor.add_easy_token("old");
  editor.set_easy_tokens({"hf", "  ", "", "cc-pvdz", "\t\r\n"});
  EXPECT_THAT(texts_of(editor.data().easy_tokens), ElementsAre("hf", "cc-pvdz"));
}

TEST(ReplacingTheHeader, DoesNotSplitATextOfTwoWords) {
  BDFEditor editor({}, small_schema());
  editor.set_easy_tokens({" direct maxiter=3 "});
  EXPECT_THAT(texts_of(editor.data().easy_tokens), ElementsAre("direct maxiter=3"));
}

TEST(ReplacingTheHeader, ByNothingEmptiesIt) {
  BDFEditor editor({}, small_schema());
  editor.add_easy_token("hf");
  editor.set_easy_tokens({});
  EXPECT_THAT(editor.data().easy_tokens, IsEmpty());
}

TEST(ReplacingTheHeader, LeavesModeStatementsAndModulesAlone) {
  BDFEditor editor(document_of({"scf"}), small_schema());
  editor.set_easy_tokens({"hf/vdz"});
  EXPECT_EQ(editor.data().mode, InputMode::Module);
  EXPECT_THAT(order_of(editor.data()), ElementsAre("0"));
  EXPECT_EQ(editor.render(), "$scf\n$end\n");
}

TEST(AddingAToken, AppendsItWithoutACheckForDuplicates) {
  BDFEditor editor({}, small_schema());
  editor.add_easy_token(" direct");
  editor.add_easy_token("hf/vdz");
  editor.add_easy_token("direct ");
  EXPECT_THAT(texts_of(editor.data().easy_tokens), ElementsAre("direct", "hf/vdz", "direct"));
  EXPECT_EQ(editor.data().easy_tokens[1].category, spec);
}

TEST(AddingAToken, ABlankTextDoesNothing) {
  BDFEditor editor({}, small_schema());
  editor.add_easy_token("");
  editor.add_easy_token(" \t\r\n");
  EXPECT_THAT(editor.data().easy_tokens, IsEmpty());
}

TEST(AddingAToken, ACommentIsATokenOfItsOwn) {
  BDFEditor editor({}, small_schema());
  editor.add_easy_token("# note");
  EXPECT_THAT(texts_of(editor.data().easy_tokens), ElementsAre("# note"));
}

TEST(SettingTheScriptName, StoresItWithoutMarkerAndSurroundingBlanks) {
  const struct {
    const char* given;
    const char* stored;
  } rows[] = {
      {"run.sh", "run.sh"},       {"  run.sh\t", "run.sh"}, {"#!run.sh", "run.sh"},
      {"  #! run.sh ", "run.sh"}, {"#!#!run", "#!run"},     {"a b", "a b"},
      {"#!", "job.bdf"},          {"", "job.bdf"},          {" \r\n", "job.bdf"},
      {" #! \t", "job.bdf"},      {"#run", "#run"},         {"# !run", "# !run"},
  };
  for (const auto& row : rows) {
    BDFEditor editor({}, small_schema());
    editor.set_script_name(row.given);
    EXPECT_EQ(editor.data().script_name, row.stored) << row.given;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
