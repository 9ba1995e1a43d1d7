// The molecule of an input, wherever the input states it.

#include "kelp/input/bdf/molecule.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kelp/input/bdf/editor.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "support/print.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

Molecule molecule_in(const std::string& text, const InputSchema& schema = shipped_schema()) {
  return molecule_of(ParsedInput(text, schema));
}

// "number at path", or the text where it is no number.
std::string shown(const std::optional<StatedValue>& value) {
  if (!value) {
    return "none";
  }
  return (value->number ? std::to_string(*value->number) : value->text) + " at " +
         to_string(value->path);
}

const char* const compass =
    "$compass\ntitle\nwater\ngeometry\nfile=x.xyz\n  O 0 0 0.1 # x\n\nH 0 0.7D0 -0.4 7\nend "
    "geometry\nunit\nBohr\n$end\n";

TEST(MoleculeOf, TheGeometryBlockHoldsItsAtoms) {
  const Molecule molecule = molecule_in(
      std::string("hf/sto-3g\nGeometry\nHe1 0 0 1.5\nx\nHe2 1 2 3\nEnd Geometry\n") + compass);
  EXPECT_EQ(molecule.geometry, RecordId::of(RecordKind::Geometry, 0));
  ASSERT_EQ(molecule.atoms.size(), 2U);
  EXPECT_EQ(molecule.atoms[1].element, "He2");
  EXPECT_EQ(molecule.atoms[1].z, 3.0);
  ASSERT_TRUE(molecule.atoms[1].location);
  EXPECT_EQ(molecule.atoms[1].location->line, 5U);
}

TEST(MoleculeOf, WithoutAtomsInTheBlockTheyAreThoseOfCompass) {
  const std::string lines[] = {"", "hf/sto-3g\n", "hf/sto-3g\nGeometry\nEnd Geometry\n",
                               "hf/sto-3g\nGeometry\nfile=x\nEnd Geometry\n"};
  for (const std::string& before : lines) {
    const std::string text = before + "$compass\n$end\n" + compass;
    const Molecule molecule = molecule_in(text);
    EXPECT_EQ(molecule.geometry, RecordId::of_entry(1, 1)) << text;
    ASSERT_EQ(molecule.atoms.size(), 2U) << text;
    EXPECT_EQ(molecule.atoms[0].element, "O");
    EXPECT_EQ(molecule.atoms[0].line, "  O 0 0 0.1 # x");
    EXPECT_EQ(molecule.atoms[1].y, 0.7);
    EXPECT_EQ(molecule.atoms[1].line, "H 0 0.7D0 -0.4 7");
    EXPECT_EQ(shown(molecule.stated_unit), "Bohr at compass#2.unit");
    EXPECT_EQ(molecule.unit, LengthUnit::Bohr);
  }
}

TEST(MoleculeOf, AtomsOfCompassHaveALocationWhereTheirTextIsKnown) {
  const Molecule molecule = molecule_in(compass);
  ASSERT_EQ(molecule.atoms.size(), 2U);
  ASSERT_TRUE(molecule.atoms[1].location);
  EXPECT_EQ(molecule.atoms[0].location->line, 6U);
  EXPECT_EQ(molecule.atoms[1].location->line, 8U);
  EXPECT_EQ(molecule.atoms[1].location->column, 1U);
  EXPECT_EQ(molecule.atoms[1].location->length, 16U);
  const ParseResult parsed = BDFParser::parse_string(compass, shipped_schema(), {});
  const Molecule without_text = molecule_of(parsed.data, shipped_schema());
  ASSERT_EQ(without_text.atoms.size(), 2U);
  EXPECT_FALSE(without_text.atoms[1].location);
}

TEST(MoleculeOf, SaysWhichBlockIsEmpty) {
  EXPECT_EQ(molecule_in("hf/x\nGeometry\nfile=x\nEnd Geometry\n").geometry,
            RecordId::of(RecordKind::Geometry, 0));
  EXPECT_EQ(molecule_in("$compass\ngeometry\nend geometry\n$end\n").geometry,
            RecordId::of_entry(0, 0));
  EXPECT_FALSE(molecule_in("$scf\n$end\n").geometry);
}

TEST(MoleculeOf, ChargeAndMultiplicityStandInTheHeaderOrInScf) {
  const std::string geometry = "\nGeometry\nHe 0 0 0\nEnd Geometry\n";
  const std::string scf = "$scf\ncharge\n +2 # x\nSpin\n3\n$end\n$scf\ncharge\n4\n$end\n";
  struct Row {
    std::string text;
    const char* charge;
    const char* multiplicity;
  };
  for (const Row& row : {
           Row{"hf/x charge=1 spin 2" + geometry + scf, "1 at easy.charge", "2 at easy.spinmulti"},
           Row{"hf/x charge=-1" + geometry, "-1 at easy.charge", "none"},
           Row{"hf/x charge" + geometry + "$scf\ncharge\n2\n$end\n", "2 at scf.charge", "none"},
           Row{scf, "2 at scf.charge", "3 at scf.spinmulti"},
           Row{"$scf\ncharge\n+1.0\n$end\n", "+1.0 at scf.charge", "none"},
           Row{"$xuanyuan\n$end\n", "none", "none"},
       }) {
    const Molecule molecule = molecule_in(row.text);
    EXPECT_EQ(shown(molecule.charge), row.charge) << row.text;
    EXPECT_EQ(shown(molecule.multiplicity), row.multiplicity) << row.text;
  }
  EXPECT_EQ(molecule_in(scf).charge->record, RecordId::of_entry(0, 0));
  EXPECT_EQ(molecule_in("hf/x charge=1" + geometry).charge->record,
            RecordId::of(RecordKind::EasyToken, 1));
}

TEST(MoleculeOf, TheUnitIsAngstromUnlessItSaysBohr) {
  struct Row {
    const char* text;
    LengthUnit unit;
    const char* stated;
  };
  for (const Row& row : {
           Row{"hf/x\n", LengthUnit::Angstrom, "none"},
           Row{"hf/x unit=Bohr\n", LengthUnit::Bohr, "Bohr at easy.unit"},
           Row{"hf/x unit=ang\n", LengthUnit::Angstrom, "ang at easy.unit"},
           Row{"$compass\nunits\n  bohr # x\n$end\n", LengthUnit::Bohr, "bohr # x at compass.unit"},
           Row{"hf/x unit=angstrom\n$compass\nunit\nbohr\n$end\n", LengthUnit::Angstrom,
               "angstrom at easy.unit"},
       }) {
    const Molecule molecule = molecule_in(row.text);
    EXPECT_EQ(molecule.unit, row.unit) << row.text;
    EXPECT_EQ(shown(molecule.stated_unit), row.stated) << row.text;
  }
}

// A schema may call the entry something else and take the known name for an alias.
TEST(MoleculeOf, FollowsAliases) {
  const InputSchema schema = schema_from(
      "modules: {scf: {entries: {q: {kind: scalar, aliases: [charge]}}}, points: {aliases:\n"
      "  [compass], entries: {xyz: {kind: terminated_block, terminator: done,\n"
      "  aliases: [geometry]}}}}\n");
  const Molecule molecule =
      molecule_in("$scf\ncharge\n1\n$end\n$compass\ngeometry\nO 0 0 0\ndone\n$end\n", schema);
  EXPECT_EQ(shown(molecule.charge), "1 at scf.charge");
  EXPECT_EQ(molecule.charge->record, RecordId::of_entry(0, 0));
  EXPECT_EQ(molecule.geometry, RecordId::of_entry(1, 0));
  EXPECT_EQ(molecule.atoms.size(), 1U);
}

std::string paths_in(const std::string& text) {
  const ParseResult parsed = BDFParser::parse_string(text, shipped_schema(), {});
  std::string paths;
  for (const auto& list : {charge_paths(parsed.data, shipped_schema()),
                           multiplicity_paths(parsed.data, shipped_schema())}) {
    for (const ValuePath& path : list) {
      paths += to_string(path) + ' ';
    }
  }
  return paths;
}

TEST(ChargePaths, AreWhereTheEditorWrites) {
  EXPECT_EQ(paths_in("hf/x\n"), "easy.charge easy.spinmulti ");
  EXPECT_EQ(paths_in("hf/x\n$scf\n$end\n"), "easy.charge scf.charge easy.spinmulti scf.spinmulti ");
  EXPECT_EQ(paths_in("$xuanyuan\n$end\n"), "scf.charge scf.spinmulti ");
  for (const char* const text : {"hf/x\n", "hf/x\n$scf\n$end\n", "$xuanyuan\n$end\n"}) {
    const ParseResult parsed = BDFParser::parse_string(text, shipped_schema(), {});
    BDFEditor editor(parsed.data, shipped_schema());
    editor.set_charge_and_multiplicity(-1, 2);
    const BDFData& data = editor.data();
    for (const ValuePath& path : charge_paths(parsed.data, shipped_schema())) {
      EXPECT_EQ(find_value(data, shipped_schema(), path), std::vector<std::string>{"-1"}) << text;
    }
    for (const ValuePath& path : multiplicity_paths(parsed.data, shipped_schema())) {
      EXPECT_EQ(find_value(data, shipped_schema(), path), std::vector<std::string>{"2"}) << text;
    }
  }
}

}  // namespace
}  // namespace kelp::input::bdf
