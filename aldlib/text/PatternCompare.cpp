// The compares of whole texts with patterns.

#include <cstring>
#include <limits>
#include <string_view>

#include "aldlib/text/WildcardSearch.h"

namespace ald {
namespace {

std::string_view View(const char* szText) {
  return szText != nullptr ? std::string_view(szText) : std::string_view();
}

}  // namespace

std::int16_t MatchMask(const char* szText, const char* szMask) noexcept {
  const std::string_view sMask = View(szMask);
  const std::string_view sText = View(szText);
  if (sMask.empty()) return 0;
  for (std::size_t i = 0; i < sMask.size(); ++i) {
    if (sMask[i] == '*') {
      if (i < sText.size()) continue;
      return sMask.find_first_not_of('*', i) == std::string_view::npos ? 0 : 1;
    }
    const char chText = i < sText.size() ? sText[i] : '\0';
    if (chText != sMask[i]) {
      return static_cast<signed char>(chText) > static_cast<signed char>(sMask[i]) ? 1 : -1;
    }
  }
  return sText.size() > sMask.size() ? 1 : 0;
}

std::int16_t CheckForWildCard(char* szText, char cWildcard) noexcept {
  if (szText == nullptr || cWildcard == '\0') return -1;
  char* const pFound = std::strchr(szText, cWildcard);
  if (pFound == nullptr) return -1;
  if (pFound > szText && pFound[-1] == '\\') {
    std::memmove(pFound - 1, pFound, std::strlen(pFound) + 1);
    return -1;
  }
  const std::ptrdiff_t nIndex = pFound - szText;
  return nIndex > std::numeric_limits<std::int16_t>::max() ? std::int16_t{-1}
                                                           : static_cast<std::int16_t>(nIndex);
}

std::int16_t CompareStrWithQuestion(const char* szText, const char* szPattern,
                                    std::int16_t nPosition) noexcept {
  const std::string_view sText = View(szText);
  const std::string_view sPattern = View(szPattern);
  if (sText.empty() || sText.size() != sPattern.size()) return 1;
  for (std::size_t i = 0; i < sText.size(); ++i) {
    if (static_cast<std::ptrdiff_t>(i) != nPosition && sText[i] != sPattern[i]) return 1;
  }
  return 0;
}

std::int16_t CompareStrWithMultipleQuestion(const char* szText, const char* szPattern) noexcept {
  const std::string_view sText = View(szText);
  const std::string_view sPattern = View(szPattern);
  if (sText.empty() || sText.size() != sPattern.size()) return 1;
  for (std::size_t i = 0; i < sText.size(); ++i) {
    if (sPattern[i] != '?' && sPattern[i] != sText[i]) return 1;
  }
  return 0;
}

std::int16_t CompareStrWithAsterisk(const char* szText, const char* szPattern,
                                    std::int16_t nPosition) noexcept {
  const std::string_view sText = View(szText);
  const std::string_view sPattern = View(szPattern);
  if (sText.empty() || nPosition < 0 || static_cast<std::size_t>(nPosition) >= sPattern.size()) {
    return 1;
  }
  const auto nStar = static_cast<std::size_t>(nPosition);
  const bool bSame =
      sText.starts_with(sPattern.substr(0, nStar)) && sText.ends_with(sPattern.substr(nStar + 1));
  return bSame ? 0 : 1;
}

}  // namespace ald
