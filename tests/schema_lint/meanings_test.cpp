#include "lint_table.hpp"

namespace kelp::input::bdf {
namespace {

std::string with_basis(std::string_view basis) {
  return "schema_version: 1\neasy_input: {basis: {" + std::string(basis) + "}}\n";
}

std::string requiring(std::string_view rest) {
  return "schema_version: 1\nmetadata: {summaries: required}\n" + std::string(rest);
}

TEST(SchemaLint, MeaningsAreKnownKeys) {
  expect_problems({
      {__LINE__,
       with_entry(
           "a: {summary: s, summary_zh: z, allowed: [x], values: {X: y}, values_zh: {x: z}}"),
       {}},
      {__LINE__, "schema_version: 1\nmodules: {m: {summary: s, summary_zh: z}}\n", {}},
      {__LINE__,
       "schema_version: 1\nmethods: {hf: {summary: s, summary_zh: z}}\n"
       "easy_keywords: {k: {summary: s, values: {1: one}}}\n",
       {}},
      {__LINE__,
       with_basis("known: [def2-svp], families: {F: {summary: s, prefixes: [def2]}}"),
       {}},
      {__LINE__, "schema_version: 1\nmetadata: {summaries: optional}\n", {}},
  });
}

TEST(SchemaLint, FindsMeaningsOfAWrongType) {
  expect_problems({
      {__LINE__, with_entry("a: {summary: [s]}"), {"2:38 schema.wrong_type"}},
      {__LINE__, with_entry("a: {summary_zh: }"), {"2:41 schema.wrong_type"}},
      {__LINE__, with_entry("a: {values: [x]}"), {"2:37 schema.wrong_type"}},
      {__LINE__, with_entry("a: {values: {x: }}"), {"2:41 schema.wrong_type"}},
      {__LINE__, with_entry("a: {values: {[x]: y}}"), {"2:38 schema.wrong_type"}},
      {__LINE__, "schema_version: 1\nmodules: {m: {summary: {}}}\n", {"2:24 schema.wrong_type"}},
      {__LINE__, "schema_version: 1\nmethods: {hf: {summary: []}}\n", {"2:25 schema.wrong_type"}},
      {__LINE__, with_basis("families: [F]"), {"2:32 schema.wrong_type"}},
      {__LINE__, with_basis("families: {F: }"), {"2:36 schema.wrong_type"}},
      {__LINE__, with_basis("families: {F: {prefix: [a]}}"), {"2:37 schema.unknown_key"}},
      {__LINE__, "schema_version: 1\nmetadata: {summaries: yes}\n", {"2:23 schema.invalid_scalar"}},
  });
}

TEST(SchemaLint, FindsMeaningsOfValuesThatAreNotThere) {
  expect_problems({
      {__LINE__, with_entry("a: {allowed: [x], values: {y: z}}"), {"2:52 schema.unknown_value"}},
      {__LINE__, with_entry("a: {allowed: [x], values_zh: {y: z}}"), {"2:55 schema.unknown_value"}},
      {__LINE__, with_entry("a: {values: {1: z}}"), {}},
      {__LINE__,
       with_entry("a: {values: {1: z}, values_zh: {2: z}}"),
       {"2:57 schema.unknown_value"}},
      {__LINE__, with_entry("a: {values: {x: y, X: z}}"), {"2:44 schema.duplicate_key"}},
      {__LINE__, with_entry("a: {kind: flag, values: {x: y}}"), {"2:49 schema.no_effect !"}},
  });
}

TEST(SchemaLint, AValueThatIsNotThereSaysWhichThereAre) {
  const auto problems = lint_schema(with_entry("a: {allowed: [atom], values: {atoms: z}}"));
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(problems[0].message, "'atoms' is not in the list 'allowed'.");
  EXPECT_EQ(problems[0].name, "atoms");
  EXPECT_EQ(problems[0].known, std::vector<std::string>{"atom"});
}

TEST(SchemaLint, AFamilyNeedsBeginningsOfItsOwn) {
  expect_problems({
      {__LINE__, with_basis("families: {F: {summary: s}}"), {"2:33 schema.no_effect !"}},
      {__LINE__, with_basis("families: {F: {prefixes: []}}"), {"2:33 schema.no_effect !"}},
      {__LINE__, with_basis("families: {F: {prefixes: [a, A]}}"), {"2:51 schema.redundant !"}},
      {__LINE__,
       with_basis("families: {F: {prefixes: a}, G: {prefixes: [b, A]}}"),
       {"2:69 schema.name_collision"}},
  });
}

TEST(SchemaLint, ASchemaThatRequiresSummariesHearsOfEachThatIsMissing) {
  const std::string rest =
      "easy_input:\n"
      "  methods: {hf: {summary: s}, mp2: {}}\n"
      "  functionals: [pbe]\n"
      "  basis: {known: [sto-3g, def2-svp], families: {F: {prefixes: [STO]}}}\n"
      "  control_keywords: {k: {summary: ' '}}\n"
      "modules:\n"
      "  m: {summary: s, entries: {a: , b: {summary: s, allowed: [x, y], values: {y: z}},\n"
      "      n: {kind: nested_block, terminator: end, summary: s, entries: {c: {}}}}}\n"
      "  o:\n";
  EXPECT_EQ(problems_of("schema_version: 1\n" + rest), std::vector<std::string>{});
  expect_problems({{__LINE__,
                    requiring(rest),
                    {
                        "4:31 schema.missing_summary !",
                        "5:17 schema.missing_summary !",
                        "6:27 schema.missing_summary !",
                        "6:49 schema.missing_summary !",
                        "7:22 schema.missing_summary !",
                        "9:29 schema.missing_summary !",
                        "9:60 schema.missing_value_meaning !",
                        "10:70 schema.missing_summary !",
                        "11:3 schema.missing_summary !",
                    }}});
}

}  // namespace
}  // namespace kelp::input::bdf
