#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor_fixture.hpp"

namespace kelp::input::bdf {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SideStatements, LandAfterEverythingThatIsThereAlready) {
  BDFData data = document_of({"compass", "scf"});
  data.free_lines = {"free"};
  BDFEditor editor(std::move(data), small_schema());
  editor.append_database_statement({"&database", "x", "&end"});
  EXPECT_EQ(editor.render(), "$compass\n$end\n$scf\n$end\nfree\n&database\nx\n&end\n");
  editor.append_shell_statement("%date");
  editor.append_raw_statement({"one", "two"});
  EXPECT_THAT(order_of(editor.data()),
              ElementsAre("0", "1", "raw(free)", "database(&database|x|&end)", "shell(%date)",
                          "raw(one|two)"));
}

TEST(SideStatements, CreateTheStatementOrderFirstWhenThereIsNone) {
  BDFData data;
  data.free_lines = {"free"};
  data.statements = {module_statement(0)};
  for (const int which : {0, 1, 2}) {
    BDFEditor editor(data, small_schema());
    editor.rebuild_statement_module_indices_after_erase(0);
    ASSERT_THAT(editor.data().statements, IsEmpty());
    if (which == 0) {
      editor.append_shell_statement("new");
    } else if (which == 1) {
      editor.append_database_statement({"new"});
    } else {
      editor.append_raw_statement({"new"});
    }
    const char* const expected[] = {"shell(new)", "database(new)", "raw(new)"};
    EXPECT_THAT(order_of(editor.data()), ElementsAre("raw(free)", expected[which]));
  }
}

TEST(SideStatements, AreStoredExactlyAsGiven) {
  BDFEditor editor({}, small_schema());
  editor.append_shell_statement("  no percent sign ");
  editor.append_database_statement({"", " no frame\t"});
  editor.append_raw_statement({});
  const std::vector<Statement>& statements = editor.data().statements;
  ASSERT_EQ(statements.size(), 3U);
  EXPECT_THAT(statements[0].lines, ElementsAre("  no percent sign "));
  EXPECT_THAT(statements[1].lines, ElementsAre("", " no frame\t"));
  EXPECT_THAT(statements[2].lines, IsEmpty());
  for (const Statement& statement : statements) {
    EXPECT_EQ(statement.module_index, Statement::no_module);
    EXPECT_FALSE(statement.location);
  }
}

TEST(SideStatements, AreNotAddedToTheFreeLines) {
  BDFEditor editor({}, small_schema());
  editor.append_shell_statement("%date");
  EXPECT_THAT(editor.data().free_lines, IsEmpty());
}

TEST(SideStatements, AreFollowedByModulesAppendedLater) {
  BDFEditor editor(document_of({"compass"}), small_schema());
  editor.append_raw_statement({"between"});
  editor.append_module("scf");
  EXPECT_EQ(editor.render(), "$compass\n$end\nbetween\n$scf\n$end\n");
}

TEST(SideStatements, OfAnEasyInputFollowTheGeometryAndAnEmptyLine) {
  BDFEditor editor({}, small_schema());
  editor.append_shell_statement("%date");
  EXPECT_EQ(editor.render(), "#!job.bdf\n\n\nGeometry\nEnd Geometry\n\n%date\n");
}

}  // namespace
}  // namespace kelp::input::bdf
