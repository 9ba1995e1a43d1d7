#include "kelp/input/bdf/meaning.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Language zh = Language::Chinese;

const InputSchema& schema() {
  static const InputSchema made = schema_from(
      "easy_input:\n"
      "  methods: {hf: {summary: Hartree-Fock., summary_zh: 哈特里-福克。, aliases: [scf-only]}, "
      "mp2: }\n"
      "  functionals: {pbe: {summary: A GGA., aliases: [p]}, blyp: {summary: Older.}}\n"
      "  basis:\n"
      "    known: {def2-svp: {aliases: [def2svp]}, def2-svpd: {summary: Diffuse.}, sto-3g: {}}\n"
      "    families:\n"
      "      Karlsruhe: {summary: Def2 sets., summary_zh: 卡尔斯鲁厄。, prefixes: [Def2-, dhf-]}\n"
      "      Karlsruhe, diffuse: {summary: Never seen., prefixes: def2-svpd}\n"
      "      Others: {summary: No def2-qzvp known., prefixes: [def2-q]}\n"
      "  control_keywords:\n"
      "    unit: {summary: Unit., aliases: [units], values: {bohr: atomic units}}\n"
      "modules:\n"
      "  scf:\n"
      "    summary: >\n"
      "      Two\n"
      "      lines.\n"
      "    summary_zh: 轨道。\n"
      "    aliases: [sfc]\n"
      "    entries:\n"
      "      guess:\n"
      "        summary: First orbitals.\n"
      "        aliases: [start]\n"
      "        allowed: [Atom, hcore, 1]\n"
      "        values: {HCORE: no electrons, atom: of atoms}\n"
      "        values_zh: {atom: 原子}\n"
      "      level: {values: {2: much, 0: nothing}, values_zh: {0: 无, 1: 少}}\n"
      "      silent: {allowed: [a, b]}\n"
      "      block: {kind: nested_block, terminator: end, summary: B., entries: {\n"
      "              on: {summary: Within., aliases: [yes], values: {x: y}}}}\n"
      "  numgrad:\n");
  return made;
}

std::vector<std::string> lines_of(const std::vector<ValueMeaning>& values) {
  std::vector<std::string> lines;
  for (const ValueMeaning& known : values) {
    lines.push_back(known.value + ": " + known.meaning);
  }
  return lines;
}

TEST(Summary, IsFoundUnderEverySpellingOfAName) {
  for (const char* const name : {"scf", "$SCF", " sfc "}) {
    EXPECT_EQ(module_summary(schema(), name), "Two lines.") << name;
    EXPECT_EQ(entry_summary(schema(), name, "START"), "First orbitals.") << name;
    EXPECT_EQ(nested_entry_summary(schema(), name, "block", "Yes"), "Within.") << name;
  }
  EXPECT_EQ(easy_keyword_summary(schema(), "UNITS"), "Unit.");
  EXPECT_EQ(method_summary(schema(), "SCF-only"), "Hartree-Fock.");
  EXPECT_EQ(functional_summary(schema(), "P"), "A GGA.");
}

TEST(Summary, InChineseFallsBackToEnglish) {
  EXPECT_EQ(module_summary(schema(), "scf", zh), "轨道。");
  EXPECT_EQ(entry_summary(schema(), "scf", "guess", zh), "First orbitals.");
  EXPECT_EQ(method_summary(schema(), "hf", zh), "哈特里-福克。");
  EXPECT_EQ(functional_summary(schema(), "pbe", zh), "A GGA.");
  EXPECT_EQ(module_summary(schema(), "scf", static_cast<Language>(7)), "Two lines.");
}

TEST(Summary, IsEmptyWhereNothingIsSaidOrTheNameIsUnknown) {
  EXPECT_EQ(module_summary(schema(), "numgrad"), "");
  EXPECT_EQ(module_summary(schema(), "nosuch"), "");
  EXPECT_EQ(entry_summary(schema(), "scf", "silent"), "");
  EXPECT_EQ(entry_summary(schema(), "numgrad", "guess"), "");
  EXPECT_EQ(nested_entry_summary(schema(), "scf", "guess", "on"), "");
  EXPECT_EQ(method_summary(schema(), "mp2"), "");
  EXPECT_EQ(functional_summary(schema(), "hf"), "");
  EXPECT_EQ(easy_keyword_summary(schema(), "charge"), "");
  EXPECT_EQ(basis_summary(schema(), "sto-3g"), "");
  EXPECT_EQ(module_summary(InputSchema(), "scf"), "");
}

TEST(BasisFamily, IsTheOneWithTheLongestBeginningOfTheCanonicalName) {
  const auto family = basis_family(schema(), "DEF2SVP");
  ASSERT_TRUE(family);
  EXPECT_EQ(family->name, "Karlsruhe");
  EXPECT_EQ(family->summary, "Def2 sets.");
  EXPECT_THAT(family->prefixes, ElementsAre("def2-", "dhf-"));
  EXPECT_EQ(basis_family(schema(), "def2-svp", zh)->summary, "卡尔斯鲁厄。");
  EXPECT_EQ(basis_family(schema(), "def2-svpd")->name, "Karlsruhe, diffuse");
  EXPECT_FALSE(basis_family(schema(), "sto-3g"));
  EXPECT_FALSE(basis_family(schema(), "def2-qzvp")) << "which is not in the list";
}

TEST(BasisFamily, SpeaksForABasisSetThatHasNoSummaryOfItsOwn) {
  EXPECT_EQ(basis_summary(schema(), "def2svp"), "Def2 sets.");
  EXPECT_EQ(basis_summary(schema(), "def2svp", zh), "卡尔斯鲁厄。");
  EXPECT_EQ(basis_summary(schema(), "def2-svpd"), "Diffuse.");
}

TEST(ValueMeanings, OfAClosedListAreThoseOfAllItsValuesInItsOrder) {
  EXPECT_THAT(lines_of(entry_value_meanings(schema(), "scf", "start")),
              ElementsAre("atom: of atoms", "hcore: no electrons", "1: "));
  EXPECT_THAT(lines_of(entry_value_meanings(schema(), "scf", "guess", zh)),
              ElementsAre("atom: 原子", "hcore: no electrons", "1: "));
  EXPECT_THAT(entry_value_meanings(schema(), "scf", "silent"), IsEmpty());
}

TEST(ValueMeanings, OfAnOpenListAreThoseThatTheSchemaHasInItsOrder) {
  EXPECT_THAT(lines_of(entry_value_meanings(schema(), "scf", "level")),
              ElementsAre("2: much", "0: nothing"));
  EXPECT_THAT(lines_of(entry_value_meanings(schema(), "scf", "level", zh)),
              ElementsAre("2: much", "0: 无", "1: 少"));
  EXPECT_THAT(lines_of(nested_entry_value_meanings(schema(), "scf", "block", "yes")),
              ElementsAre("x: y"));
  EXPECT_THAT(lines_of(easy_keyword_value_meanings(schema(), "units")),
              ElementsAre("bohr: atomic units"));
  EXPECT_THAT(entry_value_meanings(schema(), "scf", "nosuch"), IsEmpty());
}

TEST(Meanings, OfAWrongTypeArePassedOver) {
  const InputSchema odd = schema_from(
      "methods: {hf: {summary: [a]}}\n"
      "easy_input: nothing\n"
      "modules: {m: {summary: {a: b}, entries: {a: {summary: , values: [x]},\n"
      "  b: {values: {x: [1], y: , z: good}, values_zh: text}}}}\n");
  EXPECT_EQ(method_summary(odd, "hf"), "");
  EXPECT_EQ(module_summary(odd, "m"), "");
  EXPECT_EQ(entry_summary(odd, "m", "a"), "");
  EXPECT_THAT(entry_value_meanings(odd, "m", "a"), IsEmpty());
  EXPECT_THAT(lines_of(entry_value_meanings(odd, "m", "b", zh)), ElementsAre("z: good"));
  const InputSchema families = schema_from(
      "easy_input: {basis: {known: [a1], families: {f: text, g: {prefixes: {a: b}}}}}\n");
  EXPECT_FALSE(basis_family(families, "a1"));
}

void expect_both(const std::string& name, const std::string& english, const std::string& chinese) {
  EXPECT_TRUE(english.empty() || english != chinese) << name << " has no summary in Chinese";
}

TEST(Summary, OfTheVocabularyThatComesWithTheLibraryIsThereInBothLanguages) {
  const InputSchema& s = shipped_schema();
  for (const std::string& module : s.known_modules()) {
    expect_both(module, module_summary(s, module), module_summary(s, module, zh));
    for (const std::string& entry : s.known_entries(module)) {
      const std::string path = module + "." + entry;
      expect_both(path, entry_summary(s, module, entry), entry_summary(s, module, entry, zh));
      for (const std::string& child : s.known_nested_entries(module, entry)) {
        expect_both(path + "." + child, nested_entry_summary(s, module, entry, child),
                    nested_entry_summary(s, module, entry, child, zh));
      }
    }
  }
  for (const std::string& name : s.known_easy_keywords()) {
    expect_both("easy." + name, easy_keyword_summary(s, name), easy_keyword_summary(s, name, zh));
  }
  for (const std::string& name : s.known_methods()) {
    expect_both(name, method_summary(s, name), method_summary(s, name, zh));
  }
  for (const std::string& name : s.known_functionals()) {
    expect_both(name, functional_summary(s, name), functional_summary(s, name, zh));
  }
  for (const std::string& name : s.known_basis_sets()) {
    expect_both(name, basis_summary(s, name), basis_summary(s, name, zh));
  }
}

TEST(LanguageOfLocale, IsChineseForWhatBeginsWithItsCode) {
  for (const char* const name : {"zh", "zh_CN.UTF-8", "zh-Hans", "ZH"}) {
    EXPECT_EQ(language_of_locale(name), Language::Chinese) << name;
  }
  for (const char* const name : {"", "C", "en", "en_ZH", "z", "de_DE.UTF-8"}) {
    EXPECT_EQ(language_of_locale(name), Language::English) << name;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
