#include "tools/aldtool/TypedAmount.h"

#include <algorithm>
#include <cstddef>

#include "aldlib/amounts/Parse.h"
#include "aldlib/platform/Characters.h"
#include "aldlib/text/Constants.h"
#include "aldlib/text/FixedString.h"

namespace aldtool {

namespace {

using ald::CDecimal;

constexpr std::size_t kMostCharacters = 44;
constexpr std::size_t kGroup = 3;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string Quoted(char c) {
  return c == ' ' ? "a blank" : "'" + ald::Utf8FromCodePage1252(std::string_view(&c, 1)) + "'";
}

std::string Reason(const std::string& sText, ald::DEC_STATUS eStatus) {
  switch (eStatus) {
    case ald::DEC_TRUNCATED: {
      ald::CFixedString<kMostCharacters + 2> sCanonical(sText.c_str());
      ald::PrepString4RealConv(sCanonical);
      const std::size_t nAt = sCanonical.view().find_first_not_of("0123456789+-.");
      if (nAt == std::string_view::npos) break;
      return Quoted(sCanonical.view()[nAt]) + " is no part of a number";
    }
    case ald::DEC_TEXT_OVERFLOW:
      return "more than 14 digits stand before the point";
    case ald::DEC_TEXT_UNDERFLOW:
      return "all its digits lie behind the ninth decimal";
    default:
      break;
  }
  return std::any_of(sText.begin(), sText.end(), IsDigit)
             ? "a sign or a point stands where a number has none"
             : "it is no number";
}

}  // namespace

std::string ReadTypedAmount(std::string_view sText, CDecimal& amount) {
  if (sText.find_first_not_of(' ') == std::string_view::npos) return "is missing";
  if (sText.size() > kMostCharacters) {
    return "is longer than " + std::to_string(kMostCharacters) + " characters";
  }
  const std::string sCopy(sText);
  if (ald::MyStringToReal(sCopy.c_str(), &amount) != 0) return {};
  const ald::DEC_STATUS eStatus = CDecimal::GetLastStatus();
  return "cannot be read: " + Reason(sCopy, eStatus) + " (" + ald::StatusName(eStatus) + ")";
}

std::string DoubtAbout(std::string_view sText) {
  const char cPoint = ald::DecimalPoint.IsEmpty() ? '.' : ald::DecimalPoint[0];
  const char cComma = ald::Comma[0];
  const std::size_t nPoint = std::min(sText.find(cPoint), sText.size());
  if (std::count_if(sText.begin() + static_cast<std::ptrdiff_t>(nPoint), sText.end(), IsDigit) >
      CDecimal::kDecimals) {
    return "has more than 9 decimals";
  }
  if (cComma == '\0') return {};
  for (std::size_t nAt = 0; (nAt = sText.find(cComma, nAt)) != std::string_view::npos; ++nAt) {
    const std::string_view sBehind = sText.substr(nAt + 1);
    const auto nDigits = static_cast<std::size_t>(
        std::find_if_not(sBehind.begin(), sBehind.end(), IsDigit) - sBehind.begin());
    if (nAt == 0 || !IsDigit(sText[nAt - 1]) || nAt > nPoint || nDigits != kGroup) {
      return "has " + Quoted(cComma) + " where no group of three digits begins";
    }
  }
  return {};
}

}  // namespace aldtool
