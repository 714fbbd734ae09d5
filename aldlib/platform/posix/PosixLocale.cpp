#include "aldlib/platform/posix/PosixLocale.h"

namespace ald {

NumberSettings PosixLocale::ReadNumberSettings() {
  return {};
}

CString PosixLocale::FormatNumber(std::string_view canonicalText, const NumberFormat& format) {
  return FormatNumberText(canonicalText, format);
}

NumberSettings PosixLocale::SettingsFrom(const char*, const char*, const char*, bool) {
  return {};
}

}  // namespace ald
