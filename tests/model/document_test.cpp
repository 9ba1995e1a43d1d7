#include "kelp/input/bdf/document.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "kelp/input/bdf/editor.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "kelp/input/bdf/schema.hpp"
#include "kelp/input/bdf/validation.hpp"
#include "support/print.hpp"

namespace kelp::input::bdf {
namespace {

using Texts = std::vector<std::string>;
using Location = std::optional<SourceSpan>;

template <typename Enum>
constexpr std::int32_t number(Enum value) {
  static_assert(std::is_same_v<std::underlying_type_t<Enum>, std::int32_t>);
  return static_cast<std::int32_t>(value);
}

TEST(Enumerations, InputModeHasItsFixedNumbers) {
  EXPECT_EQ(number(InputMode::Easy), 0);
  EXPECT_EQ(number(InputMode::Module), 1);
  EXPECT_EQ(number(InputMode::Mixed), 2);
}

TEST(Enumerations, StatementKindHasItsFixedNumbers) {
  EXPECT_EQ(number(StatementKind::Module), 0);
  EXPECT_EQ(number(StatementKind::Shell), 1);
  EXPECT_EQ(number(StatementKind::Database), 2);
  EXPECT_EQ(number(StatementKind::Comment), 3);
  EXPECT_EQ(number(StatementKind::Raw), 4);
}

TEST(Enumerations, EntryValueKindHasItsFixedNumbers) {
  EXPECT_EQ(number(EntryValueKind::Flag), 0);
  EXPECT_EQ(number(EntryValueKind::Scalar), 1);
  EXPECT_EQ(number(EntryValueKind::Tuple), 2);
  EXPECT_EQ(number(EntryValueKind::MultiLine), 3);
  EXPECT_EQ(number(EntryValueKind::CountedRows), 4);
  EXPECT_EQ(number(EntryValueKind::NestedBlock), 5);
  EXPECT_EQ(number(EntryValueKind::TerminatedBlock), 6);
  EXPECT_EQ(number(EntryValueKind::Raw), 7);
}

// Binding every field of a record in turn pins number, order and types at once.
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

TEST(FieldOrder, OfSourceSpan) {
  const SourceSpan span{1, 2, 3};
  EXPECT_EQ(span.line, 1U);
  EXPECT_EQ(span.column, 2U);
  EXPECT_EQ(span.length, 3U);
  const auto& [line, column, length] = span;
  EXPECT_TRUE((are<std::uint64_t, std::uint64_t, std::uint64_t>(line, column, length)));
}

TEST(FieldOrder, OfStatement) {
  const Statement record;
  const auto& [kind, index, lines, location] = record;
  EXPECT_TRUE((are<StatementKind, std::size_t, Texts, Location>(kind, index, lines, location)));
  expect_ascending(record.kind, record.module_index, record.lines, record.location);
}

TEST(FieldOrder, OfEasyToken) {
  const EasyToken r;
  const auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9, f10] = r;
  using T = std::string;
  EXPECT_TRUE(
      (are<T, T, T, T, T, T, T, T, bool, Location>(f1, f2, f3, f4, f5, f6, f7, f8, f9, f10)));
  expect_ascending(r.text, r.key, r.value, r.canonical, r.category, r.method, r.functional, r.basis,
                   r.known, r.location);
}

TEST(FieldOrder, OfAtomRecord) {
  const AtomRecord r;
  const auto& [f1, f2, f3, f4, f5, f6] = r;
  EXPECT_TRUE(
      (are<std::string, double, double, double, std::string, Location>(f1, f2, f3, f4, f5, f6)));
  expect_ascending(r.element, r.x, r.y, r.z, r.line, r.location);
}

TEST(FieldOrder, OfModuleEntry) {
  const ModuleEntry r;
  const auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9] = r;
  EXPECT_TRUE((are<std::string, EntryValueKind, std::string, Texts, std::vector<ModuleEntry>, bool,
                   bool, std::string, Location>(f1, f2, f3, f4, f5, f6, f7, f8, f9)));
  expect_ascending(r.name, r.kind, r.terminator, r.values, r.children, r.known, r.terminated,
                   r.raw_line, r.location);
}

TEST(FieldOrder, OfModule) {
  const Module r;
  const auto& [f1, f2, f3, f4, f5, f6, f7, f8] = r;
  EXPECT_TRUE((are<std::string, bool, bool, std::string, std::string, std::vector<ModuleEntry>,
                   Texts, Location>(f1, f2, f3, f4, f5, f6, f7, f8)));
  expect_ascending(r.name, r.known, r.terminated, r.header_line, r.end_line, r.entries,
                   r.trailing_lines, r.location);
}

TEST(FieldOrder, OfParseWarning) {
  const ParseWarning r;
  const auto& [f1, f2, f3] = r;
  EXPECT_TRUE((are<std::string, std::string, Location>(f1, f2, f3)));
  expect_ascending(r.code, r.message, r.location);
}

TEST(FieldOrder, OfBdfData) {
  const BDFData r;
  const auto& [f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13] = r;
  EXPECT_TRUE((are<InputMode, std::string, Texts, std::vector<EasyToken>, bool, bool,
                   std::vector<AtomRecord>, Texts, Location, std::vector<Module>,
                   std::vector<Statement>, Texts, std::vector<ParseWarning>>(
      f1, f2, f3, f4, f5, f6, f7, f8, f9, f10, f11, f12, f13)));
  expect_ascending(r.mode, r.script_name, r.leading_lines, r.easy_tokens, r.has_geometry,
                   r.geometry_terminated, r.atoms, r.geometry_lines, r.geometry_location, r.modules,
                   r.statements, r.free_lines, r.warnings);
}

TEST(FieldOrder, OfParseResult) {
  const ParseResult r;
  const auto& [f1, f2, f3] = r;
  EXPECT_TRUE((are<BDFData, bool, std::string>(f1, f2, f3)));
  expect_ascending(r.data, r.ok, r.error);
}

TEST(Defaults, OfBdfData) {
  const BDFData data;
  EXPECT_EQ(data.mode, InputMode::Easy);
  EXPECT_EQ(data.script_name, "job.bdf");
  EXPECT_TRUE(data.leading_lines.empty());
  EXPECT_TRUE(data.easy_tokens.empty());
  EXPECT_FALSE(data.has_geometry);
  EXPECT_TRUE(data.geometry_terminated);
  EXPECT_TRUE(data.atoms.empty());
  EXPECT_TRUE(data.geometry_lines.empty());
  EXPECT_FALSE(data.geometry_location.has_value());
  EXPECT_TRUE(data.modules.empty());
  EXPECT_TRUE(data.statements.empty());
  EXPECT_TRUE(data.free_lines.empty());
  EXPECT_TRUE(data.warnings.empty());
}

TEST(Defaults, OfModuleEntry) {
  const ModuleEntry entry;
  EXPECT_EQ(entry.name, "");
  EXPECT_EQ(entry.kind, EntryValueKind::Scalar);
  EXPECT_EQ(entry.terminator, "");
  EXPECT_TRUE(entry.values.empty());
  EXPECT_TRUE(entry.children.empty());
  EXPECT_FALSE(entry.known);
  EXPECT_TRUE(entry.terminated);
  EXPECT_EQ(entry.raw_line, "");
  EXPECT_FALSE(entry.location.has_value());
}

TEST(Defaults, OfModule) {
  const Module module;
  EXPECT_EQ(module.name, "");
  EXPECT_FALSE(module.known);
  EXPECT_TRUE(module.terminated);
  EXPECT_EQ(module.header_line, "");
  EXPECT_EQ(module.end_line, "");
  EXPECT_TRUE(module.entries.empty());
  EXPECT_TRUE(module.trailing_lines.empty());
  EXPECT_FALSE(module.location.has_value());
}

TEST(Defaults, OfEasyTokenAndAtomRecord) {
  const EasyToken token;
  EXPECT_EQ(token.text + token.key + token.value + token.canonical + token.category, "");
  EXPECT_EQ(token.method + token.functional + token.basis, "");
  EXPECT_FALSE(token.known);
  EXPECT_FALSE(token.location.has_value());
  const AtomRecord atom;
  EXPECT_EQ(atom.element + atom.line, "");
  EXPECT_EQ(atom.x, 0.0);
  EXPECT_EQ(atom.y, 0.0);
  EXPECT_EQ(atom.z, 0.0);
  EXPECT_FALSE(atom.location.has_value());
}

TEST(Defaults, OfParseResult) {
  const ParseResult result;
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(result.data.script_name, "job.bdf");
}

TEST(Defaults, AStatementThatIsNoModuleHasTheLargestIndex) {
  EXPECT_EQ(Statement::no_module, std::numeric_limits<std::size_t>::max());
  EXPECT_EQ(Statement().module_index, Statement::no_module);
}

template <typename Record>
constexpr bool is_a_plain_value =
    std::is_nothrow_move_constructible_v<Record>&& std::is_nothrow_move_assignable_v<Record>&&
        std::is_copy_constructible_v<Record>&& std::is_copy_assignable_v<Record>&&
            std::is_default_constructible_v<Record> &&
    !std::is_polymorphic_v<Record>;

TEST(Records, AreValuesThatMoveWithoutThrowing) {
  static_assert(is_a_plain_value<SourceSpan>);
  static_assert(is_a_plain_value<Statement>);
  static_assert(is_a_plain_value<EasyToken>);
  static_assert(is_a_plain_value<AtomRecord>);
  static_assert(is_a_plain_value<ModuleEntry>);
  static_assert(is_a_plain_value<Module>);
  static_assert(is_a_plain_value<ParseWarning>);
  static_assert(is_a_plain_value<BDFData>);
  static_assert(is_a_plain_value<ParseResult>);
  static_assert(is_a_plain_value<ValueRequirement>);
  static_assert(is_a_plain_value<EntrySchemaInfo>);
  static_assert(is_a_plain_value<SchemaMetadata>);
  static_assert(is_a_plain_value<InputSchema>);
  static_assert(is_a_plain_value<ValidationIssue>);
  static_assert(is_a_plain_value<ValidationOptions>);
  static_assert(is_a_plain_value<ParseOptions>);
  static_assert(std::is_nothrow_move_constructible_v<BDFEditor>);
  static_assert(std::is_nothrow_move_assignable_v<BDFEditor>);
}

TEST(Records, ACopySharesNothingWithItsOriginal) {
  BDFData original;
  original.modules.emplace_back().entries.emplace_back().values = {"one"};
  original.modules[0].entries[0].children.emplace_back().name = "child";
  BDFData copy = original;
  copy.modules[0].entries[0].values[0] = "two";
  copy.modules[0].entries[0].children[0].name = "other";
  EXPECT_EQ(original.modules[0].entries[0].values[0], "one");
  EXPECT_EQ(original.modules[0].entries[0].children[0].name, "child");
  original = copy;
  EXPECT_EQ(original.modules[0].entries[0].values[0], "two");
}

TEST(Records, AMoveKeepsTheRecordsWhereTheyAre) {
  BDFData data;
  data.modules.emplace_back().name = "scf";
  const Module* const before = data.modules.data();
  const BDFData moved = std::move(data);
  EXPECT_EQ(moved.modules.data(), before);
  EXPECT_EQ(moved.modules[0].name, "scf");
}

}  // namespace
}  // namespace kelp::input::bdf
