#include "aldlib/platform/posix/PosixLocale.h"

#include <langinfo.h>
#include <locale.h>

#include <climits>
#include <cstring>
#include <new>

#include "aldlib/platform/Characters.h"

namespace ald {
namespace {

// Gives the calling thread another locale while it lives.
class ThreadLocale {
 public:
  explicit ThreadLocale(locale_t pLocale) : m_pBefore(::uselocale(pLocale)) {}
  ThreadLocale(const ThreadLocale&) = delete;
  ThreadLocale& operator=(const ThreadLocale&) = delete;
  ~ThreadLocale() { ::uselocale(m_pBefore); }

 private:
  locale_t m_pBefore;
};

void ReplaceAllOf(CString& sText, std::string_view what, std::string_view by) {
  for (std::size_t nAt = 0; (nAt = sText.find(what, nAt)) != CString::npos; nAt += by.size()) {
    sText.replace(nAt, what.size(), by);
  }
}

// Returns the separator in code page 1252; empty if the locale has none or the code page does not.
CString Separator(const char* szText, bool bUtf8) {
  CString sText = szText != nullptr ? szText : "";
  if (!bUtf8) return sText.size() == 1 ? sText : CString();
  // The code page has one blank that does not break, and no narrow ones.
  ReplaceAllOf(sText, "\u202F", "\u00A0");
  ReplaceAllOf(sText, "\u2009", "\u00A0");
  const CString sResult = CodePage1252FromUtf8(sText);
  return sResult.find('?') == CString::npos ? sResult : CString();
}

// Turns "\3\2", where the last size repeats, into "3;2;0".
CString GroupingText(const char* szGrouping) {
  CString sSizes;
  bool bRepeats = true;
  for (; *szGrouping != '\0'; ++szGrouping) {
    bRepeats = *szGrouping > 0 && *szGrouping <= 9;  // CHAR_MAX: the rest is one group
    if (!bRepeats) break;
    const char cSize = static_cast<char>('0' + *szGrouping);
    // A last size said twice repeats as it does when it is said once.
    if (szGrouping[1] == '\0' && !sSizes.empty() && sSizes.back() == cSize) break;
    if (!sSizes.empty()) sSizes += ';';
    sSizes += cSize;
  }
  if (sSizes.empty()) return "0";
  return bRepeats ? sSizes + ";0" : sSizes;
}

bool IsEmpty(const char* szText) {
  return szText == nullptr || *szText == '\0';
}

// The locale "C": a period and no word about groups.
bool SaysNothing(const char* szDecimal, const char* szThousands, const char* szGrouping) {
  return (IsEmpty(szDecimal) || std::strcmp(szDecimal, ".") == 0) && IsEmpty(szThousands) &&
         IsEmpty(szGrouping);
}

// The user's locale, as far as the library asks for it.
class UserLocale {
 public:
  explicit UserLocale(int nCategories)
      : m_pLocale(::newlocale(nCategories | LC_CTYPE_MASK, "", locale_t{})) {}
  UserLocale(const UserLocale&) = delete;
  UserLocale& operator=(const UserLocale&) = delete;
  ~UserLocale() {
    if (IsThere()) ::freelocale(m_pLocale);
  }

  // False for a name that the system has no locale for.
  bool IsThere() const { return m_pLocale != locale_t{}; }
  locale_t Get() const { return m_pLocale; }
  bool IsUtf8() const { return std::strcmp(::nl_langinfo_l(CODESET, m_pLocale), "UTF-8") == 0; }

 private:
  locale_t m_pLocale;
};

void ReadNumbers(RegionalSettings& settings) {
  const UserLocale locale(LC_NUMERIC_MASK);
  if (!locale.IsThere()) return;
  const ThreadLocale scope(locale.Get());
  const lconv* const pConventions = ::localeconv();
  if (SaysNothing(pConventions->decimal_point, pConventions->thousands_sep,
                  pConventions->grouping)) {
    return;
  }
  const CString sDecimal = Separator(pConventions->decimal_point, locale.IsUtf8());
  if (!sDecimal.empty()) settings.sDecimal = sDecimal;
  settings.sThousand = Separator(pConventions->thousands_sep, locale.IsUtf8());
}

void ReadMoney(RegionalSettings& settings) {
  const UserLocale locale(LC_MONETARY_MASK);
  if (!locale.IsThere()) return;
  const ThreadLocale scope(locale.Get());
  const char nDigits = ::localeconv()->frac_digits;
  if (nDigits >= 0 && nDigits != CHAR_MAX) settings.nCurrencyDigits = nDigits;
}

void ReadDates(RegionalSettings& settings) {
  const UserLocale locale(LC_TIME_MASK);
  if (!locale.IsThere()) return;
  const char* const szForm = ::nl_langinfo_l(D_FMT, locale.Get());
  // The form of the locale "C".
  if (std::strcmp(szForm, "%m/%d/%y") == 0) return;
  PosixLocale::SetDateForm(szForm, locale.IsUtf8(), settings);
}

// "%D" and "%F" stand for longer forms.
CString SpelledOut(const char* szForm) {
  CString sForm(szForm != nullptr ? szForm : "");
  ReplaceAllOf(sForm, "%D", "%m/%d/%y");
  ReplaceAllOf(sForm, "%F", "%Y-%m-%d");
  return sForm;
}

// The day, the month or the year, or 0 for what is none of them.
char DatePart(char cConversion) {
  switch (cConversion) {
    case 'd':
    case 'e':
      return 'd';
    case 'm':
    case 'b':
    case 'B':
    case 'h':
      return 'm';
    case 'y':
    case 'Y':
      return 'y';
    default:
      return 0;
  }
}

// The first character that is to be seen between two parts of a date, or else a blank; empty if the
// code page does not have it.
CString DateSeparator(CString sBetween, bool bUtf8) {
  // Marks of the direction of writing are not to be seen.
  for (const char* szMark : {"\u200E", "\u200F"}) ReplaceAllOf(sBetween, szMark, "");
  const CString sSeen = bUtf8 ? CodePage1252FromUtf8(sBetween) : sBetween;
  const std::size_t nAt = sSeen.find_first_not_of(" \xA0");
  const CString sSeparator = nAt != CString::npos ? sSeen.substr(nAt, 1) : sSeen.substr(0, 1);
  return sSeparator == "?" ? CString() : sSeparator;
}

}  // namespace

NumberSettings PosixLocale::ReadNumberSettings() try {
  NumberSettings settings;
  {
    const UserLocale locale(LC_NUMERIC_MASK);
    if (locale.IsThere()) {
      const ThreadLocale scope(locale.Get());
      const lconv* const pConventions = ::localeconv();
      settings = SettingsFrom(pConventions->decimal_point, pConventions->thousands_sep,
                              pConventions->grouping, locale.IsUtf8());
    }
  }
  if (m_pProfile == nullptr) return settings;

  const auto readText = [this](const char* szKey, CString& sSetting) {
    char szText[32];
    const auto nLength = m_pProfile->ReadString(nullptr, "intl", szKey, sSetting.c_str(), szText,
                                                static_cast<std::uint32_t>(sizeof szText));
    sSetting.assign(szText, nLength);
  };
  const auto readNumber = [this](const char* szKey, std::uint32_t nSetting) {
    return m_pProfile->ReadInt(nullptr, "intl", szKey, static_cast<std::int32_t>(nSetting));
  };
  settings.nDecimals = readNumber("iDigits", settings.nDecimals);
  settings.bLeadingZero = readNumber("iLzero", settings.bLeadingZero ? 1 : 0) != 0;
  readText("sGrouping", settings.sGrouping);
  readText("sDecimal", settings.sDecimalSeparator);
  readText("sThousand", settings.sThousandSeparator);
  settings.nNegativeOrder = readNumber("iNegNumber", settings.nNegativeOrder);
  return settings;
} catch (const std::bad_alloc&) {
  return {};
}

RegionalSettings PosixLocale::ReadRegionalSettings() noexcept try {
  RegionalSettings settings;
  ReadNumbers(settings);
  ReadMoney(settings);
  ReadDates(settings);
  return settings;
} catch (const std::bad_alloc&) {
  return {};
}

void PosixLocale::SetDateForm(const char* szForm, bool bUtf8, RegionalSettings& settings) {
  const CString sForm = SpelledOut(szForm);
  CString sParts;    // in their order
  CString sBetween;  // behind the first part
  for (std::size_t i = 0; i < sForm.size(); ++i) {
    if (sForm[i] != '%') {
      if (sParts.size() == 1) sBetween += sForm[i];
      continue;
    }
    i = sForm.find_first_not_of("-_0^#EO", i + 1);  // flags and modifiers of the conversion
    if (i == CString::npos) break;
    const char cPart = DatePart(sForm[i]);
    if (cPart != 0 && sParts.find(cPart) == CString::npos) sParts += cPart;
  }
  if (sParts.size() != 3) return;
  settings.nDateOrder = sParts[0] == 'y' ? 2 : (sParts.find('m') < sParts.find('d') ? 0 : 1);
  const CString sSeparator = DateSeparator(std::move(sBetween), bUtf8);
  if (!sSeparator.empty()) settings.sDateSeparator = sSeparator;
}

CString PosixLocale::FormatNumber(std::string_view canonicalText, const NumberFormat& format) {
  return FormatNumberText(canonicalText, format);
}

// Decimals, leading zero and negative order are no part of a C library's locale for plain numbers
// (only amounts of money have theirs), so they keep their defaults.
NumberSettings PosixLocale::SettingsFrom(const char* szDecimal, const char* szThousands,
                                         const char* szGrouping, bool bUtf8) noexcept try {
  NumberSettings settings;
  const CString sDecimal = Separator(szDecimal, bUtf8);
  const CString sThousand = Separator(szThousands, bUtf8);
  const bool bGroups = szGrouping != nullptr && *szGrouping != '\0';
  if ((sDecimal.empty() || sDecimal == ".") && sThousand.empty() && !bGroups) return settings;
  if (!sDecimal.empty()) settings.sDecimalSeparator = sDecimal;
  // Not the default here: a "," between groups would read as the decimal separator of many locales.
  settings.sThousandSeparator = sThousand;
  settings.sGrouping = bGroups ? GroupingText(szGrouping) : "0";
  return settings;
} catch (const std::bad_alloc&) {
  return {};
}

}  // namespace ald
