#include "host/WriteChecksForm.h"

#include "host/WriteChecksScreen.h"

namespace alder_checks {

ald::DialogTemplate WriteChecksForm() {
  using ald::kStyleVisible;
  constexpr std::uint32_t kStop = kStyleVisible | ald::kStyleTabStop;
  constexpr std::uint32_t kDropDownList = 3;  // a combo without a field to type into
  constexpr std::uint32_t kTellSelection = 1;
  ald::DialogTemplate form;
  form.nStyle = ald::kStylePopup | ald::kStyleCaption | ald::kStyleSystemMenu;
  form.cx = 302;
  form.cy = 160;
  form.sTitle = "Write Checks";
  form.items = {
      {kStyleVisible, 8, 10, 40, 8, -1, "STATIC", "&Payee:"},
      {kStop | kDropDownList, 52, 8, 150, 12, kPayee, "COMBO", ""},
      {kStyleVisible, 8, 28, 40, 8, -1, "STATIC", "&Date:"},
      {kStop, 52, 26, 70, 12, kDate, "ABD_EditDate", ""},
      {kStyleVisible, 8, 46, 40, 8, -1, "STATIC", "&Amount:"},
      {kStop, 52, 44, 70, 12, kAmount, "ABD_Dollars", ""},
      {kStyleVisible, 52, 62, 190, 18, kWords, "STATIC", ""},
      {kStyleVisible, 8, 84, 104, 8, kAccountLabel, "STATIC", "Acc&ount:"},
      {kStop | kTellSelection, 8, 94, 104, 50, kAccounts, "LISTBOX", ""},
      {kStyleVisible, 172, 84, 60, 8, -1, "STATIC", "Debit"},
      {kStyleVisible, 234, 84, 60, 8, -1, "STATIC", "Credit"},
      {kStyleVisible, 116, 96, 54, 8, kAccountName, "STATIC", ""},
      {kStyleVisible, 172, 96, 60, 8, kAccountDebit, "STATIC", ""},
      {kStyleVisible, 234, 96, 60, 8, kAccountCredit, "STATIC", ""},
      {kStyleVisible, 116, 110, 54, 8, kCheckingName, "STATIC", ""},
      {kStyleVisible, 172, 110, 60, 8, kCheckingDebit, "STATIC", ""},
      {kStyleVisible, 234, 110, 60, 8, kCheckingCredit, "STATIC", ""},
      {kStyleVisible, 8, 149, 288, 8, kBook, "STATIC", ""},
      {kStop | ald::kButtonDefaultPush, 250, 8, 46, 14, kRecord, "BUTTON", "&Record"},
      {kStop, 250, 25, 46, 14, kClear, "BUTTON", "C&lear"},
      {kStop, 250, 42, 46, 14, kHelp, "BUTTON", "&Help"},
      {kStop, 250, 59, 46, 14, kClose, "BUTTON", "&Close"},
  };
  return form;
}

}  // namespace alder_checks
