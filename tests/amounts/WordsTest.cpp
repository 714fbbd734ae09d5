#include "aldlib/amounts/Words.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "aldlib/arith/DecimalLiteral.h"
#include "aldlib/frame/Alderlib.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

using namespace literals;

// Another way to the same words: from the largest unit down, whatever the unit is.
std::string Spelled(std::uint64_t n) {
  static const struct {
    std::uint64_t nUnit;
    const char* szName;
  } kUnits[] = {{1'000'000'000, " Billion "},
                {1'000'000, " Million "},
                {1000, " Thousand "},
                {100, " Hundred "}};
  static const std::string_view kSmall[] = {
      "",         "One",     "Two",     "Three",     "Four",     "Five",    "Six",
      "Seven",    "Eight",   "Nine",    "Ten",       "Eleven",   "Twelve",  "Thirteen",
      "Fourteen", "Fifteen", "Sixteen", "Seventeen", "Eighteen", "Nineteen"};
  static const std::string_view kTens[] = {"Twenty", "Thirty",  "Forty",  "Fifty",
                                           "Sixty",  "Seventy", "Eighty", "Ninety"};
  std::string sText;
  for (const auto& unit : kUnits) {
    if (n >= unit.nUnit) sText += Spelled(n / unit.nUnit) + unit.szName;
    n %= unit.nUnit;
  }
  if (n >= 20) {
    sText += kTens[n / 10 - 2];
    n %= 10;
    if (n > 0) sText += '-';
  }
  sText += kSmall[n];
  while (sText.ends_with(' ')) sText.pop_back();
  return sText;
}

std::string Words(const CDecimal& amount) {
  CFixedString<256> sText("old text");
  AmountToWords(amount, sText, false);
  return std::string(sText.view());
}

TEST(AmountToWords, WritesAmountsAsTheyStandOnACheque) {
  const struct {
    CDecimal amount;
    const char* szText;
  } rows[] = {
      {0_dec, "Zero and 00/100 Dollars"},
      {0.45_dec, "Zero and 45/100 Dollars"},
      {0.05_dec, "Zero and 05/100 Dollars"},
      {1_dec, "One and 00/100 Dollars"},
      {21.5_dec, "Twenty-One and 50/100 Dollars"},
      {115_dec, "One Hundred Fifteen and 00/100 Dollars"},
      {1000_dec, "One Thousand and 00/100 Dollars"},
      {1000000_dec, "One Million and 00/100 Dollars"},
      {1234.56_dec, "One Thousand Two Hundred Thirty-Four and 56/100 Dollars"},
      {1.999_dec, "One and 99/100 Dollars"},
      {-1234.56_dec, "and -56/100 Dollars"},
      {-3_dec, "and 00/100 Dollars"},
      {-0.07_dec, "Zero and -7/100 Dollars"},
      {-0.007_dec, "Zero and 00/100 Dollars"},
      {1000000000000_dec, "and 00/100 Dollars"},
      {1234567890123_dec,
       "Two Hundred Thirty-Four Billion Five Hundred Sixty-Seven Million Eight Hundred Ninety "
       "Thousand One Hundred Twenty-Three and 00/100 Dollars"},
  };
  for (const auto& row : rows) EXPECT_EQ(Words(row.amount), row.szText) << row.amount;
}

TEST(AmountToWords, SpellsEveryNumberUpToItsLastBillion) {
  std::vector<std::uint64_t> numbers;
  for (std::uint64_t n = 1; n < 2000; ++n) numbers.push_back(n);
  for (std::uint64_t nPower = 1000; nPower < 1'000'000'000'000; nPower *= 10) {
    for (const std::uint64_t n : {nPower - 1, nPower, nPower + 1, 9 * nPower, 11 * nPower + 19}) {
      if (n < 1'000'000'000'000) numbers.push_back(n);
    }
  }
  numbers.push_back(999'999'999'999);
  std::mt19937_64 random(20600);
  for (int i = 0; i < 5000; ++i) numbers.push_back(random() % 1'000'000'000'000 + 1);
  for (const std::uint64_t n : numbers) {
    if (n > 999'999'999'999) continue;
    const int nCents = static_cast<int>(n % 100);
    const std::string sExpected =
        Spelled(n) + (nCents < 10 ? " and 0" : " and ") + std::to_string(nCents) + "/100 Dollars";
    const CDecimal amount = CDecimal(n) + CDecimal(nCents) / 100;
    ASSERT_EQ(Words(amount), sExpected) << n;
    CFixedString<256> sChecked;
    ASSERT_TRUE(CheckAmountText(-amount, sChecked, false)) << n;
    ASSERT_EQ(sChecked, sExpected);
  }
}

TEST(AmountToWords, FillsTheLineOrIsCutAtItsEnd) {
  CFixedString<30> sLine;
  AmountToWords(5_dec, sLine, true);
  EXPECT_EQ(sLine, "Five and 00/100  ************");
  const std::string sWhole = Words(23.45_dec);
  for (int nSize = 0; nSize < 45; ++nSize) {
    std::vector<char> buffer(static_cast<std::size_t>(nSize) + 1, '#');
    const CFixedStringParamRef out(buffer.data(), nSize);
    AmountToWords(23.45_dec, out, false);
    EXPECT_EQ(buffer.back(), '#');
    EXPECT_EQ(out.view(), std::string_view(sWhole).substr(
                              0, nSize > 0 ? static_cast<std::size_t>(nSize) - 1 : 0));
  }
}

TEST(AmountToWords, TakesItsWordsFromTheModuleThatHasThem) {
  FakePlatform platform;
  platform.AddModule({{20601, "Ein"},
                      {20630, "und"},
                      {20631, "Thaler und mehr"},
                      {20633, "Hundert"},
                      {20637, "/C"}},
                     1);
  EXPECT_EQ(Words(101_dec), "Ein Hundert Ein und 00/C Thaler und");  // ten characters a word
  CFixedString<80> sText;
  EXPECT_TRUE(CheckAmountText(101_dec, sText, false));
  auto* const pRecord = std::exchange(MyAlderLibDataPtr, nullptr);  // no module has a word
  EXPECT_EQ(Words(101_dec).find_first_not_of(" 0"), std::string::npos);
  EXPECT_FALSE(CheckAmountText(101_dec, sText, false));
  EXPECT_EQ(sText, std::string(79, '?'));
  MyAlderLibDataPtr = pRecord;
}

TEST(CheckAmountText, RoundsToTheCentAndDropsTheSign) {
  const struct {
    CDecimal amount;
    const char* szText;
  } rows[] = {
      {1.999_dec, "Two and 00/100 Dollars"}, {1.994_dec, "One and 99/100 Dollars"},
      {0.995_dec, "One and 00/100 Dollars"}, {-0.005_dec, "Zero and 01/100 Dollars"},
      {-3_dec, "Three and 00/100 Dollars"},
  };
  CFixedString<80> sText;
  for (const auto& row : rows) {
    EXPECT_TRUE(CheckAmountText(row.amount, sText, false)) << row.amount;
    EXPECT_EQ(sText, row.szText);
  }
  CFixedString<30> sLine;
  EXPECT_TRUE(CheckAmountText(-4.996_dec, sLine, true));
  EXPECT_EQ(sLine, "Five and 00/100  ************");
}

TEST(CheckAmountText, VoidsWhatItCannotWriteInFull) {
  CDecimal pastTheLimit(CDecimal::ms_nMaxValue);
  pastTheLimit = pastTheLimit + 1;
  CFixedString<256> sText;
  for (const CDecimal& amount : {1000000000000_dec, 999999999999.995_dec, -1000000000000_dec,
                                 CDecimal(CDecimal::ms_nMinValue), pastTheLimit}) {
    EXPECT_FALSE(CheckAmountText(amount, sText, false)) << amount;
    EXPECT_EQ(sText, "Void") << amount;
  }
  CFixedString<20> sLine;
  EXPECT_FALSE(CheckAmountText(1000000000000_dec, sLine, true));
  EXPECT_EQ(sLine, "Void  *************");
  const std::string sWhole = "Twenty-Three and 45/100 Dollars";
  for (int nSize = 1; nSize < 40; ++nSize) {
    for (const bool bFill : {false, true}) {
      std::vector<char> buffer(static_cast<std::size_t>(nSize), '#');
      const CFixedStringParamRef out(buffer.data(), nSize);
      const bool bWritten = CheckAmountText(23.45_dec, out, bFill);
      const std::string sWanted = bFill ? sWhole.substr(0, sWhole.find(" Dollars")) : sWhole;
      EXPECT_EQ(bWritten, nSize > static_cast<int>(sWanted.size())) << nSize;
      EXPECT_TRUE(out.view().starts_with(bWritten ? sWanted : nSize > 4 ? "Void" : "")) << nSize;
      EXPECT_TRUE(nSize > 4 || out.view() == std::string(static_cast<std::size_t>(nSize) - 1, '?'));
    }
  }
}

}  // namespace
}  // namespace ald
