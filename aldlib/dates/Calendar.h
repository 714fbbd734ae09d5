#pragma once

#include <cstdint>

#include "aldlib/dates/DatesType.h"
#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// The calendar of the accounts: day counts, steps, and the state that they share.
//
//   FileDate(AbsDate(invoiceDate) + 30, dueDate);      // due in thirty days
//   IncDate(closing, IncMonth);                        // 2004-01-31 -> 2004-02-29 -> 2004-03-31
//
// Legal dates run from 1901-01-01, which is day 1, to 2099-12-31, which is day 72684. Nothing here
// reports an error: a date that is not legal counts as day 0, and otherwise passes through as it
// is. Comparisons take the four bytes as one number; `==`, `<` and std::hash of DatesType do so
// too.
//
// The length of February is shared. A routine that is given a year, by itself or in a date, sets it
// to that year's; NumDaysInMonth and MakeDate read what the last one has left. So dates are for one
// thread at a time. The bounds that steps stop at are set when the library loads.
namespace ald {

enum DowType : std::int32_t {
  Sunday = 0,
  Monday = 1,
  Tuesday = 2,
  Wednesday = 3,
  Thursday = 4,
  Friday = 5,
  Saturday = 6,
};

// How far a step goes.
enum IncDateFlagType : std::int32_t { IncDay = 1, IncWeek = 2, IncMonth = 3, IncYear = 4 };

// ---- Dates and their parts

// Stores the low bytes of the fields and cuts the day to the length of the month. February has the
// length that the last routine with a year has left: call NumDaysInMonthInYear first where a
// February 29 matters. A month outside 1 to 12 has no days, so the day becomes 0.
ALDLIB_EXPORT void MakeDate(std::uint16_t nMonth, std::uint16_t nDay, std::uint16_t nYear,
                            DatesType& date) noexcept;

// Stores the empty date.
ALDLIB_EXPORT void ClearDate(DatesType& date) noexcept;

// Returns 1 for a day of the calendar from 1901 to 2099, else 0. Sets February when the day is to
// be tested against the month, that is, when each field by itself is in its range.
[[nodiscard]] ALDLIB_EXPORT unsigned char IsLegalDate(DatesType date) noexcept;

// The fields. They check nothing: the month of InvalidDate is 255.
[[nodiscard]] ALDLIB_EXPORT std::uint16_t MONTH(DatesType date) noexcept;
[[nodiscard]] ALDLIB_EXPORT std::uint16_t DAY(DatesType date) noexcept;
[[nodiscard]] ALDLIB_EXPORT std::uint16_t YEAR(DatesType date) noexcept;

// Returns 1 if the first is later, -1 if it is earlier, 0 if both are the same. Any four bytes have
// a place in the order.
[[nodiscard]] ALDLIB_EXPORT std::int16_t CompareDates(const DatesType& first,
                                                      const DatesType& second) noexcept;

// Today in local time, from the platform's clock, whatever its year.
ALDLIB_EXPORT void GetCurrentDate(DatesType& date);

// ---- Day counts

// Returns the day count of `date`, or 0 if the date is not legal. Sets February as IsLegalDate.
[[nodiscard]] ALDLIB_EXPORT std::int32_t AbsDate(DatesType date) noexcept;

// Sets `date` to the date of day `nCount`; the inverse of AbsDate for every legal date.
//   0 or below -> 1901-01-01      72685 -> 2100-01-01: no upper limit is applied here
// Sets February to the year found, but not for a count below 1, nor for a December 31 that ends a
// leap year.
ALDLIB_EXPORT void FileDate(std::int32_t nCount, DatesType& date) noexcept;

// The day of the week of a day count (not of a date): 1 is a Tuesday.
[[nodiscard]] ALDLIB_EXPORT DowType DayOfWeek(std::int32_t nCount) noexcept;

// ---- Lengths

// The number of days of a month, 1 to 12; of any other month 0. Sets February.
[[nodiscard]] ALDLIB_EXPORT std::int16_t NumDaysInMonthInYear(std::int16_t nMonth,
                                                              std::uint16_t nYear) noexcept;
// The same with February as it stands.
[[nodiscard]] ALDLIB_EXPORT std::int16_t NumDaysInMonth(std::int16_t nMonth) noexcept;
// 365 or 366. Sets February.
[[nodiscard]] ALDLIB_EXPORT std::int16_t NumDaysInYear(std::uint16_t nYear) noexcept;

// Moves the day to the last of the month. Sets February.
ALDLIB_EXPORT void EndOfMonth(DatesType& date) noexcept;

// ---- Steps

// Moves the date one step forward; not past 2099-12-31, where it stays.
//
//   IncMonth   a day that is the last of its month goes to the last of the next; any other day
//              keeps its number as far as the month has it:
//                2004-01-31 -> 2004-02-29 -> 2004-03-31      2003-04-30 -> 2003-05-31
//                2003-01-30 -> 2003-02-28 -> 2003-03-31: a step has no memory of the one before
//   IncYear    February 28 and 29 go to the last day of February: 2003-02-28 -> 2004-02-29
//   IncWeek    seven days
//
// Any other flag does nothing.
ALDLIB_EXPORT void IncDate(DatesType& date, IncDateFlagType eFlag) noexcept;

// The mirror: one step back, not past 1901-01-01.
//   IncMonth: 2004-03-31 -> 2004-02-29        IncYear: 2004-02-29 -> 2003-02-28
ALDLIB_EXPORT void DecDate(DatesType& date, IncDateFlagType eFlag) noexcept;

// The step, so many times; a count of 0 or below does nothing.
ALDLIB_EXPORT void IncDateByCount(DatesType& date, IncDateFlagType eFlag, int nCount) noexcept;
ALDLIB_EXPORT void DecDateByCount(DatesType& date, IncDateFlagType eFlag, int nCount) noexcept;

// ---- Names, from the numbered texts

// "January" to "December" for 1 to 12; 0 gives the heading "Months".
ALDLIB_EXPORT void GetMonthName(std::int16_t nMonth, CFixedStringParamRef ref);
// "Sunday" to "Saturday" for 0 to 6.
ALDLIB_EXPORT void GetDayName(std::int16_t nDay, CFixedStringParamRef ref);

}  // namespace ald
