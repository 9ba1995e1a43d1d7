#include "lint/source_files.hpp"

#include <algorithm>
#include <filesystem>
#include <regex>
#include <sstream>

#include "support/files.hpp"
#include "support/folders.hpp"

namespace kelp::lint {
namespace {

bool is_source(const std::filesystem::path& path) {
  return path.extension() == ".cpp" || path.extension() == ".hpp";
}

/// Takes comments and texts out of a file, byte by byte.
class CodeReader {
 public:
  std::string read(const std::string& line) {
    std::string code;
    for (std::size_t i = 0; i < line.size(); ++i) {
      const std::string_view rest = std::string_view(line).substr(i);
      if (in_comment_) {
        in_comment_ = !rest.starts_with("*/");
        i += in_comment_ ? 0 : 1;
      } else if (quote_ != 0) {
        i += rest[0] == '\\' ? 1 : 0;
        quote_ = rest[0] == quote_ ? 0 : quote_;
      } else if (rest.starts_with("//")) {
        break;
      } else if (rest.starts_with("/*")) {
        in_comment_ = true;
        ++i;
      } else if (rest[0] == '"' || (rest[0] == '\'' && !is_digit_separator(line, i))) {
        quote_ = rest[0];
        code += quote_;
      } else {
        code += rest[0];
      }
    }
    quote_ = 0;
    return code;
  }

 private:
  static bool is_digit_separator(const std::string& line, std::size_t i) {
    const auto is_digit = [](char byte) { return byte >= '0' && byte <= '9'; };
    return i > 0 && i + 1 < line.size() && is_digit(line[i - 1]) && is_digit(line[i + 1]);
  }

  bool in_comment_ = false;
  char quote_ = 0;
};

}  // namespace

SourceFile source_from(std::string path, std::string_view text) {
  SourceFile file{std::move(path), {}};
  std::istringstream in{std::string(text)};
  for (std::string line; std::getline(in, line);) {
    file.lines.push_back(line);
  }
  return file;
}

std::vector<SourceFile> sources_under(const std::vector<std::string>& folders) {
  const std::filesystem::path root(test::source_folder());
  std::vector<SourceFile> files;
  for (const std::string& folder : folders) {
    for (const auto& item : std::filesystem::recursive_directory_iterator(root / folder)) {
      if (item.is_regular_file() && is_source(item.path())) {
        files.push_back(source_from(item.path().lexically_relative(root).generic_string(),
                                    test::file_bytes(item.path())));
      }
    }
  }
  std::sort(files.begin(), files.end(),
            [](const SourceFile& a, const SourceFile& b) { return a.path < b.path; });
  return files;
}

std::vector<std::string> code_of(const SourceFile& file) {
  CodeReader reader;
  std::vector<std::string> code;
  for (const std::string& line : file.lines) {
    code.push_back(reader.read(line));
  }
  return code;
}

std::vector<Include> includes_of(const SourceFile& file) {
  static const std::regex pattern(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"].*)");
  std::vector<Include> includes;
  std::smatch match;
  for (std::size_t i = 0; i < file.lines.size(); ++i) {
    if (std::regex_match(file.lines[i], match, pattern)) {
      includes.push_back({match[2], match[1] == "\"", i + 1});
    }
  }
  return includes;
}

std::string at(const SourceFile& file, std::size_t line, const std::string& what) {
  return file.path + ":" + std::to_string(line) + ": " + what;
}

std::string violations(const Rule& rule, const std::vector<SourceFile>& files) {
  std::string all;
  for (const SourceFile& file : files) {
    for (const std::string& violation : rule(file)) {
      all += violation + "\n";
    }
  }
  return all;
}

}  // namespace kelp::lint
