#ifndef KELP_BDF_H
#define KELP_BDF_H

/// @file
/// The interface for programs in C, and for all languages that can call C: Fortran, Python's
/// ctypes, whatever a host is written in. It is part of the same library as the headers for C++.
///
///     kelp_bdf_error error;
///     kelp_bdf_input* input = NULL;
///     if (kelp_bdf_input_read("water.inp", NULL, &input, &error) != KELP_BDF_OK) {
///       fprintf(stderr, "%s\n", error.text);
///       return 2;
///     }
///     kelp_bdf_texts* value = NULL;
///     if (kelp_bdf_get(input, "scf.charge", &value, &error) == KELP_BDF_OK) { ... }
///     kelp_bdf_texts_free(value);
///     kelp_bdf_input_free(input);
///
/// **Versions.** Within a major version of the interface things are added and nothing is changed or
/// taken away: a program runs with every library whose `kelp_bdf_interface_version` has the same
/// major version and no smaller minor version than the header that it was compiled with.
///
/// **Errors.** Every function but those that answer about versions returns a status, `KELP_BDF_OK`
/// being 0, and gives its results through pointers; these are not written to unless it succeeds. A
/// last parameter `error` may be null; otherwise it is told what is wrong, in words. No exception
/// leaves the library, it prints nothing and ends no process. Problems of an input are no errors:
/// `kelp_bdf_check` tells them.
///
/// **Handles.** What is made by the library is known by a handle, and lives until that is freed. A
/// handle is no address: one that was freed, or is of another kind, is refused with
/// `KELP_BDF_INVALID_HANDLE`, always and by every function, even while another thread frees it. Not
/// detected is the use of what a handle gave: the bytes behind a `kelp_bdf_string` and the
/// coordinates of a molecule are gone with their handle. Nor are wrong pointers of the caller's
/// own. Freeing a null handle does nothing.
///
/// **Threads.** Any number of threads may use one handle at once, a `kelp_bdf_edit` excepted, which
/// is for one thread at a time.
///
/// **Texts** are UTF-8. Those handed over as `const char*` alone end in a NUL byte; where a size
/// comes along, NUL bytes are bytes like others.
///
/// **Records** that begin with `struct_size` are set up by the caller, `kelp_bdf_finding f =
/// {.struct_size = sizeof f};`, and may get further members at their ends.

#include <stddef.h>
#include <stdint.h>

#if defined(KELP_BDF_INP_STATIC)
#define KELP_BDF_API
#elif defined(_WIN32)
#if defined(KELP_BDF_INP_BUILDING)
#define KELP_BDF_API __declspec(dllexport)
#else
#define KELP_BDF_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
/// Marks what the library exports.
#define KELP_BDF_API __attribute__((visibility("default")))
#else
#define KELP_BDF_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/// The version of the interface that this header describes.
#define KELP_BDF_INTERFACE_MAJOR 1
/// Grows with each addition.
#define KELP_BDF_INTERFACE_MINOR 1

/// What a call came to.
typedef int32_t kelp_bdf_status;
enum {
  KELP_BDF_OK = 0,                ///< done
  KELP_BDF_INVALID_HANDLE = 1,    ///< a handle was freed, is of another kind, or is null
  KELP_BDF_INVALID_ARGUMENT = 2,  ///< a null pointer, an index too large, a text that is no path
  KELP_BDF_NOT_FOUND = 3,         ///< there is nothing at that path
  KELP_BDF_REFUSED = 4,           ///< the change cannot be made
  KELP_BDF_FILE_ERROR = 5,        ///< a file could not be read or written
  KELP_BDF_FILE_CHANGED = 6,      ///< a file holds another text than the one that was read
  KELP_BDF_SCHEMA_ERROR = 7,      ///< a schema could not be found or read
  KELP_BDF_NO_MEMORY = 8,         ///< too little memory
  KELP_BDF_INTERNAL_ERROR = 9     ///< a mistake of the library
};

/// What is wrong. It belongs to the caller, and needs no preparation.
typedef struct kelp_bdf_error {
  kelp_bdf_status status;  ///< as returned; set after every call, successful ones too
  char text[508];          ///< a sentence, cut where it is longer; empty after success
} kelp_bdf_error;

/// A text that belongs to a handle. It may hold NUL bytes; another one always follows it.
typedef struct kelp_bdf_string {
  const char* data;  ///< first byte; never null
  size_t size;       ///< number of bytes, without the NUL byte behind them
} kelp_bdf_string;

/// Bytes of a text, half open.
typedef struct kelp_bdf_range {
  size_t begin;  ///< first byte, counted from 0
  size_t end;    ///< byte behind the last one
} kelp_bdf_range;

/// A position for people.
typedef struct kelp_bdf_position {
  size_t line;    ///< counted from 1
  size_t column;  ///< counted from 1, in the unit that was asked for
} kelp_bdf_position;

/// What a column counts.
enum {
  KELP_BDF_BYTES = 0,        ///< bytes
  KELP_BDF_CODE_POINTS = 1,  ///< Unicode code points
  KELP_BDF_UTF16 = 2         ///< UTF-16 code units
};

/// Names a record of an input, by the numbers that `RecordId` of the C++ interface has.
typedef struct kelp_bdf_record {
  int32_t kind;    ///< 0 for no record
  uint32_t index;  ///< of the token, atom, line, module or statement
  uint32_t entry;  ///< of the entry in its module
  uint32_t child;  ///< of the child in its entry
} kelp_bdf_record;

/// A change of a text: the bytes of a range make way for others.
typedef struct kelp_bdf_text_edit {
  kelp_bdf_range range;  ///< what goes
  kelp_bdf_string text;  ///< what comes in its place
} kelp_bdf_text_edit;

/// Handles.
typedef struct kelp_bdf_schema kelp_bdf_schema;            ///< a vocabulary
typedef struct kelp_bdf_input kelp_bdf_input;              ///< an input with its text
typedef struct kelp_bdf_texts kelp_bdf_texts;              ///< a list of texts
typedef struct kelp_bdf_findings kelp_bdf_findings;        ///< findings of a check
typedef struct kelp_bdf_outline kelp_bdf_outline;          ///< what stands where in an input
typedef struct kelp_bdf_molecule kelp_bdf_molecule;        ///< atoms, charge, multiplicity
typedef struct kelp_bdf_calculation kelp_bdf_calculation;  ///< what an input computes
typedef struct kelp_bdf_edit kelp_bdf_edit;                ///< all that is to be changed
typedef struct kelp_bdf_rewrite kelp_bdf_rewrite;          ///< what became of a change
typedef struct kelp_bdf_sweep kelp_bdf_sweep;              ///< the combinations of several values

// ---- versions

/// Returns the version of the library that is running, "1.2.3".
KELP_BDF_API const char* kelp_bdf_version(void);
/// Returns the version of its interface: 65536 times the major version, plus the minor one.
KELP_BDF_API uint32_t kelp_bdf_interface_version(void);
/// Returns what a status means, in a sentence that lives for ever.
KELP_BDF_API const char* kelp_bdf_status_text(kelp_bdf_status status);
/// Gives the number of handles that are not freed yet, of all kinds and threads.
KELP_BDF_API kelp_bdf_status kelp_bdf_live_handles(size_t* count);

// ---- lists of texts

/// Gives the number of texts.
KELP_BDF_API kelp_bdf_status kelp_bdf_texts_count(const kelp_bdf_texts* texts, size_t* count);
/// Gives a text by its index. It lives as long as the handle.
KELP_BDF_API kelp_bdf_status kelp_bdf_texts_get(const kelp_bdf_texts* texts, size_t index,
                                                kelp_bdf_string* text);
/// Frees the list and its texts.
KELP_BDF_API kelp_bdf_status kelp_bdf_texts_free(kelp_bdf_texts* texts);

// ---- schemas

/// Gives the schema that comes with the library; a null schema means that one wherever a schema is
/// asked for. It is an error when there is none.
KELP_BDF_API kelp_bdf_status kelp_bdf_schema_default(kelp_bdf_schema** schema,
                                                     kelp_bdf_error* error);
/// Reads a schema from a YAML file.
KELP_BDF_API kelp_bdf_status kelp_bdf_schema_read(const char* path, kelp_bdf_schema** schema,
                                                  kelp_bdf_error* error);
/// Makes a schema of a YAML text.
KELP_BDF_API kelp_bdf_status kelp_bdf_schema_parse(const char* yaml, size_t size,
                                                   kelp_bdf_schema** schema, kelp_bdf_error* error);
/// Frees the handle; inputs that were read with the schema keep it.
KELP_BDF_API kelp_bdf_status kelp_bdf_schema_free(kelp_bdf_schema* schema);

/// Lists of names.
enum {
  KELP_BDF_MODULES = 0,         ///< of all modules
  KELP_BDF_ENTRIES = 1,         ///< of the entries of a module: within "scf"
  KELP_BDF_NESTED_ENTRIES = 2,  ///< of the entries of a nested block: within "bdfopt.neb-block"
  KELP_BDF_EASY_KEYWORDS = 3,   ///< of the keywords of the header
  KELP_BDF_METHODS = 4,         ///< of the methods
  KELP_BDF_FUNCTIONALS = 5,     ///< of the functionals
  KELP_BDF_BASIS_SETS = 6       ///< of the basis sets listed
};

/// Gives the names that a schema knows, aliases too, sorted; none within what it does not know.
/// `within` may be null for lists that stand in nothing.
KELP_BDF_API kelp_bdf_status kelp_bdf_names(const kelp_bdf_schema* schema, int32_t list,
                                            const char* within, kelp_bdf_texts** names,
                                            kelp_bdf_error* error);
/// Gives those of the candidates that a name is likely to be a slip of, the nearest first.
KELP_BDF_API kelp_bdf_status kelp_bdf_similar_names(const char* name,
                                                    const kelp_bdf_texts* candidates,
                                                    kelp_bdf_texts** names, kelp_bdf_error* error);

/// A language that a vocabulary has sentences in.
enum {
  KELP_BDF_ENGLISH = 0,  ///< of every vocabulary
  KELP_BDF_CHINESE = 1   ///< simplified
};

/// Gives what there is to say about a code, a path, or a name: an explanation of several lines for
/// each thing that bears the name; none for an unknown one.
KELP_BDF_API kelp_bdf_status kelp_bdf_explain(const kelp_bdf_schema* schema, const char* name,
                                              int32_t language, kelp_bdf_texts** explanations,
                                              kelp_bdf_error* error);
/// Gives the names that `kelp_bdf_explain` knows and that a name is likely to be a slip of.
KELP_BDF_API kelp_bdf_status kelp_bdf_similar_explained(const kelp_bdf_schema* schema,
                                                        const char* name, kelp_bdf_texts** names,
                                                        kelp_bdf_error* error);

// ---- inputs

/// Reads a text. Problems of the input are for `kelp_bdf_check`.
KELP_BDF_API kelp_bdf_status kelp_bdf_input_parse(const char* text, size_t size,
                                                  const kelp_bdf_schema* schema,
                                                  kelp_bdf_input** input, kelp_bdf_error* error);
/// Reads a file. A check of the input then looks at the files beside it, too.
KELP_BDF_API kelp_bdf_status kelp_bdf_input_read(const char* path, const kelp_bdf_schema* schema,
                                                 kelp_bdf_input** input, kelp_bdf_error* error);
/// Frees the input; what was made of it lives on.
KELP_BDF_API kelp_bdf_status kelp_bdf_input_free(kelp_bdf_input* input);

/// Gives the text. It lives as long as the handle.
KELP_BDF_API kelp_bdf_status kelp_bdf_input_text(const kelp_bdf_input* input,
                                                 kelp_bdf_string* text);

/// The layouts of inputs.
enum {
  KELP_BDF_EASY = 0,    ///< a header and a geometry
  KELP_BDF_MODULE = 1,  ///< modules only
  KELP_BDF_MIXED = 2    ///< an easy input followed by modules
};

/// Gives the layout of an input.
KELP_BDF_API kelp_bdf_status kelp_bdf_input_mode(const kelp_bdf_input* input, int32_t* mode);
/// Gives the position of a byte.
KELP_BDF_API kelp_bdf_status kelp_bdf_input_position(const kelp_bdf_input* input, size_t byte,
                                                     int32_t unit, kelp_bdf_position* position);
/// Gives the byte at a position; beyond the end of a line that is the line's end.
KELP_BDF_API kelp_bdf_status kelp_bdf_input_byte(const kelp_bdf_input* input,
                                                 kelp_bdf_position position, int32_t unit,
                                                 size_t* byte);
/// Gives the innermost record at a byte; one of kind 0 where none stands.
KELP_BDF_API kelp_bdf_status kelp_bdf_record_at(const kelp_bdf_input* input, size_t byte,
                                                kelp_bdf_record* record);
/// Gives the first and the last line of a record; 0 for none.
KELP_BDF_API kelp_bdf_status kelp_bdf_record_lines(const kelp_bdf_input* input,
                                                   kelp_bdf_record record, size_t* first,
                                                   size_t* last);
/// Gives the range of all lines of a record; of a word of the header its own.
KELP_BDF_API kelp_bdf_status kelp_bdf_record_range(const kelp_bdf_input* input,
                                                   kelp_bdf_record record, kelp_bdf_range* range);
/// Gives the path of a record, a list of one text, which is empty for what no path names.
KELP_BDF_API kelp_bdf_status kelp_bdf_record_path(const kelp_bdf_input* input,
                                                  kelp_bdf_record record, kelp_bdf_texts** path,
                                                  kelp_bdf_error* error);

// ---- values
//
// Paths are those of the command: "scf.charge", "scf#2.charge", "easy.charge", "geometry".

/// Gives the record at a path; `KELP_BDF_NOT_FOUND` when there is none.
KELP_BDF_API kelp_bdf_status kelp_bdf_find(const kelp_bdf_input* input, const char* path,
                                           kelp_bdf_record* record, kelp_bdf_error* error);
/// Gives the lines of the value at a path, none for a keyword without a value;
/// `KELP_BDF_NOT_FOUND` when there is nothing, or when the path names a module.
KELP_BDF_API kelp_bdf_status kelp_bdf_get(const kelp_bdf_input* input, const char* path,
                                          kelp_bdf_texts** lines, kelp_bdf_error* error);
/// Gives what may have been meant by the first name of a path that the schema does not know.
KELP_BDF_API kelp_bdf_status kelp_bdf_path_hint(const kelp_bdf_schema* schema, const char* path,
                                                kelp_bdf_texts** names, kelp_bdf_error* error);

// ---- findings

/// How grave a finding is.
enum {
  KELP_BDF_SEVERITY_NOTE = 0,     ///< worth knowing
  KELP_BDF_SEVERITY_WARNING = 1,  ///< probably not what was meant
  KELP_BDF_SEVERITY_ERROR = 2     ///< will not run, or not as written
};

/// What is done about names that the schema does not know.
enum {
  KELP_BDF_UNKNOWN_IGNORE = 0,  ///< nothing
  KELP_BDF_UNKNOWN_WARN = 1,    ///< warnings
  KELP_BDF_UNKNOWN_ERROR = 2    ///< errors
};

/// What becomes of the findings that a rule is about.
enum {
  KELP_BDF_ALLOW = 0,  ///< they are left out
  KELP_BDF_WARN = 1,   ///< they are warnings
  KELP_BDF_DENY = 2    ///< they are errors
};

/// A wish about some codes; of several about one code the last counts.
typedef struct kelp_bdf_rule {
  const char* pattern;  ///< a code, or its beginning and an asterisk
  int32_t action;       ///< `KELP_BDF_ALLOW`, `KELP_BDF_WARN` or `KELP_BDF_DENY`
} kelp_bdf_rule;

/// What to look for. Null options are those that the command has without any.
typedef struct kelp_bdf_check_options {
  size_t struct_size;          ///< set to the size of this record
  int32_t unknown;             ///< `KELP_BDF_UNKNOWN_WARN` for example
  int32_t advice;              ///< 0 leaves advice on the calculation as a whole out
  const kelp_bdf_rule* rules;  ///< may be null when there are none
  size_t rule_count;           ///< how many there are
} kelp_bdf_check_options;

/// One finding. Its texts live as long as the handle of the findings.
typedef struct kelp_bdf_finding {
  size_t struct_size;       ///< set to the size of this record
  int32_t severity;         ///< `KELP_BDF_SEVERITY_WARNING` for example
  int32_t has_range;        ///< 0 for a finding about the input as a whole
  kelp_bdf_range range;     ///< what is at fault, in the input's text
  kelp_bdf_position start;  ///< its first byte as line and column, in code points; else 1, 1
  kelp_bdf_position end;    ///< the byte behind it
  kelp_bdf_string code;     ///< stable and dotted, "bdf.unknown_entry"
  kelp_bdf_string message;  ///< an English sentence
  kelp_bdf_string label;    ///< what is wrong about the range; may be empty
  kelp_bdf_string path;     ///< of the record that it is about; may be empty
  kelp_bdf_record record;   ///< that record
  size_t argument_count;    ///< names and values that the message holds
  size_t help_count;        ///< sentences on what to do
  size_t suggestion_count;  ///< names that may have been meant
  size_t related_count;     ///< other parts of the text that matter
  size_t fix_count;         ///< ways to mend it
} kelp_bdf_finding;

/// Another part of the text that matters for a finding.
typedef struct kelp_bdf_related {
  size_t struct_size;       ///< set to the size of this record
  kelp_bdf_range range;     ///< in the same text
  kelp_bdf_string message;  ///< what it has to do with it
} kelp_bdf_related;

/// A way to mend what is wrong.
typedef struct kelp_bdf_fix {
  size_t struct_size;     ///< set to the size of this record
  kelp_bdf_string title;  ///< what it does
  int32_t is_safe;        ///< not 0 when it can be applied unasked
  size_t edit_count;      ///< changes of the text, in its order
} kelp_bdf_fix;

/// Lists of texts that a finding has.
enum {
  KELP_BDF_ARGUMENTS = 0,   ///< names and values that the message holds
  KELP_BDF_HELP = 1,        ///< sentences on what to do
  KELP_BDF_SUGGESTIONS = 2  ///< names that may have been meant, the nearest first
};

/// Gives everything that is to be said about an input, in the order of its text.
KELP_BDF_API kelp_bdf_status kelp_bdf_check(const kelp_bdf_input* input,
                                            const kelp_bdf_check_options* options,
                                            kelp_bdf_findings** findings, kelp_bdf_error* error);
/// Gives the number of findings.
KELP_BDF_API kelp_bdf_status kelp_bdf_findings_count(const kelp_bdf_findings* findings,
                                                     size_t* count);
/// Gives a finding by its index.
KELP_BDF_API kelp_bdf_status kelp_bdf_findings_get(const kelp_bdf_findings* findings, size_t index,
                                                   kelp_bdf_finding* finding);
/// Gives one of the texts of a finding: `list` is `KELP_BDF_HELP` for example.
KELP_BDF_API kelp_bdf_status kelp_bdf_finding_text(const kelp_bdf_findings* findings, size_t index,
                                                   int32_t list, size_t item,
                                                   kelp_bdf_string* text);
/// Gives another part of the text that matters for a finding.
KELP_BDF_API kelp_bdf_status kelp_bdf_finding_related(const kelp_bdf_findings* findings,
                                                      size_t index, size_t item,
                                                      kelp_bdf_related* related);
/// Gives a way to mend what is wrong, the likeliest first.
KELP_BDF_API kelp_bdf_status kelp_bdf_finding_fix(const kelp_bdf_findings* findings, size_t index,
                                                  size_t item, kelp_bdf_fix* fix);
/// Gives a change that a fix makes.
KELP_BDF_API kelp_bdf_status kelp_bdf_finding_edit(const kelp_bdf_findings* findings, size_t index,
                                                   size_t fix, size_t item,
                                                   kelp_bdf_text_edit* edit);
/// Gives a finding as one line, `file:line:column: severity: message [code]`, a list of one text.
KELP_BDF_API kelp_bdf_status kelp_bdf_finding_concise(const kelp_bdf_findings* findings,
                                                      size_t index, const char* file,
                                                      kelp_bdf_texts** line, kelp_bdf_error* error);
/// Frees the findings.
KELP_BDF_API kelp_bdf_status kelp_bdf_findings_free(kelp_bdf_findings* findings);

// ---- outlines

/// What an item of an outline is.
enum {
  KELP_BDF_ITEM_WORD = 0,      ///< a word of the header
  KELP_BDF_ITEM_GEOMETRY = 1,  ///< the atoms
  KELP_BDF_ITEM_MODULE = 2,    ///< a module
  KELP_BDF_ITEM_ENTRY = 3,     ///< an entry of the module before it
  KELP_BDF_ITEM_CHILD = 4      ///< an entry of the nested block before it
};

/// One item of an outline. Its texts live as long as the outline.
typedef struct kelp_bdf_outline_item {
  size_t struct_size;         ///< set to the size of this record
  int32_t kind;               ///< `KELP_BDF_ITEM_ENTRY` for example
  int32_t known;              ///< not 0 when the schema knows it
  kelp_bdf_string name;       ///< canonical; of the geometry its formula
  kelp_bdf_string path;       ///< under which it can be read; may be empty
  kelp_bdf_string summary;    ///< what it does, if the schema says it
  kelp_bdf_record record;     ///< the record
  size_t line;                ///< of its first line
  kelp_bdf_range range;       ///< all its lines; of a word its own
  kelp_bdf_range name_range;  ///< its keyword or header; of a word or the geometry as `range`
  size_t value_count;         ///< lines of its value; of the geometry the number of atoms
} kelp_bdf_outline_item;

/// Gives what stands where: the words of the header, the geometry, each module with its entries
/// behind it.
KELP_BDF_API kelp_bdf_status kelp_bdf_outline_of(const kelp_bdf_input* input, int32_t language,
                                                 kelp_bdf_outline** outline, kelp_bdf_error* error);
/// Gives the number of items.
KELP_BDF_API kelp_bdf_status kelp_bdf_outline_count(const kelp_bdf_outline* outline, size_t* count);
/// Gives an item by its index.
KELP_BDF_API kelp_bdf_status kelp_bdf_outline_get(const kelp_bdf_outline* outline, size_t index,
                                                  kelp_bdf_outline_item* item);
/// Gives a line of the value of an entry or child.
KELP_BDF_API kelp_bdf_status kelp_bdf_outline_value(const kelp_bdf_outline* outline, size_t index,
                                                    size_t line, kelp_bdf_string* text);
/// Frees the outline.
KELP_BDF_API kelp_bdf_status kelp_bdf_outline_free(kelp_bdf_outline* outline);

// ---- molecules

/// What coordinates count.
enum {
  KELP_BDF_ANGSTROM = 0,  ///< what an input without a statement means
  KELP_BDF_BOHR = 1       ///< stated by the input
};

/// A molecule. What it points to lives as long as the handle.
typedef struct kelp_bdf_molecule_info {
  size_t struct_size;         ///< set to the size of this record
  size_t atom_count;          ///< how many atoms
  const double* coordinates;  ///< three for each atom, in `unit`; null without atoms
  int32_t unit;               ///< `KELP_BDF_ANGSTROM` or `KELP_BDF_BOHR`
  int32_t has_charge;         ///< not 0 when the charge is stated as an integer
  int32_t has_multiplicity;   ///< not 0 when the multiplicity is stated as an integer
  int64_t charge;             ///< total charge, in elementary charges
  int64_t multiplicity;       ///< spin multiplicity 2S+1
  kelp_bdf_string formula;    ///< in Hill's order
} kelp_bdf_molecule_info;

/// Gives the molecule of an input, wherever the input states it.
KELP_BDF_API kelp_bdf_status kelp_bdf_molecule_of(const kelp_bdf_input* input,
                                                  kelp_bdf_molecule** molecule,
                                                  kelp_bdf_error* error);
/// Makes a molecule of `count` labels and three times as many coordinates, to be put into an input.
KELP_BDF_API kelp_bdf_status kelp_bdf_molecule_new(const char* const* labels,
                                                   const double* coordinates, size_t count,
                                                   int32_t unit, kelp_bdf_molecule** molecule,
                                                   kelp_bdf_error* error);
/// Reads an XYZ text.
KELP_BDF_API kelp_bdf_status kelp_bdf_molecule_parse_xyz(const char* text, size_t size,
                                                         kelp_bdf_molecule** molecule,
                                                         kelp_bdf_error* error);
/// Gives what a molecule is.
KELP_BDF_API kelp_bdf_status kelp_bdf_molecule_get(const kelp_bdf_molecule* molecule,
                                                   kelp_bdf_molecule_info* info);
/// Gives the label of an atom, as written.
KELP_BDF_API kelp_bdf_status kelp_bdf_molecule_label(const kelp_bdf_molecule* molecule,
                                                     size_t index, kelp_bdf_string* label);
/// Gives the symbol of an atom's element; empty when its label begins with none.
KELP_BDF_API kelp_bdf_status kelp_bdf_molecule_element(const kelp_bdf_molecule* molecule,
                                                       size_t index, kelp_bdf_string* symbol);
/// Gives the molecule as an XYZ text, in angstrom: a list of one text. The comment may be null.
KELP_BDF_API kelp_bdf_status kelp_bdf_molecule_xyz(const kelp_bdf_molecule* molecule,
                                                   const char* comment, kelp_bdf_texts** text,
                                                   kelp_bdf_error* error);
/// Frees the molecule.
KELP_BDF_API kelp_bdf_status kelp_bdf_molecule_free(kelp_bdf_molecule* molecule);

// ---- calculations

/// A number that an input states, or that the program takes without a statement.
typedef struct kelp_bdf_number {
  int32_t is_known;    ///< 0 when it is not certain; then nothing else counts
  int32_t is_default;  ///< not 0 when the input does not state it
  int64_t value;       ///< the number
  size_t line;         ///< where it is stated; 0 for a default
} kelp_bdf_number;

/// One of the molecules of an input.
typedef struct kelp_bdf_system {
  size_t struct_size;       ///< set to the size of this record
  kelp_bdf_string formula;  ///< in Hill's order; empty when it is not certain
  int32_t has_atom_count;   ///< 0 when the number of atoms is not certain
  size_t atom_count;        ///< how many nuclei
  size_t basis_count;       ///< basis sets that are named
  size_t line;              ///< where it begins
} kelp_bdf_system;

/// One SCF calculation.
typedef struct kelp_bdf_scf {
  size_t struct_size;            ///< set to the size of this record
  size_t system;                 ///< index of its molecule
  kelp_bdf_number charge;        ///< total charge
  kelp_bdf_number multiplicity;  ///< spin multiplicity
  int32_t has_electrons;         ///< 0 when their number is not certain
  int64_t electrons;             ///< how many
  kelp_bdf_string reference;     ///< "rhf", "uks"; empty when it is not certain
  kelp_bdf_string functional;    ///< empty without one
  size_t line;                   ///< of the `$scf`, or of what asks for it
} kelp_bdf_scf;

/// Something that is computed.
typedef struct kelp_bdf_task {
  size_t struct_size;    ///< set to the size of this record
  int32_t kind;          ///< the number that `TaskKind` of the C++ interface has
  kelp_bdf_string name;  ///< "SCF", "geometry optimisation"
  size_t system;         ///< index of its molecule
  size_t line;           ///< of the module, or of the word of the header
} kelp_bdf_task;

/// Gives what an input computes. Nothing is guessed.
KELP_BDF_API kelp_bdf_status kelp_bdf_calculation_of(const kelp_bdf_input* input,
                                                     kelp_bdf_calculation** calculation,
                                                     kelp_bdf_error* error);
/// Gives how many molecules, SCF calculations and tasks there are; each pointer may be null.
KELP_BDF_API kelp_bdf_status kelp_bdf_calculation_counts(const kelp_bdf_calculation* calculation,
                                                         size_t* systems, size_t* scfs,
                                                         size_t* tasks);
/// Gives a molecule by its index.
KELP_BDF_API kelp_bdf_status kelp_bdf_calculation_system(const kelp_bdf_calculation* calculation,
                                                         size_t index, kelp_bdf_system* system);
/// Gives the name of a molecule's basis set.
KELP_BDF_API kelp_bdf_status kelp_bdf_calculation_basis(const kelp_bdf_calculation* calculation,
                                                        size_t system, size_t index,
                                                        kelp_bdf_string* name);
/// Gives an SCF calculation by its index.
KELP_BDF_API kelp_bdf_status kelp_bdf_calculation_scf(const kelp_bdf_calculation* calculation,
                                                      size_t index, kelp_bdf_scf* scf);
/// Gives a task by its index, in the order in which they are computed.
KELP_BDF_API kelp_bdf_status kelp_bdf_calculation_task(const kelp_bdf_calculation* calculation,
                                                       size_t index, kelp_bdf_task* task);
/// Frees the calculation.
KELP_BDF_API kelp_bdf_status kelp_bdf_calculation_free(kelp_bdf_calculation* calculation);

// ---- changes

/// Begins a list of changes, an empty one.
KELP_BDF_API kelp_bdf_status kelp_bdf_edit_new(kelp_bdf_edit** edit, kelp_bdf_error* error);
/// Sets the total charge, wherever the input states it.
KELP_BDF_API kelp_bdf_status kelp_bdf_edit_charge(kelp_bdf_edit* edit, int32_t charge);
/// Sets the spin multiplicity 2S+1, wherever the input states it.
KELP_BDF_API kelp_bdf_status kelp_bdf_edit_multiplicity(kelp_bdf_edit* edit, int32_t multiplicity);
/// Sets the name on the line `#!`.
KELP_BDF_API kelp_bdf_status kelp_bdf_edit_script_name(kelp_bdf_edit* edit, const char* name,
                                                       kelp_bdf_error* error);
/// Puts a value at a path; its lines are parted by line feeds. A null value sets a keyword that has
/// none.
KELP_BDF_API kelp_bdf_status kelp_bdf_edit_set(kelp_bdf_edit* edit, const char* path,
                                               const char* value, kelp_bdf_error* error);
/// Takes out what stands at a path.
KELP_BDF_API kelp_bdf_status kelp_bdf_edit_unset(kelp_bdf_edit* edit, const char* path,
                                                 kelp_bdf_error* error);
/// Puts other atoms in the place of those of the input; a null path means the only geometry that
/// there is.
KELP_BDF_API kelp_bdf_status kelp_bdf_edit_geometry(kelp_bdf_edit* edit,
                                                    const kelp_bdf_molecule* molecule,
                                                    const char* path, kelp_bdf_error* error);
/// Says whether names that the schema does not know are written; they are not unless this is asked.
KELP_BDF_API kelp_bdf_status kelp_bdf_edit_allow_unknown(kelp_bdf_edit* edit, int32_t allow);
/// Frees the list of changes.
KELP_BDF_API kelp_bdf_status kelp_bdf_edit_free(kelp_bdf_edit* edit);

/// What became of a change. Its text lives as long as the handle.
typedef struct kelp_bdf_rewrite_info {
  size_t struct_size;    ///< set to the size of this record
  kelp_bdf_string text;  ///< the whole new text
  size_t edit_count;     ///< what leads there
  size_t loss_count;     ///< reasons not to write the text
  size_t note_count;     ///< what went along with the change though nobody asked for it
} kelp_bdf_rewrite_info;

/// Changes an input, which stays as it is; all that the changes are not about is copied byte for
/// byte. `KELP_BDF_REFUSED` when a change cannot be made.
KELP_BDF_API kelp_bdf_status kelp_bdf_input_edit(const kelp_bdf_input* input,
                                                 const kelp_bdf_edit* edit,
                                                 kelp_bdf_rewrite** rewrite, kelp_bdf_error* error);
/// Lays an input out.
KELP_BDF_API kelp_bdf_status kelp_bdf_input_format(const kelp_bdf_input* input,
                                                   kelp_bdf_rewrite** rewrite,
                                                   kelp_bdf_error* error);
/// Gives what became of a change.
KELP_BDF_API kelp_bdf_status kelp_bdf_rewrite_get(const kelp_bdf_rewrite* rewrite,
                                                  kelp_bdf_rewrite_info* info);
/// Gives one of the edits of the text.
KELP_BDF_API kelp_bdf_status kelp_bdf_rewrite_edit(const kelp_bdf_rewrite* rewrite, size_t index,
                                                   kelp_bdf_text_edit* edit);
/// Gives one of the notes.
KELP_BDF_API kelp_bdf_status kelp_bdf_rewrite_note(const kelp_bdf_rewrite* rewrite, size_t index,
                                                   kelp_bdf_string* note);
/// Gives the reasons not to write the text, as findings about the new text.
KELP_BDF_API kelp_bdf_status kelp_bdf_rewrite_losses(const kelp_bdf_rewrite* rewrite,
                                                     kelp_bdf_findings** losses,
                                                     kelp_bdf_error* error);
/// Frees the result of a change.
KELP_BDF_API kelp_bdf_status kelp_bdf_rewrite_free(kelp_bdf_rewrite* rewrite);

// ---- sweeps (since 1.1)

/// Names all combinations of several values, for a file of each. An axis is a text
/// `PATH=VALUE,VALUE,...`; a comma within parentheses or behind a backslash belongs to its value.
/// In the pattern `{scf.dft}` or `{dft}` stands for the value at that path and `{#}` for the number
/// of the combination. The values of the last axis change fastest. `KELP_BDF_REFUSED` when two
/// would have one name, or a name leads out of the folder. A null schema is that of the library.
KELP_BDF_API kelp_bdf_status kelp_bdf_sweep_plan(const char* const* axes, size_t axis_count,
                                                 const char* name_pattern,
                                                 const kelp_bdf_schema* schema,
                                                 kelp_bdf_sweep** sweep, kelp_bdf_error* error);
/// Tells how many combinations there are.
KELP_BDF_API kelp_bdf_status kelp_bdf_sweep_count(const kelp_bdf_sweep* sweep, size_t* count);
/// Gives the name of a combination's file by its index, relative to the folder of them all.
KELP_BDF_API kelp_bdf_status kelp_bdf_sweep_name(const kelp_bdf_sweep* sweep, size_t index,
                                                 kelp_bdf_string* name);
/// Gives what makes a combination of an input, a new list of changes for `kelp_bdf_input_edit`.
KELP_BDF_API kelp_bdf_status kelp_bdf_sweep_edit(const kelp_bdf_sweep* sweep, size_t index,
                                                 kelp_bdf_edit** edit, kelp_bdf_error* error);
/// Frees the combinations.
KELP_BDF_API kelp_bdf_status kelp_bdf_sweep_free(kelp_bdf_sweep* sweep);

// ---- texts and files

/// Gives an input in the one canonical layout, a list of one text.
KELP_BDF_API kelp_bdf_status kelp_bdf_render(const kelp_bdf_input* input, kelp_bdf_texts** text,
                                             kelp_bdf_error* error);
/// Writes a text over a file, as a whole or not at all.
KELP_BDF_API kelp_bdf_status kelp_bdf_write_file(const char* path, const char* text, size_t size,
                                                 kelp_bdf_error* error);
/// The same for a file that was read: it must still hold the old text, or it is left as it is, with
/// `KELP_BDF_FILE_CHANGED`.
KELP_BDF_API kelp_bdf_status kelp_bdf_replace_file(const char* path, const char* old_text,
                                                   size_t old_size, const char* new_text,
                                                   size_t new_size, kelp_bdf_error* error);

#ifdef __cplusplus
}
#endif

#endif
