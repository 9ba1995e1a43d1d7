// From records to paths.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "path/reading.hpp"
#include "support/files.hpp"
#include "support/published_inputs.hpp"

namespace kelp::input::bdf {
namespace {

const char* const text =
    "#!job.bdf\n# lead\nb3lyp/sto-3g spin=2 # charge=1\nGeometry\nO 0 0 0.1\nx\nEnd Geometry\n"
    "$scf\ncharge\n1\n$end\n% cp a b\n$tddft\n$end\n$scf\nnosuch\n  1\n$end\n"
    "$bdfopt\nneb-block\ncrude\nend neb\n$end\n";

TEST(PathOf, NamesEachKindOfRecord) {
  const BDFData data = read(text);
  struct Row {
    RecordId record;
    const char* path;
  };
  const PathIndex index(data);
  for (const Row& row : {
           Row{{}, ""},
           Row{RecordId::of(RecordKind::EasyToken, 0), ""},
           Row{RecordId::of(RecordKind::EasyToken, 1), "easy.spinmulti"},
           Row{RecordId::of(RecordKind::EasyToken, 2), ""},
           Row{RecordId::of(RecordKind::EasyToken, 3), ""},
           Row{RecordId::of(RecordKind::EasyToken, 9), ""},
           Row{RecordId::of(RecordKind::Geometry, 0), "geometry"},
           Row{RecordId::of(RecordKind::Atom, 0), "geometry"},
           Row{RecordId::of(RecordKind::GeometryLine, 0), "geometry"},
           Row{RecordId::of(RecordKind::Statement, 1), ""},
           Row{RecordId::of(RecordKind::LeadingLine, 0), ""},
           Row{RecordId::of_module(0), "scf"},
           Row{RecordId::of_module(1), "tddft"},
           Row{RecordId::of_module(2), "scf#2"},
           Row{RecordId::of_module(9), ""},
           Row{RecordId::of_entry(0, 0), "scf.charge"},
           Row{RecordId::of_entry(0, 9), ""},
           Row{RecordId::of_entry(2, 0), "scf#2.nosuch"},
           Row{RecordId::of_child(3, 0, 0), "bdfopt.neb-block.crude"},
           Row{RecordId::of_child(3, 0, 9), ""},
       }) {
    EXPECT_EQ(path_of(data, row.record), row.path);
    EXPECT_EQ(index.path_of(row.record), row.path);
  }
}

/// Follows the path of each record of a document, and counts those that lead back.
class PathsOf {
 public:
  PathsOf(const BDFData& data, const InputSchema& schema)
      : data_(data), schema_(schema), index_(data) {}

  std::size_t follow_all() {
    for (std::size_t m = 0; m < data_.modules.size(); ++m) {
      follow(RecordId::of_module(m), PathKind::Module);
      for (std::size_t e = 0; e < data_.modules[m].entries.size(); ++e) {
        follow(RecordId::of_entry(m, e), PathKind::Entry);
        for (std::size_t c = 0; c < data_.modules[m].entries[e].children.size(); ++c) {
          follow(RecordId::of_child(m, e, c), PathKind::Child);
        }
      }
    }
    for (std::size_t t = 0; t < data_.easy_tokens.size(); ++t) {
      follow(RecordId::of(RecordKind::EasyToken, t), PathKind::EasyKeyword);
    }
    return followed_;
  }

 private:
  // A path leads to the first record of its name, and that one has the same path. What the schema
  // does not know may have a name that no path can hold.
  void follow(const RecordId& record, PathKind kind) {
    const std::string written = index_.path_of(record);
    EXPECT_EQ(path_of(data_, record), written);
    const PathResult read_back = parse_path(written);
    if (!read_back.path || read_back.path->kind != kind) {
      return;
    }
    ++followed_;
    EXPECT_EQ(to_string(*read_back.path), written);
    const RecordId found = find_record(data_, schema_, *read_back.path);
    ASSERT_TRUE(found) << written;
    EXPECT_EQ(index_.path_of(found), written);
  }

  const BDFData& data_;
  const InputSchema& schema_;
  PathIndex index_;
  std::size_t followed_ = 0;
};

TEST(PathOf, LeadsBackToARecordOfThatPath) {
  const BDFData data = read(text);
  EXPECT_EQ(PathsOf(data, shipped_schema()).follow_all(), 9U);
}

TEST(PathOf, LeadsBackInPublishedInputs) {
  const auto files = test::published_inputs();
  if (files.empty()) {
    GTEST_SKIP() << "there are no published inputs";
  }
  std::size_t followed = 0;
  for (const auto& file : files) {
    SCOPED_TRACE(file);
    const BDFData data = read(test::file_bytes(file));
    followed += PathsOf(data, shipped_schema()).follow_all();
  }
  EXPECT_GT(followed, files.size());
}

}  // namespace
}  // namespace kelp::input::bdf
