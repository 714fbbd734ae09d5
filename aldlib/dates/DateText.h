#pragma once

#include <cstdint>
#include <string_view>

#include "aldlib/dates/Calendar.h"
#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// Dates as text, and what people type as dates.
//
//   CFixedString<9> sDate;
//   DateToShortStr(date, sDate);                 // "7/4/03", or "4.7.03" where that is the custom
//   ShortStrToDate("0704", date, TodaysDate);    // July 4 of this year
//
// The order of the fields and the character between them follow the regional settings, which
// ReReadWinIni reads. Every writer gives the empty text for a date that is not legal, as well as
// for an order that is none, and cuts at the target's size. Readers take what they can and judge
// little: their caller asks IsLegalDate. Nothing here allocates.
namespace ald {

enum DateOrderType : std::int32_t { DateOrderMDY = 0, DateOrderDMY = 1, DateOrderYMD = 2 };

// How DateToShortStrYr4 writes a field.
enum enDateFormattingType : std::int32_t {
  DateFieldShort = 1,       // month without a leading zero, year of two digits, no day at all
  DateFieldTwoDigits = 2,   // two digits
  DateFieldFourDigits = 3,  // year of four digits; month or day without a leading zero
};

// ---- The custom of the region

// Replaces the order of the fields and returns the one before. At first it is month, day, year.
ALDLIB_EXPORT DateOrderType SetDateOrder(DateOrderType eOrder) noexcept;
[[nodiscard]] ALDLIB_EXPORT DateOrderType GetDateOrder() noexcept;

// Replaces the separator and returns the one before. At first it is "-"; an empty one is allowed.
ALDLIB_EXPORT CFixedString<2> SetDateSeparator(const CFixedString<2>& sSeparator) noexcept;
[[nodiscard]] ALDLIB_EXPORT CFixedString<2> GetDateSeparator() noexcept;

// ---- Writing. Each comment shows July 4, 2003 as month-day-year, day-month-year and
// year-month-day, with the separator "/".

// "July 4, 2003", "4 July 2003", "2003 July 4"; at most 18 characters.
ALDLIB_EXPORT void DateToLongStr(DatesType date, CFixedStringParamRef ref);
// "Jul 4, 2003", "4 Jul 2003", "2003 Jul 4"; at most 15 characters.
ALDLIB_EXPORT void DateToMedStr(DatesType date, CFixedStringParamRef ref);
// "7/4/03", "4/7/03", "03/7/4"
ALDLIB_EXPORT void DateToShortStr(DatesType date, CFixedStringParamRef ref);
// Of fixed width: "07/04/03", "04/07/03", "03/07/04", and without separators if the flag is 0.
ALDLIB_EXPORT void DateToShortStr2(DatesType date, CFixedStringParamRef ref, int nSeparators);
// "07/03" in every order and with every separator.
ALDLIB_EXPORT void DateToMonthYearStr(DatesType date, CFixedStringParamRef ref);
// Month, day and year in this order wherever the reader lives, each field as its form says:
//   year 3, month 2, day 2 -> "07/04/2003"      year 1, month 1, day 1 -> "7/03"
ALDLIB_EXPORT void DateToShortStrYr4(DatesType date, CFixedStringParamRef ref,
                                     enDateFormattingType eYear, enDateFormattingType eMonth,
                                     enDateFormattingType eDay);
// "2003-07-04" everywhere (ISO 8601).
ALDLIB_EXPORT void DateToIsoStr(DatesType date, CFixedStringParamRef ref);

// Today by the platform's clock, as DateToShortStr writes it.
ALDLIB_EXPORT void GetDate(CFixedStringParamRef ref);
// The local time to the hundredth of a second: "09:05:07.08".
ALDLIB_EXPORT void GetTime(CFixedStringParamRef ref);

// ---- Reading. At most 59 characters of a text count, and blanks at its ends do not. A null text
// is empty.

// Reads a typed date. What is missing comes from `fill`, which counts as empty if it is not legal.
// With `fill` 2003-06-15 and the order month-day-year:
//
//   "20"  -> 2003-06-20       a day, 1 to 31, whether or not the month has it
//   "7/4", "0704", "704"  -> 2003-07-04
//   "7/4/99", "070499", "70499", "7-4-99", "7 Jul 4 99"  -> 1999-07-04, 1999-07-04 ...
//   "", "32", "7/4" with an empty fill  -> the empty date
//
// Anything but a digit separates. A "0" is put before three characters, and before four whose third
// is no digit: so "12/3" is January 2, and its 3 is dropped. In the order year-month-day a date
// without a year is read as month and day, and a full one has a year of two digits.
//
// A year below 50 is 20xx, one of 50 to 1899 has 1900 added ("7/4/123" is 2023), and a number above
// 2099 makes the date empty. So has the year of `fill`, of which two digits are taken: 1945 gives
// 2045. Month and day are not judged; they take the low eight bits of their numbers.
ALDLIB_EXPORT void ShortStrToDate(const char* szText, DatesType& date, DatesType fill) noexcept;

// Reads a month and a year, and gives the last day of that month: "02/2004" and "200402" are
// 2004-02-29. A text of another length than 7 or 6, or a year above 2099, gives the empty date. A
// month outside 1 to 12 gives day 0.
ALDLIB_EXPORT void ShortStrToDate2(const char* szText, DatesType& date) noexcept;

// Reads the form that DateToMedStr writes, by the first letters of the English months; letters that
// begin none give month 0. No century is added: "Jan 5, 99" has the year 99. A month word of more
// than three letters hides the day: "July 4, 2003" has day 0 and year 4. With a first number above
// 31 the day becomes 0 and the year of `date` stays as it was.
ALDLIB_EXPORT void MedStrToDate(const char* szText, DatesType& date) noexcept;

// Reads an ISO 8601 date, "2003-07-04" or "20030704", and nothing else. Returns whether it is a
// legal date; if not, `date` is empty.
ALDLIB_EXPORT bool IsoStrToDate(std::string_view sText, DatesType& date) noexcept;

}  // namespace ald
