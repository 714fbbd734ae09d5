#pragma once

#include <cstdint>

#include "aldlib/dates/DatesType.h"
#include "aldlib/platform/Export.h"

// Dates that come as an automation date, as spreadsheets and scripts hand them over: a number whose
// whole part counts days from 1899-12-30 and whose fraction is the time of day. The fraction counts
// forward below zero too: -1.25 is six in the morning of 1899-12-29.
//
// Such a date has a year from 100 to 9999 (-657434 to below 2958466). The time is rounded to the
// second, so the last half second of a day belongs to the day after.
namespace ald {

// The part of an automation variant that dates need: what it holds, and its number.
struct Variant {
  static constexpr std::uint16_t kDate = 7;
  std::uint16_t nType;
  double value;
};
using VARIANT = Variant;

// Returns false for exactly 0.0, which stands for no date, and leaves `date` alone. Otherwise true,
// with InvalidDate for a number that is no automation date. The year may lie outside 1901 to 2099.
//   37806.5 -> 2003-07-04
ALDLIB_EXPORT bool MakeDateFromOleDate(double value, DatesType& date) noexcept;

// Returns false and the empty date for a variant that does not hold a date. Otherwise true, with
// InvalidDate for a number that is no automation date; 0.0 is 1899-12-30 here.
ALDLIB_EXPORT bool MakeDateFromVariant(Variant variant, DatesType& date) noexcept;

}  // namespace ald
