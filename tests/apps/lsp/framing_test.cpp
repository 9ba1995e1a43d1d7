#include "lsp/framing.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace kelp::app::lsp {
namespace {

using testing::ElementsAre;

/// Returns what a stream holds, in pieces of a size; a complaint begins with `!`.
std::vector<std::string> items_of(std::string_view stream, std::size_t piece = 1000000) {
  MessageReader reader;
  std::vector<std::string> items;
  for (std::size_t at = 0; at < stream.size(); at += piece) {
    reader.feed(stream.substr(at, piece));
    while (const auto item = reader.next()) {
      items.push_back((item->is_message ? "" : "! ") + item->text);
    }
  }
  return items;
}

TEST(Framing, MessagesAreCutOutOfAStreamWhateverItsPieces) {
  const std::string stream = framed("{}") + framed("") + framed("{\"a\": \"\xC3\xA4\r\n\r\n\"}");
  for (const std::size_t piece : {1, 2, 3, 7, 1000}) {
    EXPECT_THAT(items_of(stream, piece), ElementsAre("{}", "", "{\"a\": \"\xC3\xA4\r\n\r\n\"}"))
        << piece;
  }
}

TEST(Framing, TheLengthOfAMessageCountsBytes) {
  EXPECT_EQ(framed("\xC3\xA4"), "Content-Length: 2\r\n\r\n\xC3\xA4");
}

TEST(Framing, OtherFieldsAndLettersOfAnyCaseArePassedOver) {
  EXPECT_THAT(items_of("content-type: application/vscode-jsonrpc; charset=utf8\r\n"
                       "CONTENT-LENGTH:  2 \r\nX: y\r\n\r\n{}"),
              ElementsAre("{}"));
}

TEST(Framing, AHeaderThatCannotBeReadIsToldOnceAndTheNextOneFound) {
  struct Row {
    const char* header;
    const char* complaint;
  };
  for (const Row& row : {
           Row{"Content-Length: two\r\n\r\n{\"a\":1}",
               "! the length of the content is no number of bytes"},
           Row{"Content-Length: -2\r\n\r\n{}", "! the length of the content is no number of bytes"},
           Row{"Content-Length: 99999999999999999999\r\n\r\n{}",
               "! the length of the content is no number of bytes"},
           Row{"Content-Length: \r\n\r\n{}", "! the length of the content is no number of bytes"},
           Row{"Content-Type: a; charset=latin1\r\nX-Length: 2\r\n\r\n{}",
               "! the content is not UTF-8"},
           Row{"X-Length: 2\r\n\r\n{}", "! the header does not say how long the content is"},
           Row{"{\"jsonrpc\"}\r\n\r\n", "! a line of the header is no field"},
       }) {
    EXPECT_THAT(items_of(row.header + framed("{}")), ElementsAre(row.complaint, "{}"))
        << row.header;
  }
}

TEST(Framing, AHeaderWithoutEndIsToldAndDoesNotGrow) {
  EXPECT_THAT(items_of(std::string(100000, 'x') + framed("{}"), 100),
              ElementsAre("! the header is too long", "{}"));
}

TEST(Framing, AMessageThatHasNotArrivedIsWaitedFor) {
  EXPECT_THAT(items_of("Content-Length: 3\r\n\r\n{}"), ElementsAre());
}

TEST(Framing, WhateverAStreamHoldsTheNextMessageBehindALostOneIsRead) {
  std::mt19937 random(5);
  for (int round = 0; round < 300; ++round) {
    std::string stream = framed("{\"id\":1}") + framed("{\"id\":2}");
    stream[random() % stream.size()] = static_cast<char>(random() % 256);
    // What was lost may take the first one along, and a longer length the second; the one behind a
    // gap of that size cannot be missed.
    stream += std::string(100, ' ') + framed("{\"id\":3}") + framed("{\"id\":4}");
    const std::vector<std::string> items = items_of(stream, 1 + random() % 50);
    EXPECT_THAT(items, testing::Contains("{\"id\":4}")) << stream;
  }
}

}  // namespace
}  // namespace kelp::app::lsp
