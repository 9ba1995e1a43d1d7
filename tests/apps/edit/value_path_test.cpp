// Paths as users write them.

#include "value_path.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace kelp::app {
namespace {

using ::testing::HasSubstr;
using Kind = ValuePath::Kind;

struct Row {
  const char* text;
  Kind kind;
  const char* module;
  std::size_t index;
  const char* name;
  const char* child;
};

TEST(ParsePath, Reads) {
  for (const Row& row : {
           Row{"scf.charge", Kind::Entry, "scf", 0, "charge", ""},
           Row{"scf#1.charge", Kind::Entry, "scf", 0, "charge", ""},
           Row{"scf#12.charge", Kind::Entry, "scf", 11, "charge", ""},
           Row{"$SCF.Charge", Kind::Entry, "SCF", 0, "Charge", ""},
           Row{"easy.charge", Kind::EasyKeyword, "", 0, "charge", ""},
           Row{"Easy.Charge", Kind::EasyKeyword, "", 0, "Charge", ""},
           Row{"geometry", Kind::Geometry, "", 0, "", ""},
           Row{"compass.geometry", Kind::Entry, "compass", 0, "geometry", ""},
           Row{"tddft", Kind::Module, "tddft", 0, "", ""},
           Row{"tddft#2", Kind::Module, "tddft", 1, "", ""},
           Row{"scf.block.keyword", Kind::Child, "scf", 0, "block", "keyword"},
       }) {
    const ValuePath path = parse_path(row.text);
    EXPECT_EQ(path.kind, row.kind) << row.text;
    EXPECT_EQ(path.text, row.text);
    EXPECT_EQ(path.module, row.module) << row.text;
    EXPECT_EQ(path.module_index, row.index) << row.text;
    EXPECT_EQ(path.name, row.name) << row.text;
    EXPECT_EQ(path.child, row.child) << row.text;
  }
}

TEST(ParsePath, RejectsWithAReason) {
  struct BadRow {
    const char* text;
    const char* reason;
  };
  for (const BadRow& row : {
           BadRow{"", "it has no module"},
           BadRow{"$", "it has no module"},
           BadRow{".charge", "it has no module"},
           BadRow{"scf.", "it has no entry"},
           BadRow{"scf..charge", "it has no entry"},
           BadRow{"easy.", "it has no keyword"},
           BadRow{"a.b.c.d", "it has more than three parts"},
           BadRow{"scf#.charge", "'' is no number of a module, counted from 1"},
           BadRow{"scf#0.charge", "'0' is no number of a module, counted from 1"},
           BadRow{"scf#-1.charge", "'-1' is no number of a module, counted from 1"},
           BadRow{"scf#x.charge", "'x' is no number of a module, counted from 1"},
           BadRow{"scf#99999999999999999999.charge", "is no number of a module"},
           BadRow{"scf.two words", "'two words' cannot be the name of an entry"},
           BadRow{"my module.charge", "'my module' cannot be the name of a module"},
           BadRow{"easy.a#b", "'a#b' cannot be the name of a keyword"},
       }) {
    try {
      parse_path(row.text);
      ADD_FAILURE() << row.text << " was accepted";
    } catch (const std::runtime_error& error) {
      EXPECT_THAT(error.what(), HasSubstr(row.reason)) << row.text;
      EXPECT_THAT(error.what(), HasSubstr("is no path: ")) << row.text;
    }
  }
}

}  // namespace
}  // namespace kelp::app
