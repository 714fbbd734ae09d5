#include "aldlib/amounts/Format.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "aldlib/amounts/Parse.h"
#include "aldlib/arith/DecimalLiteral.h"
#include "tests/amounts/RegionFixture.h"

namespace ald {
namespace {

using namespace literals;

// A buffer of any size with sentinels on both sides, full of old text.
class Buffer {
 public:
  explicit Buffer(int nSize) : m_bytes(static_cast<std::size_t>(nSize) + 2, '#') {}
  CFixedStringParamRef Ref() {
    return {m_bytes.data() + 1, static_cast<std::int32_t>(m_bytes.size()) - 2};
  }
  std::string Text() { return std::string(Ref().view()); }
  bool IsSound() {
    return m_bytes.front() == '#' && m_bytes.back() == '#' &&
           (m_bytes.size() == 2 || m_bytes[m_bytes.size() - 2] == '\0');
  }

 private:
  std::vector<char> m_bytes;
};

bool IsQuestionMarks(const std::string& sText) {
  return sText.find_first_not_of('?') == std::string::npos;
}

std::string Trimmed(const std::string& sText) {
  const std::size_t nFirst = sText.find_first_not_of(' ');
  return nFirst == std::string::npos ? "" : sText.substr(nFirst);
}

// The plain way: digits and a separator before every third one from the right.
std::string Grouped(const CDecimal& value, int nDecimals, char cSeparator, char cPoint) {
  std::string sText(value.toRawString(nDecimals).view());
  const std::size_t nPoint = sText.find('.');
  if (nPoint == std::string::npos) return sText;
  sText[nPoint] = cPoint;
  const std::size_t nFirst = value.IsNegative() ? 1 : 0;
  for (std::size_t i = nPoint; i > nFirst + 3 && cSeparator != '\0';) {
    i -= 3;
    sText.insert(i, 1, cSeparator);
  }
  return sText;
}

// Of any size below 1,000,000,000, with up to that many decimals.
CDecimal RandomAmount(std::mt19937_64& random, int nDecimals) {
  const auto below = [&random](unsigned nDigits) {
    std::uint64_t nRange = 1;
    for (; nDigits > 0; --nDigits) nRange *= 10;
    return CDecimal(random() % nRange);
  };
  CDecimal value = below(static_cast<unsigned>(random() % 10));
  value += below(static_cast<unsigned>(nDecimals)).ShiftByPower10(-nDecimals);
  return random() % 2 == 0 ? value : -value;
}

class Format : public WithRegion {};

TEST_F(Format, WritesFieldsOfTheAskedWidth) {
  const struct {
    CDecimal value;
    std::uint16_t nDecimals, nWidth;
    const char* szText;
  } rows[] = {
      {1234.5_dec, 2, 12, "    1,234.50"},
      {1234.5_dec, 0, 8, "    1235"},
      {-1234.5_dec, 0, 8, "   -1235"},
      {999999999.99_dec, 2, 16, "  999,999,999.99"},
      {1000000000_dec, 2, 16, "???????????????????"},
      {-1000000000_dec, 0, 16, "???????????????????"},
      {1_dec, 2, 20, "???????????????????"},
      {1234567.891_dec, 2, 14, "  1,234,567.89"},
      {1234567.891_dec, 2, 11, "1234,567.89"},
      {1234567.891_dec, 2, 10, "1234567.89"},
      {1234567.891_dec, 2, 3, "1234567.89"},
      {-123.45_dec, 2, 10, "   -123.45"},
      {-1234.5_dec, 2, 10, " -1,234.50"},
      {0_dec, 2, 0, "0.00"},
      {12.5_dec, 12, 19, "    12.500000000000"},
      {99999999999999_dec, 2, 16, "???????????????????"},
  };
  for (const auto& row : rows) {
    CFixedString<20> sField("old text");
    MyRealToString(row.value, sField, row.nDecimals, row.nWidth);
    EXPECT_EQ(sField, row.szText) << row.nWidth;
    CFixedString<20> sQuantity;
    MyQtyToString(row.value, sQuantity, row.nDecimals, row.nWidth);
    EXPECT_EQ(sQuantity, sField);
  }
}

TEST_F(Format, WritesMoneyWithTheSignOfTheFormat) {
  const struct {
    CDecimal value;
    const char* szMinus;
    const char* szParentheses;
    const char* szNoSign;
  } rows[] = {
      {-1234.56_dec, "-1,234.56", "(1,234.56)", "1,234.56"},
      {1234.56_dec, "1,234.56", "1,234.56", "1,234.56"},
      {0.004_dec, "0.00", "0.00", "0.00"},
      {-0.004_dec, "0.00", "0.00", "0.00"},
      {-0.005_dec, "-0.01", "(0.01)", "0.01"},
      {0_dec, "0.00", "0.00", "0.00"},
      {-100_dec, "-100.00", "(100.00)", "100.00"},
      {-999999999.99_dec, "-999,999,999.99", "(999,999,999.99)", "999,999,999.99"},
  };
  for (const auto& row : rows) {
    CFixedString<30> sText;
    const auto written = [&sText](const CDecimal& value, unsigned char bNegate, char cFormat) {
      DollarsToString(value, sText, bNegate, cFormat);
      return sText;
    };
    EXPECT_EQ(written(row.value, 0, '-'), row.szMinus);
    EXPECT_EQ(written(row.value, 0, 'x'), row.szMinus);
    EXPECT_EQ(written(row.value, 0, '('), row.szParentheses);
    EXPECT_EQ(written(row.value, 0, ' '), row.szNoSign);
    EXPECT_EQ(written(-row.value, 1, '-'), row.szMinus);
    EXPECT_EQ(written(-row.value, 1, '('), row.szParentheses);
    EXPECT_EQ(row.value.FormatDollars('('), row.szParentheses);
  }
}

TEST_F(Format, HasMembersForTextOfTheWidestField) {
  EXPECT_EQ(Trimmed((1234.5678_dec).FormatReal(3).operator char*()), "1,234.568");
  SetRealPrecision(1);
  const auto sText = (-1234.56_dec).FormatQty(-1);
  EXPECT_EQ(sText.view().size(), 45U);
  EXPECT_EQ(Trimmed(std::string(sText.view())), "-1,234.6");
  EXPECT_EQ((1000000000_dec).FormatReal(2), std::string(45, '?'));
}

TEST_F(Format, GivesUpSeparatorsOneAtATimeBeforeItWritesANumberOff) {
  const char* const aszTexts[] = {
      "",        "?",        "??",        "???",        "????",        "?????",       "??????",
      "???????", "????????", "?????????", "1234567.89", "1234,567.89", "1,234,567.89"};
  for (int nWidth = 0; nWidth <= 12; ++nWidth) {
    CFixedString<21> sText("Total ");
    AppendRtoString(sText, 1234567.89_dec, nWidth, ' ');
    const std::string sExpected = aszTexts[nWidth];
    EXPECT_EQ(sText, "Total " + std::string(14 - sExpected.size(), ' ') + sExpected);
    sText.Clear();
    AppendRtoStringNoComma(sText, -1234567.89_dec, nWidth);
    EXPECT_EQ(Trimmed(std::string(sText.view())),
              nWidth >= 11 ? "-1234567.89" : std::string(static_cast<std::size_t>(nWidth), '?'));
  }
}

TEST_F(Format, TakesTheRoomThatIsLeftForTheWidth) {
  CFixedString<14> sText("Total ");
  AppendRtoString(sText, 1234.5_dec, 20, '-');
  EXPECT_EQ(sText, "Total 1234.50");
  sText = "Totals ";
  AppendRtoString(sText, 1234.5_dec, 20, '-');
  EXPECT_EQ(sText, "Totals ??????");
  sText = "Totals ";
  AppendRtoStringNoComma(sText, 1234.5_dec, 20);
  EXPECT_EQ(sText, "Totals ??????");
}

// Every amount in every buffer: the whole number or question marks, whatever the region is.
TEST_F(Format, NeverCutsANumber) {
  std::mt19937_64 random(5201);
  for (int nRound = 0; nRound < 400; ++nRound) {
    const Region& region = kRegions[random() % std::size(kRegions)];
    Use(region);
    UseMoneyDecimals(static_cast<std::uint16_t>(random() % 5));
    const CDecimal value = RandomAmount(random, CurrencyPrecision);
    const char cPoint = region.szPoint[0] == '\0' ? '.' : region.szPoint[0];
    const std::string sFull = Grouped(value, CurrencyPrecision, region.szComma[0], cPoint);
    const auto withoutSeparators = [&region](std::string sText) {
      if (region.szComma[0] != '\0') std::erase(sText, region.szComma[0]);
      return Trimmed(sText);
    };
    const std::string sPlain = withoutSeparators(sFull);
    for (int nSize = 0; nSize <= 30; ++nSize) {
      const int nWidth = static_cast<int>(random() % 30);
      SCOPED_TRACE(testing::Message() << value << ' ' << region << ' ' << nSize << ' ' << nWidth);
      Buffer field(nSize);
      MyRealToString(value, field.Ref(), CurrencyPrecision, static_cast<std::uint16_t>(nWidth));
      ASSERT_TRUE(field.IsSound());
      if (std::max(nWidth, static_cast<int>(sPlain.size())) >= nSize) {
        ASSERT_EQ(field.Text(), std::string(static_cast<std::size_t>(std::max(nSize - 1, 0)), '?'));
      } else {
        ASSERT_EQ(field.Text().size(), std::max(static_cast<std::size_t>(nWidth), sPlain.size()));
        ASSERT_EQ(withoutSeparators(field.Text()), sPlain);
      }
      for (const char cFormat : {'-', '('}) {
        Buffer money(nSize);
        DollarsToString(value, money.Ref(), 0, cFormat);
        ASSERT_TRUE(money.IsSound());
        std::string sText = withoutSeparators(money.Text());
        if (sText.find_first_of("0123456789") == std::string::npos) {
          ASSERT_TRUE(IsQuestionMarks(sText.substr(sText.starts_with('(') ? 1 : 0))) << sText;
          ASSERT_LE(nSize, static_cast<int>(sPlain.size()) + 2) << sText;
        } else {
          if (cFormat == '(' && value.IsNegative()) {
            ASSERT_EQ(sText.back(), ')') << sText;
            std::erase_if(sText, [](char c) { return c == '(' || c == ')'; });
            sText.insert(0, 1, '-');
          }
          ASSERT_EQ(sText, sPlain);
          ASSERT_TRUE(nSize < 26 || cFormat == '(' || money.Text() == sFull) << money.Text();
        }
        Buffer line(nSize);
        line.Ref().Clear();
        AppendRtoString(line.Ref(), value, 13, cFormat);
        ASSERT_TRUE(line.IsSound());
        const std::string sLine = Trimmed(line.Text());
        const std::string sWanted(value.FormatDollars(cFormat).view());
        ASSERT_TRUE(IsQuestionMarks(sLine) ||
                    withoutSeparators(sLine) == withoutSeparators(sWanted))
            << sLine;
      }
    }
  }
}

TEST_F(Format, WritesWhatTheParserReadsBack) {
  std::mt19937_64 random(77);
  for (int nRound = 0; nRound < 20000; ++nRound) {
    const Region& region = kRegions[random() % std::size(kRegions)];
    Use(region);
    UseMoneyDecimals(static_cast<std::uint16_t>(random() % 5));
    SetRealPrecision(static_cast<std::int16_t>(random() % 10));
    StoreAutoDecimal(random() % 2 == 0 && CurrencyPrecision > 0 && GetRealPrecision() > 0);
    CDecimal value;
    const CDecimal money = RandomAmount(random, CurrencyPrecision);
    for (const char cFormat : {'-', '('}) {
      const auto sText = money.FormatDollars(cFormat);
      ASSERT_EQ(MyStringToReal(sText, &value), 1) << sText << ' ' << region;
      ASSERT_EQ(value, money) << sText << ' ' << region;
    }
    const CDecimal quantity = RandomAmount(random, GetRealPrecision());
    const auto sText = quantity.FormatQty(-1);
    ASSERT_EQ(MyStringToQty(sText, &value), 1) << sText << ' ' << region;
    ASSERT_EQ(value, quantity) << sText << ' ' << region;
  }
}

TEST_F(Format, PlacesRawNumbersOneBehindTheOther) {
  Use({".", ","});
  CFixedString<20> sLine("ab");
  int nPosition = 2;
  unsigned char bOk = 0;
  RealToStringFixed(1234.5_dec, 6, 4, sLine, &nPosition, &bOk);
  EXPECT_EQ(bOk, 1);
  EXPECT_EQ(sLine, "ab 1234.50");
  EXPECT_EQ(nPosition, 10);
  RealToStringFixed(-7_dec, 0, 0, sLine, &nPosition, &bOk);
  EXPECT_EQ(sLine, "ab 1234.50-7");
  RealToStringFixed(12345678_dec, 0, 0, sLine, &nPosition, &bOk);
  EXPECT_EQ(bOk, 0);
  EXPECT_EQ(sLine, "ab 1234.50-7???????");
  EXPECT_EQ(nPosition, 19);
  for (const int nOutside : {-5, 19, 20, 2147483647}) {
    nPosition = nOutside;
    RealToStringFixed(12345678901_dec, 2147483647, -2147483647, sLine, &nPosition, &bOk);
    EXPECT_EQ(bOk, 0);
    EXPECT_EQ(nPosition, std::max(nOutside, 19));
  }
  RealToStringFixed(1_dec, 0, 0, {nullptr, 0}, nullptr, nullptr);
  AppendRtoString({nullptr, 0}, 1_dec, 5, '-');
  AppendRtoStringNoComma({nullptr, 0}, 1_dec, 5);
  DollarsToString(-1_dec, {nullptr, 0}, 0, '(');
}

TEST_F(Format, WritesNumbersWithoutSeparatorsAndSaysWhetherTheyFit) {
  Use({".", ","});
  CFixedString<9> sText;
  CDecimal value = 12345.678_dec;
  EXPECT_EQ(MyDoubleToStringNoCommas(&value, sText, 2), 1);
  EXPECT_EQ(sText, "12345,68");
  EXPECT_EQ(MyDoubleToStringNoCommas(&value, sText, 3), 0);
  EXPECT_EQ(sText, "????????");
  EXPECT_EQ(MyDoubleToStringNoCommas(&value, sText, -2), 1);
  EXPECT_EQ(sText, "12300");
  EXPECT_EQ(MyDoubleToStringNoCommas(nullptr, sText, 2), 0);
}

TEST_F(Format, ShowsQuestionMarksForAValuePastTheLimitsAndTellsNobody) {
  CDecimal::SetErrorHandler(nullptr);
  CDecimal value(CDecimal::ms_nMinValue);
  value -= 1;
  static int nCalls;
  nCalls = 0;
  CDecimal::SetErrorHandler([](CDecimal*, DEC_STATUS) { return ++nCalls > 0; });
  for (const char cFormat : {'-', ' '})
    EXPECT_TRUE(IsQuestionMarks(value.FormatDollars(cFormat).operator char*()));
  EXPECT_EQ(value.FormatDollars('('), "(" + std::string(44, '?'));
  EXPECT_TRUE(IsQuestionMarks(value.FormatReal(2).operator char*()));
  EXPECT_EQ(nCalls, 0);
}

}  // namespace
}  // namespace ald
