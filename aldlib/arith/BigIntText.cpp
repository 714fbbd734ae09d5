#include <algorithm>
#include <charconv>
#include <cmath>
#include <ostream>

#include "aldlib/arith/BigInt.h"
#include "aldlib/platform/Characters.h"

// Texts and doubles of the fixed-width integers. None of this follows the process's locale.
namespace ald {

namespace {

// The decimal digits of 2^nBits, rounded up, and one for the sign.
static_assert(CBigInt<64>::kDecimalRoom == 21 && CBigInt<160>::kDecimalRoom == 50 &&
              CBigInt<256>::kDecimalRoom == 79);

std::string_view WithoutLeadingSpace(std::string_view sText) {
  const auto first = std::find_if_not(sText.begin(), sText.end(), [](char c) {
    return IsSpaceAscii(static_cast<unsigned char>(c));
  });
  return sText.substr(static_cast<std::size_t>(first - sText.begin()));
}

std::string_view ViewOf(const char* szText) {
  return szText == nullptr ? std::string_view() : std::string_view(szText);
}

// 0 to 15, or -1 for a character that is no hexadecimal digit.
int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

}  // namespace

template <int nBits>
CString CBigInt<nBits>::toDecimalString() const {
  char szText[kDecimalRoom];
  char* const pEnd = szText + kDecimalRoom;
  return CString(WriteDecimal(pEnd), pEnd);
}

template <int nBits>
char* CBigInt<nBits>::WriteDecimal(char* pEnd) const {
  char* pText = pEnd;
  // Nine digits to a division; zeros only between digits.
  CBigInt magnitude = Abs();
  do {
    std::uint32_t nDigits = magnitude.DivideByWord(1'000'000'000);
    const bool bLast = magnitude.IsZero();
    for (int i = 0; i < 9 && !(bLast && nDigits == 0 && pText != pEnd); ++i, nDigits /= 10) {
      *--pText = static_cast<char>('0' + nDigits % 10);
    }
  } while (!magnitude.IsZero());
  m_pTlsData->m_nMathError = MATH_OK;
  if (IsNegative()) *--pText = '-';
  return pText;
}

template <int nBits>
CString CBigInt<nBits>::toHexString() const {
  CString sText(nBits / 4, '0');
  for (std::size_t i = 0; i < sText.size(); ++i) {
    const std::uint32_t nNibble = m_aWords[i / 8] >> (4 * (i % 8)) & 0xFU;
    sText[sText.size() - 1 - i] = "0123456789ABCDEF"[nNibble];
  }
  return sText;
}

template <int nBits>
CString CBigInt<nBits>::toBinaryString() const {
  CString sText(nBits, '0');
  for (int i = 0; i < nBits; ++i) {
    if (GetBit(i)) sText[static_cast<std::size_t>(nBits - 1 - i)] = '1';
  }
  return sText;
}

template <int nBits>
CBigInt<nBits>& CBigInt<nBits>::fromDecimalString(const char* szText) {
  return fromDecimalString(ViewOf(szText));
}

// The factor comes behind each digit and ahead of the look at the next character, so a text that
// stops early keeps one factor too many: "12x" gives 120.
template <int nBits>
CBigInt<nBits>& CBigInt<nBits>::fromDecimalString(std::string_view sText) {
  sText = WithoutLeadingSpace(sText);
  const bool bNegative = !sText.empty() && sText.front() == '-';
  if (bNegative) sText.remove_prefix(1);
  Clear();
  for (std::size_t i = 0; i < sText.size(); ++i) {
    if (sText[i] < '0' || sText[i] > '9') break;
    if (sText[i] != '0') op_Add(ms_aFastConvert[sText[i] - '0']);
    if (i + 1 < sText.size()) op_Multiply(ms_Ten);
  }
  if (bNegative) *this = -*this;
  return *this;
}

template <int nBits>
CBigInt<nBits>& CBigInt<nBits>::fromHexString(const char* szText) {
  const std::string_view sText = WithoutLeadingSpace(ViewOf(szText));
  Clear();
  for (std::size_t i = 0; i < sText.size(); ++i) {
    const int nDigit = HexValue(sText[i]);
    if (nDigit < 0) break;
    if (nDigit != 0) op_Add(ms_aFastConvert[nDigit]);
    if (i + 1 < sText.size()) op_LeftShift(4);
  }
  return *this;
}

template <int nBits>
CBigInt<nBits>& CBigInt<nBits>::fromBinaryString(const char* szText) {
  const std::string_view sText = WithoutLeadingSpace(ViewOf(szText));
  Clear();
  for (int i = 0; i < nBits && static_cast<std::size_t>(i) < sText.size(); ++i) {
    const char c = sText[sText.size() - 1 - static_cast<std::size_t>(i)];
    if (c != '0' && c != '1') break;
    if (c == '1') SetBit(i);
  }
  return *this;
}

template <int nBits>
double CBigInt<nBits>::toDouble() const {
  static constexpr CBigInt kLowest(INT64_MIN);
  static constexpr CBigInt kHighest(INT64_MAX);
  if (*this >= kLowest && *this <= kHighest) {
    const std::uint64_t nLow = std::uint64_t{m_aWords[1]} << 32 | m_aWords[0];
    return static_cast<double>(static_cast<std::int64_t>(nLow));
  }
  char szText[kDecimalRoom];
  char* const pEnd = szText + kDecimalRoom;
  double result = 0;
  std::from_chars(WriteDecimal(pEnd), pEnd, result);
  return result;
}

template <int nBits>
CBigInt<nBits>& CBigInt<nBits>::fromDouble(double value, bool bRound) {
  m_pTlsData->m_nMathError = MATH_OK;
  if (!std::isfinite(value)) return *this = ms_Zero;
  if (bRound) value += value >= 0 ? 0.5 : -0.5;
  const double kInt64Limit = std::ldexp(1.0, 63);
  if (value > -kInt64Limit && value < kInt64Limit) {
    return *this = CBigInt(static_cast<std::int64_t>(value));
  }
  if (std::fabs(value) >= std::ldexp(1.0, nBits - 1)) {
    m_pTlsData->m_nMathError = MATH_OVERFLOW;
    return *this = value < 0 ? minValue() : maxValue();
  }
  // The digits are those that the double prints, at most 77 of them below 2^255, and its sign.
  char szDigits[96];
  double whole = 0;
  std::modf(value, &whole);
  const auto printed =
      std::to_chars(szDigits, szDigits + sizeof szDigits, whole, std::chars_format::fixed, 0);
  return fromDecimalString(
      std::string_view(szDigits, static_cast<std::size_t>(printed.ptr - szDigits)));
}

template <int nBits>
std::ostream& operator<<(std::ostream& stream, const CBigInt<nBits>& value) {
  return stream << value.toDecimalString();
}

#define ALDLIB_INSTANTIATE_BIGINT_TEXT(nBits)                                   \
  template CString CBigInt<nBits>::toDecimalString() const;                     \
  template char* CBigInt<nBits>::WriteDecimal(char*) const;                     \
  template CString CBigInt<nBits>::toHexString() const;                         \
  template CString CBigInt<nBits>::toBinaryString() const;                      \
  template CBigInt<nBits>& CBigInt<nBits>::fromDecimalString(const char*);      \
  template CBigInt<nBits>& CBigInt<nBits>::fromDecimalString(std::string_view); \
  template CBigInt<nBits>& CBigInt<nBits>::fromHexString(const char*);          \
  template CBigInt<nBits>& CBigInt<nBits>::fromBinaryString(const char*);       \
  template double CBigInt<nBits>::toDouble() const;                             \
  template CBigInt<nBits>& CBigInt<nBits>::fromDouble(double, bool);            \
  template std::ostream& operator<<(std::ostream&, const CBigInt<nBits>&);
ALDLIB_INSTANTIATE_BIGINT_TEXT(64)
ALDLIB_INSTANTIATE_BIGINT_TEXT(96)
ALDLIB_INSTANTIATE_BIGINT_TEXT(128)
ALDLIB_INSTANTIATE_BIGINT_TEXT(160)
ALDLIB_INSTANTIATE_BIGINT_TEXT(192)
ALDLIB_INSTANTIATE_BIGINT_TEXT(224)
ALDLIB_INSTANTIATE_BIGINT_TEXT(256)
#undef ALDLIB_INSTANTIATE_BIGINT_TEXT

}  // namespace ald
