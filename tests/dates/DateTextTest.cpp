#include "aldlib/dates/DateText.h"

#include <cstdio>
#include <string>

#include "aldlib/text/ResourceStrings.h"
#include "tests/dates/DateTable.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

constexpr DatesType kJuly4{4, 7, 2003};
constexpr DateOrderType kOrders[] = {DateOrderMDY, DateOrderDMY, DateOrderYMD};

// Each test starts with the order month-day-year and "/" between the fields.
class DateText : public testing::Test {
 protected:
  DateText() { Use(DateOrderMDY, "/"); }

  static void Use(DateOrderType eOrder, const char* szSeparator) {
    SetDateOrder(eOrder);
    SetDateSeparator(szSeparator);
  }
  template <typename Write>
  static std::string Written(Write write) {
    CFixedString<30> sText("what was there before");
    write(CFixedStringParamRef(sText));
    return std::string(sText.view());
  }
  static std::string Long(DatesType date) {
    return Written([&](auto ref) { DateToLongStr(date, ref); });
  }
  static std::string Med(DatesType date) {
    return Written([&](auto ref) { DateToMedStr(date, ref); });
  }
  static std::string Short(DatesType date) {
    return Written([&](auto ref) { DateToShortStr(date, ref); });
  }
  static std::string Fixed(DatesType date, int nFlag) {
    return Written([&](auto ref) { DateToShortStr2(date, ref, nFlag); });
  }
  static std::string Yr4(DatesType date, int nYear, int nMonth, int nDay) {
    return Written([&](auto ref) {
      DateToShortStrYr4(date, ref, enDateFormattingType(nYear), enDateFormattingType(nMonth),
                        enDateFormattingType(nDay));
    });
  }
  static std::string MonthYear(DatesType date) {
    return Written([&](auto ref) { DateToMonthYearStr(date, ref); });
  }
  static DatesType ReadShort(const char* szText, DatesType fill = {15, 6, 2003}) {
    DatesType date{9, 9, 1999};
    ShortStrToDate(szText, date, fill);
    return date;
  }
  static DatesType ReadMonth(const char* szText) {
    DatesType date{9, 9, 1999};
    ShortStrToDate2(szText, date);
    return date;
  }
  static DatesType ReadMed(const char* szText) {
    DatesType date{9, 9, 1999};
    MedStrToDate(szText, date);
    return date;
  }

  FakePlatform m_platform;
};

TEST_F(DateText, FollowsTheOrder) {
  const struct {
    const char* szLong;
    const char* szMed;
    const char* szShort;
    const char* szFixed;
    const char* szDigits;
  } rows[] = {{"July 4, 2003", "Jul 4, 2003", "7/4/03", "07/04/03", "070403"},
              {"4 July 2003", "4 Jul 2003", "4/7/03", "04/07/03", "040703"},
              {"2003 July 4", "2003 Jul 4", "03/7/4", "03/07/04", "030704"}};
  for (const auto eOrder : kOrders) {
    Use(eOrder, "/");
    const auto& row = rows[eOrder];
    EXPECT_EQ(Long(kJuly4), row.szLong);
    EXPECT_EQ(Med(kJuly4), row.szMed);
    EXPECT_EQ(Short(kJuly4), row.szShort);
    EXPECT_EQ(Fixed(kJuly4, 1), row.szFixed);
    EXPECT_EQ(Fixed(kJuly4, 0), row.szDigits);
    EXPECT_EQ(MonthYear(kJuly4), "07/03");
    EXPECT_EQ(Yr4(kJuly4, 3, 2, 2), "07/04/2003") << "always month, day, year";
  }
  Use(DateOrderMDY, "");
  EXPECT_EQ(Short(kJuly4), "7403");
}

TEST_F(DateText, WritesEachFieldOfTheLongYearByItsForm) {
  for (int nYear = 0; nYear <= 4; ++nYear) {
    for (int nMonth = 0; nMonth <= 4; ++nMonth) {
      for (int nDay = 0; nDay <= 4; ++nDay) {
        const std::string sDay = nDay == 1 ? "" : nDay == 2 ? "04/" : "4/";
        EXPECT_EQ(Yr4(kJuly4, nYear, nMonth, nDay),
                  (nMonth == 2 ? "07/" : "7/") + sDay + (nYear == 3 ? "2003" : "03"));
      }
    }
  }
}

TEST_F(DateText, IsEmptyForADateThatIsNotLegalAndAnOrderThatIsNone) {
  for (const DatesType date : {DatesType{}, InvalidDate, DatesType{29, 2, 1901}}) {
    EXPECT_EQ(Long(date) + Med(date) + Short(date) + Fixed(date, 1) + MonthYear(date) +
                  Yr4(date, 3, 2, 2) + Written([&](auto ref) { DateToIsoStr(date, ref); }),
              "");
  }
  for (const int nOrder : {-1, 3}) {
    Use(DateOrderType{nOrder}, "/");
    EXPECT_EQ(Long(kJuly4) + Med(kJuly4) + Short(kJuly4) + Fixed(kJuly4, 0) + Yr4(kJuly4, 3, 2, 2),
              "");
    EXPECT_EQ(MonthYear(kJuly4), "07/03");
    EXPECT_EQ(ReadShort("7/4/03"), DatesType{});
    EXPECT_EQ(ReadMed("Jul 4, 2003"), DatesType{});
  }
}

TEST_F(DateText, IsCutAtTheTargetAndAtItsOwnLength) {
  CFixedString<5> sTarget;
  DateToLongStr(kJuly4, sTarget);
  EXPECT_EQ(sTarget, "July");
  m_platform.AddModule({{20207, "the seventh month of them"}, {1, "x"}}, 1);
  CFixedString<4> sOther;
  MyLoadString(1, sOther);  // this module answers first from now on
  EXPECT_EQ(Long(kJuly4), "the seventh month ");
  EXPECT_EQ(Med(kJuly4), "the 4, 2003");
}

TEST_F(DateText, ShowsTheClock) {
  EXPECT_EQ(Written([](auto ref) { GetDate(ref); }), "7/4/03");
  EXPECT_EQ(Written([](auto ref) { GetTime(ref); }), "09:05:07.08");
  CFixedString<7> sCut;
  GetTime(sCut);
  EXPECT_EQ(sCut, "09:05:");
}

TEST_F(DateText, ReadsWhatWasTyped) {
  const struct {
    const char* szText;
    DatesType date;
  } rows[] = {
      {"", {}},
      {"   ", {}},
      {nullptr, {}},
      // a day
      {"9", {9, 6, 2003}},
      {" 20 ", {20, 6, 2003}},
      {"31", {31, 6, 2003}},
      {"32", {}},
      {"0", {}},
      {"x", {}},
      // month and day
      {"704", kJuly4},
      {"7/4", kJuly4},
      {"0704", kJuly4},
      {"1/23", {23, 1, 2003}},
      {"12/3", {2, 1, 2003}},
      {"12/31", {31, 12, 2003}},
      {"7//", {}},
      {"abc", {}},
      {"/////", {}},
      // month, day and year
      {"12319", {23, 1, 2019}},
      {"070499", {4, 7, 1999}},
      {"07041999", {4, 7, 1999}},
      {"7/4/99", {4, 7, 1999}},
      {"7/4/49", {4, 7, 2049}},
      {"7/4/50", {4, 7, 1950}},
      {"7/4/1901", {4, 7, 1901}},
      {"7/4/1899", {4, 7, 3799}},
      {"7/4/123", {4, 7, 2023}},
      {"7/4/2099", {4, 7, 2099}},
      {"7/4/2100", {}},
      {"7/4/99999999", {}},
      {"7-4-03", kJuly4},
      {"7.4.03", kJuly4},
      {"7  Jul 4 03", kJuly4},
      {"13/45/99", {45, 13, 1999}},
      {"7/4/", kJuly4},
      {"7/4/x", {}},
      {"2100/1/1", {0, 21, 2001}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ReadShort(row.szText), row.date) << (row.szText ? row.szText : "null");
  }
  EXPECT_EQ(ReadShort((std::string(57, '/') + "7/4/03").c_str()), DatesType{});
}

TEST_F(DateText, TakesWhatIsMissingFromTheFill) {
  EXPECT_EQ(ReadShort("7/4", {}), DatesType{});
  EXPECT_EQ(ReadShort("7/4", {31, 2, 2003}), DatesType{});
  EXPECT_EQ(ReadShort("7/4/03", InvalidDate), kJuly4);
  EXPECT_EQ(ReadShort("20", {}), (DatesType{20, 0, 0}));
  EXPECT_EQ(ReadShort("7/4", {1, 1, 1945}), (DatesType{4, 7, 2045}));
  EXPECT_EQ(ReadShort("7/4", {1, 1, 2060}), (DatesType{4, 7, 1960}));
  Use(DateOrderDMY, "/");
  EXPECT_EQ(ReadShort("4/7"), kJuly4);
  Use(DateOrderYMD, "/");
  EXPECT_EQ(ReadShort("7/4"), kJuly4);
}

// Dates whose year two digits can tell.
constexpr std::int32_t kFirstOfTheWindow = 17898;  // 1950-01-01
constexpr std::int32_t kLastOfTheWindow = 54422;   // 2049-12-31

TEST_F(DateText, ReadsBackWhatItWrites) {
  ASSERT_EQ(DateOfDay(kFirstOfTheWindow), (DatesType{1, 1, 1950}));
  ASSERT_EQ(DateOfDay(kLastOfTheWindow), (DatesType{31, 12, 2049}));
  for (const auto eOrder : kOrders) {
    for (const char* szSeparator : {"/", "-", ".", " "}) {
      Use(eOrder, szSeparator);
      for (std::int32_t nDay = kFirstOfTheWindow; nDay <= kLastOfTheWindow; nDay += 5) {
        const DatesType date = DateOfDay(nDay);
        ASSERT_EQ(ReadShort(Short(date).c_str(), {}), date) << Short(date);
        ASSERT_EQ(ReadShort(Fixed(date, 1).c_str(), {}), date) << Fixed(date, 1);
        ASSERT_EQ(ReadShort(Fixed(date, 0).c_str(), {}), date) << Fixed(date, 0);
        ASSERT_EQ(ReadMed(Med(date).c_str()), date) << Med(date);
      }
    }
  }
}

TEST_F(DateText, ReadsAMonthAndYear) {
  const struct {
    const char* szText;
    DatesType date;
  } rows[] = {{"02/2004", {29, 2, 2004}},
              {" 12-2003 ", {31, 12, 2003}},
              {"200402", {29, 2, 2004}},
              {"02/2100", {}},
              {"13/2003", {0, 13, 2003}},
              {"02/20040", {}},
              {"", {}},
              {nullptr, {}},
              // six characters are a year and a month, whatever they look like
              {"1/2003", {31, 3, 1}}};
  for (const auto& row : rows) {
    EXPECT_EQ(ReadMonth(row.szText), row.date) << (row.szText ? row.szText : "null");
  }
}

TEST_F(DateText, ReadsMonthNamesByTheirFirstLetters) {
  const struct {
    DateOrderType eOrder;
    const char* szText;
    DatesType date;
  } rows[] = {
      {DateOrderMDY, "jul 4, 2003", kJuly4},        {DateOrderMDY, "  Jun 4, 2003 ", {4, 6, 2003}},
      {DateOrderMDY, "JAN 5, 99", {5, 1, 99}},      {DateOrderMDY, "JULY 4, 2003", {0, 7, 4}},
      {DateOrderMDY, "xyz 4, 2003", {4, 0, 2003}},  {DateOrderMDY, "Mai 31, 2003", {31, 5, 2003}},
      {DateOrderMDY, "Mar 32, 2003", {0, 3, 1999}}, {DateOrderMDY, "", {0, 0, 0}},
      {DateOrderMDY, nullptr, {0, 0, 0}},           {DateOrderDMY, "4 Jul 2003", kJuly4},
      {DateOrderDMY, "14 Jul 2003", {14, 7, 2003}}, {DateOrderYMD, "2003 Jul 4", kJuly4},
      {DateOrderYMD, "2003 Jul 99", {0, 7, 2003}},  {DateOrderYMD, "99999 Jul", {0, 0, 65535}},
  };
  for (const auto& row : rows) {
    Use(row.eOrder, "/");
    EXPECT_EQ(ReadMed(row.szText), row.date) << (row.szText ? row.szText : "null");
  }
}

TEST_F(DateText, HasOneFormThatIsTheSameEverywhere) {
  for (std::int32_t nDay = 1; nDay <= kLastDay; nDay += 7) {
    const DatesType date = DateOfDay(nDay);
    char szPlain[16];
    std::snprintf(szPlain, sizeof szPlain, "%04d-%02d-%02d", date.year, date.month, date.day);
    const std::string sText = Written([&](auto ref) { DateToIsoStr(date, ref); });
    ASSERT_EQ(sText, szPlain);
    DatesType read{};
    ASSERT_TRUE(IsoStrToDate(sText, read));
    ASSERT_EQ(read, date);
  }
  DatesType date{};
  EXPECT_TRUE(IsoStrToDate("20030704", date));
  EXPECT_EQ(date, kJuly4);
  for (const char* szBad : {"", "2003-7-4", "2003-07-4x", "2003/07/04", "2003-02-29", "1900-12-31",
                            "2100-01-01", "2003-07-04 ", "2003074", "+2030704", "2003-0704"}) {
    date = kJuly4;
    EXPECT_FALSE(IsoStrToDate(szBad, date)) << szBad;
    EXPECT_EQ(date, DatesType{});
  }
}

}  // namespace
}  // namespace ald
