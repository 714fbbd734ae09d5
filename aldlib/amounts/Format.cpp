#include "aldlib/amounts/Format.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "aldlib/amounts/internal/Separators.h"
#include "aldlib/arith/DecimalLiteral.h"
#include "aldlib/arith/Precision.h"
#include "aldlib/text/Justify.h"
#include "aldlib/text/Strings.h"

namespace ald {

using namespace literals;

namespace {

using FieldText = CDecimal::TextType;

// From this magnitude on a value is not written, although the type holds more.
constexpr CDecimal kTooLarge = 1'000'000'000_dec;

constexpr std::int32_t kMoneyWidth = 23;

CDecimal Magnitude(const CDecimal& value) {
  CDecimal magnitude(value);
  magnitude.SetPositive();
  return magnitude;
}

void Negate(CDecimal& value) {
  if (value.IsNegative()) {
    value.SetPositive();
  } else {
    value.SetNegative();
  }
}

std::int32_t Capacity(const CFixedStringParamRef& out) {
  return HasRoom(out) ? out.size - 1 : 0;
}

void FillWithQuestionMarks(const CFixedStringParamRef& out, std::int32_t nStart) {
  if (!HasRoom(out)) return;
  const std::int32_t nEnd = Capacity(out);
  if (nStart < nEnd) std::memset(out.buffer + nStart, '?', Bytes(nEnd - nStart));
  out.buffer[nEnd] = '\0';
}

void SetToQuestionMarks(FieldText& sText, std::int32_t nCount) {
  sText.Clear();
  std::memset(sText, '?', Bytes(std::min(nCount, sText.GetSize() - 1)));
}

// The right-aligned field of a number, ready for `out`, or question marks in all of it. Returns
// whether it fitted.
bool WriteField(const CDecimal& value, std::int32_t nDecimals, std::int64_t nFieldWidth,
                const CFixedStringParamRef& out, std::int32_t& nPosition) {
  if (!HasRoom(out)) return false;
  nPosition = std::max(nPosition, 0);
  const FieldText sNumber = value.toRawString(nDecimals);
  const auto nDigits = static_cast<std::int32_t>(sNumber.view().size());
  const std::int64_t nLength = std::max<std::int64_t>(nDigits, nFieldWidth);
  if (nLength + nPosition > Capacity(out) || Magnitude(value) >= kTooLarge) {
    FillWithQuestionMarks(out, nPosition);
    nPosition = std::max(nPosition, Capacity(out));
    return false;
  }
  const auto nBlanks = static_cast<std::int32_t>(nLength) - nDigits;
  std::memset(out.buffer + nPosition, ' ', Bytes(nBlanks));
  nPosition += nBlanks;
  std::memcpy(out.buffer + nPosition, sNumber, Bytes(nDigits));
  nPosition += nDigits;
  ZeroFrom(out, nPosition);
  return true;
}

// nWidth may be negative where a buffer is too small for any field.
void WriteSeparatedField(const CDecimal& value, const CFixedStringParamRef& out,
                         std::int32_t nDecimals, std::int32_t nWidth) {
  if (!HasRoom(out)) return;
  if (Capacity(out) < nWidth) {
    FillWithQuestionMarks(out, 0);
    return;
  }
  std::int32_t nPosition = 0;
  if (!WriteField(value, nDecimals, nWidth, out, nPosition)) return;
  LocalizePoint(out);
  // A field without decimals has no point to count from and gets no separators: columns of whole
  // numbers rely on that.
  const char szPoint[] = {DecimalSeparator(), '\0'};
  std::int32_t i = out.Find(szPoint);
  while (i > 4 && i < nWidth) {
    i -= 4;
    SeparateBehind(out, i);
  }
}

void WriteMoneyInParentheses(const CDecimal& magnitude, const CFixedStringParamRef& out) {
  const std::int32_t nWidth = std::min(Capacity(out) - 1, kMoneyWidth);
  WriteSeparatedField(magnitude, out, CurrencyPrecision, nWidth);
  if (!HasRoom(out)) return;
  // Without room for either parenthesis the amount would read as a positive one.
  if (LengthIn(out) == Capacity(out)) FillWithQuestionMarks(out, 0);
  const char cFirst = out.buffer[0];
  if (cFirst < '0' || cFirst > '9') {
    Delete(out, 0, 1);
    const std::size_t nStart = out.view().find_first_not_of(' ');
    Insert("(", out, nStart == std::string_view::npos ? 0 : static_cast<std::int32_t>(nStart));
  }
  sstrcat(out.buffer, ")", out.size);
}

// Fits a trimmed text into nWidth characters and appends it right-aligned.
void AppendFitted(const CFixedStringParamRef& out, FieldText& sText, std::int32_t nWidth) {
  if (!HasRoom(out)) return;
  nWidth = std::clamp(nWidth, 0, Capacity(out) - LengthIn(out));
  const char cSeparator = ThousandsSeparator();
  for (auto nLength = LengthIn(sText); nLength > nWidth; nLength = LengthIn(sText)) {
    const std::size_t nAt = sText.view().find(cSeparator);
    // A region that writes both separators alike must not lose its decimal point.
    if (nAt == std::string_view::npos || cSeparator == DecimalSeparator()) {
      SetToQuestionMarks(sText, nWidth);
      break;
    }
    Delete(sText, static_cast<std::int32_t>(nAt), 1);
  }
  AppendWithJustify(out, sText, kJustifyRight);
}

}  // namespace

void RealToStringFixed(const CDecimal& value, int nWidth, int nWhole, CFixedStringParamRef out,
                       int* pnPosition, unsigned char* pbOk) {
  std::int32_t nPosition = pnPosition != nullptr ? *pnPosition : 0;
  const std::int64_t nDecimals = std::int64_t{nWidth} - nWhole;
  // No text shows more decimals than it has characters.
  const auto nShown = static_cast<std::int32_t>(std::clamp<std::int64_t>(nDecimals, -99, 99));
  const bool bOk = WriteField(value, nShown, std::int64_t{nWidth} + 2, out, nPosition);
  if (pnPosition != nullptr) *pnPosition = nPosition;
  if (pbOk != nullptr) *pbOk = bOk ? 1 : 0;
}

void MyRealToString(const CDecimal& value, CFixedStringParamRef out, std::uint16_t nDecimals,
                    std::uint16_t nWidth) {
  WriteSeparatedField(value, out, nDecimals, nWidth);
}

void MyQtyToString(const CDecimal& value, CFixedStringParamRef out, std::uint16_t nDecimals,
                   std::uint16_t nWidth) {
  WriteSeparatedField(value, out, nDecimals, nWidth);
}

std::int16_t MyDoubleToStringNoCommas(const CDecimal* pValue, CFixedStringParamRef out,
                                      std::int16_t nDecimals) {
  if (pValue == nullptr) {
    FillWithQuestionMarks(out, 0);
    return 0;
  }
  std::int32_t nPosition = 0;
  const bool bOk =
      WriteField(*pValue, nDecimals, std::min(Capacity(out), kMoneyWidth), out, nPosition);
  LocalizePoint(out);
  Trim(out);
  return bOk ? 1 : 0;
}

void DollarsToString(const CDecimal& value, CFixedStringParamRef out, unsigned char bNegate,
                     char cFormat) {
  CDecimal amount(value);
  if (bNegate != 0) Negate(amount);
  if (Magnitude(amount) < CDecimal::ms_HalfCent) amount.SetToZero();
  if (cFormat == kMoneyParentheses && amount.IsNegative()) {
    WriteMoneyInParentheses(Magnitude(amount), out);
  } else {
    const bool bKeepRoom = cFormat == kMoneyParentheses;  // amounts of one column line up
    if (cFormat == kMoneyNoSign) amount.SetPositive();
    const std::int32_t nWidth = std::min(Capacity(out) - (bKeepRoom ? 1 : 0), kMoneyWidth);
    WriteSeparatedField(amount, out, CurrencyPrecision, nWidth);
  }
  Trim(out);
}

void AppendRtoString(CFixedStringParamRef out, const CDecimal& value, int nWidth, char cFormat) {
  FieldText sText;
  DollarsToString(value, sText, 0, cFormat);
  AppendFitted(out, sText, nWidth);
}

void AppendRtoStringNoComma(CFixedStringParamRef out, const CDecimal& value, int nWidth) {
  FieldText sText;
  std::int32_t nPosition = 0;
  WriteField(value, CurrencyPrecision, kMoneyWidth + 2, sText, nPosition);
  LocalizePoint(sText);
  TrimLeft(sText);
  if (!HasRoom(out)) return;
  nWidth = std::clamp(nWidth, 0, Capacity(out) - LengthIn(out));
  if (LengthIn(sText) > nWidth) SetToQuestionMarks(sText, nWidth);
  AppendWithJustify(out, sText, kJustifyRight);
}

CFixedString<46> CDecimal::FormatReal(int nDecimals) const {
  TextType sText;
  const int nShown = nDecimals < 0 ? GetRealPrecision() : nDecimals;
  MyRealToString(*this, sText, static_cast<std::uint16_t>(nShown), sText.GetSize() - 1);
  return sText;
}

CFixedString<46> CDecimal::FormatQty(int nDecimals) const {
  return FormatReal(nDecimals);
}

CFixedString<46> CDecimal::FormatDollars(char cFormat) const {
  TextType sText;
  DollarsToString(*this, sText, 0, cFormat);
  return sText;
}

}  // namespace ald
