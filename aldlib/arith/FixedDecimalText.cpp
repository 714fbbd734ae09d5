#include <algorithm>
#include <bit>
#include <cstring>
#include <ios>
#include <ostream>
#include <string_view>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/arith/internal/FixedDecimalWords.h"
#include "aldlib/arith/internal/PackedText.h"
#include "aldlib/platform/Characters.h"

// Canonical text: "." for the point, "-" for the sign, no separators, whatever the locale. Ordinary
// texts and values go sixteen digits at a time; FixedDecimalTextByDigits.cpp has the rules and all
// corners.
namespace ald {

// Ordinary: white space, a sign, up to 14 digits and, behind a point, up to 9, with one digit in
// all, and no more.
CDecimal& CDecimal::fromRawString(const char* szText) {
  if (szText == nullptr || RegistryExists()) [[unlikely]]
    return ParseByDigits(szText);
  const char* sz = szText;
  while (IsSpaceAscii(*sz)) ++sz;
  const bool bMinus = *sz == '-';
  if (bMinus || *sz == '+') ++sz;

  const packed::LeadingDigits whole = packed::ReadDigits(sz);
  packed::LeadingDigits fraction{0, 0};
  sz += whole.nCount;
  if (*sz == '.') {
    ++sz;
    fraction = packed::ReadDigits(sz);
    sz += fraction.nCount;
  }
  if (*sz != '\0' || whole.nCount > kWholeDigits || fraction.nCount > kDecimals ||
      whole.nCount + fraction.nCount == 0) {
    return ParseByDigits(szText);
  }
  // Shifted in two steps, since a word cannot be shifted by all of its bits.
  const std::uint64_t nWhole = whole.nDigits >> 4 >> (60 - 4 * whole.nCount);
  const std::uint64_t nFraction = fraction.nDigits & ~(~std::uint64_t{0} >> (4 * fraction.nCount));
  packed::Words words{nWhole << 8 | nFraction >> 56, (nFraction >> 28 & 0xFFFFFFF) << 4};
  const bool bNegative = bMinus && !packed::HasZeroDigits(words);
  words.nLow |= bNegative ? packed::kNegative : packed::kPositive;
  return StoreGood(words);
}

namespace {

[[gnu::noinline]] bool RoundInPlace(packed::Words& words, const packed::RoundingMasks& masks) {
  return packed::RoundWords(words, masks);
}

// Written in blocks of sixteen characters: the second begins at the 17th at the latest, and both
// are in the 46.
[[gnu::always_inline]] inline CDecimal::TextType Print(packed::Words words, int nDecimals) {
  CDecimal::TextType text;
  char* sz = text;
  *sz = '-';
  sz -= packed::MinusMask(words);
  const std::uint64_t nWhole = words.nHigh & ~std::uint64_t{0xFF};
  const int nZeros = std::countl_zero(nWhole | 0x100) / 4;  // the units digit is always written
  packed::WriteDigits(sz, nWhole << (4 * nZeros));
  sz += CDecimal::kWholeDigits - nZeros;
  if (nDecimals > 0) {
    *sz++ = '.';
    packed::WriteDigits(sz, words.nHigh << 56 | words.nLow >> 4 << 28);
    sz += nDecimals;
  }
  std::memset(sz, 0, 16);  // what the last block wrote too many
  return text;
}

}  // namespace

// Ordinary: 0 to 9 decimals of a value that does not pass the limit by its rounding, and no
// negative zero.
CFixedString<46> CDecimal::toRawString(int nDecimals) const {
  packed::Words words = packed::Load(m_aBytes);
  if (RegistryExists() || !packed::HasPlainSign(words) || nDecimals < 0 || nDecimals > kDecimals)
      [[unlikely]] {
    return PrintByDigits(nDecimals);
  }
  if (nDecimals < kDecimals) {
    const auto& masks = packed::kRounding[static_cast<std::size_t>(kDecimals - nDecimals)];
    if (!packed::IsRounded(words, masks) && RoundInPlace(words, masks))
      return PrintByDigits(nDecimals);
  }
  if (packed::IsNegativeZero(words)) [[unlikely]]
    return PrintByDigits(nDecimals);
  if (nDecimals < kDecimals) m_pTlsData_storage.m_eLastStatus = DEC_OK;
  return Print(words, nDecimals);
}

CFixedString<46> CDecimal::toExactString() const {
  TextType text = toRawString(kDecimals);
  const std::string_view sText = text.view();
  std::size_t nLength = sText.find_last_not_of('0') + 1;
  if (sText[nLength - 1] == '.') --nLength;
  std::fill(text + nLength, text + sText.size(), '\0');
  return text;
}

std::ostream& operator<<(std::ostream& stream, const CDecimal& value) {
  if ((stream.flags() & std::ios_base::floatfield) == std::ios_base::fixed) {
    const DEC_STATUS eLastStatus = CDecimal::GetLastStatus();
    const auto text = value.toRawString(
        static_cast<int>(std::min<std::streamsize>(stream.precision(), CDecimal::kDecimals)));
    CDecimal::m_pTlsData->m_eLastStatus = eLastStatus;
    return stream << text.view();
  }
  return stream << value.toExactString().view();
}

}  // namespace ald
