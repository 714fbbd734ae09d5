#include "aldlib/dates/OleDate.h"

#include <chrono>
#include <cmath>

namespace ald {
namespace {

constexpr double kFirst = -657434;  // 0100-01-01
constexpr double kEnd = 2958466;    // 10000-01-01
constexpr double kSecondsInDay = 86400;

DatesType DateOf(double value) noexcept {
  // Written so that what is not a number fails too.
  if (!(value >= kFirst && value < kEnd)) return InvalidDate;
  double day = std::trunc(value);
  if (std::round(std::fabs(value - day) * kSecondsInDay) >= kSecondsInDay) day += 1;
  if (day >= kEnd) return InvalidDate;
  using namespace std::chrono;
  const year_month_day calendar(sys_days(1899y / 12 / 30) + days(static_cast<int>(day)));
  return {static_cast<std::uint8_t>(static_cast<unsigned>(calendar.day())),
          static_cast<std::uint8_t>(static_cast<unsigned>(calendar.month())),
          static_cast<std::uint16_t>(static_cast<int>(calendar.year()))};
}

}  // namespace

bool MakeDateFromOleDate(double value, DatesType& date) noexcept {
  if (value == 0.0) return false;
  date = DateOf(value);
  return true;
}

bool MakeDateFromVariant(Variant variant, DatesType& date) noexcept {
  date = {};
  if (variant.nType != Variant::kDate) return false;
  date = DateOf(variant.value);
  return true;
}

}  // namespace ald
