#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "aldlib/arith/PackedDigits.h"

#if defined(__SSE2__) && !defined(ALDLIB_PORTABLE_ARITHMETIC)
#define ALDLIB_PACKED_SSE2 1
#include <x86intrin.h>
#else
#define ALDLIB_PACKED_SSE2 0
#endif

// Twelve packed bytes as two machine words: sixteen digits, and seven digits with the sign. All
// digits are worked on at once; docs/packed-words.md derives every constant and proves every bound.
//
// The verbs here take digits 0 to 9. With anything else, which a damaged record can hold, they give
// some digits: never a fault, and never a read or a write beyond the words.
namespace ald::packed {

__extension__ using UInt128 = unsigned __int128;

struct Words {
  std::uint64_t nHigh;  // digits 22 to 7, the highest first
  std::uint64_t nLow;   // digits 6 to 0 and the sign nibble, in the low 32 bits
};

// The sign nibble; the places of the seven digits above it.
inline constexpr std::uint64_t kSignMask = 0xF;
inline constexpr std::uint64_t kLowDigits = 0xFFFFFFF0;
// Set in 0xF and clear in 0xD; the other three bits are set in both.
inline constexpr std::uint64_t kPlusBit = 2;

// Loads and stores are of eight bytes at 0 and four at 8, the way a compiler copies twelve bytes: a
// load finds what an earlier store of the same width still has on its way.
[[gnu::always_inline]] inline Words Load(const Bytes& bytes) {
  std::uint64_t nHigh;
  std::uint32_t nLow;
  std::memcpy(&nHigh, bytes.data(), 8);
  std::memcpy(&nLow, bytes.data() + 8, 4);
  if constexpr (std::endian::native == std::endian::little) {
    nHigh = __builtin_bswap64(nHigh);
    nLow = __builtin_bswap32(nLow);
  }
  return {nHigh, nLow};
}

[[gnu::always_inline]] inline void Store(Words words, Bytes& bytes) {
  std::uint64_t nHigh = words.nHigh;
  auto nLow = static_cast<std::uint32_t>(words.nLow);
  if constexpr (std::endian::native == std::endian::little) {
    nHigh = __builtin_bswap64(nHigh);
    nLow = __builtin_bswap32(nLow);
  }
  std::memcpy(bytes.data(), &nHigh, 8);
  std::memcpy(bytes.data() + 8, &nLow, 4);
}

// The upper sixteen digits alone.
[[gnu::always_inline]] inline void StoreHigh(Words words, Bytes& bytes) {
  std::uint64_t nHigh = words.nHigh;
  if constexpr (std::endian::native == std::endian::little) nHigh = __builtin_bswap64(nHigh);
  std::memcpy(bytes.data(), &nHigh, 8);
}

// Whether the sign is 0xD or 0xF.
[[gnu::always_inline]] inline bool HasPlainSign(Words a) {
  return ((a.nLow | kPlusBit) & kSignMask) == kSignMask;
}
// The same of both: a bit that either lacks is lacking in the conjunction.
[[gnu::always_inline]] inline bool HavePlainSigns(Words a, Words b) {
  return (a.nLow & b.nLow & (kSignMask ^ kPlusBit)) == (kSignMask ^ kPlusBit);
}
// Of two plain signs.
[[gnu::always_inline]] inline bool HaveLikeSigns(Words a, Words b) {
  return ((a.nLow ^ b.nLow) & kPlusBit) == 0;
}
// -1 for the sign 0xD, 0 for any other.
[[gnu::always_inline]] inline int MinusMask(Words a) {
  return static_cast<int>(static_cast<unsigned>((a.nLow & kSignMask) ^ kNegative) - 1) >> 31;
}
[[gnu::always_inline]] inline bool HasZeroDigits(Words a) {
  return (a.nHigh | (a.nLow & kLowDigits)) == 0;
}
[[gnu::always_inline]] inline bool IsNegativeZero(Words a) {
  return (a.nHigh | (a.nLow ^ kNegative)) == 0;
}
// The sign nibble of a product or a quotient.
[[gnu::always_inline]] inline std::uint64_t SignOfProduct(Words a, Words b) {
  return kSignMask ^ ((a.nLow ^ b.nLow) & kPlusBit);
}
[[gnu::always_inline]] inline std::uint64_t SignOfProduct(const Bytes& a, const Bytes& b) {
  return kSignMask ^ ((a[kBytes - 1] ^ b[kBytes - 1]) & kPlusBit);
}

// The sum of two words and a carry; returns the carry out of it.
[[gnu::always_inline]] inline bool AddWithCarry(bool bCarry, std::uint64_t a, std::uint64_t b,
                                                std::uint64_t& nSum) {
#if ALDLIB_PACKED_SSE2 && defined(__x86_64__)
  unsigned long long nResult;
  bCarry = _addcarry_u64(bCarry, a, b, &nResult) != 0;
  nSum = nResult;
  return bCarry;
#else
  const bool bFirst = __builtin_add_overflow(a, b, &nSum);
  return __builtin_add_overflow(nSum, std::uint64_t{bCarry}, &nSum) | bFirst;
#endif
}

inline constexpr std::uint64_t kUnits = 0x1111111111111111;  // 1 in every digit

// A sum of sixteen digits. A digit sum carries in base sixteen once it has 6 added. Unlike signs
// complement the smaller magnitude, 15 - d in every nibble: that is 9 - d with the 6 already in it,
// and the 1 that a complement is short of comes in below the last digit.
struct DigitSum {
  std::uint64_t nSum;
  bool bCarry;  // out of the top digit

  [[gnu::always_inline]] DigitSum(bool bCarryIn, std::uint64_t a, std::uint64_t b)
      : bCarry(AddWithCarry(bCarryIn, a, b, nSum)), m_nEqual(Ready(~(a ^ b))) {}

  // A digit that did not carry gives its 6 back.
  [[gnu::always_inline]] std::uint64_t Digits() const { return DigitsWith(!bCarry); }
  // The same where it is known that the top digit did not carry.
  [[gnu::always_inline]] std::uint64_t DigitsWithoutCarry() const { return DigitsWith(1); }

 private:
  [[gnu::always_inline]] std::uint64_t DigitsWith(std::uint64_t nTopKept) const {
    // Nothing came into the digit above: there the sum is what its terms make without a carry. Of
    // the top digit, above which there is none, bit 0 tells; the rotation brings it round.
    const std::uint64_t nKept = ((nSum ^ m_nEqual) & (kUnits - 1)) | nTopKept;
    return nSum - (std::rotr(nKept, 2) | std::rotr(nKept, 3));
  }
  // Has the value at hand before the sum is: the compiler would rather begin with the sum.
  [[gnu::always_inline]] static std::uint64_t Ready(std::uint64_t n) {
    __asm__("" : "+r"(n));
    return n;
  }

  std::uint64_t m_nEqual;
};

// The same of the seven digits of two low words, which stay where they are, without their signs:
// what digit 6 carries is bit 32, and a 1 comes in below digit 0.
struct LowDigitSum {
  std::uint64_t nSum;

  [[gnu::always_inline]] LowDigitSum(std::uint64_t nCarryIn, std::uint64_t a, std::uint64_t b)
      : nSum(a + b + (nCarryIn << 4)), m_nEqual(~(a ^ b)) {}

  [[gnu::always_inline]] bool Carries() const { return nSum >> 32 != 0; }
  [[gnu::always_inline]] std::uint64_t Digits() const {
    const std::uint64_t nKept = (nSum ^ m_nEqual) & 0x111111100;
    return (nSum - (nKept >> 2 | nKept >> 3)) & kLowDigits;
  }

 private:
  std::uint64_t m_nEqual;
};

// Both replace a by the sum of a and b under their signs, which must be plain; a zero is positive.
// They return whether the top digit carried, which it does only for like signs; a is of no use
// then.
//
// Whether the signs agree and which magnitude is larger is as random as the data, so nothing here
// branches on it.

// Of two values whose low words have no digits, such as amounts in cents.
[[gnu::always_inline]] inline bool AddHighWords(Words& a, Words b) {
  const std::uint64_t nUnlikeSigns = a.nLow ^ b.nLow;
  const std::uint64_t nUnlikeBit = nUnlikeSigns >> 1 & 1;
  const std::uint64_t nLike = nUnlikeBit - 1;
  const std::uint64_t nSmaller = 0 - std::uint64_t{a.nHigh < b.nHigh};
  const std::uint64_t nComplement = nSmaller & ~nLike;
  const std::uint64_t nOtherComplement = nComplement ^ ~nLike;
  const DigitSum sum(nUnlikeBit != 0, a.nHigh ^ nComplement,
                     (b.nHigh ^ nOtherComplement) + (6 * kUnits & nLike));
  a.nHigh = sum.Digits();
  a.nLow = (a.nLow ^ (nUnlikeSigns & nSmaller)) | std::uint64_t{a.nHigh == 0} << 1;
  return (std::uint64_t{sum.bCarry} & nLike) != 0;
}

// Of any two values.
[[gnu::always_inline]] inline bool AddWords(Words& a, Words b) {
  const std::uint64_t nUnlikeSigns = a.nLow ^ b.nLow;
  const std::uint64_t nUnlikeBit = nUnlikeSigns >> 1 & 1;
  const std::uint64_t nLike = nUnlikeBit - 1;
  const std::uint64_t nSmaller =
      0 - std::uint64_t{(UInt128{a.nHigh} << 64 | a.nLow) < (UInt128{b.nHigh} << 64 | b.nLow)};
  const std::uint64_t nComplement = nSmaller & ~nLike;
  const std::uint64_t nOtherComplement = nComplement ^ ~nLike;
  const std::uint64_t nSixes = 6 * kUnits & nLike;
  const LowDigitSum low(nUnlikeBit, (a.nLow ^ nComplement) & kLowDigits,
                        ((b.nLow ^ nOtherComplement) & kLowDigits) + (nSixes & kLowDigits));
  const DigitSum high(low.Carries(), a.nHigh ^ nComplement, (b.nHigh ^ nOtherComplement) + nSixes);
  a.nHigh = high.Digits();
  const std::uint64_t nLowDigits = low.Digits();
  const std::uint64_t nSign = (a.nLow ^ (nUnlikeSigns & nSmaller)) & kSignMask;
  a.nLow = nLowDigits | nSign | std::uint64_t{(a.nHigh | nLowDigits) == 0} << 1;
  return (std::uint64_t{high.bCarry} & nLike) != 0;
}

// Adds the digits of another number, given as words without a sign, to those of a. Returns whether
// the top digit carried; a is of no use then.
[[gnu::always_inline]] inline bool AddToDigits(Words& a, std::uint64_t nHigh, std::uint64_t nLow) {
  const LowDigitSum low(0, a.nLow & kLowDigits, nLow + (6 * kUnits & kLowDigits));
  const DigitSum high(low.Carries(), a.nHigh, nHigh + 6 * kUnits);
  a.nHigh = high.Digits();
  a.nLow = low.Digits() | (a.nLow & kSignMask);
  return high.bCarry;
}

// Where rounding so that the last digits become zero finds them, and what it adds: a 5 at the
// highest place that goes.
struct RoundingMasks {
  Words going;
  Words half;
};

// Entry i for the last i digits, 1 to 22.
inline constexpr std::array<RoundingMasks, kDigits> kRounding = [] {
  std::array<RoundingMasks, kDigits> aMasks{};
  for (int i = 1; i < kDigits; ++i) {
    RoundingMasks& masks = aMasks[static_cast<std::size_t>(i)];
    masks.going.nHigh = i > 7 ? (std::uint64_t{1} << (4 * (i - 7))) - 1 : 0;
    masks.going.nLow = i < 7 ? (kLowDigits << (4 * i) & kLowDigits) ^ kLowDigits : kLowDigits;
    masks.half.nHigh = i > 7 ? std::uint64_t{5} << (4 * (i - 8)) : 0;
    masks.half.nLow = i > 7 ? 0 : std::uint64_t{5} << (4 * i);
  }
  return aMasks;
}();

// Whether the last digits are zero already.
[[gnu::always_inline]] inline bool IsRounded(Words a, const RoundingMasks& masks) {
  return ((a.nHigh & masks.going.nHigh) | (a.nLow & masks.going.nLow)) == 0;
}

// Rounds the magnitude half up. Returns whether the top digit carried; a is of no use then.
[[gnu::always_inline]] inline bool RoundWords(Words& a, const RoundingMasks& masks) {
  const bool bTop = AddToDigits(a, masks.half.nHigh, masks.half.nLow);
  a.nHigh &= ~masks.going.nHigh;
  a.nLow &= ~masks.going.nLow;
  return bTop;
}

// ---- Packed decimal to binary and back

namespace internal {

// Sixteen digits become two numbers of eight, one in each half of the word.
[[gnu::always_inline]] inline std::uint64_t EightDigitsTwice(std::uint64_t n) {
  n -= 6 * (n >> 4 & 0x0F0F0F0F0F0F0F0F);                              // bytes 0 to 99
  n = (n & 0x00FF00FF00FF00FF) + 100 * (n >> 8 & 0x00FF00FF00FF00FF);  // 16 bits, 0 to 9999
  return (n & 0x0000FFFF0000FFFF) + 10000 * (n >> 16 & 0x0000FFFF0000FFFF);
}

#if ALDLIB_PACKED_SSE2
// Hides a constant, so that the compiler multiplies by it instead of building the product from
// shifts.
[[gnu::always_inline]] inline __m128i Opaque(__m128i value) {
  __asm__("" : "+x"(value));
  return value;
}

// Both halves hold sixteen digits as they stand in memory, the highest in the lowest byte; each
// four bytes become the number of eight digits that they spell.
[[gnu::always_inline]] inline __m128i EightDigitsEach(__m128i digits) {
  // A byte of two nibbles, 16h + l, less three eighths of 16h, counts tens.
  const __m128i sixteens = _mm_and_si128(digits, _mm_set1_epi8(static_cast<char>(0xF0)));
  const __m128i twos = _mm_srli_epi16(sixteens, 3);
  const __m128i hundreds =  // bytes 0 to 99
      _mm_sub_epi8(_mm_sub_epi8(digits, twos), _mm_add_epi8(twos, twos));
  const __m128i thousands =  // 16 bits, 0 to 9999
      _mm_add_epi16(_mm_mullo_epi16(_mm_and_si128(hundreds, _mm_set1_epi16(0xFF)),
                                    Opaque(_mm_set1_epi16(100))),
                    _mm_srli_epi16(hundreds, 8));
  return _mm_madd_epi16(thousands, _mm_set1_epi32(1 << 16 | 10000));
}

[[gnu::always_inline]] inline std::uint64_t LowerHalf(__m128i value) {
  return static_cast<std::uint64_t>(_mm_cvtsi128_si64(value));
}
// Not by an instruction that leaves a part of its destination as it was, which would wait for
// whatever used that register before.
[[gnu::always_inline]] inline std::uint64_t UpperHalf(__m128i value) {
  return LowerHalf(_mm_shuffle_epi32(value, 0xEE));
}
#endif

}  // namespace internal

struct Pair {
  std::uint64_t nFirst;
  std::uint64_t nSecond;
};

// Sixteen digits as two numbers of eight.
struct Eights {
  std::uint64_t nUpper;
  std::uint64_t nLower;

  [[gnu::always_inline]] std::uint64_t Joined() const { return nUpper * 100'000'000 + nLower; }
};
struct EightsPair {
  Eights first;
  Eights second;
};

namespace internal {

#if ALDLIB_PACKED_SSE2
// As EightDigitsEach takes them.
[[gnu::always_inline]] inline EightsPair EightsOfHalves(__m128i first, __m128i second) {
  const __m128i numbers = EightDigitsEach(_mm_unpacklo_epi64(first, second));
  const std::uint64_t nFirst = LowerHalf(numbers);
  const std::uint64_t nSecond = UpperHalf(numbers);
  return {{nFirst & 0xFFFFFFFF, nFirst >> 32}, {nSecond & 0xFFFFFFFF, nSecond >> 32}};
}
#endif

// Of two words of sixteen digits.
[[gnu::always_inline]] inline EightsPair EightsOf(std::uint64_t nFirst, std::uint64_t nSecond) {
#if ALDLIB_PACKED_SSE2
  const auto half = [](std::uint64_t n) {
    return _mm_cvtsi64_si128(static_cast<long long>(__builtin_bswap64(n)));
  };
  return EightsOfHalves(half(nFirst), half(nSecond));
#else
  const auto convert = [](std::uint64_t n) {
    n = EightDigitsTwice(n);
    return Eights{n >> 32, n & 0xFFFFFFFF};
  };
  return {convert(nFirst), convert(nSecond)};
#endif
}

}  // namespace internal

// What the sixteen upper digits of two values spell.
[[gnu::always_inline]] inline EightsPair EightsOfHighs(const Bytes& a, const Bytes& b) {
#if ALDLIB_PACKED_SSE2
  const auto half = [](const Bytes& bytes) {
    return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(bytes.data()));
  };
  return internal::EightsOfHalves(half(a), half(b));
#else
  return internal::EightsOf(Load(a).nHigh, Load(b).nHigh);
#endif
}

// The same, each as one number.
[[gnu::always_inline]] inline Pair BinaryOfHighs(const Bytes& a, const Bytes& b) {
  const EightsPair eights = EightsOfHighs(a, b);
  return {eights.first.Joined(), eights.second.Joined()};
}

// The numbers that two words of sixteen digits spell.
[[gnu::always_inline]] inline Pair BinaryOf(std::uint64_t nFirst, std::uint64_t nSecond) {
  const EightsPair eights = internal::EightsOf(nFirst, nSecond);
  return {eights.first.Joined(), eights.second.Joined()};
}

// Those that the low words spell, ten times what their seven digits count.
[[gnu::always_inline]] inline Pair BinaryOfLows(const Bytes& a, const Bytes& b) {
#if ALDLIB_PACKED_SSE2
  const auto quarter = [](const Bytes& bytes) {
    int nWord;
    std::memcpy(&nWord, bytes.data() + 8, 4);
    return _mm_cvtsi32_si128(nWord);
  };
  const __m128i digits =
      _mm_and_si128(_mm_unpacklo_epi32(quarter(a), quarter(b)), _mm_set1_epi32(~0x0F000000));
  const std::uint64_t n = internal::LowerHalf(internal::EightDigitsEach(digits));
  return {n & 0xFFFFFFFF, n >> 32};
#else
  const std::uint64_t n =
      internal::EightDigitsTwice((Load(a).nLow & kLowDigits) << 32 | (Load(b).nLow & kLowDigits));
  return {n >> 32, n & 0xFFFFFFFF};
#endif
}

// Eight digits as two numbers of four in 32 bits, the upper one q below the lower one r, as memory
// has them: 2^16 (n - 10^4 q) + q. n / 10^4 is n * 3518437209 >> 45 for every n below 2^32.
[[gnu::always_inline]] inline std::uint64_t FoursOf(std::uint64_t n) {
  return (n << 16) - (n * 3518437209 >> 45) * ((10000 << 16) - 1);
}

// Stores the digits of three numbers below 10^8, one behind the other; the top one comes split by
// FoursOf. The last digit makes place for the sign.
[[gnu::always_inline]] inline void StoreDigits(std::uint64_t nTopFours, std::uint64_t nMiddle,
                                               std::uint64_t nLow, std::uint64_t nSign,
                                               Bytes& bytes) {
#if ALDLIB_PACKED_SSE2
  const auto half = [](std::uint64_t n) { return _mm_cvtsi64_si128(static_cast<long long>(n)); };
  // FoursOf of both, and the top beside the low one.
  const __m128i numbers = _mm_unpacklo_epi64(half(nLow), half(nMiddle));
  const __m128i upper = _mm_srli_epi64(_mm_mul_epu32(numbers, _mm_set1_epi64x(3518437209)), 45);
  const __m128i both = _mm_sub_epi64(_mm_slli_epi64(numbers, 16),
                                     _mm_mul_epu32(upper, _mm_set1_epi64x((10000 << 16) - 1)));
  const __m128i fours =
      _mm_shuffle_epi32(_mm_or_si128(both, half(nTopFours << 32)), _MM_SHUFFLE(3, 0, 2, 1));
  // Of 1000a + 100b + 10c + d: c and d become the upper byte, which memory has last, a and b the
  // lower one. The very last digit weighs nothing. Nothing weighs anything in the two numbers that
  // are not stored, so that no vector of weights is the same number eight times, which the compiler
  // would build from shifts.
  const __m128i tens = _mm_mulhi_epu16(fours, _mm_set1_epi16(6554));
  const __m128i hundreds = _mm_mulhi_epu16(tens, _mm_set1_epi16(6554));
  const __m128i thousands = _mm_mulhi_epu16(tens, _mm_set1_epi16(656));
  const __m128i digits = _mm_add_epi16(
      _mm_add_epi16(
          _mm_mullo_epi16(fours, _mm_setr_epi16(256, 256, 256, 256, 256, 0, 0, 0)),
          _mm_mullo_epi16(tens, _mm_setr_epi16(1536, 1536, 1536, 1536, 1536, 4096, 0, 0))),
      _mm_add_epi16(
          _mm_mullo_epi16(hundreds, _mm_setr_epi16(24577, 24577, 24577, 24577, 24577, 24577, 0, 0)),
          _mm_mullo_epi16(thousands, _mm_setr_epi16(6, 6, 6, 6, 6, 6, 0, 0))));
  _mm_storel_epi64(reinterpret_cast<__m128i*>(bytes.data()), digits);
  const __m128i sign = _mm_cvtsi32_si128(static_cast<int>(nSign << 24));
  _mm_storeu_si32(bytes.data() + 8, _mm_or_si128(_mm_shuffle_epi32(digits, 0xEE), sign));
#else
  const auto convert = [](std::uint64_t n) {  // two numbers of four digits
    constexpr std::uint64_t kLowByte = 0x000000FF000000FF;
    n = (n & 0xFFFF) << 32 | (n >> 16 & 0xFFFF);
    const std::uint64_t nHundreds = (n * 5243 >> 19) & kLowByte;
    n = n - 100 * nHundreds + (nHundreds << 16);  // four of two digits
    const std::uint64_t nTens = (n * 103 >> 10) & 0x000F000F000F000F;
    n += 6 * nTens;  // packed in each byte
    n = (n | n >> 8) & 0x0000FFFF0000FFFF;
    return (n | n >> 16) & 0xFFFFFFFF;
  };
  Store({convert(nTopFours) << 32 | convert(FoursOf(nMiddle)),
         (convert(FoursOf(nLow)) & kLowDigits) | nSign},
        bytes);
#endif
}

struct Division {
  std::uint64_t nQuotient;
  std::uint64_t nRemainder;
};

// The quotient must fit a word: the upper word of the dividend is below the divisor.
[[gnu::always_inline]] inline Division Divide128By64(UInt128 nDividend, std::uint64_t nDivisor) {
#if defined(__x86_64__) && !defined(ALDLIB_PORTABLE_ARITHMETIC)
  auto nHigh = static_cast<std::uint64_t>(nDividend >> 64);
  auto nLow = static_cast<std::uint64_t>(nDividend);
  __asm__("divq %2" : "+a"(nLow), "+d"(nHigh) : "r"(nDivisor) : "cc");
  return {nLow, nHigh};
#else
  return {static_cast<std::uint64_t>(nDividend / nDivisor),
          static_cast<std::uint64_t>(nDividend % nDivisor)};
#endif
}

}  // namespace ald::packed
