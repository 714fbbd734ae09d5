#pragma once

#include <cstdint>
#include <vector>

#include "aldlib/platform/WindowTypes.h"
#include "aldlib/screens/Colours.h"
#include "host/ChequeBook.h"

namespace alder_checks {

// The controls of the screen. Enter means Record and Escape means Close.
enum WriteChecksControl : std::int32_t {
  kRecord = 1,
  kClose = 2,
  kHelp = 9,
  kPayee = 101,
  kDate,
  kAmount,
  kWords,
  kAccountLabel,
  kAccounts,
  kAccountName,
  kAccountDebit,
  kAccountCredit,
  kCheckingName,
  kCheckingDebit,
  kCheckingCredit,
  kBook,
  kClear,
};

// The number of the dialog, and of its topic in the help file.
constexpr std::uint16_t kWriteChecksTopic = 31500;

// Sent to all open screens when a cheque has been recorded.
constexpr std::uint32_t kMessageBookChanged = 0x0600;

struct Account {
  std::int32_t nNumber;
  ald::CString sName;
};

// What a cheque is made of besides date and amount.
struct ChequeChoices {
  std::vector<ald::CString> payees;
  std::vector<Account> accounts;
  ald::CString sCheckingAccount;  // that the cheques are drawn on
};

// A data entry screen on which cheques are written: payee, date and amount, the amount in words as
// soon as it is left, and the entry that the cheque makes. A cheque that is not in order is not
// recorded: the user is told why by a numbered message, and the focus is on what is wrong.
//
// The screen is a modeless dialog of whatever desktop is in use. It lives until the user closes it,
// or its window is destroyed, and may be open more than once.
class WriteChecksScreen {
 public:
  // Opens a screen in front of its owner and enters it into both window tables under the menu id;
  // 0 for none. Book and choices outlive it. RegisterTexts and RegisterEditKinds come first.
  // Returns 0, and the user has been told, if there is no room for another screen.
  static ald::WindowHandle Open(ald::WindowHandle hOwner, const ChequeBook& book,
                                const ChequeChoices& choices, std::uint16_t nMenuId);

  WriteChecksScreen(const ChequeBook& book, const ChequeChoices& choices)
      : m_book(book), m_choices(choices) {}

 private:
  std::intptr_t Handle(ald::WindowHandle hScreen, std::uint32_t nMessage, std::uint32_t nWord,
                       std::intptr_t nLong);
  void Begin(ald::WindowHandle hScreen);
  void End();
  void SetUpColours();
  void OnCommand(std::int32_t nId, std::uint32_t nNotice);

  void Clear();
  void ShowAmount();
  void ShowEntry();
  void ShowBook();
  void ShowHelp();

  bool HasEntry() const;
  // Reads the controls. If they make no cheque, the user has been told.
  bool ReadCheque(Cheque& cheque);
  bool Refuse(std::uint16_t nText, std::int32_t nControl);
  bool Record();
  void Close();

  ald::WindowHandle Control(std::int32_t nId) const;
  ald::CDecimal Amount() const;

  const ChequeBook& m_book;
  const ChequeChoices& m_choices;
  ald::WindowHandle m_hScreen{};
  ald::ALWUnivColorTyp m_colors{};
  std::vector<ald::ALWCtrlInfo> m_colored;
};

}  // namespace alder_checks
