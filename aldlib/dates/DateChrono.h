#pragma once

#include <chrono>
#include <optional>

#include "aldlib/dates/DatesType.h"

// Dates to and from the calendar of the standard library. None of it touches the shared length of
// February, so it is safe on any thread.
//
//   const auto issued = ToSysDays(invoiceDate);    // no value for a date that is not legal
//   if (issued) dueDate = FromSysDays(*issued + std::chrono::days(30));
namespace ald {

// The three fields as they stand; `ok()` of the result is false for a day that no month has.
[[nodiscard]] constexpr std::chrono::year_month_day ToYearMonthDay(DatesType date) noexcept {
  return {std::chrono::year(date.year), std::chrono::month(date.month), std::chrono::day(date.day)};
}

// Returns no value for a date that is not legal.
[[nodiscard]] constexpr std::optional<std::chrono::sys_days> ToSysDays(DatesType date) noexcept {
  const std::chrono::year_month_day calendar = ToYearMonthDay(date);
  if (date.year < 1901 || date.year > 2099 || !calendar.ok()) return std::nullopt;
  return std::chrono::sys_days(calendar);
}

// Returns the empty date for a day that is not legal: out of 1901 to 2099, or in no month.
[[nodiscard]] constexpr DatesType FromYearMonthDay(std::chrono::year_month_day calendar) noexcept {
  const int nYear = static_cast<int>(calendar.year());
  if (nYear < 1901 || nYear > 2099 || !calendar.ok()) return {};
  return {static_cast<std::uint8_t>(static_cast<unsigned>(calendar.day())),
          static_cast<std::uint8_t>(static_cast<unsigned>(calendar.month())),
          static_cast<std::uint16_t>(nYear)};
}
[[nodiscard]] constexpr DatesType FromSysDays(std::chrono::sys_days day) noexcept {
  // Compared before the conversion, whose years end at 32767.
  if (day < std::chrono::sys_days(std::chrono::year(1901) / 1 / 1) ||
      day > std::chrono::sys_days(std::chrono::year(2099) / 12 / 31)) {
    return {};
  }
  return FromYearMonthDay(std::chrono::year_month_day(day));
}

}  // namespace ald
