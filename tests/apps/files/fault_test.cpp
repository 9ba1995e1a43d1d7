// The system refuses a step, interrupts it or does half of it: the file holds its old or its new
// text as a whole, nothing lies beside it, and what went wrong is said.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <ostream>
#include <string>

#include "support/program.hpp"

namespace kelp::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

constexpr const char* before = "$scf\n  charge\n    0\n$end\n";
constexpr const char* after = "$scf\n  charge\n    1\n$end\n";

constexpr int ended_by_term = 128 + SIGTERM;
constexpr int ended_by_kill = 128 + SIGKILL;

struct Row {
  const char* faults;
  int status;
  const char* text;
  const char* message;
};

void PrintTo(const Row& row, std::ostream* stream) {
  *stream << row.faults;
}

class SystemFaults : public ::testing::TestWithParam<Row> {
 protected:
  static Outcome set(Program& program, const std::string& faults) {
    program.set_variable("LD_PRELOAD", KELP_FAULTS_LIBRARY);
    program.set_variable("KELP_FAULTS", faults);
    return program.run({"set", "-i", "a.inp", "scf.charge=1"});
  }
};

TEST_P(SystemFaults, LeaveOneWholeText) {
  const Row& row = GetParam();
  Program program;
  program.write("a.inp", before);
  const Outcome outcome = set(program, row.faults);
  EXPECT_EQ(outcome.status, row.status);
  EXPECT_THAT(outcome.err, HasSubstr(row.message));
  EXPECT_EQ(program.read("a.inp"), row.text);
  EXPECT_THAT(names_in(program.folder()), ElementsAre("a.inp"));
}

const Row harmless[] = {
    {"none=", 0, after, ""},
    {"open-unnamed=EOPNOTSUPP", 0, after, ""},
    {"linkat=EXDEV", 0, after, ""},
    {"write=short", 0, after, ""},
    {"write=EINTR", 0, after, ""},
    {"fsync=EINTR", 0, after, ""},
    {"fsync=EINVAL", 0, after, ""},
    {"close=EINTR", 0, after, ""},
    {"open-unnamed=EOPNOTSUPP,write=short,fsync=EINTR", 0, after, ""},
};
INSTANTIATE_TEST_SUITE_P(Harmless, SystemFaults, ::testing::ValuesIn(harmless));

const Row refused[] = {
    {"open-unnamed=EOPNOTSUPP,open-new=ENOSPC", 2, before, "'a.inp': No space left on device"},
    {"write=zero", 2, before, "'a.inp': Input/output error"},
    {"write=ENOSPC", 2, before, "'a.inp': No space left on device"},
    {"fsync=EIO", 2, before, "'a.inp': Input/output error"},
    {"close=EIO", 2, before, "'a.inp': Input/output error"},
    {"fchmod=EPERM", 2, before, "'a.inp': Operation not permitted"},
    {"rename=EBUSY", 2, before, "'a.inp': Device or resource busy"},
    {"linkat=EXDEV,rename=EBUSY", 2, before, "'a.inp': Device or resource busy"},
    {"open-unnamed=EOPNOTSUPP,write=zero", 2, before, "'a.inp': Input/output error"},
    {"open-unnamed=EOPNOTSUPP,write=ENOSPC", 2, before, "'a.inp': No space left on device"},
    {"open-unnamed=EOPNOTSUPP,fsync=EIO", 2, before, "'a.inp': Input/output error"},
    {"open-unnamed=EOPNOTSUPP,close=EIO", 2, before, "'a.inp': Input/output error"},
    {"open-unnamed=EOPNOTSUPP,rename=EBUSY", 2, before, "'a.inp': Device or resource busy"},
};
INSTANTIATE_TEST_SUITE_P(Refused, SystemFaults, ::testing::ValuesIn(refused));

// A file that has a name is in place or gone before a signal ends the command.
const Row ended[] = {
    {"write=SIGTERM", ended_by_term, before, ""},
    {"open-unnamed=EOPNOTSUPP,write=SIGINT", 128 + SIGINT, after, ""},
    {"open-unnamed=EOPNOTSUPP,write=SIGHUP", 128 + SIGHUP, after, ""},
    {"linkat=SIGTERM", ended_by_term, after, ""},
    {"rename=SIGTERM", ended_by_term, after, ""},
    {"open-unnamed=EOPNOTSUPP,write=SIGTERM", ended_by_term, after, ""},
    {"open-unnamed=EOPNOTSUPP,write=SIGTERM,rename=EBUSY", ended_by_term, before, ""},
};
INSTANTIATE_TEST_SUITE_P(Ended, SystemFaults, ::testing::ValuesIn(ended));

// Without a name a file goes with the process that made it.
TEST_F(SystemFaults, AKilledCommandLeavesNoUnnamedFile) {
  Program program;
  program.write("a.inp", before);
  if (set(program, "open-new=EPERM").status != 0) {
    GTEST_SKIP() << "the file system knows no files without a name";
  }
  program.write("a.inp", before);
  EXPECT_EQ(set(program, "write=SIGKILL").status, ended_by_kill);
  EXPECT_EQ(program.read("a.inp"), before);
  EXPECT_THAT(names_in(program.folder()), ElementsAre("a.inp"));
}

}  // namespace
}  // namespace kelp::test
