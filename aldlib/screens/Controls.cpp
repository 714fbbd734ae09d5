#include "aldlib/screens/Controls.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdlib>
#include <limits>

#include "aldlib/amounts/Format.h"
#include "aldlib/amounts/Parse.h"
#include "aldlib/arith/Precision.h"
#include "aldlib/dates/Calendar.h"
#include "aldlib/dates/DateText.h"
#include "aldlib/frame/MessageDoor.h"
#include "aldlib/screens/internal/ControlKinds.h"
#include "aldlib/screens/internal/ControlOf.h"
#include "aldlib/text/Justify.h"
#include "aldlib/text/ResourceStrings.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

// What is read of a control's text at most.
constexpr std::size_t kLongestText = 4002;

// Numbers are read and written through a field of this size.
using NumberField = CFixedString<46>;
constexpr std::uint16_t kRealWidth = 20;
constexpr std::uint32_t kMessageNumberBetween = 20500;

void ShowText(WindowHandle hControl, CFixedStringParamRef text) {
  CurrentWindows().SetText(hControl, CString(text.view()));
}

NumberField TypedNumber(WindowHandle hControl) {
  NumberField sText;
  GetWindowTextTrimmed(hControl, sText);
  return sText;
}

// Reads a number as the C library of a system with 32-bit longs does: past the limits it is the
// limit, and a minus sign wraps an unsigned one. `pEnd` is where it stops.
std::uint32_t ReadUnsigned(const char* szText, const char*& pEnd) {
  char* pStop = nullptr;
  errno = 0;
  const std::uint64_t nValue = std::strtoull(szText, &pStop, 10);
  pEnd = pStop;
  constexpr std::uint64_t kMost = std::numeric_limits<std::uint32_t>::max();
  const std::uint64_t nNegated = 0 - nValue;
  if (errno == 0 && (nValue <= kMost || nNegated <= kMost)) {
    return static_cast<std::uint32_t>(nValue);
  }
  return static_cast<std::uint32_t>(kMost);
}

std::int32_t ReadSigned(const char* szText, const char*& pEnd) {
  char* pStop = nullptr;
  const long long nValue = std::strtoll(szText, &pStop, 10);
  pEnd = pStop;
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<long long>(nValue, Limits::min(), Limits::max()));
}

// A number of digits alone, after blanks.
bool ReadCard(WindowHandle hControl, std::uint32_t& nValue) {
  CFixedString<32> sText;
  GetWindowTextTrimmed(hControl, sText);
  const std::string_view sDigits = sText.view();
  const char* pEnd = nullptr;
  nValue = ReadUnsigned(sText, pEnd);
  return !sDigits.empty() && *pEnd == '\0' && sDigits.find_first_of("+-") == sDigits.npos;
}

}  // namespace

int GetWindowTextA(WindowHandle hControl, CFixedStringParamRef out) try {
  out.Clear();
  CString sText = CurrentWindows().Text(hControl).substr(0, kLongestText);
  if (IsRichText(hControl)) std::erase(sText, '\r');
  out = sText.c_str();
  return static_cast<int>(out.view().size());
} catch (...) {
  return 0;
}

int GetDlgItemTextA(WindowHandle hParent, int nId, CFixedStringParamRef out) {
  return GetWindowTextA(ControlOf(hParent, nId), out);
}

int GetWindowTextWithNulls(WindowHandle hControl, CFixedStringParamRef out) {
  return GetWindowTextA(hControl, out);
}

int GetDlgItemTextWithNulls(WindowHandle hParent, int nId, CFixedStringParamRef out) {
  return GetWindowTextWithNulls(ControlOf(hParent, nId), out);
}

int GetWindowTextTrimmed(WindowHandle hControl, CFixedStringParamRef out) {
  GetWindowTextA(hControl, out);
  Trim(out);
  return static_cast<int>(out.view().size());
}

int GetDlgItemTextTrimmed(WindowHandle hParent, int nId, CFixedStringParamRef out) {
  return GetWindowTextTrimmed(ControlOf(hParent, nId), out);
}

void SetWindowTextWithTrim(WindowHandle hControl, const char* szText) try {
  CString sText = szText != nullptr ? szText : "";
  sText.erase(sText.find_last_not_of(' ') + 1);
  sText.erase(0, sText.find_first_not_of(' '));
  CurrentWindows().SetText(hControl, sText);
} catch (...) {
}

void SetDlgItemTextWithTrim(WindowHandle hParent, int nId, const char* szText) {
  SetWindowTextWithTrim(ControlOf(hParent, nId), szText);
}

CDecimal GetWindowDollars(WindowHandle hControl) {
  CDecimal value;
  MyStringToReal(TypedNumber(hControl), &value);
  return value;
}

CDecimal GetDlgItemDollars(WindowHandle hParent, int nId) {
  return GetWindowDollars(ControlOf(hParent, nId));
}

CDecimal GetWindowQty(WindowHandle hControl) {
  CDecimal value;
  MyStringToQty(TypedNumber(hControl), &value);
  return value;
}

CDecimal GetDlgItemQty(WindowHandle hParent, int nId) {
  return GetWindowQty(ControlOf(hParent, nId));
}

CDecimal GetWindowReal(WindowHandle hControl) {
  CDecimal value;
  GetWindowReal(hControl, &value);
  return value;
}

CDecimal GetDlgItemReal(WindowHandle hParent, int nId) {
  return GetWindowReal(ControlOf(hParent, nId));
}

int GetWindowReal(WindowHandle hControl, CDecimal* pValue) {
  CDecimal value;
  const unsigned char bOk = MyStringToRealWithNoExtras(TypedNumber(hControl), &value);
  if (pValue != nullptr) *pValue = value;
  return bOk;
}

int GetDlgItemReal(WindowHandle hParent, int nId, CDecimal* pValue) {
  return GetWindowReal(ControlOf(hParent, nId), pValue);
}

void SetWindowDollars(WindowHandle hControl, const CDecimal& value) try {
  NumberField sText;
  DollarsToString(value, sText, 0, kMoneyMinus);
  TrimLeft(sText);
  ShowText(hControl, sText);
} catch (...) {
}

void SetDlgItemDollars(WindowHandle hParent, int nId, const CDecimal& value) {
  SetWindowDollars(ControlOf(hParent, nId), value);
}

void SetWindowReal(WindowHandle hControl, const CDecimal& value, std::uint16_t nDecimals) try {
  NumberField sText;
  MyRealToString(value, sText, nDecimals, kRealWidth);
  TrimLeft(sText);
  ShowText(hControl, sText);
} catch (...) {
}

void SetDlgItemReal(WindowHandle hParent, int nId, const CDecimal& value, std::uint16_t nDecimals) {
  SetWindowReal(ControlOf(hParent, nId), value, nDecimals);
}

unsigned char GetWindowDate(WindowHandle hControl, DatesType* pDate) {
  const std::intptr_t nReply =
      CurrentPlatform().desktop.queue.Send(hControl, kMessageReadDate, 0, 0);
  const auto date = std::bit_cast<DatesType>(static_cast<std::uint32_t>(nReply));
  if (pDate != nullptr) *pDate = date;
  return IsLegalDate(date);
}

unsigned char GetDlgItemDate(WindowHandle hParent, int nId, DatesType* pDate) {
  return GetWindowDate(ControlOf(hParent, nId), pDate);
}

void SetWindowDate(WindowHandle hControl, DatesType date) try {
  const Desktop& desktop = CurrentPlatform().desktop;
  const auto nDate = static_cast<std::intptr_t>(std::bit_cast<std::int32_t>(date));
  if (desktop.queue.Send(hControl, kMessageWriteDate, 0, nDate) != 0) return;
  CFixedString<15> sText;
  if (IsLegalDate(date) != 0) DateToMedStr(date, sText);
  ShowText(hControl, sText);
  if (hControl != WindowHandle{} && desktop.windows.Focus() == hControl) {
    desktop.controls.SelectText(hControl, 0, -1);
  }
} catch (...) {
}

void SetDlgItemDate(WindowHandle hParent, int nId, DatesType date) {
  SetWindowDate(ControlOf(hParent, nId), date);
}

int GetWindowInt(WindowHandle hControl, int* pbOk, int bSigned) {
  CFixedString<22> sText;
  GetWindowTextA(hControl, sText);
  const char* pEnd = nullptr;
  const std::int32_t nValue =
      bSigned != 0 ? ReadSigned(sText, pEnd) : static_cast<std::int32_t>(ReadUnsigned(sText, pEnd));
  const bool bGood = (*pEnd == '\0' || *pEnd == ' ') && (bSigned != 0 || nValue >= 0);
  if (pbOk != nullptr) *pbOk = bGood ? 1 : 0;
  return bGood ? nValue : 0;
}

int MyGetDlgItemCard(WindowHandle hParent, int nId, std::uint16_t nLow, std::uint16_t nHigh,
                     std::uint16_t* pnValue) {
  const WindowHandle hControl = ControlOf(hParent, nId);
  if (hControl == WindowHandle{}) return nId;
  std::uint32_t nValue = 0;
  const bool bRead = ReadCard(hControl, nValue);
  if (pnValue != nullptr) *pnValue = static_cast<std::uint16_t>(nValue);
  if (bRead && nValue >= nLow && nValue <= nHigh) return 0;
  // The text says nothing about its box: an exclamation mark, and OK.
  CFixedString<256> sText("%");
  CFixedString<255> sMessage;
  MyLoadString(kMessageNumberBetween, sMessage);
  sstrcat(sText, sMessage, sText.GetSize());
  InsertCard(sText, nLow);
  InsertCard(sText, nHigh);
  CurrentMessageDoor().Show(MessageByText(sText));
  CurrentWindows().SetFocus(hControl);
  return nId;
}

bool IsDlgItemValidPercent(WindowHandle hParent, int nId, std::uint16_t nBadCharacter,
                           std::uint16_t nBadRange, const CDecimal& maximum) {
  CFixedString<6> sText;
  GetDlgItemTextA(hParent, nId, sText);
  if (sText.view().find_first_not_of("0123456789.") != std::string_view::npos) {
    CurrentMessageDoor().Ask(MessageByNumber(nBadCharacter));
    return false;
  }
  // Digits and periods are canonical text already, whatever the region writes.
  CDecimal value;
  std::uint16_t nPosition = 0;
  unsigned char bOk = 0;
  StringToReal(sText, &nPosition, &value, &bOk);
  if (value < CDecimal() || value > maximum) {
    CurrentMessageDoor().Ask(MessageByNumber(nBadRange));
    return false;
  }
  return true;
}

void SetDlgDrCr(WindowHandle hParent, const CDecimal& value, int nDebitId, int nCreditId) try {
  const WindowHandle hDebit = ControlOf(hParent, nDebitId);
  const WindowHandle hCredit = ControlOf(hParent, nCreditId);
  if (hDebit == WindowHandle{} || hCredit == WindowHandle{}) return;
  CurrentWindows().SetText(hDebit, "");
  CurrentWindows().SetText(hCredit, "");
  const CDecimal& halfCent = CDecimal::ms_HalfCent;
  if (value > halfCent) {
    SetWindowDollars(hDebit, value);
  } else if (value < -halfCent) {
    SetWindowDollars(hCredit, -value);
  }
} catch (...) {
}

}  // namespace ald
