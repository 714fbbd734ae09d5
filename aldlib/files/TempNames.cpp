#include <cstdio>

#include "aldlib/dates/Calendar.h"
#include "aldlib/files/Directories.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/Strings.h"

namespace ald {

void ALW_EnsureSafeFileName(CPathNameString& sName) noexcept {
  for (char* p = sName; *p != '\0'; ++p) {
    if (std::string_view("?*\\/:|><.\"").find(*p) != std::string_view::npos) *p = '_';
  }
}

CPathNameString GenerateBaseDefaultBackupName(const char* szName) {
  DatesType today{};
  GetCurrentDate(today);
  char szDate[32];
  std::snprintf(szDate, sizeof szDate, "-%02d%02d%02d", today.month, today.day, today.year % 100);
  CPathNameString sName(szName);
  sstrcat(sName, szDate, sName.GetSize());
  ALW_EnsureSafeFileName(sName);
  return sName;
}

}  // namespace ald
