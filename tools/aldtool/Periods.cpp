#include "aldlib/dates/Periods.h"

#include <iomanip>
#include <iostream>
#include <string>
#include <vector>

#include "tools/aldtool/Commands.h"
#include "tools/aldtool/TypedDate.h"

namespace aldtool {

namespace {

using ald::DatesType;
using ald::FromTo;

// Why ValidateDates stops at this line.
const char* Fault(const FromTo& line) {
  if (ald::IsLegalDate(line.From) == 0 || ald::IsLegalDate(line.To) == 0) {
    return "holds a date that is not legal";
  }
  return line.From > line.To ? "ends before it begins"
                             : "does not end on the day before the next one begins";
}

}  // namespace

int RunPeriods(int nCount, const std::string& sStart) {
  DatesType today{};
  ald::GetCurrentDate(today);
  DatesType start{};
  if (!ReadDateArgument("the start", sStart, today, start)) return kUnusable;

  std::vector<FromTo> table(static_cast<std::size_t>(nCount));
  ald::CalculateCustomAccountingPeriods(table.data(), static_cast<std::int16_t>(nCount), start);
  std::cout << "period        from          to   days\n";
  int nNumber = 0;
  for (const FromTo& line : table) {
    std::cout << std::setw(6) << ++nNumber << "  " << Iso(line.From) << "  " << Iso(line.To)
              << std::setw(7) << ald::AbsDate(line.To) - ald::AbsDate(line.From) + 1 << '\n';
  }

  unsigned nBad = 0;
  if (ald::ValidateDates(table.data(), static_cast<unsigned>(nCount), &nBad, 0) != 0) return kGood;
  std::cout << "Period " << nBad + 1 << ' ' << Fault(table[nBad])
            << ": this count and start make no fiscal calendar.\n";
  return kBadLines;
}

}  // namespace aldtool
