#include "aldlib/dates/Calendar.h"

#include <algorithm>
#include <array>

#include "aldlib/dates/internal/Calendar.h"
#include "aldlib/dates/internal/MonthTable.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/ResourceStrings.h"

namespace ald {
namespace {

constexpr int kDecember = 12;
constexpr std::uint32_t kFirstDayName = 20220;

// From 1901 to 2099 every fourth year is a leap year: no century breaks the cycle.

constexpr std::uint32_t kDaysInFourYears = 4 * 365 + 1;

constexpr std::array<std::uint8_t, 13> kCommonMonthLength = {0,  31, 28, 31, 30, 31, 30,
                                                             31, 31, 30, 31, 30, 31};
constexpr MonthTable MakeMonthTable() {
  MonthTable table{};
  for (std::size_t nYear = 0; nYear < 4; ++nYear) {
    const int nFebruary = nYear == 0 ? 29 : 28;
    int nDaysBefore = 0;
    for (std::size_t nMonth = 1; nMonth <= kDecember; ++nMonth) {
      const int nLength = nMonth == kFebruary ? nFebruary : kCommonMonthLength[nMonth];
      table[nYear << 8 | nMonth] = {static_cast<std::uint16_t>(nDaysBefore),
                                    static_cast<std::uint8_t>(nLength),
                                    static_cast<std::uint8_t>(nFebruary)};
      nDaysBefore += nLength;
    }
  }
  return table;
}

constinit DatesType g_earliest{};
constinit DatesType g_latest{};

std::uint8_t MonthLength(int nMonth) noexcept {
  return nMonth >= 0 && nMonth <= kDecember ? g_anMonthLength[static_cast<std::size_t>(nMonth)]
                                            : std::uint8_t{0};
}

// FileDate of any count from 1 on. Past the last legal day every four years go on to have 1461
// days, though February follows the centuries.
[[gnu::noinline]] void FileAnyDate(std::int32_t nCount, DatesType& date) noexcept {
  const std::int64_t nYears = 4 * std::int64_t{nCount} / kDaysInFourYears;
  auto nRest = static_cast<int>(nCount - nYears * 365 - nYears / 4);  // [0, 365]
  if (nRest == 0) {
    // The division hands day 366 of a leap year to the year after it: give it back.
    date = {31, kDecember, static_cast<std::uint16_t>(1900 + nYears)};
    return;
  }
  date = {0, 1, static_cast<std::uint16_t>(1901 + nYears)};
  RefreshFebruary(date.year);
  for (; nRest > MonthLength(date.month); ++date.month) nRest -= MonthLength(date.month);
  date.day = static_cast<std::uint8_t>(nRest);
}

int NextMonth(int nMonth) noexcept {
  return nMonth == kDecember ? 1 : nMonth + 1;
}

int PreviousMonth(int nMonth) noexcept {
  return nMonth == 1 ? kDecember : nMonth - 1;
}

bool IsLastOfMonth(DatesType date) noexcept {
  return date.day == MonthLength(date.month);
}

void SetDay(DatesType& date, int nDay) noexcept {
  date.day = static_cast<std::uint8_t>(nDay);
}

// To the month `nToward`, by a step that turns the year when it leaves `nTurning`. A month end
// stays a month end.
void StepMonth(DatesType& date, int nToward, int nTurning, int nYears) noexcept {
  if (IsLastOfMonth(date)) date.day = MonthLength(nToward);
  if (date.month == nTurning) {
    date.year = static_cast<std::uint16_t>(date.year + nYears);
    RefreshFebruary(date.year);
  }
  date.month = static_cast<std::uint8_t>(nToward);
  date.day = std::min(date.day, MonthLength(date.month));
}

void StepYear(DatesType& date, int nYears) noexcept {
  date.year = static_cast<std::uint16_t>(date.year + nYears);
  RefreshFebruary(date.year);
  // February 28 sticks to the end of February even in a leap year, where it is not the last day.
  if (date.month == kFebruary && (date.day == 28 || date.day == 29)) {
    date.day = MonthLength(kFebruary);
  }
}

// The days of `nCount` steps of a day or a week; 0 for longer steps.
std::int64_t DaysOf(IncDateFlagType eFlag, int nCount) noexcept {
  if (eFlag == IncDay) return nCount;
  return eFlag == IncWeek ? std::int64_t{7} * nCount : 0;
}

// As so many steps of a day: at a bound the date stays, and February is that of the year reached.
void MoveByDays(DatesType& date, std::int64_t nDays) noexcept {
  const std::int64_t nCount =
      std::clamp<std::int64_t>(AbsDate(date) + nDays, AbsDate(g_earliest), AbsDate(g_latest));
  FileDate(static_cast<std::int32_t>(nCount), date);
  RefreshFebruary(date.year);
}

void Repeat(void (*pfnStep)(DatesType&, IncDateFlagType), DatesType& date, IncDateFlagType eFlag,
            int nCount) noexcept {
  for (; nCount > 0; --nCount) {
    const DatesType before = date;
    pfnStep(date, eFlag);
    if (date == before) return;  // what has not moved once will not move again
  }
}

bool CanMoveByDays(DatesType date) noexcept {
  return IsLegalDate(g_latest) != 0 && IsLegalDate(date) != 0;
}

}  // namespace

constinit std::array<std::uint8_t, 13> g_anMonthLength = kCommonMonthLength;
constinit const MonthTable kMonths = MakeMonthTable();

void SetDateBounds() noexcept {
  g_earliest = kEarliestDate;
  g_latest = kLatestDate;
}

void ForgetDateBounds() noexcept {
  g_earliest = {};
  g_latest = {};
}

void RefreshFebruary(std::uint16_t nYear) noexcept {
  const bool bLeap = nYear % 4 == 0 && (nYear % 100 != 0 || nYear % 400 == 0);
  g_anMonthLength[kFebruary] = bLeap ? 29 : 28;
}

void MakeDate(std::uint16_t nMonth, std::uint16_t nDay, std::uint16_t nYear,
              DatesType& date) noexcept {
  date = {static_cast<std::uint8_t>(nDay), static_cast<std::uint8_t>(nMonth), nYear};
  date.day = std::min(date.day, MonthLength(date.month));
}

void ClearDate(DatesType& date) noexcept {
  date = {};
}

unsigned char IsLegalDate(DatesType date) noexcept {
  return IsLegal(date) ? 1 : 0;
}

std::uint16_t MONTH(DatesType date) noexcept {
  return date.month;
}

std::uint16_t DAY(DatesType date) noexcept {
  return date.day;
}

std::uint16_t YEAR(DatesType date) noexcept {
  return date.year;
}

std::int16_t CompareDates(const DatesType& first, const DatesType& second) noexcept {
  return static_cast<std::int16_t>((first > second) - (first < second));
}

void GetCurrentDate(DatesType& date) {
  const LocalTime now = CurrentPlatform().clock.Now();
  date = {static_cast<std::uint8_t>(now.day), static_cast<std::uint8_t>(now.month), now.year};
}

std::int32_t AbsDate(DatesType date) noexcept {
  if (!IsLegal(date)) return 0;
  // A quarter of the four years' days, rounded down, is 365 a year and one for every fourth.
  return static_cast<std::int32_t>(YearsSinceFirst(date) * kDaysInFourYears / 4) +
         MonthOf(date).nDaysBefore + date.day;
}

void FileDate(std::int32_t nCount, DatesType& date) noexcept {
  if (static_cast<std::uint32_t>(nCount) - 1 >= kLatestDay) {
    date = kEarliestDate;
    if (nCount > 0) FileAnyDate(nCount, date);
    return;
  }
  // Years that begin in March end with the month that varies. In quarters of a day they are all of
  // one length, 1461, and one product with 2^32 / 1461, rounded up, tells them apart: its upper
  // half is the year, and the lower half over the factor the quarter in it. The excess of the
  // factor adds less than 1 to that. The months begin so evenly that they are told apart likewise.
  constexpr std::uint32_t kDaysFromMarch = 306;  // of 1900, before day 1
  constexpr std::uint32_t kYearFactor = (std::uint64_t{1} << 32) / kDaysInFourYears + 1;
  constexpr std::uint32_t kMonthFactor = 2141;
  constexpr std::uint32_t kMonthStart = 3 * 65536 + 1305;
  constexpr std::uint32_t kFirstKey = 1900U << 16 | 1;
  constexpr std::uint32_t kNextYear = (1U << 16) - (12U << 8);  // from month 13 to January
  const std::uint32_t nQuarters = 4 * (static_cast<std::uint32_t>(nCount) - 1 + kDaysFromMarch) + 3;
  const std::uint64_t nYearPlace = std::uint64_t{kYearFactor} * nQuarters;
  const std::uint32_t nDay = static_cast<std::uint32_t>(nYearPlace) / (4 * kYearFactor);
  const std::uint32_t nMonthPlace = kMonthFactor * nDay + kMonthStart;
  const std::uint32_t nKey = static_cast<std::uint32_t>(nYearPlace >> 32 << 16) +
                             (nMonthPlace >> 16 << 8) + (nMonthPlace & 0xFFFF) / kMonthFactor +
                             (nDay < kDaysFromMarch ? kFirstKey : kFirstKey + kNextYear);
  date = DateOfKey(nKey);
  // The last two bits of the year, which are 0 in a leap year, with the month and the day.
  constexpr std::uint32_t kLastOfLeapYear = 12U << 8 | 31;
  if ((nKey & 0x3FFFF) != kLastOfLeapYear) {
    g_anMonthLength[kFebruary] = static_cast<std::uint8_t>((nKey & 0x30000) == 0 ? 29 : 28);
  }
}

DowType DayOfWeek(std::int32_t nCount) noexcept {
  return static_cast<DowType>(((std::int64_t{nCount} + 1) % 7 + 7) % 7);
}

std::int16_t NumDaysInMonthInYear(std::int16_t nMonth, std::uint16_t nYear) noexcept {
  RefreshFebruary(nYear);
  return MonthLength(nMonth);
}

std::int16_t NumDaysInMonth(std::int16_t nMonth) noexcept {
  return MonthLength(nMonth);
}

std::int16_t NumDaysInYear(std::uint16_t nYear) noexcept {
  RefreshFebruary(nYear);
  return static_cast<std::int16_t>(365 - 28 + MonthLength(kFebruary));
}

void EndOfMonth(DatesType& date) noexcept {
  RefreshFebruary(date.year);
  date.day = MonthLength(date.month);
}

void IncDate(DatesType& date, IncDateFlagType eFlag) noexcept {
  if (eFlag == IncWeek) {
    for (int i = 0; i < 7; ++i) IncDate(date, IncDay);
    return;
  }
  if (eFlag != IncDay && eFlag != IncMonth && eFlag != IncYear) return;
  RefreshFebruary(date.year);
  if (eFlag == IncYear) {
    StepYear(date, 1);
  } else if (eFlag == IncMonth) {
    StepMonth(date, NextMonth(date.month), kDecember, 1);
  } else if (IsLastOfMonth(date) && date < g_latest) {
    IncDate(date, IncMonth);
    date.day = 1;
  } else {
    SetDay(date, date.day + 1);
  }
  // The day behind the last one is its day 32, which this cuts back too.
  date = std::min(date, g_latest);
}

void DecDate(DatesType& date, IncDateFlagType eFlag) noexcept {
  if (eFlag == IncWeek) {
    for (int i = 0; i < 7; ++i) DecDate(date, IncDay);
    return;
  }
  if (eFlag != IncDay && eFlag != IncMonth && eFlag != IncYear) return;
  RefreshFebruary(date.year);
  if (eFlag == IncYear) {
    StepYear(date, -1);
  } else if (eFlag == IncMonth) {
    StepMonth(date, PreviousMonth(date.month), 1, -1);
  } else if (date.day == 1 && date > g_earliest) {
    DecDate(date, IncMonth);
    date.day = MonthLength(date.month);
  } else {
    SetDay(date, date.day - 1);
  }
  date = std::max(date, g_earliest);
}

void IncDateByCount(DatesType& date, IncDateFlagType eFlag, int nCount) noexcept {
  const std::int64_t nDays = DaysOf(eFlag, nCount);
  if (nDays > 0 && CanMoveByDays(date)) {
    MoveByDays(date, nDays);
  } else {
    Repeat(&IncDate, date, eFlag, nCount);
  }
}

void DecDateByCount(DatesType& date, IncDateFlagType eFlag, int nCount) noexcept {
  const std::int64_t nDays = DaysOf(eFlag, nCount);
  if (nDays > 0 && CanMoveByDays(date)) {
    MoveByDays(date, -nDays);
  } else {
    Repeat(&DecDate, date, eFlag, nCount);
  }
}

void GetMonthName(std::int16_t nMonth, CFixedStringParamRef ref) {
  MyLoadString(kFirstMonthName + static_cast<std::uint32_t>(nMonth), ref);
}

void GetDayName(std::int16_t nDay, CFixedStringParamRef ref) {
  MyLoadString(kFirstDayName + static_cast<std::uint32_t>(nDay), ref);
}

}  // namespace ald
