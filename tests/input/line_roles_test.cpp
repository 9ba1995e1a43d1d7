// What the parser says of each line, by a letter for each role.

#include <gtest/gtest.h>

#include <string>

#include "input/roles.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

std::string roles_of(const std::string& text) {
  return roles_of(ParsedInput(text, shipped_schema()));
}

TEST(LineRoles, AnEasyInputHasThoseOfItsHeaderAndGeometry) {
  EXPECT_EQ(roles_of("# c\n\n#! job\nhf/sto-3g\n* d\n\ncharge = 1\nGeometry\nH 0 0 0\nR1 2\n\nEnd "
                     "Geometry\n"),
            "# !h# hGallg");
}

TEST(LineRoles, AModuleHasThoseOfItsEntries) {
  EXPECT_EQ(roles_of("$compass\nbasis\n sto-3g\ngeometry\n H 0 0 0\n# c\nend geometry\n\n# c\n"
                     "oddity\n 1\n$end\n"),
            "Mkvkvvb #uvE");
}

TEST(LineRoles, ChildrenOfANestedBlockAreEntriesOfTheirOwn) {
  const ParsedInput input("$bdfopt\nneb-block\n nimage\n  4\n\nodd\nend neb\n$end\n",
                          shipped_schema());
  EXPECT_EQ(input.line(2).record, RecordId::of_entry(0, 0));
  EXPECT_EQ(input.line(3).record, RecordId::of_child(0, 0, 0));
  EXPECT_EQ(input.line(4).record, RecordId::of_child(0, 0, 0));
  EXPECT_EQ(input.line(6).role, LineRole::UnknownLine);
  EXPECT_EQ(input.line(7).record, RecordId::of_entry(0, 0));
  EXPECT_EQ(input.line(7).role, LineRole::BlockEnd);
}

TEST(LineRoles, LinesBetweenModulesAreTold) {
  EXPECT_EQ(roles_of("$scf\n$end\n%ls\n# c\n\nfree\n&database\n x\n# y\n&end\n$scf\n"),
            "ME"
            "S# oDDDDM");
}

TEST(LineRoles, ABorderWithinAnEntryEndsIt) {
  EXPECT_EQ(roles_of("$scf\ncharge\n$end\n$scf\nspinmulti\n$tddft\niroot\n"), "MkEMkMk");
}

TEST(LineRoles, AnInputWithoutAnyLineHasNone) {
  const ParsedInput input("# c\n\n", shipped_schema());
  EXPECT_TRUE(input.is_empty());
  EXPECT_EQ(input.line(0).role, LineRole::Blank);
  EXPECT_EQ(input.line(1).role, LineRole::Comment);
  EXPECT_EQ(input.line(9).role, LineRole::Blank);
  EXPECT_FALSE(input.line(9).record);
}

}  // namespace
}  // namespace kelp::input::bdf
