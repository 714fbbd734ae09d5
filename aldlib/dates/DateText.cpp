#include "aldlib/dates/DateText.h"

#include <bit>
#include <cstring>

#include "aldlib/dates/internal/Calendar.h"
#include "aldlib/dates/internal/DateCustom.h"
#include "aldlib/dates/internal/FieldText.h"
#include "aldlib/dates/internal/MonthTable.h"
#include "aldlib/platform/Platform.h"

namespace ald {
namespace {

constexpr char kFirstSeparator[] = "-";

constinit DateOrderType g_eOrder = DateOrderMDY;
constinit CFixedString<2> g_sSeparator = kFirstSeparator;

bool IsWritable(DatesType date) {
  return IsLegal(date) && g_eOrder >= DateOrderMDY && g_eOrder <= DateOrderYMD;
}

template <std::size_t N>
void Store(const FieldText<N>& text, const CFixedStringParamRef& ref) {
  sstrcpy(ref.buffer, text.c_str(), ref.size);
}

// The month by its name, cut at nNameLength characters; the text fits a buffer of N bytes.
template <std::size_t N>
FieldText<N> WithName(DatesType date, std::size_t nNameLength) {
  FieldText<N> text;
  if (!IsWritable(date)) return text;
  CFixedString<static_cast<int>(N)> sName;
  GetMonthName(date.month, sName);
  const std::string_view sMonth = sName.view().substr(0, nNameLength);
  switch (g_eOrder) {
    case DateOrderMDY:
      text.Text(sMonth).Text(" ").Number(date.day).Text(", ").Number(date.year);
      break;
    case DateOrderDMY:
      text.Number(date.day).Text(" ").Text(sMonth).Text(" ").Number(date.year);
      break;
    case DateOrderYMD:
      text.Number(date.year).Text(" ").Text(sMonth).Text(" ").Number(date.day);
      break;
  }
  return text;
}

// A text of up to eight characters, put together in one word, the first in the lowest byte. Without
// a branch, since a processor cannot guess which numbers have two digits.
class WordText {
 public:
  // The character, or nothing if it is zero.
  void Character(unsigned char ch) noexcept { Put(ch, ch != 0 ? 1 : 0); }
  // A number below 100 in two digits, or, if bShort, without a leading zero.
  void Number(unsigned nValue, bool bShort) noexcept {
    const unsigned nTens = nValue / 10;
    const std::uint64_t nDigits = ('0' + nTens) | ('0' + (nValue - 10 * nTens)) << 8;
    const unsigned nDropped = static_cast<unsigned>(bShort) & static_cast<unsigned>(nTens == 0);
    Put(nDigits >> 8 * nDropped, 2 - nDropped);
  }
  // As sstrcpy.
  void Store(char* szTarget, std::int32_t nSize) const noexcept {
    char aBytes[9]{};
    std::uint64_t nBytes = m_nText;
    if constexpr (std::endian::native == std::endian::big) nBytes = __builtin_bswap64(nBytes);
    std::memcpy(aBytes, &nBytes, sizeof nBytes);
    constexpr std::int32_t kWhole = sizeof aBytes;
    if (nSize < kWhole || szTarget == nullptr) {
      sstrcpy(szTarget, aBytes, nSize);
      return;
    }
    std::memcpy(szTarget, aBytes, kWhole);
    if (nSize > kWhole) std::memset(szTarget + kWhole, 0, static_cast<std::size_t>(nSize - kWhole));
  }

 private:
  void Put(std::uint64_t nCharacters, unsigned nLength) noexcept {
    m_nText |= nCharacters << m_nBits;
    m_nBits += 8 * nLength;
  }

  std::uint64_t m_nText = 0;
  unsigned m_nBits = 0;
};

// Day and month without leading zeros if bShort, the year in two digits: eight characters at most.
inline void StoreNumbers(DatesType date, bool bShort, bool bSeparators,
                         const CFixedStringParamRef& ref) {
  WordText text;
  if (IsWritable(date)) {
    const unsigned nYear = date.year % 100U;
    const bool bYearFirst = g_eOrder == DateOrderYMD;
    const bool bDayFirst = g_eOrder == DateOrderDMY;
    const auto chSeparator = static_cast<unsigned char>(bSeparators ? g_sSeparator[0] : '\0');
    text.Number(bYearFirst ? nYear : bDayFirst ? date.day : date.month, bShort && !bYearFirst);
    text.Character(chSeparator);
    text.Number(bDayFirst || bYearFirst ? date.month : date.day, bShort);
    text.Character(chSeparator);
    text.Number(bYearFirst ? date.day : nYear, bShort && bYearFirst);
  }
  text.Store(ref.buffer, ref.size);
}

int WidthOf(enDateFormattingType eForm) {
  return eForm == DateFieldTwoDigits ? 2 : 1;
}

}  // namespace

void ForgetDateCustom() noexcept {
  g_eOrder = DateOrderMDY;
  g_sSeparator = kFirstSeparator;
}

DateOrderType SetDateOrder(DateOrderType eOrder) noexcept {
  const DateOrderType eBefore = g_eOrder;
  g_eOrder = eOrder;
  return eBefore;
}

DateOrderType GetDateOrder() noexcept {
  return g_eOrder;
}

CFixedString<2> SetDateSeparator(const CFixedString<2>& sSeparator) noexcept {
  const CFixedString<2> sBefore = g_sSeparator;
  g_sSeparator = sSeparator;
  return sBefore;
}

CFixedString<2> GetDateSeparator() noexcept {
  return g_sSeparator;
}

void DateToLongStr(DatesType date, CFixedStringParamRef ref) {
  Store(WithName<19>(date, std::string_view::npos), ref);
}

void DateToMedStr(DatesType date, CFixedStringParamRef ref) {
  Store(WithName<16>(date, 3), ref);
}

void DateToShortStr(DatesType date, CFixedStringParamRef ref) {
  StoreNumbers(date, true, true, ref);
}

void DateToShortStr2(DatesType date, CFixedStringParamRef ref, int nSeparators) {
  StoreNumbers(date, false, nSeparators != 0, ref);
}

void DateToMonthYearStr(DatesType date, CFixedStringParamRef ref) {
  FieldText<6> text;
  if (IsLegal(date)) text.Number(date.month, 2).Text("/").Number(date.year % 100, 2);
  Store(text, ref);
}

void DateToShortStrYr4(DatesType date, CFixedStringParamRef ref, enDateFormattingType eYear,
                       enDateFormattingType eMonth, enDateFormattingType eDay) {
  FieldText<11> text;
  if (IsWritable(date)) {
    text.Number(date.month, WidthOf(eMonth)).Text(g_sSeparator.view());
    if (eDay != DateFieldShort) text.Number(date.day, WidthOf(eDay)).Text(g_sSeparator.view());
    if (eYear == DateFieldFourDigits) {
      text.Number(date.year, 4);
    } else {
      text.Number(date.year % 100, 2);
    }
  }
  Store(text, ref);
}

void DateToIsoStr(DatesType date, CFixedStringParamRef ref) {
  FieldText<11> text;
  if (IsLegal(date)) {
    text.Number(date.year, 4).Text("-").Number(date.month, 2).Text("-").Number(date.day, 2);
  }
  Store(text, ref);
}

void GetDate(CFixedStringParamRef ref) {
  DatesType today{};
  GetCurrentDate(today);
  DateToShortStr(today, ref);
}

void GetTime(CFixedStringParamRef ref) {
  const LocalTime now = CurrentPlatform().clock.Now();
  FieldText<12> text;
  text.Number(now.hour, 2).Text(":").Number(now.minute, 2).Text(":").Number(now.second, 2);
  text.Text(".").Number(now.millisecond / 10, 2);
  Store(text, ref);
}

}  // namespace ald
