#include "aldlib/arith/BigInt.h"

#include <algorithm>
#include <bit>

#include "aldlib/platform/Machine.h"
#include "aldlib/platform/Platform.h"

namespace ald {

namespace {

template <int nBits>
constexpr CBigInt<nBits> Limit(std::uint32_t nTopWord, std::uint32_t nOtherWords) {
  CBigInt<nBits> limit;
  for (std::uint32_t& nWord : limit.m_aWords) nWord = nOtherWords;
  limit.m_aWords[CBigInt<nBits>::kWords - 1] = nTopWord;
  return limit;
}

}  // namespace

template <int nBits>
constinit const CBigInt<nBits> CBigInt<nBits>::ms_Zero{0};
template <int nBits>
constinit const CBigInt<nBits> CBigInt<nBits>::ms_One{1};
template <int nBits>
constinit const CBigInt<nBits> CBigInt<nBits>::ms_MinusOne{-1};
template <int nBits>
constinit const CBigInt<nBits> CBigInt<nBits>::ms_Five{5};
template <int nBits>
constinit const CBigInt<nBits> CBigInt<nBits>::ms_Ten{10};
template <int nBits>
constinit const CBigInt<nBits> CBigInt<nBits>::ms_aFastConvert[16] = {0, 1, 2,  3,  4,  5,  6,  7,
                                                                      8, 9, 10, 11, 12, 13, 14, 15};
template <int nBits>
constinit typename CBigInt<nBits>::CALWThreadData CBigInt<nBits>::m_pTlsData_storage{MATH_OK};
template <int nBits>
constinit typename CBigInt<nBits>::CALWThreadData* CBigInt<nBits>::m_pTlsData =
    &CBigInt<nBits>::m_pTlsData_storage;

template <int nBits>
const CBigInt<nBits>& CBigInt<nBits>::minValue() {
  static constexpr CBigInt kLimit = Limit<nBits>(0x80000000U, 0);
  return kLimit;
}

template <int nBits>
const CBigInt<nBits>& CBigInt<nBits>::maxValue() {
  static constexpr CBigInt kLimit = Limit<nBits>(0x7FFFFFFFU, 0xFFFFFFFFU);
  return kLimit;
}

template <int nBits>
void CBigInt<nBits>::SetMathError(std::int32_t nError, CBigInt* pValue) {
  m_pTlsData->m_nMathError = nError;
  if (nError == MATH_OVERFLOW && pValue != nullptr) {
    *pValue = pValue->IsNegative() ? minValue() : maxValue();
  }
}

template <int nBits>
CBigInt<nBits>& CBigInt<nBits>::op_Add(const CBigInt& other) {
  const bool bNegative = IsNegative();
  const bool bOtherNegative = other.IsNegative();
  std::uint64_t nCarry = 0;
  for (int i = 0; i < kWords; ++i) {
    nCarry += std::uint64_t{m_aWords[i]} + other.m_aWords[i];
    m_aWords[i] = static_cast<std::uint32_t>(nCarry);
    nCarry >>= 32;
  }
  const bool bOverflow = bNegative == bOtherNegative && IsNegative() != bNegative;
  m_pTlsData->m_nMathError = bOverflow ? MATH_OVERFLOW : MATH_OK;
  if (bOverflow) *this = bNegative ? minValue() : maxValue();
  return *this;
}

template <int nBits>
CBigInt<nBits>& CBigInt<nBits>::op_Subtract(const CBigInt& other) {
  const bool bNegative = IsNegative();
  const bool bOtherNegative = other.IsNegative();
  std::uint64_t nBorrow = 0;
  for (int i = 0; i < kWords; ++i) {
    const std::uint64_t nDifference = std::uint64_t{m_aWords[i]} - other.m_aWords[i] - nBorrow;
    m_aWords[i] = static_cast<std::uint32_t>(nDifference);
    nBorrow = nDifference >> 63;
  }
  const bool bOverflow = bNegative != bOtherNegative && IsNegative() != bNegative;
  m_pTlsData->m_nMathError = bOverflow ? MATH_OVERFLOW : MATH_OK;
  if (bOverflow) *this = bNegative ? minValue() : maxValue();
  return *this;
}

// Complement and add one. Where the complement is odd, the addition goes through op_Add, which
// clamps: that is why the negation of minValue is maxValue everywhere.
template <int nBits>
CBigInt<nBits> CBigInt<nBits>::operator-() const {
  CBigInt result = ~*this;
  if ((result.m_aWords[0] & 1U) == 0) {
    result.m_aWords[0] |= 1U;
  } else {
    result.op_Add(ms_One);
  }
  return result;
}

template <int nBits>
CBigInt<nBits>& CBigInt<nBits>::op_Multiply(const CBigInt& other) {
  const bool bUnlike = IsNegative() != other.IsNegative();
  const CBigInt left = Abs();
  const CBigInt right = other.Abs();
  // A product that surely stays below the sign bit shows none of the oddities; nor may a factor be
  // zero.
  const int nHighest = left.HighestSetBit();
  const int nOtherHighest = right.HighestSetBit();
  if (nHighest < 0 || nOtherHighest < 0 || nHighest + nOtherHighest + 1 >= nBits - 1) {
    return *this = MultiplyByWords(left, right, bUnlike);
  }

  CBigInt product;
  const int nWords = nHighest / 32 + 1;
  const int nOtherWords = nOtherHighest / 32 + 1;
  for (int i = 0; i < nOtherWords; ++i) {
    std::uint64_t nCarry = 0;
    for (int j = 0; j < nWords && i + j < kWords; ++j) {
      nCarry += std::uint64_t{right.m_aWords[i]} * left.m_aWords[j] + product.m_aWords[i + j];
      product.m_aWords[i + j] = static_cast<std::uint32_t>(nCarry);
      nCarry >>= 32;
    }
    if (i + nWords < kWords) product.m_aWords[i + nWords] = static_cast<std::uint32_t>(nCarry);
  }
  *this = bUnlike ? -product : product;
  m_pTlsData->m_nMathError = MATH_OK;
  return *this;
}

// Schoolbook, word by word, on magnitudes, as it is defined. Three oddities are the contract: an
// overflowing product is not clamped, a carry that op_Add swallows by clamping the accumulator is
// not reported, and the sign test at the end takes a zero product of unlike signs for an overflow.
template <int nBits>
CBigInt<nBits> CBigInt<nBits>::MultiplyByWords(const CBigInt& left, const CBigInt& right,
                                               bool bUnlike) {
  CBigInt sum;
  bool bOverflow = false;
  for (int i = 0; i < kWords; ++i) {
    if (right.m_aWords[i] == 0) continue;
    for (int j = 0; j < kWords; ++j) {
      if (left.m_aWords[j] == 0) continue;
      const int nOffset = 32 * (i + j);
      if (nOffset >= nBits) {
        bOverflow = true;
        continue;
      }
      const std::uint64_t nProduct = std::uint64_t{right.m_aWords[i]} * left.m_aWords[j];
      if ((nProduct >> 32) != 0 && nOffset + 32 >= nBits) bOverflow = true;
      CBigInt part(nProduct);
      sum.op_Add(part.op_LeftShift(nOffset));
    }
  }
  if (bUnlike) sum = -sum;
  if (!bOverflow) bOverflow = sum.IsNegative() != bUnlike;
  m_pTlsData->m_nMathError = bOverflow ? MATH_OVERFLOW : MATH_OK;
  return sum;
}

template <int nBits>
CBigInt<nBits>& CBigInt<nBits>::DivideWithRemainder(const CBigInt& divisor, CBigInt& remainder) {
  // Noted before the first write, since the remainder may be the divisor.
  const bool bNegative = IsNegative();
  const bool bUnlike = bNegative != divisor.IsNegative();
  const CBigInt divisorMagnitude = divisor.Abs();
  CBigInt quotient;
  CBigInt rest;

  if (divisorMagnitude.IsZero()) {
    remainder = rest;
    *this = quotient;
    m_pTlsData->m_nMathError = MATH_DIVIDE_BY_ZERO;
    // Once for each width the machine itself is made to divide by zero, so that a host's fault
    // handler learns of it; from then on the status alone tells.
    static bool bFaultRaised = false;
    if (!bFaultRaised) {
      bFaultRaised = true;
      CurrentPlatform().machine.RaiseDivisionFault();
    }
    return *this;
  }

  DivideMagnitudes(Abs(), divisorMagnitude, quotient, rest);
  // The quotient is written last: it stands when the dividend itself was passed for the remainder.
  remainder = bNegative ? -rest : rest;
  *this = bUnlike ? -quotient : quotient;
  m_pTlsData->m_nMathError = MATH_OK;
  return *this;
}

// The quotient and the remainder come in as zero.
template <int nBits>
void CBigInt<nBits>::DivideMagnitudes(const CBigInt& dividend, const CBigInt& divisor,
                                      CBigInt& quotient, CBigInt& remainder) {
  const int nOrder = CompareUnsigned(dividend, divisor);
  if (nOrder < 0) {
    remainder = dividend;
    return;
  }
  if (nOrder == 0) {
    quotient = ms_One;
    return;
  }
  if (dividend.HighestSetBit() < 64) {
    const auto low = [](const CBigInt& value) {
      return std::uint64_t{value.m_aWords[1]} << 32 | value.m_aWords[0];
    };
    quotient = CBigInt(low(dividend) / low(divisor));
    remainder = CBigInt(low(dividend) % low(divisor));
    return;
  }
  if (divisor.HighestSetBit() < 32) {
    quotient = dividend;
    remainder.m_aWords[0] = quotient.DivideByWord(divisor.m_aWords[0]);
    return;
  }

  // Long division in base 2^32 (Knuth, The Art of Computer Programming 4.3.1, algorithm D). Both
  // are shifted so that the divisor's highest bit is set: then a digit guessed from the two highest
  // words is at most two too large.
  const int nCount = divisor.HighestSetBit() / 32 + 1;
  const int nShift = 31 - divisor.HighestSetBit() % 32;
  CBigInt scaled = divisor;
  scaled.op_LeftShift(nShift);
  std::uint32_t anRest[kWords + 1] = {};
  for (int i = 0; i <= kWords; ++i) {
    const std::uint64_t nHigh = i < kWords ? dividend.m_aWords[i] : 0U;
    const std::uint64_t nLow = i > 0 ? dividend.m_aWords[i - 1] : 0U;
    anRest[i] = static_cast<std::uint32_t>((nHigh << 32 | nLow) >> (32 - nShift));
  }
  const std::uint64_t nTop = scaled.m_aWords[nCount - 1];
  const std::uint64_t nNext = scaled.m_aWords[nCount - 2];
  for (int i = kWords - nCount; i >= 0; --i) {
    const std::uint64_t nHighest = std::uint64_t{anRest[i + nCount]} << 32 | anRest[i + nCount - 1];
    std::uint64_t nGuess = nHighest / nTop;
    std::uint64_t nLeft = nHighest % nTop;
    while (nGuess >> 32 != 0 || nGuess * nNext > (nLeft << 32 | anRest[i + nCount - 2])) {
      --nGuess;
      nLeft += nTop;
      if (nLeft >> 32 != 0) break;
    }
    std::uint64_t nBorrow = 0;
    for (int j = 0; j < nCount; ++j) {
      const std::uint64_t nTaken = nGuess * scaled.m_aWords[j] + nBorrow;
      nBorrow = (nTaken >> 32) + (anRest[i + j] < static_cast<std::uint32_t>(nTaken) ? 1 : 0);
      anRest[i + j] -= static_cast<std::uint32_t>(nTaken);
    }
    const bool bTooLarge = anRest[i + nCount] < nBorrow;
    anRest[i + nCount] -= static_cast<std::uint32_t>(nBorrow);
    if (bTooLarge) {
      --nGuess;
      std::uint64_t nCarry = 0;
      for (int j = 0; j < nCount; ++j) {
        nCarry += std::uint64_t{anRest[i + j]} + scaled.m_aWords[j];
        anRest[i + j] = static_cast<std::uint32_t>(nCarry);
        nCarry >>= 32;
      }
      anRest[i + nCount] += static_cast<std::uint32_t>(nCarry);
    }
    quotient.m_aWords[i] = static_cast<std::uint32_t>(nGuess);
  }
  for (int i = 0; i < kWords; ++i) remainder.m_aWords[i] = anRest[i];
  remainder.op_RightShift(nShift);
}

// Divides the bit pattern and returns the remainder. The divisor is not zero.
template <int nBits>
std::uint32_t CBigInt<nBits>::DivideByWord(std::uint32_t nDivisor) {
  std::uint64_t nRest = 0;
  for (int i = kWords - 1; i >= 0; --i) {
    nRest = nRest << 32 | m_aWords[i];
    m_aWords[i] = static_cast<std::uint32_t>(nRest / nDivisor);
    nRest %= nDivisor;
  }
  return static_cast<std::uint32_t>(nRest);
}

template <int nBits>
CBigInt<nBits>& CBigInt<nBits>::op_LeftShift(int nCount) {
  if (nCount == 0 || IsZero()) return *this;
  if (nCount <= -nBits || nCount >= nBits) {
    Clear();
    return *this;
  }
  if (nCount < 0) return op_RightShift(-nCount);
  const int nWords = nCount / 32;
  const int nRest = nCount % 32;
  for (int i = kWords - 1; i >= 0; --i) {
    const std::uint64_t nHigh = i >= nWords ? m_aWords[i - nWords] : 0U;
    const std::uint64_t nLow = i > nWords ? m_aWords[i - nWords - 1] : 0U;
    m_aWords[i] = static_cast<std::uint32_t>((nHigh << 32 | nLow) >> (32 - nRest));
  }
  return *this;
}

template <int nBits>
CBigInt<nBits>& CBigInt<nBits>::op_RightShift(int nCount) {
  if (nCount == 0 || IsZero()) return *this;
  if (nCount <= -nBits || nCount >= nBits) {
    Clear();
    return *this;
  }
  if (nCount < 0) return op_LeftShift(-nCount);
  const int nWords = nCount / 32;
  const int nRest = nCount % 32;
  for (int i = 0; i < kWords; ++i) {
    const std::uint64_t nLow = i + nWords < kWords ? m_aWords[i + nWords] : 0U;
    const std::uint64_t nHigh = i + nWords + 1 < kWords ? m_aWords[i + nWords + 1] : 0U;
    m_aWords[i] = static_cast<std::uint32_t>((nHigh << 32 | nLow) >> nRest);
  }
  return *this;
}

template <int nBits>
int CBigInt<nBits>::CompareSigned(const CBigInt& a, const CBigInt& b) {
  if (a.IsNegative() != b.IsNegative()) return a.IsNegative() ? -1 : 1;
  return CompareUnsigned(a, b);
}

template <int nBits>
int CBigInt<nBits>::CompareUnsigned(const CBigInt& a, const CBigInt& b) {
  for (int i = kWords - 1; i >= 0; --i) {
    if (a.m_aWords[i] != b.m_aWords[i]) return a.m_aWords[i] < b.m_aWords[i] ? -1 : 1;
  }
  return 0;
}

template <int nBits>
int CBigInt<nBits>::HighestSetBit() const {
  for (int i = kWords - 1; i >= 0; --i) {
    if (m_aWords[i] != 0) return 32 * i + 31 - std::countl_zero(m_aWords[i]);
  }
  return -1;
}

template <int nBits>
int CBigInt<nBits>::LowestSetBit() const {
  for (int i = 0; i < kWords; ++i) {
    if (m_aWords[i] != 0) return 32 * i + std::countr_zero(m_aWords[i]);
  }
  return -1;
}

template <int nBits>
void CBigInt<nBits>::SetBitsFrom(int nBit, bool bValue) {
  nBit = std::clamp(nBit, 0, nBits);
  for (int i = 0; i < kWords; ++i) {
    const int nFirst = nBit - 32 * i;
    const std::uint32_t nMask = nFirst <= 0 ? ~0U : nFirst >= 32 ? 0U : ~0U << nFirst;
    m_aWords[i] = bValue ? m_aWords[i] | nMask : m_aWords[i] & ~nMask;
  }
}

template <int nBits>
void CBigInt<nBits>::SetBitsBelow(int nBit, bool bValue) {
  nBit = std::clamp(nBit, -1, nBits - 1);
  for (int i = 0; i < kWords; ++i) {
    const int nLast = nBit - 32 * i;
    const std::uint32_t nMask = nLast < 0 ? 0U : nLast >= 31 ? ~0U : ~(~0U << (nLast + 1));
    m_aWords[i] = bValue ? m_aWords[i] | nMask : m_aWords[i] & ~nMask;
  }
}

template class CBigInt<64>;
template class CBigInt<96>;
template class CBigInt<128>;
template class CBigInt<160>;
template class CBigInt<192>;
template class CBigInt<224>;
template class CBigInt<256>;

}  // namespace ald
