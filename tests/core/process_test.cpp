#include "kelp/core/process.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#ifdef _WIN32
#include <process.h>
#define KELP_OWN_PROCESS ::_getpid()
#else
#include <unistd.h>
#define KELP_OWN_PROCESS ::getpid()
#endif

namespace kelp::core::process {
namespace {

TEST(Processes, ThatRunAreKnown) {
  EXPECT_TRUE(is_running(KELP_OWN_PROCESS));
}

TEST(Processes, ThatDoNotExistAreKnown) {
  EXPECT_FALSE(is_running(0));
  EXPECT_FALSE(is_running(-1));
  EXPECT_FALSE(is_running(std::numeric_limits<std::int64_t>::max()));
  EXPECT_FALSE(is_running(0x7FFFFFFF));
}

}  // namespace
}  // namespace kelp::core::process
