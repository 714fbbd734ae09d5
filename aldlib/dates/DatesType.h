#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <type_traits>

#include "aldlib/platform/Export.h"

namespace ald {

// A date as the company records hold it, byte for byte: the order and width of the fields are the
// format. All zeros is the empty date, all ones is InvalidDate; real dates run from 1901-01-01 to
// 2099-12-31. Read as one signed 32-bit little-endian number, real dates sort in their order, and
// InvalidDate, which is -1, sorts before all of them.
struct DatesType {
  std::uint8_t day;    // 1 to 31
  std::uint8_t month;  // 1 to 12
  std::uint16_t year;  // 1901 to 2099
};
static_assert(sizeof(DatesType) == 4 && offsetof(DatesType, month) == 1 &&
              offsetof(DatesType, year) == 2);
static_assert(std::is_trivially_copyable_v<DatesType> && std::is_standard_layout_v<DatesType>);

// The application's date of today: the library neither sets nor reads it. Empty from the start.
ALDLIB_EXPORT extern DatesType TodaysDate;

// Every bit set.
ALDLIB_EXPORT extern const DatesType InvalidDate;

// The four bytes as the one number that dates are ordered by.
[[nodiscard]] constexpr std::int32_t DateKey(DatesType date) noexcept {
  return static_cast<std::int32_t>(std::uint32_t{date.year} << 16 | std::uint32_t{date.month} << 8 |
                                   date.day);
}

[[nodiscard]] constexpr bool operator==(DatesType a, DatesType b) noexcept {
  return DateKey(a) == DateKey(b);
}
[[nodiscard]] constexpr std::strong_ordering operator<=>(DatesType a, DatesType b) noexcept {
  return DateKey(a) <=> DateKey(b);
}

// A range of dates, both ends within it. The empty date stands for an open end.
struct FromTo {
  DatesType From;
  DatesType To;
  friend bool operator==(const FromTo&, const FromTo&) = default;
};
static_assert(sizeof(FromTo) == 8 && offsetof(FromTo, To) == 4);

// Year, month and day as numbers, whatever they are: "2003-07-04", of the empty date "0000-00-00".
ALDLIB_EXPORT std::ostream& operator<<(std::ostream& out, DatesType date);
// Both ends: "2003-01-01..2003-01-31".
ALDLIB_EXPORT std::ostream& operator<<(std::ostream& out, const FromTo& range);

}  // namespace ald

template <>
struct std::hash<ald::DatesType> {
  std::size_t operator()(ald::DatesType date) const noexcept {
    return std::hash<std::int32_t>()(ald::DateKey(date));
  }
};
