// The calendar and the short texts take quick ways. Here their rules stand as plainly as they can
// be put, and both must give the same on every date, count and text tried, February included.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <utility>

#include "aldlib/dates/Calendar.h"
#include "aldlib/dates/DateText.h"
#include "tests/dates/DateTable.h"

namespace ald {
namespace {

constexpr DateOrderType kOrders[] = {DateOrderMDY, DateOrderDMY, DateOrderYMD, DateOrderType{3}};

// The calendar by its rules, with a February of its own.
class PlainCalendar {
 public:
  int m_nFebruary = 28;

  int Length(int nMonth) const {
    if (nMonth == 2) return m_nFebruary;
    return nMonth == 4 || nMonth == 6 || nMonth == 9 || nMonth == 11 ? 30 : 31;
  }
  void Refresh(int nYear) {
    m_nFebruary = nYear % 4 == 0 && (nYear % 100 != 0 || nYear % 400 == 0) ? 29 : 28;
  }
  bool IsLegal(DatesType date) {
    if (date.month < 1 || date.month > 12 || date.day < 1 || date.day > 31) return false;
    if (date.year < 1901 || date.year > 2099) return false;
    Refresh(date.year);
    return date.day <= Length(date.month);
  }
  std::int32_t Count(DatesType date) {
    if (!IsLegal(date)) return 0;
    std::int32_t nCount = (date.year - 1901) * 365 + (date.year - 1901) / 4 + date.day;
    for (int nMonth = 1; nMonth < date.month; ++nMonth) nCount += Length(nMonth);
    return nCount;
  }
  DatesType Date(std::int64_t nCount) {
    if (nCount < 1) return {1, 1, 1901};
    const std::int64_t nYears = 4 * nCount / 1461;
    std::int64_t nRest = nCount - nYears * 365 - nYears / 4;
    if (nRest == 0) return {31, 12, static_cast<std::uint16_t>(1900 + nYears)};
    const auto nYear = static_cast<std::uint16_t>(1901 + nYears);
    Refresh(nYear);
    std::uint8_t nMonth = 1;
    for (; nRest > Length(nMonth); ++nMonth) nRest -= Length(nMonth);
    return {static_cast<std::uint8_t>(nRest), nMonth, nYear};
  }
};

void ExpectSameDateOf(PlainCalendar& plain, std::int32_t nCount) {
  ASSERT_EQ(DateOfDay(nCount), plain.Date(nCount)) << nCount;
  ASSERT_EQ(NumDaysInMonth(2), plain.m_nFebruary) << nCount;
}

TEST(Calendar, KeepsItsRulesForAnyCount) {
  PlainCalendar plain;
  plain.m_nFebruary = NumDaysInMonthInYear(2, 2000);
  std::mt19937 random(1);
  for (std::int32_t nCount = -3; nCount <= 2 * kLastDay; ++nCount) ExpectSameDateOf(plain, nCount);
  for (int i = 0; i < 100'000; ++i) {
    ExpectSameDateOf(plain, static_cast<std::int32_t>(random() >> i % 16));
  }
  for (int i = 0; i < 3000; ++i) {
    ExpectSameDateOf(plain, std::numeric_limits<std::int32_t>::max() - i);
  }
}

TEST(Calendar, KeepsItsRulesForAnyFourBytes) {
  PlainCalendar plain;
  plain.m_nFebruary = NumDaysInMonthInYear(2, 2000);
  std::mt19937 random(2);
  const auto anyOf = [&random](std::uint32_t nFrom, std::uint32_t nTo) {
    return std::uniform_int_distribution<std::uint32_t>(nFrom, nTo)(random);
  };
  for (int i = 0; i < 400'000; ++i) {
    const bool bNear = i % 8 != 0;
    const DatesType date{static_cast<std::uint8_t>(bNear ? anyOf(0, 33) : random()),
                         static_cast<std::uint8_t>(bNear ? anyOf(0, 16) : random()),
                         static_cast<std::uint16_t>(i % 16 != 0 ? anyOf(1898, 2103) : random())};
    if (i % 2 == 0) {
      ASSERT_EQ(AbsDate(date), plain.Count(date)) << date;
    } else {
      ASSERT_EQ(IsLegalDate(date) != 0, plain.IsLegal(date)) << date;
    }
    ASSERT_EQ(NumDaysInMonth(2), plain.m_nFebruary) << date;
  }
}

// The rule of typed dates, for a text without blanks at its ends.
DatesType PlainTypedDate(std::string sText, DatesType fill, DateOrderType eOrder) {
  const auto isDigit = [](char ch) { return ch >= '0' && ch <= '9'; };
  const auto numberAt = [&](std::size_t nAt) {
    std::uint32_t nValue = 0;
    for (; nAt < sText.size() && isDigit(sText[nAt]); ++nAt) {
      nValue = std::min(nValue * 10 + static_cast<std::uint32_t>(sText[nAt] - '0'), 65535U);
    }
    return nValue;
  };
  const auto stepOver = [&](std::size_t& nAt) {
    while (nAt < sText.size() && isDigit(sText[nAt])) ++nAt;
    while (nAt < sText.size() && !isDigit(sText[nAt])) ++nAt;
    return nAt < sText.size();
  };
  if (!PlainCalendar().IsLegal(fill)) fill = {};
  const std::size_t nLength = sText.size();
  if (nLength == 0) return {};
  if (nLength <= 2) {
    const std::uint32_t nDay = numberAt(0);
    if (nDay < 1 || nDay > 31) return {};
    return {static_cast<std::uint8_t>(nDay), fill.month, fill.year};
  }
  const bool bDigit = isDigit(sText[2]);
  const bool bYearMissing = nLength <= 4 || (nLength == 5 && !bDigit);
  if (nLength == 3 || (nLength == 4 && !bDigit) || (nLength == 5 && bDigit)) sText.insert(0, "0");
  if (bYearMissing && fill.month == 0) return {};
  sText.insert(2, " ");
  std::array<std::uint32_t, 3> anNumbers{numberAt(0), 0, fill.year % 100U};
  std::size_t nAt = 0;
  if (!stepOver(nAt)) return {};
  if (sText.size() - nAt >= 2) sText.insert(nAt + 2, " ");
  anNumbers[1] = numberAt(nAt);
  if (!bYearMissing) {
    if (!stepOver(nAt)) return {};
    anNumbers[2] = numberAt(nAt);
  }
  for (const std::uint32_t nNumber : anNumbers) {
    if (nNumber > 2099) return {};
  }
  auto [nMonth, nDay, nYear] = anNumbers;
  if (eOrder == DateOrderDMY) std::swap(nMonth, nDay);
  if (eOrder == DateOrderYMD && !bYearMissing) {
    nYear = anNumbers[0];
    nMonth = anNumbers[1];
    nDay = anNumbers[2];
  }
  if (eOrder > DateOrderYMD) return {};
  if (nYear < 1900) nYear += nYear < 50 ? 2000 : 1900;
  return {static_cast<std::uint8_t>(nDay), static_cast<std::uint8_t>(nMonth),
          static_cast<std::uint16_t>(nYear)};
}

TEST(TypedDates, KeepTheirRuleForAnyText) {
  std::mt19937 random(3);
  const std::string sCharacters = "0123456789/-. :a\xE4\x01";
  const auto number = [&random] {
    static constexpr std::uint32_t kBelow[] = {10, 32, 100, 2200, 100'000};
    char szNumber[16];
    std::snprintf(szNumber, sizeof szNumber, random() % 3 == 0 ? "%02u" : "%u",
                  static_cast<unsigned>(random() % kBelow[random() % 5]));
    return std::string(szNumber);
  };
  for (int i = 0; i < 300'000; ++i) {
    const auto separator = [&] { return sCharacters[10 + random() % (sCharacters.size() - 10)]; };
    std::string sText;
    if (i % 4 == 0) {
      for (auto n = random() % 12; n > 0; --n) sText += sCharacters[random() % sCharacters.size()];
      while (sText.starts_with(' ')) sText.erase(0, 1);
      while (sText.ends_with(' ')) sText.pop_back();
    } else {
      sText = number() + separator() + number() + separator() + number();
    }
    const DatesType fill = DateOfDay(static_cast<std::int32_t>(random() % 80'000));
    const DateOrderType eOrder = kOrders[random() % 4];
    SetDateOrder(eOrder);
    DatesType date{9, 9, 1999};
    ShortStrToDate(sText.c_str(), date, fill);
    ASSERT_EQ(date, PlainTypedDate(sText, fill, eOrder)) << sText << " order " << eOrder;
  }
  SetDateOrder(DateOrderMDY);
}

TEST(ShortDates, AreThoseOfPrintfOnEveryDayInTargetsOfEverySize) {
  for (std::int32_t nDay = 1; nDay <= kLastDay; ++nDay) {
    const DatesType date = DateOfDay(nDay);
    const DateOrderType eOrder = kOrders[nDay % 3];
    const std::string sSeparator = nDay % 5 == 0 ? "" : "/";
    SetDateOrder(eOrder);
    SetDateSeparator(sSeparator.c_str());
    const int anFields[] = {date.month, date.day, date.year % 100, date.month, date.day};
    const int nFirst = eOrder == DateOrderYMD ? 2 : 0;
    const auto written = [&](bool bShort, const std::string& sBetween) {
      std::string sText;
      for (int i = 0; i < 3; ++i) {
        const int nPlace = eOrder == DateOrderDMY && i < 2 ? 1 - i : nFirst + i;
        char szField[16];
        std::snprintf(szField, sizeof szField, bShort && nPlace != 2 ? "%d" : "%2.2d",
                      anFields[nPlace]);
        sText += (i > 0 ? sBetween : "") + szField;
      }
      return sText;
    };
    const std::int32_t nSize = nDay % 20;
    const auto expectWritten = [&](auto write, const std::string& sWanted) {
      std::string sTarget(24, '#');
      write(CFixedStringParamRef(sTarget.data(), nSize));
      std::string sCut = sWanted.substr(0, static_cast<std::size_t>(std::max(nSize - 1, 0)));
      sCut.resize(static_cast<std::size_t>(nSize));
      ASSERT_EQ(sTarget, sCut + std::string(sTarget.size() - sCut.size(), '#')) << date;
    };
    expectWritten([&](auto ref) { DateToShortStr(date, ref); }, written(true, sSeparator));
    expectWritten([&](auto ref) { DateToShortStr2(date, ref, 1); }, written(false, sSeparator));
    expectWritten([&](auto ref) { DateToShortStr2(date, ref, 0); }, written(false, ""));
  }
  SetDateOrder(DateOrderMDY);
  SetDateSeparator("-");
}

}  // namespace
}  // namespace ald
