#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

const InputSchema& schema() {
  static const InputSchema loaded = schema_from(R"(
easy_input:
  methods: {hf: {aliases: [hartree]}, tddft: {}, both: {aliases: [two]}}
  functionals: {b3lyp: {aliases: [b3]}, both: {}}
  basis: {known: {def2-svp: {aliases: [svp]}}}
  control_keywords:
    maxiter: {aliases: [niter]}
    x: {category: $Extra}
    odd: {category: unknown}
    a#b: {}
)");
  return loaded;
}

struct Row {
  std::string token;
  std::string canonical;
  std::string category;
  bool known;
};

TEST(EasyTokens, HaveTheCanonicalFormCategoryAndFameOfTheirRow) {
  const std::vector<Row> rows = {
      {"", "", "unknown", false},
      {"  \t", "", "unknown", false},
      {"# only a comment", "", "unknown", false},
      {"B3LYP/cc-pVDZ # comment", "b3lyp/cc-pvdz", "method_spec", true},
      {"B3/SVP", "b3lyp/def2-svp", "method_spec", true},
      {"Hartree / SVP", "hf/def2-svp", "method_spec", true},
      {"Two/x", "both/x", "method_spec", true},
      {"both/x", "both/x", "method_spec", true},
      {"$New/ $SVP ", "new/def2-svp", "method_spec", false},
      {"hf/anything", "hf/anything", "method_spec", true},
      {"TDDFT/B3/SVP", "tddft/b3lyp/def2-svp", "method_spec", true},
      {"tddft/new/svp", "tddft/new/def2-svp", "method_spec", false},
      {"b3lyp/b3lyp/svp", "b3lyp/b3lyp/def2-svp", "method_spec", false},
      {"hf/hartree/svp", "hf/hartree/def2-svp", "method_spec", false},
      {"hf//x", "hf//x", "method_spec", false},
      {"hf/", "hf/", "method_spec", true},
      {"/x", "/x", "method_spec", false},
      {"/", "/", "method_spec", false},
      {"//", "//", "method_spec", false},
      {"A/$B / C /D", "a/b/c/d", "method_spec", false},
      {"hf/b3/svp/hartree", "hf/b3/svp/hartree", "method_spec", false},
      {"hf/a=b", "hf/a=b", "method_spec", true},
      {"a/b=c/d", "a/b=c/d", "method_spec", false},
      {"x=1/2", "x=1/2", "extra", true},
      {"y=1/2", "y=1/2", "unknown", false},
      {"MaxIter = 50", "maxiter=50", "control", true},
      {"NITER=Fifty=50 # c", "maxiter=Fifty=50", "control", true},
      {"$niter=", "maxiter=", "control", true},
      {" NIter ", "maxiter", "control", true},
      {"niter=#50", "maxiter=", "control", true},
      {"Y = Some Value", "y = some value", "unknown", false},
      {"$Y=Z", "y=z", "unknown", false},
      {"=5", "=5", "unknown", false},
      {"=", "=", "unknown", false},
      {"odd=1", "odd=1", "unknown", false},
      {"a#b", "a", "unknown", false},
      {"Opt", "opt", "unknown", false},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(schema().canonical_easy_token(row.token), row.canonical) << row.token;
    EXPECT_EQ(schema().easy_token_category(row.token), row.category) << row.token;
    EXPECT_EQ(schema().is_known_easy_token(row.token), row.known) << row.token;
  }
}

TEST(EasyTokens, TakeAFirstPartForAFunctionalUnlessItIsAMethod) {
  const InputSchema functional_only =
      schema_from("easy_input: {functionals: {b3lyp: {aliases: [name]}}}");
  EXPECT_EQ(functional_only.canonical_easy_token("Name/x"), "b3lyp/x");
  const InputSchema both = schema_from(
      "easy_input: {methods: {ks: {aliases: [name]}}, functionals: {b3lyp: {aliases: [name]}}}");
  EXPECT_EQ(both.canonical_easy_token("Name/x"), "ks/x");
}

TEST(EasyTokens, OfAClosedBasisListNeedAListedBasis) {
  const InputSchema closed = schema_from(
      "easy_input: {methods: [hf], functionals: [b3lyp], basis: {known: [svp], extensible: no}}");
  EXPECT_FALSE(closed.is_known_easy_token("hf/anything"));
  EXPECT_TRUE(closed.is_known_easy_token("hf/SVP"));
  EXPECT_TRUE(closed.is_known_easy_token("b3lyp/svp"));
  EXPECT_FALSE(closed.is_known_easy_token("hf/b3lyp/anything"));
  EXPECT_TRUE(closed.is_known_easy_token("hf/b3lyp/svp"));
  EXPECT_FALSE(closed.is_known_easy_token("hf/"));
}

TEST(EasyTokens, OfAKeywordWithAnEmptyNameTakeAnEmptyKey) {
  const InputSchema nameless = schema_from("easy_input: {control_keywords: {'$': {aliases: q}}}");
  EXPECT_EQ(nameless.canonical_easy_token("= 5"), "=5");
  EXPECT_EQ(nameless.canonical_easy_token("Q=5"), "=5");
  EXPECT_EQ(nameless.easy_token_category("=5"), "control");
  EXPECT_EQ(nameless.canonical_easy_token(""), "");
}

TEST(EasyTokens, OfAnAliasTakenOverByAnotherKeywordBelongToThatOne) {
  const InputSchema schema = schema_from(
      "easy_input: {control_keywords: {a: {category: one}, b: {aliases: [a], category: two}}}");
  EXPECT_EQ(schema.canonical_easy_token("A=1"), "b=1");
  EXPECT_EQ(schema.easy_token_category("A=1"), "two");
}

}  // namespace
}  // namespace kelp::input::bdf
