#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"

// How a decimal operation came out. Values below zero are failures and are offered to the error
// handler.
namespace ald {

enum DEC_STATUS : std::int32_t {
  DEC_EMPTY = 2,      // the text was empty; the value is zero
  DEC_TRUNCATED = 1,  // trailing characters of the text were dropped
  DEC_OK = 0,
  DEC_BAD_FORMAT = -1,      // the text could not be read as a number
  DEC_TEXT_OVERFLOW = -2,   // too many digits before the point, or past the limit while reading
  DEC_TEXT_UNDERFLOW = -3,  // non-zero digits that all fall below the last decimal
  DEC_OVERFLOW = -4,        // the result is past the limits
  DEC_UNDERFLOW = -5,       // a non-zero result too small: it became zero
  DEC_DIVIDE_BY_ZERO =
      -6,  // reported by the math type alone: a decimal divided by zero is 0 and DEC_OK
};

constexpr bool IsSuccess(DEC_STATUS eStatus) {
  return eStatus >= DEC_OK;
}
constexpr bool IsOverflow(DEC_STATUS eStatus) {
  return eStatus == DEC_TEXT_OVERFLOW || eStatus == DEC_OVERFLOW;
}
constexpr bool IsUnderflow(DEC_STATUS eStatus) {
  return eStatus == DEC_TEXT_UNDERFLOW || eStatus == DEC_UNDERFLOW;
}

// The name of the status, such as "DEC_OVERFLOW"; "DEC_?" for a number that is none.
ALDLIB_EXPORT const char* StatusName(DEC_STATUS eStatus);

}  // namespace ald
