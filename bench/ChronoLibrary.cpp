#include "bench/ChronoLibrary.h"

namespace ald::bench {

std::chrono::sys_days ChronoCount(std::chrono::year_month_day date) noexcept {
  return std::chrono::sys_days(date);
}

void ChronoDate(std::chrono::sys_days day, std::chrono::year_month_day& date) noexcept {
  date = std::chrono::year_month_day(day);
}

std::int16_t ChronoCompare(const std::chrono::year_month_day& first,
                           const std::chrono::year_month_day& second) noexcept {
  return static_cast<std::int16_t>((first > second) - (first < second));
}

}  // namespace ald::bench
