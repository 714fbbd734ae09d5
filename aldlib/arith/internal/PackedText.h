#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#include "aldlib/arith/internal/PackedWords.h"

// Sixteen characters of a text at once: digits to nibbles and back.
namespace ald::packed {

// Writes the sixteen digits of a word, the highest first. The buffer has room for all sixteen
// characters.
[[gnu::always_inline]] inline void WriteDigits(char* szBuffer, std::uint64_t nDigits) {
#if ALDLIB_PACKED_SSE2
  const __m128i bytes = _mm_cvtsi64_si128(static_cast<long long>(__builtin_bswap64(nDigits)));
  const __m128i nibble = _mm_set1_epi8(0x0F);
  const __m128i spread = _mm_unpacklo_epi8(_mm_and_si128(_mm_srli_epi16(bytes, 4), nibble),
                                           _mm_and_si128(bytes, nibble));
  _mm_storeu_si128(reinterpret_cast<__m128i*>(szBuffer), _mm_or_si128(spread, _mm_set1_epi8('0')));
#else
  for (int i = 0; i < 16; ++i, nDigits <<= 4)
    szBuffer[i] = static_cast<char>('0' + (nDigits >> 60));
#endif
}

// The digits that a text begins with, sixteen at the most: how many, and their values from the top
// of the word on. What stands below them in the word is of no meaning.
struct LeadingDigits {
  int nCount;
  std::uint64_t nDigits;
};

#if ALDLIB_PACKED_SSE2

// The address sanitizer, as GCC and as clang tell of it.
#if defined(__has_feature)
#define ALDLIB_HAS_FEATURE(feature) __has_feature(feature)
#else
#define ALDLIB_HAS_FEATURE(feature) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || ALDLIB_HAS_FEATURE(address_sanitizer)
#define ALDLIB_READS_WITHIN_TEXTS 1
#else
#define ALDLIB_READS_WITHIN_TEXTS 0
#endif
#undef ALDLIB_HAS_FEATURE

namespace internal {

// The sixteen bytes from szText on; those behind the terminator are whatever they are.
[[gnu::always_inline]] inline __m128i LoadText(const char* szText) {
  // A page is readable as a whole or not at all, so a load that stays within the page of its first
  // byte does no harm even where it passes the end of the text. The address sanitizer knows the
  // ends of texts better.
#if !ALDLIB_READS_WITHIN_TEXTS
  constexpr std::uintptr_t kPage = 4096;
  if ((reinterpret_cast<std::uintptr_t>(szText) & (kPage - 1)) <= kPage - 16) [[likely]] {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(szText));
  }
#endif
  char aBytes[16] = {};
  for (int i = 0; i < 16 && szText[i] != '\0'; ++i) aBytes[i] = szText[i];
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(aBytes));
}

}  // namespace internal

[[gnu::always_inline]] inline LeadingDigits ReadDigits(const char* szText) {
  // As numbers below 10: signed bytes from -128 to -119 once 128 is taken away.
  const __m128i values = _mm_sub_epi8(internal::LoadText(szText), _mm_set1_epi8('0'));
  const __m128i above =
      _mm_cmpgt_epi8(_mm_xor_si128(values, _mm_set1_epi8(-128)), _mm_set1_epi8(-119));
  const auto nOthers = static_cast<unsigned>(_mm_movemask_epi8(above)) | 0x10000U;
  // Of each pair the first character is the upper nibble; what is no digit must not reach into its
  // neighbour.
  const __m128i digits = _mm_andnot_si128(above, values);
  const __m128i pairs = _mm_or_si128(_mm_slli_epi16(digits, 4), _mm_srli_epi16(digits, 8));
  const __m128i bytes = _mm_packus_epi16(_mm_and_si128(pairs, _mm_set1_epi16(0xFF)), pairs);
  const auto nBytes = static_cast<std::uint64_t>(_mm_cvtsi128_si64(bytes));
  return {std::countr_zero(nOthers), __builtin_bswap64(nBytes)};
}

#else

inline LeadingDigits ReadDigits(const char* szText) {
  LeadingDigits digits{0, 0};
  for (; digits.nCount < 16; ++digits.nCount) {
    const auto nValue = static_cast<std::uint64_t>(szText[digits.nCount] - '0');
    if (nValue > 9) break;
    digits.nDigits |= nValue << (60 - 4 * digits.nCount);
  }
  return digits;
}

#endif

}  // namespace ald::packed
