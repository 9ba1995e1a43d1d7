#include "cases.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <map>
#include <set>
#include <string>

#include "advice/advice.hpp"
#include "kelp/input/bdf.hpp"
#include "support/schema.hpp"

namespace kelp::test {
namespace {

using input::bdf::Diagnostic;
using input::bdf::Fix;

std::string place(const AdviceCase& it) {
  return it.file.filename().string() + ":" + std::to_string(it.line) + ": " + it.title;
}

std::set<std::string> codes_on(const std::string& text, const AdviceCase& it) {
  std::set<std::string> codes;
  for (const Diagnostic& diagnostic : advice_on(text, it.files)) {
    codes.insert(diagnostic.code);
  }
  return codes;
}

// KELP_UPDATE_GOLDEN=1 writes the expectations anew.
TEST(AdviceCases, GetExactlyTheAdviceThatTheyList) {
  if (std::getenv("KELP_UPDATE_GOLDEN") != nullptr) {
    const std::vector<AdviceCase> cases = advice_cases();
    std::set<std::filesystem::path> files;
    for (const AdviceCase& it : cases) {
      if (files.insert(it.file).second) {
        update_expectations(it.file, cases);
      }
    }
  }
  for (const AdviceCase& it : advice_cases()) {
    std::vector<std::string> found;
    for (const Diagnostic& diagnostic : advice_on(it.text, it.files)) {
      found.push_back(written(diagnostic, it.text));
    }
    EXPECT_EQ(found, it.expected) << place(it) << '\n' << it.text;
    EXPECT_EQ(codes_on(it.text, it).count(it.code), it.fires ? 1U : 0U) << place(it);
  }
}

TEST(AdviceCases, HoldATriggerAndANearMissOfEachRule) {
  std::map<std::string, std::set<bool>> kinds;
  for (const AdviceCase& it : advice_cases()) {
    kinds[it.code].insert(it.fires);
    EXPECT_EQ(it.file.stem().string(), it.code.substr(0, it.code.find('.'))) << place(it);
  }
  std::set<std::string> codes;
  for (const auto& theme : input::bdf::all_rules()) {
    for (const input::bdf::Rule& rule : theme) {
      EXPECT_TRUE(codes.insert(rule.code).second) << rule.code << " stands there twice";
      EXPECT_EQ(kinds[rule.code].size(), 2U) << rule.code << " has no trigger or no near miss";
    }
  }
  for (const auto& [code, cases] : kinds) {
    EXPECT_TRUE(codes.count(code)) << code << " is no rule";
  }
}

TEST(AdviceCases, AreCuredByEachFixThatIsOffered) {
  for (const AdviceCase& it : advice_cases()) {
    for (const Diagnostic& diagnostic : advice_on(it.text, it.files)) {
      for (const Fix& fix : diagnostic.fixes) {
        const std::string text = input::bdf::apply_edits(it.text, fix.edits);
        EXPECT_NE(text, it.text) << place(it) << ' ' << fix.title;
        EXPECT_FALSE(codes_on(text, it).count(diagnostic.code))
            << place(it) << ' ' << fix.title << '\n'
            << text;
      }
    }
  }
}

// An input of one theme's file is right in all other respects, the vocabulary's included; only a
// near miss can be an excerpt.
TEST(AdviceCases, AreInputsThatTheVocabularyAccepts) {
  for (const AdviceCase& it : advice_cases()) {
    if (!it.fires) {
      continue;
    }
    const input::bdf::ParsedInput input(it.text, input::bdf::shipped_schema());
    input::bdf::DiagnoseOptions options;
    options.advice = false;
    for (const Diagnostic& diagnostic : diagnose(input, options)) {
      ADD_FAILURE() << place(it) << ": " << diagnostic.code << ' ' << diagnostic.message;
    }
  }
}

// Every cut of an input is one that somebody has on the screen while typing. Each line is cut
// before its end and somewhere else, at another byte from one case to the next: there are thousands
// of cases, and all cuts of all of them would tell no more and take much longer.
TEST(AdviceCases, CanBeCutOffAnywhere) {
  std::size_t number = 0;
  for (const AdviceCase& it : advice_cases()) {
    ++number;
    for (std::size_t begin = 0; begin < it.text.size();) {
      const std::size_t end = std::min(it.text.find('\n', begin), it.text.size());
      for (const std::size_t size : {begin + number % (end - begin + 1), end}) {
        advice_on(it.text.substr(0, size), it.files);
      }
      begin = end + 1;
    }
  }
}

TEST(Advice, IsLeftOutWhenItIsNotWanted) {
  const std::string text = "$scf\nrhf\nrks\ndft\n b3lyp\n$end\n";
  const input::bdf::ParsedInput input(text, input::bdf::shipped_schema());
  input::bdf::DiagnoseOptions options;
  EXPECT_EQ(diagnose(input, options).size(), 1U);
  options.advice = false;
  EXPECT_TRUE(diagnose(input, options).empty());
}

TEST(Advice, IsNotGivenOfWhatNoCalculationIs) {
  std::string text;
  for (int i = 0; i < 5000; ++i) {
    text += "$scf\nrhf\nrks\n$end\n";
  }
  EXPECT_TRUE(advice_on(text).empty());
}

}  // namespace
}  // namespace kelp::test
