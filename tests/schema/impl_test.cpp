#include "schema/impl.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace kelp::input::bdf {
namespace {

template <typename... Fields>
void expect_ascending(const Fields&... fields) {
  const void* const addresses[] = {&fields...};
  for (std::size_t i = 1; i < sizeof...(Fields); ++i) {
    EXPECT_LT(addresses[i - 1], addresses[i]) << "field " << i;
  }
}

TEST(Impl, StartsEmptyWithAnOpenListOfBasisSets) {
  const InputSchema::Impl impl;
  EXPECT_EQ(impl.metadata.schema_version, 0);
  EXPECT_TRUE(impl.methods.empty() && impl.functionals.empty() && impl.basis_sets.empty());
  EXPECT_TRUE(impl.basis_extensible);
  EXPECT_TRUE(impl.control_keywords.empty() && impl.control_keyword_aliases.empty());
  EXPECT_TRUE(impl.modules.empty() && impl.module_aliases.empty());
}

TEST(Impl, HasItsMembersInOrderBeginningWithTheMetadata) {
  const InputSchema::Impl r;
  EXPECT_EQ(static_cast<const void*>(&r), static_cast<const void*>(&r.metadata));
  expect_ascending(r.metadata, r.methods, r.functionals, r.basis_sets, r.basis_extensible,
                   r.control_keywords, r.control_keyword_aliases, r.modules, r.module_aliases);
}

TEST(Impl, IsWhatItsSchemaAnswersFrom) {
  auto impl = std::make_shared<InputSchema::Impl>();
  impl->metadata.program = "bdf";
  impl->methods.emplace("hf", "hf");
  const InputSchema schema(impl);
  EXPECT_EQ(&schema.metadata(), &impl->metadata);
  EXPECT_TRUE(schema.is_known_method("HF"));
  EXPECT_FALSE(schema.empty());
}

TEST(EntrySpec, IsADescriptionFollowedByItsChildren) {
  const EntrySpec spec;
  EXPECT_EQ(spec.kind, EntryValueKind::Scalar);
  EXPECT_EQ(spec.value_type, "string");
  EXPECT_TRUE(spec.children.empty() && spec.child_aliases.empty());
  expect_ascending(spec.name, spec.conflicts, spec.children, spec.child_aliases);
  static_assert(std::is_convertible_v<const EntrySpec&, const EntrySchemaInfo&>);
}

TEST(ValueSpec, IsADescriptionFollowedByItsCategory) {
  const ValueSpec spec;
  EXPECT_EQ(spec.kind, EntryValueKind::Scalar);
  EXPECT_EQ(spec.value_type, "string");
  EXPECT_EQ(spec.category, "control");
  expect_ascending(spec.name, spec.conflicts, spec.category);
}

TEST(ModuleSpec, IsNamelessSingularAndEmptyAtFirst) {
  const ModuleSpec spec;
  EXPECT_EQ(spec.name, "");
  EXPECT_FALSE(spec.repeatable);
  EXPECT_TRUE(spec.entries.empty() && spec.entry_aliases.empty());
  expect_ascending(spec.name, spec.repeatable, spec.entries, spec.entry_aliases);
}

}  // namespace
}  // namespace kelp::input::bdf
