#pragma once

#include <cstdint>

#include "aldlib/platform/Canvas.h"
#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

// Text and edges drawn by screens and reports.
namespace ald {

// Draws a text in a rectangle of a context whose y grows upward (Canvas::SetUpward), so its top is
// the greater number, and returns the y below the last line. nLength is -1 for the whole text.
// Measures are taken from the measuring context; either of the two stands in for the other if that
// is 0.
//
// Lines end at a carriage return and line feed. A line that is too wide goes on in the next at a
// blank, or inside a word that is too long. The flags are kText bits: kTextCenter, kTextRight,
// kTextVCenter and kTextBottom; kTextWordBreak, which here means that nothing is broken and that
// the text begins at the top; kTextSingleLine; and kTextNoClip. Without the last nothing is drawn
// outside the rectangle, or one unit outside where IsLargeClipAllowed.
//
// A text without content only moves on by one line. A rectangle without width or height draws
// nothing, and its top comes back.
ALDLIB_EXPORT int MyDrawText(ContextHandle hContext, ContextHandle hMeasure, const char* szText,
                             int nLength, const Rect& place, std::uint32_t nFlags);

// Draws a text whose tabs lead to the given stops, each measured from nTabOrigin, and returns the
// height of the tallest piece. A piece is drawn between its stop and the next, the last one up to
// the rectangle's right; behind the last stop the stops go on at the distance of the last two.
// Without tabs or stops this is the canvas's own DrawText.
ALDLIB_EXPORT int DrawTabClippedText(ContextHandle hContext, const Rect& place, const char* szText,
                                     int nLength, const int* pnTabs, int nTabs, int nTabOrigin,
                                     std::uint32_t nFlags);

constexpr std::uint32_t kBevelOtherSide = 0x01;
constexpr std::uint32_t kBevelUpsideDown = 0x10;

// Draws a bevel of nDepth lines inside the rectangle. Raised: top and left white, bottom and right
// gray, with the flags exchanging left and right, and top and bottom. Not raised: gray lines at the
// top and the left alone; the flags take the right and the bottom instead. A depth above 32767
// counts as that.
ALDLIB_EXPORT void DrawBevelRect(ContextHandle hContext, const Rect& place, int nDepth,
                                 std::uint32_t nFlags, int bRaised);

}  // namespace ald
