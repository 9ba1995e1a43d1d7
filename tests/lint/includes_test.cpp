// Who may include whom.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "lint/source_files.hpp"

namespace kelp::lint {
namespace {

using Allowed = std::function<bool(const SourceFile&, const Include&)>;

Rule includes_must_be(const Allowed& allowed) {
  return [allowed](const SourceFile& file) {
    std::vector<std::string> found;
    for (const Include& include : includes_of(file)) {
      if (!allowed(file, include)) {
        found.push_back(at(file, include.line, "may not include " + include.name));
      }
    }
    return found;
  };
}

bool starts_with_any(std::string_view text, const std::vector<std::string_view>& starts) {
  return std::any_of(starts.begin(), starts.end(),
                     [text](std::string_view start) { return text.starts_with(start); });
}

const std::set<std::string>& standard_headers() {
  static const std::set<std::string> all = {"algorithm",     "any",           "array",
                                            "atomic",        "bit",           "bitset",
                                            "charconv",      "chrono",        "climits",
                                            "clocale",       "cmath",         "compare",
                                            "complex",       "concepts",      "condition_variable",
                                            "cstddef",       "cstdint",       "cstdio",
                                            "cstdlib",       "cstring",       "ctime",
                                            "cerrno",        "cfloat",        "csignal",
                                            "cstdarg",       "deque",         "exception",
                                            "filesystem",    "forward_list",  "fstream",
                                            "functional",    "future",        "initializer_list",
                                            "iomanip",       "ios",           "iosfwd",
                                            "iostream",      "istream",       "iterator",
                                            "limits",        "list",          "locale",
                                            "map",           "memory",        "memory_resource",
                                            "mutex",         "new",           "numeric",
                                            "optional",      "ostream",       "queue",
                                            "random",        "ratio",         "regex",
                                            "set",           "shared_mutex",  "span",
                                            "sstream",       "stack",         "stdexcept",
                                            "streambuf",     "string",        "string_view",
                                            "system_error",  "thread",        "tuple",
                                            "type_traits",   "typeindex",     "typeinfo",
                                            "unordered_map", "unordered_set", "utility",
                                            "valarray",      "variant",       "vector",
                                            "version"};
  return all;
}

bool is_standard(const Include& include) {
  return !include.quoted && standard_headers().contains(include.name);
}

const Rule public_headers_are_self_sufficient =
    includes_must_be([](const SourceFile& file, const Include& include) {
      const char* const family = file.path.starts_with("core/") ? "kelp/core/" : "kelp/input/bdf/";
      return is_standard(include) || (include.quoted && include.name.starts_with(family));
    });

const Rule only_readers_of_schemas_know_yaml =
    includes_must_be([](const SourceFile& file, const Include& include) {
      return !include.name.starts_with("yaml-cpp/") ||
             starts_with_any(file.path, {"src/schema/", "src/knowledge/", "src/schema_lint/"});
    });

// Third-party headers other than these, and all of the system's, are somebody's decision.
const Rule only_the_core_knows_the_system =
    includes_must_be([](const SourceFile& file, const Include& include) {
      const bool platform =
          file.path.starts_with("core/src/posix/") || file.path.starts_with("core/src/windows/");
      const bool known =
          starts_with_any(include.name, {"yaml-cpp/", "CLI/", "fmt/", "nlohmann/", "toml++/"});
      const bool python =
          file.path.starts_with("bindings/python/") && include.name.starts_with("pybind11/");
      return include.quoted || is_standard(include) || known || platform || python;
    });

const Rule rooms_of_the_library_leave_files_to_the_core =
    includes_must_be([](const SourceFile&, const Include& include) {
      static const std::set<std::string> files_and_streams = {
          "fstream", "filesystem", "iostream", "cstdio", "cstdlib", "clocale", "regex", "thread"};
      return include.quoted || !files_and_streams.contains(include.name);
    });

/// A room of the library: the public headers that it implements, and the rooms right below it. What
/// lies below those is below it, too.
struct Room {
  std::string_view name;
  std::vector<std::string_view> headers;
  std::vector<std::string_view> below;
};

// Parser and editor do not know each other; both validate when they are asked to. The test of calls
// reads this table, too.
const std::vector<Room>& rooms() {
  static const std::vector<Room> all = {
      {"schema", {"meaning.hpp", "schema.hpp"}, {}},
      {"knowledge", {}, {"schema"}},
      {"model", {}, {"schema"}},
      {"source", {"source.hpp"}, {}},
      {"validate", {}, {"model"}},
      {"parser", {"parser.hpp"}, {"source", "validate"}},
      {"render", {}, {"model"}},
      {"editor", {"editor.hpp"}, {"render", "validate"}},
      {"explain", {"explain.hpp", "names.hpp"}, {"schema", "validate"}},
      {"schema_lint", {"schema_lint.hpp"}, {"schema", "validate", "knowledge"}},
      {"input", {"parsed_input.hpp"}, {"parser", "source"}},
      {"path", {"value_path.hpp"}, {"input", "explain"}},
      {"completion", {"completion.hpp"}, {"path"}},
      {"molecule", {"molecule.hpp", "neighbours.hpp"}, {"path"}},
      {"outline", {"outline.hpp"}, {"path", "molecule"}},
      {"difference", {"difference.hpp"}, {"path", "molecule"}},
      {"advice",
       {"calculation.hpp", "diagnostics.hpp"},
       {"input", "path", "molecule", "knowledge"}},
      {"diagnose", {"allowance.hpp", "diagnostics.hpp"}, {"validate", "path", "advice"}},
      {"rewrite", {"rewrite.hpp"}, {"editor", "render", "path", "molecule", "diagnose"}},
      {"sweep", {"sweep.hpp"}, {"rewrite"}},
  };
  return all;
}

const Room* room_called(std::string_view name) {
  const auto found = std::find_if(rooms().begin(), rooms().end(),
                                  [&](const Room& room) { return room.name == name; });
  return found == rooms().end() ? nullptr : &*found;
}

// The records of the document and of findings are everybody's.
bool is_plain_record(std::string_view header) {
  return starts_with_any(header, {"export.hpp", "value_kind.hpp", "document.hpp", "record.hpp",
                                  "validation.hpp", "schema.hpp", "severity.hpp"});
}

bool knows(const Room& room, std::string_view include) {
  constexpr std::string_view family = "kelp/input/bdf/";
  if (include.starts_with(family)) {
    const std::string_view header = include.substr(family.size());
    if (is_plain_record(header) ||
        std::find(room.headers.begin(), room.headers.end(), header) != room.headers.end()) {
      return true;
    }
  }
  return include.substr(0, include.find('/')) == room.name ||
         std::any_of(room.below.begin(), room.below.end(),
                     [&](std::string_view name) { return knows(*room_called(name), include); });
}

const Rule arrows_point_downwards =
    includes_must_be([](const SourceFile& file, const Include& include) {
      constexpr std::string_view sources = "src/";
      if (!include.quoted || !file.path.starts_with(sources) ||
          include.name.starts_with("kelp/core/")) {
        return true;
      }
      const std::string_view path = std::string_view(file.path).substr(sources.size());
      const Room* const room = room_called(path.substr(0, path.find('/')));
      // A file beside the rooms belongs to the library as a whole.
      return room != nullptr ? knows(*room, include.name)
                             : path.find('/') == std::string_view::npos;
    });

const Rule the_core_knows_nothing_above_it =
    includes_must_be([](const SourceFile&, const Include& include) {
      const bool own = include.name.find('/') == std::string::npos;
      return !include.quoted || own ||
             starts_with_any(include.name, {"kelp/core/", "../", "posix/", "windows/"});
    });

const Rule the_command_uses_public_headers =
    includes_must_be([](const SourceFile&, const Include& include) {
      return !include.quoted || starts_with_any(include.name, {"kelp/input/", "kelp/core/", "cli/",
                                                               "commands/", "lsp/", "report/"});
    });

const Rule the_bindings_use_public_headers =
    includes_must_be([](const SourceFile&, const Include& include) {
      const bool own = include.name.find('/') == std::string::npos;
      return !include.quoted || own ||
             starts_with_any(include.name, {"kelp/input/", "kelp/core/", "kelp/bdf.h"});
    });

const Rule only_the_command_line_knows_its_parser =
    includes_must_be([](const SourceFile& file, const Include& include) {
      return !include.name.starts_with("CLI/") || file.path.starts_with("apps/kelp-bdf/cli/");
    });

const Rule reports_know_no_command =
    includes_must_be([](const SourceFile& file, const Include& include) {
      return !file.path.starts_with("apps/kelp-bdf/report/") || !include.quoted ||
             starts_with_any(include.name, {"kelp/", "report/"});
    });

const std::vector<SourceFile>& everything() {
  static const std::vector<SourceFile> all =
      sources_under({"include", "core", "src", "apps", "bindings"});
  return all;
}

TEST(Includes, OfPublicHeadersAreStandardHeadersAndEachOther) {
  EXPECT_EQ(
      violations(public_headers_are_self_sufficient, sources_under({"include", "core/include"})),
      "");
}

TEST(Includes, OfYamlCppAreWhereSchemasAreReadOnly) {
  EXPECT_EQ(violations(only_readers_of_schemas_know_yaml, everything()), "");
}

TEST(Includes, OfTheSystemAreInThePlatformFoldersOnly) {
  EXPECT_EQ(violations(only_the_core_knows_the_system, everything()), "");
}

TEST(Includes, OfFilesAndStreamsAreInTheCoreOnly) {
  EXPECT_EQ(
      violations(rooms_of_the_library_leave_files_to_the_core, sources_under({"include", "src"})),
      "");
}

TEST(Includes, PointDownwardsBetweenTheRooms) {
  EXPECT_EQ(violations(arrows_point_downwards, everything()), "");
}

TEST(Includes, OfTheCoreStayInTheCore) {
  EXPECT_EQ(violations(the_core_knows_nothing_above_it, sources_under({"core"})), "");
}

TEST(Includes, OfTheCommandArePublic) {
  EXPECT_EQ(violations(the_command_uses_public_headers, sources_under({"apps"})), "");
}

TEST(Includes, OfTheBindingsArePublic) {
  EXPECT_EQ(violations(the_bindings_use_public_headers, sources_under({"bindings"})), "");
}

TEST(Includes, OfTheParserOfOptionsAreWhereOptionsAreReadOnly) {
  EXPECT_EQ(violations(only_the_command_line_knows_its_parser, everything()), "");
}

TEST(Includes, OfReportsNameNoCommand) {
  EXPECT_EQ(violations(reports_know_no_command, everything()), "");
}

std::string name_for_hosts(const SourceFile& file) {
  const std::string folder = file.path.starts_with("core/") ? "core/include/" : "include/";
  return file.path.substr(folder.size());
}

TEST(Headers, AreEachCompiledAlone) {
  std::istringstream words(KELP_LONE_HEADERS);
  const std::set<std::string> compiled{std::istream_iterator<std::string>(words), {}};
  std::set<std::string> present;
  for (const SourceFile& file : sources_under({"include", "core/include"})) {
    present.insert(name_for_hosts(file));
  }
  EXPECT_FALSE(present.empty());
  EXPECT_EQ(compiled, present) << "configure the build anew";
}

// A rule that finds nothing anywhere would pass, too.
TEST(IncludeRules, FindWhatTheyForbid) {
  struct Case {
    const Rule& rule;
    std::string path;
    std::string include;
    bool allowed;
  };
  const std::vector<Case> cases = {
      {public_headers_are_self_sufficient, "include/a.hpp", "<fmt/format.h>", false},
      {public_headers_are_self_sufficient, "include/a.hpp", "\"schema/impl.hpp\"", false},
      {public_headers_are_self_sufficient, "include/a.hpp", "\"kelp/core/text.hpp\"", false},
      {public_headers_are_self_sufficient, "include/a.hpp", "<unistd.h>", false},
      {public_headers_are_self_sufficient, "include/a.hpp", "<vector>", true},
      {only_readers_of_schemas_know_yaml, "src/model/a.cpp", "<yaml-cpp/yaml.h>", false},
      {only_readers_of_schemas_know_yaml, "src/schema/a.cpp", "<yaml-cpp/yaml.h>", true},
      {only_readers_of_schemas_know_yaml, "src/schema_lint/a.cpp", "<yaml-cpp/yaml.h>", true},
      {only_readers_of_schemas_know_yaml, "src/knowledge/a.cpp", "<yaml-cpp/yaml.h>", true},
      {only_readers_of_schemas_know_yaml, "src/explain/a.cpp", "<yaml-cpp/yaml.h>", false},
      {only_the_core_knows_the_system, "src/model/a.cpp", "<unistd.h>", false},
      {only_the_core_knows_the_system, "core/src/fs.cpp", "<windows.h>", false},
      {only_the_core_knows_the_system, "core/src/windows/fs.cpp", "<windows.h>", true},
      {only_the_core_knows_the_system, "src/model/a.cpp", "<pybind11/stl.h>", false},
      {only_the_core_knows_the_system, "bindings/python/src/a.cpp", "<pybind11/stl.h>", true},
      {rooms_of_the_library_leave_files_to_the_core, "src/editor/a.cpp", "<fstream>", false},
      {arrows_point_downwards, "src/schema/a.cpp", "\"model/name_match.hpp\"", false},
      {arrows_point_downwards, "src/parser/a.cpp", "\"render/render.hpp\"", false},
      {arrows_point_downwards, "src/input/a.cpp", "\"model/name_match.hpp\"", true},
      {arrows_point_downwards, "src/source/a.cpp", "\"model/name_match.hpp\"", false},
      {arrows_point_downwards, "src/attic/a.cpp", "\"model/name_match.hpp\"", false},
      {arrows_point_downwards, "src/editor/a.cpp", "\"kelp/input/bdf/parser.hpp\"", false},
      {arrows_point_downwards, "src/editor/a.cpp", "\"schema/lookup.hpp\"", true},
      {arrows_point_downwards, "src/schema/a.cpp", "\"schema_lint/problems.hpp\"", false},
      {arrows_point_downwards, "src/schema_lint/a.cpp", "\"validate/value_check.hpp\"", true},
      {arrows_point_downwards, "src/schema_lint/a.cpp", "\"explain/layout.hpp\"", false},
      {arrows_point_downwards, "src/advice/a.cpp", "\"source/elements.hpp\"", true},
      {arrows_point_downwards, "src/advice/a.cpp", "\"diagnose/draft.hpp\"", false},
      {arrows_point_downwards, "src/explain/a.cpp", "\"schema/lookup.hpp\"", true},
      {arrows_point_downwards, "src/explain/a.cpp", "\"kelp/input/bdf/parser.hpp\"", false},
      {the_core_knows_nothing_above_it, "core/src/a.cpp", "\"kelp/input/bdf.hpp\"", false},
      {the_command_uses_public_headers, "apps/kelp-bdf/a.cpp", "\"schema/impl.hpp\"", false},
      {the_command_uses_public_headers, "apps/kelp-bdf/a.cpp", "\"../../src/a.hpp\"", false},
      {the_command_uses_public_headers, "apps/kelp-bdf/a.cpp", "\"cli/output.hpp\"", true},
      {the_bindings_use_public_headers, "bindings/c/a.cpp", "\"schema/impl.hpp\"", false},
      {the_bindings_use_public_headers, "bindings/c/a.cpp", "\"handles.hpp\"", true},
      {only_the_command_line_knows_its_parser, "apps/kelp-bdf/commands/a.cpp", "<CLI/CLI.hpp>",
       false},
      {only_the_command_line_knows_its_parser, "src/editor/a.cpp", "<CLI/CLI.hpp>", false},
      {only_the_command_line_knows_its_parser, "apps/kelp-bdf/cli/a.cpp", "<CLI/CLI.hpp>", true},
      {reports_know_no_command, "apps/kelp-bdf/report/a.cpp", "\"cli/output.hpp\"", false},
      {reports_know_no_command, "apps/kelp-bdf/report/a.cpp", "\"report/json.hpp\"", true},
  };
  for (const Case& it : cases) {
    const SourceFile file = source_from(it.path, "#pragma once\n#include " + it.include + "\n");
    EXPECT_EQ(violations(it.rule, {file}).empty(), it.allowed) << it.path << ' ' << it.include;
  }
}

}  // namespace
}  // namespace kelp::lint
