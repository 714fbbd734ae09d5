#include "aldlib/messages/MessageBoxEx.h"

#include <algorithm>
#include <string_view>

#include "aldlib/frame/Alderlib.h"
#include "aldlib/messages/internal/ShowMessage.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/screens/HelpLevel.h"
#include "aldlib/text/ResourceStrings.h"

namespace ald {
namespace {

// All in pixels.
constexpr std::int32_t kTextWidth = 240;
constexpr std::int32_t kTextExtra = 10;
constexpr std::int32_t kMargin = 18;
constexpr std::int32_t kLeastHeight = 70;
constexpr std::int32_t kTextLeftOfIcon = 46;
constexpr std::int32_t kButtonWidth = 58;
constexpr std::int32_t kButtonHeight = 28;
constexpr std::int32_t kButtonGap = 16;
// The room below for the row of buttons, in eighths.
constexpr std::int32_t kButtonRowEighths = 304;

constexpr std::uint32_t kBoxStyle = 0x80C800C0;
constexpr std::uint32_t kIconStyle = 0x40000003;
constexpr std::uint32_t kTextStyle = 0x40000000;
constexpr std::uint32_t kButtonStyle = 0x40010000;

constexpr std::int32_t kIconId = 2704;
constexpr std::int32_t kTextId = -1;
constexpr std::uint32_t kIdMask = 0xFFFF;

// One at a time: of two boxes on the screen the earlier one paints the icon of the later.
constinit IconHandle g_hIcon{};

Size MeasureText(const CString& sText) {
  Canvas& canvas = CurrentPlatform().desktop.canvas;
  const ContextHandle hScreen = canvas.Context(WindowHandle{});
  const FontHandle hBefore = canvas.SelectFont(hScreen, canvas.StockFont(kStockFontSystem));
  Rect room{0, 0, kTextWidth, 0};
  canvas.DrawText(hScreen, sText, room, kTextCalculate | kTextNoPrefix | kTextWordBreak);
  canvas.SelectFont(hScreen, hBefore);
  canvas.Release(hScreen);
  return {ToMeasure(std::int64_t{room.Width()} + kTextExtra), room.Height()};
}

std::int32_t WidthOf(const MessageBoxButton& button) {
  return button.nWidth != 0 ? button.nWidth : kButtonWidth;
}

// Lays the box out in pixels and turns that into dialog units.
class BoxBuilder {
 public:
  BoxBuilder(const CString& sText, const MessageBoxButton* pButtons)
      : m_units(CurrentPlatform().desktop.windows.DialogBaseUnits()) {
    Windows& windows = CurrentPlatform().desktop.windows;
    const Size text = MeasureText(sText);
    const Size icon{windows.Metric(kMetricIconWidth), windows.Metric(kMetricIconHeight)};
    const std::int32_t nHeight =
        std::max(ToMeasure(std::int64_t{text.cy} + 2 * kMargin), kLeastHeight);
    const std::int32_t xText = icon.cx + kTextLeftOfIcon;
    const std::int32_t nWidth = ToMeasure(std::int64_t{text.cx} + 2 * kMargin + xText);

    m_box.nStyle = kBoxStyle;
    m_box.sTitle = CurrentPlatform().desktop.presenter.ApplicationName();
    m_box.nPointSize = 8;
    m_box.sFace = "Tahoma";
    m_box.cx = ToX(nWidth);
    m_box.cy = Narrow(Divide(std::int64_t{nHeight} * 8 + kButtonRowEighths, m_units.cy));
    Add("static", kIconId, kIconStyle, {kMargin, (nHeight - icon.cy) / 2}, icon, "");
    Add("static", kTextId, kTextStyle, {xText, (nHeight - text.cy) / 2}, text, sText);
    AddButtons(pButtons, nWidth, nHeight);
  }

  const DialogTemplate& Box() const { return m_box; }

 private:
  static std::int64_t Divide(std::int64_t nValue, std::int32_t nBy) {
    return nBy != 0 ? nValue / nBy : nValue;
  }
  static std::int16_t Narrow(std::int64_t nValue) { return static_cast<std::int16_t>(nValue); }
  std::int16_t ToX(std::int32_t n) const { return Narrow(Divide(std::int64_t{n} * 4, m_units.cx)); }
  std::int16_t ToY(std::int32_t n) const { return Narrow(Divide(std::int64_t{n} * 8, m_units.cy)); }

  void Add(const char* szClass, std::int32_t nId, std::uint32_t nStyle, Point at, Size size,
           const CString& sText) {
    m_box.items.push_back({nStyle | kStyleVisible, ToX(at.x), ToY(at.y), ToX(size.cx), ToY(size.cy),
                           nId, szClass, sText});
  }

  // The row is centred; one that is wider than the box begins left of it.
  void AddButtons(const MessageBoxButton* pButtons, std::int32_t nWidth, std::int32_t y) {
    if (pButtons == nullptr) return;
    std::int32_t nRow = -kButtonGap;
    for (const auto* p = pButtons; p->nId != 0; ++p) nRow += WidthOf(*p) + kButtonGap;
    std::int32_t x = (nWidth - std::max(nRow, 0)) / 2;
    for (const auto* p = pButtons; p->nId != 0; ++p) {
      Add("button", p->nId, kButtonStyle, {x, y}, {WidthOf(*p), kButtonHeight},
          p->szCaption != nullptr ? p->szCaption : "");
      x += WidthOf(*p) + kButtonGap;
    }
  }

  DialogTemplate m_box;
  Size m_units;
};

// The moveable block that the box is built beside: a system too short of memory for it shows none.
class BoxMemory {
 public:
  explicit BoxMemory(std::size_t nText)
      : m_hBlock(CurrentPlatform().machine.Allocate(static_cast<std::uint32_t>(2 * nText + 1000))),
        m_bLocked(CurrentPlatform().machine.Lock(m_hBlock) != nullptr) {}
  BoxMemory(const BoxMemory&) = delete;
  BoxMemory& operator=(const BoxMemory&) = delete;
  ~BoxMemory() {
    if (m_bLocked) CurrentPlatform().machine.Unlock(m_hBlock);
    CurrentPlatform().machine.Free(m_hBlock);
  }

  bool IsThere() const { return m_bLocked; }

 private:
  MemoryHandle m_hBlock;
  bool m_bLocked;
};

}  // namespace

int ALWMessageBoxEx(WindowHandle hOwner, CDynamicHeapFixedString& sText, int nHelpLevel,
                    std::intptr_t nIcon, const MessageBoxButton* pButtons) try {
  const Desktop& desktop = CurrentPlatform().desktop;
  AlderLibDataType* const pRecord = MyAlderLibDataPtr;
  const unsigned char bWasInMessage = pRecord != nullptr ? pRecord->bInMessage : 0;
  if (pRecord != nullptr) pRecord->bInMessage = 1;
  PushHelpLevel(nHelpLevel);

  const CString sShown(sText.view());
  const BoxMemory memory(sShown.size());
  if (!memory.IsThere()) return 0;
  g_hIcon = desktop.canvas.SystemIcon(nIcon);
  const BoxBuilder builder(sShown, pButtons);
  const ModuleHandle hModule =
      desktop.windows.IsWindow(hOwner) ? desktop.windows.Module(hOwner) : AlderLibHandle();
  const std::intptr_t nPressed = desktop.presenter.RunDialog(
      hOwner, hModule, builder.Box(),
      [](WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t nWord, std::intptr_t nLong) {
        return std::intptr_t{MsgBoxDlgProc(hDialog, nMessage, nWord, nLong)};
      },
      0);

  PopHelpLevel();
  // The record may have gone while the box was up.
  if (pRecord != nullptr && MyAlderLibDataPtr == pRecord) pRecord->bInMessage = bWasInMessage;
  return static_cast<int>(nPressed);
} catch (...) {
  return 0;
}

int ALWMessageBoxEx(WindowHandle hOwner, int nString, std::intptr_t nIcon,
                    const MessageBoxButton* pButtons) try {
  CFixedString<2048> sLoaded;
  MyLoadString(static_cast<std::uint32_t>(nString), sLoaded);
  CDynamicHeapFixedString sText(sLoaded.GetSize());
  sText = sLoaded;
  return ALWMessageBoxEx(hOwner, sText, nString, nIcon, pButtons);
} catch (...) {
  return 0;
}

int MsgBoxDlgProc(WindowHandle hDialog, std::uint32_t nMessage, std::uint32_t nWord,
                  std::intptr_t) {
  Windows& windows = CurrentPlatform().desktop.windows;
  if (nMessage == kMessageInitDialog) {
    if (g_hIcon != IconHandle{}) {
      windows.SetProcedure(
          windows.Child(hDialog, kIconId),
          [](WindowHandle hIcon, std::uint32_t nSent, std::uint32_t nSentWord,
             std::intptr_t nSentLong) { return IconProc(hIcon, nSent, nSentWord, nSentLong); });
    }
    const Rect box = windows.WindowRect(hDialog);
    windows.Place(hDialog, WindowOrder::kKeep,
                  ToMeasure((std::int64_t{windows.Metric(kMetricScreenWidth)} - box.Width()) / 2),
                  ToMeasure((std::int64_t{windows.Metric(kMetricScreenHeight)} - box.Height()) / 3),
                  0, 0, kPlaceNoSize | kPlaceNoActivate);
    return 1;
  }
  if (nMessage == kMessageCommand) {
    const auto nId = static_cast<int>(nWord & kIdMask);
    if (nId == kButtonHelp) {
      ShowMessageHelp(hDialog);
    } else {
      CurrentPlatform().desktop.presenter.EndDialog(hDialog, nId);
    }
  }
  return 0;
}

// Answers 0 to everything and passes nothing on.
std::intptr_t IconProc(WindowHandle hIcon, std::uint32_t nMessage, std::uint32_t, std::intptr_t) {
  if (nMessage == kMessagePaint) {
    Canvas& canvas = CurrentPlatform().desktop.canvas;
    const ContextHandle hContext = canvas.BeginPaint(hIcon);
    canvas.DrawIcon(hContext, {0, 0}, g_hIcon);
    canvas.EndPaint(hIcon, hContext);
  }
  return 0;
}

}  // namespace ald
