#include "knowledge/knowledge.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "knowledge/knowledge_table.hpp"
#include "schema/table_writer.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

using test::utf8;
using testing::ElementsAre;
using testing::IsEmpty;

const Knowledge& shipped() {
  static const Knowledge knowledge = Knowledge::from_yaml(test::file_bytes(
      std::filesystem::path(test::shipped_schema_file()).parent_path() / "bdf-knowledge.yaml"));
  return knowledge;
}

TEST(Knowledge, OfTheShippedFileIsThatOfTheProcess) {
  EXPECT_EQ(default_knowledge().basis_set_names(), shipped().basis_set_names());
  EXPECT_EQ(shipped().basis_set_names().size(), 371U);
}

// The table holds all fields, and so does a table that is made anew from what was read from it.
TEST(Knowledge, OfTheBuildIsThatOfTheShippedFile) {
  const auto path =
      std::filesystem::path(test::shipped_schema_file()).parent_path() / "bdf-knowledge.yaml";
  const std::string text = test::file_bytes(path);
  TableWriter of_yaml;
  of_yaml(*read_knowledge(text));
  Knowledge::Impl impl;
  TableReader{of_yaml.table()}(impl);
  TableWriter again;
  again(impl);
  EXPECT_TRUE(again.table() == of_yaml.table());
  EXPECT_EQ(impl.basis_order, shipped().basis_set_names());
  for (const std::string& name : impl.basis_order) {
    const BasisSet* const set = shipped().basis_set(name);
    const auto found = impl.basis_sets.find(name);
    ASSERT_TRUE(set != nullptr && found != impl.basis_sets.end()) << name;
    EXPECT_EQ(found->second->elements, set->elements) << name;
    EXPECT_EQ(found->second->all_electron, set->all_electron) << name;
  }
  const BuiltInDocument built_in = built_in_knowledge();
  if (!built_in.table.empty()) {
    EXPECT_TRUE(built_in.text == text);
    EXPECT_TRUE(built_in.table == of_yaml.table());
    EXPECT_TRUE(built_in.stands_for(utf8(path)));
  }
}

TEST(Knowledge, NamesWhatTheVocabularyNames) {
  const InputSchema& schema = shipped_schema();
  for (const std::string& name : shipped().basis_set_names()) {
    EXPECT_TRUE(schema.is_known_basis(name)) << name;
    EXPECT_NE(shipped().basis_set(schema.canonical_basis(name)), nullptr) << name;
  }
  for (const std::string& name : schema.known_functionals()) {
    EXPECT_NE(shipped().functional_class(name), "") << name;
  }
  for (const std::string& name : schema.known_modules()) {
    if (const ModuleFacts* const facts = shipped().module(name)) {
      for (const std::string& needed : facts->needs) {
        EXPECT_TRUE(schema.is_known_module(needed)) << name << " needs " << needed;
      }
    }
  }
}

TEST(Knowledge, TellsOfBasisSets) {
  const BasisSet* const def2 = shipped().basis_set("DEF2-svp");
  ASSERT_NE(def2, nullptr);
  EXPECT_FALSE(def2->has_core_of(36));
  EXPECT_TRUE(def2->has_core_of(37));
  EXPECT_FALSE(def2->covers(87));
  EXPECT_EQ(shipped().basis_set("mwb-fic")->core, CoreSize::FInCore);
  EXPECT_EQ(shipped().basis_set("cc-pvdz-dk")->relativity, Relativity::Dkh2);
  EXPECT_EQ(shipped().basis_set("ugbs")->relativity, Relativity::Any);
  EXPECT_TRUE(shipped().basis_set("ano-r2")->has_finite_nucleus);
  EXPECT_TRUE(shipped().basis_set("aug-cc-pvdz-rifit")->is_auxiliary);
  EXPECT_EQ(shipped().basis_set("mybasis"), nullptr);
}

TEST(Knowledge, CountsRepresentations) {
  EXPECT_THAT(shipped().irreps_of("d(2H)"),
              ElementsAre("Ag", "B1g", "B2g", "B3g", "Au", "B1u", "B2u", "B3u"));
  EXPECT_THAT(shipped().irreps_of("C(4v)"), ElementsAre("A1", "A2", "B1", "B2", "E1"));
  const std::vector<std::pair<const char*, std::size_t>> counts = {
      {"C(3v)", 3},  {"C(6v)", 6}, {"D(3)", 3},      {"D(3h)", 6},   {"D(4h)", 10},
      {"D(6h)", 12}, {"D(3d)", 6}, {"D(5d)", 8},     {"C(LIN)", 13}, {"D(LIN)", 26},
      {"D(4d)", 0},  {"C(3)", 0},  {"C(99999v)", 0}, {"gen(x)", 0},  {"C2v", 0}};
  for (const auto& [group, count] : counts) {
    EXPECT_EQ(shipped().irreps_of(group).size(), count) << group;
  }
  EXPECT_EQ(shipped().is_abelian("D(2h)"), true);
  EXPECT_EQ(shipped().is_abelian("D(3h)"), false);
  EXPECT_EQ(shipped().is_abelian("gen(x)"), std::nullopt);
}

TEST(Knowledge, NamesSolventsEachOnce) {
  const std::vector<std::string>& solvents = shipped().solvents();
  EXPECT_THAT(solvents, testing::IsSupersetOf({"water", "dmso", "n,n-dimethylformamide"}));
  EXPECT_EQ(std::set<std::string>(solvents.begin(), solvents.end()).size(), solvents.size());
}

TEST(Knowledge, ListsWhatCanBeUsedForSomething) {
  EXPECT_THAT(shipped().functionals_for("FACCO"), testing::ElementsAre("b2plyp"));
  EXPECT_THAT(shipped().functionals_for("built_in_dispersion"),
              testing::ElementsAre("wb97x-d", "wb97x-d3"));
  EXPECT_THAT(shipped().functionals_for("sobeda"), testing::IsEmpty());
  EXPECT_THAT(shipped().functionals_for("nothing"), testing::IsEmpty());
}

TEST(Knowledge, TellsWhatFunctionalsCanBeUsedFor) {
  EXPECT_EQ(shipped().functional_class("B3LYP"), "hybrid-gga");
  EXPECT_EQ(shipped().can("b3lyp", "gradient"), true);
  EXPECT_EQ(shipped().can("pw91", "gradient"), false);
  EXPECT_EQ(shipped().can("m062x", "excited_gradient"), false);
  EXPECT_EQ(shipped().can("wb97x", "nmr"), std::nullopt);
  EXPECT_EQ(shipped().can("mine", "gradient"), std::nullopt);
  EXPECT_EQ(shipped().can("b3lyp", "dinner"), std::nullopt);
}

TEST(Knowledge, PassesOverWhatItDoesNotUnderstand) {
  for (const char* const text :
       {"", "a", "[1, 2]", "basis_sets: 3", "basis_sets: [3, {names: a}, {elements: x}]",
        "point_groups: [a]", "functional_uses: {a: b}", "covalent_radii: {H: x}",
        "modules: {a: 1}"}) {
    const Knowledge knowledge = Knowledge::from_yaml(text);
    EXPECT_THAT(knowledge.basis_set_names(), IsEmpty()) << text;
    EXPECT_EQ(knowledge.covalent_radius("H"), std::nullopt) << text;
    EXPECT_EQ(knowledge.can("b3lyp", "a"), std::nullopt) << text;
    EXPECT_EQ(knowledge.module("a"), nullptr) << text;
  }
}

TEST(Elements, AreNumbersAndRanges) {
  EXPECT_EQ(read_elements("1 3-4")->count(), 3U);
  EXPECT_TRUE(read_elements("118")->test(118));
  for (const char* const text : {"", "0", "4-3", "a", "1-", "-3", "1,2", "128", "1-9999999999"}) {
    EXPECT_EQ(read_elements(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
