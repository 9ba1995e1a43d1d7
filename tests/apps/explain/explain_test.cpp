#include "explain.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/program.hpp"
#include "support/schema.hpp"

namespace kelp::app {
namespace {

using test::Outcome;
using test::Program;
using testing::HasSubstr;

const input::bdf::InputSchema& small_schema() {
  static const auto schema = input::bdf::schema_from(
      "easy_input:\n"
      "  methods: {hf: {aliases: [scf-only]}}\n"
      "  functionals: [pbe]\n"
      "  basis: [sto-3g]\n"
      "  control_keywords:\n"
      "    charge: {value_type: integer, arity: 1, default: 0, category: charge}\n"
      "modules:\n"
      "  scf:\n"
      "    repeatable: true\n"
      "    entries:\n"
      "      charge: {value_type: integer, arity: 1, min: -5, max: 5, default: 0}\n"
      "      alpha: {kind: tuple, value_type: integer, min_arity: 1, requires: [beta,\n"
      "              {entry: charge, equals: 1}], conflicts: [rhf], aliases: [up]}\n"
      "      beta: {kind: tuple, value_type: integer, min_arity: 1, repeatable: true}\n"
      "      rhf: {kind: flag}\n"
      "      second: {kind: nested_block, terminator: end second, entries: {\n"
      "               steps: {value_type: integer, arity: 1, min: 1}, on: {kind: flag}}}\n"
      "  opt:\n"
      "    entries: {charge: {kind: flag}}\n");
  return schema;
}

TEST(Explain, AnEntryShowsItsLayoutAndAllThatIsSaidAboutIt) {
  EXPECT_EQ(*explanation("scf.UP", small_schema()),
            "scf.alpha: an entry of $scf\n"
            "\n"
            "  The keyword, then several fields on the next line.\n"
            "\n"
            "    alpha\n"
            "      1\n"
            "\n"
            "  type        integer\n"
            "  values      at least 1 integer\n"
            "  needs       beta, charge = 1\n"
            "  not with    rhf\n"
            "  also spelt  up\n");
  EXPECT_EQ(*explanation("scf.charge", small_schema()),
            "scf.charge: an entry of $scf\n"
            "\n"
            "  The keyword, then its value on the next line.\n"
            "\n"
            "    charge\n"
            "      0\n"
            "\n"
            "  type        integer\n"
            "  values      an integer of at least -5 and at most 5\n"
            "  default     0\n");
  EXPECT_THAT(*explanation("scf.beta", small_schema()), HasSubstr("\n  repeatable  yes\n"));
}

TEST(Explain, AFlagHasNoFacts) {
  EXPECT_EQ(*explanation("$scf.rhf", small_schema()),
            "scf.rhf: an entry of $scf\n\n  The keyword alone; it has no value.\n\n    rhf\n");
}

TEST(Explain, APathOfAnInputIsUnderstood) {
  EXPECT_EQ(explanation("scf#2.rhf", small_schema()), explanation("scf.rhf", small_schema()));
}

TEST(Explain, ABlockListsItsEntriesAndEachCanBeAskedFor) {
  const std::string block = *explanation("scf.second", small_schema());
  EXPECT_THAT(block, HasSubstr("    second\n      on\n    end second\n"));
  EXPECT_THAT(block, HasSubstr("  ends with   end second\n  entries     on, steps\n"));
  const std::string child = *explanation("scf.second.steps", small_schema());
  EXPECT_THAT(child, HasSubstr("scf.second.steps: an entry of the block scf.second\n"));
  EXPECT_THAT(child, HasSubstr("  values      an integer of at least 1\n"));
}

TEST(Explain, ABareKeywordIsToldOfEveryModuleThatHasIt) {
  const std::string text = *explanation("charge", small_schema());
  EXPECT_THAT(text, HasSubstr("easy.charge: a word of the header (charge)\n\n    charge=0\n"));
  EXPECT_THAT(text, HasSubstr("\n\nopt.charge: an entry of $opt\n"));
  EXPECT_THAT(text, HasSubstr("\n\nscf.charge: an entry of $scf\n"));
  EXPECT_THAT(*explanation("steps", small_schema()), HasSubstr("scf.second.steps: "));
}

TEST(Explain, AWordOfTheHeaderIsNotMixedUpWithAnEntry) {
  EXPECT_EQ(*explanation("easy.charge", small_schema()),
            "easy.charge: a word of the header (charge)\n"
            "\n"
            "    charge=0\n"
            "\n"
            "  type        integer\n"
            "  values      an integer\n"
            "  default     0\n");
  EXPECT_FALSE(explanation("easy.rhf", small_schema()));
}

TEST(Explain, AModuleShowsHowToSeeItsEntries) {
  EXPECT_EQ(*explanation("scf", small_schema()),
            "scf: a module\n"
            "\n"
            "    $scf\n"
            "      alpha\n"
            "      ...\n"
            "    $end\n"
            "\n"
            "  entries     5; 'kelp-bdf schema list scf' lists them\n"
            "  repeatable  yes\n");
}

TEST(Explain, MethodsFunctionalsAndBasisSetsAreKnownByNameAndAlias) {
  EXPECT_THAT(*explanation("SCF-only", small_schema()), HasSubstr("hf: a method of the header\n"));
  EXPECT_THAT(*explanation("pbe", small_schema()), HasSubstr("method/pbe/basis"));
  EXPECT_THAT(*explanation("sto-3g", small_schema()), HasSubstr("method/sto-3g or"));
}

TEST(Explain, ACodeIsToldWithItsExample) {
  const std::string text = *explanation("bdf.missing_entry_value", small_schema());
  EXPECT_THAT(text, HasSubstr("  Cause: "));
  EXPECT_THAT(text, HasSubstr("\n    $tddft\n    iroot 4\n    $end\n"));
  EXPECT_EQ(explanation("missing_entry_value", small_schema()), text);
}

TEST(Explain, WhatIsUnknownIsNotExplained) {
  for (const char* const name : {"", ".", "scf.", ".charge", "nothing", "scf.charge.x", "bdf.x"}) {
    EXPECT_FALSE(explanation(name, small_schema())) << name;
  }
}

TEST(ExplainCommand, AnUnknownNameIsAFindingAndSaysWhatMayHaveBeenMeant) {
  Program program;
  struct Row {
    const char* name;
    const char* error;
  };
  for (const Row& row : {
           Row{"scf.chrage",
               "kelp-bdf: nothing is called 'scf.chrage'; did you mean 'scf.charge'?\n"},
           Row{"easy.spinmlti",
               "kelp-bdf: nothing is called 'easy.spinmlti'; did you mean 'easy.spinmulti'?\n"},
           Row{"bdf.unknown_entri",
               "kelp-bdf: nothing is called 'bdf.unknown_entri'; did you mean "
               "'bdf.unknown_entry'?\n"},
           Row{"compas", "kelp-bdf: nothing is called 'compas'; did you mean 'compass'?\n"},
       }) {
    const Outcome outcome = program.run({"explain", row.name});
    EXPECT_EQ(outcome.status, 1) << row.name;
    EXPECT_EQ(outcome.out, "") << row.name;
    EXPECT_EQ(outcome.err, row.error);
  }
}

TEST(ExplainCommand, PrintsTheExplanation) {
  Program program;
  const Outcome outcome = program.run({"explain", "scf.charge"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(outcome.out, *explanation("scf.charge", input::bdf::shipped_schema()));
}

TEST(ExplainCommand, WantsOneName) {
  Program program;
  EXPECT_EQ(program.run({"explain"}).status, 2);
}

}  // namespace
}  // namespace kelp::app
