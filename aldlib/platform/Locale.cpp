#include "aldlib/platform/Locale.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <vector>

namespace ald {
namespace {

constexpr std::uint32_t kMaxDecimals = 9;

bool IsDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Adds one to a number written as digits.
void Increment(CString& sDigits) {
  for (auto it = sDigits.rbegin(); it != sDigits.rend(); ++it) {
    if (*it != '9') {
      ++*it;
      return;
    }
    *it = '0';
  }
  sDigits.insert(sDigits.begin(), '1');
}

// Puts the separator between the groups of a whole number.
CString Grouped(std::string_view digits, std::uint32_t nGrouping, const CString& sSeparator) {
  const CString sSizes = std::to_string(nGrouping);
  std::vector<std::string_view> groups;  // from the right
  std::size_t nAt = 0;
  while (true) {
    const auto nSize = static_cast<std::size_t>(sSizes[nAt] - '0');
    if (nSize == 0 || nSize >= digits.size()) break;
    groups.push_back(digits.substr(digits.size() - nSize));
    digits.remove_suffix(nSize);
    if (nAt + 1 < sSizes.size()) ++nAt;
  }
  CString sResult(digits);
  for (auto it = groups.rbegin(); it != groups.rend(); ++it) {
    sResult += sSeparator;
    sResult += *it;
  }
  return sResult;
}

CString WithSign(CString sNumber, std::uint32_t nNegativeOrder) {
  switch (nNegativeOrder) {
    case 0:
      return "(" + sNumber + ")";
    case 2:
      return "- " + sNumber;
    case 3:
      return sNumber + "-";
    case 4:
      return sNumber + " -";
    default:
      return "-" + sNumber;
  }
}

}  // namespace

CString FormatNumberText(std::string_view canonicalText, const NumberFormat& format) noexcept try {
  std::string_view whole = canonicalText;
  const bool bNegative = !whole.empty() && whole.front() == '-';
  if (bNegative) whole.remove_prefix(1);
  std::string_view fraction;
  const std::size_t nPoint = whole.find('.');
  if (nPoint != std::string_view::npos) {
    fraction = whole.substr(nPoint + 1);
    whole = whole.substr(0, nPoint);
  }
  if (!IsDigits(whole) || !IsDigits(fraction) || (whole.empty() && fraction.empty())) return {};

  // All digits as one number, rounded at the last wanted decimal.
  const std::size_t nDecimals = std::min(format.nDecimals, kMaxDecimals);
  CString sDigits(whole);
  sDigits += fraction.substr(0, nDecimals);
  if (fraction.size() > nDecimals) {
    if (fraction[nDecimals] >= '5') Increment(sDigits);
  } else {
    sDigits.append(nDecimals - fraction.size(), '0');
  }
  const bool bZero = sDigits.find_first_not_of('0') == CString::npos;
  if (sDigits.size() < nDecimals) sDigits.insert(0, nDecimals - sDigits.size(), '0');

  std::string_view integer = std::string_view(sDigits).substr(0, sDigits.size() - nDecimals);
  integer.remove_prefix(std::min(integer.find_first_not_of('0'), integer.size()));
  CString sNumber = Grouped(integer, format.nGrouping, format.sThousandSeparator);
  if (integer.empty() && (format.bLeadingZero || nDecimals == 0)) sNumber += '0';
  if (nDecimals > 0) {
    sNumber += format.sDecimalSeparator;
    sNumber += std::string_view(sDigits).substr(sDigits.size() - nDecimals);
  }
  return bNegative && !bZero ? WithSign(sNumber, format.nNegativeOrder) : sNumber;
} catch (const std::bad_alloc&) {
  return {};
}

}  // namespace ald
