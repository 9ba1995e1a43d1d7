#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto error = Severity::Error;

constexpr auto texts = std::to_array<FindingText>({
    {"schema.malformed_yaml", "The document is not YAML.",
     "A bracket or quote that is not closed, a wrong indentation, a tab.",
     "Correct the place named; what follows it has not been looked at.",
     "schema_version: 1\nmodules: {scf: {}\n", "schema_version: 1\nmodules: {scf: {}}\n", error},
    {"schema.unreadable", "The document cannot be read as a schema.",
     "YAML aliases that expand without end, for example.", "The message tells what is wrong.", "",
     "", error},
    {"schema.second_document", "The file holds a second document, which is not read.",
     "A line ---.", "Join the documents.", "schema_version: 1\n---\nmodules: {}\n",
     "schema_version: 1\nmodules: {}\n", error},
    {"schema.missing_version", "The key 'schema_version' is missing.", "It was forgotten.",
     "Add schema_version: 1.", "modules: {}\n", "schema_version: 1\nmodules: {}\n", error},
    {"schema.wrong_type",
     "A value is a list, a map, a text or nothing where something else is "
     "wanted; it is passed over.",
     "A wrong indentation, or a value that was left out.", "Write what the message asks for.",
     "schema_version: 1\nmodules: [scf]\n", "schema_version: 1\nmodules: {scf: {}}\n", error},
    {"schema.invalid_scalar", "A number, count or truth value cannot be read as one.",
     "A slip, or a unit behind the number.", "Write a plain number, or true or false.",
     "schema_version: 1\nmodules: {scf: {repeatable: twice}}\n",
     "schema_version: 1\nmodules: {scf: {repeatable: true}}\n", error},
    {"schema.unknown_key", "A key that is not known is passed over.",
     "A slip, or a key at the wrong level.", "Correct or move the key.",
     "schema_version: 1\nmodules: {scf: {entires: {}}}\n",
     "schema_version: 1\nmodules: {scf: {entries: {}}}\n", error},
    {"schema.duplicate_key",
     "A key or name is given twice; of two keys the first counts, of two names the second.",
     "An entry was copied; upper and lower case make no difference in names.", "Keep one of them.",
     "schema_version: 1\nmodules: {scf: {}, SCF: {}}\n", "schema_version: 1\nmodules: {scf: {}}\n",
     error},
    {"schema.name_collision", "Two things claim one name.",
     "An alias that is the name or an alias of something else.",
     "Take the alias away from one of them.",
     "schema_version: 1\nmodules: {scf: {entries: {spin: {}, multi: {aliases: [spin]}}}}\n",
     "schema_version: 1\nmodules: {scf: {entries: {spin: {}, multi: {}}}}\n", error},
    {"schema.unusable_name", "No input can hold this name.",
     "A blank in it: a keyword is the first word of its line. Or it begins like a comment.",
     "Use the first word only.", "schema_version: 1\nmodules: {scf: {entries: {max iter: {}}}}\n",
     "schema_version: 1\nmodules: {scf: {entries: {maxiter: {}}}}\n", error},
    {"schema.unknown_kind", "There is no such kind; the entry is read as a scalar.", "A slip.",
     "Use one of flag (or bool, boolean), scalar, tuple, multiline (or multi_line, vector), "
     "counted_rows (or countedrows), nested_block (or nestedblock), terminated_block (or "
     "terminatedblock, block), raw.",
     "schema_version: 1\nmodules: {scf: {entries: {rhf: {kind: switch}}}}\n",
     "schema_version: 1\nmodules: {scf: {entries: {rhf: {kind: flag}}}}\n", error},
    {"schema.unknown_type", "There is no such type of value; nothing would be checked.", "A slip.",
     "Use integer, float or number; string or any for what is not looked at. A word with _array "
     "(integer_array, float_array, number_array, string_array) is read as the same without it; "
     "bool "
     "and boolean accept everything, and are for readers.",
     "schema_version: 1\nmodules: {scf: {entries: {charge: {value_type: int}}}}\n",
     "schema_version: 1\nmodules: {scf: {entries: {charge: {value_type: integer}}}}\n", error},
    {"schema.missing_terminator",
     "A block has no terminator: it would be unterminated in every input.", "It was forgotten.",
     "Name the line that ends the block.",
     "schema_version: 1\nmodules: {nmr: {entries: {grid: {kind: block}}}}\n",
     "schema_version: 1\n"
     "modules: {nmr: {entries: {grid: {kind: block, terminator: end grid}}}}\n",
     error},
    {"schema.unknown_reference", "A requirement or conflict names an entry that does not exist.",
     "A slip, or an entry of another module.", "Name an entry of the same module or block.",
     "schema_version: 1\nmodules: {scf: {entries: {alpha: {requires: bta}, beta: {}}}}\n",
     "schema_version: 1\nmodules: {scf: {entries: {alpha: {requires: beta}, beta: {}}}}\n", error},
    {"schema.unknown_name",
     "Knowledge is given of a basis set, a functional or a module that the vocabulary does not "
     "list under this name.",
     "A slip, an alias, or a name that was taken out of the vocabulary.",
     "Give the canonical name, as bdf.yaml has it.", "", "", error},
    {"schema.self_reference", "An entry requires or excludes itself.", "A line was copied.",
     "Name the other entry.",
     "schema_version: 1\nmodules: {scf: {entries: {rhf: {conflicts: rhf}}}}\n",
     "schema_version: 1\nmodules: {scf: {entries: {rhf: {conflicts: uhf}, uhf: {}}}}\n", error},
    {"schema.impossible_requirement", "An entry requires a value that the other never has.",
     "The value is not in the other's list, or the other is a flag.",
     "Correct the value, or drop 'equals'.",
     "schema_version: 1\nmodules: {opt: {entries: {\n"
     "  solver: {allowed: [0, 1]},\n"
     "  scan: {requires: [{entry: solver, equals: 2}]}}}}\n",
     "schema_version: 1\nmodules: {opt: {entries: {\n"
     "  solver: {allowed: [0, 1]},\n"
     "  scan: {requires: [{entry: solver, equals: 1}]}}}}\n",
     error},
    {"schema.impossible_arity", "No number of fields satisfies all that is said about it.",
     "A minimum above the maximum, or an exact number beside a list without it.",
     "Correct the numbers.",
     "schema_version: 1\nmodules: {scf: {entries: {core: {min_arity: 3, max_arity: 2}}}}\n",
     "schema_version: 1\nmodules: {scf: {entries: {core: {min_arity: 2, max_arity: 3}}}}\n", error},
    {"schema.impossible_bounds", "No number satisfies both bounds.",
     "The bounds are swapped, or equal and exclusive.", "Correct the bounds.",
     "schema_version: 1\n"
     "modules: {scf: {entries: {damp: {value_type: float, min: 1, max: 0}}}}\n",
     "schema_version: 1\n"
     "modules: {scf: {entries: {damp: {value_type: float, min: 0, max: 1}}}}\n",
     error},
    {"schema.impossible_value",
     "A value is in the list of values allowed, but refused for its type, bounds or number of "
     "fields, or because it holds a comma or two blanks in a row.",
     "The list and the type do not belong together.", "Correct the value or the type.",
     "schema_version: 1\n"
     "modules: {scf: {entries: {print: {value_type: integer, allowed: [0, all]}}}}\n",
     "schema_version: 1\n"
     "modules: {scf: {entries: {print: {value_type: integer, allowed: [0, 1]}}}}\n",
     error},
    {"schema.refused_default", "The default is a value that the entry does not accept.",
     "It is of another type, outside the bounds, or not in the list.",
     "Correct the default or what refuses it.",
     "schema_version: 1\n"
     "modules: {scf: {entries: {charge: {value_type: integer, default: none}}}}\n",
     "schema_version: 1\n"
     "modules: {scf: {entries: {charge: {value_type: integer, default: 0}}}}\n",
     error},
    {"schema.missing_summary",
     "A name has no sentence that says what it means, although the metadata require one of every "
     "name.",
     "A name that was added without its summary; a basis set may have that of its family instead.",
     "Add 'summary', or take 'summaries: required' out of the metadata.",
     "schema_version: 1\nmetadata: {summaries: required}\n"
     "modules: {scf: {entries: {}}}\n",
     "schema_version: 1\nmetadata: {summaries: required}\n"
     "modules: {scf: {summary: Self-consistent field., entries: {}}}\n"},
    {"schema.missing_value_meaning",
     "A value of a closed list is not explained, although the metadata require it of every name.",
     "A value that was added to 'allowed' alone.",
     "Add the value under 'values', or take 'summaries: required' out of the metadata.",
     "schema_version: 1\nmetadata: {summaries: required}\n"
     "easy_keywords: {unit: {summary: Unit of lengths., allowed: [bohr]}}\n",
     "schema_version: 1\nmetadata: {summaries: required}\n"
     "easy_keywords:\n"
     "  unit: {summary: Unit of lengths., allowed: [bohr], values: {bohr: atomic units}}\n"},
    {"schema.unknown_value", "The meaning of a value is given that the entry does not have.",
     "A slip, or a value that is no longer in 'allowed', or is explained in Chinese alone.",
     "Correct the value, or add it to the list.",
     "schema_version: 1\n"
     "modules: {scf: {entries: {guess: {allowed: [atom], values: {atoms: of atoms}}}}}\n",
     "schema_version: 1\n"
     "modules: {scf: {entries: {guess: {allowed: [atom], values: {atom: of atoms}}}}}\n",
     error},
    {"schema.reserved_category", "The category has a meaning of its own.",
     "The words method_spec and unknown tell what a word of the header is.",
     "Use another category.", "schema_version: 1\neasy_keywords: {charge: {category: unknown}}\n",
     "schema_version: 1\neasy_keywords: {charge: {category: charge}}\n", error},
    {"schema.no_effect", "What is said here changes nothing.",
     "A key that is for another kind of entry.", "Remove it, or correct the kind.",
     "schema_version: 1\nmodules: {scf: {entries: {maxiter: {row: {arity: 2}}}}}\n",
     "schema_version: 1\n"
     "modules: {scf: {entries: {maxiter: {kind: counted_rows, row: {arity: 2}}}}}\n"},
    {"schema.redundant", "The same is said twice.", "A line was copied.", "Remove one of them.",
     "schema_version: 1\nmodules: {scf: {entries: {unit: {allowed: [bohr, Bohr]}}}}\n",
     "schema_version: 1\nmodules: {scf: {entries: {unit: {allowed: [bohr]}}}}\n"},
});

}  // namespace

std::span<const FindingText> schema_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
