#include <optional>
#include <string_view>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Platform.h"

// Decimals as the user's locale writes them, for diagnostics only: amounts on screens and reports
// follow the regional settings of the library instead.
namespace ald {

namespace {

std::optional<NumberFormat>& CachedFormat() {
  static std::optional<NumberFormat> format;
  return format;
}

// "3;0" gives 3 and "3;2;0" gives 32: the digits ahead of the first "0", read as one number.
std::uint32_t ReadGrouping(std::string_view sGrouping) {
  std::uint32_t nGrouping = 0;
  for (const char c : sGrouping.substr(0, sGrouping.find('0'))) {
    if (c >= '1' && c <= '9' && nGrouping < 100'000'000) {
      nGrouping = nGrouping * 10 + static_cast<std::uint32_t>(c - '0');
    }
  }
  return nGrouping;
}

const NumberFormat& FormatOfTheLocale() {
  std::optional<NumberFormat>& format = CachedFormat();
  if (!format) {
    NumberSettings settings = CurrentPlatform().locale.ReadNumberSettings();
    format = NumberFormat{settings.nDecimals,
                          settings.bLeadingZero,
                          ReadGrouping(settings.sGrouping),
                          std::move(settings.sDecimalSeparator),
                          std::move(settings.sThousandSeparator),
                          settings.nNegativeOrder};
  }
  return *format;
}

}  // namespace

CFixedString<46> CDecimal::FormatDebugString(int nDecimals) const {
  NumberFormat format = FormatOfTheLocale();
  if (nDecimals != -1) format.nDecimals = static_cast<std::uint32_t>(nDecimals);
  if (format.nDecimals >= kDecimals) format.nDecimals = kDecimals;
  const TextType canonical = toRawString(kDecimals);
  const CString sText = CurrentPlatform().locale.FormatNumber(canonical.view(), format);
  // A number is never cut: where the separators leave no room, the canonical text serves.
  if (sText.size() >= static_cast<std::size_t>(canonical.GetSize())) return canonical;
  return TextType(sText.c_str());
}

void CDecimal::ForgetDebugFormat() {
  CachedFormat().reset();
}

}  // namespace ald
