// Messages, their levels and the line that a user sees.
#include "Velto/Diagnostics/Message.h"

#include <gtest/gtest.h>

#include <unordered_set>

namespace velto {
namespace {

TEST(Message, KeepsWhatItIsMadeOf) {
  Message message(Message::Level::warning, "text", Range("a.txt", 1, 2, 3, 4));
  EXPECT_EQ(message.level, Message::Level::warning);
  EXPECT_EQ(message.message, String("text"));
  EXPECT_EQ(message.range(), Range("a.txt", 1, 2, 3, 4));
  message.message = "other";
  message.level = Message::Level::info;
  EXPECT_EQ(message.description(), String("a.txt:1:2: info: other"));
}

TEST(Message, PrintsTheStartOfItsRangeOnly) {
  const Message message(Message::Level::error, "Expected expression.", Range("a.txt", 3, 14, 4, 2));
  EXPECT_EQ(message.description(), String("a.txt:3:14: error: Expected expression."));
}

TEST(Message, WithoutAFileStartsWithAColon) {
  const Message message(Message::Level::error, "no place", Range("", 0, 0));
  EXPECT_EQ(message.description(), String(":0:0: error: no place"));
}

TEST(MessageLevel, HasTheseRawValuesInThisOrder) {
  using enum Message::Level;
  EXPECT_LT(error, warning);
  EXPECT_LT(warning, info);
  EXPECT_EQ(rawValue(error), "error");
  EXPECT_EQ(rawValue(warning), "warning");
  EXPECT_EQ(rawValue(info), "info");
}

TEST(MessageLevel, IsFoundByItsExactRawValue) {
  EXPECT_EQ(levelWithRawValue("error"), Message::Level::error);
  EXPECT_EQ(levelWithRawValue("warning"), Message::Level::warning);
  EXPECT_EQ(levelWithRawValue("info"), Message::Level::info);
  for (const char* const other : {"Error", "", "errors", "erro", " info", "note"}) {
    EXPECT_EQ(levelWithRawValue(other), std::nullopt) << other;
  }
}

TEST(MessageLevel, CanBeHashed) {
  EXPECT_TRUE(std::unordered_set<Message::Level>{Message::Level::info}.contains(Message::Level::info));
}

}  // namespace
}  // namespace velto
