// What the canonical form would not carry is told, with its place, and stops the writing.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct Row {
  const char* what;
  const char* text;
  const char* findings;  ///< in the concise form
};

const Row rows[] = {
    {"a remark behind a keyword", "$scf\ncharge # of the ion\n1\n$end\n",
     "a.inp:2:8: error: The canonical form does not carry the remark behind 'charge'. "
     "[bdf.format_loss]\n"},
    {"a value behind a keyword", "$scf\ncharge 1\n1\n$end\n",
     "a.inp:2:8: error: The canonical form does not carry the value behind 'charge'. "
     "[bdf.format_loss]\n"},
    {"a remark on the line that ends a module", "$scf\nrhf\n$end # done\n$mp2\n$end\n",
     "a.inp:3:6: error: A '$end' with more on its line begins a module; the canonical form would "
     "add the missing '$end'. [bdf.format_addition]\n"},
    {"words behind Geometry and End Geometry",
     "hf/sto-3g\nGeometry # bohr\nHe 0 0 0\nEnd Geometry of helium\n",
     "a.inp:2:10: error: The canonical form does not carry the remark behind 'Geometry'. "
     "[bdf.format_loss]\n"
     "a.inp:4:14: error: The canonical form does not carry the text behind 'End Geometry'. "
     "[bdf.format_loss]\n"},
    {"what follows an atom's coordinates",
     "hf/sto-3g\nGeometry\nHe 0 0 0 # centre\nNe 0 0 5.5 1 x\nEnd Geometry\n",
     "a.inp:3:10: error: The canonical form does not carry the remark behind '0'. "
     "[bdf.format_loss]\n"
     "a.inp:4:12: error: The canonical form does not carry the text behind '5.5'. "
     "[bdf.format_loss]\n"},
    {"more decimals than ten",
     "hf/sto-3g\nGeometry\nHe 0.12345678901 1d-11 0.1234567890000\nEnd Geometry\n",
     "a.inp:3:4: error: The canonical form writes ten decimals; '0.12345678901' has more. "
     "[bdf.format_loss]\n"
     "a.inp:3:18: error: The canonical form writes ten decimals; '1d-11' has more. "
     "[bdf.format_loss]\n"},
    {"a line between atoms",
     "hf/sto-3g\nGeometry\nHe 0 0 0\n# far away\nNe 0 0 9\n# end\nEnd Geometry\n",
     "a.inp:4:1: error: The canonical form has all atoms before the other lines of the geometry. "
     "[bdf.format_move]\n"},
    {"a comment before the script line",
     "# mine\n#!run.sh\n# kept\nhf/sto-3g\nGeometry\nHe 0 0 0\nEnd Geometry\n",
     "a.inp:1:1: error: The canonical form has all comments between the line '#!' and the header. "
     "[bdf.format_move]\n"},
    {"a comment behind the header", "hf/sto-3g\n# on the atoms\nGeometry\nHe 0 0 0\nEnd Geometry\n",
     "a.inp:2:1: error: The canonical form has all comments between the line '#!' and the header. "
     "[bdf.format_move]\n"},
    {"a remark glued to a word of the header",
     "hf/sto-3g charge=1#ion\nGeometry\nHe 0 0 0\nEnd Geometry\n",
     "a.inp:1:19: error: The canonical form does not carry the remark behind 'charge=1'. "
     "[bdf.format_loss]\n"},
    {"a remark that would swallow the next line of the header",
     "hf/sto-3g # note\ncharge=1\nGeometry\nHe 0 0 0\nEnd Geometry\n",
     "a.inp:2:1: error: The canonical form does not carry 'charge=1'. [bdf.format_loss]\n"},
    {"a remark of the header in capitals",
     "hf/sto-3g # Note WELL\nGeometry\nHe 0 0 0\nEnd Geometry\n",
     "a.inp:1:13: error: The canonical form does not carry 'Note WELL'. [bdf.format_loss]\n"},
    {"words that join when their lines do",
     "hf/sto-3g charge=\n1\nGeometry\nHe 0 0 0\nEnd Geometry\n",
     "a.inp:1:11: error: The canonical form does not carry 'charge='. [bdf.format_loss]\n"
     "a.inp:2:1: error: The canonical form does not carry '1'. [bdf.format_loss]\n"},
    {"an unknown word whose case may matter",
     "hf/sto-3g File=Water.XYZ\nGeometry\nHe 0 0 0\nEnd Geometry\n",
     "a.inp:1:11: error: The canonical form writes 'File=Water.XYZ' as 'file=water.xyz'. "
     "[bdf.format_loss]\n"},
    {"an unknown basis set whose case may matter", "hf/MyBasis\nGeometry\nHe 0 0 0\nEnd Geometry\n",
     "a.inp:1:1: error: The canonical form writes 'hf/MyBasis' as 'hf/mybasis'. "
     "[bdf.format_loss]\n"},
    {"a geometry without an end", "hf/sto-3g\nGeometry\nHe 0 0 0\n$scf\nrhf\n$end\n",
     "a.inp:2:1: error: The canonical form would close this block behind all that follows it. "
     "[bdf.format_addition]\n"},
    {"a block without an end", "$compass\ngeometry\nHe 0 0 0\nbasis\nsto-3g\n$end\n",
     "a.inp:2:1: error: The canonical form would close this block behind all that follows it. "
     "[bdf.format_addition]\n"},
    {"a text that is no input", "\nDear reader,\nthis is a letter.\n",
     "a.inp:2:1: error: The canonical form writes 'Dear' as 'dear'. [bdf.format_loss]\n"
     "a.inp:2:1: error: The input has no geometry block; the canonical form would add an empty "
     "one. "
     "[bdf.format_addition]\n"},
};

std::string findings_in(const std::string& errors) {
  std::string findings;
  for (std::size_t begin = 0; begin < errors.size();) {
    const std::size_t end = errors.find('\n', begin) + 1;
    const std::string line = errors.substr(begin, end - begin);
    if (line.rfind("kelp-bdf:", 0) != 0) {
      findings += line;
    }
    begin = end;
  }
  return findings;
}

TEST(FormatDepartures, AreReportedWithTheirPlaces) {
  for (const Row& row : rows) {
    Program program;
    program.write("a.inp", row.text);
    const Outcome outcome = program.run({"format", "--format", "concise", "a.inp"});
    EXPECT_EQ(outcome.status, 2) << row.what;
    EXPECT_EQ(outcome.out, "") << row.what;
    EXPECT_EQ(findings_in(outcome.err), row.findings) << row.what;
    EXPECT_THAT(outcome.err, HasSubstr("kelp-bdf: 'a.inp' is left as it is; --force writes it all "
                                       "the same\n"));
  }
}

TEST(FormatDepartures, LeaveTheFileAsItIs) {
  for (const Row& row : rows) {
    Program program;
    program.write("a.inp", row.text);
    for (const char* const option : {"-i", "--diff"}) {
      const Outcome outcome = program.run({"format", option, "a.inp"});
      EXPECT_EQ(outcome.status, 2) << row.what;
      EXPECT_EQ(outcome.out, "") << row.what;
    }
    EXPECT_EQ(program.read("a.inp"), row.text) << row.what;
  }
}

TEST(FormatDepartures, AreWarningsWhenForced) {
  Program program;
  program.write("a.inp", "$scf\ncharge # of the ion\n1\n$end\n");
  const Outcome outcome = program.run({"format", "--force", "-i", "--format", "concise", "a.inp"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "a.inp:2:8: warning: The canonical form does not carry the remark behind 'charge'. "
            "[bdf.format_loss]\n");
  EXPECT_EQ(program.read("a.inp"), "$scf\n  charge\n    1\n$end\n");
}

TEST(FormatDepartures, AreShownAsPeopleLikeToReadThem) {
  Program program;
  program.write("a.inp", "$scf\ncharge # of the ion\n1\n$end\n");
  EXPECT_EQ(program.run({"format", "a.inp"}).err,
            "error[bdf.format_loss]: The canonical form does not carry the remark behind "
            "'charge'.\n"
            " --> a.inp:2:8\n"
            "  |\n"
            "2 | charge # of the ion\n"
            "  |        ^^^^^^^^^^^^ would be lost\n"
            "  = help: put it on a line of its own\n"
            "\n"
            "kelp-bdf: 'a.inp' is left as it is; --force writes it all the same\n");
}

TEST(FormatDepartures, AreNotMentionedWhenQuiet) {
  Program program;
  program.write("a.inp", "$scf\ncharge # of the ion\n1\n$end\n");
  const Outcome outcome = program.run({"format", "-q", "a.inp"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.out + outcome.err, IsEmpty());
}

TEST(FormatDepartures, OfOneFileDoNotStopTheNext) {
  Program program;
  program.write("a.inp", "$scf\ncharge # of the ion\n1\n$end\n");
  program.write("b.inp", "$scf\nrhf\n$end\n");
  const Outcome outcome = program.run({"format", "-i", "a.inp", "b.inp"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(program.read("b.inp"), "$scf\n  rhf\n$end\n");
}

}  // namespace
}  // namespace kelp::test
