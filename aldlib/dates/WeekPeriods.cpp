#include <array>
#include <chrono>
#include <optional>

#include "aldlib/dates/DateChrono.h"
#include "aldlib/dates/Periods.h"

namespace ald {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::weeks;
using std::chrono::year_month;
using std::chrono::years;

constexpr unsigned kPeriodsInYear = kWeekPeriods / 2;

std::array<int, 3> WeeksOfQuarter(WeekPattern ePattern) {
  switch (ePattern) {
    case WeekPattern::FourFourFive:
      return {4, 4, 5};
    case WeekPattern::FourFiveFour:
      return {4, 5, 4};
    default:
      return {5, 4, 4};
  }
}

// By the months of one rule and one day of the week.
class WeekYears {
 public:
  // A year may close `nInto` days into the month after the closing one.
  WeekYears(sys_days start, int nInto)
      : m_nInto(nInto), m_weekday(start - days(1)), m_closing(ClosingMonth(start)) {}

  // The day before the year of that number begins, counted from the start.
  [[nodiscard]] sys_days EndOf(int nYear) const {
    const year_month closing = m_closing + years(nYear);
    const sys_days latest = sys_days(closing / std::chrono::last) + days(m_nInto);
    return latest - (std::chrono::weekday(latest) - m_weekday);
  }

 private:
  // The years' ends lie within the seven days up to `nInto` days after a month's end, so this many
  // days before an end it is the closing month.
  [[nodiscard]] year_month ClosingMonth(sys_days start) const {
    const std::chrono::year_month_day calendar(start - days(1 + m_nInto));
    return calendar.year() / calendar.month();
  }

  int m_nInto;
  std::chrono::weekday m_weekday;
  year_month m_closing;
};

}  // namespace

bool CalculateWeekPeriods(std::span<FromTo, kWeekPeriods> table, const DatesType& start,
                          WeekPattern ePattern, WeekYearEnd eEnd) noexcept {
  const std::optional<sys_days> first = ToSysDays(start);
  if (!first) return false;
  const WeekYears rule(*first, eEnd == WeekYearEnd::NearestToMonthEnd ? 3 : 0);
  if (rule.EndOf(0) + days(1) != *first || FromSysDays(rule.EndOf(2)) == DatesType{}) return false;

  const std::array<int, 3> aWeeks = WeeksOfQuarter(ePattern);
  sys_days from = *first;
  for (unsigned i = 0; i < kWeekPeriods; ++i) {
    sys_days to = from + weeks(aWeeks[i % 3]) - days(1);
    if ((i + 1) % kPeriodsInYear == 0) {
      to = rule.EndOf(static_cast<int>((i + 1) / kPeriodsInYear));
    }
    table[i] = {FromSysDays(from), FromSysDays(to)};
    from = to + days(1);
  }
  return true;
}

}  // namespace ald
