#include "aldlib/screens/DialogText.h"

#include <string_view>

#include "aldlib/screens/internal/ControlOf.h"

namespace ald {
namespace {

// Only the first "%s" takes the text; a second one and any other conversion stay as they stand.
CString Format(std::string_view sFormat, const CString& sText) {
  CString sResult;
  bool bPlaced = false;
  for (std::size_t i = 0; i < sFormat.size(); ++i) {
    const std::string_view sPair = sFormat.substr(i, 2);
    if (sPair == "%s" && !bPlaced) {
      sResult += sText;
      bPlaced = true;
      ++i;
    } else {
      sResult += sFormat[i];
      if (sPair == "%%") ++i;
    }
  }
  return sResult;
}

}  // namespace

int LoadLongWindedTextEx(ModuleHandle hModule, WindowHandle hParent, int nId,
                         std::uint32_t nResource, const char* szType, const char* szFormat) try {
  const WindowHandle hControl = ControlOf(hParent, nId);
  if (hControl == WindowHandle{} || szType == nullptr) return 0;
  CString sText;
  if (!CurrentPlatform().resources.LoadText(hModule, nResource, szType, sText)) return 0;
  CurrentWindows().SetText(hControl, szFormat != nullptr ? Format(szFormat, sText) : sText);
  return 1;
} catch (...) {
  return 0;
}

}  // namespace ald
