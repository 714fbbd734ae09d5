#pragma once

#include <string_view>

#include "aldlib/arith/FixedDecimal.h"

// Decimals in source text, checked by the compiler.
//
//   using namespace ald::literals;
//   constexpr auto rate = 0.0725_dec;
//   12.50_dec    1'250'000_dec    -3_dec         (the minus is the operator)
//   1e3_dec      0.1234567890_dec                 // do not compile: an exponent, ten decimals
namespace ald {

namespace internal {

// Never constant: a call stops the compiler, which then names the function.
inline void LiteralHasACharacterThatIsNoDigit() {}
inline void LiteralHasTooManyWholeDigits() {}
inline void LiteralHasTooManyDecimals() {}

consteval CDecimal ParseDecimalLiteral(std::string_view sText) {
  packed::Bytes bytes = packed::kZero;
  int nDecimals = -1;  // not yet behind the point
  int nWhole = 0;
  for (const char c : sText) {
    if (c == '\'') continue;
    if (c == '.') {
      nDecimals = 0;
      continue;
    }
    if (c < '0' || c > '9') LiteralHasACharacterThatIsNoDigit();
    if (nDecimals < 0) {
      if (++nWhole > CDecimal::kWholeDigits) LiteralHasTooManyWholeDigits();
      packed::ShiftDigits(bytes, 1);
      packed::SetDigit(bytes, CDecimal::kDecimals, c - '0');
    } else {
      if (++nDecimals > CDecimal::kDecimals) LiteralHasTooManyDecimals();
      packed::SetDigit(bytes, CDecimal::kDecimals - nDecimals, c - '0');
    }
  }
  return CDecimal::FromBytes(bytes);
}

}  // namespace internal

inline namespace literals {

consteval CDecimal operator""_dec(const char* szText) {
  return internal::ParseDecimalLiteral(szText);
}

}  // namespace literals

}  // namespace ald
