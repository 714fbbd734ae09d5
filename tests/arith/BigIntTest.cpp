#include "aldlib/arith/BigInt.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csetjmp>
#include <csignal>
#include <cstdio>
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
  for (int i = 0; i < Rounds(8'000); ++i) {
    const Integer a = RandomInteger(random, T::kWords);
    const Integer b = i % 3 == 0 ? a : RandomInteger(random, T::kWords);
    const auto expect = [&](const char* szName, auto&& operation, auto&& plainOperation) {
      T left = this->Real(a);
      const T right = this->Real(b);
      operation(left, i % 3 == 0 ? left : right);
      const std::int32_t nError = T::GetMathError();
      Integer plain = a;
      plainOperation(plain, b);
      ASSERT_EQ(ToReference(left), plain) << a.ToDecimal() << szName << b.ToDecimal();
      ASSERT_EQ(nError, reference::g_nMathError) << a.ToDecimal() << szName << b.ToDecimal();
    };
    expect(
        " + ", [](T& x, const T& y) { x.op_Add(y); }, [](Integer& x, auto& y) { x.Add(y); });
    expect(
        " - ", [](T& x, const T& y) { x.op_Subtract(y); },
        [](Integer& x, auto& y) { x.Subtract(y); });
    expect(
        " * ", [](T& x, const T& y) { x.op_Multiply(y); },
        [](Integer& x, auto& y) { x.Multiply(y); });
    if (b.IsZero()) continue;
    expect(
        " / ", [](T& x, const T& y) { x /= y; }, [](Integer& x, auto& y) { x.Divide(y); });
    expect(
        " % ", [](T& x, const T& y) { x %= y; },
        [](Integer& x, const Integer& y) {
          Integer rest(T::kWords);
          Integer(x).Divide(y, rest);
          x = rest;
        });
    ASSERT_EQ(this->Value(-this->Real(a)), Integer(a).Negate().Value()) << a.ToDecimal();
  }
}

TYPED_TEST(BigInt, IsExactWhereTheResultFits) {
  using T = TypeParam;
  Random random(65);
  for (int i = 0; i < Rounds(4'000); ++i) {
    const T a = this->Real(RandomInteger(random, T::kWords));
    const T b = this->Real(RandomInteger(random, 1 + i % T::kWords).Value());
    const mpz_class x = this->Value(a);
    const mpz_class y = this->Value(b);
    const auto expect = [&](const T& result, const mpz_class& exact) {
      if (abs(exact) >= this->Power2(T::kBits - 1)) return;
      EXPECT_EQ(this->Value(result), exact) << x << " and " << y;
    };
    expect(a + b, x + y);
    expect(a - b, x - y);
    expect(a * b, x * y);
    if (y == 0 || a == T::minValue() || b == T::minValue()) continue;
    expect(a / b, x / y);
    expect(a % b, x % y);
    ASSERT_EQ(T::CompareSigned(a, b), sgn(mpz_class(x - y)));
    ASSERT_EQ(T::CompareUnsigned(a, b), sgn(mpz_class(this->Pattern(a) - this->Pattern(b))));
    ASSERT_EQ(a <=> b, sgn(mpz_class(x - y)) <=> 0);
    ASSERT_EQ(a == b, x == y);
    ASSERT_EQ(this->Value(a.Abs()), abs(x));
    ASSERT_EQ(this->Pattern(a & b), mpz_class(this->Pattern(a) & this->Pattern(b)));
    ASSERT_EQ(this->Pattern(a | b), mpz_class(this->Pattern(a) | this->Pattern(b)));
    ASSERT_EQ(this->Pattern(a ^ b), mpz_class(this->Pattern(a) ^ this->Pattern(b)));
    ASSERT_EQ(this->Value(~a), mpz_class(~x));
  }
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
      {T(-3) / 7, T::GetMathError(), 0, MATH_OK},
      {T(-3) % 7, T::GetMathError(), -3, MATH_OK},
      {T(-1) >> 1, MATH_OK, highest, MATH_OK},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.result, row.expected) << "row " << &row - rows;
    EXPECT_EQ(row.nError, row.nExpectedError) << "row " << &row - rows;
  }
  EXPECT_EQ(this->Value(lowest), -this->Power2(T::kBits - 1));
  EXPECT_EQ(this->Value(highest), this->Power2(T::kBits - 1) - 1);
  EXPECT_EQ(lowest.toDecimalString(), "-" + highest.toDecimalString());
}

TYPED_TEST(BigInt, DividesWhenTheRemainderIsAnOperand) {
  using T = TypeParam;
  const mpz_class large = this->Power2(T::kBits - 2) + 12345;
  T dividend = this->Real(large);
  T divisor = this->Real(-mpz_class(1'000'003));
  dividend.DivideWithRemainder(divisor, divisor);
  EXPECT_EQ(this->Value(dividend), mpz_class(large / -1'000'003));
  EXPECT_EQ(this->Value(divisor), mpz_class(large % 1'000'003));

  dividend = this->Real(large);
  dividend.DivideWithRemainder(T(1'000'003), dividend);
  EXPECT_EQ(this->Value(dividend), mpz_class(large / 1'000'003)) << "the quotient stands";

  T rest(99);
  dividend.DivideWithRemainder(dividend, rest);
  EXPECT_EQ(dividend, 1);
  EXPECT_EQ(rest, 0);
}

TYPED_TEST(BigInt, ShiftsTheBitPattern) {
  using T = TypeParam;
  Random random(66);
  for (int nCount = -T::kBits - 3; nCount <= T::kBits + 3; ++nCount) {
    const T value = this->Real(RandomInteger(random, T::kWords));
    const int nPlaces = std::min(std::abs(nCount), T::kBits);
    const mpz_class up = (this->Pattern(value) * this->Power2(nPlaces)) % this->Power2(T::kBits);
    const mpz_class down = this->Pattern(value) / this->Power2(nPlaces);
    ASSERT_EQ(this->Pattern(value << nCount), nCount < 0 ? down : up) << nCount;
    ASSERT_EQ(this->Pattern(value >> nCount), nCount < 0 ? up : down) << nCount;
  }
  T value(-1);
  EXPECT_EQ(value.op_LeftShift(INT_MIN), 0);
}

TYPED_TEST(BigInt, SetsAndFindsBits) {
  using T = TypeParam;
  Random random(67);
  for (int nBit = -2; nBit <= T::kBits + 1; ++nBit) {
    const T value = this->Real(RandomInteger(random, T::kWords));
    const T above = T(-1) << std::clamp(nBit, 0, T::kBits);  // bit nBit and all above it
    for (const bool bValue : {false, true}) {
      T from = value;
      from.SetBitsFrom(nBit, bValue);
      EXPECT_EQ(from, bValue ? value | above : value & ~above) << nBit;
      T upTo = value;
      upTo.SetBitsBelow(nBit - 1, bValue);
      EXPECT_EQ(upTo, bValue ? value | ~above : value & above) << nBit - 1;
      T sign = value;
      sign.SetSignBit(bValue);
      EXPECT_EQ(sign, bValue ? value | T::minValue() : value & T::maxValue());
    }
    const mpz_class pattern = this->Pattern(value);
    EXPECT_EQ(value.GetBit(nBit),
              nBit >= 0 && mpz_tstbit(pattern.get_mpz_t(), static_cast<mp_bitcnt_t>(nBit)) != 0);
    const bool bZero = pattern == 0;
    EXPECT_EQ(value.LowestSetBit(),
              bZero ? -1 : static_cast<int>(mpz_scan1(pattern.get_mpz_t(), 0)));
    EXPECT_EQ(value.HighestSetBit(),
              bZero ? -1 : static_cast<int>(mpz_sizeinbase(pattern.get_mpz_t(), 2)) - 1);
  }
}

TYPED_TEST(BigInt, WritesAndReadsText) {
  using T = TypeParam;
  Random random(68);
  for (int i = 0; i < 300; ++i) {
    const T value = this->Real(RandomInteger(random, T::kWords));
    const mpz_class shown =
        value == T::minValue() ? -this->Value(T::maxValue()) : this->Value(value);
    std::string sHex = this->Pattern(value).get_str(-16);
    std::string sBinary = this->Pattern(value).get_str(2);
    sHex.insert(0, T::kBits / 4 - sHex.size(), '0');
    sBinary.insert(0, T::kBits - sBinary.size(), '0');
    std::ostringstream stream;
    stream << value;
    ASSERT_EQ(value.toDecimalString(), shown.get_str());
    ASSERT_EQ(stream.str(), shown.get_str());
    ASSERT_EQ(value.toHexString(), sHex);
    ASSERT_EQ(value.toBinaryString(), sBinary);
    T read(1);
    ASSERT_EQ(this->Value(read.fromDecimalString((" \t\n\v\f\r" + shown.get_str()).c_str())),
              shown);
    ASSERT_EQ(read.fromHexString(sHex.c_str()), value);
    ASSERT_EQ(read.fromHexString(this->Pattern(value).get_str(16).c_str()), value);
    ASSERT_EQ(read.fromBinaryString(("\n " + sBinary).c_str()), value);
    ASSERT_EQ(read.fromBinaryString(("1" + sBinary).c_str()), value) << "cut at the width";

    // Longer than the width: what the overflow leaves.
    const std::string sLong = shown.get_str() + shown.get_str().substr(1, 1 + i % 40) + "x";
    read.fromDecimalString(sLong.c_str());
    ASSERT_EQ(ToReference(read), Integer(T::kWords).FromDecimal(sLong)) << sLong;
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
      {"", 0, 0, 0},
      {"0", 0, 0, 0},
      {"12x", 120, 0x120, 0},
      {"x", 0, 0, 0},
      {"-12", -12, 0, 0},
      {"+12", 0, 0, 0},
      {"  12", 12, 0x12, 0},
      {"12 ", 120, 0x120, 0},
      {"-12x", -120, 0, 0},
      {"0x1F", 0, 0, 0},
      {"1e", 10, 0x1E, 0},
      {"fF", 0, 255, 0},
      {"-", 0, 0, 0},
      {"--1", 0, 0, 1},
      {"- 1", 0, 0, 1},
      {"101", 101, 0x101, 5},
      {"2011", 2011, 0x2011, 3},
      {"10 ", 100, 0x100, 0},
      {"1 1", 10, 0x10, 1},
      {"1G", 10, 0x10, 0},
  };
  for (const auto& row : rows) {
    T value(77);
    EXPECT_EQ(value.fromDecimalString(row.szText), row.nDecimal) << row.szText;
    EXPECT_EQ(value.fromHexString(row.szText), row.nHex) << row.szText;
    EXPECT_EQ(value.fromBinaryString(row.szText), row.nBinary) << row.szText;
  }
  T value(77);
  EXPECT_EQ(value.fromDecimalString(static_cast<const char*>(nullptr)), 0);
  EXPECT_EQ(value.fromHexString(nullptr), 0);
  EXPECT_EQ(value.fromBinaryString(nullptr), 0);
}

TYPED_TEST(BigInt, ReportsOnlyWhatAnOperationWrites) {
  using T = TypeParam;
  T value(5);
  const auto stays = [&](const char* szName, auto&& operation) {
    T::SetMathError(MATH_OVERFLOW);
    operation();
    EXPECT_EQ(T::GetMathError(), MATH_OVERFLOW) << szName;
  };
  const auto clears = [&](const char* szName, auto&& operation) {
    T::SetMathError(MATH_OVERFLOW);
    operation();
    EXPECT_EQ(T::GetMathError(), MATH_OK) << szName;
  };
  stays("shifts", [&] { value = (value << 3) >> 2; });
  stays("bits", [&] { value = (~value & 7) | (value ^ 3); });
  stays("order",
        [&] { EXPECT_TRUE(value < 100 && value != 100 && T::CompareSigned(value, 1) != 2); });
  stays("an empty text", [&] { value.fromDecimalString(""); });
  stays("a zero", [&] { value.fromDecimalString("0"); });
  stays("a binary text", [&] { value.fromBinaryString("11"); });
  clears("a digit", [&] { value.fromDecimalString("7"); });
  clears("a minus alone", [&] { value.fromDecimalString("-0"); });
  clears("a hexadecimal digit", [&] { value.fromHexString("F"); });
  clears("a double", [&] { value.fromDouble(std::nan(""), true); });
  clears("printing", [&] { EXPECT_EQ(value.toDecimalString(), "0"); });

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
  constexpr double kEdges[] = {
      0.0,          -0.0,      0.49999999999999994, 0.5,    2.5,    9007199254740993.0,
      std::nan(""), kInfinity, -kInfinity,          5e-324, 1.7e308};
  Random random(69);
  for (int i = 0; i < 2'000; ++i) {
    double value =
        std::ldexp(1.0 + Below(random, 1 << 20) / 1048576.0, Below(random, 2 * T::kBits) - 20);
    if (i % 4 == 0) value = std::ldexp(1.0, Below(random, T::kBits + 2));
    if (i % 8 == 0) value = std::nextafter(value, 0);
    if (i < 11) value = kEdges[i];
    if (i % 2 == 1) value = -value;
    for (const bool bRound : {false, true}) {
      T real(1);
      real.fromDouble(value, bRound);
      Integer plain(T::kWords);
      plain.FromDouble(value, bRound);
      ASSERT_EQ(ToReference(real), plain) << value;
      ASSERT_EQ(T::GetMathError(), reference::g_nMathError) << value;
    }
    const T integer = this->Real(RandomInteger(random, T::kWords));
    ASSERT_EQ(integer.toDouble(), std::strtod(this->Value(integer).get_str().c_str(), nullptr));
  }
}

TYPED_TEST(BigInt, TakesIntegersOfEachKind) {
  using T = TypeParam;
  EXPECT_EQ(this->Value(T(std::int16_t{-32768})), -32768);
  EXPECT_EQ(this->Value(T(std::uint16_t{65535})), 65535);
  EXPECT_EQ(this->Value(T(std::numeric_limits<std::int32_t>::min())), -this->Power2(31));
  EXPECT_EQ(this->Value(T(0xFFFFFFFFU)), this->Power2(32) - 1);
  EXPECT_EQ(this->Value(T(std::numeric_limits<std::int64_t>::min())), -this->Power2(63));
  EXPECT_EQ(this->Pattern(T(~std::uint64_t{0})), this->Power2(64) - 1);
  EXPECT_EQ(sizeof(T), T::kBits / 8);
  EXPECT_EQ(T::ms_aFastConvert[15], 15);
  EXPECT_EQ(T::ms_MinusOne + T::ms_Five + T::ms_Ten + T::ms_One, 15);

  const std::unordered_set<T> set{T(1), T(-1), T(1) << 40, T(1)};
  EXPECT_EQ(set.size(), 3U);
  EXPECT_TRUE(set.contains(T(1) << 40));
}

namespace {

template <class T>
void DivideByZero() {
  T value(7);
  T rest(7);
  value.DivideWithRemainder(0, rest);
}

sigjmp_buf g_afterTheFault;

// Goes on behind the first fault, divides again and ends with what it found.
template <class T>
[[noreturn]] void DivideByZeroTwice() {
  std::signal(SIGFPE, [](int) { siglongjmp(g_afterTheFault, 1); });
  if (sigsetjmp(g_afterTheFault, 1) == 0) {
    DivideByZero<T>();
    std::_Exit(2);
  }
  T value(7);
  T rest(7);
  value.DivideWithRemainder(0, rest);
  std::_Exit(value == 0 && rest == 0 && T::GetMathError() == MATH_DIVIDE_BY_ZERO ? 0 : 3);
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
  EXPECT_EXIT(DivideByZero<TypeParam>(), DiedByTheDivisionFault, "");
  EXPECT_EXIT(DivideByZeroTwice<TypeParam>(), testing::ExitedWithCode(0), "");
}

}  // namespace ald::test
