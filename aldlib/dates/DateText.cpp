#include "aldlib/dates/DateText.h"

#include <array>
#include <bit>
#include <cstring>
#include <utility>

#include "aldlib/dates/internal/Calendar.h"
#include "aldlib/dates/internal/DateCustom.h"
#include "aldlib/dates/internal/FieldText.h"
#include "aldlib/dates/internal/MonthTable.h"
#include "aldlib/platform/Platform.h"

namespace ald {
namespace {

constexpr char kFirstSeparator[] = "-";

constinit CFixedString<2> g_sSeparator = kFirstSeparator;

inline bool IsWritable(DatesType date) {
  return IsLegal(date) && g_eDateOrder >= DateOrderMDY && g_eDateOrder <= DateOrderYMD;
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
  switch (g_eDateOrder) {
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

// A number from 0 to 99 as its digits, the first in the lowest byte, and above them how many bits
// they take. In two digits, then without a leading zero.
constexpr std::uint32_t NumberWord(std::uint32_t nValue, bool bShort) {
  const std::uint32_t nTens = nValue / 10;
  const std::uint32_t nOnes = nValue % 10 + '0';
  return bShort && nTens == 0 ? nOnes | 8U << 16 : (nTens + '0') | nOnes << 8 | 16U << 16;
}
constexpr auto kNumberWords = [] {
  std::array<std::array<std::uint32_t, 100>, 2> words{};
  for (std::uint32_t n = 0; n < 100; ++n) {
    words[0][n] = NumberWord(n, false);
    words[1][n] = NumberWord(n, true);
  }
  return words;
}();

// As sstrcpy of a text of up to eight characters, the first in the lowest byte.
void StoreWord(std::uint64_t nText, char* szTarget, std::int32_t nSize) noexcept {
  if constexpr (std::endian::native == std::endian::big) nText = __builtin_bswap64(nText);
  constexpr std::int32_t kCharacters = sizeof nText;
  if (nSize <= kCharacters || szTarget == nullptr) {
    char szText[kCharacters + 1]{};
    std::memcpy(szText, &nText, sizeof nText);
    sstrcpy(szTarget, szText, nSize);
    return;
  }
  std::memcpy(szTarget, &nText, sizeof nText);
  szTarget[kCharacters] = '\0';
  szTarget += kCharacters + 1;
  nSize -= kCharacters + 1;
  if (nSize > 0) std::memset(szTarget, 0, static_cast<std::size_t>(nSize));
}

// Day and month without leading zeros if bShort, the year in two digits: eight characters at most.
// They are put together in one word, so that no branch depends on which numbers have two digits: a
// processor could not guess it.
[[gnu::always_inline]] inline void StoreNumbers(DatesType date, bool bShort, bool bSeparators,
                                                const CFixedStringParamRef& ref) {
  std::uint64_t nText = 0;
  if (IsWritable(date)) {
    const std::uint64_t nSeparator =
        static_cast<unsigned char>(bSeparators ? g_sSeparator[0] : '\0');
    const unsigned nSeparatorBits = nSeparator != 0 ? 8 : 0;
    const auto& words = kNumberWords[bShort ? 1 : 0];
    const std::uint32_t nYear = kNumberWords[0][date.year % 100U];
    std::uint32_t nFirst = words[date.month];
    std::uint32_t nSecond = words[date.day];
    std::uint32_t nThird = nYear;
    if (g_eDateOrder == DateOrderDMY) {
      std::swap(nFirst, nSecond);
    } else if (g_eDateOrder == DateOrderYMD) {
      nThird = nSecond;
      nSecond = nFirst;
      nFirst = nYear;
    }
    unsigned nBits = nFirst >> 16;
    nText = (nFirst & 0xFFFF) | nSeparator << nBits;
    nBits += nSeparatorBits;
    nText |= std::uint64_t{nSecond & 0xFFFF} << nBits;
    nBits += nSecond >> 16;
    nText |= nSeparator << nBits;
    nBits += nSeparatorBits;
    nText |= std::uint64_t{nThird & 0xFFFF} << nBits;
  }
  StoreWord(nText, ref.buffer, ref.size);
}

int WidthOf(enDateFormattingType eForm) {
  return eForm == DateFieldTwoDigits ? 2 : 1;
}

}  // namespace

constinit DateOrderType g_eDateOrder = DateOrderMDY;

void ForgetDateCustom() noexcept {
  g_eDateOrder = DateOrderMDY;
  g_sSeparator = kFirstSeparator;
}

DateOrderType SetDateOrder(DateOrderType eOrder) noexcept {
  const DateOrderType eBefore = g_eDateOrder;
  g_eDateOrder = eOrder;
  return eBefore;
}

DateOrderType GetDateOrder() noexcept {
  return g_eDateOrder;
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
