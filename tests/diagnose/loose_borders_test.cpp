// Borders that are read generously, and told of.

#include <ostream>

#include "diagnose/diagnosing.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

struct Row {
  const char* what;
  std::string input;
  std::string found;  ///< severity, code, place; empty for nothing
  std::string fixed;  ///< the text after its fix; empty without one
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.what;
}

class LooseBorders : public ::testing::TestWithParam<Row> {};

TEST_P(LooseBorders, AreToldOfAndMended) {
  const ParsedInput input(GetParam().input, shipped_schema());
  std::string found;
  std::string fixed;
  DiagnoseOptions options;
  options.advice = false;
  for (const Diagnostic& diagnostic : diagnose(input, options)) {
    found += std::string(to_string(diagnostic.severity)) + " " + diagnostic.code + " " +
             place_of(diagnostic.range.value(), input.source());
    for (const Fix& fix : diagnostic.fixes) {
      EXPECT_TRUE(fix.is_safe);
      fixed += apply_edits(GetParam().input, fix.edits);
      EXPECT_THAT(texts_of(ParsedInput(fixed, shipped_schema())), testing::IsEmpty());
    }
  }
  EXPECT_EQ(found, GetParam().found);
  EXPECT_EQ(fixed, GetParam().fixed);
}

const std::string header = "#! a\nhf/sto-3g\nGeometry\n O 0 0 0\n";
const std::string compass = "$compass\nnfragment\n 1\n$end\n&database\nfragment 1 2\n1 2\n";

const Row rows[] = {
    {"a blank behind the dollar", "$ scf # c\nrhf\n$end\n",
     "warning frame.spaced_header 1:1 '$ scf'", "$scf # c\nrhf\n$end\n"},
    {"two dollars", "$localmo\n$end\n$$SCF\nrhf\n$end\n", "warning frame.spaced_header 3:1 '$$SCF'",
     "$localmo\n$end\n$SCF\nrhf\n$end\n"},
    {"a blank before the dollar", " $scf\nrhf\n$end\n", "", ""},
    {"a period behind the end of the geometry", header + "End geometry.\n",
     "error frame.misspelt_terminator 5:1 'End geometry.'", header + "End Geometry\n"},
    {"words behind the end of the geometry", header + "end geometry ! water\n",
     "warning frame.misspelt_terminator 5:1 'end geometry ! water'", header + "End Geometry\n"},
    {"capital letters, and a comment", header + " END geometry  # water\n", "", ""},
    {"the end of a database", compass + "&END # c\n", "", ""},
    {"a misspelt end of a database", compass + "&edn\n",
     "warning frame.missing_database_end 8:1 '&edn'", compass + "&end\n"},
    {"the end of a module for that of a database", compass + " $end\n",
     "warning frame.missing_database_end 8:2 '$end'", compass + " &end\n"},
    {"the end that other programs have", compass + "/\n",
     "warning frame.missing_database_end 8:1 '/'", compass + "&end\n"},
    {"no end of a database", compass, "warning frame.missing_database_end 5:1 '&database'", ""},
    {"a module in a database", compass + "$scf\nrhf\n$end\n",
     "warning frame.missing_database_end 5:1 '&database'", ""},
    {"dots in a database", compass + "...\n", "", ""},
    {"the end of a setting that has no begin", header + "End Geometry\n$scf\n$end\nEnd Setting\n",
     "warning frame.missing_setting_begin 8:1 'End Setting'", ""},
    {"an excerpt of a setting", "$scf\nrhf\n$end\nEnd Setting\n", "", ""},
    {"dots before the end of a setting", header + "End Geometry\n...\n$scf\n$end\nEnd Setting\n",
     "", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, LooseBorders, ::testing::ValuesIn(rows));

}  // namespace
}  // namespace kelp::input::bdf
