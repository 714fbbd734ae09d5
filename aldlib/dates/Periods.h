#pragma once

#include <cstdint>
#include <span>

#include "aldlib/dates/Calendar.h"
#include "aldlib/platform/Export.h"

// Fiscal calendars: tables of accounting periods that lie end to end over two fiscal years, and
// ranges of dates.
//
//   FromTo periods[24];
//   CalculateCustomAccountingPeriods(periods, 24, {1, 4, 2003});   // twelve months a year
//   unsigned nBad = 0;
//   if (ValidateDates(periods, 24, &nBad, 0) == 0) ...             // the user has typed a gap
//
// A table is well formed if every date is legal, no line ends before it begins, and each line but
// the last ends on the day before the next one begins. Half of its count is the number of periods
// in a year. A null table is not touched.
namespace ald {

// Fills a table of `nCount` periods from a start date on. With c = nCount / 2 periods a year:
//
//   c of 1, 2, 3, 4, 6, 12   whole months. A first line that starts on the last day of a month runs
//                            to the end of the month after: 2003-01-31 to 2003-02-28
//   c of 13                  28 days each
//   any other c              one day more than the days of the year divided by c: of 5, 74 days
//
// Where days are counted, the last line of either year ends the day before the start's anniversary
// and so takes what is left over; for some counts (48 of them, say) nothing is, and that line ends
// before it begins. A count below 2 only stores the start.
ALDLIB_EXPORT void CalculateCustomAccountingPeriods(FromTo* pTable, std::int16_t nCount,
                                                    const DatesType& start);

// Checks a table. Without repair: returns 1 if it is well formed, as is an empty one; else 0, with
// the index of the first bad line in *pnBad (which may be null). A line is bad that holds a date
// that is not legal, ends before it begins, or leaves a gap or an overlap to the next.
// With repair: hands each bad line to FixADateLine, goes on, and returns 1.
ALDLIB_EXPORT int ValidateDates(FromTo* pTable, unsigned nCount, unsigned* pnBad, int nRepair);

// Repairs one line: it begins on the day after the line before, ends, if it would end before that,
// with its month, and the next line begins on the day after. A next line that would then end before
// it begins is rebuilt to end with a month, 12 / nCount - 1 months on (0 for a count of 12 or more;
// it is the count of the whole table). Returns 1 if anything has changed, else 0, as for an index
// past the table.
ALDLIB_EXPORT int FixADateLine(FromTo* pTable, unsigned nCount, unsigned nIndex);

// Returns -1 for a date before the range and for one that is not legal, 1 for one after it, 0 for
// one within. Empty ends have no meaning here: they sort before every date.
[[nodiscard]] ALDLIB_EXPORT std::int16_t DateInRange(const FromTo& range, DatesType date) noexcept;

// The same with an empty end open to its side. A range that is empty at both ends holds nothing:
// -1 for every date.
[[nodiscard]] ALDLIB_EXPORT std::int16_t DateInRangeWithNullRange(const FromTo& range,
                                                                  DatesType date) noexcept;

// Moves the date to the last day of its calendar quarter.
//   2003-04-01 -> 2003-06-30      2003-03-31 -> 2003-03-31
ALDLIB_EXPORT void EndOfQtr(DatesType& date) noexcept;

// Sets the date to the last day of quarter 1 to 4 of a year; any other number counts as 1.
ALDLIB_EXPORT void vSetQtrEndingDate(std::int16_t nQuarter, std::uint16_t nYear,
                                     DatesType& date) noexcept;

// ---- Years of whole weeks, as retail trade keeps them

// How many weeks the three periods of each quarter have.
enum class WeekPattern { FourFourFive, FourFiveFour, FiveFourFour };

// On which day a year of whole weeks ends, always on the same day of the week: the last such day of
// the closing month, or the one nearest to the month's end, up to three days into the next month.
enum class WeekYearEnd { LastInMonth, NearestToMonthEnd };

constexpr unsigned kWeekPeriods = 24;

// Fills a table with two years of twelve periods, each of whole weeks by the pattern. The start
// fixes the day of the week and the closing month; the year end by the rule falls 52 or 53 weeks
// on, and a 53rd week goes into the year's last period.
//
//   start 2022-01-30, FourFiveFour, NearestToMonthEnd: ends 2023-01-28 and, with 53 weeks,
//   2024-02-03
//
// Returns false and leaves the table alone if no year of the rule starts on that date, or if the
// second year ends past 2099. A filled table is well formed.
ALDLIB_EXPORT bool CalculateWeekPeriods(std::span<FromTo, kWeekPeriods> table,
                                        const DatesType& start, WeekPattern ePattern,
                                        WeekYearEnd eEnd) noexcept;

}  // namespace ald
