#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>

#include "aldlib/dates/DateText.h"
#include "aldlib/platform/Characters.h"
#include "tools/aldtool/Commands.h"
#include "tools/aldtool/TypedDate.h"

namespace aldtool {

namespace {

using ald::DatesType;

void Line(const char* szWhat, std::string_view sText) {
  std::cout << "  " << std::left << std::setw(36) << szWhat << sText << '\n';
}

void ShowSettings(DatesType fill) {
  const ald::DateOrderType eOrder = ald::GetDateOrder();
  const ald::CFixedString<2> sSeparator = ald::GetDateSeparator();
  std::cout << "Settings: "
            << (eOrder == ald::DateOrderMDY   ? "month, day, year"
                : eOrder == ald::DateOrderDMY ? "day, month, year"
                                              : "year, month, day")
            << "; separator "
            << (sSeparator.IsEmpty() ? std::string("none")
                                     : '\'' + ald::Utf8FromCodePage1252(sSeparator.view()) + '\'')
            << "; what is missing comes from " << Iso(fill) << '\n';
}

void ShowTexts(DatesType date) {
  const auto line = [](const char* szWhat, auto write) {
    ald::CFixedString<20> sText;
    write(ald::CFixedStringParamRef(sText));
    Line(szWhat, ald::Utf8FromCodePage1252(sText.view()));
  };
  std::cout << "Written as\n";
  line("long (DateToLongStr)", [&](auto ref) { ald::DateToLongStr(date, ref); });
  line("medium (DateToMedStr)", [&](auto ref) { ald::DateToMedStr(date, ref); });
  line("short (DateToShortStr)", [&](auto ref) { ald::DateToShortStr(date, ref); });
  line("of fixed width (DateToShortStr2)", [&](auto ref) { ald::DateToShortStr2(date, ref, 1); });
  line("digits alone", [&](auto ref) { ald::DateToShortStr2(date, ref, 0); });
  line("with the century (...Yr4)", [&](auto ref) {
    ald::DateToShortStrYr4(date, ref, ald::DateFieldFourDigits, ald::DateFieldTwoDigits,
                           ald::DateFieldTwoDigits);
  });
  line("month and year (...MonthYearStr)", [&](auto ref) { ald::DateToMonthYearStr(date, ref); });
  line("ISO 8601 (DateToIsoStr)", [&](auto ref) { ald::DateToIsoStr(date, ref); });
}

// The last anniversary of `start` that is no later than the date. A step stays in its year where it
// would leave the calendar.
DatesType YearBegin(DatesType start, DatesType date) {
  while (start > date) ald::DecDate(start, ald::IncYear);
  for (DatesType next = start;; start = next) {
    ald::IncDate(next, ald::IncYear);
    if (next > date || next.year == start.year) return start;
  }
}

void ShowCounts(DatesType date, DatesType start) {
  const std::int32_t nCount = ald::AbsDate(date);
  ald::CFixedString<20> sDay;
  ald::GetDayName(static_cast<std::int16_t>(ald::DayOfWeek(nCount)), sDay);
  DatesType quarterEnd = date;
  ald::EndOfQtr(quarterEnd);
  const FiscalYears years(YearBegin(start, date));
  const int nPeriod = years.Find(date);
  std::cout << "Counted as\n";
  Line("day (AbsDate)", std::to_string(nCount));
  Line("day of the week (DayOfWeek)", ald::Utf8FromCodePage1252(sDay.view()));
  Line("end of its quarter (EndOfQtr)", Iso(quarterEnd));
  Line("fiscal year from", Iso(years.Range().From));
  Line("period", nPeriod == 0
                     ? std::string("none")
                     : std::to_string(nPeriod) + ", from " + Iso(years.Period(nPeriod).From) +
                           " to " + Iso(years.Period(nPeriod).To));
}

}  // namespace

int RunDate(const std::string& sTyped, const std::string& sFill, const std::string& sOrder,
            const std::string& sStart) {
  UseDateOrder(sOrder);
  DatesType fill{};
  ald::GetCurrentDate(fill);
  if (!sFill.empty() && !ReadDateArgument("the date to fill from", sFill, fill, fill))
    return kUnusable;
  DatesType date{};
  if (!ReadDateArgument("the date", sTyped, fill, date)) return kUnusable;
  DatesType start{1, 1, date.year};
  if (!sStart.empty() && !ReadDateArgument("the start", sStart, date, start)) return kUnusable;
  ShowSettings(fill);
  ShowTexts(date);
  ShowCounts(date, start);
  return kGood;
}

}  // namespace aldtool
