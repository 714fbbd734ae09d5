#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <type_traits>

#include "aldlib/arith/FixedDecimal.h"
#include "tests/arith/Twins.h"

// Arithmetic held against the plain digit rules, step for step, and against exact rationals.
namespace ald::test {

namespace {

using reference::Integer;
using PlainDecimal = reference::Decimal;

std::string Print(int n) {
  return std::to_string(n);
}
std::string Print(const std::string& sText) {
  return sText;
}
std::string Print(const CDecimal::TextType& text) {
  return std::string(text.view());
}

std::uint64_t ToInteger(const PlainDecimal& value, bool bRound, int nBits) {
  return value.ToInteger(bRound, nBits);
}
std::uint64_t ToInteger(const CDecimal& value, bool bRound, int nBits) {
  if (nBits == 16) return value.toIntType<unsigned short>(bRound);
  return nBits == 32 ? value.toIntType<unsigned>(bRound)
                     : value.toIntType<unsigned long long>(bRound);
}

// One operation, as code for either side. Its operands may be one and the same.
struct Operation {
  const char* szName;
  std::string (*pfnReal)(CDecimal&, CDecimal&, CDecimal&, int);
  std::string (*pfnPlain)(PlainDecimal&, PlainDecimal&, PlainDecimal&, int);
};

template <class TCode, class TDecimal>
std::string Run(TDecimal& a, TDecimal& b, TDecimal& c, int n) {
  if constexpr (std::is_void_v<decltype(TCode{}(a, b, c, n))>) {
    TCode{}(a, b, c, n);
    return "";
  } else {
    return Print(TCode{}(a, b, c, n));
  }
}

template <class TCode>
Operation Do(const char* szName, TCode) {
  return {szName, &Run<TCode, CDecimal>, &Run<TCode, PlainDecimal>};
}

const Operation kOperations[] = {
    Do("a += b", [](auto& a, auto& b, auto&, int) { a.op_Add(b); }),
    Do("a -= b", [](auto& a, auto& b, auto&, int) { a.op_Subtract(b); }),
    Do("a *= b", [](auto& a, auto& b, auto&, int) { a.op_Multiply(b); }),
    Do("a /= b", [](auto& a, auto& b, auto&, int) { a.op_Divide(b); }),
    Do("a = b + c", [](auto& a, auto& b, auto& c, int) { a = b + c; }),
    Do("a = b - c", [](auto& a, auto& b, auto& c, int) { a = b - c; }),
    Do("a = b * c", [](auto& a, auto& b, auto& c, int) { a = b * c; }),
    Do("a = b / c", [](auto& a, auto& b, auto& c, int) { a = b / c; }),
    Do("a = (b + c) - b", [](auto& a, auto& b, auto& c, int) { a = b + c - b; }),
    Do("a = (b * c) / b", [](auto& a, auto& b, auto& c, int) { a = b * c / b; }),
    Do("a = -b", [](auto& a, auto& b, auto&, int) { a = -b; }),
    Do("a = b", [](auto& a, auto& b, auto&, int) { a = b; }),
    Do("a.SetNegative()", [](auto& a, auto&, auto&, int) { a.SetNegative(); }),
    Do("a.SetPositive()", [](auto& a, auto&, auto&, int) { a.SetPositive(); }),
    Do("Compare(a, b)", [](auto& a, auto& b, auto&, int) { return a.Compare(a, b); }),
    Do("a.Round(n)", [](auto& a, auto&, auto&, int n) { a.Round(n); }),
    Do("a.ShiftByPower10(n)", [](auto& a, auto&, auto&, int n) { a.ShiftByPower10(n); }),
    Do("a.ShiftDigits(n)", [](auto& a, auto&, auto&, int n) { a.ShiftDigits(n); }),
    Do("a.FindPower10()", [](auto& a, auto&, auto&, int) { return a.FindPower10(); }),
    Do("a.CountTrailingZeroDecimals()",
       [](auto& a, auto&, auto&, int) { return a.CountTrailingZeroDecimals(); }),
    Do("a.Split(b, c)", [](auto& a, auto& b, auto& c, int) { a.Split(b, c); }),
    Do("a.toRawString(n)", [](auto& a, auto&, auto&, int n) { return a.toRawString(n); }),
    Do("a = text of b", [](auto& a, auto& b, auto&, int n) { a.fromRawString(b.toRawString(n)); }),
    Do("a = math of b", [](auto& a, auto& b, auto&, int) { a.fromMathType(b.toMathType()); }),
    Do("a as 16 bits",
       [](auto& a, auto&, auto&, int n) { return std::to_string(ToInteger(a, n > 0, 16)); }),
    Do("a as 32 bits",
       [](auto& a, auto&, auto&, int n) { return std::to_string(ToInteger(a, n > 0, 32)); }),
    Do("a as 64 bits",
       [](auto& a, auto&, auto&, int n) { return std::to_string(ToInteger(a, n > 0, 64)); }),
};

constexpr int kOperationCount = static_cast<int>(std::size(kOperations));

struct DecimalArithmetic : DecimalTest {};

}  // namespace

// A long life of four variables: whatever an operation leaves behind (an exact value past the
// limits, a mark, a zero that is marked negative) is what the next one starts from. While there is
// any exact value, all arithmetic takes the slow road; so half of the time there is none.
TEST_F(DecimalArithmetic, FollowsThePlainRulesToTheBit) {
  Random random(20230);
  Twin twins[4];
  for (int i = 0; i < Rounds(150'000); ++i) {
    if (i % 64 == 0) SetHandlers(static_cast<Handler>(Below(random, 4)));
    const bool bOrdinary = i / 64 % 2 == 0;
    for (Twin& twin : twins) {
      const int nLoad = Below(random, 64);
      if (nLoad < 10 || (bOrdinary && twin.plain.m_item)) Load(twin, RandomDecimal(random));
      if (nLoad == 10 && !bOrdinary) Load(twin, RandomInteger(random, reference::kMathWords));
    }
    Twin& a = twins[Below(random, 4)];
    Twin& b = twins[Below(random, 4)];
    Twin& c = twins[Below(random, 4)];
    const int n = i % 2 == 0 ? Below(random, 16) - 5 : Below(random, 45) - 22;
    // Half of the time it is one of the first eight, the calculations.
    const Operation& operation = kOperations[Below(random, i % 3 == 0 ? 8 : kOperationCount)];
    const std::string sBefore = Show(a.plain) + ", " + Show(b.plain) + ", " + Show(c.plain);
    const std::string sReal = operation.pfnReal(a.real, b.real, c.real, n);
    const std::string sPlain = operation.pfnPlain(a.plain, b.plain, c.plain, n);
    ASSERT_EQ(sReal, sPlain) << operation.szName << " of " << sBefore << " and " << n;
    ASSERT_TRUE(Agree({&twins[0], &twins[1], &twins[2], &twins[3]}))
        << operation.szName << " of " << sBefore << " and " << n << ", round " << i;
  }
}

// Totals of amounts of one sign, as a journal has them, and now and then one of the other.
TEST_F(DecimalArithmetic, AddsUpLongColumns) {
  Random random(20233);
  Twin total;
  Twin amount;
  for (int i = 0; i < Rounds(40'000); ++i) {
    const bool bNegative = i / 1'000 % 2 == 1;
    const bool bSubtract = i / 2'000 % 2 == 1;
    reference::Decimal value = RandomDecimal(random);
    std::fill_n(value.m_digits.begin(), i % 500 == 0 ? 0 : 7, 0);
    value.m_nSign = bNegative != (i % 300 == 0) ? 0xD : 0xF;
    Load(amount, value);
    if (i % 4 == 0 || total.plain.m_item) {
      value = i % 3 == 0 ? reference::Decimal() : total.plain;
      value.m_item.reset();
      value.m_nSign = bNegative != bSubtract ? 0xD : 0xF;
      Load(total, value);
    }
    const std::string sBefore = Show(total.plain) + " and " + Show(amount.plain);
    bSubtract ? total.real.op_Subtract(amount.real) : total.real.op_Add(amount.real);
    bSubtract ? total.plain.op_Subtract(amount.plain) : total.plain.op_Add(amount.plain);
    ASSERT_TRUE(Agree({&total, &amount})) << sBefore << ", round " << i;
  }
}

// By way of exact rationals, which know nothing of digits.
TEST_F(DecimalArithmetic, RoundsTheExactResultOnce) {
  Random random(20231);
  const mpz_class unit = reference::Power(9);
  const mpz_class end = reference::Power(23);
  const auto round = [](const mpz_class& value, const mpz_class& by) {
    const mpz_class magnitude = (2 * abs(value) + abs(by)) / (2 * abs(by));
    return mpz_class(sgn(value) * sgn(by) * magnitude);
  };
  for (int i = 0; i < Rounds(20'000); ++i) {
    Twin a;
    Twin b;
    Load(a, RandomDecimal(random));
    Load(b, RandomDecimal(random));
    const mpz_class x = a.plain.toMathType().Value();
    const mpz_class y = b.plain.toMathType().Value();
    const auto expect = [&](char c, const CDecimal& result, const mpz_class& exact) {
      ASSERT_EQ(ToReference(result.toMathType()).Value(), exact) << x << " " << c << " " << y;
      ASSERT_EQ(CDecimal::GetOverflowItem(&result) != nullptr, abs(exact) >= end) << exact;
    };
    expect('+', a.real + b.real, x + y);
    expect('-', a.real - b.real, x - y);
    expect('*', a.real * b.real, round(x * y, unit));
    if (y != 0) expect('/', a.real / b.real, round(x * unit, y));
    ASSERT_TRUE(x == y || (a.real < b.real) == (x < y)) << x << " and " << y;
  }
}

TEST_F(DecimalArithmetic, KeepsItsCornerCases) {
  constexpr auto kPlus = &CDecimal::op_Add;
  constexpr auto kMinus = &CDecimal::op_Subtract;
  constexpr auto kTimes = &CDecimal::op_Multiply;
  constexpr auto kBy = &CDecimal::op_Divide;
  const struct {
    const char* szLeft;
    CDecimal& (CDecimal::*pfnOperation)(const CDecimal&);
    const char* szRight;
    const char* szResult;
    DEC_STATUS eStatus;
  } rows[] = {
      {"0", kBy, "5", "0", DEC_OK},
      {"5", kBy, "0", "0", DEC_OK},
      {"0", kBy, "0", "0", DEC_OK},
      {"-5", kTimes, "0", "0", DEC_OK},
      {"0", kTimes, "-5", "0", DEC_OK},
      {"1", kBy, "3", "0.333333333", DEC_OK},
      {"2", kBy, "3", "0.666666667", DEC_OK},
      {"-2", kBy, "3", "-0.666666667", DEC_OK},
      // Around what fits a word on the way, and sixteen digits at the end.
      {"17999999.99", kBy, "0.03", "599999999.666666667", DEC_OK},
      {"18000000", kBy, "-0.07", "-257142857.142857143", DEC_OK},
      {"18446744.08", kBy, "0.03", "614891469.333333333", DEC_OK},
      {"-17999999.99", kBy, "18", "-999999.999444444", DEC_OK},
      {"9999999.99", kBy, "-10", "-999999.999", DEC_OK},
      {"10000000", kBy, "10", "1000000", DEC_OK},
      {"0.000000001", kBy, "3", "0", DEC_UNDERFLOW},
      {"0.000000005", kTimes, "0.1", "0.000000001", DEC_OK},
      {"-0.000000005", kTimes, "0.1", "-0.000000001", DEC_OK},
      {"0.000000003", kTimes, "0.03", "0", DEC_UNDERFLOW},
      {"0.000000001", kTimes, "0.1", "0", DEC_UNDERFLOW},
      // A zero keeps the minus of the value that vanished; of two powers of ten the negative moves.
      {"-0.000000001", kTimes, "0.1", "-0", DEC_UNDERFLOW},
      {"0.1", kTimes, "-0.000000001", "-0", DEC_UNDERFLOW},
      {"0.000000001", kTimes, "-0.1", "-0", DEC_UNDERFLOW},
      {"-0.1", kTimes, "0.000000001", "-0", DEC_UNDERFLOW},
      {"0.000000003", kTimes, "-0.1", "0", DEC_UNDERFLOW},
      {"-1", kTimes, "-1", "1", DEC_OK},
      {"-3", kTimes, "3", "-9", DEC_OK},
      {"-5", kPlus, "5", "0", DEC_OK},
      {"-0.000000001", kMinus, "-0.000000001", "0", DEC_OK},
  };
  for (const auto& row : rows) {
    CDecimal left(row.szLeft);
    (left.*row.pfnOperation)(CDecimal(row.szRight));
    EXPECT_EQ(CDecimal::GetLastStatus(), row.eStatus) << "row " << &row - rows;
    EXPECT_STREQ(left.toExactString(), row.szResult) << "row " << &row - rows;
  }
  const CDecimal lost = CDecimal("-0.000000001") * CDecimal("0.1");
  EXPECT_LT(lost, CDecimal::ms_Zero);
  EXPECT_EQ(lost.Sign(), -1);
  EXPECT_EQ(CDecimal::Compare(CDecimal("0.000000001"), CDecimal("0.000000005")), -4);
  EXPECT_EQ(CDecimal::Compare(CDecimal("-0.000000001"), CDecimal("-0.00000001")), 1);
}

// Records that were damaged may give any value, but nothing outside the twelve bytes is touched.
TEST_F(DecimalArithmetic, SurvivesNibblesThatAreNoDigits) {
  SetHandlers(Handler::kDefault);
  Random random(20232);
  for (int i = 0; i < Rounds(20'000); ++i) {
    CDecimal values[3];
    for (CDecimal& value : values) {
      packed::Bytes bytes;
      for (std::uint8_t& nByte : bytes) {
        nByte = static_cast<std::uint8_t>(random() | (i % 2 == 0 ? random() : 0));
      }
      value = CDecimal::FromBytes(bytes);
    }
    kOperations[i % kOperationCount].pfnReal(values[0], values[1], values[2],
                                             Below(random, 200) - 100);
    std::ostringstream stream;
    stream << values[0] << values[0].toDouble() << values[0].FormatDebugString(i % 12);
  }
  CDecimal::ForgetDebugFormat();
}

}  // namespace ald::test
