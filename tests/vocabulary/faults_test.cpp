#include "faults.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <utility>

#include "corpus.hpp"
#include "support/files.hpp"

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

bool has_more(const Counts& counts, const Counts& before) {
  return std::any_of(counts.begin(), counts.end(), [&before](const auto& item) {
    const auto found = before.find(item.first);
    return found == before.end() || found->second < item.second;
  });
}

struct Tally {
  int made = 0;
  int found = 0;
  std::map<std::string, int> missed;  ///< by the line's first word, which tells of which keyword

  double percent() const { return made == 0 ? 100.0 : 100.0 * found / made; }
};

std::map<std::string_view, Tally> tally_all() {
  std::map<std::string_view, Tally> tallies;
  for (const CorpusInput& input : corpus()) {
    if (!input.is_clean()) {
      continue;
    }
    const Counts before = counted(findings_in(input.text));
    for (const Fault& fault : faults_of(input.text)) {
      Tally& tally = tallies[fault.kind];
      ++tally.made;
      if (has_more(counted(findings_in(fault.text)), before)) {
        ++tally.found;
      } else {
        ++tally.missed[input.name + ":" + std::to_string(fault.line)];
      }
    }
  }
  return tallies;
}

void print(std::string_view kind, const Tally& tally) {
  std::printf("%-24.*s %5d of %5d  %6.2f %%\n", static_cast<int>(kind.size()), kind.data(),
              tally.found, tally.made, tally.percent());
  int shown = 0;
  for (const auto& [place, count] : tally.missed) {
    if (++shown <= 10) {
      std::printf("    not found: %s\n", place.c_str());
    }
  }
}

TEST(Faults, NineteenOfTwentyMistakesInPublishedInputsAreFound) {
  KELP_NEED_CORPUS();
  const std::map<std::string_view, Tally> tallies = tally_all();
  const std::string page =
      file_bytes(std::filesystem::path(KELP_SOURCE_DIR) / "docs" / "vocabulary.md");
  Tally all;
  for (const std::string_view kind : fault_kinds) {
    const auto tally = tallies.find(kind);
    ASSERT_NE(tally, tallies.end()) << "no mistake of the kind: " << kind;
    print(kind, tally->second);
    all.made += tally->second.made;
    all.found += tally->second.found;
    // A kind that is found less often has a paragraph that says why.
    if (tally->second.percent() < 95) {
      EXPECT_NE(page.find("### " + std::string(kind)), std::string::npos) << kind;
    }
  }
  print("all", all);
  EXPECT_GT(all.made, 5000);
  EXPECT_GE(all.percent(), 95.0);
}

// The mistakes themselves, on a text of our own.
TEST(Faults, AreMadeInEveryPlaceThereIs) {
  const std::string text =
      "$compass\n"
      "geometry\n"
      "  Ne 0 0 0\n"
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
      {"misspelt module", {1, 6}},    {"misspelt keyword", {2, 7, 9}},
      {"letter in a number", {10}},   {"missing $end", {5, 11}},
      {"missing end geometry", {4}},  {"repeated singular entry", {5, 9, 11}},
      {"value not in the list", {8}},
  };
  EXPECT_EQ(places, expected);
}

TEST(Faults, ChangeOneThing) {
  const std::string text = "$scf\nguess\n  atom\n$end\n";
  std::vector<std::string> variants;
  for (const Fault& fault : faults_of(text)) {
    variants.push_back(fault.text);
  }
  EXPECT_EQ(
      variants,
      (std::vector<std::string>{
          "$csf\nguess\n  atom\n$end\n", "$scf\nguess\n  atom\n", "$scf\ngeuss\n  atom\n$end\n",
          "$scf\nguess\n  atom\nguess\n  atom\n$end\n", "$scf\nguess\n  nonesuch\n$end\n"}));
}

}  // namespace
}  // namespace kelp::test
