#include <algorithm>
#include <iterator>
#include <string_view>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Characters.h"

// Canonical texts as they are defined, character by character: the road of every corner, and what
// the fast roads of FixedDecimalText.cpp are held to.
namespace ald {

namespace {

// Appends to a fixed text and drops what finds it full.
template <int nSize>
class CTextWriter {
 public:
  explicit CTextWriter(CFixedString<nSize>& text) : m_szText(text) {}
  void Append(char c) {
    if (m_nLength < nSize - 1) m_szText[m_nLength++] = c;
  }
  void Append(std::string_view sText) {
    for (const char c : sText) Append(c);
  }

 private:
  char* m_szText;
  int m_nLength = 0;
};

std::string_view WithoutLeadingSpace(const char* szText) {
  if (szText == nullptr) return {};
  while (IsSpaceAscii(static_cast<unsigned char>(*szText))) ++szText;
  return szText;
}

// An out-of-range value, given times 10^9, with all its digits before the point; only the end of
// the text cuts it.
CDecimal::TextType PrintExact(CDecimal::MathType value, int nDecimals) {
  constexpr int kDecimals = CDecimal::kDecimals;
  const auto& anPowers = CDecimal::ms_anMathPowersOf10;
  if (nDecimals < kDecimals) {
    const auto& unit = anPowers[static_cast<std::size_t>(kDecimals - nDecimals)];
    value = value / unit * unit;
  }
  CDecimal::MathType rest;
  value.DivideWithRemainder(anPowers[kDecimals], rest);
  CDecimal::TextType text;
  CTextWriter writer(text);
  char szDigits[CDecimal::MathType::kDecimalRoom];
  char* const pEnd = std::end(szDigits);
  writer.Append(std::string_view(value.WriteDecimal(pEnd), pEnd));
  if (nDecimals > 0) writer.Append('.');
  rest = rest.Abs();
  for (int i = 1; i <= std::min(nDecimals, text.GetSize()); ++i) {
    CDecimal::MathType digit = rest;
    if (i <= kDecimals)
      digit.DivideWithRemainder(anPowers[static_cast<std::size_t>(kDecimals - i)], rest);
    writer.Append(static_cast<char>('0' + digit.m_aWords[0]));
  }
  return text;
}

}  // namespace

// A later finding overwrites an earlier one, so DEC_TRUNCATED is lost when the text also over- or
// underflows.
CDecimal& CDecimal::ParseByDigits(const char* szText) {
  constexpr std::string_view kDigitSet = "0123456789";
  SetToZero();
  std::string_view sText = WithoutLeadingSpace(szText);
  if (sText.find_first_of(kDigitSet) == std::string_view::npos) {
    RaiseStatus(sText.empty() ? DEC_EMPTY : DEC_BAD_FORMAT, this);
    return *this;
  }

  DEC_STATUS eStatus = DEC_OK;
  const std::size_t nEnd = sText.find_first_not_of("0123456789-+.");
  if (nEnd != std::string_view::npos) {
    sText = sText.substr(0, nEnd);
    eStatus = DEC_TRUNCATED;
  }
  const std::size_t nPoint = std::min(sText.find('.'), sText.size());
  if (sText.find_first_of("-+", 1) != std::string_view::npos ||
      sText.find('.', nPoint + 1) != std::string_view::npos) {
    RaiseStatus(DEC_BAD_FORMAT, this);
    return *this;
  }
  const bool bMinus = !sText.empty() && sText.front() == '-';
  const std::size_t nSign = !sText.empty() && (bMinus || sText.front() == '+') ? 1 : 0;
  const std::string_view sWhole = sText.substr(nSign, nPoint - nSign);
  const std::string_view sFraction = sText.substr(std::min(nPoint + 1, sText.size()));

  CDecimal whole;
  if (sWhole.size() <= kWholeDigits) {
    int nDigit = kDecimals;
    for (auto c = sWhole.rbegin(); c != sWhole.rend(); ++c) whole.SetDigit(nDigit++, *c - '0');
  } else {
    // Counted in characters: leading zeros alone make the status, though not the value.
    const CQuietScope quiet;
    MathType value;
    value.fromDecimalString(sWhole);
    whole.fromMathType(value.op_Multiply(ms_anMathPowersOf10[kDecimals]));
    eStatus = DEC_TEXT_OVERFLOW;
  }

  CDecimal fraction;
  int nDigit = kDecimals - 1;
  for (const char c : sFraction.substr(0, kDecimals)) fraction.SetDigit(nDigit--, c - '0');
  if (sFraction.size() > kDecimals && sFraction[kDecimals] >= '5') fraction.op_Add(ms_Smallest);
  if (whole.IsZeroDigits() && fraction.IsZeroDigits() &&
      sFraction.find_first_of(kDigitSet.substr(1)) != std::string_view::npos) {
    eStatus = DEC_TEXT_UNDERFLOW;
  }

  {
    const CQuietScope quiet;
    *this = whole + fraction;
    if (IsOverflow(GetLastStatus())) eStatus = DEC_TEXT_OVERFLOW;
  }
  if (bMinus) SetNegative();
  RaiseStatus(eStatus, this);
  return *this;
}

CFixedString<46> CDecimal::PrintByDigits(int nDecimals) const {
  CDecimal copy(*this);
  if (nDecimals < kDecimals) {
    const CQuietScope quiet;
    copy.Round(nDecimals);
  }
  if (const COverflowItem* pItem = FindItem(&copy))
    return PrintExact(pItem->m_MathValue, nDecimals);

  TextType text;
  CTextWriter writer(text);
  if (copy.IsNegative()) writer.Append('-');
  int nDigit = kDigits - 1;
  while (nDigit > kDecimals && copy.GetDigit(nDigit) == 0) --nDigit;
  for (; nDigit >= kDecimals; --nDigit)
    writer.Append(static_cast<char>('0' + copy.GetDigit(nDigit)));
  if (nDecimals > 0) writer.Append('.');
  // Behind the ninth decimal GetDigit answers 0, and the text is full soon after.
  const int nShown = std::clamp(nDecimals, 0, text.GetSize());
  for (int i = 1; i <= nShown; ++i) {
    writer.Append(static_cast<char>('0' + copy.GetDigit(kDecimals - i)));
  }
  return text;
}

}  // namespace ald
