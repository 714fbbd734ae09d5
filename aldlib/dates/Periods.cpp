#include "aldlib/dates/Periods.h"

#include "aldlib/arith/FixedDecimal.h"

namespace ald {
namespace {

constexpr int kMonths = 12;

DatesType DayAfter(DatesType date) {
  IncDate(date, IncDay);
  return date;
}

// The end of the month that holds the day after `from`, or of the one so many months later.
DatesType MonthEndFrom(DatesType from, int nMonthsLater) {
  DatesType end = DayAfter(from);
  const int nMonth = end.month + nMonthsLater;
  if (nMonth > kMonths) ++end.year;
  end.month = static_cast<std::uint8_t>(nMonth > kMonths ? nMonth - kMonths : nMonth);
  EndOfMonth(end);
  return end;
}

// By how many days the last day of a period lies behind its first.
std::int32_t DaysBehind(DatesType from, int nPerYear) {
  CDecimal days(NumDaysInYear(from.year));
  days /= nPerYear;
  const auto nDays = days.toIntType<int>(false);
  return nPerYear == 13 ? nDays - 1 : nDays;
}

bool IsBadLine(const FromTo* pTable, unsigned nCount, unsigned nIndex, int nTest) {
  const FromTo& line = pTable[nIndex];
  switch (nTest) {
    case 0:
      return IsLegalDate(line.From) == 0 || IsLegalDate(line.To) == 0;
    case 1:
      return line.From > line.To;
    default:
      return nIndex + 1 < nCount && AbsDate(pTable[nIndex + 1].From) != AbsDate(line.To) + 1;
  }
}

}  // namespace

void CalculateCustomAccountingPeriods(FromTo* pTable, std::int16_t nCount, const DatesType& start) {
  if (pTable == nullptr) return;
  DatesType yearMark = start;  // where the fiscal year begins; `start` may lie in the table
  pTable[0].From = yearMark;
  if (nCount < 2) return;
  const int nPerYear = nCount / 2;
  const bool bWholeMonths = kMonths % nPerYear == 0;
  for (int i = 0; i < nCount; ++i) {
    FromTo& line = pTable[i];
    if (bWholeMonths) {
      line.To = MonthEndFrom(line.From, kMonths / nPerYear - 1);
    } else if (i == nPerYear - 1 || i == nCount - 1) {
      IncDate(yearMark, IncYear);
      line.To = yearMark;
      DecDate(line.To, IncDay);
    } else {
      FileDate(AbsDate(line.From) + DaysBehind(line.From, nPerYear), line.To);
    }
    if (i < nCount - 1) pTable[i + 1].From = DayAfter(line.To);
  }
}

int ValidateDates(FromTo* pTable, unsigned nCount, unsigned* pnBad, int nRepair) {
  if (nCount == 0) return 1;
  if (pTable == nullptr) return 0;
  for (unsigned i = 0; i < nCount; ++i) {
    for (int nTest = 0; nTest < 3; ++nTest) {
      if (!IsBadLine(pTable, nCount, i, nTest)) continue;
      if (nRepair == 0) {
        if (pnBad != nullptr) *pnBad = i;
        return 0;
      }
      FixADateLine(pTable, nCount, i);
    }
  }
  return 1;
}

int FixADateLine(FromTo* pTable, unsigned nCount, unsigned nIndex) {
  if (pTable == nullptr || nIndex >= nCount) return 0;
  FromTo& line = pTable[nIndex];
  int nChanged = 0;
  if (nIndex > 0) {
    const DatesType from = DayAfter(pTable[nIndex - 1].To);
    if (line.From != from) {
      line.From = from;
      nChanged = 1;
    }
  }
  if (line.From > line.To) {
    line.To = line.From;
    EndOfMonth(line.To);
    if (line.To == line.From) IncDate(line.To, IncDay);
    nChanged = 1;
  }
  if (nIndex == nCount - 1) return nChanged;

  FromTo& next = pTable[nIndex + 1];
  const DatesType nextFrom = DayAfter(line.To);
  if (next.From == nextFrom) return nChanged;
  next.From = nextFrom;
  if (next.From > next.To) {
    next.To =
        MonthEndFrom(next.From, nCount < kMonths ? kMonths / static_cast<int>(nCount) - 1 : 0);
  }
  return 1;
}

std::int16_t DateInRange(const FromTo& range, DatesType date) noexcept {
  if (IsLegalDate(date) == 0 || date < range.From) return -1;
  return date > range.To ? 1 : 0;
}

std::int16_t DateInRangeWithNullRange(const FromTo& range, DatesType date) noexcept {
  constexpr DatesType kEmpty{};
  if (IsLegalDate(date) == 0) return -1;
  if (range.From != kEmpty && range.From > date) return -1;
  if (range.To == kEmpty) return range.From == kEmpty ? -1 : 0;
  return date > range.To ? 1 : 0;
}

void EndOfQtr(DatesType& date) noexcept {
  EndOfMonth(date);
  // A month that is none might never come to a quarter's end.
  for (int nSteps = 0; nSteps < kMonths; ++nSteps) {
    if (date.month == 3 || date.month == 6 || date.month == 9 || date.month == kMonths) return;
    IncDate(date, IncMonth);
  }
}

void vSetQtrEndingDate(std::int16_t nQuarter, std::uint16_t nYear, DatesType& date) noexcept {
  const int nFirstMonth = nQuarter >= 2 && nQuarter <= 4 ? nQuarter * 3 - 2 : 1;
  date = {1, static_cast<std::uint8_t>(nFirstMonth), nYear};
  EndOfQtr(date);
}

}  // namespace ald
