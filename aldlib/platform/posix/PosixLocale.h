#pragma once

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Locale.h"

namespace ald {

// The locale that the user's environment names (LC_ALL, LC_NUMERIC, LANG), read through a locale
// object: the process's own locale stays as the host has set it.
class ALDLIB_EXPORT PosixLocale : public Locale {
 public:
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
};

}  // namespace ald
