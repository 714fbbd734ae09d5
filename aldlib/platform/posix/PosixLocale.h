#pragma once

#include <optional>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Locale.h"
#include "aldlib/platform/Profile.h"

namespace ald {

// The regional settings that a locale has a word on, in code page 1252.
struct RegionalSettings {
  std::optional<CString> sDecimal;
  std::optional<CString> sThousand;       // empty: numbers are written without groups
  std::optional<int> nCurrencyDigits;     // decimals of an amount of money
  std::optional<CString> sDateSeparator;  // one character
  std::optional<int> nDateOrder;          // 0 month-day-year, 1 day-month-year, 2 year-month-day
};

// The locale that the user's environment names (LC_ALL, LC_NUMERIC, LC_MONETARY, LC_TIME, LANG),
// read through a locale object: the process's own locale stays as the host has set it.
class ALDLIB_EXPORT PosixLocale : public Locale {
 public:
  // With a profile, what section "intl" of its system profile says of numbers goes before the
  // locale: iDigits, iLzero, sGrouping, sDecimal, sThousand and iNegNumber. The caller keeps it
  // alive.
  explicit PosixLocale(Profile* pProfile = nullptr) : m_pProfile(pProfile) {}

  NumberSettings ReadNumberSettings() override;
  CString FormatNumber(std::string_view canonicalText, const NumberFormat& format) override;

  // The settings that follow from what a C library says of a locale: the two separators, the group
  // sizes as it stores them (one char a size, the last one repeats, CHAR_MAX ends the grouping),
  // and whether the separators are UTF-8.
  //   (".", "", "")          says nothing: NumberSettings{}
  //   (",", "\u202F", "\3")  "," and a blank that does not break (0xA0), "3;0"
  //   (",", "", "")          "," and no groups: "0"
  static NumberSettings SettingsFrom(const char* szDecimal, const char* szThousands,
                                     const char* szGrouping, bool bUtf8) noexcept;

  // What the locale says; the locale "C" says nothing. Nothing as well if there is no memory.
  static RegionalSettings ReadRegionalSettings() noexcept;

  // Sets the two settings of dates from a locale's short form of a date, or none of them.
  //   "%d.%m.%Y" -> ".", 1     "%m/%d/%Y" -> "/", 0     "%F" -> "-", 2     "%d" -> nothing
  //   "%Y\u5E74%m\u6708%d\u65E5" -> no separator, 2: the code page has no such sign
  static void SetDateForm(const char* szForm, bool bUtf8, RegionalSettings& settings);

 private:
  Profile* m_pProfile;
};

}  // namespace ald
