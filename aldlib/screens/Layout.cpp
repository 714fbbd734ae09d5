#include "aldlib/screens/Layout.h"

#include "aldlib/screens/internal/ControlOf.h"

namespace ald {
namespace {

constexpr std::uint32_t kMoveOnly = kPlaceNoSize | kPlaceNoOrder | kPlaceNoActivate;
constexpr std::uint32_t kSizeOnly = kPlaceNoMove | kPlaceNoOrder | kPlaceNoActivate;

Rect RectInParent(WindowHandle hParent, WindowHandle hControl) {
  Rect rect = CurrentWindows().WindowRect(hControl);
  ScreenToClientRect(hParent, &rect);
  return rect;
}

// Where the flags of one direction put a span of length `nLength` that starts at `nOwn`; the flags
// of the other direction stand eight bits further up.
std::int64_t Aligned(std::uint32_t nFlags, std::int64_t nOwn, std::int64_t nLength,
                     std::int64_t nReference, std::int64_t nReferenceLength) {
  if ((nFlags & kAlignLeft) != 0) return nReference;
  if ((nFlags & kAlignRight) != 0) return nReference + nReferenceLength - nLength;
  if ((nFlags & kAlignRightOf) != 0) return nReference + nReferenceLength;
  if ((nFlags & kAlignLeftOf) != 0) return nReference - nLength;
  if ((nFlags & kAlignCenter) != 0) return (2 * nReference - nLength + nReferenceLength) / 2;
  return nOwn;
}

// A child is placed in its parent's terms, any other window on the screen.
Point PlaceOf(WindowHandle hWindow, Point screen) {
  Windows& windows = CurrentWindows();
  const bool bChild = (windows.Style(hWindow) & kStyleChild) != 0;
  return bChild ? windows.ToClient(windows.Parent(hWindow), screen) : screen;
}

}  // namespace

int AlignControls(WindowHandle hParent, int nId, int nReferenceId, std::int16_t dx, std::int16_t dy,
                  std::uint32_t nFlags) {
  const WindowHandle hControl = ControlOf(hParent, nId);
  const WindowHandle hReference = ControlOf(hParent, nReferenceId);
  if (hControl == WindowHandle{} || hReference == WindowHandle{}) return 0;
  const Rect own = RectInParent(hParent, hControl);
  const Rect reference = RectInParent(hParent, hReference);
  const std::int64_t y =
      Aligned(nFlags >> 8, own.top, own.Height(), reference.top, reference.Height()) + dy;
  const std::int64_t x =
      Aligned(nFlags, own.left, own.Width(), reference.left, reference.Width()) + dx;
  return CurrentWindows().Place(hControl, WindowOrder::kKeep, ToMeasure(x), ToMeasure(y), 0, 0,
                                kMoveOnly)
             ? 1
             : 0;
}

int AlignStatToLB(WindowHandle hParent, int nId, int nReferenceId) {
  return AlignControls(hParent, nId, nReferenceId, 0, 0, kAlignAbove);
}

void AlignControlBy(WindowHandle hParent, int nId, std::int16_t dx, std::int16_t dy) {
  AlignControls(hParent, nId, nId, dx, dy, 0);
}

void StretchDlgWindow(WindowHandle hParent, int nId, std::int16_t dw, std::int16_t dh) {
  const WindowHandle hControl = ControlOf(hParent, nId);
  if (hControl == WindowHandle{}) return;
  const Rect rect = CurrentWindows().WindowRect(hControl);
  CurrentWindows().Place(hControl, WindowOrder::kKeep, 0, 0,
                         ToMeasure(std::int64_t{rect.Width()} + dw),
                         ToMeasure(std::int64_t{rect.Height()} + dh), kSizeOnly | kPlaceNoRedraw);
}

int AsWideAs(WindowHandle hParent, int nReferenceId, int nTargetId) {
  const WindowHandle hReference = ControlOf(hParent, nReferenceId);
  const WindowHandle hTarget = ControlOf(hParent, nTargetId);
  if (hReference == WindowHandle{} || hTarget == WindowHandle{}) return 0;
  const std::int32_t nWidth = CurrentWindows().WindowRect(hReference).Width();
  const std::int32_t nHeight = CurrentWindows().WindowRect(hTarget).Height();
  CurrentWindows().Place(hTarget, WindowOrder::kKeep, 0, 0, nWidth, nHeight, kSizeOnly);
  return nWidth;
}

void CenterWindow(WindowHandle hWindow, WindowHandle hReference, bool bVerticalToo) {
  Windows& windows = CurrentWindows();
  if (!windows.IsWindow(hWindow) || !windows.IsWindow(hReference)) return;
  const Rect own = windows.WindowRect(hWindow);
  const Rect reference = windows.WindowRect(hReference);
  const auto centred = [](std::int64_t nFrom, std::int64_t nRoom, std::int64_t nLength) {
    return ToMeasure(nFrom + (nRoom - nLength) / 2);
  };
  const std::int32_t x = centred(reference.left, reference.Width(), own.Width());
  const std::int32_t y =
      bVerticalToo ? centred(reference.top, reference.Height(), own.Height()) : own.top;
  const Point place = PlaceOf(hWindow, {x, y});
  windows.Place(hWindow, WindowOrder::kKeep, place.x, place.y, 0, 0, kMoveOnly);
}

void ResizeDialogToBitmap(WindowHandle hDialog, const tagSIZE& bitmap, bool bWidth, bool bHeight,
                          std::uint32_t nMargin) {
  Windows& windows = CurrentWindows();
  if (!windows.IsWindow(hDialog)) return;
  const Rect window = windows.WindowRect(hDialog);
  const Rect client = windows.ClientRect(hDialog);
  const std::int64_t margin = static_cast<std::int32_t>(nMargin);
  // What the frame takes comes on top of the inside.
  const std::int64_t cx =
      bWidth ? bitmap.cx + margin + window.Width() - client.Width() : window.Width();
  const std::int64_t cy =
      bHeight ? bitmap.cy + margin + window.Height() - client.Height() : window.Height();
  windows.Place(hDialog, WindowOrder::kKeep, 0, 0, ToMeasure(cx), ToMeasure(cy), kSizeOnly);
}

void ScreenToClientRect(WindowHandle hWindow, Rect* pRect) {
  if (pRect == nullptr) return;
  const Point first = CurrentWindows().ToClient(hWindow, {pRect->left, pRect->top});
  const Point last = CurrentWindows().ToClient(hWindow, {pRect->right, pRect->bottom});
  *pRect = {first.x, first.y, last.x, last.y};
}

void ClientToScreenRect(WindowHandle hWindow, Rect* pRect) {
  if (pRect == nullptr) return;
  const Point first = CurrentWindows().ToScreen(hWindow, {pRect->left, pRect->top});
  const Point last = CurrentWindows().ToScreen(hWindow, {pRect->right, pRect->bottom});
  *pRect = {first.x, first.y, last.x, last.y};
}

int GetALWWindowRect(WindowHandle hWindow, Rect* pRect) {
  if (!CurrentWindows().IsWindow(hWindow)) return 0;
  Rect rect{};
  const std::intptr_t nAnswer = CurrentPlatform().desktop.queue.Send(
      hWindow, kMessageAskRect, 0, reinterpret_cast<std::intptr_t>(&rect));
  if (nAnswer == 0 || rect == Rect{}) rect = CurrentWindows().WindowRect(hWindow);
  if (pRect != nullptr) *pRect = rect;
  return 1;
}

}  // namespace ald
