#include "aldlib/frame/MessageDoor.h"

#include <gtest/gtest.h>

#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

TEST(MessageArguments, AreTextsWhenAnyHighBitIsSet) {
  for (std::uint32_t nMessage : {0U, 1U, 20301U, 65535U}) {
    const MessageArgument message = MessageByNumber(static_cast<std::uint16_t>(nMessage));
    EXPECT_FALSE(IsMessageText(message));
    EXPECT_EQ(MessageNumber(message), nMessage);
    EXPECT_EQ(MessageText(message), nullptr);
  }
  const char* const szText = "text";
  EXPECT_TRUE(IsMessageText(MessageByText(szText)));
  EXPECT_EQ(MessageText(MessageByText(szText)), szText);
  EXPECT_TRUE(IsMessageText(0x10000));
  EXPECT_TRUE(IsMessageText(-1));
  EXPECT_FALSE(IsMessageText(MessageByText(nullptr)));
}

TEST(PlainDoor, WritesTheTextWithoutItsSignsAndAnswersCancel) {
  const struct {
    MessageArgument message;
    CString sExpected;
  } rows[] = {
      {MessageByNumber(20301), "Not enough Memory to run.\n"},
      {MessageByNumber(12345), "<unknown message 12345>\n"},
      {MessageByText("**|In use: 100%s?"), "In use: 100%s?\n"},
      {MessageByText(""), "\n"},
      {MessageByText("@"), "\n"},
  };
  const NoDoor noDoor;
  for (const auto& row : rows) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(CurrentMessageDoor().Ask(row.message), kAnswerCancel);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), row.sExpected);
  }
}

TEST(ConnectedDoor, IsInUseUntilTheFormerOneComesBack) {
  const NoDoor noDoor;
  MessageDoor& plain = CurrentMessageDoor();
  {
    RecordingDoor outer;
    outer.m_nAnswer = kAnswerRetry;
    {
      RecordingDoor inner;
      EXPECT_EQ(&CurrentMessageDoor(), &inner);
    }
    EXPECT_EQ(CurrentMessageDoor().Ask(MessageByNumber(7)), kAnswerRetry);
    EXPECT_EQ(outer.m_shown, std::vector<std::uint32_t>{7});
    EXPECT_EQ(ConnectMessageDoor(nullptr), &outer);
    EXPECT_EQ(&CurrentMessageDoor(), &plain);
    EXPECT_EQ(ConnectMessageDoor(&outer), nullptr);
  }
  EXPECT_EQ(&CurrentMessageDoor(), &plain);
}

TEST(ConnectedDoor, IsTheMessageEngineUnlessTheHostHasAnother) {
  const auto reload = [] {
    AlderLibEntry(AlderLibHandle(), kProcessDetach, nullptr);
    AlderLibEntry(AlderLibHandle(), kProcessAttach, nullptr);
  };
  FakePlatform platform;
  MessageDoor& engine = CurrentMessageDoor();
  {
    RecordingDoor host;
    reload();
    EXPECT_EQ(&CurrentMessageDoor(), &host);
  }
  EXPECT_EQ(&CurrentMessageDoor(), &engine);
  AlderLibEntry(AlderLibHandle(), kProcessDetach, nullptr);
  EXPECT_NE(&CurrentMessageDoor(), &engine);
  AlderLibEntry(AlderLibHandle(), kProcessAttach, nullptr);
  EXPECT_EQ(&CurrentMessageDoor(), &engine);
}

}  // namespace
}  // namespace ald
