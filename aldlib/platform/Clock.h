#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"

namespace ald {

// A moment of local time, as people read it off a calendar and a clock.
struct LocalTime {
  std::uint16_t year;         // all of its digits
  std::uint16_t month;        // 1 to 12
  std::uint16_t day;          // 1 to 31
  std::uint16_t hour;         // 0 to 23
  std::uint16_t minute;       // 0 to 59
  std::uint16_t second;       // 0 to 60, for a leap second
  std::uint16_t millisecond;  // 0 to 999
};

// What the library asks of the system's clock.
class ALDLIB_EXPORT Clock {
 public:
  virtual ~Clock() = default;

  // Returns the local time of now. A system without a clock, or with a time past the year 65535,
  // answers with zeros.
  virtual LocalTime Now() = 0;

  // Returns the milliseconds since some fixed moment, from a clock that is never set. The count
  // starts again at 0 after 2 to the 32 of them.
  virtual std::uint32_t Ticks() = 0;

  // Waits. Nothing else happens on the thread meanwhile.
  virtual void Sleep(std::uint32_t nMilliseconds) = 0;

  // Returns the seconds since the start of 1970 in universal time; 0 without a clock.
  virtual std::int64_t Seconds() = 0;
};

}  // namespace ald
