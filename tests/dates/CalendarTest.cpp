#include "aldlib/dates/Calendar.h"

#include <chrono>
#include <limits>
#include <sstream>
#include <unordered_set>

#include "aldlib/dates/DateChrono.h"
#include "aldlib/dates/OleDate.h"
#include "tests/dates/DateTable.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

using namespace std::chrono;

TEST(Calendar, AgreesWithTheStandardOneOnEveryLegalDay) {
  const sys_days before = sys_days(1901y / 1 / 1) - days(1);
  DatesType walked{1, 1, 1901};
  for (std::int32_t nCount = 1; nCount <= kLastDay; ++nCount) {
    const sys_days day = before + days(nCount);
    const DatesType date = FromSysDays(day);
    ASSERT_EQ(DateOfDay(nCount), date) << nCount;
    ASSERT_EQ(AbsDate(date), nCount);
    ASSERT_EQ(ToSysDays(date), day);
    ASSERT_EQ(IsLegalDate(date), 1);
    ASSERT_EQ(static_cast<unsigned>(DayOfWeek(nCount)), weekday(day).c_encoding()) << date;
    ASSERT_EQ(walked, date);
    const DatesType last = walked;
    IncDate(walked, IncDay);
    ASSERT_EQ(Stepped(walked, IncDay, nCount < kLastDay ? -1 : 0), last);
    ASSERT_EQ(CompareDates(last, walked), nCount < kLastDay ? -1 : 0);
  }
  EXPECT_EQ(walked, (DatesType{31, 12, 2099})) << "the last day stays";
  EXPECT_EQ(Stepped({1, 1, 1901}, IncDay, -1), (DatesType{1, 1, 1901}));
}

TEST(Calendar, KnowsWhichDatesThereAre) {
  for (int nYear = 1899; nYear <= 2101; ++nYear) {
    for (unsigned nMonth = 0; nMonth <= 14; ++nMonth) {
      for (unsigned nDay = 0; nDay <= 33; ++nDay) {
        const DatesType date{static_cast<std::uint8_t>(nDay), static_cast<std::uint8_t>(nMonth),
                             static_cast<std::uint16_t>(nYear)};
        const bool bLegal =
            nYear >= 1901 && nYear <= 2099 && (year(nYear) / month(nMonth) / day(nDay)).ok();
        ASSERT_EQ(IsLegalDate(date), bLegal ? 1 : 0) << date;
        ASSERT_EQ(AbsDate(date) > 0, bLegal) << date;
      }
    }
  }
  EXPECT_EQ(IsLegalDate(InvalidDate), 0);
  EXPECT_EQ(MONTH(InvalidDate), 255);
  EXPECT_LT(InvalidDate, DatesType{});
  EXPECT_EQ(CompareDates(InvalidDate, {1, 1, 1901}), -1);
}

TEST(FileDate, AppliesNoUpperLimitAndStaysInACalendarBelow) {
  const struct {
    std::int32_t nCount;
    DatesType date;
  } rows[] = {{-5, {1, 1, 1901}},           {0, {1, 1, 1901}},
              {1461, {31, 12, 1904}},       {1462, {1, 1, 1905}},
              {kLastDay + 1, {1, 1, 2100}}, {std::numeric_limits<int>::min(), {1, 1, 1901}}};
  for (const auto& row : rows) EXPECT_EQ(DateOfDay(row.nCount), row.date) << row.nCount;
  EXPECT_EQ(AbsDate(DateOfDay(kLastDay + 1)), 0);
  const DatesType farAway = DateOfDay(std::numeric_limits<int>::max());
  EXPECT_TRUE(farAway.month >= 1 && farAway.month <= 12 && farAway.day >= 1 && farAway.day <= 31);
  EXPECT_EQ(DayOfWeek(-2), Saturday);
  EXPECT_EQ(DayOfWeek(std::numeric_limits<int>::max()), 2147483648 % 7);
}

// The told rule of a month step, put another way: months are counted from the year 0, and a day is
// either the end of its month or a number.
DatesType MonthsLater(DatesType date, int nMonths) {
  const auto lengthOf = [](int nMonth) {
    return (year(nMonth / 12) / (nMonth % 12 + 1) / last).day();
  };
  const int nFrom = date.year * 12 + date.month - 1;
  const int nTo = nFrom + nMonths;
  const bool bSticks = day(date.day) == lengthOf(nFrom);
  const day target = bSticks ? lengthOf(nTo) : std::min(day(date.day), lengthOf(nTo));
  return FromYearMonthDay(year(nTo / 12) / (nTo % 12 + 1) / target);
}

DatesType YearsLater(DatesType date, int nYears) {
  const int nYear = date.year + nYears;
  if (date.month == 2 && date.day >= 28) return FromYearMonthDay(year(nYear) / February / last);
  return FromYearMonthDay(year(nYear) / date.month / date.day);
}

TEST(Steps, TakeEveryDayOfLeapAndCommonYearsByTheRule) {
  for (const int nYear : {1902, 1903, 1904, 1999, 2000, 2001, 2003, 2004, 2096, 2098}) {
    const DatesType first{1, 1, static_cast<std::uint16_t>(nYear)};
    for (DatesType date = first; date.year == nYear; IncDate(date, IncDay)) {
      ASSERT_EQ(Stepped(date, IncMonth), MonthsLater(date, 1)) << date;
      ASSERT_EQ(Stepped(date, IncMonth, -1), MonthsLater(date, -1)) << date;
      ASSERT_EQ(Stepped(date, IncYear), YearsLater(date, 1)) << date;
      ASSERT_EQ(Stepped(date, IncYear, -1), YearsLater(date, -1)) << date;
      ASSERT_EQ(AbsDate(Stepped(date, IncWeek)), AbsDate(date) + 7);
      ASSERT_EQ(AbsDate(Stepped(date, IncWeek, -1)), AbsDate(date) - 7);
      ASSERT_EQ(Stepped(date, IncDateFlagType{5}), date);
    }
  }
  EXPECT_EQ(Stepped({30, 1, 2003}, IncMonth, 2), (DatesType{31, 3, 2003}));
}

TEST(Steps, StopAtTheEndsOfTheRange) {
  for (const auto eFlag : {IncDay, IncWeek, IncMonth, IncYear}) {
    EXPECT_EQ(Stepped({31, 12, 2099}, eFlag), (DatesType{31, 12, 2099})) << eFlag;
    EXPECT_EQ(Stepped({29, 12, 2099}, eFlag, 3), (DatesType{31, 12, 2099})) << eFlag;
    EXPECT_EQ(Stepped({1, 1, 1901}, eFlag, -1), (DatesType{1, 1, 1901})) << eFlag;
    EXPECT_EQ(Stepped({3, 1, 1901}, eFlag, -3), (DatesType{1, 1, 1901})) << eFlag;
  }
}

TEST(Steps, ByCountAreTheStepsOneByOne) {
  for (const DatesType start : {DatesType{30, 1, 2003}, DatesType{29, 2, 2096},
                                DatesType{1, 1, 1901}, DatesType{31, 12, 2099}, DatesType{},
                                InvalidDate, DatesType{40, 13, 2003}, DatesType{31, 2, 1990}}) {
    for (const auto eFlag : {IncDay, IncWeek, IncMonth, IncYear, IncDateFlagType{0}}) {
      for (const int nCount : {-1, 0, 1, 2, 5, 400, 1300}) {
        DatesType later = start;
        IncDateByCount(later, eFlag, nCount);
        const auto nFebruary = NumDaysInMonth(2);
        ASSERT_EQ(later, Stepped(start, eFlag, std::max(nCount, 0))) << start << eFlag << nCount;
        if (nCount > 0) {
          ASSERT_EQ(NumDaysInMonth(2), nFebruary);
        }
        DatesType earlier = start;
        DecDateByCount(earlier, eFlag, nCount);
        ASSERT_EQ(earlier, Stepped(start, eFlag, -std::max(nCount, 0))) << start << eFlag << nCount;
      }
      DatesType last = start;
      IncDateByCount(last, eFlag, std::numeric_limits<int>::max());
      if (IsLegalDate(start) && eFlag != 0) {
        EXPECT_EQ(last, (DatesType{31, 12, 2099}));
      }
    }
  }
}

TEST(February, HasTheLengthThatTheLastYearLeft) {
  DatesType date{};
  EXPECT_EQ(NumDaysInYear(1900), 365);
  MakeDate(2, 29, 2004, date);
  EXPECT_EQ(date, (DatesType{28, 2, 2004}));
  EXPECT_EQ(NumDaysInMonthInYear(2, 2000), 29);
  MakeDate(2, 31, 2003, date);
  EXPECT_EQ(date, (DatesType{29, 2, 2003}));
  MakeDate(258, 257, 2003, date);
  EXPECT_EQ(date, (DatesType{1, 2, 2003})) << "low bytes are stored";
  MakeDate(13, 5, 2003, date);
  EXPECT_EQ(date, (DatesType{0, 13, 2003}));

  FileDate(1156, date);  // 1904-03-01
  EXPECT_EQ(NumDaysInMonth(2), 29);
  date = {5, 2, 2003};
  EndOfMonth(date);
  EXPECT_EQ(date, (DatesType{28, 2, 2003}));
  date = {31, 12, 2003};
  IncDate(date, IncMonth);
  EXPECT_EQ(NumDaysInMonth(2), 29) << "the step has reached 2004";
  for (const int nMonth : {-1, 0, 13, 32767}) {
    EXPECT_EQ(NumDaysInMonth(static_cast<std::int16_t>(nMonth)), 0);
  }
}

TEST(Names, ComeFromTheNumberedTexts) {
  FakePlatform platform;
  CFixedString<12> sText;
  for (int i = 0; i <= 12; ++i) {
    GetMonthName(static_cast<std::int16_t>(i), sText);
    EXPECT_EQ(sText, std::to_array({"Months", "January", "February", "March", "April", "May",
                                    "June", "July", "August", "September", "October", "November",
                                    "December"})[static_cast<std::size_t>(i)]);
  }
  for (int i = 0; i <= 6; ++i) {
    GetDayName(static_cast<std::int16_t>(i), sText);
    EXPECT_EQ(sText, std::to_array({"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday",
                                    "Friday", "Saturday"})[static_cast<std::size_t>(i)]);
  }
  GetMonthName(13, sText);
  EXPECT_EQ(sText, "");
  platform.AddModule({{20205, "mai"}}, 1);
  GetMonthName(5, sText);
  EXPECT_EQ(sText, "May") << "the module that answered last is asked first";
}

TEST(CurrentDate, IsTheClocks) {
  FakePlatform platform;
  platform.m_clock.m_now = {1850, 2, 28, 0, 0, 0, 0};
  DatesType date{};
  GetCurrentDate(date);
  EXPECT_EQ(date, (DatesType{28, 2, 1850})) << "the year is not tested";
}

TEST(OleDates, CountFromTheEndOf1899) {
  constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
  const DatesType none{9, 9, 1999};
  const struct {
    double value;
    DatesType date;
  } rows[] = {{0.0, none},
              {1, {31, 12, 1899}},
              {2, {1, 1, 1900}},
              {0.25, {30, 12, 1899}},
              {-0.25, {30, 12, 1899}},
              {-1.25, {29, 12, 1899}},
              {37806.5, {4, 7, 2003}},
              {37806.999990, {4, 7, 2003}},
              {37806.999999, {5, 7, 2003}},
              {-1.999999, {30, 12, 1899}},
              {-657434, {1, 1, 100}},
              {-657435, InvalidDate},
              {2958465.5, {31, 12, 9999}},
              {2958465.999999, InvalidDate},
              {2958466, InvalidDate},
              {kNoNumber, InvalidDate},
              {std::numeric_limits<double>::infinity(), InvalidDate}};
  for (const auto& row : rows) {
    DatesType date = none;
    EXPECT_EQ(MakeDateFromOleDate(row.value, date), row.value != 0.0) << row.value;
    EXPECT_EQ(date, row.date) << row.value;
    EXPECT_TRUE(MakeDateFromVariant({Variant::kDate, row.value}, date));
    EXPECT_EQ(date, row.value == 0.0 ? (DatesType{30, 12, 1899}) : row.date) << row.value;
    EXPECT_FALSE(MakeDateFromVariant({5, row.value}, date));
    EXPECT_EQ(date, DatesType{});
  }
}

TEST(DatesType, IsAValueAsOthers) {
  static_assert(DatesType{31, 12, 2003} < DatesType{1, 1, 2004});
  static_assert(FromYearMonthDay(2003y / February / 29) == DatesType{});
  static_assert(FromSysDays(sys_days(2100y / 1 / 1)) == DatesType{});
  static_assert(!ToSysDays({30, 2, 2004}));
  const std::unordered_set<DatesType> dates{{1, 1, 2004}, {1, 1, 2004}, {2, 1, 2004}};
  EXPECT_EQ(dates.size(), 2U);
  std::ostringstream out;
  out << FromTo{{4, 7, 2003}, {}} << ' ' << InvalidDate;
  EXPECT_EQ(out.str(), "2003-07-04..0000-00-00 65535-255-255");
}

}  // namespace
}  // namespace ald
