#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto error = Severity::Error;
constexpr auto note = Severity::Note;

constexpr auto texts = std::to_array<FindingText>({
    {"geometry.geometry_missing", "$compass has no geometry, so there is nothing to compute.",
     "The block was forgotten, or its first line is misspelt.",
     "Add the atoms between 'geometry' and 'end geometry'.",
     "$compass\nbasis\n  cc-pvdz\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     error},
    {"geometry.geometry_empty", "The geometry holds nothing but comments and blank lines.",
     "All lines of atoms begin with a mark of comments, or the atoms were to be pasted.",
     "Add the atoms.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n# Ne 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     error},
    {"geometry.atom_far_away",
     "An atom is more than 100 angstrom away from all others; beyond 1000 angstrom this is a "
     "warning.",
     "The decimal point of a coordinate was lost.", "Correct the coordinate.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 110\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  N 0 0 0\n  N 0 0 1.10\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     note},
    {"geometry.geometry_file_and_atoms",
     "A geometry is a list of atoms or one line 'file=name', not both.",
     "Atoms were left when the file was named, or the other way round.", "Keep one of them.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  file=neon.xyz\n  Ne 0 0 0\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  file=neon.xyz\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n"},
    {"geometry.geometry_file_extension",
     "A geometry is read from files whose names end in .xyz or .optgeom; the latter are read by "
     "releases since January 2026.",
     "The file has another format, or its name another ending.",
     "Name a file in XYZ format, or write the atoms into the input.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  file=neon.mol2\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  file=neon.xyz\nend geometry\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n"},
    {"geometry.geometry_file_missing",
     "The file that the geometry names is not in the folder of the input.",
     "A slip in its name, the case of letters included; or it is still elsewhere.",
     "Correct the name, or copy the file.", "", ""},
    {"geometry.geometry_twice",
     "The atoms stand in the block below the header and in $compass as well.",
     "An input was put together from two.", "Keep one of them.",
     "#! neon.bdf\nhf/cc-pvdz\n\nGeometry\nNe 0 0 0\nEnd Geometry\n\n"
     "$compass\ngeometry\n  Ne 0 0 1\nend geometry\n$end\n",
     "#! neon.bdf\nhf/cc-pvdz\n\nGeometry\nNe 0 0 0\nEnd Geometry\n"},
    {"geometry.atoms_coincide", "Two atoms have the same coordinates.",
     "A line was copied and not changed, or a part of the molecule stands there twice.",
     "Take one of them away, or correct it.",
     "#! hydrogen.bdf\nhf/cc-pvdz\n\nGeometry\nH 0 0 0.74\nH 0 0 0.74\nEnd Geometry\n",
     "#! hydrogen.bdf\nhf/cc-pvdz\n\nGeometry\nH 0 0 0\nH 0 0 0.74\nEnd Geometry\n", error},
    {"geometry.atoms_too_close",
     "Two atoms are nearer than 0.4 times the sum of their covalent radii, nearer than any bond.",
     "A slip in a coordinate, or coordinates of another unit.",
     "Correct the coordinates or the unit.",
     "#! hydrogen.bdf\nhf/cc-pvdz\n\nGeometry\nH 0 0 0\nH 0 0 0.074\nEnd Geometry\n",
     "#! hydrogen.bdf\nhf/cc-pvdz\n\nGeometry\nH 0 0 0\nH 0 0 0.74\nEnd Geometry\n"},
    {"geometry.unit_suspected",
     "All bonds are about 1.9 times as long as they should be, or about half as long: coordinates "
     "in "
     "bohr are read as angstrom, or the other way round.",
     "Coordinates were copied from an output, which has another unit than the input.",
     "Add 'unit' with the value bohr, or take it away.",
     "#! water.bdf\nhf/cc-pvdz unit=bohr\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\n"
     "H 0 0.784 -0.185\nEnd Geometry\n",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO 0 0 0.369\nH 0 -0.784 -0.185\n"
     "H 0 0.784 -0.185\nEnd Geometry\n"},
    {"geometry.zmatrix_reference_invalid",
     "A row of internal coordinates names the atom itself, one below it, or one that is not there.",
     "Rows were added or moved and the numbers were not changed.", "Name atoms of the rows above.",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 0.96\nH 3 0.96 2 104.5\nEnd Geometry\n",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 0.96\nH 1 0.96 2 104.5\nEnd Geometry\n", error},
    {"geometry.zmatrix_reference_repeated",
     "A row of internal coordinates names one atom twice; a bond, an angle and a dihedral need "
     "different ones.",
     "A slip of a number.", "Name different atoms.",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 0.96\nH 1 0.96 1 104.5\nEnd Geometry\n",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 0.96\nH 1 0.96 2 104.5\nEnd Geometry\n", error},
    {"geometry.zmatrix_variable_undefined",
     "A row of internal coordinates uses a name that is given no value.",
     "The definition was forgotten, or one of the two is misspelt.",
     "Define it below the rows, behind a blank line.",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 A1\n\nR1 0.96\nEnd Geometry\n",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 A1\n\nR1 0.96\nA1 104.5\n"
     "End Geometry\n",
     error},
    {"geometry.zmatrix_variable_unused", "A variable is defined that no row uses.",
     "It is misspelt, or a row has a number in its stead.", "Correct the name, or take it away.",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 104.5\n\nR1 0.96\nA1 104.5\n"
     "End Geometry\n",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 A1\n\nR1 0.96\nA1 104.5\n"
     "End Geometry\n"},
    {"geometry.zmatrix_blank_line_missing",
     "A blank line separates the rows of internal coordinates from their variables.",
     "Blank lines carry no meaning elsewhere, and so it was taken away.", "Insert a blank line.",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 104.5\nR1 0.96\nEnd Geometry\n",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 R1\nH 1 R1 2 104.5\n\nR1 0.96\nEnd Geometry\n",
     error},
    {"geometry.zmatrix_value_invalid",
     "A bond is longer than 0, and an angle is from 0 to 180 degrees; only dihedrals have a sign.",
     "A slip of a number, or the columns of angle and dihedral are exchanged.",
     "Correct the value.",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 0.96\nH 1 0.96 2 204.5\nEnd Geometry\n",
     "#! water.bdf\nhf/cc-pvdz\n\nGeometry\nO\nH 1 0.96\nH 1 0.96 2 104.5\nEnd Geometry\n", error},
    {"geometry.restart_without_geometry",
     "restart takes the coordinates from a file, but the atoms from the geometry.",
     "The geometry was taken away because new coordinates come anyway.",
     "Give a geometry with the same atoms in the same order.",
     "$compass\nbasis\n  cc-pvdz\nrestart\n$end\n$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\nrestart\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     error},
    {"geometry.atommass_atom_range", "atommass changes the mass of an atom that is not there.",
     "A slip of a number, or atoms were taken away.",
     "Give the number of an atom, counted from 1 in the order of the geometry.",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\natommass\n  1\n  2 22\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     "$compass\nbasis\n  cc-pvdz\ngeometry\n  Ne 0 0 0\nend geometry\natommass\n  1\n  1 22\n$end\n"
     "$xuanyuan\n$end\n$scf\nrhf\n$end\n",
     error},
    {"geometry.extcharge_file_missing",
     "extcharge reads point charges from a file that has the name of the input and the ending "
     ".extcharge, which is not there.",
     "The file has another name, or is still elsewhere.", "Rename or copy the file.", "", "", note},
});

}  // namespace

std::span<const FindingText> geometry_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
