#include "kelp/core/glob.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace kelp::core::glob {
namespace {

struct Row {
  const char* pattern;
  const char* path;
  bool matches;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.pattern << " and " << row.path;
}

class Glob : public ::testing::TestWithParam<Row> {};

TEST_P(Glob, MatchesAWholePath) {
  EXPECT_EQ(matches(GetParam().pattern, GetParam().path), GetParam().matches);
}

const Row rows[] = {
    {"", "", true},
    {"", "a", false},
    {"a", "", false},
    {"a.inp", "a.inp", true},
    {"a.inp", "a.INP", false},
    {"a.inp", "b/a.inp", false},
    {"*", "", true},
    {"*", "a.inp", true},
    {"*", "b/a.inp", false},
    {"*.inp", "a.inp", true},
    {"*.inp", ".inp", true},
    {"*.inp", "a.inp.bak", false},
    {"a*b*c", "axxbxbxc", true},
    {"a*b*c", "axxcxbx", false},
    {"b/*", "b/a.inp", true},
    {"b/*", "b/c/a.inp", false},
    {"?.inp", "a.inp", true},
    {"?.inp", "水.inp", true},
    {"?.inp", "ab.inp", false},
    {"a?b", "a/b", false},
    {"[abc].inp", "b.inp", true},
    {"[abc].inp", "d.inp", false},
    {"[a-c].inp", "b.inp", true},
    {"[!a-c].inp", "b.inp", false},
    {"[!a-c].inp", "d.inp", true},
    {"[^a].inp", "b.inp", true},
    {"[]].inp", "].inp", true},
    {"[a-]x", "-x", true},
    {"[ä-ü]", "ö", true},
    {"a[!b]c", "a/c", false},
    {"[a.inp", "[a.inp", true},
    {"[", "[", true},
    {"**", "", true},
    {"**", "a/b/c", true},
    {"**/a.inp", "a.inp", true},
    {"**/a.inp", "x/a.inp", true},
    {"**/a.inp", "x/y/a.inp", true},
    {"**/a.inp", "xa.inp", false},
    {"**/a.inp", "x/ya.inp", false},
    {"x/**/a.inp", "x/a.inp", true},
    {"x/**/a.inp", "x/y/z/a.inp", true},
    {"x/**/a.inp", "xa.inp", false},
    {"x/**", "x/y/a.inp", true},
    {"x/**", "x", false},
    {"**/old/**", "a/old/b/c.inp", true},
    {"**/old/**", "old/c.inp", true},
    {"**/old/**", "a/older/c.inp", false},
    {"a**b", "ax/yb", true},
    {"**/*.inp", "a/b.inp", true},
    {"**/*.inp", "b.inp", true},
    {"**/**/x", "x", true},
};

INSTANTIATE_TEST_SUITE_P(Rows, Glob, ::testing::ValuesIn(rows));

TEST(GlobTime, IsShortForAPatternThatFitsInManyWays) {
  std::string pattern;
  for (int i = 0; i < 100; ++i) {
    pattern += "*a**";
  }
  EXPECT_FALSE(matches(pattern + "b", std::string(2000, 'a')));
}

}  // namespace
}  // namespace kelp::core::glob
