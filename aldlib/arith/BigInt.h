#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <string_view>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

// Two's-complement integers of a fixed width: nBits / 32 words and nothing else, no heap, no sign
// apart. CBigInt<160> is the math type of the decimal: it holds the exact product of two 23-digit
// values.
//
// Nothing throws. Each width keeps one error record for the whole process, read by GetMathError. It
// is written, on success too, by op_Add, op_Subtract, op_Multiply, DivideWithRemainder and
// fromDouble, and by whatever is built on them (negation, the decimal texts); look at it before the
// next of these runs.
//
//   CBigInt<160> product = CBigInt<160>(1250) * 7;
//   product.toDecimalString();                          // "8750"
//
// What may surprise, and is relied on:
//   - op_Add and op_Subtract clamp at the limits; op_Multiply does not: its overflow leaves some
//   value.
//   - zero times a negative value reports MATH_OVERFLOW, with the right value 0.
//   - minValue has no magnitude: its negation is maxValue, and it prints one short of its value.
//   - both shifts are logical: -1 >> 1 is maxValue.
//   - the first division by zero of each width raises the machine's division fault.
namespace ald {

enum MathError : std::int32_t { MATH_OK = 0, MATH_OVERFLOW = 1, MATH_DIVIDE_BY_ZERO = 2 };

template <int nBits>
class CBigInt {
 public:
  static_assert(nBits >= 64 && nBits <= 256 && nBits % 32 == 0);
  static constexpr int kBits = nBits;
  static constexpr int kWords = nBits / 32;

  // Word 0 is the least significant; the top bit of the last word is the sign.
  std::uint32_t m_aWords[static_cast<std::size_t>(nBits) / 32];

  static const CBigInt ms_Zero;
  static const CBigInt ms_One;
  static const CBigInt ms_MinusOne;
  static const CBigInt ms_Five;
  static const CBigInt ms_Ten;
  // Entry i holds i, 0 to 15: what a digit of a text adds.
  static const CBigInt ms_aFastConvert[16];

  // The error record of this width. One for the process, whatever the name says.
  struct CALWThreadData {
    std::int32_t m_nMathError;
  };
  static CALWThreadData* m_pTlsData;
  static CALWThreadData m_pTlsData_storage;

  // Zero.
  constexpr CBigInt() : m_aWords{} {}
  // Signed values extend their sign, unsigned ones are filled with zeros.
  template <std::integral TInteger>
  constexpr CBigInt(TInteger nValue) : m_aWords{} {
    const auto nLow = static_cast<std::uint64_t>(static_cast<std::int64_t>(nValue));
    const bool bNegative = std::signed_integral<TInteger> && nValue < TInteger{0};
    m_aWords[0] = static_cast<std::uint32_t>(nLow);
    m_aWords[1] = static_cast<std::uint32_t>(nLow >> 32);
    for (int i = 2; i < kWords; ++i) m_aWords[i] = bNegative ? ~0U : 0U;
  }

  // The limits: -2^(nBits-1) and 2^(nBits-1) - 1.
  static const CBigInt& minValue();
  static const CBigInt& maxValue();

  // The last outcome that was written, a MathError.
  static std::int32_t GetMathError() { return m_pTlsData->m_nMathError; }
  // Stores a code. With MATH_OVERFLOW and a value, the value becomes the limit of its sign.
  static void SetMathError(std::int32_t nError, CBigInt* pValue = nullptr);

  // In place; past a limit the result is that limit (of the sign of *this) and MATH_OVERFLOW.
  CBigInt& op_Add(const CBigInt& other);
  CBigInt& op_Subtract(const CBigInt& other);
  // In place. A product that does not fit reports MATH_OVERFLOW in most cases, not in all, and
  // leaves what the word-by-word accumulation holds.
  CBigInt& op_Multiply(const CBigInt& other);
  // *this becomes the quotient cut towards zero; `remainder` takes the sign of the dividend. A zero
  // divisor gives 0 and 0 with MATH_DIVIDE_BY_ZERO. `remainder` may be the divisor.
  CBigInt& DivideWithRemainder(const CBigInt& divisor, CBigInt& remainder);
  // Logical shifts in place. A negative count shifts the other way; nBits or more gives 0.
  CBigInt& op_LeftShift(int nCount);
  CBigInt& op_RightShift(int nCount);

  // -1, 0 or 1.
  static int CompareSigned(const CBigInt& a, const CBigInt& b);
  static int CompareUnsigned(const CBigInt& a, const CBigInt& b);

  // Signed decimal text without leading zeros.
  CString toDecimalString() const;
  // The same characters, without a terminator, written to end at pEnd; kDecimalRoom of them at the
  // most. Returns where they begin. Needs no memory.
  char* WriteDecimal(char* pEnd) const;
  static constexpr int kDecimalRoom = nBits * 30103 / 100000 + 2;
  // The bit pattern: nBits / 4 digits, upper case, and nBits digits.
  CString toHexString() const;
  CString toBinaryString() const;

  // Leading white space and one "-" are skipped. A text that ends at a character that is no digit
  // keeps one factor of the base too many: "12x" gives 120. Callers pass what they have checked.
  CBigInt& fromDecimalString(const char* szText);
  CBigInt& fromDecimalString(std::string_view sText);
  CBigInt& fromHexString(const char* szText);
  // Reads from the right end, at most nBits digits, and stops at any other character.
  CBigInt& fromBinaryString(const char* szText);

  double toDouble() const;
  // Cuts towards zero, or rounds half away from zero first. What is not finite gives 0 with
  // MATH_OK; past the limits the result is the limit and MATH_OVERFLOW.
  CBigInt& fromDouble(double value, bool bRound);

  constexpr bool IsNegative() const { return (m_aWords[kWords - 1] >> 31) != 0; }
  constexpr bool IsPositive() const { return !IsNegative(); }  // zero counts as positive
  constexpr bool IsZero() const {
    std::uint32_t nAll = 0;
    for (const std::uint32_t nWord : m_aWords) nAll |= nWord;
    return nAll == 0;
  }
  // Of minValue the limit maxValue: it has no exact magnitude.
  CBigInt Abs() const { return IsNegative() ? -*this : *this; }

  constexpr bool GetBit(int nBit) const {
    return nBit >= 0 && nBit < nBits && ((m_aWords[nBit / 32] >> (nBit % 32)) & 1U) != 0;
  }
  // Index of the bit, or -1 for zero.
  int HighestSetBit() const;
  int LowestSetBit() const;
  // Bit nBit and every bit above it (below it) take the value. Bits outside the width are ignored.
  void SetBitsFrom(int nBit, bool bValue);
  void SetBitsBelow(int nBit, bool bValue);
  // The top bit alone; the others stay, so this is no negation.
  constexpr void SetSignBit(bool bValue) {
    constexpr std::uint32_t kTop = 0x80000000U;
    std::uint32_t& nWord = m_aWords[kWords - 1];
    nWord = bValue ? nWord | kTop : nWord & ~kTop;
  }

  CBigInt operator-() const;
  CBigInt operator~() const {
    CBigInt result;
    for (int i = 0; i < kWords; ++i) result.m_aWords[i] = ~m_aWords[i];
    return result;
  }

  CBigInt& operator+=(const CBigInt& other) { return op_Add(other); }
  CBigInt& operator-=(const CBigInt& other) { return op_Subtract(other); }
  CBigInt& operator*=(const CBigInt& other) { return op_Multiply(other); }
  CBigInt& operator/=(const CBigInt& other) {
    CBigInt remainder;
    return DivideWithRemainder(other, remainder);
  }
  CBigInt& operator%=(const CBigInt& other) {
    CBigInt remainder;
    DivideWithRemainder(other, remainder);
    return *this = remainder;
  }
  CBigInt& operator<<=(int nCount) { return op_LeftShift(nCount); }
  CBigInt& operator>>=(int nCount) { return op_RightShift(nCount); }
  CBigInt& operator&=(const CBigInt& other) {
    for (int i = 0; i < kWords; ++i) m_aWords[i] &= other.m_aWords[i];
    return *this;
  }
  CBigInt& operator|=(const CBigInt& other) {
    for (int i = 0; i < kWords; ++i) m_aWords[i] |= other.m_aWords[i];
    return *this;
  }
  CBigInt& operator^=(const CBigInt& other) {
    for (int i = 0; i < kWords; ++i) m_aWords[i] ^= other.m_aWords[i];
    return *this;
  }

  friend CBigInt operator+(CBigInt a, const CBigInt& b) { return a += b; }
  friend CBigInt operator-(CBigInt a, const CBigInt& b) { return a -= b; }
  friend CBigInt operator*(CBigInt a, const CBigInt& b) { return a *= b; }
  friend CBigInt operator/(CBigInt a, const CBigInt& b) { return a /= b; }
  friend CBigInt operator%(CBigInt a, const CBigInt& b) { return a %= b; }
  friend CBigInt operator<<(CBigInt a, int nCount) { return a <<= nCount; }
  friend CBigInt operator>>(CBigInt a, int nCount) { return a >>= nCount; }
  friend CBigInt operator&(CBigInt a, const CBigInt& b) { return a &= b; }
  friend CBigInt operator|(CBigInt a, const CBigInt& b) { return a |= b; }
  friend CBigInt operator^(CBigInt a, const CBigInt& b) { return a ^= b; }

  friend bool operator==(const CBigInt& a, const CBigInt& b) { return CompareSigned(a, b) == 0; }
  friend std::strong_ordering operator<=>(const CBigInt& a, const CBigInt& b) {
    return CompareSigned(a, b) <=> 0;
  }

 private:
  void SetBit(int nBit) { m_aWords[nBit / 32] |= 1U << (nBit % 32); }
  void Clear() { *this = CBigInt(); }
  static CBigInt MultiplyByWords(const CBigInt& left, const CBigInt& right, bool bUnlike);
  std::uint32_t DivideByWord(std::uint32_t nDivisor);
  static void DivideMagnitudes(const CBigInt& dividend, const CBigInt& divisor, CBigInt& quotient,
                               CBigInt& remainder);
};

// Writes the decimal text.
template <int nBits>
ALDLIB_EXPORT std::ostream& operator<<(std::ostream& stream, const CBigInt<nBits>& value);

#define ALDLIB_DECLARE_BIGINT(nBits)                  \
  extern template class ALDLIB_EXPORT CBigInt<nBits>; \
  extern template ALDLIB_EXPORT std::ostream& operator<<(std::ostream&, const CBigInt<nBits>&);
ALDLIB_DECLARE_BIGINT(64)
ALDLIB_DECLARE_BIGINT(96)
ALDLIB_DECLARE_BIGINT(128)
ALDLIB_DECLARE_BIGINT(160)
ALDLIB_DECLARE_BIGINT(192)
ALDLIB_DECLARE_BIGINT(224)
ALDLIB_DECLARE_BIGINT(256)
#undef ALDLIB_DECLARE_BIGINT

static_assert(sizeof(CBigInt<160>) == 20 && alignof(CBigInt<160>) == 4);

}  // namespace ald

template <int nBits>
struct std::hash<ald::CBigInt<nBits>> {
  std::size_t operator()(const ald::CBigInt<nBits>& value) const noexcept {
    std::size_t nHash = 0;
    for (const std::uint32_t nWord : value.m_aWords) {
      nHash = (nHash ^ nWord) * std::size_t{0x9E3779B97F4A7C15U};
      nHash ^= nHash >> 32;
    }
    return nHash;
  }
};
