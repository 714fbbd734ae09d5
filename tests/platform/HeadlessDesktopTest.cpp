#include "aldlib/platform/headless/HeadlessDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include "tests/support/DesktopContract.h"
#include "tests/support/HeadlessBench.h"

namespace ald {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HeadlessUnderTest : public DesktopUnderTest {
 public:
  Desktop Ports() override { return m_bench.Ports(); }
  bool Press(WindowHandle hDialog, std::int32_t nId) override {
    return m_bench.Press(hDialog, nId);
  }
  bool Type(WindowHandle hControl, std::string_view sText) override {
    return m_bench.Type(hControl, sText);
  }
  bool Key(std::uint32_t nKey) override { return m_bench.Key(nKey); }
  void WhenWaiting(std::function<bool(WindowHandle)> user) override {
    m_bench.WhenWaiting(std::move(user));
  }

 private:
  FakeClock m_clock;
  HeadlessDesktop m_bench{m_clock};
};

INSTANTIATE_TEST_SUITE_P(Headless, DesktopContract,
                         testing::Values(DesktopMaker{
                             "headless", [] { return std::make_unique<HeadlessUnderTest>(); }}));

TEST_F(HeadlessBench, AnswersBoxesByScriptAndThenByTheirDefault) {
  m_bench.SetApplicationName("Ledger");
  m_bench.Answer({kButtonNo, kButtonOk});
  Presenter& presenter = m_desktop.presenter;
  EXPECT_EQ(presenter.PlainBox({}, "Save?", "Disk", kBoxYesNoCancel | kBoxQuestion), kButtonNo);
  EXPECT_EQ(presenter.FrameworkBox("Again?", kBoxRetryCancel, 7), kButtonRetry)
      << "it has no OK, so that answer is lost";
  EXPECT_EQ(presenter.PlainBox({}, "Sure?", "Disk", kBoxYesNo | kBoxDefaultSecond), kButtonNo);
  const std::vector<ShownBox>& boxes = m_bench.Boxes();
  ASSERT_EQ(boxes.size(), 3U);
  EXPECT_EQ(boxes[0].kind, ShownBox::Kind::kPlain);
  EXPECT_EQ(boxes[0].sText, "Save?");
  EXPECT_EQ(boxes[0].nFlags, kBoxYesNoCancel | kBoxQuestion);
  EXPECT_EQ(boxes[1].kind, ShownBox::Kind::kFramework);
  EXPECT_EQ(boxes[1].sCaption, "Ledger");
  EXPECT_EQ(boxes[1].nHelpTopic, 7);
  EXPECT_EQ(boxes[2].nAnswer, kButtonNo);
  EXPECT_EQ(m_bench.Live(), LiveObjects{});
  m_bench.ForgetOutput();
  EXPECT_THAT(m_bench.Boxes(), IsEmpty());
}

TEST_F(HeadlessBench, HasTheButtonsThatTheFlagsOfABoxName) {
  const struct {
    std::uint32_t nFlags;
    std::vector<std::int32_t> buttons;
    int nDefault;
    int nEscape;  // what the escape key answers; 0 if it does nothing
  } rows[] = {
      {kBoxOk, {1}, 1, 1},
      {kBoxOkCancel | kBoxDefaultSecond, {1, 2}, 2, 2},
      {kBoxAbortRetryIgnore | kBoxDefaultThird, {3, 4, 5}, 5, 0},
      {kBoxYesNoCancel | kBoxHelp, {6, 7, 2, 9}, 6, 2},
      {kBoxYesNo | kBoxDefaultSecond | kBoxStop, {6, 7}, 7, 0},
      {kBoxRetryCancel, {4, 2}, 4, 2},
      {kBoxOk | kBoxDefaultSecond, {1}, 1, 1},
      {kBoxOk | kBoxHelp | kBoxDefaultSecond, {1, 9}, 1, 1},
      {0xF, {1}, 1, 1},
  };
  for (const auto& row : rows) {
    std::vector<std::int32_t> buttons;
    int nAsked = 0;
    m_bench.WhenWaiting([&](WindowHandle hBox) {
      if (nAsked++ > 0) return false;
      for (const WindowHandle hChild : m_desktop.windows.Children(hBox)) {
        if (m_bench.IsOfClass(hChild, "BUTTON")) {
          buttons.push_back(m_desktop.windows.ControlId(hChild));
        }
      }
      EXPECT_EQ(m_bench.DefaultButton(hBox), row.nDefault);
      return m_bench.Key(0x1B);
    });
    const int nAnswer = m_desktop.presenter.PlainBox({}, "x", "y", row.nFlags);
    EXPECT_EQ(nAnswer, row.nEscape != 0 ? row.nEscape : row.nDefault) << row.nFlags;
    EXPECT_EQ(buttons, row.buttons) << row.nFlags;
  }
}

TEST_F(HeadlessBench, EndsADialogInWhichNothingCanHappen) {
  std::vector<std::uint32_t> commands;
  const auto deaf = [&](WindowHandle, std::uint32_t nMessage, std::uint32_t nWord,
                        std::intptr_t) -> std::intptr_t {
    if (nMessage == kMessageCommand) commands.push_back(nWord);
    return 1;
  };
  EXPECT_EQ(m_desktop.presenter.RunDialog({}, {}, SmallDialog(), deaf, 0), kButtonCancel);
  EXPECT_THAT(commands, ElementsAre(kButtonCancel)) << "it was asked first";

  // A timer that goes on for ever, and a user who only looks.
  const WindowHandle hOther = Shown();
  m_desktop.queue.SetTimer(hOther, 1, 500);
  EXPECT_EQ(m_desktop.presenter.RunDialog({}, {}, SmallDialog(), deaf, 0), kButtonCancel);
  EXPECT_EQ(m_desktop.presenter.PlainBox({}, "x", "y", kBoxYesNo), kButtonYes);
  m_bench.WhenWaiting([](WindowHandle) { return true; });
  EXPECT_EQ(m_desktop.presenter.RunDialog({}, {}, SmallDialog(), deaf, 0), kButtonCancel);
}

TEST_F(HeadlessBench, LetsADialogWaitForItsTimer) {
  int nRings = 0;
  const auto procedure = [&](WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t,
                             std::intptr_t) -> std::intptr_t {
    if (nMessage == kMessageInitDialog) return m_desktop.queue.SetTimer(hDialog, 1, 250);
    if (nMessage != kMessageTimer) return 0;
    if (++nRings == 3) m_desktop.presenter.EndDialog(hDialog, 33);
    return 1;
  };
  EXPECT_EQ(m_desktop.presenter.RunDialog({}, {}, SmallDialog(), procedure, 0), 33);
  EXPECT_THAT(m_clock.m_sleeps, ElementsAre(250, 250, 250));
  EXPECT_EQ(m_bench.Live(), LiveObjects{}) << "the timer went with its window";
}

TEST_F(HeadlessBench, EndsAllDialogsWhenTheApplicationQuits) {
  int nInner = 0;
  m_bench.WhenWaiting([&](WindowHandle) {
    if (nInner != 0) return false;
    m_desktop.queue.PostQuit(3);
    nInner = m_desktop.presenter.PlainBox({}, "inner", "y", kBoxOkCancel | kBoxDefaultSecond);
    return true;
  });
  EXPECT_EQ(m_desktop.presenter.PlainBox({}, "outer", "y", kBoxYesNo), kButtonYes);
  EXPECT_EQ(nInner, kButtonCancel);
  WindowMessage message{};
  EXPECT_FALSE(m_desktop.queue.Get(message));
  EXPECT_EQ(message.nWord, 3U);
}

TEST_F(HeadlessBench, QuitsWhenNothingCanComeAnyMore) {
  WindowMessage message{};
  EXPECT_FALSE(m_desktop.queue.Get(message));
  EXPECT_EQ(message.nMessage, kMessageQuit);
}

TEST_F(HeadlessBench, RingsTimersWhenTheyAreDueAlsoAcrossTheEndOfTheTicks) {
  m_clock.m_nTicks = 0xFFFFFFF0;
  const WindowHandle hWindow = m_desktop.windows.Create({.sClass = "STATIC"});
  m_desktop.queue.SetTimer(hWindow, 1, 50);
  m_desktop.queue.SetTimer(hWindow, 2, 20);
  WindowMessage message{};
  EXPECT_FALSE(m_desktop.queue.Peek(message, false));
  std::vector<std::uint32_t> rung;
  for (int i = 0; i < 5; ++i) {
    ASSERT_TRUE(m_desktop.queue.Get(message));
    rung.push_back(message.nWord);
  }
  EXPECT_THAT(rung, ElementsAre(2, 2, 1, 2, 2));  // at 20, 40, 50, 60 and 80
  EXPECT_THAT(m_clock.m_sleeps, ElementsAre(20, 20, 10, 10, 20));
}

TEST_F(HeadlessBench, KeepsALateTimerFromHoldingUpABox) {
  // Each ring takes longer than the period, so the timer is due whenever anybody looks.
  const WindowHandle hWindow = Shown();
  m_desktop.windows.SetProcedure(
      hWindow, [&](WindowHandle, std::uint32_t nMessage, std::uint32_t, std::intptr_t) {
        if (nMessage == kMessageTimer) m_clock.m_nTicks += 100;
        return std::intptr_t{0};
      });
  m_desktop.queue.SetTimer(hWindow, 1, 10);
  m_clock.m_nTicks += 10;
  m_bench.Answer(kButtonNo);
  EXPECT_EQ(m_desktop.presenter.PlainBox({}, "x", "y", kBoxYesNo), kButtonNo);
}

TEST_F(HeadlessBench, HasAnEmptyQueueForOtherThreads) {
  const WindowHandle hWindow = m_desktop.windows.Create({.sClass = "STATIC"});
  m_desktop.queue.Post(hWindow, kMessageClose, 0, 0);
  bool bOwn = true;
  bool bWaits = true;
  std::thread([&] {
    WindowMessage message{};
    bOwn = m_desktop.queue.IsApplicationThread();
    bWaits = m_desktop.queue.Peek(message, true);
  }).join();
  EXPECT_FALSE(bOwn);
  EXPECT_FALSE(bWaits);
  EXPECT_TRUE(m_desktop.queue.IsApplicationThread());
}

TEST_F(HeadlessBench, WantsTheHeldKeysOfAnAccelerator) {
  const Accelerator keys[] = {{.nKey = 'N', .nCommand = 10, .bControl = true},
                              {.nKey = 'N', .nCommand = 11, .bControl = true, .bShift = true}};
  const AcceleratorHandle hKeys = m_desktop.queue.CreateAccelerators(keys);
  const WindowHandle hFrame = Shown();
  m_desktop.windows.SetMainWindow(hFrame);
  m_desktop.windows.SetFrameAccelerator(hKeys);
  std::vector<std::uint32_t> commands;
  m_desktop.windows.SetProcedure(
      hFrame, [&](WindowHandle, std::uint32_t nMessage, std::uint32_t nWord, std::intptr_t) {
        if (nMessage == kMessageCommand) commands.push_back(nWord & 0xFFFF);
        return std::intptr_t{0};
      });
  const MenuHandle hBar = m_desktop.menus.CreateBar();
  m_desktop.menus.Append(hBar, 0, 10, "&New");
  m_desktop.menus.SetOf(hFrame, hBar);
  Drain();
  m_bench.Key('N');
  m_bench.Key('N', {.bControl = true});
  m_bench.Key('N', {.bControl = true, .bShift = true});
  Drain();  // no accelerators on this road
  EXPECT_THAT(commands, IsEmpty());
  const auto pumpKeys = [&] {
    m_bench.Key('N');
    m_bench.Key('N', {.bControl = true});
    m_bench.Key('N', {.bControl = true, .bShift = true});
    WindowMessage message{};
    while (m_desktop.queue.Peek(message, false)) m_desktop.queue.PumpOne();
  };
  pumpKeys();
  EXPECT_THAT(commands, ElementsAre(10, 11));
  EXPECT_TRUE(m_bench.ChooseMenu(10));
  EXPECT_FALSE(m_bench.ChooseMenu(12));

  m_desktop.menus.Enable(hBar, 10, kMenuGrayed);
  commands.clear();
  pumpKeys();
  EXPECT_THAT(commands, ElementsAre(11));
  EXPECT_FALSE(m_bench.ChooseMenu(10));
}

TEST_F(HeadlessBench, TurnsKeysIntoCharactersForTheFocus) {
  const WindowHandle hParent = Shown();
  const WindowHandle hEdit = Control(hParent, "EDIT", "");
  m_desktop.windows.SetFocus(hEdit);
  m_bench.Key('A');
  m_bench.Key('B', {.bShift = true});
  m_bench.Key('7');
  m_bench.Key('C');
  m_bench.Key(8);
  m_bench.Key('D', {.bControl = true});
  WindowMessage message{};
  while (m_desktop.queue.Peek(message, false)) m_desktop.queue.PumpOne();
  EXPECT_EQ(m_desktop.windows.Text(hEdit), "aB7");
  EXPECT_FALSE(m_desktop.queue.IsKeyDown(kKeyShift));
  m_bench.Hold(kKeyShift, true);
  EXPECT_TRUE(m_desktop.queue.IsKeyDown(kKeyShift));
}

TEST_F(HeadlessBench, FollowsTheLettersOfADialog) {
  bool bAtName = false;
  const auto procedure = [&](WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t nWord,
                             std::intptr_t) -> std::intptr_t {
    if (nMessage != kMessageCommand) return nMessage == kMessageInitDialog;
    m_desktop.presenter.EndDialog(hDialog, static_cast<std::intptr_t>(nWord));
    return 1;
  };
  int nLooks = 0;
  m_bench.WhenWaiting([&](WindowHandle hDialog) {
    Windows& windows = m_desktop.windows;
    if (nLooks++ == 0) {
      windows.SetFocus(windows.Child(hDialog, 12));
      return m_bench.Key('N', {.bAlt = true});
    }
    bAtName = windows.Focus() == windows.Child(hDialog, 11);
    return m_bench.Key('C', {.bAlt = true});
  });
  EXPECT_EQ(m_desktop.presenter.RunDialog({}, {}, SmallDialog(), procedure, 0), kButtonCancel);
  EXPECT_TRUE(bAtName);
}

TEST_F(HeadlessBench, OwnsABoxByTheDialogInFrontAndDisablesTheMainWindowBehindIt) {
  const WindowHandle hMain = Shown();
  m_desktop.windows.SetMainWindow(hMain);
  WindowHandle hOuter{};
  m_bench.WhenWaiting([&](WindowHandle hModal) {
    if (m_bench.Boxes().empty()) {
      hOuter = hModal;
      m_desktop.presenter.FrameworkBox("inner", kBoxOk, -1);
      return true;
    }
    if (hModal != hOuter) {
      EXPECT_FALSE(m_desktop.windows.IsEnabled(hMain));
      EXPECT_FALSE(m_bench.Press(hOuter, kButtonOk)) << "a box lies in front";
    }
    return false;
  });
  // The outer dialog has no owner, so it leaves the main window enabled.
  m_desktop.presenter.RunDialog({}, {}, SmallDialog(), nullptr, 0);
  ASSERT_EQ(m_bench.Boxes().size(), 1U);
  EXPECT_EQ(m_bench.Boxes()[0].hOwner, hOuter);
  EXPECT_TRUE(m_desktop.windows.IsEnabled(hMain));
}

TEST_F(HeadlessBench, WritesDownWhatATestAsksAfter) {
  const WindowHandle hWindow = Shown();
  m_desktop.windows.Flash(hWindow, true);
  m_desktop.windows.Flash(hWindow, false);
  m_desktop.menus.Redraw(hWindow);
  EXPECT_THAT(m_bench.Flashed(), ElementsAre(hWindow));
  EXPECT_THAT(m_bench.RedrawnMenus(), ElementsAre(hWindow));
  EXPECT_TRUE(m_desktop.help.OpenTopic(hWindow, "Msghelp.chm", 20301));
  ASSERT_EQ(m_bench.OpenedTopics().size(), 1U);
  EXPECT_EQ(m_bench.OpenedTopics()[0].nTopic, 20301U);
  m_bench.SetHelpViewer(false);
  EXPECT_FALSE(m_desktop.help.OpenTopic(hWindow, "Msghelp.chm", 1));
  m_desktop.queue.LockTemporaryMaps();
  EXPECT_EQ(m_bench.Live().nMapLocks, 1);
  m_desktop.queue.UnlockTemporaryMaps(false);

  m_bench.WhenIdle([](int nCount) { return nCount < 1; });
  EXPECT_TRUE(m_desktop.queue.Idle(0));
  EXPECT_FALSE(m_desktop.queue.Idle(1));

  const WindowHandle hForeign = m_bench.AddForeignWindow(7, 4711, "Other", "Another program");
  EXPECT_THAT(m_desktop.windows.OfThread(7), ElementsAre(hForeign));
  EXPECT_EQ(m_desktop.windows.ProcessOf(hForeign), 4711U);
  EXPECT_THAT(m_desktop.windows.TopLevel(), ElementsAre(hWindow));

  m_bench.ForgetOutput();
  m_bench.RecordOutput(false);
  m_desktop.windows.Invalidate(hWindow, nullptr, true);
  m_desktop.presenter.PlainBox({}, "x", "y", kBoxOk);
  EXPECT_THAT(m_bench.Invalidated(), IsEmpty());
  EXPECT_THAT(m_bench.Boxes(), IsEmpty());
}

TEST_F(HeadlessBench, SurvivesAHandlerThatDestroysItsOwnWindows) {
  const WindowHandle hParent = Shown();
  const WindowHandle hButton = Control(hParent, "BUTTON", "Close");
  m_desktop.windows.SetProcedure(hParent, [&](WindowHandle h, std::uint32_t nMessage,
                                              std::uint32_t nWord, std::intptr_t nLong) {
    if (nMessage == kMessageCommand || nMessage == kMessageColorButton) {
      m_desktop.windows.Destroy(h);
      return std::intptr_t{0};
    }
    return m_desktop.windows.DefaultProcedure(h, nMessage, nWord, nLong);
  });
  EXPECT_TRUE(m_bench.Press(hParent, 5));
  EXPECT_FALSE(m_desktop.windows.IsWindow(hButton));

  const WindowHandle hNext = Shown();
  const WindowHandle hPainted = Control(hNext, "BUTTON", "Paint");
  m_desktop.windows.SetProcedure(
      hNext, [&](WindowHandle h, std::uint32_t nMessage, std::uint32_t, std::intptr_t) {
        if (nMessage == kMessageColorButton) m_desktop.windows.Destroy(h);
        return std::intptr_t{0};
      });
  Drain();
  EXPECT_FALSE(m_desktop.windows.IsWindow(hPainted));

  const auto destroys = [&](WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t,
                            std::intptr_t) -> std::intptr_t {
    if (nMessage == kMessageCommand) m_desktop.windows.Destroy(hDialog);
    return 0;
  };
  m_bench.Answer(kButtonOk);
  EXPECT_EQ(m_desktop.presenter.RunDialog({}, {}, SmallDialog(), destroys, 0), 0);
  EXPECT_EQ(m_bench.Live(), LiveObjects{});
}

}  // namespace
}  // namespace ald
