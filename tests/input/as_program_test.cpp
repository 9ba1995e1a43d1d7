// An input is read as the program reads it, where the parser of documents goes by the letter.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "input/roles.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  const char* what;
  std::string text;
  std::string roles;  ///< of its lines
  std::string told;   ///< see `Teller`
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what << " in\n" << row.text;
}

/// Writes down what a document holds and where it stands, a line for each record. Values are those
/// of the document in brackets, then line and text of their ranges.
class Teller {
 public:
  explicit Teller(const ParsedInput& input) : input_(input) {}

  std::string run() {
    const BDFData& data = input_.data();
    for (const std::string& line : data.leading_lines) {
      told_ += "comment [" + line + "]\n";
    }
    for (std::size_t i = 0; i < data.easy_tokens.size(); ++i) {
      tell_token(i);
    }
    if (data.has_geometry) {
      tell_end("geometry of " + std::to_string(data.atoms.size()),
               RecordId::of(RecordKind::Geometry, 0));
    }
    for (std::size_t i = 0; i < data.modules.size(); ++i) {
      tell_end("module " + data.modules[i].name, RecordId::of_module(i));
      const auto& entries = data.modules[i].entries;
      for (std::size_t j = 0; j < entries.size(); ++j) {
        tell_entry(entries[j], RecordId::of_entry(i, j));
        for (std::size_t k = 0; k < entries[j].children.size(); ++k) {
          tell_entry(entries[j].children[k], RecordId::of_child(i, j, k));
        }
      }
    }
    return told_;
  }

 private:
  std::string text_of(const TextRange& range) const {
    return "'" + std::string(input_.source().text_of(range)) + "'";
  }

  void tell_token(std::size_t index) {
    const TokenRanges ranges = input_.token_ranges(index);
    told_ += "token [" + input_.data().easy_tokens[index].text + "] " + text_of(ranges.whole) +
             " key " + text_of(ranges.key) + " value " + text_of(ranges.value) + "\n";
  }

  void tell_end(const std::string& what, const RecordId& record) {
    told_ += what + " " + text_of(input_.keyword_range(record)) + " ends on " +
             std::to_string(input_.end_line(record)) + "\n";
  }

  void tell_entry(const ModuleEntry& entry, const RecordId& record) {
    told_ += entry.name + " " + text_of(input_.keyword_range(record));
    for (std::size_t i = 0; i < entry.values.size(); ++i) {
      told_ += " [" + entry.values[i] + "] " + std::to_string(input_.value_line(record, i)) + " " +
               text_of(input_.value_range(record, i));
    }
    if (const std::size_t end = input_.end_line(record); end != 0) {
      told_ += " ends on " + std::to_string(end);
    }
    told_ += "\n";
  }

  const ParsedInput& input_;
  std::string told_;
};

class AsProgram : public ::testing::TestWithParam<Row> {};

TEST_P(AsProgram, ReadsAText) {
  const ParsedInput input(GetParam().text, shipped_schema());
  EXPECT_EQ(roles_of(input), GetParam().roles);
  EXPECT_EQ(Teller(input).run(), GetParam().told);
}

const Row frame_rows[] = {
    {"a byte order mark", "\xEF\xBB\xBF$scf\nrhf\n$end\n", "MkE",
     "module scf '$scf' ends on 3\n"
     "rhf 'rhf'\n"},
    {"comments behind a module's name and its end", "$scf # a\nrhf # b\n$end # x\n$SCF#c\n$end#d\n",
     "MkEME",
     "module scf '$scf' ends on 3\n"
     "rhf 'rhf'\n"
     "module scf '$SCF' ends on 5\n"},
    {"a comment behind a terminator",
     "$compass\ngeometry # g\n Ne 0 0 0 # a\nend geometry # y\n$end\n", "MkvbE",
     "module compass '$compass' ends on 5\n"
     "geometry 'geometry' [ Ne 0 0 0 # a] 3 'Ne 0 0 0' ends on 4\n"},
    {"a comment behind the end of a block of entries",
     "$bdfopt\nneb-block # b\n crude # c\nEnd  Neb # e\nend neb # e\n$end\n", "MkkubE",
     "module bdfopt '$bdfopt' ends on 6\n"
     "neb-block 'neb-block' ends on 5\n"
     "crude 'crude'\n"
     "end 'End'\n"},
    {"comments of a header",
     "# a\nhf/sto-3g # charge=2\n* b\ncharge=1# c\nGeometry # g\nNe 0 0 0 # "
     "n\nEnd Geometry # e\n",
     "#h#hGag",
     "comment [# a]\n"
     "comment [* b]\n"
     "token [hf/sto-3g] 'hf/sto-3g' key 'hf/sto-3g' value ''\n"
     "token [charge=1] 'charge=1' key 'charge' value '1'\n"
     "geometry of 1 'Geometry' ends on 7\n"},
};

const Row star_rows[] = {
    {"a comment with a star before a value", "$scf\nmaxiter\n* c\n 50\n* d\n$end\n", "Mk#v#E",
     "module scf '$scf' ends on 6\n"
     "maxiter 'maxiter' [#* c] 3 '' [ 50] 4 '50'\n"
     "* '*'\n"},
    {"a count behind its keyword", "$compass\natommass 1 # n\n* c\n 1 18\n$end\n", "Mk#vE",
     "module compass '$compass' ends on 5\n"
     "atommass 'atommass' [1] 2 '1' [#* c] 3 '' [ 1 18] 4 '1 18'\n"},
};

const Row token_rows[] = {
    {"a keyword and its value on a line", "hf/sto-3g\n charge  1 # c\n", "hh",
     "token [hf/sto-3g] 'hf/sto-3g' key 'hf/sto-3g' value ''\n"
     "token [charge=1] 'charge  1' key 'charge' value '1'\n"},
    {"keywords and values among others", "charge -1 hf/sto-3g spinmulti 2 nosymm\n", "h",
     "token [charge=-1] 'charge -1' key 'charge' value '-1'\n"
     "token [hf/sto-3g] 'hf/sto-3g' key 'hf/sto-3g' value ''\n"
     "token [spinmulti=2] 'spinmulti 2' key 'spinmulti' value '2'\n"
     "token [nosymm] 'nosymm' key 'nosymm' value ''\n"},
    {"a keyword that has its value, or none", "charge=1 2\ncharge spinmulti=2\n", "hh",
     "token [charge=1] 'charge=1' key 'charge' value '1'\n"
     "token [2] '2' key '2' value ''\n"
     "token [charge] 'charge' key 'charge' value ''\n"
     "token [spinmulti=2] 'spinmulti=2' key 'spinmulti' value '2'\n"},
};

const Row value_rows[] = {
    {"a value on the keyword's line", "$tddft\n iroot  -4  # c\n$end\n", "MkE",
     "module tddft '$tddft' ends on 3\n"
     "iroot 'iroot' [-4] 2 '-4'\n"},
    {"a value on the keyword's line before the next keyword", "$scf\ncharge 1\nspinmulti 2\n",
     "Mkk",
     "module scf '$scf' ends on 0\n"
     "charge 'charge' [1] 2 '1'\n"
     "spinmulti 'spinmulti' [2] 3 '2'\n"},
    {"words on the keyword's line and a value below", "$scf\ndft functional\n b3lyp\n$end\n",
     "MkvE",
     "module scf '$scf' ends on 4\n"
     "dft 'dft' [ b3lyp] 3 'b3lyp'\n"},
    {"a number on the keyword's line and a word below", "$scf\nmaxiter 200\nmolde\n$end\n", "MkuE",
     "module scf '$scf' ends on 4\n"
     "maxiter 'maxiter' [200] 2 '200'\n"
     "molde 'molde'\n"},
    {"numbers on the keyword's line and below", "$scf\nmaxiter 200\n 100\n$end\n", "MkvE",
     "module scf '$scf' ends on 4\n"
     "maxiter 'maxiter' [ 100] 3 '100'\n"},
    {"a word on the keyword's line and below", "$scf\nmaxiter many\nmolde\n$end\n", "MkvE",
     "module scf '$scf' ends on 4\n"
     "maxiter 'maxiter' [molde] 3 'molde'\n"},
    {"a keyword that takes no value", "$scf\nrhf 1\n$end\n", "MkE",
     "module scf '$scf' ends on 3\n"
     "rhf 'rhf'\n"},
    {"comments and blank lines between keyword and value",
     "$scf\ncharge # a\n# b\n\n 1 # c\n# d\nrhf\n$end\n", "Mkvvv#kE",
     "module scf '$scf' ends on 8\n"
     "charge 'charge' [# b] 3 '' [] 4 '' [ 1 # c] 5 '1'\n"
     "# '#'\n"
     "rhf 'rhf'\n"},
    {"comments and blank lines instead of a value", "$scf\ncharge\n# b\n\nrhf\n$end\n", "Mk# kE",
     "module scf '$scf' ends on 6\n"
     "charge 'charge'\n"
     "# '#'\n"
     " ''\n"
     "rhf 'rhf'\n"},
    {"comments behind a value on the keyword's line", "$scf\ncharge 1 # a\n# b\n\nrhf\n$end\n",
     "Mk# kE",
     "module scf '$scf' ends on 6\n"
     "charge 'charge' [1] 2 '1'\n"
     "# '#'\n"
     " ''\n"
     "rhf 'rhf'\n"},
    {"a comment glued to a keyword and to a value", "$scf\ncharge#a\n1#b\n$end\n", "MkvE",
     "module scf '$scf' ends on 4\n"
     "charge 'charge' [1#b] 3 '1'\n"},
    {"rows that are counted, with comments between them",
     "$compass\natommass\n2 # rows\n# first\n1 2.0\n\n2 3.0 # last\nnosymm\n$end\n", "MkvvvvvkE",
     "module compass '$compass' ends on 9\n"
     "atommass 'atommass' [2 # rows] 3 '2' [# first] 4 '' [1 2.0] 5 '1 2.0' [] 6 '' "
     "[2 3.0 # last] 7 '2 3.0'\n"
     "nosymm 'nosymm'\n"},
    {"a value on the line of a block's keyword", "$bdfopt\nneb-block\n nimage 4\nend neb\n$end\n",
     "MkkbE",
     "module bdfopt '$bdfopt' ends on 5\n"
     "neb-block 'neb-block' ends on 4\n"
     "nimage 'nimage' [4] 3 '4'\n"},
    {"no value before the end of a block", "$bdfopt\nneb-block\n nimage\nend neb\n$end\n", "MkkbE",
     "module bdfopt '$bdfopt' ends on 5\n"
     "neb-block 'neb-block' ends on 4\n"
     "nimage 'nimage'\n"},
};

const Row title_rows[] = {
    {"words of a title behind the keyword of a block",
     "$compass\ntitle\ngeometry optimization of water\nbasis\n sto-3g\ngeometry\n Ne 0 0 0\n"
     "end geometry\n$end\n",
     "MkvkvkvbE",
     "module compass '$compass' ends on 9\n"
     "title 'title' [geometry optimization of water] 3 'geometry optimization of water'\n"
     "basis 'basis' [ sto-3g] 5 'sto-3g'\n"
     "geometry 'geometry' [ Ne 0 0 0] 7 'Ne 0 0 0' ends on 8\n"},
    {"words of a title behind a keyword with a value",
     "$compass\ntitle # t\n\nbasis set test # t\nnosymm\n$end\n", "MkvvkE",
     "module compass '$compass' ends on 6\n"
     "title 'title' [] 3 '' [basis set test # t] 4 'basis set test'\n"
     "nosymm 'nosymm'\n"},
    {"words of a title behind a flag", "$compass\ntitle\nnosymm run\n$end\n", "MkvE",
     "module compass '$compass' ends on 4\n"
     "title 'title' [nosymm run] 3 'nosymm run'\n"},
    {"a keyword instead of a title", "$compass\ntitle\nbasis\n sto-3g\n$end\n", "MkkvE",
     "module compass '$compass' ends on 5\n"
     "title 'title'\n"
     "basis 'basis' [ sto-3g] 4 'sto-3g'\n"},
    {"a keyword with its value instead of a title", "$compass\ntitle\nbasis sto-3g\n$end\n", "MkkE",
     "module compass '$compass' ends on 4\n"
     "title 'title'\n"
     "basis 'basis' [sto-3g] 3 'sto-3g'\n"},
    {"a block with its lines instead of a title",
     "$compass\ntitle\ngeometry in bohr\n Ne 0 0 0\nend geometry\n$end\n", "MkkvbE",
     "module compass '$compass' ends on 6\n"
     "title 'title'\n"
     "geometry 'geometry' [ Ne 0 0 0] 4 'Ne 0 0 0' ends on 5\n"},
    {"a title on the line of its keyword", "$compass\ntitle neon\nunit cell of ice\n$end\n", "MkkE",
     "module compass '$compass' ends on 4\n"
     "title 'title' [neon] 2 'neon'\n"
     "unit 'unit' [cell of ice] 3 'cell of ice'\n"},
};

INSTANTIATE_TEST_SUITE_P(Titles, AsProgram, ::testing::ValuesIn(title_rows));
INSTANTIATE_TEST_SUITE_P(Stars, AsProgram, ::testing::ValuesIn(star_rows));
INSTANTIATE_TEST_SUITE_P(Frame, AsProgram, ::testing::ValuesIn(frame_rows));
INSTANTIATE_TEST_SUITE_P(Tokens, AsProgram, ::testing::ValuesIn(token_rows));
INSTANTIATE_TEST_SUITE_P(Values, AsProgram, ::testing::ValuesIn(value_rows));

TEST(TheParserOfDocuments, GoesByTheLetter) {
  const BDFData data = BDFParser::parse_string(
                           "hf/sto-3g charge 1 # c\n$scf # a\n$end # b\n$end\n"
                           "$bdfopt\nreadhess # d\nneb-block\nnimage 4\nend neb\n$end\n",
                           shipped_schema(), ParseOptions{})
                           .data;
  EXPECT_EQ(data.easy_tokens.size(), 5U);
  ASSERT_EQ(data.modules.size(), 3U);
  EXPECT_EQ(data.modules[0].name, "scf # a");
  EXPECT_EQ(data.modules[1].name, "end # b");
  ASSERT_EQ(data.modules[2].entries.size(), 2U);
  EXPECT_FALSE(data.modules[2].entries[1].terminated);
  EXPECT_THAT(data.modules[2].entries[1].children.at(0).values, ::testing::ElementsAre("end neb"));
}

}  // namespace
}  // namespace kelp::input::bdf
