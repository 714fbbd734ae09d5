#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "aldlib/dates/DatesType.h"
#include "aldlib/dates/internal/Calendar.h"

// The test of a date by one look into a table, for the sources of this folder. Not part of the
// interface.
namespace ald {

// The lengths of the months, February as the last year has left it.
extern std::array<std::uint8_t, 13> g_anMonthLength;

constexpr std::size_t kFebruary = 2;
constexpr unsigned kYears = kLatestDate.year - kEarliestDate.year + 1;

// A month in one of four years, of which the one divisible by four is a leap year.
struct MonthInYear {
  std::uint16_t nDaysBefore;
  std::uint8_t nLength;    // 0: no such month
  std::uint8_t nFebruary;  // the length of that year's
};

// By bits 8 to 17 of a date's key: its month and the last two bits of its year. Whatever the month
// says is then within the table, and of its 4 KiB legal dates read no more than four lines.
using MonthTable = std::array<MonthInYear, 1024>;

extern const MonthTable kMonths;

inline unsigned YearsSinceFirst(DatesType date) noexcept {
  return unsigned{date.year} - kEarliestDate.year;
}

inline const MonthInYear& MonthOf(DatesType date) noexcept {
  return kMonths[static_cast<std::uint32_t>(DateKey(date)) >> 8 & 0x3FF];
}

// Whether the date is legal. Sets February if each field by itself is in its range.
inline bool IsLegal(DatesType date) noexcept {
  if (YearsSinceFirst(date) >= kYears) return false;
  const MonthInYear& month = MonthOf(date);
  if (date.day - 1U < month.nLength) [[likely]] {
    g_anMonthLength[kFebruary] = month.nFebruary;
    return true;
  }
  if (month.nLength != 0 && date.day - 1U < 31) g_anMonthLength[kFebruary] = month.nFebruary;
  return false;
}

}  // namespace ald
