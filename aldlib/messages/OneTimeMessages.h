#pragma once

#include <cstddef>
#include <cstdint>

#include "aldlib/messages/MessageDlg.h"
#include "aldlib/platform/Export.h"

// Messages with a check box by which the user switches them off. That wish is kept in the user's
// preferences, in the group of one-time messages, under a key of the message.
//
// A Show returns the button pressed, or -1 if the message is switched off: nothing is shown then.
// It is switched off when the box is ticked and the answer is not Cancel. Without preferences the
// message is shown each time. A Reset makes it come back.
namespace ald {

// The dialog of such a message, for messages of the host's own: the box is DontShowAgain() after
// DoModal.
class ALDLIB_EXPORT COneTimeMessageDialog : public CAFMessageDlg {
 public:
  // Styles as in the boxes of Messages.h; the topic is opened by the Help button. The parent may be
  // null, the text too.
  COneTimeMessageDialog(unsigned nStyles, unsigned nHelpTopic, const char* szText, CWnd* pParent);
  ~COneTimeMessageDialog() override;

  int DoModal() override;
  int DontShowAgain() const { return ApplyToAll(); }

  // Opens the help topic.
  void OnHelp();

 protected:
  void DoDataExchange(CDataExchange* pExchange) override;
  int OnHelpInfo(std::intptr_t nLong) override;

 private:
  int m_nHelpTopic;
};

// Texts come from the modules by number where one has them. Where an argument is a text or a key,
// null counts as empty.

ALDLIB_EXPORT int ShowPayrollSetupWizardMessage(int nHelpTopic);
// The text is the numbered one; 7 (No) if no module has it.
ALDLIB_EXPORT int ShowPayrollReminderOneTimeMessage(std::uint32_t nText, int nHelpTopic);
ALDLIB_EXPORT int ShowCloseCompanyOneTimeMessage();
ALDLIB_EXPORT int Show256ColorOneTimeMsg();
ALDLIB_EXPORT int ShowFrmDsgnObjectsOffOneTimeMsg();
ALDLIB_EXPORT int ShowNeedIE5OneTimeMessage();
// The text depends on whether the product has payroll.
ALDLIB_EXPORT int ShowApproachingYearEndOneTimeMessage();
ALDLIB_EXPORT int ShowAlertEmailOneTimeMessage(int nMessages);
ALDLIB_EXPORT int ShowPervasive2000SQLOneTimeMessage(int nMajor, int nMinor);
ALDLIB_EXPORT int ShowPervasive2000SQLServerOneTimeMessage(const char* szServer, int nMajor,
                                                           int nMinor);
ALDLIB_EXPORT int ShowInvRecalcOneTimeMessage();
ALDLIB_EXPORT int ShowCOAAccountMaskOneTimeMessage();
// The four keys that ResetDupReferenceOneTimeErrorMessage resets are "SaveDuplicateQuoteNoMsg",
// "SaveDuplicateCMNoMsg", "SaveDuplicateInvNoMsg" and "SaveDuplicatePONoMsg".
ALDLIB_EXPORT int ShowDupReferenceOneTimeErrorMessage(const char* szKey, const char* szText,
                                                      int nHelpTopic);
ALDLIB_EXPORT int ShowCrystalReportsOneTimeMessage();
ALDLIB_EXPORT int ShowUPSShippingOneTimeMessage(const char* szKey, const char* szText);
ALDLIB_EXPORT int ShowEMailHTMLOneTimeMessage();
ALDLIB_EXPORT int ShowOFXManualMatchRefNumberOneTimeMessage();
ALDLIB_EXPORT int ShowSelPayBatchPrintLossOneTimeMessage();
ALDLIB_EXPORT int ShowSelPayMustTransmitOneTimeMessage();
ALDLIB_EXPORT int ShowVNOneTimeMessage();
ALDLIB_EXPORT int ShowDataMonitorOneTimeMessage();
ALDLIB_EXPORT int ShowSerializedInvOnProposalOneTimeMessage();
ALDLIB_EXPORT int ShowSelectProposalWithSerializedInvOneTimeMessage();
ALDLIB_EXPORT int ShowCreditCardReactivationOneTimeMessage();
ALDLIB_EXPORT int ShowProposalsExistForSalesInvoicingOneTimeMessage();
// Asks whether a program may run beside the application; the box reads "Remember this setting", and
// each program is remembered by itself.
ALDLIB_EXPORT int ShowCOMSecurityOneTimeMessage(const char* szProgram);

ALDLIB_EXPORT void ResetPayrollReminderOneTimeMessage();
ALDLIB_EXPORT void ResetCloseCompanyOneTimeMessage();
ALDLIB_EXPORT void Reset256ColorOneTimeMsg();
ALDLIB_EXPORT void ResetFrmDsgnObjectsOffOneTimeMsg();
ALDLIB_EXPORT void ResetNeedIE5OneTimeMessage();
ALDLIB_EXPORT void ResetApproachingYearEndOneTimeMessage();
ALDLIB_EXPORT void ResetAlertEmailOneTimeMessage();
ALDLIB_EXPORT void ResetPervasive2000SQLOneTimeMessage();
ALDLIB_EXPORT void ResetPervasive2000SQLServerOneTimeMessage();
ALDLIB_EXPORT void ResetInvRecalcOneTimeMessage();
ALDLIB_EXPORT void ResetCOAAccountMaskOneTimeMessage();
ALDLIB_EXPORT void ResetProposalsExistForSalesInvoicingOneTimeMessage();
ALDLIB_EXPORT void ResetCrystalReportsOneTimeMessage();
ALDLIB_EXPORT void ResetEMailHTMLOneTimeMessage();
ALDLIB_EXPORT void ResetOFXManualMatchRefNumberOneTimeMessage();
ALDLIB_EXPORT void ResetOnlineBankingWelcomeOneTimeMessage();
ALDLIB_EXPORT void ResetBillPayActivationOneTimeMessage();
ALDLIB_EXPORT void ResetVNOneTimeMessage();
ALDLIB_EXPORT void ResetDupReferenceOneTimeErrorMessage();
ALDLIB_EXPORT void ResetRegisterTaxServiceOneTimeMessage();
// Makes every message come back, the host's own among them.
ALDLIB_EXPORT void ResetAllOneTimeMessages();

// Messages that the host shows itself: mark one as switched off, and ask whether it is.
ALDLIB_EXPORT void SetOnlineBankingWelcomeOneTimeMessage();
ALDLIB_EXPORT bool GetOnlineBankingWelcomeOneTimeMessage();
ALDLIB_EXPORT void SetBillPayActivationOneTimeMessage();
ALDLIB_EXPORT bool GetBillPayActivationOneTimeMessage();
ALDLIB_EXPORT void SetJobDefaultsOneTimeMessage();
ALDLIB_EXPORT bool GetJobDefaultsOneTimeMessage();

// The keys under which the library's own messages are remembered, in the order of their operations;
// what is behind the last one is null.
ALDLIB_EXPORT const char* OneTimeMessageKey(std::size_t nMessage);
// Whether the message of that key is switched off; a null key never is, and resets nothing.
ALDLIB_EXPORT bool IsOneTimeMessageOff(const char* szKey);
ALDLIB_EXPORT void ResetOneTimeMessage(const char* szKey);

}  // namespace ald
