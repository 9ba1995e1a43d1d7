// What no source of ours may contain.

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "lint/source_files.hpp"

namespace kelp::lint {
namespace {

/// A pattern that code may not match, and the folders that are free to.
struct Ban {
  std::string pattern;
  std::string why;
  std::vector<std::string> except;
};

bool is_excepted(const SourceFile& file, const Ban& ban) {
  for (const std::string& part : ban.except) {
    if (file.path.find(part) != std::string::npos) {
      return true;
    }
  }
  return false;
}

Rule bans(const std::vector<Ban>& list) {
  return [list](const SourceFile& file) {
    std::vector<std::string> found;
    const std::vector<std::string> code = code_of(file);
    for (const Ban& ban : list) {
      if (is_excepted(file, ban)) {
        continue;
      }
      const std::regex pattern(ban.pattern);
      for (std::size_t i = 0; i < code.size(); ++i) {
        if (std::regex_search(code[i], pattern)) {
          found.push_back(at(file, i + 1, ban.why));
        }
      }
    }
    return found;
  };
}

const std::vector<Ban> everywhere = {
    {R"(\bsto(d|f|ld|i|l|ul|ll|ull)\s*\()", "std::stod and its kin depend on the locale", {}},
    {R"(\bato(f|i|l|ll)\s*\()", "atof and its kin depend on the locale and hide errors", {}},
    {R"(\bstrto(d|f|ld|l|ll|ul|ull|imax|umax)\s*\()", "strtod depends on the locale", {}},
    {R"(\b_?strto(d|ll?)_l\s*\()", "only the core's c_locale may call strtod_l", {"/c_locale.cpp"}},
    {R"(\bis(alnum|alpha|blank|cntrl|digit|graph|lower|print|punct|space|upper|xdigit)\s*\()",
     "<cctype> depends on the locale and fails for bytes from 0x80 up",
     {}},
    {R"(\bto(lower|upper)\s*\()", "<cctype> depends on the locale", {}},
    {R"(\b(set|new)locale\s*\()", "the locale is the host's", {"/c_locale.cpp"}},
    {R"(\blocale::global\s*\()", "the locale is the host's", {}},
    {R"(\b(abort|exit|_exit|_Exit|quick_exit)\s*\()", "leaving is main's business", {}},
    {R"(\bstd::terminate\b)", "leaving is main's business", {}},
    {R"(\b(gets|strcpy|strcat|sprintf|vsprintf|tmpnam|mktemp|strtok)\s*\()", "unsafe", {}},
    {R"(\busing namespace std\b)", "pollutes", {}},
    {R"(\bsystem\s*\()", "starts programs", {}},
    {R"(^\s*#\s*define\s+(?!KELP_|WIN32_LEAN_AND_MEAN|NOMINMAX|UNICODE|_))", "no macros", {}},
};

const std::vector<Ban> in_the_library = {
    {R"(\bstd::(w?cout|w?cerr|w?clog|w?cin)\b)", "a library does not print", {}},
    {R"(\b(f|v|vf|s|sn|vsn)?printf\s*\()", "a library does not print", {}},
    {R"(\b(puts|fputs|putchar|putc|fputc|perror)\s*\()", "a library does not print", {}},
    {R"(\b(getenv|_wgetenv|secure_getenv)\s*\()",
     "the environment is the core's",
     {"core/src/posix/", "core/src/windows/"}},
    {R"(\b(fopen|ifstream|ofstream|fstream)\b)",
     "files are the core's",
     {"core/src/posix/", "core/src/windows/"}},
};

// What a finding is about stands in its code, its arguments and its record.
const std::vector<Ban> in_programs = {
    {R"((\.|->)message\s*(==|!=|<|>))", "reads a sentence of the library", {}},
    {R"((==|!=)\s*[\w.>\[\]-]*(\.|->)message\b)", "reads a sentence of the library", {}},
    {R"((\.|->)message\s*\.\s*(r?find|(starts|ends)_with|contains|compare|substr)\w*\s*\()",
     "reads a sentence of the library",
     {}},
    {R"(\bregex_(search|match|replace)\s*\([^;]*(\.|->)message\b)",
     "reads a sentence of the library",
     {}},
    // Findings come from `diagnose`, which validates once.
    {R"(\b(validate\s*\(|BDFParser\b|ParseOptions\b))", "an input is read and checked once", {}},
};

const std::vector<SourceFile>& all_sources() {
  static const std::vector<SourceFile> files =
      sources_under({"include", "core", "src", "apps", "bindings"});
  return files;
}

const std::vector<SourceFile>& library_sources() {
  static const std::vector<SourceFile> files =
      sources_under({"include", "core", "src", "bindings"});
  return files;
}

TEST(Sources, CallNoFunctionThatDependsOnTheLocaleOrEndsTheProcess) {
  EXPECT_EQ(violations(bans(everywhere), all_sources()), "");
}

TEST(Sources, OfTheLibraryNeitherPrintNorOpenFilesThemselves) {
  EXPECT_EQ(violations(bans(in_the_library), library_sources()), "");
}

// A stream writes and reads numbers in the global locale until it is told otherwise.
std::vector<std::string> streams_without_the_classic_locale(const SourceFile& file) {
  std::string code;
  for (const std::string& line : code_of(file)) {
    code += line + "\n";
  }
  const bool stream = std::regex_search(code, std::regex(R"(\b[io]?stringstream\b)"));
  const bool told = code.find("locale::classic()") != std::string::npos;
  return stream && !told ? std::vector{at(file, 1, "has a stream in the host's locale")}
                         : std::vector<std::string>();
}

TEST(Sources, OfTheLibraryGiveEachStringStreamTheClassicLocale) {
  EXPECT_EQ(violations(streams_without_the_classic_locale, library_sources()), "");
}

TEST(Sources, OfProgramsReadNoSentencesOfTheLibraryAndCheckOnce) {
  EXPECT_EQ(violations(bans(in_programs), sources_under({"apps", "bindings"})), "");
}

std::vector<std::string> headers_without_a_guard(const SourceFile& file) {
  const bool header = file.path.ends_with(".hpp");
  const bool guarded = !file.lines.empty() && file.lines.front() == "#pragma once";
  return header && !guarded ? std::vector{at(file, 1, "does not begin with #pragma once")}
                            : std::vector<std::string>();
}

TEST(Sources, BeginEachHeaderWithItsGuard) {
  EXPECT_EQ(violations(headers_without_a_guard, all_sources()), "");
}

std::vector<std::string> untidy_lines(const SourceFile& file) {
  static const std::regex reminder(R"(\b(TODO|FIXME|XXX|HACK)\b)");
  std::vector<std::string> found;
  for (std::size_t i = 0; i < file.lines.size(); ++i) {
    const std::string& line = file.lines[i];
    if (std::regex_search(line, reminder) || line.find('\t') != std::string::npos ||
        line.ends_with(' ') || line.ends_with('\r')) {
      found.push_back(at(file, i + 1, "has a reminder, a tab, or white space at its end"));
    }
  }
  return found;
}

TEST(Sources, HaveTidyLines) {
  EXPECT_EQ(violations(untidy_lines, all_sources()), "");
}

TEST(SourceRules, FindWhatTheyForbid) {
  const std::vector<std::string> banned = {"double d = std::stod(text);",
                                           "int i = atoi(text);",
                                           "x = ::strtod(text, &end);",
                                           "if (std::isspace(c)) {",
                                           "c = tolower(c);",
                                           "std::abort();",
                                           "exit(1);",
                                           "std::setlocale(LC_ALL, \"\");",
                                           "#define MAX(a, b) a"};
  for (const std::string& line : banned) {
    EXPECT_NE(violations(bans(everywhere), {source_from("src/a.cpp", line)}), "") << line;
  }
  const std::vector<std::string> printing = {"std::cout << 1;", "printf(\"x\");", "::puts(\"x\");",
                                             "std::ofstream out(path);", "std::getenv(\"X\")"};
  for (const std::string& line : printing) {
    EXPECT_NE(violations(bans(in_the_library), {source_from("src/a.cpp", line)}), "") << line;
  }
  const std::vector<std::string> reading = {"if (d.message == text) {",
                                            "if (text != d->message)",
                                            "d.message.find(name)",
                                            "d.message.starts_with(\"U\")",
                                            "std::regex_search(issue.message, found, word)",
                                            "for (auto& issue : schema.validate(data)) {",
                                            "bdf::BDFParser parser(schema);"};
  for (const std::string& line : reading) {
    EXPECT_NE(violations(bans(in_programs), {source_from("apps/a.cpp", line)}), "") << line;
  }
  EXPECT_NE(violations(streams_without_the_classic_locale,
                       {source_from("src/a.cpp", "std::istringstream in(text);\n")}),
            "");
  EXPECT_NE(violations(headers_without_a_guard, {source_from("src/a.hpp", "// c\n")}), "");
  EXPECT_NE(violations(untidy_lines, {source_from("src/a.cpp",
                                                  "// TO"
                                                  "DO\n")}),
            "");
}

TEST(SourceRules, PassOverCommentsTextsAndLongerNames) {
  const std::vector<std::string> harmless = {"// strtod(text) would depend on the locale",
                                             "/* exit( */ int x;",
                                             "name = \"printf(\";",
                                             "quote = '\"'; // abort()",
                                             "is_space(c); text::to_lower(text);",
                                             "strtod_whole(number);",
                                             "getenv_string(name);",
                                             "on_exit_code(1);",
                                             "int n = 1'000;",
                                             "text += d.message + end;"};
  for (const std::string& line : harmless) {
    EXPECT_EQ(violations(bans(everywhere), {source_from("src/a.cpp", line)}), "") << line;
    EXPECT_EQ(violations(bans(in_the_library), {source_from("src/a.cpp", line)}), "") << line;
    EXPECT_EQ(violations(bans(in_programs), {source_from("apps/a.cpp", line)}), "") << line;
  }
  const SourceFile comment = source_from("src/a.cpp", "/* one\n exit(1)\n*/ int x;\n");
  EXPECT_EQ(violations(bans(everywhere), {comment}), "");
}

}  // namespace
}  // namespace kelp::lint
