#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/arith/internal/FixedDecimalWords.h"

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
using packed::BinaryOfHighs;
using packed::BinaryOfLows;
using packed::FoursOf;
using packed::SignOfProduct;
using packed::UInt128;
using packed::Words;

constexpr std::uint64_t kTenTo7 = 10'000'000;
constexpr std::uint64_t kTenTo8 = 100'000'000;
constexpr std::uint64_t kTenTo9 = 1'000'000'000;
constexpr std::uint64_t kTenTo10 = 10'000'000'000;
constexpr std::uint64_t kTenTo11 = 100'000'000'000;
constexpr std::uint64_t kTenTo14 = 100'000'000'000'000;
constexpr std::uint64_t kTenTo16 = 10'000'000'000'000'000;
constexpr std::uint64_t kTenTo18 = 1'000'000'000'000'000'000;

// With a high word up to this the whole value, times ten, is below 2^64.
constexpr std::uint64_t kMostHigh = ~std::uint64_t{0} / kTenTo8 - 1;

// Two decimals at the most: the seven digits of the low word are zero, and the high one counts
// cents.
[[gnu::always_inline]] inline bool AreCents(Words a, Words b) {
  return ((a.nLow | b.nLow) & packed::kLowDigits) == 0;
}

// One bit for each of the last 64 sums of cents: whether their signs differed.
//
// A running total waits for each of its sums, and knowing that the signs agree shortens that wait
// by a third. Yet a branch on signs that come at random costs more than the sum. So the short road
// is tried only while no signs have differed for a while, which a processor learns to foresee in
// both cases.
constinit std::uint64_t g_nUnlikeSums = 0;

}  // namespace

// Apart from the road of cents, so that that one saves no registers.
template <bool bSubtract>
[[gnu::noinline]] CDecimal& CDecimal::StoreSum(const CDecimal& other) {
  Words a = packed::Load(m_aBytes);
  Words b = packed::Load(other.m_aBytes);
  if constexpr (bSubtract) b.nLow ^= packed::kPlusBit;
  if (packed::AddWords(a, b)) [[unlikely]] {
    return bSubtract ? SubtractByDigits(other) : AddByDigits(other);
  }
  return StoreGood(a);
}

template <bool bSubtract>
[[gnu::always_inline]] inline CDecimal& CDecimal::StoreSumOfCents(Words a, Words b,
                                                                  const CDecimal& other) {
  if (g_nUnlikeSums == 0 && packed::HaveLikeSigns(a, b)) {
    const packed::DigitSum sum(false, a.nHigh, b.nHigh + 6 * packed::kUnits);
    a.nHigh = sum.DigitsWithoutCarry();
    if (!sum.bCarry && !packed::IsNegativeZero(a)) [[likely]] {
      packed::StoreHigh(a, m_aBytes);
      m_pTlsData_storage.m_eLastStatus = DEC_OK;
      return *this;
    }
  } else {
    g_nUnlikeSums = g_nUnlikeSums << 1 | (packed::HaveLikeSigns(a, b) ? 0 : 1);
    if (!packed::AddHighWords(a, b)) [[likely]]
      return StoreGood(a);
  }
  return bSubtract ? SubtractByDigits(other) : AddByDigits(other);
}

CDecimal& CDecimal::op_Add(const CDecimal& other) {
  const Words a = packed::Load(m_aBytes);
  const Words b = packed::Load(other.m_aBytes);
  if (RegistryExists() || !packed::HavePlainSigns(a, b)) [[unlikely]]
    return AddByDigits(other);
  return AreCents(a, b) ? StoreSumOfCents<false>(a, b, other) : StoreSum<false>(other);
}

// As the sum with the opposite, whose sign differs in one bit.
CDecimal& CDecimal::op_Subtract(const CDecimal& other) {
  const Words a = packed::Load(m_aBytes);
  Words b = packed::Load(other.m_aBytes);
  if (RegistryExists() || !packed::HavePlainSigns(a, b)) [[unlikely]]
    return SubtractByDigits(other);
  b.nLow ^= packed::kPlusBit;
  return AreCents(a, b) ? StoreSumOfCents<true>(a, b, other) : StoreSum<true>(other);
}

CDecimal& CDecimal::op_Multiply(const CDecimal& other) {
  const Words a = packed::Load(m_aBytes);
  const Words b = packed::Load(other.m_aBytes);
  if (RegistryExists() || !packed::HavePlainSigns(a, b)) [[unlikely]]
    return MultiplyByDigits(other);
  if (!AreCents(a, b)) return StoreProduct(other);
  const auto [nLeft, nRight] = BinaryOfHighs(m_aBytes, other.m_aBytes);
  if ((nLeft | nRight) >> 32 != 0) [[unlikely]]
    return StoreProduct(other);
  const std::uint64_t nProduct = nLeft * nRight;  // four decimals
  if (nProduct == 0 || nProduct / 100 >= kTenTo16) [[unlikely]]
    return MultiplyByDigits(other);
  // Each quotient comes from the product itself, not from the one before it: they run side by side.
  const std::uint64_t nHundredth = nProduct / 100;
  const std::uint64_t nTop = nProduct / kTenTo10;
  const std::uint64_t nLastTwo = nProduct - nHundredth * 100;  // with six zeros behind them
  packed::StoreDigits(FoursOf(nTop), nHundredth - nTop * kTenTo8, nLastTwo * 1'000'000,
                      SignOfProduct(a, b), m_aBytes);
  return MarkGood();
}

// The values times ten, which saves moving their digits: H * 10^8 + L. Their product counts units
// of 10^-20, and its rounded ninth decimal is the eleventh digit from its end.
[[gnu::noinline]] CDecimal& CDecimal::StoreProduct(const CDecimal& other) {
  const auto [nLeft, nRight] = BinaryOfHighs(m_aBytes, other.m_aBytes);
  const auto [nLeftLow, nRightLow] = BinaryOfLows(m_aBytes, other.m_aBytes);
  if (nLeft > kMostHigh || nRight > kMostHigh) [[unlikely]]
    return StoreLargeProduct(other);
  const UInt128 nProduct =
      UInt128{nLeft * kTenTo8 + nLeftLow} * (nRight * kTenTo8 + nRightLow) + kTenTo11 / 2;
  if (nProduct >> 64 >= kTenTo16) [[unlikely]]
    return MultiplyByDigits(other);
  const auto [nHigh, nRest] = packed::Divide128By64(nProduct, kTenTo18);
  if (nHigh >= kTenTo16 || (nHigh == 0 && nRest < kTenTo11)) [[unlikely]]
    return MultiplyByDigits(other);
  const std::uint64_t nTop = nHigh / kTenTo8;
  // A tenth decimal comes last.
  packed::StoreDigits(FoursOf(nTop), nHigh - nTop * kTenTo8, nRest / kTenTo10,
                      SignOfProduct(m_aBytes, other.m_aBytes), m_aBytes);
  return MarkGood();
}

// Split at the point: (I + f) * (J + g) = IJ + (Ig + Jf + fg).
[[gnu::noinline]] CDecimal& CDecimal::StoreLargeProduct(const CDecimal& other) {
  const Words a = packed::Load(m_aBytes);
  const Words b = packed::Load(other.m_aBytes);
  const auto [nLeft, nRight] = BinaryOf(a.nHigh >> 8, b.nHigh >> 8);
  const auto [nLeftPart, nRightPart] =
      BinaryOf((a.nHigh & 0xFF) << 28 | a.nLow >> 4, (b.nHigh & 0xFF) << 28 | b.nLow >> 4);
  // The one rounding: all other terms have whole ninth decimals.
  const std::uint64_t nRounded = (nLeftPart * nRightPart + kTenTo9 / 2) / kTenTo9;
  const UInt128 nCross = UInt128{nLeft} * nRightPart + UInt128{nRight} * nLeftPart + nRounded;
  const UInt128 nWhole = UInt128{nLeft} * nRight + nCross / kTenTo9;
  const auto nPart = static_cast<std::uint64_t>(nCross % kTenTo9);
  if (nWhole >= kTenTo14 || (nWhole | nPart) == 0) return MultiplyByDigits(other);
  const std::uint64_t nUpper = static_cast<std::uint64_t>(nWhole) * 100 + nPart / kTenTo7;
  packed::StoreDigits(FoursOf(nUpper / kTenTo8), nUpper % kTenTo8, nPart % kTenTo7 * 10,
                      SignOfProduct(a, b), m_aBytes);
  return MarkGood();
}

namespace {

// Stores a quotient with ten decimals, the tenth of which rounds it; false, and nothing is stored,
// if it is zero or does not fit.
template <class TWide>
[[gnu::always_inline]] inline bool StoreDecimals(TWide nQuotient, std::uint64_t nSign,
                                                 packed::Bytes& bytes) {
  const TWide nRounded = nQuotient + 5;
  const TWide nTop = nRounded / kTenTo16;
  const TWide nUpper = nRounded / kTenTo8;
  if (nTop >= kTenTo8 || nRounded < 10) [[unlikely]]
    return false;
  const auto nMiddle = static_cast<std::uint64_t>(nUpper - nTop * kTenTo8);
  const auto nLow = static_cast<std::uint64_t>(nRounded - nUpper * kTenTo8);
  // Of 64 bits there are no more than four digits at the top.
  const std::uint64_t nTopFours = sizeof(TWide) == 8 ? static_cast<std::uint64_t>(nTop) << 16
                                                     : FoursOf(static_cast<std::uint64_t>(nTop));
  packed::StoreDigits(nTopFours, nMiddle, nLow, nSign, bytes);
  return true;
}

}  // namespace

CDecimal& CDecimal::op_Divide(const CDecimal& other) {
  const Words a = packed::Load(m_aBytes);
  const Words b = packed::Load(other.m_aBytes);
  if (RegistryExists() || !packed::HavePlainSigns(a, b)) [[unlikely]]
    return DivideByDigits(other);
  if (!AreCents(a, b)) return StoreQuotient(other);
  const auto [left, right] = packed::EightsOfHighs(m_aBytes, other.m_aBytes);
  const std::uint64_t nDivisor = right.Joined();
  // Below 18,000,000.00 the dividend with ten decimals more fits a word.
  if (left.nUpper > 17 || nDivisor == 0) [[unlikely]]
    return StoreQuotient(other);
  const std::uint64_t nQuotient = (left.nUpper * kTenTo18 + left.nLower * kTenTo10) / nDivisor;
  const std::uint64_t nRounded = nQuotient + 5;
  if (nRounded - 10 >= kTenTo16 - 10) [[unlikely]]
    return StoreRareQuotient(nQuotient, other);
  const std::uint64_t nUpper = nRounded / kTenTo8;
  packed::StoreDigits(0, nUpper, nRounded - nUpper * kTenTo8, SignOfProduct(a, b), m_aBytes);
  return MarkGood();
}

// Of amounts: a million and more, which has over sixteen digits with its ten decimals; or zero.
[[gnu::noinline]] CDecimal& CDecimal::StoreRareQuotient(std::uint64_t nQuotient,
                                                        const CDecimal& other) {
  if (!StoreDecimals(nQuotient, SignOfProduct(m_aBytes, other.m_aBytes), m_aBytes))
    return DivideByDigits(other);
  return MarkGood();
}

// Dividend and divisor are ten times what they count, as in the product.
[[gnu::noinline]] CDecimal& CDecimal::StoreQuotient(const CDecimal& other) {
  const auto [nLeft, nRight] = BinaryOfHighs(m_aBytes, other.m_aBytes);
  const auto [nLeftLow, nRightLow] = BinaryOfLows(m_aBytes, other.m_aBytes);
  // The sum of 128 bits by words: one term has no upper word.
  const UInt128 nScaled = UInt128{nLeft} * kTenTo18;
  const std::uint64_t nDividendLow = static_cast<std::uint64_t>(nScaled) + nLeftLow * kTenTo10;
  const std::uint64_t nDividendHigh =
      static_cast<std::uint64_t>(nScaled >> 64) + (nDividendLow < nLeftLow * kTenTo10 ? 1 : 0);
  const std::uint64_t nDivisor = nRight * kTenTo8 + nRightLow;
  // The quotient and the 5 that rounds it fit a word.
  if (nRight > kMostHigh || nDividendHigh >= nDivisor >> 1) [[unlikely]]
    return StoreLargeQuotient(other);
  const std::uint64_t nQuotient =
      packed::Divide128By64(UInt128{nDividendHigh} << 64 | nDividendLow, nDivisor).nQuotient;
  if (!StoreDecimals(nQuotient, SignOfProduct(m_aBytes, other.m_aBytes), m_aBytes)) [[unlikely]]
    return DivideByDigits(other);
  return MarkGood();
}

// The divisor or the quotient does not fit a word, or the divisor is zero.
[[gnu::noinline]] CDecimal& CDecimal::StoreLargeQuotient(const CDecimal& other) {
  const auto [nLeft, nRight] = BinaryOfHighs(m_aBytes, other.m_aBytes);
  const auto [nLeftLow, nRightLow] = BinaryOfLows(m_aBytes, other.m_aBytes);
  const UInt128 nDividend = UInt128{nLeft} * kTenTo18 + nLeftLow * kTenTo10;
  const UInt128 nDivisor = UInt128{nRight} * kTenTo8 + nRightLow;
  const std::uint64_t nSign = SignOfProduct(m_aBytes, other.m_aBytes);
  if (nDivisor == 0 || !StoreDecimals(nDividend / nDivisor, nSign, m_aBytes))
    return DivideByDigits(other);
  return MarkGood();
}

int CDecimal::Compare(const CDecimal& a, const CDecimal& b) {
  const Words left = packed::Load(a.m_aBytes);
  const Words right = packed::Load(b.m_aBytes);
  if (left.nHigh == right.nHigh) [[unlikely]]
    return CompareLastDigits(a, b);
  // Signs and order are as random as the data: masks instead of branches.
  const int nLeftMinus = packed::MinusMask(left);
  const int nRightMinus = packed::MinusMask(right);
  const int nOrder = (left.nHigh < right.nHigh ? -1 : 1) ^ nLeftMinus;  // -1 or 1, or else -2 or 0
  const int nUnlike = nLeftMinus ^ nRightMinus;
  return ((nOrder - nLeftMinus) & ~nUnlike) | ((nLeftMinus - nRightMinus) & nUnlike);
}

// The sixteen upper digits are alike. A difference in the last digit alone answers with its amount,
// which callers may see.
[[gnu::noinline]] int CDecimal::CompareLastDigits(const CDecimal& a, const CDecimal& b) {
  const Words left = packed::Load(a.m_aBytes);
  const Words right = packed::Load(b.m_aBytes);
  const int nLeftMinus = packed::MinusMask(left);
  const int nRightMinus = packed::MinusMask(right);
  if (nLeftMinus != nRightMinus) return nLeftMinus - nRightMinus;
  const int nSense = 1 + 2 * nLeftMinus;
  if (left.nLow >> 8 != right.nLow >> 8) return left.nLow < right.nLow ? -nSense : nSense;
  const int nDifference = packed::GetDigit(a.m_aBytes, 0) - packed::GetDigit(b.m_aBytes, 0);
  if (nDifference != 0) return nSense * nDifference;
  if (FindItem(&a) == nullptr && FindItem(&b) == nullptr) return 0;
  return MathType::CompareSigned(a.toMathType(), b.toMathType());
}

}  // namespace ald
