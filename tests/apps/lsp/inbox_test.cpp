#include "lsp/inbox.hpp"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace kelp::app::lsp {
namespace {

constexpr std::chrono::milliseconds no_time(0);
constexpr std::chrono::milliseconds much_time(60000);

Message request(const Json& id) {
  return read_message(Json{{"id", id}, {"method", "a"}}.dump());
}

Message cancellation(const Json& id) {
  return read_message(Json{{"method", "$/cancelRequest"}, {"params", {{"id", id}}}}.dump());
}

TEST(Inboxes, GiveMessagesInTheirOrderAndThenTheEnd) {
  Inbox inbox;
  EXPECT_FALSE(inbox.take(no_time).has_value());
  inbox.put(request(1));
  inbox.put(request(2));
  inbox.end();
  EXPECT_EQ(inbox.take(no_time)->message.id, 1);
  EXPECT_EQ(inbox.take(no_time)->message.id, 2);
  EXPECT_TRUE(inbox.take(no_time)->is_end);
  EXPECT_FALSE(inbox.take(no_time).has_value());
}

TEST(Inboxes, MarkTheRequestThatIsCancelledWhileItWaits) {
  Inbox inbox;
  inbox.put(request(1));
  inbox.put(request("1"));
  inbox.put(request(2));
  inbox.put(cancellation("1"));
  inbox.put(cancellation(7));
  EXPECT_FALSE(inbox.take(no_time)->is_cancelled);
  EXPECT_TRUE(inbox.take(no_time)->is_cancelled);
  EXPECT_FALSE(inbox.take(no_time)->is_cancelled);
  EXPECT_FALSE(inbox.take(no_time).has_value());
}

TEST(Inboxes, ForgetACancellationThatComesTooLate) {
  Inbox inbox;
  inbox.put(request(1));
  ASSERT_TRUE(inbox.take(no_time).has_value());
  inbox.put(cancellation(1));
  inbox.put(request(1));
  EXPECT_FALSE(inbox.take(no_time)->is_cancelled);
}

TEST(Inboxes, WaitForAnotherThread) {
  Inbox inbox;
  std::thread writer([&inbox] {
    for (int id = 0; id < 1000; ++id) {
      inbox.put(request(id));
    }
  });
  for (int id = 0; id < 1000; ++id) {
    const auto arrival = inbox.take(much_time);
    ASSERT_TRUE(arrival.has_value());
    EXPECT_EQ(arrival->message.id, id);
  }
  writer.join();
}

}  // namespace
}  // namespace kelp::app::lsp
