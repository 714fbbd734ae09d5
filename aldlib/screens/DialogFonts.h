#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

// The fonts of screens and the room that texts take in them. Measures are pixels, 0 for a window or
// context that does not exist; for a font that does not, they are those of the font in use.
namespace ald {

// The average and the greatest width of a character of a font, measured on a context or on the
// screen.
ALDLIB_EXPORT int GetAveCharWidth(ContextHandle hContext, FontHandle hFont);
ALDLIB_EXPORT int GetAvgCharWidth(FontHandle hFont);
ALDLIB_EXPORT int GetMaxCharWidth(ContextHandle hContext, FontHandle hFont);

// The same, and the height, in a window's own font.
ALDLIB_EXPORT int GetDlgCharWidth(WindowHandle hWindow);
ALDLIB_EXPORT int GetDlgCharHeight(WindowHandle hWindow);
ALDLIB_EXPORT int GetMaxDlgCharWidth(WindowHandle hWindow);
// The width of one line of text in a window's own font.
ALDLIB_EXPORT int GetDlgStringWidth(WindowHandle hWindow, const char* szText);

// Gives a dialog and its controls the dialog's font without boldness, and makes dialog and controls
// larger or smaller as the characters are; push buttons, group boxes and the bold kinds of control
// keep their font. With nExtraWidth the dialog is made as wide as its rightmost control and that
// much more, if it is not already. Returns the new font, which the caller deletes when the dialog
// is gone; 0 if the dialog has no font, and nothing has changed.
ALDLIB_EXPORT FontHandle UnBoldDialogFont(WindowHandle hDialog, std::int16_t nExtraWidth);

}  // namespace ald
