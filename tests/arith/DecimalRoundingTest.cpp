#include <gtest/gtest.h>

#include "aldlib/arith/FixedDecimal.h"
#include "tests/arith/Twins.h"

// Rounding is half away from zero, everywhere; scaling by powers of ten moves digits.
namespace ald::test {

namespace {

struct DecimalRounding : DecimalTest {};

}  // namespace

TEST_F(DecimalRounding, IsHalfAwayFromZeroOfTheExactValue) {
  Random random(20236);
  for (int i = 0; i < Rounds(20'000); ++i) {
    Twin twin;
    Load(twin, RandomDecimal(random));
    if (i % 16 == 0) Load(twin, reference::Integer(5, RandomInteger(random, 4).Value()));
    const int nDecimals = Below(random, 26) - 15;
    const mpz_class math = twin.plain.toMathType().Value();
    const mpz_class unit = nDecimals < 9 ? reference::Power(9 - nDecimals) : mpz_class(1);
    const mpz_class rounded = sgn(math) * ((2 * abs(math) + unit) / (2 * unit)) * unit;
    twin.real.Round(nDecimals);
    ASSERT_EQ(ToReference(twin.real.toMathType()).Value(),
              nDecimals <= -14 ? mpz_class(0) : rounded)
        << Show(twin.real) << " to " << nDecimals;
  }
}

TEST_F(DecimalRounding, SaysWhenAnAmountLeavesTheRange) {
  CDecimal value("5000000000000");
  EXPECT_EQ(value.Round(-13), CDecimal("10000000000000"));
  value.Round(-14);
  EXPECT_EQ(value, CDecimal::ms_Zero);
  value = CDecimal::ms_nMinValue;
  value.Round(0);
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OVERFLOW);
  EXPECT_STREQ(value.toRawString(0), "-100000000000000");
}

TEST_F(DecimalRounding, MovesDigitsByPowersOfTen) {
  const struct {
    const char* szValue;
    int n;
    const char* szResult;
    DEC_STATUS eStatus;
  } rows[] = {
      {"1.5", 0, "1.5", DEC_OK},
      {"1.5", 13, "15000000000000", DEC_OK},
      {"1.5", 14, "1.5", DEC_OVERFLOW},
      {"0.000000001", 22, "10000000000000", DEC_OK},
      {"0.000000001", 23, "0.000000001", DEC_OVERFLOW},
      {"0", 1000, "0", DEC_OK},
      {"0", -1000, "0", DEC_OK},
      {"-0.000000015", -1, "-0.000000002", DEC_OK},
      {"0.000000014", -1, "0.000000001", DEC_OK},
      {"-0.000000004", -1, "-0", DEC_UNDERFLOW},
      {"50000000000000", -23, "0", DEC_UNDERFLOW},
      {"50000000000000", -22, "0.000000005", DEC_OK},
      {"5", INT_MIN, "0", DEC_UNDERFLOW},
  };
  for (const auto& row : rows) {
    CDecimal value(row.szValue);
    value.ShiftByPower10(row.n);
    EXPECT_EQ(CDecimal::GetLastStatus(), row.eStatus) << row.szValue << " by " << row.n;
    EXPECT_STREQ(value.toExactString(), row.szResult) << row.szValue << " by " << row.n;
  }
}

TEST_F(DecimalRounding, KnowsThePowersOfTen) {
  for (int n = -9; n <= 13; ++n) {
    const CDecimal power = CDecimal::pow10(n);
    EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OK);
    EXPECT_EQ(power.FindPower10(), n);
    EXPECT_EQ((-power).FindPower10(), n);
    EXPECT_EQ(power.toMathType(), CDecimal::ms_anMathPowersOf10[static_cast<std::size_t>(n + 9)]);
    EXPECT_EQ(CDecimal::pow(CDecimal::ms_Ten, n), power);
    for (int m = -9; m < n; ++m) {
      const CDecimal sum = power + CDecimal::pow10(m);
      EXPECT_EQ(sum.FindPower10(), CDecimal::kNoPower) << sum;
    }
  }
  for (const char* szText : {"0", "20", "0.000000009", "80000000000000"}) {
    EXPECT_EQ(CDecimal(szText).FindPower10(), CDecimal::kNoPower) << szText;
  }
  EXPECT_EQ(CDecimal::pow10(-10), CDecimal::ms_Zero);
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_UNDERFLOW);
  for (const auto& [n, nPower] : {std::pair(14, 23U), {37, 46U}, {38, 46U}, {INT_MAX, 46U}}) {
    const CDecimal past = CDecimal::pow10(n);
    EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OVERFLOW);
    EXPECT_EQ(past.GetBytes(), CDecimal::ms_nMaxValue.GetBytes());
    EXPECT_EQ(past.toMathType(), CDecimal::ms_anMathPowersOf10[nPower]) << n;
  }
}

TEST_F(DecimalRounding, MultipliesStepByStepInPow) {
  SetHandlers(Handler::kRefuse);
  for (const char* szBase : {"1.1", "-1.000000001", "0.3", "2", "0", "-1", "987654.321"}) {
    const CDecimal base(szBase);
    CDecimal product(1);
    for (int n = 0; n < 12; ++n, product = product * base) {
      EXPECT_EQ(CDecimal::pow(base, n), product) << szBase << " to " << n;
      EXPECT_EQ(CDecimal::pow(base, -n), CDecimal::ms_One / product) << szBase << " to " << -n;
    }
  }
  EXPECT_EQ(CDecimal::pow(CDecimal("0.5"), INT_MAX), CDecimal::ms_Smallest);
  EXPECT_EQ(CDecimal::GetLastStatus(), DEC_OK);
}

TEST_F(DecimalRounding, SplitsAndFloors) {
  const struct {
    const char *szValue, *szWhole, *szFraction, *szFloor;
  } rows[] = {
      {"1.5", "1", "0.5", "1"}, {"-1.5", "-1", "-0.5", "-2"}, {"-0.5", "0", "-0.5", "-1"},
      {"-1", "-1", "0", "-1"},  {"0", "0", "0", "0"},
  };
  for (const auto& row : rows) {
    const CDecimal value(row.szValue);
    CDecimal whole;
    CDecimal fraction;
    value.Split(whole, fraction);
    EXPECT_STREQ(whole.toExactString(), row.szWhole) << row.szValue;
    EXPECT_STREQ(fraction.toExactString(), row.szFraction) << row.szValue;
    EXPECT_STREQ(Floor(value).toExactString(), row.szFloor) << row.szValue;
  }
}

}  // namespace ald::test
