#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"bdf.empty_input", "The input holds nothing but blank lines.",
     "An empty file, or one that was cut off when it was written.",
     "Look whether it is the right file.", "\n", "$scf\nrhf\n$end\n", error},
    {"bdf.missing_method",
     "The header of an input with a header names no method: there is no word such as "
     "method/functional/basis or method/basis.",
     "The specification was left out, or is written without its slashes.",
     "Begin the header with a specification.",
     "#! neon\ncharge=0\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\nhf/sto-3g charge=0\nGeometry\n  Ne 0 0 0\nEnd Geometry\n", error},
    {"bdf.invalid_easy_value", "A keyword of the header has a value that it does not accept.",
     "A slip, or a value of another keyword; 'kelp-bdf explain easy.KEYWORD' tells what it "
     "takes.",
     "Write a value of the right type, one of the words listed, or leave the keyword out.",
     "#! neon\nhf/sto-3g charge=none\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\nhf/sto-3g charge=0\nGeometry\n  Ne 0 0 0\nEnd Geometry\n", error},
    {"bdf.missing_geometry",
     "An input with a header has no block Geometry ... End Geometry, or an empty one.",
     "The block was forgotten, or the line that opens it is misspelt.",
     "Give the molecule between the lines Geometry and End Geometry.", "#! neon\nhf/sto-3g\n",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n", error},
    {"bdf.unterminated_geometry", "The line End Geometry is missing, so the block has no end.",
     "It was forgotten. One that is misspelt has a finding of its own.",
     "Add the line End Geometry after the last atom.", "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\n",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n", error},
    {"bdf.unknown_module", "There is no module of that name.",
     "A slip in the name, or more than the name and a comment on its line.",
     "Correct the name; put what stands behind it on a line of its own.", "$xuanyaun\n$end\n",
     "$xuanyuan\n$end\n"},
    {"bdf.unterminated_module", "A module has no line $end.",
     "The line was forgotten, so that the next module begins inside this one.",
     "Add $end after the module's last entry.", "$scf\nrhf\n$localmo\nflmo\n$end\n",
     "$scf\nrhf\n$end\n$localmo\nflmo\n$end\n", error},
    {"bdf.unknown_entry", "The module has no entry of that name.",
     "A slip in a keyword, a keyword of another module, or a value that nothing expects: one too "
     "many, or one whose keyword takes none.",
     "Correct the keyword or move it to its module.", "$scf\nspinmulty\n  2\n$end\n",
     "$scf\nspinmulti\n  2\n$end\n"},
    {"bdf.unknown_nested_entry", "The block has no entry of that name.",
     "A slip in a keyword of the block, or the line that ends the block is misspelt, so that "
     "what follows is taken for a part of it.",
     "Correct the keyword, or the line that ends the block.",
     "$bdfopt\nneb-block\n  crud\nend neb\n$end\n", "$bdfopt\nneb-block\n  crude\nend neb\n$end\n"},
    {"bdf.missing_required_entry",
     "An entry needs another one beside it, with a certain value perhaps, which is not there.",
     "The other entry was forgotten, or stands in another module of the same name.",
     "Add the entry that the message names, or drop this one.", "$scf\nalpha\n  5 0\n$end\n",
     "$scf\nalpha\n  5 0\nbeta\n  4 0\n$end\n", error},
    {"bdf.conflicting_entries", "Two entries that exclude each other stand in one module.",
     "One was added and the other not removed.", "Keep one of them.", "$scf\nrhf\nuhf\n$end\n",
     "$scf\nuhf\n$end\n", error},
    {"bdf.duplicate_entry",
     "An entry is given twice in one module, perhaps under two of its spellings, although once "
     "is what it is for.",
     "A line was copied, or a value was added instead of changed.", "Keep the one that is meant.",
     "$scf\ncharge\n  0\ncharge\n  1\n$end\n", "$scf\ncharge\n  1\n$end\n"},
    {"bdf.duplicate_module", "A module that runs once stands twice in the input.",
     "Two inputs were joined.", "Bring the entries of both together in one module.",
     "$bdfopt\nreadhess\n$end\n$bdfopt\nsolver\n  1\n$end\n",
     "$bdfopt\nreadhess\nsolver\n  1\n$end\n"},
    {"bdf.missing_entry_value", "A keyword that has a value is followed by none.",
     "It was forgotten, or is commented out.", "Write the value on the next line.",
     "$tddft\niroot\n$end\n", "$tddft\niroot\n  4\n$end\n"},
    {"bdf.unterminated_entry_block", "The line that ends a block within a module is missing.",
     "It was forgotten; it must be alone on its line.", "Add the line that the message names.",
     "$compass\ngeometry\n  Ne 0 0 0\n$end\n",
     "$compass\ngeometry\n  Ne 0 0 0\nend geometry\n$end\n", error},
    {"bdf.invalid_module_value",
     "The value of an entry is of the wrong type, out of bounds, not one of the words allowed, "
     "or has too few or too many fields; for rows, their number may be wrong.",
     "A slip, a missing row, or a misspelt keyword behind the value, which is then taken for a "
     "part of it. 'kelp-bdf explain MODULE.ENTRY' tells what the entry accepts.",
     "Correct the value.", "$scf\ncharge\n  1.5\n$end\n", "$scf\ncharge\n  1\n$end\n", error},
    {"text.encoding", "The file is not encoded as plain text or UTF-8, but as UTF-16.",
     "An editor of Windows, or a file that a program exported as 'Unicode'.",
     "Save it as UTF-8; on Linux: iconv -f UTF-16 -t UTF-8 FILE.", "", "", error},
    {"text.line_ends",
     "No line of the file ends as lines do: there are carriage returns, but no line feeds.",
     "An old editor, or a transfer between systems.",
     "Save it with Unix line ends; on Linux: tr '\\r' '\\n' < FILE.", "", "", error},
    {"text.prefixed_lines",
     "Every line of the file begins with a sign that is no part of an input.",
     "Lines copied out of a terminal, a mail or a listing.", "Take the sign away from all lines.",
     "> $scf\n> rhf\n> $end\n> $xuanyuan\n> $end\n", "$scf\nrhf\n$end\n$xuanyuan\n$end\n", error},
});

}  // namespace

std::span<const FindingText> input_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
