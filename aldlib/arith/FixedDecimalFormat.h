#pragma once

#include <fmt/format.h>

#include <string_view>

#include "aldlib/arith/BigInt.h"
#include "aldlib/arith/FixedDecimal.h"

// Exact numbers in fmt's texts. Optional: needs the fmt library.
//
//   fmt::format("{} {:.2} {:>12.2}", 12.5_dec, 12.5_dec, 12.5_dec);     //
//   "12.5 12.50        12.50"
//
// A precision asks for that many decimals, rounded half away from zero; without one the value is
// exact and has no trailing zeros. Fill, alignment and width are those of texts; numbers lean to
// the right.
namespace ald::internal {

// Reads [[fill]align][width][.decimals].
struct NumberTextFormatter {
  char cFill = ' ';
  char cAlign = '>';
  int nWidth = 0;
  int nDecimals = -1;  // exact

  constexpr fmt::format_parse_context::iterator parse(fmt::format_parse_context& context) {
    auto p = context.begin();
    const auto end = context.end();
    const auto isAlign = [](char c) { return c == '<' || c == '>' || c == '^'; };
    if (end - p >= 2 && *p != '{' && *p != '}' && isAlign(p[1])) cFill = *p++;
    if (p != end && isAlign(*p)) cAlign = *p++;
    const auto number = [&p, end](int& nValue) {
      nValue = 0;
      for (; p != end && *p >= '0' && *p <= '9'; ++p) {
        if (nValue > 999) throw fmt::format_error("a width or precision is too large");
        nValue = nValue * 10 + (*p - '0');
      }
    };
    number(nWidth);
    if (p != end && *p == '.') {
      ++p;
      if (p == end || *p < '0' || *p > '9') throw fmt::format_error("a precision is missing");
      number(nDecimals);
    }
    if (p != end && *p != '}') throw fmt::format_error("an exact number has no such format");
    return p;
  }

  template <class TContext>
  auto Write(std::string_view sText, TContext& context) const {
    const int nPad = nWidth - static_cast<int>(sText.size());
    const int nLeft = nPad <= 0 || cAlign == '<' ? 0 : cAlign == '^' ? nPad / 2 : nPad;
    auto out = context.out();
    for (int i = 0; i < nLeft; ++i) *out++ = cFill;
    for (const char c : sText) *out++ = c;
    for (int i = nLeft; i < nPad; ++i) *out++ = cFill;
    return out;
  }
};

}  // namespace ald::internal

template <>
struct fmt::formatter<ald::CDecimal> : ald::internal::NumberTextFormatter {
  template <class TContext>
  auto format(const ald::CDecimal& value, TContext& context) const {
    if (nDecimals < 0) return Write(value.toExactString().view(), context);
    // An observer: rounding for the eye leaves the last status as it was.
    const ald::DEC_STATUS eLastStatus = ald::CDecimal::GetLastStatus();
    const auto text = value.toRawString(nDecimals);
    ald::CDecimal::m_pTlsData->m_eLastStatus = eLastStatus;
    return Write(text.view(), context);
  }
};

template <int nBits>
struct fmt::formatter<ald::CBigInt<nBits>> : ald::internal::NumberTextFormatter {
  template <class TContext>
  auto format(const ald::CBigInt<nBits>& value, TContext& context) const {
    return Write(value.toDecimalString(), context);
  }
};
