#include "aldlib/dates/Periods.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "aldlib/dates/DateChrono.h"
#include "tests/dates/DateTable.h"

namespace ald {
namespace {

using namespace std::chrono;
using Table = std::vector<FromTo>;

Table Periods(int nCount, DatesType start) {
  Table table(static_cast<std::size_t>(std::max(nCount, 1)));
  CalculateCustomAccountingPeriods(table.data(), static_cast<std::int16_t>(nCount), start);
  return table;
}

int Validate(Table& table, unsigned* pnBad = nullptr, int nRepair = 0) {
  return ValidateDates(table.data(), static_cast<unsigned>(table.size()), pnBad, nRepair);
}

// Index of the first line that is not well formed, or -1, without the library's own arithmetic.
int FirstBadLine(const Table& table) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    const auto from = ToSysDays(table[i].From);
    const auto to = ToSysDays(table[i].To);
    if (!from || !to || *from > *to) return static_cast<int>(i);
    if (i + 1 == table.size()) break;
    if (ToSysDays(table[i + 1].From) != *to + days(1)) return static_cast<int>(i);
  }
  return -1;
}

void ExpectJudgedRightly(Table& table) {
  const Table before = table;
  unsigned nBad = 999;
  const int nFirstBad = FirstBadLine(table);
  ASSERT_EQ(Validate(table, &nBad), nFirstBad < 0 ? 1 : 0);
  ASSERT_EQ(static_cast<int>(nBad), nFirstBad < 0 ? 999 : nFirstBad);
  ASSERT_EQ(table, before);
}

const DatesType kStarts[] = {{1, 1, 2003},  {1, 4, 2003},  {31, 1, 2003}, {28, 2, 2003},
                             {29, 2, 2004}, {1, 3, 1999},  {30, 1, 2003}, {31, 12, 2003},
                             {15, 6, 1950}, {1, 10, 2096}, {1, 1, 1901},  {30, 9, 2001}};

TEST(Periods, LieEndToEndOverTwoYearsWhateverTheirCountAndStart) {
  for (const DatesType start : kStarts) {
    for (int nCount = 2; nCount <= 60; ++nCount) {
      Table table = Periods(nCount, start);
      SCOPED_TRACE(testing::Message() << nCount << " from " << start);
      ExpectJudgedRightly(table);
      EXPECT_EQ(table[0].From, start);
      const int nPerYear = nCount / 2;
      if (12 % nPerYear == 0) {
        ASSERT_EQ(FirstBadLine(table), -1);
        for (const FromTo& line : table) {
          DatesType end = line.To;
          EndOfMonth(end);
          EXPECT_EQ(line.To, end) << "whole months end with a month";
        }
        continue;
      }
      // What a year's last line has left of it: it may be nothing, and then it ends too early.
      const DatesType anniversary = Stepped(start, IncYear);
      EXPECT_EQ(table[static_cast<std::size_t>(nPerYear) - 1].To, Stepped(anniversary, IncDay, -1));
      EXPECT_EQ(table.back().To, Stepped(Stepped(anniversary, IncYear), IncDay, -1));
      const int nLength = NumDaysInYear(start.year) / nPerYear + (nPerYear == 13 ? 0 : 1);
      EXPECT_EQ(AbsDate(table[0].To) - AbsDate(start) + 1, nLength);
      if (nCount % 2 == 0) {
        EXPECT_EQ(FirstBadLine(table) < 0, (nPerYear - 1) * nLength < 365);
      }
    }
  }
}

TEST(Periods, AreTheUsualOnes) {
  const struct {
    int nCount;
    DatesType start;
    std::size_t nLine;
    FromTo line;
  } rows[] = {
      {24, {1, 1, 2003}, 1, {{1, 2, 2003}, {28, 2, 2003}}},
      {24, {1, 1, 2003}, 23, {{1, 12, 2004}, {31, 12, 2004}}},
      {24, {31, 1, 2003}, 0, {{31, 1, 2003}, {28, 2, 2003}}},
      {26, {1, 1, 2003}, 0, {{1, 1, 2003}, {28, 1, 2003}}},
      {26, {1, 1, 2003}, 12, {{3, 12, 2003}, {31, 12, 2003}}},
      {26, {1, 1, 2003}, 25, {{2, 12, 2004}, {31, 12, 2004}}},
      {8, {1, 4, 2003}, 0, {{1, 4, 2003}, {30, 6, 2003}}},
      {8, {1, 4, 2003}, 3, {{1, 1, 2004}, {31, 3, 2004}}},
      {8, {1, 4, 2003}, 7, {{1, 1, 2005}, {31, 3, 2005}}},
      {10, {1, 1, 2003}, 0, {{1, 1, 2003}, {15, 3, 2003}}},
      {10, {1, 1, 2003}, 4, {{24, 10, 2003}, {31, 12, 2003}}},
      {2, {1, 1, 2003}, 0, {{1, 1, 2003}, {31, 12, 2003}}},
  };
  for (const auto& row : rows) EXPECT_EQ(Periods(row.nCount, row.start)[row.nLine], row.line);
}

TEST(Periods, BelowTwoOnlyStoreTheStart) {
  for (const int nCount : {1, 0, -1, -32768}) {
    EXPECT_EQ(Periods(nCount, {1, 7, 2003})[0], (FromTo{{1, 7, 2003}, {}})) << nCount;
  }
  CalculateCustomAccountingPeriods(nullptr, 24, {1, 1, 2003});
  EXPECT_EQ(ValidateDates(nullptr, 3, nullptr, 1), 0);
  EXPECT_EQ(FixADateLine(nullptr, 3, 0), 0);
}

TEST(ValidateDates, NamesTheFirstBadLine) {
  Table none;
  unsigned nBad = 7;
  EXPECT_EQ(Validate(none, &nBad), 1);
  EXPECT_EQ(nBad, 7U);
  Table table = Periods(24, {1, 1, 2003});
  table[3].From = {2, 4, 2003};
  EXPECT_EQ(Validate(table, &nBad), 0);
  EXPECT_EQ(nBad, 2U);
  EXPECT_EQ(Validate(table), 0) << "without an index";

  std::mt19937 random(4);
  for (int i = 0; i < 3000; ++i) {
    Table wrong = Periods(24, {1, 1, 2003});
    FromTo& line = wrong[random() % 24];
    DatesType& date = random() % 2 == 0 ? line.From : line.To;
    date =
        random() % 5 == 0 ? DatesType{31, 2, 2003} : Stepped(date, IncDay, int(random() % 90) - 45);
    ExpectJudgedRightly(wrong);
  }
}

TEST(FixADateLine, MovesTheNextLineOnlyAsFarAsItMust) {
  Table table{
      {{1, 1, 2003}, {31, 1, 2003}}, {{5, 2, 2003}, {28, 2, 2003}}, {{1, 3, 2003}, {31, 3, 2003}}};
  EXPECT_EQ(FixADateLine(table.data(), 3, 0), 1);
  EXPECT_EQ(table[1], (FromTo{{1, 2, 2003}, {28, 2, 2003}}));
  for (unsigned i = 0; i < 4; ++i) EXPECT_EQ(FixADateLine(table.data(), 3, i), 0) << i;

  // A line that begins behind its end gets its month, or a day more on that month's last day.
  table = {{{1, 1, 2003}, {31, 1, 2003}}, {{1, 2, 2003}, {15, 1, 2003}}};
  EXPECT_EQ(FixADateLine(table.data(), 2, 1), 1);
  EXPECT_EQ(table[1].To, (DatesType{28, 2, 2003}));
  table = {{{1, 1, 2003}, {30, 1, 2003}}, {{1, 2, 2003}, {15, 1, 2003}}};
  EXPECT_EQ(FixADateLine(table.data(), 2, 1), 1);
  EXPECT_EQ(table[1], (FromTo{{31, 1, 2003}, {1, 2, 2003}}));

  // A next line that is run over is rebuilt, by the count of the whole table.
  const struct {
    std::size_t nCount;
    DatesType to;
  } rows[] = {{2, {31, 12, 2003}},
              {3, {31, 10, 2003}},
              {4, {30, 9, 2003}},
              {12, {31, 7, 2003}},
              {24, {31, 7, 2003}}};
  for (const auto& row : rows) {
    Table run(row.nCount, {{1, 2, 2003}, {28, 2, 2003}});
    run[0] = {{1, 1, 2003}, {30, 6, 2003}};
    EXPECT_EQ(FixADateLine(run.data(), static_cast<unsigned>(row.nCount), 0), 1);
    EXPECT_EQ(run[1], (FromTo{{1, 7, 2003}, row.to})) << row.nCount;
  }
  table = {{{1, 1, 2003}, {30, 11, 2003}}, {{1, 2, 2003}, {28, 2, 2003}}};
  FixADateLine(table.data(), 2, 0);
  EXPECT_EQ(table[1].To, (DatesType{31, 5, 2004})) << "past the turn of the year";
}

TEST(ValidateDates, RepairsWhatHasLegalDatesInOneWalk) {
  std::mt19937 random(7);
  for (int i = 0; i < 4000; ++i) {
    const int nCount = 2 + static_cast<int>(random() % 30);
    Table table(static_cast<std::size_t>(nCount));
    for (FromTo& line : table) {
      line = {DateOfDay(30000 + int(random() % 900)), DateOfDay(30000 + int(random() % 900))};
    }
    const DatesType start = table[0].From;
    ASSERT_EQ(Validate(table, nullptr, 1), 1);
    ASSERT_EQ(FirstBadLine(table), -1) << i;
    ASSERT_EQ(table[0].From, start);
    const Table repaired = table;
    ASSERT_EQ(Validate(table, nullptr, 1), 1);
    ASSERT_EQ(table, repaired) << "a repaired table stays as it is";
  }
}

TEST(Ranges, HoldTheirEnds) {
  const FromTo may{{1, 5, 2003}, {31, 5, 2003}};
  const FromTo since{{1, 5, 2003}, {}};
  const FromTo until{{}, {31, 5, 2003}};
  const struct {
    DatesType date;
    int nMay, nSince, nUntil;
  } rows[] = {{{30, 4, 2003}, -1, -1, 0}, {{1, 5, 2003}, 0, 0, 0},     {{31, 5, 2003}, 0, 0, 0},
              {{1, 6, 2003}, 1, 0, 1},    {{31, 4, 2003}, -1, -1, -1}, {{}, -1, -1, -1}};
  for (const auto& row : rows) {
    EXPECT_EQ(DateInRange(may, row.date), row.nMay) << row.date;
    EXPECT_EQ(DateInRangeWithNullRange(may, row.date), row.nMay) << row.date;
    EXPECT_EQ(DateInRangeWithNullRange(since, row.date), row.nSince) << row.date;
    EXPECT_EQ(DateInRangeWithNullRange(until, row.date), row.nUntil) << row.date;
    EXPECT_EQ(DateInRangeWithNullRange({}, row.date), -1) << row.date;
  }
  EXPECT_EQ(DateInRange({}, {}), -1);
  EXPECT_EQ(DateInRange(since, {1, 6, 2003}), 1) << "an empty end is no open one here";
}

TEST(Quarters, EndWithTheirThirdMonth) {
  for (std::int32_t nDay = 1; nDay <= kLastDay; nDay += 3) {
    const DatesType date = DateOfDay(nDay);
    DatesType end = date;
    EndOfQtr(end);
    const unsigned nQuarter = (date.month + 2U) / 3;
    ASSERT_EQ(end, FromYearMonthDay(year(date.year) / month(nQuarter * 3) / last)) << date;
    vSetQtrEndingDate(static_cast<std::int16_t>(nQuarter), date.year, end);
    ASSERT_EQ(end, FromYearMonthDay(year(date.year) / month(nQuarter * 3) / last)) << date;
  }
  DatesType end{};
  for (const int nQuarter : {0, 5, -1}) {
    vSetQtrEndingDate(static_cast<std::int16_t>(nQuarter), 2003, end);
    EXPECT_EQ(end, (DatesType{31, 3, 2003}));
  }
  end = {5, 100, 2003};
  EndOfQtr(end);  // comes to an end, whatever the date
}

TEST(WeekPeriods, KeepTheYearsThatRetailTradeKnows) {
  FromTo table[kWeekPeriods]{};
  ASSERT_TRUE(CalculateWeekPeriods(table, {30, 1, 2022}, WeekPattern::FourFourFive,
                                   WeekYearEnd::NearestToMonthEnd));
  EXPECT_EQ(table[0], (FromTo{{30, 1, 2022}, {26, 2, 2022}}));
  EXPECT_EQ(table[2], (FromTo{{27, 3, 2022}, {30, 4, 2022}}));
  EXPECT_EQ(table[11].To, (DatesType{28, 1, 2023}));
  EXPECT_EQ(table[23], (FromTo{{24, 12, 2023}, {3, 2, 2024}})) << "six weeks in a year of 53";
}

TEST(WeekPeriods, StartWhereAYearOfTheRuleStartsAndNowhereElse) {
  const int aWeeks[3][3] = {{4, 4, 5}, {4, 5, 4}, {5, 4, 4}};
  for (int nPattern = 0; nPattern < 3; ++nPattern) {
    for (const auto eEnd : {WeekYearEnd::LastInMonth, WeekYearEnd::NearestToMonthEnd}) {
      int nLongYears = 0;
      for (std::int32_t nDay = 1; nDay <= kLastDay; ++nDay) {
        const DatesType start = DateOfDay(nDay);
        // Told another way: the day before is the last such weekday, or the nearest to an end.
        const DatesType before = FromSysDays(*ToSysDays(start) - days(1));
        const int nLength = nDay > 1 ? NumDaysInMonthInYear(before.month, before.year) : 31;
        const int nLeft = nDay > 1 ? nLength - before.day : 0;
        const bool bStarts = eEnd == WeekYearEnd::LastInMonth
                                 ? nLeft < 7
                                 : nLeft <= 3 || (nDay > 1 && before.day <= 3);
        Table table(kWeekPeriods);
        const bool bFilled = CalculateWeekPeriods(std::span<FromTo, kWeekPeriods>(table), start,
                                                  WeekPattern{nPattern}, eEnd);
        ASSERT_EQ(bFilled, bStarts && table[0].From == start) << start;
        if (nDay < kLastDay - 3 * 366) {
          ASSERT_EQ(bFilled, bStarts) << start;
        }
        if (!bFilled) continue;
        ASSERT_EQ(Validate(table), 1) << start;
        ASSERT_EQ(FirstBadLine(table), -1) << start;
        for (std::size_t i = 0; i < kWeekPeriods; ++i) {
          const int nWeeks = (AbsDate(table[i].To) - AbsDate(table[i].From) + 1) / 7;
          const int nExtra = nWeeks - aWeeks[nPattern][i % 3];
          ASSERT_TRUE(nExtra == 0 || (nExtra == 1 && i % 12 == 11)) << start << ' ' << i;
          nLongYears += nExtra;
        }
        const auto end = year_month_day(*ToSysDays(table[11].To));
        ASSERT_LE(std::abs((sys_days(end) - *ToSysDays(start) - days(365)).count()), 6);
      }
      EXPECT_GT(nLongYears, 1000);
    }
  }
}

TEST(WeekPeriods, AreRepairedAsOtherTables) {
  Table table(kWeekPeriods);
  ASSERT_TRUE(CalculateWeekPeriods(std::span<FromTo, kWeekPeriods>(table), {30, 1, 2022},
                                   WeekPattern::FourFiveFour, WeekYearEnd::NearestToMonthEnd));
  const Table whole = table;
  table[5].From = {1, 1, 2022};
  EXPECT_EQ(Validate(table, nullptr, 1), 1);
  EXPECT_EQ(table, whole);
}

}  // namespace
}  // namespace ald
