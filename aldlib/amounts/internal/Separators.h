#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "aldlib/text/Constants.h"
#include "aldlib/text/FixedString.h"
#include "aldlib/text/internal/BufferText.h"

// The separators of the region in the texts of numbers. Not part of the interface.
namespace ald {

inline constexpr char kCanonicalPoint = '.';

// The thousands separator, or 0 if numbers carry none.
[[nodiscard]] inline char ThousandsSeparator() noexcept {
  return Comma[0];
}

// What stands before the decimals: without a decimal separator of the region, the canonical one.
[[nodiscard]] inline char DecimalSeparator() noexcept {
  return DecimalPoint[0] != '\0' ? DecimalPoint[0] : kCanonicalPoint;
}

// Replaces the first canonical point by the region's separator.
inline void LocalizePoint(const CFixedStringParamRef& text) noexcept {
  if (!HasRoom(text)) return;
  char* const pEnd = text.buffer + LengthIn(text);
  char* const pPoint = std::find(text.buffer, pEnd, kCanonicalPoint);
  if (pPoint != pEnd) *pPoint = DecimalSeparator();
}

// Makes a field "  1234..." whose digit at nIndex is the last one of a group into " 1,234...": the
// separator takes up the blank at the left and what stands behind nIndex keeps its place. Nothing
// happens if there is no blank, no digit or no separator.
inline void SeparateBehind(const CFixedStringParamRef& text, std::int32_t nIndex) noexcept {
  const char cDigit = text.buffer[nIndex];
  if (cDigit < '0' || cDigit > '9' || text.buffer[0] != ' ' || ThousandsSeparator() == '\0') return;
  std::memmove(text.buffer, text.buffer + 1, Bytes(nIndex));
  text.buffer[nIndex] = ThousandsSeparator();
}

}  // namespace ald
