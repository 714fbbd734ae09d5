#include "aldlib/platform/terminal/TerminalDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "aldlib/platform/posix/PosixTerminal.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

class TerminalBench : public testing::Test {
 protected:
  // A person who will type these lines.
  void Types(const char* szLines) { m_in.str(szLines); }

  std::istringstream m_in;
  std::ostringstream m_out;
  FakeClock m_clock;
  StreamTerminal m_terminal{&m_in, m_out};
  TerminalDesktop m_desktop{m_clock, m_terminal};
  Desktop m_ports = m_desktop.Ports();
};

TEST_F(TerminalBench, PutsABoxAndReadsTheAnswer) {
  Types("y\n");
  EXPECT_EQ(m_ports.presenter.PlainBox({}, "Save the changes\r\nto invoice 17?", "Ledger",
                                       kBoxYesNoCancel | kBoxQuestion | kBoxDefaultSecond),
            kButtonYes);
  EXPECT_EQ(m_out.str(),
            "Ledger: question\n"
            "Save the changes\n"
            "to invoice 17?\n"
            "Yes / No / Cancel [No]: ");
}

TEST_F(TerminalBench, TakesNamesBeginningsAndLetters) {
  const struct {
    const char* szLine;
    std::uint32_t nFlags;
    int nAnswer;
  } rows[] = {
      {"n", kBoxYesNo, kButtonNo},          {"  No \r", kBoxYesNo, kButtonNo},
      {"YES", kBoxYesNo, kButtonYes},       {"", kBoxYesNo | kBoxDefaultSecond, kButtonNo},
      {"can", kBoxOkCancel, kButtonCancel}, {"i", kBoxAbortRetryIgnore, kButtonIgnore},
      {"maybe\nno", kBoxYesNo, kButtonNo},  // asked again
  };
  for (const auto& row : rows) {
    m_in.clear();
    Types((CString(row.szLine) + "\n").c_str());
    EXPECT_EQ(m_ports.presenter.PlainBox({}, "x", "y", row.nFlags), row.nAnswer) << row.szLine;
  }
  EXPECT_THAT(m_out.str(), HasSubstr("Please answer with one of the names"));
}

TEST_F(TerminalBench, TakesTheDefaultWhenNobodyIsThere) {
  StreamTerminal alone(nullptr, m_out);
  TerminalDesktop desktop(m_clock, alone);
  desktop.SetApplicationName("Ledger");
  EXPECT_EQ(desktop.Ports().presenter.FrameworkBox("Go on?", kBoxOkCancel | kBoxDefaultSecond, -1),
            kButtonCancel);
  EXPECT_EQ(m_out.str(), "Ledger\nGo on?\n[Cancel]\n");
  // The same at the end of the input.
  EXPECT_EQ(m_ports.presenter.PlainBox({}, "x", "y", kBoxYesNo), kButtonYes);
}

TEST_F(TerminalBench, WritesUtf8AndNothingThatSteersTheTerminal) {
  Types("\n");
  m_ports.presenter.PlainBox({}, "Caf\xE9 \x80 5\x1B[2J \x90q\x9D", "y", kBoxOk);
  EXPECT_THAT(m_out.str(), HasSubstr("Caf\xC3\xA9 \xE2\x82\xAC 5[2J q\n"));
}

TEST_F(TerminalBench, NamesTheHelpAndAsksAgain) {
  Types("help\no\n");
  EXPECT_EQ(m_ports.presenter.HelpBox({}, "Disk full", "y", kBoxOk | kBoxHelp, 20301,
                                      [&](std::int32_t nTopic) {
                                        m_ports.help.OpenTopic({}, "Msghelp.chm",
                                                               static_cast<std::uint32_t>(nTopic));
                                      }),
            kButtonOk);
  EXPECT_EQ(m_out.str(),
            "y\nDisk full\nOK / Help [OK]: Help: topic 20301 of Msghelp.chm\nOK / Help [OK]: ");
}

TEST_F(TerminalBench, PutsABuiltDialogWithItsCheckBox) {
  constexpr std::uint32_t kStop = kStyleVisible | kStyleTabStop;
  DialogTemplate dialog;
  dialog.nStyle = kStylePopup | kStyleCaption;
  dialog.sTitle = "Backup";
  dialog.items = {{kStyleVisible, 0, 0, 90, 8, 5003, "STATIC", "Back up &now?"},
                  {kStop | kButtonDefaultPush, 0, 10, 50, 14, 1, "BUTTON", "&Back up"},
                  {kStop, 60, 10, 50, 14, 2, "BUTTON", "&Later"},
                  {kStyleTabStop, 60, 10, 50, 14, 3, "BUTTON", "hidden"},
                  {kStop | kButtonAutoCheck, 0, 30, 90, 10, 5004, "BUTTON", "&Do not ask again"}};
  int nCheck = 0;
  const auto procedure = [&](WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t nWord,
                             std::intptr_t) -> std::intptr_t {
    if (nMessage != kMessageCommand || nWord == 5004) return 0;
    nCheck = m_ports.controls.Check(m_ports.windows.Child(hDialog, 5004));
    m_ports.presenter.EndDialog(hDialog, static_cast<std::intptr_t>(nWord));
    return 1;
  };
  Types("d\nlater\n");
  EXPECT_EQ(m_ports.presenter.RunDialog({}, {}, dialog, procedure, 0), 2);
  EXPECT_EQ(nCheck, 1);
  EXPECT_EQ(m_out.str(),
            "Backup\nBack up now?\n"
            "Back up / Later / ( ) Do not ask again [Back up]: "
            "Back up / Later / (x) Do not ask again [Back up]: ");
  EXPECT_EQ(m_ports.presenter.RunDialog({}, {}, dialog, procedure, 0), 2) << "nobody is there";
}

TEST(SystemDesktop, IsTheDesktopOfTheSystemsOwnPlatform) {
  const Desktop& desktop = CurrentPlatform().desktop;
  EXPECT_EQ(&desktop.windows, &SystemDesktop().Ports().windows);
  EXPECT_EQ(desktop.presenter.ApplicationName(), "aldlib_platform_tests");
}

}  // namespace
}  // namespace ald
