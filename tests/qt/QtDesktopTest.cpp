#include <malloc.h>

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <vector>

#include "aldlib/platform/Platform.h"
#include "aldlib/screens/MessagePump.h"
#include "aldlib/text/Constants.h"
#include "tests/qt/QtBench.h"

#if defined(__SANITIZE_ADDRESS__)
// Under the sanitizers a box takes ten times as long, and freed memory is kept aside.
constexpr int kBoxes = 500;
constexpr bool kCountsMemory = false;
#else
constexpr int kBoxes = 10000;
constexpr bool kCountsMemory = true;
#endif

namespace ald {
namespace {

constexpr std::uint32_t kStop = kStyleVisible | kStyleTabStop;

class QtDesktopTest : public testing::Test {
 protected:
  WindowHandle Window(std::uint32_t nStyle = kStyleCaption | kStyleSystemMenu) {
    return m_ports.windows.Create({.sClass = "DIALOG",
                                   .sText = "Ledger",
                                   .nStyle = kStylePopup | kStyleVisible | nStyle,
                                   .place = {100, 100, 400, 300}});
  }
  WindowHandle Control(WindowHandle hParent, const char* szClass, const CString& sText,
                       std::int32_t nId, std::uint32_t nStyle = kStop) {
    const std::int32_t nTop = 30 * (nId % 10);
    return m_ports.windows.Create({.sClass = szClass,
                                   .sText = sText,
                                   .nStyle = nStyle | kStyleChild,
                                   .place = {10, nTop, 160, nTop + 24},
                                   .hParent = hParent,
                                   .nId = nId});
  }
  // Hears what a window is told by its controls and menus.
  void Record(WindowHandle hWindow) {
    m_ports.windows.SetProcedure(hWindow, [this](WindowHandle h, std::uint32_t nMessage,
                                                 std::uint32_t nWord, std::intptr_t nLong) {
      if (nMessage == kMessageCommand) m_commands.push_back(nWord);
      return m_ports.windows.DefaultProcedure(h, nMessage, nWord, nLong);
    });
  }
  template <typename T>
  T* As(WindowHandle hWindow) {
    return qobject_cast<T*>(m_bench.Widget(hWindow));
  }
  QColor ColorAt(WindowHandle hWindow, int x, int y) {
    return m_bench.Widget(hWindow)->grab().toImage().pixelColor(x, y);
  }

  QtBench m_bench;
  Desktop m_ports = m_bench.Ports();
  std::vector<std::uint32_t> m_commands;
};

TEST_F(QtDesktopTest, LeavesNothingBehindAfterTenThousandBoxes) {
  const WindowHandle hOwner = Window();
  const auto showBoxes = [&](int nBoxes) {
    for (int i = 0; i < nBoxes; ++i) {
      m_bench.m_desktop.Headless().Answer(kButtonNo);
      ASSERT_EQ(m_ports.presenter.PlainBox(hOwner, "Post it?", "Ledger", kBoxYesNo | kBoxQuestion),
                kButtonNo);
    }
  };
  showBoxes(kBoxes / 10);  // caches fill up
  const LiveObjects before = m_bench.m_desktop.Headless().Live();
  const std::size_t nShown = m_bench.m_desktop.Widgets();
  const auto nWidgets = QApplication::allWidgets().size();
  const std::size_t nBytes = mallinfo2().uordblks;
  showBoxes(kBoxes - kBoxes / 10);
  EXPECT_EQ(m_bench.m_desktop.Headless().Live(), before);
  EXPECT_EQ(m_bench.m_desktop.Widgets(), nShown);
  EXPECT_EQ(QApplication::allWidgets().size(), nWidgets);
  EXPECT_EQ(QApplication::topLevelWidgets().size(), 1);
  // What the toolkit keeps for itself moves by 3,000 to 10,000 bytes, however many boxes there
  // were.
  if (kCountsMemory) {
    constexpr std::size_t kToolkit = 20000;
    EXPECT_LT(mallinfo2().uordblks, nBytes + kToolkit);
  }
}

TEST_F(QtDesktopTest, LeavesABoxOpenWhileItsHelpIsClicked) {
  std::vector<std::int32_t> topics;
  int nLooks = 0;
  m_bench.WhenWaiting([&](WindowHandle hBox) {
    auto* const pBox = As<QDialog>(hBox);
    EXPECT_TRUE(pBox != nullptr && pBox->isVisible());
    EXPECT_EQ(topics.size(), static_cast<std::size_t>(nLooks));
    return m_bench.Press(hBox, nLooks++ < 2 ? kButtonHelp : kButtonRetry);
  });
  EXPECT_EQ(m_ports.presenter.HelpBox({}, "Disk full", "Ledger", kBoxRetryCancel | kBoxHelp, 20301,
                                      [&](std::int32_t nTopic) { topics.push_back(nTopic); }),
            kButtonRetry);
  EXPECT_EQ(topics, (std::vector<std::int32_t>{20301, 20301}));
  EXPECT_EQ(QApplication::topLevelWidgets().size(), 0);
}

TEST_F(QtDesktopTest, ShowsTheTextOfABoxWhole) {
  bool bFits = false;
  m_bench.WhenWaiting([&](WindowHandle hBox) {
    for (const QLabel* const pLabel : m_bench.Widget(hBox)->findChildren<QLabel*>()) {
      if (pLabel->text().isEmpty()) continue;
      bFits = pLabel->height() >= pLabel->heightForWidth(pLabel->width()) &&
              pLabel->width() >=
                  pLabel->fontMetrics().boundingRect(pLabel->text().section(' ', 0, 0)).width() &&
              pLabel->window()->width() < m_ports.windows.Metric(kMetricScreenWidth);
    }
    return m_bench.Press(hBox, kButtonOk);
  });
  CString sLong = "WWWWWWWWWWWWWWWW\n";
  for (int i = 0; i < 100; ++i) sLong += "many words ";
  for (const CString& sText : {CString("WWWWWWWWWWWWWWWWWWWW & Co"), sLong}) {
    m_ports.presenter.PlainBox({}, sText, "Ledger", kBoxOk);
    EXPECT_TRUE(bFits) << sText;
  }
}

TEST_F(QtDesktopTest, ShowsAndTakesTheWholeCodePage) {
  const CString sText = "Caf\xE9 100 \x80 \x8Auma";
  const QString shown = QString::fromUtf8("Café 100 € Šuma");
  const WindowHandle hWindow = Window();
  m_ports.windows.SetText(hWindow, sText);
  const WindowHandle hLabel = Control(hWindow, "STATIC", sText + " && &Co", 1);
  const WindowHandle hButton = Control(hWindow, "BUTTON", sText, 2);
  const WindowHandle hList = Control(hWindow, "LISTBOX", "", 3);
  const WindowHandle hEdit = Control(hWindow, "EDIT", "", 4);
  m_ports.controls.AddItem(hList, sText);
  EXPECT_EQ(m_bench.Widget(hWindow)->windowTitle(), shown);
  EXPECT_EQ(As<QLabel>(hLabel)->text(), shown + " & Co");
  EXPECT_EQ(As<QPushButton>(hButton)->text(), shown);
  EXPECT_EQ(As<QListWidget>(hList)->item(0)->text(), shown);
  m_bench.Type(hEdit, sText);
  EXPECT_EQ(m_ports.windows.Text(hEdit), sText);
  EXPECT_EQ(As<QLineEdit>(hEdit)->text(), shown);

  QTest::sendKeyEvent(QTest::Click, m_bench.Widget(hEdit), Qt::Key_unknown, QChar(0x0416),
                      Qt::NoModifier);
  m_bench.Drain();
  EXPECT_EQ(m_ports.windows.Text(hEdit), sText) << "a letter that the code page lacks";
}

TEST_F(QtDesktopTest, HoldsARequestToCloseUntilItMayBeServed) {
  const Platform platform = CurrentPlatform().WithDesktop(m_ports);
  InstallPlatform(&platform);
  const WindowHandle hWindow = m_ports.windows.Create(
      {.sClass = "STATIC", .nStyle = kStylePopup | kStyleVisible | kStyleCaption});
  m_bench.Drain();
  m_bench.Widget(hWindow)->close();
  YieldFor(0, true);
  EXPECT_TRUE(m_bench.Widget(hWindow)->isVisible());
  WindowMessage message{};
  ASSERT_TRUE(m_ports.queue.Peek(message, false));
  EXPECT_EQ(message.nMessage, kMessageClose);
  EXPECT_EQ(message.hWindow, hWindow);
  YieldFor(0, false);
  EXPECT_FALSE(m_ports.windows.IsWindow(hWindow));
  InstallPlatform(nullptr);
}

TEST_F(QtDesktopTest, TypesTheLibrarysDecimalPointByTheKeypad) {
  const WindowHandle hEdit = Control(Window(), "EDIT", "", 1);
  m_ports.windows.SetFocus(hEdit);
  const CFixedString<2> before = DecimalPoint;
  DecimalPoint = ",";
  QTest::keyClick(m_bench.Widget(hEdit), Qt::Key_Period, Qt::KeypadModifier);
  QTest::keyClick(m_bench.Widget(hEdit), Qt::Key_Period);
  m_bench.Drain();
  DecimalPoint = before;
  EXPECT_EQ(m_ports.windows.Text(hEdit), ",.");
}

TEST_F(QtDesktopTest, KeepsWhatAnEditDoesByItself) {
  const WindowHandle hEdit = Control(Window(), "EDIT", "100.00", 1);
  m_ports.windows.SetFocus(hEdit);
  const struct {
    Qt::Key key;
    Qt::KeyboardModifiers with;
    const char* szText;
    std::int32_t nFirst;
    std::int32_t nEnd;
  } rows[] = {
      {Qt::Key_End, Qt::NoModifier, "100.00", 6, 6},
      {Qt::Key_Left, Qt::ShiftModifier, "100.00", 5, 6},
      {Qt::Key_C, Qt::ControlModifier, "100.00", 5, 6},
      {Qt::Key_Delete, Qt::NoModifier, "100.0", 5, 5},
      {Qt::Key_V, Qt::ControlModifier, "100.00", 6, 6},
      {Qt::Key_Backspace, Qt::NoModifier, "100.0", 5, 5},
      {Qt::Key_A, Qt::ControlModifier, "100.0", 0, 5},
      {Qt::Key_7, Qt::NoModifier, "7", 1, 1},
  };
  for (const auto& row : rows) {
    m_bench.Key(row.key, row.with);
    m_bench.Drain();
    EXPECT_EQ(m_ports.windows.Text(hEdit), row.szText);
    EXPECT_EQ(As<QLineEdit>(hEdit)->text(), row.szText);
    std::int32_t nFirst = -1;
    std::int32_t nEnd = -1;
    m_bench.m_desktop.Headless().SelectedText(hEdit, nFirst, nEnd);
    EXPECT_EQ(nFirst, row.nFirst) << row.szText;
    EXPECT_EQ(nEnd, row.nEnd) << row.szText;
  }
}

TEST_F(QtDesktopTest, TellsTheParentOfAChoice) {
  const WindowHandle hWindow = Window();
  Record(hWindow);
  const WindowHandle hList = Control(hWindow, "LISTBOX", "", 1);
  const WindowHandle hCombo = Control(hWindow, "COMBOBOX", "", 3, kStop | 3);
  for (const WindowHandle h : {hList, hCombo}) {
    for (const char* szItem : {"Cash", "Bank", "Sales"}) m_ports.controls.AddItem(h, szItem);
    m_ports.windows.SetFocus(h);
    m_bench.Key(Qt::Key_Down);
    m_bench.Drain();
    m_bench.Key(Qt::Key_Down);
    m_bench.Drain();
    EXPECT_EQ(m_ports.controls.Selection(h), 1);
  }
  EXPECT_EQ(As<QListWidget>(hList)->currentRow(), 1);
  EXPECT_EQ(m_ports.windows.Text(hCombo), "Bank");
  EXPECT_EQ(m_commands.back(), kNoticeSelect << 16 | 3);
  m_commands.clear();
  m_ports.controls.Select(hList, 2);
  EXPECT_EQ(As<QListWidget>(hList)->currentRow(), 2);
  m_bench.Drain();
  EXPECT_TRUE(m_commands.empty()) << "the program's choice is no news to it";
}

TEST_F(QtDesktopTest, ShowsAMenuAsItIsNow) {
  const WindowHandle hWindow = Window();
  Record(hWindow);
  MenuBar& menus = m_ports.menus;
  const MenuHandle hBar = menus.CreateBar();
  const MenuHandle hFile = menus.CreatePopup();
  menus.Append(hFile, 0, 101, "&New\tCtrl+N");
  menus.Append(hFile, kMenuGrayed, 102, "&Print");
  menus.Append(hBar, kMenuPopup, static_cast<std::uint32_t>(hFile), "&File");
  menus.SetOf(hWindow, hBar);
  const auto actions = [&] {
    auto* const pBar = m_bench.Widget(hWindow)->findChild<QMenuBar*>();
    return pBar->findChild<QMenu*>()->actions();
  };
  ASSERT_EQ(actions().size(), 2);
  EXPECT_EQ(actions()[0]->text(), "&New\tCtrl+N");
  EXPECT_FALSE(actions()[1]->isEnabled());
  menus.Enable(hBar, 102, 0);
  menus.Append(hFile, kMenuChecked, 103, "&Grid");
  ASSERT_EQ(actions().size(), 3);
  EXPECT_TRUE(actions()[1]->isEnabled());
  EXPECT_TRUE(actions()[2]->isChecked());
  actions()[1]->trigger();
  m_bench.Drain();
  EXPECT_EQ(m_commands, (std::vector<std::uint32_t>{102}));
}

TEST_F(QtDesktopTest, OffersAKeyToTheAcceleratorsFirst) {
  const WindowHandle hWindow = Window();
  Record(hWindow);
  const WindowHandle hEdit = Control(hWindow, "EDIT", "", 1);
  const Accelerator keys[] = {{.nKey = 'N', .nCommand = 501, .bControl = true}};
  m_ports.windows.SetMainWindow(hWindow);
  m_ports.windows.SetFrameAccelerator(m_ports.queue.CreateAccelerators(keys));
  m_ports.windows.SetFocus(hEdit);
  m_bench.Key(Qt::Key_N, Qt::ControlModifier);
  EXPECT_TRUE(m_ports.queue.PumpOne());
  EXPECT_EQ(m_commands, (std::vector<std::uint32_t>{kNoticeAccelerator << 16 | 501}));
}

TEST_F(QtDesktopTest, PutsTheFocusWhereTheUserClicks) {
  const WindowHandle hWindow = Window();
  const WindowHandle hOne = Control(hWindow, "EDIT", "", 1);
  const WindowHandle hTwo = Control(hWindow, "EDIT", "", 2);
  m_ports.windows.SetFocus(hOne);
  QTest::mouseClick(m_bench.Widget(hTwo), Qt::LeftButton);
  m_bench.Drain();
  EXPECT_EQ(m_ports.windows.Focus(), hTwo);

  // A window whose dialog is up takes nothing, and does not look disabled.
  m_ports.windows.Enable(hWindow, false);
  QTest::mouseClick(m_bench.Widget(hOne), Qt::LeftButton);
  m_bench.Widget(hWindow)->close();
  m_bench.Drain();
  EXPECT_NE(m_ports.windows.Focus(), hOne);
  EXPECT_TRUE(m_bench.Widget(hWindow)->isVisible());
  EXPECT_TRUE(m_bench.Widget(hOne)->isEnabled());
}

TEST_F(QtDesktopTest, DrawsOverAWindowAndColoursItsControls) {
  const BrushHandle hRed = m_ports.canvas.CreateSolidBrush(0x000000FF);
  const BrushHandle hYellow = m_ports.canvas.CreateSolidBrush(0x0000FFFF);
  const WindowHandle hWindow = Window();
  m_ports.windows.SetProcedure(hWindow, [&](WindowHandle h, std::uint32_t nMessage,
                                            std::uint32_t nWord, std::intptr_t nLong) {
    if (nMessage == kMessageColorStatic) return static_cast<std::intptr_t>(hYellow);
    return m_ports.windows.DefaultProcedure(h, nMessage, nWord, nLong);
  });
  const WindowHandle hLabel = Control(hWindow, "STATIC", "", 1);
  const WindowHandle hDrawn = Control(hWindow, "STATIC", "", 2);
  m_ports.windows.SetProcedure(
      hDrawn,
      [&](WindowHandle h, std::uint32_t nMessage, std::uint32_t, std::intptr_t) -> std::intptr_t {
        if (nMessage != kMessagePaint) return 0;
        const ContextHandle hContext = m_ports.canvas.BeginPaint(h);
        m_ports.canvas.Fill(hContext, {5, 5, 15, 15}, hRed);
        m_ports.canvas.EndPaint(h, hContext);
        return 0;
      });
  m_bench.Drain();
  EXPECT_EQ(ColorAt(hLabel, 1, 1), QColor(255, 255, 0));
  EXPECT_EQ(ColorAt(hDrawn, 14, 14), QColor(255, 0, 0));
  EXPECT_NE(ColorAt(hDrawn, 15, 15), QColor(255, 0, 0));
}

TEST_F(QtDesktopTest, FollowsTheUserWhoSizesAWindow) {
  const WindowHandle hWindow = Window(kStyleCaption | 0x00040000);
  const Rect before = m_ports.windows.ClientRect(hWindow);
  QWidget* const pWindow = m_bench.Widget(hWindow);
  EXPECT_EQ(pWindow->size(), QSize(before.Width(), before.Height()));
  pWindow->resize(500, 350);
  m_bench.Drain();
  EXPECT_EQ(m_ports.windows.ClientRect(hWindow), (Rect{0, 0, 500, 350}));
}

TEST_F(QtDesktopTest, MeasuresTextByItsRealFont) {
  const ContextHandle hContext = m_ports.canvas.Context({});
  EXPECT_GT(m_ports.canvas.TextExtent(hContext, "WWWW").cx,
            m_ports.canvas.TextExtent(hContext, "iiii").cx);
  m_ports.canvas.Release(hContext);
}

[[noreturn]] void ShowABoxWithoutADisplay() {
  qputenv("QT_QPA_PLATFORM", "xcb");
  qputenv("DISPLAY", ":4077");
  int nArguments = 1;
  char szName[] = "test";
  char* szArguments[] = {szName, nullptr};
  QtDesktop desktop(nArguments, szArguments);
  const int nAnswer = desktop.Ports().presenter.PlainBox({}, "x", "y", kBoxOkCancel);
  const bool bRight = !QtDesktop::HasDisplay() && !desktop.IsOnScreen() && nAnswer == kButtonOk;
  std::_Exit(bRight ? 0 : 1);
}

// In a process of its own, since an application is made once.
TEST(QtDisplay, IsDoneWithoutWhereThereIsNone) {
  EXPECT_EXIT(ShowABoxWithoutADisplay(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace ald
