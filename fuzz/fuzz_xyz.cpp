// Reads any bytes as an XYZ file: what is read has the atoms that it announces, is the same again
// when it is written and read, and can be put into an input.

#include <string>

#include "checks.hpp"
#include "kelp/input/bdf/molecule.hpp"
#include "kelp/input/bdf/rewrite.hpp"

namespace {

using namespace kelp::input::bdf;

void expect(bool condition, const char* otherwise) {
  if (!condition) {
    kelp::fuzz::expect_none({otherwise});
  }
}

void put_into_an_input(const XyzResult& read) {
  const ParsedInput input("$compass\ngeometry\n H 0 0 0\nend geometry\n$end\n",
                          kelp::fuzz::schema(false));
  Edit edit;
  edit.geometry = NewGeometry{read.atoms, LengthUnit::Angstrom, std::nullopt};
  const Rewrite rewrite = edit_input(input, edit);
  if (rewrite.error.empty()) {
    const ParsedInput again(rewrite.text, kelp::fuzz::schema(false));
    expect(molecule_of(again).atoms.size() == read.atoms.size(), "atoms were lost in an input");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const XyzResult read = read_xyz({reinterpret_cast<const char*>(data), size});
  if (!read.error.empty()) {
    expect(read.atoms.empty() && read.line > 0, "a refused text has atoms, or no line");
    return 0;
  }
  Molecule molecule;
  molecule.atoms = read.atoms;
  const XyzResult again = read_xyz(write_xyz(molecule, read.comment));
  expect(again.error.empty(), "what was written cannot be read");
  expect(again.atoms.size() == read.atoms.size(), "atoms were lost");
  for (std::size_t i = 0; i < read.atoms.size(); ++i) {
    expect(again.atoms[i].x == read.atoms[i].x && again.atoms[i].y == read.atoms[i].y &&
               again.atoms[i].z == read.atoms[i].z,
           "a coordinate was changed");
  }
  put_into_an_input(read);
  return 0;
}
