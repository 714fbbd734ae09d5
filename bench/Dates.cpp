#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <random>
#include <string>
#include <vector>

#include "aldlib/dates/Calendar.h"
#include "aldlib/dates/DateChrono.h"
#include "aldlib/dates/DateText.h"
#include "bench/ChronoLibrary.h"
#include "bench/Harness.h"

// Day counts beside those of std::chrono, short dates beside strptime and strftime.
namespace ald::bench {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr std::size_t kDates = 20'000;
constexpr DatesType kFill{15, 6, 2003};
const sys_days g_dayZero = sys_days(year(1901) / 1 / 1) - days(1);

using ShortText = CFixedString<9>;

struct Dates {
  std::vector<DatesType> dates;
  std::vector<std::int32_t> counts;
  std::vector<year_month_day> calendar;
  std::vector<sys_days> standardDays;
  std::vector<std::tm> broken;
  std::vector<ShortText> texts;       // "7/4/03"
  std::vector<ShortText> fixedTexts;  // "07/04/03"
};

// Any days from one count to another.
Dates MakeDates(std::int32_t nFirst, std::int32_t nLast) {
  Dates made;
  std::mt19937_64 random(20'000);
  std::uniform_int_distribution<std::int32_t> anyCount(nFirst, nLast);
  for (std::size_t i = 0; i < kDates; ++i) {
    const std::int32_t nCount = anyCount(random);
    const sys_days day = g_dayZero + days(nCount);
    const year_month_day calendar(day);
    made.counts.push_back(nCount);
    made.standardDays.push_back(day);
    made.calendar.push_back(calendar);
    made.dates.push_back(FromYearMonthDay(calendar));
    const DatesType& date = made.dates.back();
    std::tm fields{};
    fields.tm_mday = date.day;
    fields.tm_mon = date.month - 1;
    fields.tm_year = date.year - 1900;
    made.broken.push_back(fields);
    char szText[16];
    std::snprintf(szText, sizeof szText, "%d/%d/%02d", date.month, date.day, date.year % 100);
    made.texts.push_back(szText);
    std::snprintf(szText, sizeof szText, "%02d/%02d/%02d", date.month, date.day, date.year % 100);
    made.fixedTexts.push_back(szText);
  }
  return made;
}

// A case whose timed pass keeps each date's result, and whose proof holds it against the table.
template <class TWork, class TSame>
void AddCase(CHarness& harness, const char* szOperation, const char* szPeer, TWork work,
             TSame same) {
  harness.Add({szOperation, "", szPeer, kDates,
               [work] {
                 for (std::size_t i = 0; i < kDates; ++i) Keep(work(i));
               },
               [work, same, szPeer] {
                 for (std::size_t i = 0; i < kDates; ++i) {
                   if (!same(i, work(i)))
                     return std::string(szPeer) + " disagrees on date " + std::to_string(i);
                 }
                 return std::string();
               }});
}

void AddCounts(CHarness& harness, const Dates& dates) {
  const auto sameDay = [&dates](std::size_t i, sys_days day) {
    return day == dates.standardDays[i];
  };
  AddCase(
      harness, "AbsDate", "aldlib", [&dates](std::size_t i) { return AbsDate(dates.dates[i]); },
      [&dates](std::size_t i, std::int32_t nCount) { return nCount == dates.counts[i]; });
  AddCase(
      harness, "AbsDate", "chrono",
      [&dates](std::size_t i) { return ChronoCount(dates.calendar[i]); }, sameDay);
  AddCase(
      harness, "AbsDate", "chrono inlined",
      [&dates](std::size_t i) { return sys_days(dates.calendar[i]); }, sameDay);
}

void AddDates(CHarness& harness, const Dates& dates) {
  const auto sameDate = [&dates](std::size_t i, year_month_day date) {
    return date == dates.calendar[i];
  };
  AddCase(
      harness, "FileDate", "aldlib",
      [&dates](std::size_t i) {
        DatesType date;
        FileDate(dates.counts[i], date);
        return date;
      },
      [&dates](std::size_t i, DatesType date) { return date == dates.dates[i]; });
  AddCase(
      harness, "FileDate", "chrono",
      [&dates](std::size_t i) {
        year_month_day date;
        ChronoDate(dates.standardDays[i], date);
        return date;
      },
      sameDate);
  AddCase(
      harness, "FileDate", "chrono inlined",
      [&dates](std::size_t i) { return year_month_day(dates.standardDays[i]); }, sameDate);
}

// Each date with its neighbour in the table.
void AddComparisons(CHarness& harness, const Dates& dates) {
  const auto neighbour = [](std::size_t i) { return i ^ 1; };
  const auto same = [&dates, neighbour](std::size_t i, std::int16_t nOrder) {
    const std::int32_t nBehind = dates.counts[i] - dates.counts[neighbour(i)];
    return nOrder == (nBehind > 0) - (nBehind < 0);
  };
  AddCase(
      harness, "CompareDates", "aldlib",
      [&dates, neighbour](std::size_t i) {
        return CompareDates(dates.dates[i], dates.dates[neighbour(i)]);
      },
      same);
  AddCase(
      harness, "CompareDates", "chrono",
      [&dates, neighbour](std::size_t i) {
        return ChronoCompare(dates.calendar[i], dates.calendar[neighbour(i)]);
      },
      same);
}

// The C library takes the years 69 to 99 for 19xx, the library those from 50 on: the texts hold
// years that both read alike.
void AddTexts(CHarness& harness, const Dates& dates) {
  AddCase(
      harness, "ShortStrToDate", "aldlib",
      [&dates](std::size_t i) {
        DatesType date;
        ShortStrToDate(dates.texts[i], date, kFill);
        return date;
      },
      [&dates](std::size_t i, DatesType date) { return date == dates.dates[i]; });
  AddCase(
      harness, "ShortStrToDate", "strptime",
      [&dates](std::size_t i) {
        std::tm fields{};
        strptime(dates.texts[i], "%m/%d/%y", &fields);
        return fields;
      },
      [&dates](std::size_t i, const std::tm& fields) {
        const std::tm& wanted = dates.broken[i];
        return fields.tm_mday == wanted.tm_mday && fields.tm_mon == wanted.tm_mon &&
               fields.tm_year == wanted.tm_year;
      });

  const auto addWriter = [&](const char* szOperation, const char* szPeer, auto write,
                             const std::vector<ShortText>& wanted) {
    AddCase(
        harness, szOperation, szPeer,
        [write](std::size_t i) {
          ShortText text;
          write(text, i);
          return text;
        },
        [&wanted](std::size_t i, const ShortText& text) { return text == wanted[i]; });
  };
  const auto withStrftime = [&dates](const char* szFormat) {
    // Called through a pointer, or the compiler would warn of the two digits of the year.
    return [&dates, szFormat, pfnWrite = &std::strftime](ShortText& text, std::size_t i) {
      pfnWrite(text, 9, szFormat, &dates.broken[i]);
    };
  };
  addWriter(
      "DateToShortStr", "aldlib",
      [&dates](ShortText& text, std::size_t i) { DateToShortStr(dates.dates[i], text); },
      dates.texts);
  addWriter("DateToShortStr", "strftime", withStrftime("%-m/%-d/%y"), dates.texts);
  addWriter(
      "DateToShortStr2", "aldlib",
      [&dates](ShortText& text, std::size_t i) { DateToShortStr2(dates.dates[i], text, 1); },
      dates.fixedTexts);
  addWriter("DateToShortStr2", "strftime", withStrftime("%m/%d/%y"), dates.fixedTexts);
}

}  // namespace

}  // namespace ald::bench

int main(int argc, char** argv) {
  using namespace ald;
  using namespace ald::bench;
  SetDateOrder(DateOrderMDY);
  SetDateSeparator("/");
  const Dates all = MakeDates(1, AbsDate({31, 12, 2099}));
  const Dates typed = MakeDates(AbsDate({1, 1, 1969}), AbsDate({31, 12, 2049}));
  CHarness harness("dates", "aldlib");
  AddCounts(harness, all);
  AddDates(harness, all);
  AddComparisons(harness, all);
  AddTexts(harness, typed);
  for (const char* szOperation : {"AbsDate", "FileDate", "CompareDates"})
    harness.Want(szOperation, "", "chrono", 1, 0);
  // A call that does not take place: shown, with nothing promised.
  for (const char* szOperation : {"AbsDate", "FileDate"})
    harness.Want(szOperation, "", "chrono inlined", 0, 0);
  harness.Want("ShortStrToDate", "", "strptime", 5, 0);
  for (const char* szOperation : {"DateToShortStr", "DateToShortStr2"})
    harness.Want(szOperation, "", "strftime", 5, 0);
  return harness.Main(argc, argv);
}
