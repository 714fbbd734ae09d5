#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/arith/PackedWords.h"

// Addition, subtraction, multiplication, division and comparison of ordinary values, on whole words
// at once.
//
// Ordinary means: no object has an overflow item, both signs are 0xD or 0xF, and the result fits
// and is not a zero that has something to report. Then the outcome is the bytes and DEC_OK, and
// that is all that these roads store. They leave everything else, untouched, to
// FixedDecimalByDigits.cpp.
namespace ald {

namespace {

using packed::BinaryOf;
using packed::DigitsOf;
using packed::UInt128;
using packed::Words;

constexpr std::uint64_t kTenTo7 = 10'000'000;
constexpr std::uint64_t kTenTo9 = 1'000'000'000;
constexpr std::uint64_t kTenTo10 = 10'000'000'000;
constexpr std::uint64_t kTenTo14 = 100'000'000'000'000;
constexpr std::uint64_t kTenTo16 = 10'000'000'000'000'000;

// Two decimals at the most: the seven digits of the low word are zero, and the high one counts
// cents.
[[gnu::always_inline]] inline bool AreCents(Words a, Words b) {
  return ((a.nLow | b.nLow) & packed::kLowDigits) == 0;
}

[[gnu::always_inline]] inline Words Signed(Words digits, std::uint64_t nSign) {
  digits.nLow |= nSign;
  return digits;
}

}  // namespace

[[gnu::always_inline]] inline CDecimal& CDecimal::StoreGood(Words words) {
  packed::Store(words, m_aBytes);
  m_pTlsData_storage.m_eLastStatus = DEC_OK;
  return *this;
}

// Apart from the road of like signs, so that that one saves no registers.
[[gnu::noinline]] CDecimal& CDecimal::StoreDifference(Words a, Words b) {
  return StoreGood(packed::DifferenceOfDigits(a, b));
}

CDecimal& CDecimal::op_Add(const CDecimal& other) {
  Words a = packed::Load(m_aBytes);
  const Words b = packed::Load(other.m_aBytes);
  if (RegistryExists() || !packed::HavePlainSigns(a, b)) [[unlikely]]
    return AddByDigits(other);
  if (!packed::HaveLikeSigns(a, b)) return StoreDifference(a, b);
  // Two zeros that are marked negative make a positive one.
  if (packed::AddDigits(a, b) || (a.nHigh | (a.nLow ^ packed::kNegative)) == 0) [[unlikely]] {
    return AddByDigits(other);
  }
  return StoreGood(a);
}

// As the sum with the opposite, whose sign differs in one bit.
CDecimal& CDecimal::op_Subtract(const CDecimal& other) {
  Words a = packed::Load(m_aBytes);
  Words b = packed::Load(other.m_aBytes);
  if (RegistryExists() || !packed::HavePlainSigns(a, b)) [[unlikely]]
    return SubtractByDigits(other);
  b.nLow ^= packed::kPlusBit;
  if (!packed::HaveLikeSigns(a, b)) return StoreDifference(a, b);
  if (packed::AddDigits(a, b) || (a.nHigh | (a.nLow ^ packed::kNegative)) == 0) [[unlikely]] {
    return SubtractByDigits(other);
  }
  return StoreGood(a);
}

CDecimal& CDecimal::op_Multiply(const CDecimal& other) {
  const Words a = packed::Load(m_aBytes);
  const Words b = packed::Load(other.m_aBytes);
  if (RegistryExists() || !packed::HavePlainSigns(a, b)) [[unlikely]]
    return MultiplyByDigits(other);
  const std::uint64_t nSign = packed::SignOfProduct(a, b);

  if (AreCents(a, b)) {
    const auto [nLeft, nRight] = BinaryOf(a.nHigh, b.nHigh);
    std::uint64_t nProduct;  // four decimals
    if (!__builtin_mul_overflow(nLeft, nRight, &nProduct) && nProduct != 0 &&
        nProduct / 100 < kTenTo16) {
      return StoreGood(Signed(DigitsOf(nProduct / 100, nProduct % 100 * 1'000'000), nSign));
    }
    return MultiplyByDigits(other);
  }

  // Split at the point: (I + f) * (J + g) = IJ + (Ig + Jf + fg).
  const auto [nLeft, nRight] = BinaryOf(a.nHigh >> 8, b.nHigh >> 8);
  const auto [nLeftPart, nRightPart] =
      BinaryOf((a.nHigh & 0xFF) << 28 | a.nLow >> 4, (b.nHigh & 0xFF) << 28 | b.nLow >> 4);
  // The one rounding: all other terms have whole ninth decimals.
  const std::uint64_t nRounded = (nLeftPart * nRightPart + kTenTo9 / 2) / kTenTo9;
  std::uint64_t nWhole;
  std::uint64_t nPart;
  if ((nLeft | nRight) >> 30 == 0) [[likely]] {
    const std::uint64_t nCross = nLeft * nRightPart + nRight * nLeftPart + nRounded;  // below 2^62
    nWhole = nLeft * nRight + nCross / kTenTo9;
    nPart = nCross % kTenTo9;
  } else {
    const UInt128 nCross = UInt128{nLeft} * nRightPart + UInt128{nRight} * nLeftPart + nRounded;
    const UInt128 nSum = UInt128{nLeft} * nRight + nCross / kTenTo9;
    if (nSum >= kTenTo14) return MultiplyByDigits(other);
    nWhole = static_cast<std::uint64_t>(nSum);
    nPart = static_cast<std::uint64_t>(nCross % kTenTo9);
  }
  if (nWhole >= kTenTo14 || (nWhole | nPart) == 0) [[unlikely]]
    return MultiplyByDigits(other);
  return StoreGood(Signed(DigitsOf(nWhole * 100 + nPart / kTenTo7, nPart % kTenTo7 * 10), nSign));
}

namespace {

// nHigh * 2^64 + nLow by nDivisor; nHigh must be the smaller, so that the quotient fits.
[[gnu::always_inline]] inline std::uint64_t Divide128By64(UInt128 nDividend,
                                                          std::uint64_t nDivisor) {
#if defined(__x86_64__) && !defined(ALDLIB_PORTABLE_ARITHMETIC)
  auto nHigh = static_cast<std::uint64_t>(nDividend >> 64);
  auto nLow = static_cast<std::uint64_t>(nDividend);
  __asm__("divq %2" : "+a"(nLow), "+d"(nHigh) : "r"(nDivisor) : "cc");
  return nLow;
#else
  return static_cast<std::uint64_t>(nDividend / nDivisor);
#endif
}

}  // namespace

CDecimal& CDecimal::op_Divide(const CDecimal& other) {
  const Words a = packed::Load(m_aBytes);
  const Words b = packed::Load(other.m_aBytes);
  if (RegistryExists() || !packed::HavePlainSigns(a, b)) [[unlikely]]
    return DivideByDigits(other);

  // Dividend and divisor on one scale, times ten where a low word takes part, so that no nibble has
  // to be moved. The quotient has ten decimals, cut; the tenth rounds it.
  const auto [nLeft, nRight] = BinaryOf(a.nHigh, b.nHigh);
  UInt128 nQuotient;
  constexpr std::uint64_t kMostCents = ~std::uint64_t{0} / kTenTo10;
  if (AreCents(a, b)) {
    if (nLeft == 0 || nRight == 0) return DivideByDigits(other);
    if (nLeft <= kMostCents) {
      nQuotient = nLeft * kTenTo10 / nRight;
    } else {
      nQuotient = UInt128{nLeft} * kTenTo10 / nRight;
    }
  } else {
    const auto [nLeftLow, nRightLow] =
        BinaryOf(a.nLow & packed::kLowDigits, b.nLow & packed::kLowDigits);
    const UInt128 nDividend = (UInt128{nLeft} * 100'000'000 + nLeftLow) * kTenTo10;  // below 2^114
    const UInt128 nDivisor = UInt128{nRight} * 100'000'000 + nRightLow;
    if (nDividend == 0 || nDivisor == 0) return DivideByDigits(other);
    if (nDivisor >> 64 == 0 && nDividend >> 64 < nDivisor) [[likely]] {
      nQuotient = Divide128By64(nDividend, static_cast<std::uint64_t>(nDivisor));
    } else {
      nQuotient = nDividend / nDivisor;
    }
  }
  std::uint64_t nHigh;
  std::uint64_t nLow;
  if (nQuotient >> 63 == 0) [[likely]] {
    const std::uint64_t nRounded = (static_cast<std::uint64_t>(nQuotient) + 5) / 10;
    nHigh = nRounded / kTenTo7;
    nLow = nRounded % kTenTo7 * 10;
    if (nRounded == 0) return DivideByDigits(other);
  } else {
    const UInt128 nRounded = (nQuotient + 5) / 10;
    const UInt128 nTop = nRounded / kTenTo7;
    if (nTop >= kTenTo16) return DivideByDigits(other);
    nHigh = static_cast<std::uint64_t>(nTop);
    nLow = static_cast<std::uint64_t>(nRounded % kTenTo7) * 10;
  }
  return StoreGood(Signed(DigitsOf(nHigh, nLow), packed::SignOfProduct(a, b)));
}

// The first difference in the upper 22 digits decides; one in the last digit alone answers with its
// amount, which callers may see.
int CDecimal::Compare(const CDecimal& a, const CDecimal& b) {
  const Words left = packed::Load(a.m_aBytes);
  const Words right = packed::Load(b.m_aBytes);
  const bool bNegative = a.IsNegative();
  if (bNegative != b.IsNegative()) return bNegative ? -1 : 1;
  const int nSense = bNegative ? -1 : 1;
  if (left.nHigh != right.nHigh) return left.nHigh < right.nHigh ? -nSense : nSense;
  if (left.nLow >> 8 != right.nLow >> 8) return left.nLow < right.nLow ? -nSense : nSense;
  const int nDifference =
      static_cast<int>(left.nLow >> 4 & 0xF) - static_cast<int>(right.nLow >> 4 & 0xF);
  if (nDifference != 0 || !RegistryExists()) return nSense * nDifference;
  if (FindItem(&a) == nullptr && FindItem(&b) == nullptr) return 0;
  return MathType::CompareSigned(a.toMathType(), b.toMathType());
}

}  // namespace ald
