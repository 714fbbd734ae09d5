#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "aldlib/arith/FixedDecimal.h"
#include "tests/arith/Twins.h"

// To and from double and the integer types.
namespace ald::test {

namespace {

struct DecimalConversion : DecimalTest {};

// Held against the plain rules, which take sign and magnitude.
template <class TInteger>
void ExpectWhole(TInteger nValue) {
  Twin twin;
  const bool bNegative = nValue < 0;
  const auto nBits = static_cast<std::uint64_t>(nValue);
  twin.plain = reference::Decimal(bNegative, bNegative ? 0 - nBits : nBits);
  twin.real = nValue;
  EXPECT_TRUE(Agree({&twin})) << nValue;
}

}  // namespace

TEST_F(DecimalConversion, LeavesTheNoiseOfADoubleBehind) {
  const struct {
    double value;
    const char* szValue;
    DEC_STATUS eStatus;
  } rows[] = {
      {0.1, "0.1", DEC_OK},
      {1.15, "1.15", DEC_OK},
      {-2.675, "-2.675", DEC_OK},
      {0.9999999996, "1", DEC_OK},
      {-0.0, "0", DEC_OK},
      {std::nan(""), "0", DEC_OK},
      {-std::numeric_limits<double>::infinity(), "0", DEC_OK},
      {1e-10, "0", DEC_UNDERFLOW},
      {-5e-10, "-0.000000001", DEC_OK},
      {99999999999999.0, "99999999999999", DEC_OK},
      {-1e15, "-1000000000000000", DEC_OVERFLOW},
      {1.5e20, "150000000000000000000", DEC_OVERFLOW},
  };
  for (const auto& row : rows) {
    const CDecimal value(row.value);
    EXPECT_EQ(CDecimal::GetLastStatus(), row.eStatus) << row.value;
    EXPECT_STREQ(value.toExactString(), row.szValue) << row.value;
  }
}

TEST_F(DecimalConversion, TakesDoublesAsThePlainRulesDo) {
  Random random(20235);
  Twin twin;
  for (int i = 0; i < Rounds(10'000); ++i) {
    if (i % 64 == 0) SetHandlers(static_cast<Handler>(Below(random, 4)));
    const int nExponent = Below(random, i % 4 == 0 ? 260 : 64) - 96;
    double value = std::ldexp(static_cast<double>(random()), nExponent);
    if (i % 3 == 0) value = Below(random, 1'000'000) / 1000.0;
    if (i % 2 == 0) value = -value;
    twin.real = value;
    twin.plain.fromDouble(value);
    ASSERT_TRUE(Agree({&twin})) << value;
    ASSERT_EQ(twin.real.toDouble(), std::strtod(twin.plain.toRawString(9).c_str(), nullptr));
  }
}

TEST_F(DecimalConversion, FoldsTheWholePartIntoAnInteger) {
  const CDecimal value("1.9");
  EXPECT_EQ(value.toIntType<int>(false), 1);
  EXPECT_EQ(value.toIntType<int>(true), 2);
  EXPECT_EQ((-value).toIntType<int>(true), -2);
  EXPECT_EQ((-value).toIntType<unsigned>(false), 0xFFFFFFFFU);
  EXPECT_EQ(CDecimal(5'000'000'000).toIntType<int>(false), 705'032'704);
  EXPECT_EQ(CDecimal(5'000'000'000).toIntType<long>(false), 705'032'704) << "32 bits everywhere";
  EXPECT_EQ(CDecimal(3'000'000'000).toIntType<long>(false), -1'294'967'296);
  EXPECT_EQ(CDecimal(-1).toIntType<unsigned long>(false), 0xFFFFFFFFUL);
  EXPECT_EQ(CDecimal(40'000).toIntType<short>(false), -25'536);
  EXPECT_EQ(CDecimal(-1).toIntType<unsigned short>(false), 65'535);
  EXPECT_EQ(CDecimal(-5'000'000'000).toIntType<long long>(false), -5'000'000'000);
  const CDecimal past("123456789012345678.5");
  EXPECT_EQ(past.toIntType<long long>(false), 123'456'789'012'345'678);
  EXPECT_EQ(past.toIntType<unsigned long long>(true), 123'456'789'012'345'679U);
  EXPECT_EQ(past.toIntType<int>(false), static_cast<int>(99'999'999'999'999)) << "what shows";
}

TEST_F(DecimalConversion, TakesMathUpToTheLimitAndBeyond) {
  Twin twin;
  for (int n = 0; n < 150; ++n) {
    // Powers of two and of ten, and multiples of what fits a machine word, each with neighbours.
    const mpz_class bases[] = {mpz_class(1) << static_cast<mp_bitcnt_t>(n),
                               reference::Power(n % 47), reference::Power(n % 20) << 64};
    for (const mpz_class& base : bases) {
      for (int nStep = -2; nStep <= 2; ++nStep) {
        const mpz_class math = n % 2 == 0 ? mpz_class(base + nStep) : mpz_class(nStep - base);
        Load(twin, reference::Decimal());
        Load(twin, reference::Integer(reference::kMathWords, math));
        ASSERT_TRUE(Agree({&twin})) << math;
        ASSERT_EQ(ToReference(twin.real.toMathType()).Value(), math);
      }
    }
  }
}

TEST_F(DecimalConversion, TakesIntegersOfEachWidth) {
  ExpectWhole(std::numeric_limits<std::int16_t>::min());
  ExpectWhole(std::numeric_limits<std::uint16_t>::max());
  ExpectWhole(std::numeric_limits<std::int32_t>::min());
  ExpectWhole(std::numeric_limits<std::uint32_t>::max());
  ExpectWhole(std::numeric_limits<std::int64_t>::min());
  ExpectWhole(std::numeric_limits<std::uint64_t>::max());
  ExpectWhole(99'999'999'999'999);
  ExpectWhole(-100'000'000'000'000);
}

}  // namespace ald::test
