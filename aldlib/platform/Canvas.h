#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// A font, as it is asked for and described. The name is terminated.
struct tagLOGFONTA {
  std::int32_t lfHeight;
  std::int32_t lfWidth;
  std::int32_t lfEscapement;
  std::int32_t lfOrientation;
  std::int32_t lfWeight;
  std::uint8_t lfItalic;
  std::uint8_t lfUnderline;
  std::uint8_t lfStrikeOut;
  std::uint8_t lfCharSet;
  std::uint8_t lfOutPrecision;
  std::uint8_t lfClipPrecision;
  std::uint8_t lfQuality;
  std::uint8_t lfPitchAndFamily;
  char lfFaceName[32];
};
static_assert(sizeof(tagLOGFONTA) == 60 && offsetof(tagLOGFONTA, lfFaceName) == 28);

struct TextMetrics {
  std::int32_t nHeight;
  std::int32_t nAscent;
  std::int32_t nAverageWidth;
  std::int32_t nMaxWidth;
  bool operator==(const TextMetrics&) const = default;
};

// Bits of Canvas::DrawText, by the numbers that screens pass through.
constexpr std::uint32_t kTextCenter = 0x0001;
constexpr std::uint32_t kTextRight = 0x0002;
constexpr std::uint32_t kTextVCenter = 0x0004;
constexpr std::uint32_t kTextBottom = 0x0008;
constexpr std::uint32_t kTextWordBreak = 0x0010;
constexpr std::uint32_t kTextSingleLine = 0x0020;
constexpr std::uint32_t kTextExpandTabs = 0x0040;
constexpr std::uint32_t kTextNoClip = 0x0100;
constexpr std::uint32_t kTextCalculate = 0x0400;
constexpr std::uint32_t kTextNoPrefix = 0x0800;

constexpr int kStockFontSystem = 13;

// Drawing: device contexts and the fonts, brushes, pens and icons used on them. Texts are bytes of
// code page 1252. A context or a tool that does not exist is harmless: nothing is drawn, and
// measures are zero.
class ALDLIB_EXPORT Canvas {
 public:
  virtual ~Canvas() = default;

  // A context over the inside of a window, or over the whole screen for the window 0, in pixels.
  // Each wants its Release.
  virtual ContextHandle Context(WindowHandle hWindow) = 0;
  virtual void Release(ContextHandle hContext) = 0;
  // The same while the window answers kMessagePaint; afterwards nothing is left to paint.
  virtual ContextHandle BeginPaint(WindowHandle hWindow) = 0;
  virtual void EndPaint(WindowHandle hWindow, ContextHandle hContext) = 0;

  // Fonts. 0 if the font cannot be made. A stock font belongs to the system.
  virtual FontHandle CreateFont(const tagLOGFONTA& font) = 0;
  virtual FontHandle StockFont(int nStockFont) = 0;
  virtual bool Describe(FontHandle hFont, tagLOGFONTA& font) = 0;
  virtual bool DeleteFont(FontHandle hFont) = 0;
  // Returns the font that was in use.
  virtual FontHandle SelectFont(ContextHandle hContext, FontHandle hFont) = 0;
  virtual TextMetrics Metrics(ContextHandle hContext) = 0;

  // The room of one line of text, tabs and all signs taken as they are.
  virtual Size TextExtent(ContextHandle hContext, std::string_view sText) = 0;
  // Draws inside the rectangle by the kText bits and returns the height of the text. With
  // kTextCalculate nothing is drawn and the rectangle's right and bottom are set to fit. A line
  // ends at a carriage return, a line feed or both.
  virtual int DrawText(ContextHandle hContext, std::string_view sText, Rect& place,
                       std::uint32_t nTextBits) = 0;

  // Narrows drawing to the rectangle until the matching Restore brings back what held at Save:
  // clipping, colours, tools and the way of y.
  virtual int Save(ContextHandle hContext) = 0;
  virtual bool Restore(ContextHandle hContext, int nSaved) = 0;
  virtual void Clip(ContextHandle hContext, const Rect& place) = 0;

  // Has y count upward from the lower edge of what the context covers: a rectangle's top is then
  // the greater number, and kTextCalculate sets a bottom below it. Heights stay positive. False
  // counts downward from the upper edge again, as a context does at first. Save and Restore cover
  // it. Returns what it was.
  virtual bool SetUpward(ContextHandle hContext, bool bUpward) = 0;

  virtual Color SetTextColor(ContextHandle hContext, Color nColor) = 0;
  virtual Color SetBackgroundColor(ContextHandle hContext, Color nColor) = 0;
  // Opaque fills behind the characters. Returns what it was.
  virtual bool SetOpaque(ContextHandle hContext, bool bOpaque) = 0;

  virtual PenHandle CreatePen(Color nColor) = 0;  // solid, one wide
  virtual bool DeletePen(PenHandle hPen) = 0;
  // Returns the pen that was in use; 0 stands for the black one that each context begins with.
  virtual PenHandle SelectPen(ContextHandle hContext, PenHandle hPen) = 0;
  // Draws from one point up to, not including, the other.
  virtual bool Line(ContextHandle hContext, Point from, Point to) = 0;

  virtual BrushHandle CreateSolidBrush(Color nColor) = 0;
  virtual bool DeleteBrush(BrushHandle hBrush) = 0;
  virtual bool Fill(ContextHandle hContext, const Rect& place, BrushHandle hBrush) = 0;

  // The system's icons by number: 0x7F01 stop, 0x7F02 question, 0x7F03 exclamation, 0x7F04
  // information. 0 for any other.
  virtual IconHandle SystemIcon(std::intptr_t nIcon) = 0;
  virtual bool DrawIcon(ContextHandle hContext, Point at, IconHandle hIcon) = 0;
};

}  // namespace ald
