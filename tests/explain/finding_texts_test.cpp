// The texts about codes are held against the code: each code that the sources name has one, each
// example has its finding, and the manual's page says the same.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>
#include <string>

#include "kelp/input/bdf.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/schema.hpp"

namespace kelp::input::bdf {
namespace {

namespace fs = std::filesystem;

// Every dotted code in quotes in the sources of a folder, and those in tables of rules.
std::set<std::string> codes_in(const fs::path& folder) {
  static const std::regex code(
      "\"((bdf|comment|frame|header|names|geometry|advice|symmetry|basis|electrons|guess|"
      "functional|solvent|tddft|soc|resp|optimisation|sequence|fragments|knowledge|schema)"
      "\\.[a-z]+_[a-z0-9_]+|schema\\.(unreadable|redundant)|text\\.[a-z_]+)\""
      "|\\{\"([a-z]+\\.[a-z0-9_]+)\",\\s*(Severity|check_)");
  std::set<std::string> codes;
  for (const auto& item : fs::recursive_directory_iterator(folder)) {
    if (item.path().extension() != ".cpp" ||
        item.path().filename().string().find("finding_texts") != std::string::npos) {
      continue;
    }
    const std::string text = test::file_bytes(item.path());
    for (std::sregex_iterator found(text.begin(), text.end(), code), end; found != end; ++found) {
      codes.insert((*found)[(*found)[1].matched ? 1 : 4]);
    }
  }
  return codes;
}

std::set<std::string> explained_codes() {
  std::set<std::string> codes;
  for (const FindingText& text : finding_texts()) {
    EXPECT_TRUE(codes.insert(std::string(text.code)).second) << text.code << " stands there twice";
  }
  return codes;
}

TEST(FindingTexts, EveryCodeOfTheLibraryAndTheCommandIsExplained) {
  const fs::path root = test::source_folder();
  const std::set<std::string> library = codes_in(root / "src");
  EXPECT_GE(library.size(), 15U) << "the sources are no longer where this test looks";
  std::set<std::string> all = codes_in(root / "apps");
  all.insert(library.begin(), library.end());
  const std::set<std::string> explained = explained_codes();
  for (const std::string& code : all) {
    EXPECT_TRUE(explained.contains(code)) << code;
  }
}

std::string graded(std::string_view severity, std::string_view code) {
  return std::string(severity) + " " + std::string(code);
}

std::set<std::string> findings_of(const FindingText& text, std::string_view example) {
  std::set<std::string> found;
  if (text.code.starts_with("schema.")) {
    for (const auto& problem : lint_schema(example)) {
      found.insert(graded(to_string(problem.severity), problem.code));
    }
    return found;
  }
  const ParsedInput input(std::string(example), shipped_schema());
  for (const Diagnostic& diagnostic : diagnose(input)) {
    found.insert(graded(to_string(diagnostic.severity), diagnostic.code));
  }
  return found;
}

TEST(FindingTexts, EachExampleHasItsFindingAndNoOtherAndIsCuredByTheFix) {
  int examples = 0;
  for (const FindingText& text : finding_texts()) {
    if (!text.example.empty()) {
      ++examples;
      EXPECT_THAT(findings_of(text, text.example),
                  testing::ElementsAre(graded(to_string(text.severity), text.code)))
          << text.example;
      EXPECT_THAT(findings_of(text, text.fixed), testing::IsEmpty()) << text.code << text.fixed;
    }
  }
  EXPECT_GE(examples, 35);
}

TEST(FindingTexts, ACodeIsFoundWithAndWithoutItsPrefix) {
  EXPECT_EQ(find_finding_text("bdf.unknown_entry")->code, "bdf.unknown_entry");
  EXPECT_EQ(find_finding_text(" Unknown_Entry ")->code, "bdf.unknown_entry");
  EXPECT_EQ(find_finding_text("unknown_key")->code, "schema.unknown_key");
  EXPECT_EQ(find_finding_text("unknown"), nullptr);
  EXPECT_EQ(find_finding_text(""), nullptr);
}

std::string block(std::string_view title, std::string_view language, std::string_view text) {
  return text.empty() ? ""
                      : std::string(title) + "\n\n```" + std::string(language) + "\n" +
                            std::string(text) + "```\n\n";
}

std::string section(const FindingText& text) {
  const std::string_view language = text.code.starts_with("schema.") ? "yaml" : "text";
  return "## " + std::string(text.code) + "\n\n" + std::string(text.meaning) + "\n\n*Severity:* " +
         std::string(to_string(text.severity)) + "\n\n*Cause:* " + std::string(text.cause) +
         "\n\n*Fix:* " + std::string(text.fix) + "\n\n" +
         block("Example:", language, text.example) +
         block("Without the finding:", language, text.fixed);
}

std::string manual_page() {
  std::string page =
      "# Findings\n\n"
      "What each code means, as `kelp-bdf explain CODE` tells it. Codes that begin with `schema.` "
      "are\n"
      "about vocabularies (`kelp-bdf schema lint`), all others about inputs (`kelp-bdf check`): "
      "`text.`\n"
      "about files that cannot be read at all, `comment.` about comments that are for the check.\n"
      "[check.md](check.md) tells how severities are changed and findings allowed.\n\n";
  for (const FindingText& text : finding_texts()) {
    page += section(text);
  }
  page.pop_back();
  return page;
}

// KELP_UPDATE_GOLDEN=1 writes the page anew.
TEST(FindingTexts, TheManualSaysTheSame) {
  const fs::path path = test::source_folder() / "docs" / "findings.md";
  if (std::getenv("KELP_UPDATE_GOLDEN") != nullptr) {
    test::write_file(path, manual_page());
  }
  EXPECT_EQ(test::file_bytes(path), manual_page());
}

}  // namespace
}  // namespace kelp::input::bdf
