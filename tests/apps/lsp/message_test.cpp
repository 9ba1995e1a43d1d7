#include "lsp/message.hpp"

#include <gtest/gtest.h>

#include <string>

namespace kelp::app::lsp {
namespace {

TEST(Messages, AreRequestsNotificationsOrResponses) {
  struct Row {
    const char* content;
    MessageKind kind;
  };
  for (const Row& row : {
           Row{R"({"id":1,"method":"a"})", MessageKind::Request},
           Row{R"({"id":"x","method":"a","params":[]})", MessageKind::Request},
           Row{R"({"method":"a"})", MessageKind::Notification},
           Row{R"({"id":1,"result":null})", MessageKind::Response},
           Row{R"({"id":null,"error":{"code":1}})", MessageKind::Response},
       }) {
    EXPECT_EQ(read_message(row.content).kind, row.kind) << row.content;
  }
}

TEST(Messages, ThatAreNoneSayWhatIsWrong) {
  struct Row {
    std::string content;
    ErrorCode error;
    Json id;
  };
  for (const Row& row : {
           Row{"", ErrorCode::ParseError, nullptr},
           Row{"{", ErrorCode::ParseError, nullptr},
           Row{"[]", ErrorCode::InvalidRequest, nullptr},
           Row{"7", ErrorCode::InvalidRequest, nullptr},
           Row{"{}", ErrorCode::InvalidRequest, nullptr},
           Row{R"({"id":3})", ErrorCode::InvalidRequest, 3},
           Row{R"({"id":3,"method":[]})", ErrorCode::InvalidRequest, 3},
           Row{R"({"id":{},"method":"a"})", ErrorCode::InvalidRequest, nullptr},
           Row{R"({"id":1.5,"method":"a"})", ErrorCode::InvalidRequest, nullptr},
       }) {
    const Message message = read_message(row.content);
    EXPECT_EQ(message.kind, MessageKind::Malformed) << row.content;
    EXPECT_EQ(message.error, row.error) << row.content;
    EXPECT_EQ(message.id, row.id) << row.content;
    EXPECT_NE(message.trouble, "") << row.content;
  }
}

TEST(Messages, OfAnyDepthAreRead) {
  const std::string deep(200000, '[');
  EXPECT_EQ(read_message(deep).error, ErrorCode::ParseError);
  const std::string closed = deep + std::string(200000, ']');
  EXPECT_EQ(read_message(R"({"id":)" + closed + R"(,"method":"a"})").error,
            ErrorCode::InvalidRequest);
}

TEST(Messages, InAnotherEncodingAreReadWithReplacementCharacters) {
  const Message message = read_message("{\"method\":\"a\",\"params\":\"\xC4\xE3 \xC3\xA4\"}");
  EXPECT_EQ(message.kind, MessageKind::Notification);
  EXPECT_EQ(message.params, "\xEF\xBF\xBD\xEF\xBF\xBD \xC3\xA4");
}

TEST(Messages, AreWrittenAsUtf8WhateverTheyHold) {
  EXPECT_EQ(text_of({{"a", "\xFF"}}), "{\"a\":\"\xEF\xBF\xBD\"}");
}

TEST(Members, ThatAreMissingOrOfAnotherTypeAreTold) {
  const Json object = {{"text", "a"}, {"number", 1}, {"less", -1}};
  EXPECT_EQ(text_member(object, "text"), "a");
  EXPECT_EQ(number_member(object, "number"), 1U);
  EXPECT_THROW(text_member(object, "number"), RequestError);
  EXPECT_THROW(number_member(object, "less"), RequestError);
  EXPECT_THROW(member(object, "other"), RequestError);
  EXPECT_THROW(member(Json::array(), "text"), RequestError);
  EXPECT_TRUE(find_member({{"a", {{"b", 1}}}}, {"a", "c"}).is_null());
  EXPECT_TRUE(find_member(7, {"a"}).is_null());
}

}  // namespace
}  // namespace kelp::app::lsp
