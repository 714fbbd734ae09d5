#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <string>

#include "aldlib/arith/FixedDecimal.h"
#include "tests/arith/Twins.h"

// Canonical text, in and out.
namespace ald::test {

namespace {

struct DecimalText : DecimalTest {};

}  // namespace

TEST_F(DecimalText, ReadsAsFarAsItGoesAndSaysWhatItMadeOfIt) {
  const struct {
    const char* szText;
    const char* szValue;
    DEC_STATUS eStatus;
  } rows[] = {
      {nullptr, "0", DEC_EMPTY},
      {"", "0", DEC_EMPTY},
      {"   ", "0", DEC_EMPTY},
      {"-", "0", DEC_BAD_FORMAT},
      {".", "0", DEC_BAD_FORMAT},
      {"abc", "0", DEC_BAD_FORMAT},
      {"12.50", "12.5", DEC_OK},
      {"\t\n\v\f\r 12", "12", DEC_OK},
      {".5", "0.5", DEC_OK},
      {"5.", "5", DEC_OK},
      {"+5", "5", DEC_OK},
      {"-0", "0", DEC_OK},
      {"-.5", "-0.5", DEC_OK},
      {"12 ", "12", DEC_TRUNCATED},
      {"1,234", "1", DEC_TRUNCATED},
      {"abc1", "0", DEC_TRUNCATED},
      {"- 1", "0", DEC_TRUNCATED},
      {"1x-", "1", DEC_TRUNCATED},
      {"5-", "0", DEC_BAD_FORMAT},
      {"--5", "0", DEC_BAD_FORMAT},
      {"-+5", "0", DEC_BAD_FORMAT},
      {"1.2.3", "0", DEC_BAD_FORMAT},
      {"0.0000000004", "0", DEC_TEXT_UNDERFLOW},
      {"0.0000000005", "0.000000001", DEC_OK},
      {"0.00000000049", "0", DEC_TEXT_UNDERFLOW},
      {"0.0000000000000x", "0", DEC_TRUNCATED},
      {"0.0000000001x", "0", DEC_TEXT_UNDERFLOW},
      {"99999999999999.9999999994", "99999999999999.999999999", DEC_OK},
      {"99999999999999.9999999995", "100000000000000", DEC_TEXT_OVERFLOW},
      {"000000000000012", "12", DEC_TEXT_OVERFLOW},
      {"000000000000000.0000000001", "0", DEC_TEXT_UNDERFLOW},
      {"100000000000000", "100000000000000", DEC_TEXT_OVERFLOW},
      {"-123456789012345678.5", "-123456789012345678.5", DEC_TEXT_OVERFLOW},
  };
  for (const auto& row : rows) {
    CDecimal value(7);
    value.fromRawString(row.szText);
    EXPECT_EQ(CDecimal::GetLastStatus(), row.eStatus) << "reading " << row.szValue;
    EXPECT_STREQ(value.toExactString(), row.szValue);
  }
}

// Texts put together at random from what matters to the rules.
TEST_F(DecimalText, ReadsAsThePlainRulesDo) {
  constexpr const char* kPieces[] = {"0", "9", "5", "00000000", "12345678", "99999999999999",
                                     ".", "-", "+", " ",        "x",        ".00000000"};
  Random random(20233);
  Twin twin;
  for (int i = 0; i < Rounds(20'000); ++i) {
    if (i % 64 == 0) SetHandlers(static_cast<Handler>(Below(random, 4)));
    std::string sText = i % 2 == 0 ? "-" : "";
    for (int n = Below(random, i % 100 == 0 ? 40 : 7); n > 0; --n) {
      sText += kPieces[Below(random, std::size(kPieces))];
    }
    if (i % 4 != 0) Load(twin, reference::Decimal());
    twin.real.fromRawString(sText.c_str());
    twin.plain.fromRawString(sText);
    ASSERT_TRUE(Agree({&twin})) << "\"" << sText << "\"";
  }
}

// The byte behind the terminator belongs to a page that cannot be read.
TEST_F(DecimalText, ReadsNothingBehindTheEndOfAText) {
  const auto nPage = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  void* pPages =
      mmap(nullptr, 2 * nPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(pPages, MAP_FAILED);
  char* szEnd = static_cast<char*>(pPages) + nPage;
  ASSERT_EQ(mprotect(szEnd, nPage, PROT_NONE), 0);
  for (std::string sText = "12345678901234.123456789"; !sText.empty(); sText.erase(0, 1)) {
    for (std::size_t nLength = 0; nLength <= sText.size(); ++nLength) {
      const std::string sPart = sText.substr(0, nLength);
      char* szText = szEnd - nLength - 1;
      std::copy_n(sPart.c_str(), nLength + 1, szText);
      EXPECT_EQ(CDecimal(szText), CDecimal((sPart + std::string(32, '\0')).c_str())) << sPart;
    }
  }
  munmap(pPages, 2 * nPage);
}

TEST_F(DecimalText, PrintsWithTheDecimalsAskedFor) {
  const struct {
    const char* szValue;
    int nDecimals;
    const char* szText;
  } rows[] = {
      {"1", 2, "1.00"},
      {"-1.005", 2, "-1.01"},
      {"0.4", 0, "0"},
      {"-0.4", 0, "0"},
      {"0.5", 0, "1"},
      {"1250", -2, "1300"},
      {"-1250", -3, "-1000"},
      {"1250", -14, "0"},
      {"99999999999999.999999999", 2, "100000000000000.00"},
      {"99999999999999", -13, "100000000000000"},
      {"1234567890123456", 3, "1234567890123456.000"},
      {"1.5", 12, "1.500000000000"},
      {"-1.5", 1000, "-1.500000000000000000000000000000000000000000"},
      {"12345678901234567890123456789012345678", 9,
       "12345678901234567890123456789012345678.000000"},
  };
  for (const auto& row : rows) {
    EXPECT_STREQ(CDecimal(row.szValue).toRawString(row.nDecimals), row.szText) << row.szValue;
  }
}

TEST_F(DecimalText, ReadsBackWhatItPrinted) {
  Random random(20234);
  for (int i = 0; i < Rounds(10'000); ++i) {
    Twin twin;
    Load(twin, RandomDecimal(random));
    if (i % 4 == 0) Load(twin, reference::Integer(5, RandomInteger(random, 4).Value() / 1000));
    if (twin.real.toMathType().IsZero()) continue;
    const CDecimal read(twin.real.toRawString(9));
    ASSERT_EQ(read, twin.real) << Show(twin.real);
    ASSERT_EQ(read.GetBytes(), twin.real.GetBytes()) << Show(twin.real);
  }
}

}  // namespace ald::test
