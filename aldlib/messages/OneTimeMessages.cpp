#include "aldlib/messages/OneTimeMessages.h"

#include <cstdio>
#include <iterator>

#include "aldlib/config/Preferences.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/messages/internal/ShowMessage.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/screens/HelpLevel.h"
#include "aldlib/text/ResourceStrings.h"

namespace ald {
namespace {

constexpr const char* kDontShowAgain = "&Do not display this message again.";
constexpr const char* kRemember = "&Remember this setting.";

// The number by which the product is asked whether it has payroll.
constexpr std::uint32_t kPayrollFeature = 1;

// One message. Its text is that of its number where a module has it; the sentence stands in where
// none does.
struct OneTimeMessage {
  const char* szKey;
  unsigned nStyle;
  int nHelpTopic;
  bool bCenterButtons;
  std::uint32_t nText;
  const char* szText;
};

// The order of the table below.
enum Which : std::size_t {
  kPayrollSetupWizard,
  kPayrollReminder,
  kCloseCompany,
  k256Color,
  kFrmDsgnObjectsOff,
  kNeedIE5,
  kApproachingYearEnd,
  kAlertEmail,
  kPervasive2000SQL,
  kPervasive2000SQLServer,
  kInvRecalc,
  kCOAAccountMask,
  kCrystalReports,
  kEMailHTML,
  kOFXManualMatchRefNumber,
  kSelPayBatchPrintLoss,
  kSelPayMustTransmit,
  kVN,
  kDataMonitor,
  kSerializedInvOnProposal,
  kSelectProposalWithSerializedInv,
  kCreditCardReactivation,
  kProposalsExistForSalesInvoicing,
  kDupReference,  // the key is the caller's in the last three
  kUPSShipping,
  kCOMSecurity,
};

constexpr OneTimeMessage kMessages[] = {
    {"PAYROLLSETUPWIZARDMSG", 0x4034, 0, false, 0,
     "Payroll has not been set up yet. Do you want to set it up now?"},
    {"PAYROLLREMINDERMSG", 0x4040, 0, false, 0, ""},
    {"CLOSECOMPANYMSG", 0x31, 0, true, 20382, "This will close the current company."},
    {"256COLOR", 0x4000, 19400, false, 19400,
     "Your display shows fewer than 256 colors. Some pictures may not look as intended."},
    {"OFFPAPERFRMDSGN", 0x4001, 21514, false, 21514,
     "Some objects of this form lie outside the paper and will not be printed."},
    {"NeedIE5", 0x0, 0, false, 61483, "A newer web browser is needed."},
    {"APPROACHINGYEARENDWARNING", 0x4044, 18906, false, 0, ""},
    {"AlertSendEmail", 0x4044, 61484, true, 61484, "Do you want to create the alert messages now?"},
    {"Pervasive2000SQL", 0x4034, 20378, true, 20378,
     "The version of the database has not been tested. Do you want to go on?"},
    {"Pervasive2000SQLServer", 0x4034, 20379, true, 20379,
     "The version of the database has not been tested. Do you want to go on?"},
    {"InvRecalcMessage", 0x4030, 5482, true, 20381,
     "It may be necessary to recalculate the price levels of your items."},
    {"COAAccountMaskMessage", 0x4024, 33211, true, 33211,
     "The account IDs do not all follow the account mask. Do you want to use the mask?"},
    {"UpdateCrystalReports", 0x4040, 20383, true, 20383,
     "Some of your reports may need an update."},
    {"EMailHTMLMessage", 0x4040, 33253, true, 33253,
     "The message is sent as formatted text. Not every mail program shows it so."},
    {"OFXManualMatchRefNumber", 0x4024, 15530, true, 15530,
     "The reference numbers of the two transactions differ. Do you want to match them?"},
    {"SelPayBatchPrintLoss", 0x4039, 15579, true, 15579,
     "The selection of payments to print will be lost."},
    {"SelPayMustTransmit", 0x4031, 15580, true, 15580,
     "The electronic payments must be transmitted before they are carried out."},
    {"VisaVN", 0x4034, 19628, true, 19628,
     "The verification number of the card is missing. Do you want to go on without it?"},
    {"DataMonitorMsg", 0x4044, 34905, true, 34905,
     "The check of the company data has found nothing. Do you want to see the report?"},
    {"SerialInvOnProposal", 0x4030, 23271, true, 23271,
     "Serial numbers are chosen when the proposal becomes an invoice."},
    {"SelectProposalWithSerialInv", 0x4030, 23272, true, 23272,
     "The proposal has serialized items. Please choose their serial numbers."},
    {"CreditCardReactivation", 0x4000, 19650, true, 19650,
     "The credit card service has to be activated again."},
    {"ProposalSIMaskMessage", 0x4040, 23254, true, 23254,
     "There are open proposals for this customer."},
    {"", 0x4024, 0, true, 0, ""},
    {"", 0x21, 0, true, 0, ""},
    {"", 0x24, 0, true, 0, "Do you want to allow %s to run with your Alderfell Software?"},
};
constexpr std::size_t kOwnKeys = kDupReference;
static_assert(std::size(kMessages) == kCOMSecurity + 1);

constexpr const char* kOnlineBankingWelcome = "OnlineBankingWelcomePage";
constexpr const char* kBillPayWelcome = "BillPayWelcomePage";
constexpr const char* kJobDefaults = "JobDefaults";
constexpr const char* kRegisterTaxService = "RegisterTaxService";
constexpr const char* kComSecurityKey = "COMSecurity";
constexpr const char* kDuplicateKeys[] = {"SaveDuplicateQuoteNoMsg", "SaveDuplicateCMNoMsg",
                                          "SaveDuplicateInvNoMsg", "SaveDuplicatePONoMsg"};

CString TextOrEmpty(const char* szText) {
  return szText != nullptr ? szText : "";
}

CString ModuleText(std::uint32_t nText) {
  CFixedString<1024> sText;
  MyLoadString(nText, sText);
  return CString(sText.view());
}

CString TextOf(const OneTimeMessage& message) {
  CString sText = message.nText != 0 ? ModuleText(message.nText) : CString();
  return sText.empty() ? message.szText : sText;
}

void ReplaceNext(CString& sText, std::string_view sMark, const CString& sValue) {
  const std::size_t nAt = sText.find(sMark);
  if (nAt != CString::npos) sText.replace(nAt, sMark.size(), sValue);
}

// What all of them need to be shown.
struct Shown {
  CString sText;
  const char* szCaption = nullptr;  // null for the application's name
  CString sKey;
  bool bCenterButtons = true;
  bool bCenterText = false;
  unsigned nStyle = 0;
  int nHelpTopic = 0;
  const char* szCheckBox = kDontShowAgain;
  bool bOverTopWindow = false;
};

CWnd* ParentOf(bool bOverTopWindow) {
  Windows& windows = CurrentPlatform().desktop.windows;
  WindowHandle hParent = windows.Active();
  if (bOverTopWindow && MyAlderLibDataPtr != nullptr &&
      windows.IsWindow(MyAlderLibDataPtr->hTopWindow)) {
    hParent = MyAlderLibDataPtr->hTopWindow;
  }
  if (hParent == WindowHandle{}) hParent = windows.MainWindow();
  return CWnd::FromHandle(hParent);
}

int ShowOneTime(const Shown& shown) {
  CALWMachineUserPreferences preferences;
  preferences.Open(PreferenceOpenMode::Write, PreferenceGroup::OneTimeMessages);
  bool bOff = false;
  preferences.GetValue(shown.sKey.c_str(), false, bOff);
  if (bOff) return -1;

  CAFMessageDlg dialog(ParentOf(shown.bOverTopWindow));
  dialog.SetMessageBoxInfo(shown.sText,
                           shown.szCaption != nullptr
                               ? CString(shown.szCaption)
                               : CurrentPlatform().desktop.presenter.ApplicationName(),
                           shown.nStyle);
  dialog.EnableApplyToAllCheck(shown.szCheckBox);
  dialog.CenterButtons(shown.bCenterButtons ? 1 : 0);
  dialog.CenterMessageText(shown.bCenterText ? 1 : 0);
  dialog.SetupHelpLoadLevel(shown.nHelpTopic);
  const int nPressed = dialog.DoModal();
  if (nPressed != kButtonCancel && dialog.ApplyToAll() != 0) {
    preferences.SetValue(shown.sKey.c_str(), true);
  }
  return nPressed;
}

Shown ShownOf(Which eMessage) {
  const OneTimeMessage& message = kMessages[eMessage];
  Shown shown;
  shown.sText = TextOf(message);
  shown.sKey = message.szKey;
  shown.bCenterButtons = message.bCenterButtons;
  shown.nStyle = message.nStyle;
  shown.nHelpTopic = message.nHelpTopic;
  return shown;
}

// No exception leaves: a message that there is no memory for counts as cancelled.
template <class Change>
int Show(Which eMessage, Change change) try {
  Shown shown = ShownOf(eMessage);
  change(shown);
  return ShowOneTime(shown);
} catch (...) {
  return kButtonCancel;
}

int Show(Which eMessage) {
  return Show(eMessage, [](Shown&) {});
}

void Mark(const char* szKey, bool bOff) try {
  if (szKey == nullptr) return;
  CALWMachineUserPreferences preferences;
  preferences.Open(PreferenceOpenMode::Write, PreferenceGroup::OneTimeMessages);
  preferences.SetValue(szKey, bOff);
} catch (...) {
}

void Reset(Which eMessage) {
  Mark(kMessages[eMessage].szKey, false);
}

}  // namespace

COneTimeMessageDialog::COneTimeMessageDialog(unsigned nStyles, unsigned nHelpTopic,
                                             const char* szText, CWnd* pParent)
    : CAFMessageDlg(pParent), m_nHelpTopic(static_cast<int>(nHelpTopic)) {
  SetMessageBoxInfo(TextOrEmpty(szText), CurrentPlatform().desktop.presenter.ApplicationName(),
                    nStyles);
  SetupHelpLoadLevel(m_nHelpTopic);
  EnableApplyToAllCheck(kDontShowAgain);
}

COneTimeMessageDialog::~COneTimeMessageDialog() = default;

int COneTimeMessageDialog::DoModal() {
  return CAFMessageDlg::DoModal();
}

void COneTimeMessageDialog::DoDataExchange(CDataExchange* pExchange) {
  CAFMessageDlg::DoDataExchange(pExchange);
}

int COneTimeMessageDialog::OnHelpInfo(std::intptr_t) {
  OnHelp();
  return 1;
}

void COneTimeMessageDialog::OnHelp() {
  const int nBefore = SetHelpLevel(m_nHelpTopic);
  ShowMessageHelp(m_hWnd);
  SetHelpLevel(nBefore);
}

int ShowPayrollSetupWizardMessage(int nHelpTopic) {
  return Show(kPayrollSetupWizard, [&](Shown& shown) { shown.nHelpTopic = nHelpTopic; });
}

int ShowPayrollReminderOneTimeMessage(std::uint32_t nText, int nHelpTopic) try {
  const CString sText = ModuleText(nText);
  if (sText.empty()) return kButtonNo;
  return Show(kPayrollReminder, [&](Shown& shown) {
    shown.sText = sText;
    shown.nHelpTopic = nHelpTopic;
  });
} catch (...) {
  return kButtonNo;
}

int ShowCloseCompanyOneTimeMessage() {
  return Show(kCloseCompany);
}

int Show256ColorOneTimeMsg() {
  return Show(k256Color);
}

int ShowFrmDsgnObjectsOffOneTimeMsg() {
  return Show(kFrmDsgnObjectsOff);
}

int ShowNeedIE5OneTimeMessage() {
  return Show(kNeedIE5);
}

int ShowApproachingYearEndOneTimeMessage() {
  return Show(kApproachingYearEnd, [](Shown& shown) {
    const bool bPayroll = CurrentPlatform().product.FeatureEnabled(kPayrollFeature);
    shown.sText = CString("Alderfell has detected that you are approaching the end\nof ") +
                  (bPayroll ? "your payroll year. Do you want to see what is to be done\n"
                              "before you close it?"
                            : "your fiscal year. Do you want to see what is to be done\n"
                              "before you close it?");
  });
}

int ShowAlertEmailOneTimeMessage(int nMessages) {
  return Show(kAlertEmail,
              [&](Shown& shown) { ReplaceNext(shown.sText, "%i", std::to_string(nMessages)); });
}

int ShowPervasive2000SQLOneTimeMessage(int nMajor, int nMinor) {
  return Show(kPervasive2000SQL, [&](Shown& shown) {
    ReplaceNext(shown.sText, "%d", std::to_string(nMajor));
    ReplaceNext(shown.sText, "%d", std::to_string(nMinor));
  });
}

int ShowPervasive2000SQLServerOneTimeMessage(const char* szServer, int nMajor, int nMinor) {
  return Show(kPervasive2000SQLServer, [&](Shown& shown) {
    // The name last: it may hold such a mark itself.
    ReplaceNext(shown.sText, "%d", std::to_string(nMajor));
    ReplaceNext(shown.sText, "%d", std::to_string(nMinor));
    ReplaceNext(shown.sText, "%s", TextOrEmpty(szServer));
  });
}

int ShowInvRecalcOneTimeMessage() {
  return Show(kInvRecalc);
}

int ShowCOAAccountMaskOneTimeMessage() {
  return Show(kCOAAccountMask);
}

int ShowDupReferenceOneTimeErrorMessage(const char* szKey, const char* szText, int nHelpTopic) {
  return Show(kDupReference, [&](Shown& shown) {
    shown.sKey = TextOrEmpty(szKey);
    shown.sText = TextOrEmpty(szText);
    shown.nHelpTopic = nHelpTopic;
  });
}

int ShowCrystalReportsOneTimeMessage() {
  return Show(kCrystalReports);
}

int ShowUPSShippingOneTimeMessage(const char* szKey, const char* szText) {
  return Show(kUPSShipping, [&](Shown& shown) {
    shown.sKey = TextOrEmpty(szKey);
    shown.sText = TextOrEmpty(szText);
  });
}

int ShowEMailHTMLOneTimeMessage() {
  return Show(kEMailHTML);
}

int ShowOFXManualMatchRefNumberOneTimeMessage() {
  return Show(kOFXManualMatchRefNumber);
}

int ShowSelPayBatchPrintLossOneTimeMessage() {
  return Show(kSelPayBatchPrintLoss);
}

int ShowSelPayMustTransmitOneTimeMessage() {
  return Show(kSelPayMustTransmit);
}

int ShowVNOneTimeMessage() {
  return Show(kVN);
}

int ShowDataMonitorOneTimeMessage() {
  return Show(kDataMonitor);
}

int ShowSerializedInvOnProposalOneTimeMessage() {
  return Show(kSerializedInvOnProposal);
}

int ShowSelectProposalWithSerializedInvOneTimeMessage() {
  return Show(kSelectProposalWithSerializedInv);
}

int ShowCreditCardReactivationOneTimeMessage() {
  return Show(kCreditCardReactivation);
}

int ShowProposalsExistForSalesInvoicingOneTimeMessage() {
  return Show(kProposalsExistForSalesInvoicing);
}

int ShowCOMSecurityOneTimeMessage(const char* szProgram) {
  return Show(kCOMSecurity, [&](Shown& shown) {
    shown.sKey = kComSecurityKey + TextOrEmpty(szProgram);
    ReplaceNext(shown.sText, "%s", TextOrEmpty(szProgram));
    shown.szCheckBox = kRemember;
  });
}

void ResetPayrollReminderOneTimeMessage() {
  Reset(kPayrollReminder);
}

void ResetCloseCompanyOneTimeMessage() {
  Reset(kCloseCompany);
}

void Reset256ColorOneTimeMsg() {
  Reset(k256Color);
}

void ResetFrmDsgnObjectsOffOneTimeMsg() {
  Reset(kFrmDsgnObjectsOff);
}

void ResetNeedIE5OneTimeMessage() {
  Reset(kNeedIE5);
}

void ResetApproachingYearEndOneTimeMessage() {
  Reset(kApproachingYearEnd);
}

void ResetAlertEmailOneTimeMessage() {
  Reset(kAlertEmail);
}

void ResetPervasive2000SQLOneTimeMessage() {
  Reset(kPervasive2000SQL);
}

void ResetPervasive2000SQLServerOneTimeMessage() {
  Reset(kPervasive2000SQLServer);
}

void ResetInvRecalcOneTimeMessage() {
  Reset(kInvRecalc);
}

void ResetCOAAccountMaskOneTimeMessage() {
  Reset(kCOAAccountMask);
}

void ResetProposalsExistForSalesInvoicingOneTimeMessage() {
  Reset(kProposalsExistForSalesInvoicing);
}

void ResetCrystalReportsOneTimeMessage() {
  Reset(kCrystalReports);
}

void ResetEMailHTMLOneTimeMessage() {
  Reset(kEMailHTML);
}

void ResetOFXManualMatchRefNumberOneTimeMessage() {
  Reset(kOFXManualMatchRefNumber);
}

void ResetOnlineBankingWelcomeOneTimeMessage() {
  Mark(kOnlineBankingWelcome, false);
}

void ResetBillPayActivationOneTimeMessage() {
  Mark(kBillPayWelcome, false);
}

void ResetVNOneTimeMessage() {
  Reset(kVN);
}

void ResetDupReferenceOneTimeErrorMessage() {
  for (const char* szKey : kDuplicateKeys) Mark(szKey, false);
}

void ResetRegisterTaxServiceOneTimeMessage() {
  Mark(kRegisterTaxService, false);
}

void ResetAllOneTimeMessages() try {
  CALWMachineUserPreferences().RemoveGroup(PreferenceGroup::OneTimeMessages);
} catch (...) {
}

void SetOnlineBankingWelcomeOneTimeMessage() {
  Mark(kOnlineBankingWelcome, true);
}

bool GetOnlineBankingWelcomeOneTimeMessage() {
  return IsOneTimeMessageOff(kOnlineBankingWelcome);
}

void SetBillPayActivationOneTimeMessage() {
  Mark(kBillPayWelcome, true);
}

bool GetBillPayActivationOneTimeMessage() {
  return IsOneTimeMessageOff(kBillPayWelcome);
}

void SetJobDefaultsOneTimeMessage() {
  Mark(kJobDefaults, true);
}

bool GetJobDefaultsOneTimeMessage() {
  return IsOneTimeMessageOff(kJobDefaults);
}

const char* OneTimeMessageKey(std::size_t nMessage) {
  if (nMessage < kOwnKeys) return kMessages[nMessage].szKey;
  constexpr const char* kOthers[] = {kDuplicateKeys[0], kDuplicateKeys[1],     kDuplicateKeys[2],
                                     kDuplicateKeys[3], kOnlineBankingWelcome, kBillPayWelcome,
                                     kJobDefaults,      kRegisterTaxService};
  nMessage -= kOwnKeys;
  return nMessage < std::size(kOthers) ? kOthers[nMessage] : nullptr;
}

bool IsOneTimeMessageOff(const char* szKey) try {
  CALWMachineUserPreferences preferences;
  preferences.Open(PreferenceOpenMode::Read, PreferenceGroup::OneTimeMessages);
  bool bOff = false;
  preferences.GetValue(szKey, false, bOff);
  return bOff;
} catch (...) {
  return false;
}

void ResetOneTimeMessage(const char* szKey) {
  Mark(szKey, false);
}

}  // namespace ald
