#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "aldlib/platform/Canvas.h"
#include "aldlib/platform/headless/HeadlessDesktop.h"
#include "aldlib/platform/headless/internal/HandleTable.h"

namespace ald {

struct HeadlessParts;

// Nothing is painted: what is drawn is written down, one item a line of text, a line, an area or an
// icon.
class HeadlessCanvas : public Canvas {
 public:
  explicit HeadlessCanvas(HeadlessParts& parts);

  ContextHandle Context(WindowHandle hWindow) override;
  void Release(ContextHandle hContext) override;
  ContextHandle BeginPaint(WindowHandle hWindow) override;
  void EndPaint(WindowHandle hWindow, ContextHandle hContext) override;
  FontHandle CreateFont(const tagLOGFONTA& font) override;
  FontHandle StockFont(int nStockFont) override;
  bool Describe(FontHandle hFont, tagLOGFONTA& font) override;
  bool DeleteFont(FontHandle hFont) override;
  FontHandle SelectFont(ContextHandle hContext, FontHandle hFont) override;
  TextMetrics Metrics(ContextHandle hContext) override;
  Size TextExtent(ContextHandle hContext, std::string_view sText) override;
  int DrawText(ContextHandle hContext, std::string_view sText, Rect& place,
               std::uint32_t nTextBits) override;
  int Save(ContextHandle hContext) override;
  bool Restore(ContextHandle hContext, int nSaved) override;
  void Clip(ContextHandle hContext, const Rect& place) override;
  bool SetUpward(ContextHandle hContext, bool bUpward) override;
  Color SetTextColor(ContextHandle hContext, Color nColor) override;
  Color SetBackgroundColor(ContextHandle hContext, Color nColor) override;
  bool SetOpaque(ContextHandle hContext, bool bOpaque) override;
  PenHandle CreatePen(Color nColor) override;
  bool DeletePen(PenHandle hPen) override;
  PenHandle SelectPen(ContextHandle hContext, PenHandle hPen) override;
  bool Line(ContextHandle hContext, Point from, Point to) override;
  BrushHandle CreateSolidBrush(Color nColor) override;
  bool DeleteBrush(BrushHandle hBrush) override;
  bool Fill(ContextHandle hContext, const Rect& place, BrushHandle hBrush) override;
  IconHandle SystemIcon(std::intptr_t nIcon) override;
  bool DrawIcon(ContextHandle hContext, Point at, IconHandle hIcon) override;

  // Those of the system's font for a handle that names none.
  TextMetrics MetricsOf(FontHandle hFont);
  const tagLOGFONTA& FontOf(FontHandle hFont);

  // Has the view show a window in the colours that the context was given, on that brush.
  void TellColors(ContextHandle hContext, WindowHandle hWindow, BrushHandle hBrush);

  std::size_t Contexts() const { return m_contexts.Count(); }
  std::size_t Fonts() const { return m_fonts.Count() - 1; }  // but for the system's
  std::size_t Pens() const { return m_pens.Count(); }
  std::size_t Brushes() const { return m_brushes.Count(); }
  std::optional<Color> BrushColor(BrushHandle hBrush);

  std::vector<DrawnItem> m_drawn;

 private:
  struct Tools {
    FontHandle hFont{};
    PenHandle hPen{};  // 0 for the black one that every context begins with
    Color nText = 0x00000000;
    Color nBackground = 0x00FFFFFF;
    bool bOpaque = true;
    bool bUpward = false;
    std::optional<Rect> clip;  // y downward, whatever the context counts
  };
  struct DeviceContext {
    WindowHandle hWindow{};
    Tools tools;
    std::vector<Tools> saved;
  };

  // A place with y downward.
  Rect Downward(const DeviceContext& context, const Rect& place) const;

  // The place has y downward.
  DrawnItem NewItem(DrawnItem::Kind kind, const DeviceContext& context, const Rect& place) const;

  std::int32_t WidthOf(FontHandle hFont, std::string_view sText);
  void Note(DrawnItem item);

  HeadlessParts& m_parts;
  HandleTable<ContextHandle, DeviceContext> m_contexts;
  HandleTable<FontHandle, tagLOGFONTA> m_fonts;
  HandleTable<PenHandle, Color> m_pens;
  HandleTable<BrushHandle, Color> m_brushes;
  FontHandle m_hSystemFont;
};

}  // namespace ald
