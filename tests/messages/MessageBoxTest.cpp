#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>
#include <ostream>
#include <utility>

#include "aldlib/messages/MessageBoxEx.h"
#include "aldlib/messages/MessageDlg.h"
#include "aldlib/screens/HelpLevel.h"
#include "aldlib/screens/WindowTable.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

using testing::ElementsAre;

constexpr std::intptr_t kQuestionIcon = 0x7F02;
constexpr int kTextId = 5003;
constexpr int kCheckBoxId = 5004;
constexpr int kHelpId = 57670;

// Dialog units as the desktop turns them into pixels, halves upward.
constexpr int FromX(int nUnits) {
  return (nUnits * 7 + 2) / 4;
}
constexpr int FromY(int nUnits) {
  return (nUnits * 13 + 4) / 8;
}

// A character is 7 by 13 here, and an icon 32 by 32. What the user sees of the box in front is
// noted when it waits, and then the button is pressed.
class Boxes : public testing::Test {
 protected:
  struct Control {
    CString sClass;
    int nId;
    CString sText;
    Rect place;
    std::uint32_t nStyle;
  };

  Boxes() {
    m_desktop.SetApplicationName("Alderfell");
    m_platform.m_profile.m_files["PRODUCT.INI"] = "[Install]\nALDERWHELPPATH=C:\\HELP\n";
  }

  // Has the user press the buttons one after the other; the last one ends the box.
  void WillPress(std::vector<int> buttons) {
    m_buttons = std::move(buttons);
    m_desktop.WhenWaiting([this](WindowHandle hBox) {
      if (m_controls.empty()) Look(hBox);
      if (m_buttons.empty()) return false;
      const int nButton = m_buttons.front();
      m_buttons.erase(m_buttons.begin());
      return m_desktop.Press(hBox, nButton);
    });
  }

  void Look(WindowHandle hBox) {
    Windows& windows = m_ports.windows;
    m_box = windows.WindowRect(hBox);
    m_client = windows.ClientRect(hBox);
    m_sTitle = windows.Text(hBox);
    m_nLevel = GetHelpLevel();
    m_nDialogId = GetDialogID(hBox);
    m_nFocus = windows.ControlId(windows.Focus());
    for (const WindowHandle h : windows.Children(hBox)) {
      const Rect rect = windows.WindowRect(h);
      const Point at = windows.ToClient(hBox, {rect.left, rect.top});
      m_controls.push_back({windows.ClassName(h),
                            windows.ControlId(h),
                            windows.Text(h),
                            {at.x, at.y, at.x + rect.Width(), at.y + rect.Height()},
                            windows.Style(h)});
    }
  }

  const Control& Find(int nId) {
    for (const Control& control : m_controls) {
      if (control.nId == nId) return control;
    }
    ADD_FAILURE() << "no control " << nId;
    static const Control kNone{};
    return kNone;
  }

  // The captions of the buttons in their order, the default one in brackets.
  CString Buttons() {
    CString sButtons;
    for (const Control& control : m_controls) {
      if (control.nId == kCheckBoxId || control.sClass != "BUTTON") continue;
      const bool bDefault = (control.nStyle & kButtonKindMask) == kButtonDefaultPush;
      sButtons += bDefault ? "[" + control.sText + "] " : control.sText + " ";
    }
    return sButtons;
  }

  FakePlatform m_platform;
  HeadlessDesktop& m_desktop = m_platform.m_desktop;
  Desktop m_ports = m_desktop.Ports();
  std::vector<int> m_buttons;
  std::vector<Control> m_controls;
  Rect m_box{};
  Rect m_client{};
  CString m_sTitle;
  int m_nLevel = 0;
  int m_nDialogId = 0;
  int m_nFocus = 0;
};

TEST_F(Boxes, ABoxOfTheCallersButtonsIsLaidOutInPixelsAndTurnedIntoDialogUnits) {
  CDynamicHeapFixedString sText(64);
  sText = "Post the journal?";
  constexpr MessageBoxButton kButtons[] = {{21, "&Post", 0}, {22, "&Later", 90}, {0, nullptr, 0}};
  WillPress({22});
  EXPECT_EQ(ALWMessageBoxEx(WindowHandle{}, sText, 20304, kQuestionIcon, kButtons), 22);
  EXPECT_EQ(m_sTitle, "Alderfell");
  EXPECT_EQ(m_nLevel, -20304);
  // Text 17 * 7 + 10 wide and one line high: height 70, text at 32 + 46, width 129 + 36 + 78 = 243.
  // From pixels to units and back each measure loses what does not divide by 7 / 4 and 13 / 8.
  const auto x = [](int n) { return FromX(n * 4 / 7); };
  const auto y = [](int n) { return FromY(n * 8 / 13); };
  EXPECT_EQ(m_client.Width(), x(243));
  EXPECT_EQ(m_client.Height(), FromY((70 * 8 + 304) / 13));
  EXPECT_EQ(Find(2704).place.left, x(18));
  EXPECT_EQ(Find(2704).place.top, y(19));
  EXPECT_EQ(Find(-1).place.left, x(78));
  EXPECT_EQ(Find(-1).place.top, y(28));
  // The row: 58 + 16 + 90 = 164, begins at (243 - 164) / 2 = 39.
  EXPECT_EQ(Find(21).place.left, x(39));
  EXPECT_EQ(Find(21).place.top, y(70));
  EXPECT_EQ(Find(21).place.right, FromX(39 * 4 / 7 + 58 * 4 / 7));
  EXPECT_EQ(Find(22).place.left, x(39 + 58 + 16));
  EXPECT_EQ(Find(22).place.right, FromX(113 * 4 / 7 + 90 * 4 / 7));
  EXPECT_EQ(Buttons(), "&Post &Later ");  // none is the default
  // A third of what is left above, half of what is left at the side.
  EXPECT_EQ(m_box.left, (1024 - m_box.Width()) / 2);
  EXPECT_EQ(m_box.top, (768 - m_box.Height()) / 3);
  EXPECT_EQ(GetHelpLevel(), 0);
  EXPECT_EQ(MyAlderLibDataPtr->bInMessage, 0);
}

TEST_F(Boxes, ALongTextWrapsAndARowThatIsTooWideBeginsLeftOfTheBox) {
  m_platform.AddModule({{700, "one two three four five six seven eight nine ten eleven twelve"}},
                       1);
  constexpr MessageBoxButton kWide[] = {{5, "A", 400}, {0, nullptr, 0}};
  WillPress({5});
  EXPECT_EQ(ALWMessageBoxEx(WindowHandle{}, 700, 0, kWide), 5);
  EXPECT_EQ(m_nLevel, -700);
  EXPECT_LT(Find(5).place.left, 0);
  EXPECT_GT(Find(-1).place.Height(), 13);
}

TEST_F(Boxes, AHelpButtonLeavesTheBoxUpAndItsIconIsPainted) {
  CDynamicHeapFixedString sText(64);
  sText = "Help yourself";
  constexpr MessageBoxButton kButtons[] = {{kButtonHelp, "Help", 0}, {1, "OK", 0}, {0, nullptr, 0}};
  WillPress({kButtonHelp, 1});
  EXPECT_EQ(ALWMessageBoxEx(WindowHandle{}, sText, 77, kQuestionIcon, kButtons), 1);
  ASSERT_EQ(m_desktop.OpenedTopics().size(), 1U);
  EXPECT_EQ(m_desktop.OpenedTopics()[0].sFile, "C:\\HELP\\Msghelp.chm");
  EXPECT_EQ(m_desktop.OpenedTopics()[0].nTopic, 77U);
  EXPECT_THAT(m_desktop.Drawn(),
              testing::Contains(testing::Field(&DrawnItem::kind, DrawnItem::Kind::kIcon)));
  EXPECT_EQ(m_desktop.Live().nWindows, 0U);
}

TEST_F(Boxes, ABoxWithoutMemoryStaysAMessageForGood) {
  CDynamicHeapFixedString sText(64);
  sText = "Nothing";
  m_platform.m_machine.FailAllocate(1);
  EXPECT_EQ(ALWMessageBoxEx(WindowHandle{}, sText, 31, 0, nullptr), 0);
  EXPECT_EQ(MyAlderLibDataPtr->bInMessage, 1);
  EXPECT_EQ(GetHelpLevel(), -31);
}

TEST_F(Boxes, TheDialogChoosesItsButtonsByTheStyles) {
  struct Row {
    unsigned nStyles;
    int nPress;
    const char* szButtons;
  };
  constexpr Row kRows[] = {
      {0x0, 1, "[OK] "},
      {0x1, 2, "[OK] Cancel "},
      {0x2, 5, "[Abort] Retry Ignore "},
      {0x103, 7, "Yes [No] Cancel "},
      {0x203, 2, "Yes No [Cancel] "},
      {0x303, 2, "Yes [No] [Cancel] "},
      {0x4, 6, "[Yes] No "},
      {0x5, 4, "[Retry] Cancel "},
      {0x8, 1, "[Continue] "},
      {0x39, 2, "[Continue] Cancel "},
      {0x4001, 1, "[OK] Cancel Help "},
      {0x100, 1, "OK "},  // one button, and the second is to be the default
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.szButtons);
    m_controls.clear();
    WillPress({row.nPress});
    CAFMessageDlg dialog(nullptr);
    dialog.SetMessageBoxInfo("Text", "Caption", row.nStyles);
    EXPECT_EQ(dialog.DoModal(), row.nPress);
    EXPECT_EQ(Buttons(), row.szButtons);
    EXPECT_EQ(m_sTitle, "Caption");
    EXPECT_EQ(m_nDialogId, 7015);
  }
  m_controls.clear();
  WillPress({});
  CAFMessageDlg dialog(nullptr);
  dialog.SetMessageBoxInfo("Text", "", 6);
  dialog.DoModal();
  EXPECT_EQ(Buttons(), "");
  EXPECT_EQ(m_desktop.Live().nWindows, 0U);
}

TEST_F(Boxes, TheDialogGrowsWithTextIconAndCheckBox) {
  WillPress({6});
  CAFMessageDlg dialog(nullptr);
  dialog.SetMessageBoxInfo("12345678901234567890\nshort", "", 0x24);
  dialog.EnableApplyToAllCheck("&All");
  dialog.CenterMessageText(1);
  EXPECT_EQ(dialog.DoModal(), 6);
  EXPECT_EQ(dialog.ApplyToAll(), 0);

  const int xm = FromX(7);
  const int ym = FromY(7);
  const int nButton = FromX(50);
  const int nButtonHeight = FromY(15);
  const int nRow = xm + 2 * nButton;                 // wider than the check box
  const int nMessage = std::max(20 * 7 + xm, nRow);  // the widest line decides
  const int nMessageHeight = 2 * 13 + ym;
  const int nCheckHeight = 13;
  EXPECT_EQ(m_client.Width(), FromX(22) + 32 + std::max(nRow, nMessage));
  EXPECT_EQ(m_client.Height(),
            FromY(22) + std::max(nMessageHeight, 32) + nButtonHeight + nCheckHeight);
  const int xText = xm + 32 + xm;
  EXPECT_EQ(Find(kTextId).place, (Rect{xText, ym, xText + nMessage, ym + nMessageHeight}));
  EXPECT_EQ(Find(kTextId).nStyle & 1, 1U);
  const int yRow = m_client.Height() - nButtonHeight - ym - nCheckHeight - ym;
  const int xRow = std::max((nMessage - nRow) / 2 + xText, xText);
  EXPECT_EQ(Find(6).place, (Rect{xRow, yRow, xRow + nButton, yRow + nButtonHeight}));
  EXPECT_EQ(Find(7).place.left, xRow + nButton + xm);
  EXPECT_EQ(Find(kCheckBoxId).place.left, xText);
  EXPECT_GE(Find(kCheckBoxId).place.top, yRow + nButtonHeight);
  EXPECT_EQ(m_nFocus, 6);
}

TEST_F(Boxes, ATickedCheckBoxIsReadWhenAButtonIsPressed) {
  CAFMessageDlg dialog(nullptr);
  dialog.SetMessageBoxInfo("Text", "", 1);
  dialog.SetTopLevel(1);
  dialog.EnableApplyToAllCheck("&All");
  WillPress({kCheckBoxId, 1});
  EXPECT_EQ(dialog.DoModal(), 1);
  EXPECT_EQ(dialog.ApplyToAll(), 1);
  WillPress({1});  // the same dialog once more begins unticked
  EXPECT_EQ(dialog.DoModal(), 1);
  EXPECT_EQ(dialog.ApplyToAll(), 0);
}

TEST_F(Boxes, TheHelpButtonOfTheDialogOpensItsTopicAndPutsTheLevelBack) {
  SetHelpLevel(5);
  CAFMessageDlg dialog(nullptr);
  dialog.SetMessageBoxInfo("Text", "", 0x4000);
  dialog.SetupHelpLoadLevel(20311);
  WillPress({kHelpId, 1});
  EXPECT_EQ(dialog.DoModal(), 1);
  ASSERT_EQ(m_desktop.OpenedTopics().size(), 1U);
  EXPECT_EQ(m_desktop.OpenedTopics()[0].nTopic, 20311U);
  EXPECT_EQ(GetHelpLevel(), 5);
}

// A host's own dialog with a handler that fails.
class FailingDialog : public CAFMessageDlg {
 public:
  FailingDialog(CWnd* pParent, bool bAtOnce) : CAFMessageDlg(pParent), m_bAtOnce(bAtOnce) {}

 protected:
  int OnInitDialog() override {
    if (m_bAtOnce) throw std::bad_alloc();
    return CAFMessageDlg::OnInitDialog();
  }
  int OnCommand(std::uint32_t nWord, std::intptr_t nLong) override {
    if (!std::exchange(m_bFailed, true)) throw std::bad_alloc();
    return CAFMessageDlg::OnCommand(nWord, nLong);
  }

 private:
  bool m_bAtOnce;
  bool m_bFailed = false;
};

TEST_F(Boxes, AnExceptionOfAHandlerEndsThereAndLeavesTheOwnerUsable) {
  CWnd owner;
  owner.m_hWnd = m_ports.windows.Create({.sClass = "DIALOG"});
  EXPECT_EQ(FailingDialog(&owner, true).DoModal(), -1);
  EXPECT_TRUE(m_ports.windows.IsEnabled(owner.m_hWnd));
  WillPress({1, 1});
  EXPECT_EQ(FailingDialog(&owner, false).DoModal(), 1);
  EXPECT_TRUE(m_ports.windows.IsEnabled(owner.m_hWnd));
}

TEST_F(Boxes, TheFocusReturnsToWhereItWas) {
  const WindowHandle hScreen = m_ports.windows.Create(
      {.sClass = "STATIC", .nStyle = kStyleVisible | kStylePopup, .place = {0, 0, 50, 50}});
  m_ports.windows.SetFocus(hScreen);
  CAFMessageDlg dialog(CWnd::FromHandle(hScreen));
  WillPress({1});
  EXPECT_EQ(dialog.DoModal(), 1);
  EXPECT_EQ(m_ports.windows.Focus(), hScreen);
}

}  // namespace
}  // namespace ald
