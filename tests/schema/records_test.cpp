#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "kelp/input/bdf/schema.hpp"
#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using Texts = std::vector<std::string>;
using Count = std::optional<std::uint64_t>;
using Counts = std::vector<std::uint64_t>;
using Bound = std::optional<double>;

template <typename... Expected, typename... Fields>
constexpr bool are(const Fields&...) {
  static_assert(std::is_same_v<std::tuple<Expected...>, std::tuple<Fields...>>);
  return true;
}

template <typename... Fields>
void expect_ascending(const Fields&... fields) {
  const void* const addresses[] = {&fields...};
  for (std::size_t i = 1; i < sizeof...(Fields); ++i) {
    EXPECT_LT(addresses[i - 1], addresses[i]) << "field " << i;
  }
}

TEST(EntrySchemaInfo, HasItsFieldsInOrder) {
  const EntrySchemaInfo r;
  const auto& [a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q, s, t, u, v, w, x] = r;
  EXPECT_TRUE(
      (are<std::string, EntryValueKind, std::string, std::string, std::optional<std::string>, Texts,
           Bound, Bound, bool, bool, Count, Count, Count, Counts, Count, Count, Count, Counts,
           Texts, bool, bool, std::vector<ValueRequirement>, Texts>(
          a, b, c, d, e, f, g, h, i, j, k, l, m, n, o, p, q, s, t, u, v, w, x)));
  expect_ascending(r.name, r.kind, r.terminator, r.value_type, r.default_value, r.allowed, r.min,
                   r.max, r.min_exclusive, r.max_exclusive, r.arity, r.min_arity, r.max_arity,
                   r.allowed_arities, r.row_arity, r.row_min_arity, r.row_max_arity,
                   r.row_allowed_arities, r.row_types, r.count_line, r.repeatable, r.required,
                   r.conflicts);
}

TEST(EntrySchemaInfo, DefaultsToAnUnrestrictedScalarString) {
  const EntrySchemaInfo info;
  EXPECT_EQ(info.name, "");
  EXPECT_EQ(info.kind, EntryValueKind::Scalar);
  EXPECT_EQ(info.terminator, "");
  EXPECT_EQ(info.value_type, "string");
  EXPECT_FALSE(info.default_value || info.min || info.max);
  EXPECT_FALSE(info.min_exclusive || info.max_exclusive || info.count_line || info.repeatable);
  EXPECT_FALSE(info.arity || info.min_arity || info.max_arity);
  EXPECT_FALSE(info.row_arity || info.row_min_arity || info.row_max_arity);
  EXPECT_TRUE(info.allowed.empty() && info.allowed_arities.empty() && info.row_types.empty());
  EXPECT_TRUE(info.row_allowed_arities.empty() && info.required.empty() && info.conflicts.empty());
}

TEST(SchemaMetadata, HasItsFieldsInOrderAndStartsBlank) {
  const SchemaMetadata r;
  const auto& [version, a, b, c, d, e, f] = r;
  EXPECT_TRUE((are<std::int32_t, std::string, std::string, std::string, std::string, std::string,
                   std::string>(version, a, b, c, d, e, f)));
  expect_ascending(r.schema_version, r.program, r.schema_kind, r.bdf_version, r.manual_source,
                   r.manual_revision, r.generated_at);
  EXPECT_EQ(r.schema_version, 0);
  EXPECT_EQ(r.program + r.schema_kind + r.bdf_version + r.manual_source, "");
  EXPECT_EQ(r.manual_revision + r.generated_at, "");
}

TEST(ValueRequirement, HasAnEntryAndPerhapsAValue) {
  const ValueRequirement requirement{"scf", "fast"};
  EXPECT_EQ(requirement.entry, "scf");
  EXPECT_EQ(requirement.equals, "fast");
  EXPECT_FALSE(ValueRequirement().equals.has_value());
}

void expect_empty(const InputSchema& schema) {
  EXPECT_TRUE(schema.empty());
  EXPECT_TRUE(schema.known_modules().empty());
  EXPECT_EQ(schema.metadata().schema_version, 0);
  EXPECT_FALSE(schema.is_known_module("scf"));
}

TEST(InputSchema, IsEmptyByDefault) {
  expect_empty(InputSchema());
}

TEST(InputSchema, IsEmptyWhenMadeOfANullPointer) {
  expect_empty(InputSchema(std::shared_ptr<const InputSchema::Impl>()));
}

TEST(InputSchema, SharesItsContentsWithItsCopies) {
  const InputSchema original = schema_from("modules: {scf: {}}");
  const InputSchema copy = original;  // NOLINT(performance-unnecessary-copy-initialization)
  EXPECT_EQ(&copy.metadata(), &original.metadata());
  InputSchema assigned;
  assigned = original;
  EXPECT_EQ(&assigned.metadata(), &original.metadata());
}

TEST(InputSchema, KeepsItsMetadataAliveThroughACopy) {
  auto original = std::make_unique<InputSchema>(schema_from("program: bdf"));
  const SchemaMetadata& metadata = original->metadata();
  const InputSchema copy = *original;
  original.reset();
  EXPECT_EQ(metadata.program, "bdf");
}

TEST(InputSchema, CanStillBeAskedAfterItWasMovedFrom) {
  InputSchema original = schema_from("modules: {scf: {}}");
  const InputSchema taken = std::move(original);
  EXPECT_TRUE(taken.is_known_module("scf"));
  EXPECT_NO_THROW(static_cast<void>(original.is_known_module("scf")));  // NOLINT
  InputSchema target;
  target = std::move(original);                                  // NOLINT
  EXPECT_NO_THROW(static_cast<void>(original.known_modules()));  // NOLINT
}

}  // namespace
}  // namespace kelp::input::bdf
