// A published input with which nothing is wrong has no finding, not even a warning.

#include <gtest/gtest.h>

#include "corpus.hpp"

namespace kelp::test {
namespace {

TEST(PublishedInputs, WithoutAFaultHaveNoFinding) {
  KELP_NEED_CORPUS();
  std::size_t clean = 0;
  for (const CorpusInput& input : corpus()) {
    if (!input.is_clean()) {
      continue;
    }
    ++clean;
    for (const Found& found : findings_in(input.text)) {
      ADD_FAILURE() << input.name << ":" << found.line << ": " << found.message;
    }
  }
  EXPECT_GT(clean, 150U);
}

}  // namespace
}  // namespace kelp::test
