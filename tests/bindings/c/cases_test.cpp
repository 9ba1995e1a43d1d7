// Runs the cases, and threads, which C has not everywhere.

#include <gtest/gtest.h>

#include <cstddef>
#include <thread>
#include <vector>

#include "bindings/c/cases.h"
#include "kelp/bdf.h"

void kelp_check(int passed, const char* file, int line, const char* what) {
  if (passed == 0) {
    ADD_FAILURE_AT(file, line) << what;
  }
}

#define KELP_RUN_CASE(name) \
  TEST(CInterface, name) {  \
    ::name();               \
  }
KELP_C_CASES(KELP_RUN_CASE)

// Who uses a handle while it is freed gets a right answer or a refusal.
TEST(CInterface, HandlesMayBeFreedByAnotherThread) {
  for (int round = 0; round < 50; ++round) {
    kelp_bdf_input* input = nullptr;
    ASSERT_EQ(kelp_bdf_input_parse("$scf\ncharge\n 1\n$end\n", 20, nullptr, &input, nullptr),
              KELP_BDF_OK);
    std::vector<std::thread> threads;
    std::vector<int> freed(2, 0);
    for (std::size_t i = 0; i < freed.size(); ++i) {
      threads.emplace_back([&, i] {
        kelp_bdf_texts* lines = nullptr;
        const kelp_bdf_status status = kelp_bdf_get(input, "scf.charge", &lines, nullptr);
        EXPECT_TRUE(status == KELP_BDF_OK || status == KELP_BDF_INVALID_HANDLE);
        kelp_bdf_texts_free(lines);
        freed[i] = kelp_bdf_input_free(input) == KELP_BDF_OK ? 1 : 0;
      });
    }
    for (std::thread& thread : threads) {
      thread.join();
    }
    EXPECT_EQ(freed[0] + freed[1], 1);
  }
}
