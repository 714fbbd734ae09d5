#include "host/EditKinds.h"

#include <bit>
#include <map>
#include <memory>

#include "aldlib/amounts/Parse.h"
#include "aldlib/dates/DateText.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/screens/Controls.h"

namespace alder_checks {

namespace {

const ald::Desktop& CurrentDesktop() {
  return ald::CurrentPlatform().desktop;
}

void SelectAll(ald::WindowHandle hEdit) {
  CurrentDesktop().controls.SelectText(hEdit, 0, -1);
}

void TellParent(ald::WindowHandle hEdit) {
  ald::Windows& windows = CurrentDesktop().windows;
  const auto nId = static_cast<std::uint32_t>(windows.ControlId(hEdit)) & 0xFFFF;
  CurrentDesktop().queue.Send(windows.Parent(hEdit), ald::kMessageCommand, kNoticeLeft << 16 | nId,
                              static_cast<std::intptr_t>(hEdit));
}

// Date controls, each with the date and the text that it was last given. Not every form of a date
// can be read back in every region, so an untouched text stands for its date.
class DateEdits {
 public:
  std::intptr_t Handle(ald::WindowHandle hEdit, std::uint32_t nMessage, std::uint32_t nWord,
                       std::intptr_t nLong) {
    switch (nMessage) {
      case ald::kMessageReadDate:
        return std::bit_cast<std::int32_t>(Read(hEdit));
      case ald::kMessageWriteDate:
        Write(hEdit, std::bit_cast<ald::DatesType>(static_cast<std::uint32_t>(nLong)));
        return 1;
      case ald::kMessageDestroy:
        m_shown.erase(hEdit);
        break;
      case ald::kMessageSetFocus:
        SelectAll(hEdit);
        break;
      case ald::kMessageKillFocus:
        if (const ald::DatesType date = Read(hEdit); ald::IsLegalDate(date) != 0) {
          Write(hEdit, date);
        }
        TellParent(hEdit);
        break;
      default:
        break;
    }
    return CurrentDesktop().windows.DefaultProcedure(hEdit, nMessage, nWord, nLong);
  }

 private:
  struct Shown {
    ald::DatesType date;
    ald::CString sText;
  };

  ald::DatesType Read(ald::WindowHandle hEdit) const {
    ald::CFixedString<60> sText;
    ald::GetWindowTextTrimmed(hEdit, sText);
    const auto itShown = m_shown.find(hEdit);
    if (itShown != m_shown.end() && itShown->second.sText == sText.view()) {
      return itShown->second.date;
    }
    ald::DatesType date{};
    if (!sText.IsEmpty() && (sText[0] < '0' || sText[0] > '9')) {
      ald::MedStrToDate(sText, date);
    } else {
      ald::ShortStrToDate(sText, date, ald::TodaysDate);
    }
    return date;
  }

  void Write(ald::WindowHandle hEdit, ald::DatesType date) {
    ald::CFixedString<16> sText;
    ald::DateToMedStr(date, sText);
    m_shown[hEdit] = {date, ald::CString(sText.view())};
    CurrentDesktop().windows.SetText(hEdit, ald::CString(sText.view()));
  }

  std::map<ald::WindowHandle, Shown> m_shown;
};

std::intptr_t HandleDollars(ald::WindowHandle hEdit, std::uint32_t nMessage, std::uint32_t nWord,
                            std::intptr_t nLong) {
  if (nMessage == ald::kMessageSetFocus) SelectAll(hEdit);
  if (nMessage == ald::kMessageKillFocus) {
    ald::CFixedString<46> sText;
    ald::GetWindowTextTrimmed(hEdit, sText);
    ald::CDecimal amount;
    const bool bNumber = !sText.IsEmpty() && ald::MyStringToReal(sText, &amount) != 0;
    if (bNumber && amount <= kLargestShown && amount >= -kLargestShown) {
      ald::SetWindowDollars(hEdit, amount);
    }
    TellParent(hEdit);
  }
  return CurrentDesktop().windows.DefaultProcedure(hEdit, nMessage, nWord, nLong);
}

}  // namespace

bool RegisterEditKinds() {
  ald::Windows& windows = CurrentDesktop().windows;
  const auto pDates = std::make_shared<DateEdits>();
  return windows.RegisterClass("ABD_EditDate", "EDIT",
                               [pDates](ald::WindowHandle hEdit, std::uint32_t nMessage,
                                        std::uint32_t nWord, std::intptr_t nLong) {
                                 return pDates->Handle(hEdit, nMessage, nWord, nLong);
                               }) &&
         windows.RegisterClass("ABD_Dollars", "EDIT", HandleDollars);
}

}  // namespace alder_checks
