#include "aldlib/platform/posix/PosixLocale.h"

#include <langinfo.h>
#include <locale.h>

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

}  // namespace

NumberSettings PosixLocale::ReadNumberSettings() {
  const locale_t pLocale = ::newlocale(LC_CTYPE_MASK | LC_NUMERIC_MASK, "", locale_t{});
  if (pLocale == locale_t{}) return {};
  const bool bUtf8 = std::strcmp(::nl_langinfo_l(CODESET, pLocale), "UTF-8") == 0;
  NumberSettings settings;
  {
    const ThreadLocale scope(pLocale);
    const lconv* const pConventions = ::localeconv();
    settings = SettingsFrom(pConventions->decimal_point, pConventions->thousands_sep,
                            pConventions->grouping, bUtf8);
  }
  ::freelocale(pLocale);
  return settings;
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
  // The locale "C": a period and no word about groups.
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
