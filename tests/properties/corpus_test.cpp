// The properties of reading and writing, on published inputs where there are any.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "describe.hpp"
#include "kelp/input/bdf/editor.hpp"
#include "kelp/input/bdf/parser.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/published_inputs.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

namespace stdfs = std::filesystem;

BDFData read_shipped(const std::string& text) {
  return BDFParser::parse_string(text, shipped_schema(), {}).data;
}

std::string written_shipped(const BDFData& data) {
  return BDFEditor(data, shipped_schema()).render();
}

class PublishedInputs : public testing::Test {
 protected:
  void SetUp() override {
    if (paths_.empty()) {
      GTEST_SKIP() << "there are no published inputs in " << test::corpus_folder();
    }
  }

  const std::vector<stdfs::path> paths_ = test::published_inputs();
};

// An easy input gains an empty line after its geometry each time.
std::string without_gap(std::string text) {
  const std::string end = "\nEnd Geometry\n";
  const std::size_t found = text.find(end);
  if (text.rfind("#!", 0) == 0 && found != std::string::npos) {
    const std::size_t body = found + end.size();
    text.erase(body, std::min(text.find_first_not_of('\n', body), text.size()) - body);
  }
  return text;
}

TEST_F(PublishedInputs, AreWrittenTheSameWayTwice) {
  for (const stdfs::path& path : paths_) {
    const std::string once = written_shipped(read_shipped(test::file_bytes(path)));
    EXPECT_EQ(without_gap(written_shipped(read_shipped(once))), without_gap(once)) << path;
  }
}

TEST_F(PublishedInputs, ReadTheSameAfterBeingWritten) {
  for (const stdfs::path& path : paths_) {
    const BDFData once = read_shipped(written_shipped(read_shipped(test::file_bytes(path))));
    const BDFData twice = read_shipped(written_shipped(once));
    if (once.mode == InputMode::Module) {
      EXPECT_EQ(describe(twice), describe(once)) << path;
    }
  }
}

TEST_F(PublishedInputs, KeepTheirModulesInOrder) {
  for (const stdfs::path& path : paths_) {
    const BDFData data = read_shipped(test::file_bytes(path));
    const BDFData again = read_shipped(written_shipped(data));
    ASSERT_EQ(again.modules.size(), data.modules.size()) << path;
    for (std::size_t i = 0; i < data.modules.size(); ++i) {
      EXPECT_EQ(again.modules[i].name, data.modules[i].name) << path;
    }
  }
}

TEST_F(PublishedInputs, TakeAChargeAndGiveItBack) {
  for (const stdfs::path& path : paths_) {
    const BDFData data = read_shipped(test::file_bytes(path));
    BDFEditor editor(data, shipped_schema());
    editor.set_charge_and_multiplicity(-3, 4);
    const BDFData again = read_shipped(editor.render());
    if (again.mode != InputMode::Module) {
      ASSERT_NE(again.find_easy_token("charge"), nullptr) << path;
      EXPECT_EQ(again.find_easy_token("charge")->value, "-3") << path;
      EXPECT_EQ(again.find_easy_token("spinmulti")->value, "4") << path;
      continue;
    }
    const Module* const scf = again.find_module("scf");
    ASSERT_NE(scf, nullptr) << path;
    const std::vector<const ModuleEntry*> charges = scf->find_entries("charge");
    const std::vector<const ModuleEntry*> spins = scf->find_entries("spinmulti");
    ASSERT_FALSE(charges.empty()) << path << '\n' << editor.render();
    ASSERT_FALSE(spins.empty()) << path << '\n' << editor.render();
    EXPECT_NE(charges.front()->values.at(0).find("-3"), std::string::npos) << path;
    EXPECT_NE(spins.front()->values.at(0).find('4'), std::string::npos) << path;
  }
}

}  // namespace
}  // namespace kelp::input::bdf
