#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Export.h"

// Clock times on a 12-hour face, durations, and both as text, for screens on which people enter
// their hours.
//
//   TimeStruct begin, end;
//   DurationStruct worked;
//   if (bStringToTime("11:30 AM", &begin) && bStringToTime("1:00 PM", &end)) {
//     vTimeDiff(&end, &begin, &worked);         // 1:30:00
//     fHoursToUnits(&worked);                   // 1.5
//   }
//
// Only bIsValidTime and bIsValidDuration judge their records; the arithmetic takes any, and a field
// that passes 16 bits wraps. Where a pointer is null nothing is written and the result is 0.
namespace ald {

struct TimeStruct {
  std::int16_t hours;    // 1 to 12
  std::int16_t minutes;  // 0 to 59
  std::int16_t seconds;  // 0 to 59
  std::uint16_t pm;      // 0 for AM, 1 for PM
  friend bool operator==(const TimeStruct&, const TimeStruct&) = default;
};
static_assert(sizeof(TimeStruct) == 8 && offsetof(TimeStruct, pm) == 6);

struct DurationStruct {
  std::int16_t hours;    // 0 to 23
  std::int16_t minutes;  // 0 to 59
  std::int16_t seconds;  // 0 to 59
  friend bool operator==(const DurationStruct&, const DurationStruct&) = default;
};
static_assert(sizeof(DurationStruct) == 6 && offsetof(DurationStruct, seconds) == 4);

// Bytes that a time or duration of any fields needs as text, the terminator counted.
constexpr std::size_t kClockTextSize = 32;

// Return 1 if every field is in its range, else 0.
[[nodiscard]] ALDLIB_EXPORT int bIsValidTime(const TimeStruct* pTime) noexcept;
[[nodiscard]] ALDLIB_EXPORT int bIsValidDuration(const DurationStruct* pDuration) noexcept;

// ---- Arithmetic

// The first time less the second, as 0:00:00 to 23:59:59: a difference across midnight is the time
// forward.
//   1:00 PM less 11:30 AM -> 1:30:00        1:00 AM less 11:00 PM -> 2:00:00
ALDLIB_EXPORT void vTimeDiff(const TimeStruct* pFirst, const TimeStruct* pSecond,
                             DurationStruct* pResult) noexcept;

// The first duration less the second. Seconds and minutes borrow; hours do not, and may end below
// zero: 1:00 less 2:30 -> hours -2, minutes 30.
ALDLIB_EXPORT void vDurationDiff(const DurationStruct* pFirst, const DurationStruct* pSecond,
                                 DurationStruct* pResult) noexcept;

// The sum; of 24 hours or more, 24 are taken off: 23:30 and 1:00 -> 0:30.
ALDLIB_EXPORT void vDurationSum(const DurationStruct* pFirst, const DurationStruct* pSecond,
                                DurationStruct* pResult) noexcept;

// ---- Text. The writers take a buffer of kClockTextSize bytes; fields in their ranges need 9 for a
// duration and 12 for a time. They return 1.

// "1:05", or with seconds "1:05:09".
ALDLIB_EXPORT int bDurationToString(const DurationStruct* pDuration, char* szBuffer, int nSeconds);
// The same, with the meridian "1:05 PM" and "1:05:09 PM". Any `pm` but 0 is PM.
ALDLIB_EXPORT int bTimeToString(const TimeStruct* pTime, char* szBuffer, int nSeconds,
                                int nMeridian);

// Reads hours 0 to 23, minutes 0 to 59 and, if they are there, seconds 0 to 59, with colons between
// them. A part counts as far as it is a number, and as 0 if it is none. Returns 1; or 0 with the
// record zeroed.
//   "1:05" -> 1:05:00        "5", "24:00", "1:60" -> 0        "1:x" -> 1:00:00
ALDLIB_EXPORT int bStringToDuration(const char* szText, DurationStruct* pDuration) noexcept;
// The same; it is PM if the text has "PM" or "pm" anywhere, while "Pm" is AM. Hours of 0 and of 13
// to 23 are taken as they stand, so what was read may fail bIsValidTime.
ALDLIB_EXPORT int bStringToTime(const char* szText, TimeStruct* pTime) noexcept;

// ---- Decimal hours

// Hours and minutes as hours with two decimals; seconds do not count.
//   1:30:59 -> 1.5        0:20:00 -> 0.33
[[nodiscard]] ALDLIB_EXPORT CDecimal fHoursToUnits(const DurationStruct* pDuration);

// The way back: the whole part as hours and the rest as minutes, rounded and not carried.
//   1.999 -> hours 1, minutes 60
ALDLIB_EXPORT void vUnitsToHours(const CDecimal& units, DurationStruct* pDuration);

// ---- For std::chrono

[[nodiscard]] constexpr std::chrono::seconds ToChrono(const DurationStruct& duration) noexcept {
  return std::chrono::hours(duration.hours) + std::chrono::minutes(duration.minutes) +
         std::chrono::seconds(duration.seconds);
}

// Time since midnight.
[[nodiscard]] constexpr std::chrono::seconds ToChrono(const TimeStruct& time) noexcept {
  const int nNoon = time.hours == 12 ? -12 : 0;
  return std::chrono::hours(time.hours + nNoon + (time.pm != 0 ? 12 : 0)) +
         std::chrono::minutes(time.minutes) + std::chrono::seconds(time.seconds);
}

}  // namespace ald
