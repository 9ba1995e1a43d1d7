// From paths to records.

#include <gtest/gtest.h>

#include <string>

#include "path/reading.hpp"

namespace kelp::input::bdf {
namespace {

const char* const mixed =
    "#!job.bdf\nb3lyp/sto-3g charge=1 spin 2 charge=5\n\nGeometry\nO 0 0 0.1\nEnd Geometry\n"
    "$scf\ncharge\n1\n$end\n$tddft\n$end\n$SCF\nnosuch\n  3\nCharge\n2\ncharge\n3\n$end\n";

TEST(FindRecord, FindsEachKind) {
  const BDFData data = read(mixed);
  struct Row {
    const char* path;
    RecordId record;
  };
  for (const Row& row : {
           Row{"geometry", RecordId::of(RecordKind::Geometry, 0)},
           Row{"easy.charge", RecordId::of(RecordKind::EasyToken, 1)},
           Row{"easy.spinmulti", RecordId::of(RecordKind::EasyToken, 2)},
           Row{"easy.b3lyp", {}},
           Row{"easy.iroot", {}},
           Row{"scf", RecordId::of_module(0)},
           Row{"$SCF#2", RecordId::of_module(2)},
           Row{"scf#3", {}},
           Row{"nosuch", {}},
           Row{"scf.charge", RecordId::of_entry(0, 0)},
           Row{"scf#2.nosuch", RecordId::of_entry(2, 0)},
           Row{"scf#2.CHARGE", RecordId::of_entry(2, 1)},
           Row{"scf#3.charge", {}},
           Row{"scf.nosuch", {}},
           Row{"scf.charge.x", {}},
       }) {
    EXPECT_EQ(find_record(data, shipped_schema(), path(row.path)), row.record) << row.path;
  }
}

const InputSchema& schema_with_aliases() {
  static const InputSchema schema = schema_from(
      "modules:\n"
      "  field:\n"
      "    aliases: [scf]\n"
      "    entries:\n"
      "      q: {kind: scalar, aliases: [charge]}\n"
      "      box:\n"
      "        kind: nested_block\n"
      "        terminator: end\n"
      "        aliases: [crate]\n"
      "        entries: {width: {kind: scalar, aliases: [w]}}\n"
      "  points: {aliases: [compass], entries: {xyz: {kind: terminated_block, terminator: done,\n"
      "           aliases: [geometry]}}}\n");
  return schema;
}

TEST(FindRecord, ResolvesAliasesOfModuleEntryAndChild) {
  const InputSchema& schema = schema_with_aliases();
  const BDFData data =
      read("$scf\ncharge\n1\nbox\nend\ncrate\nw\n2\nend\n$end\n$compass\ngeometry\ndone\n$end\n",
           schema);
  for (const char* const text : {"field.q", "scf.q", "field.charge", "SCF.Charge"}) {
    EXPECT_EQ(find_record(data, schema, path(text)), RecordId::of_entry(0, 0)) << text;
  }
  for (const char* const text : {"field.box.width", "scf.crate.w"}) {
    EXPECT_EQ(find_record(data, schema, path(text)), RecordId::of_child(0, 2, 0)) << text;
  }
  EXPECT_EQ(find_record(data, schema, path("geometry")), RecordId::of_entry(1, 0));
  EXPECT_EQ(count_modules(data, schema, "scf"), 1U);
  EXPECT_EQ(count_modules(data, schema, "$Field"), 1U);
  EXPECT_EQ(count_modules(data, schema, "points"), 1U);
  EXPECT_EQ(count_modules(data, schema, "q"), 0U);
}

TEST(FindRecord, TheGeometryIsTheBlockUnlessCompassAloneHasOne) {
  const auto geometry_of = [](const std::string& text) {
    return find_record(read(text), shipped_schema(), path("geometry"));
  };
  const std::string compass = "$compass\ntitle\nx\n$end\n$compass\ngeometry\nend geometry\n$end\n";
  EXPECT_EQ(geometry_of(compass), RecordId::of_entry(1, 0));
  EXPECT_EQ(geometry_of("hf/x\n" + compass), RecordId::of_entry(1, 0));
  EXPECT_EQ(geometry_of("hf/x\nGeometry\nEnd Geometry\n" + compass), RecordId::of_entry(1, 0));
  EXPECT_EQ(geometry_of("hf/x\nGeometry\nfile=x\nEnd Geometry\n" + compass),
            RecordId::of(RecordKind::Geometry, 0));
  EXPECT_EQ(geometry_of("hf/x\nGeometry\nEnd Geometry\n"), RecordId::of(RecordKind::Geometry, 0));
  EXPECT_EQ(geometry_of("$scf\n$end\n"), RecordId());
}

TEST(FindRecord, OfAnInputIsThatOfItsDocument) {
  const ParsedInput input(mixed, shipped_schema());
  EXPECT_EQ(find_record(input, path("scf#2.charge")), RecordId::of_entry(2, 1));
}

}  // namespace
}  // namespace kelp::input::bdf
