#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

// What of a screen can be seen, used and typed into. Ranges of ids are meant with both ends; an id
// that no control has is passed over.
namespace ald {

ALDLIB_EXPORT void EnableDlgWindow(WindowHandle hParent, int nId, int bEnable);
ALDLIB_EXPORT void EnableDlgWindowRange(WindowHandle hParent, int nFirst, int nLast, int bEnable);

// nShow is one of the kShow numbers, kShowHide or kShowNormal as a rule.
ALDLIB_EXPORT void ShowDlgWindow(WindowHandle hParent, int nId, std::int16_t nShow);
ALDLIB_EXPORT void ShowDlgWindowRange(WindowHandle hParent, int nFirst, int nLast,
                                      std::int16_t nShow);

// Hide and show a range of controls and have the area that they cover painted once. While a control
// is hidden, its mnemonic is too: the first "&" of its text stands as character 31, so that the
// letter reaches a control that can be seen.
ALDLIB_EXPORT void HideDlgCtlRange(WindowHandle hParent, int nFirst, int nLast);
ALDLIB_EXPORT void ShowDlgCtlRange(WindowHandle hParent, int nFirst, int nLast);

// Hide one range or list of controls and show another.
ALDLIB_EXPORT void SwapDlgCtlRange(WindowHandle hParent, int nHideFirst, int nHideLast,
                                   int nShowFirst, int nShowLast);
ALDLIB_EXPORT void SwapDlgCtlSet(WindowHandle hParent, const int* pnHide, int nHide,
                                 const int* pnShow, int nShow);

ALDLIB_EXPORT void SetDlgFocus(WindowHandle hParent, int nId);

// Makes a button the dialog's default and moves the focus to it.
ALDLIB_EXPORT void SetFocusToButton(WindowHandle hParent, int nId);

ALDLIB_EXPORT void ForceRePaint(WindowHandle hWindow);

// Returns 1 if the ancestor is on the window's chain of parents; 0 if either is no window.
ALDLIB_EXPORT int IsInDlg(WindowHandle hAncestor, WindowHandle hWindow);

// Limits what can be typed to that many characters.
ALDLIB_EXPORT void SetDlgEditLimit(WindowHandle hParent, int nId, int nCharacters);

// Returns how far from nFirst the first checked button stands; 0 also if none is checked.
ALDLIB_EXPORT int GetDlgRadioCheck(WindowHandle hParent, int nFirst, int nLast);

// Returns 1 while a shift key is held.
ALDLIB_EXPORT int IsKeyShifted();

}  // namespace ald
