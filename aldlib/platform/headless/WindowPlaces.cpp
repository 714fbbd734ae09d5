#include <algorithm>

#include "aldlib/platform/headless/internal/HeadlessParts.h"

// Where windows lie, in which order, and what of them is to be painted.
namespace ald {
namespace {

bool IsEmpty(const Rect& place) {
  return place.right <= place.left || place.bottom <= place.top;
}

Rect Union(const Rect& one, const Rect& other) {
  return {std::min(one.left, other.left), std::min(one.top, other.top),
          std::max(one.right, other.right), std::max(one.bottom, other.bottom)};
}

}  // namespace

Rect HeadlessWindows::FrameOf(std::uint32_t nStyle) {
  if ((nStyle & kStyleCaption) != kStyleCaption) return {};
  return {kHeadlessBorder, kHeadlessBorder + kHeadlessCaption, kHeadlessBorder, kHeadlessBorder};
}

Rect HeadlessWindows::WindowRect(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return {};
  if (!pWindow->IsChild()) return pWindow->place;
  const Point origin = ToScreen(pWindow->hParent, {0, 0});
  return Moved(pWindow->place, origin.x, origin.y);
}

Rect HeadlessWindows::ClientRect(WindowHandle hWindow) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return {};
  const Rect frame = FrameOf(pWindow->nStyle);
  return {0, 0, std::max(0, std::max(0, pWindow->place.Width()) - frame.left - frame.right),
          std::max(0, std::max(0, pWindow->place.Height()) - frame.top - frame.bottom)};
}

Point HeadlessWindows::ToScreen(WindowHandle hWindow, Point client) {
  for (const HeadlessWindow* pWindow = Find(hWindow); pWindow != nullptr;
       pWindow = pWindow->IsChild() ? Find(pWindow->hParent) : nullptr) {
    const Rect frame = FrameOf(pWindow->nStyle);
    client = Moved(client, std::int64_t{pWindow->place.left} + frame.left,
                   std::int64_t{pWindow->place.top} + frame.top);
  }
  return client;
}

Point HeadlessWindows::ToClient(WindowHandle hWindow, Point screen) {
  const Point origin = ToScreen(hWindow, {0, 0});
  return Moved(screen, -std::int64_t{origin.x}, -std::int64_t{origin.y});
}

bool HeadlessWindows::Place(WindowHandle hWindow, WindowOrder order, std::int32_t x, std::int32_t y,
                            std::int32_t cx, std::int32_t cy, std::uint32_t nPlaceBits) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return false;
  const Rect before = pWindow->place;
  const bool bWasShown = pWindow->IsShown();
  Rect place = before;
  if ((nPlaceBits & kPlaceNoMove) == 0) {
    place = Moved(place, std::int64_t{x} - place.left, std::int64_t{y} - place.top);
  }
  if ((nPlaceBits & kPlaceNoSize) == 0) {
    place = RectAt({place.left, place.top}, std::max(0, cx), std::max(0, cy));
  }
  pWindow->place = place;
  m_parts.Changed(hWindow);
  if ((nPlaceBits & kPlaceShow) != 0) pWindow->nStyle |= kStyleVisible;
  if ((nPlaceBits & kPlaceHide) != 0) pWindow->nStyle &= ~kStyleVisible;

  const bool bOrder = order != WindowOrder::kKeep && (nPlaceBits & kPlaceNoOrder) == 0;
  if (bOrder) BringToFront(hWindow, order == WindowOrder::kTopmost || pWindow->bTopmost);

  const bool bShown = pWindow->IsShown();
  if (bShown && !bWasShown) PaintAll(hWindow);
  if ((nPlaceBits & kPlaceNoRedraw) == 0 && (place != before || bShown != bWasShown)) {
    if (pWindow->IsChild() && bWasShown) NoteInvalid(pWindow->hParent, before, true);
    if (bShown) NoteInvalid(hWindow, ClientRect(hWindow), true);
  }
  if (bOrder && bShown && (nPlaceBits & kPlaceNoActivate) == 0 && !pWindow->IsChild()) {
    Activate(hWindow);
  }
  return true;
}

bool HeadlessWindows::PlaceAll(std::span<const Move> moves) {
  for (const Move& move : moves) {
    if (!IsWindow(move.hWindow)) return false;
  }
  for (const Move& move : moves) {
    Place(move.hWindow, WindowOrder::kKeep, move.x, move.y, move.cx, move.cy, move.nPlaceBits);
  }
  return true;
}

// Topmost windows stay in front of all others, and what a window owns in front of the window.
void HeadlessWindows::BringToFront(WindowHandle hWindow, bool bTopmost) {
  HeadlessWindow* const pWindow = Find(hWindow);
  std::vector<WindowHandle>* const pSiblings = SiblingsOf(*pWindow);
  if (pSiblings == nullptr) return;
  pWindow->bTopmost = bTopmost;
  pWindow->nUsed = ++m_nUse;
  std::erase(*pSiblings, hWindow);
  const auto itPlace =
      bTopmost ? pSiblings->begin()
               : std::find_if(pSiblings->begin(), pSiblings->end(),
                              [this](WindowHandle hOther) { return !Find(hOther)->bTopmost; });
  pSiblings->insert(itPlace, hWindow);
  m_parts.Changed(pWindow->IsChild() ? pWindow->hParent : hWindow);
  if (pWindow->IsChild()) return;
  // From the back, so that the owned windows keep their order among themselves.
  const std::vector<WindowHandle> order = m_order;
  for (auto it = order.rbegin(); it != order.rend(); ++it) {
    const HeadlessWindow* const pOther = Find(*it);
    if (pOther->hParent == hWindow && *it != hWindow) BringToFront(*it, pOther->bTopmost);
  }
}

void HeadlessWindows::Invalidate(WindowHandle hWindow, const Rect* pPart, bool bErase) {
  if (!IsWindow(hWindow)) return;
  NoteInvalid(hWindow, pPart != nullptr ? *pPart : ClientRect(hWindow), bErase);
}

void HeadlessWindows::NoteInvalid(WindowHandle hWindow, const Rect& part, bool bErase) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return;
  if (m_parts.bRecord) m_invalidations.push_back({hWindow, part, bErase});
  if (IsEmpty(part)) return;
  pWindow->invalid = pWindow->invalid ? Union(*pWindow->invalid, part) : part;
  pWindow->bToPaint = true;
}

void HeadlessWindows::PaintAll(WindowHandle hWindow) {
  HeadlessWindow* const pWindow = Find(hWindow);
  if (pWindow == nullptr) return;
  pWindow->bToPaint = true;
  pWindow->invalid = ClientRect(hWindow);
  for (const WindowHandle hChild : pWindow->children) PaintAll(hChild);
}

WindowHandle HeadlessWindows::NextToPaint() {
  WindowHandle hFound{};
  for (const WindowHandle hWindow : m_order) {
    if (FindToPaint(hWindow, hFound)) break;
  }
  return hFound;
}

// A window comes before its children, and what is hidden or has no inside waits.
bool HeadlessWindows::FindToPaint(WindowHandle hWindow, WindowHandle& hFound) {
  const HeadlessWindow* const pWindow = Find(hWindow);
  if (!pWindow->IsShown()) return false;
  if (pWindow->bToPaint && !IsEmpty(ClientRect(hWindow))) {
    hFound = hWindow;
    return true;
  }
  return std::any_of(pWindow->children.begin(), pWindow->children.end(),
                     [&](WindowHandle hChild) { return FindToPaint(hChild, hFound); });
}

int HeadlessWindows::Metric(int nMetric) {
  switch (nMetric) {
    case kMetricScreenWidth:
      return m_parts.Screen().cx;
    case kMetricScreenHeight:
      return m_parts.Screen().cy;
    case kMetricIconWidth:
      return kHeadlessIcon.cx;
    case kMetricIconHeight:
      return kHeadlessIcon.cy;
    default:
      return 0;
  }
}

Size HeadlessWindows::DialogBaseUnits() {
  const TextMetrics metrics = m_parts.canvas.MetricsOf({});
  return {metrics.nAverageWidth, metrics.nHeight};
}

}  // namespace ald
