#pragma once

#include <cstdint>

#include "aldlib/dates/DatesType.h"

// What the other sources of the calendar and the reading of settings need of it. Not part of the
// interface.
namespace ald {

constexpr DatesType kEarliestDate{1, 1, 1901};
constexpr DatesType kLatestDate{31, 12, 2099};
constexpr std::int32_t kLatestDay = 72684;
constexpr std::uint32_t kFirstMonthName = 20200;  // "Months", then "January" to "December"

// The date that DateKey gives this number for. Stored as one number too, so that a caller who reads
// it right back does not wait for three stores to come together.
constexpr DatesType DateOfKey(std::uint32_t nKey) noexcept {
  return {static_cast<std::uint8_t>(nKey), static_cast<std::uint8_t>(nKey >> 8),
          static_cast<std::uint16_t>(nKey >> 16)};
}

// Lets steps stop at the first and the last legal date.
void SetDateBounds() noexcept;
// As before the first SetDateBounds: both bounds are the empty date.
void ForgetDateBounds() noexcept;

// Sets the length of February.
void RefreshFebruary(std::uint16_t nYear) noexcept;

}  // namespace ald
