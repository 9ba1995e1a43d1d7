// The vocabulary that the library comes with.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using testing::IsSupersetOf;

TEST(ShippedSchema, SaysWhatItIs) {
  const SchemaMetadata& metadata = shipped_schema().metadata();
  EXPECT_GE(metadata.schema_version, 1);
  EXPECT_NE(metadata.program, "");
  EXPECT_NE(metadata.schema_kind, "");
}

TEST(ShippedSchema, KnowsTheModulesOfAnOrdinaryJob) {
  EXPECT_THAT(shipped_schema().known_modules(), IsSupersetOf({"compass", "scf", "xuanyuan"}));
}

TEST(ShippedSchema, KnowsTheEntriesThatAnEditorWrites) {
  EXPECT_TRUE(shipped_schema().is_known_entry("compass", "geometry"));
  EXPECT_TRUE(shipped_schema().is_known_entry("scf", "charge"));
  EXPECT_TRUE(shipped_schema().is_known_entry("scf", "spinmulti"));
}

TEST(ShippedSchema, HasCanonicalNamesThatStayWhatTheyAre) {
  for (const std::string& module : shipped_schema().known_modules()) {
    EXPECT_EQ(shipped_schema().canonical_module(module), module);
    EXPECT_TRUE(shipped_schema().is_known_module(module)) << module;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
