#include "faults.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "corpus.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"

namespace kelp::test {
namespace {

using Counts = std::map<std::pair<std::string, std::string>, int>;

// Lines move when lines are added or dropped, so only code and message are compared.
Counts counted(const std::vector<Found>& findings) {
  Counts counts;
  for (const Found& found : findings) {
    ++counts[{found.code, found.message}];
  }
  return counts;
}

// What a mistake brings, in the order in which it is told.
std::vector<Found> new_findings(const std::vector<Found>& findings, Counts before) {
  std::vector<Found> added;
  for (const Found& found : findings) {
    if (int& left = before[{found.code, found.message}]; left > 0) {
      --left;
    } else {
      added.push_back(found);
    }
  }
  return added;
}

struct Tally {
  int made = 0;
  int found = 0;
  int in_place = 0;  ///< found, and the first finding is on the line of the mistake
  int findings = 0;
  std::vector<std::string> missed;
  std::vector<std::string> elsewhere;

  static double ratio(int part, int whole) { return whole == 0 ? 1.0 : 1.0 * part / whole; }
  double share_found() const { return ratio(found, made); }
  double share_in_place() const { return ratio(in_place, found); }
  double findings_each() const { return ratio(findings, found); }
};

void count(const Fault& fault, const std::string& input, const Counts& before, Tally& tally) {
  const std::vector<Found> added = new_findings(findings_in(fault.text), before);
  const std::string where = input + ":" + std::to_string(fault.line);
  ++tally.made;
  tally.findings += static_cast<int>(added.size());
  if (added.empty()) {
    tally.missed.push_back(where);
    return;
  }
  ++tally.found;
  if (added[0].line == fault.line) {
    ++tally.in_place;
  } else {
    tally.elsewhere.push_back(where + " told on line " + std::to_string(added[0].line) + ": " +
                              added[0].message);
  }
}

std::map<std::string_view, Tally> tally_all() {
  std::map<std::string_view, Tally> tallies;
  for (const CorpusInput& input : corpus()) {
    if (!input.is_clean()) {
      continue;
    }
    const Counts before = counted(findings_in(input.text));
    for (const Fault& fault : faults_of(input.text)) {
      count(fault, input.name, before, tallies[fault.kind]);
    }
  }
  return tallies;
}

void print_some(const char* what, const std::vector<std::string>& items) {
  for (std::size_t i = 0; i < items.size() && i < 5; ++i) {
    std::printf("    %s: %s\n", what, items[i].c_str());
  }
}

void print(std::string_view kind, const Tally& tally) {
  std::printf("%-32.*s %5d of %5d  %6.2f %%  in place %6.2f %%  findings %5.2f\n",
              static_cast<int>(kind.size()), kind.data(), tally.found, tally.made,
              100 * tally.share_found(), 100 * tally.share_in_place(), tally.findings_each());
  print_some("not found", tally.missed);
  print_some("elsewhere", tally.elsewhere);
}

TEST(Faults, NineteenOfTwentyMistakesInPublishedInputsAreFound) {
  KELP_NEED_CORPUS();
  const std::map<std::string_view, Tally> tallies = tally_all();
  const std::string page = file_bytes(test::source_folder() / "docs" / "vocabulary.md");
  Tally all;
  for (const FaultKind& kind : fault_kinds) {
    const auto tally = tallies.find(kind.name);
    ASSERT_NE(tally, tallies.end()) << "no mistake of the kind: " << kind.name;
    print(kind.name, tally->second);
    all.made += tally->second.made;
    all.found += tally->second.found;
    all.in_place += tally->second.in_place;
    all.findings += tally->second.findings;
    if (kind.is_told_in_place) {
      EXPECT_GE(tally->second.share_found(), 0.98) << kind.name;
      EXPECT_GE(tally->second.share_in_place(), 0.95) << kind.name;
      EXPECT_LE(tally->second.findings_each(), 1.2) << kind.name;
    } else if (tally->second.share_found() < 0.95) {
      // A kind that is found less often has a paragraph that says why.
      EXPECT_NE(page.find("### " + std::string(kind.name)), std::string::npos) << kind.name;
    }
  }
  print("all", all);
  EXPECT_GT(all.made, 5000);
  EXPECT_GE(all.share_found(), 0.95);
}

// The mistakes themselves, on a text of our own.
TEST(Faults, AreMadeInEveryPlaceThereIs) {
  const std::string text =
      "$compass\n"
      "geometry\n"
      "  Ne 0 -1.5 1.5\n"
      "end geometry\n"
      "$end\n"
      "$scf\n"
      "guess\n"
      "  atom\n"
      "charge\n"
      "  12 # comment\n"
      "$end\n";
  std::map<std::string_view, std::vector<std::size_t>> places;
  for (const Fault& fault : faults_of(text)) {
    places[fault.kind].push_back(fault.line);
    EXPECT_NE(fault.text, text) << fault.kind;
  }
  const std::map<std::string_view, std::vector<std::size_t>> expected = {
      {"misspelt module", {1, 6}},
      {"misspelt keyword", {2, 7, 9}},
      {"letter in a number", {10}},
      {"missing $end", {5, 11}},
      {"missing end geometry", {4}},
      {"misspelt terminator", {4, 4, 4, 5, 5, 11, 11}},
      {"repeated singular entry", {5, 9, 11}},
      {"value not in the list", {8}},
      {"atom: letter for zero", {3}},
      {"atom: full-width digit", {3, 3, 3}},
      {"atom: decimal comma", {3, 3}},
      {"atom: typographic minus", {3}},
      {"atom: no-break space", {3}},
      {"atom: missing number", {3}},
      {"atom: surplus number", {3}},
      {"atom: glued label", {3}},
      {"atom: glued numbers", {3}},
      {"atom: XYZ head", {3}},
      {"misspelt element", {3, 3}},
      {"atom: word behind", {3}},
      {"atom: mark in the label", {3}},
      {"blank behind the dollar", {1, 6}},
      {"second value", {9}},
  };
  EXPECT_EQ(places, expected);
}

TEST(Faults, AreMadeInEveryNameThereIs) {
  const std::string text =
      "#! a\nrks/b3lyp/sto-3g charge=0\ngeometry\nO\nend geometry\n"
      "$compass\nbasis-block\n  sto-3g\n  O=cc-pvdz\nend basis\n$end\n"
      "$compass\nbasis\n  own-set\n$end\n$scf\ndft\n  pbe0\nrks\n$end\n";
  std::map<std::string_view, std::vector<std::size_t>> places;
  for (const Fault& fault : faults_of(text)) {
    places[fault.kind].push_back(fault.line);
  }
  const std::vector<std::size_t> three_on_the_header = {2, 2, 2};
  EXPECT_EQ(places["misspelt method"], (std::vector<std::size_t>{2}));
  EXPECT_EQ(places["misspelt functional"], three_on_the_header);
  EXPECT_EQ(places["misspelt basis set"], (std::vector<std::size_t>{2}));
  EXPECT_EQ(places["misspelt header keyword"], three_on_the_header);
  EXPECT_EQ(places["misspelt basis set of a module"], (std::vector<std::size_t>{8, 9, 9, 9}));
  EXPECT_EQ(places["misspelt functional of a module"], (std::vector<std::size_t>{18, 18, 18}));
  EXPECT_EQ(places["misspelt keyword behind lines"], (std::vector<std::size_t>{19}));
  EXPECT_EQ(places["misspelt element"], (std::vector<std::size_t>{4, 4}));
}

TEST(Faults, ChangeOneThing) {
  const std::string text = "$scf\nguess\n  atom\n$end\n";
  std::vector<std::string> variants;
  for (const Fault& fault : faults_of(text)) {
    variants.push_back(fault.text);
  }
  EXPECT_EQ(variants,
            (std::vector<std::string>{
                "$csf\nguess\n  atom\n$end\n", "$scf\nguess\n  atom\n",
                "$ scf\nguess\n  atom\n$end\n", "$scf\ngeuss\n  atom\n$end\n",
                "$scf\nguess\n  atom\nguess\n  atom\n$end\n", "$scf\nguess\n  nonesuch\n$end\n",
                "$scf\nguess\n  atom\n$edn\n", "$scf\nguess\n  atom\nend\n"}));
}

}  // namespace
}  // namespace kelp::test
