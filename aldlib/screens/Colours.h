#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// The colours of the data entry screens. There are six schemes of seven rows; a screen asks by a
// row and one of fifteen roles, and the scheme in force says which of the row's four columns the
// role stands for. The mapper belongs to the user-interface thread.

constexpr std::int16_t kColorRoles = 15;

// How a screen wants its controls painted.
struct ALWUnivColorTyp {
  std::int16_t nRow;
  Rect base;              // in screen terms, as are the zones
  Rect zones[3];          // controls that lie wholly inside a zone take its role
  std::int16_t roles[4];  // of the rest of the screen and of the dialog itself, then of each zone
};

// One entry of a list that ends with window 0: whether the window or the controls in it are meant.
struct ALWCtrlInfo {
  WindowHandle hWindow;
  std::int32_t bFlag;
};

// Chooses a scheme and makes its brushes. A scheme above 5 counts as 2. The window is not used.
// Brushes of an earlier call stay unless ColorMapperDispose came between.
ALDLIB_EXPORT void ColorMapperInit(WindowHandle hUnused, std::int16_t nScheme);
ALDLIB_EXPORT void ColorMapperDispose();

// Returns a role below 15 as it is, any other as -1.
ALDLIB_EXPORT std::int16_t ColorMapper(std::int16_t nRole);

// Copies the first `nCount` default colours of a scheme, each with 02 as its top byte. A count
// above 14 goes on into the next scheme and ends with the last; a scheme of 6 or more fills the
// array with bytes of 255. Returns 1, or 0 for a null array.
ALDLIB_EXPORT int GetColorDefaults(std::uint16_t nScheme, std::uint16_t nCount, Color* pColors);

ALDLIB_EXPORT BrushHandle GetWhiteBrush();
ALDLIB_EXPORT BrushHandle GetJrnlGrayBrush();

// What the scheme in force has for a row and a role: 0 for a row that is not 0 to 6, a role that is
// not 0 to 14, and a role without a column.
ALDLIB_EXPORT BrushHandle GetColorReturnBrush(std::int16_t nRow, std::int16_t nRole);
ALDLIB_EXPORT Color GetColorReturnBrushColor(std::int16_t nRow, std::int16_t nRole);
ALDLIB_EXPORT Color GetColorReturnBkColor(std::int16_t nRow, std::int16_t nRole);
ALDLIB_EXPORT Color GetColorReturnTextColor(std::int16_t nRow, std::int16_t nRole);

// Sets the context for a control (or, with code 104, for the dialog itself) and returns its brush;
// 0 if it is not to be painted so. Controls of the codes 0, 101 and 103 are painted only if the
// list names them or their parent with a flag; all others unless it names them without.
ALDLIB_EXPORT BrushHandle GetALWUniversalDlgColors(ContextHandle hContext, WindowHandle hWindow,
                                                   int nCode, const ALWUnivColorTyp* pColors,
                                                   const ALWCtrlInfo* pControls);

// Answers a dialog's question for colours (kMessageColorEdit and so on) with a brush; 0 for any
// other message, and for scroll bars.
ALDLIB_EXPORT BrushHandle HandleGlobalDlgMessages(std::uint32_t nMessage, std::uint32_t nWord,
                                                  std::intptr_t nLong,
                                                  const ALWUnivColorTyp* pColors,
                                                  const ALWCtrlInfo* pControls);

}  // namespace ald
