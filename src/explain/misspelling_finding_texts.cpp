#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"header.unknown_method",
     "The first part of the method specification is no method; where it may be a functional as "
     "well, it is a slip of a method or a method of other programs.",
     "A slip, or a method of another program.", "Write the name of a method.",
     "#! neon\ntddtf/b3lyp/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\ntddft/b3lyp/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n"},
    {"header.unknown_functional",
     "A functional of the header is not listed, and a listed name is one slip away from it; or it "
     "holds what no name of a functional does, a comma for one. Names that differ by a digit, or "
     "by their first or last letter, are taken for other functionals: BDF knows more than are "
     "listed.",
     "A slip, or another program's way to write the name.", "Write the name as it is listed.",
     "#! neon\nb3lpy/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\nb3lyp/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n"},
    {"header.unknown_basis",
     "The basis set of the header is not listed, and a listed name is one slip away from it; or it "
     "has quotes, brackets or a comma at its end. Names that differ by a digit, or by their first "
     "or last letter, are taken for other basis sets.",
     "A slip.", "Write the name as it is listed.",
     "#! neon\nhf/def2-spv\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\nhf/def2-svp\nGeometry\n  Ne 0 0 0\nEnd Geometry\n"},
    {"header.unknown_keyword", "A word of the header is no keyword.",
     "A slip, a keyword of a module, or a comment without its '#'.",
     "Correct the word, or move it to the module that it belongs to.",
     "#! neon\nhf/sto-3g spinmlti=3\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\nhf/sto-3g spinmulti=3\nGeometry\n  Ne 0 0 0\nEnd Geometry\n"},
    {"header.value_missing",
     "A keyword of the header that says nothing without a value has none: neither behind '=' nor "
     "behind a blank.",
     "The value was forgotten, or lost when the line was cut.",
     "Write the value, or take the keyword away.",
     "#! neon\nhf/sto-3g charge=\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\nhf/sto-3g charge=0\nGeometry\n  Ne 0 0 0\nEnd Geometry\n", error},
    {"header.empty_part",
     "A method specification begins or ends with a slash, or has two of them side by side.",
     "A name was lost, or a slash written twice.", "Write the name that is missing, or one slash.",
     "#! neon\npbe0//sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\npbe0/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n"},
    {"header.parts_swapped",
     "A method specification of two parts names a basis set first, and then a method or a "
     "functional.",
     "A slip.", "Write the basis set last.",
     "#! neon\nsto-3g/hf\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n", error},
    {"header.second_specification",
     "The header has a second word with slashes, though one specification says all: method, "
     "functional and basis set. Which of the two counts is not documented.",
     "An old one was left when the new one was written.", "Keep the one that is meant.",
     "#! neon\npbe0/sto-3g\nb3lyp/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\nb3lyp/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n"},
    {"header.keyword_twice",
     "A keyword of the header is given twice, perhaps in both of the ways to write it, 'charge=1' "
     "and 'charge 1'. The manual does not say which of the two counts.",
     "A value was added instead of changed.", "Keep the one that is meant.",
     "#! neon\nhf/sto-3g charge=1\ncharge 0\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\nhf/sto-3g charge=0\nGeometry\n  Ne 0 0 0\nEnd Geometry\n"},
    {"header.blank_for_slash",
     "Method, functional and basis set stand in the header with blanks between them. They are one "
     "word: method/functional/basis.",
     "Other programs write them apart.", "Write slashes between them.",
     "#! neon\nb3lyp def2-svp\nGeometry\n  Ne 0 0 0\nEnd Geometry\n",
     "#! neon\nb3lyp/def2-svp\nGeometry\n  Ne 0 0 0\nEnd Geometry\n", error},
    {"names.unknown_functional",
     "The functional of an entry is not listed, and a listed name is one slip away from it; or it "
     "holds what no name of a functional does, a comma for one. In a module any other name of the "
     "library of functionals can be right, so that this is a finding of its "
     "own, beside header.unknown_functional.",
     "A slip, or another program's way to write the name.", "Write the name as it is listed.",
     "$scf\nrks\ndft\n  b3lpy\n$end\n", "$scf\nrks\ndft\n  b3lyp\n$end\n"},
    {"names.unknown_basis",
     "The basis set of an entry is not listed, and a listed name is one slip away from it; or it "
     "has quotes, brackets or a comma at its end. In a "
     "module the name can also be that of a file of your own, so that this is a finding of its "
     "own, beside header.unknown_basis.",
     "A slip, or a basis set file with a name like a listed one.",
     "Write the name as it is listed.", "$compass\nbasis\n  cc-pvzd\n$end\n",
     "$compass\nbasis\n  cc-pvdz\n$end\n"},
    {"names.basis_row_malformed",
     "A line of basis-block is no assignment, 'O,H=def2-svp', and no name alone; or, as a warning, "
     "its elements are not parted by commas.",
     "The equals sign was left out or written twice, or a word was lost.",
     "Write the elements, '=' and the name of one basis set.",
     "$compass\nbasis-block\n  sto-3g\n  O cc-pvdz\nend basis\n$end\n",
     "$compass\nbasis-block\n  sto-3g\n  O=cc-pvdz\nend basis\n$end\n", error},
    {"names.second_value",
     "An entry with one value has two: one behind its keyword and one on the next line, or two "
     "names "
     "of basis sets. Which of them counts is not documented.",
     "The value was changed in one of the two ways to write it; or a line that was to be a keyword "
     "is none.",
     "Keep the one that is meant.", "$scf\nrhf\nmaxiter 100\n  200\n$end\n",
     "$scf\nrhf\nmaxiter\n  200\n$end\n"},
    {"names.word_behind_flag",
     "A keyword that takes no value has a number or another keyword behind it on its line, where "
     "neither is read.",
     "Two keywords were written on one line.", "Give each keyword a line of its own.",
     "$scf\nrks d3\ndft\n  b3lyp\n$end\n", "$scf\nrks\nd3\ndft\n  b3lyp\n$end\n"},
    {"geometry.label_marks", "The label of an atom is more than a symbol with digits behind it.",
     "A charge or a mark of another program.", "Write the symbol, and digits where atoms differ.",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne_1 0 0 0\nEnd Geometry\n",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne1 0 0 0\nEnd Geometry\n"},
    {"geometry.surplus_word",
     "A word stands behind the coordinates of an atom that is not 'B' or 'L', the marks of atoms "
     "of "
     "fragments.",
     "A comment of another program, or a column of one.", "Remove it, or begin it with '#'.",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0 ! fixed\nEnd Geometry\n",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0 # fixed\nEnd Geometry\n"},
    {"geometry.geometry_line_malformed",
     "A line of a geometry is no atom with three coordinates; nor a row of internal coordinates, a "
     "variable or its scan, where there are such; nor 'file=NAME', dots or a comment.",
     "A decimal comma, a minus or a blank that is not the plain one, a letter O for a zero, a "
     "missing blank, a number too few or too many, or the head of an XYZ file.",
     "Write a symbol and three numbers, with blanks between them.",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0,0 0,0 0,5\nEnd Geometry\n",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0.0 0.0 0.5\nEnd Geometry\n", error},
    {"geometry.unknown_element",
     "The letters of an atom's label are the symbol of no element. A label is a symbol in any "
     "case, with digits behind it where atoms of one element are to differ; 'X' is a centre "
     "without a nucleus.",
     "A slip, an atomic number, or a name of an isotope.",
     "Write the symbol; the masses of isotopes go into 'atommass' of $compass.",
     "#! neon\nhf/sto-3g\nGeometry\n  Nw 0 0 0\nEnd Geometry\n",
     "#! neon\nhf/sto-3g\nGeometry\n  Ne 0 0 0\nEnd Geometry\n", error},
});

}  // namespace

std::span<const FindingText> misspelling_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
