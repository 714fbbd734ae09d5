#include "aldlib/screens/ControlClasses.h"

#include <algorithm>
#include <span>

#include "aldlib/platform/Platform.h"
#include "aldlib/screens/internal/ControlKinds.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

constexpr const char* kEditClasses[] = {
    "EDIT",           "ABD_EditDate",   "ABD_Dollars",     "ABD_Edit",
    "ABD_Qty",        "ABD_Real2",      "ABD_Real3",       "ABD_Real5",
    "ABD_EditDr",     "ABD_EditCr",     "BBD_EditPayroll", "BBD_EditAcnt",
    "BBD_EditCust",   "BBD_EditItem",   "BBD_EditCalc",    "BBD_EditProj",
    "BBD_EditStax",   "BBD_EditStAuth", "BBD_EditSRep",    "HierEdit",
    "HierLookupEdit", "ACW_RichEdit"};
constexpr const char* kMnemonicClasses[] = {"BUTTON",         "DefButton", "Redirect",
                                            "ABD_BoldStatic", "STATIC",    "BITMAPBUTTON",
                                            "ABD_Check",      "ABD_Radio", "ABD_Button"};
constexpr const char* kComboClasses[] = {"COMBO", "ABD_Combo"};
constexpr const char* kBoldClasses[] = {"ABD_Button", "DefButton", "ABD_BoldStatic"};

bool IsOneOf(const CString& sClass, std::span<const char* const> classes) {
  return std::any_of(classes.begin(), classes.end(), [&](const char* szClass) {
    return CompareStrNoCase(sClass.c_str(), szClass) == 0;
  });
}

CString ClassOf(WindowHandle hControl) {
  return CurrentPlatform().desktop.windows.ClassName(hControl);
}

}  // namespace

int IsEdit(WindowHandle hControl) try {
  return IsOneOf(ClassOf(hControl), kEditClasses) ? 1 : 0;
} catch (...) {
  return 0;
}

bool CarriesMnemonic(WindowHandle hControl) {
  return IsOneOf(ClassOf(hControl), kMnemonicClasses);
}

bool IsCombo(WindowHandle hControl) {
  return IsOneOf(ClassOf(hControl), kComboClasses);
}

bool KeepsBoldFont(WindowHandle hControl) {
  const CString sClass = ClassOf(hControl);
  if (IsOneOf(sClass, kBoldClasses)) return true;
  if (CompareStrNoCase(sClass.c_str(), "BUTTON") != 0) return false;
  const std::uint32_t nKind = CurrentPlatform().desktop.windows.Style(hControl) & kButtonKindMask;
  return nKind == kButtonPush || nKind == kButtonDefaultPush || nKind == kButtonGroupBox;
}

bool IsRichText(WindowHandle hControl) {
  return CompareStrNoCase(ClassOf(hControl).c_str(), "ACW_RichEdit") == 0;
}

}  // namespace ald
