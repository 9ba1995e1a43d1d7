#include "lint_table.hpp"

namespace kelp::input::bdf {
namespace {

std::string with_modules(std::string_view modules) {
  return "schema_version: 1\nmodules: {" + std::string(modules) + "}\n";
}

std::string with_easy_input(std::string_view easy) {
  return "schema_version: 1\neasy_input: {" + std::string(easy) + "}\n";
}

TEST(SchemaLint, FindsNamesThatCollide) {
  expect_problems({
      {__LINE__, with_modules("a: {}, $A: {}"), {"2:18 schema.duplicate_key"}},
      {__LINE__, with_modules("a: {aliases: b}, b: {}"), {"2:24 schema.name_collision"}},
      {__LINE__, with_modules("b: {}, a: {aliases: [$B]}"), {"2:32 schema.name_collision"}},
      {__LINE__, with_modules("a: {aliases: c}, b: {aliases: C}"), {"2:41 schema.name_collision"}},
      {__LINE__,
       with_modules("a: {aliases: [a, c, c]}"),
       {"2:25 schema.redundant !", "2:31 schema.redundant !"}},
      {__LINE__, with_modules("m: {entries: {a: {}, A: {}}}"), {"2:32 schema.duplicate_key"}},
      {__LINE__,
       with_modules("m: {entries: {a: {aliases: b}, b: {aliases: c}, c: }}"),
       {"2:38 schema.name_collision", "2:55 schema.name_collision"}},
      {__LINE__,
       with_easy_input("control_keywords: {a: {aliases: b}, b: }"),
       {"2:46 schema.name_collision"}},
      {__LINE__, with_easy_input("methods: [hf, HF]"), {"2:28 schema.duplicate_key"}},
      {__LINE__,
       with_easy_input("functionals: {a: {aliases: b}, c: {aliases: [b]}}"),
       {"2:59 schema.name_collision"}},
      {__LINE__,
       with_easy_input("basis: {known: {a: {aliases: c}, c: {}}}"),
       {"2:43 schema.name_collision"}},
      {__LINE__, with_easy_input("basis: [a, b, a]"), {"2:28 schema.duplicate_key"}},
  });
}

TEST(SchemaLint, FindsNamesThatNoInputCanHold) {
  expect_problems({
      {__LINE__, with_modules("'a b': {}"), {"2:11 schema.unusable_name"}},
      {__LINE__, with_modules("' $ ': {}"), {"2:11 schema.unusable_name"}},
      {__LINE__, with_modules("m: {entries: {'#x': {}}}"), {"2:25 schema.unusable_name"}},
      {__LINE__, with_modules("m: {entries: {x: {aliases: a b}}}"), {"2:38 schema.unusable_name"}},
      {__LINE__, with_modules("[a]: {}"), {"2:11 schema.wrong_type"}},
  });
}

TEST(SchemaLint, FindsWhatIsWrongInTheListsOfTheHeader) {
  expect_problems({
      {__LINE__, with_easy_input("methods: hf"), {"2:23 schema.wrong_type"}},
      {__LINE__, with_easy_input("methods: {hf: {alias: x}}"), {"2:29 schema.unknown_key"}},
      {__LINE__, with_easy_input("methods: {hf: x}"), {"2:28 schema.wrong_type"}},
      {__LINE__, with_easy_input("methods: [hf, [x]]"), {"2:28 schema.wrong_type"}},
      {__LINE__, with_easy_input("basis: {knwon: [x]}"), {"2:22 schema.unknown_key"}},
      {__LINE__, with_easy_input("basis: {extensible: perhaps}"), {"2:34 schema.invalid_scalar"}},
      {__LINE__,
       with_easy_input("control_keywords: {charge: {category: unknown}}"),
       {"2:52 schema.reserved_category"}},
      {__LINE__,
       with_easy_input("control_keywords: {charge: {requires: spin}}"),
       {"2:52 schema.no_effect !"}},
      {__LINE__,
       with_easy_input("control_keywords: {opt: {kind: flag, allowed: [true, false], "
                       "default: none}}"),
       {"2:84 schema.refused_default"}},
  });
}

TEST(SchemaLint, TellsWhichNamesCouldBeMeant) {
  const auto problems = lint_schema(with_modules("m: {entries: {beta: , a: {requires: bta}}}"));
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(problems[0].name, "bta");
  EXPECT_EQ(problems[0].known, (std::vector<std::string>{"a", "beta"}));
  EXPECT_EQ(problems[0].location.length, 3U);
}

}  // namespace
}  // namespace kelp::input::bdf
