// A session of which letters, words and lines were changed: whatever arrives, each request that can
// be told has one answer, and every answer is well formed.

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "lsp/framing.hpp"
#include "lsp/server.hpp"
#include "support/files.hpp"
#include "support/folders.hpp"
#include "support/schema.hpp"

namespace kelp::app::lsp {
namespace {

std::vector<std::string> session() {
  std::istringstream lines(test::file_bytes(test::source_folder() / "fuzz/seeds/lsp/session.txt"));
  std::vector<std::string> messages;
  for (std::string line; std::getline(lines, line);) {
    messages.push_back(line);
  }
  return messages;
}

class Mutator {
 public:
  explicit Mutator(unsigned seed) : random_(seed) {}

  std::size_t below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }

  void change(std::string& text) {
    static const std::vector<std::string> pieces = {
        "null", "-1", "99999999999",    "1e9",  "[]",       "{}", "\"\"", "\\n", "\\r", "$end",
        "true", "\"", "\\ud83e\\uddea", "\xFF", "geometry", "/",  "="};
    const std::size_t at = below(text.size() + 1);
    switch (below(4)) {
      case 0:
        text.insert(at, pieces[below(pieces.size())]);
        break;
      case 1:
        text.erase(at, below(8));
        break;
      case 2: {
        // A number or a word makes way for another one.
        const std::size_t begin = text.find_first_of(":[,", at);
        const std::size_t end = text.find_first_of(",]}", begin);
        if (end != std::string::npos) {
          text.replace(begin + 1, end - begin - 1, pieces[below(pieces.size())]);
        }
        break;
      }
      default:
        if (at < text.size()) {
          text[at] = static_cast<char>(below(256));
        }
    }
  }

 private:
  std::mt19937 random_;
};

TEST(MutatedSessions, GetOneWellFormedAnswerForEachRequest) {
  const std::vector<std::string> messages = session();
  ASSERT_GT(messages.size(), 20U);
  for (unsigned round = 0; round < 60; ++round) {
    Mutator mutator(round);
    std::string sent;
    ServerSetup setup;
    setup.load_schema = [](const std::string&) { return input::bdf::shipped_schema(); };
    Server server(std::move(setup),
                  [&sent](const Json& message) { sent += framed(text_of(message)); });
    std::string stream;
    for (std::string message : messages) {
      // The first ones stay, or else most rounds would end there.
      for (std::size_t i = 0; i < mutator.below(3) && stream.size() > 900; ++i) {
        mutator.change(message);
      }
      stream += framed(message);
    }
    MessageReader reader;
    reader.feed(stream);
    std::size_t requests = 0;
    while (const auto item = reader.next()) {
      ASSERT_TRUE(item->is_message);
      const Message message = read_message(item->text);
      const bool is_answered =
          message.kind == MessageKind::Request || message.kind == MessageKind::Malformed;
      requests += is_answered && !server.is_over() ? 1 : 0;
      if (!server.is_over()) {
        server.handle(message);
        server.publish_findings();
      }
    }
    MessageReader answers;
    answers.feed(sent);
    std::size_t count = 0;
    std::string again;
    while (const auto item = answers.next()) {
      ASSERT_TRUE(item->is_message) << item->text;
      const Json answer = Json::parse(item->text, nullptr, false);
      ASSERT_TRUE(answer.is_object()) << item->text;
      EXPECT_EQ(answer["jsonrpc"], "2.0");
      count += answer.contains("method") ? 0 : 1;
      EXPECT_NE(answer.contains("method"), answer.contains("result") || answer.contains("error"))
          << item->text;
      again += framed(item->text);
    }
    EXPECT_EQ(count, requests) << "round " << round;
    EXPECT_EQ(again, sent);
  }
}

}  // namespace
}  // namespace kelp::app::lsp
