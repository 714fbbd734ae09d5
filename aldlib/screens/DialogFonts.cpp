#include "aldlib/screens/DialogFonts.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "aldlib/screens/internal/ControlKinds.h"
#include "aldlib/screens/internal/ControlOf.h"

namespace ald {
namespace {

constexpr std::int32_t kNormalWeight = 400;
constexpr std::uint32_t kComboKindMask = 3;
constexpr std::uint32_t kComboDropDown = 2;
constexpr std::size_t kUsualControls = 30;

Canvas& CurrentCanvas() {
  return CurrentPlatform().desktop.canvas;
}

// A context over a window, or over the screen, with a font in use.
class Measure {
 public:
  Measure(WindowHandle hWindow, FontHandle hFont)
      : m_hContext(CurrentCanvas().Context(hWindow)),
        m_hBefore(CurrentCanvas().SelectFont(m_hContext, hFont)) {}
  Measure(const Measure&) = delete;
  Measure& operator=(const Measure&) = delete;
  ~Measure() {
    CurrentCanvas().SelectFont(m_hContext, m_hBefore);
    CurrentCanvas().Release(m_hContext);
  }

  TextMetrics Metrics() const { return CurrentCanvas().Metrics(m_hContext); }
  Size Extent(std::string_view sText) const {
    return CurrentCanvas().TextExtent(m_hContext, sText);
  }

 private:
  ContextHandle m_hContext;
  FontHandle m_hBefore;
};

TextMetrics MetricsOf(ContextHandle hContext, FontHandle hFont) {
  const FontHandle hBefore = CurrentCanvas().SelectFont(hContext, hFont);
  const TextMetrics metrics = CurrentCanvas().Metrics(hContext);
  CurrentCanvas().SelectFont(hContext, hBefore);
  return metrics;
}

TextMetrics MetricsOf(WindowHandle hWindow) {
  if (!CurrentWindows().IsWindow(hWindow)) return {};
  return Measure(hWindow, CurrentWindows().Font(hWindow)).Metrics();
}

// From the size of a character of one font to that of another, with halves rounded up.
class Scale {
 public:
  Scale(const TextMetrics& from, const TextMetrics& to) : m_from(from), m_to(to) {}

  std::int32_t X(std::int32_t n) const {
    return Scaled(n, m_from.nAverageWidth, m_to.nAverageWidth);
  }
  std::int32_t Y(std::int32_t n) const { return Scaled(n, m_from.nHeight, m_to.nHeight); }

 private:
  static std::int32_t Scaled(std::int32_t nValue, std::int32_t nFrom, std::int32_t nTo) {
    if (nFrom <= 0) return nValue;
    const std::int64_t nTwice = 2 * static_cast<std::int64_t>(nValue) * nTo + nFrom;
    const std::int64_t nDivisor = 2 * static_cast<std::int64_t>(nFrom);
    const std::int64_t nDown = nTwice < 0 && nTwice % nDivisor != 0 ? 1 : 0;
    return ToMeasure(nTwice / nDivisor - nDown);
  }

  TextMetrics m_from;
  TextMetrics m_to;
};

// The inside of a control in the dialog's terms, with the list of a combo that drops it down.
Rect RectInDialog(WindowHandle hDialog, WindowHandle hControl) {
  Windows& windows = CurrentWindows();
  const Rect client = windows.ClientRect(hControl);
  const Point at = windows.ToClient(hDialog, windows.ToScreen(hControl, {0, 0}));
  Rect rect = RectAt(at, client.Width(), client.Height());
  if (IsCombo(hControl) && (windows.Style(hControl) & kComboKindMask) >= kComboDropDown) {
    const Rect dropped = CurrentPlatform().desktop.controls.DroppedRect(hControl);
    rect.bottom = ToMeasure(std::int64_t{rect.bottom} + dropped.Height());
  }
  return rect;
}

void WidenTo(WindowHandle hDialog, std::int64_t nWidth) {
  Windows& windows = CurrentWindows();
  const std::int64_t nMissing = nWidth - windows.ClientRect(hDialog).Width();
  if (nMissing <= 0) return;
  const Rect window = windows.WindowRect(hDialog);
  windows.Place(hDialog, WindowOrder::kKeep, 0, 0, ToMeasure(window.Width() + nMissing),
                window.Height(), kPlaceNoMove | kPlaceNoOrder | kPlaceNoActivate);
}

FontHandle CreateUnBold(FontHandle hFont) {
  tagLOGFONTA font{};
  if (!CurrentCanvas().Describe(hFont, font)) return {};
  font.lfWeight = kNormalWeight;
  return CurrentCanvas().CreateFont(font);
}

}  // namespace

int GetAveCharWidth(ContextHandle hContext, FontHandle hFont) {
  return MetricsOf(hContext, hFont).nAverageWidth;
}

int GetAvgCharWidth(FontHandle hFont) {
  return Measure(WindowHandle{}, hFont).Metrics().nAverageWidth;
}

int GetMaxCharWidth(ContextHandle hContext, FontHandle hFont) {
  return MetricsOf(hContext, hFont).nMaxWidth;
}

int GetDlgCharWidth(WindowHandle hWindow) {
  return MetricsOf(hWindow).nAverageWidth;
}

int GetDlgCharHeight(WindowHandle hWindow) {
  return MetricsOf(hWindow).nHeight;
}

int GetMaxDlgCharWidth(WindowHandle hWindow) {
  return MetricsOf(hWindow).nMaxWidth;
}

int GetDlgStringWidth(WindowHandle hWindow, const char* szText) {
  if (!CurrentWindows().IsWindow(hWindow) || szText == nullptr) return 0;
  return Measure(hWindow, CurrentWindows().Font(hWindow)).Extent(szText).cx;
}

FontHandle UnBoldDialogFont(WindowHandle hDialog, std::int16_t nExtraWidth) try {
  Windows& windows = CurrentWindows();
  const FontHandle hOld = windows.Font(hDialog);
  if (hOld == FontHandle{}) return {};
  const FontHandle hNew = CreateUnBold(hOld);
  if (hNew == FontHandle{}) return {};
  const Scale scale(Measure(hDialog, hOld).Metrics(), Measure(hDialog, hNew).Metrics());

  const Rect window = windows.WindowRect(hDialog);
  windows.Place(hDialog, WindowOrder::kKeep, 0, 0, scale.X(window.Width()),
                scale.Y(window.Height()), kPlaceNoMove | kPlaceNoOrder | kPlaceNoActivate);
  windows.SetFont(hDialog, hNew, false);

  std::int32_t nRightmost = 0;
  std::vector<Windows::Move> moves;
  moves.reserve(kUsualControls);
  for (const WindowHandle hControl : windows.Children(hDialog)) {
    const Rect rect = RectInDialog(hDialog, hControl);
    const Rect scaled{scale.X(rect.left), scale.Y(rect.top), scale.X(rect.right),
                      scale.Y(rect.bottom)};
    moves.push_back({hControl, scaled.left, scaled.top, scaled.Width(), scaled.Height(),
                     kPlaceNoOrder | kPlaceNoActivate});
    nRightmost = std::max(nRightmost, scaled.right);
    if (!KeepsBoldFont(hControl)) windows.SetFont(hControl, hNew, false);
  }
  windows.PlaceAll(moves);
  if (nExtraWidth != 0) WidenTo(hDialog, std::int64_t{nRightmost} + nExtraWidth);
  return hNew;
} catch (...) {
  return {};
}

}  // namespace ald
