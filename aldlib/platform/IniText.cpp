#include "aldlib/platform/IniText.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "aldlib/platform/Characters.h"

namespace ald {
namespace {

std::string_view Trimmed(std::string_view sText) {
  while (!sText.empty() && IsSpaceAscii(sText.front())) sText.remove_prefix(1);
  while (!sText.empty() && IsSpaceAscii(sText.back())) sText.remove_suffix(1);
  return sText;
}

std::string_view WithoutQuotes(std::string_view sText) {
  const bool bQuoted = sText.size() >= 2 && sText.front() == sText.back() &&
                       (sText.front() == '"' || sText.front() == '\'');
  return bQuoted ? sText.substr(1, sText.size() - 2) : sText;
}

// Less than, equal to or greater than 0.
int CompareCaseBlind(std::string_view sLeft, std::string_view sRight) {
  const std::size_t nCommon = std::min(sLeft.size(), sRight.size());
  for (std::size_t i = 0; i < nCommon; ++i) {
    const auto nLeft = static_cast<unsigned char>(CharUpper(sLeft[i]));
    const auto nRight = static_cast<unsigned char>(CharUpper(sRight[i]));
    if (nLeft != nRight) return nLeft < nRight ? -1 : 1;
  }
  return sLeft.size() == sRight.size() ? 0 : (sLeft.size() < sRight.size() ? -1 : 1);
}

std::optional<std::string_view> FindInLayers(IniLayers layers, const char* szSection,
                                             const char* szKey) {
  for (const IniText* pText : layers) {
    if (pText == nullptr) continue;
    if (const auto sValue = pText->Find(szSection, szKey)) return sValue;
  }
  return std::nullopt;
}

// Adds the names, each ended by a zero. A name that an earlier layer has is not told again; an
// empty one would read as the end of the list.
void AddNames(const std::vector<std::string_view>& names, CString& sList) {
  const CString sEarlier = sList;
  const auto isEarlier = [&sEarlier](std::string_view sName) {
    for (std::size_t nAt = 0; nAt < sEarlier.size();) {
      const std::string_view sKnown(sEarlier.c_str() + nAt);
      if (CompareCaseBlind(sKnown, sName) == 0) return true;
      nAt += sKnown.size() + 1;
    }
    return false;
  };
  for (const std::string_view sName : names) {
    if (!sName.empty() && !isEarlier(sName)) sList.append(sName).push_back('\0');
  }
}

// Returns false if no layer has what is to be listed.
bool ListNames(IniLayers layers, const char* szSection, CString& sList) {
  bool bThere = false;
  for (const IniText* pText : layers) {
    if (pText == nullptr) continue;
    const auto* const pNames = szSection == nullptr ? &pText->Sections() : pText->Keys(szSection);
    if (pNames == nullptr) continue;
    bThere = true;
    AddNames(*pNames, sList);
  }
  return bThere;
}

std::uint32_t CopyCut(std::string_view sText, char* szBuffer, std::uint32_t nSize) {
  const std::size_t nLength = std::min<std::size_t>(sText.size(), nSize - 1);
  std::memmove(szBuffer, sText.data(), nLength);
  szBuffer[nLength] = '\0';
  return static_cast<std::uint32_t>(nLength);
}

// Copies a list and ends it by one more zero; one that is cut ends by two zeros as well.
std::uint32_t CopyList(std::string_view sList, char* szBuffer, std::uint32_t nSize) {
  if (nSize < 2 || sList.empty()) {
    std::fill_n(szBuffer, std::min<std::uint32_t>(nSize, 2), '\0');
    return 0;
  }
  const bool bCut = sList.size() > nSize - 1;
  const std::size_t nCopied = bCut ? nSize - 2 : sList.size();
  std::memcpy(szBuffer, sList.data(), nCopied);
  std::fill_n(szBuffer + nCopied, bCut ? 2 : 1, '\0');
  return static_cast<std::uint32_t>(nCopied);
}

unsigned DigitValue(char c) {
  if (IsDigitAscii(c)) return static_cast<unsigned>(c - '0');
  const char cUpper = ToUpperAscii(c);
  return cUpper >= 'A' && cUpper <= 'F' ? static_cast<unsigned>(cUpper - 'A') + 10 : 16;
}

std::uint32_t NumberOf(std::string_view sText) {
  sText = Trimmed(sText);
  const bool bNegative = sText.starts_with('-');
  if (bNegative || sText.starts_with('+')) sText.remove_prefix(1);
  unsigned nBase = 10;
  if (sText.starts_with("0x") || sText.starts_with("0X")) {
    nBase = 16;
    sText.remove_prefix(2);
  }
  std::uint32_t nValue = 0;
  for (const char c : sText) {
    const unsigned nDigit = DigitValue(c);
    if (nDigit >= nBase) break;
    nValue = nValue * nBase + nDigit;
  }
  return bNegative ? 0 - nValue : nValue;
}

}  // namespace

namespace internal {

bool CaseBlindLess::operator()(std::string_view sLeft, std::string_view sRight) const noexcept {
  return CompareCaseBlind(sLeft, sRight) < 0;
}

bool CaseBlindLess::operator()(
    const std::pair<std::string_view, std::string_view>& left,
    const std::pair<std::string_view, std::string_view>& right) const noexcept {
  const int nSections = CompareCaseBlind(left.first, right.first);
  return nSections < 0 || (nSections == 0 && CompareCaseBlind(left.second, right.second) < 0);
}

}  // namespace internal

IniText::IniText(CString sText) : m_sText(std::move(sText)) {
  std::string_view sRest(m_sText);
  if (sRest.starts_with("\xEF\xBB\xBF")) sRest.remove_prefix(3);
  constexpr std::string_view kLineEnds("\n\r\0", 3);
  while (!sRest.empty()) {
    const std::size_t nEnd = std::min(sRest.find_first_of(kLineEnds), sRest.size());
    TakeLine(Trimmed(sRest.substr(0, nEnd)));
    sRest.remove_prefix(std::min(nEnd + 1, sRest.size()));
  }
}

void IniText::TakeLine(std::string_view sLine) {
  if (sLine.empty() || sLine.front() == ';') return;
  const std::size_t nBracket = sLine.front() == '[' ? sLine.rfind(']') : std::string_view::npos;
  if (nBracket != std::string_view::npos) {
    m_sSection = Trimmed(sLine.substr(1, nBracket - 1));
    m_sections.push_back(m_sSection);
    const auto [it, bNew] = m_keys.try_emplace(m_sSection);
    m_pKeys = bNew ? &it->second : nullptr;
    return;
  }
  const std::size_t nEquals = sLine.find('=');
  if (m_pKeys == nullptr || nEquals == std::string_view::npos) return;
  const std::string_view sKey = Trimmed(sLine.substr(0, nEquals));
  m_pKeys->push_back(sKey);
  m_values.try_emplace({m_sSection, sKey}, WithoutQuotes(Trimmed(sLine.substr(nEquals + 1))));
}

std::optional<std::string_view> IniText::Find(std::string_view sSection,
                                              std::string_view sKey) const {
  const auto it = m_values.find({sSection, sKey});
  return it != m_values.end() ? std::optional(it->second) : std::nullopt;
}

const std::vector<std::string_view>* IniText::Keys(std::string_view sSection) const {
  const auto it = m_keys.find(sSection);
  return it != m_keys.end() ? &it->second : nullptr;
}

std::uint32_t ReadIniString(IniLayers layers, const char* szSection, const char* szKey,
                            const char* szDefault, char* szBuffer, std::uint32_t nSize) noexcept {
  if (szBuffer == nullptr || nSize == 0) return 0;
  try {
    // The default may stand in the buffer itself.
    CString sDefault(szDefault != nullptr ? szDefault : "");
    sDefault.resize(sDefault.find_last_not_of(" \t") + 1);
    if (szSection == nullptr || szKey == nullptr) {
      CString sList;
      if (!ListNames(layers, szSection, sList) && !sDefault.empty()) {
        sList = sDefault + '\0';
      }
      return CopyList(sList, szBuffer, nSize);
    }
    return CopyCut(FindInLayers(layers, szSection, szKey).value_or(sDefault), szBuffer, nSize);
  } catch (const std::bad_alloc&) {
    const bool bList = szSection == nullptr || szKey == nullptr;
    return CopyCut(bList || szDefault == nullptr ? "" : szDefault, szBuffer, nSize);
  }
}

std::uint32_t ReadIniInt(IniLayers layers, const char* szSection, const char* szKey,
                         std::int32_t nDefault) noexcept {
  const auto nOtherwise = static_cast<std::uint32_t>(nDefault);
  if (szSection == nullptr || szKey == nullptr) return nOtherwise;
  const auto sValue = FindInLayers(layers, szSection, szKey);
  return sValue && !sValue->empty() ? NumberOf(*sValue) : nOtherwise;
}

}  // namespace ald
