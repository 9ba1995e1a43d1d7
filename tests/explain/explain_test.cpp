#include "kelp/input/bdf/explain.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const InputSchema& small_schema() {
  static const InputSchema schema = schema_from(
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

// All explanations of a name, one after the other.
std::string texts(std::string_view name) {
  std::string all;
  for (const Explanation& about : explain(name, small_schema())) {
    all += explanation_text(about);
  }
  return all;
}

TEST(Explain, AnEntryShowsItsLayoutAndAllThatIsSaidAboutIt) {
  EXPECT_EQ(texts("scf.UP"),
            "scf.alpha: an entry of $scf\n"
            "\n"
            "  type        integer\n"
            "  values      at least 1 integer\n"
            "  needs       beta, charge = 1\n"
            "  not with    rhf\n"
            "  also spelt  up\n"
            "\n"
            "  The keyword, then several fields on the next line.\n"
            "\n"
            "    alpha\n"
            "      1\n");
  EXPECT_EQ(texts("scf.charge"),
            "scf.charge: an entry of $scf\n"
            "\n"
            "  type        integer\n"
            "  values      an integer of at least -5 and at most 5\n"
            "  default     0\n"
            "\n"
            "  The keyword, then its value on the next line.\n"
            "\n"
            "    charge\n"
            "      0\n");
  EXPECT_THAT(texts("scf.beta"), HasSubstr("\n  repeatable  yes\n"));
}

TEST(Explain, TheNumberOfEntriesIsKnownAsSuch) {
  const std::vector<Explanation> found = explain("$scf", small_schema());
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].facts.front().kind, FactKind::EntryCount);
  EXPECT_EQ(found[0].facts.front().text, "5");
  const std::vector<Explanation> second = explain("scf.second", small_schema());
  ASSERT_EQ(second.size(), 1U);
  for (const ExplanationFact& fact : second[0].facts) {
    EXPECT_EQ(fact.kind, FactKind::Plain) << fact.heading;
  }
}

TEST(Explain, ACodeHasItsSeverity) {
  EXPECT_THAT(texts("bdf.unknown_entry"), HasSubstr("\n  severity    warning\n"));
  EXPECT_THAT(texts("comment.unused_allowance"), HasSubstr("\n  severity    note\n"));
}

TEST(Explain, AFlagHasNoFacts) {
  EXPECT_EQ(texts("$scf.rhf"),
            "scf.rhf: an entry of $scf\n\n  The keyword alone; it has no value.\n\n    rhf\n");
}

TEST(Explain, APathOfAnInputIsUnderstood) {
  EXPECT_EQ(texts("scf#2.rhf"), texts("scf.rhf"));
}

TEST(Explain, ABlockListsItsEntriesAndEachCanBeAskedFor) {
  const std::string block = texts("scf.second");
  EXPECT_THAT(block, HasSubstr("    second\n      on\n    end second\n"));
  EXPECT_THAT(block, HasSubstr("  ends with   end second\n  entries     on, steps\n"));
  const std::string child = texts("scf.second.steps");
  EXPECT_THAT(child, HasSubstr("scf.second.steps: an entry of the block scf.second\n"));
  EXPECT_THAT(child, HasSubstr("  values      an integer of at least 1\n"));
}

TEST(Explain, ABareKeywordIsToldOfEveryModuleThatHasIt) {
  const std::string text = texts("charge");
  EXPECT_THAT(text,
              HasSubstr("easy.charge: a word of the header (charge)\n\n  type        integer\n"));
  EXPECT_THAT(text, HasSubstr("\nopt.charge: an entry of $opt\n"));
  EXPECT_THAT(text, HasSubstr("\nscf.charge: an entry of $scf\n"));
  EXPECT_THAT(texts("steps"), HasSubstr("scf.second.steps: "));
}

TEST(Explain, AWordOfTheHeaderIsNotMixedUpWithAnEntry) {
  EXPECT_EQ(texts("easy.charge"),
            "easy.charge: a word of the header (charge)\n"
            "\n"
            "  type        integer\n"
            "  values      an integer\n"
            "  default     0\n"
            "\n"
            "    charge=0\n");
  EXPECT_THAT(explain("easy.rhf", small_schema()), IsEmpty());
}

TEST(Explain, AModuleShowsItsFrame) {
  EXPECT_EQ(texts("scf"),
            "scf: a module\n"
            "\n"
            "  entries     5\n"
            "  repeatable  yes\n"
            "\n"
            "    $scf\n"
            "      alpha\n"
            "      ...\n"
            "    $end\n");
}

TEST(Explain, MethodsFunctionalsAndBasisSetsAreKnownByNameAndAlias) {
  EXPECT_THAT(texts("SCF-only"), HasSubstr("hf: a method of the header\n"));
  EXPECT_THAT(texts("pbe"), HasSubstr("method/pbe/basis"));
  EXPECT_THAT(texts("sto-3g"), HasSubstr("method/sto-3g or"));
}

TEST(Explain, ACodeIsToldWithItsExample) {
  const std::string text = texts("bdf.missing_entry_value");
  EXPECT_THAT(text, HasSubstr("  Cause: "));
  EXPECT_THAT(text, HasSubstr("\n    $tddft\n    iroot\n    $end\n"));
  EXPECT_EQ(texts("missing_entry_value"), text);
}

TEST(Explain, EachPartOfARecordStandsForItself) {
  const auto found = explain("SCF.Up", small_schema());
  ASSERT_EQ(found.size(), 1U);
  const Explanation& entry = found.front();
  EXPECT_EQ(entry.thing, ExplainedThing::Entry);
  EXPECT_EQ(entry.name, "scf.alpha");
  EXPECT_EQ(entry.title, "scf.alpha: an entry of $scf");
  EXPECT_EQ(entry.summary, "");
  EXPECT_EQ(entry.writing, "The keyword, then several fields on the next line.");
  EXPECT_THAT(entry.layout, ElementsAre("alpha", "  1"));
  ASSERT_EQ(entry.facts.size(), 5U);
  EXPECT_EQ(entry.facts[2].heading, "needs");
  EXPECT_EQ(entry.facts[2].text, "beta, charge = 1");
  EXPECT_EQ(entry.facts[2].kind, FactKind::Plain);
  EXPECT_EQ(entry.finding, nullptr);
}

TEST(Explain, ARecordTellsWhatItIsAbout) {
  const std::vector<std::pair<const char*, ExplainedThing>> things = {
      {"bdf.unknown_entry", ExplainedThing::Finding},
      {"scf", ExplainedThing::Module},
      {"scf.rhf", ExplainedThing::Entry},
      {"scf.second.on", ExplainedThing::NestedEntry},
      {"easy.charge", ExplainedThing::EasyKeyword},
      {"hf", ExplainedThing::Method},
      {"pbe", ExplainedThing::Functional},
      {"sto-3g", ExplainedThing::BasisSet}};
  for (const auto& [name, thing] : things) {
    const auto found = explain(name, small_schema());
    ASSERT_EQ(found.size(), 1U) << name;
    EXPECT_EQ(found.front().thing, thing) << name;
    EXPECT_EQ(found.front().name, name);
  }
}

TEST(Explain, ACodeBringsItsText) {
  const auto found = explain("unknown_entry", small_schema());
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found.front().finding, find_finding_text("bdf.unknown_entry"));
  EXPECT_EQ(found.front().summary, found.front().finding->meaning);
}

const InputSchema& telling_schema() {
  static const InputSchema schema = schema_from(
      "easy_input:\n"
      "  methods: {hf: {summary: Hartree-Fock., aliases: [rhf]}}\n"
      "  functionals: {pbe: {summary: A GGA.}}\n"
      "  basis:\n"
      "    known: [def2-svp]\n"
      "    families: {Karlsruhe: {summary: Made in Karlsruhe., prefixes: [def2-]}}\n"
      "  control_keywords:\n"
      "    unit: {summary: Unit of lengths., allowed: [bohr], values: {bohr: atomic units}}\n"
      "modules:\n"
      "  scf:\n"
      "    summary: Orbitals.\n"
      "    summary_zh: 轨道。\n"
      "    entries:\n"
      "      guess:\n"
      "        summary: Where the first orbitals come from.\n"
      "        allowed: [atom, hcore]\n"
      "        requires: charge\n"
      "        values: {hcore: no electrons, atom: of atoms}\n"
      "        values_zh: {atom: 原子}\n"
      "      charge: {summary: Electrons missing.}\n"
      "      level: {value_type: integer, arity: 1, values: {0: nothing}}\n"
      "      block: {kind: nested_block, terminator: end, summary: B., entries: {\n"
      "              on: {kind: flag, summary: Within.}}}\n");
  return schema;
}

std::string telling_text(std::string_view name, Language language = Language::English) {
  std::string all;
  for (const Explanation& about : explain(name, telling_schema(), language)) {
    all += explanation_text(about);
  }
  return all;
}

TEST(Explain, WhatANameMeansComesFirstThenItsValuesThenWhatItNeedsThenHowItIsWritten) {
  EXPECT_EQ(telling_text("scf.guess"),
            "scf.guess: an entry of $scf\n"
            "\n"
            "  Where the first orbitals come from.\n"
            "\n"
            "    atom   of atoms\n"
            "    hcore  no electrons\n"
            "\n"
            "  type        string\n"
            "  needs       charge\n"
            "\n"
            "  The keyword, then its value on the next line.\n"
            "\n"
            "    guess\n"
            "      atom\n");
}

TEST(Explain, AnOpenListShowsMeaningsAndWhatElseIsAccepted) {
  const std::string text = telling_text("scf.level");
  EXPECT_THAT(text, HasSubstr("\n\n    0  nothing\n\n  type        integer\n"));
  EXPECT_THAT(text, HasSubstr("\n  values      an integer\n"));
}

TEST(Explain, EverythingThatIsNamedIsToldInItsSummary) {
  EXPECT_THAT(telling_text("scf"), HasSubstr("scf: a module\n\n  Orbitals.\n\n"));
  EXPECT_THAT(telling_text("on"), HasSubstr("\n\n  Within.\n\n"));
  EXPECT_THAT(telling_text("RHF"), HasSubstr("\n\n  Hartree-Fock.\n\n"));
  EXPECT_THAT(telling_text("pbe"), HasSubstr("\n\n  A GGA.\n\n"));
  EXPECT_THAT(telling_text("unit"),
              HasSubstr("\n\n  Unit of lengths.\n\n    bohr  atomic units\n\n"));
  EXPECT_EQ(telling_text("def2-svp"),
            "def2-svp: a basis set of the header\n"
            "\n"
            "  Made in Karlsruhe.\n"
            "\n"
            "  family      Karlsruhe\n"
            "\n"
            "    method/def2-svp or functional/def2-svp\n");
}

TEST(Explain, SentencesOfTheVocabularyComeInTheLanguageAskedFor) {
  EXPECT_THAT(telling_text("scf", Language::Chinese), HasSubstr("\n\n  轨道。\n\n"));
  const std::string guess = telling_text("scf.guess", Language::Chinese);
  EXPECT_THAT(guess, HasSubstr("\n\n  Where the first orbitals come from.\n\n"));
  EXPECT_THAT(guess, HasSubstr("\n\n    atom   原子\n    hcore  no electrons\n\n"));
}

TEST(ExplanationText, IsCutAtAHundredColumnsAndBelowItsOwnColumn) {
  Explanation about;
  about.title = "t";
  about.summary = std::string(60, 'a') + " " + std::string(37, 'b') + " " + std::string(30, 'c');
  about.values = {{"v", std::string(60, 'd') + " " + std::string(50, 'e')},
                  {std::string(30, 'w'), "long"},
                  {"u", ""}};
  about.facts = {{"values", std::string(80, 'f') + " g h"}};
  EXPECT_EQ(explanation_text(about),
            "t\n"
            "\n"
            "  " +
                std::string(60, 'a') + " " + std::string(37, 'b') + "\n" + "  " +
                std::string(30, 'c') +
                "\n"
                "\n"
                "    v" +
                std::string(25, ' ') + std::string(60, 'd') + "\n" + std::string(30, ' ') +
                std::string(50, 'e') +
                "\n"
                "    " +
                std::string(30, 'w') + "\n" + std::string(30, ' ') +
                "long\n"
                "    u\n"
                "\n"
                "  values      " +
                std::string(80, 'f') + " g h\n");
}

TEST(Explain, WhatIsUnknownIsNotExplained) {
  for (const char* const name : {"", ".", "scf.", ".charge", "nothing", "scf.charge.x", "bdf.x"}) {
    EXPECT_THAT(explain(name, small_schema()), IsEmpty()) << name;
  }
}

TEST(Explain, WhatIsUnknownHasSimilarNames) {
  const auto& schema = shipped_schema();
  EXPECT_THAT(similar_explained_names("scf.chrage", schema), ElementsAre("scf.charge"));
  EXPECT_THAT(similar_explained_names("easy.spinmlti", schema), ElementsAre("easy.spinmulti"));
  EXPECT_THAT(similar_explained_names("bdf.unknown_entri", schema),
              ElementsAre("bdf.unknown_entry"));
  EXPECT_THAT(similar_explained_names("compas", schema), ElementsAre("compass"));
  EXPECT_THAT(similar_explained_names("unknown_entri", schema), ElementsAre("unknown_entry"));
  EXPECT_THAT(similar_explained_names("", schema), IsEmpty());
}

}  // namespace
}  // namespace kelp::input::bdf
