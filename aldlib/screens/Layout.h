#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

// Places and sizes of controls and windows, in pixels.
namespace ald {

// Flags of AlignControls. One of each group counts: the first in this order.
constexpr std::uint32_t kAlignLeft = 0x1;
constexpr std::uint32_t kAlignRight = 0x2;
constexpr std::uint32_t kAlignRightOf = 0x4;
constexpr std::uint32_t kAlignLeftOf = 0x8;
constexpr std::uint32_t kAlignCenter = 0x10;
constexpr std::uint32_t kAlignTop = 0x100;
constexpr std::uint32_t kAlignBottom = 0x200;
constexpr std::uint32_t kAlignBelow = 0x400;
constexpr std::uint32_t kAlignAbove = 0x800;
constexpr std::uint32_t kAlignMiddle = 0x1000;

// Moves a control to where the flags put it beside the reference, and then by (dx, dy); without a
// flag of a group it keeps its own place in that direction. Returns not 0 if it was moved, 0 if a
// control is missing.
ALDLIB_EXPORT int AlignControls(WindowHandle hParent, int nId, int nReferenceId, std::int16_t dx,
                                std::int16_t dy, std::uint32_t nFlags);

// Puts a label just above its list.
ALDLIB_EXPORT int AlignStatToLB(WindowHandle hParent, int nId, int nReferenceId);

ALDLIB_EXPORT void AlignControlBy(WindowHandle hParent, int nId, std::int16_t dx, std::int16_t dy);

// Moves the right and bottom edges of a control, without painting it.
ALDLIB_EXPORT void StretchDlgWindow(WindowHandle hParent, int nId, std::int16_t dw,
                                    std::int16_t dh);

// Gives a control the width of another one and returns it; 0 if one is missing.
ALDLIB_EXPORT int AsWideAs(WindowHandle hParent, int nReferenceId, int nTargetId);

// Centres a window on another one, across and, if asked for, down; otherwise its y stays.
ALDLIB_EXPORT void CenterWindow(WindowHandle hWindow, WindowHandle hReference, bool bVerticalToo);

// Fits a dialog's inside to a bitmap and a margin, in the directions that are asked for.
ALDLIB_EXPORT void ResizeDialogToBitmap(WindowHandle hDialog, const tagSIZE& bitmap, bool bWidth,
                                        bool bHeight, std::uint32_t nMargin);

// Convert both corners. A null rectangle is left alone.
ALDLIB_EXPORT void ScreenToClientRect(WindowHandle hWindow, Rect* pRect);
ALDLIB_EXPORT void ClientToScreenRect(WindowHandle hWindow, Rect* pRect);

// Reads a window's rectangle in screen terms: what the control answers to kMessageAskRect, unless
// that is all zero, or else the window's own. Returns 1, or 0 if there is no such window.
ALDLIB_EXPORT int GetALWWindowRect(WindowHandle hWindow, Rect* pRect);

}  // namespace ald
