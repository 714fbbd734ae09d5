#include <algorithm>

#include "aldlib/dates/DateText.h"
#include "aldlib/dates/internal/Calendar.h"
#include "aldlib/dates/internal/DateCustom.h"
#include "aldlib/dates/internal/MonthTable.h"
#include "aldlib/platform/Characters.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

constexpr std::uint16_t kLatestYear = kLatestDate.year;
constexpr std::uint16_t kTooLarge = 65535;

using Typed = CFixedString<60>;

Typed Trimmed(const char* szText) noexcept {
  Typed sText(szText);
  Trim(sText);
  return sText;
}

std::int32_t LengthOf(const Typed& sText) noexcept {
  return static_cast<std::int32_t>(sText.view().size());
}

// The digits from nIndex on as a number; 0 if there is none, kTooLarge past 16 bits.
std::uint16_t NumberAt(const Typed& sText, std::int32_t nIndex) noexcept {
  const std::string_view sView = sText.view();
  std::uint32_t nValue = 0;
  for (auto i = static_cast<std::size_t>(nIndex); i < sView.size() && IsDigitAscii(sView[i]); ++i) {
    nValue = nValue * 10 + static_cast<std::uint32_t>(sView[i] - '0');
    if (nValue > kTooLarge) return kTooLarge;
  }
  return static_cast<std::uint16_t>(nValue);
}

// Steps over digits, then to the next digit or the end. The superscript digits count here, though
// no number is read from them.
std::int32_t NextNumber(const Typed& sText, std::int32_t nIndex) noexcept {
  const auto isDigit = [](char ch) { return IsCharAlphaNumeric(ch) && !IsCharAlpha(ch); };
  const std::int32_t nLength = LengthOf(sText);
  while (nIndex < nLength && isDigit(sText[nIndex])) ++nIndex;
  while (nIndex < nLength && !isDigit(sText[nIndex])) ++nIndex;
  return nIndex;
}

std::uint8_t LowByte(std::uint16_t nValue) noexcept {
  return static_cast<std::uint8_t>(nValue);
}

constexpr std::uint32_t WithCentury(std::uint32_t nYear) noexcept {
  return nYear >= 1900 ? nYear : nYear + (nYear < 50 ? 2000 : 1900);
}

struct Numbers {
  unsigned nFirst;
  unsigned nSecond;
  unsigned nThird;
};

// Puts the numbers of a full date in their places, the first two of which are no later than the
// last year. False if they are none.
[[gnu::always_inline]] inline bool PlaceNumbers(const Numbers& numbers, DatesType& date) noexcept {
  const auto [nFirst, nSecond, nThird] = numbers;
  if (nThird > kLatestYear) return false;
  const auto place = [&date](unsigned nYear, unsigned nMonth, unsigned nDay) {
    date = DateOfKey(WithCentury(nYear) << 16 | (nMonth & 0xFF) << 8 | (nDay & 0xFF));
    return true;
  };
  switch (g_eDateOrder) {
    case DateOrderMDY:
      return place(nThird, nFirst, nSecond);
    case DateOrderDMY:
      return place(nThird, nSecond, nFirst);
    case DateOrderYMD:
      return place(nFirst, nSecond, nThird);
  }
  return false;
}

unsigned DigitAt(const char* szText) noexcept {
  return static_cast<unsigned char>(*szText) - unsigned{'0'};
}

// Steps over a number of one or two digits and a separator that sorts before the digits, as blank,
// comma, minus, point and slash do. False if something else stands there. Whether there is a second
// digit is no branch: a processor could not guess it.
[[gnu::always_inline]] inline bool TakeShortNumber(const char*& szText, unsigned& nValue) noexcept {
  const unsigned nFirst = DigitAt(szText);
  if (nFirst > 9) return false;
  const std::ptrdiff_t nSecond = static_cast<unsigned char>(szText[1]) - std::ptrdiff_t{'0'};
  if (nSecond > 9) return false;
  const std::ptrdiff_t nMissing = nSecond >> (sizeof nSecond * 8 - 1);  // -1 for a separator, or 0
  nValue = nFirst + static_cast<unsigned>((std::ptrdiff_t{9 * nFirst} + nSecond) & ~nMissing);
  szText += 3 + nMissing;
  return static_cast<unsigned char>(szText[-1]) - 1U < '0' - 1U;
}

// Takes the short way for what is typed most: two numbers of one or two digits and a year of two or
// four, with one separator between them and nothing around. "7/4/03", "12-31-1999". False
// means only that this is another text.
[[gnu::always_inline]] inline bool ReadPlainDate(const char* szText, Numbers& numbers) noexcept {
  if (szText == nullptr || !TakeShortNumber(szText, numbers.nFirst) ||
      !TakeShortNumber(szText, numbers.nSecond)) {
    return false;
  }
  const auto takeTwoDigits = [&szText](unsigned& nValue) {
    const unsigned nTens = DigitAt(szText);
    if (nTens > 9) return false;
    const unsigned nOnes = DigitAt(szText + 1);
    if (nOnes > 9) return false;
    nValue = 100 * nValue + 10 * nTens + nOnes;
    szText += 2;
    return true;
  };
  unsigned nYear = 0;
  if (!takeTwoDigits(nYear)) return false;
  if (*szText != '\0' && (!takeTwoDigits(nYear) || *szText != '\0')) return false;
  numbers.nThird = nYear;
  return true;
}

// The three numbers of a date in their places. False if the text is none.
bool ReadFields(Typed& sText, bool bYearMissing, DatesType& date) noexcept {
  // A gap behind the second character splits a run of digits; in a text with separators it does no
  // harm.
  Insert(" ", sText, 2);
  const std::uint16_t nFirst = NumberAt(sText, 0);
  if (nFirst > kLatestYear) return false;

  std::int32_t nIndex = NextNumber(sText, 0);
  if (nIndex >= LengthOf(sText)) return false;
  if (LengthOf(sText) - nIndex >= 2) Insert(" ", sText, nIndex + 2);
  const std::uint16_t nSecond = NumberAt(sText, nIndex);
  if (nSecond > kLatestYear) return false;

  const DateOrderType eOrder = g_eDateOrder;
  if (eOrder < DateOrderMDY || eOrder > DateOrderYMD) return false;
  if (bYearMissing) {
    // The century of the fill is lost on purpose: two digits are read as two typed ones are.
    const auto nYear = static_cast<std::uint16_t>(date.year % 100);
    const bool bDayFirst = eOrder == DateOrderDMY;
    date = {LowByte(bDayFirst ? nFirst : nSecond), LowByte(bDayFirst ? nSecond : nFirst),
            static_cast<std::uint16_t>(WithCentury(nYear))};
    return true;
  }

  nIndex = NextNumber(sText, nIndex);
  if (nIndex >= LengthOf(sText)) return false;
  return PlaceNumbers({nFirst, nSecond, NumberAt(sText, nIndex)}, date);
}

// Any typed date. What is missing comes from `fill`, which is legal or empty.
[[gnu::noinline]] void ReadTypedDate(const char* szText, DatesType& date, DatesType fill) noexcept {
  Typed sText = Trimmed(szText);
  date = fill;
  bool bYearMissing = false;
  switch (LengthOf(sText)) {
    case 0:
      date = {};
      return;
    case 1:
    case 2: {
      const std::uint16_t nDay = NumberAt(sText, 0);
      if (nDay >= 1 && nDay <= 31) {
        date.day = LowByte(nDay);
      } else {
        date = {};
      }
      return;
    }
    case 3:
      bYearMissing = true;
      Insert("0", sText, 0);
      break;
    case 4:
      bYearMissing = true;
      if (!IsDigitAscii(sText[2])) Insert("0", sText, 0);
      break;
    case 5:
      if (IsDigitAscii(sText[2])) {
        Insert("0", sText, 0);
      } else {
        bYearMissing = true;
      }
      break;
    default:
      break;
  }
  if ((bYearMissing && fill.month == 0) || !ReadFields(sText, bYearMissing, date)) date = {};
}

// By as few letters as tell the English months apart.
std::uint8_t MonthWord(char cFirst, char cSecond, char cThird) noexcept {
  switch (cFirst) {
    case 'J':
      return cSecond == 'A' ? 1 : cThird == 'N' ? 6 : 7;
    case 'F':
      return 2;
    case 'M':
      return cThird == 'R' ? 3 : 5;
    case 'A':
      return cSecond == 'P' ? 4 : 8;
    case 'S':
      return 9;
    case 'O':
      return 10;
    case 'N':
      return 11;
    case 'D':
      return 12;
    default:
      return 0;
  }
}

bool ReadIsoDigits(std::string_view sDigits, std::uint16_t& nValue) noexcept {
  nValue = 0;
  for (const char ch : sDigits) {
    if (!IsDigitAscii(ch)) return false;
    nValue = static_cast<std::uint16_t>(nValue * 10 + (ch - '0'));
  }
  return true;
}

}  // namespace

void ShortStrToDate(const char* szText, DatesType& date, DatesType fill) noexcept {
  if (!IsLegal(fill)) fill = {};
  Numbers numbers{};
  if (ReadPlainDate(szText, numbers)) {
    if (!PlaceNumbers(numbers, date)) date = {};
    return;
  }
  ReadTypedDate(szText, date, fill);
}

void ShortStrToDate2(const char* szText, DatesType& date) noexcept {
  Typed sText = Trimmed(szText);
  std::uint16_t nMonth = 0;
  std::uint16_t nYear = 0;
  if (LengthOf(sText) == 7) {
    nYear = NumberAt(sText, 3);
    nMonth = NumberAt(sText, 0);
  } else if (LengthOf(sText) == 6) {
    Insert(" ", sText, 4);
    nYear = NumberAt(sText, 0);
    nMonth = NumberAt(sText, 5);
  } else {
    date = {};
    return;
  }
  if (nYear > kLatestYear) {
    date = {};
    return;
  }
  date = {0, LowByte(nMonth), nYear};
  EndOfMonth(date);
}

void MedStrToDate(const char* szText, DatesType& date) noexcept {
  Typed sText(szText);
  UpperCase(sText);
  Trim(sText);
  const DateOrderType eOrder = g_eDateOrder;
  if (eOrder < DateOrderMDY || eOrder > DateOrderYMD) {
    date = {};
    return;
  }
  std::int32_t nWord = 0;
  if (eOrder == DateOrderYMD) nWord = 5;
  if (eOrder == DateOrderDMY) nWord = IsDigitAscii(sText[1]) ? 3 : 2;
  date.month = MonthWord(sText[nWord], sText[nWord + 1], sText[nWord + 2]);
  Delete(sText, nWord, 3);
  TrimLeft(sText);

  const auto setDay = [&date](std::uint16_t nDay) { date.day = nDay < 32 ? LowByte(nDay) : 0; };
  const std::uint16_t nFirst = NumberAt(sText, 0);
  const std::uint16_t nSecond = NumberAt(sText, NextNumber(sText, 0));
  if (eOrder == DateOrderYMD) {
    date.year = nFirst;
    setDay(nSecond);
    return;
  }
  setDay(nFirst);
  if (nFirst < 32) date.year = nSecond;
}

bool IsoStrToDate(std::string_view sText, DatesType& date) noexcept {
  date = {};
  const bool bExtended = sText.size() == 10 && sText[4] == '-' && sText[7] == '-';
  if (!bExtended && sText.size() != 8) return false;
  const std::size_t nMonthAt = bExtended ? 5 : 4;
  std::uint16_t nYear = 0;
  std::uint16_t nMonth = 0;
  std::uint16_t nDay = 0;
  if (!ReadIsoDigits(sText.substr(0, 4), nYear) ||
      !ReadIsoDigits(sText.substr(nMonthAt, 2), nMonth) ||
      !ReadIsoDigits(sText.substr(sText.size() - 2), nDay)) {
    return false;
  }
  const DatesType read{LowByte(nDay), LowByte(nMonth), nYear};
  if (IsLegalDate(read) == 0) return false;
  date = read;
  return true;
}

}  // namespace ald
