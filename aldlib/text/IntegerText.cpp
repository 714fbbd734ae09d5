#include "aldlib/text/IntegerText.h"

#include <algorithm>
#include <cstring>

#include "aldlib/platform/Characters.h"
#include "aldlib/text/internal/BufferText.h"

namespace ald {
namespace {

// A position has 16 bits, so a byte further on cannot be reached.
constexpr std::int32_t kPositionMax = 65535;

template <typename T>
void Store(T* pWhere, T value) {
  if (pWhere != nullptr) *pWhere = value;
}

std::int32_t PositionOf(const std::uint16_t* pPosition) {
  return pPosition == nullptr ? 0 : *pPosition;
}

void WriteNumber(std::uint16_t nMagnitude, bool bNegative, std::int32_t nWidth,
                 CFixedStringParamRef out, std::uint16_t* pPosition, unsigned char* pOk) {
  char achNumber[6];
  char* const pEnd = achNumber + sizeof(achNumber);
  char* pText = pEnd;
  do {
    *--pText = static_cast<char>('0' + nMagnitude % 10);
    nMagnitude /= 10;
  } while (nMagnitude != 0);
  if (bNegative) *--pText = '-';
  const auto nNumber = static_cast<std::int32_t>(pEnd - pText);
  const std::int32_t nSpaces = std::max(nWidth - nNumber, 0);

  std::int32_t nPosition = PositionOf(pPosition);
  const std::int32_t nCapacity = HasRoom(out) ? std::min(out.size - 1, kPositionMax) : 0;
  const std::int32_t nRoom = std::max(nCapacity - nPosition, 0);
  const std::int32_t nSpacesKept = std::min(nSpaces, nRoom);
  const std::int32_t nNumberKept = std::min(nNumber, nRoom - nSpacesKept);
  if (nRoom != 0) {
    char* const pAt = out.buffer + nPosition;
    std::memset(pAt, ' ', Bytes(nSpacesKept));
    std::memcpy(pAt + nSpacesKept, pText, Bytes(nNumberKept));
    nPosition += nSpacesKept + nNumberKept;
  }
  if (HasRoom(out) && nPosition <= nCapacity) out.buffer[nPosition] = '\0';
  Store(pPosition, static_cast<std::uint16_t>(nPosition));
  Store(pOk, static_cast<unsigned char>(nSpacesKept == nSpaces && nNumberKept == nNumber));
}

bool IsReadable(const CConstFixedStringParamRef& text, std::int32_t nPosition) {
  return text.buffer != nullptr && nPosition < std::min(text.size, kPositionMax);
}

// Returns whether a number up to nLargest was read. *pnPosition moves behind its last digit.
template <typename T>
bool ReadDigits(const CConstFixedStringParamRef& text, std::int32_t* pnPosition, T nLargest,
                T* pValue) {
  const T nTenth = nLargest / 10;
  const T nLastDigit = nLargest % 10;
  T nValue = 0;
  bool bOk = false;
  for (; IsReadable(text, *pnPosition); ++*pnPosition) {
    const char ch = text.buffer[*pnPosition];
    if (!IsDigitAscii(ch)) break;
    const auto nDigit = static_cast<T>(ch - '0');
    if (nValue > nTenth || (nValue == nTenth && nDigit > nLastDigit)) {
      bOk = false;
      break;
    }
    nValue = static_cast<T>(nValue * 10 + nDigit);
    bOk = true;
  }
  *pValue = nValue;
  return bOk;
}

template <typename T>
void ReadUnsigned(const CConstFixedStringParamRef& text, T nLargest, std::uint16_t* pPosition,
                  T* pValue, unsigned char* pOk) {
  std::int32_t nPosition = PositionOf(pPosition);
  T nValue = 0;
  const bool bOk = ReadDigits(text, &nPosition, nLargest, &nValue);
  Store(pPosition, static_cast<std::uint16_t>(nPosition));
  Store(pValue, nValue);
  Store(pOk, static_cast<unsigned char>(bOk));
}

// The negative range reaches one further than the positive one.
template <typename Signed, typename Unsigned>
void ReadSigned(const CConstFixedStringParamRef& text, Unsigned nLargestRead,
                Unsigned nLargestPositive, std::uint16_t* pPosition, Signed* pValue,
                unsigned char* pOk) {
  std::int32_t nPosition = PositionOf(pPosition);
  bool bNegative = false;
  if (IsReadable(text, nPosition)) {
    const char ch = text.buffer[nPosition];
    bNegative = ch == '-';
    if (ch == '-' || ch == '+') ++nPosition;
  }
  Unsigned nValue = 0;
  bool bOk = ReadDigits(text, &nPosition, nLargestRead, &nValue);
  if (nValue > nLargestPositive + (bNegative ? 1U : 0U)) bOk = false;
  Store(pPosition, static_cast<std::uint16_t>(nPosition));
  Store(pOk, static_cast<unsigned char>(bOk));
  if (!bOk) return;
  const auto nWide = static_cast<std::int64_t>(nValue);
  Store(pValue, static_cast<Signed>(bNegative ? -nWide : nWide));
}

constexpr std::uint16_t kCardMax = 65535;
constexpr std::uint32_t kUnsignedLongMax = 4294967294;

}  // namespace

void CardToString(std::uint16_t n, std::uint16_t nWidth, CFixedStringParamRef out,
                  std::uint16_t* pPosition, unsigned char* pOk) noexcept {
  WriteNumber(n, false, nWidth, out, pPosition, pOk);
}

void IntToString(std::int16_t n, std::int16_t nWidth, CFixedStringParamRef out,
                 std::uint16_t* pPosition, unsigned char* pOk) noexcept {
  const std::int32_t nWide = n;
  WriteNumber(static_cast<std::uint16_t>(nWide < 0 ? -nWide : nWide), n < 0, nWidth, out, pPosition,
              pOk);
}

void StringToCard(const CConstFixedStringParamRef& text, std::uint16_t* pPosition,
                  std::uint16_t* pValue, unsigned char* pOk) noexcept {
  ReadUnsigned(text, kCardMax, pPosition, pValue, pOk);
}

void StringToUnsignedLong(const CConstFixedStringParamRef& text, std::uint16_t* pPosition,
                          std::uint32_t* pValue, unsigned char* pOk) noexcept {
  ReadUnsigned(text, kUnsignedLongMax, pPosition, pValue, pOk);
}

void StringToUnsignedChar(const CConstFixedStringParamRef& text, std::uint16_t* pPosition,
                          std::uint8_t* pValue, unsigned char* pOk) noexcept {
  ReadUnsigned(text, std::uint8_t{254}, pPosition, pValue, pOk);
}

void StringToInt(const CConstFixedStringParamRef& text, std::uint16_t* pPosition,
                 std::int16_t* pValue, unsigned char* pOk) noexcept {
  ReadSigned(text, kCardMax, std::uint16_t{32767}, pPosition, pValue, pOk);
}

void StringToLong(const CConstFixedStringParamRef& text, std::uint16_t* pPosition,
                  std::int32_t* pValue, unsigned char* pOk) noexcept {
  ReadSigned(text, kUnsignedLongMax, std::uint32_t{2147483641}, pPosition, pValue, pOk);
}

void MyStringToCard(const CConstFixedStringParamRef& text, std::uint16_t* pValue) noexcept {
  std::int32_t nPosition = 0;
  while (IsReadable(text, nPosition) && text.buffer[nPosition] == ' ') ++nPosition;
  auto nStart = static_cast<std::uint16_t>(nPosition);
  StringToCard(text, &nStart, pValue, nullptr);
}

}  // namespace ald
