#include <array>

#include "explain/finding_tables.hpp"

namespace kelp::input::bdf {

namespace {

constexpr auto note = Severity::Note;

constexpr auto texts = std::to_array<FindingText>({
    {"comment.invalid_directive",
     "A comment that begins with 'kelp-bdf:' is no directive, or one that names no code.",
     "A slip in the word behind the colon, or a colon that is missing.",
     "Write 'allow CODE' or 'allow-file CODE' behind the colon; begin another comment with another "
     "word.",
     "# kelp-bdf: alow bdf.unknown_entry\n$scf\nrhf\n$end\n", "# of neon\n$scf\nrhf\n$end\n"},
    {"comment.unknown_code", "A comment allows a finding that does not exist.",
     "A slip in the code; 'kelp-bdf check --list-codes' lists all.",
     "Correct the code; a '*' at its end stands for anything.",
     "# kelp-bdf: allow bdf.unknown_entry, bdf.unknown_modul\n$scf\nspinmlti\n  2\n$end\n",
     "# kelp-bdf: allow bdf.unknown_entry\n$scf\nspinmlti\n  2\n$end\n"},
    {"comment.unused_allowance", "A comment allows a finding that is not there.",
     "What it was written for has been corrected, or stands elsewhere: a comment on a line of its "
     "own is about what begins on the next line, one behind a line about that line.",
     "Remove the comment, or put it where the finding is.",
     "$scf\n# kelp-bdf: allow bdf.unknown_entry\nrhf\n$end\n", "$scf\nrhf\n$end\n", note},
});

}  // namespace

std::span<const FindingText> comment_finding_texts() {
  return texts;
}

}  // namespace kelp::input::bdf
