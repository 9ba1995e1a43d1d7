// Works that are done several at a time are told of in their order.

#include "cli/in_order.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace kelp::app {
namespace {

using Told = std::vector<std::pair<std::size_t, std::size_t>>;  // work and number of its word

void expect_in_order(const Told& told, std::size_t works) {
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
  ASSERT_FALSE(told.empty());
  EXPECT_EQ(told.back().first, works - 1);
}

// Works of very different lengths, some with more to tell than is kept waiting.
Told told_by(unsigned jobs, std::size_t works) {
  Told told;
  OrderedWork all;
  all.count = works;
  all.jobs = jobs;
  all.work = [&told](std::size_t index, Teller& teller) {
    const std::size_t words = index % 50 == 0 ? 2000 : index % 7;
    for (std::size_t word = 0; word <= words; ++word) {
      teller.tell([&told, index, word] { told.emplace_back(index, word); });
    }
  };
  do_in_order(all);
  return told;
}

TEST(InOrder, AnyNumberOfJobsTellsTheSame) {
  constexpr std::size_t works = 400;
  const Told alone = told_by(1, works);
  expect_in_order(alone, works);
  for (const unsigned jobs : {2U, 3U, 16U, 1000U}) {
    EXPECT_EQ(told_by(jobs, works), alone) << jobs;
  }
}

TEST(InOrder, NoWorksAreDoneAtOnce) {
  OrderedWork none;
  none.jobs = 4;
  none.work = [](std::size_t, Teller&) { FAIL(); };
  do_in_order(none);
}

TEST(InOrder, EverythingIsToldInTheThreadThatWaits) {
  const std::thread::id here = std::this_thread::get_id();
  std::size_t told = 0;
  OrderedWork works;
  works.count = 100;
  works.jobs = 4;
  works.work = [&](std::size_t, Teller& teller) {
    teller.tell([&] {
      EXPECT_EQ(std::this_thread::get_id(), here);
      ++told;
    });
  };
  do_in_order(works);
  EXPECT_EQ(told, 100U);
}

// The first work ends last, and none may run far ahead of it meanwhile.
TEST(InOrder, NoWorkIsBegunFarAheadOfTheOneThatIsToldOf) {
  std::atomic<std::size_t> begun = 0;
  std::atomic<std::size_t> told = 0;
  std::atomic<std::size_t> farthest = 0;
  OrderedWork works;
  works.count = 5000;
  works.jobs = 2;
  works.work = [&](std::size_t index, Teller& teller) {
    ++begun;
    if (index % 1000 == 0) {
      const std::size_t wanted = std::min<std::size_t>(begun + 20, works.count);
      while (begun < wanted) {
        std::this_thread::yield();
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    const std::size_t distance = index - told;
    std::size_t before = farthest;
    while (before < distance && !farthest.compare_exchange_weak(before, distance)) {
    }
    teller.tell([&told] { ++told; });
  };
  do_in_order(works);
  EXPECT_EQ(told, works.count);
  EXPECT_GE(farthest, 10U);
  EXPECT_LE(farthest, 200U);
}

TEST(InOrder, AWorkCanWaitForItsTurn) {
  for (const unsigned jobs : {1U, 4U}) {
    std::size_t told = 0;
    OrderedWork works;
    works.count = 500;
    works.jobs = jobs;
    works.work = [&told](std::size_t index, Teller& teller) {
      if (index % 5 == 0) {
        teller.wait_for_turn();
        EXPECT_EQ(told, index);
      }
      teller.tell([&told] { ++told; });
    };
    do_in_order(works);
    EXPECT_EQ(told, works.count);
  }
}

TEST(InOrder, WhatAWorkThrowsIsPassedOnInItsTurn) {
  for (const unsigned jobs : {1U, 3U}) {
    std::vector<std::size_t> told;
    OrderedWork works;
    works.count = 1000;
    works.jobs = jobs;
    works.work = [&told](std::size_t index, Teller& teller) {
      if (index == 5) {
        throw std::runtime_error("the fifth");
      }
      teller.tell([&told, index] { told.push_back(index); });
    };
    EXPECT_THROW(do_in_order(works), std::runtime_error);
    EXPECT_THAT(told, ::testing::ElementsAre(0, 1, 2, 3, 4));
  }
}

TEST(InOrder, WhatIsToldMayThrow) {
  OrderedWork works;
  works.count = 1000;
  works.jobs = 3;
  works.work = [](std::size_t index, Teller& teller) {
    teller.tell([index] {
      if (index == 7) {
        throw std::runtime_error("the seventh");
      }
    });
  };
  EXPECT_THROW(do_in_order(works), std::runtime_error);
}

TEST(InOrder, AnEndLeavesTheRestUndone) {
  for (const unsigned jobs : {1U, 3U}) {
    std::size_t told = 0;
    std::atomic<std::size_t> done = 0;
    OrderedWork works;
    works.count = 100'000;
    works.jobs = jobs;
    works.work = [&](std::size_t, Teller& teller) {
      ++done;
      teller.tell([&told] { ++told; });
    };
    works.has_ended = [&told] { return told == 10; };
    do_in_order(works);
    EXPECT_EQ(told, 10U);
    EXPECT_LT(done, works.count / 2);
  }
}

}  // namespace
}  // namespace kelp::app
