#pragma once

#include <cstdint>
#include <string_view>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// How the user writes numbers. The values here are those of a system that says nothing.
struct NumberSettings {
  std::uint32_t nDecimals = 2;
  bool bLeadingZero = true;   // "0.5" rather than ".5"
  CString sGrouping = "3;0";  // sizes from the decimal separator leftwards; a last 0 repeats
  CString sDecimalSeparator = ".";
  CString sThousandSeparator = ",";
  std::uint32_t nNegativeOrder = 1;  // 0 "(1.1)", 1 "-1.1", 2 "- 1.1", 3 "1.1-", 4 "1.1 -"
};

// What one number is to look like. As NumberSettings, but the grouping is one decimal number whose
// digits are the group sizes from the decimal separator leftwards. The last size repeats, unless a
// 0 follows it:
//
//   3 -> 1,234,567,890      32 -> 1,23,45,67,890      30 -> 1234567,890      0 -> 1234567890
struct NumberFormat {
  std::uint32_t nDecimals = 2;  // 0 to 9; more counts as 9
  bool bLeadingZero = true;
  std::uint32_t nGrouping = 3;
  CString sDecimalSeparator = ".";
  CString sThousandSeparator = ",";
  std::uint32_t nNegativeOrder = 1;  // 0 to 4; more counts as 1
};

// What the library asks of the system about the user's way of writing numbers.
class ALDLIB_EXPORT Locale {
 public:
  virtual ~Locale() = default;

  // Reads the settings anew. Whatever the system does not say has the value of NumberSettings{};
  // texts are code page 1252.
  virtual NumberSettings ReadNumberSettings() = 0;

  // Writes a number in the given format. `canonicalText` is an optional "-", digits, and an
  // optional "." with digits. See FormatNumberText for the rules; no backend differs from them.
  virtual CString FormatNumber(std::string_view canonicalText, const NumberFormat& format) = 0;
};

// Writes the number in the given format: rounded half away from zero to the decimals, grouped, with
// a "0" before the separator or not, and with the sign in its place. Zeros that the text has in
// front do not count, and a number that rounds to zero has no sign. With no leading zero and no
// decimals a zero is still "0". Returns an empty text if `canonicalText` has another form than
// Locale tells, or if there is no memory.
//
//   "-1234567.005", {}                     -> -1,234,567.01
//   "-0.5", {.bLeadingZero = false, .nNegativeOrder = 0} -> (.50)
//   "-0.004", {}                           -> 0.00
ALDLIB_EXPORT CString FormatNumberText(std::string_view canonicalText,
                                       const NumberFormat& format) noexcept;

}  // namespace ald
