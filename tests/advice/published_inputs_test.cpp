// Advice on a published input is wrong unless a reason is known: the list has file, line and code,
// and behind a dash the reason. `KELP_UPDATE_GOLDEN=1` adds what is new, without a reason.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>
#include <string>

#include "cases.hpp"
#include "kelp/core/text.hpp"
#include "kelp/input/bdf.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/published_inputs.hpp"

namespace kelp::test {
namespace {

constexpr std::string_view dash = " - ";

std::filesystem::path list_path() {
  return test::data_folder() / "expert" / "published.txt";
}

// From "file:line code" to the reason.
std::map<std::string, std::string> listed() {
  std::map<std::string, std::string> reasons;
  const std::string bytes = file_bytes(list_path());
  for (std::string_view rest = bytes; !rest.empty();) {
    const std::string_view line = core::text::take_line(rest);
    const std::size_t at = line.find(dash);
    reasons[std::string(line.substr(0, at))] =
        at == std::string_view::npos ? "" : std::string(line.substr(at + dash.size()));
  }
  return reasons;
}

std::set<std::string> found_in_all() {
  std::set<std::string> found;
  for (const std::filesystem::path& path : published_inputs()) {
    const std::string text = file_bytes(path);
    const input::bdf::SourceText source(text);
    for (const input::bdf::Diagnostic& diagnostic : advice_on(text)) {
      const std::size_t line = diagnostic.range ? source.position(diagnostic.range->begin).line : 0;
      found.insert(path.filename().string() + ":" + std::to_string(line) + " " + diagnostic.code);
    }
  }
  return found;
}

TEST(PublishedInputs, GetNoAdviceWithoutAReason) {
  if (published_inputs().empty()) {
    GTEST_SKIP() << "no published inputs at " << test::corpus_folder();
  }
  std::map<std::string, std::string> reasons = listed();
  const std::set<std::string> found = found_in_all();
  if (std::getenv("KELP_UPDATE_GOLDEN") != nullptr) {
    std::string list;
    for (const std::string& it : found) {
      list += it + std::string(dash) + reasons[it] + "\n";
    }
    write_file(list_path(), list);
    reasons = listed();
  }
  for (const std::string& it : found) {
    EXPECT_TRUE(reasons.count(it)) << it;
  }
  for (const auto& [it, reason] : reasons) {
    EXPECT_TRUE(found.count(it)) << it << " is not found any more";
    EXPECT_FALSE(reason.empty()) << it << " has no reason";
  }
}

}  // namespace
}  // namespace kelp::test
