#include "host/WriteChecksScreen.h"

#include <algorithm>
#include <array>
#include <memory>

#include "aldlib/amounts/Format.h"
#include "aldlib/amounts/Words.h"
#include "aldlib/dates/Calendar.h"
#include "aldlib/messages/Messages.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/screens/Controls.h"
#include "aldlib/screens/HelpLevel.h"
#include "aldlib/screens/Layout.h"
#include "aldlib/screens/Lists.h"
#include "aldlib/screens/MessagePump.h"
#include "aldlib/screens/Visibility.h"
#include "aldlib/screens/WindowTable.h"
#include "host/EditKinds.h"
#include "host/Texts.h"
#include "host/WriteChecksForm.h"

namespace alder_checks {

namespace {

using ald::CDecimal;
constexpr int kCents = 2;

const ald::Desktop& CurrentDesktop() {
  return ald::CurrentPlatform().desktop;
}

ald::CFixedString<46> MoneyText(const CDecimal& amount) {
  ald::CFixedString<46> sText;
  ald::DollarsToString(amount, sText, 0, ald::kMoneyMinus);
  return sText;
}

}  // namespace

ald::WindowHandle WriteChecksScreen::Open(ald::WindowHandle hOwner, const ChequeBook& book,
                                          const ChequeChoices& choices, std::uint16_t nMenuId) {
  if (ald::IsLegalDate(ald::TodaysDate) == 0) ald::GetCurrentDate(ald::TodaysDate);
  ald::Windows& windows = CurrentDesktop().windows;
  ald::DialogTemplate form = WriteChecksForm();
  // Each one a little below the others that are open.
  const auto nBelow = static_cast<std::int16_t>(12 * ald::DataEntryManagerData.nDialogs);
  form.x = static_cast<std::int16_t>(40 + nBelow);
  form.y = static_cast<std::int16_t>(76 + nBelow);
  const auto pScreen = std::make_shared<WriteChecksScreen>(book, choices);
  const ald::WindowHandle hScreen = windows.CreateDialog(
      hOwner, {}, form,
      [pScreen](ald::WindowHandle hWindow, std::uint32_t nMessage, std::uint32_t nWord,
                std::intptr_t nLong) {
        // The window owns the screen and may be destroyed in here: this holds it until it is done.
        const std::shared_ptr<WriteChecksScreen> pHeld = pScreen;
        return pHeld->Handle(hWindow, nMessage, nWord, nLong);
      },
      0);
  if (hScreen == ald::WindowHandle{}) return {};
  if (ald::AddWindowToTable(hScreen, nMenuId, true) == 0 ||
      ald::AddWindowToTableForHelp(hScreen, nMenuId) == 0) {
    windows.Destroy(hScreen);
    ald::Message(0, ald::MessageByNumber(kTextNoMoreScreens));
    return {};
  }
  windows.Show(hScreen, ald::kShowNormal);
  return hScreen;
}

std::intptr_t WriteChecksScreen::Handle(ald::WindowHandle hScreen, std::uint32_t nMessage,
                                        std::uint32_t nWord, std::intptr_t nLong) {
  switch (nMessage) {
    case ald::kMessageInitDialog:
      Begin(hScreen);
      return 0;
    case ald::kMessageCommand:
      OnCommand(static_cast<std::int32_t>(nWord & 0xFFFF), nWord >> 16);
      return 1;
    case ald::kMessageHelp:
      ShowHelp();
      return 1;
    case kMessageBookChanged:
      ShowBook();
      return 1;
    case ald::kMessageDestroy:
      End();
      return 0;
    default:
      return static_cast<std::intptr_t>(
          ald::HandleGlobalDlgMessages(nMessage, nWord, nLong, &m_colors, m_colored.data()));
  }
}

void WriteChecksScreen::Begin(ald::WindowHandle hScreen) {
  m_hScreen = hScreen;
  ald::SetDialogID(hScreen, kWriteChecksTopic);
  ald::PushHelpLevel(kWriteChecksTopic);
  for (const ald::CString& sPayee : m_choices.payees) {
    CurrentDesktop().controls.AddItem(Control(kPayee), sPayee);
  }
  for (const Account& account : m_choices.accounts) {
    ald::Controls& controls = CurrentDesktop().controls;
    const int nItem = controls.AddItem(Control(kAccounts), account.sName);
    controls.SetItemData(Control(kAccounts), nItem, account.nNumber);
  }
  ald::SetDlgEditLimit(hScreen, kAmount, 30);
  ald::SetDlgEditLimit(hScreen, kDate, 20);
  ald::SetDlgItemTextWithTrim(hScreen, kCheckingName, m_choices.sCheckingAccount.c_str());
  ald::AlignStatToLB(hScreen, kAccountLabel, kAccounts);
  SetUpColours();
  Clear();
  ShowBook();
}

void WriteChecksScreen::End() {
  ald::RemoveWindowFromTable(m_hScreen, true);
  ald::RemoveWindowFromTable(m_hScreen, false);
  ald::RemoveWindowFromALWInternals(m_hScreen);
  ald::PopHelpLevel();
}

// The rest of the form has the colour of the scheme's desk; fields, words and entry lie on it.
void WriteChecksScreen::SetUpColours() {
  ald::Windows& windows = CurrentDesktop().windows;
  const ald::Rect zones[] = {kZoneOfFields, kZoneOfWords, kZoneOfEntry};
  m_colors.nRow = 0;
  m_colors.base = windows.WindowRect(m_hScreen);
  std::transform(std::begin(zones), std::end(zones), m_colors.zones, [&](const ald::Rect& units) {
    ald::Rect zone = windows.MapDialogRect(m_hScreen, units);
    ald::ClientToScreenRect(m_hScreen, &zone);
    return zone;
  });
  constexpr std::int16_t kRoles[] = {6, 2, 4, 2};
  std::transform(std::begin(kRoles), std::end(kRoles), m_colors.roles, ald::ColorMapper);
  for (const std::int32_t nId : {kPayee, kDate, kAmount, kAccounts}) {
    m_colored.push_back({Control(nId), 1});
  }
  m_colored.push_back({});
}

void WriteChecksScreen::OnCommand(std::int32_t nId, std::uint32_t nNotice) {
  const bool bClicked = nNotice == ald::kNoticeClick;
  if (nId == kRecord && bClicked) {
    Record();
  } else if (nId == kClear && bClicked) {
    Clear();
  } else if (nId == kHelp && bClicked) {
    ShowHelp();
  } else if (nId == kClose && bClicked) {
    Close();
  } else if (nId == kAmount && nNotice == kNoticeLeft) {
    ShowAmount();
  } else if (nId == kAccounts && nNotice == ald::kNoticeSelect) {
    ShowEntry();
  }
}

void WriteChecksScreen::Clear() {
  ald::SetDlgFocus(m_hScreen, kPayee);  // first, since a field puts itself in order when it is left
  ald::Controls& controls = CurrentDesktop().controls;
  controls.Select(Control(kPayee), -1);
  controls.Select(Control(kAccounts), -1);
  ald::SetDlgItemDate(m_hScreen, kDate, ald::TodaysDate);
  ald::SetDlgItemTextWithTrim(m_hScreen, kAmount, "");
  ShowAmount();
}

void WriteChecksScreen::ShowAmount() {
  ald::CFixedString<200> sWords;
  const CDecimal amount = Amount();
  if (amount > CDecimal()) ald::CheckAmountText(amount, sWords, false);
  ald::SetDlgItemTextWithTrim(m_hScreen, kWords, sWords);
  ShowEntry();
}

// The money leaves the checking account for the one that is chosen.
void WriteChecksScreen::ShowEntry() {
  const CDecimal amount = Amount();
  const int nChosen = CurrentDesktop().controls.Selection(Control(kAccounts));
  ald::SetDlgItemTextWithTrim(
      m_hScreen, kAccountName,
      CurrentDesktop().controls.ItemText(Control(kAccounts), nChosen).c_str());
  ald::SetDlgDrCr(m_hScreen, amount, kAccountDebit, kAccountCredit);
  ald::SetDlgDrCr(m_hScreen, -amount, kCheckingDebit, kCheckingCredit);
}

void WriteChecksScreen::ShowBook() {
  const std::vector<Cheque> cheques = m_book.ReadAll();
  CDecimal total;
  for (const Cheque& cheque : cheques) total += cheque.amount;
  ald::CFixedString<100> sFormat;
  ald::GetTheMessage(nullptr, ald::MessageByNumber(kTextBookHolds), sFormat);
  ald::CFixedString<100> sText;
  const ald::CFixedString<46> sTotal = MoneyText(total);
  const std::array<ald::MessageValue, 2> values = {cheques.size(), sTotal};
  ald::FormatMessageText(sText, sFormat, values);
  ald::SetDlgItemTextWithTrim(m_hScreen, kBook, sText);
}

void WriteChecksScreen::ShowHelp() {
  CurrentDesktop().help.OpenTopic(m_hScreen, "Msghelp.chm",
                                  static_cast<std::uint32_t>(ald::GetHelpLevel()));
}

bool WriteChecksScreen::HasEntry() const {
  ald::CFixedString<46> sAmount;
  return CurrentDesktop().controls.Selection(Control(kPayee)) >= 0 ||
         ald::GetDlgItemTextTrimmed(m_hScreen, kAmount, sAmount) != 0;
}

bool WriteChecksScreen::ReadCheque(Cheque& cheque) {
  ald::GetDlgItemTextTrimmed(m_hScreen, kPayee, cheque.sPayee);
  if (cheque.sPayee.IsEmpty()) return Refuse(kTextNoPayee, kPayee);
  if (ald::GetDlgItemDate(m_hScreen, kDate, &cheque.date) == 0) {
    return Refuse(kTextInvalidDate, kDate);
  }
  cheque.amount = Amount();
  if (cheque.amount <= CDecimal()) return Refuse(kTextNoAmount, kAmount);
  if (cheque.amount > kLargestShown) return Refuse(kTextAmountTooLarge, kAmount);
  int bChosen = 0;
  cheque.nAccount = ald::GetListSelItemData(Control(kAccounts), &bChosen);
  return bChosen != 0 || Refuse(kTextNoAccount, kAccounts);
}

bool WriteChecksScreen::Refuse(std::uint16_t nText, std::int32_t nControl) {
  if (nText == kTextAmountTooLarge) {
    ald::MessageWithString(0, ald::MessageByNumber(nText), MoneyText(kLargestShown));
  } else {
    ald::Message(0, ald::MessageByNumber(nText), false, m_hScreen);
  }
  ald::SetDlgFocus(m_hScreen, nControl);
  return false;
}

bool WriteChecksScreen::Record() {
  Cheque cheque;
  if (!ReadCheque(cheque) || !m_book.Record(cheque)) return false;
  Clear();
  ald::SendMessageToDataEntryScreens({}, kMessageBookChanged, 0, 0);
  return true;
}

// Destroying the window ends this screen's own handler too; the caller holds the screen.
void WriteChecksScreen::Close() {
  if (HasEntry()) {
    switch (ald::Message(0, ald::MessageByNumber(kTextSaveFirst), false, m_hScreen)) {
      case ald::kButtonYes:
        if (!Record()) return;
        break;
      case ald::kButtonNo:
        break;
      default:
        return;
    }
  }
  CurrentDesktop().windows.Destroy(m_hScreen);
}

ald::WindowHandle WriteChecksScreen::Control(std::int32_t nId) const {
  return CurrentDesktop().windows.Child(m_hScreen, nId);
}

CDecimal WriteChecksScreen::Amount() const {
  return ald::GetDlgItemDollars(m_hScreen, kAmount).Round(kCents);
}

}  // namespace alder_checks
