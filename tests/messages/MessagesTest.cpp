#include "aldlib/messages/Messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "aldlib/arith/DecimalLiteral.h"
#include "tests/messages/MessagesFixture.h"

namespace ald {
namespace {

using namespace literals;
using Kind = ShownBox::Kind;

using FetchedMessage = MessagesFixture;
using ShownMessage = MessagesFixture;
using MessageWindow = MessagesFixture;
using MessageHelp = MessagesFixture;
using LibraryBox = MessagesFixture;

constexpr const char* kPara = "*### %$% %$% ###";

TEST_F(FetchedMessage, LosesItsSignsAndSetsTheFlags) {
  const struct {
    std::uint32_t nFlags;
    MessageArgument message;
    const char* szText;
    std::uint32_t nExpected;
  } rows[] = {
      {0x40, MessageByText("plain"), "plain", 0x40},
      {0, MessageByText("plain"), "plain", 0x35},
      {0x40, MessageByText("!!Sure?"), "Sure?", 0x34},
      {0x40, MessageByText("!|Sure?"), "|Sure?", 0x31},
      {0x4040, MessageByText("@Stop"), "Stop", 0x10},  // signs override all that was passed
      {0, MessageByNumber(100), "|Invalid date", 0x40},
      {0, MessageByNumber(20301), "Not enough Memory to run.", 0x1010},
      {0, MessageByNumber(20318), "Error in Windows Initialization.  No printer was installed.",
       0x10},
      {0, MessageByNumber(20336), "Not enough memory to print.", 0x40},  // modal only with "@"
      {0x40, MessageByNumber(12345), "<unknown message 12345>", 0x35},
      {0x40, MessageByNumber(0), "<unknown message 0>", 0x35},
  };
  for (const auto& row : rows) {
    std::uint32_t nFlags = row.nFlags;
    CFixedString<100> sText("before");
    GetTheMessage(&nFlags, row.message, sText);
    EXPECT_STREQ(sText, row.szText);
    EXPECT_EQ(nFlags, row.nExpected) << row.szText;
    GetTheMessage(nullptr, row.message, sText);
    EXPECT_STREQ(sText, row.szText);
  }
}

TEST_F(FetchedMessage, IsUnknownByTheLowBitsOfItsAddressIfItIsEmpty) {
  const char* const szEmpty = "";
  CFixedString<40> sText;
  std::uint32_t nFlags = 0x10;
  GetTheMessage(&nFlags, MessageByText(szEmpty), sText);
  const auto nLow = reinterpret_cast<std::uintptr_t>(szEmpty) & 0xFFFF;
  EXPECT_EQ(sText.view(), "<unknown message " + std::to_string(nLow) + ">");
  EXPECT_EQ(nFlags, 0x35U);

  GetTheMessageEx(&nFlags, MessageArgument{0x7000000} + 102, sText);  // never an address
  EXPECT_STREQ(sText, "Stop");
  EXPECT_EQ(nFlags, 0x10U);
  char szSmall[3] = "?";
  GetTheMessage(&nFlags, MessageByNumber(101), {szSmall, 3});
  EXPECT_STREQ(szSmall, "D");
}

TEST_F(ShownMessage, HasTextFlagsTopicAndLogOfItsOperation) {
  const CDecimal amount = -1234.5_dec;
  const MsgPara aParas[] = {ParaCard(7), {9, 1}, ParaAmount(&amount), ParaText("abc")};
  const CString sLong(1500, 'x');
  const struct {
    std::function<std::uint16_t()> show;
    Kind kind;
    CString sText;
    std::uint32_t nFlags;
    std::int32_t nTopic;
    std::uint16_t nLogged;
    CString sLogged;  // empty: the text
  } rows[] = {
      {[] { return Message(0, MessageByNumber(100)); }, Kind::kHelp, "Invalid date", 0x4040, 100,
       100, "|Invalid date"},
      {[] { return Message(0, MessageByNumber(105)); }, Kind::kHelp, "Topic only", 0x40, 105, 105,
       "|!Topic only"},
      {[] { return Message(0x30, MessageByNumber(106)); }, Kind::kFramework, "Plain", 0x30, -1, 106,
       ""},
      {[] { return Message(0x4041, MessageByNumber(106)); }, Kind::kHelp, "Plain", 0x4041, 106, 106,
       ""},
      {[] { return Message(0, MessageByNumber(999)); }, Kind::kFramework, "<unknown message 999>",
       0x35, -1, 999, ""},
      {[] { return Message(0, MessageByText("^Sure?")); }, Kind::kFramework, "Sure?", 0x24, -1, 0,
       ""},
      {[] { return Message(0, (1 << 20) + 100, true); }, Kind::kHelp, "Invalid date", 0x4040, 100,
       0, "|Invalid date"},
      {[&] { return Message(0x40, MessageByText(sLong.c_str())); }, Kind::kFramework,
       sLong.substr(0, 1023), 0x40, -1, 0, sLong.substr(0, 69)},
      {[] { return VeryLongMessage(0, 100, 103); }, Kind::kHelp, "Invalid dateDelete?Stop", 0x4040,
       100, 100, "|Invalid dateDelete?Stop"},
      {[] { return VeryLongMessage(0x40, 100, 100); }, Kind::kFramework, "", 0x40, -1, 100, ""},
      {[] { return MessageWithCard(0, MessageByNumber(103), 12); }, Kind::kFramework,
       "Give 12 to $$$", 0x34, -1, 103, ""},
      {[] { return MessageWithString(0, MessageByNumber(103), "Ada"); }, Kind::kFramework,
       "Give ### to Ada", 0x34, -1, 103, ""},
      {[] { return MessageStr(0x24, "*Text", 7); }, Kind::kFramework, "*Text", 0x24, -1, 0, ""},
      {[] { return MessageStr(0x24, "|Text", -7); }, Kind::kHelp, "Text", 0x4024, -7, 0, "|Text"},
      {[&] { return MessageStr(0x40, sLong.c_str(), 0); }, Kind::kFramework, sLong, 0x40, -1, 0,
       sLong.substr(0, 69)},
      {[] { return MessageStr(0, nullptr, 0); }, Kind::kFramework, "", 0, -1, 0, ""},
      {[] { return MessageStrWithCard(0x40, "|Row ###, ###", 5); }, Kind::kHelp, "Row 5, ###",
       0x4040, 0, 0, "|Row 5, ###"},
      {[] { return MessageStrWithString(0x40, "For $$$", "Ada"); }, Kind::kFramework, "For Ada",
       0x40, -1, 0, ""},
      {[] { return MessageWithArgs(0, MessageByNumber(104), 3, "10"); }, Kind::kFramework,
       "3 of 10", 0x30, -1, 104, ""},
      {[] { return MessageWithArgs(0, MessageByNumber(104), 3); }, Kind::kFramework, "%d of %s",
       0x30, -1, 104, ""},
      {[] { return MessageWithArgsEx(0, (1 << 20) + 104, 3, "10"); }, Kind::kFramework, "3 of 10",
       0x30, -1, 0, ""},
      {[] { return MessageStrArg(0x40, 9, "|%s!", "Now"); }, Kind::kHelp, "Now!", 0x4040, 9, 0,
       "|Now!"},
      {[&] { return MessageStrArg(0x40, 9, "%s", sLong); }, Kind::kFramework, sLong.substr(0, 511),
       0x40, -1, 0, sLong.substr(0, 69)},
      {[&] { return MessageWithPara(0x40, MessageByText(kPara), 4, aParas); }, Kind::kFramework,
       "*7 -1,234.50 abc ###", 0x40, -1, 0, ""},
      {[&] { return MessageWithPara(0x40, MessageByText(kPara), 1, aParas); }, Kind::kFramework,
       "*7 %$% %$% ###", 0x40, -1, 0, ""},
      {[] { return MessageWithPara(0x40, MessageByNumber(102), -1, nullptr); }, Kind::kFramework,
       "@Stop", 0x40, -1, 102, ""},
      {[] { return PrintOrPreviewMessage(107, true, 5); }, Kind::kHelp,
       "Preview &d: preview now, Print", 0x4031, 107, 107, "|Preview &d: preview now, Print"},
      {[] { return PrintOrPreviewMessage(107, false, 5); }, Kind::kHelp,
       "Print &d: print now, Print", 0x4031, 107, 107, "|Print &d: print now, Print"},
      {[] { return Lib_Message(0, MessageByNumber(100)); }, Kind::kPlain, "|Invalid date", 0x40, -1,
       100, ""},
      {[] { return Lib_MessageWithCard(0, MessageByNumber(103), 3); }, Kind::kPlain,
       "Give 3 to $$$", 0x34, -1, 103, ""},
      {[] {
         return Lib_MessageWithString(0, MessageByNumber(103), {"Ada Lovelace", 3});
       },
       Kind::kPlain, "Give ### to Ada", 0x34, -1, 103, ""},
  };
  for (const auto& row : rows) {
    const std::size_t nBoxes = Desk().Boxes().size();
    const std::uint16_t nButton = row.show();
    ASSERT_EQ(Desk().Boxes().size(), nBoxes + 1) << row.sText;
    const ShownBox& box = LastBox();
    EXPECT_EQ(box.kind, row.kind) << row.sText;
    EXPECT_EQ(box.sText, row.sText);
    EXPECT_EQ(box.nFlags, row.nFlags) << row.sText;
    EXPECT_EQ(box.nHelpTopic, row.nTopic) << row.sText;
    EXPECT_EQ(box.sCaption, row.kind == Kind::kPlain ? "Alderfell Library" : "Books") << row.sText;
    EXPECT_EQ(nButton, box.nAnswer) << row.sText;
    EXPECT_NE(nButton, 0) << row.sText;
    const std::vector<LoggedMessage> logged = Logged();
    ASSERT_FALSE(logged.empty()) << row.sText;
    EXPECT_EQ(logged.front().nNumber, row.nLogged) << row.sText;
    EXPECT_EQ(logged.front().sText, row.sLogged.empty() ? row.sText : row.sLogged);
  }
}

TEST_F(ShownMessage, ReturnsTheButtonThatTheUserPressed) {
  for (const int nButton : {kButtonYes, kButtonNo, kButtonCancel}) {
    Desk().Answer(nButton);
    EXPECT_EQ(Message(0, MessageByNumber(101)), nButton);
  }
  EXPECT_EQ(Message(0, MessageByNumber(101)), kButtonNo);  // the default, where nobody answers
}

TEST_F(ShownMessage, JoinsLongTextsUntilTheBufferIsFull) {
  const CString sFirst = "*" + CString(600, 'a');
  const CString sSecond = "?" + CString(600, 'b');
  m_platform.AddModule({{500, sFirst.c_str()}, {501, sSecond.c_str()}, {502, "c"}}, 1);
  VeryLongMessage(0, 500, 503);
  EXPECT_EQ(LastBox().sText, CString(600, 'a') + CString(422, 'b') + "c");
  EXPECT_EQ(LastBox().nFlags, 0x40U);
  VeryLongMessage(0, 65535, MessageArgument{1} << 40);  // ends with the numbers
  EXPECT_EQ(LastBox().sText, "<unknown message 65535>");
}

TEST_F(ShownMessage, NeedsNoBoxWhereThereIsNoMemoryForTheText) {
  const std::function<std::uint16_t()> calls[] = {
      [] { return Message(0, 100); },
      [] { return VeryLongMessage(0, 100, 102); },
      [] { return MessageWithCard(0, 103, 1); },
      [] { return MessageWithString(0, 103, "a"); },
      [] { return MessageStr(0, "a", 0); },
      [] { return MessageStrWithCard(0, "###", 1); },
      [] { return MessageStrWithString(0, "$$$", "a"); },
      [] { return MessageWithPara(0, 103, 0, nullptr); },
      [] { return PrintOrPreviewMessage(107, false, 1); },
      [] { return MessageWithArgs(0, 104, 1, "a"); },
      [] { return MessageStrArg(0, 1, "a"); },
  };
  for (const auto& show : calls) {
    Desk().ForgetOutput();
    FailAllocation(1);
    EXPECT_EQ(show(), 0);
    ASSERT_EQ(Desk().Boxes().size(), 1U);  // the store's own
    EXPECT_EQ(LastBox().sText, "Not enough Memory to run.");
    EXPECT_EQ(LastBox().nFlags, 0x1010U);
    EXPECT_EQ(Logged().front().nNumber, 20301);
  }
}

TEST_F(ShownMessage, IsOnTheScreenForAsLongAsItsBoxAndMayLetOthersIn) {
  SetHelpLevel(40);
  std::vector<std::pair<int, int>> seen;  // bInMessage and the help level
  const auto look = [&] { seen.emplace_back(MyAlderLibDataPtr->bInMessage, GetHelpLevel()); };
  bool bNested = false;
  Desk().WhenWaiting([&](WindowHandle) {
    look();
    if (!bNested) {
      bNested = true;
      Message(0, MessageByNumber(102));  // no topic
      look();
      Message(0, MessageByNumber(105));
      look();
    }
    return false;
  });
  Desk().Answer({kButtonOk, kButtonOk, kButtonOk});
  look();
  Message(0, MessageByNumber(100));
  look();
  using Level = std::pair<int, int>;
  EXPECT_THAT(seen, testing::ElementsAre(Level{0, 40}, Level{1, -100}, Level{1, 0}, Level{1, -100},
                                         Level{1, -105}, Level{1, -100}, Level{0, 40}));
  // An outer message is logged before its box lets others in.
  ASSERT_EQ(Logged().size(), 3U);
  EXPECT_EQ(Logged()[0].nNumber, 105);
  EXPECT_EQ(Logged()[2].nNumber, 100);
}

TEST_F(ShownMessage, ComesWithoutALibraryRecordInThePlainestWay) {
  AlderLibDataType* const pRecord = MyAlderLibDataPtr;
  MyAlderLibDataPtr = nullptr;
  SetHelpLevel(5);
  Desk().WhenWaiting([](WindowHandle) {
    EXPECT_EQ(GetHelpLevel(), 5);
    return false;
  });
  Message(0, MessageByText("*|!Before all"));
  EXPECT_EQ(LastBox().kind, Kind::kFramework);
  EXPECT_EQ(LastBox().sText, "!Before all");
  EXPECT_EQ(LastBox().nFlags, 0x4040U);
  Message(0, MessageByNumber(100));
  EXPECT_EQ(LastBox().sText, "<unknown message 100>");
  Lib_Message(0, MessageByText("*|Before all"));
  EXPECT_EQ(LastBox().sText, "|Before all");
  MyAlderLibDataPtr = pRecord;
  EXPECT_EQ(LogBytes(), "");
}

TEST_F(MessageWindow, GivesTheFocusBackAndEnablesWhatItDisabled) {
  Windows& windows = CurrentPlatform().desktop.windows;
  const auto make = [&](const char* szText) {
    return windows.Create({.sClass = "EDIT",
                           .sText = szText,
                           .nStyle = kStyleVisible,
                           .place = {0, 0, 100, 20},
                           .hParent = {},
                           .nId = 0,
                           .hModule = {}});
  };
  const WindowHandle hMain = make("main");
  const WindowHandle hOther = make("other");
  windows.SetMainWindow(hMain);
  windows.SetFocus(hOther);
  Desk().WhenWaiting([&](WindowHandle) {
    EXPECT_NE(windows.Focus(), hOther);
    return false;
  });
  for (const MessageArgument message : {100, 102, 105}) {
    Message(0, message);
    EXPECT_EQ(windows.Focus(), hOther) << message;
    EXPECT_TRUE(windows.IsEnabled(hMain) && windows.IsEnabled(hOther)) << message;
  }
  EXPECT_EQ(LastBox().hOwner, hMain);
  Message(0, MessageByNumber(100), false, hOther);  // a parent owns a box with a topic
  EXPECT_EQ(LastBox().hOwner, hOther);
  Message(0x4000, MessageByNumber(106), false, hOther);
  EXPECT_EQ(LastBox().hOwner, hMain);
  Lib_Message(0, MessageByNumber(100));
  EXPECT_EQ(LastBox().hOwner, hOther);
  EXPECT_EQ(windows.Focus(), hOther);
}

TEST_F(MessageWindow, WaitsForTheApplicationAndCallsTheUser) {
  Windows& windows = CurrentPlatform().desktop.windows;
  int nTimers = 0;
  windows.RegisterClass(
      "MAIN", "", [&](WindowHandle, std::uint32_t nMessage, std::uint32_t nWord, std::intptr_t) {
        if (nMessage == kMessageTimer) {
          EXPECT_EQ(nWord, 2U);
          EXPECT_TRUE(Desk().Boxes().empty());
          if (++nTimers == 3) WeBecomeActive();
        }
        return std::intptr_t{0};
      });
  WindowSpec spec;
  spec.sClass = "MAIN";
  MyAlderLibDataPtr->hMainWindow = windows.Create(spec);
  const std::uint32_t nStart = m_platform.m_clock.Ticks();
  Message(0, MessageByNumber(102));
  EXPECT_EQ(nTimers, 3);
  EXPECT_EQ(m_platform.m_clock.Ticks() - nStart, 1500U);
  EXPECT_EQ(Desk().Boxes().size(), 1U);
  EXPECT_GE(Desk().Flashed().size(), 3U);
  EXPECT_EQ(Desk().Live().nTimers, 0U);

  Desk().ForgetOutput();
  Message(0, MessageByNumber(102));  // active: at once
  WeBecomeInactive();
  Message(0, MessageByNumber(20315));  // system-modal: at once
  Lib_Message(0, MessageByNumber(102));
  EXPECT_TRUE(Desk().Flashed().empty());
  MyAlderLibDataPtr->hMainWindow = WindowHandle{0xFFFF};  // no window, so no timer
  Message(0, MessageByNumber(102));
  EXPECT_EQ(Desk().Boxes().size(), 4U);
}

TEST_F(MessageWindow, EndsTheProcessIfTheApplicationQuitsMeanwhile) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(
      {
        WindowSpec spec;
        spec.sClass = "EDIT";
        MyAlderLibDataPtr->hMainWindow = CurrentPlatform().desktop.windows.Create(spec);
        CurrentPlatform().desktop.queue.PostQuit(0);
        Message(0, MessageByNumber(102));
      },
      "Quit while message pending\\.");
}

TEST_F(MessageHelp, OpensTheTopicInTheHelpFileOfTheInstallation) {
  const struct {
    const char* szIni;
    const char* szFile;  // "" for no help
  } rows[] = {
      {"ALDERWHELPPATH=C:\\HELP\nPROGRAMPATH=C:\\PROG\n", "C:\\HELP\\Msghelp.chm"},
      {"ALDERWHELPPATH=C:\\HELP\\\n", "C:\\HELP\\Msghelp.chm"},
      {"PROGRAMPATH=C:\\PROG\n", "C:\\PROG\\Help\\Msghelp.chm"},
      {"ALDERWHELPPATH=\nPROGRAMPATH=C:\\\n", "C:\\Help\\Msghelp.chm"},
      {"", ""},
  };
  for (const auto& row : rows) {
    m_platform.m_profile.m_files["PRODUCT.INI"] = CString("[Install]\n") + row.szIni;
    Desk().ForgetOutput();
    Desk().Answer({kButtonHelp, kButtonHelp, kButtonOk});
    EXPECT_EQ(Message(0, MessageByNumber(100)), kButtonOk);  // the help leaves the box up
    const std::size_t nOpened = *row.szFile != '\0' ? 2 : 0;
    ASSERT_EQ(Desk().OpenedTopics().size(), nOpened) << row.szIni;
    for (const OpenedTopic& topic : Desk().OpenedTopics()) {
      EXPECT_EQ(topic.sFile, row.szFile);
      EXPECT_EQ(topic.nTopic, 100U);
    }
  }
}

TEST_F(MessageHelp, CutsAPathThatIsTooLong) {
  m_platform.m_profile.m_files["PRODUCT.INI"] =
      "[Install]\nPROGRAMPATH=C:\\" + CString(400, 'p') + "\n";
  Desk().Answer({kButtonHelp, kButtonOk});
  Message(0, MessageByNumber(100));
  ASSERT_EQ(Desk().OpenedTopics().size(), 1U);
  EXPECT_EQ(Desk().OpenedTopics()[0].sFile.size(), 259U);
}

TEST_F(LibraryBox, IsOwnedByAWindowOfItsOwnWhereNothingHasTheFocus) {
  Windows& windows = CurrentPlatform().desktop.windows;
  const std::size_t nWindows = Desk().Live().nWindows;
  CString sOwnerClass;
  Desk().WhenWaiting([&](WindowHandle) {
    sOwnerClass = windows.ClassName(LastBox().hOwner);
    return false;
  });
  Desk().Answer(kButtonOk);
  EXPECT_EQ(Lib_Message(0, MessageByNumber(102)), kButtonOk);
  EXPECT_EQ(sOwnerClass, "ABD_Edit");
  EXPECT_EQ(windows.Focus(), WindowHandle{});
  EXPECT_EQ(Desk().Live().nWindows, nWindows);
}

TEST_F(LibraryBox, ComesUpEmptyWithoutMemoryForItsText) {
  FailAllocation(1);
  Lib_MessageWithCard(0, MessageByNumber(103), 1);
  ASSERT_EQ(Desk().Boxes().size(), 2U);
  EXPECT_EQ(Desk().Boxes()[0].sText, "Not enough Memory to run.");
  EXPECT_EQ(Desk().Boxes()[1].sText, "");
  EXPECT_EQ(Desk().Boxes()[1].nFlags, 0x35U);
}

TEST_F(LibraryBox, MayLetAnotherOneIn) {
  bool bNested = false;
  Desk().WhenWaiting([&](WindowHandle) {
    if (!bNested) {
      bNested = true;
      Lib_Message(0, MessageByText("*inner"));
    }
    return false;
  });
  Lib_Message(0, MessageByText("*outer"));
  ASSERT_EQ(Desk().Boxes().size(), 2U);
  EXPECT_EQ(Desk().Boxes()[0].sText, "outer");
  EXPECT_EQ(Desk().Boxes()[1].sText, "inner");
}

}  // namespace
}  // namespace ald
