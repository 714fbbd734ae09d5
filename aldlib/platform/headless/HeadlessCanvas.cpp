#include <algorithm>

#include "aldlib/platform/headless/internal/HeadlessParts.h"
#include "aldlib/platform/headless/internal/TextLayout.h"

namespace ald {
namespace {

constexpr std::int32_t kLargestFont = 10000;
constexpr std::int32_t kBoldFrom = 600;

Rect Intersection(const Rect& one, const Rect& other) {
  Rect common{std::max(one.left, other.left), std::max(one.top, other.top),
              std::min(one.right, other.right), std::min(one.bottom, other.bottom)};
  common.right = std::max(common.left, common.right);
  common.bottom = std::max(common.top, common.bottom);
  return common;
}

std::int32_t Rounded(std::int32_t nValue, std::int32_t nTimes, std::int32_t nOver) {
  return (nValue * nTimes + nOver / 2) / nOver;
}

// The font of 11 points' height is 7 by 13, of which 10 lie above the base line; all others are in
// proportion, and a bold one is a pixel wider.
TextMetrics MetricsOfFont(const tagLOGFONTA& font) {
  constexpr std::int32_t kLetterHeight = 11;  // of the 13: what a negative height asks for
  TextMetrics metrics{};
  metrics.nHeight = kHeadlessCharacter.cy;
  if (font.lfHeight > 0) metrics.nHeight = font.lfHeight;
  if (font.lfHeight < 0) {
    metrics.nHeight = Rounded(-font.lfHeight, kHeadlessCharacter.cy, kLetterHeight);
  }
  metrics.nAscent = Rounded(metrics.nHeight, 10, kHeadlessCharacter.cy);
  const std::int32_t nInProportion =
      Rounded(metrics.nHeight, kHeadlessCharacter.cx, kHeadlessCharacter.cy);
  metrics.nAverageWidth = std::max(1, font.lfWidth > 0 ? font.lfWidth : nInProportion);
  if (font.lfWeight >= kBoldFrom) ++metrics.nAverageWidth;
  metrics.nMaxWidth = 2 * metrics.nAverageWidth;
  return metrics;
}

}  // namespace

HeadlessCanvas::HeadlessCanvas(HeadlessParts& parts) : m_parts(parts) {
  tagLOGFONTA font{};
  font.lfHeight = kHeadlessCharacter.cy;
  font.lfWeight = 400;
  CString("System").copy(font.lfFaceName, sizeof font.lfFaceName - 1);
  m_hSystemFont = m_fonts.Add(font);
}

ContextHandle HeadlessCanvas::Context(WindowHandle hWindow) {
  if (hWindow != WindowHandle{} && !m_parts.windows.IsWindow(hWindow)) return {};
  DeviceContext context;
  context.hWindow = hWindow;
  context.tools.hFont = m_hSystemFont;
  return m_contexts.Add(std::move(context));
}

void HeadlessCanvas::Release(ContextHandle hContext) {
  m_contexts.Remove(hContext);
}

ContextHandle HeadlessCanvas::BeginPaint(WindowHandle hWindow) {
  HeadlessWindow* const pWindow = m_parts.windows.Find(hWindow);
  if (pWindow == nullptr) return {};
  pWindow->bToPaint = false;
  pWindow->invalid.reset();
  if (m_parts.pView != nullptr) m_parts.pView->BeginPaint(hWindow);
  return Context(hWindow);
}

void HeadlessCanvas::EndPaint(WindowHandle, ContextHandle hContext) {
  Release(hContext);
}

FontHandle HeadlessCanvas::CreateFont(const tagLOGFONTA& font) {
  if (font.lfHeight < -kLargestFont || font.lfHeight > kLargestFont ||
      font.lfWidth > kLargestFont) {
    return {};
  }
  tagLOGFONTA kept = font;
  kept.lfFaceName[sizeof kept.lfFaceName - 1] = '\0';
  return m_fonts.Add(kept);
}

FontHandle HeadlessCanvas::StockFont(int nStockFont) {
  return nStockFont == kStockFontSystem ? m_hSystemFont : FontHandle{};
}

bool HeadlessCanvas::Describe(FontHandle hFont, tagLOGFONTA& font) {
  const tagLOGFONTA* const pFont = m_fonts.Find(hFont);
  if (pFont == nullptr) return false;
  font = *pFont;
  return true;
}

bool HeadlessCanvas::DeleteFont(FontHandle hFont) {
  return hFont != m_hSystemFont && m_fonts.Remove(hFont);
}

FontHandle HeadlessCanvas::SelectFont(ContextHandle hContext, FontHandle hFont) {
  DeviceContext* const pContext = m_contexts.Find(hContext);
  if (pContext == nullptr || m_fonts.Find(hFont) == nullptr) return {};
  return std::exchange(pContext->tools.hFont, hFont);
}

TextMetrics HeadlessCanvas::MetricsOf(FontHandle hFont) {
  const tagLOGFONTA& font = FontOf(hFont);
  return m_parts.pView != nullptr ? m_parts.pView->MetricsOf(font) : MetricsOfFont(font);
}

const tagLOGFONTA& HeadlessCanvas::FontOf(FontHandle hFont) {
  const tagLOGFONTA* const pFont = m_fonts.Find(hFont);
  return pFont != nullptr ? *pFont : *m_fonts.Find(m_hSystemFont);
}

std::int32_t HeadlessCanvas::WidthOf(FontHandle hFont, std::string_view sText) {
  const tagLOGFONTA& font = FontOf(hFont);
  if (m_parts.pView != nullptr) return m_parts.pView->WidthOf(font, sText);
  // No text of a process is so long that this leaves 64 bits.
  return ToMeasure(static_cast<std::int64_t>(sText.size()) * MetricsOfFont(font).nAverageWidth);
}

TextMetrics HeadlessCanvas::Metrics(ContextHandle hContext) {
  const DeviceContext* const pContext = m_contexts.Find(hContext);
  return pContext != nullptr ? MetricsOf(pContext->tools.hFont) : TextMetrics{};
}

Size HeadlessCanvas::TextExtent(ContextHandle hContext, std::string_view sText) {
  const DeviceContext* const pContext = m_contexts.Find(hContext);
  if (pContext == nullptr) return {};
  const FontHandle hFont = pContext->tools.hFont;
  return {WidthOf(hFont, sText), MetricsOf(hFont).nHeight};
}

int HeadlessCanvas::DrawText(ContextHandle hContext, std::string_view sText, Rect& place,
                             std::uint32_t nTextBits) {
  const DeviceContext* const pContext = m_contexts.Find(hContext);
  if (pContext == nullptr) return 0;
  const TextMetrics metrics = Metrics(hContext);
  const auto widthOf = [this, hFont = pContext->tools.hFont](std::string_view sLine) {
    return WidthOf(hFont, sLine);
  };
  const std::vector<CString> lines = LinesOf(sText, nTextBits, std::max(0, place.Width()), widthOf);
  const std::int32_t nHeight = ToMeasure(static_cast<std::int64_t>(lines.size()) * metrics.nHeight);
  const bool bUpward = pContext->tools.bUpward;
  if ((nTextBits & kTextCalculate) != 0) {
    std::int32_t nWidest = 0;
    for (const CString& sLine : lines) nWidest = std::max(nWidest, widthOf(sLine));
    place = RectAt({place.left, place.top}, nWidest, bUpward ? -std::int64_t{nHeight} : nHeight);
    return nHeight;
  }

  const Rect room = Downward(*pContext, place);
  std::int64_t y = room.top;
  if ((nTextBits & kTextSingleLine) != 0) {
    if ((nTextBits & kTextBottom) != 0) {
      y = std::int64_t{room.bottom} - nHeight;
    } else if ((nTextBits & kTextVCenter) != 0) {
      y += (std::int64_t{room.Height()} - nHeight) / 2;
    }
  }
  for (const CString& sLine : lines) {
    const std::int32_t nLine = widthOf(sLine);
    const std::int64_t nSpare = std::int64_t{room.Width()} - nLine;
    std::int64_t x = room.left;
    if ((nTextBits & kTextRight) != 0) {
      x += nSpare;
    } else if ((nTextBits & kTextCenter) != 0) {
      x += nSpare / 2;
    }
    DrawnItem item = NewItem(DrawnItem::Kind::kText, *pContext,
                             RectAt({ToMeasure(x), ToMeasure(y)}, nLine, metrics.nHeight));
    item.sText = sLine;
    item.nColor = pContext->tools.nText;
    item.nBackground = pContext->tools.nBackground;
    item.bOpaque = pContext->tools.bOpaque;
    item.hFont = pContext->tools.hFont;
    if ((nTextBits & kTextNoClip) == 0) {
      item.clip = item.clip ? Intersection(*item.clip, room) : room;
    }
    Note(std::move(item));
    y += metrics.nHeight;
  }
  return ToMeasure(y - room.top);
}

Rect HeadlessCanvas::Downward(const DeviceContext& context, const Rect& place) const {
  if (!context.tools.bUpward) return place;
  const std::int64_t nLowerEdge = context.hWindow != WindowHandle{}
                                      ? m_parts.windows.ClientRect(context.hWindow).bottom
                                      : m_parts.windows.Metric(kMetricScreenHeight);
  return {place.left, ToMeasure(nLowerEdge - place.top), place.right,
          ToMeasure(nLowerEdge - place.bottom)};
}

DrawnItem HeadlessCanvas::NewItem(DrawnItem::Kind kind, const DeviceContext& context,
                                  const Rect& place) const {
  DrawnItem item;
  item.kind = kind;
  item.hWindow = context.hWindow;
  item.place = place;
  item.clip = context.tools.clip;
  return item;
}

void HeadlessCanvas::Note(DrawnItem item) {
  if (m_parts.pView != nullptr) m_parts.pView->Draw(item, FontOf(item.hFont));
  if (m_parts.bRecord) m_drawn.push_back(std::move(item));
}

int HeadlessCanvas::Save(ContextHandle hContext) {
  DeviceContext* const pContext = m_contexts.Find(hContext);
  if (pContext == nullptr) return 0;
  pContext->saved.push_back(pContext->tools);
  return static_cast<int>(pContext->saved.size());
}

bool HeadlessCanvas::Restore(ContextHandle hContext, int nSaved) {
  DeviceContext* const pContext = m_contexts.Find(hContext);
  if (pContext == nullptr || nSaved < 1 ||
      static_cast<std::size_t>(nSaved) > pContext->saved.size()) {
    return false;
  }
  const auto nKept = static_cast<std::size_t>(nSaved) - 1;
  pContext->tools = pContext->saved[nKept];
  pContext->saved.resize(nKept);
  return true;
}

void HeadlessCanvas::Clip(ContextHandle hContext, const Rect& place) {
  DeviceContext* const pContext = m_contexts.Find(hContext);
  if (pContext == nullptr) return;
  std::optional<Rect>& clip = pContext->tools.clip;
  const Rect part = Downward(*pContext, place);
  clip = clip ? Intersection(*clip, part) : part;
}

bool HeadlessCanvas::SetUpward(ContextHandle hContext, bool bUpward) {
  DeviceContext* const pContext = m_contexts.Find(hContext);
  return pContext != nullptr && std::exchange(pContext->tools.bUpward, bUpward);
}

Color HeadlessCanvas::SetTextColor(ContextHandle hContext, Color nColor) {
  DeviceContext* const pContext = m_contexts.Find(hContext);
  return pContext != nullptr ? std::exchange(pContext->tools.nText, nColor) : 0;
}

Color HeadlessCanvas::SetBackgroundColor(ContextHandle hContext, Color nColor) {
  DeviceContext* const pContext = m_contexts.Find(hContext);
  return pContext != nullptr ? std::exchange(pContext->tools.nBackground, nColor) : 0;
}

bool HeadlessCanvas::SetOpaque(ContextHandle hContext, bool bOpaque) {
  DeviceContext* const pContext = m_contexts.Find(hContext);
  return pContext != nullptr && std::exchange(pContext->tools.bOpaque, bOpaque);
}

PenHandle HeadlessCanvas::CreatePen(Color nColor) {
  return m_pens.Add(nColor);
}

bool HeadlessCanvas::DeletePen(PenHandle hPen) {
  return m_pens.Remove(hPen);
}

// The pen 0 is the one that a context begins with, so that selecting what Select returned always
// puts things back.
PenHandle HeadlessCanvas::SelectPen(ContextHandle hContext, PenHandle hPen) {
  DeviceContext* const pContext = m_contexts.Find(hContext);
  if (pContext == nullptr || (hPen != PenHandle{} && m_pens.Find(hPen) == nullptr)) return {};
  return std::exchange(pContext->tools.hPen, hPen);
}

bool HeadlessCanvas::Line(ContextHandle hContext, Point from, Point to) {
  const DeviceContext* const pContext = m_contexts.Find(hContext);
  if (pContext == nullptr) return false;
  DrawnItem item =
      NewItem(DrawnItem::Kind::kLine, *pContext, Downward(*pContext, {from.x, from.y, to.x, to.y}));
  const Color* const pColor = m_pens.Find(pContext->tools.hPen);
  item.nColor = pColor != nullptr ? *pColor : 0;
  Note(std::move(item));
  return true;
}

BrushHandle HeadlessCanvas::CreateSolidBrush(Color nColor) {
  return m_brushes.Add(nColor);
}

bool HeadlessCanvas::DeleteBrush(BrushHandle hBrush) {
  return m_brushes.Remove(hBrush);
}

std::optional<Color> HeadlessCanvas::BrushColor(BrushHandle hBrush) {
  const Color* const pColor = m_brushes.Find(hBrush);
  return pColor != nullptr ? std::optional(*pColor) : std::nullopt;
}

void HeadlessCanvas::TellColors(ContextHandle hContext, WindowHandle hWindow, BrushHandle hBrush) {
  const DeviceContext* const pContext = m_contexts.Find(hContext);
  const std::optional<Color> brush = BrushColor(hBrush);
  if (pContext == nullptr || !brush || m_parts.pView == nullptr) return;
  m_parts.pView->SetColors(hWindow, {pContext->tools.nText, pContext->tools.nBackground, *brush});
}

bool HeadlessCanvas::Fill(ContextHandle hContext, const Rect& place, BrushHandle hBrush) {
  const DeviceContext* const pContext = m_contexts.Find(hContext);
  const Color* const pColor = m_brushes.Find(hBrush);
  if (pContext == nullptr || pColor == nullptr) return false;
  DrawnItem item = NewItem(DrawnItem::Kind::kFill, *pContext, Downward(*pContext, place));
  item.nColor = *pColor;
  Note(std::move(item));
  return true;
}

// The icons live as long as the desktop, and their handles are their numbers.
IconHandle HeadlessCanvas::SystemIcon(std::intptr_t nIcon) {
  return nIcon >= 0x7F01 && nIcon <= 0x7F04 ? static_cast<IconHandle>(nIcon) : IconHandle{};
}

bool HeadlessCanvas::DrawIcon(ContextHandle hContext, Point at, IconHandle hIcon) {
  const DeviceContext* const pContext = m_contexts.Find(hContext);
  if (pContext == nullptr || SystemIcon(static_cast<std::intptr_t>(hIcon)) != hIcon ||
      hIcon == IconHandle{}) {
    return false;
  }
  at.y = Downward(*pContext, {at.x, at.y, at.x, at.y}).top;
  DrawnItem item =
      NewItem(DrawnItem::Kind::kIcon, *pContext, RectAt(at, kHeadlessIcon.cx, kHeadlessIcon.cy));
  item.hIcon = hIcon;
  Note(std::move(item));
  return true;
}

}  // namespace ald
