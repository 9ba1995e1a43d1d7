// Holds the header against what was promised: a list of all that it declares, which is changed by
// additions only.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "kelp/bdf.h"
#include "support/files.hpp"
#include "support/folders.hpp"

namespace kelp {
namespace {

/// Returns what a header declares, one declaration on a line: without comments and directives, with
/// one blank where there is white space.
std::vector<std::string> declarations_of(std::string text) {
  text = std::regex_replace(text, std::regex("//[^\n]*"), "");
  text = std::regex_replace(text, std::regex("(^|\n)#[^\n]*(?=\n)"), "\n");
  text = std::regex_replace(text, std::regex("extern \"C\" \\{|\\n\\}\\s*$"), "");
  text = std::regex_replace(text, std::regex("\\s+"), " ");
  std::vector<std::string> found;
  int depth = 0;
  std::string declaration;
  for (const char byte : text) {
    depth += byte == '{' ? 1 : byte == '}' ? -1 : 0;
    declaration += declaration.empty() && byte == ' ' ? "" : std::string(1, byte);
    if (byte == ';' && depth == 0) {
      found.push_back(declaration);
      declaration.clear();
    }
  }
  return found;
}

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  in.imbue(std::locale::classic());
  for (std::string line; std::getline(in, line);) {
    lines.push_back(line);
  }
  return lines;
}

std::string version() {
  return "version " + std::to_string(KELP_BDF_INTERFACE_MAJOR) + "." +
         std::to_string(KELP_BDF_INTERFACE_MINOR);
}

TEST(CHeader, DeclaresWhatWasPromised) {
  const std::string folder = test::utf8(test::source_folder()) + "/bindings/c/";
  std::vector<std::string> declared =
      declarations_of(test::file_bytes(folder + "include/kelp/bdf.h"));
  ASSERT_GT(declared.size(), 80U) << "the header cannot be read";
  declared.insert(declared.begin(), version());
  if (std::getenv("KELP_UPDATE_GOLDEN") != nullptr) {
    std::string text;
    for (const std::string& line : declared) {
      text += line + "\n";
    }
    test::write_file(folder + "interface.txt", text);
  }
  const std::vector<std::string> promised = lines_of(test::file_bytes(folder + "interface.txt"));
  for (const std::string& line : promised) {
    EXPECT_NE(std::find(declared.begin(), declared.end(), line), declared.end())
        << "promised, and changed or gone:\n"
        << line;
  }
  for (const std::string& line : declared) {
    EXPECT_NE(std::find(promised.begin(), promised.end(), line), promised.end())
        << "new: raise the minor version, and write the list anew with KELP_UPDATE_GOLDEN=1:\n"
        << line;
  }
}

}  // namespace
}  // namespace kelp
