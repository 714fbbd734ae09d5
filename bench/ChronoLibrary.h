#pragma once

#include <chrono>
#include <cstdint>

#include "aldlib/platform/Export.h"

// Dates of std::chrono behind the border of a shared library, where ours stand. Inlined, they would
// be spared the call that this compares.
namespace ald::bench {

ALDLIB_EXPORT std::chrono::sys_days ChronoCount(std::chrono::year_month_day date) noexcept;
ALDLIB_EXPORT void ChronoDate(std::chrono::sys_days day,
                              std::chrono::year_month_day& date) noexcept;
// 1, 0 or -1, as CompareDates.
ALDLIB_EXPORT std::int16_t ChronoCompare(const std::chrono::year_month_day& first,
                                         const std::chrono::year_month_day& second) noexcept;

}  // namespace ald::bench
