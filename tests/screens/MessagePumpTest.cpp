#include "aldlib/screens/MessagePump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "aldlib/screens/Accelerators.h"
#include "aldlib/screens/WindowTable.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/QueueDecorator.h"

namespace ald {
namespace {

using testing::ElementsAre;

constexpr std::uint32_t kProbe = 0x8001;

// Writes down what a message was offered to, and takes it at the offer the test names.
class OfferingQueue : public QueueDecorator {
 public:
  using QueueDecorator::QueueDecorator;

  bool TranslateAccelerator(WindowHandle hFrame, AcceleratorHandle, const WindowMessage&) override {
    return Note("accelerator", hFrame);
  }
  bool TranslateMdiAccelerator(WindowHandle hClient, const WindowMessage&) override {
    return Note("client", hClient);
  }
  bool IsDialogMessage(WindowHandle hDialog, const WindowMessage&) override {
    return Note("dialog", hDialog);
  }
  void Translate(const WindowMessage&) override { m_log.push_back("translate"); }
  void Dispatch(const WindowMessage&) override { m_log.push_back("dispatch"); }
  std::intptr_t Send(WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t,
                     std::intptr_t) override {
    return Note("send", hWindow), nMessage;
  }

  CString m_sTakenBy;
  std::vector<CString> m_log;

 private:
  bool Note(const char* szWhat, WindowHandle hWindow) {
    m_log.push_back(szWhat + CString(" ") + std::to_string(static_cast<std::uint32_t>(hWindow)));
    return m_log.back() == m_sTakenBy;
  }
};

class MessagePump : public testing::Test {
 protected:
  MessagePump() { MyAlderLibDataPtr->hMainWindow = WindowHandle{1}; }

  std::vector<CString> Offer(const char* szTakenBy = "") {
    m_queue.m_sTakenBy = szTakenBy;
    m_queue.m_log.clear();
    const WindowMessage message{WindowHandle{9}, kMessageKeyDown, 0, 0};
    Dispatch(&message);
    return m_queue.m_log;
  }

  FakePlatform m_platform;
  OfferingQueue m_queue{CurrentPlatform().desktop.queue};
  const PlatformWithQueue m_installed{m_queue};
};

TEST_F(MessagePump, OffersAMessageInOrderUntilOneTakesIt) {
  SetAccelerator(AcceleratorHandle{50});
  MyAlderLibDataPtr->hMDIClient = WindowHandle{2};
  for (const std::uint32_t nDialog : {3U, 0U, 4U}) {
    AddWindowToTable(WindowHandle{nDialog}, 0, true);
  }
  AddWindowToTable(WindowHandle{5}, 0, false);  // plays no part
  EXPECT_THAT(Offer(), ElementsAre("accelerator 1", "client 2", "dialog 3", "dialog 4", "translate",
                                   "dispatch"));
  EXPECT_THAT(Offer("accelerator 1"), ElementsAre("accelerator 1"));
  EXPECT_THAT(Offer("client 2"), ElementsAre("accelerator 1", "client 2"));
  EXPECT_THAT(Offer("dialog 3"), ElementsAre("accelerator 1", "client 2", "dialog 3"));
}

TEST_F(MessagePump, LeavesOutWhatIsNotThere) {
  EXPECT_THAT(Offer(), ElementsAre("translate", "dispatch"));
  AlderLibDataType* const pRecord = MyAlderLibDataPtr;
  AddWindowToTable(WindowHandle{3}, 0, true);
  MyAlderLibDataPtr = nullptr;
  EXPECT_THAT(Offer(), ElementsAre("translate", "dispatch"));
  MyAlderLibDataPtr = pRecord;
  Dispatch(nullptr);
}

TEST_F(MessagePump, BroadcastsToTheDialogsFirstAndLeavesOutByTheDialogTable) {
  for (const std::uint32_t n : {1U, 2U, 3U}) AddWindowToTable(WindowHandle{n}, 0, true);
  for (const std::uint32_t n : {11U, 12U, 13U, 14U}) AddWindowToTable(WindowHandle{n}, 0, false);
  BroadcastMessage(kProbe, 0, 0);
  EXPECT_THAT(m_queue.m_log, ElementsAre("send 1", "send 2", "send 3", "send 11", "send 12",
                                         "send 13", "send 14"));
  // The neighbour of the dialog goes with it.
  m_queue.m_log.clear();
  BroadcastMessageWithExclusion(WindowHandle{2}, kProbe, 0, 0);
  EXPECT_THAT(m_queue.m_log, ElementsAre("send 1", "send 3", "send 11", "send 13", "send 14"));
  // A data entry window is still sent to.
  m_queue.m_log.clear();
  BroadcastMessageWithExclusion(WindowHandle{12}, kProbe, 0, 0);
  EXPECT_THAT(m_queue.m_log, testing::SizeIs(7));
}

// The rest runs on the windows in memory.
class Pump : public testing::Test {
 protected:
  Pump() {
    Windows& windows = m_desktop.windows;
    windows.RegisterClass("Screen", "",
                          [this](WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                                 std::intptr_t nLong) {
                            if (nMessage >= kProbe || nMessage == kMessageClose)
                              m_handled.push_back(nMessage);
                            if (nMessage == kProbe && nWord == 1)
                              RemoveWindowFromTable(hWindow, true);
                            // A close message is only noted.
                            return nMessage == kMessageClose ? 0
                                                             : m_desktop.windows.DefaultProcedure(
                                                                   hWindow, nMessage, nWord, nLong);
                          });
    m_hScreen = NewScreen();
  }

  WindowHandle NewScreen() {
    return m_desktop.windows.Create(
        {.sClass = "Screen", .sText = "", .nStyle = kStyleVisible, .place = {0, 0, 100, 100}});
  }
  void Post(std::uint32_t nMessage) { m_desktop.queue.Post(m_hScreen, nMessage, 0, 0); }

  FakePlatform m_platform;
  Desktop m_desktop = CurrentPlatform().desktop;
  WindowHandle m_hScreen{};
  std::vector<std::uint32_t> m_handled;
};

TEST_F(Pump, HandsOnOneMessageAtATimeUntilTheQuit) {
  Post(kProbe);
  Post(kProbe + 1);
  m_desktop.queue.PostQuit(0);
  EXPECT_EQ(MyGetMessage(), 1);
  EXPECT_THAT(m_handled, ElementsAre(kProbe));
  EXPECT_EQ(MyGetMessage(), 1);
  EXPECT_EQ(MyGetMessage(), 0);
}

TEST_F(Pump, AHandlerMayRemoveWindowsInTheMiddleOfABroadcast) {
  AddWindowToTable(m_hScreen, 0, true);
  AddWindowToTable(NewScreen(), 0, true);
  BroadcastMessage(kProbe, 1, 0);
  EXPECT_THAT(m_handled, ElementsAre(kProbe, kProbe));
  EXPECT_EQ(DataEntryManagerData.nDialogs, 0);
}

TEST_F(Pump, PostsToTheMainWindowWhenThereIsOne) {
  PostMessageToMainWindow(kProbe, 0, 0);
  YieldFor(0, false);
  EXPECT_TRUE(m_handled.empty());
  MyAlderLibDataPtr->hMainWindow = m_hScreen;
  PostMessageToMainWindow(kProbe, 0, 0);
  YieldFor(0, false);
  EXPECT_THAT(m_handled, ElementsAre(kProbe));
}

TEST_F(Pump, YieldsOncePerMillisecondAndDrainsTheQueue) {
  Post(kProbe);
  Post(kProbe + 1);
  YieldFor(0, false);
  EXPECT_THAT(m_handled, ElementsAre(kProbe, kProbe + 1));
  EXPECT_TRUE(m_platform.m_clock.m_sleeps.empty());
  YieldFor(3, false);
  EXPECT_THAT(m_platform.m_clock.m_sleeps, ElementsAre(1, 1, 1));
}

TEST_F(Pump, YieldsOnceWhenTheDeadlineDoesNotFit) {
  m_platform.m_clock.m_nTicks = std::numeric_limits<std::uint32_t>::max() - 2;
  YieldFor(3, false);
  EXPECT_THAT(m_platform.m_clock.m_sleeps, ElementsAre(1));
}

TEST_F(Pump, StopsYieldingWhenTheTicksStartAgain) {
  constexpr std::uint32_t kMostTicks = std::numeric_limits<std::uint32_t>::max();
  int nPasses = 0;
  m_platform.m_desktop.WhenIdle([&](int) {
    m_platform.m_clock.m_nTicks += 10;
    return ++nPasses < 5;
  });
  for (const std::uint16_t nMilliseconds : {std::uint16_t{0}, std::uint16_t{3}}) {
    m_platform.m_clock.m_nTicks = kMostTicks - 4;
    nPasses = 0;
    YieldFor(nMilliseconds, false);
    EXPECT_EQ(nPasses, 1) << nMilliseconds;
  }
}

TEST_F(Pump, AHeldCloseMessageIsNeitherHandledNorLost) {
  Post(kMessageClose);
  Post(kProbe);
  YieldFor(5, true);
  EXPECT_THAT(m_handled, ElementsAre(kProbe));
  YieldFor(0, false);
  EXPECT_THAT(m_handled, ElementsAre(kProbe, kMessageClose));
}

TEST_F(Pump, GivesTheFocusToATopWindowThatCanBeSeen) {
  EXPECT_EQ(RedirectFocusToTop(), 0);
  MyAlderLibDataPtr->hTopWindow = m_hScreen;
  EXPECT_EQ(RedirectFocusToTop(), 1);
  EXPECT_EQ(m_desktop.windows.Focus(), m_hScreen);
  m_desktop.windows.Show(m_hScreen, kShowHide);
  EXPECT_EQ(RedirectFocusToTop(), 0);
}

TEST_F(Pump, TakesTheForegroundAndLeavesTheTimeoutAsItWas) {
  m_desktop.windows.SetMainWindow(m_hScreen);
  const WindowHandle hOther = NewScreen();
  m_desktop.windows.SetForeground(hOther);
  m_desktop.windows.SetForegroundLockTimeout(200);
  MakeUsActive();
  EXPECT_EQ(m_desktop.windows.Active(), m_hScreen);
  EXPECT_EQ(m_desktop.windows.ForegroundLockTimeout(), 200U);
}

}  // namespace
}  // namespace ald
