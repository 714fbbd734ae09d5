#include "aldlib/platform/Product.h"

#include <algorithm>
#include <new>

#include "aldlib/platform/Characters.h"

namespace ald {

bool SplitUsualIniName(std::string_view sIniName, CString& sProduct,
                       CString& sMajorVersion) noexcept try {
  const std::size_t nFolder = sIniName.find_last_of("\\/:");
  if (nFolder != std::string_view::npos) sIniName.remove_prefix(nFolder + 1);
  constexpr std::string_view kEnd = ".INI";
  if (sIniName.size() < kEnd.size()) return false;
  const std::string_view sEnd = sIniName.substr(sIniName.size() - kEnd.size());
  if (!std::equal(sEnd.begin(), sEnd.end(), kEnd.begin(),
                  [](char c, char cEnd) { return ToUpperAscii(c) == cEnd; })) {
    return false;
  }
  sIniName.remove_suffix(kEnd.size());
  const auto itDigits =
      std::find_if_not(sIniName.begin(), sIniName.end(), [](char c) { return IsCharAlpha(c); });
  if (itDigits == sIniName.begin() || itDigits == sIniName.end() ||
      !std::all_of(itDigits, sIniName.end(), [](char c) { return IsDigitAscii(c); })) {
    return false;
  }
  CString sName(sIniName.begin(), itDigits);
  CString sVersion(itDigits, sIniName.end());
  sProduct.swap(sName);
  sMajorVersion.swap(sVersion);
  return true;
} catch (const std::bad_alloc&) {
  return false;
}

}  // namespace ald
