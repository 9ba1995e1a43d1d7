#include <gtest/gtest.h>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

using Kind = EntryValueKind;

/// What stands between `$scf` and `$end`.
std::string rendered(ModuleEntry entry) {
  BDFData data = document_of({"scf"});
  data.modules[0].entries.push_back(std::move(entry));
  const std::string text = BDFEditor(std::move(data), small_schema()).render();
  const std::string head = "$scf\n";
  const std::string tail = "$end\n";
  EXPECT_EQ(text.substr(0, head.size()), head);
  EXPECT_EQ(text.substr(text.size() - tail.size()), tail);
  return text.substr(head.size(), text.size() - head.size() - tail.size());
}

ModuleEntry known_entry(std::string name, Kind kind, Lines values = {}) {
  ModuleEntry entry;
  entry.name = std::move(name);
  entry.kind = kind;
  entry.known = true;
  entry.values = std::move(values);
  return entry;
}

ModuleEntry raw_entry(std::string raw_line, Lines values = {}) {
  ModuleEntry entry;
  entry.name = "some";
  entry.kind = Kind::Raw;
  entry.raw_line = std::move(raw_line);
  entry.values = std::move(values);
  return entry;
}

TEST(RenderingAnEntry, AKnownOneHasKeywordAtTwoBlanksAndValuesAtFour) {
  const struct {
    Kind kind;
    const char* text;
  } rows[] = {
      {Kind::Flag, "  key\n    1 2\n    x\n"},
      {Kind::Scalar, "  key\n    1 2\n    x\n"},
      {Kind::Tuple, "  key\n    1 2\n    x\n"},
      {Kind::MultiLine, "  key\n    1 2\n    x\n"},
      {Kind::CountedRows, "  key\n    1 2\n    x\n"},
      {Kind::NestedBlock, "  key\n  endkey\n"},
      {Kind::TerminatedBlock, "  key\n    1 2\n    x\n  endkey\n"},
  };
  for (const auto& row : rows) {
    ModuleEntry entry = known_entry("KEY", row.kind, {" 1 2\t", "x"});
    entry.terminator = "endkey";
    entry.raw_line = "Key as read";
    EXPECT_EQ(rendered(entry), row.text) << static_cast<int>(row.kind);
  }
}

TEST(RenderingAnEntry, WithoutValuesIsItsKeyword) {
  EXPECT_EQ(rendered(known_entry("RHF", Kind::Flag)), "  rhf\n");
  EXPECT_EQ(rendered(known_entry("charge", Kind::Scalar)), "  charge\n");
}

TEST(RenderingAnEntry, ABlankValueIsABareLineFeed) {
  EXPECT_EQ(rendered(known_entry("guess", Kind::MultiLine, {"", " \t\r", "x", "\n"})),
            "  guess\n\n\n    x\n\n");
}

TEST(RenderingAnEntry, ARawOneIsWrittenVerbatimEvenWhenItIsKnown) {
  ModuleEntry entry = raw_entry("\tKept  As read ", {"  v1 ", "", "v2"});
  EXPECT_EQ(rendered(entry), "\tKept  As read \n  v1 \n\nv2\n");
  entry.known = true;
  EXPECT_EQ(rendered(entry), "\tKept  As read \n  v1 \n\nv2\n");
}

TEST(RenderingAnEntry, AnUnknownOneIsWrittenVerbatimWhateverItsKind) {
  for (const Kind kind : {Kind::Flag, Kind::Scalar, Kind::NestedBlock, Kind::TerminatedBlock}) {
    ModuleEntry entry = raw_entry("As Read", {" v "});
    entry.kind = kind;
    entry.terminator = "end";
    entry.children.push_back(known_entry("child", Kind::Flag));
    EXPECT_EQ(rendered(entry), "As Read\n v \n") << static_cast<int>(kind);
  }
}

// Made by an editor for a keyword that the schema does not know: there is no line to write back.
TEST(RenderingAnEntry, AnUnknownOneWithoutKeywordLineIsItsValues) {
  EXPECT_EQ(rendered(raw_entry("", {"a", " b"})), "a\n b\n");
  EXPECT_EQ(rendered(raw_entry("")), "");
}

TEST(RenderingATerminator, IsWrittenAsStoredUnlessBlank) {
  for (const Kind kind : {Kind::NestedBlock, Kind::TerminatedBlock}) {
    ModuleEntry entry = known_entry("block", kind);
    entry.terminated = false;
    entry.terminator = " End Block ";
    EXPECT_EQ(rendered(entry), "  block\n   End Block \n");
    entry.terminator = " \t";
    EXPECT_EQ(rendered(entry), "  block\n");
    entry.terminator = "";
    EXPECT_EQ(rendered(entry), "  block\n");
  }
}

TEST(RenderingATerminator, HappensForBlocksOnly) {
  for (const Kind kind :
       {Kind::Flag, Kind::Scalar, Kind::Tuple, Kind::MultiLine, Kind::CountedRows}) {
    ModuleEntry entry = known_entry("key", kind, {"v"});
    entry.terminator = "end";
    EXPECT_EQ(rendered(entry), "  key\n    v\n") << static_cast<int>(kind);
  }
}

TEST(RenderingANestedBlock, ItsChildrenStandAtFourBlanksAndTheirValuesAtSix) {
  ModuleEntry grid = known_entry("GRID", Kind::NestedBlock, {"not written"});
  grid.terminator = "endgrid";
  grid.children = {known_entry("Points", Kind::Scalar, {" 300 "}), known_entry("FINE", Kind::Flag)};
  EXPECT_EQ(rendered(grid), "  grid\n    points\n      300\n    fine\n  endgrid\n");
}

TEST(RenderingANestedBlock, RawAndUnknownChildrenAreWrittenVerbatim) {
  ModuleEntry grid = known_entry("grid", Kind::NestedBlock);
  ModuleEntry known_but_raw = raw_entry(" Kept", {"x "});
  known_but_raw.known = true;
  ModuleEntry unknown_scalar = raw_entry("", {" y"});
  unknown_scalar.kind = Kind::Scalar;
  grid.children = {raw_entry("# note"), known_but_raw, unknown_scalar, raw_entry("", {""})};
  EXPECT_EQ(rendered(grid), "  grid\n# note\n Kept\nx \n y\n\n");
}

TEST(RenderingANestedBlock, EachLevelStandsTwoBlanksDeeper) {
  ModuleEntry deepest = known_entry("deepest", Kind::TerminatedBlock, {"v", ""});
  deepest.terminator = "enddeepest";
  ModuleEntry inner = known_entry("inner", Kind::NestedBlock);
  inner.terminator = "endinner";
  inner.children = {deepest, raw_entry("raw")};
  ModuleEntry outer = known_entry("outer", Kind::NestedBlock);
  outer.terminator = "endouter";
  outer.children = {inner, known_entry("flag", Kind::Flag)};
  EXPECT_EQ(rendered(outer),
            "  outer\n"
            "    inner\n"
            "      deepest\n"
            "        v\n"
            "\n"
            "      enddeepest\n"
            "raw\n"
            "    endinner\n"
            "    flag\n"
            "  endouter\n");
}

TEST(RenderingANestedBlock, ChildrenOfAnotherKindOfEntryAreNotWritten) {
  ModuleEntry entry = known_entry("charge", Kind::Scalar, {"1"});
  entry.children = {known_entry("child", Kind::Flag)};
  EXPECT_EQ(rendered(entry), "  charge\n    1\n");
}

TEST(RenderingAnEntry, AnEntryMadeThroughTheEditorHasItsTerminatorInLowerCase) {
  BDFData data = document_of({"compass"});
  BDFEditor editor(std::move(data), small_schema());
  editor.append_module_entry("compass", "Geometry", {"H 0 0 0", " H 0 0 1"});
  EXPECT_EQ(editor.render(),
            "$compass\n  geometry\n    H 0 0 0\n    H 0 0 1\n  end geometry\n$end\n");
}

}  // namespace
}  // namespace kelp::input::bdf
