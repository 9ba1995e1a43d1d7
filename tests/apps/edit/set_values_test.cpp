// Values of module entries: set, added and taken out.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "set_row.hpp"
#include "support/program.hpp"

namespace kelp::test {
namespace {

TEST(Set, ChangesEntries) {
  for (const SetRow& row : {
           SetRow{"a value",
                  {"scf.charge=-1"},
                  "$scf\n  charge\n    0\n$end\n",
                  "$scf\n  charge\n    -1\n$end\n"},
           SetRow{"an alias",
                  {"scf.spin=3"},
                  "$scf\n  spinmulti\n    1\n$end\n",
                  "$scf\n  spinmulti\n    3\n$end\n"},
           SetRow{"a new entry",
                  {"scf.charge=1"},
                  "$scf\n  rhf\n$end\n",
                  "$scf\n  rhf\n  charge\n    1\n$end\n"},
           SetRow{"a flag",
                  {"scf.rhf="},
                  "$scf\n  charge\n    0\n$end\n",
                  "$scf\n  charge\n    0\n  rhf\n$end\n"},
           SetRow{"the second module of a name",
                  {"scf#2.charge=2"},
                  "$scf\n  charge\n    0\n$end\n$scf\n  charge\n    0\n$end\n",
                  "$scf\n  charge\n    0\n$end\n$scf\n  charge\n    2\n$end\n"},
           SetRow{"a module that is not there",
                  {"tddft#1.iroot=2"},
                  "$scf\n  rhf\n$end\n",
                  "$scf\n  rhf\n$end\n\n$tddft\n  iroot\n    2\n$end\n"},
           SetRow{"the next module of a name",
                  {"scf#2.rhf="},
                  "$scf\n  rhf\n$end\n",
                  "$scf\n  rhf\n$end\n\n$scf\n  rhf\n$end\n"},
           SetRow{"several lines",
                  {"compass.basis=one\\n  two "},
                  "$compass\n$end\n",
                  "$compass\n  basis\n    one\n    two\n$end\n"},
           SetRow{"a value with an equals sign",
                  {"compass.title=a=b"},
                  "$compass\n$end\n",
                  "$compass\n  title\n    a=b\n$end\n"},
           SetRow{"an entry of a nested block",
                  {"bdfopt.neb-block.nimage=5"},
                  "$bdfopt\nneb-block\n nimage 3 # i\n nebmode\n  0\nend neb\n$end\n",
                  "$bdfopt\nneb-block\n nimage 5 # i\n nebmode\n  0\nend neb\n$end\n"},
           SetRow{"an unknown keyword that is there",
                  {"scf.nosuch=3"},
                  "$scf\nNoSuch\n   1\n  rhf\n$end\n",
                  "$scf\nNoSuch\n   3\n  rhf\n$end\n"},
           SetRow{"several at once, in their order",
                  {"scf.charge=1", "scf.rhf=", "scf.charge=2"},
                  "$scf\n$end\n",
                  "$scf\n  charge\n    2\n  rhf\n$end\n",
                  "the last one counts"},
           SetRow{"an entry taken out",
                  {"--unset", "scf.charge"},
                  "$scf\n  charge\n    0\n  rhf\n$end\n",
                  "$scf\n  rhf\n$end\n"},
           SetRow{"an entry of the second module taken out",
                  {"--unset", "scf#2.charge"},
                  "$scf\n  charge\n    0\n$end\n$scf\n  charge\n    1\n$end\n",
                  "$scf\n  charge\n    0\n$end\n$scf\n$end\n"},
           SetRow{"a module taken out, with the comment above it",
                  {"--unset", "scf#2"},
                  "$scf\n  rhf\n$end\n# kept\n\n# goes\n$scf\n  uhf\n$end\n$scf\n  rohf\n$end\n",
                  "$scf\n  rhf\n$end\n# kept\n\n$scf\n  rohf\n$end\n"},
           SetRow{"two modules taken out by the numbers they have",
                  {"--unset", "scf#1", "--unset", "scf#3", "scf#2.charge=1"},
                  "$scf\n  rhf\n$end\n$scf\n  uhf\n$end\n$scf\n  rohf\n$end\n",
                  "$scf\n  uhf\n  charge\n    1\n$end\n"},
       }) {
    expect_set(row);
  }
}

TEST(SetUnknownNames, AreWrittenWhenForced) {
  Program program;
  EXPECT_EQ(program.run({"set", "--force", "-", "scf.NoSuch=1\\n2"}, "$scf\n  rhf\n$end\n").out,
            "$scf\n  rhf\nNoSuch\n    1\n    2\n$end\n");
  EXPECT_EQ(program.run({"set", "--force", "-", "nosuch.key=1"}, "$nosuch\nother\n$end\n").out,
            "$nosuch\nother\nkey\n    1\n$end\n");
}

TEST(SetUnknownNames, AreReadBackByGet) {
  Program program;
  program.write("a.inp", "$scf\n  rhf\n$end\n");
  EXPECT_EQ(program.run({"set", "--force", "-i", "a.inp", "scf.nosuch=1\\n2"}).status, 0);
  EXPECT_EQ(program.run({"get", "scf.nosuch", "a.inp"}).out, "1\n2\n");
}

TEST(Set, ChangesWhatIsThereTheSameWayTwice) {
  Program program;
  const Outcome once =
      program.run({"set", "--force", "-", "scf.charge=1", "scf.nosuch=2"}, "$scf\n$end\n");
  const Outcome twice = program.run({"set", "-", "scf.charge=1", "scf.nosuch=2"}, once.out);
  EXPECT_EQ(twice.status, 0);
  EXPECT_EQ(twice.out, once.out);
}

}  // namespace
}  // namespace kelp::test
