#include "aldlib/messages/OneTimeMessages.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <utility>
#include <vector>

#include "aldlib/config/Preferences.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

constexpr int kCheckBoxId = 5004;
constexpr int kTextId = 5003;

class OneTime : public testing::Test {
 protected:
  OneTime() { m_desktop.SetApplicationName("Alderfell"); }

  // The user answers the next box, with its check box ticked if so.
  void WillAnswer(int nButton, bool bTick) {
    m_nShown = 0;
    m_desktop.WhenWaiting([this, nButton, bTick](WindowHandle hBox) {
      Windows& windows = m_ports.windows;
      ++m_nShown;
      m_sText = windows.Text(windows.Child(hBox, kTextId));
      m_sCheckBox = windows.Text(windows.Child(hBox, kCheckBoxId));
      m_sTitle = windows.Text(hBox);
      if (bTick) m_desktop.Press(hBox, kCheckBoxId);
      return m_desktop.Press(hBox, nButton);
    });
  }

  FakePlatform m_platform;
  HeadlessDesktop& m_desktop = m_platform.m_desktop;
  Desktop m_ports = m_desktop.Ports();
  int m_nShown = 0;
  CString m_sText;
  CString m_sCheckBox;
  CString m_sTitle;
};

TEST_F(OneTime, AMessageIsKeptAwayOnceItWasConfirmedWithTheBoxTicked) {
  WillAnswer(1, false);
  EXPECT_EQ(ShowCloseCompanyOneTimeMessage(), 1);
  EXPECT_EQ(m_sText, "This will close the current company.");
  EXPECT_EQ(m_sCheckBox, "&Do not display this message again.");
  EXPECT_EQ(m_sTitle, "Alderfell");
  WillAnswer(2, true);
  EXPECT_EQ(ShowCloseCompanyOneTimeMessage(), 2);  // Cancel never switches it off
  WillAnswer(1, true);
  EXPECT_EQ(ShowCloseCompanyOneTimeMessage(), 1);
  EXPECT_EQ(ShowCloseCompanyOneTimeMessage(), -1);
  EXPECT_EQ(m_nShown, 1);
  EXPECT_TRUE(IsOneTimeMessageOff("CLOSECOMPANYMSG"));
  ResetCloseCompanyOneTimeMessage();
  WillAnswer(1, false);
  EXPECT_EQ(ShowCloseCompanyOneTimeMessage(), 1);
}

// Each of them has its own key, is shown, is kept away when ticked, and comes back at once with all
// the others.
TEST_F(OneTime, AllMessagesAreShownKeptAwayAndBroughtBack) {
  m_platform.AddModule({{900, "Reminder"}}, 1);
  const std::vector<std::function<int()>> shows = {
      [] { return ShowPayrollSetupWizardMessage(1); },
      [] { return ShowPayrollReminderOneTimeMessage(900, 1); },
      &ShowCloseCompanyOneTimeMessage,
      &Show256ColorOneTimeMsg,
      &ShowFrmDsgnObjectsOffOneTimeMsg,
      &ShowNeedIE5OneTimeMessage,
      &ShowApproachingYearEndOneTimeMessage,
      [] { return ShowAlertEmailOneTimeMessage(3); },
      [] { return ShowPervasive2000SQLOneTimeMessage(7, 90); },
      [] { return ShowPervasive2000SQLServerOneTimeMessage("SERVER%d", 7, 90); },
      &ShowInvRecalcOneTimeMessage,
      &ShowCOAAccountMaskOneTimeMessage,
      [] { return ShowDupReferenceOneTimeErrorMessage("SaveDuplicateInvNoMsg", "Twice?", 1); },
      &ShowCrystalReportsOneTimeMessage,
      [] { return ShowUPSShippingOneTimeMessage("UPS", "Ship?"); },
      &ShowEMailHTMLOneTimeMessage,
      &ShowOFXManualMatchRefNumberOneTimeMessage,
      &ShowSelPayBatchPrintLossOneTimeMessage,
      &ShowSelPayMustTransmitOneTimeMessage,
      &ShowVNOneTimeMessage,
      &ShowDataMonitorOneTimeMessage,
      &ShowSerializedInvOnProposalOneTimeMessage,
      &ShowSelectProposalWithSerializedInvOneTimeMessage,
      &ShowCreditCardReactivationOneTimeMessage,
      &ShowProposalsExistForSalesInvoicingOneTimeMessage,
      [] { return ShowCOMSecurityOneTimeMessage("Report Writer"); },
  };
  std::set<CString> texts;
  for (std::size_t i = 0; i < shows.size(); ++i) {
    SCOPED_TRACE(i);
    // Yes where there is one, else OK.
    m_nShown = 0;
    m_desktop.WhenWaiting([&](WindowHandle hBox) {
      Windows& windows = m_ports.windows;
      ++m_nShown;
      texts.insert(windows.Text(windows.Child(hBox, kTextId)));
      m_desktop.Press(hBox, kCheckBoxId);
      return m_desktop.Press(hBox, 6) || m_desktop.Press(hBox, 1);
    });
    const int nPressed = shows[i]();
    EXPECT_TRUE(nPressed == 6 || nPressed == 1) << nPressed;
    EXPECT_EQ(shows[i](), -1);
    EXPECT_EQ(m_nShown, 1);
  }
  EXPECT_EQ(texts.size(), shows.size());
  EXPECT_TRUE(
      texts.contains("Do you want to allow Report Writer to run with your Alderfell "
                     "Software?"));
  for (const CString& sText : texts) {
    EXPECT_FALSE(sText.empty());
    EXPECT_EQ(sText.find("%s"), CString::npos) << sText;
    EXPECT_TRUE(sText.find("%d") == CString::npos || sText.find("SERVER%d") != CString::npos);
  }
  ResetAllOneTimeMessages();
  for (const auto& show : shows) EXPECT_NE(show(), -1);
}

TEST_F(OneTime, EachResetBringsItsOwnMessageBack) {
  const std::pair<const char*, void (*)()> resets[] = {
      {"PAYROLLREMINDERMSG", &ResetPayrollReminderOneTimeMessage},
      {"256COLOR", &Reset256ColorOneTimeMsg},
      {"OFFPAPERFRMDSGN", &ResetFrmDsgnObjectsOffOneTimeMsg},
      {"NeedIE5", &ResetNeedIE5OneTimeMessage},
      {"APPROACHINGYEARENDWARNING", &ResetApproachingYearEndOneTimeMessage},
      {"AlertSendEmail", &ResetAlertEmailOneTimeMessage},
      {"Pervasive2000SQL", &ResetPervasive2000SQLOneTimeMessage},
      {"Pervasive2000SQLServer", &ResetPervasive2000SQLServerOneTimeMessage},
      {"InvRecalcMessage", &ResetInvRecalcOneTimeMessage},
      {"COAAccountMaskMessage", &ResetCOAAccountMaskOneTimeMessage},
      {"ProposalSIMaskMessage", &ResetProposalsExistForSalesInvoicingOneTimeMessage},
      {"UpdateCrystalReports", &ResetCrystalReportsOneTimeMessage},
      {"EMailHTMLMessage", &ResetEMailHTMLOneTimeMessage},
      {"OFXManualMatchRefNumber", &ResetOFXManualMatchRefNumberOneTimeMessage},
      {"OnlineBankingWelcomePage", &ResetOnlineBankingWelcomeOneTimeMessage},
      {"BillPayWelcomePage", &ResetBillPayActivationOneTimeMessage},
      {"VisaVN", &ResetVNOneTimeMessage},
      {"SaveDuplicateCMNoMsg", &ResetDupReferenceOneTimeErrorMessage},
      {"SaveDuplicatePONoMsg", &ResetDupReferenceOneTimeErrorMessage},
      {"RegisterTaxService", &ResetRegisterTaxServiceOneTimeMessage},
  };
  for (const auto& [szKey, reset] : resets) {
    for (const auto& [szOther, other] : resets) {
      CALWMachineUserPreferences(PreferenceOpenMode::Write, PreferenceGroup::OneTimeMessages)
          .SetValue(szOther, true);
    }
    reset();
    EXPECT_FALSE(IsOneTimeMessageOff(szKey)) << szKey;
    for (const auto& [szOther, other] : resets) {
      EXPECT_EQ(IsOneTimeMessageOff(szOther), other != reset) << szKey << " " << szOther;
    }
  }
}

TEST_F(OneTime, MarksOfTheHostsOwnMessages) {
  EXPECT_FALSE(GetJobDefaultsOneTimeMessage());
  SetJobDefaultsOneTimeMessage();
  SetOnlineBankingWelcomeOneTimeMessage();
  EXPECT_TRUE(GetJobDefaultsOneTimeMessage());
  EXPECT_TRUE(GetOnlineBankingWelcomeOneTimeMessage());
  EXPECT_FALSE(GetBillPayActivationOneTimeMessage());
  SetBillPayActivationOneTimeMessage();
  EXPECT_TRUE(GetBillPayActivationOneTimeMessage());
}

TEST_F(OneTime, AReminderWithoutATextIsANo) {
  WillAnswer(1, false);
  EXPECT_EQ(ShowPayrollReminderOneTimeMessage(901, 1), 7);
  EXPECT_EQ(m_nShown, 0);
}

TEST_F(OneTime, TheHostsOwnDialogTellsWhetherItsBoxWasTicked) {
  WillAnswer(6, true);
  COneTimeMessageDialog dialog(0x24, 77, "Print now?", nullptr);
  EXPECT_EQ(dialog.DoModal(), 6);
  EXPECT_EQ(dialog.DontShowAgain(), 1);
  EXPECT_EQ(m_sText, "Print now?");
}

}  // namespace
}  // namespace ald
