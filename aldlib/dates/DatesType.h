#pragma once

#include <cstddef>
#include <cstdint>

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

// The application's date of today: the library neither sets nor reads it. Empty from the start.
ALDLIB_EXPORT extern DatesType TodaysDate;

// Every bit set.
ALDLIB_EXPORT extern const DatesType InvalidDate;

}  // namespace ald
