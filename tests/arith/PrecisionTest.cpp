#include "aldlib/arith/Precision.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>

#include "aldlib/arith/CentRounding.h"
#include "aldlib/arith/DecimalLiteral.h"

namespace ald {
namespace {

using namespace literals;

class Precision : public testing::Test {
 protected:
  ~Precision() override {
    CurrencyPrecision = 2;
    UpdateCentRounding();
    SetRealPrecision(2);
    StoreAutoDecimal(false);
    CDecimal::SetErrorHandler(&CDecimal::DefaultErrorHandler);
  }
};

TEST_F(Precision, MakesUnitAndHalfCentFollowTheDecimalsOfMoney) {
  EXPECT_EQ(CDecimal::ms_HalfCent, 0.005_dec);
  for (std::uint16_t nDecimals = 0; nDecimals <= 8; ++nDecimals) {
    CurrencyPrecision = nDecimals;
    UpdateCentRounding();
    CDecimal unit(1);
    for (int i = 0; i < nDecimals; ++i) unit *= 10;
    EXPECT_EQ(g_decCurrencyUnit, unit);
    EXPECT_EQ(CDecimal::ms_HalfCent * 2 * unit, 1_dec) << nDecimals;
    EXPECT_EQ(GetCurrencyPrecision(), nDecimals);
  }
}

TEST_F(Precision, GivesTheFormerDecimalsBackAndTakesAnyNumber) {
  EXPECT_EQ(SetRealPrecision(-3), 2);
  EXPECT_EQ(SetRealPrecision(32767), -3);
  EXPECT_EQ(GetRealPrecision(), 32767);
}

TEST_F(Precision, CountsOnlyWhatIsStrictlyBelowTheCutoffAsZero) {
  EXPECT_TRUE(IsEffectivelyZero(0.000004999_dec));
  EXPECT_TRUE(IsEffectivelyZero(-0.000004999_dec));
  EXPECT_FALSE(IsEffectivelyZero(0.000005_dec));
  EXPECT_FALSE(IsEffectivelyZero(-0.000005_dec));
}

TEST_F(Precision, HandlesFailuresByTheirStatus) {
  const struct {
    DEC_STATUS eStatus;
    CDecimal before, after;
    bool bHandled;
  } rows[] = {
      {DEC_OVERFLOW, 5_dec, CDecimal::ms_nMaxValue, true},
      {DEC_TEXT_OVERFLOW, -5_dec, CDecimal::ms_nMinValue, true},
      {DEC_UNDERFLOW, 5_dec, 0_dec, true},
      {DEC_TEXT_UNDERFLOW, 5_dec, 0_dec, true},
      {DEC_DIVIDE_BY_ZERO, 5_dec, 5_dec, true},
      {DEC_BAD_FORMAT, 5_dec, 5_dec, true},
      {DEC_EMPTY, 5_dec, 5_dec, true},
      {DEC_OK, 5_dec, 5_dec, false},
      {DEC_TRUNCATED, 5_dec, 5_dec, false},
      {static_cast<DEC_STATUS>(-7), 5_dec, 5_dec, false},
  };
  for (const auto& row : rows) {
    CDecimal value(row.before);
    EXPECT_EQ(IntlErrorHandler(&value, row.eStatus), row.bHandled) << StatusName(row.eStatus);
    EXPECT_EQ(value, row.after) << StatusName(row.eStatus);
  }
  EXPECT_FALSE(IntlErrorHandler(nullptr, DEC_OVERFLOW));
}

TEST_F(Precision, ShowsTheLimitAndKeepsTheExactSumUnderItsHandler) {
  CDecimal::SetErrorHandler(&IntlErrorHandler);
  CDecimal balance(CDecimal::ms_nMaxValue);
  balance = balance + 5;
  EXPECT_EQ(balance.toRawString(9), "100000000000004.999999999");
  balance -= 5;
  EXPECT_EQ(balance, CDecimal::ms_nMaxValue);
}

TEST(RoundToCent, GivesTheNextAmountThatEndsInTheCents) {
  const struct {
    CDecimal value, cents, result;
  } rows[] = {
      {12.34_dec, 0.99_dec, 12.99_dec},    {12.99_dec, 0.99_dec, 12.99_dec},
      {12.995_dec, 0.99_dec, 13.99_dec},   {12.990004_dec, 0.99_dec, 12.99_dec},
      {12.99001_dec, 0.99_dec, 13.99_dec}, {0.000004_dec, 0.99_dec, 0.99_dec},
      {0.000005_dec, 0.99_dec, 0.99_dec},  {5_dec, 0_dec, 5_dec},
      {-12.34_dec, 0.99_dec, -11.99_dec},  {-12.99_dec, 0.99_dec, -12.99_dec},
      {-12.995_dec, 0.99_dec, -12.99_dec},
  };
  for (const auto& row : rows)
    EXPECT_EQ(RoundToCent(row.value, row.cents), row.result) << row.value;
}

TEST(RoundToCent, IsTheLowestAmountWithThoseCentsThatIsNotBelowTheValue) {
  for (int nValue = -500; nValue <= 500; ++nValue) {
    for (int nCents = 0; nCents < 100; nCents += 7) {
      const CDecimal value = CDecimal(nValue) / 100;
      const CDecimal result = RoundToCent(value, CDecimal(nCents) / 100);
      EXPECT_GE(result, value);
      // Below zero the cents count away from zero: -1.99 ends in 99.
      int nBest = nValue;
      while (std::abs(nBest) % 100 != nCents) ++nBest;
      // A way up that crosses zero ends in the complement of the cents, -0.50 in 0.01 for 0.99.
      if (nValue < 0 && nBest >= 0) nBest = nCents == 0 ? 0 : 100 - nCents;
      EXPECT_EQ(result, CDecimal(nBest) / 100) << value << " to " << nCents;
    }
  }
}

TEST(Ceiling, IsTheNegatedFloorOfTheNegated) {
  for (const CDecimal& value :
       {0_dec, 3_dec, 3.000000001_dec, 3.5_dec, 0.2_dec, 99999999999998.1_dec}) {
    EXPECT_EQ(Ceiling(value), -Floor(-value)) << value;
    EXPECT_EQ(Ceiling(-value), -Floor(value)) << value;
  }
}

}  // namespace
}  // namespace ald
