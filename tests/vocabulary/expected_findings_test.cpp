// The findings of every published text, kept as a list of file, line and code. A change of the
// vocabulary shows as a change of the list, to be read before it is accepted.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "corpus.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"

namespace kelp::test {
namespace {

std::string found_in_all() {
  std::string list;
  for (const CorpusInput& input : corpus()) {
    for (const Found& found : findings_in(input.text)) {
      list += input.name + ":" + (found.line == 0 ? "-" : std::to_string(found.line)) + ": " +
              (found.is_error ? "error " : "warning ") + found.code + "\n";
    }
  }
  return list;
}

TEST(PublishedInputs, HaveTheFindingsOfTheList) {
  KELP_NEED_CORPUS();
  const std::filesystem::path path = test::data_folder() / "vocabulary" / "expected-findings.txt";
  const std::string found = found_in_all();
  if (std::getenv("KELP_UPDATE_GOLDEN") != nullptr) {
    write_file(path, found);
  }
  EXPECT_EQ(lines_of(found), lines_of(file_bytes(path)))
      << "KELP_UPDATE_GOLDEN=1 writes the list anew";
}

}  // namespace
}  // namespace kelp::test
