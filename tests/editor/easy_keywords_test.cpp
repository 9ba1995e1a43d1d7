#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;

BDFEditor editor_with(const Lines& tokens) {
  BDFEditor editor({}, small_schema());
  editor.set_easy_tokens(tokens);
  return editor;
}

Lines header_of(const BDFEditor& editor) {
  return texts_of(editor.data().easy_tokens);
}

TEST(SettingAKeyword, WithoutAValueAppendsTheCanonicalKey) {
  BDFEditor editor = editor_with({"hf/vdz"});
  editor.set_easy_keyword(" Multiplicity ", std::nullopt);
  EXPECT_THAT(header_of(editor), ElementsAre("hf/vdz", "spinmulti"));
  editor.set_easy_keyword("UNHEARD", std::nullopt);
  EXPECT_THAT(header_of(editor), ElementsAre("hf/vdz", "spinmulti", "unheard"));
}

TEST(SettingAKeyword, TrimsTheValue) {
  BDFEditor editor = editor_with({});
  editor.set_easy_keyword("CHG", "  1 ");
  EXPECT_THAT(header_of(editor), ElementsAre("charge=1"));
  EXPECT_EQ(editor.data().easy_tokens[0].key, "charge");
  EXPECT_EQ(editor.data().easy_tokens[0].value, "1");
}

TEST(SettingAKeyword, ABlankValueLeavesTheEqualsSign) {
  BDFEditor editor = editor_with({});
  editor.set_easy_keyword("charge", " \t");
  EXPECT_THAT(header_of(editor), ElementsAre("charge="));
}

TEST(SettingAKeyword, ReplacesTheFirstMatchInPlace) {
  BDFEditor editor = editor_with({"chg=1", "direct", "charge=2"});
  editor.set_easy_keyword("charge", "0");
  EXPECT_THAT(header_of(editor), ElementsAre("charge=0", "direct", "charge=2"));
}

TEST(SettingAKeyword, KeepsTheTokensLocationAndReplacesEverythingElse) {
  BDFData data;
  EasyToken& stored = data.easy_tokens.emplace_back();
  stored.text = stored.value = stored.canonical = stored.category = "stale";
  stored.method = stored.functional = stored.basis = "stale";
  stored.key = "CHG";
  stored.location = SourceSpan{2, 1, 5};
  BDFEditor editor(std::move(data), small_schema());
  editor.set_easy_keyword("charge", "3");
  const EasyToken& token = editor.data().easy_tokens[0];
  EXPECT_EQ(editor.data().easy_tokens.size(), 1U);
  EXPECT_EQ(token.text, "charge=3");
  EXPECT_EQ(token.key, "charge");
  EXPECT_EQ(token.value, "3");
  EXPECT_EQ(token.canonical, "charge=3");
  EXPECT_EQ(token.category, "control");
  EXPECT_EQ(token.method, "");
  EXPECT_EQ(token.functional, "");
  EXPECT_EQ(token.basis, "");
  EXPECT_TRUE(token.known);
  ASSERT_TRUE(token.location);
  EXPECT_EQ(token.location->line, 2U);
  EXPECT_EQ(token.location->length, 5U);
}

TEST(SettingAKeyword, DropsAnOldValueWhenNoneIsGiven) {
  BDFEditor editor = editor_with({"maxiter=9"});
  editor.set_easy_keyword("maxiter", std::nullopt);
  EXPECT_THAT(header_of(editor), ElementsAre("maxiter"));
}

TEST(SettingAKeyword, NeverReplacesTheMethodSpecification) {
  BDFEditor editor = editor_with({"b3lyp/vdz"});
  ASSERT_EQ(editor.data().easy_tokens[0].key, "b3lyp");
  editor.set_easy_keyword("b3lyp", std::nullopt);
  EXPECT_THAT(header_of(editor), ElementsAre("b3lyp/vdz", "b3lyp"));
  editor.set_easy_keyword("b3lyp", "on");
  EXPECT_THAT(header_of(editor), ElementsAre("b3lyp/vdz", "b3lyp=on"));
}

TEST(SettingAKeyword, LooksAtTheKeyAndNotAtTheText) {
  BDFEditor editor = editor_with({"other=charge"});
  editor.set_easy_keyword("charge", "1");
  EXPECT_THAT(header_of(editor), ElementsAre("other=charge", "charge=1"));
}

TEST(SettingAKeyword, TwiceAddsNoSecondToken) {
  BDFEditor editor = editor_with({});
  editor.set_easy_keyword("maxiter", "1");
  editor.set_easy_keyword("MAXITER", "2");
  EXPECT_THAT(header_of(editor), ElementsAre("maxiter=2"));
}

TEST(SettingAKeyword, AcceptsABlankOne) {
  BDFEditor editor = editor_with({"direct"});
  editor.set_easy_keyword("", std::nullopt);
  EXPECT_THAT(header_of(editor), ElementsAre("direct", ""));
  editor.set_easy_keyword(" ", "v");
  EXPECT_THAT(header_of(editor), ElementsAre("direct", "=v"));
}

TEST(RemovingAKeyword, TakesEveryTokenOfThatKeyAndKeepsTheOrderOfTheRest) {
  BDFEditor editor = editor_with({"charge=1", "hf/vdz", "CHG", "direct", "charge=2"});
  EXPECT_TRUE(editor.remove_easy_keyword("$chg"));
  EXPECT_THAT(header_of(editor), ElementsAre("hf/vdz", "direct"));
  EXPECT_FALSE(editor.remove_easy_keyword("charge"));
}

TEST(RemovingAKeyword, NeverTakesTheMethodSpecification) {
  BDFEditor editor = editor_with({"b3lyp/vdz"});
  EXPECT_FALSE(editor.remove_easy_keyword("b3lyp"));
  EXPECT_THAT(header_of(editor), ElementsAre("b3lyp/vdz"));
  editor.add_easy_token("b3lyp");
  EXPECT_TRUE(editor.remove_easy_keyword("b3lyp"));
  EXPECT_THAT(header_of(editor), ElementsAre("b3lyp/vdz"));
}

TEST(RemovingAKeyword, WorksForUnknownKeywordsToo) {
  BDFEditor editor = editor_with({"Odd=1", "direct"});
  EXPECT_TRUE(editor.remove_easy_keyword("odd"));
  EXPECT_THAT(header_of(editor), ElementsAre("direct"));
}

}  // namespace
}  // namespace kelp::input::bdf
