// The combinations of a sweep and the names of their files.

#include "kelp/input/bdf/sweep.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Values = std::vector<std::vector<std::string>>;

std::vector<SweepAxis> axes_of(const std::vector<std::string_view>& texts) {
  std::vector<SweepAxis> axes;
  for (const std::string_view text : texts) {
    axes.push_back(parse_sweep_axis(text).axis.value());
  }
  return axes;
}

SweepPlan plan(const std::vector<std::string_view>& axes, std::string_view pattern) {
  return plan_sweep(axes_of(axes), pattern, shipped_schema());
}

std::vector<std::string> names(const std::vector<std::string_view>& axes,
                               std::string_view pattern) {
  const SweepPlan made = plan(axes, pattern);
  EXPECT_EQ(made.error, "");
  std::vector<std::string> list;
  for (const SweepVariant& variant : made.variants) {
    list.push_back(variant.name);
  }
  return list;
}

TEST(SweepAxis, HasAPathAndTheLinesOfEachValue) {
  const auto values = [](std::string_view text) { return axes_of({text}).front().values; };
  EXPECT_EQ(to_string(axes_of({"$SCF#2.dft=pbe0"}).front().path), "SCF#2.dft");
  EXPECT_EQ(values("scf.dft=pbe0,b3lyp"), (Values{{"pbe0"}, {"b3lyp"}}));
  EXPECT_EQ(values("scf.dft= pbe0 , b3lyp "), (Values{{"pbe0"}, {"b3lyp"}}));
  EXPECT_EQ(values("easy.basis=6-31G(d,p),6-31G"), (Values{{"6-31G(d,p)"}, {"6-31G"}}));
  EXPECT_EQ(values("scf.occupied=1\\,2,3\\,4"), (Values{{"1,2"}, {"3,4"}}));
  EXPECT_EQ(values("scf.a=1\\n2,3"), (Values{{"1", "2"}, {"3"}}));
  EXPECT_EQ(values("scf.a=a=b,c\\d"), (Values{{"a=b"}, {"c\\d"}}));
  EXPECT_EQ(values("scf.a=),(,"), (Values{{")"}, {"(,"}}));
}

TEST(SweepAxis, TellsWhyATextIsNone) {
  EXPECT_EQ(parse_sweep_axis("scf.dft").error, "'scf.dft' is no PATH=VALUE,VALUE");
  EXPECT_THAT(parse_sweep_axis("scf.=1").error, HasSubstr("'scf.' is no path"));
  for (const char* const text : {"scf.dft=", "scf.dft=,pbe0", "scf.dft=pbe0,", "scf.dft=a, ,b"}) {
    EXPECT_EQ(parse_sweep_axis(text).error, "a value of 'scf.dft' is empty") << text;
    EXPECT_FALSE(parse_sweep_axis(text).axis) << text;
  }
}

TEST(SweepPlan, HasAllCombinationsTheLastAxisFastest) {
  const std::vector<SweepAxis> axes = axes_of({"scf.charge=0,1", "easy.basis=a,b,c"});
  const SweepPlan made = plan_sweep(axes, "x{charge}-{basis}.inp", shipped_schema());
  ASSERT_EQ(made.variants.size(), 6U);
  EXPECT_EQ(made.variants[0].name, "x0-a.inp");
  EXPECT_EQ(made.variants[1].name, "x0-b.inp");
  EXPECT_EQ(made.variants[5].name, "x1-c.inp");
  EXPECT_THAT(made.variants[4].chosen, ElementsAre(1, 1));
  const std::vector<Assignment> assignments = assignments_of(axes, made.variants[4]);
  ASSERT_EQ(assignments.size(), 2U);
  EXPECT_EQ(to_string(assignments[0].path), "scf.charge");
  EXPECT_THAT(assignments[0].values, ElementsAre("1"));
  EXPECT_EQ(to_string(assignments[1].path), "easy.basis");
  EXPECT_THAT(assignments[1].values, ElementsAre("b"));
}

TEST(SweepPlan, TheCombinationOfAnotherSweepIsNone) {
  EXPECT_THAT(assignments_of(axes_of({"scf.charge=0"}), {"a.inp", {3}}), IsEmpty());
  EXPECT_THAT(assignments_of({}, {"a.inp", {0}}), IsEmpty());
}

TEST(SweepName, TakesPathsNamesAndNumbers) {
  EXPECT_THAT(names({"tddft.iroot=3", "tddft#2.iroot=5"}, "{tddft.iroot}-{TDDFT#2.iroot}"),
              ElementsAre("3-5"));
  EXPECT_THAT(names({"scf.dft=a,b"}, "{DFT}{dft}/x.inp"), ElementsAre("aa/x.inp", "bb/x.inp"));
  EXPECT_THAT(names({"bdfopt.constrain.x=1"}, "{x}"), ElementsAre("1"));
  EXPECT_THAT(names({"scf.a=1,2,3,4,5", "scf.b=1,2"}, "n{#}"),
              ElementsAre("n01", "n02", "n03", "n04", "n05", "n06", "n07", "n08", "n09", "n10"));
}

TEST(SweepName, HoldsOnlyWhatANameShould) {
  EXPECT_THAT(
      names({"easy.basis=6-31G(d,p),6-311++G**,../x y,-1,a  b"}, "n{basis}.inp"),
      ElementsAre("n6-31G(d,p).inp", "n6-311++G.inp", "n..-x-y.inp", "n-1.inp", "na-b.inp"));
  const SweepAxis flag = {*parse_path("scf.nosym").path, {{}}};
  EXPECT_EQ(plan_sweep({flag}, "{nosym}", shipped_schema()).variants.at(0).name, "nosym");
}

struct Refusal {
  std::vector<std::string_view> axes;
  std::string_view pattern;
  const char* error;
};

const Refusal refusals[] = {
    {{}, "a", "a sweep needs a path with values"},
    {{"scf.a=1", "SCF.A=2"}, "a", "'scf.a' and 'SCF.A' mean the same"},
    {{"scf.spinmulti=1", "scf.spin=2"}, "a", "'scf.spinmulti' and 'scf.spin' mean the same"},
    {{"scf.a=1"}, "a{", "a brace in the name has no other one"},
    {{"scf.a=1"}, "a}", "a brace in the name has no other one"},
    {{"scf.a=1"}, "{a{a}", "a brace in the name has no other one"},
    {{"scf.a=1", "scf.b=2"},
     "{c}",
     "'{c}' in the name stands for none of the paths; there are {scf.a}, {scf.b}, {#}"},
    {{"scf.a=1", "tddft.a=2"},
     "{a}",
     "'{a}' in the name may stand for several of the paths, 'scf.a' and 'tddft.a'; write the whole "
     "path"},
    {{"scf.a=1,2", "scf.b=3,4"},
     "x{b}",
     "two variants would be named 'x3': scf.a=1 scf.b=3, and scf.a=2 scf.b=3; {#} in the name is a "
     "number for each"},
    {{"scf.a=x,X"},
     "{a}",
     "two variants would be named 'X': scf.a=x, and scf.a=X; {#} in the name is a number for each"},
    {{"scf.a=-1"},
     "{a}",
     "'-1' is no name for a file of a sweep: it begins with a dash, as options "
     "do"},
    {{"scf.a=1"},
     "x/-{a}",
     "'x/-1' is no name for a file of a sweep: it begins with a dash, as "
     "options do"},
    {{"scf.a=1"},
     "../{a}",
     "'../1' is no name for a file of a sweep: it names no file below the "
     "folder"},
    {{"scf.a=.."},
     "{a}/x",
     "'../x' is no name for a file of a sweep: it names no file below the "
     "folder"},
    {{"scf.a=1"},
     "/tmp/{a}",
     "'/tmp/1' is no name for a file of a sweep: it names no file below "
     "the folder"},
    {{"scf.a=1"},
     "x{a}/",
     "'x1/' is no name for a file of a sweep: it names no file below the "
     "folder"},
    {{"scf.a=1"}, "", "'' is no name for a file of a sweep: it names no file below the folder"},
    {{"scf.a=1"},
     "c:{a}",
     "'c:1' is no name for a file of a sweep: not every system takes what "
     "stands in it"},
    {{"scf.a=1"},
     "a\n{a}",
     "'a\n1' is no name for a file of a sweep: not every system takes what "
     "stands in it"},
};

TEST(SweepPlan, IsRefusedAsAWhole) {
  for (const Refusal& row : refusals) {
    const SweepPlan made = plan(row.axes, row.pattern);
    EXPECT_EQ(made.error, row.error) << row.pattern;
    EXPECT_THAT(made.variants, IsEmpty()) << row.pattern;
  }
  const SweepAxis nothing = {*parse_path("scf.a").path, {}};
  EXPECT_EQ(plan_sweep({nothing}, "a", shipped_schema()).error, "'scf.a' has no values");
}

TEST(SweepPlan, HasALimit) {
  SweepAxis axis = {*parse_path("scf.a").path, Values(1000, {"1"})};
  SweepAxis other = axis;
  other.path.name = "b";
  SweepAxis third = {*parse_path("scf.c").path, Values(2, {"1"})};
  EXPECT_THAT(plan_sweep({axis, other, third}, "{#}", shipped_schema()).error,
              HasSubstr("more than the 1000000 variants"));
  std::vector<SweepAxis> many;
  for (int i = 0; i < 64; ++i) {
    many.push_back(third);
    many.back().path.name += std::to_string(i);
  }
  EXPECT_THAT(plan_sweep(many, "{#}", shipped_schema()).error, HasSubstr("more than"));
}

}  // namespace
}  // namespace kelp::input::bdf
