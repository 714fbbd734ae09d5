#include "aldlib/messages/MessageFormat.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <system_error>

namespace ald {
namespace {

// Widths and precisions past this are of no use in any buffer of a message.
constexpr std::int32_t kMostColumns = 100000;

// The largest double has 309 digits before the point.
constexpr std::int32_t kMostDecimals = 400;
constexpr std::size_t kRealSize = 309 + kMostDecimals + 16;

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Takes a run of digits off the text; what is too large stays at the most.
std::int32_t TakeNumber(std::string_view& sText) {
  std::int32_t nNumber = 0;
  for (; !sText.empty() && IsDigit(sText.front()); sText.remove_prefix(1)) {
    nNumber = std::min(nNumber * 10 + (sText.front() - '0'), kMostColumns);
  }
  return nNumber;
}

bool TakeCharacter(std::string_view& sText, char c) {
  if (sText.empty() || sText.front() != c) return false;
  sText.remove_prefix(1);
  return true;
}

bool TakeFlag(std::string_view& sText, FormatConversion& conversion) {
  if (TakeCharacter(sText, '-')) return conversion.bLeft = true;
  if (TakeCharacter(sText, '+')) return conversion.bPlus = true;
  if (TakeCharacter(sText, ' ')) return conversion.bSpace = true;
  if (TakeCharacter(sText, '#')) return conversion.bAlternate = true;
  if (TakeCharacter(sText, '0')) return conversion.bZero = true;
  return false;
}

// Writes into a buffer as far as it goes, one byte kept for the terminator.
class Writer {
 public:
  explicit Writer(CFixedStringParamRef out) : m_out(out) {}

  void Put(std::string_view sText) {
    const std::size_t nCount = std::min(sText.size(), Room());
    std::copy_n(sText.data(), nCount, m_out.buffer + m_nUsed);
    m_nUsed += nCount;
  }
  void Put(std::size_t nCount, char c) {
    nCount = std::min(nCount, Room());
    std::fill_n(m_out.buffer + m_nUsed, nCount, c);
    m_nUsed += nCount;
  }
  void Finish() { std::fill(m_out.buffer + m_nUsed, m_out.buffer + m_out.size, '\0'); }

 private:
  std::size_t Room() const { return static_cast<std::size_t>(m_out.size) - 1 - m_nUsed; }

  CFixedStringParamRef m_out;
  std::size_t m_nUsed = 0;
};

// A value as the parts that padding goes between.
struct Field {
  std::string_view sPrefix;  // sign or "0x"
  std::size_t nZeros = 0;    // ahead of the digits
  std::string_view sBody;
  bool bPadWithZeros = false;
};

void PutField(Writer& writer, const FormatConversion& conversion, Field field) {
  const std::size_t nLength = field.sPrefix.size() + field.nZeros + field.sBody.size();
  const auto nWidth = static_cast<std::size_t>(std::max(conversion.nWidth, 0));
  const std::size_t nPadding = nWidth > nLength ? nWidth - nLength : 0;
  const bool bZeros = field.bPadWithZeros && conversion.bZero && !conversion.bLeft;
  if (!conversion.bLeft && !bZeros) writer.Put(nPadding, ' ');
  writer.Put(field.sPrefix);
  writer.Put(field.nZeros + (bZeros ? nPadding : 0), '0');
  writer.Put(field.sBody);
  if (conversion.bLeft) writer.Put(nPadding, ' ');
}

std::string_view Sign(const FormatConversion& conversion, bool bNegative) {
  if (bNegative) return "-";
  if (conversion.bPlus) return "+";
  return conversion.bSpace ? " " : "";
}

void RaiseCase(char* pFirst, const char* pLast) {
  for (; pFirst != pLast; ++pFirst) {
    if (*pFirst >= 'a' && *pFirst <= 'z') *pFirst = static_cast<char>(*pFirst - 'a' + 'A');
  }
}

void PutInteger(Writer& writer, const FormatConversion& conversion, const MessageValue& value) {
  const char cType = conversion.cType;
  const bool bSigned = cType == 'd' || cType == 'i';
  const bool bHexadecimal = cType == 'x' || cType == 'X';
  const int nBase = bHexadecimal ? 16 : cType == 'o' ? 8 : 10;
  const std::uint64_t nValue = bSigned ? value.Magnitude() : value.Unsigned();

  char szDigits[32];
  const char* const pEnd = std::to_chars(szDigits, std::end(szDigits), nValue, nBase).ptr;
  if (cType == 'X') RaiseCase(szDigits, pEnd);
  Field field;
  if (nValue != 0 || conversion.nPrecision != 0) {
    field.sBody = {szDigits, static_cast<std::size_t>(pEnd - szDigits)};
  }
  if (bSigned) field.sPrefix = Sign(conversion, value.IsNegative());
  if (conversion.bAlternate && bHexadecimal && nValue != 0)
    field.sPrefix = cType == 'x' ? "0x" : "0X";
  const auto nDigits = static_cast<std::size_t>(std::max(conversion.nPrecision, 0));
  if (nDigits > field.sBody.size()) field.nZeros = nDigits - field.sBody.size();
  if (conversion.bAlternate && cType == 'o' && field.nZeros == 0 && !field.sBody.starts_with('0')) {
    field.nZeros = 1;
  }
  field.bPadWithZeros = conversion.nPrecision < 0;
  PutField(writer, conversion, field);
}

void PutReal(Writer& writer, const FormatConversion& conversion, double value) {
  const char cKind = static_cast<char>(conversion.cType | 0x20);
  const auto eFormat = cKind == 'f'   ? std::chars_format::fixed
                       : cKind == 'e' ? std::chars_format::scientific
                                      : std::chars_format::general;
  const std::int32_t nPrecision =
      conversion.nPrecision < 0 ? 6 : std::min(conversion.nPrecision, kMostDecimals);
  char szText[kRealSize];
  const auto result =
      std::to_chars(szText, std::end(szText), std::fabs(value), eFormat, nPrecision);
  if (conversion.cType != cKind) RaiseCase(szText, result.ptr);
  PutField(writer, conversion,
           {.sPrefix = Sign(conversion, std::signbit(value)),
            .nZeros = 0,
            .sBody = {szText, static_cast<std::size_t>(result.ptr - szText)},
            .bPadWithZeros = std::isfinite(value)});
}

// Walks the values in order; one that is not there, or of another kind than asked for, is null.
class Values {
 public:
  explicit Values(std::span<const MessageValue> values) : m_values(values) {}

  const MessageValue* Next(MessageValue::Kind eKind) {
    if (m_values.empty() || m_values.front().GetKind() != eKind) return nullptr;
    const MessageValue* const pValue = &m_values.front();
    m_values = m_values.subspan(1);
    return pValue;
  }

  // Puts the value of a "*" in its place.
  bool Resolve(std::int32_t& nNumber) {
    if (nNumber != FormatConversion::kFromValue) return true;
    const MessageValue* const pValue = Next(MessageValue::Kind::kInteger);
    if (pValue == nullptr) return false;
    const auto nMagnitude = static_cast<std::int32_t>(
        std::min<std::uint64_t>(pValue->Magnitude(), static_cast<std::uint64_t>(kMostColumns)));
    nNumber = pValue->IsNegative() ? -nMagnitude : nMagnitude;
    return true;
  }

 private:
  std::span<const MessageValue> m_values;
};

bool PutConversion(Writer& writer, FormatConversion conversion, Values& values) {
  using Kind = MessageValue::Kind;
  if (conversion.nWidth == FormatConversion::kFromValue) {
    if (!values.Resolve(conversion.nWidth)) return false;
    conversion.bLeft = conversion.bLeft || conversion.nWidth < 0;
    conversion.nWidth = std::abs(conversion.nWidth);
  }
  if (!values.Resolve(conversion.nPrecision)) return false;

  switch (conversion.cType) {
    case '%':
      writer.Put("%");
      return true;
    case 's': {
      const MessageValue* const pValue = values.Next(Kind::kText);
      if (pValue == nullptr) return false;
      std::string_view sText = pValue->Text();
      if (conversion.nPrecision >= 0) {
        sText = sText.substr(0, static_cast<std::size_t>(conversion.nPrecision));
      }
      PutField(writer, conversion, {.sPrefix = {}, .nZeros = 0, .sBody = sText});
      return true;
    }
    case 'c': {
      const MessageValue* const pValue = values.Next(Kind::kInteger);
      if (pValue == nullptr) return false;
      const auto c = static_cast<char>(static_cast<unsigned char>(pValue->Unsigned()));
      // A zero would end the text in the middle of it.
      PutField(writer, conversion,
               {.sPrefix = {}, .nZeros = 0, .sBody = {&c, c != '\0' ? 1U : 0U}});
      return true;
    }
    case 'e':
    case 'E':
    case 'f':
    case 'F':
    case 'g':
    case 'G': {
      const MessageValue* const pValue = values.Next(Kind::kReal);
      if (pValue == nullptr) return false;
      PutReal(writer, conversion, pValue->Real());
      return true;
    }
    default: {
      const MessageValue* const pValue = values.Next(Kind::kInteger);
      if (pValue == nullptr) return false;
      PutInteger(writer, conversion, *pValue);
      return true;
    }
  }
}

bool PutFormat(Writer& writer, std::string_view sFormat, Values values) {
  while (!sFormat.empty()) {
    const std::size_t nPlain = std::min(sFormat.find('%'), sFormat.size());
    writer.Put(sFormat.substr(0, nPlain));
    sFormat.remove_prefix(nPlain);
    if (sFormat.empty()) break;
    FormatConversion conversion;
    if (!ReadFormatConversion(sFormat, conversion)) return false;
    if (!PutConversion(writer, conversion, values)) return false;
    sFormat.remove_prefix(conversion.nLength);
  }
  writer.Finish();
  return true;
}

}  // namespace

bool ReadFormatConversion(std::string_view sFormat, FormatConversion& conversion) noexcept {
  conversion = {};
  std::string_view sRest = sFormat;
  if (!TakeCharacter(sRest, '%')) return false;
  while (TakeFlag(sRest, conversion)) continue;
  if (TakeCharacter(sRest, '*')) {
    conversion.nWidth = FormatConversion::kFromValue;
  } else if (!sRest.empty() && IsDigit(sRest.front())) {
    conversion.nWidth = TakeNumber(sRest);
  }
  if (TakeCharacter(sRest, '.')) {
    conversion.nPrecision =
        TakeCharacter(sRest, '*') ? FormatConversion::kFromValue : TakeNumber(sRest);
  }
  bool bWideText = false;
  if (sRest.starts_with("I64") || sRest.starts_with("I32")) {
    sRest.remove_prefix(3);
  } else {
    while (!sRest.empty() && std::string_view("hlLjztw").find(sRest.front()) != sRest.npos) {
      bWideText = bWideText || (sRest.front() != 'h');
      sRest.remove_prefix(1);
    }
  }
  if (sRest.empty()) return false;
  const char cType = sRest.front();
  conversion.cType = cType;
  conversion.nLength = sFormat.size() - sRest.size() + 1;
  if (cType == '%') return conversion.nLength == 2;
  if (cType == 's' || cType == 'c') return !bWideText;
  if (std::string_view("eEfFgG").find(cType) != std::string_view::npos) {
    return !conversion.bAlternate;
  }
  return std::string_view("diuoxX").find(cType) != std::string_view::npos;
}

bool FormatMessageText(CFixedStringParamRef out, const char* szFormat,
                       std::span<const MessageValue> values) noexcept {
  if (out.buffer == nullptr || out.size < 1) return false;
  Writer writer(out);
  if (PutFormat(writer, internal::ViewOrEmpty(szFormat), Values(values))) return true;
  out = szFormat;
  return false;
}

}  // namespace ald
