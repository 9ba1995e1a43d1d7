#pragma once

// The project's own sources, as lines, for rules that no compiler checks.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kelp::lint {

struct SourceFile {
  std::string path;  ///< relative to the project, with forward slashes
  std::vector<std::string> lines;
};

/// Returns the headers and sources under some folders of the project, sorted by path.
std::vector<SourceFile> sources_under(const std::vector<std::string>& folders);

/// Makes a file of a text, for tests of the rules themselves.
SourceFile source_from(std::string path, std::string_view text);

/// Returns the lines without comments and with the contents of texts blanked out.
std::vector<std::string> code_of(const SourceFile& file);

/// One `#include`.
struct Include {
  std::string name;
  bool quoted;
  std::size_t line;  ///< counted from 1
};
std::vector<Include> includes_of(const SourceFile& file);

/// What a rule finds in a file: one text for each violation.
using Rule = std::function<std::vector<std::string>(const SourceFile&)>;

/// Writes a violation as compilers do.
std::string at(const SourceFile& file, std::size_t line, const std::string& what);

/// Returns all that a rule finds in some files, one line each; empty when all is well.
std::string violations(const Rule& rule, const std::vector<SourceFile>& files);

}  // namespace kelp::lint
