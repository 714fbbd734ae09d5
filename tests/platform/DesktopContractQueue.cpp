#include <gmock/gmock.h>

#include "aldlib/platform/Presenter.h"
#include "tests/support/DesktopContract.h"

// The queue, boxes and dialogs.
namespace ald {

constexpr std::uint32_t kKeyEnter = 0x0D;
constexpr std::uint32_t kKeyEscape = 0x1B;
constexpr std::uint32_t kKeyTab = 0x09;
constexpr std::uint32_t kKeyF1 = 0x70;

DialogTemplate SmallDialog() {
  constexpr std::uint32_t kStop = kStyleVisible | kStyleTabStop;
  DialogTemplate dialog;
  dialog.nStyle = kStylePopup | kStyleCaption;
  dialog.cx = 160;
  dialog.cy = 80;
  dialog.sTitle = "Small";
  dialog.items = {
      {kStyleVisible, 8, 8, 40, 12, -1, "STATIC", "&Name"},
      {kStop, 52, 8, 100, 12, 11, "EDIT", ""},
      {kStop, 52, 24, 100, 12, 12, "EDIT", ""},
      {kStop | kButtonDefaultPush, 8, 60, 50, 14, kButtonOk, "BUTTON", "OK"},
      {kStop, 64, 60, 50, 14, kButtonCancel, "BUTTON", "&Cancel"},
  };
  return dialog;
}

namespace {

using testing::ElementsAre;

constexpr std::uint32_t kMessageOwn = 0x0500;

// Ends with the id of each command.
DialogProcedure EndByCommand(Presenter& presenter) {
  return [&presenter](WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t nWord,
                      std::intptr_t) -> std::intptr_t {
    if (nMessage == kMessageInitDialog) return 1;
    if (nMessage != kMessageCommand || nWord >> 16 != 0) return 0;
    presenter.EndDialog(hDialog, static_cast<std::intptr_t>(nWord));
    return 1;
  };
}

TEST_P(DesktopContract, ServesPostedMessagesInOrderAndSentOnesAtOnce) {
  const WindowHandle hWindow = Recorder({kMessageOwn});
  Drain();
  EXPECT_TRUE(m_queue.Post(hWindow, kMessageOwn, 1, 10));
  EXPECT_TRUE(m_queue.Post(hWindow, kMessageOwn, 2, 20));
  m_queue.Send(hWindow, kMessageOwn, 3, 30);
  WindowMessage message{};
  EXPECT_TRUE(m_queue.Peek(message, false));
  EXPECT_EQ(message.nWord, 1U);
  EXPECT_TRUE(m_queue.PumpOne());
  EXPECT_TRUE(m_queue.Get(message));
  EXPECT_EQ(message.nWord, 2U);
  m_queue.Dispatch(message);
  EXPECT_FALSE(m_queue.Peek(message, true));
  std::vector<std::intptr_t> longs;
  for (const Heard& heard : m_heard) longs.push_back(heard.nLong);
  EXPECT_THAT(longs, ElementsAre(30, 10, 20));
}

TEST_P(DesktopContract, QuitsOnceAllThatWasPostedIsServed) {
  const WindowHandle hWindow = Recorder({kMessageOwn});
  Drain();
  m_queue.PostQuit(5);
  EXPECT_TRUE(m_queue.Post(hWindow, kMessageOwn, 1, 0));
  WindowMessage message{};
  EXPECT_TRUE(m_queue.Get(message));
  EXPECT_EQ(message.nMessage, kMessageOwn);
  EXPECT_TRUE(m_queue.Peek(message, false));
  EXPECT_EQ(message.nMessage, kMessageQuit);
  EXPECT_EQ(message.nWord, 5U);
  EXPECT_FALSE(m_queue.PumpOne());
}

TEST_P(DesktopContract, RingsATimerUntilItIsKilled) {
  const WindowHandle hWindow = TopLevel();
  Drain();
  ASSERT_TRUE(m_queue.SetTimer(hWindow, 2, 20));
  for (int i = 0; i < 3; ++i) {
    WindowMessage message{};
    ASSERT_TRUE(m_queue.Get(message));
    EXPECT_EQ(message.nMessage, kMessageTimer);
    EXPECT_EQ(message.hWindow, hWindow);
    EXPECT_EQ(message.nWord, 2U);
  }
  EXPECT_TRUE(m_queue.KillTimer(hWindow, 2));
  EXPECT_FALSE(m_queue.KillTimer(hWindow, 2));
}

TEST_P(DesktopContract, RunsADialogUntilItsHandlerEndsIt) {
  const WindowHandle hOwner = TopLevel(kStylePopup | kStyleVisible);
  std::intptr_t nInit = 0;
  bool bOwnerEnabled = true;
  bool bFocusOnFirst = false;
  const auto procedure = [&](WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t nWord,
                             std::intptr_t nLong) -> std::intptr_t {
    if (nMessage == kMessageInitDialog) nInit = nLong;
    return EndByCommand(m_presenter)(hDialog, nMessage, nWord, nLong);
  };
  m_pBench->WhenWaiting([&](WindowHandle hDialog) {
    bOwnerEnabled = m_windows.IsEnabled(hOwner);
    bFocusOnFirst = m_windows.Focus() == m_windows.Child(hDialog, 11);
    EXPECT_TRUE(m_windows.IsVisible(hDialog));
    EXPECT_EQ(m_windows.Parent(hDialog), hOwner);
    EXPECT_EQ(m_windows.Text(hDialog), "Small");
    return m_pBench->Press(hDialog, kButtonOk);
  });
  EXPECT_EQ(m_presenter.RunDialog(hOwner, {}, SmallDialog(), procedure, 42), kButtonOk);
  EXPECT_EQ(nInit, 42);
  EXPECT_FALSE(bOwnerEnabled);
  EXPECT_TRUE(bFocusOnFirst);
  EXPECT_TRUE(m_windows.IsEnabled(hOwner));
  EXPECT_EQ(m_windows.Active(), hOwner);
  EXPECT_FALSE(m_presenter.EndDialog(hOwner, 1));
}

TEST_P(DesktopContract, AnswersADialogByItsKeys) {
  const struct {
    std::vector<std::uint32_t> keys;
    std::intptr_t nResult;
  } rows[] = {
      {{kKeyEnter}, kButtonOk},                                     // from an edit: the default
      {{kKeyEscape}, kButtonCancel},                                // from anywhere
      {{kKeyTab, kKeyTab, kKeyTab, kKeyEnter}, kButtonCancel},      // from the button itself
      {{kKeyTab, kKeyTab, kKeyTab, kKeyTab, kKeyEnter}, kButtonOk}  // round to the first edit
  };
  for (const auto& row : rows) {
    std::size_t nNext = 0;
    m_pBench->WhenWaiting(
        [&](WindowHandle) { return nNext < row.keys.size() && m_pBench->Key(row.keys[nNext++]); });
    EXPECT_EQ(m_presenter.RunDialog({}, {}, SmallDialog(), EndByCommand(m_presenter), 0),
              row.nResult)
        << row.keys.size() << " keys";
  }
}

TEST_P(DesktopContract, TakesAnotherDefaultButtonOnRequest) {
  m_pBench->WhenWaiting([&](WindowHandle hDialog) {
    m_queue.Send(hDialog, kMessageSetDefaultId, kButtonCancel, 0);
    return m_pBench->Key(kKeyEnter);
  });
  EXPECT_EQ(m_presenter.RunDialog({}, {}, SmallDialog(), EndByCommand(m_presenter), 0),
            kButtonCancel);
}

TEST_P(DesktopContract, RefusesADialogOfAnUnknownClass) {
  DialogTemplate dialog = SmallDialog();
  dialog.items[1].sClass = "NoSuchClass";
  const WindowHandle hOwner = TopLevel(kStylePopup | kStyleVisible);
  EXPECT_EQ(m_presenter.RunDialog(hOwner, {}, dialog, nullptr, 0), -1);
  EXPECT_EQ(m_windows.CreateDialog(hOwner, {}, dialog, nullptr, 0), WindowHandle{});
  EXPECT_TRUE(m_windows.IsEnabled(hOwner));
}

TEST_P(DesktopContract, MapsDialogUnitsOfADialogAsItsControlsLie) {
  const WindowHandle hDialog = m_windows.CreateDialog({}, {}, SmallDialog(), nullptr, 0);
  const Rect mapped = m_windows.MapDialogRect(hDialog, {52, 24, 152, 36});
  const Rect place = m_windows.WindowRect(m_windows.Child(hDialog, 12));
  const Point at = m_windows.ToClient(hDialog, {place.left, place.top});
  EXPECT_EQ(at, (Point{mapped.left, mapped.top}));
  EXPECT_EQ(place.Width(), mapped.Width());
  EXPECT_EQ(m_windows.ClientRect(hDialog).Width(),
            m_windows.MapDialogRect(hDialog, {0, 0, 160, 80}).right);
  m_windows.Destroy(hDialog);
}

TEST_P(DesktopContract, ReturnsTheButtonOfABox) {
  const WindowHandle hOwner = TopLevel(kStylePopup | kStyleVisible);
  int nPress = 0;
  m_pBench->WhenWaiting([&](WindowHandle hBox) { return m_pBench->Press(hBox, nPress); });
  for (const int nButton : {kButtonYes, kButtonNo, kButtonCancel}) {
    nPress = nButton;
    EXPECT_EQ(m_presenter.PlainBox(hOwner, "Save?", "Ledger", kBoxYesNoCancel), nButton);
  }
  nPress = kButtonRetry;
  EXPECT_EQ(m_presenter.FrameworkBox("Again?", kBoxRetryCancel, -1), kButtonRetry);
  EXPECT_TRUE(m_windows.IsEnabled(hOwner));
}

TEST_P(DesktopContract, RunsTheHelpOfABoxAndLeavesItUp) {
  std::vector<std::int32_t> topics;
  m_pBench->WhenWaiting([&](WindowHandle hBox) {
    if (topics.empty()) return m_pBench->Key(kKeyF1);
    return m_pBench->Press(hBox, topics.size() == 1 ? kButtonHelp : kButtonOk);
  });
  EXPECT_EQ(m_presenter.HelpBox({}, "Disk full", "Ledger", kBoxOk | kBoxHelp, 20301,
                                [&](std::int32_t nTopic) { topics.push_back(nTopic); }),
            kButtonOk);
  EXPECT_THAT(topics, ElementsAre(20301, 20301));
}

TEST_P(DesktopContract, NestsBoxesAndServesTheQueueBehindThem) {
  const WindowHandle hWindow = TopLevel();
  int nInner = 0;
  m_windows.SetProcedure(hWindow, [&](WindowHandle h, std::uint32_t nMessage, std::uint32_t nWord,
                                      std::intptr_t nLong) {
    if (nMessage == kMessageOwn) {
      nInner = m_presenter.PlainBox({}, "inner", "Ledger", kBoxYesNo);
    }
    return m_windows.DefaultProcedure(h, nMessage, nWord, nLong);
  });
  m_queue.Post(hWindow, kMessageOwn, 0, 0);
  m_pBench->WhenWaiting([&](WindowHandle hBox) {
    return m_pBench->Press(hBox, nInner == 0 ? kButtonNo : kButtonOk);
  });
  EXPECT_EQ(m_presenter.PlainBox({}, "outer", "Ledger", kBoxOkCancel), kButtonOk);
  EXPECT_EQ(nInner, kButtonNo);
}

TEST_P(DesktopContract, DisablesModelessWindowsInPairs) {
  const WindowHandle hMain = TopLevel(kStylePopup | kStyleVisible);
  const WindowHandle hModeless = TopLevel(kStylePopup | kStyleVisible);
  const WindowHandle hOff = TopLevel(kStylePopup | kStyleVisible | kStyleDisabled);
  m_windows.SetMainWindow(hMain);
  m_presenter.DisableModeless();
  m_presenter.DisableModeless();
  m_presenter.EnableModeless();
  EXPECT_FALSE(m_windows.IsEnabled(hModeless));
  EXPECT_TRUE(m_windows.IsEnabled(hMain));
  m_presenter.EnableModeless();
  EXPECT_TRUE(m_windows.IsEnabled(hModeless));
  EXPECT_FALSE(m_windows.IsEnabled(hOff));

  WindowHandle hDisabled{};
  EXPECT_EQ(m_presenter.SafeOwner(hDisabled), hMain);
  EXPECT_EQ(hDisabled, WindowHandle{});
}

TEST_P(DesktopContract, TurnsKeysIntoCommands) {
  const Accelerator keys[] = {{.nKey = 'S', .nCommand = 501}, {.nKey = 'T', .nCommand = 502}};
  const AcceleratorHandle hKeys = m_queue.CreateAccelerators(keys);
  const WindowHandle hFrame = Recorder({kMessageCommand});
  const WindowMessage message{hFrame, kMessageKeyDown, 'T', 0};
  EXPECT_TRUE(m_queue.TranslateAccelerator(hFrame, hKeys, message));
  ASSERT_EQ(m_heard.size(), 1U);
  EXPECT_EQ(m_heard[0].nWord, kNoticeAccelerator << 16 | 502);
  EXPECT_FALSE(m_queue.TranslateAccelerator(hFrame, hKeys, {hFrame, kMessageKeyDown, 'U', 0}));
  EXPECT_FALSE(m_queue.TranslateAccelerator(hFrame, hKeys, {hFrame, kMessageChar, 'T', 0}));
  EXPECT_FALSE(m_queue.TranslateAccelerator({}, hKeys, message));
  m_queue.DestroyAccelerators(hKeys);
  EXPECT_FALSE(m_queue.TranslateAccelerator(hFrame, hKeys, message));
}

}  // namespace
}  // namespace ald
