#include "aldlib/amounts/Parse.h"

#include <algorithm>
#include <string_view>

#include "aldlib/amounts/internal/Separators.h"
#include "aldlib/arith/Precision.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

using EntryText = CFixedString<46>;

constexpr std::size_t kMostCharacters = EntryText{}.GetSize() - 1;

// A bad entry is reported by its result alone.
class QuietScope {
 public:
  QuietScope() : m_pfnSaved(CDecimal::SetErrorHandler(nullptr)) {}
  ~QuietScope() { CDecimal::SetErrorHandler(m_pfnSaved); }
  QuietScope(const QuietScope&) = delete;
  QuietScope& operator=(const QuietScope&) = delete;

 private:
  CDecimal::ErrorHandler m_pfnSaved;
};

bool ParseCanonical(std::string_view sText, CDecimal& value) {
  if (sText.size() >= kMostCharacters) {
    value.SetToZero();
    return false;
  }
  EntryText sCopy;
  std::copy(sText.begin(), sText.end(), sCopy + 0);
  const QuietScope quiet;
  value.fromRawString(sCopy);
  const DEC_STATUS eStatus = CDecimal::GetLastStatus();
  const bool bOk = IsSuccess(eStatus) && eStatus != DEC_TRUNCATED;
  if (!bOk) value.SetToZero();
  return bOk;
}

// Puts the point that auto decimal implies. `nDecimals` may be anything: the zeros stop where the
// text is full, and such an entry is refused for its length.
void ImplyPoint(EntryText& sText, std::int32_t nDecimals) {
  const std::string_view sDigits = sText.view();
  if (sDigits.find(kCanonicalPoint) != std::string_view::npos) return;
  const auto nLength = static_cast<std::int32_t>(sDigits.size());
  const std::int32_t nMost = sText.GetSize() - 1;
  const std::int32_t nFilled = std::max(nLength, std::min(nDecimals, nMost));
  for (std::int32_t n = nLength; n < nFilled; ++n) Insert("0", sText, 0);
  Insert(".", sText, std::max(nFilled - nDecimals, 0));
}

bool ParseEntry(const char* szText, CDecimal& value, bool bAutoDecimal, std::int32_t nDecimals) {
  EntryText sText(szText);
  PrepString4RealConv(sText);
  if (bAutoDecimal) {
    const bool bMinus = sText[0] == '-';
    if (bMinus) Delete(sText, 0, 1);
    ImplyPoint(sText, nDecimals);
    if (bMinus) Insert("-", sText, 0);
  }
  return ParseCanonical(sText.view(), value);
}

unsigned char ParseTo(CDecimal* pValue, const char* szText, bool bAutoDecimal,
                      std::int32_t nDecimals) {
  CDecimal unwanted;
  CDecimal& value = pValue != nullptr ? *pValue : unwanted;
  return ParseEntry(szText, value, bAutoDecimal, nDecimals) ? 1 : 0;
}

unsigned char RoundQuantity(CDecimal* pValue, unsigned char bOk) {
  // A refused entry is 0 whatever it is rounded to, and keeps the status that tells the reason.
  if (bOk == 0 || pValue == nullptr) return bOk;
  CDecimal rounded(*pValue);
  rounded.Round(GetRealPrecision());
  *pValue = rounded;
  return bOk;
}

}  // namespace

void PrepString4RealConv(CFixedStringParamRef text) {
  if (!HasRoom(text)) return;
  char* pEnd = text.buffer + LengthIn(text);
  if (ThousandsSeparator() != '\0') {
    pEnd = std::remove(text.buffer, pEnd, ThousandsSeparator());
  }
  char* const pPoint = std::find(text.buffer, pEnd, DecimalSeparator());
  if (pPoint != pEnd) *pPoint = kCanonicalPoint;
  ZeroFrom(text, static_cast<std::int32_t>(pEnd - text.buffer));
  Trim(text);
  const std::int32_t nLength = LengthIn(text);
  if (nLength > 0 && text.buffer[0] == '(' && text.buffer[nLength - 1] == ')') {
    text.buffer[0] = '-';
    text.buffer[nLength - 1] = '\0';
  }
}

void StringToReal(const char* szText, std::uint16_t* pnPosition, CDecimal* pValue,
                  unsigned char* pbOk) {
  const std::uint16_t nStart = pnPosition != nullptr ? *pnPosition : std::uint16_t{0};
  std::string_view sText;
  // The text is measured from its front, so that a position behind its end does no harm.
  if (szText != nullptr && TextLength(szText, nStart) == nStart) {
    const auto nMost = static_cast<std::int32_t>(kMostCharacters);
    sText = {szText + nStart, Bytes(TextLength(szText + nStart, nMost))};
  }
  CDecimal unwanted;
  const bool bOk = ParseCanonical(sText, pValue != nullptr ? *pValue : unwanted);
  if (pnPosition != nullptr) *pnPosition = static_cast<std::uint16_t>(nStart + sText.size());
  if (pbOk != nullptr) *pbOk = bOk ? 1 : 0;
}

unsigned char MyStringToRealWithNoExtras(const char* szText, CDecimal* pValue) {
  return ParseTo(pValue, szText, false, 0);
}

unsigned char MyStringToQtyWithNoExtras(const char* szText, CDecimal* pValue) {
  return RoundQuantity(pValue, ParseTo(pValue, szText, false, 0));
}

unsigned char MyStringToReal(const char* szText, CDecimal* pValue) {
  return ParseTo(pValue, szText, GetAutoDecimal() != 0, CurrencyPrecision);
}

unsigned char MyStringToQty(const char* szText, CDecimal* pValue) {
  return RoundQuantity(pValue, ParseTo(pValue, szText, GetAutoDecimal() != 0, GetRealPrecision()));
}

void AddCommasToQtyString(CFixedStringParamRef text) {
  if (!HasRoom(text)) return;
  const std::int32_t nLength = LengthIn(text);
  if (text.view().find('?') != std::string_view::npos) return;
  for (std::int32_t i = nLength - 4; i > 0; i -= 4) SeparateBehind(text, i);
}

void RemoveCommasFromQtyString(CFixedStringParamRef text) {
  if (!HasRoom(text) || text.view().find('?') != std::string_view::npos) return;
  char* const pEnd = std::remove(text.buffer, text.buffer + LengthIn(text), ',');
  ZeroFrom(text, static_cast<std::int32_t>(pEnd - text.buffer));
}

}  // namespace ald
