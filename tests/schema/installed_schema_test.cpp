// Which schema a program finds from where it and the library are installed.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "support/files.hpp"
#include "support/process.hpp"

namespace kelp::input::bdf {
namespace {

namespace stdfs = std::filesystem;

using test::TemporaryFolder;
using test::utf8;
using testing::AllOf;
using testing::HasSubstr;

// Where the system looks for libraries; on Windows those of the compiler must stay in reach.
#ifdef _WIN32
constexpr const char* library_variable = "PATH";
constexpr const char* program_name = "probe.exe";
std::string library_folders(const std::string& folder) {
  const char* const others = std::getenv("PATH");
  return folder + ';' + (others == nullptr ? "" : others);
}
#else
constexpr const char* library_variable = "LD_LIBRARY_PATH";
constexpr const char* program_name = "probe";
std::string library_folders(const std::string& folder) {
  return folder;
}
#endif

/// A program and the library in folders of their own, away from the source tree.
class Installation {
 public:
  Installation(const stdfs::path& program, const stdfs::path& library)
      : program_(folder_ / program), library_(folder_ / library) {
    stdfs::create_directories(program_);
    stdfs::create_directories(library_);
    stdfs::copy_file(KELP_PROBE, program_ / program_name);
    stdfs::copy_file(KELP_LIBRARY, library_ / KELP_LIBRARY_NAME);
  }

  const TemporaryFolder& folder() const { return folder_; }

  void add_schema(const stdfs::path& path, const std::string& module) const {
    test::write_file(folder_ / path, "schema_version: 1\nmodules: {" + module + ": ~}\n");
  }

  // Returns what the program prints, with the slashes of one system.
  std::string run(const std::optional<std::string>& schema_variable = std::nullopt) const {
    test::ProcessSetup setup;
    setup.program = program_ / program_name;
    setup.folder = folder_.path();
    setup.input = streams_ / "input";
    setup.errors = streams_ / "errors";
    setup.output = streams_ / "output";
    setup.variables = {{"KELP_BDF_INP_SCHEMA_YAML", schema_variable},
                       {library_variable, library_folders(utf8(library_))}};
    test::write_file(setup.input, "");
    EXPECT_EQ(test::run_process(setup), 0);
    std::string output = test::file_bytes(setup.output);
    std::replace(output.begin(), output.end(), '\\', '/');
    return output;
  }

 private:
  TemporaryFolder folder_;
  TemporaryFolder streams_;
  stdfs::path program_;
  stdfs::path library_;
};

constexpr const char* installed = "share/kelp/schemas/input/bdf.yaml";

TEST(InstalledSchema, IsEmptyWhenThereIsNone) {
  const Installation here("p/bin", "p/lib");
  EXPECT_THAT(here.run(),
              AllOf(HasSubstr("path ''"), HasSubstr("empty 1"), HasSubstr("parsed 1 known 0")));
}

TEST(InstalledSchema, OfThePrefixIsFound) {
  const Installation here("p/bin", "p/lib/x86_64-linux-gnu");
  here.add_schema(stdfs::path("p") / installed, "own");
  EXPECT_THAT(here.run(), AllOf(HasSubstr("/p/share/kelp/schemas/input/bdf.yaml'"),
                                HasSubstr("module own"), HasSubstr("parsed 1 known 1")));
}

TEST(InstalledSchema, OfTheLibraryComesBeforeThatOfTheProgram) {
  const Installation here("a/bin", "b/lib");
  here.add_schema(stdfs::path("a") / installed, "of_program");
  EXPECT_THAT(here.run(), HasSubstr("module of_program"));
  here.add_schema(stdfs::path("b") / installed, "of_library");
  EXPECT_THAT(here.run(), HasSubstr("module of_library"));
}

TEST(InstalledSchema, BesideTheProgramIsFoundWithoutShareKelp) {
  const Installation here("p/bin", "p/lib");
  here.add_schema("p/bin/schemas/input/bdf.yaml", "beside");
  EXPECT_THAT(here.run(), HasSubstr("module beside"));
}

TEST(InstalledSchema, OfTheCurrentFolderIsNotTaken) {
  // Seven folders down, so that climbing from the program does not reach the current folder.
  const Installation here("1/2/3/4/5/6/7", "1/2/3/4/5/6/7");
  here.add_schema("schemas/input/bdf.yaml", "planted");
  here.add_schema(installed, "planted");
  EXPECT_THAT(here.run(), HasSubstr("empty 1"));
}

TEST(InstalledSchema, IsFoundSixFoldersUp) {
  const Installation here("1/2/3/4/5/6", "1/2/3/4/5/6");
  here.add_schema(installed, "far");
  EXPECT_THAT(here.run(), HasSubstr("module far"));
}

TEST(InstalledSchema, GivesWayToTheVariablesFile) {
  const Installation here("p/bin", "p/lib");
  here.add_schema(stdfs::path("p") / installed, "installed");
  here.add_schema("other.yaml", "named");
  EXPECT_THAT(here.run("other.yaml"), HasSubstr("module named"));
  EXPECT_THAT(here.run("p"), HasSubstr("module installed"));
  EXPECT_THAT(here.run("missing.yaml"), HasSubstr("module installed"));
}

TEST(InstalledSchema, ThatIsBrokenIsAnError) {
  const Installation here("p/bin", "p/lib");
  test::write_file(here.folder() / "p" / installed, "x: 1\n");
  EXPECT_THAT(here.run(), HasSubstr("error failed to load BDF input schema '"));
}

}  // namespace
}  // namespace kelp::input::bdf
