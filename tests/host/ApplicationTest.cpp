#include "host/Application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "aldlib/messages/OneTimeMessages.h"
#include "aldlib/screens/Colours.h"
#include "aldlib/screens/WindowTable.h"
#include "host/Commands.h"
#include "host/ListPage.h"
#include "host/WindowReport.h"
#include "tests/support/FakePlatform.h"

namespace alder_checks {
namespace {

using ald::WindowHandle;
using testing::AllOf;
using testing::Contains;
using testing::Field;
using testing::HasSubstr;

// The whole program, with a person at its menus.
class ApplicationTest : public testing::Test {
 protected:
  ApplicationTest() {
    m_platform.m_disk.Write("C:\\BOOKS\\README.TXT", "");
    m_pApplication = std::make_unique<Application>("C:\\BOOKS\\");
    EXPECT_TRUE(m_pApplication->Open());
    m_hMain = m_pApplication->MainWindow();
  }

  void Choose(std::uint16_t nCommand) { EXPECT_TRUE(m_desktop.ChooseMenu(nCommand)) << nCommand; }
  static WindowHandle Screen(std::uint16_t nCommand) {
    return ald::GetWindowFromMenu(nCommand, true);
  }
  WindowHandle Control(WindowHandle hScreen, int nId) {
    return m_ports.windows.Child(hScreen, nId);
  }
  void WriteCheque(int nPayee, std::string_view sAmount) {
    const WindowHandle hScreen = Screen(kCommandWriteChecks);
    m_desktop.Choose(Control(hScreen, kPayee), nPayee);
    m_desktop.Type(Control(hScreen, kAmount), sAmount);
    m_desktop.Choose(Control(hScreen, kAccounts), 0);
    EXPECT_TRUE(m_desktop.Press(hScreen, kRecord));
  }
  std::vector<ald::CString> LinesOf(WindowHandle hPage) {
    std::vector<ald::CString> lines;
    const WindowHandle hList = Control(hPage, kPageLines);
    for (int n = 0; n < m_ports.controls.Count(hList); ++n) {
      lines.push_back(m_ports.controls.ItemText(hList, n));
    }
    return lines;
  }

  ald::FakePlatform m_platform;
  ald::HeadlessDesktop& m_desktop = m_platform.m_desktop;
  ald::Desktop m_ports = m_desktop.Ports();
  std::unique_ptr<Application> m_pApplication;
  WindowHandle m_hMain{};
};

TEST_F(ApplicationTest, OpensAScreenOnceAndAnotherOneWhenAsked) {
  const WindowHandle hFirst = Screen(kCommandWriteChecks);
  ASSERT_NE(hFirst, WindowHandle{});
  Choose(kCommandAnotherScreen);
  EXPECT_NE(m_ports.windows.Active(), hFirst);
  Choose(kCommandWriteChecks);
  EXPECT_EQ(m_ports.windows.Active(), hFirst);
  EXPECT_EQ(ald::DataEntryManagerData.nDialogs, 2);
}

TEST_F(ApplicationTest, ShowsTheNewestChequesOnItsSheet) {
  WriteCheque(0, "12");
  WriteCheque(4, "0.55");
  m_desktop.ForgetOutput();
  m_ports.queue.Send(m_hMain, ald::kMessagePaint, 0, 0);
  std::vector<ald::CString> texts;
  for (const ald::DrawnItem& item : m_desktop.DrawnOn(m_hMain)) {
    if (item.kind == ald::DrawnItem::Kind::kText) texts.push_back(item.sText);
  }
  EXPECT_THAT(texts, testing::ElementsAre("Date", "Payee", "Amount", "Jul 4, 2003", "Post Office",
                                          "0.55", "Jul 4, 2003", "Alder Street Hardware", "12.00"));
}

TEST_F(ApplicationTest, MergesTheAddOnsCommandAndTakesItOutAgain) {
  WriteCheque(4, "1.25");
  WriteCheque(4, "2");
  WriteCheque(1, "7");
  Choose(kCommandTotals);
  EXPECT_EQ(m_desktop.Boxes().back().sText,
            "Spent so far\n\nCity Power and Light: 7.00\nPost Office: 3.25");
  Choose(kCommandAddOn);
  EXPECT_FALSE(m_desktop.ChooseMenu(kCommandTotals));
  Choose(kCommandAddOn);
  EXPECT_TRUE(m_desktop.ChooseMenu(kCommandTotals));
}

TEST_F(ApplicationTest, ListsProcessesAndTheMessagesSeen) {
  m_platform.m_processes.m_modules = {{7, {"C:\\BIN\\ONE.EXE", "C:\\BIN\\A.DLL"}},
                                      {9, {"C:\\BIN\\TWO.EXE"}}};
  Choose(kCommandProcesses);
  EXPECT_THAT(LinesOf(Screen(kCommandProcesses)),
              testing::ElementsAre("7  C:\\BIN\\ONE.EXE (1 libraries)",
                                   "9  C:\\BIN\\TWO.EXE (0 libraries)"));
  Choose(kCommandLog);
  const WindowHandle hLog = Screen(kCommandLog);
  EXPECT_THAT(LinesOf(hLog), testing::ElementsAre("No message has been shown yet."));
  m_desktop.Type(Control(Screen(kCommandWriteChecks), kDate), "13/13");
  m_desktop.Choose(Control(Screen(kCommandWriteChecks), kPayee), 0);
  EXPECT_TRUE(m_desktop.Press(Screen(kCommandWriteChecks), kRecord));
  EXPECT_TRUE(m_desktop.Press(hLog, kPageRefresh));
  EXPECT_THAT(LinesOf(hLog), testing::ElementsAre("20311  Invalid date"));
}

TEST_F(ApplicationTest, AsksBeforeItClosesUntilItIsToldNotTo) {
  m_desktop.Answer(ald::kButtonCancel);
  Choose(kCommandExit);
  EXPECT_TRUE(m_ports.windows.IsWindow(m_hMain));
  // What was typed holds the program back as well.
  m_desktop.Type(Control(Screen(kCommandWriteChecks), kAmount), "5");
  m_desktop.Answer({ald::kButtonOk, ald::kButtonCancel});
  Choose(kCommandExit);
  EXPECT_TRUE(m_ports.windows.IsWindow(m_hMain));
  // The user ticks the check box; from then on nothing is asked.
  m_desktop.WhenWaiting([&](WindowHandle hBox) {
    for (const WindowHandle hChild : m_ports.windows.Children(hBox)) {
      const bool bCheckBox =
          (m_ports.windows.Style(hChild) & ald::kButtonKindMask) == ald::kButtonAutoCheck;
      if (bCheckBox && m_ports.windows.ClassName(hChild) == "BUTTON") {
        m_ports.controls.SetCheck(hChild, 1);
        m_desktop.WhenWaiting(nullptr);
        return m_desktop.Press(hBox, ald::kButtonOk);
      }
    }
    return false;
  });
  m_desktop.Answer(ald::kButtonCancel);  // to whether the amount is to be saved
  Choose(kCommandExit);
  EXPECT_TRUE(m_ports.windows.IsWindow(m_hMain));
  m_desktop.Answer(ald::kButtonNo);
  Choose(kCommandExit);
  EXPECT_FALSE(m_ports.windows.IsWindow(m_hMain));
  m_pApplication->Run();  // comes back at once
}

TEST_F(ApplicationTest, ChangesTheSchemeOfColoursInPlace) {
  Choose(kCommandFirstScheme + 2);
  EXPECT_EQ(ald::GetColorReturnBrushColor(0, 6) & 0xFFFFFF, 0xB5CEE7U);
  EXPECT_THAT(m_desktop.Invalidated(), Contains(Field(&ald::Invalidation::hWindow, m_hMain)));
  const std::size_t nBrushes = m_desktop.Live().nBrushes;
  Choose(kCommandFirstScheme);
  EXPECT_EQ(m_desktop.Live().nBrushes, nBrushes);
  const ald::MenuHandle hBar = m_ports.menus.Of(m_hMain);
  const auto isTicked = [&](std::uint32_t nCommand) {
    return (m_ports.menus.State(hBar, nCommand, ald::kMenuByCommand) & ald::kMenuChecked) != 0;
  };
  EXPECT_TRUE(isTicked(kCommandFirstScheme));
  EXPECT_FALSE(isTicked(kCommandFirstScheme + 2));
}

TEST_F(ApplicationTest, ReportsWhatItsWindowsShow) {
  m_desktop.Type(Control(Screen(kCommandWriteChecks), kAmount), "5");
  EXPECT_THAT(ReportWindows(),
              AllOf(HasSubstr("\"Write Checks\" active\n"), HasSubstr("  ABD_Dollars 103 "),
                    HasSubstr("\"5\" focus\n"), HasSubstr("    item \"Rent\"\n")));
}

}  // namespace
}  // namespace alder_checks
