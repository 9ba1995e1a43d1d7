#include "kelp/input/bdf/completion.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "support/files.hpp"
#include "support/published_inputs.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;
using testing::Not;

const InputSchema& small_schema() {
  static const InputSchema schema = schema_from(R"(
easy_input:
  methods: {hf: {summary: Mean field.}, tddft: {}}
  methods_without_functional: [hf]
  functionals: {b3lyp: {}}
  basis: {known: {sto-3g: {}, def2-svp: {}}}
  control_keywords:
    charge: {kind: scalar, value_type: integer, arity: 1, default: 0}
    unit: {kind: scalar, allowed: [angstrom, bohr], values: {bohr: atomic unit}}
modules:
  compass:
    repeatable: false
    entries:
      basis: {kind: scalar}
      geometry: {kind: terminated_block, terminator: end geometry}
  scf:
    repeatable: true
    summary: The field.
    entries:
      charge: {kind: scalar, value_type: integer, default: 0}
      dft: {kind: scalar}
      guess: {kind: scalar, allowed: [atom, hcore], summary: How it begins., summary_zh: 初猜。,
              values: {atom: of atoms, hcore: without electrons}}
      occupy: {kind: tuple, value_type: integer, repeatable: true}
      print: {kind: multiline}
      rhf: {kind: flag}
      more:
        kind: nested_block
        terminator: endmore
        entries:
          depth: {kind: scalar, value_type: integer}
          style: {kind: scalar, allowed: [plain, fancy]}
)");
  return schema;
}

/// Completes at the `|` of a text, which is taken out.
Completion complete(std::string text, Language language = Language::English) {
  const std::size_t byte = text.find('|');
  text.erase(byte, 1);
  return completion_at(ParsedInput(text, small_schema()), byte, language);
}

std::vector<std::string> names_of(const Completion& completion) {
  std::vector<std::string> names;
  for (const Candidate& candidate : completion.candidates) {
    names.push_back(candidate.name);
  }
  return names;
}

std::vector<std::string> names_at(const std::string& text) {
  return names_of(complete(text));
}

const Candidate& candidate(const Completion& completion, std::string_view name) {
  const auto found = std::find_if(completion.candidates.begin(), completion.candidates.end(),
                                  [&](const Candidate& item) { return item.name == name; });
  static const Candidate none;
  EXPECT_NE(found, completion.candidates.end()) << name;
  return found == completion.candidates.end() ? none : *found;
}

TEST(Completion, OffersModulesBehindADollar) {
  EXPECT_THAT(names_at("$s|"), ElementsAre("$compass", "$scf"));
  EXPECT_THAT(names_at("$scf\n$end\n\n$|"), ElementsAre("$compass", "$scf"));
  EXPECT_THAT(names_at("$scf\n$end\n|"), ElementsAre("$compass", "$scf"));
  EXPECT_THAT(names_at("$scf\n$end\nsc|"), ElementsAre("$compass", "$scf"));
}

TEST(Completion, OffersTheEndOfAModuleThatIsOpen) {
  EXPECT_THAT(names_at("$scf\n  rhf\n$|"), ElementsAre("$end", "$compass", "$scf"));
  EXPECT_THAT(names_at("$scf\n  rhf\n$e|\n"), Contains("$end"));
  EXPECT_THAT(names_at("$scf\n  |\n$end\n"), Contains("$end"));
}

TEST(Completion, OffersAModuleOfWhichThereCanBeOneLastWhenItIsThere) {
  const Completion completion = complete("$compass\n$end\n$scf\n$end\n$|\n");
  EXPECT_THAT(names_of(completion), ElementsAre("$scf", "$compass"));
  EXPECT_TRUE(completion.candidates.back().is_present);
}

TEST(Completion, OffersTheEntriesOfTheModuleThoseAlreadyThereLast) {
  const std::vector<std::string> names = {"charge", "dft",   "guess", "more",
                                          "occupy", "print", "rhf",   "$end"};
  EXPECT_EQ(names_at("$scf\n|\n$end\n"), names);
  EXPECT_EQ(names_at("$scf\n  g|\n$end\n"), names);
  EXPECT_EQ(names_at("$scf\n  |"), names);
  EXPECT_EQ(names_at("$scf\n  gue|ss\n    atom\n$end\n"), names);
  EXPECT_THAT(names_at("$scf\n  occupy\n  1\n  charge\n  0\n  |\n$end\n"),
              ElementsAre("dft", "guess", "more", "occupy", "print", "rhf", "$end", "charge"));
}

TEST(Completion, TellsOfAnEntryWhatTheVocabularySays) {
  const Candidate guess = candidate(complete("$scf\n  |\n$end\n"), "guess");
  EXPECT_EQ(guess.kind, CandidateKind::Entry);
  EXPECT_EQ(guess.path, "scf.guess");
  EXPECT_EQ(guess.summary, "How it begins.");
  EXPECT_EQ(guess.value_type, "string");
  EXPECT_THAT(guess.lines, ElementsAre("guess", "  atom"));
  EXPECT_EQ(candidate(complete("$scf\n  |\n$end\n", Language::Chinese), "guess").summary, "初猜。");
  const Candidate charge = candidate(complete("$scf\n  |\n$end\n"), "charge");
  EXPECT_EQ(charge.default_value, "0");
  const Candidate more = candidate(complete("$scf\n  |\n$end\n"), "more");
  EXPECT_THAT(more.lines, ElementsAre("more", "  depth", "endmore"));
  EXPECT_TRUE(more.closes_block);
}

TEST(Completion, WritesNoLinesWhereTheyStandAlready) {
  EXPECT_THAT(candidate(complete("$scf\n  gue|ss\n    atom\n$end\n"), "guess").lines,
              ElementsAre("guess"));
  EXPECT_THAT(candidate(complete("$scf\n  gues|\n    atom\n$end\n"), "guess").lines,
              ElementsAre("guess"));
  EXPECT_THAT(candidate(complete("$sc|\n  rhf\n$end\n"), "$scf").lines, ElementsAre("$scf"));
  EXPECT_THAT(candidate(complete("$sc|\n\n$scf\n$end\n"), "$scf").lines,
              ElementsAre("$scf", "  ", "$end"));
}

TEST(Completion, OffersTheValuesOfAnEntry) {
  EXPECT_THAT(names_at("$scf\n  guess\n    |\n$end\n"), ElementsAre("atom", "hcore"));
  EXPECT_THAT(names_at("$scf\n  guess\n    at|\n$end\n"), ElementsAre("atom", "hcore"));
  EXPECT_THAT(names_at("$scf\n  guess\n|"), ElementsAre("atom", "hcore"));
  EXPECT_THAT(names_at("$scf\n  guess |\n$end\n"), ElementsAre("atom", "hcore"));
  EXPECT_THAT(names_at("$scf\n  charge\n  |\n$end\n"), ElementsAre("0"));
  EXPECT_EQ(candidate(complete("$scf\n guess\n|\n"), "hcore").summary, "without electrons");
}

TEST(Completion, OffersFunctionalsAndBasisSetsWhereAnEntryHoldsThem) {
  EXPECT_THAT(names_at("$scf\n  dft\n    |\n$end\n"), ElementsAre("b3lyp"));
  EXPECT_THAT(names_at("$compass\n  basis\n    d|\n$end\n"), ElementsAre("def2-svp", "sto-3g"));
}

TEST(Completion, OffersTheNextKeywordBehindValuesOfWhichThereMayBeMore) {
  EXPECT_THAT(names_at("$scf\n  print\n    |\n$end\n"), ElementsAre());
  EXPECT_THAT(names_at("$scf\n  print\n    1\n  r|\n$end\n"), Contains("rhf"));
}

TEST(Completion, OffersWhatStandsInANestedBlock) {
  EXPECT_THAT(names_at("$scf\n  more\n    |\n  endmore\n$end\n"),
              ElementsAre("depth", "style", "endmore"));
  EXPECT_THAT(names_at("$scf\n  more\n    dep|\n  endmore\n$end\n"),
              ElementsAre("depth", "style", "endmore"));
  EXPECT_THAT(names_at("$scf\n  more\n    style\n      |\n  endmore\n$end\n"),
              ElementsAre("plain", "fancy"));
  EXPECT_THAT(names_at("$scf\n  more\n    depth\n     1\n  end|more\n$end\n"), Contains("endmore"));
}

TEST(Completion, OffersElementsAndTheEndInAGeometry) {
  EXPECT_THAT(names_at("$compass\n  geometry\n    |\n  end geometry\n$end\n"),
              IsSupersetOf({"H", "U", "end geometry"}));
  const Completion completion = complete("hf/sto-3g\n\ngeometry\nC|\nend geometry\n");
  EXPECT_THAT(names_of(completion), IsSupersetOf({"H", "U", "End geometry"}));
  EXPECT_EQ(candidate(completion, "C").summary, "atomic number 6");
  EXPECT_THAT(names_at("hf/sto-3g\n\ngeometry\nC 0.0 |\nend geometry\n"), ElementsAre());
}

TEST(Completion, OffersWordsOfTheHeader) {
  EXPECT_THAT(names_at("#! a\nhf/sto-3g c|\n"), ElementsAre("charge", "unit"));
  EXPECT_THAT(names_at("#! a\nh|\n"), ElementsAre("charge", "unit", "hf", "tddft", "b3lyp"));
  EXPECT_THAT(names_at("#! a\nhf/sto-3g charge=1 |\n"), ElementsAre("unit", "charge"));
  EXPECT_THAT(candidate(complete("#! a\nhf/sto-3g c|\n"), "charge").lines, ElementsAre("charge=0"));
  EXPECT_EQ(candidate(complete("#! a\nh|\n"), "hf").summary, "Mean field.");
}

TEST(Completion, OffersThePartsOfAMethodSpecification) {
  const std::vector<std::string> basis_sets = {"def2-svp", "sto-3g"};
  EXPECT_EQ(names_at("#! a\nhf/s|\n"), basis_sets);
  EXPECT_EQ(names_at("#! a\nb3lyp/|\n"), basis_sets);
  EXPECT_EQ(names_at("#! a\ntddft/b3lyp/|\n"), basis_sets);
  EXPECT_THAT(names_at("#! a\ntddft/|\n"), ElementsAre("b3lyp", "def2-svp", "sto-3g"));
  EXPECT_THAT(names_at("#! a\nhf/sto-3g unit=|\n"), ElementsAre("angstrom", "bohr"));
}

TEST(Completion, ReplacesTheWordOrTheLastPartOfIt) {
  struct Row {
    std::string text;
    std::string word;
  };
  for (const Row& row : {
           Row{"$scf\n  gu|ess\n$end\n", "guess"},
           Row{"$s|\n", "$s"},
           Row{"#! a\ntddft/b3|lyp/sto-3g\n", "b3lyp"},
           Row{"#! a\nhf/sto-3g unit=bo|\n", "bo"},
           Row{"$scf\n  |\n", ""},
       }) {
    std::string text = row.text;
    text.erase(text.find('|'), 1);
    const TextRange range = complete(row.text).range;
    EXPECT_EQ(text.substr(range.begin, range.size()), row.word) << row.text;
  }
}

TEST(Completion, OffersNothingInCommentsAndOtherPrograms) {
  EXPECT_THAT(names_at("$scf\n  guess  # a|\n$end\n"), ElementsAre());
  EXPECT_THAT(names_at("$scf\n  # g|\n$end\n"), ElementsAre());
  EXPECT_THAT(names_at("#! a|\n"), ElementsAre());
  EXPECT_THAT(names_at("$scf\n$end\n% cp a|\n"), ElementsAre());
}

TEST(Completion, OfAnEmptyTextOffersWhatAnInputCanBeginWith) {
  EXPECT_THAT(names_at("|"), IsSupersetOf({"$scf", "$compass", "hf", "b3lyp", "charge"}));
  EXPECT_THAT(names_at("\n|\n"), IsSupersetOf({"$scf", "hf"}));
  EXPECT_THAT(names_at("#! a\nhf/sto-3g\n\n|"), Contains("Geometry"));
}

TEST(Completion, OfAnUnknownModuleOffersItsEndAlone) {
  EXPECT_THAT(names_at("$xyz\n  a|\n"), ElementsAre("$end"));
  EXPECT_TRUE(completion_at(ParsedInput("$scf\n a", InputSchema()), 7).candidates.size() <= 1);
}

// What was written in a published input was one of the candidates where it was written.
TEST(Completion, OffersTheKnownKeywordsOfPublishedInputs) {
  const auto files = test::published_inputs();
  if (files.empty()) {
    GTEST_SKIP() << "no published inputs";
  }
  for (const auto& file : files) {
    const ParsedInput input(test::file_bytes(file), shipped_schema());
    const BDFData& data = input.data();
    for (std::size_t i = 0; i < data.modules.size(); ++i) {
      for (std::size_t k = 0; k < data.modules[i].entries.size(); ++k) {
        const RecordId record = RecordId::of_entry(i, k);
        const TextRange keyword = input.keyword_range(record);
        if (!data.modules[i].entries[k].known || keyword.empty()) {
          continue;
        }
        EXPECT_THAT(names_of(completion_at(input, keyword.begin + 1)),
                    Contains(data.modules[i].entries[k].name))
            << file << ", line " << input.first_line(record);
      }
    }
  }
}

TEST(Completion, OfEveryByteOfEveryPublishedInputEnds) {
  for (const auto& file : test::published_inputs()) {
    const ParsedInput input(test::file_bytes(file), small_schema());
    for (std::size_t byte = 0; byte <= input.source().text().size(); byte += 3) {
      const TextRange range = completion_at(input, byte).range;
      EXPECT_LE(range.begin, range.end) << file;
      EXPECT_LE(range.end, input.source().text().size()) << file;
    }
  }
}

}  // namespace
}  // namespace kelp::input::bdf
