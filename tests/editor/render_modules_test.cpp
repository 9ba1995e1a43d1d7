#include <gtest/gtest.h>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

std::string rendered(Module module) {
  BDFData data;
  data.mode = InputMode::Module;
  data.modules.push_back(std::move(module));
  return BDFEditor(std::move(data), small_schema()).render();
}

Module module_read_as(bool known, std::string name, std::string header, std::string end) {
  Module module;
  module.name = std::move(name);
  module.known = known;
  module.header_line = std::move(header);
  module.end_line = std::move(end);
  return module;
}

TEST(RenderingAModule, AnUnknownOneKeepsHeaderAndEndAsRead) {
  EXPECT_EQ(rendered(module_read_as(false, "mymod", "$MyMod", "$END")), "$MyMod\n$END\n");
  EXPECT_EQ(rendered(module_read_as(false, "mymod", " $MyMod # x", "\t$End ")),
            " $MyMod # x\n\t$End \n");
}

TEST(RenderingAModule, AKnownOneIsWrittenCanonically) {
  EXPECT_EQ(rendered(module_read_as(true, "compass", "$COMPASS", "$END")), "$compass\n$end\n");
}

TEST(RenderingAModule, AKnownOneGetsAnEndThatItWasReadWithout) {
  Module module = module_read_as(true, "scf", "$scf", "");
  module.terminated = false;
  EXPECT_EQ(rendered(module), "$scf\n$end\n");
}

TEST(RenderingAModule, AnUnknownOneWithoutVerbatimLinesIsWrittenCanonically) {
  EXPECT_EQ(rendered(module_read_as(false, "MyMod", "", "")), "$mymod\n$end\n");
  EXPECT_EQ(rendered(module_read_as(false, "MyMod", "$MyMod", "")), "$MyMod\n$end\n");
  EXPECT_EQ(rendered(module_read_as(false, "MyMod", "", "$END")), "$mymod\n$END\n");
}

TEST(RenderingAModule, LowersTheLettersOfItsNameAndNothingElse) {
  EXPECT_EQ(rendered(module_read_as(true, "MyMod\xC3\x84 X", "", "")), "$mymod\xC3\x84 x\n$end\n");
}

TEST(RenderingAModule, TheKnownFlagDecidesAndNotTheSchema) {
  EXPECT_EQ(rendered(module_read_as(false, "scf", "$SCF", "$END")), "$SCF\n$END\n");
  EXPECT_EQ(rendered(module_read_as(true, "mymod", "$MyMod", "$END")), "$mymod\n$end\n");
}

TEST(RenderingAModule, TrailingLinesFollowTheEntriesVerbatim) {
  Module module = module_read_as(true, "scf", "", "");
  module.entries.emplace_back().name = "rhf";
  module.entries[0].known = true;
  module.entries[0].kind = EntryValueKind::Flag;
  module.trailing_lines = {"  # last ", ""};
  EXPECT_EQ(rendered(module), "$scf\n  rhf\n  # last \n\n$end\n");
}

TEST(RenderingAModule, ModulesAreNotSeparated) {
  BDFData data = document_of({"compass", "scf", "extra"});
  EXPECT_EQ(BDFEditor(std::move(data), small_schema()).render(),
            "$compass\n$end\n$scf\n$end\n$extra\n$end\n");
}

TEST(RenderingAModule, AnUnknownOneHasItsKnownEntriesInCanonicalForm) {
  Module module = module_read_as(false, "mymod", "$MyMod", "$End");
  ModuleEntry& entry = module.entries.emplace_back();
  entry.name = "Key";
  entry.known = true;
  entry.values = {" v "};
  EXPECT_EQ(rendered(module), "$MyMod\n  key\n    v\n$End\n");
}

}  // namespace
}  // namespace kelp::input::bdf
