#include "aldlib/arith/BigInt.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csetjmp>
#include <csignal>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <unordered_set>

#include "tests/arith/Twins.h"

// All seven widths against the plain word loops, and against GMP wherever a result is exact.
namespace ald::test {

namespace {

using reference::Integer;

template <class T>
class BigInt : public testing::Test {
 protected:
  static T Real(const Integer& value) { return ToBigInt<T::kBits>(value); }
  static T Real(const mpz_class& value) { return Real(Integer(T::kWords, value)); }
  static T Any(Random& random) { return Real(RandomInteger(random, T::kWords)); }
  static mpz_class Value(const T& value) { return ToReference(value).Value(); }
  static mpz_class Power2(int n) { return mpz_class(1) << static_cast<mp_bitcnt_t>(n); }
  // The bit pattern as a number that is not negative.
  static mpz_class Pattern(const T& value) {
    return value.IsNegative() ? mpz_class(Value(value) + Power2(T::kBits)) : Value(value);
  }
};

using Widths = testing::Types<CBigInt<64>, CBigInt<96>, CBigInt<128>, CBigInt<160>, CBigInt<192>,
                              CBigInt<224>, CBigInt<256>>;

struct WidthNames {
  template <class T>
  static std::string GetName(int) {
    return std::to_string(T::kBits);
  }
};
TYPED_TEST_SUITE(BigInt, Widths, WidthNames);

}  // namespace

// Operands at the edges of their words overflow often; what is left behind then is part of the
// contract, since the decimals are built on it. Every third round has one object as both operands.
TYPED_TEST(BigInt, CalculatesAsTheWordLoopsDo) {
  using T = TypeParam;
  Random random(64);
  for (int i = 0; i < Rounds(6'000); ++i) {
    const Integer a = RandomInteger(random, T::kWords);
    const mpz_class shorter = RandomInteger(random, 1 + i % T::kWords).Value();
    const Integer b = i % 3 == 0 ? a : Integer(T::kWords, shorter);
    const mpz_class x = a.Value();
    const mpz_class y = b.Value();
    const auto expect = [&](char c, const mpz_class& exact, auto&& calculate) {
      T left = this->Real(a);
      const T right = this->Real(b);
      calculate(left, i % 3 == 0 ? left : right);
      const std::int32_t nError = T::GetMathError();
      Integer plain = a;
      calculate(plain, b);
      ASSERT_EQ(ToReference(left), plain) << x << c << y;
      ASSERT_EQ(nError, reference::g_nMathError) << x << c << y;
      ASSERT_TRUE(abs(exact) >= this->Power2(T::kBits - 1) || plain.Value() == exact)
          << x << c << y;
    };
    expect('+', x + y, [](auto& n, const auto& m) { n.op_Add(m); });
    expect('-', x - y, [](auto& n, const auto& m) { n.op_Subtract(m); });
    expect('*', x * y, [](auto& n, const auto& m) { n.op_Multiply(m); });
    T quotient = this->Real(a);
    T rest = this->Real(b);
    ASSERT_EQ(ToReference(-quotient), Integer(a).Negate()) << x;
    ASSERT_EQ(quotient <=> rest, sgn(mpz_class(x - y)) <=> 0) << x << " and " << y;
    ASSERT_EQ(T::CompareUnsigned(quotient, rest),
              sgn(mpz_class(this->Pattern(quotient) - this->Pattern(rest))));
    ASSERT_EQ(this->Pattern((quotient & rest) ^ (quotient | rest)),
              mpz_class(this->Pattern(quotient) ^ this->Pattern(rest)));
    if (y == 0) continue;
    quotient.DivideWithRemainder(rest, rest);  // the remainder may be the divisor
    Integer plainRest = b;
    ASSERT_EQ(ToReference(quotient), Integer(a).Divide(b, &plainRest)) << x << '/' << y;
    ASSERT_EQ(ToReference(rest), plainRest) << x << '/' << y;
    ASSERT_EQ(T::GetMathError(), MATH_OK);
  }
}

TYPED_TEST(BigInt, DividesWhenTheRemainderIsTheDividend) {
  using T = TypeParam;
  const mpz_class large = this->Power2(T::kBits - 2) + 12345;
  T value = this->Real(large);
  value.DivideWithRemainder(1'000'003, value);
  EXPECT_EQ(this->Value(value), mpz_class(large / 1'000'003)) << "the quotient stands";
  T rest(99);
  value.DivideWithRemainder(value, rest);
  EXPECT_EQ(value, 1);
  EXPECT_EQ(rest, 0);
}

TYPED_TEST(BigInt, KeepsTheOdditiesOfItsLimits) {
  using T = TypeParam;
  const T& lowest = T::minValue();
  const T& highest = T::maxValue();
  const struct {
    T result;
    std::int32_t nError;
    T expected;
    std::int32_t nExpectedError;
  } rows[] = {
      {highest + 1, T::GetMathError(), highest, MATH_OVERFLOW},
      {lowest - 1, T::GetMathError(), lowest, MATH_OVERFLOW},
      {-lowest, T::GetMathError(), highest, MATH_OVERFLOW},
      {lowest.Abs(), T::GetMathError(), highest, MATH_OVERFLOW},
      {T(0) * -5, T::GetMathError(), 0, MATH_OVERFLOW},
      {T(-5) * 0, T::GetMathError(), 0, MATH_OVERFLOW},
      {T(0) * 5, T::GetMathError(), 0, MATH_OK},
      // Two products of words whose sum passes the limit: clamped, and nobody hears of it.
      {(T(0x2AAAAAAAFFFFFFFFU) << (T::kBits - 64)) * 3, T::GetMathError(), highest, MATH_OK},
      {T(-7) / 2, T::GetMathError(), -3, MATH_OK},
      {T(-7) % 2, T::GetMathError(), -1, MATH_OK},
      {T(7) / -2, T::GetMathError(), -3, MATH_OK},
      {T(7) % -2, T::GetMathError(), 1, MATH_OK},
      {T(-3) % 7, T::GetMathError(), -3, MATH_OK},
      {T(-1) >> 1, T::GetMathError(), highest, MATH_OK},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.result, row.expected) << "row " << &row - rows;
    EXPECT_EQ(row.nError, row.nExpectedError) << "row " << &row - rows;
  }
  EXPECT_EQ(this->Value(lowest), -this->Power2(T::kBits - 1));
  EXPECT_EQ(this->Value(highest), this->Power2(T::kBits - 1) - 1);
  EXPECT_EQ(lowest.toDecimalString(), "-" + highest.toDecimalString());
}

TYPED_TEST(BigInt, ShiftsTheBitPattern) {
  using T = TypeParam;
  Random random(66);
  for (int nCount = -T::kBits - 3; nCount <= T::kBits + 3; ++nCount) {
    const T value = this->Any(random);
    const int nPlaces = std::min(std::abs(nCount), T::kBits);
    const mpz_class up = (this->Pattern(value) * this->Power2(nPlaces)) % this->Power2(T::kBits);
    const mpz_class down = this->Pattern(value) / this->Power2(nPlaces);
    ASSERT_EQ(this->Pattern(value << nCount), nCount < 0 ? down : up) << nCount;
    ASSERT_EQ(this->Pattern(value >> nCount), nCount < 0 ? up : down) << nCount;
  }
  EXPECT_EQ(T(-1) << std::numeric_limits<int>::min(), 0);
}

TYPED_TEST(BigInt, SetsAndFindsBits) {
  using T = TypeParam;
  Random random(67);
  for (int nBit = -1; nBit <= T::kBits; ++nBit) {  // both ends lie outside
    const T above = nBit < 0 ? T(-1) : T(-1) << nBit;
    const T upTo = nBit < 0 ? T(0) : ~(above << 1);
    const T old = this->Any(random);
    for (const bool bValue : {true, false}) {
      T value = old;
      value.SetBitsFrom(nBit, bValue);
      EXPECT_EQ(value, bValue ? old | above : old & ~above) << nBit;
      EXPECT_TRUE(bValue || value.HighestSetBit() < std::max(nBit, 0)) << nBit;
      value = old;
      value.SetBitsBelow(nBit, bValue);
      EXPECT_EQ(value, bValue ? old | upTo : old & ~upTo) << nBit;
      value.SetSignBit(bValue);
      EXPECT_EQ(value.IsNegative(), bValue);
      EXPECT_EQ(value << 1, (bValue ? old | upTo : old & ~upTo) << 1) << nBit;
    }
    if (nBit < 0 || nBit == T::kBits) continue;
    EXPECT_EQ(above.LowestSetBit(), nBit);
    EXPECT_EQ((T(1) << nBit).HighestSetBit(), nBit);
    EXPECT_TRUE(above.GetBit(nBit) && !(above << 1).GetBit(nBit));
  }
  EXPECT_EQ(T(0).LowestSetBit(), -1);
  EXPECT_EQ(T(0).HighestSetBit(), -1);
  EXPECT_FALSE(T(-1).GetBit(T::kBits) || T(-1).GetBit(-1));
}

TYPED_TEST(BigInt, WritesAndReadsText) {
  using T = TypeParam;
  Random random(68);
  for (int i = 0; i < 300; ++i) {
    const T value = this->Any(random);
    const mpz_class shown =
        value == T::minValue() ? -this->Value(T::maxValue()) : this->Value(value);
    const std::string sDecimal = shown.get_str();
    std::string sHex = this->Pattern(value).get_str(-16);
    std::string sBinary = this->Pattern(value).get_str(2);
    T read(1);
    ASSERT_EQ(read.fromHexString(("\n" + this->Pattern(value).get_str(16)).c_str()), value);
    ASSERT_EQ(read.fromBinaryString(("\n " + sBinary).c_str()), value);
    ASSERT_EQ(this->Value(read.fromDecimalString((" \t\n\v\f\r" + sDecimal).c_str())), shown);
    sHex.insert(0, T::kBits / 4 - sHex.size(), '0');
    sBinary.insert(0, T::kBits - sBinary.size(), '0');
    std::ostringstream stream;
    stream << value;
    ASSERT_EQ(value.toDecimalString(), sDecimal);
    ASSERT_EQ(stream.str(), sDecimal);
    ASSERT_EQ(value.toHexString(), sHex);
    ASSERT_EQ(value.toBinaryString(), sBinary);
    ASSERT_EQ(read.fromHexString(("1" + sHex).c_str()), value) << "high digits fall off";
    ASSERT_EQ(read.fromBinaryString(("1" + sBinary).c_str()), value) << "the width is enough";

    // Longer than the width: what the overflow leaves.
    const std::string sLong = sDecimal + sDecimal.substr(0, static_cast<std::size_t>(i % 40)) + "x";
    read.fromDecimalString(sLong.c_str());
    ASSERT_EQ(ToReference(read), Integer(T::kWords).fromDecimalString(sLong)) << sLong;
    ASSERT_EQ(T::GetMathError(), reference::g_nMathError) << sLong;
  }
}

// The factor ten, or sixteen, comes behind each digit unless the text ends there.
TYPED_TEST(BigInt, StopsReadingAtTheFirstOtherCharacter) {
  using T = TypeParam;
  const struct {
    const char* szText;
    int nDecimal, nHex, nBinary;
  } rows[] = {
      {"", 0, 0, 0},       {"x", 0, 0, 0},         {"12x", 120, 0x120, 0},    {"-12", -12, 0, 0},
      {"+12", 0, 0, 0},    {"  12", 12, 0x12, 0},  {"12 ", 120, 0x120, 0},    {"-12x", -120, 0, 0},
      {"0x1F", 0, 0, 0},   {"1e", 10, 0x1E, 0},    {"fF", 0, 255, 0},         {"--1", 0, 0, 1},
      {"- 1", 0, 0, 1},    {"101", 101, 0x101, 5}, {"2011", 2011, 0x2011, 3}, {"1 1", 10, 0x10, 1},
      {"1G", 10, 0x10, 0}, {nullptr, 0, 0, 0},
  };
  for (const auto& row : rows) {
    T value(77);
    EXPECT_EQ(value.fromDecimalString(row.szText), row.nDecimal) << "row " << &row - rows;
    EXPECT_EQ(value.fromHexString(row.szText), row.nHex) << "row " << &row - rows;
    EXPECT_EQ(value.fromBinaryString(row.szText), row.nBinary) << "row " << &row - rows;
  }
}

TYPED_TEST(BigInt, ReportsOnlyWhatAnOperationWrites) {
  using T = TypeParam;
  T value(5);
  const auto expect = [&](std::int32_t nError, const char* szName, auto&& operation) {
    T::SetMathError(MATH_OVERFLOW);
    operation();
    EXPECT_EQ(T::GetMathError(), nError) << szName;
  };
  expect(MATH_OVERFLOW, "shifts and bits", [&] { value = ((~value << 3) >> 2 | 7) ^ value; });
  expect(MATH_OVERFLOW, "order", [&] { EXPECT_TRUE(value < T::maxValue() && value != 100); });
  expect(MATH_OVERFLOW, "no digit", [&] { value.fromDecimalString(""); });
  expect(MATH_OVERFLOW, "the digit 0", [&] { value.fromDecimalString("0"); });
  expect(MATH_OVERFLOW, "a binary text", [&] { value.fromBinaryString("11"); });
  expect(MATH_OVERFLOW, "an odd number negated", [&] { value = -T(3); });
  expect(MATH_OK, "an even number negated", [&] { value = -T(4); });
  expect(MATH_OK, "another digit", [&] { value.fromDecimalString("7"); });
  expect(MATH_OK, "a minus", [&] { value.fromDecimalString("-0"); });
  expect(MATH_OK, "a hexadecimal digit", [&] { value.fromHexString("F"); });
  expect(MATH_OK, "a double", [&] { value.fromDouble(std::nan(""), true); });
  expect(MATH_OK, "printing", [&] { EXPECT_EQ(value.toDecimalString(), "0"); });

  T::SetMathError(MATH_OVERFLOW, &(value = -3));
  EXPECT_EQ(value, T::minValue());
  T::SetMathError(MATH_OVERFLOW, &(value = 0));
  EXPECT_EQ(value, T::maxValue());
  T::SetMathError(MATH_OK, &(value = 4));
  EXPECT_EQ(value, 4);
}

TYPED_TEST(BigInt, ConvertsDoubles) {
  using T = TypeParam;
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const double edges[] = {0.0,       0.49999999999999994, 0.5,    2.5,    9007199254740993.0,
                          kInfinity, std::nan(""),        5e-324, 1.7e308};
  Random random(69);
  for (int i = 0; i < 1'000; ++i) {
    double value = std::ldexp(static_cast<double>(random()), Below(random, 2 * T::kBits) - 84);
    if (i % 4 == 0) value = std::ldexp(1.0, Below(random, T::kBits + 2));
    if (i % 8 == 0) value = std::nextafter(value, 0);
    if (i < 18) value = edges[i / 2];
    if (i % 2 == 1) value = -value;
    for (const bool bRound : {false, true}) {
      T real(1);
      real.fromDouble(value, bRound);
      ASSERT_EQ(ToReference(real), Integer(T::kWords).fromDouble(value, bRound)) << value;
      ASSERT_EQ(T::GetMathError(), reference::g_nMathError) << value;
    }
    const T integer = this->Any(random);
    ASSERT_EQ(integer.toDouble(), std::strtod(this->Value(integer).get_str().c_str(), nullptr));
  }
}

TYPED_TEST(BigInt, IsAValueLikeAnyOther) {
  using T = TypeParam;
  EXPECT_EQ(sizeof(T), T::kBits / 8);
  EXPECT_EQ(this->Value(T(std::int16_t{-32768})), -32768);
  EXPECT_EQ(this->Value(T(0xFFFFFFFFU)), this->Power2(32) - 1);
  EXPECT_EQ(this->Value(T(std::numeric_limits<std::int64_t>::min())), -this->Power2(63));
  EXPECT_EQ(this->Pattern(T(~std::uint64_t{0})), this->Power2(64) - 1);
  EXPECT_EQ(T::ms_MinusOne + T::ms_Five + T::ms_Ten + T::ms_One, T::ms_aFastConvert[15]);
  const std::unordered_set<T> set{T(1), T(-1), T(1) << 40, T(1)};
  EXPECT_EQ(set.size(), 3U);
  EXPECT_TRUE(set.contains(T(1) << 40));
}

namespace {

template <class T>
bool DivisionByZeroGivesZero() {
  T value(7);
  T rest(7);
  value.DivideWithRemainder(0, rest);
  return value == 0 && rest == 0 && T::GetMathError() == MATH_DIVIDE_BY_ZERO;
}

sigjmp_buf g_afterTheFault;

// Goes on behind the first fault, divides again and ends with what it found.
template <class T>
[[noreturn]] void DivideByZeroTwice() {
  std::signal(SIGFPE, [](int) { siglongjmp(g_afterTheFault, 1); });
  if (sigsetjmp(g_afterTheFault, 1) == 0) {
    DivisionByZeroGivesZero<T>();
    std::_Exit(2);
  }
  std::_Exit(DivisionByZeroGivesZero<T>() ? 0 : 3);
}

// A sanitizer reports the signal and exits.
bool DiedByTheDivisionFault(int nStatus) {
#ifdef __SANITIZE_ADDRESS__
  if (testing::ExitedWithCode(1)(nStatus)) return true;
#endif
  return testing::KilledBySignal(SIGFPE)(nStatus);
}

}  // namespace

template <class T>
using BigIntDeathTest = BigInt<T>;
TYPED_TEST_SUITE(BigIntDeathTest, Widths, WidthNames);

TYPED_TEST(BigIntDeathTest, FaultsAtTheFirstDivisionByZeroOnly) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(DivisionByZeroGivesZero<TypeParam>(), DiedByTheDivisionFault, "");
  EXPECT_EXIT(DivideByZeroTwice<TypeParam>(), testing::ExitedWithCode(0), "");
}

}  // namespace ald::test
