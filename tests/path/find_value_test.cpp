// Values by their paths, and names that may have been meant.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "path/reading.hpp"

namespace kelp::input::bdf {
namespace {

using Lines = std::vector<std::string>;

const char* const mixed =
    "#!job.bdf\nb3lyp/sto-3g charge=1 spin 2 soc # iroot=3\n\nGeometry\nO 0 0 1d-1\n"
    "file=x.xyz\nH_a 1.5 1e-5 -0.25 # x\n\nEnd Geometry\n\n"
    "$scf\nCharge\n   1  \nrhf\nocc\n$end\n"
    "$scf\ncharge\n2\nnosuch\n  3\n  4\n$end\n";

TEST(FindValue, ReturnsTheLinesAtAPath) {
  const BDFData data = read(mixed);
  struct Row {
    const char* path;
    std::optional<Lines> lines;
  };
  for (const Row& row : {
           Row{"scf.charge", Lines{"1"}},
           Row{"scf#2.charge", Lines{"2"}},
           Row{"scf#2.nosuch", Lines{"3", "4"}},
           Row{"scf.rhf", Lines{}},
           Row{"scf", std::nullopt},
           Row{"scf.spinmulti", std::nullopt},
           Row{"easy.charge", Lines{"1"}},
           Row{"easy.spinmulti", Lines{"2"}},
           Row{"easy.soc", Lines{}},
           Row{"easy.iroot", std::nullopt},
           Row{"geometry", Lines{"O 0 0 0.1", "H_a 1.5 1e-05 -0.25", "file=x.xyz", ""}},
       }) {
    EXPECT_EQ(find_value(data, shipped_schema(), path(row.path)), row.lines) << row.path;
    EXPECT_EQ(find_value(ParsedInput(mixed, shipped_schema()), path(row.path)), row.lines)
        << row.path;
  }
}

TEST(FindValue, AnEmptyGeometryBlockIsNoValue) {
  EXPECT_EQ(find_value(read("hf/x\nGeometry\nEnd Geometry\n"), shipped_schema(), path("geometry")),
            std::nullopt);
  EXPECT_EQ(find_value(read("$compass\ngeometry\n  O 0 0 0.1 \nend geometry\n$end\n"),
                       shipped_schema(), path("geometry")),
            Lines{"O 0 0 0.1"});
}

TEST(FindValue, TheLinesOfABlockAreItsChildren) {
  const InputSchema schema = schema_from(
      "modules: {m: {entries: {box: {kind: nested_block, terminator: end, entries:\n"
      "  {width: {kind: scalar}, lid: {kind: flag}}}}}}\n");
  const BDFData data = read("$m\nbox\n width\n   2 \n lid\n other # x\nend\n$end\n", schema);
  EXPECT_EQ(find_value(data, schema, path("m.box")), (Lines{"width", "  2", "lid", "other # x"}));
  EXPECT_EQ(find_value(data, schema, path("m.box.width")), Lines{"2"});
  EXPECT_EQ(find_value(data, schema, path("m.box.lid")), Lines{});
  EXPECT_EQ(find_value(data, schema, path("m.box.height")), std::nullopt);
}

TEST(ValueLines, OfARecordWithoutAValueAreNone) {
  const BDFData data = read(mixed);
  for (const RecordId& record :
       {RecordId(), RecordId::of_module(0), RecordId::of(RecordKind::EasyToken, 0),
        RecordId::of(RecordKind::EasyToken, 99), RecordId::of_entry(0, 99)}) {
    EXPECT_EQ(value_lines(data, shipped_schema(), record), Lines{});
  }
  EXPECT_EQ(value_lines(data, shipped_schema(), RecordId::of(RecordKind::EasyToken, 2)),
            Lines{"2"});
}

TEST(PathHint, NamesWhatMayHaveBeenMeant) {
  struct Row {
    const char* path;
    Lines names;
  };
  for (const Row& row : {
           Row{"scf.chrage", Lines{"charge"}},
           Row{"compas.title", Lines{"compass"}},
           Row{"compas", Lines{"compass"}},
           Row{"easy.chrage", Lines{"charge"}},
           Row{"bdfopt.neb-blok.crude", Lines{"neb-block"}},
           Row{"bdfopt.neb-block.crud", Lines{"crude"}},
           Row{"scf.charge", Lines{}},
           Row{"scf.charge.x", Lines{}},
           Row{"easy.charge", Lines{}},
           Row{"geometry", Lines{}},
           Row{"scf.qqqqqqqq", Lines{}},
       }) {
    EXPECT_EQ(path_hint(shipped_schema(), path(row.path)), row.names) << row.path;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
