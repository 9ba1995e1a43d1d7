#include "lint_table.hpp"

#include "kelp/input/bdf/schema.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"

namespace kelp::input::bdf {
namespace {

TEST(SchemaLint, TheVocabularyThatComesWithTheLibraryHasNoProblem) {
  EXPECT_EQ(problems_of(test::file_bytes(test::shipped_schema_file())), std::vector<std::string>{});
}

TEST(SchemaLint, FindsWhatIsWrongWithADocumentAsAWhole) {
  expect_problems({
      {__LINE__, "", {"1:1 schema.wrong_type"}},
      {__LINE__, "a text\n", {"1:1 schema.wrong_type"}},
      {__LINE__, "[1]\n", {"1:1 schema.wrong_type"}},
      {__LINE__, "modules: {}\n", {"1:1 schema.missing_version"}},
      {__LINE__, "schema_version: one\n", {"1:17 schema.invalid_scalar"}},
      {__LINE__, "schema_version: 1\nmetadata: {version: 1}\n", {"2:12 schema.unknown_key"}},
      {__LINE__, "schema_version: 1\nfunctionals: [pbe]\n", {"2:1 schema.unknown_key"}},
      {__LINE__, "schema_version: 1\nmodules: []\n", {"2:10 schema.wrong_type"}},
      {__LINE__, "schema_version: 1\nschema_version: 2\n", {"2:1 schema.duplicate_key"}},
      {__LINE__, "schema_version: 1\neasy_input: {}\nmethods: [hf]\n", {"3:10 schema.no_effect !"}},
      {__LINE__,
       "schema_version: 1\nmethods: [hf]\neasy_keywords: {charge: {kind: x}}\n",
       {"3:32 schema.unknown_kind"}},
      {__LINE__,
       "schema_version: 1\neasy_input:\n  methods: [hf]\n  methods_without_functional: [hf, mp]\n",
       {"4:36 schema.unknown_reference"}},
      {__LINE__, "schema_version: 1\n---\nmodules: {}\n", {"3:1 schema.second_document"}},
  });
}

TEST(SchemaLint, MalformedYamlIsOneProblemAtItsPlace) {
  expect_problems({
      {__LINE__, "schema_version: 1\nmodules: {a: [}\n", {"2:15 schema.malformed_yaml"}},
      {__LINE__, "schema_version: 1\nmodules: *nothing\n", {"2:10 schema.malformed_yaml"}},
      {__LINE__, "a: [b\n", {"2:1 schema.malformed_yaml"}},
  });
}

// Ten aliases of ten aliases and so on: as a tree it has 10^30 nodes.
TEST(SchemaLint, LooksOnceAtANodeThatManyAliasesNameAndSaysThatItIsTooMuchToRead) {
  std::string yaml = "schema_version: 1\nmodules:\n  m:\n    entries:\n      e0: &e0 {}\n";
  for (int i = 1; i <= 30; ++i) {
    const std::string last = "*e" + std::to_string(i - 1);
    const std::string name = "e" + std::to_string(i);
    yaml += "      " + name + ": &" + name +
            "\n        kind: nested_block\n        terminator: end\n"
            "        entries: {";
    for (char child = 'a'; child <= 'j'; ++child) {
      yaml += std::string(1, child) + ": " + last + ", ";
    }
    yaml += "}\n";
  }
  const auto problems = lint_schema(yaml);
  ASSERT_FALSE(problems.empty());
  EXPECT_EQ(text_of(problems.front()), "1:1 schema.unreadable");
  EXPECT_LT(problems.size(), 40U);
}

TEST(SchemaLint, EndsOnANodeThatHoldsItself) {
  const std::string entry = "schema_version: 1\nmodules: {m: {entries: &e {x: {entries: *e}}}}\n";
  EXPECT_EQ(problems_of(entry).front(), "1:1 schema.unreadable");
  EXPECT_FALSE(problems_of("&a [*a]\n").empty());
}

// What the linter lets pass must be readable, whatever the text.
TEST(SchemaLint, WithoutErrorsADocumentCanBeRead) {
  const std::string good = test::file_bytes(test::shipped_schema_file());
  for (std::size_t cut = 0; cut < good.size(); cut += 2999) {
    const std::string text = good.substr(0, cut) + good.substr(cut + 7);
    bool has_error = false;
    for (const SchemaProblem& problem : lint_schema(text)) {
      has_error = has_error || problem.severity == ValidationSeverity::Error;
    }
    if (!has_error) {
      EXPECT_NO_THROW(InputSchema::from_yaml(text)) << "without 7 bytes at " << cut;
    }
  }
}

}  // namespace
}  // namespace kelp::input::bdf
