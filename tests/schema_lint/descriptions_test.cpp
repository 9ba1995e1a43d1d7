#include "kelp/input/bdf/explain.hpp"
#include "lint_table.hpp"

namespace kelp::input::bdf {
namespace {

// "modules: {m: {entries: {" is 24 columns wide.
TEST(SchemaLint, ADescriptionThatSaysWhatItMeansHasNoProblem) {
  for (const char* const entry :
       {"x: ", "x: {}", "x: {kind: flag, default: false}",
        "x: {kind: Vector, value_type: Integer_Array, min: 1, default: 3}",
        "x: {kind: block, terminator: end x}",
        "x: {kind: nested_block, terminator: end x, entries: {y: {kind: flag}, z: }}",
        "x: {kind: counted_rows, count_line: true, row: {arity: 2, types: [integer, float]}}",
        "x: {kind: counted_rows, row: {allowed_arities: [1, 6], types: integer}, min: 0}",
        "x: {arity: 2, value_type: float, default: 1.d-6 1.D-6}",
        "x: {allowed: [ultra fine, fine], default: Ultra Fine}",
        "x: {requires: [flag, {entry: other, equals: 2}], conflicts: y}, y: ",
        "x: {requires: flag, repeatable: true, aliases: [ex, eks]}",
        "x: {value_type: integer, allowed: [0, +1, -1], default: 0}",
        "x: {value_type: float, min: 0, max: 1, max_exclusive: true, default: 0}"}) {
    EXPECT_EQ(problems_of(with_entry(entry)), std::vector<std::string>{}) << entry;
  }
}

TEST(SchemaLint, FindsWordsAndKeysThatAreNotKnown) {
  expect_problems({
      {__LINE__, with_entry("x: {knd: flag}"), {"2:29 schema.unknown_key"}},
      {__LINE__, with_entry("x: {Kind: flag}"), {"2:29 schema.unknown_key"}},
      {__LINE__,
       with_entry("x: {row: {aritty: 2}, kind: counted_rows}"),
       {"2:35 schema.unknown_key"}},
      {__LINE__,
       with_entry("x: {requires: [{entry: flag, equal: 1}]}"),
       {"2:54 schema.unknown_key"}},
      {__LINE__, with_entry("x: {kind: table}"), {"2:35 schema.unknown_kind"}},
      {__LINE__, with_entry("x: {value_type: int}"), {"2:41 schema.unknown_type"}},
      {__LINE__,
       with_entry("x: {kind: counted_rows, row: {types: [real]}}"),
       {"2:63 schema.unknown_type"}},
      {__LINE__, with_entry("x: {<<: {kind: flag}}"), {"2:29 schema.unknown_key"}},
  });
}

TEST(SchemaLint, FindsEachOfSeveralSlipsInOneDescription) {
  expect_problems({
      {__LINE__,
       with_entry("x: {kind: scaler, value_typ: integer}"),
       {"2:35 schema.unknown_kind", "2:43 schema.unknown_key"}},
      {__LINE__,
       with_entry("x: {value_type: int, min: [1], row: {types: [real, [a]]}}"),
       {"2:41 schema.unknown_type", "2:51 schema.wrong_type", "2:70 schema.unknown_type",
        "2:76 schema.wrong_type"}},
      // What only follows from a misspelt key is not told.
      {__LINE__, with_entry("x: {kind: block, terminatr: end x}"), {"2:42 schema.unknown_key"}},
  });
}

TEST(SchemaLint, TheTextsOfUnknownWordsNameAllThatAreAccepted) {
  for (const char* const entry : {"x: {kind: table}", "x: {value_type: int}"}) {
    const std::vector<SchemaProblem> problems = lint_schema(with_entry(entry));
    ASSERT_EQ(problems.size(), 1U) << entry;
    const FindingText* const text = find_finding_text(problems.front().code);
    ASSERT_NE(text, nullptr);
    EXPECT_GT(problems.front().known.size(), 5U);
    for (const std::string& word : problems.front().known) {
      EXPECT_NE(text->fix.find(word), std::string_view::npos) << word;
    }
  }
}

TEST(SchemaLint, FindsNodesOfTheWrongTypeAndScalarsThatDoNotConvert) {
  expect_problems({
      {__LINE__, with_entry("x: text"), {"2:28 schema.wrong_type"}},
      {__LINE__, with_entry("x: [1]"), {"2:28 schema.wrong_type"}},
      {__LINE__, with_entry("x: {kind: [flag]}"), {"2:35 schema.wrong_type"}},
      {__LINE__, with_entry("x: {kind: }"), {"2:35 schema.wrong_type"}},
      {__LINE__, with_entry("x: {allowed: {a: b}}"), {"2:38 schema.wrong_type"}},
      {__LINE__, with_entry("x: {allowed: [a, [b]]}"), {"2:42 schema.wrong_type"}},
      {__LINE__, with_entry("x: {row: 2}"), {"2:34 schema.wrong_type"}},
      {__LINE__, with_entry("x: {requires: {entry: flag}}"), {"2:39 schema.wrong_type"}},
      {__LINE__, with_entry("x: {requires: [{equals: 1}]}"), {"2:40 schema.unknown_reference"}},
      {__LINE__, with_entry("x: {entries: [a]}"), {"2:38 schema.wrong_type"}},
      {__LINE__, with_entry("x: {min: abc}"), {"2:34 schema.invalid_scalar"}},
      {__LINE__, with_entry("x: {max: .nan}"), {"2:34 schema.invalid_scalar"}},
      {__LINE__, with_entry("x: {arity: -1}"), {"2:36 schema.invalid_scalar"}},
      {__LINE__, with_entry("x: {arity: 1.5}"), {"2:36 schema.invalid_scalar"}},
      {__LINE__, with_entry("x: {allowed_arities: [1, x]}"), {"2:50 schema.invalid_scalar"}},
      {__LINE__, with_entry("x: {repeatable: maybe}"), {"2:41 schema.invalid_scalar"}},
      {__LINE__, with_entry("x: {min: 1, min: 2}"), {"2:37 schema.duplicate_key"}},
  });
}

TEST(SchemaLint, FindsValuesThatTheDescriptionItselfRefuses) {
  expect_problems({
      {__LINE__,
       with_entry("x: {value_type: integer, default: none}"),
       {"2:59 schema.refused_default"}},
      {__LINE__, with_entry("x: {allowed: [a, b], default: c}"), {"2:55 schema.refused_default"}},
      {__LINE__,
       with_entry("x: {value_type: float, min: 1, default: 0}"),
       {"2:65 schema.refused_default"}},
      {__LINE__,
       with_entry("x: {value_type: float, max: 1, max_exclusive: true, default: 1}"),
       {"2:86 schema.refused_default"}},
      {__LINE__, with_entry("x: {arity: 2, default: 1}"), {"2:48 schema.refused_default"}},
      {__LINE__,
       with_entry("x: {value_type: integer, allowed: [1, one]}"),
       {"2:63 schema.impossible_value"}},
      {__LINE__, with_entry("x: {allowed: 'a,b'}"), {"2:38 schema.impossible_value"}},
      {__LINE__,
       with_entry("x: {arity: 1, allowed: ultra fine}"),
       {"2:48 schema.impossible_value"}},
      {__LINE__, with_entry("x: {allowed: [a, A]}"), {"2:42 schema.redundant !"}},
  });
}

TEST(SchemaLint, FindsLimitsThatNothingSatisfies) {
  expect_problems({
      {__LINE__,
       with_entry("x: {value_type: float, min: 2, max: 1}"),
       {"2:53 schema.impossible_bounds"}},
      {__LINE__,
       with_entry("x: {value_type: float, min: 1, max: 1, min_exclusive: true}"),
       {"2:53 schema.impossible_bounds"}},
      {__LINE__, with_entry("x: {min_arity: 3, max_arity: 2}"), {"2:40 schema.impossible_arity"}},
      {__LINE__, with_entry("x: {arity: 3, max_arity: 2}"), {"2:36 schema.impossible_arity"}},
      {__LINE__,
       with_entry("x: {allowed_arities: [1, 2], min_arity: 3}"),
       {"2:46 schema.impossible_arity"}},
      {__LINE__,
       with_entry("x: {kind: counted_rows, row: {min_arity: 3, max_arity: 2}}"),
       {"2:66 schema.impossible_arity"}},
  });
}

TEST(SchemaLint, FindsBlocksWithoutTheLineThatEndsThem) {
  expect_problems({
      {__LINE__, with_entry("x: {kind: block}"), {"2:35 schema.missing_terminator"}},
      {__LINE__,
       with_entry("x: {kind: nested_block, terminator: ' '}"),
       {"2:35 schema.missing_terminator"}},
      {__LINE__, with_entry("x: {kind: block, terminator: $stop}"), {"2:54 schema.no_effect !"}},
  });
}

TEST(SchemaLint, FindsWhatHasNoEffect) {
  expect_problems({
      {__LINE__, with_entry("x: {row: {arity: 2}}"), {"2:34 schema.no_effect !"}},
      {__LINE__, with_entry("x: {count_line: true}"), {"2:41 schema.no_effect !"}},
      {__LINE__, with_entry("x: {terminator: end x}"), {"2:41 schema.no_effect !"}},
      {__LINE__, with_entry("x: {entries: {y: }}"), {"2:38 schema.no_effect !"}},
      {__LINE__, with_entry("x: {category: scf}"), {"2:39 schema.no_effect !"}},
      {__LINE__, with_entry("x: {kind: flag, arity: 1}"), {"2:48 schema.no_effect !"}},
      {__LINE__, with_entry("x: {kind: counted_rows, arity: 1}"), {"2:56 schema.no_effect !"}},
      {__LINE__, with_entry("x: {min: 1}"), {"2:34 schema.no_effect !"}},
      {__LINE__, with_entry("x: {min_exclusive: true}"), {"2:44 schema.no_effect !"}},
      {__LINE__,
       with_entry("x: {kind: counted_rows, row: {arity: 1, types: [float, float]}}"),
       {"2:72 schema.no_effect !"}},
      {__LINE__,
       with_entry("x: {kind: nested_block, terminator: e, entries: {y: {kind: nested_block, "
                  "terminator: f, entries: {z: }}}}"),
       {"2:122 schema.no_effect !"}},
  });
}

TEST(SchemaLint, FindsRequirementsAndConflictsThatCannotBeMet) {
  expect_problems({
      {__LINE__, with_entry("x: {requires: y}"), {"2:39 schema.unknown_reference"}},
      {__LINE__, with_entry("x: {conflicts: [flag, y]}"), {"2:47 schema.unknown_reference"}},
      {__LINE__, with_entry("x: {conflicts: X}"), {"2:40 schema.self_reference"}},
      {__LINE__, with_entry("x: {aliases: y, requires: y}"), {"2:51 schema.self_reference"}},
      {__LINE__,
       with_entry("x: {requires: [{entry: other, equals: 3}]}"),
       {"2:63 schema.impossible_requirement"}},
      {__LINE__,
       with_entry("x: {requires: [{entry: flag, equals: 3}]}"),
       {"2:62 schema.impossible_requirement"}},
  });
}

TEST(SchemaLint, LooksAtNestedEntriesAsAtEntries) {
  const std::string head =
      "schema_version: 1\nmodules:\n  m:\n    entries:\n      block:\n"
      "        kind: nested_block\n        terminator: end\n"
      "        entries:\n";
  expect_problems({
      {__LINE__, head + "          x: {kind: blok}\n", {"9:21 schema.unknown_kind"}},
      {__LINE__, head + "          x: {requires: block}\n", {"9:25 schema.unknown_reference"}},
      {__LINE__,
       head + "          x: {aliases: y}\n          y:\n",
       {"9:24 schema.name_collision"}},
  });
}

}  // namespace
}  // namespace kelp::input::bdf
