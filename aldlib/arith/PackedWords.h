#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#include "aldlib/arith/PackedDigits.h"

#if defined(__SSE2__) && !defined(ALDLIB_PORTABLE_ARITHMETIC)
#define ALDLIB_PACKED_SSE2 1
#include <emmintrin.h>
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

// Whether the sign is 0xD or 0xF.
[[gnu::always_inline]] inline bool HasPlainSign(Words a) {
  return ((a.nLow | kPlusBit) & kSignMask) == kSignMask;
}
// The same of both: a bit that either lacks is lacking in the conjunction.
[[gnu::always_inline]] inline bool HavePlainSigns(Words a, Words b) {
  return ((a.nLow & b.nLow) | kPlusBit | ~kSignMask) == ~std::uint64_t{0};
}
// Of two plain signs.
[[gnu::always_inline]] inline bool HaveLikeSigns(Words a, Words b) {
  return ((a.nLow ^ b.nLow) & kPlusBit) == 0;
}
[[gnu::always_inline]] inline bool HasZeroDigits(Words a) {
  return (a.nHigh | (a.nLow & kLowDigits)) == 0;
}
// The sign nibble of a product or a quotient.
[[gnu::always_inline]] inline std::uint64_t SignOfProduct(Words a, Words b) {
  return kSignMask ^ ((a.nLow ^ b.nLow) & kPlusBit);
}

// Adds the digits of b to a, which keeps its sign. Returns whether the top digit carried; a is of
// no use then.
[[gnu::always_inline]] inline bool AddDigits(Words& a, Words b) {
  constexpr std::uint64_t kSixesLow = 0x66666660;
  constexpr std::uint64_t kCarriesLow = 0x1'1111'1100;  // into digits 1 to 6 and out of digit 6
  constexpr std::uint64_t kSixesHigh = 0x6666666666666666;
  constexpr std::uint64_t kCarriesHigh = 0x1111111111111110;  // into digits 8 to 22

  // A sum of digits carries in base sixteen once 6 is added to it; the carry shows as a difference
  // from the sum without carries. Where a digit carried, 6 stays added: 3 times the mark that
  // stands three bits too high.
  const std::uint64_t nLowOther = b.nLow & kLowDigits;
  const std::uint64_t nLowSixes = a.nLow + kSixesLow;
  const std::uint64_t nLowCarries = ((nLowSixes + nLowOther) ^ nLowSixes ^ nLowOther) & kCarriesLow;
  const std::uint64_t nLow = a.nLow + nLowOther + 3 * (nLowCarries >> 3);
  const std::uint64_t nCarry = nLowCarries >> 32;

  const std::uint64_t nHighOther = b.nHigh + nCarry;
  const std::uint64_t nHighSixes = a.nHigh + kSixesHigh;
  std::uint64_t nSum;
  const bool bTop = __builtin_add_overflow(nHighSixes, nHighOther, &nSum);
  const std::uint64_t nHighCarries = (nSum ^ nHighSixes ^ nHighOther) & kCarriesHigh;
  a.nHigh = a.nHigh + nHighOther + 3 * (nHighCarries >> 3);
  a.nLow = nLow & 0xFFFFFFFF;
  return bTop;
}

// The difference of two magnitudes, with the sign of the larger; of equal ones plus zero. Signs
// must be plain.
[[gnu::always_inline]] inline Words DifferenceOfDigits(Words a, Words b) {
  constexpr std::uint64_t kBorrowsLow = 0x1'1111'1100;
  constexpr std::uint64_t kBorrowsHigh = 0x1111111111111110;

  // Which is larger is as random as the data: the two change places under a mask, not by a branch.
  const std::uint64_t nLowBorrow = ((a.nLow & kLowDigits) - (b.nLow & kLowDigits)) >> 63;
  std::uint64_t nUnused;
  const bool bSwap = __builtin_sub_overflow(a.nHigh, b.nHigh, &nUnused) |
                     ((a.nHigh == b.nHigh) & (nLowBorrow != 0));
  const std::uint64_t nMask = 0 - std::uint64_t{bSwap};
  const std::uint64_t nSwapHigh = (a.nHigh ^ b.nHigh) & nMask;
  const std::uint64_t nSwapLow = (a.nLow ^ b.nLow) & nMask;
  const std::uint64_t nHigh = a.nHigh ^ nSwapHigh;
  const std::uint64_t nLow = a.nLow ^ nSwapLow;
  const std::uint64_t nHighOther = b.nHigh ^ nSwapHigh;
  const std::uint64_t nLowOther = (b.nLow ^ nSwapLow) & kLowDigits;

  // A digit that borrowed sixteen should have borrowed ten: it gives 6 back.
  const std::uint64_t nLowRest = nLow - nLowOther;
  const std::uint64_t nLowBorrows = (nLowRest ^ nLow ^ nLowOther) & kBorrowsLow;
  const std::uint64_t nHighRest = nHigh - nHighOther - (nLowRest >> 63);
  const std::uint64_t nHighBorrows = (nHighRest ^ nHigh ^ nHighOther) & kBorrowsHigh;
  Words rest;
  rest.nHigh = nHighRest - 3 * (nHighBorrows >> 3);
  rest.nLow = (nLowRest - 3 * (nLowBorrows >> 3)) & 0xFFFFFFFF;
  rest.nLow |= std::uint64_t{HasZeroDigits(rest)} << 1;
  return rest;
}

// ---- Packed decimal to binary and back

#if ALDLIB_PACKED_SSE2

namespace internal {

// Hides a constant, so that the compiler multiplies by it instead of building the product from
// shifts.
[[gnu::always_inline]] inline __m128i Opaque(__m128i value) {
  __asm__("" : "+x"(value));
  return value;
}

}  // namespace internal

#endif

struct Pair {
  std::uint64_t nFirst;
  std::uint64_t nSecond;
};

// The numbers that two words of sixteen digits spell.
[[gnu::always_inline]] inline Pair BinaryOf(std::uint64_t nFirst, std::uint64_t nSecond) {
  constexpr std::uint64_t kTenTo8 = 100'000'000;
#if ALDLIB_PACKED_SSE2
  using internal::Opaque;
  const __m128i digits = _mm_unpacklo_epi64(_mm_cvtsi64_si128(static_cast<long long>(nFirst)),
                                            _mm_cvtsi64_si128(static_cast<long long>(nSecond)));
  // A byte of two nibbles counts sixteens where it should count tens.
  const __m128i tens = _mm_and_si128(_mm_srli_epi16(digits, 4), _mm_set1_epi8(0x0F));
  const __m128i sixfold = _mm_add_epi8(_mm_slli_epi16(tens, 1), _mm_slli_epi16(tens, 2));
  const __m128i hundreds = _mm_sub_epi8(digits, sixfold);  // bytes 0 to 99
  const __m128i thousands =                                // 16 bits, 0 to 9999
      _mm_add_epi16(_mm_and_si128(hundreds, _mm_set1_epi16(0xFF)),
                    _mm_mullo_epi16(_mm_srli_epi16(hundreds, 8), Opaque(_mm_set1_epi16(100))));
  const __m128i millions =  // 32 bits, eight digits
      _mm_madd_epi16(thousands, _mm_set1_epi32(10000 << 16 | 1));
  const auto first = static_cast<std::uint64_t>(_mm_cvtsi128_si64(millions));
  const auto second =
      static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(millions, millions)));
  return {(first >> 32) * kTenTo8 + (first & 0xFFFFFFFF),
          (second >> 32) * kTenTo8 + (second & 0xFFFFFFFF)};
#else
  const auto convert = [](std::uint64_t n) {
    n -= 6 * (n >> 4 & 0x0F0F0F0F0F0F0F0F);                                 // bytes 0 to 99
    n = (n & 0x00FF00FF00FF00FF) + 100 * (n >> 8 & 0x00FF00FF00FF00FF);     // 0 to 9999
    n = (n & 0x0000FFFF0000FFFF) + 10000 * (n >> 16 & 0x0000FFFF0000FFFF);  // eight digits
    return (n >> 32) * kTenTo8 + (n & 0xFFFFFFFF);
  };
  return {convert(nFirst), convert(nSecond)};
#endif
}

// The digits of nHigh, below 10^16, and of nLow, below 10^8. The place of the last digit of nLow is
// free for a sign.
[[gnu::always_inline]] inline Words DigitsOf(std::uint64_t nHigh, std::uint64_t nLow) {
  constexpr std::uint64_t kTenTo8 = 100'000'000;
  const std::uint64_t nTop = nHigh / kTenTo8;
  const std::uint64_t nMiddle = nHigh % kTenTo8;
#if ALDLIB_PACKED_SSE2
  using internal::Opaque;
  const __m128i eights =
      _mm_unpacklo_epi64(_mm_cvtsi64_si128(static_cast<long long>(nTop << 32 | nMiddle)),
                         _mm_cvtsi64_si128(static_cast<long long>(nLow)));
  // Each eight digits become two numbers of four: n / 10^4 is n * 3518437209 >> 45 for every n
  // below 2^32.
  const __m128i reciprocal = _mm_set1_epi64x(3518437209);
  const __m128i even = _mm_srli_epi64(_mm_mul_epu32(eights, reciprocal), 45);
  const __m128i odd = _mm_srli_epi64(_mm_mul_epu32(_mm_srli_epi64(eights, 32), reciprocal), 45);
  const __m128i upper = _mm_or_si128(even, _mm_slli_epi64(odd, 32));
  const __m128i lower = _mm_sub_epi32(eights, _mm_madd_epi16(upper, _mm_set1_epi32(10000)));
  const __m128i fours = _mm_or_si128(lower, _mm_slli_epi32(upper, 16));
  // Of 1000a + 100b + 10c + d: each ten, hundred and thousand weighs sixteen times the place below
  // it instead of ten.
  const __m128i tens = _mm_mulhi_epu16(fours, _mm_set1_epi16(6554));
  const __m128i hundreds = _mm_srli_epi16(_mm_mulhi_epu16(fours, _mm_set1_epi16(5243)), 3);
  const __m128i thousands = _mm_srli_epi16(_mm_mulhi_epu16(fours, _mm_set1_epi16(8389)), 7);
  const __m128i digits =
      _mm_add_epi16(_mm_add_epi16(fours, _mm_mullo_epi16(tens, Opaque(_mm_set1_epi16(6)))),
                    _mm_add_epi16(_mm_mullo_epi16(hundreds, Opaque(_mm_set1_epi16(96))),
                                  _mm_mullo_epi16(thousands, Opaque(_mm_set1_epi16(1536)))));
  return {static_cast<std::uint64_t>(_mm_cvtsi128_si64(digits)),
          static_cast<std::uint64_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(digits, digits)))};
#else
  const auto convert = [](std::uint64_t n) {  // eight digits
    constexpr std::uint64_t kBytes = 0x000000FF000000FF;
    n = n / 10000 << 32 | n % 10000;  // two of four digits
    const std::uint64_t nHundreds = (n * 5243 >> 19) & kBytes;
    n = n - 100 * nHundreds + (nHundreds << 16);  // four of two digits
    const std::uint64_t nTens = (n * 103 >> 10) & 0x000F000F000F000F;
    n += 6 * nTens;  // packed in each byte
    n = (n | n >> 8) & 0x0000FFFF0000FFFF;
    return (n | n >> 16) & 0xFFFFFFFF;
  };
  return {convert(nTop) << 32 | convert(nMiddle), convert(nLow)};
#endif
}

}  // namespace ald::packed
