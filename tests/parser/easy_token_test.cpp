// What the schema makes of a token of the header.

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

#include "parser/parsing.hpp"

namespace kelp::input::bdf {
namespace {

const InputSchema& vocabulary() {
  static const InputSchema schema = schema_from(R"(
easy_input:
  methods: {tddft: {aliases: [td]}, hf: {}, both: {}}
  functionals: {b3lyp: {aliases: [b3]}, both: {}}
  basis: {extensible: true, known: {svp: {aliases: [sv]}}}
  control_keywords:
    maxiter: {aliases: [mi], category: runtime}
    opt: {}
    hf/x: {}
    a: {aliases: [b]}
    b2: {aliases: [a]}
)");
  return schema;
}

struct Row {
  std::string_view text, canonical, category, key, value, method, functional, basis;
  bool known;
};

void expect_token(const Row& row) {
  const BDFData data = document("x\n" + std::string(row.text), lenient(), vocabulary());
  ASSERT_EQ(data.easy_tokens.size(), 2U) << row.text;
  const EasyToken& token = data.easy_tokens[1];
  EXPECT_EQ(token.text, row.text);
  EXPECT_EQ(token.canonical, row.canonical) << row.text;
  EXPECT_EQ(token.category, row.category) << row.text;
  EXPECT_EQ(token.key, row.key) << row.text;
  EXPECT_EQ(token.value, row.value) << row.text;
  EXPECT_EQ(token.method, row.method) << row.text;
  EXPECT_EQ(token.functional, row.functional) << row.text;
  EXPECT_EQ(token.basis, row.basis) << row.text;
  EXPECT_EQ(token.known, row.known) << row.text;
}

TEST(EasyToken, AMethodSpecificationOfTwoPartsNamesAMethodOrElseAFunctional) {
  const std::string_view spec = "method_spec";
  expect_token({"HF/SVP", "hf/svp", spec, "hf", "", "hf", "", "svp", true});
  expect_token({"td/sv", "tddft/svp", spec, "tddft", "", "tddft", "", "svp", true});
  expect_token({"B3/def2-X", "b3lyp/def2-x", spec, "b3lyp", "", "", "b3lyp", "def2-x", true});
  expect_token({"both/svp", "both/svp", spec, "both", "", "both", "", "svp", true});
  expect_token({"odd/svp", "odd/svp", spec, "odd", "", "", "odd", "svp", false});
  expect_token({"hf/", "hf/", spec, "hf", "", "hf", "", "", true});
  expect_token({"/svp", "/svp", spec, "", "", "", "", "svp", false});
}

TEST(EasyToken, AMethodSpecificationOfThreePartsNamesAllThree) {
  const std::string_view spec = "method_spec";
  expect_token({"TD/B3/SV", "tddft/b3lyp/svp", spec, "tddft", "", "tddft", "b3lyp", "svp", true});
  expect_token({"hf//x", "hf//x", spec, "hf", "", "hf", "", "x", false});
  expect_token({"/b3/x", "/b3lyp/x", spec, "b3lyp", "", "", "b3lyp", "x", false});
}

TEST(EasyToken, AMethodSpecificationOfMorePartsNamesNone) {
  expect_token({"A/B/C/D", "a/b/c/d", "method_spec", "", "", "", "", "", false});
  expect_token({"hf///svp", "hf///svp", "method_spec", "", "", "", "", "", false});
}

TEST(EasyToken, AMethodSpecificationThatHoldsAnEqualsSignIsSplitThereOnly) {
  expect_token({"hf/X=1", "hf/x=1", "method_spec", "hf/x", "1", "", "", "", true});
}

TEST(EasyToken, APairHasTheCanonicalKeyAndTheValueAsWritten) {
  expect_token({"MI=FiVe", "maxiter=FiVe", "runtime", "maxiter", "FiVe", "", "", "", true});
  expect_token({"opt=", "opt=", "control", "opt", "", "", "", "", true});
  expect_token({"opt=a=b", "opt=a=b", "control", "opt", "a=b", "", "", "", true});
  expect_token({"opt=1/2", "opt=1/2", "control", "opt", "1/2", "", "", "", true});
}

TEST(EasyToken, AnUnknownPairIsNormalisedAsAWhole) {
  expect_token({"Odd=FiVe", "odd=five", "unknown", "odd", "five", "", "", "", false});
  expect_token({"=x", "=x", "unknown", "", "x", "", "", "", false});
}

TEST(EasyToken, ALoneWordHasItsCanonicalNameForAKey) {
  expect_token({"OPT", "opt", "control", "opt", "", "", "", "", true});
  expect_token({"mi", "maxiter", "runtime", "maxiter", "", "", "", "", true});
  expect_token({"Odd", "odd", "unknown", "odd", "", "", "", "", false});
}

TEST(EasyToken, TheKeyOfALoneWordIsLookedUpOnceMore) {
  expect_token({"b", "a", "control", "b2", "", "", "", "", true});
}

TEST(EasyToken, WhatFollowsAHashIsNoPartOfTheMeaning) {
  expect_token({"opt#x/y", "opt", "control", "opt", "", "", "", "", true});
  expect_token({"hf/svp#x", "hf/svp", "method_spec", "hf", "", "hf", "", "svp", true});
  expect_token({"opt#=1", "opt", "control", "opt", "", "", "", "", true});
}

}  // namespace
}  // namespace kelp::input::bdf
