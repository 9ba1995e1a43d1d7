#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto texts = std::to_array<FindingText>({
    {"bdf.format_loss", "Writing the input in the canonical form would lose this text.",
     "A comment or a value behind a keyword on its own line, or the like: values are read from "
     "the following lines only.",
     "Move the text to a line of its own, or write with --force.", "", ""},
    {"bdf.format_move", "Writing the input in the canonical form would move this text.",
     "A comment or a definition between the atoms of a geometry, for example: the atoms are "
     "written first.",
     "Look at --diff; if nothing is the worse for it, write with --force.", "", ""},
    {"bdf.format_addition",
     "Writing the input in the canonical form would add a line that nobody wrote.",
     "Something that the form always has, the end of a block for example, is missing.",
     "Add the line, or write with --force.", "", ""},
    {"bdf.edit_unit", "The new geometry is in angstrom, but the input says bohr.",
     "A file in the XYZ format is in angstrom, and the input keeps the unit that it had.",
     "Set the unit in the same call, for example compass.unit=angstrom.", "", ""},
    {"bdf.edit_value", "A value that was set would not be read back as it was given.",
     "It begins with a keyword or a '#', or has more lines than the entry takes.",
     "Give the value as the entry wants it; 'kelp-bdf explain MODULE.ENTRY' tells how.", "", ""},
});

}  // namespace

std::span<const FindingText> rewrite_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
