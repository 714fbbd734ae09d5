#include "aldlib/payroll/NameParser.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "aldlib/payroll/internal/WithoutThrowing.h"
#include "aldlib/platform/Characters.h"

namespace ald {

namespace {

constexpr const char* kIgnored[] = {
    "AB",    "AM",  "BA",  "BBA", "BBS", "BD",  "BL",  "BS",  "CE",  "CPA", "DCL", "DD",
    "DDS",   "DO",  "DPA", "DPH", "DVM", "EDD", "EE",  "FRS", "HC",  "JD",  "JP",  "LHD",
    "LITTD", "LLB", "LLD", "MA",  "MC",  "MD",  "ME",  "MP",  "MS",  "OD",  "PHB", "PHD",
    "PHG",   "RN",  "SB",  "SM",  "STB", "VP",  "ESQ", "MR",  "MRS", "DR"};
constexpr const char* kIncluded[] = {"JR", "SR", "II", "III", "IV", "V", "ESQ"};
constexpr const char* kAlsoSurnames[] = {"BA", "DO", "EE", "MA", "V"};

bool IsSpace(char ch) {
  return IsSpaceAscii(ch);
}

std::string_view TrimmedLeft(std::string_view sText) {
  return {std::ranges::find_if_not(sText, IsSpace), sText.end()};
}

std::string_view Trimmed(std::string_view sText) {
  sText = TrimmedLeft(sText);
  while (!sText.empty() && IsSpace(sText.back())) sText.remove_suffix(1);
  return sText;
}

// The pieces of a text between white space, or between commas. A piece between commas has no blanks
// in front, keeps those behind, and may be empty; behind a final comma there is none.
template <class IsDelimiter>
CStringArray Split(std::string_view sText, IsDelimiter isDelimiter) {
  CStringArray tokens;
  for (sText = Trimmed(sText); !sText.empty();) {
    const auto end = std::ranges::find_if(sText, isDelimiter);
    tokens.emplace_back(sText.begin(), end);
    sText.remove_prefix(std::min(tokens.back().size() + 1, sText.size()));
    sText = TrimmedLeft(sText);
  }
  return tokens;
}

bool IsComma(char ch) {
  return ch == ',';
}

// A separator goes in front of each token that is not empty, except at index 0: behind an empty
// first token the result begins with one, which is what lets ", John" stay last name first.
CString Join(const CStringArray& tokens, std::string_view sSeparator) {
  CString sResult;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].empty()) continue;
    if (i > 0) sResult += sSeparator;
    sResult += tokens[i];
  }
  return sResult;
}

CString TakeFirst(CStringArray& tokens) {
  CString sToken = std::move(tokens.front());
  tokens.erase(tokens.begin());
  return sToken;
}

CString TakeLast(CStringArray& tokens) {
  CString sToken = std::move(tokens.back());
  tokens.pop_back();
  return sToken;
}

}  // namespace

void CNameParser::SetName(const CString& sName) {
  ClearParsedResults();
  if (!WithoutThrowing([&] { m_sFullName = CString(Trimmed(sName)); })) m_sFullName.clear();
}

bool CNameParser::ParseName() {
  ClearParsedResults();
  const bool bOk = WithoutThrowing([this] {
    m_bParsed = true;
    if (m_sFullName.empty()) return;
    CString sText = m_sFullName;
    RemoveSuffixesAfterComma(sText);
    if (std::ranges::any_of(sText, IsComma)) {
      LastNameFirstParse(sText);
    } else {
      FirstNameFirstParse(sText);
    }
  });
  if (!bOk) ClearParsedResults();
  return bOk;
}

void CNameParser::ClearParsedResults() {
  m_sFirst.clear();
  m_sMiddle.clear();
  m_sLast.clear();
  m_sSuffix.clear();
  m_bParsed = false;
}

void CNameParser::SetSuffix(const CString& sSuffix) {
  m_sSuffix = sSuffix;
  if (m_sSuffix.ends_with('.')) m_sSuffix.pop_back();
}

bool CNameParser::TokensAreEqual(const CString& sFirst, const CString& sSecond) const {
  if (!m_bIgnoreSuffixCase) return sFirst == sSecond;
  return std::ranges::equal(sFirst, sSecond, {}, &ToUpperAscii<char>, &ToUpperAscii<char>);
}

int CNameParser::FindInSuffixList(const CString& sToken) const {
  if (sToken.empty()) return -1;
  const auto found = std::ranges::find_if(
      m_suffixes, [&](const SuffixEntry& entry) { return TokensAreEqual(entry.sText, sToken); });
  return found == m_suffixes.end() ? -1 : static_cast<int>(found - m_suffixes.begin());
}

// Whether the word is a suffix, and so to be taken out of the name; stores it if it counts and is
// the first.
bool CNameParser::TakeSuffix(const CString& sToken) {
  const int nFound = FindInSuffixList(sToken);
  if (nFound < 0) return false;
  if (!m_suffixes[static_cast<std::size_t>(nFound)].bIgnore && m_sSuffix.empty()) SetSuffix(sToken);
  return true;
}

void CNameParser::RemoveSuffixesAfterComma(CString& sText) {
  CStringArray pieces = Split(sText, IsComma);
  bool bChanged = false;
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    CStringArray words = Split(pieces[i], IsSpace);
    if (words.empty()) continue;
    const int nFound = FindInSuffixList(words.front());
    if (nFound < 0) continue;
    // Unlike elsewhere, an earlier suffix gives way: of "Smith, Jr, Sr" the last one counts.
    const CString sSuffix = TakeFirst(words);
    if (!m_suffixes[static_cast<std::size_t>(nFound)].bIgnore) SetSuffix(sSuffix);
    pieces[i] = Join(words, " ");
    bChanged = true;
  }
  if (bChanged) sText = Join(pieces, ", ");
}

bool CNameParser::FirstNameFirstParse(const CString& sText) {
  CStringArray words = Split(sText, IsSpace);
  if (!words.empty() && TakeSuffix(words.front())) TakeFirst(words);  // a title
  if (words.empty()) return true;
  m_sFirst = TakeFirst(words);
  if (!words.empty() && TakeSuffix(words.back())) TakeLast(words);
  if (!words.empty()) m_sLast = TakeLast(words);
  m_sMiddle = Join(words, " ");
  return true;
}

bool CNameParser::LastNameFirstParse(const CString& sText) {
  const std::size_t nComma = std::min(sText.find(','), sText.size());
  // Blanks before the comma stay with the last name, unless a suffix is taken from it.
  m_sLast = sText.substr(0, nComma);
  CStringArray words = Split(m_sLast, IsSpace);
  if (!words.empty() && TakeSuffix(words.back())) {
    TakeLast(words);
    m_sLast = Join(words, " ");
  }
  CString sGiven = sText.substr(nComma);
  std::erase(sGiven, ',');
  words = Split(sGiven, IsSpace);
  if (!words.empty() && TakeSuffix(words.front())) TakeFirst(words);
  if (!words.empty()) m_sFirst = TakeFirst(words);
  m_sMiddle = Join(words, " ");
  return true;
}

void CNameParser::Add(const CString& sSuffix, bool bIgnore) {
  m_suffixes.push_back({sSuffix, bIgnore});
}

bool CNameParser::Remove(const CString& sSuffix, bool bIgnore) {
  const auto found = std::ranges::find_if(m_suffixes, [&](const SuffixEntry& entry) {
    return entry.bIgnore == bIgnore && entry.sText == sSuffix;
  });
  if (found == m_suffixes.end()) return false;
  m_suffixes.erase(found);
  return true;
}

void CNameParser::Clear(bool bIgnore) {
  std::erase_if(m_suffixes, [&](const SuffixEntry& entry) { return entry.bIgnore == bIgnore; });
}

void CNameParser::Set(const CStringArray& suffixes, bool bIgnore) {
  Clear(bIgnore);
  for (const CString& sSuffix : suffixes) Add(sSuffix, bIgnore);
}

void CNameParser::AddIgnoreSuffix(const CString& sSuffix) {
  WithoutThrowing([&] { Add(sSuffix, true); });
}

void CNameParser::AddIncludeSuffix(const CString& sSuffix) {
  WithoutThrowing([&] { Add(sSuffix, false); });
}

bool CNameParser::RemoveIgnoreSuffix(const CString& sSuffix) {
  return Remove(sSuffix, true);
}

bool CNameParser::RemoveIncludeSuffix(const CString& sSuffix) {
  return Remove(sSuffix, false);
}

void CNameParser::ClearIgnoreSuffixes() {
  Clear(true);
}

void CNameParser::ClearIncludeSuffixes() {
  Clear(false);
}

void CNameParser::SetIgnoreSuffixes(const CStringArray& suffixes) {
  WithoutThrowing([&] { Set(suffixes, true); });
}

void CNameParser::SetIncludeSuffixes(const CStringArray& suffixes) {
  WithoutThrowing([&] { Set(suffixes, false); });
}

const CNameParser& CStdNameParserFactory::GetNameParser() {
  if (!m_bInitialized) Initialize();
  return m_parser;
}

void CStdNameParserFactory::Initialize() {
  const auto fill = [this](CStringArray& suffixes, const auto& texts) {
    suffixes.clear();
    for (const char* szText : texts) {
      const bool bAlsoSurname =
          std::ranges::find(kAlsoSurnames, std::string_view(szText)) != std::end(kAlsoSurnames);
      if (bAlsoSurname && m_eSurnames == Surnames::Kept) continue;
      suffixes.emplace_back(szText);
      suffixes.push_back(suffixes.back() + '.');
    }
  };
  m_bInitialized = WithoutThrowing([&] {
    fill(m_ignoreSuffixes, kIgnored);
    fill(m_includeSuffixes, kIncluded);
    m_parser.Set(m_ignoreSuffixes, true);
    m_parser.Set(m_includeSuffixes, false);
  });
}

}  // namespace ald
