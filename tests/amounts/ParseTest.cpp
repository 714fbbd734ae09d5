#include "aldlib/amounts/Parse.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "aldlib/arith/DecimalLiteral.h"
#include "tests/amounts/RegionFixture.h"

namespace ald {
namespace {

using namespace literals;

constexpr auto kForms = {&MyStringToReal, &MyStringToRealWithNoExtras, &MyStringToQty,
                         &MyStringToQtyWithNoExtras};

class Parse : public WithRegion {};

TEST_F(Parse, ReadsWhatPeopleType) {
  const struct {
    const char* szText;
    CDecimal value;
  } rows[] = {
      {"1,234.50", 1234.5_dec},
      {"1,2,3", 123_dec},
      {"(12.50)", -12.5_dec},
      {"12 ", 12_dec},
      {"  -3.25", -3.25_dec},
      {"+7", 7_dec},
      {".5", 0.5_dec},
      {"5.", 5_dec},
      {"", 0_dec},
      {"   ", 0_dec},
      {" (1,000) ", -1000_dec},
      {nullptr, 0_dec},
      {"99,999,999,999,999.99", 99999999999999.99_dec},
      {"0", 0_dec},
  };
  for (const auto& row : rows) {
    for (const auto pfnForm : kForms) {
      CDecimal value(77);
      EXPECT_EQ(pfnForm(row.szText, &value), 1) << (row.szText ? row.szText : "null");
      EXPECT_EQ(value, row.value) << (row.szText ? row.szText : "null");
    }
  }
}

TEST_F(Parse, RefusesTheRestWithZeroAndTheReasonAndWithoutTheHandler) {
  static int nCalls;
  nCalls = 0;
  const CDecimal::ErrorHandler pfnHandler = [](CDecimal*, DEC_STATUS) { return ++nCalls > 0; };
  CDecimal::SetErrorHandler(pfnHandler);
  const struct {
    const char* szText;
    DEC_STATUS eReason;
  } rows[] = {
      {"$12", DEC_TRUNCATED},
      {"12-", DEC_BAD_FORMAT},
      {"1 2", DEC_TRUNCATED},
      {"(12.50", DEC_TRUNCATED},
      {"12.50)", DEC_TRUNCATED},
      {"-(12)", DEC_TRUNCATED},
      {"()", DEC_BAD_FORMAT},
      {"(", DEC_BAD_FORMAT},
      {"1.2.3", DEC_BAD_FORMAT},
      {"--5", DEC_BAD_FORMAT},
      {"(-5)", DEC_BAD_FORMAT},
      {"abc", DEC_BAD_FORMAT},
      {"1e5", DEC_TRUNCATED},
      {"0.0000000001", DEC_TEXT_UNDERFLOW},
      {"123456789012345", DEC_TEXT_OVERFLOW},
      {"99999999999999.9999999999", DEC_TEXT_OVERFLOW},
  };
  for (const auto& row : rows) {
    for (const auto pfnForm : kForms) {
      CDecimal value(77);
      EXPECT_EQ(pfnForm(row.szText, &value), 0) << row.szText;
      EXPECT_EQ(value, 0_dec) << row.szText;
      EXPECT_FALSE(value.IsNegative()) << row.szText;
      EXPECT_EQ(CDecimal::GetLastStatus(), row.eReason) << row.szText;
    }
  }
  EXPECT_EQ(nCalls, 0);
  EXPECT_EQ(CDecimal::m_pTlsData->m_pfnErrorHandler, pfnHandler);
  EXPECT_EQ(CDecimal::m_pTlsData->m_pOverflowItems, nullptr);
}

TEST_F(Parse, FollowsTheSeparatorsOfTheRegion) {
  const struct {
    Region region;
    const char* szText;
    CDecimal value;
    bool bOk;
  } rows[] = {
      {{".", ","}, "1.234,50", 1234.5_dec, true},
      {{"\xA0", ","},
       "1\xA0"
       "234,5",
       1234.5_dec,
       true},
      {{"", "."}, "1234.5", 1234.5_dec, true},
      {{"", "."}, "1,234.5", 0_dec, false},
      {{"", ","}, "1,5", 1.5_dec, true},
      {{"", ","}, "1.5", 1.5_dec, true},
      {{",", ""}, "1,234.5", 1234.5_dec, true},
      {{"", ","}, "1,2,3", 0_dec, false},
      {{",", ","}, "1,5", 15_dec, true},
  };
  for (const auto& row : rows) {
    Use(row.region);
    CDecimal value;
    EXPECT_EQ(MyStringToReal(row.szText, &value), row.bOk) << row.szText << ' ' << row.region;
    EXPECT_EQ(value, row.value) << row.szText << ' ' << row.region;
  }
}

TEST_F(Parse, ImpliesTheDecimalsOfMoneyAndOfQuantities) {
  StoreAutoDecimal(true);
  const struct {
    std::uint16_t nMoney;
    std::int16_t nReal;
    const char* szText;
    CDecimal money, quantity;
  } rows[] = {
      {2, 3, "1234", 12.34_dec, 1.234_dec},
      {2, 3, "5", 0.05_dec, 0.005_dec},
      {2, 3, "", 0_dec, 0_dec},
      {2, 3, "(1234)", -12.34_dec, -1.234_dec},
      {2, 3, "12.3", 12.3_dec, 12.3_dec},
      {2, 3, "-7", -0.07_dec, -0.007_dec},
      {2, 3, "1,2345", 123.45_dec, 12.345_dec},
      {0, 0, "12", 12_dec, 12_dec},
      {9, 9, "1", 0.000000001_dec, 0.000000001_dec},
      {2, 2, "(1.005)", -1.005_dec, -1.01_dec},
      {2, -2, "1250", 12.5_dec, 1300_dec},
  };
  for (const auto& row : rows) {
    UseMoneyDecimals(row.nMoney);
    SetRealPrecision(row.nReal);
    CDecimal value;
    EXPECT_EQ(MyStringToReal(row.szText, &value), 1) << row.szText;
    EXPECT_EQ(value, row.money) << row.szText;
    EXPECT_EQ(MyStringToQty(row.szText, &value), 1) << row.szText;
    EXPECT_EQ(value, row.quantity) << row.szText;
  }
  CDecimal value;
  EXPECT_EQ(MyStringToRealWithNoExtras("1234", &value), 1);
  EXPECT_EQ(value, 1234_dec);
  UseMoneyDecimals(0);
  EXPECT_EQ(MyStringToReal("", &value), 0);  // a point alone is no number
  UseMoneyDecimals(2);
  EXPECT_EQ(MyStringToReal("+5", &value), 0);  // the sign counts as a digit: ".+5"
  for (const int nDecimals : {44, 45, 46, 1000, 65535}) {
    CurrencyPrecision =
        static_cast<std::uint16_t>(nDecimals);  // the zeros stop where the entry is full
    EXPECT_EQ(MyStringToReal("1", &value), 0) << nDecimals;
  }
}

TEST_F(Parse, StartsAtThePositionAndLeavesItBehindWhatItRead) {
  const struct {
    std::string sText;
    std::uint16_t nStart, nEnd;
    bool bOk;
    CDecimal value;
  } rows[] = {
      {"abc12.5", 3, 7, true, 12.5_dec},
      {"12", 2, 2, true, 0_dec},
      {"12", 9, 9, true, 0_dec},
      {"1,234", 0, 5, false, 0_dec},
      {std::string(44, '0'), 0, 44, false, 0_dec},
      {std::string(43, ' ') + "7", 0, 44, true, 7_dec},
      {std::string(44, ' ') + "7", 0, 45, false, 0_dec},
      {std::string(200, '1'), 10, 55, false, 0_dec},
  };
  for (const auto& row : rows) {
    std::uint16_t nPosition = row.nStart;
    CDecimal value(77);
    unsigned char bOk = 9;
    StringToReal(row.sText.c_str(), &nPosition, &value, &bOk);
    EXPECT_EQ(nPosition, row.nEnd) << row.sText;
    EXPECT_EQ(bOk, row.bOk ? 1 : 0) << row.sText;
    EXPECT_EQ(value, row.value) << row.sText;
  }
  StringToReal("12", nullptr, nullptr, nullptr);
}

TEST_F(Parse, PutsSeparatorsIntoWholeNumbersAsFarAsThereAreBlanks) {
  const struct {
    Region region;
    const char* szText;
    const char* szResult;
  } rows[] = {
      {{",", "."}, "    1234567", "  1,234,567"},
      {{",", "."}, "1234567", "1234567"},
      {{",", "."}, " 1234567", "1234,567"},
      {{".", ","}, "  1234567", "1.234.567"},
      {{",", "."}, "???", "???"},
      {{",", "."}, "    1234?", "    1234?"},
      {{",", "."}, "   -123", "   -123"},
      {{"", "."}, "   1234567", "   1234567"},
      {{",", "."}, "", ""},
      {{",", "."}, "      12", "      12"},
  };
  for (const auto& row : rows) {
    Use(row.region);
    CFixedString<20> sText(row.szText);
    AddCommasToQtyString(sText);
    EXPECT_EQ(sText, row.szResult);
  }
  CFixedString<20> sText("1,234,567");
  Use({".", ","});
  RemoveCommasFromQtyString(sText);
  EXPECT_EQ(sText, "1234567");
  sText = "1,2?";
  RemoveCommasFromQtyString(sText);
  EXPECT_EQ(sText, "1,2?");
  char aFull[4] = {' ', '1', ',', '2'};  // has lost its terminator
  RemoveCommasFromQtyString({aFull, 4});
  AddCommasToQtyString({aFull, 4});
  PrepString4RealConv({aFull, 4});
  EXPECT_STREQ(aFull, "1");
  AddCommasToQtyString({nullptr, 0});
  PrepString4RealConv({nullptr, 0});
}

}  // namespace
}  // namespace ald
